// The passage plan: what a skipper takes on board from a calculated route,
// as plain text records ready to lay out on paper. Every number is the
// same text the route report prints for it (course, distance, times), so
// that the plan and the report can never tell two stories; the plan adds
// the streams met along each leg, the day's high and low waters at the
// ports whose diamonds the route used, and sunrise and sunset at the start.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "passage/passagestate.h"
#include "streams/tidalstreams.h"
#include "tides/tidestate.h"

namespace kelvane {

// The stream acting on the boat at one moment of a leg.
struct PlanStream {
  bool known = false;  // false: the leg has no samples (a leg of no length)
  std::string Clock;   // "HH:MM" at the start of the step
  std::string Rate;    // "0.0kn"
  std::string Set;     // "000°T", the direction the stream runs towards
  std::string Source;  // the diamond, "chartNumber, DiaRef", or "NONE" beyond reach
};

struct PlanLeg {
  int Number = 0;  // from 1
  std::string FromName, ToName;
  std::string FromLat, FromLon, ToLat, ToLon;  // DD.MM.mmN, DDD.MM.mmW
  std::string Course;    // course to steer, "000°M"
  std::string Distance;  // waypoint to waypoint, "0.0nm"
  std::string Time;      // time taken, "1hr 05min"
  std::string Start;     // clock at the start
  std::string Eta;       // the report's "arriving at" text
  std::string Sog;       // speed over the ground, "0.0kt."
  std::string Note;      // the dive time at the destination, or ""
  // The streams met at the start, the middle and the end of the leg.
  std::array<PlanStream, 3> Streams;
};

struct PlanPort {
  std::string Name;
  std::vector<std::array<std::string, 2>> Turning;  // time, height (m) of the day's highs and lows
};

struct PassagePlan {
  std::string Title;      // "Passage Plan"
  std::string DateText;   // "10 June 2025"
  std::string Departure;  // "Depart 08:00 from Name"
  std::string Arrival;    // "Arrive 11:23 at Name"
  std::vector<std::string> Warnings;  // the advisory line, and the unreached-leg warning when there is one
  std::vector<std::string> Summary;   // the report's head: date, passage time, distance, SOG, variation
  std::vector<PlanLeg> Legs;
  std::vector<PlanPort> Ports;
  std::string PortsNote;  // why no port is listed, when none is
  std::string Sunrise, Sunset;  // "hh:mm" or "None", at the start on the day of departure
};

struct [[nodiscard]] PlanBuild {
  PassagePlan plan;
  std::string message;  // "" when built; otherwise why there is no plan
};

// The message when no route has been calculated.
std::string NoCalculatedRouteMessage();

// The plan of the last calculation held in `passage`. `tides` holds the
// curves of the working day (the report's port lines are the same), and
// `streams` the diamonds that named the samples; `summerTime` is the
// user's switch, which the sun's times follow as the tides' do.
PlanBuild BuildPassagePlan(const PassageState& passage, const TideState& tides, const StreamState& streams,
                           bool summerTime);

// The plan as plain text, one line an element (the printout of a build
// without the toolkit, and the text of the PDF in the same order).
std::vector<std::string> PassagePlanLines(const PassagePlan& plan);

}  // namespace kelvane
