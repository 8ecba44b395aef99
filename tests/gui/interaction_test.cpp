// The chart's modes with real widgets and real events: the main window on
// the sample chart in a temporary data tree, driven by mouse and key events
// sent to the chart viewer.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QToolBar>

#include "app/chartinteraction.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "chart/chartmodes.h"
#include "core/format.h"
#include "core/positions.h"
#include "forms/frmMouseInput.h"
#include "wind/windstore.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

// The main window on the sample chart at 100 percent, centred on Anvil
// Point (a Sample.gpx waypoint).
struct Window : LoadedChart {
  std::vector<std::string> questions;
  bool answer = true;
  Waypoint anvil;

  Window() {
    chart.resize(1000, 760);
    chart.show();
    chart.Interaction()->askYesNo = [this](const std::string& text, const std::string& title) {
      questions.push_back(title + ": " + text);
      return answer;
    };
    for (std::size_t i = 0; i + 1 < chart.State().waypoints.ChartWaypoints.size(); ++i)
      if (chart.State().waypoints.ChartWaypoints[i].Name == "Anvil Point") anvil = chart.State().waypoints.ChartWaypoints[i];
    Viewer()->SetZoomPercent(100);
    chart.Chart()->LocatePoint(anvil.Lat, anvil.Lon);
  }
  app::ChartViewer* Viewer() { return chart.Chart()->Viewer(); }
  QWidget* Surface() { return Viewer()->viewport(); }
  // The screen point of a position on the chart.
  QPoint ScreenOf(float lat, float lon) {
    const ChartGeometry& g = chart.Chart()->Geometry();
    return Viewer()->ImageToScreen(QPointF(LonToPixel(g, lon), LatToPixel(g, lat))).toPoint();
  }
  Position At(QPoint p) { return chart.Chart()->CoordsFromPixels(QPointF(p)); }
  void Send(QEvent::Type type, QPoint p, Qt::MouseButton button, Qt::MouseButtons held,
            Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QMouseEvent e(type, QPointF(p), QPointF(Surface()->mapToGlobal(p)), button, held, mods);
    QCoreApplication::sendEvent(Surface(), &e);
  }
  void Move(QPoint p, Qt::MouseButtons held = Qt::NoButton) { Send(QEvent::MouseMove, p, Qt::NoButton, held); }
  void Click(QPoint p, Qt::KeyboardModifiers mods = Qt::NoModifier) {
    Move(p);
    Send(QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton, mods);
    Send(QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton, mods);
  }
  void ShiftClick(QPoint p) { Click(p, Qt::ShiftModifier); }
  void Key(Qt::Key key) { QTest::keyClick(Viewer(), key); }
  PassageState& Passage() { return chart.State().passage; }
  std::string Panel(int n) { return chart.StatusPanel(n)->text().toStdString(); }
  std::string Caption() { return chart.windowTitle().toStdString(); }
  bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
  }
  // A screen point `miles` nautical miles due south of a position.
  QPoint South(float lat, float lon, float miles) { return ScreenOf(lat - miles / 60.0f, lon); }
};

}  // namespace

TEST(ChartModes, StatusBarAndCaptionAtLoad) {
  Window w;
  EXPECT_EQ(w.messages.size(), 0u);
  EXPECT_EQ(w.Panel(1), "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)");
  EXPECT_EQ(w.Panel(2), "Chart in use = Sample Chart : 9999-1 : [465000]");
  EXPECT_EQ(w.Panel(3), "Waypoints = Sample.gpx");
  EXPECT_EQ(w.Panel(4), "");
  // The catalogue's issue date 2026 is day 2026 from 30 December 1899.
  // (Showing the window may have moved the pointer over the chart already.)
  w.chart.UpdateStatusBar();
  // The sample charts were issued on 1 January 2026 (date serial 46023).
  EXPECT_EQ(w.Panel(5), "Chart issued 1/2026");
  EXPECT_TRUE(w.Caption().starts_with("Kelvane - Selected Time = ")) << w.Caption();
  EXPECT_FALSE(w.chart.Action("mnucalcrte")->isEnabled());
  EXPECT_TRUE(w.chart.Action("mnuDividersOn")->isEnabled());
  // The pointer's position goes to panel 5 as it moves.
  QPoint p = w.ScreenOf(w.anvil.Lat, w.anvil.Lon);
  w.Move(p);
  Position at = w.At(p);
  EXPECT_EQ(w.Panel(5), LatToText3(at.lat) + ", " + LonToText3(at.lon));
}

