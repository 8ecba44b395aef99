// The chart's waypoints, as circles or as symbol marks.
#include <algorithm>

#include "app/overlaydrawing.h"

namespace kelvane::app {

using namespace overlay;

void DrawWaypoints(OverlayFrame& f) {
  const SettingsRecord& s = f.settings;
  if (s.ShowWaypoints == 0.0f) return;
  const std::vector<Waypoint>& wps = f.sources.state->waypoints.ChartWaypoints;
  const std::size_t n = Count(wps);
  if (n == 0) return;
  QPainter& d = f.painter;
  const bool symbols = s.WayPointIcon != 0;
  const int size = std::max<int>(2, s.WaySize);
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  const QColor fill = PackedColour(s.WayColour);
  // The marks first, then every name over them, so that each pen and font
  // is made once for the layer.
  std::vector<std::pair<ScreenPoint, const Waypoint*>> shown;
  shown.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    const ScreenPoint at = f.view.ToScreen(wps[i].Lat, wps[i].Lon);
    if (On(f, at)) shown.emplace_back(at, &wps[i]);
  }
  if (symbols) {
    for (const auto& [at, wp] : shown) DrawSymbolMark(d, at.x, at.y, size, SymbolBands(wp->Sym), s.WayColour, s.WayLineSize);
  } else {
    SelectSolidPen(d, s.WayLineSize, s.WayColour);
    d.setBrush(s.WayFill == 1 ? QBrush(fill) : QBrush(Qt::NoBrush));
    for (const auto& [at, wp] : shown) Circle(d, at, size);
    RestorePen(d);
  }
  SelectFont(d, "Arial", textHeight);
  const double dx = symbols ? size + 3 : size + 2;
  for (const auto& [at, wp] : shown) {
    const std::string name = Trim(wp->Name);
    if (!name.empty()) DrawLabel(f, Q(name), at.x + dx, at.y - textHeight / 2.0, textHeight, s.WayTextColour);
  }
  RestoreFont(d);
  f.outcome.drawnWaypoints = static_cast<int>(shown.size());
}

}  // namespace kelvane::app
