#include "passage/legsolver.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/positions.h"
#include "core/timetext.h"

namespace kelvane {

void ClearRouteResults(PassageState& s) {
  s.RouteCog.assign(1, CogPoint{});
  s.RouteStreams.assign(1, StreamSample{});
  s.ResultText.clear();
  s.LegResults.clear();
  s.LegChart = {};
}

void ClearLegResults(PassageState& passage) {
  for (std::size_t i = 1; i < passage.Route.size(); ++i) {
    RoutePoint& p = passage.Route[i];
    p.CourseToSteer = 0;
    p.LegTime = 0;
    p.DriftCount = 0;
    p.DriftTrack.clear();
    p.TrackA.clear();
    p.TrackB.clear();
  }
  passage.SweptHours.clear();
  ClearRouteResults(passage);
}

std::string PassOverflowMessage() {
  return "Leg calculation stopped - more than 1500 calculation steps would be needed." "\r\n"
         "(The boat makes too little way against the stream: check the boat speed,"
         "\r\n" "the departure time and the calculation interval.)";
}

namespace {

void Note(std::vector<std::string>& notices, const std::string& message) {
  if (!message.empty() && std::find(notices.begin(), notices.end(), message) == notices.end())
    notices.push_back(message);
}

}  // namespace

PassResult TraceLeg(StreamContext& ctx, PassageState& s, const SolverSettings& settings, Position a, Position b,
                    float time, std::int16_t day, std::int16_t year, float speed, float step, float heading,
                    std::vector<std::string>& notices) {
  PassResult out;
  const std::int16_t startDay = day, startYear = year;
  s.PassCog.assign(2, CogPoint{});
  s.PassStreams.assign(1, StreamSample{});
  std::array<float, kMaxPassSteps + 1> range{};
  std::array<float, kMaxPassSteps + 1> sailed{};
  sailed[0] = 0;

  const RangeAndBearing ab = RangeBearing(a.lat, a.lon, b.lat, b.lon);
  const float R = ab.range;
  const float hab = ab.bearing;
  const Components boat = BearingToComponents(heading, speed * step);

  s.PassCog[0] = CogPoint{a.lat, a.lon, time, day, year};
  s.PassCog[1] = s.PassCog[0];
  s.DriftChain[0] = DriftPoint{a.lat, a.lon};
  Position current = a;
  int i = 1;
  float away = 0;
  StreamAnswer answer;
  // Only the port states after the last step are ever read: the lookups of
  // the pass write them once, at its end.
  StreamBatch batch(ctx);
  while (2.0f * R > away) {
    if (i > kMaxPassSteps) {
      out.overflow = true;
      return out;
    }
    // The stream at the start of the step.
    answer = StreamAnswer{0.0f, 0.0f, 0, "NONE"};
    Note(notices, TidalStreamAt(ctx, current.lat, current.lon, time, day, year, answer));
    s.PassStreams.push_back(StreamSample{answer.Rate, answer.Direction, time, answer.DiamondText});
    const Components stream = BearingToComponents(answer.Direction, answer.Rate * step);
    const DriftPoint& drift = s.DriftChain[static_cast<std::size_t>(i - 1)];
    const Position driftNext = OffsetPosition(drift.Lat, drift.Lon, stream.east, stream.north);
    s.DriftChain[static_cast<std::size_t>(i)] = DriftPoint{driftNext.lat, driftNext.lon};
    // Boat and stream vectors are added first; the position then moves
    // once, with the cosine of the latitude at the start of the step.
    const Position next = OffsetPosition(current.lat, current.lon, boat.east + stream.east, boat.north + stream.north);
    s.PassCog[static_cast<std::size_t>(i)] = CogPoint{next.lat, next.lon, time, day, year};
    range[static_cast<std::size_t>(i - 1)] = PlaneSailingRange(current.lat, current.lon, b.lat, b.lon);
    sailed[static_cast<std::size_t>(i)] =
        sailed[static_cast<std::size_t>(i - 1)] + PlaneSailingRange(current.lat, current.lon, next.lat, next.lon);
    away = PlaneSailingRange(a.lat, a.lon, next.lat, next.lon);
    current = next;
    // The clock passes midnight into the next day, and the last day of the
    // year (365 or 366) into 1 January: the steps after midnight on
    // 31 December take the streams of the new year.
    const PassageMoment after = AdvanceMoment(day, year, time, step);
    time = after.time;
    day = after.day;
    year = after.year;
    ++i;
    s.PassCog.resize(static_cast<std::size_t>(i) + 1);
  }
  out.Steps = i - 1;

  // The nearest point is found by search, the first of equal ranges.
  float best = 9999.0f;
  int bestIndex = 0;
  for (int k = 0; k <= i - 2; ++k) {
    if (range[static_cast<std::size_t>(k)] < best) {
      best = range[static_cast<std::size_t>(k)];
      bestIndex = k;
    }
  }
  out.BestIndex = bestIndex;
  out.ClosestApproach = best;
  out.TrackDistance = sailed[static_cast<std::size_t>(bestIndex)];

  // Steer from the end of the stream vectors to the destination.
  const DriftPoint& end = s.DriftChain[static_cast<std::size_t>(bestIndex)];
  out.NextHeading = RangeBearing(end.Lat, end.Lon, b.lat, b.lon).bearing;

  const CogPoint bestPoint = s.PassCog[static_cast<std::size_t>(bestIndex)];
  const float r = RangeBearing(b.lat, b.lon, bestPoint.Lat, bestPoint.Lon).range;
  out.AchievedBearing = RangeBearing(a.lat, a.lon, bestPoint.Lat, bestPoint.Lon).bearing;
  float delta = std::fabs(hab - out.AchievedBearing);
  NormaliseBearing(delta);
  const float deltaRad = static_cast<float>(double(delta / 360.0f) * 2.0 * kPi);
  const float offTrack = static_cast<float>(std::fabs(double(r) * std::sin(double(deltaRad))));
  out.BestTime = static_cast<float>(bestIndex) * step + offTrack / speed;

  s.PassCog.resize(static_cast<std::size_t>(bestIndex) + 1);

  // Put the tides back for the chart window when the pass ended on a day
  // other than the one loaded.
  if (day != ctx.tides->TideDay || year != ctx.tides->TideYear) {
    Note(notices, ReloadTides(ctx, startDay, startYear));
    UpdatePortStates(ctx, true, settings.WorkingTime);
  }
  return out;
}

LegSolution SolveLeg(StreamContext& ctx, PassageState& s, const SolverSettings& settings, Position a, Position b,
                     float speed, float time, std::int16_t day, std::int16_t year) {
  LegSolution out;
  float step = settings.CalcInterval / 60.0f;
  const RangeAndBearing ab = RangeBearing(a.lat, a.lon, b.lat, b.lon);
  const float R = ab.range;
  if (R == 0.0f) {
    out.GroundSpeed = speed;
    return out;
  }

  // Kept to put back should a pass run past the arrays.
  const std::vector<CogPoint> savedCog = s.PassCog;
  const std::vector<StreamSample> savedStreams = s.PassStreams;
  const auto savedDrift = s.DriftChain;
  const Position savedStart = s.LegStart, savedDest = s.LegDest;
  const float savedSpeed = s.LegSpeed;
  const std::int16_t tideDay = ctx.tides->TideDay, tideYear = ctx.tides->TideYear;

  s.LegStart = a;
  s.LegDest = b;
  s.LegSpeed = speed;
  if (R / speed < step) step /= 10.0f;

  float heading = ab.bearing;
  PassResult pass;
  for (int n = 0; n < 8; ++n) {
    pass = TraceLeg(ctx, s, settings, a, b, time, day, year, speed, step, heading, out.notices);
    if (pass.overflow) {
      s.PassCog = savedCog;
      s.PassStreams = savedStreams;
      s.DriftChain = savedDrift;
      s.LegStart = savedStart;
      s.LegDest = savedDest;
      s.LegSpeed = savedSpeed;
      if (ctx.tides->TideDay != tideDay || ctx.tides->TideYear != tideYear) {
        ReloadTides(ctx, tideDay, tideYear);
        UpdatePortStates(ctx, true, settings.WorkingTime);
      }
      out = LegSolution{};
      out.ok = false;
      out.message = PassOverflowMessage();
      return out;
    }
    heading = pass.NextHeading;
  }
  out.CourseToSteer = heading;
  out.BestIndex = pass.BestIndex;
  out.ClosestApproach = pass.ClosestApproach;
  out.TrackDistance = pass.TrackDistance;

  // The track joins the route's: its first point overwrites the last one.
  const std::size_t base = s.RouteCog.empty() ? 0 : s.RouteCog.size() - 1;
  s.RouteCog.resize(base + s.PassCog.size());
  std::copy(s.PassCog.begin(), s.PassCog.end(), s.RouteCog.begin() + static_cast<std::ptrdiff_t>(base));
  if (s.RouteStreams.empty()) s.RouteStreams.resize(1);
  for (int k = 1; k <= pass.BestIndex && k < static_cast<int>(s.PassStreams.size()); ++k)
    s.RouteStreams.push_back(s.PassStreams[static_cast<std::size_t>(k)]);

  const CogPoint& bestPoint = s.PassCog[static_cast<std::size_t>(pass.BestIndex)];
  const float D = RangeBearing(a.lat, a.lon, bestPoint.Lat, bestPoint.Lon).range;
  out.TimeTaken = (R - D) / speed + pass.BestTime;
  out.GroundSpeed = R / out.TimeTaken;
  s.RouteAchieved = out.ClosestApproach <= settings.AcceptableError ? -1 : 0;
  return out;
}

}  // namespace kelvane
