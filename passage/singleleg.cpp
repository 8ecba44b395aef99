#include "passage/singleleg.h"

#include <cmath>
#include <sstream>

#include "core/format.h"
#include "core/text.h"
#include "core/timetext.h"
#include "passage/legsolver.h"
#include "passage/routecalc.h"
#include "passage/routeform.h"

namespace kelvane {

namespace {
constexpr const char* kCrLf = "\r\n";
}

std::string NoStartMessage() { return "No start position."; }
std::string NoDestinationMessage() { return "No destination."; }
std::string EnterSpeedMessage() { return "Enter boat speed"; }
std::string LegSpeedRefusedMessage() { return "Boat below 0.5kn, Cannot continue - please correct."; }
std::string LegSpeedQuestion() {
  return std::string("Boat speed very low") + kCrLf + "Do you wish to continue?" + kCrLf +
         "(To continue may cause problems)";
}
std::string LeewayValueMessage() { return "You have selected to use Leeway but have not entered a value"; }
std::string LeewaySideMessage() { return "Select windside for Leeway"; }
std::string CourseParametersMessage() {
  return "An error occured in your course parameters, check speed, course etc and retry";
}
std::string LegErrorMessage(int number) {
  return "An error no " + std::to_string(number) + " occurred," + kCrLf +
         "Please report this error and the chart number in use to Kelvane." + kCrLf +
         "The results presented must be treated with great caution!!";
}

PositionEntry ParsePositionEntry(const std::string& text) {
  // Latitude and longitude are two words; a lone "," between them (as the
  // report's "From" line writes a position) is no word.
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; in >> word;)
    if (word != ",") words.push_back(word);
  PositionEntry out;
  if (words.empty()) {
    out.message = LatitudeEntryMessage();
    return out;
  }
  if (words.size() != 2) {
    out.message = LongitudeEntryMessage();
    return out;
  }
  out.at = {TextToLat(words[0]), TextToLon(words[1])};
  if (!(std::fabs(out.at.lat) <= 90.0f)) out.message = LatitudeEntryMessage();
  else if (!(std::fabs(out.at.lon) <= 180.0f)) out.message = LongitudeEntryMessage();
  return out;
}

std::string PositionEntryText(float lat, float lon) { return LatToText(lat) + " " + LonToText(lon); }

CheckedLeg CheckSingleLeg(const SingleLegInput& in) {
  CheckedLeg out;
  auto refuse = [&out](std::string message) {
    out.verdict = LegCheckVerdict::Refused;
    out.message = std::move(message);
    return out;
  };
  if (Trim(in.Start).empty()) return refuse(NoStartMessage());
  if (Trim(in.Dest).empty()) return refuse(NoDestinationMessage());
  if (Trim(in.Speed).empty()) return refuse(EnterSpeedMessage());

  out.speed = static_cast<float>(TextValue(in.Speed));
  if (!(out.speed > 0.5f)) return refuse(LegSpeedRefusedMessage());
  if (out.speed < 1.0f && !in.LowSpeedAccepted) {
    out.verdict = LegCheckVerdict::AskToContinue;
    out.message = LegSpeedQuestion();
    return out;
  }

  if (in.LeewayOn) {
    if (Trim(in.LeewayText).empty()) return refuse(LeewayValueMessage());
    if (in.Side == LeewaySide::None) return refuse(LeewaySideMessage());
    out.leewayOn = true;
    out.leeway = static_cast<float>(TextValue(in.LeewayText));
    out.tack = in.Side == LeewaySide::Port ? 1 : 2;
  }

  const PositionEntry start = ParsePositionEntry(in.Start);
  if (!start.message.empty()) return refuse(start.message);
  const PositionEntry dest = ParsePositionEntry(in.Dest);
  if (!dest.message.empty()) return refuse(dest.message);
  out.start = start.at;
  out.dest = dest.at;
  if (RangeBearing(out.start.lat, out.start.lon, out.dest.lat, out.dest.lon).range == 0.0f)
    return refuse(CourseParametersMessage());
  out.verdict = LegCheckVerdict::Ready;
  return out;
}

