// The files of waypoints and routes inside the main window: the waypoint
// file in use (load, save under a new name, create empty), the route save,
// the converters of the old .way and .rte files, the text import and the
// exports of the calculated results and of several files at once.
#include <QAction>
#include <QFileDialog>
#include <QInputDialog>

#include "app/mainwindow.h"
#include "forms/frmcogexport.h"
#include "forms/frmcogtowayexport.h"
#include "forms/frmcompoundexport.h"
#include "forms/frmconverttogpx.h"
#include "forms/frmtxtfileimport.h"
#include "forms/messages.h"
#include "passage/routefiles.h"
#include "routes/exports.h"
#include "routes/gpxwrite.h"
#include "routes/waypointfiles.h"
#include "state/settingsroad.h"

namespace kelvane::app {

namespace {

QString ToQ(const std::filesystem::path& p) { return QString::fromStdString(p.string()); }

}  // namespace

void FrmChart::ConnectFileMenus() {
  chooseFile = [this](const QString& caption, const QString& folder, bool save) {
    return save ? QFileDialog::getSaveFileName(this, caption, folder, "GPX file (*.gpx)")
                : QFileDialog::getOpenFileName(this, caption, folder, "GPX file (*.gpx)");
  };
  auto wire = [this](const char* name, auto handler) {
    QAction* a = Action(name);
    a->setEnabled(true);
    connect(a, &QAction::triggered, this, handler);
  };
  wire("mnuFilWayLoad", [this] { mnuFilWayLoad_Click(); });
  wire("mnuWaySave", [this] { NameWaypointFile(false); });
  wire("mnuWayCreateNew", [this] { NameWaypointFile(true); });
  wire("mnuConverttoGPX", [this] {
    forms::frmConvertToGPX form(state_.folders, forms::frmConvertToGPX::Kind::Waypoints, this);
    form.exec();
  });
  wire("mnuConvertRouteToGPX", [this] {
    forms::frmConvertToGPX form(state_.folders, forms::frmConvertToGPX::Kind::Route, this);
    form.exec();
  });
  wire("mnuImport", [this] { mnuImport_Click(); });
  // The text export is the list of the last calculation's results; with
  // none the form says so when asked to save.
  // The File menu's text export and the Route menu's "Save Course over
  // Ground..." both write the list of the last calculation (a route, a
  // course over ground or a casualty's drift) to a text file.
  auto exportCog = [this] {
    forms::frmCOGexport form(state_.folders, state_.passage.ResultText, this);
    form.exec();
  };
  wire("mnuExport1", exportCog);
  wire("mnuSaveCOG", exportCog);
  wire("mnuCOGToWayExport", [this] {
    // The calculated track, element 0 its start; a track of the start
    // alone is no calculation.
    const auto& cog = state_.passage.RouteCog;
    if (cog.size() < 2) {
      showMessage("No Valid COG data exit this screen and Calculate a Leg or Route");
      return;
    }
    std::vector<Position> steps;
    for (const CogPoint& c : cog) steps.push_back({c.Lat, c.Lon});
    forms::frmCOGToWayExport form(state_.folders, steps, this);
    form.exec();
  });
  wire("mnuCompoundExport", [this] {
    forms::frmCompoundExport form(state_.folders, this);
    form.exec();
  });
  // "Save Route..." is on while a route exists, with the other route items.
  QAction* save = Action("mnuRouteSave");
  connect(save, &QAction::triggered, this, [this] { mnuRouteSave_Click(); });
  save->setEnabled(RouteCount(state_.passage) >= 1);
}

void FrmChart::mnuRouteSave_Click() {
  if (RouteCount(state_.passage) < 1) return;
  std::error_code ec;
  std::filesystem::create_directories(state_.folders.RoutesFolder(), ec);
  QString chosen = chooseFile("Save Route", ToQ(state_.folders.RoutesFolder()), true);
  if (chosen.isEmpty()) return;
  std::filesystem::path file(chosen.toStdString());
  if (!file.has_extension()) file += ".gpx";
  if (!WriteRouteFile(file, RouteFilePoints(state_.passage))) {
    showMessage("Unable to write " + file.string());
    return;
  }
  showMessage("File saved to " + file.string());
}

void FrmChart::mnuFilWayLoad_Click() {
  const std::filesystem::path current = WaypointFilePath(state_.settings, state_.folders);
  QString chosen = chooseFile("Load Waypoint File", ToQ(current.parent_path()), false);
  if (chosen.isEmpty()) return;
  UseWaypointFile(std::filesystem::path(chosen.toStdString()));
}

void FrmChart::UseWaypointFile(const std::filesystem::path& file) {
  // The file is kept by its name when it lies in the folder the settings
  // name, by its full path otherwise.
  SettingsRecord probe = state_.settings;
  probe.WaypointFile = file.filename().string();
  const std::string kept = WaypointFilePath(probe, state_.folders) == file ? file.filename().string() : file.string();
  if (!UpdateSettings(state_, [&kept](SettingsRecord& r) { r.WaypointFile = kept; }).empty())
    showMessage(kConfigurationNotSaved);
  LoadChartWaypoints(WaypointFilePath(state_.settings, state_.folders), state_.waypoints);
  UpdateStatusBar();
  Redraw();
}

void FrmChart::NameWaypointFile(bool createEmpty) {
  const std::filesystem::path folder = WaypointFilePath(state_.settings, state_.folders).parent_path();
  bool ok = false;
  QString typed = QInputDialog::getText(this, createEmpty ? "New Waypoint File" : "Save Waypoints",
                                        createEmpty ? kNewWayIntro : "Waypoint file name", QLineEdit::Normal,
                                        QString(), &ok);
  if (!ok) return;
  WayFileName name = CheckWayFileName(folder, typed.toStdString(),
                                      createEmpty ? kNewWayNameMissing : kWaySaveNameMissing);
  if (!name.message.empty()) {
    showMessage(name.message);
    return;
  }
  if (name.exists && !forms::AskYesNo(this, kWayFileExists)) return;
  // A new file holds no waypoint: the list of one blank entry.
  const std::vector<Waypoint> none(1);
  if (!WriteWaypointFile(name.file, createEmpty ? none : state_.waypoints.ChartWaypoints)) {
    showMessage("Unable to write " + name.file.string());
    return;
  }
  UseWaypointFile(name.file);
}

void FrmChart::mnuImport_Click() {
  forms::frmTxtFileImport form(state_.folders, this);
  form.exec();
  // A route import is on show at once.
  if (form.ImportedRoute().empty()) return;
  TakeImportedRoute(state_.passage, form.ImportedRoute());
  EnableRouteMenus();
  UpdateRouteCombo();
  UpdateCaption();
  UpdateStatusBar();
  Redraw();
}

}  // namespace kelvane::app
