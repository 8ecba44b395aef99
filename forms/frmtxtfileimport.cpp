#include "forms/frmtxtfileimport.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "forms/messages.h"
#include "routes/textimport.h"

namespace kelvane::forms {

frmTxtFileImport::frmTxtFileImport(const Folders& folders, QWidget* parent) : QDialog(parent), folders_(folders) {
  setWindowTitle("Import text file");
  auto* layout = new QVBoxLayout(this);
  optWaypoints = new QRadioButton("Waypoints", this);
  optRoute = new QRadioButton("Route", this);
  optWaypoints->setChecked(true);
  lstLines = new QListWidget(this);
  txtDestination = new QLineEdit(this);
  auto* cmdOpen = new QPushButton("Open", this);
  auto* cmdImport = new QPushButton("Import", this);
  auto* cmdExit = new QPushButton("Exit", this);
  for (QWidget* w : std::initializer_list<QWidget*>{optWaypoints, optRoute, cmdOpen, lstLines,
                                                     new QLabel("Destination file", this), txtDestination, cmdImport,
                                                     cmdExit})
    layout->addWidget(w);
  connect(cmdOpen, &QPushButton::clicked, this, [this] {
    QString file = QFileDialog::getOpenFileName(this, "Import", QString(), "Text (*.txt *.csv);;All Files (*.*)");
    if (!file.isEmpty()) OpenSource(FromQString(file));
  });
  connect(cmdImport, &QPushButton::clicked, this, [this] { ShowMessage(this, Import()); });
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

bool frmTxtFileImport::OpenSource(const std::filesystem::path& file) {
  lines_.clear();
  lstLines->clear();
  std::vector<std::string> lines = ReadTextFileLines(file);
  std::string invalid = ValidateImportLines(lines, optRoute->isChecked() ? TextImportKind::Route : TextImportKind::Waypoints);
  if (!invalid.empty()) {
    ShowMessage(this, invalid);
    return false;
  }
  lines_ = std::move(lines);
  for (const std::string& l : lines_) lstLines->addItem(ToQString(l));
  return true;
}

std::string frmTxtFileImport::Import() {
  TextImportKind kind = optRoute->isChecked() ? TextImportKind::Route : TextImportKind::Waypoints;
  std::string name = FromQString(txtDestination->text().trimmed());
  std::filesystem::path folder = kind == TextImportKind::Route ? folders_.RoutesFolder() : folders_.WaypointsFolder();
  TextImportResult r = ImportTextLines(lines_, name.empty() ? folder / "" : folder / name, kind);
  if (r.ok && kind == TextImportKind::Route) route_ = r.route;
  return r.message;
}

}  // namespace kelvane::forms
