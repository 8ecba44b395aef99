#include "routes/gpxwrite.h"

#include "core/format.h"
#include "core/recordio.h"

namespace kelvane {

namespace {

std::string& Line(std::string& out, std::string_view indent, std::string_view text) {
  out.append(indent).append(text).append(kCrLf);
  return out;
}

}  // namespace

std::string GpxEscape(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

namespace {

std::string Element(std::string_view tag, std::string_view text) {
  std::string s;
  s.append("<").append(tag).append(">").append(GpxEscape(text)).append("</").append(tag).append(">");
  return s;
}

// The attributes of a route point, in the nine-decimal form of route files.
std::string PointOpening(const RouteFilePoint& point) {
  return "<rtept lat=\"" + FormatNumber(point.Lat, "0.000000000") + "\" lon=\"" +
         FormatNumber(point.Lon, "0.000000000") + "\">";
}

}  // namespace

std::string GpxHeader() {
  std::string out;
  Line(out, "", "<?xml version=\"1.0\"?>");
  Line(out, "", "<gpx version=\"1.1\"");
  Line(out, "", std::string("creator=\"") + kGpxCreator + "\"");
  Line(out, "", "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"");
  Line(out, "", "xmlns=\"http://www.topografix.com/GPX/1/1\"");
  Line(out, "", "xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1");
  Line(out, "", "http://www.topografix.com/GPX/1/1/gpx.xsd\">");
  return out;
}

std::string GpxFooter() { return std::string("</gpx>") + kCrLf; }

std::string WaypointToGpx(std::string_view latText, std::string_view lonText, std::string_view name,
                          std::string_view desc, std::string_view sym) {
  std::string out;
  Line(out, "  ", "<wpt lat=\"" + std::string(latText) + "\" lon=\"" + std::string(lonText) + "\">");
  Line(out, "    ", Element("name", name));
  Line(out, "    ", Element("desc", desc));
  Line(out, "    ", Element("sym", sym));
  Line(out, "  ", "</wpt>");
  return out;
}

std::string WaypointFileText(const std::vector<Waypoint>& waypoints) {
  std::string out = GpxHeader();
  for (std::size_t i = 0; i < Count(waypoints); ++i) {
    const Waypoint& w = waypoints[i];
    out += WaypointToGpx(DecimalText(w.Lat), DecimalText(w.Lon), w.Name, w.Desc, w.Sym);
  }
  out += GpxFooter();
  return out;
}

bool WriteWaypointFile(const std::filesystem::path& path, const std::vector<Waypoint>& waypoints) {
  return WriteFileAtomic(path, WaypointFileText(waypoints));
}

std::string RoutePointToGpx(const RouteFilePoint& point) {
  std::string out;
  Line(out, "    ", PointOpening(point));
  Line(out, "      ", Element("name", point.Name));
  if (!point.Desc.empty()) Line(out, "      ", Element("desc", point.Desc));
  if (!point.Sym.empty()) Line(out, "      ", Element("sym", point.Sym));
  Line(out, "    ", "</rtept>");
  return out;
}

std::string RouteFileText(const std::vector<RouteFilePoint>& points) {
  std::string out = GpxHeader();
  Line(out, "", "<rte>");
  for (const RouteFilePoint& p : points) out += RoutePointToGpx(p);
  Line(out, "", "</rte>");
  out += GpxFooter();
  return out;
}

bool WriteRouteFile(const std::filesystem::path& path, const std::vector<RouteFilePoint>& points) {
  return WriteFileAtomic(path, RouteFileText(points));
}

std::string QuickRouteText(const std::vector<RouteFilePoint>& points) {
  std::string out = GpxHeader();
  Line(out, "", "<rte>");
  for (const RouteFilePoint& p : points) {
    Line(out, "", PointOpening(p));
    Line(out, "   ", Element("name", p.Name));
    Line(out, "", "</rtept>");
  }
  Line(out, "", "</rte>");
  out += GpxFooter();
  return out;
}

std::string CompoundRouteBlock(std::string_view name, const std::vector<RouteFilePoint>& points) {
  std::string out;
  Line(out, "  ", "<rte>");
  Line(out, "    ", Element("name", name));
  for (const RouteFilePoint& p : points) out += RoutePointToGpx(p);
  Line(out, "  ", "</rte>");
  return out;
}

}  // namespace kelvane
