// The arithmetic of the overlays: the surface test, the size of marks at a
// zoom, the symbol bands, the stream arrow, the dash rule, the boundaries
// worth drawing, the night view's brightness and the layer switches'
// fields. Expected values are worked by hand from the rules.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "chart/layerswitches.h"
#include "chart/overlaygeometry.h"
#include "core/settings.h"

namespace kelvane {
namespace {

TEST(OverlayGeometry, SurfaceTestsLeaveTheFrameAlone) {
  struct Case {
    double x, y;
    bool mark, track;
  } cases[] = {
      {1, 1, true, true},         {0.99, 5, false, true},    {0, 0, false, true},
      {799.9, 599.9, true, true}, {800, 300, false, false},  {300, 600, false, false},
      {-19, -19, false, true},    {-19.01, 5, false, false}, {5, -19.5, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.x << ", " << c.y);
    EXPECT_EQ(OnSurface(c.x, c.y, 800, 600), c.mark);
    EXPECT_EQ(TrackPointOnSurface(c.x, c.y, 800, 600), c.track);
  }
}

TEST(OverlayGeometry, MarkRadiusGrowsWithTheZoomAndRoundsHalfToEven) {
  struct Case {
    int surface;
    double visible;
    int image;
    int radius;
  } cases[] = {
      {1920, 1920, 12000, 38},  // round(5.76) = 6; 6 / 0.16 = 37.5 -> 38
      {1280, 3601, 3601, 4},    // the whole chart on show: round(3.84)
      {1000, 500, 1000, 6},     // half the image: twice the marks
      {500, 1000, 1000, 2},     // round(1.5) = 2
      {1500, 1000, 1000, 4},    // round(4.5) = 4, half to even
      {2500, 1000, 1000, 8},    // round(7.5) = 8
      {1000, 4000, 1000, 1},    // 3 / 4 = 0.75 -> 1
      {1920, 0, 12000, 6},      // nothing on show: the plain value
      {1920, 1000, 0, 6},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.surface << " " << c.visible << " " << c.image);
    EXPECT_EQ(MarkRadius(c.surface, c.visible, c.image), c.radius);
  }
  EXPECT_EQ(BaseMarkRadius(1920), 6);
  // Text follows the marks between half and twice its size.
  EXPECT_EQ(ScaledTextHeight(16, 6, 6), 16);
  EXPECT_EQ(ScaledTextHeight(16, 9, 6), 24);
  EXPECT_EQ(ScaledTextHeight(16, 60, 6), 32);
  EXPECT_EQ(ScaledTextHeight(16, 1, 6), 8);
  EXPECT_EQ(ScaledTextHeight(8, 1, 6), 6);
}

TEST(OverlayGeometry, SymbolCodesGiveTheirBandsTopFirst) {
  const std::int32_t R = PackColour(255, 0, 0), G = PackColour(0, 255, 0), B = PackColour(0, 0, 0),
                     O = PackColour(255, 144, 0), Y = PackColour(255, 255, 0), W = PackColour(255, 255, 255),
                     GREY = PackColour(192, 192, 192);
  struct Case {
    const char* sym;
    std::vector<std::int32_t> bands;
  } cases[] = {
      {"R", {R}},          {"red", {R}},         {" Green ", {G}},     {"B", {B}},       {"BLACK", {B}},
      {"o", {O}},          {"Orange", {O}},      {"Y", {Y}},           {"YELLOW", {Y}},  {"W", {W}},
      {"white", {W}},      {"GRAY", {GREY}},     {"grey", {GREY}},     {"WB", {W, B}},   {"BW", {B, W}},
      {"RG", {R, G}},      {"GR", {G, R}},       {"WR", {W, R}},       {"rw", {R, W}},   {"WG", {W, G}},
      {"GW", {G, W}},      {"YB", {Y, B}},       {"BY", {B, Y}},       {"BYB", {B, Y, B}}, {"YBY", {Y, B, Y}},
      {"BRB", {B, R, B}},  {"WRW", {W, R, W}},   {"OWO", {O, W, O}},
      // Anything else is the plain mark.
      {"", {}},            {"BR", {}},           {"RGB", {}},          {"Dot", {}},      {"GREYS", {}},
      {"OW", {}},          {"Waypoint", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sym);
    EXPECT_EQ(SymbolBands(c.sym), c.bands);
  }
}

TEST(OverlayGeometry, SymbolMarkBandsCoverTheBodyExactly) {
  // Size 6: 12 wide, 18 high, centred on (50, 50).
  auto three = SymbolMarkBands(50, 50, 6, 3);
  ASSERT_EQ(three.size(), 3u);
  EXPECT_EQ(three[0].x, 44);
  EXPECT_EQ(three[0].width, 12);
  EXPECT_EQ(three[0].y, 41);
  EXPECT_EQ(three[1].y, 47);
  EXPECT_EQ(three[2].y, 53);
  EXPECT_EQ(three[2].y + three[2].height, 59);
  // Four bands of an 18-pixel body: edges at 4, 9, 13 (integer division).
  auto four = SymbolMarkBands(50, 50, 6, 4);
  ASSERT_EQ(four.size(), 4u);
  int total = 0;
  for (std::size_t i = 0; i < four.size(); ++i) {
    if (i > 0) {
      EXPECT_EQ(four[i].y, four[i - 1].y + four[i - 1].height);
    }
    total += four[i].height;
  }
  EXPECT_EQ(total, 18);
  EXPECT_EQ(four[0].height, 4);
  EXPECT_EQ(four[1].height, 5);
  // No band and a tiny size still make one body of at least 4 x 6.
  auto plain = SymbolMarkBands(10, 10, 0, 0);
  ASSERT_EQ(plain.size(), 1u);
  EXPECT_EQ(plain[0].width, 4);
  EXPECT_EQ(plain[0].height, 6);
}

TEST(OverlayGeometry, AidTypesPaintAsTheirMarks) {
  struct Case {
    int type;
    const char* sym;
  } cases[] = {{0, "GREY"},  {5, "GREY"}, {8, "GREY"}, {9, "BY"},   {20, "BY"},  {10, "BYB"}, {22, "YB"},
               {12, "YBY"}, {13, "R"},    {24, "R"},   {14, "G"},   {15, "GR"},  {27, "RG"},  {17, "BRB"},
               {29, "RW"},  {19, "Y"},    {31, "O"},   {-1, "GREY"}, {32, "GREY"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.type);
    EXPECT_EQ(AidTypeSymbol(c.type), c.sym);
    EXPECT_FALSE(SymbolBands(AidTypeSymbol(c.type)).empty());
  }
}

TEST(OverlayGeometry, StreamArrowPointsWhereTheStreamRuns) {
  // East at 40 pixels from (100, 100): head 14 long, 7 each side.
  auto east = StreamArrowPolygon(100, 100, 90.0f, 40, 1);
  const double tol = 1e-5;
  EXPECT_NEAR(east[3].x, 140, tol);  // the tip
  EXPECT_NEAR(east[3].y, 100, tol);
  EXPECT_NEAR(east[0].x, 100, tol);  // tail, right side: south of an eastward arrow
  EXPECT_NEAR(east[0].y, 101, tol);
  EXPECT_NEAR(east[2].x, 126, tol);  // head corners
  EXPECT_NEAR(east[2].y, 107, tol);
  EXPECT_NEAR(east[4].x, 126, tol);
  EXPECT_NEAR(east[4].y, 93, tol);
  EXPECT_NEAR(east[6].y, 99, tol);
  // North runs up the screen, south down, west to the left.
  struct Case {
    float direction;
    double tipX, tipY;
  } cases[] = {{0, 100, 60}, {180, 100, 140}, {270, 60, 100}, {360, 100, 60}, {45, 128.2842712, 71.7157288}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.direction);
    ArrowLines a = StreamArrowLines(100, 100, c.direction, 40);
    EXPECT_NEAR(a.tip.x, c.tipX, 1e-4);
    EXPECT_NEAR(a.tip.y, c.tipY, 1e-4);
    auto poly = StreamArrowPolygon(100, 100, c.direction, 40, 2);
    EXPECT_NEAR(poly[3].x, c.tipX, 1e-4);
    EXPECT_NEAR(poly[3].y, c.tipY, 1e-4);
  }
  // A short arrow keeps a head of at least 4 long and 3 wide.
  ArrowLines small = StreamArrowLines(0, 0, 90.0f, 8);
  EXPECT_NEAR(small.headRight.x, 4, tol);
  EXPECT_NEAR(small.headRight.y, 3, tol);
  // The length is the rate times the configured length.
  EXPECT_DOUBLE_EQ(StreamArrowLength(2.0f, 2, 4), 16.0);
  EXPECT_DOUBLE_EQ(StreamArrowLength(2.5f, 3, 10), 75.0);
  EXPECT_DOUBLE_EQ(StreamArrowLength(0.1f, 2, 4), 8.0);  // at least 8 pixels
  EXPECT_DOUBLE_EQ(StreamArrowLength(0.0f, 2, 4), 0.0);  // slack water: no arrow
  EXPECT_DOUBLE_EQ(StreamArrowLength(-1.0f, 2, 4), 0.0);
}

