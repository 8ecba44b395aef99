// The route on the chart and the files of routes: the points a route save
// writes, and the route an import puts on the chart.
#pragma once

#include <vector>

#include "passage/passagestate.h"
#include "routes/gpx.h"
#include "routes/legacy.h"

namespace kelvane {

// The route's points, in order, as a route file holds them. A point with no
// name is written as "WAYPT" and its number in "000", so that every point
// of the file has a name to show: the third point unnamed is "WAYPT003".
std::vector<RouteFilePoint> RouteFilePoints(const PassageState& passage);

// Makes the records of a route import the route on the chart: one point
// per record with its name, position and leg speed, each leg's end noted on
// its start as marking the route on the chart does, up to the 101 points
// the chart's route holds. The results of an
// earlier calculation are cleared.
void TakeImportedRoute(PassageState& passage, const std::vector<RteRecord>& records);

}  // namespace kelvane
