// The dive route: a hand-worked route of two legs, the input it refuses,
// a leg of no length, the streams met over midnight and New Year, and
// kelvane-cli dive-route printing the same report.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/positions.h"
#include "passage/diveroute.h"
#include "streams/stream_fixture.h"
#include "support/commands.h"
#include "support/route_sample.h"

namespace kelvane {
namespace {

using test::kDay;
using test::kYear;
using test::Point;

struct World : test::StreamWorld {
  PassageState s;
  World() {
    test::MakeCurve(tides, 0.1f);
    ctx.programFolder = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
  }
};

DiveRouteInput Input(float variation = 0, float interval = 5.0f) {
  DiveRouteInput in;
  in.DepartureText = "10:00";
  in.Day = kDay;  // 10 April 2025
  in.Year = kYear;
  in.WorkingTime = 10.0f;
  in.Variation = variation;
  in.CalcInterval = interval;
  return in;
}

// Alpha 50N 0E; Bravo 7.5' north of it; Charlie 7.5' east of Alpha.
// Leg 1: 7.5 miles on 000 at 7.5 knots, one hour exactly.
// Leg 2 by plane sailing at the mean latitude 50.0625: dLat = -7.5',
// departure = 7.5' x cos(50.0625) = 4.8124', range = sqrt(7.5^2 + 4.8124^2)
// = 8.9124 miles, bearing 180 - atan(4.8124 / 7.5) = 147.30 true; at 5
// knots 1.78248 hours, 1 h 46.95 min. Dives of 45 minutes at Bravo and 20
// at Charlie. Departing 10:00: Bravo at 11:00, away 11:45; Charlie at
// 13:31.95 (the clock truncates the minutes: 13:31), away 13:51.95. The
// passage is 1 + 0.75 + 1.78248 = 3.53248 hours, which the span prints
// through hundredths of an hour as 0.53 x 60 = 31.8, 32 minutes; the last
// dive is not in it.
void HandWorkedRoute(PassageState& s) {
  s.Route.assign(1, RoutePoint{});
  s.Route.push_back(Point(50.0f, 0.0f, "Alpha", 7.5f));
  s.Route.push_back(Point(50.125f, 0.0f, "Bravo", 5.0f));
  s.Route.push_back(Point(50.0f, 0.125f, "Charlie", 5.0f));
  s.Route[2].StopMinutes = 45;
  s.Route[3].StopMinutes = 20;
}

std::vector<std::string> HandWorkedLegLines() {
  return {"From \t50.00.00N , 000.00.00E",
          "To \t50.07.50N , 000.00.00E",
          "Range and bearing : 7.5nm @ 000°T ",
          "Time taken=01Hrs 00Min  at 7.5 kt.",
          "Starting at 10:00 arriving at 11:00",
          "Dive duration 45 minutes",
          "Departing at 11:45",
          "",
          "From \t50.07.50N , 000.00.00E",
          "To \t50.00.00N , 000.07.50E",
          "Range and bearing : 8.9nm @ 147°T ",
          "Time taken=01Hrs 47Min  at 5 kt.",
          "Starting at 11:45 arriving at 13:31",
          "Dive duration 20 minutes",
          "Departing at 13:51",
          ""};
}

TEST(DiveRoute, HandWorkedTwoLegReport) {
  const struct {
    float variation;
    const char* line;
    float course1, course2;  // magnetic: true less variation
  } cases[] = {{-3, "(Variation of 3W applied to all legs)", 3.0f, 150.30f},
               {2, "(Variation of 2E applied to all legs)", 358.0f, 145.30f}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    World w;
    HandWorkedRoute(w.s);
    // 7.5-minute steps: leg 1 runs 0.9375 miles a step, 8 steps; leg 2
    // 0.625 miles, 8.9124 / 0.625 = 14.26, 14 steps.
    const DiveRouteOutcome out = CalculateDiveRoute(w.ctx, w.s, Input(c.variation, 7.5f));
    ASSERT_TRUE(out.completed);
    EXPECT_TRUE(out.messages.empty());
    const std::vector<std::string>& r = w.s.ResultText;
    ASSERT_EQ(r.size(), 22u);
    EXPECT_EQ(r[0], "RESULTS ARE ONLY APPROXIMATE AND DO NOT TAKE INTO ACCOUNT THE EFFECTS");
    EXPECT_EQ(r[1], "OF TIDAL STREAMS, SEA STATE OR WEATHER ON THE PASSAGE.");
    EXPECT_EQ(r[2], "Route calculation for 10 Apr 2025");
    EXPECT_EQ(r[3], "Departing 10:00, Passage time = 03Hrs 32Min ");
    EXPECT_EQ(r[4].substr(0, 23), "Route distance = 16.412");  // 7.5 + 8.9124
    EXPECT_EQ(r[4].substr(r[4].size() - 3), "nm.");
    EXPECT_EQ(r[5], c.line);
    EXPECT_EQ(std::vector<std::string>(r.begin() + 6, r.end()), HandWorkedLegLines());
    EXPECT_EQ(w.s.SummaryText, std::vector<std::string>(r.begin() + 2, r.begin() + 6));

    EXPECT_FLOAT_EQ(w.s.Route[1].CourseToSteer, c.course1);
    EXPECT_NEAR(w.s.Route[2].CourseToSteer, c.course2, 0.01f);
    EXPECT_FLOAT_EQ(w.s.Route[1].LegTime, 1.0f);
    EXPECT_NEAR(w.s.Route[2].LegTime, 1.78248f, 1e-4f);
    EXPECT_EQ(w.s.Route[1].DriftCount, 8);
    EXPECT_EQ(w.s.Route[2].DriftCount, 14);
    // The track: Alpha, eight steps to Bravo (whose point the second leg
    // takes over), fourteen more; 8.75 of 8.9124 miles, 0.162 short of
    // Charlie. One stream sample a step, none acting here.
    ASSERT_EQ(w.s.RouteCog.size(), 23u);
    ASSERT_EQ(w.s.RouteStreams.size(), 23u);
    EXPECT_EQ(w.s.RouteCog[8].Lat, 50.125f);
    EXPECT_EQ(w.s.RouteCog[8].Lon, 0.0f);
    EXPECT_NEAR(RangeBearing(w.s.RouteCog[22].Lat, w.s.RouteCog[22].Lon, 50.0f, 0.125f).range, 0.162f, 0.005f);
    EXPECT_EQ(w.s.RouteStreams[22].Source, "NONE");
    EXPECT_FLOAT_EQ(w.s.RouteStreams[9].Time, 11.75f);  // leg 2 leaves after the dive
  }
}

TEST(DiveRoute, RefusedInputLeavesTheStores) {
  const std::string refused2 = "Boat speed below 0.5kn between waypoints 2 and 3\r\nCannot continue - please correct.";
  const struct {
    const char* name;
    const char* departure;
    int points;
    float speed2;  // the speed of the second leg
    float lat3;    // the third point's latitude
    std::string message;
  } cases[] = {
      {"time without a colon", "1000", 3, 5, 50.2f, "Please enter a valid time i.e. 12:35"},
      {"minutes of 60", "10:60", 3, 5, 50.2f, "Please enter a valid time"},
      {"speed 0", "10:00", 3, 0, 50.2f, refused2},
      {"speed 0.5", "10:00", 3, 0.5f, 50.2f, refused2},
      {"speed 0.51 goes ahead without a question", "10:00", 3, 0.51f, 50.2f, ""},
      {"one point", "10:00", 1, 5, 50.2f, RouteTooShortMessage()},
      // 0.51 knots for 5 minutes is 0.0425 miles a step: 60 miles would be
      // 1412 steps, past the 1000 a leg's track holds.
      {"a long slow leg", "10:00", 3, 0.51f, 51.1f,
       "Unable to store leg 2 - its track has more than 1000 points.\r\n"
       "(Increase the calculation interval or shorten the leg.)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    World w;
    w.s.Route.push_back(Point(50, 0, "A", 5));
    if (c.points > 1) w.s.Route.push_back(Point(50.1f, 0, "B", c.speed2));
    if (c.points > 2) w.s.Route.push_back(Point(c.lat3, 0, "C", 0));  // no leg leaves the last point
    w.s.ResultText = {"earlier report"};
    w.s.RouteCog = {CogPoint{1, 2, 3, 4, 5}};
    const std::vector<std::string> text = w.s.ResultText;
    const std::vector<CogPoint> cog = w.s.RouteCog;
    DiveRouteInput in = Input();
    in.DepartureText = c.departure;
    const DiveRouteOutcome out = CalculateDiveRoute(w.ctx, w.s, in);
    if (c.message.empty()) {
      EXPECT_TRUE(out.completed);
      EXPECT_TRUE(out.messages.empty());
      EXPECT_EQ(w.s.ResultText[0], "RESULTS ARE ONLY APPROXIMATE AND DO NOT TAKE INTO ACCOUNT THE EFFECTS");
      continue;
    }
    EXPECT_FALSE(out.completed);
    ASSERT_EQ(out.messages.size(), 1u);
    EXPECT_EQ(out.messages[0], c.message);
    EXPECT_EQ(w.s.ResultText, text);
    EXPECT_EQ(w.s.RouteCog, cog);
    EXPECT_EQ(w.ctx.tides->TideDay, kDay);
  }
}

TEST(DiveRoute, ZeroRangeLegHasNoTimeAndOnePoint) {
  World w;
  w.s.Route.push_back(Point(50, 0, "A", 5));
  w.s.Route.push_back(Point(50, 0, "A again", 5));
  w.s.Route[2].StopMinutes = 30;
  w.s.Route.push_back(Point(50.125f, 0, "B", 5));
  const DiveLegRecord leg = RecordDiveLeg(w.ctx, w.s, 1, 10.0f, kDay, kYear, 5.0f);
  ASSERT_TRUE(leg.ok);
  EXPECT_EQ(w.s.PassCog, (std::vector<CogPoint>{{50, 0, 10.0f, kDay, kYear}}));
  EXPECT_EQ(w.s.PassStreams.size(), 1u);
  EXPECT_EQ(w.s.Route[1].DriftCount, 0);

  const DiveRouteOutcome out = CalculateDiveRoute(w.ctx, w.s, Input());
  ASSERT_TRUE(out.completed);
  EXPECT_EQ(w.s.Route[1].LegTime, 0.0f);
  EXPECT_EQ(w.s.ResultText[8], "Range and bearing : 0.0nm @ 000°T ");
  EXPECT_EQ(w.s.ResultText[9], "Time taken=00Hrs 00Min  at 5 kt.");
  EXPECT_EQ(w.s.ResultText[10], "Starting at 10:00 arriving at 10:00");
  EXPECT_EQ(w.s.ResultText[12], "Departing at 10:30");
  // 7.5 miles at 5 knots in 5-minute steps: 18 steps after the one point.
  EXPECT_EQ(w.s.RouteCog.size(), 19u);
  EXPECT_EQ(w.s.ResultText[3], "Departing 10:00, Passage time = 02Hrs 00Min ");
}

TEST(DiveRoute, StreamsMetAreThoseOfTheNextDayAndYear) {
  const struct {
    std::int16_t day, year, nextDay, nextYear;
  } cases[] = {{161, 2025, 162, 2025}, {365, 2025, 1, 2026}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.day);
    World w;
    w.tides = TideState{};
    ASSERT_EQ(LoadAreaDiamonds(w.ctx, "Nantucket Sound"), "");
    ReloadTides(w.ctx, c.day, c.year);
    w.s.Route.push_back(Point(41.38f, -70.80f, "Gay Head", 5));
    w.s.Route.push_back(Point(41.46f, -70.74f, "Tarpaulin", 5));
    DiveRouteInput in = Input();
    in.Day = c.day;
    in.Year = c.year;
    in.DepartureText = "23:30";
    in.WorkingTime = 23.5f;
    const DiveRouteOutcome out = CalculateDiveRoute(w.ctx, w.s, in);
    ASSERT_TRUE(out.completed);
    // The tides are back at the day of departure.
    EXPECT_EQ(w.tides.TideDay, c.day);
    EXPECT_EQ(w.tides.TideYear, c.year);

    const std::vector<CogPoint> cog = w.s.RouteCog;
    const std::vector<StreamSample> met = w.s.RouteStreams;
    ASSERT_GT(cog.size(), 8u);  // over an hour: past midnight
    int afterMidnight = 0;
    for (std::size_t k = 1; k < cog.size(); ++k) {
      SCOPED_TRACE(k);
      const bool after = cog[k].Time < 23.5f;
      EXPECT_EQ(cog[k].Day, after ? c.nextDay : c.day);
      EXPECT_EQ(cog[k].Year, after ? c.nextYear : c.year);
      afterMidnight += after;
      // The sample of step k is the lookup at its start, on its own date.
      StreamAnswer answer{0.0f, 0.0f, 0, "NONE"};
      (void)TidalStreamAt(w.ctx, cog[k - 1].Lat, cog[k - 1].Lon, cog[k].Time, cog[k].Day, cog[k].Year, answer);
      EXPECT_EQ(met[k].Rate, answer.Rate);
      EXPECT_EQ(met[k].Direction, answer.Direction);
      EXPECT_EQ(met[k].Source, answer.DiamondText);
    }
    EXPECT_GT(afterMidnight, 0);
  }
}

TEST(CliDiveRoute, PrintsTheHandWorkedReport) {
  const std::string gpx = std::string("'") + KELVANE_TEST_DATA + "/passage/dive.gpx'";
  const std::string head = "--data-root '" + std::string(KELVANE_SOURCE_DIR) + "/data' dive-route " + gpx +
                           " --depart '2025-04-10 10:00' --variation 3W";
  test::CliResult r = test::RunCli(head + " --dive 45,20");
  ASSERT_EQ(r.status, 0) << r.out;
  const std::vector<std::string> lines = testing::SplitLines(r.out);
  ASSERT_GE(lines.size(), 22u) << r.out;
  EXPECT_EQ(lines[3], "Departing 10:00, Passage time = 03Hrs 32Min ");
  EXPECT_EQ(lines[5], "(Variation of 3W applied to all legs)");
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 6, lines.begin() + 22), HandWorkedLegLines());

  for (const char* bad : {" --dive 45,x", " --dive 45,,20", " --dive 1,2,3"}) {
    r = test::RunCli(head + bad);
    EXPECT_EQ(r.status, 2) << bad;
    EXPECT_EQ(r.out.find("RESULTS"), std::string::npos) << bad;
  }
  r = test::RunCli("--data-root '" + std::string(KELVANE_SOURCE_DIR) + "/data' dive-route '" + KELVANE_TEST_DATA +
                   "/passage/one_point.gpx' --depart '2025-04-10 10:00'");
  EXPECT_NE(r.status, 0);
  EXPECT_NE(r.out.find(RouteTooShortMessage()), std::string::npos);
}

}  // namespace
}  // namespace kelvane
