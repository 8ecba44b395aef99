// The construction of a single leg beside its track: the stream vectors
// laid end to end from the start (the drift chain, step by step) and the
// water track from their end to the destination, the course steered.
// Together with the track over the ground they make the course-to-steer
// triangle a navigator draws on the chart.
#include <algorithm>

#include "app/overlaydrawing.h"
#include "core/format.h"

namespace kelvane::app {

using namespace overlay;

void DrawLegConstruction(OverlayFrame& f) {
  const LegConstruction& leg = f.sources.state->passage.LegChart;
  if (leg.Drift.empty() || (!leg.Vectors && !leg.WaterTrack)) return;
  QPainter& d = f.painter;
  const SettingsRecord& s = f.settings;
  const int w = f.view.surfaceWidth, h = f.view.surfaceHeight;
  auto on = [w, h](ScreenPoint p) { return TrackPointOnSurface(p.x, p.y, w, h); };

  if (leg.Vectors) {
    std::vector<QLineF> vectors;
    ScreenPoint from = f.view.ToScreen(leg.Drift[0].Lat, leg.Drift[0].Lon);
    for (std::size_t k = 1; k < leg.Drift.size(); ++k) {
      const ScreenPoint to = f.view.ToScreen(leg.Drift[k].Lat, leg.Drift[k].Lon);
      if (on(from) || on(to)) vectors.emplace_back(from.x, from.y, to.x, to.y);
      from = to;
    }
    DrawWideLines(d, vectors, std::max<int>(1, s.StreamLineWidth), s.TidalStreamColour);
  }
  if (leg.WaterTrack) {
    const DriftPoint& end = leg.Drift.back();
    const ScreenPoint a = f.view.ToScreen(end.Lat, end.Lon);
    const ScreenPoint b = f.view.ToScreen(leg.Dest.Lat, leg.Dest.Lon);
    if (on(a) || on(b)) {
      SelectDashPen(d, std::max(1, RoundToInt(s.LineSize)), s.COGColour);
      DrawLine(a.x, a.y, b.x, b.y, d);
      RestorePen(d);
    }
  }
}

}  // namespace kelvane::app
