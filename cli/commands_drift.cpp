// cog, mob: where a boat on a steady heading, or a person in the water,
// ends up after a time in the area's tidal streams, headless. The same
// checks and report as the two forms of the window, from the user's
// settings (variation, calculation interval) unless an option overrides.
#include <iostream>
#include <memory>
#include <optional>

#include "cli/passageinput.h"
#include "cli/registry.h"
#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"
#include "passage/driftrun.h"
#include "state/areaday.h"
#include "state/programstate.h"
#include "state/settingsroad.h"
#include "streams/tidalstreams.h"

namespace kelvane::cli {
namespace {

struct DriftOptions {
  std::string from, to, heading, speed, duration, at, area, windside;
  std::optional<std::string> variation, leeway;
  bool track = false;
};

enum class DriftKind { Cog, Mob };

// The run as the form would make it; the report on standard output, then
// with --track one line a point of the track: time, latitude, longitude.
int DriftCommand(const Context& cli, const DriftOptions& o, DriftKind kind, const SettingsInUse& settings) {
  const auto at = ParseDateTime(o.at);
  if (!at) {
    std::cerr << "Give the moment as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  ProgramState state = MomentState(cli, settings, *at, false);
  if (std::string m = LoadAreaForDay(state, o.area, at->day, at->year, at->hours); !m.empty()) {
    std::cerr << m << "\n";
    return 1;
  }
  DriftSettings ds;
  ds.Variation = o.variation ? VariationValue(*o.variation) : state.settings.Variation;
  ds.CalcInterval = state.settings.CalcInterval;
  ds.Day = at->day;
  ds.Year = at->year;
  ds.Time = at->hours;

  StreamContext ctx = state.Streams();
  DriftOutcome outcome;
  switch (kind) {
    case DriftKind::Cog: {
      CogInput in;
      in.Start = o.from;
      in.Dest = o.to;
      in.Speed = o.speed;
      in.Duration = o.duration;
      in.Bearing = o.heading;
      in.LeewayOn = o.leeway.has_value();
      in.LeewayText = o.leeway.value_or("");
      in.Side = o.windside == "port" ? LeewaySide::Port : o.windside == "starboard" ? LeewaySide::Starboard
                                                                                    : LeewaySide::None;
      outcome = CalculateCog(ctx, state.passage, in, ds);
      break;
    }
    case DriftKind::Mob: {
      MobInput in;
      in.Start = o.from;
      in.Duration = o.duration;
      outcome = CalculateMob(ctx, state.passage, in, ds);
      break;
    }
  }
  for (const std::string& notice : outcome.notices) std::cerr << notice << "\n";
  switch (outcome.verdict) {
    case DriftVerdict::Refused:
      std::cerr << outcome.message << "\n";
      return 1;
    case DriftVerdict::Done:
      break;
  }
  for (const std::string& line : outcome.lines) std::cout << line << "\n";
  if (o.track)
    for (const CogPoint& p : outcome.track)
      std::cout << HoursToClock(p.Time) << "\t" << LatToText(p.Lat) << "\t" << LonToText(p.Lon) << "\n";
  return 0;
}

int Drift(const Context& cli, const DriftOptions& o, DriftKind kind) {
  const SettingsInUse settings = ReadSettingsInUse(cli.folders());
  const int status = DriftCommand(cli, o, kind, settings);
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

Registrar driftCommands([](CLI::App& app, Context& ctx) {
  auto co = std::make_shared<DriftOptions>();
  auto* cog = app.add_subcommand("cog", "Course over ground: a boat on a steady heading through the tidal streams");
  cog->add_option("--from", co->from, "Start, \"DD.MM.mmN DDD.MM.mmW\"")->required();
  cog->add_option("--heading", co->heading, "Heading steered, degrees magnetic")->required();
  cog->add_option("--speed", co->speed, "Boat speed through the water, knots")->required();
  cog->add_option("--duration", co->duration, "Time on the heading, \"H:MM\"")->required();
  cog->add_option("--at", co->at, "Start, \"YYYY-MM-DD HH:MM\"")->required();
  cog->add_option("--area", co->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  cog->add_option("--to", co->to, "Destination, \"DD.MM.mmN DDD.MM.mmW\": range, bearing and closest approach");
  cog->add_option("--variation", co->variation, "Variation, degrees with E or W (\"2W\"; default: the settings')");
  auto* leeway = cog->add_option("--leeway", co->leeway, "Leeway, degrees: switches leeway on; give the wind side");
  auto* side = cog->add_option("--windside", co->windside, "port or starboard: the side the wind is on")
                   ->check(CLI::IsMember({"port", "starboard"}));
  side->needs(leeway);
  leeway->needs(side);
  cog->add_flag("--track", co->track, "Add the track: time, latitude and longitude of every step");
  cog->callback([&ctx, co] { ctx.exitCode = Drift(ctx, *co, DriftKind::Cog); });

  auto mo = std::make_shared<DriftOptions>();
  auto* mob = app.add_subcommand("mob", "Man overboard: where the tidal streams carry a person in the water");
  mob->add_option("--from", mo->from, "Position at the alarm, \"DD.MM.mmN DDD.MM.mmW\"")->required();
  mob->add_option("--hours", mo->duration, "Hours in the water, a plain number (\"1.5\")")->required();
  mob->add_option("--at", mo->at, "Moment of the alarm, \"YYYY-MM-DD HH:MM\"")->required();
  mob->add_option("--area", mo->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  mob->add_flag("--track", mo->track, "Add the drift: time, latitude and longitude of every step");
  mob->callback([&ctx, mo] { ctx.exitCode = Drift(ctx, *mo, DriftKind::Mob); });
});

}  // namespace
}  // namespace kelvane::cli
