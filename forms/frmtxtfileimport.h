// frmTxtFileImport: name,lat,lon[,speed] text lines to a .way or .rte file.
#pragma once

#include <string>
#include <vector>

#include "core/datatree.h"
#include "routes/legacy.h"

// Qt after the program's own headers: Qt's "slots" keyword macro would
// otherwise rewrite a field of that name.
#include <QDialog>

class QListWidget;
class QLineEdit;
class QRadioButton;

namespace kelvane::forms {

class frmTxtFileImport : public QDialog {
  Q_OBJECT
 public:
  explicit frmTxtFileImport(const Folders& folders, QWidget* parent = nullptr);

  // Opens a source file: shows its lines, or "File contains invalid lines".
  bool OpenSource(const std::filesystem::path& file);
  // The import command; the message shown is returned for the caller.
  std::string Import();
  // The records of the last route import, for the chart's route.
  const std::vector<RteRecord>& ImportedRoute() const { return route_; }

  QListWidget* lstLines = nullptr;
  QLineEdit* txtDestination = nullptr;
  QRadioButton* optWaypoints = nullptr;
  QRadioButton* optRoute = nullptr;

 private:
  Folders folders_;
  std::vector<std::string> lines_;
  std::vector<RteRecord> route_;
};

}  // namespace kelvane::forms
