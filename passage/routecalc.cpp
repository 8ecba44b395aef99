#include "passage/routecalc.h"

#include <cmath>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"

namespace kelvane {

namespace {
constexpr const char* kCrLf = "\r\n";
}

std::string ValidTimeExampleMessage() { return "Please enter a valid time i.e. 12:35"; }
std::string ValidTimeMessage() { return "Please enter a valid time"; }

std::string SpeedRefusedMessage(int i) {
  return "Boat speed below 0.5kn between waypoints " + std::to_string(i) + " and " + std::to_string(i + 1) + kCrLf +
         "Cannot continue - please correct.";
}

std::string SpeedQuestion(int i) {
  return "Boat speed very low between waypoints " + std::to_string(i) + " and " + std::to_string(i + 1) + kCrLf +
         "Do you wish to continue?" + kCrLf + "(This may cause problems)";
}

std::string RouteTooShortMessage() { return "A route needs at least two waypoints to calculate"; }

std::string NoLeewayValueMessage() { return "You have selected to use leeway but there is no value entered"; }

std::string UnreachedLegMessage(int i, float closestApproach) {
  return "Unable to achieve leg " + std::to_string(i) + " destination." + kCrLf + "CPA = " +
         FormatNumber(closestApproach, "0.00") + "nm" + kCrLf + "Route waypoint modified to last good COG point." +
         kCrLf + "(Caused by boat speed and tidal stream combinations," + kCrLf +
         "modify waypoints, departure time or boat speed.)";
}

std::string UnreachedWarningLine() {
  return "* WARNING * Unable to achieve destination waypoint, examine results before use * WARNING * ";
}

std::string TrackTooLongMessage(int leg) {
  return "Unable to store leg " + std::to_string(leg) + " - its track has more than " +
         std::to_string(kStoredTrackPoints - 1) + " points." + kCrLf +
         "(Increase the calculation interval or shorten the leg.)";
}

DepartureTime ParseDepartureTime(const std::string& text) {
  DepartureTime out;
  const auto colon = text.find(':');
  if (colon == std::string::npos || text.size() < 4) {
    out.message = ValidTimeExampleMessage();
    return out;
  }
  const double hours = TextValue(text.substr(0, colon));
  const double minutes = TextValue(text.substr(colon + 1));
  if (hours > 23 || minutes >= 60) {
    out.message = ValidTimeMessage();
    return out;
  }
  out.hours = static_cast<float>(hours) + static_cast<float>(minutes) / 60.0f;
  return out;
}

std::string VariationText(float variation) {
  return NumberText(std::fabs(variation)) + (variation < 0 ? "W" : "E");
}

float MagneticCourse(float trueCourse, float variation, bool leewaySwitch, float leeway, std::int16_t tack) {
  float course = trueCourse - variation;
  if (leewaySwitch) {
    if (tack == 1) course -= leeway;
    if (tack == 2) course += leeway;
  }
  if (course < 0) course += 360.0f;
  if (course >= 360.0f) course -= 360.0f;
  return course;
}

float RouteDistanceOf(const PassageState& s) {
  float total = 0;
  for (int i = 1; i < RouteCount(s); ++i) {
    const RoutePoint& a = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = s.Route[static_cast<std::size_t>(i + 1)];
    total += RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon).range;
  }
  return total;
}

std::vector<std::string> ReferencePortLines(const TideState& tides) {
  std::vector<std::string> lines;
  for (std::size_t p = 0; p < tides.PortTideState.size(); ++p) {
    const PortTideStateRecord& port = tides.PortTideState[p];
    const std::string name = p < tides.UsedPortName.size() ? tides.UsedPortName[p] : port.PortName;
    lines.push_back("Port Name " + name);
    for (int t = 0; t < port.TurningCount && t < 15; ++t)
      lines.push_back(port.TurningTime[static_cast<std::size_t>(t)] + "\t" +
                      port.TurningHeight[static_cast<std::size_t>(t)]);
    lines.push_back("");
  }
  return lines;
}

