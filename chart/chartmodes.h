// The modes of the chart window: what a mouse movement, a click, a double
// click or a key does to the route, the waypoints and the marks, kept apart
// from the widgets so that every rule can be checked without a screen.
//
// The window hands each event over with the position under the pointer
// (already converted through the image pixel) and carries out what comes
// back: the pointer shape, the texts of the status panel and the dividers
// label, a popup menu, a redraw, the menus to refresh. Everything the paint
// needs is written into the ChartMarks record; the route goes into
// PassageState.Route (points from 1) and moved or deleted waypoints into
// GpxStore.ChartWaypoints. Which point or leg is nearest, and the tracking
// texts of key "T", are the route's own arithmetic (passage/tracking.h).
//
// Ranges are plane-sailing nautical miles and bearings degrees true, from
// RangeBearing. Key codes are the platform's virtual key codes, which the
// program has always used: letters are their capitals' codes, "=" is 187,
// "-" 189 and the apostrophe 222.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/chartmarks.h"
#include "chart/georef.h"
#include "core/settings.h"
#include "passage/passagestate.h"
#include "passage/tracking.h"
#include "routes/gpx.h"

namespace kelvane {

// Virtual key codes of the keyboard table.
namespace vk {
inline constexpr int Back = 8, Return = 13, Escape = 27, PageUp = 33, PageDown = 34, Home = 36, Left = 37, Up = 38,
                     Right = 39, Down = 40, Insert = 45, Delete = 46, F1 = 112, F2 = 113, F3 = 114, F6 = 117,
                     F8 = 119, F9 = 120, F10 = 121, F12 = 123, Equals = 187, Minus = 189, Apostrophe = 222;
}

// The messages and questions of the chart's modes.
std::string TooFewPointsToInsertMessage();  // "You need to have entered at least 2 points - nothing done"
std::string RouteFullMessage();             // a 102nd point refused
inline constexpr const char* kInsertQuestion = "Insert a route point?";
inline constexpr const char* kInsertTitle = "Insert Point";
inline constexpr const char* kDeleteRoutePointQuestion = "Delete a route point?";
inline constexpr const char* kDeleteRoutePointTitle = "Delete Route Point";
inline constexpr const char* kDeleteWaypointQuestion = "Delete the waypoint?";
inline constexpr const char* kDeleteWaypointTitle = "Delete Waypoint";
inline constexpr const char* kDividersModeText = "Dividers Mode - Pan screen";
inline constexpr const char* kDividersNoZeroText = "Shift + Click - Ref. point";

// The pick distance of the chart, nautical miles: the settings' value with
// anything below 0.01 raised to 0.01.
float SearchCircleOf(const SettingsRecord& settings);

// The dividers label with a zero point set: "Range " range as "0.0",
// "nm @", bearing as "000", "°T".
std::string DividersRangeText(float range, float bearing);

// The cursor read-out of status panel 5: latitude, ", ", longitude, each
// with three decimals of a minute.
std::string CursorPositionText(float lat, float lon);

// Month and year of a chart's issue date, a day number counted from
// 30 December 1899 (day 1 is 31 December 1899) as the catalogue's single
// holds it; the fraction of a day is dropped. Days before day 1 give the
// month and year of day 1's side of the count all the same.
struct IssueMonthYear {
  int month = 0;
  int year = 0;
};
IssueMonthYear IssueDateMonthYear(float issueDate);

// ---- events ---------------------------------------------------------------------

// One mouse event: the viewer's screen pixel and the position under it.
struct PointerEvent {
  int x = 0, y = 0;
  float lat = 0, lon = 0;
  bool left = false;   // move: held; down, up: the button of the event
  bool right = false;
  bool shift = false;
};

// The popup menu's enabling, decided at the right button.
struct [[nodiscard]] PopupEnabling {
  bool deleteRoutePoint = false;  // two or more route points
  bool insert = false;            // one or more
  bool aisDetails = false;        // AIS on
  bool dividerHome = false;       // mnuPUDivHome and its separator show with the dividers
};

// The working leg speed and leeway switch of the leg forms, which every
// new route point takes again from the settings: VesselSpeed, and UseLeeway
// with the Leeway value of the route form's box.
struct LegDefaults {
  float speed = 0;
  bool useLeeway = false;
  float leeway = 0;
};
LegDefaults LegDefaultsOf(const SettingsRecord& settings);

// What the window must do after an event. Optional fields are left alone
// when empty.
struct [[nodiscard]] InteractionOutcome {
  std::optional<int> pointer;                 // 2 cross, 15 four-way
  std::optional<std::string> positionText;    // status panel 5
  std::optional<std::string> dividersLabel;   // lbldividers text
  int labelX = 0, labelY = 0;                 // its place in screen pixels
  bool redraw = false;
  bool routeChanged = false;      // caption, panel 4, route combo, route menus
  bool modeChanged = false;       // panel 1, the menus' check marks
  bool waypointsChanged = false;  // ChartWaypoints changed: save the file
  bool stopTimers = false;        // CommsTimer and Timer1 (mouse down)
  bool stopAnimation = false;     // TimerAnimate, during a rectangle zoom
  bool restartTimers = false;     // mouse up
  bool animateMenusDisable = false;
  bool endRectangleZoom = false;  // item off, mouse mode 2, pointer 2
  bool popup = false;
  PopupEnabling popupItems;
  bool openMouseInput = false;    // frmMouseInput at the cursor
  bool endAnimation = false;      // Esc during a route animation
  std::optional<LegDefaults> legDefaults;  // a route point added: the leg forms' defaults
  bool timesBackToNow = false;    // Esc cleared a route: the working time follows the clock again
};

// The key table's commands that the window carries out itself.
enum class KeyCommand {
  None,
  Viewer,        // zoom, pan, Home, digits: the chart view's own keys
  Redraw,        // Enter: redraw and copy the view corners
  Menu,          // run the menu item named in `menu`
  Memory,        // F1: memory use in a message, "#,###"
  AisDetails,    // F2
  AisFlag,       // F3 to F6: flag 1 to 4 of the nearest AIS target
  ChooseStreamFile,  // F8
  AppendDiamond,     // F12
  Brightness,    // F9, F10: step -10, +10
  ShowTracking,  // "T": the texts of `trackingText` go to the status panels
};

struct [[nodiscard]] KeyOutcome {
  KeyCommand command = KeyCommand::None;
  std::string menu;  // for Menu
  int value = 0;     // AisFlag: 1..4; Brightness: -10, +10
  std::vector<std::string> trackingText;  // "T": ETA, cross track error, off line
  InteractionOutcome effects;
};

// What the keys and the double click need to know of the rest of the window.
struct KeyContext {
  bool aisOn = false;
  bool toolsMenuShown = false;
  bool streamDataLoaded = false;
  bool animating = false;  // a route animation is being replayed
  bool gpsValid = false;
  float gpsLat = 0, gpsLon = 0;
  float timeNow = 0;  // decimal hours of the working clock, for "T"
};

// The talk with the user: a message box and a Yes/No question under a title.
struct InteractionHooks {
  std::function<void(const std::string&)> showMessage;
  std::function<bool(const std::string& text, const std::string& title)> askYesNo;
};

// The index of the point nearest to (lat, lon) by range when it lies within
// `circle` nautical miles (the first of equal ranges), else -1.
int NearestWithinCircle(const std::vector<Position>& points, float lat, float lon, float circle);

// The double click's order of tests.
enum class DoubleClickKind { None, TidalStation, Diamond, AisTarget, Wreck, UserSite };
struct [[nodiscard]] DoubleClickTarget {
  DoubleClickKind kind = DoubleClickKind::None;
  int index = -1;  // in the list of that kind
};
// Candidates of each kind, with their layer switches. A kind whose layer is
// off is passed over.
struct DoubleClickCandidates {
  bool portsShown = false;
  std::vector<Position> tidalStations;
  bool streamsShown = false;
  std::vector<Position> diamonds;
  std::vector<Position> aisTargets;
  bool wrecksShown = false;
  std::vector<Position> wrecks;
  bool sitesShown = false;
  std::vector<Position> userSites;
};
// The first kind, in the fixed order tidal station, diamond, AIS target,
// wreck, user site, that has a point within `circle` nautical miles of the
// cursor; within the kind the nearest (the first of equal ranges).
DoubleClickTarget DoubleClickOrder(const DoubleClickCandidates& candidates, float lat, float lon, float circle);

// frmMouseInput's OK: the checks in their order.
struct [[nodiscard]] MouseInputCheck {
  std::string message;                // refused with this message
  std::vector<std::string> questions; // each must be answered Yes
};
MouseInputCheck CheckMouseInput(const std::string& name, float lat, float lon);
// Appends a waypoint to ChartWaypoints before its blank end.
void AppendChartWaypoint(GpxStore& store, const Waypoint& waypoint);

// ---- the state machine ---------------------------------------------------------

class ChartInteraction {
 public:
  // All four belong to the window's state and outlive this object. The
  // geometry is the chart on show, for the pixel grid of route points.
  ChartInteraction(ChartMarks& marks, PassageState& passage, GpxStore& waypoints, const SettingsRecord& settings,
                   const ChartGeometry* geometry = nullptr);