TEST(ChartModes, ShiftClickBuildsARouteThatSnapsInsideTheCircleOnly) {
  Window w;
  ASSERT_EQ(w.anvil.Name, "Anvil Point");
  const float circle = SearchCircleOf(w.chart.State().settings);
  ASSERT_EQ(circle, 1.0f);
  // Outside the circle: 3 miles south of the mark, clear of every waypoint.
  QPoint outside = w.South(w.anvil.Lat, w.anvil.Lon, 3.0f);
  Position outsidePos = w.At(outside);
  ASSERT_GT(NearestWaypoint(w.chart.State().waypoints.ChartWaypoints, outsidePos.lat, outsidePos.lon).range, circle);
  w.ShiftClick(outside);
  ASSERT_EQ(RouteCount(w.Passage()), 1);
  EXPECT_EQ(w.Passage().Route[1].Name, "");
  EXPECT_EQ(w.Passage().Route[1].Lat, outsidePos.lat);
  EXPECT_EQ(w.Passage().Route[1].Lon, outsidePos.lon);
  EXPECT_TRUE(w.EndsWith(w.Caption(), ":  Creating Route")) << w.Caption();
  EXPECT_TRUE(w.chart.Action("mnucalcrte")->isEnabled());
  // Inside the circle: half a mile south of the mark snaps to it, and the
  // pointer shows four arrows.
  QPoint inside = w.South(w.anvil.Lat, w.anvil.Lon, 0.5f);
  w.Move(inside);
  EXPECT_EQ(w.Viewer()->MousePointer(), 15);
  w.ShiftClick(inside);
  ASSERT_EQ(RouteCount(w.Passage()), 2);
  EXPECT_EQ(w.Passage().Route[2].Name, "Anvil Point");
  EXPECT_EQ(w.Passage().Route[2].Lat, w.anvil.Lat);
  EXPECT_EQ(w.Passage().Route[2].Lon, w.anvil.Lon);
  // A third point, 4 miles east of the first.
  QPoint east = w.ScreenOf(outsidePos.lat, outsidePos.lon + 4.0f / 60.0f / std::cos(50.53f * 3.14159265f / 180));
  w.ShiftClick(east);
  ASSERT_EQ(RouteCount(w.Passage()), 3);
  EXPECT_EQ(w.Passage().Route[3].Name, "");
  EXPECT_EQ(w.Viewer()->MousePointer(), 15);  // the left button pans
  // 2.5 miles north to the mark and about 4.7 back to the third point.
  const float legs = RangeBearing(outsidePos.lat, outsidePos.lon, w.anvil.Lat, w.anvil.Lon).range +
                     RangeBearing(w.anvil.Lat, w.anvil.Lon, w.Passage().Route[3].Lat, w.Passage().Route[3].Lon).range;
  EXPECT_NEAR(w.Passage().RouteDistance, legs, 1e-4f);
  EXPECT_TRUE(w.EndsWith(w.Caption(), ":  Route = " + FormatNumber(legs, "0.0") + "nm")) << w.Caption();
  EXPECT_EQ(w.Panel(4), "Route= " + FormatNumber(legs, "0.0") + "nm");
  EXPECT_EQ(w.chart.Interaction()->RouteCombo()->count(), 3);
  EXPECT_EQ(w.chart.Interaction()->RouteCombo()->itemText(1).toStdString(), "2  Anvil Point");

  // Backspace removes the last point only.
  w.Key(Qt::Key_Backspace);
  ASSERT_EQ(RouteCount(w.Passage()), 2);
  EXPECT_EQ(w.Passage().Route[2].Name, "Anvil Point");
  // Esc clears the route and its menus.
  w.Key(Qt::Key_Escape);
  EXPECT_EQ(RouteCount(w.Passage()), 0);
  EXPECT_FALSE(w.chart.Action("mnucalcrte")->isEnabled());
  EXPECT_EQ(w.chart.Interaction()->RouteCombo()->count(), 0);
  EXPECT_EQ(w.Caption().find("Route"), std::string::npos) << w.Caption();
  EXPECT_EQ(w.Panel(4), "");
  EXPECT_TRUE(w.messages.empty());
}

