#include "app/mainwindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

#include "app/chartinteraction.h"
#include "app/mainmenus.h"
#include "app/mainwindow_instruments.h"
#include "app/mainwindow_layers.h"
#include "core/settings.h"
#include "forms/frmconfigure.h"
#include "forms/frmtimdat.h"
#include "passage/routeform.h"
#include "state/settingsroad.h"
#include "state/startuphooks.h"

namespace kelvane::app {

FrmChart::FrmChart(ProgramState state, QWidget* parent)
    : QMainWindow(parent), clock(LocalNow), state_(std::move(state)) {
  setObjectName("frmChart");
  showMessage = forms::DefaultMessageSink(this);
  actions_ = BuildMainMenus(menuBar());
  BuildToolBar();
  for (int i = 0; i < 5; ++i) {
    panels_[i] = new QLabel(this);
    panels_[i]->setObjectName(QString("Panel%1").arg(i + 1));
    statusBar()->addWidget(panels_[i], i == 4 ? 0 : 1);
  }
  auto* placeholder = new QLabel(this);
  placeholder->setObjectName("ChartPlaceholder");
  placeholder->setAlignment(Qt::AlignCenter);
  placeholder->setMinimumSize(320, 240);
  placeholder->setStyleSheet("background-color: rgb(214, 230, 242);");
  setCentralWidget(placeholder);
  InstallChart();
  ConnectMenus();
  instruments_ = new InstrumentsController(*this);
  InstallInteraction();
  instruments_->ConnectChart();
  ConnectPassageMenus();
  ConnectSweepMenu();
  ConnectPlanMenu();
  ConnectSetLegMenu();
  ConnectDiveMenu();
  ConnectDriftMenus();
  ConnectWindMenus();
  ConnectTideDialogs();
  ConnectHelp();
  ConnectFileMenus();
  ConnectWindStore();
  ConnectPolarMenus();
  timer1_.setInterval(100);
  connect(&timer1_, &QTimer::timeout, this, &FrmChart::Timer1_Timer);
}

FrmChart::~FrmChart() = default;

void FrmChart::BuildToolBar() {
  toolBar_ = addToolBar("Tools");
  toolBar_->setObjectName("Toolbar1");
  for (const char* name : {"cmdFile", "cmdRoute", "cmdTimeDate", "cmdView", "cmdSettings", "cmdWrecks", "cmdZoom"}) {
    QAction* a = toolBar_->addAction(QString(name).mid(3));
    a->setObjectName(name);
  }
  connect(toolBar_->findChild<QAction*>("cmdTimeDate"), &QAction::triggered, this, &FrmChart::RunTimeDate);
  connect(toolBar_->findChild<QAction*>("cmdSettings"), &QAction::triggered, this, [this] { RunConfigure(1); });
}

QAction* FrmChart::Action(const std::string& name) const {
  auto it = actions_.find(name);
  return it == actions_.end() ? nullptr : it->second;
}

QLabel* FrmChart::StatusPanel(int number) const {
  return number >= 1 && number <= 5 ? panels_[number - 1] : nullptr;
}

void FrmChart::ConnectMenus() {
  auto enable = [this](const char* name, auto handler) {
    QAction* a = Action(name);
    a->setEnabled(true);
    connect(a, &QAction::triggered, this, handler);
  };
  enable("mnuExit", [this] { close(); });
  enable("mnuConfigure", [this] { RunConfigure(1); });
  enable("mnuConfigureStreams", [this] { RunConfigure(2); });
  enable("mnuConfigureWrecks", [this] { RunConfigure(0); });
  enable("mnuSetTimeDate", [this] { RunTimeDate(); });
  for (const char* toggle : {"mnuShowToolBar", "mnuViewChartBoundaries", "mnuShowTidalStreams"})
    enable(toggle, [this, toggle] { ToggleSetting(toggle); });
}

// ---- load ----------------------------------------------------------------

void FrmChart::Load() {
  // 1. The shared stores start empty.
  // 2. Settings, sample waypoints, sites database, wind.
  LoadedSettings loaded = LoadSettings(state_.folders, ProgramStartupHooks());
  state_.settings = loaded.settings;
  state_.wind = loaded.wind;
  state_.workingWind = loaded.workingWind;
  // 3. Size the window from the screen, or as the user left it.
  windowStore_ = std::make_unique<QSettings>(
      QString::fromStdString((state_.folders.UserFiles() / "Kelvane.ini").string()), QSettings::IniFormat);
  RestoreGeometry();
  toolBar_->setVisible(state_.settings.ShowToolBar != 0);
  Action("mnuShowToolBar")->setChecked(state_.settings.ShowToolBar != 0);
  Action("mnuShowTidalStreams")->setChecked(state_.settings.ShowTidalStreams != 0);
  Action("mnuShowTidalStreams")->setEnabled(state_.settings.UseTides != 0);
  // 4. The machine-wide install path has no counterpart here.
  // 5. The clock.
  ReadClock(state_.moment, clock());
  // 6. Chart boundaries show for the first chart, whatever the file says.
  state_.settings.ShowChartBoundaries = -1;
  Action("mnuViewChartBoundaries")->setChecked(true);
  SetViewLayers();
  // 7. The waypoint file in use; a file that cannot be read leaves the
  // chart without marks.
  LoadChartWaypoints(WaypointFilePath(state_.settings, state_.folders), state_.waypoints);
  // 8. The catalogue and the chart record come with the chart pane; the
  // diamonds of the chart's area name the reference ports to load.
  LoadDiamonds();
  // 9. The reference ports and the curves of the working day, then the
  // state of each port at the working time.
  LoadTides(state_.moment.WorkingDay, state_.moment.WorkingYear);
  // 10. Wreck marks and sites come with their subsystem.
  // 11. The leg speed starts as the vessel speed; no route yet.
  state_.passage.LegSpeed = state_.settings.VesselSpeed;
  state_.UseLeewaySwitch = state_.settings.UseLeeway != 0;
  // 12. The chart image and its overlays.
  LoadChartImage();
  if (interaction_) interaction_->TakeSettings();
  UpdateStatusBar();
  UpdateCaption();
  // 13. Timers.
  timer1_.start();
  loaded_ = true;
}

// ---- caption and status bar ----------------------------------------------

void FrmChart::UpdateCaption() {
  const std::string route = RouteCaptionText(RouteCount(state_.passage), state_.passage.RouteDistance);
  setWindowTitle(QString::fromStdString(CaptionText(state_.moment, state_.dateFormat, route)));
}

void FrmChart::UpdateStatusBar() {
  const ChartStatus chart = CurrentChartStatus();
  mode_ = ModeFlags{state_.marks.InputMode, state_.marks.DividersOn, state_.marks.RouteDragOn};
  panels_[0]->setText(QString::fromStdString(ModePanelText(mode_)));
  panels_[1]->setText(QString::fromStdString(ChartPanelText(chart)));
  panels_[2]->setText(QString::fromStdString(WaypointPanelText(state_.settings.WaypointFile)));
  panels_[3]->setText(QString::fromStdString(RoutePanelText(
      RouteCount(state_.passage) >= 2 ? std::optional<float>(state_.passage.RouteDistance) : std::nullopt)));
  panels_[4]->setText(QString::fromStdString(IssuePanelText(chart)));
}

// ---- menus ---------------------------------------------------------------

void FrmChart::ToggleSetting(const std::string& action) {
  // A layer switch flips its field and writes the change to the settings
  // file at once.
  const SettingsRecord& s = state_.settings;
  SettingsChange change = [](SettingsRecord&) {};
  if (action == "mnuShowToolBar") {
    const std::int16_t v = s.ShowToolBar != 0 ? 0 : -1;
    change = [v](SettingsRecord& r) { r.ShowToolBar = v; };
    toolBar_->setVisible(v != 0);
  } else if (action == "mnuViewChartBoundaries") {
    const std::int16_t v = s.ShowChartBoundaries != 0 ? 0 : -1;
    change = [v](SettingsRecord& r) { r.ShowChartBoundaries = v; };
  } else if (action == "mnuShowTidalStreams") {
    const float v = s.ShowTidalStreams != 0 ? 0.0f : 1.0f;
    change = [v](SettingsRecord& r) { r.ShowTidalStreams = v; };
  }
  if (const std::string m = UpdateSettings(state_, change); !m.empty()) showMessage(m);
  Redraw();
}

void FrmChart::RunConfigure(int variant) {
  forms::FrmConfigure form(static_cast<forms::FrmConfigure::Variant>(variant), state_.settings,
                           state_.folders.SettingsFile(), this);
  form.storeSettings = [this](const SettingsChange& change) { return UpdateSettings(state_, change); };
  if (form.exec() != QDialog::Accepted || !form.Outcome()) return;
  const ConfigureOutcome& out = *form.Outcome();
  state_.passage.LegSpeed = out.legSpeed;
  state_.UseLeewaySwitch = out.useLeewaySwitch;
  Action("mnuShowTidalStreams")->setEnabled(out.streamMenusEnabled);
  // A new boat speed is the speed of every leg of the route on show.
  if (out.setRouteSpeeds) SetRouteSpeed(state_.passage, state_.settings.VesselSpeed);
  // A change of summer time moves every predicted time by an hour.
  if (out.summerTimeChanged) LoadTides(state_.moment.TideDay, state_.moment.TideYear);
  // The wreck marks follow here when the wreck layer arrives.
  UpdateStatusBar();
  Redraw();
}

void FrmChart::RunTimeDate() {
  forms::FrmTimDat form(state_.moment, state_.dateFormat, this);
  if (form.exec() != QDialog::Accepted || !form.Result()) return;
  const WorkingDate& w = *form.Result();
  WorkingMoment& m = state_.moment;
  m.WorkingDay = static_cast<std::int16_t>(w.dayOfYear);
  m.WorkingYear = static_cast<std::int16_t>(w.year);
  m.WorkingMonth = static_cast<std::int16_t>(w.month);
  m.WorkingDayOfMonth = static_cast<std::int16_t>(w.dayOfMonth);
  m.WorkingTime = w.time;
  m.JulianDateNow = w.julianDate;
  m.userTimeSet = true;
  LoadTides(m.WorkingDay, m.WorkingYear);
  UpdateCaption();
  Redraw();
}

void FrmChart::Redraw() {
  if (centralWidget()) centralWidget()->update();
  emit RedrawRequested();
}

// ---- window geometry and shutdown ----------------------------------------

void FrmChart::RestoreGeometry() {
  QRect screen = QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->availableGeometry()
                                                   : QRect(0, 0, 1024, 768);
  windowStore_->beginGroup("Settings");
  int left = windowStore_->value("Left", screen.left()).toInt();
  int top = windowStore_->value("Top", screen.top()).toInt();
  int width = windowStore_->value("Width", screen.width() * 9 / 10).toInt();
  int height = windowStore_->value("Height", screen.height() * 9 / 10).toInt();
  windowStore_->endGroup();
  resize(std::max(width, 320), std::max(height, 240));
  move(left, top);
}

void FrmChart::SaveGeometry() {
  if (!loaded_ || !windowStore_ || isMinimized()) return;
  windowStore_->beginGroup("Settings");
  windowStore_->setValue("Left", x());
  windowStore_->setValue("Top", y());
  windowStore_->setValue("Width", width());
  windowStore_->setValue("Height", height());
  windowStore_->endGroup();
}

void FrmChart::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  SaveGeometry();
}

void FrmChart::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  SaveGeometry();
}

void FrmChart::Shutdown() {
  // Close the instrument ports here, each on its own; the settings were
  // written when they changed.
  timer1_.stop();
  if (instruments_) instruments_->Shutdown();
  if (windowStore_) windowStore_->sync();
}

void FrmChart::closeEvent(QCloseEvent* event) {
  Shutdown();
  event->accept();
  QApplication::closeAllWindows();
}

}  // namespace kelvane::app
