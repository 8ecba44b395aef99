// dive-route: a boat trip between dive sites from a GPX route, at plain
// speed with a dive at each site, reported as the window's dive route
// form reports it. The streams met on the way come from an area's diamonds
// when one is named (--details lists them); they never change the course
// or the times.
#include <algorithm>
#include <cctype>
#include <iostream>
#include <optional>
#include <sstream>

#include "cli/passageinput.h"
#include "cli/registry.h"
#include "core/format.h"
#include "core/settings.h"
#include "core/timetext.h"
#include "passage/diveroute.h"
#include "passage/routecalc.h"
#include "passage/routeform.h"
#include "state/areaday.h"
#include "streams/tidalstreams.h"

namespace kelvane::cli {
namespace {

struct DiveOptions {
  std::string file, route, area, depart, dive;
  std::optional<std::string> variation;
  std::optional<float> speed;
  bool details = false;
};

// "45,20,0": the dive at the second point, the third, and so on. Whole
// minutes only; an empty list is no dives.
std::optional<std::vector<std::string>> DiveMinutes(const std::string& text) {
  std::vector<std::string> minutes;
  if (text.empty()) return minutes;
  std::stringstream in(text);
  std::string item;
  while (std::getline(in, item, ',')) {
    if (item.empty()) return std::nullopt;
    for (char c : item)
      if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
    minutes.push_back(item);
  }
  if (text.back() == ',') return std::nullopt;
  return minutes;
}

int CalculateDiveFile(const Context& cli, const DiveOptions& o, const SettingsInUse& settings, const TypedMoment& at) {
  const auto dives = DiveMinutes(o.dive);
  if (!dives) {
    std::cerr << "Give the dive times as whole minutes, one a stop from the second point: --dive 45,30\n";
    return 2;
  }
  ProgramState state = MomentState(cli, settings, at, false);
  const SettingsRecord& s = state.settings;
  PassageState& passage = state.passage;
  if (!LoadGpxRoute(o.file, o.route, o.speed.value_or(s.VesselSpeed), passage)) return 1;
  if (static_cast<int>(dives->size()) > RouteCount(passage) - 1) {
    std::cerr << "The route has " << RouteCount(passage) << " points: at most " << std::max(0, RouteCount(passage) - 1)
              << " dive times\n";
    return 2;
  }
  for (std::size_t k = 0; k < dives->size(); ++k) SetDiveTime(passage, static_cast<int>(k) + 1, (*dives)[k]);

  if (!o.area.empty()) {
    if (std::string m = LoadAreaForDay(state, o.area, at.day, at.year, at.hours); !m.empty()) {
      std::cerr << m << "\n";
      return 1;
    }
  }
  DiveRouteInput in;
  in.DepartureText = at.clock;
  in.Day = at.day;
  in.Year = at.year;
  in.WorkingTime = at.hours;
  in.Variation = o.variation ? VariationValue(*o.variation) : s.Variation;
  in.CalcInterval = s.CalcInterval;
  StreamContext ctx = state.Streams();
  const DiveRouteOutcome outcome = CalculateDiveRoute(ctx, passage, in);
  for (const std::string& m : outcome.messages) std::cerr << m << "\n";
  if (!outcome.completed) return 1;
  for (const std::string& line : passage.ResultText) std::cout << line << "\n";
  if (o.details)
    for (const std::string& line : TidalDetailsLines(passage, true, true)) std::cout << line << "\n";
  return 0;
}

int DiveRoute(const Context& cli, const DiveOptions& o) {
  const auto at = ParseDateTime(o.depart);
  if (!at) {
    std::cerr << "Give the departure as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  const SettingsInUse settings = ReadSettingsInUse(cli.folders());
  const int status = CalculateDiveFile(cli, o, settings, *at);
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

Registrar diveCommands([](CLI::App& app, Context& ctx) {
  auto o = std::make_shared<DiveOptions>();
  auto* dive = app.add_subcommand("dive-route", "A GPX route between dive sites at plain speed, with a dive at each stop");
  dive->add_option("file", o->file, "GPX file")->required();
  dive->add_option("--route", o->route, "Name of the route in the file (default: the first)");
  dive->add_option("--depart", o->depart, "\"YYYY-MM-DD HH:MM\"")->required();
  dive->add_option("--speed", o->speed, "Boat speed, knots, for legs whose point carries none (default: the settings' VesselSpeed)");
  dive->add_option("--dive", o->dive, "Dive minutes at the stops from the second point on, in order: \"45,30\"");
  dive->add_option("--variation", o->variation, "Variation, degrees with E or W (\"2W\"; default: the settings')");
  dive->add_option("--area", o->area, "Area whose diamonds give the streams met: the name of Charts/<area>.l35 in the data root");
  dive->add_flag("--details", o->details, "Add the table of the streams met");
  dive->callback([&ctx, o] { ctx.exitCode = DiveRoute(ctx, *o); });
});

}  // namespace
}  // namespace kelvane::cli