TEST(ChartModes, InsWithOnePointGivesItsMessage) {
  Window w;
  w.ShiftClick(w.South(w.anvil.Lat, w.anvil.Lon, 3.0f));
  ASSERT_EQ(RouteCount(w.Passage()), 1);
  w.Key(Qt::Key_Insert);
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0], "You need to have entered at least 2 points - nothing done");
  EXPECT_TRUE(w.questions.empty());
  EXPECT_EQ(RouteCount(w.Passage()), 1);
  // With two points Ins asks first and puts the cursor into the leg.
  w.ShiftClick(w.South(w.anvil.Lat, w.anvil.Lon, 6.0f));
  QPoint between = w.South(w.anvil.Lat, w.anvil.Lon, 4.5f) + QPoint(3, 0);
  w.Move(between);
  w.Key(Qt::Key_Insert);
  ASSERT_EQ(w.questions.size(), 1u);
  EXPECT_EQ(w.questions[0], "Insert Point: Insert a route point?");
  ASSERT_EQ(RouteCount(w.Passage()), 3);
  EXPECT_EQ(w.Passage().Route[2].Lat, w.At(between).lat);
}

TEST(ChartModes, DividersReportRangeAndBearingOfTwoClicks) {
  Window w;
  w.chart.Action("mnuDividersOn")->trigger();
  QLabel* label = w.chart.Interaction()->DividersLabel();
  EXPECT_TRUE(label->isVisibleTo(w.Surface()));
  EXPECT_EQ(label->text().toStdString(), "Dividers Mode - Pan screen");
  EXPECT_EQ(w.Panel(1), "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)");
  QPoint zero = w.ScreenOf(w.anvil.Lat - 2.0f / 60, w.anvil.Lon);
  QPoint end = zero + QPoint(0, 100);  // straight down the screen: due south
  w.Move(zero);
  EXPECT_EQ(label->text().toStdString(), "Shift + Click - Ref. point");
  EXPECT_EQ(label->pos(), zero + QPoint(20, 20));
  w.ShiftClick(zero);
  EXPECT_EQ(RouteCount(w.Passage()), 0);  // no route point in dividers mode
  w.Click(end);
  // Due south by the difference of latitude in minutes.
  const float miles = (w.At(zero).lat - w.At(end).lat) * 60.0f;
  EXPECT_GT(miles, 3.0f);
  EXPECT_EQ(label->text().toStdString(), "Range " + FormatNumber(miles, "0.0") + "nm @180\u00b0T");
  EXPECT_TRUE(w.chart.State().marks.DividerZeroSet);
  EXPECT_TRUE(w.chart.State().marks.DividerEndSet);
  EXPECT_EQ(w.chart.State().marks.DividerEndLat, w.At(end).lat);
  // Off again: the label goes.
  w.chart.Action("mnuDividersOn")->trigger();
  EXPECT_FALSE(label->isVisibleTo(w.Surface()));
}

