// The overlays painted into real images: each layer is drawn over a white
// surface on the calibration of the sample chart and its pixels are read
// back where the layer must be (and must not be). Then the main window over
// a seeded data tree: the layer switches, their pictures, the night view,
// the roll of the tide time, and the pictures of a calculated route.
#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QTest>
#include <QToolBar>

#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_layers.h"
#include "app/overlays.h"
#include "chart/catalogue.h"
#include "core/settings.h"
#include "passage/routecalc.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::app;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

constexpr int kW = 800, kH = 600;

// A white 800 x 600 surface showing image pixels (0, 0) to (800, 600) of
// the sample chart 9999-1 at zoom 1.
struct Scene {
  ProgramState state;
  ChartGeometry geometry;
  OverlayView view;
  std::vector<ChartRecord> catalogue;

  Scene() {
    App();
    state.settings = DefaultSettings(Folders{});
    state.marks.InputMode = 3;
    ChartCatalogue read = ReadChartsTable(fs::path(KELVANE_SOURCE_DIR) / "data", "Sample Chart");
    EXPECT_EQ(read.message, "");
    catalogue = read.charts;
    for (const ChartRecord& c : catalogue)
      if (c.chartNumber == "9999-1") geometry = GeometryOf(c, 1220);
    EXPECT_EQ(geometry.chart.chartNumber, "9999-1");
    view.geometry = &geometry;
    view.surfaceWidth = kW;
    view.surfaceHeight = kH;
    view.visibleWidth = kW;
    view.imageWidth = 3601;
  }
  // The position of an image pixel.
  Position At(int col, int row) const { return Position{PixelToLat(geometry, row), PixelToLon(geometry, col)}; }
  QImage Paint(OverlayOutcome* outcome = nullptr, const OverlayPainter& painter = OverlayPainter()) {
    QImage image(kW, kH, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    OverlaySources sources;
    sources.state = &state;
    sources.catalogue = &catalogue;
    OverlayOutcome out = painter.Paint(p, view, sources);
    p.end();
    if (outcome) *outcome = out;
    return image;
  }
  void AddRoutePoint(int col, int row, const std::string& name = "") {
    RoutePoint rp;
    Position p = At(col, row);
    rp.Lat = p.lat;
    rp.Lon = p.lon;
    rp.Name = name;
    rp.Speed = 5;
    state.passage.Route.push_back(rp);
  }
};

bool Is(const QImage& image, int x, int y, std::int32_t colour) {
  return image.pixelColor(x, y) == PackedColour(colour);
}

// The share of pixels of a colour along a horizontal run.
double ShareAlong(const QImage& image, int y, int x0, int x1, std::int32_t colour) {
  int hits = 0;
  for (int x = x0; x < x1; ++x) hits += Is(image, x, y, colour) ? 1 : 0;
  return static_cast<double>(hits) / (x1 - x0);
}

int CountColour(const QImage& image, QRect box, QColor colour) {
  int n = 0;
  for (int y = box.top(); y <= box.bottom(); ++y)
    for (int x = box.left(); x <= box.right(); ++x)
      if (box.contains(x, y) && image.rect().contains(x, y) && image.pixelColor(x, y) == colour) ++n;
  return n;
}

}  // namespace

TEST(Overlays, RouteLegsAreSolidOnceCalculatedAndDashedBefore) {
  Scene s;
  s.AddRoutePoint(100, 300);
  s.AddRoutePoint(400, 300, "Needles");
  s.AddRoutePoint(700, 300);
  // Nothing calculated: both legs dashed in the waypoint colour.
  QImage before = s.Paint();
  const std::int32_t way = s.state.settings.WayColour;
  for (auto [x0, x1] : {std::pair{160, 340}, std::pair{460, 640}}) {
    SCOPED_TRACE(x0);
    double share = ShareAlong(before, 300, x0, x1, way);
    EXPECT_GT(share, 0.35);
    EXPECT_LT(share, 0.85);
  }
  // The first leg calculated: it turns solid, the second stays dashed.
  s.state.passage.Route[1].LegTime = 1.2f;
  s.state.passage.Route[1].DriftCount = 14;
  s.state.passage.RouteCog.push_back(CogPoint{s.At(3000, 1000).lat, s.At(3000, 1000).lon, 10.0f, 1, 2024});
  QImage after = s.Paint();
  EXPECT_TRUE(Is(after, 250, 300, way));  // the middle of leg 1
  EXPECT_GT(ShareAlong(after, 300, 160, 340, way), 0.97);
  double share2 = ShareAlong(after, 300, 460, 640, way);
  EXPECT_LT(share2, 0.85);
  // The start is a red circle, later points circles in the waypoint colour
  // (or blue while the route is built); no mark is drawn in the sea between.
  EXPECT_GT(CountColour(after, QRect(85, 285, 31, 31), QColor(255, 0, 0)), 20);
  EXPECT_GT(CountColour(after, QRect(385, 285, 31, 31), PackedColour(way)), 20);
  EXPECT_TRUE(Is(after, 250, 250, 0xFFFFFF));
}

