// Pixel and position conversions, zoom steps and view rules. Golden values
// come from an independent calculation in double precision of the spherical
// Mercator (ln tan(45 + lat/2)) with a textbook pi, so they agree with the
// program's single-precision arithmetic to well within the pixel.
#include <gtest/gtest.h>

#include <cmath>

#include "chart/georef.h"

namespace kelvane {
namespace {

ChartRecord Chart(float upperLat, float upperPx, float lowerLat, float lowerPx, float leftLon, float leftPx,
                  float rightLon, float rightPx, std::int16_t rank = 10, std::string number = "T") {
  ChartRecord c;
  c.chartNumber = number;
  c.chartName = "Chart " + number;
  c.rank = rank;
  c.UpperLat = upperLat;
  c.UpperPixels = upperPx;
  c.LowerLat = lowerLat;
  c.LowerPixels = lowerPx;
  c.LeftLon = leftLon;
  c.LeftPixels = leftPx;
  c.rightLon = rightLon;
  c.RightPixels = rightPx;
  EXPECT_TRUE(ComputeChartFields(c));
  return c;
}

TEST(Isometric, AgreesWithTheTangentFormToSinglePrecision) {
  // ln tan(45 + lat/2): 50 -> 1.010683188683, 60 -> 1.316957896925,
  // -34 -> -0.631658119939 (independent double calculation).
  struct Case { float lat; double want; } cases[] = {
      {50.0f, 1.010683188683}, {60.0f, 1.316957896925}, {-34.0f, -0.631658119939}, {0.0f, 0.0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lat);
    // Single precision: 2e-7 relative, and the short pi/180 adds ~1e-9.
    EXPECT_NEAR(IsometricLatitude(c.lat), c.want, 1e-6);
    EXPECT_NEAR(MercatorY(c.lat), c.want, 1e-6);
  }
  // The sign is carried through: a southern latitude is the negative of
  // the northern one, exactly.
  EXPECT_EQ(IsometricLatitude(-50.0f), -IsometricLatitude(50.0f));
  // InverseMercator(1) = atan(sinh 1) = 49.604937420855 degrees.
  EXPECT_NEAR(InverseMercator(1.0f), 49.604937420855, 2e-5);
  EXPECT_NEAR(InverseMercator(IsometricLatitude(50.0f)), 50.0, 2e-5);
}

TEST(Georef, LatitudeRowsOnANorthernChart) {
  // 51N on row 0, 50N on row 1000: rows from 1000 - 1000 * (M(lat) - M(50))
  // / (M(51) - M(50)).
  ChartGeometry g = GeometryOf(Chart(51, 0, 50, 1000, -2, 100, -1, 1100));
  struct Case { float lat; std::int32_t row; } cases[] = {
      {51.0f, 0}, {50.0f, 1000}, {50.5f, 503},  // 502.647
      {50.25f, 752},                            // 751.976
      {50.9f, 101},                             // 100.960
      {51.5f, -508},                            // -508.093: off the chart, no clamping
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.lat);
    EXPECT_EQ(LatToPixel(g, c.lat), c.row);
  }
  EXPECT_NEAR(PixelToLat(g, 503), 50.5, 0.0005);  // one row is 0.001 degree here
  EXPECT_NEAR(PixelToLat(g, 0), 51.0, 1e-5);
  EXPECT_NEAR(PixelToLat(g, 1000), 50.0, 1e-5);
}

TEST(Georef, SouthernHemisphereCalibration) {
  // 33S on row 100, 34S on row 1300: -33.5 -> 698.267, -33.25 -> 398.706.
  ChartGeometry g = GeometryOf(Chart(-33, 100, -34, 1300, 151, 0, 152, 1000));
  EXPECT_EQ(LatToPixel(g, -33.0f), 100);
  EXPECT_EQ(LatToPixel(g, -34.0f), 1300);
  EXPECT_EQ(LatToPixel(g, -33.5f), 698);
  EXPECT_EQ(LatToPixel(g, -33.25f), 399);
  for (std::int32_t row = 0; row <= 1400; row += 50) {
    SCOPED_TRACE(row);
    EXPECT_NEAR(LatToPixel(g, PixelToLat(g, row)), row, 1);
  }
}

TEST(Georef, LongitudeColumns) {
  ChartGeometry g = GeometryOf(Chart(51, 0, 50, 1000, -2, 100, -1, 1100));
  EXPECT_EQ(LonToPixel(g, -1.5f), 600);
  EXPECT_EQ(LonToPixel(g, -2.0f), 100);
  EXPECT_EQ(LonToPixel(g, -1.0f), 1100);
  // West of the left line: a column below LeftPixels, not clamped.
  EXPECT_EQ(LonToPixel(g, -2.25f), -150);
  EXPECT_FLOAT_EQ(PixelToLon(g, 600), -1.5f);
  EXPECT_FLOAT_EQ(PixelToLon(g, -150), -2.25f);
}

TEST(Georef, TwipsToPixels) {
  EXPECT_EQ(TwipsToPixels(1440, 96), 96);
  EXPECT_EQ(TwipsToPixels(15, 96), 1);
  EXPECT_EQ(TwipsToPixels(22.5, 96), 2);  // 1.5 rounds to even
  EXPECT_EQ(TwipsToPixels(7.5, 96), 0);   // 0.5 rounds to even
}

TEST(Zoom, StepsAndRounding) {
  struct Case { float from; float in; float out; float keyOut; } cases[] = {
      // zoom in: 0.5 + 0.25 = 0.75 -> 7.5 -> 8 (half to even) -> 0.8
      {0.5f, 0.8f, 0.2f, 0.1f},   // out: 0.25 -> 2.5 -> 2 -> 0.2; key: 0.0 -> floor 0.1
      {1.0f, 1.2f, 0.8f, 0.5f},   // in: 1.25 -> 12.5 -> 12; out: 0.75 -> 0.8
      {2.2f, 2.5f, 1.7f, 1.7f},   // in: 2.7 capped at 2.5
      {2.5f, 2.5f, 2.0f, 2.0f},
      {1.5f, 2.0f, 1.0f, 1.0f},
      {0.1f, 0.3f, 0.1f, 0.1f},   // in: 0.1f + 0.25f is the single just below 0.35 -> 3; out: -0.15 -> 0.1
      {3.0f, 2.5f, 2.5f, 2.5f},   // out: 2.5 stays at the cap
      {0.25f, 0.5f, 0.0f, 0.1f},  // out: exactly 0 stands
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.from);
    EXPECT_FLOAT_EQ(ZoomInStep(c.from), c.in);
    EXPECT_FLOAT_EQ(ZoomOutStep(c.from), c.out);
    EXPECT_FLOAT_EQ(KeyZoomOutStep(c.from), c.keyOut);
  }
  EXPECT_EQ(DigitZoomPercent('0'), 100.0);
  EXPECT_EQ(DigitZoomPercent('1'), 10.0);
  EXPECT_EQ(DigitZoomPercent('9'), 90.0);
  EXPECT_FALSE(DigitZoomPercent('a').has_value());
}

