// The polar viewer's and editor's decisions without the toolkit: the
// editor's checks of what a user types, the curves of the sample table and
// the pointer's position, against values worked by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "store/polars.h"
#include "wind/polarplot.h"

namespace kelvane {
namespace {

// Rows 30, 35, 40 degrees; every speed 5.
PolarTable ThreeRows() {
  PolarTable t;
  for (const char* angle : {"30", "35", "40"}) {
    PolarRow row;
    row.windangle = angle;
    for (auto& speed : row.speeds) speed = "5";
    t.rows.push_back(row);
  }
  return t;
}

TEST(PolarEditChecks, TypedEntriesGiveTheUsersMessage) {
  const PolarTable table = ThreeRows();
  // What each button is given, and what the user is told ("" accepted).
  enum Check { Column, Change1, ChangeData2 };
  struct Case {
    Check check;
    std::vector<std::string> typed;  // the grid; or boat, wind; or angle, boat
    int option;                      // optWindPlot set, for ChangeData2
    const char* message;
  } cases[] = {
      {Column, {"5.2", " 6 ", "7.25"}, 0, ""},
      {Column, {"5.2", "", "0"}, 0, "Empty Data field"},  // the first fault in row order is told
      {Column, {"5.2", "  ", "7"}, 0, "Empty Data field"},
      {Column, {"5.2", "0.0", ""}, 0, "Invalid Data (Zero Entry)"},
      {Column, {"abc"}, 0, "Invalid Data (Zero Entry)"},  // no number reads as 0
      {Change1, {"6.5", "12"}, 0, ""},
      {Change1, {"6.5", "30.0"}, 0, ""},
      {Change1, {"", "12"}, 0, "Invalid entry for boat speed"},
      {Change1, {"0", "x"}, 0, "Invalid entry for boat speed"},  // the boat speed is looked at first
      {Change1, {"-1", "12"}, 0, "Invalid entry for boat speed"},
      {Change1, {"6.5", "13"}, 0, "Wind speed must be a multiple of 2"},
      {Change1, {"6.5", "0"}, 0, "Wind speed must be a multiple of 2"},
      {Change1, {"6.5", "32"}, 0, "Wind speed must be a multiple of 2"},
      {Change1, {"6.5", "12.5"}, 0, "Wind speed must be a multiple of 2"},
      {Change1, {"6.5", ""}, 0, "Wind speed must be a multiple of 2"},
      {ChangeData2, {"35", "6.5"}, 6, ""},
      {ChangeData2, {"35.08", "6.5"}, 6, ""},  // within 0.1 of the row
      {ChangeData2, {"35", "6.5"}, 0, "No wind speed selected"},
      {ChangeData2, {"", ""}, 6, "Check Wind Angle Entry"},
      {ChangeData2, {"37", "x"}, 6, "Wind angle must be an exact multiple of 5 - Entry not accepted"},
      {ChangeData2, {"35.2", "6.5"}, 6, "Wind angle must be an exact multiple of 5 - Entry not accepted"},
      {ChangeData2, {"45", "6.5"}, 6, "Check Wind Angle"},
      {ChangeData2, {"abc", "6.5"}, 6, "Check Wind Angle"},  // reads as 0, a multiple of 5 with no row
      {ChangeData2, {"40", ""}, 6, "Check Boat Speed Entry)"},
      {ChangeData2, {"40", "6.5kn"}, 6, "Check Boat Speed Entry)"},
      {ChangeData2, {"40", "0"}, 6, "Boat Speed of 0kn Detected ! - Entry must be greater than 0kn"},
  };
  for (const Case& c : cases) {
    std::string message;
    switch (c.check) {
      case Column:
        message = CheckEditColumn(c.typed).message;
        break;
      case Change1:
        message = CheckChange1(c.typed[0], c.typed[1]).message;
        break;
      case ChangeData2:
        message = CheckChangeData2(table, c.option, c.typed[0], c.typed[1]).message;
        break;
    }
    EXPECT_EQ(message, c.message) << c.check << " " << ::testing::PrintToString(c.typed) << " option " << c.option;
  }

  // What the accepted entries write.
  const EditColumnCheck column = CheckEditColumn({"5.2", " 6 ", "7.25"});
  EXPECT_EQ(column.speeds, (std::vector<double>{5.2, 6, 7.25}));
  const ColumnFill fill = CheckChange1("6.5", "30.0");
  EXPECT_EQ(fill.column, 15u);  // Wind30kn
  EXPECT_EQ(fill.speed, 6.5);
  const CellChange cell = CheckChangeData2(table, 6, "35.08", "6.5");
  EXPECT_EQ(cell.row, 1u);      // the 35 degree row
  EXPECT_EQ(cell.column, 6u);   // Wind12kn
  EXPECT_EQ(cell.speed, 6.5);

  // cmdAdjust: -1.5 on 4, 2.5, 1, 3: the third row would go below 0, so the
  // rows above keep their new values and it and those below their old ones.
  const GridAdjust down = AdjustEditColumn({"4", "2.5", "1", "3"}, "-1.5");
  EXPECT_EQ(down.message, "This produces a negative value - Please study your entries");
  EXPECT_EQ(down.texts, (std::vector<std::string>{"2.5", "1", "1", "3"}));
  const GridAdjust up = AdjustEditColumn({"6.1", "0"}, "+0.3");
  EXPECT_EQ(up.message, "");
  EXPECT_EQ(up.texts, (std::vector<std::string>{"6.4", "0.3"}));
}

TEST(PolarPlot, SampleCurvesAndThePointer) {
  PolarDatabase polars = OpenPolarDatabase(PolarDatabasePath(std::filesystem::path(KELVANE_SOURCE_DIR) / "data"));
  ASSERT_EQ(polars.message, "");
  const PolarTable table = ReadPolarTable(polars.db, "Synthetic sample sloop (not a real boat)");
  ASSERT_EQ(table.message, "");
  // The sample's speed is 1.34 x sqrt(30) x 1.08 x (1 - e^(-W/9)) x the
  // angle's share, largest (share 1) at 105 degrees, to 0.1 kn:
  //   2 kn:  7.926642 x 0.199263 = 1.58 -> 1.6
  //   12 kn: 7.926642 x 0.736403 = 5.84 -> 5.8
  //   30 kn: 7.926642 x 0.964326 = 7.64 -> 7.6
  struct Largest { std::size_t column; float speed; } largest[] = {{1, 1.6f}, {6, 5.8f}, {15, 7.6f}};
  for (const Largest& l : largest) {
    PolarCurve curve;
    EXPECT_FLOAT_EQ(LoadCurve(table, l.column, curve), l.speed) << l.column;
    ASSERT_EQ(curve.size(), 31u);
    EXPECT_EQ(curve.front().angle, 30.0f);
    EXPECT_EQ(curve.back().angle, 180.0f);
    EXPECT_FLOAT_EQ(curve[15].speed, l.speed) << "105 degrees is row 16";
  }
  WindCurve across;
  EXPECT_FLOAT_EQ(LoadWindCurve(table, 15, across), 7.6f);
  ASSERT_EQ(across.size(), 15u);
  EXPECT_EQ(across.front().wind, 2.0f);
  EXPECT_EQ(across.back().wind, 30.0f);

  // Offsets right and up from the centre, in knots: a 3-4-5 triangle has
  // its angle at atan(3 / 4) = 36.87 degrees off the wind.
  struct Pointer { float x, y, radius, angle; } pointers[] = {
      {3, 4, 5, 36.8699f}, {0, 5, 5, 0}, {5, 0, 5, 90}, {0, -2, 2, 180}, {-1, -1, 1.4142136f, -135}};
  for (const Pointer& p : pointers) {
    const PolarPosition at = ScreenToPolar(p.x, p.y);
    EXPECT_NEAR(at.radius, p.radius, 1e-5f) << p.x << "," << p.y;
    EXPECT_NEAR(at.angle, p.angle, 1e-4f) << p.x << "," << p.y;
  }
  EXPECT_EQ(PolarCursorText(ScreenToPolar(-1, -1)), "Cursor Position - Angle Axis 135°  Boat Axis = 1.4 Bearing = 225");
}

}  // namespace
}  // namespace kelvane
