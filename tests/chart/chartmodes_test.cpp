// The chart's modes without a screen: snapping, route building and editing,
// dividers, route drag, marks, the keyboard table and the small checks.
#include "chart/chartmodes.h"

#include <gtest/gtest.h>

#include "core/positions.h"

using namespace kelvane;

namespace {

// One minute of latitude is one nautical mile: offsets in miles north.
constexpr float kMile = 1.0f / 60.0f;

Waypoint Mark(float lat, float lon, const char* name = "") {
  Waypoint w;
  w.Lat = lat;
  w.Lon = lon;
  w.Name = name;
  return w;
}

CogPoint Cog(float lat, float lon, float time) {
  CogPoint c;
  c.Lat = lat;
  c.Lon = lon;
  c.Time = time;
  return c;
}

struct World {
  ChartMarks marks;
  PassageState passage;
  GpxStore waypoints;
  SettingsRecord settings;
  ChartInteraction chart{marks, passage, waypoints, settings};
  std::vector<std::string> messages;
  std::vector<std::string> questions;
  bool answer = true;

  World() {
    settings.SearchCircle = 1.0f;
    settings.VesselSpeed = 5.0f;
    waypoints.ChartWaypoints = {Mark(50.5f, -1.0f, "ALPHA"), Mark(50.0f, -1.5f, "BRAVO"), Mark(50.5f, -1.0f, "ALPHA2"),
                                Waypoint{}};
    chart.hooks.showMessage = [this](const std::string& m) { messages.push_back(m); };
    chart.hooks.askYesNo = [this](const std::string& q, const std::string& title) {
      questions.push_back(title + ": " + q);
      return answer;
    };
  }
  PointerEvent At(float lat, float lon) {
    PointerEvent e;
    e.lat = lat;
    e.lon = lon;
    e.x = 100;
    e.y = 80;
    return e;
  }
  // Pointer there, then Shift + left click.
  InteractionOutcome ShiftClick(float lat, float lon) {
    (void)chart.MouseMove(At(lat, lon));
    PointerEvent e = At(lat, lon);
    e.left = e.shift = true;
    InteractionOutcome out = chart.MouseDown(e);
    (void)chart.MouseUp(e);
    return out;
  }
};

}  // namespace

TEST(ChartInteraction, SnapInsideTheSearchCircleOnly) {
  World w;
  struct Case {
    float north;  // miles north of ALPHA
    bool snaps;
  } cases[] = {{0.0f, true}, {0.9f, true}, {0.999f, true}, {1.1f, false}, {5.0f, false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.north);
    InteractionOutcome out = w.chart.MouseMove(w.At(50.5f + c.north * kMile, -1.0f));
    EXPECT_EQ(w.marks.SnapOn, c.snaps);
    ASSERT_TRUE(out.pointer.has_value());
    EXPECT_EQ(*out.pointer, c.snaps ? 15 : 2);
    if (c.snaps) {
      // Equal ranges keep the first waypoint.
      EXPECT_EQ(w.chart.SnapWaypointName, "ALPHA");
      EXPECT_EQ(w.marks.SnapWaypointLat, 50.5f);
    }
  }
  // A search circle of 0 is taken as 0.01 miles.
  w.settings.SearchCircle = 0;
  EXPECT_EQ(SearchCircleOf(w.settings), 0.01f);
  (void)w.chart.MouseMove(w.At(50.5f + 0.005f * kMile, -1.0f));
  EXPECT_TRUE(w.marks.SnapOn);
  (void)w.chart.MouseMove(w.At(50.5f + 0.02f * kMile, -1.0f));
  EXPECT_FALSE(w.marks.SnapOn);
}