TEST(OverlayGeometry, LegsAreSolidOnlyOnceCalculated) {
  EXPECT_FALSE(LegCalculated(false, 1.5f, 12));  // results cleared: dashed again
  EXPECT_FALSE(LegCalculated(true, 0.0f, 0));
  EXPECT_TRUE(LegCalculated(true, 0.5f, 0));
  EXPECT_TRUE(LegCalculated(true, 0.0f, 3));
}

TEST(OverlayGeometry, BoundariesWorthDrawing) {
  struct Case {
    ScreenPoint a, b;
    bool drawn;
  } cases[] = {
      {{10, 10}, {17, 50}, false},        // 7 pixels wide
      {{10, 10}, {18, 50}, true},         // 8 pixels
      {{50, 50}, {10, 10}, true},         // corners in any order
      {{-100, -100}, {-1, -1}, false},    // wholly above and left
      {{-100, -100}, {0, 0}, true},       // touching the corner
      {{800, 10}, {900, 50}, false},      // right of the surface
      {{-5000, -5000}, {5000, 5000}, true},  // all round the view
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.a.x << "," << c.a.y << " " << c.b.x << "," << c.b.y);
    EXPECT_EQ(BoundaryWorthDrawing(c.a, c.b, 800, 600), c.drawn);
  }
  // The label inside a drawn boundary follows the two settings.
  EXPECT_EQ(BoundaryLabel("Sample Chart", "9999-1", false, false), "");
  EXPECT_EQ(BoundaryLabel("Sample Chart", "9999-1", true, false), "Sample Chart");
  EXPECT_EQ(BoundaryLabel("Sample Chart", "9999-1", false, true), "9999-1");
  EXPECT_EQ(BoundaryLabel("Sample Chart", "9999-1", true, true), "Sample Chart : 9999-1");
}