TEST(ChartModes, RouteDragMovesAPointAndDividersEndIt) {
  Window w;
  QPoint a = w.South(w.anvil.Lat, w.anvil.Lon, 3.0f);
  QPoint b = w.South(w.anvil.Lat, w.anvil.Lon, 6.0f) + QPoint(60, 0);
  QPoint c = w.South(w.anvil.Lat, w.anvil.Lon, 4.0f) + QPoint(160, 0);
  w.ShiftClick(a);
  w.ShiftClick(b);
  w.ShiftClick(c);
  ASSERT_EQ(RouteCount(w.Passage()), 3);
  QAction* drag = w.chart.Action("mnuRouteDrag");
  ASSERT_TRUE(drag->isEnabled());
  drag->trigger();
  EXPECT_TRUE(w.chart.State().marks.RouteDragOn);
  EXPECT_EQ(w.Panel(1), "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)");
  // Over the second point: four arrows, then hold the right button and move.
  w.Move(b);
  EXPECT_EQ(w.Viewer()->MousePointer(), 15);
  EXPECT_EQ(w.chart.State().marks.RouteDragIndex, 2);
  w.Send(QEvent::MouseButtonPress, b, Qt::RightButton, Qt::RightButton);
  EXPECT_FALSE(w.chart.Chart()->PopupMenu()->isVisible());  // no popup during route drag
  EXPECT_FALSE(w.chart.Timer1().isActive());  // held while the button is down
  QPoint to = b + QPoint(-40, -30);
  w.Move(b + QPoint(-20, -15), Qt::RightButton);
  w.Move(to, Qt::RightButton);
  w.Send(QEvent::MouseButtonRelease, to, Qt::RightButton, Qt::NoButton);
  EXPECT_TRUE(w.chart.Timer1().isActive());
  Position moved = w.At(to);
  EXPECT_EQ(w.Passage().Route[2].Lat, moved.lat);
  EXPECT_EQ(w.Passage().Route[2].Lon, moved.lon);
  EXPECT_EQ(w.Passage().Route[1].ModLat, moved.lat);
  EXPECT_EQ(w.Passage().Route[1].Lat, w.At(a).lat);  // the others stay
  EXPECT_NEAR(w.Passage().RouteDistance,
              RangeBearing(w.Passage().Route[1].Lat, w.Passage().Route[1].Lon, moved.lat, moved.lon).range +
                  RangeBearing(moved.lat, moved.lon, w.Passage().Route[3].Lat, w.Passage().Route[3].Lon).range,
              1e-4f);
  EXPECT_TRUE(w.EndsWith(w.Caption(), ":  Route = " + FormatNumber(w.Passage().RouteDistance, "0.0") + "nm"));
  // Switching the dividers on clears route drag.
  w.chart.Action("mnuDividersOn")->trigger();
  EXPECT_FALSE(w.chart.State().marks.RouteDragOn);
  EXPECT_FALSE(drag->isChecked());
  EXPECT_TRUE(w.chart.Action("mnuDividersOn")->isChecked());
}

TEST(ChartModes, PopupMenuEnabling) {
  Window w;
  QPoint p = w.South(w.anvil.Lat, w.anvil.Lon, 3.0f);
  auto rightClick = [&] {
    w.Move(p);
    w.Send(QEvent::MouseButtonPress, p, Qt::RightButton, Qt::RightButton);
    QMenu* menu = w.chart.Chart()->PopupMenu();
    bool shown = menu->isVisible();
    menu->hide();
    w.Send(QEvent::MouseButtonRelease, p, Qt::RightButton, Qt::NoButton);
    return shown;
  };
  app::ChartInteractionController* ci = w.chart.Interaction();
  EXPECT_TRUE(rightClick());
  EXPECT_FALSE(ci->PopupItem("mnuPUInsert")->isEnabled());
  EXPECT_FALSE(ci->PopupItem("mnuPUDeleteRoutePoint")->isEnabled());
  EXPECT_FALSE(ci->PopupItem("mnuPUDivHome")->isVisible());
  // The route add item puts a point where the right button went down.
  ci->PopupItem("mnuPURouteAdd")->trigger();
  ASSERT_EQ(RouteCount(w.Passage()), 1);
  EXPECT_EQ(w.Passage().Route[1].Lat, w.At(p).lat);
  rightClick();
  EXPECT_TRUE(ci->PopupItem("mnuPUInsert")->isEnabled());
  EXPECT_FALSE(ci->PopupItem("mnuPUDeleteRoutePoint")->isEnabled());
  p = w.South(w.anvil.Lat, w.anvil.Lon, 5.0f);
  rightClick();
  ci->PopupItem("mnuPURouteAdd")->trigger();
  rightClick();
  EXPECT_TRUE(ci->PopupItem("mnuPUDeleteRoutePoint")->isEnabled());
  // The delete item asks, then takes the point nearest the click.
  ci->PopupItem("mnuPUDeleteRoutePoint")->trigger();
  EXPECT_EQ(w.questions.back(), "Delete Route Point: Delete a route point?");
  ASSERT_EQ(RouteCount(w.Passage()), 1);
  // With the dividers the zero point item shows, and sets the zero point.
  w.chart.Action("mnuDividersOn")->trigger();
  rightClick();
  EXPECT_TRUE(ci->PopupItem("mnuPUDivHome")->isVisible());
  ci->PopupItem("mnuPUDivHome")->trigger();
  EXPECT_EQ(w.chart.State().marks.DividerZeroLat, w.At(p).lat);
  EXPECT_FALSE(w.chart.State().marks.DividerEndSet);
}