TEST(Overlays, WaypointsAsCirclesOrBandedMarks) {
  Scene s;
  auto add = [&](int col, int row, const char* name, const char* sym) {
    Position p = s.At(col, row);
    Waypoint w;
    w.Lat = p.lat;
    w.Lon = p.lon;
    w.Name = name;
    w.Sym = sym;
    s.state.waypoints.ChartWaypoints.insert(s.state.waypoints.ChartWaypoints.end() - 1, w);
  };
  add(200, 200, "Bembridge Ledge", "BYB");
  add(400, 300, "Poole Fairway", "rw");  // a row of its own: the name left of it runs this far
  add(600, 200, "Odd", "XYZ");
  add(0, 200, "On the frame", "G");  // column 0 is off the surface
  const SettingsRecord& st = s.state.settings;
  OverlayOutcome out;
  // Circles, filled with the waypoint colour.
  QImage circles = s.Paint(&out);
  EXPECT_EQ(out.drawnWaypoints, 3);
  EXPECT_TRUE(Is(circles, 200, 200, st.WayColour));
  EXPECT_TRUE(Is(circles, 600, 200, st.WayColour));
  EXPECT_TRUE(Is(circles, 200, 200 + st.WaySize + 3, 0xFFFFFF));
  // Unfilled: the ring only.
  s.state.settings.WayFill = 0;
  QImage rings = s.Paint();
  EXPECT_TRUE(Is(rings, 200, 200, 0xFFFFFF));
  EXPECT_GT(CountColour(rings, QRect(190, 190, 21, 21), PackedColour(st.WayColour)), 12);
  // Symbol marks: 12 x 18 bodies, bands top first.
  s.state.settings.WayPointIcon = -1;
  QImage marks = s.Paint();
  EXPECT_TRUE(Is(marks, 200, 194, kBandBlack));   // BYB: black over
  EXPECT_TRUE(Is(marks, 200, 200, kBandYellow));  // yellow over
  EXPECT_TRUE(Is(marks, 200, 206, kBandBlack));   // black
  EXPECT_TRUE(Is(marks, 400, 296, kBandRed));     // RW: red over white
  EXPECT_TRUE(Is(marks, 400, 304, kBandWhite));
  EXPECT_TRUE(Is(marks, 600, 200, st.WayColour));  // no bands: the plain mark
  // The layer switched off draws nothing.
  s.state.settings.ShowWaypoints = 0.0f;
  QImage none = s.Paint(&out);
  EXPECT_EQ(out.drawnWaypoints, 0);
  EXPECT_TRUE(Is(none, 200, 200, 0xFFFFFF));
}

