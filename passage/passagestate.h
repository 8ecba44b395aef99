// The shared stores of a passage calculation, in one record the main window
// owns and hands to the calculations: the route, the track and stream
// samples of the last pass and of the whole route, the drift chain, the
// last leg solved, and the report.
//
// Arrays keep the program's numbering: Route from 1 (element 0 is a blank
// that nothing reads), PassCog, RouteCog from 0, PassStreams and
// RouteStreams from 1 (element 0 unused). "Emptying" RouteCog or
// RouteStreams leaves the one blank element 0, as a growable array
// redimensioned to 0 does; the first leg then writes over it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/positions.h"
#include "core/windconfig.h"

namespace kelvane {

// One point of a calculated track.
struct CogPoint {
  float Lat = 0;
  float Lon = 0;
  float Time = 0;  // decimal hours at this point
  std::int16_t Day = 0;
  std::int16_t Year = 0;
  bool operator==(const CogPoint&) const = default;
};

// The stream that acted on one step.
struct StreamSample {
  float Rate = 0;       // knots
  float Direction = 0;  // degrees true, towards
  float Time = 0;       // decimal hours at the start of the step
  std::string Source;   // "chartNumber, DiaRef" or "NONE"
  bool operator==(const StreamSample&) const = default;
};

struct DriftPoint {
  float Lat = 0;
  float Lon = 0;
  bool operator==(const DriftPoint&) const = default;
};

inline constexpr int kMaxPassSteps = 1500;   // DriftChain and the pass arrays: indices 0..1500
inline constexpr int kStoredTrackPoints = 1001;  // RoutePoint tracks: indices 0..1000
// A route of 100 legs is the most the route's 101-slot lists hold.
inline constexpr int kMaxRoutePoints = 101;

using TrackArray = std::array<DriftPoint, kStoredTrackPoints>;

// One element of Route: the start of the leg to the next point.
struct RoutePoint {
  float Lat = 0;
  float Lon = 0;
  std::string Name;
  std::string LatText;  // text of 10
  std::string LonText;  // text of 11
  std::int16_t Flag1 = 0;
  float ModLat = 0;  // where the leg got to when the waypoint was moved
  float ModLon = 0;
  std::string Remark;
  std::string ModLatText;
  std::string ModLonText;
  std::int16_t Flag2 = 0;
  std::int16_t Tack = 0;  // 0 none, 1 port, 2 starboard
  float Spare1 = 0, Spare2 = 0;
  float Speed = 0;  // through the water on the leg that starts here, knots
  float Spare3 = 0, Spare4 = 0;
  float CourseToSteer = 0;  // degrees magnetic, by the calculation
  float Spare5 = 0, Spare6 = 0;
  // The three tracks of 1001 points each are kept off the record's body so
  // that a route of many points stays cheap to copy until they are filled.
  std::vector<DriftPoint> TrackA;      // working points (course over ground)
  std::vector<DriftPoint> DriftTrack;  // the leg's DriftChain, index 0 the leg's start
  std::vector<DriftPoint> TrackB;      // a course-over-ground run
  std::int16_t DriftCount = 0;         // points in DriftTrack: the leg's BestIndex
  float Spare7 = 0;
  float LegTime = 0;  // hours
  std::int16_t Spare8 = 0;
  float ScreenX = 0, ScreenY = 0;
  std::int16_t StopMinutes = 0;  // stopped here before the next leg (dive time)
  // The wind on the leg that starts here, once one has been set for it
  // (from the wind store, or worked in the wind form); until then the leg
  // sails in the working wind of the route forms.
  std::optional<WindSlot> LegWind;
};

// What the single-leg form asks the chart to draw beside the leg's track:
// the stream vectors (the drift chain from A, one vector a step) and the
// water track (from the end of the drift chain to B: the course steered
// through the water, the third side of the course-to-steer triangle).
struct LegConstruction {
  bool WaterTrack = false;
  bool Vectors = false;
  std::vector<DriftPoint> Drift;  // DriftChain[0..BestIndex]; Drift[0] is A
  DriftPoint Dest;
};

// What the route calculation found for one leg besides the route point's
// own fields: the clock at both ends as the report writes them, the speed
// and distance over the ground, and which of RouteStreams the leg met.
struct LegResult {
  std::int16_t StartDay = 0, StartYear = 0;
  float StartTime = 0;       // decimal hours at the leg's start
  std::string StartText;     // "Starting at" clock of the report
  std::string ArrivalText;   // "arriving at" clock of the report, "(5 Mar)" on a later day
  float GroundSpeed = 0;     // knots over the ground: range / time taken
  float TrackDistance = 0;   // miles over the ground to the best point
  int FirstStream = 0;       // the leg's first sample in RouteStreams
  int StreamCount = 0;       // its samples there (the leg's DriftCount)
};

struct SweptHour {
  float Depart = 0;     // decimal hours of the day of departure
  float TimeTaken = 0;  // hours
  bool operator==(const SweptHour&) const = default;
};

struct PassageState {
  std::vector<RoutePoint> Route = std::vector<RoutePoint>(1);  // points from 1

  std::vector<CogPoint> PassCog;
  std::vector<StreamSample> PassStreams;
  std::array<DriftPoint, kMaxPassSteps + 1> DriftChain{};
  std::vector<CogPoint> RouteCog = std::vector<CogPoint>(1);
  std::vector<StreamSample> RouteStreams = std::vector<StreamSample>(1);

  Position LegStart;
  Position LegDest;
  float LegSpeed = 0;
  std::int16_t RouteAchieved = 0;  // 0 or -1

  std::vector<std::string> ResultText;
  std::vector<std::string> SummaryText;
  std::vector<LegResult> LegResults;  // leg i (from Route[i]) at element i - 1; emptied with the results
  // The departure sweep's time taken at each hour it tried, kept for the
  // passage plan's graph for as long as the route stands (a moved, added
  // or removed point empties it; a later calculation of the same route
  // does not).
  std::vector<SweptHour> SweptHours;
  float RouteDistance = 0;
  LegConstruction LegChart;  // emptied with the results
};

// Number of route points (Route holds its blank element 0).
inline int RouteCount(const PassageState& s) { return static_cast<int>(s.Route.size()) - 1; }

// Clears the calculated results of a route: RouteCog, RouteStreams and
// ResultText (what clearing the route does).
void ClearRouteResults(PassageState& s);

// Clears what a calculation left on the route points (course to steer, leg
// time, drift track) and the route's results: a moved, added or removed
// point makes them wrong.
void ClearLegResults(PassageState& passage);

}  // namespace kelvane