TEST(ChartInteraction, ShiftClickBuildsTheRoute) {
  World w;
  // First point away from any waypoint, second snapped to ALPHA, third free.
  InteractionOutcome first = w.ShiftClick(50.0f, -1.0f);
  EXPECT_TRUE(first.routeChanged);
  EXPECT_EQ(w.chart.RouteText(), ":  Creating Route");
  (void)w.ShiftClick(50.5f + 0.5f * kMile, -1.0f);
  (void)w.ShiftClick(50.5f, -0.5f);
  ASSERT_EQ(RouteCount(w.passage), 3);
  const RoutePoint& a = w.passage.Route[1];
  const RoutePoint& b = w.passage.Route[2];
  const RoutePoint& c = w.passage.Route[3];
  EXPECT_EQ(a.Name, "");
  EXPECT_EQ(b.Name, "ALPHA");
  EXPECT_EQ(b.Lat, 50.5f);  // the waypoint's exact position
  EXPECT_EQ(b.Lon, -1.0f);
  EXPECT_EQ(c.Name, "");
  // Each point takes the vessel speed, and the leg before it ends on it.
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(w.passage.Route[static_cast<std::size_t>(i)].Speed, 5.0f);
  EXPECT_EQ(a.ModLat, b.Lat);
  EXPECT_EQ(a.ModLon, b.Lon);
  EXPECT_EQ(b.ModLat, c.Lat);
  EXPECT_EQ(c.ModLat, 0.0f);
  EXPECT_EQ(a.LatText, "50.00.00N");
  // 30 miles north, then 30 minutes of longitude east at 50.5 N:
  // 30 cos(50.5 degrees) = 19.08 miles; 49.08 in all.
  EXPECT_NEAR(w.passage.RouteDistance, 49.08f, 0.01f);
  EXPECT_EQ(w.chart.RouteText(), ":  Route = 49.1nm");
  // The leg forms' working speed and leeway go back to the settings' at
  // each new point (the leeway was once left as the last form had it).
  w.settings.UseLeeway = 1;
  w.settings.Leeway = 7.5f;
  InteractionOutcome fourth = w.ShiftClick(50.6f, -0.5f);
  ASSERT_TRUE(fourth.legDefaults);
  EXPECT_EQ(fourth.legDefaults->speed, 5.0f);
  EXPECT_TRUE(fourth.legDefaults->useLeeway);
  EXPECT_EQ(fourth.legDefaults->leeway, 7.5f);
}

TEST(ChartInteraction, PointsWithoutSnapLieOnThePixelGrid) {
  ChartRecord record;
  record.UpperLat = 51.2f;
  record.UpperPixels = 0.7f;
  record.LowerLat = 50.3f;
  record.LowerPixels = 1220;
  record.LeftLon = -2.6f;
  record.LeftPixels = 0;
  record.rightLon = 1.6f;
  record.RightPixels = 3600;
  ASSERT_TRUE(ComputeChartFields(record));
  ChartGeometry g = GeometryOf(record, 1221);
  World w;
  ChartInteraction chart(w.marks, w.passage, w.waypoints, w.settings, &g);
  const float lon = -1.23456f;
  (void)chart.MouseMove(w.At(50.1f, lon));
  (void)chart.AddRoutePoint(50.1f, lon);
  ASSERT_EQ(RouteCount(w.passage), 1);
  EXPECT_EQ(w.passage.Route[1].Lon, PixelToLon(g, LonToPixel(g, lon)));
  EXPECT_NE(w.passage.Route[1].Lon, lon);
}

TEST(ChartInteraction, HundredLegsAndNoMore) {
  World w;
  for (int i = 0; i < 101; ++i) (void)w.chart.AddRoutePoint(49.0f + i * 0.01f, -3.0f);
  EXPECT_EQ(RouteCount(w.passage), 101);
  EXPECT_TRUE(w.messages.empty());
  InteractionOutcome out = w.chart.AddRoutePoint(48.0f, -3.0f);
  EXPECT_EQ(RouteCount(w.passage), 101);
  EXPECT_FALSE(out.routeChanged);
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0], RouteFullMessage());
}

