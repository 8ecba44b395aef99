// The chart catalogue, the ladder of detail and the sample charts shipped in
// data/Charts.
#include <gtest/gtest.h>

#include <fstream>

#include "chart/catalogue.h"
#include "chart/georef.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

const std::filesystem::path kSampleRoot = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";

ChartRecord Box(std::string number, std::int16_t rank, float south, float north, float west, float east) {
  ChartRecord c;
  c.chartNumber = number;
  c.rank = rank;
  c.LowerLat = south;
  c.UpperLat = north;
  c.LeftLon = west;
  c.rightLon = east;
  c.UpperPixels = 0;
  c.LowerPixels = 1000;
  c.LeftPixels = 0;
  c.RightPixels = 1000;
  ComputeChartFields(c);
  return c;
}

// Overview rank 10, two rank-20 charts overlapping at 50.7N 1.5W, one of
// rank 30 inside them, one off the ladder (rank 0) and one of rank -1.
std::vector<ChartRecord> Ladder() {
  return {Box("A10", 10, 50, 51, -3, 0), Box("B20", 20, 50.5, 50.9, -2, -1), Box("C20", 20, 50.6, 50.8, -1.8, -1.2),
          Box("D30", 30, 50.65, 50.75, -1.6, -1.4), Box("E0", 0, 50, 51, -3, 0), Box("F-1", -1, 50, 51, -3, 0)};
}

TEST(Ladder, ZoomPreviousNext) {
  auto cat = Ladder();
  struct Case {
    float lat, lon;
    std::int16_t current;
    const char* zoom;
    const char* previous;
    const char* next;
  } cases[] = {
      // Inside everything: the finest is D30; previous of 30 is the first
      // rank 20 in catalogue order; next of 20 is D30.
      {50.7f, -1.5f, 20, "D30", "A10", "D30"},
      {50.7f, -1.5f, 30, "D30", "B20", ""},  // no finer chart: nothing
      {50.7f, -1.5f, 10, "D30", "", "B20"},  // no coarser chart with rank above 0
      {50.7f, -1.5f, 0, "D30", "", "A10"},   // NextScale from rank 0 passes E0 (rank 0 is not above 0)
      {50.55f, -1.9f, 20, "B20", "A10", ""},
      {50.2f, -2.5f, 10, "A10", "", ""},     // only the overview and the off-ladder charts
      {51.5f, -1.5f, 10, "", "", ""},        // on no chart at all
      {50.5f, -1.5f, 10, "A10", "", ""},     // on B20's southern edge: outside it
      {50.7f, -1.6f, 10, "B20", "", "B20"},  // on D30's western edge: outside it; tie of 20s, B20 first
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.lat) + " " + std::to_string(c.lon) + " rank " + std::to_string(c.current));
    auto name = [&](std::optional<std::size_t> i) { return i ? cat[*i].chartNumber : std::string(); };
    EXPECT_EQ(name(ZoomToChart(cat, c.lat, c.lon)), c.zoom);
    EXPECT_EQ(name(PreviousScaleChart(cat, c.lat, c.lon, c.current)), c.previous);
    EXPECT_EQ(name(NextScaleChart(cat, c.lat, c.lon, c.current)), c.next);
  }
}

TEST(Ladder, AutomaticSwitching) {
  struct Case { bool on; double zoom; std::int16_t rank; AutoSwitch action; double zoomAfter; } cases[] = {
      {true, 1.6, 10, AutoSwitch::Next, 1.0},      {true, 1.5, 10, AutoSwitch::None, 0},
      {true, 1.6, 100, AutoSwitch::None, 0},       {true, 0.17, 11, AutoSwitch::Previous, 0.6},
      {true, 0.17, 10, AutoSwitch::None, 0},       {true, 0.18, 20, AutoSwitch::None, 0},
      {false, 2.0, 10, AutoSwitch::None, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.zoom);
    AutoSwitchStep s = AutomaticSwitch(c.on, c.zoom, c.rank);
    EXPECT_EQ(s.action, c.action);
    if (c.action != AutoSwitch::None) {
      EXPECT_EQ(s.newZoom, c.zoomAfter);
    }
  }
}

TEST(Catalogue, ComputedFieldsAndSelection) {
  ChartRecord c = Box("X", 1, 50, 51, -2, -1);
  c.LeftPixels = 100;
  c.RightPixels = 1100;
  ASSERT_TRUE(ComputeChartFields(c));
  EXPECT_DOUBLE_EQ(c.LonPerPixel, 0.001);
  EXPECT_EQ(c.PixelSpan, 1000.0f);
  EXPECT_NEAR(c.MeridionalSpan, 1.0381234712801197 - 1.010683188683021, 2e-7);
  ChartScales s = ScalesOf(c);
  EXPECT_DOUBLE_EQ(s.DegreesLatPerPixel, 0.001);

  std::vector<ChartRecord> cat{Box("9999-1", 10, 50, 51, -3, 0), Box("9999-2", 20, 50, 51, -3, 0)};
  EXPECT_EQ(SelectCurrentChart(cat, "/home/u/.local/share/kelvane/Charts/9999-2  "), 1u);
  EXPECT_EQ(SelectCurrentChart(cat, "C:\\Kelvane\\Charts\\9999-1"), 0u);
  EXPECT_FALSE(SelectCurrentChart(cat, "/x/Charts/9999-3").has_value());
  EXPECT_FALSE(SelectCurrentChart(cat, "/x/Charts/9999").has_value());  // exact comparison
}

