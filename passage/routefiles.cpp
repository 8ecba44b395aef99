#include "passage/routefiles.h"

#include "core/format.h"
#include "core/positions.h"

namespace kelvane {

std::vector<RouteFilePoint> RouteFilePoints(const PassageState& passage) {
  std::vector<RouteFilePoint> points;
  for (int i = 1; i <= RouteCount(passage); ++i) {
    const RoutePoint& r = passage.Route[static_cast<std::size_t>(i)];
    RouteFilePoint p;
    p.Lat = r.Lat;
    p.Lon = r.Lon;
    p.Name = r.Name.empty() ? "WAYPT" + FormatNumber(i, "000") : r.Name;
    points.push_back(std::move(p));
  }
  return points;
}

void TakeImportedRoute(PassageState& passage, const std::vector<RteRecord>& records) {
  passage.Route.assign(1, RoutePoint{});
  for (const RteRecord& r : records) {
    if (RouteCount(passage) >= kMaxRoutePoints) break;  // the chart's route holds no more
    RoutePoint p;
    p.Lat = r.Lat;
    p.Lon = r.Lon;
    p.Name = r.Name;
    p.LatText = LatToText(r.Lat);
    p.LonText = LonToText(r.Lon);
    p.Speed = r.Speed;
    if (RouteCount(passage) >= 1) {
      passage.Route.back().ModLat = p.Lat;
      passage.Route.back().ModLon = p.Lon;
    }
    passage.Route.push_back(std::move(p));
  }
  ClearRouteResults(passage);
}

}  // namespace kelvane
