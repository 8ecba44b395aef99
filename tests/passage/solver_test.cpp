// The leg solver and the route calculation on hand-made streams.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <memory>

#include "core/positions.h"
#include "core/timetext.h"
#include "passage/departuresweep.h"
#include "passage/routecalc.h"
#include "streams/stream_fixture.h"
#include "support/route_sample.h"

namespace kelvane {
namespace {

using test::kDay;
using test::kYear;
using test::StreamWorld;


struct World : StreamWorld {
  PassageState s;
  SolverSettings settings;
  World() {
    test::MakeCurve(tides, 0.1f);
    // Should a pass leave the day, the tides of record 5 of the real file.
    ctx.programFolder = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
  }
};

TEST(SolveLeg, SamePointTouchesNothing) {
  World w;
  w.s.RouteCog = {CogPoint{1, 2, 3, 4, 5}};
  const LegSolution r = SolveLeg(w.ctx, w.s, w.settings, {50, 0}, {50, 0}, 5.0f, 10.0f, kDay, kYear);
  EXPECT_EQ(r.CourseToSteer, 0.0f);
  EXPECT_EQ(r.TimeTaken, 0.0f);
  EXPECT_EQ(r.TrackDistance, 0.0f);
  EXPECT_EQ(r.ClosestApproach, 0.0f);
  EXPECT_EQ(r.BestIndex, 0);
  EXPECT_EQ(r.GroundSpeed, 5.0f);
  EXPECT_EQ(w.s.RouteCog, (std::vector<CogPoint>{CogPoint{1, 2, 3, 4, 5}}));
  EXPECT_EQ(w.s.LegSpeed, 0.0f);
}

TEST(SolveLeg, NoDiamondInReachSteersTheDirectCourse) {
  World w;
  SetDiamonds(w.streams, {test::UniformDiamond(55.0f, 5.0f, 90, 3)});  // hundreds of miles away
  // About 5.7 miles north-east at 5 knots.
  const Position a{50.0f, -1.0f}, b{50.07f, -0.9f};
  const RangeAndBearing rb = RangeBearing(a.lat, a.lon, b.lat, b.lon);
  const LegSolution r = SolveLeg(w.ctx, w.s, w.settings, a, b, 5.0f, 10.0f, kDay, kYear);
  EXPECT_EQ(r.CourseToSteer, rb.bearing);
  // The steps move the longitude with the cosine of each step's starting
  // latitude while ranges use the mean latitude: on a leg with easting the
  // two differ by a few parts in ten thousand.
  EXPECT_NEAR(r.TimeTaken, rb.range / 5.0f, 5e-4f);
  EXPECT_NEAR(r.GroundSpeed, 5.0f, 1e-3f);
  EXPECT_LE(r.ClosestApproach, 5.0f * (5.0f / 60.0f) / 2.0f + 1e-4f);  // half a step's run
  ASSERT_GT(w.s.RouteStreams.size(), 1u);
  for (std::size_t i = 1; i < w.s.RouteStreams.size(); ++i) EXPECT_EQ(w.s.RouteStreams[i].Source, "NONE");
  EXPECT_EQ(w.s.RouteAchieved, -1);
  EXPECT_EQ(w.s.LegSpeed, 5.0f);
  // RouteCog was the one blank point: the leg's first point overwrote it.
  EXPECT_EQ(w.s.RouteCog[0].Lat, a.lat);
  EXPECT_EQ(w.s.RouteCog.size(), static_cast<std::size_t>(r.BestIndex) + 1);
}

TEST(SolveLeg, ShortLegIsWalkedInTenthsOfTheInterval) {
  World w;
  const Position a{50.0f, 0.0f}, b{50.003f, 0.0f};  // 0.18 miles: less than one 5-minute step at 5 knots
  SolveLeg(w.ctx, w.s, w.settings, a, b, 5.0f, 10.0f, kDay, kYear);
  ASSERT_GE(w.s.PassStreams.size(), 3u);
  EXPECT_NEAR(w.s.PassStreams[2].Time - w.s.PassStreams[1].Time, 0.5f / 60.0f, 1e-6f);  // half a minute
}

// The pass used to roll the year after day 366 in every year, so a pass
// over New Year of a common year ran through a day 366 that is no day.
TEST(TraceLeg, NewYearOfACommonYearRolledAfterADay366) {
  struct Case {
    std::int16_t day, year;
    std::int16_t lastDay, lastYear;
  } cases[] = {{100, 2025, 101, 2025}, {365, 2025, 1, 2026}, {365, 2024, 366, 2024}, {366, 2024, 1, 2025}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.day);
    StreamWorld w;  // no diamonds: no tides needed
    PassageState s;
    std::vector<std::string> notices;
    const PassResult p = TraceLeg(w.ctx, s, SolverSettings{}, {50, 0}, {50.1f, 0}, 23.75f, c.day, c.year, 6.0f,
                                  5.0f / 60.0f, 0.0f, notices);
    ASSERT_GE(s.PassCog.size(), 5u);
    const CogPoint& last = s.PassCog.back();
    EXPECT_EQ(last.Day, c.lastDay);
    EXPECT_EQ(last.Year, c.lastYear);
    EXPECT_LT(last.Time, 24.0f);
    EXPECT_LT(last.Time, 1.0f);
    EXPECT_EQ(p.BestIndex, 12);  // 6 miles at 6 knots: an hour, twelve steps
  }
}

TEST(SolveLeg, FoulStreamStrongerThanTheBoat) {
  World w;
  SetDiamonds(w.streams, {test::UniformDiamond(50.0f, 0.0f, 180, 3)});  // 3 knots south
  const Position a{50.0f, 0.0f}, b{50.0333f, 0.0f};      // 2 miles north
  const LegSolution r = SolveLeg(w.ctx, w.s, w.settings, a, b, 1.0f, 10.0f, kDay, kYear);
  EXPECT_EQ(r.BestIndex, 0);
  EXPECT_EQ(r.TrackDistance, 0.0f);
  EXPECT_EQ(r.CourseToSteer, RangeBearing(a.lat, a.lon, b.lat, b.lon).bearing);
  EXPECT_EQ(w.s.RouteAchieved, 0);
  EXPECT_EQ(w.s.RouteStreams.size(), 1u);  // nothing appended
}

TEST(SolveLeg, APassThatCannotEndStopsAndLeavesTheStores) {
  World w;
  SetDiamonds(w.streams, {test::UniformDiamond(50.0f, 0.0f, 180, 0.6f)});
  w.s.RouteCog = {CogPoint{1, 2, 3, 4, 5}};
  w.s.PassCog = {CogPoint{6, 7, 8, 9, 10}};
  const PassageState before = w.s;
  // 0.6 knots north against 0.6 knots south: the boat never leaves A. Half
  // a minute a step keeps the 1500 steps within the day of the curve.
  w.settings.CalcInterval = 0.5f;
  const LegSolution r = SolveLeg(w.ctx, w.s, w.settings, {50, 0}, {50.05f, 0}, 0.6f, 0.25f, kDay, kYear);
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.message, PassOverflowMessage());
  EXPECT_EQ(w.s.RouteCog, before.RouteCog);
  EXPECT_EQ(w.s.PassCog, before.PassCog);
  EXPECT_EQ(w.s.PassStreams, before.PassStreams);
  EXPECT_EQ(w.s.DriftChain, before.DriftChain);
}

