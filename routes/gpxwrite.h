// The GPX writers. The text is built by hand, line by line, each line ended
// by CR LF, with no byte-order mark; its spacing is part of the format, as
// other readers of the program (the hazard line reader among them) scan it
// line by line. The texts of the elements are escaped (GpxEscape), so a
// name such as "Fish & Chips" reads back as it was typed; a text without
// those characters goes out byte for byte as it is.
//
// Every file opens with the same seven header lines and closes with
// "</gpx>". Files are replaced atomically: a crash leaves the old file or
// the new one, never half of one.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "routes/gpx.h"

namespace kelvane {

inline constexpr const char* kCrLf = "\r\n";

// The creator attribute of every file the program writes: the program's
// name (it has no web address of its own to give).
inline constexpr const char* kGpxCreator = "Kelvane";

// The text of an element with "&", "<", ">" and '"' written as the XML
// entities "&amp;", "&lt;", "&gt;" and "&quot;"; all else as it is.
std::string GpxEscape(std::string_view text);

// The seven header lines, each ended by CR LF.
std::string GpxHeader();
// "</gpx>" and its CR LF.
std::string GpxFooter();

// One waypoint element: `<wpt lat="..." lon="...">` indented by two spaces,
// `name`, `desc` and `sym` by four (desc and sym even when empty), and
// `</wpt>`. The coordinates are the texts given, as they are.
std::string WaypointToGpx(std::string_view latText, std::string_view lonText, std::string_view name,
                          std::string_view desc, std::string_view sym);

// A waypoint file: header, one element per waypoint with the coordinates
// as the shortest plain decimal of the single (up to 7 significant
// digits, DecimalText), footer.
// `waypoints` ends with its blank entry, which is not written; an empty
// list gives the header and the footer only.
std::string WaypointFileText(const std::vector<Waypoint>& waypoints);
bool WriteWaypointFile(const std::filesystem::path& path, const std::vector<Waypoint>& waypoints);

// One route point as the route file has it: `<rtept lat= lon=>` indented
// by four spaces with the coordinates in "0.000000000", `name` by six,
// `desc` and `sym` by six only when the point has them, `</rtept>` by four.
std::string RoutePointToGpx(const RouteFilePoint& point);

// A route file as the route save writes it: header, `<rte>`, the points,
// `</rte>`, footer. The route has no `name` element: a reader of the
// program's own kind sees it as the file's unnamed route.
std::string RouteFileText(const std::vector<RouteFilePoint>& points);
bool WriteRouteFile(const std::filesystem::path& path, const std::vector<RouteFilePoint>& points);

// The quick route text of a plain chain of named points: `<rte>`, per
// point `<rtept lat="..." lon="...">` in "0.000000000", three spaces and
// `<name>`, `</rtept>`, then `</rte>`; no further indentation. Header and
// footer around it.
std::string QuickRouteText(const std::vector<RouteFilePoint>& points);

// One route block of a compound file: `<rte>` indented by two spaces, its
// `<name>` by four, the points as in RoutePointToGpx, `</rte>` by two.
std::string CompoundRouteBlock(std::string_view name, const std::vector<RouteFilePoint>& points);

}  // namespace kelvane
