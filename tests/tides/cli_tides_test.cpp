// kelvane-cli tides, tides-ports, sun and moon on the installed data.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "support/commands.h"

namespace {

struct CliRun {
  int status = 0;
  std::vector<std::string> lines;
};

CliRun RunCli(const std::string& args) {
  const kelvane::test::CliResult r = kelvane::test::RunCli(args);
  return {r.status, kelvane::testing::SplitLines(r.out)};
}

const std::string kArea = std::string(KELVANE_SOURCE_DIR) + "/data/TS/UK.hc";

TEST(CliTides, CsvOfADayAtDover) {
  // Same day as the hand calculation of tests/data/tides: LW 06:30 1.00,
  // HW 11:20 6.41, LW 18:40 1.08, HW 23:30 6.59 (heights to two decimals).
  const CliRun run = RunCli("tides --area " + kArea + " --port Dover --date 2025-03-14 --csv");
  EXPECT_EQ(run.status, 0);
  const std::vector<std::string> expected = {
      "date,time,height_m,type",     "2025-03-14,06:30,1.00,LW", "2025-03-14,11:20,6.41,HW",
      "2025-03-14,18:40,1.08,LW",    "2025-03-14,23:30,6.59,HW",
  };
  EXPECT_EQ(run.lines, expected);
}

TEST(CliTides, DayTableWithSummerTimeByRecordNumber) {
  const CliRun run = RunCli("tides --area " + kArea + " --port-no 76 --date 2025-03-14 --summer");
  EXPECT_EQ(run.status, 0);
  const std::vector<std::string> expected = {
      "Heights in Metres, all data are derived and should therefore be considered as approximate",
      " Times shown are with Summer Time correction",
      "Date : 2025-03-14 Friday",
      "Port : Dover",
      "   Time    Ht.",
      "   07:30   1.0",
      "   12:20   6.4",
      "   19:40   1.1",
      // The summer day runs from 23:00 to 23:00 port time: the high water
      // of 23:30 is tomorrow's, and the range is 6.41 - 1.00.
      "   (Range 5.4)",
  };
  EXPECT_EQ(run.lines, expected);
}

TEST(CliTides, ErrorsAreReportedAndFail) {
  struct Case {
    std::string args, message;
  };
  const Case cases[] = {
      {"tides --area " + kArea + " --port Atlantis --date 2025-03-14", "Port Atlantis not found in " + kArea},
      {"tides --area " + kArea + " --port-no 500 --date 2025-03-14", "Port number 500 not found in " + kArea},
      {"tides --area " + kArea + " --port Dover --date 2025-02-30", "Bad date 2025-02-30 (YYYY-MM-DD)"},
      {"tides --area /nonexistent/X.hc --port Dover --date 2025-03-14", "Cannot open area file /nonexistent/X.hc"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.args);
    const CliRun run = RunCli(c.args);
    EXPECT_NE(run.status, 0);
    ASSERT_FALSE(run.lines.empty());
    EXPECT_EQ(run.lines.back(), c.message);
  }
}

TEST(CliTides, PortsListing) {
  const CliRun run = RunCli("tides-ports --area " + kArea);
  EXPECT_EQ(run.status, 0);
  ASSERT_GE(run.lines.size(), 76u);
  EXPECT_EQ(run.lines[75].rfind("76\t0089\tDover\t51.", 0), 0u) << run.lines[75];
}

TEST(CliSunMoon, OneLinePerDayAndPhase) {
  const CliRun sun = RunCli("sun --lat 50.48.00N --lon 001.06.00W --date 2025-06-21");
  EXPECT_EQ(sun.status, 0);
  ASSERT_EQ(sun.lines.size(), 1u);
  EXPECT_EQ(sun.lines[0].substr(0, 17), "2025-06-21 None 0");
  EXPECT_EQ(sun.lines[0].substr(sun.lines[0].size() - 5), " None");
  const CliRun month = RunCli("sun --lat 50.8 --lon -1.1 --month 2024-02");
  EXPECT_EQ(month.lines.size(), 29u);
  const CliRun moon = RunCli("moon --year 2025 --month 3");
  ASSERT_EQ(moon.lines.size(), 3u);
  EXPECT_EQ(moon.lines[1].substr(0, 6), "14 Mar");
  EXPECT_NE(moon.lines[1].find("FULL MOON    "), std::string::npos);
}

}  // namespace
