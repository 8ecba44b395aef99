// The texts of the main window's caption and status bar, worked out from the
// program's state so that they can be checked without a screen.
#pragma once

#include <optional>
#include <string>

#include "core/dateformat.h"
#include "core/workingtime.h"

namespace kelvane {

// The interaction mode of the chart and the flags that colour panel 1.
struct ModeFlags {
  int InputMode = 0;     // 3 route creation, 7 route point marked, 8 point marked
  bool dividers = false;
  bool routeDrag = false;
};

// The chart in use, as panel 2 and panel 5 show it.
struct ChartStatus {
  std::string title;
  std::string number;
  std::string scale;
  int issueMonth = 0;
  int issueYear = 0;
};

// Panel 1: the mode, first match wins; empty when nothing special is on.
std::string ModePanelText(const ModeFlags& mode);
// Panel 2: "Chart in use = " title " : " number " : [" scale "]".
std::string ChartPanelText(const ChartStatus& chart);
// Panel 3: "Waypoints = " and the waypoint file's name without its folder.
std::string WaypointPanelText(const std::string& waypointFile);
// Panel 4: "Route= " and the route's length as "0.0nm", when a route shows.
std::string RoutePanelText(std::optional<float> routeLength);
// Panel 5: "Chart issued " month "/" year as "0000".
std::string IssuePanelText(const ChartStatus& chart);

// The route part of the caption: ":  Creating Route" while the first point
// stands alone, ":  Route = " and the length as "0.0" "nm" after that.
std::string RouteCaptionText(int routePoints, float routeLength);

// "Kelvane - Selected Time = " with the working date in the user's order
// and the working time as a clock, then the route text.
std::string CaptionText(const WorkingMoment& moment, const DateFormat& format, const std::string& routeText);

}  // namespace kelvane
