// The rules of the route forms: the speed box, the reversal, the departure
// lists, the edit of one leg and the route information lines.
#include <gtest/gtest.h>

#include "passage/routecalc.h"
#include "passage/routeform.h"
#include "support/route_sample.h"

namespace kelvane {
namespace {

using kelvane::test::Point;

// Three points on the meridian of 1 degree west: 12 miles north, then 6
// miles south (a tenth of a degree of latitude is 6 miles).
PassageState ThreePoints() {
  PassageState s;
  s.Route.push_back(Point(50.4f, -1.0f, "Alpha", 4));
  s.Route.push_back(Point(50.6f, -1.0f, "Bravo", 5));
  s.Route.push_back(Point(50.5f, -1.0f, "Charlie", 6));
  return s;
}

TEST(RouteForm, SpeedBox) {
  const struct {
    const char* text;
    float speed;
    bool valid;
  } cases[] = {
      {"5", 5.0f, true},     {" 6.5 ", 6.5f, true}, {"0.51", 0.51f, true}, {"0.5", 0.5f, true},
      {".75", 0.75f, true},  {"", 0, false},        {"   ", 0, false},     {"abc", 0, false},
      {"5kn", 0, false},     {"-1", 0, false},      {"0", 0, false},      {"0.00", 0, false},
      {"1.2.3", 0, false},   {".", 0, false},       {"5 5", 0, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const SpeedEntry e = ParseRouteSpeed(c.text);
    if (c.valid) {
      EXPECT_EQ(e.message, "");
      EXPECT_EQ(e.speed, c.speed);
    } else {
      EXPECT_EQ(e.message, "Must enter a valid speed");
    }
  }
}

TEST(RouteForm, SpeedForAllLegsReachesTheLastPoint) {
  PassageState s = ThreePoints();
  SetRouteSpeed(s, 0.51f);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(s.Route[static_cast<std::size_t>(i)].Speed, 0.51f) << i;
  EXPECT_EQ(s.Route[0].Speed, 0.0f);  // the blank element stays blank
}

TEST(RouteForm, ReverseMovesPlacesAndNamesAndKeepsTheLegs) {
  PassageState s = ThreePoints();
  s.Route[2].StopMinutes = 30;
  s.Route[1].Tack = 2;
  s.Route[1].LatText = "50.24.00N";
  s.ResultText = {"old report"};
  s.RouteCog.push_back(CogPoint{50.5f, -1.0f, 11, 161, 2025});
  ReverseRoute(s);
  ASSERT_EQ(RouteCount(s), 3);
  EXPECT_EQ(s.Route[1].Name, "Charlie");
  EXPECT_EQ(s.Route[2].Name, "Bravo");
  EXPECT_EQ(s.Route[3].Name, "Alpha");
  EXPECT_EQ(s.Route[1].Lat, 50.5f);
  EXPECT_EQ(s.Route[3].Lat, 50.4f);
  EXPECT_EQ(s.Route[3].LatText, "50.24.00N");
  // Leg things keep their numbers.
  EXPECT_EQ(s.Route[1].Speed, 4.0f);
  EXPECT_EQ(s.Route[3].Speed, 6.0f);
  EXPECT_EQ(s.Route[1].Tack, 2);
  EXPECT_EQ(s.Route[2].StopMinutes, 30);
  // The old direction's results are gone.
  EXPECT_TRUE(s.ResultText.empty());
  EXPECT_EQ(s.RouteCog.size(), 1u);
  // Twice is the route as it was.
  ReverseRoute(s);
  const PassageState again = ThreePoints();
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(s.Route[static_cast<std::size_t>(i)].Name, again.Route[static_cast<std::size_t>(i)].Name);
    EXPECT_EQ(s.Route[static_cast<std::size_t>(i)].Lat, again.Route[static_cast<std::size_t>(i)].Lat);
  }
  // One point or none: nothing to turn round.
  PassageState one;
  one.Route.push_back(Point(50, 0, "Solo", 5));
  ReverseRoute(one);
  EXPECT_EQ(one.Route[1].Name, "Solo");
  PassageState none;
  ReverseRoute(none);
  EXPECT_EQ(RouteCount(none), 0);
}

TEST(RouteForm, DepartureLists) {
  const auto hours = DepartureHourEntries();
  const auto minutes = DepartureMinuteEntries();
  ASSERT_EQ(hours.size(), 24u);
  ASSERT_EQ(minutes.size(), 60u);
  EXPECT_EQ(hours.front(), "00");
  EXPECT_EQ(hours[9], "09");
  EXPECT_EQ(hours.back(), "23");
  EXPECT_EQ(minutes.back(), "59");
  EXPECT_EQ(DepartureWithHours("10:35", "07"), "07:35");
  EXPECT_EQ(DepartureWithMinutes("10:35", "05"), "10:05");
  EXPECT_EQ(DepartureWithHours("", "07"), "07:00");
  EXPECT_EQ(DepartureWithMinutes("1035", "05"), "00:05");
  // What the lists make is what the calculation reads.
  EXPECT_EQ(ParseDepartureTime(DepartureWithMinutes(DepartureWithHours("", "07"), "30")).hours, 7.5f);
}

TEST(RouteForm, ListRowsAreThreeALeg) {
  const int rows[] = {0, 1, 2, 3, 5, 6};
  const int legs[] = {1, 1, 1, 2, 2, 3};
  for (int k = 0; k < 6; ++k) EXPECT_EQ(LegOfListRow(rows[k]), legs[k]) << rows[k];
  EXPECT_EQ(LegOfListRow(-1), 0);
}

TEST(RouteForm, LegEditFillsFromTheRoute) {
  PassageState s = ThreePoints();
  s.Route[3].StopMinutes = 45;
  const LegEdit e = LegEditOf(s, 2);
  EXPECT_EQ(e.StartLat, "50.36.00N");
  EXPECT_EQ(e.StartLon, "001.00.00W");
  EXPECT_EQ(e.DestLat, "50.30.00N");
  EXPECT_EQ(e.StartName, "Bravo");
  EXPECT_EQ(e.DestName, "Charlie");
  EXPECT_EQ(e.Speed, "5");
  EXPECT_EQ(e.StoppedFor, "45");
  // No such leg: empty boxes.
  EXPECT_EQ(LegEditOf(s, 3).StartName, "");
  EXPECT_EQ(LegEditOf(s, 0).StartName, "");
}

TEST(RouteForm, LegEditRefusesPositionsOffTheGlobe) {
  const struct {
    const char* startLat;
    const char* startLon;
    const char* destLat;
    const char* destLon;
    const char* speed;
    const char* message;
  } cases[] = {
      {"91.00.00N", "001.00.00W", "50.30.00N", "001.00.00W", "5", "Error - Latitude entry"},
      {"50.00.00N", "001.00.00W", "90.01.00S", "001.00.00W", "5", "Error - Latitude entry"},
      {"50.00.00N", "181.00.00E", "50.30.00N", "001.00.00W", "5", "Error - Longitude entry"},
      {"50.00.00N", "001.00.00W", "50.30.00N", "180.30.00W", "5", "Error - Longitude entry"},
      // Both wrong: the latitude is reported.
      {"95.00.00N", "200.00.00E", "50.30.00N", "001.00.00W", "5", "Error - Latitude entry"},
      {"50.00.00N", "001.00.00W", "50.30.00N", "001.00.00W", "fast", "Must enter a valid speed"},
      // The poles and the date line themselves are positions.
      {"90.00.00N", "180.00.00E", "90.00.00S", "180.00.00W", "5", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.startLat) + " " + c.startLon + " " + c.destLat + " " + c.destLon);
    PassageState s = ThreePoints();
    LegEdit e = LegEditOf(s, 1);
    e.StartLat = c.startLat;
    e.StartLon = c.startLon;
    e.DestLat = c.destLat;
    e.DestLon = c.destLon;
    e.Speed = c.speed;
    EXPECT_EQ(ApplyLegEdit(s, 1, e), c.message);
    if (*c.message) {
      EXPECT_EQ(s.Route[1].Lat, 50.4f);
      EXPECT_EQ(s.Route[2].Lat, 50.6f);
      EXPECT_EQ(s.Route[1].Speed, 4.0f);
    }
  }
}

TEST(RouteForm, LegEditWritesBothEndsAndTheStop) {
  PassageState s = ThreePoints();
  LegEdit e = LegEditOf(s, 1);
  e.StartName = "Start";
  e.DestLat = "50.45.00N";  // 50.75
  e.DestLon = "001.30.00W";  // -1.5
  e.DestName = "Turn";
  e.Speed = "6.5";
  e.StoppedFor = "30";
  ASSERT_EQ(ApplyLegEdit(s, 1, e), "");
  EXPECT_EQ(s.Route[1].Name, "Start");
  EXPECT_EQ(s.Route[1].Speed, 6.5f);
  // The destination is the next leg's start.
  EXPECT_EQ(s.Route[2].Lat, 50.75f);
  EXPECT_EQ(s.Route[2].Lon, -1.5f);
  EXPECT_EQ(s.Route[2].LatText, "50.45.00N");
  EXPECT_EQ(s.Route[2].LonText, "001.30.00W");
  EXPECT_EQ(s.Route[2].Name, "Turn");
  EXPECT_EQ(s.Route[2].StopMinutes, 30);
  EXPECT_EQ(s.Route[2].Speed, 5.0f);  // the next leg keeps its speed
  // The legs list names the new ends.
  const std::vector<std::string> lines = LegListLines(s);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], "From   :Start");
  EXPECT_EQ(lines[1], "To      :Turn");
  EXPECT_EQ(lines[3], "From   :Turn");
  // An empty speed box leaves the speed; an empty stop is no stop.
  e.Speed = "";
  e.StoppedFor = "";
  ASSERT_EQ(ApplyLegEdit(s, 1, e), "");
  EXPECT_EQ(s.Route[1].Speed, 6.5f);
  EXPECT_EQ(s.Route[2].StopMinutes, 0);
  // More minutes than the field holds are cut to its largest value.
  e.StoppedFor = "99999";
  ASSERT_EQ(ApplyLegEdit(s, 1, e), "");
  EXPECT_EQ(s.Route[2].StopMinutes, 32767);
}

