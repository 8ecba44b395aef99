// One leg worked by hand: two positions (typed, picked from the waypoints
// or taken from the GPS), a boat speed and the leeway, checked in the order
// the leg form checks them, then solved through the streams of the working
// moment and written up as the leg's report.
//
// Two steps, so that the window can store its display switch between them:
// CheckSingleLeg reads the boxes and gives the refusal, the low-speed
// question or a leg ready to solve; SolveSingleLeg solves it and fills the
// report. Bearings are degrees true unless marked magnetic, distances
// nautical miles, speeds knots, times decimal hours.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/positions.h"
#include "passage/passagestate.h"
#include "streams/tidalstreams.h"

namespace kelvane {

// Which side the wind is on: leeway is taken off the course with the wind
// to port and added with it to starboard (the tacks 1 and 2 of a route leg).
enum class LeewaySide { None, Port, Starboard };

struct SingleLegInput {
  std::string Start;  // "DD.MM.mmN DDD.MM.mmW": latitude, blank, longitude
  std::string Dest;
  std::string Speed;       // Txtboatspeed, knots through the water
  bool LeewayOn = false;   // chkLeeway
  std::string LeewayText;  // txtLeeway, degrees
  LeewaySide Side = LeewaySide::None;
  // The user has answered Yes to the question of a speed below 1 knot.
  bool LowSpeedAccepted = false;
};

enum class LegCheckVerdict {
  Refused,        // show `message`; nothing is solved
  AskToContinue,  // ask `message` (Yes/No); on Yes check again with LowSpeedAccepted
  Ready,          // solve it
};

struct [[nodiscard]] CheckedLeg {
  LegCheckVerdict verdict = LegCheckVerdict::Refused;
  std::string message;
  Position start, dest;
  float speed = 0;          // LegSpeed
  bool leewayOn = false;    // LeewayOn
  float leeway = 0;         // WorkingLeeway, degrees
  std::int16_t tack = 0;    // 0 none, 1 port, 2 starboard
};

// The messages of the checks, in the order they are made.
std::string NoStartMessage();         // "No start position."
std::string NoDestinationMessage();   // "No destination."
std::string EnterSpeedMessage();      // "Enter boat speed"
std::string LegSpeedRefusedMessage(); // "Boat below 0.5kn, Cannot continue - please correct."
std::string LegSpeedQuestion();       // "Boat speed very low" / "Do you wish to continue?" / ...
std::string LeewayValueMessage();     // "You have selected to use Leeway but have not entered a value"
std::string LeewaySideMessage();      // "Select windside for Leeway"
std::string CourseParametersMessage();  // a leg of no length
// An arithmetic fault of the calculation, by its number (9: the working
// arrays were overrun, 6: a result out of range).
std::string LegErrorMessage(int number);

// A position box as latitude and longitude: two words read with TextToLat
// and TextToLon. Empty `message` on success; a missing or impossible
// latitude gives the route editor's "Error - Latitude entry", a longitude
// its "Error - Longitude entry".
struct PositionEntry {
  Position at;
  std::string message;
};
PositionEntry ParsePositionEntry(const std::string& text);

// The box text of a position: LatToText, a blank, LonToText, as the GPS
// and waypoint buttons write it.
std::string PositionEntryText(float lat, float lon);

// cmdOK up to the solving: empty boxes, the speed (0.5 knots or less
// refused, below 1 asked), the leeway (a value and a side when it is on),
// the positions, and a leg of no length.
CheckedLeg CheckSingleLeg(const SingleLegInput& in);

// The moment and settings a leg is worked with.
struct SingleLegSettings {
  bool UseTides = true;
  float Variation = 0;  // degrees, east positive
  float CalcInterval = 5.0f;
  float AcceptableError = 1.0f;
  std::int16_t Day = 1;  // the working moment: the leg leaves then
  std::int16_t Year = 2000;
  float Time = 0;
};

enum class LegSolveVerdict { Solved, Failed };

struct [[nodiscard]] SingleLegOutcome {
  LegSolveVerdict verdict = LegSolveVerdict::Failed;
  std::string message;               // Failed: the error message
  std::vector<std::string> notices;  // messages of the stream lookup, to show
  float CourseTrue = 0;        // course to steer, degrees true
  float CourseMagnetic = 0;    // less variation, leeway by the side
  float Range = 0;             // A to B
  float Bearing = 0;           // A to B
  float Speed = 0;             // through the water
  float TimeTaken = 0;         // hours
  float CourseOverGround = 0;  // A to the end of the track
  float GroundSpeed = 0;
  bool Achieved = true;        // the track came within AcceptableError of B
  std::vector<std::string> lines;  // the report, as ResultText then holds it
};

// Solves a leg that CheckSingleLeg passed, from the working moment: with
// the tides through SolveLeg (the ports' state refreshed for the moment
// first and put back after), without them as the plain range and bearing
// at boat speed. On success RouteCog and RouteStreams hold the leg's track
// alone, ResultText the report, LegStart, LegDest, LegSpeed and
// RouteAchieved the leg, and LegChart the construction (its switches off:
// the caller sets them). On failure every store is as it was.
SingleLegOutcome SolveSingleLeg(StreamContext& ctx, PassageState& s, const CheckedLeg& leg,
                                const SingleLegSettings& settings);

}  // namespace kelvane
