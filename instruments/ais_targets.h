// The AIS target table: latest position, six history points, six predicted
// points, static data and the closest point of approach of every vessel
// heard, aged out after 20 minutes of silence.
//
// Times are decimal hours of the clock's day (no date): every age here runs
// within a day, and at midnight a target's last-heard time stands above the
// clock until the clock catches up.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/positions.h"
#include "instruments/ais_decode.h"
#include "instruments/ownship.h"

namespace kelvane {

struct AisPoint {
  float Lat = 0;
  float Long = 0;
  float TimeHours = 0;
};

struct AISTarget {
  std::array<AisPoint, 7> History{};  // 1 to 6 used, 1 the newest
  float Lat = 0;
  float Long = 0;
  float CPA = 0;        // nautical miles; -12 moving away, -1 no real closest point
  float TimeToCPA = 0;  // hours; -1 when no closure
  std::int32_t MMSI = 0;
  std::string Callsign = " ";
  std::string VesselName = " ";
  std::string Destination = "Not Received";
  std::string Dimensions = "Not Received";
  std::string ShipType = "0";
  std::string ETA;
  float Speed = 0;  // knots
  float LastHeardHours = 0;
  float Course = 0;  // degrees true
  std::int16_t Status = 0;
  std::int16_t MessageType = 0;
  std::int16_t Alive = 0;
  std::int16_t ShowDetails = 0;
  std::int16_t OffPosition = 0;
  // The target's own switches of its history trail, predicted track and
  // heading vector on the chart: copies of the settings at creation, set
  // all together by the menu switches and one by one from the keyboard.
  std::int16_t ShowHistory = 0;
  std::int16_t ShowPredicted = 0;
  std::int16_t ShowHeading = 0;
  std::array<AisPoint, 7> Predicted{};  // 1 to 6 used
};

// The tidal stream at a position at the present time: rate in knots and
// the direction it runs towards, degrees true. Nothing where no stream is
// known.
struct StreamAt {
  float rate = 0;
  float direction = 0;
};
using StreamLookup = std::function<std::optional<StreamAt>(float lat, float lon)>;

// The settings the table reads.
struct AisTableSettings {
  float AheadVector = 0;     // minutes per step of the own ship's prediction
  float AheadIntervals = 0;  // minutes per step of a target's prediction
  std::int16_t BoatFutureTidePlot = 0;
  std::int16_t ShowAISDetails = 0;
  std::int16_t AISHistTrack = 0;
  std::int16_t AISPredTrack = 0;
  std::int16_t AISHeadingVector = 0;
};

struct AisTargetTable {
  std::vector<AISTarget> AISTargets;  // in order of first hearing
  AisTableSettings settings;
  StreamLookup stream;  // the stream lookup; empty until tides are wired
};

// Dead reckoning: the position after `minutes` at `speed` knots on `course`
// degrees true, plane sailing from the start (through the position library:
// BearingToComponents and OffsetPosition). With BoatFutureTidePlot on and a
// stream known at the start, the stream's run over the same minutes is
// added.
Position PredictPosition(float lat, float lon, float minutes, float course, float speed,
                         const AisTableSettings& settings, const StreamLookup& stream);

// The six predicted points of a target or the own ship, steps of `stepMinutes`;
// times wrap below 24.
std::array<AisPoint, 7> PredictSix(float lat, float lon, float course, float speed, float stepMinutes, float nowHours,
                                   const AisTableSettings& settings, const StreamLookup& stream);

bool AISTargetKnown(const AisTargetTable& table, std::int32_t mmsi);

// The target nearest to a position by plane sailing (the first of equal
// ranges), from 0, and its range; -1 with an empty table or when the
// nearest lies beyond `withinMiles`.
struct NearestTarget {
  int index = -1;
  float range = 0;
};
NearestTarget NearestAISTarget(const AisTargetTable& table, float lat, float lon, float withinMiles = 1e9f);

// The four display switches of one target, as the keyboard numbers them:
// 1 the details label, 2 the history trail, 3 the predicted track, 4 the
// heading vector.
enum class TargetFlag { Details = 1, History = 2, Predicted = 3, Heading = 4 };
std::int16_t& TargetFlagOf(AISTarget& target, TargetFlag flag);
// Flips one switch of one target (0 <-> -1).
void ToggleTargetFlag(AISTarget& target, TargetFlag flag);
// Sets one switch of every target (the menu switches).
void SetTargetFlags(AisTargetTable& table, TargetFlag flag, std::int16_t value);

// A position message: create or update the target, keep history samples at
// least five minutes apart, leave the position alone within 30 seconds of a
// new sample, and drop every target unheard for more than 0.3333 hours.
void UpdateAISTarget(AisTargetTable& table, int messageType, std::int32_t mmsi, float lat, float lon, float course,
                     float speed, int status, float nowHours);

// Static data of types 5 and 9. Every "@" goes from callsign, name and
// destination, the name is trimmed; a vessel not yet in the table gets
// nothing (its static data is lost until it is heard again).
void UpdateAISStatic(AisTargetTable& table, std::int32_t mmsi, const std::string& callsign,
                     const std::string& vesselName, const std::string& shipType, const std::string& destination,
                     const std::string& dimensions, const std::string& eta);
// Aids to navigation: fields written only where they differ.
void UpdateAISAidStatic(AisTargetTable& table, std::int32_t mmsi, const std::string& callsign, const std::string& name,
                        const std::string& shipType, const std::string& dimensions, int offPosition, int aidTypeNumber);
// Class B static data: part 0 the name (when not empty), part 1 callsign,
// ship type and dimensions.
void UpdateAISClassBStatic(AisTargetTable& table, std::int32_t mmsi, int part, const std::string& name,
                           const std::string& callsign, const std::string& shipType, const std::string& dimensions);

// Applies one decoded message to the table as the dispatcher does: the
// position update with its status, then the static update of its type.
void ApplyAisMessage(AisTargetTable& table, const AisMessage& message, float nowHours);

// Closest point of approach of a target to the own ship, in a flat plane
// around the own ship. Speeds in knots, courses degrees true. When the
// distance is not falling (including a zero relative speed, without a
// division): cpa = -12, timeToCpa = -1. When rounding drives the squared
// miss distance below 0: cpa = -1 and timeToCpa keeps what it held.
// Otherwise cpa in nautical miles and timeToCpa in hours.
void ClosestApproach(float ownLat, float ownLong, float ownSpeed, float ownCourse, float targetLat, float targetLong,
                     float targetSpeed, float targetCourse, float& cpa, float& timeToCpa);

// The own ship's six predicted points, steps of AheadVector minutes.
std::array<AisPoint, 7> ComputeOwnPrediction(const OwnShipState& own, const AisTableSettings& settings,
                                             const StreamLookup& stream, float nowHours);

// "No Closure" for a negative cpa, otherwise "0.00nm @ hh:mm" with the
// clock time of the closest approach (wrapped past midnight).
std::string CpaText(float cpa, float timeToCpa, float nowHours);

}  // namespace kelvane
