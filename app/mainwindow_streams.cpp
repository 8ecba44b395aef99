// The tides and streams inside the main window: the diamonds of the chart's
// area, the reference ports' curves for the day in force, and the state of
// each port at the working time, kept current when the chart, the day or
// the summer-time setting changes. The loading itself is the program
// state's, the same for kelvane-cli.
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "state/areaday.h"

namespace kelvane::app {

void FrmChart::LoadDiamonds() {
  // An area without a database has no diamonds; the chart pane has already
  // told the user about the database.
  (void)LoadAreaDiamonds(state_, state_.settings.ChartSet);
}

void FrmChart::LoadTides(std::int16_t day, std::int16_t year) {
  const std::string message = LoadTidesForDay(state_, day, year, state_.moment.WorkingTime);
  if (!message.empty()) showMessage(message);
  if (message.empty()) CalculateStreamsNow();
}

}  // namespace kelvane::app