TEST(OverlayGeometry, RouteAndLegLabelsCarryTheRoutesOptions) {
  EXPECT_EQ(RoutePointLabel(1, "", 0), "Start");
  EXPECT_EQ(RoutePointLabel(1, "  Anvil Point ", 0), "Start Wa Anvil Point");
  EXPECT_EQ(RoutePointLabel(3, "", 30), "3 Stop 30min");
  EXPECT_EQ(RoutePointLabel(12, "Old Harry", 45), "12 Wa Old Harry Stop 45min");
  EXPECT_EQ(LegLabel(4.26f, 87.4f, false, 93.6f, ""), "4.3nm 087\u00b0T");
  EXPECT_EQ(LegLabel(4.26f, 87.4f, true, 93.6f, "  "), "4.3nm 087\u00b0T Steer 094\u00b0M");
  EXPECT_EQ(LegLabel(0.04f, 359.6f, true, 2.0f, "keep off the ledges"),
            "0.0nm 360\u00b0T Steer 002\u00b0M keep off the ledges");
}

// The track's time labels sat on top of each other where the steps lie
// close on the screen, hiding the track and the legs' "Steer" text.
TEST(OverlayGeometry, TrackTimeLabelsAreDrawnOnlyClearOfTheLastOneDrawn) {
  // 40 x 14 labels every 10 pixels along a line: only every fourth one is
  // clear of the one last drawn (its left edge at 40 or more past it).
  std::vector<LabelBox> boxes;
  for (int i = 0; i < 9; ++i) boxes.push_back(LabelBox{10.0 * i, 100, 40, 14});
  const std::vector<bool> drawn = LabelsClearOfPrevious(boxes);
  EXPECT_EQ(drawn, (std::vector<bool>{true, false, false, false, true, false, false, false, true}));
  // Steps far apart all keep their labels; one that only touches is clear.
  EXPECT_EQ(LabelsClearOfPrevious({{0, 0, 40, 14}, {40, 0, 40, 14}, {80, 14, 40, 14}}),
            (std::vector<bool>{true, true, true}));
  // A step that turns back over an earlier label is compared with the last
  // one drawn only.
  EXPECT_EQ(LabelsClearOfPrevious({{0, 0, 40, 14}, {100, 0, 40, 14}, {5, 5, 40, 14}}),
            (std::vector<bool>{true, true, true}));
  EXPECT_TRUE(LabelsClearOfPrevious({}).empty());
}

// The dividers' label followed the pointer off the right edge of the chart.
TEST(OverlayGeometry, FloatingLabelStaysOnTheSurface) {
  struct Case {
    double x, y, w, h;
    ScreenPoint at;
  } cases[] = {
      {100, 100, 150, 20, {120, 120}},   // 20 right of and below the pointer
      {700, 100, 150, 20, {530, 120}},   // would end at 870 > 800: left of the pointer
      {630, 100, 150, 20, {650, 120}},   // ends at 800 exactly: stays right
      {100, 590, 150, 20, {120, 550}},   // near the bottom: above the pointer
      {10, 10, 900, 20, {0, 30}},        // wider than the surface: from its left edge
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.x << "," << c.y);
    ScreenPoint p = FloatingLabelPlace(c.x, c.y, c.w, c.h, 800, 600);
    EXPECT_DOUBLE_EQ(p.x, c.at.x);
    EXPECT_DOUBLE_EQ(p.y, c.at.y);
  }
}