TEST(Catalogue, EqualPixelColumnsStopTheRead) {
  TestFolder dir;
  AreaDatabase db = AreaDatabase::Create(dir.path() / "Charts" / "Bad.l35");
  ASSERT_TRUE(db.ok()) << db.message();
  ASSERT_EQ(db.Execute("INSERT INTO charts (iD, chartName, chartNumber, chartScale, rank, UpperLat, UpperPixels, "
                       "LowerLat, LowerPixels, LeftLon, LeftPixels, rightLon, RightPixels) VALUES "
                       "(1,'Good','G1',50000,10,51,0,50,1000,-2,0,-1,1000),"
                       "(2,'Bad','B1',50000,10,51,0,50,1000,-2,500,-1,500),"
                       "(3,'After','G2',50000,10,51,0,50,1000,-2,0,-1,1000)"),
            "");
  ChartCatalogue cat = ReadChartsTable(db);
  ASSERT_EQ(cat.charts.size(), 1u);
  EXPECT_EQ(cat.charts[0].chartNumber, "G1");
  EXPECT_EQ(cat.message, "Chart B1 can't be used: its left and right calibration lines lie on the same pixel column");
}

TEST(Catalogue, EmptyTableAndMissingDatabase) {
  TestFolder dir;
  AreaDatabase db = AreaDatabase::Create(dir.path() / "Charts" / "Empty.l35");
  ASSERT_TRUE(db.ok());
  ChartCatalogue cat = ReadChartsTable(dir.path(), "Empty");
  EXPECT_TRUE(cat.charts.empty());
  EXPECT_EQ(cat.message, "");
  cat = ReadChartsTable(dir.path(), "Nowhere");
  EXPECT_TRUE(cat.charts.empty());
  EXPECT_NE(cat.message.find("could not be opened"), std::string::npos) << cat.message;
}

TEST(Catalogue, NumbersReadThroughSinglePrecision) {
  TestFolder dir;
  AreaDatabase db = AreaDatabase::Create(dir.path() / "Charts" / "Area.l35");
  ASSERT_EQ(db.Execute("INSERT INTO charts VALUES (7,'Name','N-1',12500.4,3.6,'TS',2026.25,50.58233,10.25,50.1,"
                       "990,-1.930833,5,-1.1,1005)"),
            "");
  ChartCatalogue cat = ReadChartsTable(db);
  ASSERT_EQ(cat.charts.size(), 1u);
  const ChartRecord& c = cat.charts[0];
  EXPECT_EQ(c.iD, 7);
  EXPECT_EQ(c.rank, 4);  // 3.6 rounds to 4
  EXPECT_EQ(c.chartScale, "12500.4");
  EXPECT_EQ(c.UpperLat, 50.58233f);
  EXPECT_EQ(c.LeftLon, -1.930833f);
  EXPECT_EQ(c.issueDate, 2026.25f);
  EXPECT_EQ(c.issueDate2, 2026.25f);
  EXPECT_EQ(c.issueDate3, 2026.25f);
  EXPECT_DOUBLE_EQ(ChartScaleValue("12,500"), 12500.0);
}

TEST(Catalogue, GenerateCsvWritesTheHeaderOnce) {
  TestFolder dir;
  ChartRecord c = Box("9999-1", 10, 50.5f, 51, -2.5f, 1.5f);
  c.iD = 1;
  c.chartName = "Sample Chart";
  c.chartScale = "465000";
  c.TSArea = "Sample Chart";
  c.issueDate = 2026;
  ASSERT_EQ(AppendChartCsv(dir.path(), "Sample Chart", c), "");
  ASSERT_EQ(AppendChartCsv(dir.path(), "Sample Chart", c), "");
  std::ifstream in(dir.path() / "Sample Chart.csv", std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(in)), {});
  const std::string line = "1,Sample Chart,9999-1,465000,Sample Chart,2026,51,0,50.5,1000,-2.5,0,1.5,1000\r\n";
  EXPECT_EQ(text, std::string(kChartCsvHeader) + "\r\n" + line + line);
}

// ---- the sample charts -------------------------------------------------------