TEST(ChartModes, MouseInputAppendsAndSavesTheWaypoint) {
  Window w;
  QAction* wayMouse = w.chart.menuBar()->findChild<QAction*>("mnuWayMouse");
  ASSERT_NE(wayMouse, nullptr);
  wayMouse->trigger();
  EXPECT_EQ(w.chart.State().marks.InputMode, 2);
  EXPECT_EQ(w.Panel(1), "");
  int runs = 0;
  std::vector<std::string> formMessages;
  w.chart.Interaction()->runMouseInput = [&](forms::frmMouseInput& form) {
    ++runs;
    form.showMessage = [&](const std::string& m) { formMessages.push_back(m); };
    form.askYesNo = [](const std::string&) { return true; };
    // No name first: refused, the form stays.
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    form.txtWaypointName->setText("Mouse Mark");
    form.txtSymbol->setText("YB");
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
  };
  const std::size_t before = Count(w.chart.State().waypoints.ChartWaypoints);
  QPoint p = w.South(w.anvil.Lat, w.anvil.Lon, 3.0f);
  w.ShiftClick(p);
  EXPECT_EQ(runs, 1);
  ASSERT_EQ(formMessages.size(), 1u);
  EXPECT_EQ(formMessages[0], "Point Must have a name");
  EXPECT_EQ(RouteCount(w.Passage()), 0);
  ASSERT_EQ(Count(w.chart.State().waypoints.ChartWaypoints), before + 1);
  const Waypoint& added = w.chart.State().waypoints.ChartWaypoints[before];
  EXPECT_EQ(added.Name, "Mouse Mark");
  EXPECT_EQ(added.Sym, "YB");
  EXPECT_NEAR(added.Lat, w.At(p).lat, 0.0002f);  // through the two-decimal text of the box
  // The file on disk has it at once.
  GpxStore reread;
  LoadChartWaypoints(WaypointFilePath(w.chart.State().settings, w.chart.State().folders), reread);
  ASSERT_EQ(Count(reread.ChartWaypoints), before + 1);
  EXPECT_EQ(reread.ChartWaypoints[before].Name, "Mouse Mark");
  wayMouse->trigger();
  EXPECT_EQ(w.chart.State().marks.InputMode, 3);
}

