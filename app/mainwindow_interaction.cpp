// The main window's side of the chart's modes: the controller over the
// chart pane, the chart's texts of the status bar, and the route's menus
// and combo that other forms ask for.
#include <QAction>

#include "app/chartinteraction.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "chart/chartmodes.h"

namespace kelvane::app {

void FrmChart::InstallInteraction() {
  if (!chart_) return;
  interaction_ = new ChartInteractionController(*this, *chart_);
}

ChartStatus FrmChart::CurrentChartStatus() const {
  ChartStatus status;
  if (!chart_) return status;
  const ChartRecord& chart = chart_->CurrentChart();
  status.title = chart.chartName;
  status.number = chart.chartNumber;
  status.scale = chart.chartScale;
  IssueMonthYear issued = IssueDateMonthYear(chart.issueDate);
  status.issueMonth = issued.month;
  status.issueYear = issued.year;
  return status;
}

void FrmChart::UpdateRouteCombo() {
  if (interaction_) interaction_->UpdateRouteCombo();
}
void FrmChart::EnableRouteMenus() {
  if (interaction_) interaction_->EnableRouteMenus();
}
void FrmChart::DisableRouteMenus() {
  if (interaction_) interaction_->DisableRouteMenus();
}
void FrmChart::AnimateMenusEnable() {
  if (interaction_) interaction_->AnimateMenusEnable();
}
void FrmChart::AnimateMenusDisable() {
  if (interaction_) interaction_->AnimateMenusDisable();
}

}  // namespace kelvane::app
