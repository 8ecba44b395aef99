#include "passage/driftrun.h"

#include <algorithm>
#include <cmath>

#include "core/format.h"
#include "core/text.h"
#include "core/timetext.h"

namespace kelvane {

namespace {

constexpr const char* kWarning = "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE";

void Note(std::vector<std::string>& notices, const std::string& message) {
  if (!message.empty() && std::find(notices.begin(), notices.end(), message) == notices.end())
    notices.push_back(message);
}

// n = duration / step, rounded to the nearest with ties to even, as the
// integer conversion of the program rounds; kept in floating point until
// it is known to be small, so that a duration of 1e9 hours is no overflow.
float StepCount(float duration, float step) { return std::nearbyint(duration / step); }

// The ports' state for the working moment, the curves of its day first if
// another day's are held: where the run starts, and where the chart window
// finds the tides after it.
void TidesForMoment(StreamContext& ctx, const DriftSettings& in, std::vector<std::string>& notices) {
  if (!ctx.tides) return;
  if (ctx.tides->TideDay != in.Day || ctx.tides->TideYear != in.Year) Note(notices, ReloadTides(ctx, in.Day, in.Year));
  UpdatePortStates(ctx, true, in.Time);
}

std::string PositionText(Position p) { return LatToText(p.lat) + " , " + LonToText(p.lon); }

// A duration as hours and minutes, "HH:MM", the hours not wrapped at a day.
std::string DurationClock(float hours) {
  const std::int32_t minutes = RoundToInt(double(hours) * 60.0);
  return FormatNumber(minutes / 60, "00") + ":" + FormatNumber(minutes % 60, "00");
}

std::string DateText(std::int16_t day, std::int16_t year) {
  if (auto date = DayToDate(day, year))
    return std::to_string(date->dayOfMonth) + " " + date->monthName + " " + std::to_string(year);
  return "";
}

// A speed box: a number above 0 that is finite.
bool GoodSpeed(const std::string& text, float& speed) {
  if (!IsNumberText(text)) return false;
  speed = static_cast<float>(TextValue(text));
  return std::isfinite(speed) && speed > 0.0f;
}

// The start and the optional destination: empty or shorter than five
// characters is no position.
bool ShortPosition(const std::string& text) { return Utf8Length(Trim(text)) < 5; }

DriftOutcome Refuse(std::string message) {
  DriftOutcome out;
  out.message = std::move(message);
  return out;
}

// The run on a copy of the stores, taken over only when it has worked.
void Run(StreamContext& ctx, PassageState& live, RoutePoint& point, bool hasDest, float heading,
         const DriftSettings& in, float duration, DriftOutcome& out) {
  PassageState s = live;
  TidesForMoment(ctx, in, out.notices);
  out.run = DriftRun(ctx, s, point, hasDest, in.Time, in.Day, in.Year, in.CalcInterval, duration, heading);
  for (const std::string& n : out.run.notices) Note(out.notices, n);
  TidesForMoment(ctx, in, out.notices);
  out.HeadingTrue = heading;
  out.track = s.RouteCog;
  live = std::move(s);
}

}  // namespace

std::string DriftTooLongMessage(float calcInterval) {
  const float most = static_cast<float>(kMaxDriftSteps) * calcInterval / 60.0f;
  return "Duration too long - at most " + std::to_string(kMaxDriftSteps + 1) + " steps can be calculated" + "\r\n" +
         "(" + FormatNumber(most, "0.0") + " hours at " + NumberText(calcInterval) +
         " minutes a step). Nothing has been calculated.";
}

bool DriftFits(float duration, float calcInterval) {
  const float step = calcInterval / 60.0f;
  if (!(duration >= 0.0f) || !(step > 0.0f)) return false;
  const float n = StepCount(duration, step);
  return std::isfinite(n) && n <= static_cast<float>(kMaxDriftSteps);
}

DriftRunResult DriftRun(StreamContext& ctx, PassageState& s, RoutePoint& point, bool hasDest, float time,
                        std::int16_t day, std::int16_t year, float calcInterval, float duration, float heading) {
  DriftRunResult out;
  out.Step = calcInterval / 60.0f;
  const Position start{point.Lat, point.Lon};
  out.End = start;
  out.EndMoment = {time, day, year};
  if (!DriftFits(duration, calcInterval)) return out;
  const float step = out.Step;
  out.Steps = static_cast<int>(StepCount(duration, step));
  const int n = out.Steps;

  // The boat's own run each step; a casualty (speed 0) has none.
  const Components boat = BearingToComponents(heading, point.Speed * step);

  s.PassCog.assign(static_cast<std::size_t>(n) + 1, CogPoint{});
  s.PassStreams.assign(static_cast<std::size_t>(n) + 1, StreamSample{});
  s.RouteCog.assign(1, CogPoint{start.lat, start.lon, time, day, year});
  s.RouteStreams.assign(1, StreamSample{});
  s.LegResults.clear();
  point.TrackB.assign(kStoredTrackPoints, DriftPoint{});
  point.DriftTrack.assign(1, DriftPoint{start.lat, start.lon});
  point.TrackB[0] = DriftPoint{start.lat, start.lon};

  Position current = start;
  PassageMoment now{time, day, year};
  for (int k = 0; k <= n; ++k) {
    const std::size_t i = static_cast<std::size_t>(k);
    StreamAnswer answer{0.0f, 0.0f, 0, "NONE"};
    Note(out.notices, TidalStreamAt(ctx, current.lat, current.lon, now.time, now.day, now.year, answer));
    s.PassStreams[i] = StreamSample{answer.Rate, answer.Direction, now.time, answer.DiamondText};
    const Components stream = BearingToComponents(answer.Direction, answer.Rate * step);
    // Boat and stream are added first and the position moves once, with
    // the cosine of the latitude where the step starts.
    const float east = boat.east + stream.east, north = boat.north + stream.north;
    const Position next = OffsetPosition(current.lat, current.lon, east, north);
    out.East += east;
    out.North += north;
    s.PassCog[i] = CogPoint{next.lat, next.lon, now.time, now.day, now.year};
    out.Distance += RangeBearing(current.lat, current.lon, next.lat, next.lon).range;
    point.TrackB[i] = DriftPoint{next.lat, next.lon};
    if (hasDest) {
      const float r = RangeBearing(next.lat, next.lon, point.ModLat, point.ModLon).range;
      if (r < out.BestRange) {
        out.BestRange = r;
        out.BestIndex = k;
        out.BestEast = out.East;
        out.BestNorth = out.North;
      }
    }
    current = next;
    now = AdvanceMoment(now.day, now.year, now.time, step);
  }
  out.End = current;
  out.EndMoment = now;
  s.RouteCog.insert(s.RouteCog.end(), s.PassCog.begin(), s.PassCog.end());
  s.RouteStreams.insert(s.RouteStreams.end(), s.PassStreams.begin(), s.PassStreams.end());
  return out;
}

std::string CoordinatesMessage() { return "Error in start and destination coordinates"; }
std::string DurationNotSetMessage() { return "Duration not set"; }
std::string DurationAmbiguousMessage() { return "Duration entry ambiguous"; }
std::string DirectionNotSetMessage() { return "Direction not set"; }
std::string NegativeDurationMessage() { return "Duration must be a number of hours, 0 or more"; }

DurationEntry ParseCogDuration(const std::string& typed) {
  DurationEntry out;
  const std::string text = Trim(typed);
  if (text.empty()) {
    out.message = DurationNotSetMessage();
    return out;
  }
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos || colon == 0) {
    out.message = DurationAmbiguousMessage();
    return out;
  }
  const std::string hours = text.substr(0, colon), minutes = text.substr(colon + 1);
  // Each side a number of 0 or more: "-1:00", "1:x" and "1:2:3" say nothing
  // a skipper meant.
  if (!IsNumberText(hours) || !(minutes.empty() || IsNumberText(minutes))) {
    out.message = DurationAmbiguousMessage();
    return out;
  }
  const double h = TextValue(hours), m = TextValue(minutes);
  if (!(h >= 0.0) || !(m >= 0.0)) {
    out.message = DurationAmbiguousMessage();
    return out;
  }
  out.hours = static_cast<float>(h + m / 60.0);
  return out;
}

