#include "routes/gpx.h"

#include <cfloat>
#include <charconv>
#include <cmath>

#include "core/format.h"
#include "core/recordio.h"
#include "core/text.h"

namespace kelvane {

namespace {

// The text of an element as the XML parser of the Windows program gave it:
// the character data of the element and of everything inside it, joined,
// without the blanks and line ends around it.
std::string ElementText(const pugi::xml_node& element) {
  std::string text;
  pugi::xml_node cur = element.first_child();
  while (cur) {
    if (cur.type() == pugi::node_pcdata || cur.type() == pugi::node_cdata) text += cur.value();
    if (cur.first_child()) {
      cur = cur.first_child();
      continue;
    }
    while (cur && cur != element && !cur.next_sibling()) cur = cur.parent();
    if (!cur || cur == element) break;
    cur = cur.next_sibling();
  }
  return Trim(text);
}

bool Is(const pugi::xml_node& node, const char* name) {
  return std::char_traits<char>::compare(node.name(), name, std::char_traits<char>::length(name) + 1) == 0;
}

RouteFilePoint* LastRoutePoint(GpxStore& store) {
  if (store.FileRoutes.empty() || store.FileRoutes.back().Points.empty()) return nullptr;
  return &store.FileRoutes.back().Points.back();
}

float Coordinate(const pugi::xml_node& element, const char* attribute, std::string_view format) {
  pugi::xml_attribute a = element.attribute(attribute);
  if (!a) throw GpxWalkError(std::string("<") + element.name() + "> without \"" + attribute + "\"");
  return GpxCoordinate(a.value(), format);
}

// One element of the walk. `waypoints` is the array the walk fills.
void Visit(const pugi::xml_node& node, std::vector<Waypoint>& waypoints, GpxStore& store, GpxWalkState& state) {
  if (node.type() != pugi::node_element) return;
  if (Is(node, "wpt")) {
    state.NodeKind = 1;
    Waypoint w;
    w.Lon = Coordinate(node, "lon", "000.000000");
    w.Lat = Coordinate(node, "lat", "00.000000");
    waypoints.push_back(std::move(w));
    state.TypeLetter = "w";
  } else if (Is(node, "rte")) {
    state.NodeKind = 2;
    (void)node.attribute("name");  // read and not kept
    // A route counts only when its first child is its name. Without one the
    // points that follow extend the route before it.
    pugi::xml_node first = node.first_child();
    if (first && first.type() == pugi::node_element && Is(first, "name")) {
      RouteFileEntry route;
      route.Name = ElementText(first);
      store.FileRoutes.push_back(std::move(route));
    }
    state.TypeLetter = "r";
  } else if (Is(node, "rtept")) {
    ++state.RoutePointCount;
    RouteFilePoint p;
    p.Lon = Coordinate(node, "lon", "000.000000");
    p.Lat = Coordinate(node, "lat", "00.000000");
    store.FileRoutes.back().Points.push_back(std::move(p));
  } else if (Is(node, "time") || Is(node, "cmt")) {
    // Read and dropped: the store has no field for them.
  } else if (Is(node, "name")) {
    state.LastName = ElementText(node);
    if (state.NodeKind == 1) {
      waypoints.back().Name = state.LastName;
    } else if (state.NodeKind == 2) {
      if (RouteFilePoint* p = LastRoutePoint(store)) p->Name = state.LastName;
    }
  } else if (Is(node, "desc")) {
    std::string text = ElementText(node);
    RouteFilePoint* p = state.NodeKind == 2 ? LastRoutePoint(store) : nullptr;
    if (state.NodeKind == 1)
      waypoints.back().Desc = std::move(text);
    else if (p)
      p->Desc = std::move(text);
    else
      store.GpxDescription = std::move(text);
  } else if (Is(node, "sym")) {
    std::string text = ElementText(node);
    if (state.NodeKind == 1) {
      waypoints.back().Sym = std::move(text);
    } else if (state.NodeKind == 2) {
      if (RouteFilePoint* p = LastRoutePoint(store)) p->Sym = std::move(text);
    }
  }
}

// Every node below `parent` in document order. The walk keeps no stack of
// its own, so a deeply nested document cannot exhaust the program's.
void Walk(const pugi::xml_node& parent, std::vector<Waypoint>& waypoints, GpxStore& store, GpxWalkState& state) {
  pugi::xml_node cur = parent.first_child();
  while (cur) {
    Visit(cur, waypoints, store, state);
    if (cur.first_child()) {
      cur = cur.first_child();
      continue;
    }
    while (cur && cur != parent && !cur.next_sibling()) cur = cur.parent();
    if (!cur || cur == parent) break;
    cur = cur.next_sibling();
  }
}

// Drops the blank start of slot 0 and puts the blank at the end, keeping
// the number of slots, when the walk appended anything.
template <typename T>
void MoveBlankToEnd(std::vector<T>& entries) {
  if (entries.size() <= 1) return;
  entries.erase(entries.begin());
  entries.emplace_back();
}

void SetStatus(GpxReadStatus* status, GpxReadOutcome outcome, std::string detail) {
  if (!status) return;
  status->outcome = outcome;
  status->detail = std::move(detail);
}

enum class WalkTarget { File, Chart };

// Loads and walks a document held in memory; the arrays must hold their
// blank start. False (and the arrays back to one blank) when nothing can be
// kept.
bool LoadAndWalk(std::string_view text, GpxStore& store, WalkTarget target, GpxReadStatus* status) {
  pugi::xml_document doc;
  pugi::xml_parse_result parsed = doc.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_auto);
  if (!parsed || !doc.document_element()) {
    SetStatus(status, GpxReadOutcome::NotLoaded,
              std::string("not a GPX document: ") + (parsed ? "no root element" : parsed.description()) +
                  " at byte " + std::to_string(parsed.offset));
    return false;
  }
  GpxWalkState state;
  try {
    if (target == WalkTarget::File)
      WalkGpx(doc.document_element(), store, state);
    else
      WalkGpxToChartWaypoints(doc.document_element(), store, state);
  } catch (const GpxWalkError& e) {
    SetStatus(status, GpxReadOutcome::WalkStopped, e.what());
    return false;
  }
  SetStatus(status, GpxReadOutcome::Read, std::string());
  return true;
}

}  // namespace

