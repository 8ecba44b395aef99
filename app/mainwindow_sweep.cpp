// The departure sweep inside the main window: the route menu opens the
// sweep form over the route the window holds; a completed sweep leaves its
// report in the route's results (the track on the chart is that of the
// last hour worked) and shows the graph and table of the hours.
#include <QAction>

#include "app/mainwindow.h"
#include "forms/frmOptResults.h"
#include "forms/frmRouteOptDeparture.h"
#include "passage/routecalc.h"

namespace kelvane::app {

void FrmChart::ConnectSweepMenu() {
  QAction* sweep = Action("mnuOptimiseDeparture");
  if (!sweep) return;
  sweep->setEnabled(RouteCount(state_.passage) >= 1);
  connect(sweep, &QAction::triggered, this, &FrmChart::mnuOptimiseDeparture_Click);
}

void FrmChart::mnuOptimiseDeparture_Click() {
  if (RouteCount(state_.passage) < 2) {
    showMessage(RouteTooShortMessage());
    return;
  }
  // Results of an earlier sweep describe another run: they go first.
  for (auto* old : findChildren<forms::frmOptResults*>()) old->close();

  forms::frmRouteOptDeparture form(state_.passage, state_.Streams(), state_.settings, state_.moment, this);
  form.showMessage = showMessage;
  form.working = HoldWhileCalculating();
  const bool swept = form.exec() == QDialog::Accepted;
  AfterCalculation(swept);  // a reversed route shows either way
  if (!swept || !form.Outcome()) return;

  const SweepOutcome& outcome = *form.Outcome();
  auto* results = new forms::frmOptResults(outcome.rows, outcome.rowLines, state_.passage.ResultText, this);
  results->setAttribute(Qt::WA_DeleteOnClose);
  results->show();
}

}  // namespace kelvane::app