TEST(ChartInteraction, BackspaceEscAndIns) {
  World w;
  // Ins with one point: the message, and nothing changes.
  (void)w.chart.AddRoutePoint(50.0f, -1.2f);
  (void)w.chart.KeyDown(vk::Insert, false);
  ASSERT_EQ(w.messages.size(), 1u);
  EXPECT_EQ(w.messages[0], "You need to have entered at least 2 points - nothing done");
  EXPECT_TRUE(w.questions.empty());
  EXPECT_EQ(RouteCount(w.passage), 1);
  (void)w.chart.AddRoutePoint(50.2f, -1.2f);
  (void)w.chart.AddRoutePoint(50.2f, -0.9f);
  // Ins asks, and a No changes nothing.
  w.answer = false;
  (void)w.chart.MouseMove(w.At(50.21f, -1.05f));
  (void)w.chart.KeyDown(vk::Insert, false);
  ASSERT_EQ(w.questions.size(), 1u);
  EXPECT_EQ(w.questions[0], "Insert Point: Insert a route point?");
  EXPECT_EQ(RouteCount(w.passage), 3);
  // Yes puts the cursor into the nearest leg, the second.
  w.answer = true;
  (void)w.chart.KeyDown(vk::Insert, false);
  ASSERT_EQ(RouteCount(w.passage), 4);
  EXPECT_EQ(w.passage.Route[3].Lat, 50.21f);
  EXPECT_EQ(w.passage.Route[3].Lon, -1.05f);
  EXPECT_EQ(w.passage.Route[2].ModLon, -1.05f);
  EXPECT_EQ(w.passage.Route[3].ModLon, -0.9f);
  // Backspace takes the last point only.
  KeyOutcome back = w.chart.KeyDown(vk::Back, false);
  EXPECT_TRUE(back.effects.routeChanged);
  ASSERT_EQ(RouteCount(w.passage), 3);
  EXPECT_EQ(w.passage.Route[3].Lon, -1.05f);
  // Esc clears the route, the results and the dividers.
  (void)w.chart.SetDividers(true);
  w.passage.RouteCog.push_back(Cog(50, -1, 10));
  KeyOutcome esc = w.chart.KeyDown(vk::Escape, false);
  EXPECT_TRUE(esc.effects.routeChanged);
  EXPECT_TRUE(esc.effects.timesBackToNow);
  EXPECT_EQ(RouteCount(w.passage), 0);
  EXPECT_EQ(w.passage.RouteCog.size(), 1u);
  EXPECT_FALSE(w.marks.DividersOn);
  EXPECT_EQ(w.chart.RouteText(), "");
  // Esc again, with nothing to clear, asks for nothing to be shown.
  KeyOutcome again = w.chart.KeyDown(vk::Escape, false);
  EXPECT_FALSE(again.effects.redraw);
  EXPECT_FALSE(again.effects.routeChanged);
  EXPECT_FALSE(again.effects.timesBackToNow);
  // Backspace on an empty route is nothing.
  EXPECT_FALSE(w.chart.KeyDown(vk::Back, false).effects.routeChanged);
  // During a route animation Esc ends the replay and keeps the route.
  (void)w.chart.AddRoutePoint(50.0f, -1.2f);
  KeyContext animating;
  animating.animating = true;
  KeyOutcome stop = w.chart.KeyDown(vk::Escape, false, animating);
  EXPECT_TRUE(stop.effects.endAnimation);
  EXPECT_EQ(RouteCount(w.passage), 1);
}

TEST(ChartInteraction, DividersRangeAndBearing) {
  World w;
  InteractionOutcome on = w.chart.SetDividers(true);
  EXPECT_EQ(on.dividersLabel.value_or("?"), "Dividers Mode - Pan screen");
  // Before a zero point the label asks for one, 20 pixels off the pointer.
  InteractionOutcome move = w.chart.MouseMove(w.At(50.0f, -1.0f));
  EXPECT_EQ(move.dividersLabel.value_or("?"), "Shift + Click - Ref. point");
  EXPECT_EQ(move.labelX, 120);
  EXPECT_EQ(move.labelY, 100);
  // Shift + click: the zero point. No route point is made.
  PointerEvent zero = w.At(50.0f, -1.0f);
  zero.left = zero.shift = true;
  (void)w.chart.MouseDown(zero);
  EXPECT_TRUE(w.marks.DividerZeroSet);
  EXPECT_EQ(RouteCount(w.passage), 0);
  // Plain click 30 minutes east: 30 cos 50 = 19.28 miles at 090.
  PointerEvent end = w.At(50.0f, -0.5f);
  end.left = true;
  InteractionOutcome click = w.chart.MouseDown(end);
  EXPECT_EQ(click.dividersLabel.value_or("?"), "Range 19.3nm @090\u00b0T");
  EXPECT_TRUE(w.marks.DividerEndSet);
  EXPECT_EQ(w.marks.DividerEndLon, -0.5f);
  // The pointer carries the end point: 30 miles due north.
  InteractionOutcome north = w.chart.MouseMove(w.At(50.5f, -1.0f));
  EXPECT_EQ(north.dividersLabel.value_or("?"), "Range 30.0nm @000\u00b0T");
  EXPECT_NEAR(w.marks.DividerRange, 30.0f, 1e-3f);
  // mnuPUDivHome: the zero point to the cursor, no end point.
  (void)w.chart.DividerHome();
  EXPECT_EQ(w.marks.DividerZeroLat, 50.5f);
  EXPECT_FALSE(w.marks.DividerEndSet);
}