TEST(RouteForm, StopBoxKeys) {
  for (char32_t k : {U'0', U'5', U'9', char32_t{8}}) EXPECT_TRUE(IsStopMinutesKey(k)) << static_cast<int>(k);
  for (char32_t k : {U'a', U'-', U'.', U' ', U'/', U':', char32_t{13}, char32_t{127}})
    EXPECT_FALSE(IsStopMinutesKey(k)) << static_cast<int>(k);
}

TEST(RouteForm, RouteInfoLines) {
  PassageState s = ThreePoints();
  EXPECT_EQ(RouteInfoLines(s), (std::vector<std::string>{
                                   "1\tAlpha\t50.24.00N , 001.00.00W\tSpeed 4 kt.",
                                   "2\tBravo\t50.36.00N , 001.00.00W\tSpeed 5 kt.",
                                   "3\tCharlie\t50.30.00N , 001.00.00W",
                               }));
  s.SummaryText = {"Route calculation for 10 Jun 2025", "Depart 10:00, Passage time = 03Hrs 36Min "};
  const std::vector<std::string> lines = RouteInfoLines(s);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], "Route calculation for 10 Jun 2025");
  EXPECT_EQ(lines[2], "");
  EXPECT_EQ(lines[3], "1\tAlpha\t50.24.00N , 001.00.00W\tSpeed 4 kt.");
}

}  // namespace
}  // namespace kelvane
