// stream, route, optimise, plan, leg: the stream lookup, the route
// calculation, the departure sweep, the passage plan, and one leg worked by
// hand, headless.
// All work from the program's state made with the user's settings file of
// the data tree, as the window's does, so that a route gives the same
// passage here as in the window; the options override single settings.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <optional>

#include "cli/passageinput.h"
#include "cli/planpdf.h"
#include "cli/registry.h"
#include "core/clock.h"
#include "core/format.h"
#include "core/positions.h"
#include "core/settings.h"
#include "core/timetext.h"
#include "core/workingtime.h"
#include "passage/departuresweep.h"
#include "passage/passageplan.h"
#include "passage/routecalc.h"
#include "passage/singleleg.h"
#include "routes/gpx.h"
#include "state/areaday.h"
#include "state/programstate.h"
#include "state/settingsroad.h"
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
  ProgramState state = MomentState(cli, ReadSettingsInUse(cli.folders()), *at, o.summer);
  if (std::string m = LoadAreaForDay(state, o.area, at->day, at->year, at->hours); !m.empty()) {
    std::cerr << m << "\n";
    return 1;
  }
  StreamContext ctx = state.Streams();
  StreamAnswer answer{0.0f, 0.0f, 0, "NONE"};
  const std::string message = TidalStreamAt(ctx, PositionValue(o.lat, true), PositionValue(o.lon, false),
                                            at->hours, at->day, at->year, answer);
  if (!message.empty()) std::cerr << message << "\n";
  std::cout << "Rate = " << NumberText(answer.Rate) << " kn, Direction = " << NumberText(answer.Direction)
            << " degT, Slot = " << answer.Slot << ", Diamond = " << answer.DiamondText << "\n";
  return message.empty() ? 0 : 1;
}

struct RouteOptions {
  std::string file, route, area, depart, tack;
  std::optional<std::string> variation;
  std::optional<float> speed, interval, leeway;
  bool details = false, summer = false;
};

// Calculates the route of the file into `state` (made by MomentState);
// the messages go to the error stream. 0 when the report was written.
int CalculateRouteFile(const RouteOptions& o, const Moment& at, ProgramState& state) {
  const SettingsRecord& s = state.settings;
  PassageState& passage = state.passage;
  if (!LoadGpxRoute(o.file, o.route, o.speed.value_or(s.VesselSpeed), passage)) return 1;
  for (std::size_t i = 1; i < passage.Route.size(); ++i) {
    if (o.tack == "port") passage.Route[i].Tack = 1;
    if (o.tack == "starboard") passage.Route[i].Tack = 2;
  }

  if (std::string m = LoadAreaForDay(state, o.area, at.day, at.year, at.hours); !m.empty()) {
    std::cerr << m << "\n";
    return 1;
  }
  // What the window's route form takes from the settings when the command
  // line does not say otherwise.
  RouteCalcInput in;
  in.DepartureText = at.clock;
  in.Day = at.day;
  in.Year = at.year;
  in.WorkingTime = at.hours;
  in.CalcInterval = o.interval.value_or(s.CalcInterval);
  in.AcceptableError = s.AcceptableError;
  in.Variation = o.variation ? VariationValue(*o.variation) : s.Variation;
  in.LeewaySwitch = o.leeway ? true : s.UseLeeway != 0;
  in.Leeway = o.leeway.value_or(s.Leeway);
  in.LeewayText = NumberText(in.Leeway);
  RouteCalcHooks hooks;
  hooks.askYesNo = [](const std::string& question) {
    std::cerr << question << "\n-> Yes\n";
    return true;
  };
  StreamContext ctx = state.Streams();
  const RouteCalcOutcome outcome = CalculateRoute(ctx, passage, in, hooks);
  for (const RouteMessage& m : outcome.messages) std::cerr << m.text << "\n";
  return outcome.completed ? 0 : 1;
}

