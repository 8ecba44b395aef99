// frmCOGexport: the lines of the course over ground results to a text file.
#pragma once

#include <string>
#include <vector>

#include "core/datatree.h"

// Qt after the program's own headers: Qt's "slots" keyword macro would
// otherwise rewrite a field of that name.
#include <QDialog>

class QListWidget;
class QLineEdit;

namespace kelvane::forms {

class frmCOGexport : public QDialog {
  Q_OBJECT
 public:
  frmCOGexport(const Folders& folders, std::vector<std::string> resultLines, QWidget* parent = nullptr);
  std::string Save();  // the message shown

  QListWidget* lstResults = nullptr;
  QLineEdit* txtFolder = nullptr;
  QLineEdit* txtName = nullptr;

 private:
  std::vector<std::string> lines_;
};

}  // namespace kelvane::forms
