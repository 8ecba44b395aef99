#include "routes/exports.h"

#include "core/format.h"
#include "routes/gpx.h"
#include "routes/gpxfields.h"
#include "routes/gpxwrite.h"

namespace kelvane {

namespace {

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(kCrLf);
  return text;
}

FileCommandResult Written(const std::filesystem::path& file, const std::string& text, std::string okMessage) {
  FileCommandResult result;
  if (!WriteFileAtomic(file, text)) {
    result.message = "Unable to write " + file.string();
    return result;
  }
  result.ok = true;
  result.written = file;
  result.message = std::move(okMessage);
  return result;
}

}  // namespace

FileCommandResult ExportCogText(const std::vector<std::string>& lines, const std::filesystem::path& folder,
                                std::string_view fileName) {
  if (lines.empty()) return {false, "No Valid COG data exit this screen and Calculate a Leg or Route", {}};
  if (fileName.empty()) return {false, "Select name for destination file", {}};
  if (folder.empty()) return {false, "Select location for destination file", {}};
  std::filesystem::path file = folder / std::string(fileName);
  return Written(file, JoinLines(lines), "File saved to " + file.string());
}

std::vector<std::string> CogToWayLines(const std::vector<Position>& steps) {
  std::vector<std::string> lines;
  for (std::size_t k = 0; k < steps.size(); ++k) {
    std::string name = k == 0                  ? std::string("STARTWPT")
                       : k + 1 == steps.size() ? std::string("ENDWAYPT")
                                               : "WAY" + FormatNumber(static_cast<int>(k), "00000");
    lines.push_back(name + "," + FormatNumber(steps[k].lat, "0.000000") + ", " + FormatNumber(steps[k].lon, "0.000000"));
  }
  return lines;
}

FileCommandResult SaveCogWayLines(const std::vector<std::string>& lines, const std::filesystem::path& destination,
                                  bool asGpx) {
  if (destination.filename().empty()) return {false, "No file name", {}};
  if (!asGpx) return Written(destination, JoinLines(lines), "File saved to " + destination.string());
  std::string text = GpxHeader();
  for (const std::string& line : lines) {
    float lat = static_cast<float>(TextValue(SecondCsvField(line)));
    float lon = static_cast<float>(TextValue(ThirdCsvField(line)));
    std::string name = FirstCsvField(line);
    text += WaypointToGpx(FormatNumber(lat, "0.000000000"), FormatNumber(lon, "0.000000000"), name, "", "");
  }
  text += GpxFooter();
  return Written(destination, text, "File saved to " + destination.string());
}

std::string DropFileNameCharacters(std::string_view typed) {
  static constexpr std::string_view kDropped = "!#$%*,./:;<=>?@^`~";
  std::string kept;
  for (std::size_t i = 0; i < typed.size(); ++i) {
    if (typed.compare(i, 2, "\xC2\xA3") == 0) {  // the pound sign in UTF-8
      ++i;
      continue;
    }
    if (kDropped.find(typed[i]) == std::string_view::npos) kept += typed[i];
  }
  return kept;
}

std::string CompoundExportText(const std::vector<std::filesystem::path>& routeFiles,
                               const std::vector<std::filesystem::path>& waypointFiles, std::string_view exportName) {
  std::string text = GpxHeader();
  for (const std::filesystem::path& file : routeFiles) {
    GpxStore store;
    ReadGpxFile(file, store);
    for (std::size_t r = 0; r < Count(store.FileRoutes); ++r) {
      const RouteFileEntry& route = store.FileRoutes[r];
      text += CompoundRouteBlock(route.Name.empty() ? exportName : std::string_view(route.Name), route.Points);
    }
    const std::vector<RouteFilePoint>& unnamed = UnnamedRoutePoints(store);
    if (!unnamed.empty()) text += CompoundRouteBlock(exportName, unnamed);
  }
  for (const std::filesystem::path& file : waypointFiles) {
    GpxStore store;
    std::vector<Waypoint> waypoints = ReadGpxFile(file, store);
    for (std::size_t i = 0; i < Count(waypoints); ++i) {
      const Waypoint& w = waypoints[i];
      text += WaypointToGpx(DecimalText(w.Lat), DecimalText(w.Lon), w.Name, w.Desc, w.Sym);
    }
  }
  text += GpxFooter();
  return text;
}

FileCommandResult ExportCompound(const std::vector<std::filesystem::path>& routeFiles,
                                 const std::vector<std::filesystem::path>& waypointFiles,
                                 const std::filesystem::path& destination) {
  if (destination.filename().empty()) return {false, "No file name", {}};
  std::string exportName = destination.stem().string();
  return Written(destination, CompoundExportText(routeFiles, waypointFiles, exportName),
                 "File saved to :" + destination.string());
}

}  // namespace kelvane
