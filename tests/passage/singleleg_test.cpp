// One leg worked by hand: the checks of the leg form in their order, and a
// leg without streams worked by plane sailing on paper.
#include <gtest/gtest.h>

#include "passage/singleleg.h"

namespace kelvane {
namespace {

struct BadLeg {
  const char* what;
  SingleLegInput in;
  LegCheckVerdict verdict;
  std::string message;
};

SingleLegInput Leg(std::string start, std::string dest, std::string speed) {
  SingleLegInput in;
  in.Start = std::move(start);
  in.Dest = std::move(dest);
  in.Speed = std::move(speed);
  return in;
}

SingleLegInput WithLeeway(SingleLegInput in, std::string text, LeewaySide side) {
  in.LeewayOn = true;
  in.LeewayText = std::move(text);
  in.Side = side;
  return in;
}

constexpr const char* kA = "50.00.00N 001.00.00W";
constexpr const char* kB = "50.30.00N 000.30.00W";

TEST(SingleLeg, BadInputGivesTheFormsMessagesInTheFormsOrder) {
  const std::string question = "Boat speed very low\r\nDo you wish to continue?\r\n(To continue may cause problems)";
  const BadLeg rows[] = {
      {"nothing typed", Leg("", "", ""), LegCheckVerdict::Refused, "No start position."},
      {"blank start", Leg("   ", kB, "5"), LegCheckVerdict::Refused, "No start position."},
      {"no destination", Leg(kA, "", "5"), LegCheckVerdict::Refused, "No destination."},
      {"no speed", Leg(kA, kB, " "), LegCheckVerdict::Refused, "Enter boat speed"},
      {"half a knot", Leg(kA, kB, "0.5"), LegCheckVerdict::Refused,
       "Boat below 0.5kn, Cannot continue - please correct."},
      {"letters read as 0", Leg(kA, kB, "fast"), LegCheckVerdict::Refused,
       "Boat below 0.5kn, Cannot continue - please correct."},
      {"just over half a knot", Leg(kA, kB, "0.51"), LegCheckVerdict::AskToContinue, question},
      // The speed is asked about before the leeway is looked at.
      {"slow, and leeway without a value", WithLeeway(Leg(kA, kB, "0.9"), "", LeewaySide::Port),
       LegCheckVerdict::AskToContinue, question},
      {"leeway without a value", WithLeeway(Leg(kA, kB, "5"), "", LeewaySide::Port), LegCheckVerdict::Refused,
       "You have selected to use Leeway but have not entered a value"},
      {"leeway without a side", WithLeeway(Leg(kA, kB, "5"), "4", LeewaySide::None), LegCheckVerdict::Refused,
       "Select windside for Leeway"},
      {"no longitude", Leg("50.00.00N", kB, "5"), LegCheckVerdict::Refused, "Error - Longitude entry"},
      {"latitude past the pole", Leg(kA, "95.00.00N 000.30.00W", "5"), LegCheckVerdict::Refused,
       "Error - Latitude entry"},
      {"no length", Leg(kA, "50.00.00N , 001.00.00W", "5"), LegCheckVerdict::Refused,
       "An error occured in your course parameters, check speed, course etc and retry"},
      {"a knot", Leg(kA, kB, "1.0"), LegCheckVerdict::Ready, ""},
  };
  for (const BadLeg& row : rows) {
    SCOPED_TRACE(row.what);
    const CheckedLeg leg = CheckSingleLeg(row.in);
    EXPECT_EQ(leg.verdict, row.verdict);
    EXPECT_EQ(leg.message, row.message);
  }
  // A Yes to the question lets the slow leg through.
  SingleLegInput slow = Leg(kA, kB, "0.51");
  slow.LowSpeedAccepted = true;
  EXPECT_EQ(CheckSingleLeg(slow).verdict, LegCheckVerdict::Ready);

  EXPECT_EQ(LegErrorMessage(9),
            "An error no 9 occurred,\r\nPlease report this error and the chart number in use to Kelvane.\r\n"
            "The results presented must be treated with great caution!!");
}

// 50N 1W to 50 30N 0 30W without streams, worked on paper: d.lat 30' N,
// mean latitude 50.25, departure 30' x cos 50.25 = 19.18' E; range
// sqrt(30^2 + 19.18^2) = 35.61 miles, bearing atan(19.18 / 30) = 032.6;
// at 6 knots 5.935 hours (5 h 56 min). Course steered = the bearing; with
// 2 degrees west variation and 3 of leeway, wind to port, 032.6 + 2 - 3 =
// 031.6 magnetic.
TEST(SingleLeg, WithoutStreamsTheBoatSteersTheBearingAtItsOwnSpeed) {
  SingleLegInput in = WithLeeway(Leg(kA, kB, "6"), "3", LeewaySide::Port);
  const CheckedLeg leg = CheckSingleLeg(in);
  ASSERT_EQ(leg.verdict, LegCheckVerdict::Ready) << leg.message;
  SingleLegSettings settings;
  settings.UseTides = false;
  settings.Variation = -2.0f;
  settings.Day = 166;
  settings.Year = 2026;
  settings.Time = 10.0f;
  PassageState s;
  s.ResultText = {"an earlier report"};
  StreamContext none;
  const SingleLegOutcome out = SolveSingleLeg(none, s, leg, settings);
  ASSERT_EQ(out.verdict, LegSolveVerdict::Solved) << out.message;
  EXPECT_NEAR(out.Range, 35.609, 0.002);
  EXPECT_NEAR(out.Bearing, 32.596, 0.002);
  EXPECT_NEAR(out.CourseTrue, 32.596, 0.002);
  EXPECT_NEAR(out.CourseMagnetic, 31.596, 0.002);
  EXPECT_NEAR(out.TimeTaken, 5.9348, 0.0005);
  EXPECT_EQ(out.lines, (std::vector<std::string>{
                           "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE",
                           "COURSE TO STEER = 033\t°T CTS = 032°M",
                           "From 50.00.00N , 001.00.00W",
                           "To 50.30.00N , 000.30.00W",
                           "Range = 35.6nm",
                           "Bearing = 033°T",
                           "Speed = 6kt",
                           "Time taken = 05Hrs 56Min ",
                           "Course Over Ground = 033°T @ 6.0kt",
                           "Course to steer 032°M",
                       }));
  EXPECT_EQ(s.ResultText, out.lines);
  // The track for the chart: straight from A at 10:00 to B on arrival.
  ASSERT_EQ(s.RouteCog.size(), 2u);
  EXPECT_EQ(s.RouteCog[0], (CogPoint{50.0f, -1.0f, 10.0f, 166, 2026}));
  EXPECT_FLOAT_EQ(s.RouteCog[1].Lat, 50.5f);
  EXPECT_NEAR(s.RouteCog[1].Time, 15.9348, 0.0005);
  EXPECT_EQ(s.RouteAchieved, -1);

  // Wind to starboard adds the leeway instead: 032.6 + 2 + 3 = 037.6.
  in.Side = LeewaySide::Starboard;
  const SingleLegOutcome starboard = SolveSingleLeg(none, s, CheckSingleLeg(in), settings);
  ASSERT_EQ(starboard.verdict, LegSolveVerdict::Solved);
  EXPECT_EQ(starboard.lines[1], "COURSE TO STEER = 033\t°T CTS = 038°M");
}

}  // namespace
}  // namespace kelvane