TEST(RouteCalc, MagneticCourse) {
  const struct {
    float trueCourse, variation;
    bool leeway;
    std::int16_t tack;
    float expected;
  } cases[] = {
      {90, -2, false, 0, 92}, {359, 2, false, 0, 357}, {1, 2, false, 0, 359},
      {90, 0, true, 0, 90},    // tack 0: no leeway even with the switch on
      {90, 0, true, 1, 85},    // port tack subtracts
      {90, 0, true, 2, 95},    // starboard adds
      {90, 0, false, 2, 90},   // switch off
      {358, -3, true, 2, 6},   // one subtraction of 360
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.trueCourse);
    EXPECT_EQ(MagneticCourse(c.trueCourse, c.variation, c.leeway, 5.0f, c.tack), c.expected);
  }
  EXPECT_EQ(VariationText(-2), "2W");
  EXPECT_EQ(VariationText(3.5f), "3.5E");
}

TEST(RouteCalc, DepartureTimeMessages) {
  EXPECT_EQ(ParseDepartureTime("1235").message, "Please enter a valid time i.e. 12:35");
  EXPECT_EQ(ParseDepartureTime("1:3").message, "Please enter a valid time i.e. 12:35");
  EXPECT_EQ(ParseDepartureTime("24:00").message, "Please enter a valid time");
  EXPECT_EQ(ParseDepartureTime("12:60").message, "Please enter a valid time");
  const DepartureTime ok = ParseDepartureTime("09:30");
  EXPECT_EQ(ok.message, "");
  EXPECT_EQ(ok.hours, 9.5f);
}

