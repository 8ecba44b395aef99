// stream, route: the stream lookup and the route calculation, headless.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <optional>

#include "cli/registry.h"
#include "core/format.h"
#include "core/positions.h"
#include "core/settings.h"
#include "core/timetext.h"
#include "passage/routecalc.h"
#include "routes/gpx.h"
#include "streams/tidalstreams.h"

namespace kelvane::cli {
namespace {

using Moment = TypedMoment;

// A position given as decimal degrees ("41.5", "-70.6") or in the chart's
// text form ("41.30.00N", "070.36.00W").
float PositionValue(const std::string& text, bool latitude) {
  const bool lettered = text.find_first_of(latitude ? "NS" : "EW") != std::string::npos;
  if (lettered) return latitude ? TextToLat(text) : TextToLon(text);
  return static_cast<float>(TextValue(text));
}

struct Area {
  TideState tides;
  StreamState streams;
  StreamContext ctx;
};

// Loads the area's diamonds and the tides of the day; "" or the message.
std::string LoadArea(const Context& cli, Area& area, const std::string& name, const Moment& at, bool summer) {
  area.ctx.tides = &area.tides;
  area.ctx.streams = &area.streams;
  area.ctx.programFolder = cli.folders().DataRoot();
  area.ctx.summerTime = summer;
  std::string message = LoadAreaDiamonds(area.ctx, name);
  if (!message.empty()) return message;
  message = ReloadTides(area.ctx, at.day, at.year);
  if (!message.empty()) return message;
  UpdatePortStates(area.ctx, true, at.hours);
  return "";
}

struct StreamOptions {
  std::string area, lat, lon, at;
  bool summer = false;
};

int Stream(const Context& cli, const StreamOptions& o) {
  const auto at = ParseDateTime(o.at);
  if (!at) {
    std::cerr << "Give the moment as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  Area area;
  if (std::string m = LoadArea(cli, area, o.area, *at, o.summer); !m.empty()) {
    std::cerr << m << "\n";
    return 1;
  }
  StreamAnswer answer{0.0f, 0.0f, 0, "NONE"};
  const std::string message = TidalStreamAt(area.ctx, PositionValue(o.lat, true), PositionValue(o.lon, false),
                                            at->hours, at->day, at->year, answer);
  if (!message.empty()) std::cerr << message << "\n";
  std::cout << "Rate = " << NumberText(answer.Rate) << " kn, Direction = " << NumberText(answer.Direction)
            << " degT, Slot = " << answer.Slot << ", Diamond = " << answer.DiamondText << "\n";
  return message.empty() ? 0 : 1;
}

struct RouteOptions {
  std::string file, route, area, depart, variation, tack;
  std::optional<float> speed, interval, leeway;
  bool details = false, summer = false;
};

// The leg speed a route point carries: a `desc` that is a number, with or
// without "kn" or "kt" after it. Anything else carries none.
std::optional<float> PointSpeed(const std::string& desc) {
  std::string text;
  for (char c : desc)
    if (c != ' ') text += c;
  for (const char* unit : {"kn", "kt", "KN", "KT"})
    if (text.size() > 2 && text.compare(text.size() - 2, 2, unit) == 0) text.resize(text.size() - 2);
  if (text.empty()) return std::nullopt;
  for (char c : text)
    if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+')) return std::nullopt;
  return static_cast<float>(TextValue(text));
}

// "2W" is -2, "3.5E" or "3.5" is 3.5.
float VariationValue(const std::string& text) {
  const float value = static_cast<float>(std::fabs(TextValue(text)));
  return text.find_first_of("Ww-") != std::string::npos ? -value : value;
}

int Route(const Context& cli, const RouteOptions& o) {
  const auto at = ParseDateTime(o.depart);
  if (!at) {
    std::cerr << "Give the departure as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  GpxStore store;
  GpxReadStatus status;
  ReadGpxFile(o.file, store, &status);
  if (status.outcome != GpxReadOutcome::Read) {
    std::cerr << "Cannot read " << o.file << (status.detail.empty() ? "" : ": " + status.detail) << "\n";
    return 1;
  }
  const std::vector<RouteFilePoint>* points = nullptr;
  for (std::size_t i = 0; i < Count(store.FileRoutes) && !points; ++i)
    if (o.route.empty() || store.FileRoutes[i].Name == o.route) points = &store.FileRoutes[i].Points;
  if (!points && o.route.empty()) points = &UnnamedRoutePoints(store);
  if (!points) {
    std::cerr << "No route named " << o.route << " in " << o.file << "\n";
    return 1;
  }

  const SettingsRecord defaults = DefaultSettings(cli.folders());
  PassageState passage;
  for (const RouteFilePoint& p : *points) {
    RoutePoint r;
    r.Lat = p.Lat;
    r.Lon = p.Lon;
    r.Name = p.Name;
    r.LatText = LatToText(p.Lat);
    r.LonText = LonToText(p.Lon);
    r.Speed = PointSpeed(p.Desc).value_or(o.speed.value_or(defaults.VesselSpeed));
    if (o.tack == "port") r.Tack = 1;
    if (o.tack == "starboard") r.Tack = 2;
    passage.Route.push_back(r);
  }

  Area area;
  if (std::string m = LoadArea(cli, area, o.area, *at, o.summer); !m.empty()) {
    std::cerr << m << "\n";
    return 1;
  }
  RouteCalcInput in;
  in.DepartureText = at->clock;
  in.Day = at->day;
  in.Year = at->year;
  in.WorkingTime = at->hours;
  in.CalcInterval = o.interval.value_or(defaults.CalcInterval);
  in.AcceptableError = defaults.AcceptableError;
  in.Variation = VariationValue(o.variation);
  if (o.leeway) {
    in.LeewaySwitch = true;
    in.Leeway = *o.leeway;
    in.LeewayText = NumberText(*o.leeway);
  }
  RouteCalcHooks hooks;
  hooks.askYesNo = [](const std::string& question) {
    std::cerr << question << "\n-> Yes\n";
    return true;
  };
  const RouteCalcOutcome outcome = CalculateRoute(area.ctx, passage, in, hooks);
  for (const RouteMessage& m : outcome.messages) std::cerr << m.text << "\n";
  if (!outcome.completed) return 1;
  for (const std::string& line : passage.ResultText) std::cout << line << "\n";
  if (o.details)
    for (const std::string& line : TidalDetailsLines(passage, true, true)) std::cout << line << "\n";
  return 0;
}

Registrar passageCommands([](CLI::App& app, Context& ctx) {
  auto so = std::make_shared<StreamOptions>();
  auto* stream = app.add_subcommand("stream", "The tidal stream at a place and a moment, from the area's diamonds");
  stream->add_option("--area", so->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  stream->add_option("--lat", so->lat, "Latitude, decimal degrees or DD.MM.mmN")->required();
  stream->add_option("--lon", so->lon, "Longitude, decimal degrees or DDD.MM.mmE")->required();
  stream->add_option("--at", so->at, "\"YYYY-MM-DD HH:MM\", the ports' zone time")->required();
  stream->add_flag("--summer", so->summer, "Summer time: the tides an hour later");
  stream->callback([&ctx, so] { ctx.exitCode = Stream(ctx, *so); });

  auto ro = std::make_shared<RouteOptions>();
  auto* route = app.add_subcommand("route", "Calculate a GPX route through the area's tidal streams");
  route->add_option("file", ro->file, "GPX file")->required();
  route->add_option("--route", ro->route, "Name of the route in the file (default: the first)");
  route->add_option("--area", ro->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  route->add_option("--depart", ro->depart, "\"YYYY-MM-DD HH:MM\"")->required();
  route->add_option("--speed", ro->speed, "Boat speed, knots, for legs whose point carries none (default VesselSpeed)");
  route->add_option("--interval", ro->interval, "CalcInterval, minutes (default 5)");
  route->add_option("--variation", ro->variation, "Variation, degrees with E or W (\"2W\")");
  route->add_option("--leeway", ro->leeway, "Leeway, degrees: switches leeway on");
  route->add_option("--tack", ro->tack, "port or starboard: the tack of every leg")
      ->check(CLI::IsMember({"port", "starboard"}));
  route->add_flag("--details", ro->details, "Add the tidal-details table");
  route->add_flag("--summer", ro->summer, "Summer time: the tides an hour later");
  route->callback([&ctx, ro] { ctx.exitCode = Route(ctx, *ro); });
});

}  // namespace
}  // namespace kelvane::cli
