#include "instruments/ais_targets.h"

#include <algorithm>
#include <cmath>

#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"
#include "core/timetext.h"

namespace kelvane {

namespace {

std::string WithoutAt(std::string text) {
  std::erase(text, '@');
  return text;
}

AISTarget* Find(AisTargetTable& table, std::int32_t mmsi) {
  for (AISTarget& t : table.AISTargets)
    if (t.MMSI == mmsi) return &t;
  return nullptr;
}

}  // namespace

Position PredictPosition(float lat, float lon, float minutes, float course, float speed,
                         const AisTableSettings& settings, const StreamLookup& stream) {
  float distance = speed * minutes / 60.0f;
  Components run = BearingToComponents(course, distance);
  if (settings.BoatFutureTidePlot != 0 && stream) {
    if (std::optional<StreamAt> s = stream(lat, lon)) {
      Components drift = BearingToComponents(s->direction, s->rate * minutes / 60.0f);
      run.east += drift.east;
      run.north += drift.north;
    }
  }
  return OffsetPosition(lat, lon, run.east, run.north);
}

std::array<AisPoint, 7> PredictSix(float lat, float lon, float course, float speed, float stepMinutes, float nowHours,
                                   const AisTableSettings& settings, const StreamLookup& stream) {
  std::array<AisPoint, 7> points{};
  for (int j = 1; j <= 6; ++j) {
    float minutes = static_cast<float>(j) * stepMinutes;
    Position p = PredictPosition(lat, lon, minutes, course, speed, settings, stream);
    float time = nowHours + minutes / 60.0f;
    if (time >= 24.0f) time -= 24.0f;
    points[static_cast<std::size_t>(j)] = AisPoint{p.lat, p.lon, time};
  }
  return points;
}

bool AISTargetKnown(const AisTargetTable& table, std::int32_t mmsi) {
  return std::any_of(table.AISTargets.begin(), table.AISTargets.end(),
                     [mmsi](const AISTarget& t) { return t.MMSI == mmsi; });
}

NearestTarget NearestAISTarget(const AisTargetTable& table, float lat, float lon, float withinMiles) {
  NearestTarget best;
  float bestRange = 0;
  for (std::size_t i = 0; i < table.AISTargets.size(); ++i) {
    const AISTarget& t = table.AISTargets[i];
    const float range = RangeBearing(lat, lon, t.Lat, t.Long).range;
    if (best.index < 0 || range < bestRange) {
      best.index = static_cast<int>(i);
      bestRange = range;
    }
  }
  if (best.index >= 0 && bestRange > withinMiles) return {};
  best.range = bestRange;
  return best;
}

std::int16_t& TargetFlagOf(AISTarget& target, TargetFlag flag) {
  switch (flag) {
    case TargetFlag::History: return target.ShowHistory;
    case TargetFlag::Predicted: return target.ShowPredicted;
    case TargetFlag::Heading: return target.ShowHeading;
    case TargetFlag::Details: break;
  }
  return target.ShowDetails;
}

void ToggleTargetFlag(AISTarget& target, TargetFlag flag) {
  std::int16_t& f = TargetFlagOf(target, flag);
  f = f != 0 ? 0 : -1;
}

void SetTargetFlags(AisTargetTable& table, TargetFlag flag, std::int16_t value) {
  for (AISTarget& t : table.AISTargets) TargetFlagOf(t, flag) = value;
}

void UpdateAISTarget(AisTargetTable& table, int messageType, std::int32_t mmsi, float lat, float lon, float course,
                     float speed, int status, float nowHours) {
  const AisTableSettings& s = table.settings;
  if (AISTarget* t = Find(table, mmsi)) {
    // History samples lie at least five minutes apart.
    if (nowHours > t->History[1].TimeHours + 5.0 / 60.0) {
      for (std::size_t k = 6; k >= 2; --k) t->History[k] = t->History[k - 1];
      t->History[1] = AisPoint{lat, lon, nowHours};
    }
    // Within 30 seconds of a new history sample the position is left as it
    // is: a deliberate thinning of busy targets.
    if (nowHours > t->History[1].TimeHours + 0.5 / 60.0) {
      t->Lat = lat;
      t->Long = lon;
      t->Predicted = PredictSix(lat, lon, course, speed, s.AheadIntervals, nowHours, s, table.stream);
    }
    t->LastHeardHours = nowHours;
    t->Speed = speed;
    t->Course = course;
    t->Status = static_cast<std::int16_t>(status);
    t->MessageType = static_cast<std::int16_t>(messageType);
  } else {
    AISTarget n;
    n.MMSI = mmsi;
    n.Lat = lat;
    n.Long = lon;
    n.Speed = speed;
    n.Course = course;
    n.Status = static_cast<std::int16_t>(status);
    n.MessageType = static_cast<std::int16_t>(messageType);
    n.LastHeardHours = nowHours;
    n.Alive = -1;
    n.ShowDetails = s.ShowAISDetails;
    n.ShowHistory = s.AISHistTrack;
    n.ShowPredicted = s.AISPredTrack;
    n.ShowHeading = s.AISHeadingVector;
    for (std::size_t k = 1; k <= 6; ++k) n.History[k] = AisPoint{lat, lon, nowHours};
    n.Predicted = PredictSix(lat, lon, course, speed, s.AheadIntervals, nowHours, s, table.stream);
    table.AISTargets.push_back(std::move(n));
  }
  // Ageing. Past midnight the clock stands below every last-heard time, so
  // nothing ages out until it has caught up.
  for (AISTarget& t : table.AISTargets)
    if (nowHours > t.LastHeardHours + 0.3333) t.Alive = 0;
  std::erase_if(table.AISTargets, [](const AISTarget& t) { return t.Alive == 0; });
}

void UpdateAISStatic(AisTargetTable& table, std::int32_t mmsi, const std::string& callsign,
                     const std::string& vesselName, const std::string& shipType, const std::string& destination,
                     const std::string& dimensions, const std::string& eta) {
  AISTarget* t = Find(table, mmsi);
  if (!t) return;
  t->Callsign = WithoutAt(callsign);
  t->VesselName = TrimSpaces(WithoutAt(vesselName));
  t->ShipType = shipType;
  t->Destination = WithoutAt(destination);
  t->Dimensions = dimensions;
  t->ETA = eta;
}

void UpdateAISAidStatic(AisTargetTable& table, std::int32_t mmsi, const std::string& callsign, const std::string& name,
                        const std::string& shipType, const std::string& dimensions, int offPosition,
                        int /*aidTypeNumber*/) {
  AISTarget* t = Find(table, mmsi);
  if (!t) return;
  std::string cleanName = TrimSpaces(WithoutAt(name));
  if (t->Callsign != callsign) t->Callsign = callsign;
  if (t->VesselName != cleanName) t->VesselName = cleanName;
  if (t->ShipType != shipType) t->ShipType = shipType;
  if (t->Dimensions != dimensions) t->Dimensions = dimensions;
  if (t->OffPosition != offPosition) t->OffPosition = static_cast<std::int16_t>(offPosition);
}

void UpdateAISClassBStatic(AisTargetTable& table, std::int32_t mmsi, int part, const std::string& name,
                           const std::string& callsign, const std::string& shipType, const std::string& dimensions) {
  AISTarget* t = Find(table, mmsi);
  if (!t) return;
  if (part == 0) {
    std::string cleanName = TrimSpaces(WithoutAt(name));
    if (!cleanName.empty()) t->VesselName = cleanName;
  } else if (part == 1) {
    t->Callsign = WithoutAt(callsign);
    t->ShipType = shipType;
    t->Dimensions = dimensions;
  }
}

void ApplyAisMessage(AisTargetTable& table, const AisMessage& m, float nowHours) {
  auto mmsi = static_cast<std::int32_t>(m.mmsi);
  switch (m.type) {
    case 1:
    case 2:
    case 18:
      UpdateAISTarget(table, m.type, mmsi, m.lat, m.lon, m.course, m.speed, m.status, nowHours);
      break;
    case 5:
      UpdateAISStatic(table, mmsi, m.callsign, m.vesselName, m.shipType, m.destination, m.dimensions, m.eta);
      break;
    case 9: {
      UpdateAISTarget(table, m.type, mmsi, m.lat, m.lon, m.course, m.speed, m.status, nowHours);
      std::string altitude = "Altitude = " + std::to_string(m.altitude);
      UpdateAISStatic(table, mmsi, altitude, "SEARCH & RESCUE", "S & R", altitude, "Not Received", "");
      break;
    }
    case 21:
      UpdateAISTarget(table, m.type, mmsi, m.lat, m.lon, 0.0f, 0.0f, 100, nowHours);
      UpdateAISAidStatic(table, mmsi, "NONE", m.vesselName, "Aid to Navigation", m.dimensions, m.offPosition,
                         m.aidType);
      break;
    case 24:
      UpdateAISClassBStatic(table, mmsi, m.part, m.vesselName, m.callsign, m.shipType, m.dimensions);
      break;
    default:
      break;
  }
}

void ClosestApproach(float ownLat, float ownLong, float ownSpeed, float ownCourse, float targetLat, float targetLong,
                     float targetSpeed, float targetCourse, float& cpa, float& timeToCpa) {
  constexpr double kRad = 3.141592654 / 180.0;
  RangeAndBearing rb = RangeBearing(ownLat, ownLong, targetLat, targetLong);
  double R = rb.range;
  double B = rb.bearing * kRad;
  // The target's place relative to the own ship: X northward, Y eastward,
  // and the relative velocity on the same axes.
  double X = R * std::cos(B);
  double Y = R * std::sin(B);
  double Vx = targetSpeed * std::cos(targetCourse * kRad) - ownSpeed * std::cos(ownCourse * kRad);
  double Vy = targetSpeed * std::sin(targetCourse * kRad) - ownSpeed * std::sin(ownCourse * kRad);
  double D = Y * Vy + X * Vx;
  if (D >= 0) {
    // The distance is not falling; also a zero relative speed, before any
    // division by it.
    cpa = -12.0f;
    timeToCpa = -1.0f;
    return;
  }
  double A = Vx * Vx + Vy * Vy;
  double Bq = 2.0 * D;
  double Q = R * R - (Bq * Bq) / (4.0 * A);
  if (Q < 0) {
    cpa = -1.0f;
    return;
  }
  cpa = static_cast<float>(std::sqrt(Q));
  timeToCpa = static_cast<float>(-Bq / (2.0 * A));
}

std::array<AisPoint, 7> ComputeOwnPrediction(const OwnShipState& own, const AisTableSettings& settings,
                                             const StreamLookup& stream, float nowHours) {
  return PredictSix(own.GPSLat, own.GPSLong, own.GPSCourse, own.GPSSpeed, settings.AheadVector, nowHours, settings,
                    stream);
}

std::string CpaText(float cpa, float timeToCpa, float nowHours) {
  if (cpa < 0) return "No Closure";
  float at = nowHours + timeToCpa;
  if (at >= 24.0f) at -= 24.0f;
  return FormatNumber(cpa, "0.00") + "nm @ " + HoursToClock(at);
}

}  // namespace kelvane
