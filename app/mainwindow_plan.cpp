// The passage plan in the main window: the route menu's entry (and the
// results form's button) builds the plan of the last calculation and shows
// it, from where it goes to a PDF file or to the printer, painted by the
// same pages as kelvane-cli's.
#include <QAction>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>

#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/passageplanpdf.h"
#include "forms/frmPassagePlan.h"
#include "passage/passageplan.h"

namespace kelvane::app {

namespace {

// Results exist for the route as it stands: a change to the route empties
// them.
bool HasPlan(const PassageState& p) {
  return RouteCount(p) >= 2 && static_cast<int>(p.LegResults.size()) == RouteCount(p) - 1;
}

}  // namespace

void FrmChart::ConnectPlanMenu() {
  QAction* plan = Action("mnuPassagePlan");
  plan->setEnabled(HasPlan(state_.passage));
  connect(plan, &QAction::triggered, this, &FrmChart::mnuPassagePlan_Click);
  if (auto* menu = qobject_cast<QMenu*>(plan->parent()))
    connect(menu, &QMenu::aboutToShow, this, [this, plan] { plan->setEnabled(HasPlan(state_.passage)); });
}

void FrmChart::mnuPassagePlan_Click() {
  const PlanBuild built = BuildPassagePlan(state_.passage, state_.tides, state_.streams, state_.settings.SummerTime != 0);
  if (!built.message.empty()) {
    showMessage(built.message);
    return;
  }
  // The form and its pages keep their own copy: the plan stays the one
  // shown even should the route change behind the form.
  auto plan = std::make_shared<PassagePlan>(built.plan);
  auto chart = std::make_shared<QImage>(
      PassagePlanChart(state_, chart_->Catalogue(), state_.folders.ChartsFolder(), kPlanChartSize));
  const QImage* picture = chart->isNull() ? nullptr : chart.get();
  auto graphImage = std::make_shared<QImage>(PassagePlanDepartureGraph(state_.passage, kPlanGraphSize));
  const QImage* graph = graphImage->isNull() ? nullptr : graphImage.get();

  auto* form = new forms::frmPassagePlan(PassagePlanLines(*plan), state_.folders.RoutesFolder(), this);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->showMessage = showMessage;
  form->savePdf = [plan, chart, picture, graphImage, graph](const std::filesystem::path& file) {
    return WritePassagePlanPdf(file, *plan, picture, graph);
  };
  form->print = [this, plan, chart, picture, graphImage, graph] {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) PaintPassagePlan(printer, *plan, picture, graph);
  };
  form->show();
}

}  // namespace kelvane::app