  InteractionHooks hooks;

  // The pointer: CursorLat, CursorLon and the screen pixel of the last move.
  float CursorLat = 0, CursorLon = 0;
  int ScreenX = 0, ScreenY = 0;
  // Where the right button last went down, for the popup menu's items.
  float ClickLat = 0, ClickLon = 0;
  std::string SnapWaypointName;
  // The chart cursor's position in touch mode.
  float ChartCursorLat = 0, ChartCursorLon = 0;

  const ChartMarks& Marks() const { return marks_; }
  int RoutePointCount() const { return RouteCount(passage_); }
  // The caption's route text: ":  Creating Route" or ":  Route = " n "nm".
  std::string RouteText() const;

  // The events of the viewer.
  InteractionOutcome MouseMove(const PointerEvent& e);
  InteractionOutcome MouseDown(const PointerEvent& e);
  InteractionOutcome MouseUp(const PointerEvent& e);
  KeyOutcome KeyDown(int keyCode, bool shift, const KeyContext& context = {});

  // Shift + left click in route creation, and mnuPURouteAdd (from the
  // chart cursor in touch mode): one more route point at (lat, lon), or at
  // the snap waypoint when a snap is live.
  InteractionOutcome AddRoutePoint(float lat, float lon);
  // mnuPUInsert and Ins; mnuPUDeleteRoutePoint and Del.
  InteractionOutcome InsertRoutePoint(float lat, float lon);
  InteractionOutcome DeleteMarked();
  InteractionOutcome DeleteRoutePointNear(float lat, float lon);
  // Backspace, Esc.
  InteractionOutcome RemoveLastPoint();
  InteractionOutcome ClearRoute();
  // Key "M".
  InteractionOutcome MarkNearest();

  // The menu items.
  InteractionOutcome SetDividers(bool on);     // mnuDividersOn
  InteractionOutcome SetRouteDrag(bool on);    // mnuRouteDrag (refused without a route)
  InteractionOutcome SetAddWaypointMode(bool on);  // mnuWayMouse
  InteractionOutcome SetRectangleZoom(bool on);    // mnuPUZoomRect
  InteractionOutcome SetMouseAttached(bool attached);  // mnuConfigMouseAttached
  InteractionOutcome RouteCalculationOpened();  // mnucalcrte ends route drag
  // mnuPUSetCursorPos: the chart cursor to a screen point (the image centre)
  // and its position.
  InteractionOutcome SetChartCursor(int x, int y, float lat, float lon);
  // mnuPUDivHome: the zero point to the cursor, the end point cleared.
  InteractionOutcome DividerHome();

 private:
  void EndMark();
  InteractionOutcome RouteEdited();
  float Circle() const { return SearchCircleOf(settings_); }

  ChartMarks& marks_;
  PassageState& passage_;
  GpxStore& waypoints_;
  const SettingsRecord& settings_;
  const ChartGeometry* geometry_;
};

}  // namespace kelvane
