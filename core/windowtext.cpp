#include "core/windowtext.h"

#include "core/format.h"
#include "core/timetext.h"

namespace kelvane {

std::string ModePanelText(const ModeFlags& m) {
  if (m.InputMode == 7) return "Mode = RoutePoint Marked (Delete (Del Key); Insert (Insert key))";
  if (m.InputMode == 8) return "Mode = Point Marked";
  if (m.InputMode == 3) return "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)";
  if (m.dividers) return "Mode = Dividers (Shift + Click sets zero point)";
  if (m.routeDrag) return "Mode = Route Drag; RIGHT Mouse hold & drag";
  return "";
}

std::string ChartPanelText(const ChartStatus& c) {
  return "Chart in use = " + c.title + " : " + c.number + " : [" + c.scale + "]";
}

std::string WaypointPanelText(const std::string& waypointFile) {
  size_t slash = waypointFile.find_last_of("/\\");
  return "Waypoints = " + (slash == std::string::npos ? waypointFile : waypointFile.substr(slash + 1));
}

std::string RoutePanelText(std::optional<float> routeLength) {
  if (!routeLength) return "";
  return "Route= " + FormatNumber(*routeLength, "0.0nm");
}

std::string IssuePanelText(const ChartStatus& c) {
  return "Chart issued " + std::to_string(c.issueMonth) + "/" + FormatNumber(c.issueYear, "0000");
}

std::string RouteCaptionText(int routePoints, float routeLength) {
  if (routePoints <= 0) return "";
  if (routePoints == 1) return ":  Creating Route";
  return ":  Route = " + FormatNumber(routeLength, "0.0") + "nm";
}

std::string CaptionText(const WorkingMoment& m, const DateFormat& format, const std::string& routeText) {
  std::string date = DateText(format.format.empty() ? "DD/MM/YYYY" : format.format, m.WorkingDayOfMonth,
                              m.WorkingMonth, m.WorkingYear);
  return std::string("Kelvane") + " - Selected Time = " + date + " " + HoursToClock(m.WorkingTime) + routeText;
}

}  // namespace kelvane
