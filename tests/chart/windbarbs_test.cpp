// The wind barb: feathers by the convention (half barb 5 kn, full barb
// 10 kn, pennant 50 kn, calm a circle), the staff towards where the wind
// comes from, the feathers on the low-pressure side. Worked by hand.
#include <gtest/gtest.h>

#include "chart/windbarbs.h"

namespace kelvane {
namespace {

TEST(WindBarbs, FeathersByTheConventionAndTheStaffUpwind) {
  struct Feathers { float knots; BarbFeathers expected; } feathers[] = {
      {0, {0, 0, 0, true}},   {2.4f, {0, 0, 0, true}}, {3, {0, 0, 1, false}},  {5, {0, 0, 1, false}},
      {7.4f, {0, 0, 1, false}}, {7.5f, {0, 1, 0, false}}, {10, {0, 1, 0, false}}, {15, {0, 1, 1, false}},
      {50, {1, 0, 0, false}}, {65, {1, 1, 1, false}}, {120, {2, 2, 0, false}},
  };
  for (const Feathers& c : feathers) EXPECT_EQ(FeathersFor(c.knots), c.expected) << c.knots;

  // Staff 20 px, spacing 6 px, from the station (100, 100); a full barb is
  // 10 px long at 60 degrees to the staff: 8.66 across, 5 further out.
  struct Staff { float from; bool southern; ScreenPoint end, fullTip; } staffs[] = {
      // From the north: staff up, feathers to the east (right, looking out).
      {0, false, {100, 80}, {108.66, 75}},
      // From the east: staff to the right, feathers to the south (down).
      {90, false, {120, 100}, {125, 108.66}},
      // A westerly south of the line: staff to the left, feathers to the south.
      {270, true, {80, 100}, {75, 108.66}},
  };
  for (const Staff& c : staffs) {
    BarbShape barb = WindBarb({100, 100}, 10, c.from, 20, 6, c.southern);
    ASSERT_EQ(barb.lines.size(), 2u) << c.from;
    EXPECT_NEAR(barb.lines[0].first.x, 100, 1e-9);
    EXPECT_NEAR(barb.lines[0].second.x, c.end.x, 1e-6) << c.from;
    EXPECT_NEAR(barb.lines[0].second.y, c.end.y, 1e-6) << c.from;
    EXPECT_NEAR(barb.lines[1].second.x, c.fullTip.x, 0.01) << c.from;
    EXPECT_NEAR(barb.lines[1].second.y, c.fullTip.y, 0.01) << c.from;
  }
  // 65 kn from the north: a pennant at the end (20 to 14 px out), a gap of
  // 3, a full barb at 11 and a half barb at 5; a lone half barb (5 kn)
  // stands in by one spacing, at 14. Calm is a circle and no staff.
  BarbShape strong = WindBarb({100, 100}, 65, 0, 20, 6, false);
  ASSERT_EQ(strong.pennants.size(), 1u);
  EXPECT_NEAR(strong.pennants[0][0].y, 80, 1e-9);
  EXPECT_NEAR(strong.pennants[0][2].y, 86, 1e-9);
  ASSERT_EQ(strong.lines.size(), 3u);
  EXPECT_NEAR(strong.lines[1].first.y, 89, 1e-9);
  EXPECT_NEAR(strong.lines[2].first.y, 95, 1e-9);
  EXPECT_NEAR(strong.lines[2].second.x, 104.33, 0.01);
  EXPECT_NEAR(WindBarb({100, 100}, 5, 0, 20, 6, false).lines.at(1).first.y, 86, 1e-9);
  BarbShape calm = WindBarb({100, 100}, 1, 0, 20, 6, false);
  EXPECT_TRUE(calm.calm);
  EXPECT_TRUE(calm.lines.empty());
}

}  // namespace
}  // namespace kelvane
