// The route calculation inside the main window: the route menu opens the
// calculation form over the route the window holds; a completed
// calculation redraws the chart with its track and shows the results,
// whose closing puts the tides back to the working day.
#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QPlainTextEdit>

#include "app/mainwindow.h"
#include "forms/formsupport.h"
#include "forms/frmcalcroute.h"
#include "forms/frmresults.h"
#include "forms/frmroutehistory.h"
#include "forms/frmrouteinfo.h"
#include "passage/routecalc.h"

namespace kelvane::app {

// Connected after the chart's modes, so that a route drag has ended (its
// own handler of the same item) before the form opens. The item is on
// while a route exists, as the other route items are.
void FrmChart::ConnectPassageMenus() {
  QAction* calc = Action("mnucalcrte");
  calc->setEnabled(RouteCount(state_.passage) >= 1);
  connect(calc, &QAction::triggered, this, &FrmChart::mnucalcrte_Click);
  QAction* last = Action("mnuLastRouteResults");
  last->setEnabled(true);
  connect(last, &QAction::triggered, this, &FrmChart::mnuLastRouteResults_Click);

  // The route's point list with the summary of its last calculation, after
  // the last results; there is something to list once a point is marked.
  if (auto* menu = qobject_cast<QMenu*>(last->parent())) {
    auto* info = new QAction("Route Information...", menu);
    info->setObjectName("mnuRouteInfo");
    const QList<QAction*> items = menu->actions();
    const qsizetype at = items.indexOf(last);
    menu->insertAction(at + 1 < items.size() ? items[at + 1] : nullptr, info);
    connect(info, &QAction::triggered, this, [this] {
      auto* form = new forms::frmrouteinfo(state_.passage, this);
      form->setAttribute(Qt::WA_DeleteOnClose);
      form->show();
    });
    connect(menu, &QMenu::aboutToShow, this, [this, info] { info->setEnabled(RouteCount(state_.passage) >= 1); });
    info->setEnabled(false);
  }

  // The report box: the legs of the last calculation, line by line as
  // each leg is worked, beside the chart. It shows itself at the first
  // calculation and can be closed and docked like any pane.
  auto* dock = new QDockWidget("Route Report", this);
  dock->setObjectName("dockRouteReport");
  auto* box = new QPlainTextEdit(dock);
  box->setObjectName("txtRouteReport");
  box->setReadOnly(true);
  box->setLineWrapMode(QPlainTextEdit::NoWrap);
  dock->setWidget(box);
  addDockWidget(Qt::BottomDockWidgetArea, dock);
  dock->hide();
}

void FrmChart::mnucalcrte_Click() {
  if (RouteCount(state_.passage) < 2) {
    showMessage(RouteTooShortMessage());
    return;
  }
  // A results form of an earlier calculation would show the new stores
  // under its old options: it goes first.
  for (auto* old : findChildren<forms::frmresults*>()) old->close();

  forms::frmcalcroute form(state_.passage, state_.Streams(), state_.settings, state_.moment, this);
  form.showMessage = showMessage;
  form.gpsReading = [this] { return CurrentGpsReading(); };
  form.Timer1_Timer();
  form.windDirection = [this] { return state_.workingWind.direction; };
  form.runWind = [this, &form] { RunWindForm(&form); };
  // Each calculation starts the report box afresh.
  auto* box = findChild<QPlainTextEdit*>("txtRouteReport");
  bool reportStarted = false;
  form.reportLines = [this, box, &reportStarted](const std::vector<std::string>& lines) {
    if (!box) return;
    if (!reportStarted) {
      box->clear();
      reportStarted = true;
      if (auto* dock = findChild<QDockWidget*>("dockRouteReport")) dock->show();
    }
    for (const std::string& line : lines) box->appendPlainText(forms::ToQString(line));
  };
  form.working = HoldWhileCalculating();
  const bool calculated = form.exec() == QDialog::Accepted;
  // A reversed or edited route shows on the chart either way.
  AfterCalculation(calculated);
  if (calculated) ShowCalculationResults();
}

void FrmChart::mnuLastRouteResults_Click() {
  auto* history = new forms::frmroutehistory(state_.passage, this);
  history->setAttribute(Qt::WA_DeleteOnClose);
  history->show();
}

// The idle timer waits while the legs are worked, and the minute's
// routine of the polling loop holds off: either could reload the tides
// under the calculation. The timer runs again afterwards if it ran before.
std::function<void(bool)> FrmChart::HoldWhileCalculating() {
  return [this, wasActive = false](bool on) mutable {
    calculating_ = on;
    if (on) {
      wasActive = timer1_.isActive();
      timer1_.stop();
    } else if (wasActive) {
      timer1_.start();
    }
  };
}

// A calculation leaves the curves at the working day; the moment is told
// so. The chart shows the route as the form left it either way.
void FrmChart::AfterCalculation(bool calculated) {
  if (calculated) {
    state_.moment.TideDay = state_.moment.WorkingDay;
    state_.moment.TideYear = state_.moment.WorkingYear;
  }
  Redraw();
}

// The results form of the route or dive route just calculated; closing it
// puts the tides back to the working day.
void FrmChart::ShowCalculationResults() {
  auto* results = new forms::frmresults(state_.passage, this);
  results->setAttribute(Qt::WA_DeleteOnClose);
  results->onClose = [this] { LoadTides(state_.moment.WorkingDay, state_.moment.WorkingYear); };
  results->onPassagePlan = [this] { mnuPassagePlan_Click(); };
  results->show();
}

}  // namespace kelvane::app
