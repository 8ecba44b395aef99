// Course over ground and man overboard in a uniform stream: one diamond
// with the same rate and direction at every hour, so that every end
// position is plane sailing on paper.
#include <gtest/gtest.h>

#include "passage/driftrun.h"
#include "streams/stream_fixture.h"

namespace kelvane {
namespace {

using test::kDay;
using test::kYear;


struct World : test::StreamWorld {
  PassageState s;
  DriftSettings settings;
  explicit World(Diamond d) {
    test::MakeCurve(tides, 0.1f);
    // A run past midnight reloads the tides: those of record 5 of the real file.
    ctx.programFolder = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
    SetDiamonds(streams, {d});
    settings.Day = kDay;  // 10 April 2025
    settings.Year = kYear;
    settings.Time = 10.0f;
  }
};

constexpr const char* kStart = "50.00.00N 000.00.00E";

MobInput Mob(std::string duration, std::string start = kStart) {
  MobInput in;
  in.Start = std::move(start);
  in.Duration = std::move(duration);
  return in;
}

// A casualty drifts (n + 1) x rate x step: n = hours / step rounded, and
// the pass runs k = 0 .. n. North along the meridian a mile is a minute of
// latitude.
TEST(DriftRun, CasualtyInAUniformStreamDriftsNPlusOneSteps) {
  const struct {
    const char* duration;
    float rate, interval;
    float miles;  // worked by hand
  } rows[] = {
      {"1", 1.5f, 5, 13 * 1.5f * 5 / 60},    // n = 12: 1.625 miles
      {"0", 1.5f, 5, 1 * 1.5f * 5 / 60},     // n = 0 still drifts one step
      {"0.5", 1.5f, 10, 4 * 1.5f * 10 / 60}, // 0.5 / (1/6) = 3, four steps of ten minutes
      // 90 is hours in this form: 900 steps of 6 minutes, over three days'
      // tides (a uniform stream reads the same on every day).
      {"90", 0.2f, 6, 901 * 0.2f * 6 / 60},  // 18.02 miles
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.duration);
    World w(test::UniformDiamond(50.0f, 0.0f, 0.0f, row.rate));
    w.settings.CalcInterval = row.interval;
    const DriftOutcome out = CalculateMob(w.ctx, w.s, Mob(row.duration), w.settings);
    ASSERT_EQ(out.verdict, DriftVerdict::Done) << out.message;
    // Positions are 32-bit floats: near 50N a latitude is held to 3.8e-6
    // degrees, and every step's end is rounded to it, up to half of that a
    // step (the 900 steps of the long run lose 0.08 of its 18 miles).
    const int steps = out.run.Steps + 1;
    EXPECT_NEAR(out.run.End.lat, 50.0f + row.miles / 60.0f, 2e-6f * static_cast<float>(steps) + 1e-5f);
    EXPECT_NEAR(out.run.End.lon, 0.0f, 1e-6f);
    EXPECT_NEAR(out.run.Distance, row.miles, 1.2e-4f * static_cast<float>(steps) + 1e-3f);
    // The track for the chart: the start, then the end of every step.
    ASSERT_EQ(w.s.RouteCog.size(), static_cast<std::size_t>(out.run.Steps) + 2);
    EXPECT_EQ(w.s.RouteCog.front(), (CogPoint{50.0f, 0.0f, 10.0f, kDay, kYear}));
    EXPECT_EQ(w.s.RouteCog.back().Lat, out.run.End.lat);
    EXPECT_EQ(w.s.RouteStreams.size(), w.s.RouteCog.size());
    EXPECT_EQ(w.s.RouteStreams.back().Rate, row.rate);
    EXPECT_EQ(w.s.ResultText, out.lines);
  }
}

// Out of reach of every diamond the casualty stays where she went in, and
// the clock runs on over New Year into the next year.
TEST(DriftRun, NoDiamondInReachStaysAtTheStartOverNewYear) {
  World w(test::UniformDiamond(55.0f, 5.0f, 90.0f, 3.0f));  // hundreds of miles away
  w.settings.Day = 365;
  w.settings.Year = 2025;
  w.settings.Time = 23.5f;
  const DriftOutcome out = CalculateMob(w.ctx, w.s, Mob("1"), w.settings);
  ASSERT_EQ(out.verdict, DriftVerdict::Done) << out.message;
  EXPECT_EQ(out.run.End.lat, 50.0f);
  EXPECT_EQ(out.run.End.lon, 0.0f);
  EXPECT_EQ(out.run.Distance, 0.0f);
  for (std::size_t i = 1; i < w.s.RouteStreams.size(); ++i) EXPECT_EQ(w.s.RouteStreams[i].Source, "NONE");
  // 13 steps of 5 minutes from 23:30 on 31 December: the last starts at
  // 00:30 on 1 January 2026, and the run ends at 00:35.
  EXPECT_EQ(w.s.RouteCog.back().Day, 1);
  EXPECT_EQ(w.s.RouteCog.back().Year, 2026);
  EXPECT_NEAR(w.s.RouteCog.back().Time, 0.5f, 1e-4f);
  EXPECT_EQ(out.run.EndMoment.day, 1);
  EXPECT_EQ(out.run.EndMoment.year, 2026);
  EXPECT_EQ(out.lines[3], "Predicted position \t50.00.00N , 000.00.00E");
  EXPECT_EQ(out.lines[4], "Alarm at 23:30 Predicted for 00:35 after 01:05");
}

// 6 knots on 090 true with 1.5 knots setting north, 13 steps of 5 minutes:
// 6.5 miles east and 1.625 north. d.lat 1.625' = 0.027083 degrees; the
// departure 6.5' at the mean latitude 50 00.8'N is 0.168584 degrees of
// longitude. Over the ground sqrt(6.5^2 + 1.625^2) = 6.700 miles in 1 h 05
// = 6.18 knots. The heading is typed magnetic: 092 with 2 degrees west
// variation, 087 with 3 east, and with no variation 085 with 5 degrees of
// leeway wind to port (the boat is set to starboard) or 095 to starboard.
TEST(DriftRun, BoatOnAMagneticHeadingEndsWherePlaneSailingPutsIt) {
  const struct {
    const char* heading;
    float variation;
    LeewaySide side;
  } rows[] = {
      {"092", -2.0f, LeewaySide::None},
      {"087", 3.0f, LeewaySide::None},
      {"085", 0.0f, LeewaySide::Port},
      {"095", 0.0f, LeewaySide::Starboard},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.heading);
    World w(test::UniformDiamond(50.0f, 0.0f, 0.0f, 1.5f));
    w.settings.Variation = row.variation;
    CogInput in;
    in.Start = kStart;
    in.Dest = "50.00.00N 000.10.00E";
    in.Speed = "6";
    in.Duration = "1:00";
    in.Bearing = row.heading;
    in.LeewayOn = row.side != LeewaySide::None;
    in.LeewayText = "5";
    in.Side = row.side;
    const DriftOutcome out = CalculateCog(w.ctx, w.s, in, w.settings);
    ASSERT_EQ(out.verdict, DriftVerdict::Done) << out.message;
    EXPECT_EQ(out.HeadingTrue, 90.0f);
    EXPECT_NEAR(out.run.End.lat, 50.027083f, 2e-5f);
    EXPECT_NEAR(out.run.End.lon, 0.168584f, 2e-5f);
    // The destination 10' east is 6.43 miles off; the track passes nearest
    // after the twelfth step, 6.0 east and 1.5 north: 1.56 miles.
    EXPECT_NEAR(out.run.BestRange, 1.5598f, 2e-3f);
    EXPECT_EQ(out.run.BestIndex, 11);
    EXPECT_EQ(out.lines, (std::vector<std::string>{
                             "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE",
                             "Course Over Ground Calculation for 10 Apr 2025",
                             "From \t50.00.00N , 000.00.00E",
                             "To \t50.00.00N , 000.10.00E",
                             std::string("Steer ") + row.heading + "°M Time taken=01:00 at 6 kt.",
                             "Starting at 10:00 Completion Time 11:00",
                             "Range and bearing between waypoints : 6.4nm @ 090°T ",
                             "Speed Over Ground = 6.2kt. Water Track Distance 6.7nm.",
                             "Closest approach to destination = 1.56nm.",
                         }));
  }
}

