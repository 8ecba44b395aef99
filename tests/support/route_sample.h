// The three-point route of the route-form tests: points on the meridian of
// 1 degree west at 5 knots, and the leg lines the route form lists for it.
#pragma once

#include <string>
#include <vector>

#include "core/positions.h"
#include "passage/passagestate.h"

namespace kelvane::test {

inline RoutePoint Point(float lat, float lon, const char* name, float speed) {
  RoutePoint p;
  p.Lat = lat;
  p.Lon = lon;
  p.Name = name;
  p.Speed = speed;
  p.LatText = LatToText(lat);
  p.LonText = LonToText(lon);
  return p;
}

// Alpha to Bravo is 0.2 degrees of latitude north (12 miles, 000), Bravo
// to Charlie 0.1 degrees south (6 miles, 180).
inline void ThreePointRoute(PassageState& s) {
  s.Route.assign(1, RoutePoint{});
  s.Route.push_back(Point(50.4f, -1.0f, "Alpha", 5));
  s.Route.push_back(Point(50.6f, -1.0f, "Bravo", 5));
  s.Route.push_back(Point(50.5f, -1.0f, "Charlie", 5));
}

inline const std::vector<std::string> kLegLines = {
    "From   :Alpha", "To      :Bravo",   "Speed : 5 Kn.   Range = 12.0  Bearing = 000°T  ",
    "From   :Bravo", "To      :Charlie", "Speed : 5 Kn.   Range = 6.0  Bearing = 180°T  ",
};

}  // namespace kelvane::test