using kelvane::test::Point;

RouteCalcInput Input() {
  RouteCalcInput in;
  in.DepartureText = "10:00";
  in.Day = kDay;
  in.Year = kYear;
  in.WorkingTime = 10.0f;
  return in;
}

TEST(RouteCalc, SpeedChecks) {
  const struct {
    float speed;
    bool asked, refused;
  } cases[] = {{0.0f, false, true}, {0.5f, false, true}, {0.51f, true, false}, {1.0f, false, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.speed);
    World w;
    w.s.Route.push_back(Point(50, 0, "A", 5));
    w.s.Route.push_back(Point(50.1f, 0, "B", c.speed));
    w.s.Route.push_back(Point(50.2f, 0, "C", 5));
    const PassageState before = w.s;
    std::vector<std::string> questions;
    RouteCalcHooks hooks;
    hooks.askYesNo = [&](const std::string& q) {
      questions.push_back(q);
      return false;
    };
    const RouteCalcOutcome out = CalculateRoute(w.ctx, w.s, Input(), hooks);
    EXPECT_FALSE(out.completed && (c.asked || c.refused));
    if (c.refused) {
      ASSERT_EQ(out.messages.size(), 1u);
      EXPECT_EQ(out.messages[0].text,
                "Boat speed below 0.5kn between waypoints 2 and 3\r\nCannot continue - please correct.");
    }
    if (c.asked) {
      ASSERT_EQ(questions.size(), 1u);
      EXPECT_EQ(questions[0],
                "Boat speed very low between waypoints 2 and 3\r\nDo you wish to continue?\r\n(This may cause problems)");
    } else {
      EXPECT_TRUE(questions.empty());
    }
    if (c.asked || c.refused) {
      EXPECT_EQ(w.s.ResultText, before.ResultText);
    }
    if (!c.asked && !c.refused) {
      EXPECT_TRUE(out.completed);
    }
  }
}

TEST(RouteCalc, OnePointIsRefused) {
  World w;
  w.s.Route.push_back(Point(50, 0, "A", 5));
  const RouteCalcOutcome out = CalculateRoute(w.ctx, w.s, Input());
  EXPECT_FALSE(out.completed);
  ASSERT_EQ(out.messages.size(), 1u);
  EXPECT_EQ(out.messages[0].text, RouteTooShortMessage());
}

TEST(RouteCalc, ReportOfAStillWaterRoute) {
  World w;  // no diamonds: still water
  // Every number binary-exact: 7.5 knots for 7.5 minutes is 0.9375 miles
  // north, 2^-6 degrees a step; 7.5 miles a leg is eight steps, one hour.
  w.s.Route.push_back(Point(50, 0, "Alpha", 7.5f));
  w.s.Route.push_back(Point(50.125f, 0, "Bravo", 7.5f));
  w.s.Route[2].StopMinutes = 30;
  w.s.Route.push_back(Point(50.25f, 0, "Charlie", 7.5f));
  RouteCalcInput in = Input();
  in.Variation = -2;
  in.CalcInterval = 7.5f;
  const RouteCalcOutcome out = CalculateRoute(w.ctx, w.s, in);
  ASSERT_TRUE(out.completed);
  const std::vector<std::string>& r = w.s.ResultText;
  ASSERT_GE(r.size(), 21u);
  EXPECT_EQ(r[0], "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE");
  EXPECT_EQ(r[1], "   ");
  EXPECT_EQ(r[2], "Route calculation for 10 Apr 2025");  // day 100 of 2025
  EXPECT_EQ(r[3], "Depart 10:00, Passage time = 02Hrs 30Min ");  // two hours and the half-hour stop
  EXPECT_EQ(r[4], "Route distance = 15nm.");
  EXPECT_EQ(r[5], "Effective Speed Over Ground = 6");  // 15 miles in 2.5 hours
  EXPECT_EQ(r[6], "(Variation of 2W applied to all legs)");
  EXPECT_EQ(r[7], "Steer 002°M\t Time taken=01Hrs 00Min  at 7.5 kt.");
  EXPECT_EQ(r[8], "   Alpha\tFrom 50.00.00N , 000.00.00E");
  EXPECT_EQ(r[9], "   Bravo\tTo 50.07.50N , 000.00.00E    Dive Time of 30 mins");
  EXPECT_EQ(r[10], "Starting at 10:00 arriving at 11:00");
  EXPECT_EQ(r[11], "Range and bearing between waypoints : 7.5nm @ 000°T ");
  EXPECT_EQ(r[12], "Speed Over Ground = 7.5kt. Water Track Distance 7.5nm.");
  EXPECT_EQ(r[13], "");
  // The second leg starts after the stop.
  EXPECT_EQ(r[17], "Starting at 11:30 arriving at 12:30");
  EXPECT_EQ(w.s.SummaryText, std::vector<std::string>(r.begin() + 2, r.begin() + 7));
  EXPECT_EQ(r.back(), "Route distance = 15nm.  Time Taken = 02Hrs 30Min ,  SOG  = 6kt.");
  EXPECT_EQ(w.s.Route[1].CourseToSteer, 2.0f);
}

