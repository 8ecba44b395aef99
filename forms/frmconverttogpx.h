// frmConvertWayToGPX and frmConvertRouteToGPX: a legacy .way or .rte file
// to GPX. A click on a file shows its records; Save writes the GPX file.
#pragma once


#include "core/datatree.h"

// Qt after the program's own headers: Qt's "slots" keyword macro would
// otherwise rewrite a field of that name.
#include <QDialog>

class QListWidget;
class QLineEdit;

namespace kelvane::forms {

class frmConvertToGPX : public QDialog {
  Q_OBJECT
 public:
  enum class Kind { Waypoints, Route };  // frmConvertWayToGPX, frmConvertRouteToGPX
  frmConvertToGPX(const Folders& folders, Kind kind, QWidget* parent = nullptr);

  QListWidget* lstFiles = nullptr;
  QListWidget* lstRecords = nullptr;
  QLineEdit* txtDesc = nullptr;
  QLineEdit* txtName = nullptr;

 private:
  void ShowRecords();
  void Save();
  Folders folders_;
  Kind kind_;
};

}  // namespace kelvane::forms
