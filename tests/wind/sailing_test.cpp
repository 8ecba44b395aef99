// Sailing legs and the wind calculator against values worked by hand, each
// odd answer pinned with the reason it stays.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/tempdir.h"
#include "wind/sailing.h"

namespace kelvane {
namespace {

TEST(SailingLegs, WindAngleOffBowBySectorAndTheLegsOfARoute) {
  // The clockwise angle from bow to wind, reduced to 0 .. 180 with its side;
  // the rows cross north both ways and land in every sector of the hand
  // method's 0 to 880 frame.
  struct Case { float heading, wind, angle; WindSide tack; const char* why; } cases[] = {
      {0, 45, 45, WindSide::Starboard, "starboard bow"},
      {0, 315, 45, WindSide::Port, "port bow"},
      {100, 173, 73, WindSide::Starboard, "forward of the beam to starboard"},
      {100, 27, 73, WindSide::Port, "forward of the beam to port"},
      {350, 10, 20, WindSide::Starboard, "heading west of north, wind east of it"},
      {10, 350, 20, WindSide::Port, "heading east of north, wind west of it"},
      {270, 100, 170, WindSide::Port, "a broad reach on port"},
      {300, 110, 170, WindSide::Starboard, "a broad reach on starboard, across north"},
      // Exactly 0 or 180 off the bow is on neither side: no tack.
      {200, 200, 0, WindSide::None, "head to wind"},
      {0, 180, 180, WindSide::None, "dead astern"},
      {359, 179, 180, WindSide::None, "dead astern, across north"},
      {180, 360, 180, WindSide::None, "a north wind typed as 360"},
  };
  for (const Case& c : cases) {
    const RelativeWind off = WindAngleOffBow(c.heading, c.wind);
    EXPECT_FLOAT_EQ(off.angle, c.angle) << c.why;
    EXPECT_EQ(off.side, c.tack) << c.why;
  }

  // North, east, then south, with the wind from 090: on the starboard beam,
  // head to wind, on the port beam.
  const std::vector<Position> route = {{50.0f, -1.0f}, {50.1f, -1.0f}, {50.1f, -0.9f}, {50.0f, -0.9f}};
  EXPECT_EQ(LegTacks(route, 90.0f), (std::vector<WindSide>{WindSide::Starboard, WindSide::None, WindSide::Port}));
  EXPECT_TRUE(LegTacks({{50.0f, -1.0f}}, 45.0f).empty());
}

TEST(SailingLegs, CalcRouteElementOnTheSamplePolar) {
  // The sample sloop of the data folder, read from a copy.
  test::TempDir dir;
  std::filesystem::copy_file(std::filesystem::path(KELVANE_SOURCE_DIR) / "data" / "Polars.mdb", dir.path / "Polars.mdb");
  PolarDatabase db = OpenPolarDatabase(dir.path / "Polars.mdb");
  ASSERT_TRUE(db.db.ok()) << db.message;
  PolarTable table = ReadPolarTable(db.db, "Synthetic sample sloop (not a real boat)");
  ASSERT_EQ(table.rows.size(), 31u) << table.message;

  struct Case { float w, wind, heading; const char* speed; WindSide tack; const char* why; } cases[] = {
      // 73 off the bow at 13 kn: rows 70 and 75, columns Wind12kn (4.9, 5.1)
      // and, for 13 + 2, wind14kn (5.2, 5.5). Along the angle
      // 4.9 + 0.2 / 5 x 3 = 5.02 and 5.2 + 0.3 / 5 x 3 = 5.38; along the wind
      // (5.38 - 5.02) x 1 / 2 + 5.02 = 5.20.
      {13, 173, 100, "5.2", WindSide::Starboard, "both interpolations, starboard tack"},
      {13, 27, 100, "5.2", WindSide::Port, "the same angle on port tack"},
      // 13.5 kn: (5.38 - 5.02) x 1.5 / 2 + 5.02 = 5.29.
      {13.5f, 173, 100, "5.3", WindSide::Starboard, "a fraction of the wind band"},
      // Pinching below the closest angle of 40, at 10 kn (column wind10kn):
      // rows 35/40 give (2.2 + 2.6) / 2 = 2.4, rows 30/35 (1.9 + 2.2) / 2 = 2.05,
      // scaled by angle / 30: 2.4 x 39 / 30 = 3.12, 2.4 x 36 / 30 = 2.88,
      // 2.05 x 33 / 30 = 2.255, 2.05 x 31 / 30 = 2.118. The speed falls with the angle.
      {10, 39, 0, "3.1", WindSide::Starboard, "pinching at 39"},
      {10, 321, 0, "3.1", WindSide::Port, "pinching at 39 on port"},
      {10, 36, 0, "2.9", WindSide::Starboard, "pinching at 36"},
      {10, 33, 0, "2.3", WindSide::Starboard, "pinching at 33"},
      {10, 31, 0, "2.1", WindSide::Starboard, "pinching at 31"},
      // Calm reads Wind0kn, all 0.0: pinching never gives less than 0.5 kn.
      {0, 39, 0, "0.5", WindSide::Starboard, "pinching floor"},
      {1, 31, 0, "0.5", WindSide::Starboard, "pinching floor, under 2 kn"},
      // At the closest angle itself the boat sails: 10 kn exactly reads the
      // column above (fraction 2), Wind12kn at 40 = 2.8, below the 3.1 of
      // pinching at 39 since pinching scales by 30, not by the closest angle.
      {10, 40, 0, "2.8", WindSide::Starboard, "not pinching at the closest angle"},
  };
  for (const Case& c : cases) {
    RouteElement e = CalcRouteElement(&table, c.w, c.wind, c.heading, 40.0f);
    EXPECT_EQ(e.message, "") << c.why;
    EXPECT_EQ(e.speedText, c.speed) << c.why;
    EXPECT_EQ(e.tack, c.tack) << c.why;
  }

  RouteElement none = CalcRouteElement(nullptr, 13, 173, 100, 40.0f);
  EXPECT_EQ(none.message, "Select a set up");
  EXPECT_EQ(none.speedText, "");
}

TEST(SailingLegs, LegSpeedFormChecks) {
  struct Case { const char* speed; const char* dir; const char* message; } winds[] = {
      {"14.0", "292", ""},  {" 0 ", "0", ""},  {"40", "360", ""},
      {"", "292", "Invalid Wind Speed"},     {"14kn", "292", "Invalid Wind Speed"},
      {"40.5", "292", "Invalid Wind Speed"}, {"-3", "292", "Invalid Wind Speed"},
      {"14", "", "Invalid Wind Direction"},  {"14", "361", "Invalid Wind Direction"},
      {"14", "2.9.2", "Invalid Wind Direction"},
  };
  for (const Case& c : winds) EXPECT_EQ(ParseWindEntry(c.speed, c.dir).message, c.message) << c.speed << " " << c.dir;
  EXPECT_FLOAT_EQ(ParseWindEntry("14.5", "292").speed, 14.5f);
  EXPECT_EQ(ParseHeading("").message, "Enter Boat Heading");
  EXPECT_EQ(ParseHeading("N").message, "Enter Boat Heading");
  EXPECT_FLOAT_EQ(ParseHeading(" 95 ").heading, 95.0f);
}

TEST(WindCalculator, TrueAndApparentByHand) {
  enum Way { Apparent, True };
  struct Case { Way way; const char *speed, *angle, *boat, *message, *speedOut, *angleOut, *why; } cases[] = {
      // sqrt(10^2 + 5^2) = 11.18; atan(10 / 5) = 63.43.
      {Apparent, "10", "90", "5", "", "11.2", "063", "true wind on the beam"},
      {Apparent, "10", "0", "5", "", "15.0", "000", "true wind dead ahead"},
      // W cos 120 + B = -5 + 5 = 0: the ratio is infinite, the wind abeam.
      {Apparent, "10", "120", "5", "", "8.7", "090", "division by zero with wind: 90"},
      // Dead astern at the boat's own speed: no apparent wind, and no
      // direction to show (the division by zero of still air).
      {Apparent, "6", "180", "6", "", "0.0", "", "dead astern at boat speed"},
      // Kept: 180 x 0.017453293 is a hair over pi, its sine is negative, and
      // the arctangent of two negatives lands at 0, not at 180.
      {Apparent, "10", "180", "5", "", "5.0", "000", "dead astern answered as 000"},
      // Kept: atan(-10 / 5) = -63.4, plus 180 = 116.6. The rule of 180 was
      // made for the starboard side; a port wind comes back aft of the beam.
      {Apparent, "10", "270", "5", "", "11.2", "117", "port side answered from the formula"},
      {Apparent, "10", "45", "0", "Set boat speed", "", "", "no boat speed"},
      {Apparent, "10", "360", "5", "Check True Wind Direction", "", "", "over 359"},
      {Apparent, "10", "", "5", "Check True Wind Direction", "", "", "no direction"},
      // Back again: A sin a = 10, A cos a - B = 0 (near enough), so 90.
      {True, "11.18034", "63.43495", "5", "", "10.0", "090", "the first row the other way"},
      // atan(10 / -5) = -63.4, plus 180 = 116.6.
      {True, "10", "90", "5", "", "11.2", "117", "apparent wind on the beam"},
      {True, "5", "0", "5", "", "0.0", "", "motoring at 5 kn in a calm"},
      {True, "10", "45", "", "Set Speed Over Ground", "", "", "no speed over ground"},
      {True, "10", "400", "5", "Check Apparent Wind Direction", "", "", "over 359"},
  };
  for (const Case& c : cases) {
    WindTriangle t = c.way == Apparent ? ApparentWindFromTrue(c.speed, c.angle, c.boat)
                                       : TrueWindFromApparent(c.speed, c.angle, c.boat);
    EXPECT_EQ(t.message, c.message) << c.why;
    EXPECT_EQ(t.speedText, c.speedOut) << c.why;
    EXPECT_EQ(t.angleText, c.angleOut) << c.why;
    EXPECT_EQ(t.angle.has_value(), *c.angleOut != '\0') << c.why;
  }
}

TEST(WindCalculator, BeaufortListsFollowTheWmoScale) {
  const auto& scale = BeaufortScale();
  // The bands meet without a gap: each starts a knot above the last.
  for (std::size_t f = 2; f < scale.size(); ++f) EXPECT_EQ(scale[f].lowKnots, scale[f - 1].highKnots + 1) << f;
  const std::vector<std::string> entries = BeaufortEntries();
  ASSERT_EQ(entries.size(), 13u);
  EXPECT_EQ(entries[0], "F0  Calm  <1 kn");
  EXPECT_EQ(entries[4], "F4  Moderate breeze  11-16 kn");
  EXPECT_EQ(entries[8], "F8  Gale  34-40 kn");
  EXPECT_EQ(entries[12], "F12  Hurricane force  64+ kn");
  EXPECT_EQ(BeaufortSpeedText(0), "0.0");
  EXPECT_EQ(BeaufortSpeedText(4), "13.5");
  EXPECT_EQ(BeaufortSpeedText(12), "64.0");
  EXPECT_EQ(WindAngleEntries().front(), "000");
  EXPECT_EQ(WindAngleEntries().back(), "350");
}

}  // namespace
}  // namespace kelvane