TEST(ChartInteraction, RouteDragMovesAPointAndDividersEndIt) {
  World w;
  EXPECT_FALSE(((void)w.chart.SetRouteDrag(true), w.marks.RouteDragOn));  // no route, no drag
  (void)w.chart.AddRoutePoint(50.0f, -1.2f);
  (void)w.chart.AddRoutePoint(50.5f, -1.0f);  // right on ALPHA too
  (void)w.chart.AddRoutePoint(50.2f, -0.8f);
  w.passage.Route[2].Name = "ALPHA";
  w.passage.Route[1].LegTime = 2.5f;
  (void)w.chart.SetRouteDrag(true);
  ASSERT_TRUE(w.marks.RouteDragOn);
  // On a waypoint and a route point at once: the route point is picked.
  InteractionOutcome near = w.chart.MouseMove(w.At(50.5f, -1.0f));
  EXPECT_EQ(near.pointer.value_or(0), 15);
  EXPECT_TRUE(w.marks.RouteDragNear);
  EXPECT_EQ(w.marks.RouteDragIndex, 2);
  EXPECT_FALSE(w.marks.SnapOn);
  // Hold the right button and move: the point follows.
  PointerEvent down = w.At(50.5f, -1.0f);
  down.right = true;
  InteractionOutcome pressed = w.chart.MouseDown(down);
  EXPECT_FALSE(pressed.popup);
  PointerEvent drag = w.At(50.4f, -1.1f);
  drag.right = true;
  InteractionOutcome moved = w.chart.MouseMove(drag);
  EXPECT_TRUE(moved.routeChanged);
  EXPECT_TRUE(moved.animateMenusDisable);
  EXPECT_EQ(w.passage.Route[2].Lat, 50.4f);
  EXPECT_EQ(w.passage.Route[2].Lon, -1.1f);
  EXPECT_EQ(w.passage.Route[2].Name, "");
  EXPECT_EQ(w.passage.Route[1].ModLat, 50.4f);
  EXPECT_EQ(w.passage.Route[1].LegTime, 0.0f);
  EXPECT_NEAR(w.passage.RouteDistance, RangeBearing(50.0f, -1.2f, 50.4f, -1.1f).range +
                                           RangeBearing(50.4f, -1.1f, 50.2f, -0.8f).range, 1e-4f);
  InteractionOutcome up = w.chart.MouseUp(drag);
  EXPECT_TRUE(up.routeChanged);
  EXPECT_TRUE(up.restartTimers);
  // Away from the route the pointer is the cross again.
  InteractionOutcome away = w.chart.MouseMove(w.At(49.0f, -2.0f));
  EXPECT_EQ(away.pointer.value_or(0), 2);
  EXPECT_FALSE(w.marks.RouteDragNear);
  // Switching the dividers on turns route drag off.
  (void)w.chart.SetDividers(true);
  EXPECT_FALSE(w.marks.RouteDragOn);
  EXPECT_TRUE(w.marks.DividersOn);
  // And route drag turns the dividers off.
  (void)w.chart.SetRouteDrag(true);
  EXPECT_TRUE(w.marks.RouteDragOn);
  EXPECT_FALSE(w.marks.DividersOn);
  // The route calculation ends route drag.
  (void)w.chart.RouteCalculationOpened();
  EXPECT_FALSE(w.marks.RouteDragOn);
}