std::vector<std::string> LegListLines(const PassageState& s) {
  std::vector<std::string> lines;
  for (int i = 1; i < RouteCount(s); ++i) {
    const RoutePoint& a = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = s.Route[static_cast<std::size_t>(i + 1)];
    const RangeAndBearing rb = RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon);
    lines.push_back("From   :" + a.Name);
    lines.push_back("To      :" + b.Name);
    std::string third = "Speed : " + NumberText(a.Speed) + " Kn.   " + "Range = " + FormatNumber(rb.range, "0.0") +
                        "  Bearing = " + FormatNumber(rb.bearing, "000") + "°T  ";
    lines.push_back(third + TackWord(a.Tack));
  }
  return lines;
}

std::string TackWord(std::int16_t tack) {
  if (tack == 1) return "Port Tack";
  if (tack == 2) return "Starboard Tack";
  return "";
}

std::vector<std::string> TidalDetailsLines(const PassageState& s, bool showIds, bool displayAll) {
  std::vector<std::string> lines;
  lines.push_back(std::string("Time\tPredicted Position\tStream") + (showIds ? "\tTidal Stream ID" : ""));
  int lastHour = -1;
  for (std::size_t j = 1; j < s.RouteStreams.size() && j < s.RouteCog.size(); ++j) {
    const StreamSample& sample = s.RouteStreams[j];
    const CogPoint& at = s.RouteCog[j];
    const int hour = static_cast<int>(std::floor(sample.Time));
    if (!displayAll && hour == lastHour) continue;
    lastHour = hour;
    std::string line = HoursToClockCoarse(sample.Time) + "\t" + LatToText(at.Lat) + " " + LonToText(at.Lon) + "\t" +
                       FormatNumber(sample.Rate, "0.0") + "kn @ " + FormatNumber(sample.Direction, "000") + "°T";
    if (showIds) line += "\t" + sample.Source;
    lines.push_back(line);
  }
  return lines;
}

SpeedCheck CheckRouteSpeeds(const PassageState& s, const std::function<bool(const std::string&)>& askYesNo) {
  SpeedCheck out;
  for (int i = 1; i <= RouteCount(s); ++i) {
    const float speed = s.Route[static_cast<std::size_t>(i)].Speed;
    if (!(speed > 0.5f)) {
      out.verdict = SpeedVerdict::Refused;
      out.message = SpeedRefusedMessage(i);
      return out;
    }
    if (speed < 1.0f && askYesNo && !askYesNo(SpeedQuestion(i))) {
      out.verdict = SpeedVerdict::Declined;
      return out;
    }
  }
  return out;
}

LegRun RunRouteLeg(StreamContext& ctx, PassageState& s, const SolverSettings& solver, int i, PassageMoment at) {
  const RoutePoint& from = s.Route[static_cast<std::size_t>(i)];
  const RoutePoint& to = s.Route[static_cast<std::size_t>(i + 1)];
  const int stopMinutes = to.StopMinutes;
  LegRun run;
  run.leg = SolveLeg(ctx, s, solver, {from.Lat, from.Lon}, {to.Lat, to.Lon}, from.Speed, at.time, at.day, at.year);
  run.arrival = AddHours(at.day, at.year, at.time, run.leg.TimeTaken);
  // AddHours' own time runs on by a year's worth of hours over New Year:
  // good for its text, wrong for a stream lookup. The next leg starts from
  // the calendar moment.
  run.next = AdvanceMoment(at.day, at.year, at.time, run.leg.TimeTaken + static_cast<float>(stopMinutes) / 60.0f);
  return run;
}

std::string ReportDateText(std::int16_t day, std::int16_t year) {
  if (auto date = DayToDate(day, year))
    return std::to_string(date->dayOfMonth) + " " + date->monthName + " " + std::to_string(year);
  return "";
}

