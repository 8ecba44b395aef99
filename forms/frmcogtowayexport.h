// frmCOGToWayExport: the calculated steps as editable waypoint lines, saved
// as text or as a GPX waypoint file.
#pragma once

#include <string>
#include <vector>

#include "core/datatree.h"
#include "core/positions.h"

// Qt after the program's own headers: Qt's "slots" keyword macro would
// otherwise rewrite a field of that name.
#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

namespace kelvane::forms {

class frmCOGToWayExport : public QDialog {
  Q_OBJECT
 public:
  frmCOGToWayExport(const Folders& folders, const std::vector<Position>& steps, QWidget* parent = nullptr);
  std::string Save();  // the message shown

  QPlainTextEdit* txtLines = nullptr;
  QCheckBox* chkAsGPX = nullptr;
  QLineEdit* txtgpx = nullptr;

 private:
  Folders folders_;
};

}  // namespace kelvane::forms