TEST(Overlays, StreamArrowsRunDownstreamAndScaleWithTheView) {
  Scene s;
  DiamondStreamNow east;
  Position p = s.At(300, 300);
  east.Lat = p.lat;
  east.Lon = p.lon;
  east.Rate = 2.0f;
  east.Direction = 90.0f;
  east.Label = "9999-1-A  ";
  s.state.streams.StreamNow.push_back(east);
  DiamondStreamNow north = east;
  p = s.At(600, 400);
  north.Lat = p.lat;
  north.Lon = p.lon;
  north.Direction = 0.0f;
  s.state.streams.StreamNow.push_back(north);
  const std::int32_t colour = s.state.settings.TidalStreamColour;
  OverlayOutcome out;
  QImage image = s.Paint(&out);
  EXPECT_EQ(out.drawnArrows, 2);
  // MarkRadius 9 here (round(2.4) = 2, over 800 / 3601); length 2 x 9 x 2.0 = 36.
  ASSERT_EQ(out.markRadius, 9);
  EXPECT_TRUE(Is(image, 300 + 18, 300, colour));  // along the shaft, eastward
  EXPECT_TRUE(Is(image, 300 + 30, 300, colour));  // in the head
  EXPECT_TRUE(Is(image, 300 - 18, 300, 0xFFFFFF));
  EXPECT_TRUE(Is(image, 600, 400 - 18, colour));  // the northward arrow runs up the screen
  EXPECT_TRUE(Is(image, 600, 400 + 30, 0xFFFFFF));
  // Zoomed in twice as far, the arrow is twice as long.
  s.view.visibleWidth = 400;
  image = s.Paint(&out);
  EXPECT_EQ(out.markRadius, 18);
  EXPECT_TRUE(Is(image, 300 + 60, 300, colour));
  // The stream layer off.
  s.state.settings.ShowTidalStreams = 0.0f;
  image = s.Paint(&out);
  EXPECT_EQ(out.drawnArrows, 0);
  EXPECT_TRUE(Is(image, 300 + 18, 300, 0xFFFFFF));
}

TEST(Overlays, CalculatedTrackMobDividersAndBoundaries) {
  Scene s;
  auto& cog = s.state.passage.RouteCog;
  for (int i = 0; i < 4; ++i) {
    Position p = s.At(100 + 150 * i, 500);
    cog.push_back(CogPoint{p.lat, p.lon, 9.0f + i * 0.25f, 100, 2024});
  }
  s.state.marks.MOBSet = true;
  Position mob = s.At(700, 100);
  s.state.marks.MOBLat = mob.lat;
  s.state.marks.MOBLon = mob.lon;
  s.state.marks.DividersOn = true;
  s.state.marks.DividerZeroSet = true;
  Position z = s.At(100, 100), e = s.At(500, 100);
  s.state.marks.DividerZeroLat = z.lat;
  s.state.marks.DividerZeroLon = z.lon;
  s.state.marks.DividerEndSet = true;
  s.state.marks.DividerEndLat = e.lat;
  s.state.marks.DividerEndLon = e.lon;
  OverlayOutcome out;
  QImage image = s.Paint(&out);
  // The track in the COG colour between its steps.
  EXPECT_TRUE(Is(image, 175, 500, s.state.settings.COGColour));
  EXPECT_TRUE(Is(image, 475, 500, s.state.settings.COGColour));
  // The MOB mark and its label.
  EXPECT_EQ(out.mobLabel, "MOB Position " + LatToText(mob.lat) + " " + LonToText(mob.lon));
  EXPECT_GT(CountColour(image, QRect(685, 85, 31, 31), QColor(255, 0, 0)), 20);
  // The dividers' line from zero to end.
  EXPECT_TRUE(Is(image, 300, 100, 0));
  // MOB off the surface: no label.
  Position away = s.At(2000, 100);
  s.state.marks.MOBLat = away.lat;
  s.state.marks.MOBLon = away.lon;
  s.Paint(&out);
  EXPECT_EQ(out.mobLabel, "");
  // Chart boundaries: the sample area's charts that cross this view draw
  // dashed black lines; switched off, none.
  s.state.marks = ChartMarks{};
  s.state.passage.RouteCog.assign(1, CogPoint{});
  s.state.settings.ShowChartBoundaries = -1;
  QImage with = s.Paint();
  s.state.settings.ShowChartBoundaries = 0;
  QImage without = s.Paint();
  EXPECT_GT(CountColour(with, with.rect(), QColor(0, 0, 0)), 100);
  EXPECT_EQ(CountColour(without, without.rect(), QColor(0, 0, 0)), 0);
}

