// The AIS targets on the chart: their details from the keyboard, the popup
// menu and the double click, their display switches one by one, the menu
// entries that follow the links, the count of targets drawn, the tidal
// stream of the predictions and the chart following the boat.
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>

#include "app/chartinteraction.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "app/mainwindow_layers.h"
#include "core/workingtime.h"
#include "forms/formsupport.h"
#include "forms/frmAisDetails.h"
#include "instruments/ais_report.h"
#include "streams/tidalstreams.h"

namespace kelvane::app {

namespace {

// The entries whose display needs targets: a link or a replay.
constexpr const char* kAisDisplayEntries[] = {"mnuShowAISDetails", "mnuAISDisplayPredicted", "mnuAISShowHeadVect"};

}  // namespace

void InstrumentsController::ConnectChart() {
  // The popup's AIS item switches the details as the menu entry does; the
  // chart's modes decide the other items when the menu is about to show,
  // and the AIS item is on while AIS is.
  if (ChartInteractionController* interaction = chart_.Interaction()) {
    if (QAction* item = interaction->PopupItem("mnuPUAISDetails")) {
      item->setCheckable(true);
      connect(item, &QAction::triggered, this, [this] {
        if (QAction* menu = chart_.Action("mnuShowAISDetails")) menu->trigger();
      });
    }
  }
  if (ChartPane* pane = chart_.Chart()) {
    connect(pane->PopupMenu(), &QMenu::aboutToShow, this, [this] {
      if (QAction* item = chart_.Interaction() ? chart_.Interaction()->PopupItem("mnuPUAISDetails") : nullptr) {
        item->setEnabled(comms_.AISAttached != 0 || state_.AISReplayActive != 0);
        item->setChecked(chart_.State().settings.ShowAISDetails != 0);
      }
    });
    // The count of targets drawn comes from the paint just made (the
    // overlays are connected before this).
    connect(pane, &ChartPane::OverlayPaint, this, [this](QPainter&) { ShowAISCount(); });
  }
  aisPanel_ = new QLabel(&chart_);
  aisPanel_->setObjectName("PanelAIS");
  aisPanel_->hide();
  chart_.statusBar()->addPermanentWidget(aisPanel_);
  SyncAISMenus();
}

void InstrumentsController::ShowAISCount() {
  if (!aisPanel_) return;
  const bool on = comms_.AISAttached != 0 || state_.AISReplayActive != 0;
  if (on) aisPanel_->setText(QString::fromStdString(AisTargetsDrawnText(chart_.Layers().lastPaint.drawnAisTargets)));
  aisPanel_->setVisible(on);
}

void InstrumentsController::SyncAISMenus() {
  if (comms_.AISAttached != 0 || state_.AISReplayActive != 0)
    EnableAISDetails();
  else
    DisableAISDetails();
  const SettingsRecord& s = chart_.State().settings;
  if (QAction* a = chart_.Action("mnuShowAISDetails")) a->setChecked(s.ShowAISDetails != 0);
  if (QAction* a = chart_.Action("mnuAISDisplayPredicted")) a->setChecked(s.AISPredTrack != 0);
  if (QAction* a = chart_.Action("mnuAISShowHeadVect")) a->setChecked(s.AISHeadingVector != 0);
}

void InstrumentsController::EnableAISDetails() {
  for (const char* name : kAisDisplayEntries)
    if (QAction* a = chart_.Action(name)) a->setEnabled(true);
}

void InstrumentsController::DisableAISDetails() {
  for (const char* name : kAisDisplayEntries)
    if (QAction* a = chart_.Action(name)) a->setEnabled(false);
}

bool InstrumentsController::OpenAISDetailsNear(float lat, float lon, float withinMiles) {
  const NearestTarget near = NearestAISTarget(state_.targets, lat, lon, withinMiles);
  if (near.index < 0) return false;
  const AISTarget& t = state_.targets.AISTargets[static_cast<std::size_t>(near.index)];
  // A form of its own that stays up beside the chart: the table moves on
  // while the user reads, and the text is a snapshot of this moment.
  auto* details = new forms::FrmAisDetails(AisDetailsLines(t, ClockReadingOf(chart_.clock()).Hours()), &chart_);
  details->setAttribute(Qt::WA_DeleteOnClose);
  details->show();
  return true;
}

bool InstrumentsController::ToggleAISFlagNear(float lat, float lon, int flag) {
  if (flag < 1 || flag > 4) return false;
  const NearestTarget near = NearestAISTarget(state_.targets, lat, lon);
  if (near.index < 0) return false;
  ToggleTargetFlag(state_.targets.AISTargets[static_cast<std::size_t>(near.index)], static_cast<TargetFlag>(flag));
  emit chart_.RedrawRequested();
  return true;
}

std::optional<StreamAt> InstrumentsController::StreamNow(float lat, float lon) {
  ProgramState& program = chart_.State();
  if (program.streams.Diamonds.empty()) return std::nullopt;
  // The look-ups run on curves of their own: the stream of the present
  // moment must not move the ports' state that the chart shows for the
  // working time the user chose. They start from the chart's curves and
  // follow the clock's day from there.
  if (predictionTides_.UsedPortList != program.tides.UsedPortList || predictionTides_.TideDay == 0)
    predictionTides_ = program.tides;
  StreamContext ctx = program.Streams();
  ctx.tides = &predictionTides_;
  const std::tm now = chart_.clock();
  const float hours = static_cast<float>(now.tm_hour) + static_cast<float>(now.tm_min) / 60.0f +
                      static_cast<float>(now.tm_sec) / 3600.0f;
  // The ranges of the ports' tides sit beside the diamonds; they go back
  // to what the chart had once the look-up has used its own.
  const std::vector<float> chartRanges = program.streams.PortRange;
  StreamAnswer answer;
  const std::string message = TidalStreamAt(ctx, lat, lon, hours, static_cast<std::int16_t>(now.tm_yday + 1),
                                            static_cast<std::int16_t>(now.tm_year + 1900), answer);
  program.streams.PortRange = chartRanges;
  // A failed look-up leaves the prediction to the vessel's own run.
  if (!message.empty() || answer.DiamondText.empty()) return std::nullopt;
  return StreamAt{answer.Rate, answer.Direction};
}

void InstrumentsController::RecentreOnBoat() {
  ChartPane* pane = chart_.Chart();
  if (!pane) return;
  const ViewCorners& v = pane->Corners();
  const float lat = state_.own.GPSLat, lon = state_.own.GPSLong;
  if (BoatLeftInnerBox(v.ViewTopLat, v.ViewLeftLon, v.ViewBottomLat, v.ViewRightLon, lat, lon))
    pane->LocateGPS(lat, lon);
}

}  // namespace kelvane::app
