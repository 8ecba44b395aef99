// The dive route: a boat trip between dive sites at plain speed. Each leg
// is the straight line from site to site, steered on its bearing and run
// at the boat's speed through the water: the stream is not allowed to
// change the course or the time. The boat waits at each site for the dive,
// and the next leg leaves when the divers are back on board.
//
// The stream is still looked up along each leg, step by step, so that the
// results can show the tide state met on the way and at each site, and the
// chart can draw the track. Plane sailing throughout; courses in the report
// are true, the stored course to steer is magnetic (variation only: a
// motor boat between dive sites makes no leeway worth the name).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "passage/legsolver.h"
#include "passage/passagestate.h"
#include "passage/routecalc.h"
#include "streams/tidalstreams.h"

namespace kelvane {

// CalcLegNoTides: the leg A to B with no stream. The course is the
// plane-sailing bearing A to B, TimeTaken = range / speed, the distance is
// the range, ClosestApproach 0, BestIndex 0, GroundSpeed = speed. Sets
// LegStart, LegDest and LegSpeed. The speed is the caller's to check: the
// dive route refuses 0.5 knots and less before any leg is worked.
LegSolution CalcLegNoTides(PassageState& s, Position a, Position b, float speed);

// The most steps a dive leg may be walked in: the leg's stored track holds
// 1001 points (its start and 1000 steps).
inline constexpr int kMaxDiveLegSteps = kStoredTrackPoints - 1;

// The number of steps of `stepHours` at `speed` knots in a leg of `range`
// miles: range / (speed x step), rounded to the nearest whole step (ties to
// the even one). A leg of no length has none.
int DiveLegSteps(float range, float speed, float stepHours);

struct [[nodiscard]] DiveLegRecord {
  bool ok = true;
  std::string message;               // why not, when !ok: nothing was changed
  std::vector<std::string> notices;  // messages of the stream lookup, each once
};

// RecordDiveLeg: walks leg `point` (Route[point] to Route[point + 1]) from
// `time` on `day` of `year` in steps of CalcInterval / 60 hours at the leg's
// speed on the bearing A to B, DiveLegSteps of them. PassCog[0] is A at the
// start; PassCog[k] is the position after step k with the moment at the
// start of that step, as the leg solver keeps its track; PassStreams[k] is
// the stream met at the start of step k. The moment of each step is carried
// with AdvanceMoment, so a leg over midnight meets the next day's streams
// and one over New Year the next year's. The point's DriftCount is the
// number of steps, and its DriftTrack is emptied (no stream acts on a dive
// leg). Time and course are not altered.
//
// A leg that would need more than kMaxDiveLegSteps steps changes nothing
// and says so (TrackTooLongMessage).
DiveLegRecord RecordDiveLeg(StreamContext& ctx, PassageState& s, int point, float time, std::int16_t day,
                            std::int16_t year, float calcInterval);

struct DiveRouteInput {
  std::string DepartureText;  // "HH:MM" as typed (rtedeptime)
  std::int16_t Day = 1;       // the working day and year: the day of departure
  std::int16_t Year = 2000;
  float WorkingTime = 0;  // the working moment's hours (the tides go back to it)
  float Variation = 0;    // degrees, east positive
  float CalcInterval = 5.0f;
};

struct [[nodiscard]] DiveRouteOutcome {
  bool completed = false;             // the report was written
  std::vector<std::string> messages;  // to show in order; a stop leaves its message last
};

// Cmdrteok of the dive route. Checks the departure text (the route
// calculation's messages), the route's length and the speed of every leg
// (0.5 knots or less refused with the route calculation's message; there
// is no question below 1 knot here). Then every leg by CalcLegNoTides and
// RecordDiveLeg, the course to steer corrected by variation only, and the
// report into ResultText: the two lines of the warning, the date, the
// departure and passage time, the route distance, the variation, and for
// each leg its seven lines and a blank.
//
// The passage time runs from the departure to the arrival at the last
// site: every leg's time and the dive at every site but the last. The last
// dive still shows in that leg's "Departing at" line.
//
// On success the stores hold the results as the route calculation leaves
// them (RouteCog, RouteStreams, ResultText, SummaryText, RouteDistance and
// each leg's CourseToSteer, LegTime, DriftCount), so that the chart draws
// the track and the results form shows the report and the streams met. On
// any stop every store is as it was. The tides are left for the working
// day either way.
DiveRouteOutcome CalculateDiveRoute(StreamContext& ctx, PassageState& s, const DiveRouteInput& in);

// txtDiveTime: the dive at the destination of leg `leg` (Route[leg + 1]),
// read from the digits of the box; an empty box is 0, and more than 32767
// minutes is 32767. A leg outside the route changes nothing.
void SetDiveTime(PassageState& s, int leg, std::string_view digits);

}  // namespace kelvane
