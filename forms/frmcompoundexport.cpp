#include "forms/frmcompoundexport.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/filelist.h"
#include "forms/messages.h"
#include "routes/exports.h"

namespace kelvane::forms {

frmCompoundExport::frmCompoundExport(const Folders& folders, QWidget* parent) : QDialog(parent), folders_(folders) {
  setWindowTitle("Compound export");
  auto* layout = new QVBoxLayout(this);
  lstRoutes = new QListWidget(this);
  lstWaypoints = new QListWidget(this);
  lstRoutes->setSelectionMode(QAbstractItemView::MultiSelection);
  lstWaypoints->setSelectionMode(QAbstractItemView::MultiSelection);
  FillFileList(lstRoutes, folders.RoutesFolder(), ".gpx");
  FillFileList(lstWaypoints, folders.WaypointsFolder(), ".gpx");
  txtName = new QLineEdit(this);
  auto* cmdExport = new QPushButton("Export", this);
  auto* cmdExit = new QPushButton("Exit", this);
  for (QWidget* w : std::initializer_list<QWidget*>{new QLabel("Routes", this), lstRoutes, new QLabel("Waypoints", this),
                                                     lstWaypoints, new QLabel("File name", this), txtName, cmdExport,
                                                     cmdExit})
    layout->addWidget(w);
  connect(cmdExport, &QPushButton::clicked, this, [this] {
    std::filesystem::path file = folders_.RoutesFolder() / (FromQString(txtName->text().trimmed()) + ".gpx");
    bool exists = std::filesystem::exists(file);
    std::string message = Export([&] { return !exists || AskYesNo(this, kOverwriteQuestion); });
    if (message.empty()) return;
    ShowMessage(this, message);
    if (message.rfind("File saved to :", 0) == 0 && AskYesNo(this, kFinishedExportingQuestion)) accept();
  });
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

std::string frmCompoundExport::ExportChecked(bool overwriteAllowed) {
  std::string name = FromQString(txtName->text().trimmed());
  if (name.empty()) return "No file name";
  if (!overwriteAllowed) return std::string();
  std::vector<std::filesystem::path> routes, waypoints;
  for (QListWidgetItem* item : lstRoutes->selectedItems()) routes.push_back(folders_.RoutesFolder() / FromQString(item->text()));
  for (QListWidgetItem* item : lstWaypoints->selectedItems())
    waypoints.push_back(folders_.WaypointsFolder() / FromQString(item->text()));
  return ExportCompound(routes, waypoints, folders_.RoutesFolder() / (name + ".gpx")).message;
}

}  // namespace kelvane::forms