TEST(ChartInteraction, MarksAndDelete) {
  World w;
  (void)w.chart.AddRoutePoint(49.0f, -2.0f);
  (void)w.chart.AddRoutePoint(49.2f, -2.0f);
  (void)w.chart.AddRoutePoint(49.4f, -2.0f);
  // "M" inside the circle of a waypoint marks it: mode 8.
  (void)w.chart.MouseMove(w.At(50.0f + 0.2f * kMile, -1.5f));
  (void)w.chart.KeyDown('M', false);
  EXPECT_EQ(w.marks.InputMode, 8);
  EXPECT_EQ(w.marks.MarkedKind, 1);
  EXPECT_EQ(w.marks.MarkedIndex, 1);
  // The marked waypoint follows the right button.
  PointerEvent drag = w.At(50.01f, -1.49f);
  drag.right = true;
  (void)w.chart.MouseMove(drag);
  EXPECT_EQ(w.waypoints.ChartWaypoints[1].Lat, 50.01f);
  // Del asks, and deletes the waypoint.
  KeyOutcome del = w.chart.KeyDown(vk::Delete, false);
  EXPECT_EQ(w.questions.back(), "Delete Waypoint: Delete the waypoint?");
  EXPECT_TRUE(del.effects.waypointsChanged);
  EXPECT_EQ(Count(w.waypoints.ChartWaypoints), 2u);
  EXPECT_EQ(w.marks.InputMode, 3);
  // Away from every waypoint "M" marks the nearest route point: mode 7.
  (void)w.chart.MouseMove(w.At(49.25f, -2.1f));
  (void)w.chart.KeyDown('M', false);
  EXPECT_EQ(w.marks.InputMode, 7);
  EXPECT_EQ(w.marks.MarkedKind, 2);
  EXPECT_EQ(w.marks.MarkedIndex, 2);
  w.answer = false;
  (void)w.chart.KeyDown(vk::Delete, false);
  EXPECT_EQ(RouteCount(w.passage), 3);
  w.answer = true;
  (void)w.chart.KeyDown(vk::Delete, false);
  EXPECT_EQ(w.questions.back(), "Delete Route Point: Delete a route point?");
  ASSERT_EQ(RouteCount(w.passage), 2);
  EXPECT_EQ(w.passage.Route[2].Lat, 49.4f);
  EXPECT_EQ(w.passage.Route[1].ModLat, 49.4f);
  EXPECT_FALSE(w.marks.PointMarked);
  // Del with nothing marked does nothing.
  std::size_t asked = w.questions.size();
  (void)w.chart.KeyDown(vk::Delete, false);
  EXPECT_EQ(w.questions.size(), asked);
}

TEST(ChartInteraction, KeyboardTable) {
  World w;
  KeyContext all;
  all.aisOn = all.toolsMenuShown = all.streamDataLoaded = true;
  struct Case {
    int key;
    KeyCommand command;
    const char* menu;
    int value;
  } cases[] = {
      {vk::Equals, KeyCommand::Viewer, "", 0},   {vk::Minus, KeyCommand::Viewer, "", 0},
      {vk::PageUp, KeyCommand::Viewer, "", 0},   {vk::Up, KeyCommand::Viewer, "", 0},
      {'U', KeyCommand::Viewer, "", 0},          {vk::PageDown, KeyCommand::Viewer, "", 0},
      {vk::Down, KeyCommand::Viewer, "", 0},     {'D', KeyCommand::Viewer, "", 0},
      {vk::Left, KeyCommand::Viewer, "", 0},     {'L', KeyCommand::Viewer, "", 0},
      {vk::Right, KeyCommand::Viewer, "", 0},    {'R', KeyCommand::Viewer, "", 0},
      {vk::Home, KeyCommand::Viewer, "", 0},     {'I', KeyCommand::Viewer, "", 0},
      {'O', KeyCommand::Viewer, "", 0},          {'0', KeyCommand::Viewer, "", 0},
      {'9', KeyCommand::Viewer, "", 0},          {vk::Return, KeyCommand::Redraw, "", 0},
      {'G', KeyCommand::Menu, "mnuGPSCentre", 0},
      {'N', KeyCommand::Menu, "mnuDisplayWindOverRoute", 0},
      {'P', KeyCommand::Menu, "mnushowTideHeights", 0},
      {'S', KeyCommand::Menu, "mnuShowTidalStreams", 0},
      {'W', KeyCommand::Menu, "mnuShowWaypoints", 0},
      {vk::Apostrophe, KeyCommand::Menu, "mnuWindDisplay", 0},
      {vk::F1, KeyCommand::Memory, "", 0},       {vk::F2, KeyCommand::AisDetails, "", 0},
      {vk::F3, KeyCommand::AisFlag, "", 1},      {114 + 1, KeyCommand::AisFlag, "", 2},
      {114 + 2, KeyCommand::AisFlag, "", 3},     {vk::F6, KeyCommand::AisFlag, "", 4},
      {vk::F8, KeyCommand::ChooseStreamFile, "", 0},
      {vk::F9, KeyCommand::Brightness, "", -10}, {vk::F10, KeyCommand::Brightness, "", 10},
      {vk::F12, KeyCommand::AppendDiamond, "", 0},
      {'Q', KeyCommand::None, "", 0},            {118 /* F7 */, KeyCommand::None, "", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.key);
    KeyOutcome k = w.chart.KeyDown(c.key, false, all);
    EXPECT_EQ(k.command, c.command);
    EXPECT_EQ(k.menu, c.menu);
    EXPECT_EQ(k.value, c.value);
  }
  // The keys that need AIS, the tools menu or stream data do nothing without.
  KeyContext none;
  for (int key : {int{'S'}, vk::F2, vk::F3, vk::F6, vk::F8, vk::F12, int{'T'}}) {
    SCOPED_TRACE(key);
    EXPECT_EQ(w.chart.KeyDown(key, false, none).command, KeyCommand::None);
  }
  // "=" with Shift is still "I".
  EXPECT_EQ(w.chart.KeyDown(vk::Equals, true, none).command, KeyCommand::Viewer);
}

