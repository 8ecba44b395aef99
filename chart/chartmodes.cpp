#include "chart/chartmodes.h"

#include <cmath>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"
#include "core/windowtext.h"
#include "passage/routecalc.h"

namespace kelvane {

std::string TooFewPointsToInsertMessage() { return "You need to have entered at least 2 points - nothing done"; }

std::string RouteFullMessage() {
  return "A route holds at most 100 legs (101 points) - point not added";
}

LegDefaults LegDefaultsOf(const SettingsRecord& settings) {
  return LegDefaults{settings.VesselSpeed, settings.UseLeeway != 0, settings.Leeway};
}

float SearchCircleOf(const SettingsRecord& settings) {
  return settings.SearchCircle < 0.01f ? 0.01f : settings.SearchCircle;
}

std::string DividersRangeText(float range, float bearing) {
  return "Range " + FormatNumber(range, "0.0") + "nm @" + FormatNumber(bearing, "000") + "\u00b0T";
}

std::string CursorPositionText(float lat, float lon) { return LatToText3(lat) + ", " + LonToText3(lon); }

IssueMonthYear IssueDateMonthYear(float issueDate) {
  const CivilDate date = SerialDayToDate(static_cast<std::int64_t>(std::floor(static_cast<double>(issueDate))));
  return IssueMonthYear{date.month, static_cast<int>(date.year)};
}

int NearestWithinCircle(const std::vector<Position>& points, float lat, float lon, float circle) {
  int best = -1;
  float bestRange = 25000;
  for (std::size_t i = 0; i < points.size(); ++i) {
    float r = RangeBearing(lat, lon, points[i].lat, points[i].lon).range;
    if (r < bestRange) {
      bestRange = r;
      best = static_cast<int>(i);
    }
  }
  return best >= 0 && bestRange < circle ? best : -1;
}

DoubleClickTarget DoubleClickOrder(const DoubleClickCandidates& c, float lat, float lon, float circle) {
  auto within = [&](const std::vector<Position>& points) { return NearestWithinCircle(points, lat, lon, circle); };
  struct Step {
    bool on;
    const std::vector<Position>* points;
    DoubleClickKind kind;
  };
  const Step steps[] = {{c.portsShown, &c.tidalStations, DoubleClickKind::TidalStation},
                        {c.streamsShown, &c.diamonds, DoubleClickKind::Diamond},
                        {true, &c.aisTargets, DoubleClickKind::AisTarget},
                        {c.wrecksShown, &c.wrecks, DoubleClickKind::Wreck},
                        {c.sitesShown, &c.userSites, DoubleClickKind::UserSite}};
  for (const Step& s : steps) {
    if (!s.on) continue;
    int i = within(*s.points);
    if (i >= 0) return DoubleClickTarget{s.kind, i};
  }
  return {};
}

MouseInputCheck CheckMouseInput(const std::string& name, float lat, float lon) {
  MouseInputCheck check;
  if (name.find_first_not_of(' ') == std::string::npos) {
    check.message = "Point Must have a name";
    return check;
  }
  if (lon == 0) check.questions.push_back("Longitude = Zero - CONTINUE ANYWAY?");
  if (lat == 0) check.questions.push_back("Latitude = Zero - CONTINUE ANYWAY?");
  return check;
}

void AppendChartWaypoint(GpxStore& store, const Waypoint& waypoint) {
  if (store.ChartWaypoints.empty()) store.ChartWaypoints.emplace_back();
  store.ChartWaypoints.insert(store.ChartWaypoints.end() - 1, waypoint);
}

// ---- the state machine ---------------------------------------------------------

ChartInteraction::ChartInteraction(ChartMarks& marks, PassageState& passage, GpxStore& waypoints,
                                   const SettingsRecord& settings, const ChartGeometry* geometry)
    : marks_(marks), passage_(passage), waypoints_(waypoints), settings_(settings), geometry_(geometry) {}

std::string ChartInteraction::RouteText() const {
  return RouteCaptionText(RouteCount(passage_), passage_.RouteDistance);
}

void ChartInteraction::EndMark() {
  marks_.PointMarked = false;
  marks_.MarkedKind = 0;
  marks_.MarkedIndex = 0;
  if (marks_.InputMode == 7 || marks_.InputMode == 8) marks_.InputMode = 3;
}

InteractionOutcome ChartInteraction::RouteEdited() {
  passage_.RouteDistance = RouteCount(passage_) >= 2 ? RouteDistanceOf(passage_) : 0.0f;
  InteractionOutcome out;
  out.routeChanged = true;
  out.modeChanged = true;
  out.redraw = true;
  return out;
}

InteractionOutcome ChartInteraction::MouseMove(const PointerEvent& e) {
  InteractionOutcome out;
  // 1. The position under the pointer.
  CursorLat = e.lat;
  CursorLon = e.lon;
  ScreenX = e.x;
  ScreenY = e.y;
  const bool noButton = !e.left && !e.right;
  // 2. The read-out.
  if (noButton && marks_.MouseAttached) out.positionText = CursorPositionText(e.lat, e.lon);
  // 3. Dividers: the pointer is the end point.
  if (marks_.DividersOn && noButton && !marks_.RouteDragOn) {
    marks_.DividerEndSet = true;
    marks_.DividerEndLat = e.lat;
    marks_.DividerEndLon = e.lon;
    out.labelX = e.x + 20;
    out.labelY = e.y + 20;
    if (marks_.DividerZeroSet) {
      RangeAndBearing rb = RangeBearing(marks_.DividerZeroLat, marks_.DividerZeroLon, e.lat, e.lon);
      marks_.DividerRange = rb.range;
      marks_.DividerBearing = rb.bearing;
      out.dividersLabel = DividersRangeText(rb.range, rb.bearing);
    } else {
      out.dividersLabel = kDividersNoZeroText;
    }
    out.redraw = true;
  }
  // 4. Snap to a waypoint in route creation.
  const bool routeCreation = marks_.InputMode == 3 || marks_.InputMode == 7 || marks_.InputMode == 8;
  if (routeCreation && !marks_.DividersOn && !marks_.RouteDragOn) {
    NearestPoint n = NearestWaypoint(waypoints_.ChartWaypoints, e.lat, e.lon);
    if (n.found() && n.range < Circle()) {
      const Waypoint& w = waypoints_.ChartWaypoints[static_cast<std::size_t>(n.index)];
      out.pointer = 15;
      marks_.SnapOn = true;
      marks_.SnapWaypointLat = w.Lat;
      marks_.SnapWaypointLon = w.Lon;
      SnapWaypointName = w.Name;
    } else {
      out.pointer = 2;
      marks_.SnapOn = false;
    }
  } else {
    marks_.SnapOn = false;
  }
  // 5. Route drag: the nearest route point, and the drag itself.
  if (marks_.RouteDragOn) {
    NearestPoint n = NearestRoutePoint(passage_, e.lat, e.lon);
    if (!e.right) {
      if (n.found() && n.range < Circle()) {
        out.pointer = 15;
        marks_.RouteDragNear = true;
        marks_.RouteDragIndex = n.index;
      } else {
        out.pointer = 2;
        marks_.RouteDragNear = false;
      }
    } else if (marks_.RouteDragNear && marks_.RouteDragIndex >= 1 && marks_.RouteDragIndex <= RouteCount(passage_)) {
      // While the button is held the point keeps hold of the pointer,
      // however fast it moves.
      const std::size_t i = static_cast<std::size_t>(marks_.RouteDragIndex);
      RoutePoint& p = passage_.Route[i];
      p.Lat = e.lat;
      p.Lon = e.lon;
      p.LatText = LatToText(e.lat);
      p.LonText = LonToText(e.lon);
      p.Name.clear();
      if (i > 1) {
        passage_.Route[i - 1].ModLat = e.lat;
        passage_.Route[i - 1].ModLon = e.lon;
      }
      ClearLegResults(passage_);
      marks_.DragActive = true;
      InteractionOutcome edited = RouteEdited();
      edited.positionText = out.positionText;
      edited.pointer = 15;
      edited.animateMenusDisable = true;
      out = edited;
    }
  }
  // 6. A marked waypoint follows the right button.
  if (e.right && marks_.PointMarked && marks_.MarkedKind == 1 && !marks_.RouteDragOn && !marks_.DividersOn &&
      marks_.MarkedIndex >= 0 && marks_.MarkedIndex < static_cast<int>(Count(waypoints_.ChartWaypoints))) {
    Waypoint& w = waypoints_.ChartWaypoints[static_cast<std::size_t>(marks_.MarkedIndex)];
    w.Lat = e.lat;
    w.Lon = e.lon;
    marks_.MarkedLat = e.lat;
    marks_.MarkedLon = e.lon;
    out.redraw = true;
  }
  // 7. The left button pans.
  if (e.left) out.pointer = 15;
  return out;
}

InteractionOutcome ChartInteraction::MouseDown(const PointerEvent& e) {
  InteractionOutcome out;
  CursorLat = e.lat;
  CursorLon = e.lon;
  ScreenX = e.x;
  ScreenY = e.y;
  out.stopTimers = true;
  if (e.left) {
    if (marks_.RectangleZoomOn) out.stopAnimation = true;
    out.pointer = 15;
    if (!marks_.MouseAttached) {
      // Touch input: the touch moves the chart cursor and nothing else.
      marks_.ChartCursorX = e.x;
      marks_.ChartCursorY = e.y;
      ChartCursorLat = e.lat;
      ChartCursorLon = e.lon;
      out.positionText = CursorPositionText(e.lat, e.lon);
      out.redraw = true;
      return out;
    }
    if (marks_.RectangleZoomOn) return out;  // the viewer's rubber band
    if (marks_.DividersOn) {
      if (e.shift) {
        marks_.DividerZeroSet = true;
        marks_.DividerZeroLat = e.lat;
        marks_.DividerZeroLon = e.lon;
        marks_.DividerEndSet = false;
        marks_.DividerEndLat = marks_.DividerEndLon = 0;
        marks_.DividerRange = marks_.DividerBearing = 0;
        out.dividersLabel = kDividersNoZeroText;
      } else {
        marks_.DividerEndSet = true;
        marks_.DividerEndLat = e.lat;
        marks_.DividerEndLon = e.lon;
      }
      if (marks_.DividerZeroSet && marks_.DividerEndSet) {
        RangeAndBearing rb = RangeBearing(marks_.DividerZeroLat, marks_.DividerZeroLon, marks_.DividerEndLat,
                                          marks_.DividerEndLon);
        marks_.DividerRange = rb.range;
        marks_.DividerBearing = rb.bearing;
        out.dividersLabel = DividersRangeText(rb.range, rb.bearing);
      }
      out.labelX = e.x + 20;
      out.labelY = e.y + 20;
      out.redraw = true;
      return out;
    }
    if (marks_.RouteDragOn || !e.shift) return out;  // the viewer pans
    if (marks_.InputMode == 2) {
      out.openMouseInput = true;
      return out;
    }
    if (marks_.InputMode == 3 || marks_.InputMode == 7 || marks_.InputMode == 8) {
      InteractionOutcome added = AddRoutePoint(e.lat, e.lon);
      added.stopTimers = true;
      added.pointer = out.pointer;
      return added;
    }
    return out;
  }
  if (e.right) {
    if (!marks_.RouteDragOn || marks_.DividersOn) {
      ClickLat = marks_.MouseAttached ? e.lat : ChartCursorLat;
      ClickLon = marks_.MouseAttached ? e.lon : ChartCursorLon;
      out.popup = true;
      out.popupItems = PopupEnabling{};
      out.popupItems.deleteRoutePoint = RouteCount(passage_) >= 2;
      out.popupItems.insert = RouteCount(passage_) >= 1;
      out.popupItems.dividerHome = marks_.DividersOn;
    } else {
      marks_.DragActive = marks_.RouteDragNear;
    }
  }
  return out;
}

InteractionOutcome ChartInteraction::MouseUp(const PointerEvent&) {
  InteractionOutcome out;
  out.restartTimers = true;
  if (marks_.RectangleZoomOn) {
    marks_.RectangleZoomOn = false;
    out.endRectangleZoom = true;
    out.pointer = 2;
    out.modeChanged = true;
    out.redraw = true;
  }
  if (marks_.DragActive) {
    // The route's winds would be looked up again here for each point's
    // arrival time; the route combo follows the moved point.
    marks_.DragActive = false;
    out.routeChanged = true;
    out.redraw = true;
  }
  return out;
}

InteractionOutcome ChartInteraction::AddRoutePoint(float lat, float lon) {
  const int count = RouteCount(passage_);
  if (count >= kMaxRoutePoints) {
    if (hooks.showMessage) hooks.showMessage(RouteFullMessage());
    return {};
  }
  RoutePoint p;
  if (marks_.SnapOn) {
    p.Lat = marks_.SnapWaypointLat;
    p.Lon = marks_.SnapWaypointLon;
    p.Name = SnapWaypointName;
  } else {
    p.Lat = lat;
    // The longitude through its image column, so that the point lies on
    // the chart's pixel grid.
    p.Lon = geometry_ && geometry_->DegreesLonPerPixel != 0 ? PixelToLon(*geometry_, LonToPixel(*geometry_, lon)) : lon;
  }
  p.LatText = LatToText(p.Lat);
  p.LonText = LonToText(p.Lon);
  p.Speed = settings_.VesselSpeed;
  if (count >= 1) {
    RoutePoint& previous = passage_.Route.back();
    previous.ModLat = p.Lat;
    previous.ModLon = p.Lon;
  }
  passage_.Route.push_back(std::move(p));
  EndMark();
  InteractionOutcome out = RouteEdited();
  out.legDefaults = LegDefaultsOf(settings_);
  return out;
}

InteractionOutcome ChartInteraction::InsertRoutePoint(float lat, float lon) {
  if (RouteCount(passage_) < 2) {
    if (hooks.showMessage) hooks.showMessage(TooFewPointsToInsertMessage());
    return {};
  }
  if (hooks.askYesNo && !hooks.askYesNo(kInsertQuestion, kInsertTitle)) return {};
  if (RouteCount(passage_) >= kMaxRoutePoints) {
    if (hooks.showMessage) hooks.showMessage(RouteFullMessage());
    return {};
  }
  const int leg = NearestLeg(passage_, lat, lon);
  RoutePoint p;
  p.Lat = lat;
  p.Lon = lon;
  p.LatText = LatToText(lat);
  p.LonText = LonToText(lon);
  p.Speed = passage_.Route[static_cast<std::size_t>(leg)].Speed;
  const RoutePoint& next = passage_.Route[static_cast<std::size_t>(leg + 1)];
  p.ModLat = next.Lat;
  p.ModLon = next.Lon;
  passage_.Route[static_cast<std::size_t>(leg)].ModLat = lat;
  passage_.Route[static_cast<std::size_t>(leg)].ModLon = lon;
  passage_.Route.insert(passage_.Route.begin() + leg + 1, std::move(p));
  ClearLegResults(passage_);
  EndMark();
  return RouteEdited();
}

InteractionOutcome ChartInteraction::DeleteMarked() {
  if (!marks_.PointMarked) return {};
  if (marks_.MarkedKind == 2) {
    const int i = marks_.MarkedIndex;
    if (i < 1 || i > RouteCount(passage_)) return {};
    if (hooks.askYesNo && !hooks.askYesNo(kDeleteRoutePointQuestion, kDeleteRoutePointTitle)) return {};
    passage_.Route.erase(passage_.Route.begin() + i);
    if (i > 1) {
      RoutePoint& previous = passage_.Route[static_cast<std::size_t>(i - 1)];
      if (i <= RouteCount(passage_)) {
        previous.ModLat = passage_.Route[static_cast<std::size_t>(i)].Lat;
        previous.ModLon = passage_.Route[static_cast<std::size_t>(i)].Lon;
      } else {
        previous.ModLat = previous.ModLon = 0;
      }
    }
    ClearLegResults(passage_);
    EndMark();
    return RouteEdited();
  }
  if (marks_.MarkedKind == 1) {
    const int i = marks_.MarkedIndex;
    if (i < 0 || i >= static_cast<int>(Count(waypoints_.ChartWaypoints))) return {};
    if (hooks.askYesNo && !hooks.askYesNo(kDeleteWaypointQuestion, kDeleteWaypointTitle)) return {};
    waypoints_.ChartWaypoints.erase(waypoints_.ChartWaypoints.begin() + i);
    EndMark();
    InteractionOutcome out;
    out.waypointsChanged = true;
    out.modeChanged = true;
    out.redraw = true;
    return out;
  }
  return {};
}

InteractionOutcome ChartInteraction::DeleteRoutePointNear(float lat, float lon) {
  if (!(marks_.PointMarked && marks_.MarkedKind == 2)) {
    NearestPoint n = NearestRoutePoint(passage_, lat, lon);
    if (!n.found()) return {};
    const RoutePoint& p = passage_.Route[static_cast<std::size_t>(n.index)];
    marks_.PointMarked = true;
    marks_.MarkedKind = 2;
    marks_.MarkedIndex = n.index;
    marks_.MarkedLat = p.Lat;
    marks_.MarkedLon = p.Lon;
    marks_.InputMode = 7;
  }
  InteractionOutcome out = DeleteMarked();
  out.modeChanged = true;
  out.redraw = true;
  return out;
}

InteractionOutcome ChartInteraction::RemoveLastPoint() {
  if (RouteCount(passage_) < 1) return {};
  passage_.Route.pop_back();
  if (RouteCount(passage_) >= 1) {
    passage_.Route.back().ModLat = 0;
    passage_.Route.back().ModLon = 0;
  }
  if (marks_.PointMarked && marks_.MarkedKind == 2 && marks_.MarkedIndex > RouteCount(passage_)) EndMark();
  if (marks_.RouteDragIndex > RouteCount(passage_)) marks_.RouteDragNear = false;
  return RouteEdited();
}

InteractionOutcome ChartInteraction::ClearRoute() {
  const bool anything = RouteCount(passage_) > 0 || marks_.DividersOn || marks_.PointMarked || marks_.RouteDragOn;
  passage_.Route.assign(1, RoutePoint{});
  ClearRouteResults(passage_);
  passage_.RouteDistance = 0;
  marks_.DividersOn = false;
  marks_.DividerZeroSet = marks_.DividerEndSet = false;
  marks_.DividerZeroLat = marks_.DividerZeroLon = marks_.DividerEndLat = marks_.DividerEndLon = 0;
  marks_.DividerRange = marks_.DividerBearing = 0;
  marks_.RouteDragOn = marks_.RouteDragNear = marks_.DragActive = false;
  marks_.RouteDragIndex = 0;
  EndMark();
  if (!anything) return {};
  InteractionOutcome out;
  out.routeChanged = true;
  out.modeChanged = true;
  out.redraw = true;
  out.dividersLabel = "";
  return out;
}

InteractionOutcome ChartInteraction::MarkNearest() {
  InteractionOutcome out;
  NearestPoint w = NearestWaypoint(waypoints_.ChartWaypoints, CursorLat, CursorLon);
  if (w.found() && w.range < Circle()) {
    const Waypoint& p = waypoints_.ChartWaypoints[static_cast<std::size_t>(w.index)];
    marks_.PointMarked = true;
    marks_.MarkedKind = 1;
    marks_.MarkedIndex = w.index;
    marks_.MarkedLat = p.Lat;
    marks_.MarkedLon = p.Lon;
    marks_.InputMode = 8;
  } else {
    NearestPoint r = NearestRoutePoint(passage_, CursorLat, CursorLon);
    if (!r.found()) return out;
    const RoutePoint& p = passage_.Route[static_cast<std::size_t>(r.index)];
    marks_.PointMarked = true;
    marks_.MarkedKind = 2;
    marks_.MarkedIndex = r.index;
    marks_.MarkedLat = p.Lat;
    marks_.MarkedLon = p.Lon;
    marks_.InputMode = 7;
  }
  out.modeChanged = true;
  out.redraw = true;
  return out;
}

// ---- menu items ---------------------------------------------------------------

InteractionOutcome ChartInteraction::SetDividers(bool on) {
  InteractionOutcome out;
  marks_.DividersOn = on;
  marks_.DividerZeroSet = marks_.DividerEndSet = false;
  marks_.DividerZeroLat = marks_.DividerZeroLon = marks_.DividerEndLat = marks_.DividerEndLon = 0;
  marks_.DividerRange = marks_.DividerBearing = 0;
  if (on) {
    // Dividers and route drag exclude each other.
    marks_.RouteDragOn = marks_.RouteDragNear = marks_.DragActive = false;
    if (!marks_.MouseAttached) {
      marks_.DividerZeroSet = marks_.DividerEndSet = true;
      marks_.DividerZeroLat = marks_.DividerEndLat = ChartCursorLat;
      marks_.DividerZeroLon = marks_.DividerEndLon = ChartCursorLon;
    }
    out.dividersLabel = kDividersModeText;
  } else {
    out.dividersLabel = "";
  }
  out.modeChanged = true;
  out.redraw = true;
  return out;
}

InteractionOutcome ChartInteraction::SetRouteDrag(bool on) {
  InteractionOutcome out;
  out.modeChanged = true;
  if (on && RouteCount(passage_) < 1) on = false;
  marks_.RouteDragOn = on;
  marks_.RouteDragNear = marks_.DragActive = false;
  marks_.RouteDragIndex = 0;
  if (on) {
    marks_.DividersOn = false;
    marks_.DividerZeroSet = marks_.DividerEndSet = false;
    out.dividersLabel = "";
  }
  out.redraw = true;
  return out;
}

InteractionOutcome ChartInteraction::SetAddWaypointMode(bool on) {
  EndMark();
  marks_.InputMode = on ? 2 : 3;
  InteractionOutcome out;
  out.modeChanged = true;
  return out;
}

InteractionOutcome ChartInteraction::SetRectangleZoom(bool on) {
  marks_.RectangleZoomOn = on;
  InteractionOutcome out;
  out.modeChanged = true;
  return out;
}

InteractionOutcome ChartInteraction::SetMouseAttached(bool attached) {
  marks_.MouseAttached = attached;
  InteractionOutcome out;
  out.modeChanged = true;
  out.redraw = true;
  return out;
}

InteractionOutcome ChartInteraction::RouteCalculationOpened() {
  if (!marks_.RouteDragOn) return {};
  return SetRouteDrag(false);
}

InteractionOutcome ChartInteraction::SetChartCursor(int x, int y, float lat, float lon) {
  marks_.ChartCursorX = x;
  marks_.ChartCursorY = y;
  ChartCursorLat = lat;
  ChartCursorLon = lon;
  CursorLat = lat;
  CursorLon = lon;
  InteractionOutcome out;
  out.positionText = CursorPositionText(lat, lon);
  out.redraw = true;
  return out;
}

InteractionOutcome ChartInteraction::DividerHome() {
  InteractionOutcome out;
  marks_.DividerZeroSet = true;
  marks_.DividerZeroLat = CursorLat;
  marks_.DividerZeroLon = CursorLon;
  marks_.DividerEndSet = false;
  marks_.DividerEndLat = marks_.DividerEndLon = 0;
  marks_.DividerRange = marks_.DividerBearing = 0;
  out.redraw = true;
  return out;
}

}  // namespace kelvane
