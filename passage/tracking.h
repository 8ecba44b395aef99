// Where a position lies against the route and the waypoints: the nearest
// waypoint, route point and leg, and how the boat is doing along a
// calculated route.
//
// Ranges are plane-sailing nautical miles and bearings degrees true, from
// RangeBearing.
#pragma once

#include <string>
#include <vector>

#include "passage/passagestate.h"
#include "routes/gpx.h"

namespace kelvane {

// The nearest of a list of points to (lat, lon) by range: the first of
// equal ranges wins, and the search starts from a best range of 25000, so
// an empty list gives nothing. index counts from 0 in the list given.
struct NearestPoint {
  int index = -1;
  float range = 25000;
  bool found() const { return index >= 0; }
};
NearestPoint NearestWaypoint(const std::vector<Waypoint>& withBlank, float lat, float lon);
// The same over the route points; index is the point's index in Route
// (from 1).
NearestPoint NearestRoutePoint(const PassageState& passage, float lat, float lon);
// The leg (the index of its first point, from 1) that a point at (lat, lon)
// joins with the least detour: range A-P plus P-B less A-B, the first of
// equal detours wins. 0 when the route has no leg.
int NearestLeg(const PassageState& passage, float lat, float lon);

// Key "T": from the boat's position along a calculated route. The nearest
// leg by range (the least detour, as NearestLeg) gives the cross track
// error, the perpendicular distance from the leg's rhumb line; the nearest
// point of the calculated track (RouteCog) gives the distance off that
// line and, by the time the plan had the boat there, how late or early the
// boat runs, which moves the planned arrival to the ETA. Texts: "ETA : "
// with the clock, " Cross Track Error : " and " Off Line : " with "0.00 nm".
// Empty without a calculated route of two or more points.
std::vector<std::string> TrackingTexts(const PassageState& passage, float lat, float lon, float timeNow);

}  // namespace kelvane