TEST(View, LocatePoint) {
  ViewState v{1.0, {0, 0, 200, 100}, 1000, 800};
  struct Case { std::int32_t x, y; bool moves; double left, top; } cases[] = {
      {500, 400, true, 400, 350},
      {950, 400, true, 800, 350},  // x + w passes the right edge: left = W - w
      {850, 400, true, 800, 350},  // the target column is tested: 850 + 200 > 1000, though 750 + 200 fits
      {500, 790, true, 400, 740},  // no test at the bottom edge
      {10, 10, true, 0, 0},        // raised to 0
      {1000, 400, false, 0, 0},    // not below the width: nothing
      {500, 800, false, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.x * 10000 + c.y);
    auto r = LocatePointRect(v, c.x, c.y);
    ASSERT_EQ(r.has_value(), c.moves);
    if (!r) continue;
    EXPECT_EQ(r->left, c.left);
    EXPECT_EQ(r->top, c.top);
    EXPECT_EQ(r->width, 200);
    EXPECT_EQ(r->height, 100);
  }
  // A view of odd size rounds half to even: 500 - 100.5 = 399.5 -> 400,
  // 401 - 50.5 = 350.5 -> 350.
  v.rect = {0, 0, 201, 101};
  auto r = LocatePointRect(v, 500, 401);
  ASSERT_TRUE(r);
  EXPECT_EQ(r->left, 400);
  EXPECT_EQ(r->top, 350);
}