TEST(SampleCharts, AreasAndLadder) {
  auto areas = ListAreas(kSampleRoot);
  EXPECT_EQ(areas, (std::vector<std::string>{"Nantucket Sound", "Sample Chart"}));
  ChartCatalogue cat = ReadChartsTable(kSampleRoot, "Sample Chart");
  ASSERT_EQ(cat.message, "");
  ASSERT_GE(cat.charts.size(), 5u);
  auto factory = SelectCurrentChart(cat.charts, (kSampleRoot / "Charts" / "9999-1").string());
  ASSERT_TRUE(factory);
  EXPECT_EQ(cat.charts[*factory].chartName, "Sample Chart");
  EXPECT_TRUE(SelectCurrentChart(cat.charts, "/x/Charts/K11-0"));
  // Anvil Point, the first mark of the sample waypoints: on the overview,
  // and the ladder goes one step finer there.
  float lat = 50.58233f, lon = -1.930833f;
  ASSERT_TRUE(ChartContains(cat.charts[*factory], lat, lon));
  auto next = NextScaleChart(cat.charts, lat, lon, cat.charts[*factory].rank);
  ASSERT_TRUE(next);
  EXPECT_EQ(cat.charts[*next].chartNumber, "9999-3");
  auto back = PreviousScaleChart(cat.charts, lat, lon, cat.charts[*next].rank);
  ASSERT_TRUE(back);
  EXPECT_EQ(cat.charts[*back].chartNumber, "9999-1");
}

TEST(SampleCharts, RoundTripWithinOnePixel) {
  for (const std::string area : {"Sample Chart", "Nantucket Sound"}) {
    ChartCatalogue cat = ReadChartsTable(kSampleRoot, area);
    ASSERT_EQ(cat.message, "");
    ASSERT_FALSE(cat.charts.empty());
    for (const ChartRecord& c : cat.charts) {
      SCOPED_TRACE(c.chartNumber);
      ASSERT_TRUE(std::filesystem::exists(kSampleRoot / "Charts" / (c.chartNumber + ".l55")));
      ASSERT_TRUE(std::filesystem::exists(kSampleRoot / "Charts" / (c.chartNumber + ".tif")));
      ChartGeometry g = GeometryOf(c);
      EXPECT_NEAR(LatToPixel(g, c.UpperLat), c.UpperPixels, 1.0);
      EXPECT_NEAR(LatToPixel(g, c.LowerLat), c.LowerPixels, 1.0);
      EXPECT_NEAR(LonToPixel(g, c.LeftLon), c.LeftPixels, 1.0);
      EXPECT_NEAR(LonToPixel(g, c.rightLon), c.RightPixels, 1.0);
      for (std::int32_t row = 0; row < 2000; row += 97) {
        for (std::int32_t col = 0; col < 3000; col += 131) {
          float lat = PixelToLat(g, row), lon = PixelToLon(g, col);
          ASSERT_NEAR(LatToPixel(g, lat), row, 1) << col;
          ASSERT_NEAR(LonToPixel(g, lon), col, 1) << row;
        }
      }
    }
  }
}

// A `charts` "table" that is a recursive view never ends on its own: the
// query is cut short by its row or work limit and says so, whether the view
// pours out rows or grinds without yielding one.
TEST(BadInput, EndlessChartsViewIsCutShortWithAMessage) {
  TestFolder dir;
  const std::string columns =
      "SELECT i AS iD, 'Endless' AS chartName, 'E-' || i AS chartNumber, 50000 AS chartScale, 10 AS rank, "
      "'Solent' AS TSArea, 2020 AS issueDate, 51 AS UpperLat, 0 AS UpperPixels, 50 AS LowerLat, 100 AS LowerPixels, "
      "-2 AS LeftLon, 0 AS LeftPixels, -1 AS rightLon, 100 AS RightPixels FROM n";
  struct Case { const char* name; std::string where; } cases[] = {
      {"rows for ever", ""},
      {"no row ever", " WHERE i < 0"},
      {"sorted for ever", " ORDER BY i DESC"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::filesystem::path file = dir.path() / (std::string(c.name) + ".l35");
    {
      AreaDatabase db = AreaDatabase::Create(file);
      ASSERT_EQ(db.Execute("DROP TABLE charts; CREATE VIEW charts AS WITH RECURSIVE n(i) AS "
                           "(SELECT 1 UNION ALL SELECT i + 1 FROM n) " + columns + c.where),
                "");
    }
    AreaDatabase db = AreaDatabase::Open(file);
    ASSERT_TRUE(db.ok()) << db.message();
    ChartCatalogue catalogue = ReadChartsTable(db);
    EXPECT_TRUE(catalogue.charts.empty());
    EXPECT_EQ(catalogue.message, "The database " + file.string() +
                                     " did not finish the query: it yields more than 250000 rows or more work "
                                     "than any table of charts, diamonds or wrecks needs");
    // The connection is left fit for the next question.
    EXPECT_EQ(db.Query("SELECT count(*) FROM sqlite_master").rows.size(), 1u);
  }
}

}  // namespace
}  // namespace kelvane