TEST(Overlays, LayersKeepTheirOrderAndLaterOnesJoinByStep) {
  OverlayPainter painter;
  std::vector<std::string> names;
  for (const auto& l : painter.Layers()) names.push_back(l.name);
  EXPECT_EQ(names, (std::vector<std::string>{"route", "cursor", "waypoints", "ports", "cog", "boat", "mob", "marked",
                                             "aispicked", "boundaries", "streams", "ais", "dividers"}));
  std::vector<std::string> order;
  painter.AddLayer({13, "wrecks", [&](OverlayFrame&) { order.push_back("wrecks"); }});
  painter.AddLayer({15, "wind", [&](OverlayFrame&) { order.push_back("wind"); }});
  painter.AddLayer({17, "tracks", [&](OverlayFrame&) { order.push_back("tracks"); }});
  names.clear();
  for (const auto& l : painter.Layers()) names.push_back(l.name);
  EXPECT_EQ(names, (std::vector<std::string>{"route", "cursor", "waypoints", "ports", "cog", "boat", "mob", "marked",
                                             "aispicked", "boundaries", "wrecks", "streams", "wind", "ais", "tracks",
                                             "dividers"}));
  Scene s;
  s.Paint(nullptr, painter);
  EXPECT_EQ(order, (std::vector<std::string>{"wrecks", "wind", "tracks"}));
}

// ---- the main window ------------------------------------------------------------

namespace {

QImage Surface(FrmChart& chart) { return chart.Chart()->Viewer()->viewport()->grab().toImage(); }

double MeanBrightness(const QImage& image) {
  double sum = 0;
  int n = 0;
  for (int y = 0; y < image.height(); y += 7)
    for (int x = 0; x < image.width(); x += 7) {
      sum += qGray(image.pixel(x, y));
      ++n;
    }
  return n ? sum / n : 0;
}

}  // namespace

TEST(OverlaysWindow, LayerSwitchesWriteAtOnceAndShowTheirPictures) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  chart.show();
  EXPECT_TRUE(messages.empty());
  auto* button = chart.ToolBar()->findChild<QAction*>("cmdLayerWaypoints");
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->data().toString(), "waypointsvis.bmp");
  EXPECT_FALSE(button->icon().isNull());  // the picture came from the data tree's res folder
  EXPECT_TRUE(chart.Action("mnuShowWaypoints")->isChecked());
  button->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowWaypoints, 0.0f);
  QTest::qWait(1);
  QCoreApplication::processEvents();
  EXPECT_EQ(button->data().toString(), "waypointshidden.bmp");
  EXPECT_FALSE(chart.Action("mnuShowWaypoints")->isChecked());
  chart.Action("mnushowTideHeights")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowTideHeights, 0);
  chart.Action("mnuWindDisplay")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).WindDisplay, -1);
  // Two switches in a row keep each other's fields.
  SettingsRecord file = ReadSettings(tree.folders.SettingsFile());
  EXPECT_EQ(file.ShowWaypoints, 0.0f);
  EXPECT_EQ(file.ShowTideHeights, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(chart.ToolBar()->findChild<QAction*>("cmdLayerPorts")->data().toString(), "portshidden.bmp");
  EXPECT_EQ(chart.ToolBar()->findChild<QAction*>("cmdLayerWind")->data().toString(), "windon.bmp");
  EXPECT_EQ(chart.ToolBar()->findChild<QAction*>("cmdDividers")->data().toString(), "dividerson.bmp");
}

TEST(OverlaysWindow, NightViewDarkensAndDayViewRestores) {
  LoadedChart loaded;
  FrmChart& chart = loaded.chart;
  chart.resize(900, 700);
  chart.show();
  QTest::qWait(10);
  const double day = MeanBrightness(Surface(chart));
  chart.Action("mnuViewNight")->trigger();
  EXPECT_EQ(chart.Layers().brightness, 90);
  const double night = MeanBrightness(Surface(chart));
  EXPECT_LT(night, day - 5);
  chart.Action("mnuViewNight")->trigger();
  EXPECT_EQ(chart.Layers().brightness, 80);
  chart.Action("mnuIncreaseIntensity")->trigger();
  EXPECT_EQ(chart.Layers().brightness, 90);
  chart.Action("mnuViewNormal")->trigger();
  EXPECT_EQ(chart.Layers().brightness, 100);
  EXPECT_EQ(chart.Chart()->Viewer()->Brightness(), 0);
  EXPECT_NEAR(MeanBrightness(Surface(chart)), day, 0.01);
}