TEST(RouteCalc, UnreachedLegMovesTheNextStart) {
  World w;
  SetDiamonds(w.streams, {test::UniformDiamond(50.0f, 0.0f, 90, 2.5f)});  // 2.5 knots east across a northward leg
  w.s.Route.push_back(Point(50, 0, "A", 1));
  w.s.Route.push_back(Point(50.05f, 0, "B", 1));
  w.s.Route.push_back(Point(50.1f, 0, "C", 1));
  const RouteCalcOutcome out = CalculateRoute(w.ctx, w.s, Input());
  ASSERT_TRUE(out.completed);
  bool warned = false;
  for (const RouteMessage& m : out.messages)
    if (m.text.rfind("Unable to achieve leg 1 destination.\r\nCPA = ", 0) == 0) warned = m.kind == MessageKind::Warning;
  EXPECT_TRUE(warned);
  EXPECT_EQ(w.s.ResultText[1], UnreachedWarningLine());
  EXPECT_NE(w.s.Route[2].Lon, 0.0f);  // moved to where the boat got to
  EXPECT_EQ(w.s.Route[2].Lon, w.s.Route[2].ModLon);
}

TEST(RouteCalc, AcceleratorsChangeNothing) {
  // The sample area's real diamonds, a route across them, both ways.
  auto run = [](bool fast) {
    auto w = std::make_unique<World>();
    w->tides = TideState{};
    w->streams.UseAccelerators = fast;
    w->ctx.programFolder = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
    EXPECT_EQ(LoadAreaDiamonds(w->ctx, "Nantucket Sound"), "");
    ReloadTides(w->ctx, 161, 2025);
    w->s.Route.push_back(Point(41.38f, -70.80f, "Gay Head", 5));
    w->s.Route.push_back(Point(41.46f, -70.74f, "Tarpaulin", 5));
    w->s.Route.push_back(Point(41.505f, -70.64f, "Nobska", 5));
    w->s.Route.push_back(Point(41.45f, -70.30f, "Cross Rip", 5));
    RouteCalcInput in = Input();
    in.Day = 161;
    in.DepartureText = "21:30";  // over midnight
    in.WorkingTime = 21.5f;
    EXPECT_TRUE(CalculateRoute(w->ctx, w->s, in).completed);
    return w;
  };
  const auto scan = run(false), fast = run(true);
  EXPECT_EQ(scan->s.ResultText, fast->s.ResultText);
  EXPECT_EQ(scan->s.RouteCog, fast->s.RouteCog);
  EXPECT_EQ(scan->s.RouteStreams, fast->s.RouteStreams);
  EXPECT_EQ(scan->tides.PortTideState.size(), fast->tides.PortTideState.size());
  // The port states a pass writes once at its end are those the lookups
  // one by one leave, over midnight's reloads too.
  for (std::size_t p = 0; p < scan->tides.PortTideState.size(); ++p) {
    const PortTideStateRecord &a = scan->tides.PortTideState[p], &b = fast->tides.PortTideState[p];
    EXPECT_EQ(a.HwText, b.HwText);
    EXPECT_EQ(a.RangeText, b.RangeText);
    EXPECT_EQ(a.Slot, b.Slot);
    EXPECT_EQ(a.Minutes, b.Minutes);
    EXPECT_EQ(a.TurningTime, b.TurningTime);
    EXPECT_EQ(a.TurningHeight, b.TurningHeight);
  }
  EXPECT_EQ(scan->streams.PortRange, fast->streams.PortRange);
  EXPECT_EQ(scan->s.DriftChain, fast->s.DriftChain);
  EXPECT_EQ(fast->tides.TideDay, 161);
}