TEST(ChartModes, ZoomToolbarGroupAndKeys) {
  Window w;
  app::ChartInteractionController* ci = w.chart.Interaction();
  QAction* zoom = ci->ToolButton("cmdZoom");
  ASSERT_NE(zoom, nullptr);
  for (int i = 1; i <= 6; ++i) EXPECT_FALSE(ci->ToolButton("cmdZoom" + std::to_string(i))->isVisible());
  zoom->trigger();
  for (int i = 1; i <= 6; ++i) EXPECT_TRUE(ci->ToolButton("cmdZoom" + std::to_string(i))->isVisible());
  // Zoom in from 1.0 gives 1.2, and the group closes.
  ci->ToolButton("cmdZoom2")->trigger();
  EXPECT_NEAR(w.Viewer()->Zoom(), 1.2, 1e-6);
  EXPECT_FALSE(ci->ToolButton("cmdZoom2")->isVisible());
  ci->cmdZoom_Click(3);
  EXPECT_NEAR(w.Viewer()->Zoom(), 0.7, 1e-6);
  // Keys of the view still reach it: "5" is 50 percent, "0" 100.
  w.Key(Qt::Key_5);
  EXPECT_DOUBLE_EQ(w.Viewer()->Zoom(), 0.5);
  w.Key(Qt::Key_0);
  EXPECT_DOUBLE_EQ(w.Viewer()->Zoom(), 1.0);
  // "M" over a waypoint marks it.
  w.Move(w.ScreenOf(w.anvil.Lat, w.anvil.Lon));
  w.Key(Qt::Key_M);
  EXPECT_EQ(w.chart.State().marks.InputMode, 8);
  EXPECT_EQ(w.Panel(1), "Mode = Point Marked");
  w.Key(Qt::Key_Escape);
  EXPECT_EQ(w.Panel(1), "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)");
}

// Building a route with the stored wind in use (the factory setting): before
// any GRIB import nothing is asked, so no message comes at every click; once
// a forecast is imported, each new leg takes the wind of its start, and a
// leg the forecast does not cover keeps its wind with the route tools'
// message. The winds are those worked by hand in tools/make_grib_samples.sh.
TEST(ChartModes, NewLegTakesTheStoredWindOnlyOnceAForecastIsImported) {
  App();
  Window w;
  w.chart.Chart()->LocatePoint(50.7f, 0.0f);
  w.ShiftClick(w.ScreenOf(50.98f, -0.48f));
  w.ShiftClick(w.ScreenOf(50.52f, 0.02f));
  ASSERT_EQ(RouteCount(w.Passage()), 2);
  EXPECT_TRUE(w.messages.empty());
  EXPECT_FALSE(w.Passage().Route[1].LegWind);

  const fs::path grib = fs::path(KELVANE_TEST_DATA) / "wind" / "wind_signed.grb";
  ASSERT_TRUE(ImportGribToWindStore(grib, w.tree.folders.WindStoreFile(), w.tree.folders.GribPointsFile()).ok);
  WorkingMoment& m = w.chart.State().moment;
  m.WorkingDay = 329;  // 25/11/2026, 12:00 UTC
  m.WorkingYear = 2026;
  m.WorkingMonth = 11;
  m.WorkingDayOfMonth = 25;
  m.WorkingTime = 12.0f;
  // The leg from about 50.52N 0.02E: nearest grid point 50.5N 0, (U, V) =
  // (-4, 3) m/s: 5 / 0.5148 = 9.7125 kn from 126.87 degrees.
  w.ShiftClick(w.ScreenOf(50.62f, 0.3f));
  ASSERT_EQ(RouteCount(w.Passage()), 3);
  ASSERT_TRUE(w.Passage().Route[2].LegWind);
  EXPECT_NEAR(w.Passage().Route[2].LegWind->speed, 9.7125f, 1e-3);
  EXPECT_NEAR(w.Passage().Route[2].LegWind->direction, 126.87f, 0.01f);
  EXPECT_TRUE(w.messages.empty());
  // A day later the forecast has nothing: the leg keeps none, and is told.
  m.WorkingDay = 330;
  m.WorkingDayOfMonth = 26;
  w.ShiftClick(w.ScreenOf(50.6f, 0.45f));
  ASSERT_EQ(RouteCount(w.Passage()), 4);
  EXPECT_FALSE(w.Passage().Route[3].LegWind);
  EXPECT_EQ(w.messages, std::vector<std::string>{kRouteWindCoverageMessage});
}
