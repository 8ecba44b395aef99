// frmAisDetails: the detail block of one AIS target, with print and copy.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QPlainTextEdit;

namespace kelvane::forms {

class FrmAisDetails : public QDialog {
  Q_OBJECT
 public:
  FrmAisDetails(const std::vector<std::string>& lines, QWidget* parent = nullptr);
  std::string Text() const;
  void cmdCopy_Click();
  void cmdPrint_Click();

 private:
  QPlainTextEdit* txtDetails_;
};

}  // namespace kelvane::forms
