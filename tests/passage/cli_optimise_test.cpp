// kelvane-cli optimise on the installed sample data.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/commands.h"

namespace {

using CliRun = kelvane::test::CliResult;
using kelvane::testing::SplitLines;

CliRun Cli(const std::string& args) {
  return kelvane::test::RunCli("--data-root '" + std::string(KELVANE_SOURCE_DIR) + "/data' " + args);
}

std::string Gpx(const char* name) { return std::string("'") + KELVANE_TEST_DATA + "/passage/" + name + "'"; }

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> out(1);
  for (char c : line) {
    if (c == '\t')
      out.emplace_back();
    else
      out.back() += c;
  }
  return out;
}

// The rows of a sweep's report: the lines after the header up to the blank.
std::vector<std::vector<std::string>> Rows(const std::string& report) {
  std::vector<std::vector<std::string>> rows;
  bool in = false;
  for (const std::string& line : SplitLines(report)) {
    if (line == "Depart\tArrive\tTime Taken\tEffective Speed\tGround Distance\tWater Distance") {
      in = true;
    } else if (in && line.empty()) {
      break;
    } else if (in) {
      rows.push_back(Fields(line));
    }
  }
  return rows;
}

std::string LastLineStarting(const std::string& text, const std::string& head) {
  std::string found;
  for (const std::string& line : SplitLines(text))
    if (line.rfind(head, 0) == 0) found = line;
  return found;
}

// Every row of the evening slot (whose last hours run past midnight into
// the next day's tides) is the passage the route command gives when it
// departs at that hour: the same span and the same arrival.
TEST(CliOptimise, EachRowIsTheRouteDepartingAtItsHour) {
  const CliRun sweep = Cli("optimise " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --date 2025-06-10 --slot 4");
  ASSERT_EQ(sweep.status, 0) << sweep.out;
  const auto rows = Rows(sweep.out);
  ASSERT_EQ(rows.size(), 6u);
  for (int hour = 18; hour <= 23; ++hour) {
    SCOPED_TRACE(hour);
    const auto& row = rows[static_cast<std::size_t>(hour - 18)];
    ASSERT_EQ(row.size(), 6u);
    EXPECT_EQ(row[0], std::to_string(hour) + ":00");
    const CliRun route = Cli("route " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --depart '2025-06-10 " +
                             std::to_string(hour) + ":00'");
    ASSERT_EQ(route.status, 0) << route.out;
    EXPECT_EQ(LastLineStarting(route.out, "Depart "), "Depart " + std::to_string(hour) + ":00, Passage time = " + row[2]);
    const std::string arriving = LastLineStarting(route.out, "Starting at ");
    EXPECT_EQ(arriving.substr(arriving.find(" arriving at ") + 13), row[1]);
    if (hour == 23) {
      EXPECT_NE(route.out.find(" (11 Jun)\n"), std::string::npos);  // on into the next day
    }
  }
}

TEST(CliOptimise, SlotsAndTheReport) {
  const struct {
    int slot;
    std::size_t rows;
    const char* first;  // the first departure: the third slot starts an hour before its caption
  } cases[] = {{1, 8, "00:00"}, {2, 8, "06:00"}, {3, 8, "12:00"}, {4, 6, "18:00"}, {5, 24, "00:00"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.slot);
    const CliRun r = Cli("optimise " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --date 2025-06-10 --slot " +
                         std::to_string(c.slot));
    ASSERT_EQ(r.status, 0) << r.out;
    const auto rows = Rows(r.out);
    ASSERT_EQ(rows.size(), c.rows);
    EXPECT_EQ(rows[0][0], c.first);
    EXPECT_EQ(r.out.rfind("RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE\n   \n"
                          "Optimum Departure for 10 Jun 2025\n \n", 0), 0u);
  }

  // With no stream in reach every leg is its range at 5 knots: the plain
  // sailing ranges 5.51 + 5.24 + 2.84 = 13.59 miles (computed apart, with
  // 60 miles a degree of latitude and the cosine of the mean latitude),
  // 2.72 hours, 5.0 knots made good; the water column is that time at the
  // last leg's 5 knots.
  const CliRun still = Cli("optimise " + Gpx("vineyard.gpx") + " --area 'Sample Chart' --date 2025-06-10 --slot 4");
  ASSERT_EQ(still.status, 0) << still.out;
  for (const auto& row : Rows(still.out)) {
    EXPECT_EQ(row[2], "02Hrs 43Min ");
    EXPECT_EQ(row[3], "5.0kt.");
    EXPECT_EQ(row[5], "13.59nm.");
  }
  const std::string tail = still.out.substr(still.out.find("\n\n=========================================\n"));
  EXPECT_EQ(tail.rfind("\n\n=========================================\n\nRoute Details - Distance = 13.6nm.\n\n"
                       "From :Gay Head\nTo :Tarpaulin Cove\nSpeed : 5 Kn. Range = 5.5 Bearing = 029°T\n", 0),
            0u);
  EXPECT_NE(tail.find("=========================================\n"
                      "Reference Port predictions for the areas Tidal Diamonds \n"),
            std::string::npos);
}

TEST(CliOptimise, BadInput) {
  const std::string vineyard = "optimise " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --date 2025-06-10 ";
  const struct {
    std::string args;
    int status;
    const char* said;  // in the output
  } cases[] = {
      {vineyard + "--slot 4 --speed 0", 1, "Boat speed below 0.5kn between waypoints 1 and 2\r\nCannot continue - please correct."},
      {vineyard + "--slot 4 --speed 0.5", 1, "Boat speed below 0.5kn between waypoints 1 and 2\r\nCannot continue - please correct."},
      {vineyard + "--slot 4 --speed 0.51", 0, "Boat speed very low between waypoints 1 and 2\r\nDo you wish to continue?\r\n(This may cause problems)\n-> Yes"},
      {"optimise " + Gpx("one_point.gpx") + " --area 'Nantucket Sound' --date 2025-06-10 --slot 4", 1,
       "A route needs at least two waypoints to calculate"},
      {"optimise " + Gpx("vineyard.gpx") + " --area 'No Such Area' --date 2025-06-10 --slot 4", 1, "No Such Area.l35"},
      {vineyard + "--slot 6", 105, "--slot: Value 6 not in range 1 to 5"},
      {"optimise " + Gpx("vineyard.gpx") + " --area 'Nantucket Sound' --date 2025-02-30 --slot 1", 2,
       "Give the date as \"YYYY-MM-DD\""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    const CliRun r = Cli(c.args);
    EXPECT_EQ(r.status, c.status) << r.out;
    EXPECT_NE(r.out.find(c.said), std::string::npos) << r.out;
  }
}

}  // namespace
