// frmViewWind: every value the last GRIB import decoded (~GrDa.tmp), one
// line each: time, position, and the wind of its U/V pair.
#pragma once

#include <filesystem>

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

class frmViewWind : public QDialog {
  Q_OBJECT
 public:
  explicit frmViewWind(const std::filesystem::path& gribPoints, QWidget* parent = nullptr);
  QListWidget* List1 = nullptr;
  QLabel* lblEmpty = nullptr;
  QPushButton* cmdOK = nullptr;
};

}  // namespace kelvane::forms
