// wind apparent, wind true and tack: the true and apparent wind calculator
// and the tack of each leg of a GPX route, without the wind forms.
#include <iostream>
#include <memory>

#include "cli/registry.h"
#include "core/format.h"
#include "core/positions.h"
#include "passage/routecalc.h"
#include "routes/gpx.h"
#include "wind/sailing.h"

namespace kelvane::cli {
namespace {

struct TriangleOptions {
  std::string speed, angle, boat;
};

// The calculator's answer: speed "0.0" and angle "000", or its message on
// standard error. In still air there is no angle to give.
int ShowTriangle(const char* what, const WindTriangle& t) {
  if (!t.message.empty()) {
    std::cerr << t.message << "\n";
    return 2;
  }
  std::cout << what << " wind speed = " << t.speedText << " kn\n";
  std::cout << what << " wind angle = " << (t.angle ? t.angleText + "°" : std::string("none (no wind)")) << "\n";
  return 0;
}

struct TackOptions {
  std::string file, windDir, route;
};

// One line a leg: number, the names of its ends, bearing and tack word.
int Tack(const TackOptions& o) {
  const std::optional<float> windDir = ParseWindDirection(o.windDir);
  if (!windDir) {
    std::cerr << "Invalid Wind Direction\n";
    return 2;
  }
  GpxStore store;
  GpxReadStatus status;
  ReadGpxFile(o.file, store, &status);
  if (status.outcome != GpxReadOutcome::Read) {
    std::cerr << "Cannot read " << o.file << (status.detail.empty() ? "" : ": " + status.detail) << "\n";
    return 1;
  }
  const std::vector<RouteFilePoint>* points = ChosenRoutePoints(store, o.route);
  if (!points || points->size() < 2) {
    std::cerr << (o.route.empty() ? "No route of two points or more" : "No route named " + o.route) << " in "
              << o.file << "\n";
    return 1;
  }
  std::vector<Position> positions;
  for (const RouteFilePoint& p : *points) positions.push_back({p.Lat, p.Lon});
  const std::vector<WindSide> tacks = LegTacks(positions, *windDir);
  for (std::size_t leg = 0; leg < tacks.size(); ++leg) {
    const RouteFilePoint& a = (*points)[leg];
    const RouteFilePoint& b = (*points)[leg + 1];
    const float bearing = RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon).bearing;
    std::cout << leg + 1 << "\t" << a.Name << " to " << b.Name << "\t" << FormatNumber(bearing, "000") << "°T\t"
              << TackWord(static_cast<std::int16_t>(tacks[leg])) << "\n";
  }
  return 0;
}

Registrar sailingCommands([](CLI::App& app, Context& ctx) {
  CLI::App* wind = SharedCommand(app, "wind", kWindCommandHelp);

  auto ao = std::make_shared<TriangleOptions>();
  auto* apparent = wind->add_subcommand("apparent", "The apparent wind from the true wind and the boat's speed");
  apparent->add_option("--true-speed", ao->speed, "True wind speed, knots")->required();
  apparent->add_option("--true-angle", ao->angle, "True wind angle off the bow, degrees 0 to 359")->required();
  apparent->add_option("--boat-speed", ao->boat, "Boat speed, knots")->required();
  apparent->callback([&ctx, ao] {
    ctx.exitCode = ShowTriangle("Apparent", ApparentWindFromTrue(ao->speed, ao->angle, ao->boat));
  });

  auto to = std::make_shared<TriangleOptions>();
  auto* trueWind = wind->add_subcommand("true", "The true wind from the apparent wind and the speed over the ground");
  trueWind->add_option("--apparent-speed", to->speed, "Apparent wind speed, knots")->required();
  trueWind->add_option("--apparent-angle", to->angle, "Apparent wind angle off the bow, degrees 0 to 359")->required();
  trueWind->add_option("--boat-speed", to->boat, "Speed over the ground, knots")->required();
  trueWind->callback([&ctx, to] {
    ctx.exitCode = ShowTriangle("True", TrueWindFromApparent(to->speed, to->angle, to->boat));
  });

  auto tko = std::make_shared<TackOptions>();
  auto* tack = app.add_subcommand("tack", "The tack of each leg of a GPX route for a wind direction");
  tack->add_option("file", tko->file, "GPX file with the route")->required();
  tack->add_option("--wind-dir", tko->windDir, "Wind direction, degrees true, from")->required();
  tack->add_option("--route", tko->route, "Route name (default: the first route of the file)");
  tack->callback([&ctx, tko] { ctx.exitCode = Tack(*tko); });
});

}  // namespace
}  // namespace kelvane::cli
