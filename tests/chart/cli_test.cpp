// kelvane-cli charts, chart and db: one output line per input line, the
// sample area database and the real Jet files.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "store/areadatabase.h"
#include "support/commands.h"
#include "support/shared_testdata.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

const std::string kData = std::string(KELVANE_SOURCE_DIR) + "/data";

std::string Jet(const char* name) { return test::SharedTestFile(std::string("jet/") + name).string(); }

std::vector<std::string> RunCli(const std::string& args, const std::string& input = "") {
  const std::string feed = input.empty() ? "" : "printf '" + input + "' | ";
  return testing::SplitLines(testing::RunCommand(feed + KELVANE_CLI + " " + args + " 2>&1"));
}

TEST(Cli, DbTablesAndQueryOnJet) {
  SKIP_WITHOUT_SHARED_FILE("jet/nwind.mdb");
  SKIP_WITHOUT_SHARED_FILE("jet/DateTestDatabase.mdb");
  auto tables = RunCli("db tables '" + Jet("nwind.mdb") + "'");
  EXPECT_NE(std::find(tables.begin(), tables.end(), "Umsätze"), tables.end());
  EXPECT_NE(std::find(tables.begin(), tables.end(), "Shippers"), tables.end());
  auto rows = RunCli("db query '" + Jet("nwind.mdb") + "' 'SELECT * FROM Shippers ORDER BY ShipperID'");
  EXPECT_EQ(rows, (std::vector<std::string>{"ShipperID,CompanyName,Phone", "1,Speedy Express,(503) 555-9831",
                                            "2,United Package,(503) 555-3199", "3,Federal Shipping,(503) 555-9931"}));
  auto dates = RunCli("db query '" + Jet("DateTestDatabase.mdb") + "' 'SELECT IDCol, DateTimeCol FROM DateTest WHERE IDCol < 3'");
  EXPECT_EQ(dates, (std::vector<std::string>{"IDCol,DateTimeCol", "1,2021-12-02 00:00:00", "2,9999-01-01 00:00:00"}));
}

TEST(Cli, DbImportMakesAnSQLiteFile) {
  SKIP_WITHOUT_SHARED_FILE("jet/nwind.mdb");
  TestFolder dir;
  std::string out = (dir.path() / "nwind.l35").string();
  auto lines = RunCli("db import '" + Jet("nwind.mdb") + "' '" + out + "'");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(RecogniseDatabase(out), DatabaseKind::SQLite);
  EXPECT_EQ(RunCli("db query '" + out + "' 'SELECT count(*) FROM Shippers'"),
            (std::vector<std::string>{"count(*)", "3"}));
}

TEST(Cli, ChartsListAndAt) {
  auto list = RunCli("--data-root '" + kData + "' charts list");
  ASSERT_GE(list.size(), 6u);
  EXPECT_EQ(list[0].rfind("9999-1\tSample Chart\t1:465000\trank 10\t51.2@", 0), 0u) << list[0];
  // Anvil Point: the outline sheet (rank 0), the overview, the finer chart.
  auto at = RunCli("--data-root '" + kData + "' charts at 50.58233 -1.930833");
  EXPECT_EQ(at, (std::vector<std::string>{"K11-0\tSample Outline\trank 0", "9999-1\tSample Chart\trank 10",
                                          "9999-3\tNeedles to Anvil Point\trank 20"}));
  auto none = RunCli("--data-root '" + kData + "' charts list --area Nowhere");
  ASSERT_EQ(none.size(), 1u);
  EXPECT_NE(none[0].find("could not be opened"), std::string::npos);
}

// `charts list` on an area whose charts "table" is a view without end used
// to hang; it comes back with the message and exit code 1.
TEST(Cli, ChartsListOnAnEndlessViewComesBack) {
  TestFolder dir;
  {
    AreaDatabase db = AreaDatabase::Create(dir.path() / "Charts" / "Endless.l35");
    ASSERT_EQ(db.Execute("DROP TABLE charts; CREATE VIEW charts AS WITH RECURSIVE n(i) AS "
                         "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i AS iD, 'E' || i AS chartNumber FROM n"),
              "");
  }
  auto lines = RunCli("--data-root '" + dir.path().string() + "' charts list --area Endless 2>&1; echo exit $?");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0].find("did not finish the query"), std::string::npos) << lines[0];
  EXPECT_EQ(lines[1], "exit 1");
}

TEST(Cli, PixelAndPositionLineForLine) {
  auto pixel = RunCli("--data-root '" + kData + "' chart pixel --chart 9999-1 51.2 -2.6 50.3 1.6");
  // The chart's own calibration lines: 51.2N at row 0.7, 2.6W at column 0,
  // 50.3N at row 1220, 1.6E at column 3600.
  EXPECT_EQ(pixel, (std::vector<std::string>{"0 1", "3600 1220"}));
  auto lines = RunCli("--data-root '" + kData + "' chart position --chart 9999-1", "0 1\\nnonsense\\n3600 1220\\n");
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[1], "error: two numbers expected");
  EXPECT_EQ(lines[2].substr(0, 20), "50.300000 1.600000 5");
}

}  // namespace
}  // namespace kelvane