TEST(DriftRun, BadInputGivesAMessageAndChangesNothing) {
  const std::string tooLong5 = DriftTooLongMessage(5.0f);
  EXPECT_EQ(tooLong5,
            "Duration too long - at most 1001 steps can be calculated\r\n"
            "(83.3 hours at 5 minutes a step). Nothing has been calculated.");
  auto cog = [](std::string start, std::string speed, std::string duration, std::string bearing) {
    CogInput in;
    in.Start = std::move(start);
    in.Speed = std::move(speed);
    in.Duration = std::move(duration);
    in.Bearing = std::move(bearing);
    return in;
  };
  const struct {
    const char* what;
    CogInput in;
    std::string message;
  } cogRows[] = {
      {"no start", cog("", "6", "1:00", "090"), "Error in start and destination coordinates"},
      {"four characters", cog("50.0", "6", "1:00", "090"), "Error in start and destination coordinates"},
      {"no speed", cog(kStart, "", "1:00", "090"), "Enter boat speed"},
      {"speed 0", cog(kStart, "0", "1:00", "090"), "Enter boat speed"},
      {"speed no number", cog(kStart, "fast", "1:00", "090"), "Enter boat speed"},
      {"latitude past the pole", cog("95.00.00N 000.00.00E", "6", "1:00", "090"), "Error - Latitude entry"},
      {"no duration", cog(kStart, "6", "", "090"), "Duration not set"},
      {"90 without a colon", cog(kStart, "6", "90", "090"), "Duration entry ambiguous"},
      {"colon first", cog(kStart, "6", ":30", "090"), "Duration entry ambiguous"},
      {"-1", cog(kStart, "6", "-1", "090"), "Duration entry ambiguous"},
      {"-1:00", cog(kStart, "6", "-1:00", "090"), "Duration entry ambiguous"},
      {"1e9", cog(kStart, "6", "1e9", "090"), "Duration entry ambiguous"},
      {"1e9 hours", cog(kStart, "6", "1e9:00", "090"), tooLong5},
      {"84 hours", cog(kStart, "6", "84:00", "090"), tooLong5},
      {"no direction", cog(kStart, "6", "1:30", ""), "Direction not set"},
  };
  const struct {
    const char* what;
    MobInput in;
    std::string message;
  } mobRows[] = {
      {"short start", Mob("1", "50N"), "Error in start and destination coordinates"},
      {"no duration", Mob(""), "Duration not set"},
      {"-1", Mob("-1"), NegativeDurationMessage()},
      {":30", Mob(":30"), NegativeDurationMessage()},
      {"1e9", Mob("1e9"), tooLong5},
      {"90 hours at 5 minutes", Mob("90"), tooLong5},
  };
  World w(test::UniformDiamond(50.0f, 0.0f, 0.0f, 1.5f));
  w.s.RouteCog = {CogPoint{1, 2, 3, 4, 5}};
  w.s.PassCog = {CogPoint{6, 7, 8, 9, 10}};
  w.s.ResultText = {"the last report"};
  for (const auto& row : cogRows) {
    SCOPED_TRACE(row.what);
    const DriftOutcome out = CalculateCog(w.ctx, w.s, row.in, w.settings);
    EXPECT_EQ(out.verdict, DriftVerdict::Refused);
    EXPECT_EQ(out.message, row.message);
  }
  for (const auto& row : mobRows) {
    SCOPED_TRACE(row.what);
    const DriftOutcome out = CalculateMob(w.ctx, w.s, row.in, w.settings);
    EXPECT_EQ(out.verdict, DriftVerdict::Refused);
    EXPECT_EQ(out.message, row.message);
  }
  EXPECT_EQ(w.s.RouteCog, (std::vector<CogPoint>{CogPoint{1, 2, 3, 4, 5}}));
  EXPECT_EQ(w.s.PassCog, (std::vector<CogPoint>{CogPoint{6, 7, 8, 9, 10}}));
  EXPECT_EQ(w.s.ResultText, (std::vector<std::string>{"the last report"}));
  // The longest run that fits: 1000 steps of 5 minutes and one more.
  EXPECT_TRUE(DriftFits(1000.0f * 5.0f / 60.0f, 5.0f));
  EXPECT_FALSE(DriftFits(1001.0f * 5.0f / 60.0f, 5.0f));
  EXPECT_FALSE(DriftFits(1.0f, 0.0f));
}

}  // namespace
}  // namespace kelvane
