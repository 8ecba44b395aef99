#include "passage/diveroute.h"

#include <algorithm>
#include <climits>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"
#include "passage/routeform.h"

namespace kelvane {

namespace {

void NoteOnce(std::vector<std::string>& messages, const std::string& message) {
  if (!message.empty() && std::find(messages.begin(), messages.end(), message) == messages.end())
    messages.push_back(message);
}

std::string PositionText(const RoutePoint& p) { return LatToText(p.Lat) + " , " + LonToText(p.Lon); }

}  // namespace

LegSolution CalcLegNoTides(PassageState& s, Position a, Position b, float speed) {
  const RangeAndBearing rb = RangeBearing(a.lat, a.lon, b.lat, b.lon);
  s.LegStart = a;
  s.LegDest = b;
  s.LegSpeed = speed;
  // With no stream the boat always arrives: the achieved flag is set.
  s.RouteAchieved = -1;
  LegSolution out;
  out.CourseToSteer = rb.bearing;
  out.TimeTaken = rb.range / speed;
  out.TrackDistance = rb.range;
  out.ClosestApproach = 0;
  out.BestIndex = 0;
  out.GroundSpeed = speed;
  return out;
}

int DiveLegSteps(float range, float speed, float stepHours) {
  if (range == 0.0f) return 0;
  const float run = speed * stepHours;  // miles a step
  if (!(run > 0.0f)) return INT_MAX;   // no way made: no number of steps will do
  return RoundToInt(static_cast<double>(range / run));
}

DiveLegRecord RecordDiveLeg(StreamContext& ctx, PassageState& s, int point, float time, std::int16_t day,
                            std::int16_t year, float calcInterval) {
  DiveLegRecord out;
  if (point < 1 || point >= RouteCount(s)) return out;
  const RoutePoint& from = s.Route[static_cast<std::size_t>(point)];
  const RoutePoint& to = s.Route[static_cast<std::size_t>(point + 1)];
  const float step = calcInterval / 60.0f;
  const RangeAndBearing rb = RangeBearing(from.Lat, from.Lon, to.Lat, to.Lon);
  const int steps = DiveLegSteps(rb.range, from.Speed, step);
  if (steps > kMaxDiveLegSteps) {
    out.ok = false;
    out.message = TrackTooLongMessage(point);
    return out;
  }

  // The boat's run in one step, the same for the whole leg: the heading is
  // the bearing A to B and the speed is through the water alone.
  const Components boat = BearingToComponents(rb.bearing, from.Speed * step);
  s.PassCog.assign(1, CogPoint{from.Lat, from.Lon, time, day, year});
  s.PassStreams.assign(1, StreamSample{});
  Position current{from.Lat, from.Lon};
  PassageMoment at{time, day, year};
  for (int k = 1; k <= steps; ++k) {
    StreamAnswer answer{0.0f, 0.0f, 0, "NONE"};
    NoteOnce(out.notices, TidalStreamAt(ctx, current.lat, current.lon, at.time, at.day, at.year, answer));
    s.PassStreams.push_back(StreamSample{answer.Rate, answer.Direction, at.time, answer.DiamondText});
    current = OffsetPosition(current.lat, current.lon, boat.east, boat.north);
    s.PassCog.push_back(CogPoint{current.lat, current.lon, at.time, at.day, at.year});
    // Each step's moment is counted from the leg's start, so that no
    // rounding gathers over a long leg; past midnight it is the next day,
    // past the year's last day the next year.
    at = AdvanceMoment(day, year, time, step * static_cast<float>(k));
  }
  RoutePoint& leg = s.Route[static_cast<std::size_t>(point)];
  leg.DriftCount = static_cast<std::int16_t>(steps);
  leg.DriftTrack.clear();
  return out;
}

DiveRouteOutcome CalculateDiveRoute(StreamContext& ctx, PassageState& live, const DiveRouteInput& in) {
  DiveRouteOutcome out;
  auto restoreTides = [&] {
    if (ctx.tides->TideDay != in.Day || ctx.tides->TideYear != in.Year) NoteOnce(out.messages, ReloadTides(ctx, in.Day, in.Year));
    UpdatePortStates(ctx, true, in.WorkingTime);
  };

  const DepartureTime departure = ParseDepartureTime(in.DepartureText);
  if (!departure.message.empty()) {
    out.messages.push_back(departure.message);
    return out;
  }
  const int count = RouteCount(live);
  if (count < 2) {
    out.messages.push_back(RouteTooShortMessage());
    return out;
  }
  // Only a speed that makes no real way is refused; a slow boat between
  // dive sites is no danger here, since no stream is worked against.
  for (int i = 1; i < count; ++i) {
    if (!(live.Route[static_cast<std::size_t>(i)].Speed > 0.5f)) {
      out.messages.push_back(SpeedRefusedMessage(i));
      return out;
    }
  }

  // Everything is worked on a copy, so that a stop leaves the stores as
  // they were.
  PassageState s = live;
  std::string dateText;
  if (auto date = DayToDate(in.Day, in.Year))
    dateText = std::to_string(date->dayOfMonth) + " " + date->monthName + " " + std::to_string(in.Year);
  s.ResultText = {"RESULTS ARE ONLY APPROXIMATE AND DO NOT TAKE INTO ACCOUNT THE EFFECTS",
                  "OF TIDAL STREAMS, SEA STATE OR WEATHER ON THE PASSAGE.",
                  "Route calculation for " + dateText,
                  "Departing " + in.DepartureText + ", Passage time = " + HoursToSpan(0.0f),
                  "Waypoint to waypoint distance = ",
                  ""};
  s.RouteCog.assign(1, CogPoint{});
  s.RouteStreams.assign(1, StreamSample{});
  s.LegResults.clear();
  s.LegChart = {};

  PassageMoment at{departure.hours, in.Day, in.Year};
  float passageHours = 0;
  for (int i = 1; i < count; ++i) {
    const RoutePoint& from = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& to = s.Route[static_cast<std::size_t>(i + 1)];
    const float speed = from.Speed;
    const LegSolution leg = CalcLegNoTides(s, {from.Lat, from.Lon}, {to.Lat, to.Lon}, speed);
    const DiveLegRecord record = RecordDiveLeg(ctx, s, i, at.time, at.day, at.year, in.CalcInterval);
    for (const std::string& notice : record.notices) NoteOnce(out.messages, notice);
    if (!record.ok) {
      restoreTides();
      out.messages.push_back(record.message);
      return out;
    }

    // The leg's track joins the route's: its first point (the site) takes
    // the place of the last point of the leg before.
    const std::size_t base = s.RouteCog.size() - 1;
    s.RouteCog.resize(base + s.PassCog.size());
    std::copy(s.PassCog.begin(), s.PassCog.end(), s.RouteCog.begin() + static_cast<std::ptrdiff_t>(base));
    s.RouteStreams.insert(s.RouteStreams.end(), s.PassStreams.begin() + 1, s.PassStreams.end());

    RoutePoint& start = s.Route[static_cast<std::size_t>(i)];
    start.LegTime = leg.TimeTaken;
    start.CourseToSteer = MagneticCourse(leg.CourseToSteer, in.Variation, false, 0.0f, 0);

    const std::int16_t dive = s.Route[static_cast<std::size_t>(i + 1)].StopMinutes;
    const float diveHours = static_cast<float>(dive) / 60.0f;
    const Arrival arrival = AddHours(at.day, at.year, at.time, leg.TimeTaken);
    const Arrival leaving = AddHours(at.day, at.year, at.time, leg.TimeTaken + diveHours);
    s.ResultText.push_back("From \t" + PositionText(start));
    s.ResultText.push_back("To \t" + PositionText(s.Route[static_cast<std::size_t>(i + 1)]));
    s.ResultText.push_back("Range and bearing : " + FormatNumber(leg.TrackDistance, "0.0") + "nm @ " +
                           FormatNumber(leg.CourseToSteer, "000") + "°T ");
    s.ResultText.push_back("Time taken=" + HoursToSpan(leg.TimeTaken) + " at " + NumberText(speed) + " kt.");
    s.ResultText.push_back("Starting at " + HoursToClockCoarse(at.time) + " arriving at " + arrival.text);
    s.ResultText.push_back("Dive duration " + std::to_string(dive) + " minutes");
    s.ResultText.push_back("Departing at " + leaving.text);
    s.ResultText.push_back("");

    // The passage ends on arrival at the last site: its dive is not part
    // of the passage, though the report shows when the boat leaves it.
    passageHours += leg.TimeTaken + (i + 1 < count ? diveHours : 0.0f);
    at = AdvanceMoment(at.day, at.year, at.time, leg.TimeTaken + diveHours);
  }

  s.RouteDistance = RouteDistanceOf(s);
  restoreTides();
  s.ResultText[3] = "Departing " + in.DepartureText + ", Passage time = " + HoursToSpan(passageHours);
  s.ResultText[4] = "Route distance = " + NumberText(s.RouteDistance) + "nm.";
  s.ResultText[5] = "(Variation of " + VariationText(in.Variation) + " applied to all legs)";
  s.SummaryText.assign(s.ResultText.begin() + 2, s.ResultText.begin() + 6);

  live = std::move(s);
  out.completed = true;
  return out;
}

void SetDiveTime(PassageState& s, int leg, std::string_view digits) {
  if (leg < 1 || leg >= RouteCount(s)) return;
  s.Route[static_cast<std::size_t>(leg + 1)].StopMinutes = StopMinutesOf(digits);
}

}  // namespace kelvane
