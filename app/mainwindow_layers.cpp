// The overlays inside the main window: the paint of every layer after the
// chart image, the layer switches of the menus and the toolbar with their
// pictures, the roll of the tide time by the hour, and the night view.
#include <QAction>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QToolBar>

#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "app/mainwindow_layers.h"
#include "chart/layerswitches.h"
#include "core/timetext.h"
#include "state/settingsroad.h"
#include "streams/tideroll.h"

namespace kelvane::app {

namespace {

QIcon Picture(const std::filesystem::path& folder, const char* name) {
  const QString file = QString::fromStdString((folder / name).string());
  return QFile::exists(file) ? QIcon(file) : QIcon();
}

}  // namespace

void FrmChart::InstallLayers() {
  layers_ = std::make_unique<LayerControls>();
  layers_->dayPalette = palette();
  layers_->lblMOB = new QLabel(chart_);
  layers_->lblMOB->setObjectName("lblMOB");
  layers_->lblMOB->setStyleSheet("background-color: white; color: red;");
  layers_->lblMOB->move(8, 8);
  layers_->lblMOB->hide();
  connect(chart_, &ChartPane::OverlayPaint, this, &FrmChart::PaintOverlays);

  // The switches this window owns; the tidal streams, chart boundaries and
  // tool bar toggles are the window's own (ToggleSetting).
  for (const LayerSwitch& sw : LayerSwitches()) {
    QAction* menu = Action(sw.action);
    if (!menu) continue;
    const std::string name = sw.action;
    if (name != "mnuShowTidalStreams" && name != "mnuViewChartBoundaries") {
      menu->setEnabled(true);
      connect(menu, &QAction::triggered, this, [this, name] { ToggleLayer(name); });
    }
    // The picture follows once the toggle has been written.
    connect(menu, &QAction::triggered, this, &FrmChart::SetViewLayers, Qt::QueuedConnection);
    if (*sw.button) {
      QAction* button = toolBar_->addAction(QString(sw.action).mid(3));
      button->setObjectName(sw.button);
      button->setToolTip(menu->text());
      connect(button, &QAction::triggered, menu, &QAction::trigger);
    }
  }
  // The dividers' button runs the dividers' menu item.
  QAction* dividers = toolBar_->addAction("Dividers");
  dividers->setObjectName("cmdDividers");
  if (QAction* menu = Action("mnuDividersOn")) {
    connect(dividers, &QAction::triggered, menu, &QAction::trigger);
    connect(menu, &QAction::triggered, this, &FrmChart::SetViewLayers, Qt::QueuedConnection);
  }

  auto enable = [this](const char* name, auto handler) {
    if (QAction* a = Action(name)) {
      a->setEnabled(true);
      connect(a, &QAction::triggered, this, handler);
    }
  };
  enable("mnuTideRollPlus", [this] { RollTideTime(true); });
  enable("mnuTideRollMinus", [this] { RollTideTime(false); });
  enable("mnuViewNight", [this] { SetNightView(true); });
  enable("mnuViewNormal", [this] { SetNightView(false); });
  enable("mnuIncreaseIntensity", [this] { StepIntensity(10); });
  // The wind barbs join the paint at their step (mainwindow_wind_layer.cpp).
  InstallWind();
}

// ---- paint ------------------------------------------------------------------

void FrmChart::PaintOverlays(QPainter& painter) {
  if (!layers_ || !chart_->Viewer()->HasImage()) return;
  const OverlayView view = ViewOf(*chart_->Viewer(), chart_->Geometry());
  OverlaySources sources;
  sources.state = &state_;
  sources.catalogue = &chart_->Catalogue();
  if (instruments_) {
    sources.instruments = &instruments_->State();
    sources.gpsOn = instruments_->Comms().GPSAttached != 0;
    sources.aisOn = instruments_->Comms().AISAttached != 0 || instruments_->State().AISReplayActive != 0;
    sources.clockHours = instruments_->Comms().TimeNowHours;
  }
  if (instruments_ && layers_->pickedAisMmsi != 0) {
    const auto& targets = instruments_->State().targets.AISTargets;
    for (std::size_t i = 0; i < targets.size(); ++i)
      if (targets[i].MMSI == layers_->pickedAisMmsi) sources.pickedAisTarget = static_cast<int>(i);
  }
  OverlayOutcome out = layers_->painter.Paint(painter, view, sources);
  state_.marks.MarkRadius = out.markRadius;
  // lblMOB shows the MOB position while it is on the surface.
  const QString mob = QString::fromStdString(out.mobLabel);
  if (layers_->lblMOB->text() != mob) {
    layers_->lblMOB->setText(mob);
    layers_->lblMOB->adjustSize();
  }
  layers_->lblMOB->setVisible(!mob.isEmpty());
  if (out.boatOutOfBounds && !layers_->lastPaint.boatOutOfBounds) {
    if (QLabel* panel = StatusPanel(5)) panel->setText("Boat out of Chart Bounds");
  }
  layers_->lastPaint = std::move(out);
}

// ---- layer switches -----------------------------------------------------------

void FrmChart::ToggleLayer(const std::string& action) {
  const LayerSwitch* sw = FindLayerSwitch(action);
  if (!sw) return;
  // Flip the field and write the change at once.
  const bool on = !sw->isOn(state_.settings);
  if (const std::string m = UpdateSettings(state_, [sw, on](SettingsRecord& r) { sw->set(r, on); }); !m.empty())
    showMessage(m);
  // The wind over the route is saved with the wind set-up as well.
  if (action == "mnuDisplayWindOverRoute" && !WriteWindConfig(state_.folders.WindConfigFile(), state_.wind))
    showMessage(SettingsNotSavedMessage(state_.folders.WindConfigFile()));
  Redraw();
}

void FrmChart::SetViewLayers() {
  const std::filesystem::path res = state_.folders.DataRoot() / "res";
  for (const LayerSwitch& sw : LayerSwitches()) {
    const bool on = sw.isOn(state_.settings);
    if (QAction* menu = Action(sw.action)) menu->setChecked(on);
    if (!*sw.button) continue;
    if (QAction* button = toolBar_->findChild<QAction*>(sw.button)) {
      button->setIcon(Picture(res, on ? sw.onPicture : sw.offPicture));
      button->setData(QString(on ? sw.onPicture : sw.offPicture));
    }
  }
  if (QAction* button = toolBar_->findChild<QAction*>("cmdDividers")) {
    const char* picture = DividersPicture(state_.marks.DividersOn);
    button->setIcon(Picture(res, picture));
    button->setData(QString(picture));
  }
}

// ---- tide time ------------------------------------------------------------------

void FrmChart::CalculateStreamsNow() {
  StreamContext ctx = state_.Streams();
  StreamsNow now = CalculateTidalStreams(ctx);
  if (!now.message.empty()) showMessage(now.message);
}

void FrmChart::RollTideTime(bool plus) {
  WorkingMoment& m = state_.moment;
  // On real time, the clock's present date and minute become the tide time
  // and the clock lets go of it.
  if (!m.userTimeSet) {
    std::tm now = clock();
    ReadClock(m, now);
    m.WorkingTime = static_cast<float>(now.tm_hour) + static_cast<float>(now.tm_min) / 60.0f;
    m.userTimeSet = true;
  }
  TideMoment from{m.WorkingTime, m.WorkingDay, m.WorkingYear, m.WorkingMonth, m.WorkingDayOfMonth};
  TideRollResult roll = kelvane::RollTideTime(from, plus);
  m.WorkingTime = roll.moment.hours;
  m.WorkingDay = roll.moment.day;
  m.WorkingYear = roll.moment.year;
  m.WorkingMonth = roll.moment.month;
  m.WorkingDayOfMonth = roll.moment.dayOfMonth;
  const int hour = static_cast<int>(roll.moment.hours);
  m.JulianDateNow = JulianDate(m.WorkingDayOfMonth, m.WorkingMonth, m.WorkingYear, hour, 0, 0);
  if (roll.dateChanged) {
    LoadTides(m.WorkingDay, m.WorkingYear);  // the curves, then the ports' state and the streams
  } else {
    StreamContext ctx = state_.Streams();
    UpdatePortStates(ctx, true, m.WorkingTime);
    CalculateStreamsNow();
  }
  UpdateCaption();
  if (QLabel* panel = StatusPanel(5)) panel->setText(QString::fromStdString(HoursToClock(m.WorkingTime)));
  Redraw();
}

// ---- night view ----------------------------------------------------------------------

void FrmChart::StepIntensity(int step) {
  const int before = layers_->brightness;
  layers_->brightness = BrightnessAfterStep(before, step);
  chart_->Viewer()->BrightnessStep(ViewerStepsFor(layers_->brightness) - ViewerStepsFor(before));
}

void FrmChart::SetNightView(bool night) {
  layers_->night = night;
  if (night) {
    QPalette dark = layers_->dayPalette;
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
      dark.setColor(role, QColor(32, 32, 40));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      dark.setColor(role, QColor(160, 40, 40));
    setPalette(dark);
    StepIntensity(-10);
  } else {
    setPalette(layers_->dayPalette);
    StepIntensity(kFullBrightness - layers_->brightness);
  }
}

}  // namespace kelvane::app
