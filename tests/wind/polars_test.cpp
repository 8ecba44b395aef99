// The polar lookups against hand-worked values, each odd edge pinned with
// the reason it stays.
#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "wind/polars.h"

namespace kelvane {
namespace {

TEST(PolarLookups, NearestWindSpeedRoundsToTheEvenSpeeds) {
  struct Case { float w, lower, upper, fraction; const char* why; } cases[] = {
      // An exact even speed gives fraction 2, not 0: the wind interpolation
      // then lands on the column above, as skippers' tables were read.
      {0, 0, 2, 2, "calm reads the 2 kn column"},
      {2, 2, 4, 2, "exact even"},
      {36, 36, 38, 2, "exact even"},
      {38, 38, 40, 2, "the last exact even below 40"},
      {3, 2, 4, 1, "between"},
      {39.5f, 38, 40, 1.5f, "between, below 40"},
      // From 40 the band stops moving: exactly 40 has fraction 0 (not 2).
      {40, 40, 42, 0, "40 is in the 40-or-more band"},
      {41, 40, 42, 1, "above 40"},
  };
  for (const Case& c : cases) {
    WindSpeedBand b = NearestWindSpeed(c.w);
    EXPECT_EQ(b.lower, c.lower) << c.w << ": " << c.why;
    EXPECT_EQ(b.upper, c.upper) << c.w << ": " << c.why;
    EXPECT_FLOAT_EQ(b.fraction, c.fraction) << c.w << ": " << c.why;
  }
}

TEST(PolarLookups, RoundWindAngleAndRelativeWind) {
  // No row lies closer than 30 degrees to the wind, so 0 to 27.5 all read 30.
  struct Round { float angle; std::optional<int> row; } rounds[] = {
      {-1, std::nullopt}, {0, 30}, {27.5f, 30}, {27.6f, 30}, {32.5f, 30}, {32.6f, 35},
      {177.5f, 175},      {177.6f, 180}, {180.5f, 180}, {180.6f, std::nullopt}, {NAN, std::nullopt}};
  for (const Round& r : rounds) EXPECT_EQ(RoundWindAngle(r.angle), r.row) << r.angle;

  struct Relative { float course, wind, angle; WindSide side; } relatives[] = {
      {0, 45, 45, WindSide::Starboard},  {350, 10, 20, WindSide::Starboard}, {10, 350, 20, WindSide::Port},
      {180, 90, 90, WindSide::Port},     {370, 100, 90, WindSide::Starboard},
      {90, 270, 180, WindSide::None},    {0, 0, 0, WindSide::None}};
  for (const Relative& r : relatives) {
    RelativeWind w = RelativeWindAngle(r.course, r.wind);
    EXPECT_FLOAT_EQ(w.angle, r.angle) << r.course << " " << r.wind;
    EXPECT_EQ(w.side, r.side) << r.course << " " << r.wind;
  }
}

// A full table whose every cell names itself: "R<row>C<column index>".
PolarTable NamedCells(int rows) {
  PolarTable t;
  for (int r = 1; r <= rows; ++r) {
    PolarRow row;
    row.windangle = std::to_string(25 + 5 * r);
    for (int k = 0; k < 16; ++k) row.speeds[static_cast<std::size_t>(k)] = "R" + std::to_string(r) + "C" + std::to_string(k);
    t.rows.push_back(row);
  }
  return t;
}

TEST(PolarLookups, BoatSpeedFromWindEntryAndSpeedReadsOneCell) {
  const PolarTable full = NamedCells(31);
  PolarTable short3 = NamedCells(3);
  PolarTable noWind6 = NamedCells(3);
  for (PolarRow& row : noWind6.rows) row.speeds[3].reset();
  struct Case { const PolarTable* table; std::int16_t row; float w; const char* text; const char* why; } cases[] = {
      {&full, 1, 0, "R1C0", "calm reads Wind0kn"},
      {&full, 1, 1.99f, "R1C0", "below 2 still Wind0kn"},
      {&full, 2, 2, "R2C1", "each band reads the column at its lower bound"},
      {&full, 2, 29.9f, "R2C14", ""},
      {&full, 2, 30, "R2C15", "Wind30kn is the last column"},
      {&full, 2, 41, "R2C15", "38 to 40 kn and above read Wind30kn at most"},
      // The walk moves on from the first row only for a row above 1.
      {&full, 0, 4, "R1C2", "row 0 reads the first row"},
      {&full, -3, 4, "R1C2", "a negative row reads the first row"},
      // Row 30 (175 degrees) is the cap, so 180 degrees in row 31 is never read.
      {&full, 31, 4, "R30C2", "row 31 reads row 30"},
      {&full, 32767, 4, "R30C2", "any row above 30 reads row 30"},
      {&short3, 4, 4, "", "a row the table lacks: empty, failed"},
      {&noWind6, 2, 6, "", "a missing column: empty, failed"},
      {&noWind6, 2, 8, "R2C4", "the other columns still answer"},
      {&full, 2, -1, "", "a negative wind reads no column"},
  };
  for (const Case& c : cases) {
    PolarCell cell = BoatSpeedFromWindEntryAndSpeed(*c.table, c.row, c.w);
    EXPECT_EQ(cell.speedText, c.text) << c.row << " " << c.w << ": " << c.why;
    EXPECT_EQ(cell.PolarLookupFailed, std::string(c.text).empty()) << c.row << " " << c.w << ": " << c.why;
  }
}

TEST(PolarLookups, BoatSpeedInterpolatesAndPinches) {
  // angle: Wind0kn, wind8kn, wind10kn
  const char* rows[][4] = {{"30", "0.2", "3.0", "3.6"}, {"35", "0.4", "4.0", "4.8"}, {"40", "0.6", "5.0", "6.0"},
                           {"45", "0.8", "5.6", "6.5"}, {"50", "1.0", "6.0", "6.8"}, {"55", "1.2", "5.5", "6.4"}};
  PolarTable t;
  for (const auto& r : rows) {
    PolarRow row;
    row.windangle = r[0];
    row.speeds[0] = r[1];
    row.speeds[4] = r[2];
    row.speeds[5] = r[3];
    t.rows.push_back(row);
  }
  struct Case { float w, angle; const char* text; const char* why; } cases[] = {
      // W 9 reads wind8kn and (9 + 2) wind10kn. At 42: along the angle
      // 5.0 + 0.6 / 5 x 2 = 5.24 and 6.0 + 0.5 / 5 x 2 = 6.2; along the wind
      // (6.2 - 5.24) x 1 / 2 + 5.24 = 5.72.
      {9, 42, "5.7", "both interpolations"},
      // Exactly 8 kn: fraction 2 puts the answer on the upper column, 6.2.
      {8, 42, "6.2", "an exact even wind reads the column above"},
      // Falling speeds: 6.0 - 0.5 / 5 x 2 = 5.8, 6.8 - 0.4 / 5 x 2 = 6.64;
      // (6.64 - 5.8) / 2 + 5.8 = 6.22.
      {9, 52, "6.2", "speed falling with the angle"},
      // Pinching below the closest angle of 40: the mean of the 35 and 40
      // rows at wind8kn, 4.5, scaled by 36 / 30 = 5.4. The scale is 30, not
      // the closest angle, so the speed jumps where pinching begins.
      {8, 36, "5.4", "pinching scaled by angle / 30"},
      {8, 40, "6.0", "at the closest angle itself: not pinching, row 40 and column above"},
      // Calm, pinching: (0.2 + 0.4) / 2 x 31 / 30 = 0.31, held up to 0.5.
      {0, 31, "0.5", "pinching never below 0.5 kn"},
      // No row for 60: row number 0 reads the first row (30 degrees): along
      // the angle 5.5 - 2.5 / 5 x 2 = 4.5 and 6.4 - 2.8 / 5 x 2 = 5.28;
      // (5.28 - 4.5) / 2 + 4.5 = 4.89.
      {9, 57, "4.9", "a missing row reads the first row"},
      // Dead into the wind's eye side of the table: both rows missing, both
      // read the first, pinching: 3.0 x 20 / 30 = 2.0; dead ahead 0.5.
      {8, 20, "2.0", "below the first row: pinching on the first row"},
      {8, 0, "0.5", "dead ahead: pinching held at 0.5 kn"},
  };
  for (const Case& c : cases) {
    PolarCell cell = PolarBoatSpeed(t, c.w, c.angle, 40.0f);
    EXPECT_EQ(cell.speedText, c.text) << c.w << " kn " << c.angle << " deg: " << c.why;
    EXPECT_EQ(cell.PolarLookupFailed, std::string(c.text).empty()) << c.why;
  }
}

}  // namespace
}  // namespace kelvane
