// Course over ground and man overboard inside the main window. The route
// menu opens the course-over-ground form, whose runs replace the calculated
// track; "Man Overboard..." (F7, a key of its own that no chart mode uses,
// live with or without a route) opens the casualty's form at once, started
// from the GPS fix, else the point marked on the chart, else the centre of
// the view. A drift shows the casualty display: the MOB mark and its label
// at the predicted position, her drift as the calculated track, and the
// chart scrolled to her when she is off the view.
#include <QAction>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>

#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "forms/frmCalcCOG.h"
#include "forms/frmCalcMOB.h"
#include "forms/messages.h"
#include "passage/singleleg.h"

namespace kelvane::app {

namespace {

// The position the casualty's form starts from when no GPS fix is held.
Position MobStartWithoutFix(const ProgramState& state, const ChartPane* chart) {
  if (state.marks.PointMarked) return {state.marks.MarkedLat, state.marks.MarkedLon};
  if (!chart) return {};
  const ViewCorners& v = chart->Corners();
  return {(v.ViewTopLat + v.ViewBottomLat) / 2.0f, (v.ViewLeftLon + v.ViewRightLon) / 2.0f};
}

bool InView(const ViewCorners& v, Position p) {
  return p.lat <= v.ViewTopLat && p.lat >= v.ViewBottomLat && p.lon >= v.ViewLeftLon && p.lon <= v.ViewRightLon;
}

}  // namespace

void FrmChart::ConnectDriftMenus() {
  QAction* cog = Action("mnuCalcCOG");
  cog->setEnabled(RouteCount(state_.passage) >= 1);
  connect(cog, &QAction::triggered, this, &FrmChart::mnuCalcCOG_Click);
  QAction* mob = Action("mnuMOB");
  mob->setShortcut(QKeySequence(Qt::Key_F7));
  mob->setShortcutContext(Qt::ApplicationShortcut);
  mob->setEnabled(true);
  connect(mob, &QAction::triggered, this, &FrmChart::mnuMOB_Click);
}

void FrmChart::mnuCalcCOG_Click() {
  forms::frmCalcCOG form(state_, this);
  form.showMessage = showMessage;
  // The first leg of the route, when there is one, as the run to try.
  const PassageState& p = state_.passage;
  if (RouteCount(p) >= 1)
    form.txtStartPos->setText(forms::ToQString(PositionEntryText(p.Route[1].Lat, p.Route[1].Lon)));
  if (RouteCount(p) >= 2)
    form.txtDestPos->setText(forms::ToQString(PositionEntryText(p.Route[2].Lat, p.Route[2].Lon)));
  form.drifted = [this] { AfterCalculation(true); };
  form.exec();
}

void FrmChart::mnuMOB_Click() {
  forms::frmCalcMOB form(state_, this);
  form.showMessage = showMessage;
  form.gpsReading = [this] { return CurrentGpsReading(); };
  form.ShowGps();
  const GpsReading fix = CurrentGpsReading();
  const Position start = fix.valid ? Position{fix.lat, fix.lon} : MobStartWithoutFix(state_, chart_);
  form.txtStartPos->setText(forms::ToQString(PositionEntryText(start.lat, start.lon)));
  form.predicted = [this](Position at) { ShowCasualty(at); };
  form.exec();
}

void FrmChart::ShowCasualty(Position at) {
  state_.marks.MOBSet = true;
  state_.marks.MOBLat = at.lat;
  state_.marks.MOBLon = at.lon;
  if (chart_ && !InView(chart_->Corners(), at)) chart_->LocateGPS(at.lat, at.lon);
  AfterCalculation(true);
}

}  // namespace kelvane::app