DurationEntry ParseMobDuration(const std::string& typed) {
  DurationEntry out;
  const std::string text = Trim(typed);
  if (text.empty()) {
    out.message = DurationNotSetMessage();
    return out;
  }
  const double h = TextValue(text);
  if (!IsNumberText(text) || !(h >= 0.0)) {
    out.message = NegativeDurationMessage();
    return out;
  }
  out.hours = static_cast<float>(h);
  return out;
}

DriftOutcome CalculateCog(StreamContext& ctx, PassageState& s, const CogInput& in, const DriftSettings& settings) {
  const bool hasDest = !Trim(in.Dest).empty();
  if (ShortPosition(in.Start) || (hasDest && ShortPosition(in.Dest))) return Refuse(CoordinatesMessage());
  float speed = 0;
  if (!GoodSpeed(in.Speed, speed)) return Refuse(EnterSpeedMessage());

  const PositionEntry start = ParsePositionEntry(in.Start);
  if (!start.message.empty()) return Refuse(start.message);
  std::optional<Position> dest;
  if (hasDest) {
    const PositionEntry d = ParsePositionEntry(in.Dest);
    if (!d.message.empty()) return Refuse(d.message);
    dest = d.at;
  }

  const DurationEntry duration = ParseCogDuration(in.Duration);
  if (!duration.message.empty()) return Refuse(duration.message);
  if (Trim(in.Bearing).empty() || !IsNumberText(in.Bearing)) return Refuse(DirectionNotSetMessage());
  float leeway = 0;
  if (in.LeewayOn) {
    if (Trim(in.LeewayText).empty()) return Refuse(LeewayValueMessage());
    if (in.Side == LeewaySide::None) return Refuse(LeewaySideMessage());
    leeway = static_cast<float>(TextValue(in.LeewayText));
  }
  if (!DriftFits(duration.hours, settings.CalcInterval)) return Refuse(DriftTooLongMessage(settings.CalcInterval));

  // The heading typed is magnetic: true = magnetic + variation (2 degrees
  // west, -2, turns 092 magnetic into 090 true). With the wind to port the
  // boat is set to starboard and makes good her heading plus the leeway;
  // to starboard, less: the reverse of the route's course to steer.
  const float magnetic = static_cast<float>(TextValue(in.Bearing));
  float heading = magnetic + settings.Variation;
  if (in.Side == LeewaySide::Port && in.LeewayOn) heading += leeway;
  if (in.Side == LeewaySide::Starboard && in.LeewayOn) heading -= leeway;
  NormaliseBearing(heading);

  RoutePoint point;
  point.Lat = start.at.lat;
  point.Lon = start.at.lon;
  point.Speed = speed;
  if (dest) {
    point.ModLat = dest->lat;
    point.ModLon = dest->lon;
  }

  DriftOutcome out;
  out.verdict = DriftVerdict::Done;
  out.start = start.at;
  out.dest = dest;
  // The report is written after the run: the lines need its end.
  Run(ctx, s, point, dest.has_value(), heading, settings, duration.hours, out);

  // Range and bearing to the destination, rounded to a tenth of a mile and
  // a whole degree; without one, to where the run ends.
  const Position to = dest ? *dest : out.run.End;
  RangeAndBearing rb = RangeBearing(start.at.lat, start.at.lon, to.lat, to.lon);
  if (dest) {
    rb.range = std::nearbyint(rb.range * 10.0f) / 10.0f;
    rb.bearing = std::nearbyint(rb.bearing);
  }
  const float runHours = static_cast<float>(out.run.Steps + 1) * out.run.Step;
  const float sog = out.run.Distance / runHours;
  out.lines = {
      kWarning,
      "Course Over Ground Calculation for " + DateText(settings.Day, settings.Year),
      "From \t" + PositionText(start.at),
      "To \t" + PositionText(to),
      "Steer " + FormatNumber(magnetic, "000") + "°M" + " Time taken=" + DurationClock(duration.hours) + " at " +
          NumberText(speed) + " kt.",
      "Starting at " + HoursToClock(settings.Time) + " Completion Time " +
          AddHours(settings.Day, settings.Year, settings.Time, duration.hours).text,
      "Range and bearing between waypoints : " + FormatNumber(rb.range, "0.0") + "nm @ " +
          FormatNumber(rb.bearing, "000") + "°T ",
      "Speed Over Ground = " + FormatNumber(sog, "0.0") + "kt. Water Track Distance " +
          FormatNumber(out.run.Distance, "0.0") + "nm.",
  };
  if (dest)
    out.lines.push_back("Closest approach to destination = " + FormatNumber(out.run.BestRange, "0.00") + "nm.");
  s.ResultText = out.lines;
  return out;
}

