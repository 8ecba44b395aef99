// Course over ground and man overboard: where does a boat on a steady
// heading, or a person in the water, end up?
//
// The leg solver asks what to steer to reach a place; this asks the
// opposite. One dead-reckoning pass, no iteration: from the start the
// position moves each step by the boat's own vector (speed x step along the
// heading, none for a casualty) plus the stream's (rate x step along its
// direction), with the stream looked up at the start of every step. The
// pass runs n + 1 steps, k = 0 .. n, n = duration / step rounded to the
// nearest (ties to even): a duration of 00:00 still drifts one step, so a
// casualty in a uniform stream of rate r ends (n + 1) x r x step from the
// start.
//
// Units: positions in decimal degrees (north and east positive), times in
// decimal hours of the day with a day of the year and a year, distances in
// nautical miles, speeds in knots, bearings in degrees true unless marked
// magnetic. Single precision, as the solver.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/positions.h"
#include "core/timetext.h"
#include "passage/passagestate.h"
#include "passage/singleleg.h"
#include "streams/tidalstreams.h"

namespace kelvane {

// A run may fill the 1001 slots of a stored track (TrackB, indices 0 to
// 1000): n = 1000 at most, 1001 steps.
inline constexpr int kMaxDriftSteps = kStoredTrackPoints - 1;

struct DriftRunResult {
  float Step = 0;          // hours a step: CalcInterval / 60
  int Steps = 0;           // n; the pass ran n + 1 steps
  float Distance = 0;      // miles over the ground, the sum of the steps
  float BestRange = 9999.0f;  // least range from a step's end to the destination
  int BestIndex = -1;      // the step k of that range; -1 without a destination
  float BestEast = 0;      // the running sums of the east and north parts
  float BestNorth = 0;     //   (miles) up to that step
  float East = 0, North = 0;  // the same over the whole run
  Position End;            // where the run ends
  PassageMoment EndMoment; // and when
  std::vector<std::string> notices;  // messages of the stream lookup, each once
};

// The message of a run longer than the stored track holds, with the most
// hours it can take at this interval.
std::string DriftTooLongMessage(float calcInterval);

// Whether a run of `duration` hours at `calcInterval` minutes a step fits
// the stored track: n = duration / step rounded, 0 <= n <= 1000. A
// duration that is no number, negative or huge does not fit.
bool DriftFits(float duration, float calcInterval);

// DriftRun: the pass from point.Lat, point.Lon at `time` on `day` of `year`
// on `heading` (true) at point.Speed, destination point.ModLat, ModLon when
// `hasDest`. Writes PassCog (element k the end of step k, with the time at
// its start), PassStreams (element k the sample of step k), RouteCog and
// RouteStreams (element 0 the start and a blank, then the pass: the layout
// the solver leaves), and point.TrackB (element k the end of step k, 0 the
// start until step 0 overwrites it) and point.DriftTrack (the start alone).
// The clock moves by AdvanceMoment: over midnight the next day's streams,
// over New Year the next year's. The caller has made sure the run fits
// (DriftFits); one that does not is not run and changes nothing.
DriftRunResult DriftRun(StreamContext& ctx, PassageState& s, RoutePoint& point, bool hasDest, float time,
                        std::int16_t day, std::int16_t year, float calcInterval, float duration, float heading);

// ---- the two forms --------------------------------------------------------------------

// The messages of the forms' checks.
std::string CoordinatesMessage();   // "Error in start and destination coordinates"
std::string DurationNotSetMessage();  // "Duration not set"
std::string DurationAmbiguousMessage();  // "Duration entry ambiguous"
std::string DirectionNotSetMessage();  // "Direction not set"
std::string NegativeDurationMessage();  // a plain number of hours below 0

// The duration box of the course-over-ground form, "HH:MM": hours plus
// minutes / 60. Empty: "Duration not set"; no ":", ":" first, or a
// negative or unreadable number either side: "Duration entry ambiguous".
struct DurationEntry {
  float hours = 0;
  std::string message;
};
DurationEntry ParseCogDuration(const std::string& text);
// The duration box of the man-overboard form: a plain number of hours.
// Empty: "Duration not set"; no number or below 0: a message.
DurationEntry ParseMobDuration(const std::string& text);

struct CogInput {
  std::string Start;    // "DD.MM.mmN DDD.MM.mmW"
  std::string Dest;     // optional, the same form
  std::string Speed;    // Txtboatspeed, knots through the water
  std::string Duration; // txtDuration, "HH:MM"
  std::string Bearing;  // txtBearing, the heading steered, degrees magnetic
  bool LeewayOn = false;
  std::string LeewayText;
  LeewaySide Side = LeewaySide::None;
};

struct MobInput {
  std::string Start;
  std::string Duration;  // hours
  std::string Speed;     // empty or 0: the casualty
  std::string Bearing;   // degrees magnetic
};

// The moment and settings a run is worked with.
struct DriftSettings {
  float Variation = 0;  // degrees, east positive: true = magnetic + variation
  float CalcInterval = 5.0f;
  std::int16_t Day = 1;  // the working moment: the run starts then
  std::int16_t Year = 2000;
  float Time = 0;
};

enum class DriftVerdict { Refused, Done };

struct [[nodiscard]] DriftOutcome {
  DriftVerdict verdict = DriftVerdict::Refused;
  std::string message;               // Refused: why; nothing has changed
  std::vector<std::string> notices;  // messages of the stream lookup, to show
  float HeadingTrue = 0;  // the heading the pass was run on
  DriftRunResult run;
  Position start;
  std::optional<Position> dest;
  std::vector<std::string> lines;  // the report, as ResultText then holds it
  std::vector<CogPoint> track;     // RouteCog of the run
};

// frmCalcCOG's OK: the checks in the form's order, the magnetic heading
// turned true with the variation and the leeway (wind to port: the boat
// makes good the heading plus the leeway; to starboard, less), the run
// from the working moment and the report. On Done the stores of `s` hold
// the run (RouteCog, RouteStreams, PassCog, PassStreams, ResultText); on
// Refused they are as they were. The tides are left for the working day.
DriftOutcome CalculateCog(StreamContext& ctx, PassageState& s, const CogInput& in, const DriftSettings& settings);

// frmCalcMOB's OK, the same for a casualty (or a boat) from the moment of
// the alarm; run.End is the predicted position to mark on the chart.
DriftOutcome CalculateMob(StreamContext& ctx, PassageState& s, const MobInput& in, const DriftSettings& settings);

}  // namespace kelvane