// The scroll limit was once the unscaled W - w, which at zoom 2 left a boat
// near the right or bottom edge off the screen.
TEST(View, LocateGPSHoldsTheCornerInImagePixelsSoTheBoatStaysOnScreenAtAnyZoom) {
  ViewState v{2.0, {0, 0, 200, 100}, 1000, 800};
  auto s = LocateGPSScroll(v, 300, 200);
  ASSERT_TRUE(s);
  EXPECT_EQ(s->x, 400);  // 2 * (300 - 100)
  EXPECT_EQ(s->y, 300);  // 2 * (200 - 50)
  s = LocateGPSScroll(v, 900, 790);  // corner 800, 740: held to W - w = 800, H - h = 700
  ASSERT_TRUE(s);
  EXPECT_EQ(s->x, 1600);
  EXPECT_EQ(s->y, 1400);
  // The boat's screen point 2 * 900 - 1600 = 200 and 2 * 790 - 1400 = 180
  // lies inside the 400 x 200 screen pixels of the view.
  s = LocateGPSScroll(v, 50, 10);
  ASSERT_TRUE(s);
  EXPECT_EQ(s->x, 0);
  EXPECT_EQ(s->y, 0);
  v.zoom = 0.5;  // below 1 the same corner, halved
  s = LocateGPSScroll(v, 900, 790);
  ASSERT_TRUE(s);
  EXPECT_EQ(s->x, 400);
  EXPECT_EQ(s->y, 350);
  EXPECT_FALSE(LocateGPSScroll(v, 1000, 10));  // off the image
  EXPECT_FALSE(LocateGPSScroll(v, -1, 10));
}

TEST(View, PansHomeAndEdges) {
  ViewState v{1.0, {100, 100, 200, 100}, 1000, 800};
  ViewRect r = PanStep(v, PanDirection::Left);
  EXPECT_EQ(r.left, 60);
  r = PanStep(v, PanDirection::Up);
  EXPECT_EQ(r.top, 80);
  v.rect = {790, 695, 200, 100};
  EXPECT_EQ(PanStep(v, PanDirection::Right).left, 800);  // stops at the far edge
  EXPECT_EQ(PanStep(v, PanDirection::Down).top, 700);
  v.rect = {30, 10, 200, 100};
  EXPECT_EQ(PanStep(v, PanDirection::Left).left, 0);  // stops at 0
  EXPECT_EQ(PanStep(v, PanDirection::Up).top, 0);
  ScrollPosition max{500, 300};
  EXPECT_EQ(HomeScroll(max).x, 250);
  EXPECT_EQ(HomeScroll(max).y, 150);
  ScrollPosition now{120, 80};
  EXPECT_EQ(PanToEdge(now, max, PanDirection::Right).x, 500);
  EXPECT_EQ(PanToEdge(now, max, PanDirection::Right).y, 80);
  EXPECT_EQ(PanToEdge(now, max, PanDirection::Up).y, 0);
}

TEST(View, CarryViewToAFinerChart) {
  // The old view shows 50.2..50.8N, 2.5..0.5W; the new chart covers
  // 50..51N, 2..1W, so the longitudes are clamped to it.
  ChartGeometry g = GeometryOf(Chart(51, 0, 50, 1000, -2, 100, -1, 1100));
  ViewCorners old{50.8f, -2.5f, 50.2f, -0.5f};
  ViewRect r = CarryViewToChart(old, g);
  EXPECT_EQ(r.left, 100);                    // clamped to LeftLon
  EXPECT_EQ(r.top, LatToPixel(g, 50.8f));    // inside, kept
  EXPECT_EQ(r.left + r.width, 1100);         // clamped to rightLon
  EXPECT_EQ(r.top + r.height, LatToPixel(g, 50.2f));  // inside, kept
}

}  // namespace
}  // namespace kelvane
