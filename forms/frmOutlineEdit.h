// frmOutlineEdit: moves the whole outline on show by a difference of
// latitude and of longitude (decimal degrees), every point but the breaks
// between its lines; cmdSave writes the moved outline back to its .l40
// file. The outline is the caller's, changed in place at cmdApply.
#pragma once

#include <QDialog>
#include <filesystem>
#include <vector>

#include "core/positions.h"
#include "forms/formsupport.h"

class QLineEdit;
class QPushButton;

namespace kelvane::forms {

class frmOutlineEdit : public QDialog {
  Q_OBJECT
 public:
  frmOutlineEdit(std::vector<Position>& outline, std::filesystem::path file, QWidget* parent = nullptr);

  MessageSink showMessage;
  // Called after each change of the outline, for the chart to redraw.
  std::function<void()> changed;

  QLineEdit* txtLatDiff = nullptr;
  QLineEdit* txtLonDiff = nullptr;
  QPushButton* cmdApply = nullptr;
  QPushButton* cmdSave = nullptr;
  QPushButton* cmdClose = nullptr;

  void cmdApply_Click();
  void cmdSave_Click();

 private:
  std::vector<Position>& outline_;
  std::filesystem::path file_;
};

}  // namespace kelvane::forms
