// The tides and streams inside the main window: the diamonds of the chart's
// area, the reference ports' curves for the day in force, and the state of
// each port at the working time, kept current when the chart, the day or
// the summer-time setting changes.
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "streams/tidalstreams.h"

namespace kelvane::app {

void FrmChart::LoadDiamonds() {
  StreamContext ctx = state_.Streams();
  std::string message = LoadAreaDiamonds(ctx, state_.settings.ChartSet);
  // An area without a database has no diamonds; the chart pane has already
  // told the user about the database.
  (void)message;
}

void FrmChart::LoadTides(std::int16_t day, std::int16_t year) {
  StreamContext ctx = state_.Streams();
  std::string message = ReloadTides(ctx, day, year);
  state_.moment.TideDay = day;
  state_.moment.TideYear = year;
  if (!message.empty()) showMessage(message);
  UpdatePortStates(ctx, true, state_.moment.WorkingTime);
  if (message.empty()) CalculateStreamsNow();
}

}  // namespace kelvane::app