namespace {

// The report of a solved leg.
std::vector<std::string> LegReport(const CheckedLeg& leg, const SingleLegOutcome& r) {
  std::vector<std::string> lines;
  lines.push_back("RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE");
  // A leg whose track never came near B has a course that does not get
  // there: the warning of the route's report says so at the top.
  if (!r.Achieved) lines.push_back(UnreachedWarningLine());
  lines.push_back("COURSE TO STEER = " + FormatNumber(r.CourseTrue, "000") + "\t" + "°T" + " CTS = " +
                  FormatNumber(r.CourseMagnetic, "000") + "°M");
  lines.push_back("From " + LatToText(leg.start.lat) + " , " + LonToText(leg.start.lon));
  lines.push_back("To " + LatToText(leg.dest.lat) + " , " + LonToText(leg.dest.lon));
  lines.push_back("Range = " + FormatNumber(r.Range, "0.0") + "nm");
  lines.push_back("Bearing = " + FormatNumber(r.Bearing, "000") + "°T");
  lines.push_back("Speed = " + NumberText(r.Speed) + "kt");
  lines.push_back("Time taken = " + HoursToSpan(r.TimeTaken));
  lines.push_back("Course Over Ground = " + FormatNumber(r.CourseOverGround, "000") + "°T @ " +
                  FormatNumber(r.GroundSpeed, "0.0") + "kt");
  lines.push_back("Course to steer " + FormatNumber(r.CourseMagnetic, "000") + "°M");
  return lines;
}

// The ports' state for the working moment, the curves of its day first if
// another day's are held.
void TidesForMoment(StreamContext& ctx, const SingleLegSettings& in) {
  if (!ctx.tides) return;
  if (ctx.tides->TideDay != in.Day || ctx.tides->TideYear != in.Year) (void)ReloadTides(ctx, in.Day, in.Year);
  UpdatePortStates(ctx, true, in.Time);
}

}  // namespace

SingleLegOutcome SolveSingleLeg(StreamContext& ctx, PassageState& live, const CheckedLeg& leg,
                                const SingleLegSettings& in) {
  SingleLegOutcome out;
  if (leg.verdict != LegCheckVerdict::Ready) {
    out.message = leg.message;
    return out;
  }
  const Position a = leg.start, b = leg.dest;
  const RangeAndBearing rb = RangeBearing(a.lat, a.lon, b.lat, b.lon);
  out.Range = rb.range;
  out.Bearing = rb.bearing;
  out.Speed = leg.speed;

  // Worked on a copy, so that a fault leaves the stores as they were.
  PassageState s = live;
  s.RouteCog.assign(1, CogPoint{});
  s.RouteStreams.assign(1, StreamSample{});
  s.LegResults.clear();
  s.LegChart = {};
  if (in.UseTides) {
    TidesForMoment(ctx, in);
    const SolverSettings solver{in.CalcInterval, in.AcceptableError, in.Time};
    const LegSolution solved = SolveLeg(ctx, s, solver, a, b, leg.speed, in.Time, in.Day, in.Year);
    TidesForMoment(ctx, in);
    out.notices = solved.notices;
    // The solver stops a pass that would overrun its working arrays: the
    // subscript fault, error 9.
    if (!solved.ok) {
      out.message = LegErrorMessage(9);
      return out;
    }
    out.CourseTrue = solved.CourseToSteer;
    out.TimeTaken = solved.TimeTaken;
    out.GroundSpeed = solved.GroundSpeed;
    out.Achieved = s.RouteAchieved != 0;
    s.LegChart.Drift.assign(s.DriftChain.begin(), s.DriftChain.begin() + solved.BestIndex + 1);
  } else {
    // No streams: the boat steers the bearing and makes good its own speed.
    out.CourseTrue = rb.bearing;
    out.TimeTaken = rb.range / leg.speed;
    out.GroundSpeed = leg.speed;
    const Arrival arrival = AddHours(in.Day, in.Year, in.Time, out.TimeTaken);
    s.RouteCog = {CogPoint{a.lat, a.lon, in.Time, in.Day, in.Year},
                  CogPoint{b.lat, b.lon, arrival.time, arrival.day, arrival.year}};
    s.LegStart = a;
    s.LegDest = b;
    s.LegSpeed = leg.speed;
    s.RouteAchieved = -1;
    s.LegChart.Drift = {DriftPoint{a.lat, a.lon}};
  }
  const CogPoint& end = s.RouteCog.back();
  out.CourseOverGround = RangeBearing(a.lat, a.lon, end.Lat, end.Lon).bearing;
  out.CourseMagnetic = MagneticCourse(out.CourseTrue, in.Variation, leg.leewayOn, leg.leeway, leg.tack);
  // A result out of range is the overflow fault, error 6.
  for (float v : {out.CourseTrue, out.CourseMagnetic, out.TimeTaken, out.GroundSpeed, out.CourseOverGround})
    if (!std::isfinite(v)) {
      out.message = LegErrorMessage(6);
      return out;
    }
  s.LegChart.Dest = {b.lat, b.lon};
  out.lines = LegReport(leg, out);
  s.ResultText = out.lines;
  live = std::move(s);
  out.verdict = LegSolveVerdict::Solved;
  return out;
}

}  // namespace kelvane
