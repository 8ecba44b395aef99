// The wind barbs: the forecast grid of the wind store at the working moment
// (WindDisplay) and the wind of each leg over the route (ShowWind).
#include "app/overlays_wind.h"

#include <memory>

#include "app/overlaydrawing.h"
#include "chart/windbarbs.h"
#include "core/format.h"
#include "wind/windstore.h"

namespace kelvane::app {

using namespace overlay;

namespace {

struct Barb {
  ScreenPoint at;
  float speed = 0;
  float direction = 0;
  bool southern = false;
};

// "9.7kn 270°T": the speed and the direction the wind comes from, as the
// wind lists write them.
std::string BarbText(const Barb& b) {
  return FormatNumber(b.speed, "0.0") + "kn " + FormatNumber(b.direction, "000") + "°T";
}

void DrawBarbs(OverlayFrame& f, const std::vector<Barb>& barbs) {
  if (barbs.empty()) return;
  const SettingsRecord& s = f.settings;
  QPainter& d = f.painter;
  SelectSolidPen(d, s.BarbWeight, s.WindColour);
  d.setBrush(QBrush(PackedColour(s.WindColour)));
  for (const Barb& b : barbs) {
    const BarbShape shape = WindBarb(b.at, b.speed, b.direction, s.BarbLength, s.BarbSpacing, b.southern);
    if (shape.calm) {
      d.save();
      d.setBrush(Qt::NoBrush);
      Circle(d, b.at, shape.calmRadius);
      d.restore();
      continue;
    }
    for (const auto& [from, to] : shape.lines) DrawLine(from.x, from.y, to.x, to.y, d);
    for (const auto& p : shape.pennants) {
      const QPointF corners[3] = {{p[0].x, p[0].y}, {p[1].x, p[1].y}, {p[2].x, p[2].y}};
      d.drawPolygon(corners, 3);
    }
  }
  RestorePen(d);
  if (s.BarbDisplayText != 0) {
    const int textHeight = ScaledTextHeight(s.WindFontSize, f.markRadius, f.baseRadius);
    SelectFont(d, "Arial", textHeight);
    for (const Barb& b : barbs) DrawLabel(f, Q(BarbText(b)), b.at.x + 6, b.at.y + 4, textHeight, s.WindFontColour);
    RestoreFont(d);
  }
  f.outcome.drawnBarbs += static_cast<int>(barbs.size());
}

// The forecast winds of the working moment's slot, at the grid points on
// the surface; points with no data are not in the slot's list.
void DrawWindGrid(OverlayFrame& f, WindSlotReader& reader) {
  const ProgramState& st = *f.sources.state;
  const WorkingMoment& m = st.moment;
  const std::vector<WindRecord>& winds = reader.Winds(
      st.folders.WindStoreFile(), WindSlotOf(m.WorkingMonth, m.WorkingDayOfMonth, m.WorkingYear, m.WorkingTime));
  std::vector<Barb> barbs;
  for (const WindRecord& r : winds) {
    const ScreenPoint at = f.view.ToScreen(r.Lat, r.Long);
    if (On(f, at)) barbs.push_back({at, r.Speed, r.Direction, r.Lat < 0});
  }
  DrawBarbs(f, barbs);
}

// DrawInWind over the route: each leg's wind at the leg's midpoint, the
// wind set for the leg or else the working wind of the route forms.
void DrawRouteWind(OverlayFrame& f) {
  const ProgramState& st = *f.sources.state;
  const std::vector<RoutePoint>& route = st.passage.Route;
  std::vector<Barb> barbs;
  for (int i = 1; i < RouteCount(st.passage); ++i) {
    const RoutePoint& a = route[i];
    const RoutePoint& b = route[i + 1];
    const float lat = (a.Lat + b.Lat) / 2.0f;
    const float lon = (a.Lon + b.Lon) / 2.0f;
    const ScreenPoint at = f.view.ToScreen(lat, lon);
    if (!On(f, at)) continue;
    const WindSlot wind = a.LegWind ? *a.LegWind : WindSlot{st.workingWind.speed, st.workingWind.direction};
    barbs.push_back({at, wind.speed, wind.direction, lat < 0});
  }
  DrawBarbs(f, barbs);
}

}  // namespace

OverlayLayer WindLayer() {
  auto reader = std::make_shared<WindSlotReader>();
  return {15, "wind", [reader](OverlayFrame& f) {
            if (f.settings.WindDisplay != 0) DrawWindGrid(f, *reader);
            if (f.settings.ShowWind != 0) DrawRouteWind(f);
          }};
}

}  // namespace kelvane::app