const std::vector<RouteFilePoint>& UnnamedRoutePoints(const GpxStore& store) {
  static const std::vector<RouteFilePoint> none;
  if (store.FileRoutes.size() == 1) return store.FileRoutes.front().Points;
  return none;
}

const std::vector<RouteFilePoint>* ChosenRoutePoints(const GpxStore& store, const std::string& name) {
  for (std::size_t i = 0; i < Count(store.FileRoutes); ++i)
    if (name.empty() || store.FileRoutes[i].Name == name) return &store.FileRoutes[i].Points;
  return name.empty() ? &UnnamedRoutePoints(store) : nullptr;
}

float GpxCoordinate(std::string_view text, std::string_view format) {
  const std::string trimmed = Trim(text);
  if (trimmed.empty()) throw GpxWalkError("empty coordinate");
  std::string_view t = trimmed;
  if (t.size() > 1 && t[0] == '+' && t[1] != '-') t.remove_prefix(1);
  double value = 0;
  auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), value, std::chars_format::general);
  if (ec != std::errc() || end != t.data() + t.size() || !std::isfinite(value) || std::fabs(value) > FLT_MAX)
    throw GpxWalkError("coordinate \"" + std::string(text) + "\" is not a number");
  return static_cast<float>(TextValue(FormatNumber(value, format)));
}

void WalkGpx(const pugi::xml_node& parent, GpxStore& store, GpxWalkState& state) {
  Walk(parent, store.FileWaypoints, store, state);
}

void WalkGpxToChartWaypoints(const pugi::xml_node& parent, GpxStore& store, GpxWalkState& state) {
  Walk(parent, store.ChartWaypoints, store, state);
}

std::vector<Waypoint> ReadGpxText(std::string_view text, GpxStore& store, GpxReadStatus* status) {
  store.FileWaypoints.assign(1, Waypoint{});
  store.FileRoutes.assign(1, RouteFileEntry{});
  store.GpxDescription.clear();
  if (!LoadAndWalk(text, store, WalkTarget::File, status)) {
    store.FileWaypoints.assign(1, Waypoint{});
    store.FileRoutes.assign(1, RouteFileEntry{});
    store.GpxDescription.clear();
    return store.FileWaypoints;
  }
  MoveBlankToEnd(store.FileWaypoints);
  MoveBlankToEnd(store.FileRoutes);
  return store.FileWaypoints;
}

std::vector<Waypoint> ReadGpxFile(const std::filesystem::path& path, GpxStore& store, GpxReadStatus* status) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) {
    store.FileWaypoints.assign(1, Waypoint{});
    store.FileRoutes.assign(1, RouteFileEntry{});
    store.GpxDescription.clear();
    SetStatus(status, GpxReadOutcome::NoFile, "no such file: " + path.string());
    return store.FileWaypoints;
  }
  std::optional<Bytes> bytes = ReadFileBytes(path);
  if (!bytes) {
    store.FileWaypoints.assign(1, Waypoint{});
    store.FileRoutes.assign(1, RouteFileEntry{});
    store.GpxDescription.clear();
    SetStatus(status, GpxReadOutcome::NotLoaded, "cannot read " + path.string());
    return store.FileWaypoints;
  }
  return ReadGpxText(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()), store, status);
}

std::size_t LoadChartWaypoints(const std::filesystem::path& path, GpxStore& store, GpxReadStatus* status) {
  store.ChartWaypoints.assign(1, Waypoint{});
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) {
    SetStatus(status, GpxReadOutcome::NoFile, "no such file: " + path.string());
    return 0;
  }
  std::optional<Bytes> bytes = ReadFileBytes(path);
  if (!bytes) {
    SetStatus(status, GpxReadOutcome::NotLoaded, "cannot read " + path.string());
    return 0;
  }
  // The chart walk also meets routes and descriptions; they go to a scratch
  // store so that a dialog's FileRoutes is not disturbed.
  GpxStore scratch;
  if (!LoadAndWalk(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()), scratch,
                   WalkTarget::Chart, status))
    return 0;
  MoveBlankToEnd(scratch.ChartWaypoints);
  store.ChartWaypoints = std::move(scratch.ChartWaypoints);
  return Count(store.ChartWaypoints);
}

std::filesystem::path WaypointFilePath(const SettingsRecord& settings, const Folders& folders) {
  std::filesystem::path file(settings.WaypointFile);
  if (file.is_absolute()) return file;
  if (settings.WaypointFolder.empty()) return folders.WaypointsFolder() / file;
  return std::filesystem::path(settings.WaypointFolder) / file;
}

}  // namespace kelvane