TEST(OverlaysWindow, TideRollMovesToTheNextWholeHourAndRecalculatesTheStreams) {
  LoadedChart loaded;
  FrmChart& chart = loaded.chart;
  ASSERT_FALSE(chart.State().streams.StreamNow.empty());  // the load worked out the arrows
  WorkingMoment& m = chart.State().moment;
  m.userTimeSet = true;
  m.WorkingTime = 23.4f;
  const std::int16_t day = m.WorkingDay;
  chart.Action("mnuTideRollPlus")->trigger();
  EXPECT_EQ(m.WorkingTime, 0.0f);
  EXPECT_NE(m.WorkingDay, day);
  EXPECT_EQ(m.TideDay, m.WorkingDay);  // the curves were rebuilt for the new day
  chart.Action("mnuTideRollMinus")->trigger();
  EXPECT_EQ(m.WorkingTime, 23.0f);
  EXPECT_EQ(m.WorkingDay, day);
  EXPECT_EQ(chart.StatusPanel(5)->text(), "23:00");
  EXPECT_TRUE(loaded.messages.empty());
  EXPECT_EQ(chart.State().streams.StreamNow.size(), chart.State().streams.Diamonds.size());
}

// The pictures of the issue: the sample chart with a calculated route, its
// track, the waypoints as banded marks and the stream arrows, at two zooms
// (saved when KELVANE_SCREENSHOT_DIR is set: tools/screenshots.sh).
TEST(OverlaysWindow, CalculatedRouteOnTheSampleChart) {
  LoadedChart loaded;
  FrmChart& chart = loaded.chart;
  ProgramState& st = chart.State();
  st.settings.WayPointIcon = -1;
  // A route through four sample marks on the chart on show.
  const ChartRecord& c = chart.Chart()->CurrentChart();
  std::vector<Waypoint> on;
  for (std::size_t i = 0; i < Count(st.waypoints.ChartWaypoints); ++i) {
    const Waypoint& w = st.waypoints.ChartWaypoints[i];
    if (w.Lat < c.UpperLat - 0.05f && w.Lat > c.LowerLat + 0.05f && w.Lon > c.LeftLon + 0.05f &&
        w.Lon < c.rightLon - 0.05f)
      on.push_back(w);
  }
  ASSERT_GE(on.size(), 3u);
  for (std::size_t i = 0; i < std::min<std::size_t>(4, on.size()); ++i) {
    RoutePoint rp;
    rp.Lat = on[i].Lat;
    rp.Lon = on[i].Lon;
    rp.Name = on[i].Name;
    rp.Speed = 6;
    st.passage.Route.push_back(rp);
  }
  StreamContext ctx = st.Streams();
  RouteCalcInput in;
  in.DepartureText = "08:00";
  in.Day = st.moment.WorkingDay;
  in.Year = st.moment.WorkingYear;
  in.WorkingTime = st.moment.WorkingTime;
  in.CalcInterval = 15.0f;
  RouteCalcOutcome result = CalculateRoute(ctx, st.passage, in);
  ASSERT_TRUE(result.completed);
  EXPECT_GT(st.passage.RouteCog.size(), 2u);
  chart.resize(1200, 800);
  chart.show();
  chart.Chart()->Viewer()->SetZoomMode(2);
  QTest::qWait(20);
  Screenshot(&chart, "overlays-route-whole-chart");
  EXPECT_GT(chart.Layers().lastPaint.drawnWaypoints, 0);
  EXPECT_GT(chart.Layers().lastPaint.drawnArrows, 0);
  // Closer in, on the route's start: the red start circle stands clear of
  // the track, and the marks have grown.
  const int wholeRadius = chart.Layers().lastPaint.markRadius;
  chart.Chart()->Viewer()->SetZoom(1.0);
  chart.Chart()->LocatePoint(st.passage.Route[1].Lat, st.passage.Route[1].Lon);
  QTest::qWait(20);
  QImage image = Surface(chart);
  Screenshot(&chart, "overlays-route-zoom-1");
  EXPECT_GT(chart.Layers().lastPaint.markRadius, wholeRadius);
  const OverlayView view = ViewOf(*chart.Chart()->Viewer(), chart.Chart()->Geometry());
  const ScreenPoint start = view.ToScreen(st.passage.Route[1].Lat, st.passage.Route[1].Lon);
  const int r = chart.Layers().lastPaint.markRadius;
  EXPECT_GT(CountColour(image, QRect(int(start.x) - r - 2, int(start.y) - r - 2, 2 * r + 5, 2 * r + 5), QColor(255, 0, 0)),
            10);
}