// AddHours gains a year's worth of hours across New Year, and the route
// calculation used to carry its time into the next leg: every leg after
// midnight of 31 December looked up the streams of hour 8700-odd. A leg
// after midnight must now be the same leg worked alone from its start on
// the new day (and the sweep's row the same passage as the calculation's).
TEST(RouteCalc, LegsAfterMidnightOnceCarriedAddHoursYearOfHours) {
  const struct {
    const char* name;
    std::int16_t day, year;  // the day of departure
    const char* depart;
    int sweepSlot;           // a slot whose hours hold the departure
    std::int16_t nextDay, nextYear;
  } cases[] = {{"midnight", 161, 2025, "23:00", 4, 162, 2025}, {"New Year", 365, 2025, "22:00", 4, 1, 2026}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    auto load = [](std::int16_t day, std::int16_t year) {
      auto w = std::make_unique<World>();
      w->tides = TideState{};
      EXPECT_EQ(LoadAreaDiamonds(w->ctx, "Nantucket Sound"), "");
      EXPECT_EQ(ReloadTides(w->ctx, day, year), "");
      w->s.Route.push_back(Point(41.38f, -70.80f, "Gay Head", 5));
      w->s.Route.push_back(Point(41.46f, -70.74f, "Tarpaulin", 5));
      w->s.Route.push_back(Point(41.505f, -70.64f, "Nobska", 5));
      w->s.Route.push_back(Point(41.45f, -70.30f, "Cross Rip", 5));
      return w;
    };
    auto route = load(c.day, c.year);
    RouteCalcInput in = Input();
    in.Day = c.day;
    in.Year = c.year;
    in.DepartureText = c.depart;
    in.WorkingTime = 12.0f;
    ASSERT_TRUE(CalculateRoute(route->ctx, route->s, in).completed);

    // The clock of each leg's start, worked by hand from the leg times.
    float clock = static_cast<float>(ParseDepartureTime(c.depart).hours);
    bool nextDay = false;
    int afterMidnight = 0;
    for (int i = 1; i < RouteCount(route->s); ++i) {
      const RoutePoint& from = route->s.Route[static_cast<std::size_t>(i)];
      const RoutePoint& to = route->s.Route[static_cast<std::size_t>(i + 1)];
      if (nextDay) {
        ++afterMidnight;
        auto alone = load(c.nextDay, c.nextYear);
        const LegSolution leg = SolveLeg(alone->ctx, alone->s, SolverSettings{}, {from.Lat, from.Lon},
                                         {to.Lat, to.Lon}, from.Speed, clock, c.nextDay, c.nextYear);
        EXPECT_EQ(from.CourseToSteer, MagneticCourse(leg.CourseToSteer, 0, false, 0, 0)) << "leg " << i;
        EXPECT_EQ(from.LegTime, leg.TimeTaken) << "leg " << i;
      }
      clock += from.LegTime;
      if (clock >= 24.0f) {
        clock -= 24.0f;
        nextDay = true;
      }
    }
    EXPECT_GE(afterMidnight, 1);

    auto swept = load(c.day, c.year);
    SweepInput sweep;
    sweep.Slot = c.sweepSlot;
    sweep.Day = c.day;
    sweep.Year = c.year;
    sweep.WorkingTime = 12.0f;
    const SweepOutcome out = SweepDepartures(swept->ctx, swept->s, sweep);
    ASSERT_EQ(out.verdict, SweepVerdict::Completed);
    float total = 0;
    for (int i = 1; i < RouteCount(route->s); ++i) total += route->s.Route[static_cast<std::size_t>(i)].LegTime;
    const int row = static_cast<int>(ParseDepartureTime(c.depart).hours) - HoursOfSlot(c.sweepSlot).first;
    ASSERT_LT(row, static_cast<int>(out.rows.size()));
    EXPECT_EQ(out.rows[static_cast<std::size_t>(row)].TimeTaken, total);
  }
}

}  // namespace
}  // namespace kelvane
