#include "chart/windbarbs.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

BarbFeathers FeathersFor(float knots) {
  BarbFeathers f;
  // Whole fives, halves up: 2.5 kn is already a half barb.
  int fives = static_cast<int>(std::floor(static_cast<double>(knots) / 5.0 + 0.5));
  if (fives <= 0) {
    f.calm = true;
    return f;
  }
  f.pennants = fives / 10;
  fives %= 10;
  f.full = fives / 2;
  f.half = fives % 2;
  return f;
}

BarbShape WindBarb(ScreenPoint station, float knots, float fromDegrees, double staffLength, double spacing,
                   bool southern) {
  BarbShape shape;
  const BarbFeathers f = FeathersFor(knots);
  if (f.calm) {
    shape.calm = true;
    shape.calmRadius = std::max(2.0, staffLength / 5.0);
    return shape;
  }
  constexpr double kRad = 3.14159265358979 / 180.0;
  // u along the staff, out to where the wind comes from; n across it, to the
  // side of the feathers (the right of u on a y-down screen is (-u.y, u.x)).
  const double ux = std::sin(fromDegrees * kRad), uy = -std::cos(fromDegrees * kRad);
  const double side = southern ? -1.0 : 1.0;
  const double nx = -uy * side, ny = ux * side;
  auto along = [&](double s) { return ScreenPoint{station.x + ux * s, station.y + uy * s}; };
  // A feather's tip: `length` out, leaning towards the staff's end at 60 degrees.
  auto tip = [&](ScreenPoint base, double length) {
    return ScreenPoint{base.x + length * (0.8660254 * nx + 0.5 * ux), base.y + length * (0.8660254 * ny + 0.5 * uy)};
  };
  const double fullLength = staffLength / 2.0;
  shape.lines.push_back({station, along(staffLength)});
  double s = staffLength;
  for (int i = 0; i < f.pennants; ++i) {
    const ScreenPoint outer = along(s);
    shape.pennants.push_back({outer, tip(along(s - spacing), fullLength), along(s - spacing)});
    s -= spacing;
  }
  if (f.pennants > 0) s -= spacing / 2.0;  // a little gap between pennants and barbs
  for (int i = 0; i < f.full; ++i) {
    const ScreenPoint base = along(s);
    shape.lines.push_back({base, tip(base, fullLength)});
    s -= spacing;
  }
  if (f.half > 0) {
    if (f.pennants == 0 && f.full == 0) s -= spacing;  // a lone half barb stands in from the end
    const ScreenPoint base = along(s);
    shape.lines.push_back({base, tip(base, fullLength / 2.0)});
  }
  return shape;
}

}  // namespace kelvane
