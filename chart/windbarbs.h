// The wind barb: the meteorologist's mark of a wind's speed and direction,
// as the chart's wind layer draws it, apart from any drawing device.
//
// The staff runs from the station (the grid point, or a leg's midpoint)
// towards the direction the wind comes FROM. The feathers sit at the far end
// of the staff, the biggest outermost, each `spacing` pixels further in:
//
//   pennant (a filled triangle)  50 kn
//   full barb                     10 kn
//   half barb                      5 kn
//
// The speed is first rounded to the nearest 5 kn (halves up, so 3 to 7 kn
// is one half barb and 8 to 12 kn one full barb). A wind that rounds to 0
// (under 2.5 kn) is calm: a circle round the station and no staff. A lone
// half barb is set in by one spacing from the end, so that it cannot be
// taken for a full barb missing its tip.
//
// Feathers go on the side of low pressure: to the right of the staff
// looking out from the station in the northern hemisphere, to the left in
// the southern. A full barb is half a staff long and leans out towards the
// staff's end at 60 degrees to it; a half barb is half of that.
//
// Screen pixels, x to the right and y downward; north is up the screen.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "chart/overlaygeometry.h"

namespace kelvane {

struct BarbFeathers {
  int pennants = 0;  // 50 kn each
  int full = 0;      // 10 kn each
  int half = 0;      // 0 or 1
  bool calm = false;
  bool operator==(const BarbFeathers&) const = default;
};
BarbFeathers FeathersFor(float knots);

struct BarbShape {
  bool calm = false;
  double calmRadius = 0;  // the calm circle's radius, round the station
  // The staff first (station to far end), then each barb from the staff out.
  std::vector<std::pair<ScreenPoint, ScreenPoint>> lines;
  std::vector<std::array<ScreenPoint, 3>> pennants;
};

// The barb of a wind of `knots` from `fromDegrees` true at `station`,
// staffLength and spacing in pixels.
BarbShape WindBarb(ScreenPoint station, float knots, float fromDegrees, double staffLength, double spacing,
                   bool southern);

}  // namespace kelvane