RouteCalcOutcome CalculateRoute(StreamContext& ctx, PassageState& live, const RouteCalcInput& in,
                                const RouteCalcHooks& hooks) {
  RouteCalcOutcome out;
  auto progress = [&](int value) {
    if (hooks.progress) hooks.progress(value);
  };
  // Each message goes to the user as it arises, so that a leg's warning
  // comes at that leg, and is kept in the outcome as well.
  auto note = [&](MessageKind kind, const std::string& text) {
    out.messages.push_back({kind, text});
    if (hooks.tell) hooks.tell(out.messages.back());
  };
  auto stop = [&](MessageKind kind, const std::string& text) {
    note(kind, text);
    return out;
  };
  auto restoreTides = [&] {
    if (ctx.tides->TideDay != in.Day || ctx.tides->TideYear != in.Year) ReloadTides(ctx, in.Day, in.Year);
    UpdatePortStates(ctx, true, in.WorkingTime);
  };

  progress(0);
  const DepartureTime departure = ParseDepartureTime(in.DepartureText);
  if (!departure.message.empty()) return stop(MessageKind::Information, departure.message);

  const int count = RouteCount(live);
  if (count < 2) return stop(MessageKind::Information, RouteTooShortMessage());
  const SpeedCheck speeds = CheckRouteSpeeds(live, hooks.askYesNo);
  switch (speeds.verdict) {
    case SpeedVerdict::Go:
      break;
    case SpeedVerdict::Refused:
      return stop(MessageKind::Information, speeds.message);
    case SpeedVerdict::Declined:
      return out;
  }

  // Everything is worked on a copy, so that a stop leaves the stores as
  // they were.
  PassageState s = live;
  if (in.LeewaySwitch && in.LeewayText.empty())
    note(MessageKind::Information, NoLeewayValueMessage());

  progress(5);
  s.ResultText.assign(7, "");
  const std::string dateText = ReportDateText(in.Day, in.Year);
  s.RouteCog.assign(1, CogPoint{});
  s.RouteStreams.assign(1, StreamSample{});
  s.LegResults.clear();
  s.LegChart = {};
  const std::string departText = in.DepartureText;
  s.ResultText[0] = "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE";
  s.ResultText[1] = "   ";
  s.ResultText[2] = "Route calculation for " + dateText;
  s.ResultText[3] = "Depart " + departText + ", Passage time = " + HoursToSpan(0.0f);
  s.ResultText[4] = "Waypoint to waypoint distance = ";
  s.ResultText[5] = "";

  const SolverSettings solver{in.CalcInterval, in.AcceptableError, in.WorkingTime};
  PassageMoment at{departure.hours, in.Day, in.Year};
  float totalHours = 0;
  for (int i = 1; i < count; ++i) {
    if (hooks.beforeLeg) hooks.beforeLeg();
    const RoutePoint& from = s.Route[static_cast<std::size_t>(i)];
    const Position a{from.Lat, from.Lon};
    const Position b{s.Route[static_cast<std::size_t>(i + 1)].Lat, s.Route[static_cast<std::size_t>(i + 1)].Lon};
    const float speed = from.Speed;
    progress(100 - 100 * i / count);

    const int firstStream = static_cast<int>(s.RouteStreams.size());
    const LegRun run = RunRouteLeg(ctx, s, solver, i, at);
    const LegSolution& leg = run.leg;
    for (const std::string& notice : leg.notices) note(MessageKind::Information, notice);
    if (!leg.ok) {
      restoreTides();
      return stop(MessageKind::Warning, leg.message);
    }
    if (leg.BestIndex >= kStoredTrackPoints) {
      restoreTides();
      return stop(MessageKind::Warning, TrackTooLongMessage(i));
    }
    s.Route[static_cast<std::size_t>(i)].LegTime = leg.TimeTaken;

    // A leg of no length is reached by definition: the solver leaves
    // RouteAchieved as the leg before set it, and nothing is to be moved.
    const bool zeroLeg = RangeBearing(a.lat, a.lon, b.lat, b.lon).range == 0.0f;
    if (!zeroLeg && s.RouteAchieved == 0) {
      const CogPoint& last = s.RouteCog.back();
      RoutePoint& dest = s.Route[static_cast<std::size_t>(i + 1)];
      dest.ModLat = last.Lat;
      dest.ModLon = last.Lon;
      dest.ModLatText = LatToText(last.Lat);
      dest.ModLonText = LonToText(last.Lon);
      if (i + 1 < count) {
        // The route itself moves: the next leg starts where the boat got to.
        dest.Lat = last.Lat;
        dest.Lon = last.Lon;
        dest.LatText = dest.ModLatText;
        dest.LonText = dest.ModLonText;
      }
      note(MessageKind::Warning, UnreachedLegMessage(i, leg.ClosestApproach));
      s.ResultText[1] = UnreachedWarningLine();
    }

    RoutePoint& start = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& dest = s.Route[static_cast<std::size_t>(i + 1)];
    start.CourseToSteer = MagneticCourse(leg.CourseToSteer, in.Variation, in.LeewaySwitch, in.Leeway, start.Tack);

    start.DriftTrack.assign(kStoredTrackPoints, DriftPoint{});
    start.DriftTrack[0] = s.DriftChain[0];
    for (int k = 1; k <= leg.BestIndex; ++k)
      start.DriftTrack[static_cast<std::size_t>(k)] = s.DriftChain[static_cast<std::size_t>(k)];
    start.DriftCount = static_cast<std::int16_t>(leg.BestIndex);

    const Arrival& arrival = run.arrival;
    s.LegResults.push_back(LegResult{at.day, at.year, at.time, HoursToClockCoarse(at.time), arrival.text,
                                     leg.GroundSpeed, leg.TrackDistance, firstStream,
                                     static_cast<int>(s.RouteStreams.size()) - firstStream});
    const RangeAndBearing between = RangeBearing(start.Lat, start.Lon, dest.Lat, dest.Lon);
    std::vector<std::string> lines;
    lines.push_back("Steer " + FormatNumber(start.CourseToSteer, "000") + "°M" + "\t" + " Time taken=" +
                    HoursToSpan(leg.TimeTaken) + " at " + NumberText(speed) + " kt.");
    lines.push_back("   " + start.Name + "\t" + "From " + LatToText(start.Lat) + " , " + LonToText(start.Lon));
    std::string toLine = "   " + dest.Name + "\t" + "To " + LatToText(dest.Lat) + " , " + LonToText(dest.Lon);
    if (dest.StopMinutes > 0) {
      if (i + 1 == count)
        toLine += "    Dive Time = " + std::to_string(dest.StopMinutes);
      else
        toLine += "    Dive Time of " + std::to_string(dest.StopMinutes) + " mins";
    }
    lines.push_back(toLine);
    lines.push_back("Starting at " + s.LegResults.back().StartText + " arriving at " + arrival.text);
    lines.push_back("Range and bearing between waypoints : " + FormatNumber(between.range, "0.0") + "nm @ " +
                    FormatNumber(between.bearing, "000") + "°T ");
    lines.push_back("Speed Over Ground = " + FormatNumber(leg.GroundSpeed, "0.0") + "kt. Water Track Distance " +
                    FormatNumber(leg.TrackDistance, "0.0") + "nm.");
    lines.push_back("");
    for (const std::string& line : lines) {
      s.ResultText.push_back(line);
      out.legLines.push_back(line);
    }
    if (hooks.legLines) hooks.legLines(lines);

    // The clock runs on through the leg and any stop at its end.
    totalHours += leg.TimeTaken + static_cast<float>(dest.StopMinutes) / 60.0f;
    at = run.next;
  }

  s.RouteDistance = RouteDistanceOf(s);
  restoreTides();
  const float effective = totalHours == 0.0f ? 0.0f : s.RouteDistance / totalHours;

  s.ResultText[2] = "Route calculation for " + dateText;
  s.ResultText[3] = "Depart " + departText + ", Passage time = " + HoursToSpan(totalHours);
  s.ResultText[4] = "Route distance = " + NumberText(s.RouteDistance) + "nm.";
  s.ResultText[5] = "Effective Speed Over Ground = " + NumberText(effective);
  if (in.Variation != 0.0f || in.LeewaySwitch) {
    if (in.LeewaySwitch)
      s.ResultText[6] = "(Leeway of " + in.LeewayText + "° and a variation of " + VariationText(in.Variation) +
                        " applied to all legs)";
    else
      s.ResultText[6] = "(Variation of " + VariationText(in.Variation) + " applied to all legs)";
  } else {
    s.ResultText[6] = " ";
  }
  s.SummaryText.assign(s.ResultText.begin() + 2, s.ResultText.begin() + 7);

  s.ResultText.push_back("");
  s.ResultText.push_back("Reference Port predictions for the areas Tidal Diamonds ");
  s.ResultText.push_back("");
  for (const std::string& line : ReferencePortLines(*ctx.tides)) s.ResultText.push_back(line);
  s.ResultText.push_back("Route distance = " + NumberText(s.RouteDistance) + "nm.  Time Taken = " +
                         HoursToSpan(totalHours) + ",  SOG  = " + NumberText(effective) + "kt.");

  live = std::move(s);
  out.completed = true;
  progress(100);
  return out;
}

}  // namespace kelvane
