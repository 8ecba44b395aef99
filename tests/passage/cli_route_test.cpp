// kelvane-cli route and stream on the installed sample data.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "support/commands.h"

namespace {

using CliRun = kelvane::test::CliResult;

CliRun Cli(const std::string& args) {
  return kelvane::test::RunCli("--data-root '" + std::string(KELVANE_SOURCE_DIR) + "/data' " + args);
}

std::string Gpx(const char* name) { return std::string("'") + KELVANE_TEST_DATA + "/passage/" + name + "'"; }

std::string LinesStarting(const std::string& text, const std::string& head) {
  std::string out;
  for (const std::string& line : kelvane::testing::SplitLines(text))
    if (line.rfind(head, 0) == 0) out += line + "\n";
  return out;
}

TEST(CliRoute, VineyardSoundSixHoursApartDiffers) {
  const CliRun morning = Cli("route " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --depart '2025-06-10 08:00'");
  const CliRun afternoon = Cli("route " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --depart '2025-06-10 14:00'");
  ASSERT_EQ(morning.status, 0) << morning.out;
  ASSERT_EQ(afternoon.status, 0) << afternoon.out;
  const std::string steerA = LinesStarting(morning.out, "Steer "), steerB = LinesStarting(afternoon.out, "Steer ");
  EXPECT_EQ(std::count(steerA.begin(), steerA.end(), '\n'), 3);
  EXPECT_NE(steerA, steerB);
  EXPECT_NE(LinesStarting(morning.out, "Route distance"), LinesStarting(afternoon.out, "Route distance"));
  EXPECT_EQ(morning.out.substr(0, 62), "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE");
  // The same waypoint-to-waypoint line either way.
  EXPECT_EQ(LinesStarting(morning.out, "Range and bearing"), LinesStarting(afternoon.out, "Range and bearing"));

  const CliRun details = Cli("route " + Gpx("vineyard.gpx") +
                          " --area 'Nantucket Sound' --depart '2025-06-10 08:00' --details");
  EXPECT_NE(details.out.find("Time\tPredicted Position\tStream\tTidal Stream ID\n"), std::string::npos);
  EXPECT_NE(details.out.find("\t9998, "), std::string::npos);
}

TEST(CliRoute, BadInput) {
  CliRun r = Cli("route " + Gpx("bad_speed.gpx") + " --area 'Nantucket Sound' --depart '2025-06-10 08:00'");
  EXPECT_NE(r.status, 0);
  EXPECT_NE(r.out.find("Boat speed below 0.5kn between waypoints 1 and 2\r\nCannot continue - please correct."),
            std::string::npos);
  r = Cli("route " + Gpx("one_point.gpx") + " --area 'Nantucket Sound' --depart '2025-06-10 08:00'");
  EXPECT_NE(r.status, 0);
  EXPECT_NE(r.out.find("A route needs at least two waypoints to calculate"), std::string::npos);
  r = Cli("route " + Gpx("vineyard.gpx") + " --area 'No Such Area' --depart '2025-06-10 08:00'");
  EXPECT_NE(r.status, 0);
  r = Cli("route " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --depart '2025-02-30 08:00'");
  EXPECT_NE(r.status, 0);
}

TEST(CliStream, AnswersInOneLine) {
  CliRun r = Cli("stream --area 'Nantucket Sound' --lat 41.45 --lon -70.75 --at '2025-06-10 08:00'");
  ASSERT_EQ(r.status, 0) << r.out;
  EXPECT_EQ(r.out.rfind("Rate = ", 0), 0u);
  EXPECT_NE(r.out.find(", Diamond = 9998, "), std::string::npos);
  r = Cli("stream --area 'Nantucket Sound' --lat 50.0 --lon 0.0 --at '2025-06-10 08:00'");
  EXPECT_EQ(r.out, "Rate = 0 kn, Direction = 0 degT, Slot = 0, Diamond = NONE\n");
}

}  // namespace
