// The dive route inside the main window: the route menu opens the dive
// route form over the route the window holds; a completed calculation
// redraws the chart with its track and shows the results, whose closing
// puts the tides back to the working day.
#include <QAction>
#include <QMenu>

#include "app/mainwindow.h"
#include "forms/frmDiverRoute.h"
#include "forms/frmresults.h"
#include "passage/routecalc.h"

namespace kelvane::app {

// The item answers once the route has a leg: the menu looks at the route
// each time it opens.
void FrmChart::ConnectDiveMenu() {
  QAction* dive = Action("mnuDiverRoute");
  dive->setEnabled(false);
  connect(dive, &QAction::triggered, this, &FrmChart::mnuDiverRoute_Click);
  if (auto* menu = qobject_cast<QMenu*>(dive->parent()))
    connect(menu, &QMenu::aboutToShow, this, [this, dive] { dive->setEnabled(RouteCount(state_.passage) >= 2); });
}

void FrmChart::mnuDiverRoute_Click() {
  if (RouteCount(state_.passage) < 2) {
    showMessage(RouteTooShortMessage());
    return;
  }
  // A results form of an earlier calculation would show the new stores
  // under its old options: it goes first.
  for (auto* old : findChildren<forms::frmresults*>()) old->close();

  forms::frmDiverRoute form(state_.passage, state_.Streams(), state_.settings, state_.moment, this);
  form.showMessage = showMessage;
  const bool calculated = form.exec() == QDialog::Accepted;
  // An edited leg shows on the chart either way.
  AfterCalculation(calculated);
  if (calculated) ShowCalculationResults();
}

}  // namespace kelvane::app
