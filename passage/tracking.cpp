#include "passage/tracking.h"

#include <cmath>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"

namespace kelvane {

NearestPoint NearestWaypoint(const std::vector<Waypoint>& withBlank, float lat, float lon) {
  NearestPoint best;
  const int n = static_cast<int>(Count(withBlank));
  for (int i = 0; i < n; ++i) {
    float range = RangeBearing(lat, lon, withBlank[static_cast<std::size_t>(i)].Lat,
                               withBlank[static_cast<std::size_t>(i)].Lon).range;
    if (range < best.range) {
      best.range = range;
      best.index = i;
    }
  }
  return best;
}

NearestPoint NearestRoutePoint(const PassageState& passage, float lat, float lon) {
  NearestPoint best;
  for (int i = 1; i <= RouteCount(passage); ++i) {
    const RoutePoint& p = passage.Route[static_cast<std::size_t>(i)];
    float range = RangeBearing(lat, lon, p.Lat, p.Lon).range;
    if (range < best.range) {
      best.range = range;
      best.index = i;
    }
  }
  return best;
}

int NearestLeg(const PassageState& passage, float lat, float lon) {
  int leg = 0;
  float bestDetour = 0;
  for (int i = 1; i < RouteCount(passage); ++i) {
    const RoutePoint& a = passage.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = passage.Route[static_cast<std::size_t>(i + 1)];
    float detour = RangeBearing(a.Lat, a.Lon, lat, lon).range + RangeBearing(lat, lon, b.Lat, b.Lon).range -
                   RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon).range;
    if (leg == 0 || detour < bestDetour) {
      leg = i;
      bestDetour = detour;
    }
  }
  return leg;
}

std::vector<std::string> TrackingTexts(const PassageState& passage, float lat, float lon, float timeNow) {
  const int legs = RouteCount(passage) - 1;
  if (legs < 1 || passage.RouteCog.size() < 2) return {};
  const int leg = NearestLeg(passage, lat, lon);
  const RoutePoint& a = passage.Route[static_cast<std::size_t>(leg)];
  const RoutePoint& b = passage.Route[static_cast<std::size_t>(leg + 1)];
  RangeAndBearing toBoat = RangeBearing(a.Lat, a.Lon, lat, lon);
  RangeAndBearing legLine = RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon);
  float crossTrack = static_cast<float>(
      std::fabs(toBoat.range * std::sin(DegToRad(static_cast<double>(toBoat.bearing) - legLine.bearing))));
  std::size_t nearest = 0;
  float offLine = 25000;
  for (std::size_t i = 0; i < passage.RouteCog.size(); ++i) {
    float r = RangeBearing(lat, lon, passage.RouteCog[i].Lat, passage.RouteCog[i].Lon).range;
    if (r < offLine) {
      offLine = r;
      nearest = i;
    }
  }
  // The plan had the boat at the nearest track point at its time: the
  // difference is carried to the planned arrival.
  float late = timeNow - passage.RouteCog[nearest].Time;
  float eta = std::fmod(passage.RouteCog.back().Time + late, 24.0f);
  if (eta < 0) eta += 24.0f;
  return {"ETA : " + HoursToClock(eta), " Cross Track Error : " + FormatNumber(crossTrack, "0.00 nm"),
          " Off Line : " + FormatNumber(offLine, "0.00 nm")};
}

}  // namespace kelvane
