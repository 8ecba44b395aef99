// frmCompoundExport: several route files and waypoint files into one GPX.
#pragma once

#include <string>

#include "core/datatree.h"

// Qt after the program's own headers: Qt's "slots" keyword macro would
// otherwise rewrite a field of that name.
#include <QDialog>

class QListWidget;
class QLineEdit;

namespace kelvane::forms {

class frmCompoundExport : public QDialog {
  Q_OBJECT
 public:
  explicit frmCompoundExport(const Folders& folders, QWidget* parent = nullptr);
  // Writes the file; `confirmOverwrite` is asked "File exist - Overwrite?"
  // when the file is there. Returns the message shown ("" when refused).
  template <typename Ask>
  std::string Export(Ask confirmOverwrite);

  QListWidget* lstRoutes = nullptr;
  QListWidget* lstWaypoints = nullptr;
  QLineEdit* txtName = nullptr;

 private:
  std::string ExportChecked(bool overwriteAllowed);
  Folders folders_;
};

template <typename Ask>
std::string frmCompoundExport::Export(Ask confirmOverwrite) {
  return ExportChecked(confirmOverwrite());
}

}  // namespace kelvane::forms
