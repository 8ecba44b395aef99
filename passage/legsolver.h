// The leg solver: the course to steer from A to B through the tidal streams.
//
// The classical construction done numerically: a dead-reckoning pass steps
// the boat along a trial heading at `CalcInterval` minutes a step, with the
// stream sampled at every step; the stream vectors of the pass are summed
// into the drift chain, and the next heading is the bearing from the end of
// that chain (at the best point of the pass) to B. Eight passes, always
// eight. Plane sailing throughout; bearings are true, and the caller turns
// the course into a magnetic one.
//
// Units: positions in decimal degrees (north and east positive), times in
// decimal hours of the day (0 to below 24) with a day of the year and a
// year, distances in nautical miles, speeds in knots, bearings in degrees.
// Everything is single precision except the trigonometry.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "passage/passagestate.h"
#include "streams/tidalstreams.h"

namespace kelvane {

// The two settings that steer the solver, and the moment the chart window
// shows (the tides are put back to it after a pass that left its day).
struct SolverSettings {
  float CalcInterval = 5.0f;     // minutes a step
  float AcceptableError = 1.0f;  // miles: a leg within this of B is achieved
  float WorkingTime = 0;         // decimal hours of the working moment
};

struct PassResult {
  float NextHeading = 0;
  int BestIndex = 0;
  float ClosestApproach = 9999.0f;
  float TrackDistance = 0;
  float AchievedBearing = 0;
  float BestTime = 0;
  int Steps = 0;          // steps run
  bool overflow = false;  // the pass needed more than 1500 steps
};

struct LegSolution {
  float CourseToSteer = 0;  // degrees true
  float TimeTaken = 0;      // hours for the whole leg
  float TrackDistance = 0;  // miles over the ground up to the best point
  float ClosestApproach = 0;
  int BestIndex = 0;
  float GroundSpeed = 0;
  bool ok = true;               // false: the leg could not be worked; message says why
  std::string message;          // the reason when !ok
  std::vector<std::string> notices;  // messages of the stream lookup, each once
};

// The message of a pass that would run past the working arrays.
std::string PassOverflowMessage();

// TraceLeg: one pass from A on `heading`, `step` hours a step, until the
// boat is twice the leg's range from A; the best point is the first of the
// least range to B. Rewrites PassCog, PassStreams and DriftChain; cuts
// PassCog back to the best point. On overflow the pass stops (the stores
// are then half written; SolveLeg puts them back).
PassResult TraceLeg(StreamContext& ctx, PassageState& s, const SolverSettings& settings, Position a, Position b,
                    float time, std::int16_t day, std::int16_t year, float speed, float step, float heading,
                    std::vector<std::string>& notices);

// SolveLeg: eight passes, then the best part of the last pass is appended
// to RouteCog and RouteStreams and LegStart, LegDest, LegSpeed and
// RouteAchieved are set. A of exactly B is course 0, time 0, ground speed =
// speed, and nothing is touched. A leg shorter than one step's run is
// walked in tenths of the interval. TimeTaken = (R - D) / Speed + BestTime,
// D the range from A to the best point.
//
// A pass that would need more than 1500 steps stops the leg with
// PassOverflowMessage(), and every store is left as it was.
LegSolution SolveLeg(StreamContext& ctx, PassageState& s, const SolverSettings& settings, Position a, Position b,
                     float speed, float time, std::int16_t day, std::int16_t year);

}  // namespace kelvane
