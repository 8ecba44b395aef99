// What the chart's modes leave for the paint to show: the dividers' two
// points, the marked waypoint or route point, the MOB position, the route
// point under drag, the size of marks at this zoom, and the mode itself.
// The interaction keeps this record up to date; the overlay painter only
// reads it. Positions are decimal degrees (north and east positive) as
// 32-bit floats, like every position of the chart.
#pragma once

#include <cstdint>

namespace kelvane {

struct ChartMarks {
  // The mode of the chart: 1 idle, 2 add waypoint by mouse, 3 route
  // creation, 7 a route point is marked, 8 a point is marked.
  std::int16_t InputMode = 3;
  bool DividersOn = false;
  bool RouteDragOn = false;
  bool RectangleZoomOn = false;
  bool MouseAttached = true;  // false: touch input with the chart cursor

  // Dividers: the zero point ("Divider Ref.") and the end point. A point is
  // set when its flag is on; an unset point reads 0, 0.
  bool DividerZeroSet = false;
  float DividerZeroLat = 0, DividerZeroLon = 0;
  bool DividerEndSet = false;
  float DividerEndLat = 0, DividerEndLon = 0;
  // Range (nautical miles) and bearing (degrees true) from the zero point
  // to the end point, valid when both points are set.
  float DividerRange = 0, DividerBearing = 0;

  // The marked point (key "M"): MarkedKind 1 a waypoint, 2 a route point;
  // MarkedIndex is its index in ChartWaypoints (from 0) or in Route (from 1).
  bool PointMarked = false;
  std::int16_t MarkedKind = 0;
  float MarkedLat = 0, MarkedLon = 0;
  int MarkedIndex = 0;

  // The man-overboard position, when one has been taken.
  bool MOBSet = false;
  float MOBLat = 0, MOBLon = 0;

  // Route drag: the route point (index in Route, from 1) the pointer is
  // near, valid while RouteDragNear is on; DragActive while it moves.
  bool RouteDragNear = false;
  int RouteDragIndex = 0;
  bool DragActive = false;

  // The waypoint caught by the search circle, while SnapOn.
  bool SnapOn = false;
  float SnapWaypointLat = 0, SnapWaypointLon = 0;

  // Touch input: the chart cursor's screen point in the viewer's widget
  // pixels, drawn by DrawCursor in place of the mouse pointer.
  int ChartCursorX = 0, ChartCursorY = 0;

  // Radius of point marks in screen pixels; the painter works it out at
  // each paint from the surface and the view and may store it here.
  int MarkRadius = 3;
};

}  // namespace kelvane