TEST(OverlayGeometry, BrightnessStaysBetweenTenAndAHundred) {
  EXPECT_EQ(BrightnessAfterStep(100, -10), 90);
  EXPECT_EQ(BrightnessAfterStep(15, -10), 10);
  EXPECT_EQ(BrightnessAfterStep(10, -10), 10);
  EXPECT_EQ(BrightnessAfterStep(95, 10), 100);
  EXPECT_EQ(BrightnessAfterStep(100, 10), 100);
  EXPECT_EQ(ViewerStepsFor(100), 0);
  EXPECT_EQ(ViewerStepsFor(90), -1);
  EXPECT_EQ(ViewerStepsFor(10), -9);
}

// The switches write the fields at the offsets of the settings file: the
// 16-bit switches as -1 and 0, the two single switches as 1.0 and 0.0.
TEST(LayerSwitches, EachSwitchWritesItsOwnField) {
  struct Case {
    const char* action;
    std::size_t offset;
    bool real;
  } cases[] = {
      {"mnuShowWaypoints", 3034, true},     {"mnuShowTidalStreams", 3030, true},
      {"mnushowTideHeights", 2948, false},  {"mnuWindDisplay", 3450, false},
      {"mnuDisplayWindOverRoute", 3380, false}, {"mnuViewChartBoundaries", 2946, false},
      {"mnuViewVectors", 3382, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.action);
    const LayerSwitch* sw = FindLayerSwitch(c.action);
    ASSERT_NE(sw, nullptr);
    SettingsRecord s;
    for (bool on : {true, false}) {
      sw->set(s, on);
      EXPECT_EQ(sw->isOn(s), on);
      std::vector<std::uint8_t> bytes = EncodeSettings(s);
      ASSERT_EQ(bytes.size(), kSettingsRecordSize);
      if (c.real) {
        float v;
        std::memcpy(&v, &bytes[c.offset], 4);
        EXPECT_EQ(v, on ? 1.0f : 0.0f);
      } else {
        std::int16_t v;
        std::memcpy(&v, &bytes[c.offset], 2);
        EXPECT_EQ(v, on ? -1 : 0);
      }
    }
  }
  EXPECT_EQ(FindLayerSwitch("mnuExit"), nullptr);
  EXPECT_STREQ(FindLayerSwitch("mnuShowWaypoints")->onPicture, "waypointsvis.bmp");
  EXPECT_STREQ(FindLayerSwitch("mnuShowWaypoints")->offPicture, "waypointshidden.bmp");
  EXPECT_STREQ(FindLayerSwitch("mnushowTideHeights")->offPicture, "portshidden.bmp");
  EXPECT_STREQ(FindLayerSwitch("mnuShowTidalStreams")->onPicture, "tidalstreamsvis.bmp");
  EXPECT_STREQ(FindLayerSwitch("mnuWindDisplay")->offPicture, "windoff.bmp");
  EXPECT_STREQ(FindLayerSwitch("mnuDisplayWindOverRoute")->onPicture, "windoveron.bmp");
  // The dividers' button shows "dividers.bmp" while they are on.
  EXPECT_STREQ(DividersPicture(true), "dividers.bmp");
  EXPECT_STREQ(DividersPicture(false), "dividerson.bmp");
}

// Every picture the switches name is in the sample data's res folder.
TEST(LayerSwitches, PicturesAreShipped) {
  const std::filesystem::path res = std::filesystem::path(KELVANE_SOURCE_DIR) / "data" / "res";
  for (const char* name : {"waypointsvis.bmp", "waypointshidden.bmp", "portsvis.bmp", "portshidden.bmp",
                           "tidalstreamsvis.bmp", "tidalstreamshidden.bmp", "wrecksvis.bmp", "wreckshidden.bmp",
                           "obstructionsvis.bmp", "obstructionshidden.bmp", "userwrecksvis.bmp",
                           "userwreckshidden.bmp", "windon.bmp", "windoff.bmp", "windoveron.bmp", "windoveroff.bmp",
                           "dividerson.bmp", "dividers.bmp"}) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(std::filesystem::exists(res / name));
    EXPECT_EQ(std::filesystem::file_size(res / name), 54u + 24u * 24u * 3u);
  }
}

}  // namespace
}  // namespace kelvane