int Route(const Context& cli, const RouteOptions& o) {
  const auto at = ParseDateTime(o.depart);
  if (!at) {
    std::cerr << "Give the departure as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  const SettingsInUse settings = ReadSettingsInUse(cli.folders());
  ProgramState state = MomentState(cli, settings, *at, o.summer);
  const int status = CalculateRouteFile(o, *at, state);
  if (status == 0) {
    for (const std::string& line : state.passage.ResultText) std::cout << line << "\n";
    if (o.details)
      for (const std::string& line : TidalDetailsLines(state.passage, true, true)) std::cout << line << "\n";
  }
  // Which settings gave these numbers, after the report.
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

struct OptimiseOptions {
  std::string file, route, area, date;
  int slot = 0;
  std::optional<float> speed;
};

// The departure sweep of a GPX route over one slot of a day, as the
// window's optimise form runs it; the report is printed whole.
int OptimiseRouteFile(const Context& cli, const OptimiseOptions& o, const SettingsInUse& settings) {
  const auto date = o.date.size() == 10 ? ParseDateTime(o.date + " 00:00") : std::nullopt;
  if (!date) {
    std::cerr << "Give the date as \"YYYY-MM-DD\"\n";
    return 2;
  }
  ProgramState state = MomentState(cli, settings, *date, false);
  if (!LoadGpxRoute(o.file, o.route, o.speed.value_or(state.settings.VesselSpeed), state.passage)) return 1;
  if (std::string m = LoadAreaForDay(state, o.area, date->day, date->year, date->hours); !m.empty()) {
    std::cerr << m << "\n";
    return 1;
  }
  SweepInput in;
  in.Slot = o.slot;
  in.Day = date->day;
  in.Year = date->year;
  in.WorkingTime = date->hours;
  in.CalcInterval = state.settings.CalcInterval;
  in.AcceptableError = state.settings.AcceptableError;
  SweepHooks hooks;
  hooks.askYesNo = [](const std::string& question) {
    std::cerr << question << "\n-> Yes\n";
    return true;
  };
  StreamContext ctx = state.Streams();
  const SweepOutcome outcome = SweepDepartures(ctx, state.passage, in, hooks);
  for (const std::string& m : outcome.messages) std::cerr << m << "\n";
  switch (outcome.verdict) {
    case SweepVerdict::Completed:
      for (const std::string& line : state.passage.ResultText) std::cout << line << "\n";
      return 0;
    case SweepVerdict::Refused:
    case SweepVerdict::Declined:
    case SweepVerdict::Cancelled:
      return 1;
  }
  return 1;
}

int Optimise(const Context& cli, const OptimiseOptions& o) {
  const SettingsInUse settings = ReadSettingsInUse(cli.folders());
  const int status = OptimiseRouteFile(cli, o, settings);
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

struct PlanOptions {
  RouteOptions route;
  std::string pdf;
};

// The passage plan of the route: as text, or with --pdf the pages the
// window prints (a toolkit build only).
int Plan(const Context& cli, const PlanOptions& o) {
  const auto at = ParseDateTime(o.route.depart);
  if (!at) {
    std::cerr << "Give the departure as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  const SettingsInUse settings = ReadSettingsInUse(cli.folders());
  ProgramState state = MomentState(cli, settings, *at, o.route.summer);
  int status = CalculateRouteFile(o.route, *at, state);
  if (status == 0) {
    const PlanBuild built = BuildPassagePlan(state.passage, state.tides, state.streams, state.settings.SummerTime != 0);
    if (!built.message.empty()) {
      std::cerr << built.message << "\n";
      status = 1;
    } else if (o.pdf.empty()) {
      for (const std::string& line : PassagePlanLines(built.plan)) std::cout << line << "\n";
    } else if (const std::string m = WritePlanPdf(state, built.plan, o.route.area, o.pdf); !m.empty()) {
      std::cerr << m << "\n";
      status = 1;
    } else {
      std::cout << "Passage plan written to " << o.pdf << "\n";
    }
  }
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

struct LegOptions {
  std::string from, to, speed, at, area;
  std::optional<std::string> leeway;
  bool port = false, starboard = false, noTides = false;
};

// One leg as the single-leg form works it, from the same checks and the
// same report; a low speed is answered Yes, as the route command does.
int SolveLegCommand(const Context& cli, const LegOptions& o, const SettingsInUse& settings) {
  TypedMoment at;
  if (o.at.empty()) {
    WorkingMoment now;
    ReadClock(now, LocalNow());
    at = {now.WorkingDay, now.WorkingYear, now.WorkingTime, HoursToClock(now.WorkingTime)};
  } else if (auto typed = ParseDateTime(o.at)) {
    at = *typed;
  } else {
    std::cerr << "Give the moment as \"YYYY-MM-DD HH:MM\"\n";
    return 2;
  }
  ProgramState state = MomentState(cli, settings, at, false);
  const SettingsRecord& s = state.settings;

  SingleLegInput in;
  in.Start = o.from;
  in.Dest = o.to;
  in.Speed = o.speed;
  in.LeewayOn = o.leeway.has_value();
  in.LeewayText = o.leeway.value_or("");
  in.Side = o.port ? LeewaySide::Port : o.starboard ? LeewaySide::Starboard : LeewaySide::None;
  CheckedLeg leg = CheckSingleLeg(in);
  if (leg.verdict == LegCheckVerdict::AskToContinue) {
    std::cerr << leg.message << "\n-> Yes\n";
    in.LowSpeedAccepted = true;
    leg = CheckSingleLeg(in);
  }
  if (leg.verdict != LegCheckVerdict::Ready) {
    std::cerr << leg.message << "\n";
    return 1;
  }

  SingleLegSettings ls;
  ls.UseTides = s.UseTides != 0 && !o.noTides;
  ls.Variation = s.Variation;
  ls.CalcInterval = s.CalcInterval;
  ls.AcceptableError = s.AcceptableError;
  ls.Day = at.day;
  ls.Year = at.year;
  ls.Time = at.hours;
  if (ls.UseTides) {
    // The area of the chart in use unless another is named, as the window
    // works with the diamonds of its chart's area.
    const std::string area = o.area.empty() ? s.ChartSet : o.area;
    if (std::string m = LoadAreaForDay(state, area, at.day, at.year, at.hours); !m.empty()) {
      std::cerr << m << "\n";
      return 1;
    }
  }
  StreamContext ctx = state.Streams();
  const SingleLegOutcome outcome = SolveSingleLeg(ctx, state.passage, leg, ls);
  for (const std::string& notice : outcome.notices) std::cerr << notice << "\n";
  switch (outcome.verdict) {
    case LegSolveVerdict::Failed:
      std::cerr << outcome.message << "\n";
      return 1;
    case LegSolveVerdict::Solved:
      for (const std::string& line : outcome.lines) std::cout << line << "\n";
      return 0;
  }
  return 1;
}

int Leg(const Context& cli, const LegOptions& o) {
  const SettingsInUse settings = ReadSettingsInUse(cli.folders());
  const int status = SolveLegCommand(cli, o, settings);
  std::cout.flush();
  std::cerr << SettingsInUseLine(settings) << "\n";
  return status;
}

Registrar passageCommands([](CLI::App& app, Context& ctx) {
  auto so = std::make_shared<StreamOptions>();
  auto* stream = app.add_subcommand("stream", "The tidal stream at a place and a moment, from the area's diamonds");
  stream->add_option("--area", so->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  stream->add_option("--lat", so->lat, "Latitude, decimal degrees or DD.MM.mmN")->required();
  stream->add_option("--lon", so->lon, "Longitude, decimal degrees or DDD.MM.mmE")->required();
  stream->add_option("--at", so->at, "\"YYYY-MM-DD HH:MM\", the ports' zone time")->required();
  stream->add_flag("--summer", so->summer, "Summer time: the tides an hour later (default: the settings' SummerTime)");
  stream->callback([&ctx, so] { ctx.exitCode = Stream(ctx, *so); });

  auto ro = std::make_shared<RouteOptions>();
  auto* route = app.add_subcommand("route", "Calculate a GPX route through the area's tidal streams");
  route->add_option("file", ro->file, "GPX file")->required();
  route->add_option("--route", ro->route, "Name of the route in the file (default: the first)");
  route->add_option("--area", ro->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  route->add_option("--depart", ro->depart, "\"YYYY-MM-DD HH:MM\"")->required();
  route->add_option("--speed", ro->speed, "Boat speed, knots, for legs whose point carries none (default: the settings' VesselSpeed)");
  route->add_option("--interval", ro->interval, "CalcInterval, minutes (default: the settings')");
  route->add_option("--variation", ro->variation, "Variation, degrees with E or W (\"2W\"; default: the settings')");
  route->add_option("--leeway", ro->leeway, "Leeway, degrees: switches leeway on (default: the settings' UseLeeway, Leeway)");
  route->add_option("--tack", ro->tack, "port or starboard: the tack of every leg")
      ->check(CLI::IsMember({"port", "starboard"}));
  route->add_flag("--details", ro->details, "Add the tidal-details table");
  route->add_flag("--summer", ro->summer, "Summer time: the tides an hour later (default: the settings' SummerTime)");
  route->callback([&ctx, ro] { ctx.exitCode = Route(ctx, *ro); });

  auto oo = std::make_shared<OptimiseOptions>();
  auto* optimise = app.add_subcommand("optimise", "Sweep the departure hour of a GPX route over a slot of a day");
  optimise->add_option("file", oo->file, "GPX file")->required();
  optimise->add_option("--route", oo->route, "Name of the route in the file (default: the first)");
  optimise->add_option("--area", oo->area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  optimise->add_option("--date", oo->date, "The day of departure, \"YYYY-MM-DD\"")->required();
  optimise->add_option("--slot", oo->slot,
                       "1 Midnight to 07:00, 2 06:00 to 13:00, 3 12:00 to 19:00, 4 18:00 to 23:00, 5 all day")
      ->required()
      ->check(CLI::Range(1, 5));
  optimise->add_option("--speed", oo->speed, "Boat speed, knots, for legs whose point carries none (default: the settings' VesselSpeed)");
  optimise->callback([&ctx, oo] { ctx.exitCode = Optimise(ctx, *oo); });

  auto po = std::make_shared<PlanOptions>();
  auto* plan = app.add_subcommand("plan", "The passage plan of a GPX route: legs, streams met, tides, sun; as text or PDF");
  plan->add_option("file", po->route.file, "GPX file")->required();
  plan->add_option("--route", po->route.route, "Name of the route in the file (default: the first)");
  plan->add_option("--area", po->route.area, "Area: the name of Charts/<area>.l35 in the data root")->required();
  plan->add_option("--depart", po->route.depart, "\"YYYY-MM-DD HH:MM\"")->required();
  plan->add_option("--speed", po->route.speed, "Boat speed, knots, for legs whose point carries none (default: the settings' VesselSpeed)");
  plan->add_option("--pdf", po->pdf, "Write the plan as an A4 PDF here (the window's printout) instead of text");
  plan->add_flag("--summer", po->route.summer, "Summer time: the tides an hour later (default: the settings' SummerTime)");
  plan->callback([&ctx, po] { ctx.exitCode = Plan(ctx, *po); });

  auto lo = std::make_shared<LegOptions>();
  auto* leg = app.add_subcommand("leg", "One leg from position to position through the tidal streams, as the single-leg form works it");
  leg->add_option("--from", lo->from, "Start, \"DD.MM.mmN DDD.MM.mmW\"")->required();
  leg->add_option("--to", lo->to, "Destination, \"DD.MM.mmN DDD.MM.mmW\"")->required();
  leg->add_option("--speed", lo->speed, "Boat speed through the water, knots")->required();
  leg->add_option("--at", lo->at, "Departure, \"YYYY-MM-DD HH:MM\" (default: now)");
  leg->add_option("--area", lo->area, "Area: the name of Charts/<area>.l35 in the data root (default: the settings' ChartSet)");
  auto* leeway = leg->add_option("--leeway", lo->leeway, "Leeway, degrees: switches leeway on; give the wind side");
  auto* port = leg->add_flag("--port", lo->port, "Wind on the port side: leeway taken off the course");
  auto* starboard = leg->add_flag("--starboard", lo->starboard, "Wind on the starboard side: leeway added to the course");
  port->excludes(starboard);
  port->needs(leeway);
  starboard->needs(leeway);
  leg->add_flag("--no-tides", lo->noTides, "The plain range and bearing, without the streams (default: the settings' UseTides)");
  leg->callback([&ctx, lo] { ctx.exitCode = Leg(ctx, *lo); });
});

}  // namespace
}  // namespace kelvane::cli
