// The GPX store: waypoint and route records, and the reader of GPX 1.1 files.
//
// GPX is the program's own format for waypoints and routes. The reader walks
// the parsed document element by element in document order and picks out
// what it knows by element name alone: `wpt`, `rte`, `rtept`, `name`, `desc`,
// `sym` (and `time`, `cmt`, which it reads and drops). Everything else is
// transparent: the walk goes down into it and out again, so metadata,
// extensions and foreign namespaces pass without error.
//
// The record arrays are growable arrays that always end with one blank
// entry: a consumer loops from 0 to size() - 2 (see Count below). While a
// walk runs, slot 0 is a blank start and every element found is appended
// after it; at the end of a read slot 0 is dropped and a blank entry put at
// the end, so the number of slots is the same and the blank now stands last.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "core/datatree.h"
#include "core/settings.h"

namespace kelvane {

// One waypoint as it stands in a GPX file. Latitude and longitude are
// 32-bit float degrees, north and east positive, rounded to six decimals
// by the reader. Only Lat, Lon, Name, Desc and Sym are ever filled from a
// file; the other fields stay as the record's layout has always had them.
struct Waypoint {
  float Lat = 0;
  float Lon = 0;
  std::string Name;
  std::string Desc;
  std::int32_t Number = 0;  // left 0 by the reader
  std::string Text;         // left empty by the reader
  std::string Sym;          // symbol code, the colour bands of the chart mark
  std::string Text2;
  std::string Text3;
  bool operator==(const Waypoint&) const = default;
};

// One `rtept` of a route file, the same idea with a few more spare fields.
struct RouteFilePoint {
  float Lat = 0;
  float Lon = 0;
  std::string Name;
  std::int32_t Value1 = 0;
  std::string Desc;
  std::int32_t Value2 = 0;
  std::string Text1;
  std::string Sym;
  std::string Text2;
  std::string Text3;
  std::string Text4;
  std::string Text5;
  bool operator==(const RouteFilePoint&) const = default;
};

// One `rte`: its name and its points, in file order. Points has no blank
// entry at its end: it holds exactly the points read.
struct RouteFileEntry {
  std::string Name;
  std::int32_t Value = 0;
  std::vector<RouteFilePoint> Points;
  bool operator==(const RouteFileEntry&) const = default;
};

// The waypoints and routes of the files in use, owned by the main window
// and handed to whatever reads or draws them. Each array ends with one
// blank entry.
//
// FileRoutes holds one more rule: a route written without a leading `name`
// (the plain route file and the quick route file are written that way)
// adds no entry, and its points land on the last entry. When a file holds
// no named route at all, that last entry is the only one, and its Points
// are the points of the file's unnamed route: Count(FileRoutes) is then 0
// and UnnamedRoutePoints() gives them.
struct GpxStore {
  std::vector<Waypoint> ChartWaypoints = std::vector<Waypoint>(1);  // drawn on the chart, looked up by name
  std::vector<Waypoint> FileWaypoints = std::vector<Waypoint>(1);   // the latest read of a file by a dialog
  std::vector<RouteFileEntry> FileRoutes = std::vector<RouteFileEntry>(1);
  std::string GpxDescription;  // a `desc` found outside any waypoint or route point
};

// The number of real entries of an array that ends with its blank entry.
template <typename T>
std::size_t Count(const std::vector<T>& withBlank) {
  return withBlank.empty() ? 0 : withBlank.size() - 1;
}

// The points of a file's unnamed route (see GpxStore), empty when the file
// held named routes or no route points at all.
const std::vector<RouteFilePoint>& UnnamedRoutePoints(const GpxStore& store);

// The route a command asks for by name: the named route of the file, or,
// with no name, its first named route or else its unnamed route. Null when
// the name is not in the file.
const std::vector<RouteFilePoint>* ChosenRoutePoints(const GpxStore& store, const std::string& name);

// What became of a read.
enum class GpxReadOutcome {
  Read,         // the document loaded and was walked to its end
  NoFile,       // no such file: an empty result, no message
  NotLoaded,    // not a well-formed XML document: an empty result
  WalkStopped,  // a `wpt` or `rtept` without a usable "lat" or "lon": an empty result
};

struct GpxReadStatus {
  GpxReadOutcome outcome = GpxReadOutcome::Read;
  std::string detail;  // why a read gave nothing, for a log line or the command line
};

// The scratch of one walk: where the latest `name`, `desc` and `sym` go.
struct GpxWalkState {
  int NodeKind = 0;              // 1 after a `wpt`, 2 after a `rte`; never reset within a walk
  std::string LastName;          // the latest `name` text
  std::string TypeLetter;        // "w" or "r", the kind of the latest element
  std::int32_t RoutePointCount = 0;
};

// Raised by a walk that meets a `wpt` or `rtept` whose "lat" or "lon" is
// missing or not a number. It ends the walk; ReadGpxFile takes it.
struct GpxWalkError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The two walks over the children of `parent`, in document order, going
// down into every element. The first fills store.FileWaypoints, the second
// store.ChartWaypoints; both fill store.FileRoutes and store.GpxDescription.
// The arrays are expected to hold their blank start in slot 0. Throws
// GpxWalkError as above; what was appended before stays appended.
void WalkGpx(const pugi::xml_node& parent, GpxStore& store, GpxWalkState& state);
void WalkGpxToChartWaypoints(const pugi::xml_node& parent, GpxStore& store, GpxWalkState& state);

// Reads a GPX file into store.FileWaypoints and store.FileRoutes and returns
// a copy of the waypoints (ending with the blank entry). A missing file, a
// document that does not load, and a walk that stops all give one blank
// entry in each array: nothing half read is kept. The file is only read.
std::vector<Waypoint> ReadGpxFile(const std::filesystem::path& path, GpxStore& store,
                                  GpxReadStatus* status = nullptr);
// The same over a document held in memory.
std::vector<Waypoint> ReadGpxText(std::string_view text, GpxStore& store, GpxReadStatus* status = nullptr);

// Loads the waypoint file in use into store.ChartWaypoints (the chart's
// marks), by the chart walk. On any failure ChartWaypoints is one blank
// entry. Returns the number of waypoints loaded.
std::size_t LoadChartWaypoints(const std::filesystem::path& path, GpxStore& store, GpxReadStatus* status = nullptr);

// The waypoint file in use: the settings' WaypointFile in their
// WaypointFolder, or in the data tree's waypoints folder when no folder is
// set. A WaypointFile given with its own full path is taken as it stands.
std::filesystem::path WaypointFilePath(const SettingsRecord& settings, const Folders& folders);

// The coordinate of a `wpt` or `rtept` attribute as the reader keeps it:
// the text read as a number, formatted with six decimals ("00.000000" for a
// latitude, "000.000000" for a longitude) and read back into a single, so
// that finer digits are rounded away. Leading blanks are allowed. Throws
// GpxWalkError for an empty, non-numeric or non-finite text.
float GpxCoordinate(std::string_view text, std::string_view format);

}  // namespace kelvane