DriftOutcome CalculateMob(StreamContext& ctx, PassageState& s, const MobInput& in, const DriftSettings& settings) {
  if (ShortPosition(in.Start)) return Refuse(CoordinatesMessage());
  const DurationEntry duration = ParseMobDuration(in.Duration);
  if (!duration.message.empty()) return Refuse(duration.message);
  // The casualty has no way of her own: an empty speed is 0. A boat
  // searching under way needs a speed and a heading that are numbers.
  float speed = 0;
  if (!Trim(in.Speed).empty()) {
    speed = static_cast<float>(TextValue(in.Speed));
    if (!IsNumberText(in.Speed) || !std::isfinite(speed) || speed < 0.0f) return Refuse(EnterSpeedMessage());
  }
  const bool headingGiven = !Trim(in.Bearing).empty();
  if (headingGiven && !IsNumberText(in.Bearing)) return Refuse(DirectionNotSetMessage());
  if (speed > 0.0f && !headingGiven) return Refuse(DirectionNotSetMessage());

  const PositionEntry start = ParsePositionEntry(in.Start);
  if (!start.message.empty()) return Refuse(CoordinatesMessage());
  if (!DriftFits(duration.hours, settings.CalcInterval)) return Refuse(DriftTooLongMessage(settings.CalcInterval));

  const float magnetic = headingGiven ? static_cast<float>(TextValue(in.Bearing)) : 0.0f;
  float heading = magnetic + settings.Variation;
  NormaliseBearing(heading);

  RoutePoint point;
  point.Lat = start.at.lat;
  point.Lon = start.at.lon;
  point.Speed = speed;

  DriftOutcome out;
  out.verdict = DriftVerdict::Done;
  out.start = start.at;
  Run(ctx, s, point, false, heading, settings, duration.hours, out);

  const Position end = out.run.End;
  const RangeAndBearing rb = RangeBearing(start.at.lat, start.at.lon, end.lat, end.lon);
  out.lines = {
      kWarning,
      "Man Overboard drift for " + DateText(settings.Day, settings.Year),
      "From \t" + PositionText(start.at),
      "Predicted position \t" + PositionText(end),
      "Alarm at " + HoursToClock(settings.Time) + " Predicted for " + HoursToClock(out.run.EndMoment.time) +
          " after " + DurationClock(static_cast<float>(out.run.Steps + 1) * out.run.Step),
      "Drift from the alarm : " + FormatNumber(rb.range, "0.00") + "nm @ " + FormatNumber(rb.bearing, "000") + "°T ",
  };
  if (speed > 0.0f)
    out.lines.push_back("Steer " + FormatNumber(magnetic, "000") + "°M" + " at " + NumberText(speed) + " kt.");
  s.ResultText = out.lines;
  return out;
}

}  // namespace kelvane
