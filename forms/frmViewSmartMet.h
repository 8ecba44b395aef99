// frmViewSmartMet: what the wind store (~wind.dat) holds, one line per grid
// point and forecast time, after its header record.
#pragma once

#include <filesystem>

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

class frmViewSmartMet : public QDialog {
  Q_OBJECT
 public:
  explicit frmViewSmartMet(const std::filesystem::path& windStore, QWidget* parent = nullptr);
  QListWidget* List1 = nullptr;
  QLabel* lblEmpty = nullptr;
  QPushButton* cmdOK = nullptr;
};

}  // namespace kelvane::forms