TEST(ChartInteraction, TrackingTextsFromTheBoat) {
  PassageState p;
  p.Route.resize(3);
  p.Route[1].Lat = 50.0f;
  p.Route[1].Lon = -1.0f;
  p.Route[2].Lat = 50.5f;
  p.Route[2].Lon = -1.0f;
  p.RouteCog = {Cog(50.0f, -1.0f, 10.0f), Cog(50.25f, -1.0f, 11.5f), Cog(50.5f, -1.0f, 13.0f)};
  // The boat is 15 miles up the leg and 0.5 minutes of longitude west:
  // 0.5 cos(50.25) = 0.32 miles off the line; at 12:00 it is half an
  // hour late on the plan's 11:30, so it arrives at 13:30.
  std::vector<std::string> t = TrackingTexts(p, 50.25f, -1.0f - 0.5f / 60.0f, 12.0f);
  ASSERT_EQ(t.size(), 3u);
  EXPECT_EQ(t[0], "ETA : 13:30");
  EXPECT_EQ(t[1], " Cross Track Error : 0.32 nm");
  EXPECT_EQ(t[2], " Off Line : 0.32 nm");
  // No calculated track, no texts.
  p.RouteCog.assign(1, CogPoint{});
  EXPECT_TRUE(TrackingTexts(p, 50.25f, -1.0f, 12.0f).empty());
}

TEST(ChartInteraction, PopupEnablingAndTouchInput) {
  World w;
  PointerEvent right = w.At(50.1f, -1.1f);
  right.right = true;
  InteractionOutcome none = w.chart.MouseDown(right);
  EXPECT_TRUE(none.popup);
  EXPECT_TRUE(none.stopTimers);
  EXPECT_FALSE(none.popupItems.insert);
  EXPECT_FALSE(none.popupItems.deleteRoutePoint);
  EXPECT_EQ(w.chart.ClickLat, 50.1f);
  (void)w.chart.AddRoutePoint(50.0f, -1.2f);
  InteractionOutcome one = w.chart.MouseDown(right);
  EXPECT_TRUE(one.popupItems.insert);
  EXPECT_FALSE(one.popupItems.deleteRoutePoint);
  (void)w.chart.AddRoutePoint(50.1f, -1.2f);
  EXPECT_TRUE(w.chart.MouseDown(right).popupItems.deleteRoutePoint);
  (void)w.chart.SetDividers(true);
  EXPECT_TRUE(w.chart.MouseDown(right).popupItems.dividerHome);
  (void)w.chart.SetDividers(false);
  // Touch input: a touch moves the chart cursor and adds nothing.
  (void)w.chart.SetMouseAttached(false);
  PointerEvent touch = w.At(50.3f, -1.3f);
  touch.left = touch.shift = true;
  touch.x = 200;
  touch.y = 150;
  InteractionOutcome t = w.chart.MouseDown(touch);
  EXPECT_EQ(RouteCount(w.passage), 2);
  EXPECT_EQ(w.marks.ChartCursorX, 200);
  EXPECT_EQ(w.marks.ChartCursorY, 150);
  EXPECT_EQ(t.positionText.value_or(""), CursorPositionText(50.3f, -1.3f));
  // No read-out while the pointer moves in touch mode.
  EXPECT_FALSE(w.chart.MouseMove(w.At(50.0f, -1.0f)).positionText.has_value());
  // The dividers start at the chart cursor.
  (void)w.chart.SetDividers(true);
  EXPECT_TRUE(w.marks.DividerZeroSet);
  EXPECT_EQ(w.marks.DividerZeroLat, 50.3f);
  EXPECT_EQ(w.marks.DividerEndLon, -1.3f);
}

