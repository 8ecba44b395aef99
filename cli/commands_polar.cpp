// polar setups and polar speed: the boat's polar tables of Polars.mdb in
// the data root, without the wind forms.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <iostream>
#include <memory>

#include "cli/registry.h"
#include "core/format.h"
#include "state/settingsroad.h"
#include "store/polars.h"
#include "wind/polars.h"

namespace kelvane::cli {
namespace {

// The data root's polar database; its message (an import, a failure) goes
// to standard error. False when nothing can be read.
bool OpenPolars(const Context& ctx, PolarDatabase& polars) {
  polars = OpenPolarDatabase(PolarDatabasePath(ctx.folders().DataRoot()));
  if (!polars.message.empty()) std::cerr << polars.message << "\n";
  return polars.db.ok();
}

int SetUps(const Context& ctx) {
  PolarDatabase polars;
  if (!OpenPolars(ctx, polars)) return 1;
  PolarSetUps setUps = ListPolarSetUps(polars.db);
  if (!setUps.message.empty()) {
    std::cerr << setUps.message << "\n";
    return 1;
  }
  for (const std::string& name : setUps.names) std::cout << name << "\n";
  return 0;
}

struct SpeedOptions {
  std::string setUp, wind, twa;
};

bool HasDigit(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

int Speed(const Context& ctx, const SpeedOptions& o) {
  const float wind = static_cast<float>(TextValue(o.wind));
  const float twa = static_cast<float>(TextValue(o.twa));
  if (!HasDigit(o.wind) || !(wind >= 0.0f) || !std::isfinite(wind)) {
    std::cerr << "Invalid Wind Speed\n";
    return 2;
  }
  if (!HasDigit(o.twa) || !(twa >= 0.0f && twa <= 180.0f)) {
    std::cerr << "Check Wind Angle\n";
    return 2;
  }
  if (o.setUp.empty()) {
    std::cerr << "Select a set up\n";
    return 2;
  }
  PolarDatabase polars;
  if (!OpenPolars(ctx, polars)) return 1;
  PolarTable table = ReadPolarTable(polars.db, o.setUp);
  if (!table.message.empty()) {
    std::cerr << table.message << "\n";
    return 1;
  }
  if (!table.missingColumns.empty()) {
    std::cerr << "The set up \"" << o.setUp << "\" lacks the columns";
    for (const std::string& c : table.missingColumns) std::cerr << " " << c;
    std::cerr << "\n";
  }
  const SettingsInUse settings = ReadSettingsInUse(ctx.folders());
  const ProgramState state = CommandState(ctx.folders(), settings);
  PolarCell speed = PolarBoatSpeed(table, wind, twa, state.settings.ClosestSailingAngle);
  int status = 0;
  if (speed.PolarLookupFailed) {
    std::cout << "Boat speed = (none: the table has no value for " << NumberText(wind) << " kn at "
              << NumberText(twa) << "°)\n";
    status = 1;
  } else {
    std::cout << "Boat speed = " << speed.speedText << " kn\n";
  }
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

Registrar polarCommands([](CLI::App& app, Context& ctx) {
  auto* polar = app.add_subcommand("polar", "The boat's polar tables (Polars.mdb in the data root)");
  polar->require_subcommand(1);
  auto* setups = polar->add_subcommand("setups", "List the set-ups of the polar database");
  setups->callback([&ctx] { ctx.exitCode = SetUps(ctx); });

  auto so = std::make_shared<SpeedOptions>();
  auto* speed = polar->add_subcommand(
      "speed", "Boat speed through the water at a true wind speed and angle, interpolated in the set-up's table");
  speed->add_option("--setup", so->setUp, "Set-up: a name listed by `polar setups`")->required();
  speed->add_option("--wind", so->wind, "True wind speed, knots")->required();
  speed->add_option("--twa", so->twa, "True wind angle off the bow, degrees 0 to 180")->required();
  speed->callback([&ctx, so] { ctx.exitCode = Speed(ctx, *so); });
});

}  // namespace
}  // namespace kelvane::cli
