// gpx: read GPX files as the program reads them, and convert the legacy
// .way and .rte files and import text.
#include <iostream>

#include "cli/registry.h"
#include "core/format.h"
#include "routes/gpx.h"
#include "routes/legacy.h"
#include "routes/textimport.h"

namespace kelvane::cli {
namespace {

std::string Coordinates(float lat, float lon) { return NumberText(lat) + "\t" + NumberText(lon); }

// One line per waypoint, per route and per route point, then the totals:
//   wpt    lat lon name desc sym
//   rte    name point-count        (an unnamed route shows an empty name)
//   rtept  lat lon name desc sym
//   desc   the file's own description, when it has one
//   total  waypoints routes route-points
int Show(const std::string& file) {
  GpxStore store;
  GpxReadStatus status;
  std::vector<Waypoint> waypoints = ReadGpxFile(file, store, &status);
  if (status.outcome != GpxReadOutcome::Read) {
    std::cout << "error\t" << status.detail << "\n";
    return 1;
  }
  if (!store.GpxDescription.empty()) std::cout << "desc\t" << store.GpxDescription << "\n";
  for (std::size_t i = 0; i < Count(waypoints); ++i) {
    const Waypoint& w = waypoints[i];
    std::cout << "wpt\t" << Coordinates(w.Lat, w.Lon) << "\t" << w.Name << "\t" << w.Desc << "\t" << w.Sym << "\n";
  }
  std::size_t routes = 0;
  std::size_t points = 0;
  auto showRoute = [&](const std::string& name, const std::vector<RouteFilePoint>& routePoints) {
    ++routes;
    std::cout << "rte\t" << name << "\t" << routePoints.size() << "\n";
    for (const RouteFilePoint& p : routePoints) {
      ++points;
      std::cout << "rtept\t" << Coordinates(p.Lat, p.Lon) << "\t" << p.Name << "\t" << p.Desc << "\t" << p.Sym << "\n";
    }
  };
  for (std::size_t r = 0; r < Count(store.FileRoutes); ++r) showRoute(store.FileRoutes[r].Name, store.FileRoutes[r].Points);
  if (!UnnamedRoutePoints(store).empty()) showRoute("", UnnamedRoutePoints(store));
  std::cout << "total\t" << Count(waypoints) << "\t" << routes << "\t" << points << "\n";
  return 0;
}

int Report(const FileCommandResult& result) {
  std::cout << result.message << "\n";
  return result.ok ? 0 : 1;
}

int ImportText(const std::string& source, const std::string& destination) {
  std::filesystem::path out(destination);
  TextImportKind kind = TextImportKind::Waypoints;
  if (out.extension() == ".rte") {
    kind = TextImportKind::Route;
  } else if (out.extension() != ".way") {
    std::cout << "The destination must end in .way or .rte\n";
    return 2;
  }
  bool readable = false;
  std::vector<std::string> lines = ReadTextFileLines(source, &readable);
  if (!readable) {
    std::cout << "Unable to read " << source << "\n";
    return 1;
  }
  std::string invalid = ValidateImportLines(lines, kind);
  if (!invalid.empty()) {
    std::cout << invalid << "\n";
    return 1;
  }
  out.replace_extension();
  return Report(ImportTextLines(lines, out, kind));
}

Registrar routesCommands([](CLI::App& app, Context& ctx) {
  auto* gpx = app.add_subcommand("gpx", "GPX waypoint and route files, legacy .way and .rte files, text import");
  gpx->require_subcommand(1);

  auto* show = gpx->add_subcommand("show", "Waypoints and routes of a GPX file as the program reads them, one line each");
  static std::string showFile;
  show->add_option("file", showFile, "GPX file")->required();
  show->callback([&ctx] { ctx.exitCode = Show(showFile); });

  auto* fromWay = gpx->add_subcommand("from-way", "Convert a legacy .way file to a GPX waypoint file");
  static std::string waySource, wayOut, wayDesc;
  fromWay->add_option("source", waySource, ".way file")->required();
  fromWay->add_option("out", wayOut, "GPX file to write")->required();
  fromWay->add_option("--desc", wayDesc, "Description given to every waypoint");
  fromWay->callback([&ctx] { ctx.exitCode = Report(ConvertWayFileToGpx(waySource, wayOut, wayDesc)); });

  auto* fromRte = gpx->add_subcommand("from-rte", "Convert a legacy .rte file to a GPX route file");
  static std::string rteSource, rteOut;
  fromRte->add_option("source", rteSource, ".rte file")->required();
  fromRte->add_option("out", rteOut, "GPX file to write")->required();
  fromRte->callback([&ctx] { ctx.exitCode = Report(ConvertRteFileToGpx(rteSource, rteOut)); });

  auto* importText = gpx->add_subcommand("import-text", "Import name,lat,lon[,speed] lines to a .way or .rte file");
  static std::string textSource, textOut;
  importText->add_option("source", textSource, "text file")->required();
  importText->add_option("out", textOut, "destination ending in .way (waypoints) or .rte (route)")->required();
  importText->callback([&ctx] { ctx.exitCode = ImportText(textSource, textOut); });
});

}  // namespace
}  // namespace kelvane::cli