TEST(ChartInteraction, AddWaypointModeOpensTheForm) {
  World w;
  (void)w.chart.SetAddWaypointMode(true);
  EXPECT_EQ(w.marks.InputMode, 2);
  PointerEvent e = w.At(50.3f, -1.3f);
  e.left = e.shift = true;
  EXPECT_TRUE(w.chart.MouseDown(e).openMouseInput);
  EXPECT_EQ(RouteCount(w.passage), 0);
  (void)w.chart.SetAddWaypointMode(false);
  EXPECT_EQ(w.marks.InputMode, 3);
}

TEST(ChartInteraction, SmallChecks) {
  // The issue date is a day count from 30 December 1899.
  struct Day {
    float serial;
    int month, year;
  } days[] = {{0, 12, 1899}, {1, 12, 1899}, {60, 2, 1900}, {61, 3, 1900}, {2026, 7, 1905}, {45658, 1, 2025},
              {45657.75f, 12, 2024}};
  for (const Day& d : days) {
    SCOPED_TRACE(d.serial);
    IssueMonthYear m = IssueDateMonthYear(d.serial);
    EXPECT_EQ(m.month, d.month);
    EXPECT_EQ(m.year, d.year);
  }
  EXPECT_EQ(CursorPositionText(50.5f, -1.25f), LatToText3(50.5f) + ", " + LonToText3(-1.25f));
  // The format rounds a half away from zero, as the number formats do.
  EXPECT_EQ(DividersRangeText(7.25f, 5.0f), "Range 7.3nm @005\u00b0T");
  // frmMouseInput's checks, in order.
  EXPECT_EQ(CheckMouseInput("", 50, -1).message, "Point Must have a name");
  EXPECT_EQ(CheckMouseInput("  ", 0, 0).message, "Point Must have a name");
  EXPECT_TRUE(CheckMouseInput("X", 50, -1).questions.empty());
  std::vector<std::string> both = CheckMouseInput("X", 0, 0).questions;
  ASSERT_EQ(both.size(), 2u);
  EXPECT_EQ(both[0], "Longitude = Zero - CONTINUE ANYWAY?");
  EXPECT_EQ(both[1], "Latitude = Zero - CONTINUE ANYWAY?");
  GpxStore store;
  AppendChartWaypoint(store, Mark(1, 2, "ONE"));
  AppendChartWaypoint(store, Mark(3, 4, "TWO"));
  ASSERT_EQ(store.ChartWaypoints.size(), 3u);
  EXPECT_EQ(store.ChartWaypoints[1].Name, "TWO");
  EXPECT_EQ(store.ChartWaypoints[2], Waypoint{});
}

TEST(ChartInteraction, DoubleClickOrder) {
  DoubleClickCandidates c;
  c.tidalStations = {{50.0f, -1.0f}};
  c.diamonds = {{50.0f, -1.0f + 0.1f * kMile}};
  c.aisTargets = {{50.0f, -1.0f}};
  c.wrecks = {{49.0f, -1.0f}, {50.0f, -1.0f}};
  c.wrecksShown = true;
  // Ports and streams hidden: the AIS target comes first.
  EXPECT_EQ(DoubleClickOrder(c, 50.0f, -1.0f, 1.0f).kind, DoubleClickKind::AisTarget);
  c.streamsShown = true;
  EXPECT_EQ(DoubleClickOrder(c, 50.0f, -1.0f, 1.0f).kind, DoubleClickKind::Diamond);
  c.portsShown = true;
  EXPECT_EQ(DoubleClickOrder(c, 50.0f, -1.0f, 1.0f).kind, DoubleClickKind::TidalStation);
  c.tidalStations.clear();
  c.diamonds.clear();
  c.aisTargets.clear();
  DoubleClickTarget wreck = DoubleClickOrder(c, 50.0f, -1.0f, 1.0f);
  EXPECT_EQ(wreck.kind, DoubleClickKind::Wreck);
  EXPECT_EQ(wreck.index, 1);
  EXPECT_EQ(DoubleClickOrder(c, 45.0f, -1.0f, 1.0f).kind, DoubleClickKind::None);
}
