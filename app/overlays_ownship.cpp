// The own boat from the GPS: its outline, the last positions of the live
// trail and its predicted positions.
#include <algorithm>

#include "app/overlaydrawing.h"
#include "instruments/receive.h"

namespace kelvane::app {

using namespace overlay;

// ---- own boat ----------------------------------------------------------------------------

void DrawOwnBoat(OverlayFrame& f) {
  if (!f.sources.gpsOn || !f.sources.instruments) return;
  const OwnShipState& own = f.sources.instruments->own;
  const ChartRecord& chart = f.view.geometry->chart;
  f.outcome.boatOutOfBounds = own.GPSLat > chart.UpperLat || own.GPSLat < chart.LowerLat ||
                              own.GPSLong < chart.LeftLon || own.GPSLong > chart.rightLon;
  QPainter& d = f.painter;
  const SettingsRecord& s = f.settings;
  const ScreenPoint at = f.view.ToScreen(own.GPSLat, own.GPSLong);
  SelectSolidPen(d, s.BoatLineWidth, s.GPSColour);
  d.setBrush(Qt::NoBrush);
  if (On(f, at)) d.drawPolygon(BoatOutline(at, own.GPSCourse, std::max(12, f.markRadius * 6)));
  // The last positions of the live trail.
  const auto& track = f.sources.instruments->track.points;
  const std::size_t first = track.size() > 7 ? track.size() - 6 : 1;
  for (std::size_t i = first; i < track.size(); ++i) {
    const ScreenPoint p = f.view.ToScreen(track[i].Lat, track[i].Long);
    if (On(f, p)) Circle(d, p, 2);
  }
  // DrawinFuturePos: the six predicted positions along the course.
  const auto future = ComputeOwnPrediction(own, f.sources.instruments->targets.settings,
                                           f.sources.instruments->targets.stream, f.sources.clockHours);
  ScreenPoint last = at;
  for (int k = 1; k <= 6; ++k) {
    const ScreenPoint p = f.view.ToScreen(future[static_cast<std::size_t>(k)].Lat, future[static_cast<std::size_t>(k)].Long);
    if (On(f, p) || On(f, last)) DrawLine(last.x, last.y, p.x, p.y, d);
    if (On(f, p)) {
      DrawLine(p.x - 3, p.y - 3, p.x + 3, p.y + 3, d);
      DrawLine(p.x - 3, p.y + 3, p.x + 3, p.y - 3, d);
    }
    last = p;
  }
  RestorePen(d);
}

}  // namespace kelvane::app
