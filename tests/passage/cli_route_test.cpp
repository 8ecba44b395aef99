// kelvane-cli route and stream on the installed sample data.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/commands.h"
#include "support/tempdir.h"

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

namespace {

// The text after `head` on each report line that starts with it, up to and
// including `until`.
std::vector<std::string> Fields(const std::string& report, const std::string& head, const std::string& until) {
  std::vector<std::string> out;
  for (const std::string& line : kelvane::testing::SplitLines(report)) {
    if (line.rfind(head, 0) != 0) continue;
    const std::size_t end = until.empty() ? std::string::npos : line.find(until, head.size());
    out.push_back(line.substr(head.size(), end == std::string::npos ? end : end + until.size() - head.size()));
  }
  return out;
}

// The plan and the route report of the same passage: the PDF a PDF reader
// sees (pdftotext of poppler-utils) holds every leg's course to steer, range
// and arrival exactly as the report prints them, and the plan's streams of
// each leg start at the leg's own start (a stream sample of the leg before
// would carry the earlier clock).
TEST(CliPlan, PdfAndTextHoldEveryLegAsTheRouteReportGivesIt) {
  const std::string args = Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --depart '2025-06-10 08:00'";
  const CliRun route = Cli("route " + args);
  ASSERT_EQ(route.status, 0) << route.out;
  const std::vector<std::string> courses = Fields(route.out, "Steer ", "°M");
  const std::vector<std::string> ranges = Fields(route.out, "Range and bearing between waypoints : ", "nm");
  std::vector<std::string> starts, etas;
  for (const std::string& leg : Fields(route.out, "Starting at ", "")) {
    starts.push_back(leg.substr(0, leg.find(' ')));
    etas.push_back(leg.substr(leg.find(" arriving at ") + 13));
  }
  ASSERT_EQ(courses.size(), 3u);
  ASSERT_EQ(ranges.size(), 3u);
  ASSERT_EQ(etas.size(), 3u);

  const CliRun text = Cli("plan " + args);
  ASSERT_EQ(text.status, 0) << text.out;
  const std::vector<std::string> streams = Fields(text.out, "  Streams: start ", "");
  ASSERT_EQ(streams.size(), 3u) << text.out;
  for (std::size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE("leg " + std::to_string(i + 1));
    EXPECT_EQ(streams[i].substr(0, 5), starts[i]);
    EXPECT_NE(text.out.find("  Steer " + courses[i] + "  " + ranges[i] + "  "), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("  ETA " + etas[i] + "  SOG "), std::string::npos) << text.out;
  }

  kelvane::test::TempDir dir;
  const CliRun pdf = Cli("plan " + args + " --pdf " + dir.Quoted("plan.pdf"));
  if (pdf.out.find("PDF output needs the toolkit build of kelvane-cli") != std::string::npos)
    GTEST_SKIP() << "a build without the toolkit writes no PDF";
  ASSERT_EQ(pdf.status, 0) << pdf.out;
  if (std::system("command -v pdftotext >/dev/null 2>&1") != 0)
    GTEST_SKIP() << "pdftotext (Debian poppler-utils) is not installed: tools/setup-debian.sh installs it";
  const std::string pages = kelvane::testing::RunCommand("pdftotext -layout " + dir.Quoted("plan.pdf") + " -");
  EXPECT_NE(pages.find("RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE"), std::string::npos) << pages;
  for (std::size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE("leg " + std::to_string(i + 1));
    EXPECT_NE(pages.find(" " + courses[i] + " "), std::string::npos) << pages;
    EXPECT_NE(pages.find(" " + ranges[i] + " "), std::string::npos) << pages;
    EXPECT_NE(pages.find(" " + etas[i] + " "), std::string::npos) << pages;
  }
}

}  // namespace
