// Route calculation: every leg of the route through the leg solver, with
// the clock carried forward, the true course turned into a magnetic course
// to steer, the tracks kept for the chart and the report written line by
// line (what the route form's OK button does).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/timetext.h"
#include "passage/legsolver.h"
#include "passage/passagestate.h"
#include "streams/tidalstreams.h"

namespace kelvane {

struct RouteCalcInput {
  std::string DepartureText;  // "HH:MM" as typed (rtedeptime)
  std::int16_t Day = 1;       // the working day of the year and year: the day of departure
  std::int16_t Year = 2000;
  float WorkingTime = 0;      // the working moment's hours (the tides are put back to it)
  bool LeewaySwitch = false;  // chkLeeway
  std::string LeewayText;     // txtLeeway: for the report line only
  float Leeway = 0;           // the settings' Leeway: what corrects the course
  float Variation = 0;        // degrees, east positive
  float CalcInterval = 5.0f;
  float AcceptableError = 1.0f;
};

enum class MessageKind { Information, Warning };

struct RouteMessage {
  MessageKind kind = MessageKind::Information;
  std::string text;
};

struct RouteCalcHooks {
  // Yes/No question; true is Yes. Without one the answer is Yes.
  std::function<bool(const std::string&)> askYesNo;
  // The progress bar, 0 to 100.
  std::function<void(int)> progress;
  // Called once before each leg: the place to pump events.
  std::function<void()> beforeLeg;
  // Each message as it arises (an unreached leg's warning at that leg),
  // before the next leg is worked; it is also kept in the outcome.
  std::function<void(const RouteMessage&)> tell;
  // The report lines of each leg as soon as the leg is worked.
  std::function<void(const std::vector<std::string>&)> legLines;
};

struct [[nodiscard]] RouteCalcOutcome {
  bool completed = false;             // the report was written
  std::vector<RouteMessage> messages; // to show in order; a stop leaves its message last
  std::vector<std::string> legLines;  // the leg lines also added to the main window's report box
};

// Message texts of the calculation.
std::string ValidTimeExampleMessage();  // "Please enter a valid time i.e. 12:35"
std::string ValidTimeMessage();         // "Please enter a valid time"
std::string SpeedRefusedMessage(int i);
std::string SpeedQuestion(int i);
std::string NoLeewayValueMessage();
std::string RouteTooShortMessage();  // a route of fewer than two points
std::string UnreachedLegMessage(int i, float closestApproach);
std::string UnreachedWarningLine();
// "Unable to store leg N - its track has more than 1000 points." and the
// advice: a leg whose track would run past the stored track of its point.
std::string TrackTooLongMessage(int leg);

// The departure text as hours; empty text on success, otherwise the message.
struct DepartureTime {
  float hours = 0;
  std::string message;
};
DepartureTime ParseDepartureTime(const std::string& text);

// The variation as the report writes it: the magnitude then "W" for a
// negative value, "E" otherwise.
std::string VariationText(float variation);

// The course to steer: true course less variation, less leeway on port
// tack and plus it on starboard (tack 0 none, and none unless the switch is
// on), brought into 0..360 by one addition or subtraction of 360.
float MagneticCourse(float trueCourse, float variation, bool leewaySwitch, float leeway, std::int16_t tack);

// The speed test of every point of the route, the last one included (its
// speed belongs to no leg, yet it is tested): 0.5 knots or less refuses
// the run with SpeedRefusedMessage; below 1.0 asks SpeedQuestion, and No
// declines. Without askYesNo the answer is Yes.
enum class SpeedVerdict { Go, Refused, Declined };
struct [[nodiscard]] SpeedCheck {
  SpeedVerdict verdict = SpeedVerdict::Go;
  std::string message;  // the refusal
};
SpeedCheck CheckRouteSpeeds(const PassageState& s, const std::function<bool(const std::string&)>& askYesNo);

// One leg of the route worked from the moment `at`: leg i runs from
// Route[i] to Route[i + 1] at Route[i].Speed. `next` is the moment the next
// leg starts, after the leg and the stop at its end: the clock stays within
// the day and the day rolls into the next year after the year's real last
// day, so that every later leg looks its streams up on its true date. The
// arrival is AddHours' text of the end of the leg, as the reports print it.
struct LegRun {
  LegSolution leg;
  Arrival arrival;
  PassageMoment next;
};
LegRun RunRouteLeg(StreamContext& ctx, PassageState& s, const SolverSettings& solver, int i, PassageMoment at);

// The date of the reports' heads: day of month, month, year ("10 Jun 2025").
std::string ReportDateText(std::int16_t day, std::int16_t year);

// Cmdrteok. On success the stores of `s` (Route, RouteCog, RouteStreams,
// ResultText, SummaryText, RouteDistance, the pass stores) hold the
// results; on any stop they are exactly as they were. The tides are left
// for the working day.
RouteCalcOutcome CalculateRoute(StreamContext& ctx, PassageState& s, const RouteCalcInput& in,
                                const RouteCalcHooks& hooks = {});

// RouteDistance: the sum of the plane-sailing ranges of the legs.
float RouteDistanceOf(const PassageState& s);

// The reference-port lines of the report for the ports of the area, at
// the state PortTideState holds: "Port Name " + name, then each turning
// point as time, tab, height, then a blank line.
std::vector<std::string> ReferencePortLines(const TideState& tides);

// The tidal-details table of the results form: a header line, then one line
// per stream sample (every step with displayAll, otherwise only where the
// hour changes): time, predicted position, stream rate and direction, and
// with showIds the diamond that gave it. Fields are tab separated.
std::vector<std::string> TidalDetailsLines(const PassageState& s, bool showIds, bool displayAll);

// The legs list of the route form: three lines a leg.
std::vector<std::string> LegListLines(const PassageState& s);
// The word of a leg's tack on its line: "Port Tack" for 1, "Starboard
// Tack" for 2, nothing for any other value.
std::string TackWord(std::int16_t tack);

}  // namespace kelvane
