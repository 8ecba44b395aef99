// The AIS pass of the chart, without a drawing device: one target at a time
// through the display list, on a flat test mapping (x = 100 x longitude,
// y = 100 x latitude, 10 pixels to the mile) over a surface of 400 by 300,
// so that every position, length and colour below is worked by hand from
// the rules of the pass.
#include <gtest/gtest.h>

#include <string>

#include "instruments/ais_display.h"

namespace kelvane {
namespace {

constexpr std::int32_t kClassA = PackColour(200, 0, 0);
constexpr std::int32_t kClassB = PackColour(0, 0, 200);

AisDisplayView TestView() {
  AisDisplayView v;
  v.toScreen = [](float lat, float lon) { return ScreenPoint{lon * 100.0, lat * 100.0}; };
  v.milesToPixels = [](float, float miles) { return miles * 10.0; };
  v.surfaceWidth = 400;
  v.surfaceHeight = 300;
  v.markRadius = 3;
  v.baseRadius = 3;
  return v;
}

SettingsRecord TestSettings() {
  SettingsRecord s;
  s.AISColour = kClassA;
  s.AISColour2 = kClassB;
  s.CPAAlarm = 0.5f;
  s.AISMinSpeed = 2.0f;
  s.AISLineWidth = 3;
  s.DisplayAISAsBoat = 0;
  s.WaySize = 4;
  s.TextWaySize = 10;
  s.AISListIndex = 0;  // the label is the MMSI
  return s;
}

// Lines and ticks of a trail's six steps as "1" and "0".
std::string Lines(const std::vector<AisTrailStep>& steps) {
  std::string s;
  for (const AisTrailStep& step : steps) s += step.line ? '1' : '0';
  return s;
}
std::string Ticks(const std::vector<AisTrailStep>& steps) {
  std::string s;
  for (const AisTrailStep& step : steps) s += step.tick ? '1' : '0';
  return s;
}

TEST(AisDisplay, SymbolColourFillDetailsAndExtrasByTypeAndCloseness) {
  struct Row {
    const char* what;
    int type;
    float cpa, speed;
    bool gps;
    float lat, lon;
    const char* shipType;
    bool boatShape;
    bool extras;  // history, predicted and heading switches on, course 90
    // expected
    bool drawn;
    bool close;  // its ShowDetails is to be set
    AisSymbol symbol;
    std::int32_t colour;
    bool filled;
    double size;
    std::vector<std::int32_t> bands;
    const char* label;
    double headingX;  // where the heading vector ends, with the extras
  };
  const std::int32_t black = 0, yellow = PackColour(255, 255, 0), orange = PackColour(255, 144, 0),
                     grey = PackColour(192, 192, 192);
  const Row rows[] = {
      // Class A closing within the alarm: filled with its details, even
      // when stopped below the minimum speed.
      {"A close", 1, 0.3f, 0, true, 1, 1, "0", false, false, true, true, AisSymbol::Circle, kClassA, true, 5, {}, "235000001", 0},
      {"A CPA 0", 2, 0, 5, true, 1, 1, "0", false, false, true, true, AisSymbol::Circle, kClassA, true, 5, {}, "235000001", 0},
      {"A CPA at the alarm", 3, 0.5f, 5, true, 1, 1, "0", false, false, true, true, AisSymbol::Circle, kClassA, true, 5, {}, "235000001", 0},
      // Not close: hollow, and only at the minimum speed or more.
      {"A beyond the alarm, slow", 1, 0.6f, 1.9f, true, 1, 1, "0", false, false, false, false, AisSymbol::Circle, 0, false, 0, {}, "", 0},
      {"A beyond the alarm, at min speed", 1, 0.6f, 2, true, 1, 1, "0", false, false, true, false, AisSymbol::Circle, kClassA, false, 5, {}, "", 0},
      {"A close but no GPS", 1, 0.3f, 2, false, 1, 1, "0", false, false, true, false, AisSymbol::Circle, kClassA, false, 5, {}, "", 0},
      {"A no closest point (-1)", 1, -1, 5, true, 1, 1, "0", false, false, true, false, AisSymbol::Circle, kClassA, false, 5, {}, "", 0},
      // Off the surface: not drawn, but a close one still gets its details.
      {"A close off the surface", 1, 0.3f, 5, true, 1, 5, "0", false, false, false, true, AisSymbol::Circle, 0, false, 0, {}, "", 0},
      // Class B: its own colour, the same alarm, no minimum speed.
      {"B close", 18, 0.2f, 0, true, 1, 1, "0", false, false, true, true, AisSymbol::Circle, kClassB, true, 5, {}, "235000001", 0},
      {"B stopped moving away (-12)", 18, -12, 0, true, 1, 1, "0", false, false, true, false, AisSymbol::Circle, kClassB, false, 5, {}, "", 0},
      // The boat shape: 5 x MarkRadius long, at least 14.
      {"A as a boat", 1, 0.3f, 5, true, 1, 1, "0", true, false, true, true, AisSymbol::BoatOutline, kClassA, true, 15, {}, "235000001", 0},
      // Search and rescue aircraft in the class A colour, whatever its CPA.
      {"SAR", 9, 0.1f, 100, true, 1, 1, "0", false, false, true, false, AisSymbol::Aircraft, kClassA, false, 8, {}, "", 0},
      // Aids to navigation by aid type: north cardinal black over yellow,
      // a light vessel orange, plain types and unreadable types grey.
      {"aid north cardinal", 21, 0.1f, 0, true, 1, 1, "20", false, false, true, false, AisSymbol::AidMark, grey, false, 4, {black, yellow}, "", 0},
      {"aid light vessel", 21, -1, 0, true, 1, 1, "31", false, false, true, false, AisSymbol::AidMark, grey, false, 4, {orange}, "", 0},
      {"aid plain type", 21, -1, 0, true, 1, 1, "5", false, false, true, false, AisSymbol::AidMark, grey, false, 4, {grey}, "", 0},
      {"aid type unreadable", 21, -1, 0, true, 1, 1, "none", false, false, true, false, AisSymbol::AidMark, grey, false, 4, {grey}, "", 0},
      {"aid off the surface", 21, -1, 0, true, 4, 1, "20", false, false, false, false, AisSymbol::AidMark, 0, false, 0, {}, "", 0},
      // Other messages are not drawn.
      {"type 4", 4, -1, 5, true, 1, 1, "0", false, false, false, false, AisSymbol::Circle, 0, false, 0, {}, "", 0},
      // The extras of a vessel and of an aircraft. One 10-minute step at
      // 6 knots is a mile, 10 pixels: the heading vector is held to 20;
      // at 24 knots it is 4 miles, 40 pixels.
      {"A extras", 1, -1, 6, true, 1, 1, "0", false, true, true, false, AisSymbol::Circle, kClassA, false, 5, {}, "", 120},
      {"SAR extras", 9, -1, 24, true, 1, 1, "0", false, true, true, false, AisSymbol::Aircraft, kClassA, false, 8, {}, "", 140},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    SettingsRecord s = TestSettings();
    s.DisplayAISAsBoat = r.boatShape ? -1 : 0;
    AisTargetTable table;
    table.settings.AheadIntervals = 10;  // minutes
    AISTarget t;
    t.MMSI = 235000001;
    t.MessageType = static_cast<std::int16_t>(r.type);
    t.CPA = r.cpa;
    t.Speed = r.speed;
    t.Lat = r.lat;
    t.Long = r.lon;
    t.Course = 90;
    t.ShipType = r.shipType;
    if (r.extras) {
      t.ShowHistory = t.ShowPredicted = t.ShowHeading = -1;
      // Screen (150, 150), then two samples off the right edge, then
      // three at (200, 100).
      const AisPoint samples[7] = {{}, {1.5f, 1.5f, 0}, {5, 5, 0}, {6, 6, 0}, {1, 2, 0}, {1, 2, 0}, {1, 2, 0}};
      for (int k = 0; k < 7; ++k) t.History[k] = t.Predicted[k] = samples[k];
    }
    table.AISTargets = {t};
    const AisDisplayList list = AisDisplay(table, s, r.gps, TestView());

    EXPECT_EQ(list.closeTargets, r.close ? std::vector<std::size_t>{0} : std::vector<std::size_t>{});
    ASSERT_EQ(list.marks.size(), r.drawn ? 1u : 0u);
    if (!r.drawn) continue;
    const AisTargetMark& m = list.marks[0];
    EXPECT_EQ(m.target, 0u);
    EXPECT_EQ(m.symbol, r.symbol);
    EXPECT_DOUBLE_EQ(m.at.x, r.lon * 100.0);
    EXPECT_DOUBLE_EQ(m.at.y, r.lat * 100.0);
    EXPECT_EQ(m.colour, r.colour);
    EXPECT_EQ(m.filled, r.filled);
    EXPECT_EQ(m.size, r.size);
    EXPECT_EQ(m.lineWidth, r.symbol == AisSymbol::AidMark ? 2 : 3);
    EXPECT_EQ(m.bands, r.bands);
    EXPECT_EQ(m.label, r.label);
    if (*r.label) {
      // 8 right of and 6 below the target, at the waypoint text size (the
      // zoom leaves it as it is).
      EXPECT_DOUBLE_EQ(m.labelAt.x, 108);
      EXPECT_DOUBLE_EQ(m.labelAt.y, 106);
      EXPECT_EQ(m.labelHeight, 10);
    }
    if (r.extras) {
      // Each line shows when either end is on the surface; the predicted
      // track ticks only the points on it.
      EXPECT_EQ(Lines(m.history), "110111");
      EXPECT_EQ(Ticks(m.history), "000000");
      EXPECT_EQ(Lines(m.predicted), "110111");
      EXPECT_EQ(Ticks(m.predicted), "100111");
      EXPECT_DOUBLE_EQ(m.predicted[0].from.x, 100);
      EXPECT_DOUBLE_EQ(m.predicted[1].from.x, 150);
      // Due east; 0.017453293 a degree leaves cos(90) a hair off 0.
      ASSERT_TRUE(m.heading.has_value());
      EXPECT_NEAR(m.heading->to.x, r.headingX, 1e-4);
      EXPECT_NEAR(m.heading->to.y, 100, 1e-4);
    } else {
      EXPECT_TRUE(m.history.empty());
      EXPECT_TRUE(m.predicted.empty());
      EXPECT_FALSE(m.heading.has_value());
    }
  }
}

}  // namespace
}  // namespace kelvane
