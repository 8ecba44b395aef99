// Route calculation speed: a 10-leg route of 8 to 12 mile legs at 5 knots,
// CalcInterval 5 minutes, through 500 diamonds of 10 reference ports; and a
// 24-hour sweep of its departure, hour by hour (the sweep itself). Each is run with the
// accelerators (diamond index, curve and hour caches) and with the
// straightforward scan; the two must give identical results, which is
// checked before anything is timed.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>

#include "passage/departuresweep.h"
#include "passage/routecalc.h"

namespace kelvane {
namespace {

struct Bench {
  TideState tides;
  StreamState streams;
  StreamContext ctx;
  PassageState s;
};

std::vector<Diamond> Diamonds() {
  std::mt19937 rng(1234);
  std::uniform_real_distribution<float> lat(49.9f, 51.1f), lon(-3.0f, 1.5f), dir(0.0f, 360.0f), rate(0.2f, 3.0f);
  std::vector<Diamond> out;
  for (int i = 0; i < 500; ++i) {
    Diamond d;
    d.chartNumber = 9000;
    d.DiaRef = static_cast<float>(i + 1);
    d.RefPort = static_cast<float>(1 + i % 10);  // the first ten ports of Refports.hc
    d.Sprange = 5.0f;
    d.Nprange = 2.5f;
    d.lat = lat(rng);
    d.Lon = lon(rng);
    const float flood = dir(rng), peak = rate(rng);
    for (int n = 1; n <= 13; ++n) {
      const float phase = static_cast<float>(n - 7) / 12.42f * 6.2831853f;
      const float v = peak * std::cos(phase);
      d.Rate(n, kRowDirection) = v >= 0 ? flood : std::fmod(flood + 180.0f, 360.0f);
      d.Rate(n, kRowSpring) = std::fabs(v);
      d.Rate(n, kRowNeap) = std::fabs(v) * 0.5f;
    }
    out.push_back(d);
  }
  return out;
}

std::unique_ptr<Bench> Make(bool fast) {
  auto b = std::make_unique<Bench>();
  b->ctx.tides = &b->tides;
  b->ctx.streams = &b->streams;
  b->ctx.programFolder = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
  b->streams.UseAccelerators = fast;
  SetDiamonds(b->streams, Diamonds());
  BuildUsedPorts(b->tides, b->streams.Diamonds);
  ReloadTides(b->ctx, 172, 2025);
  // Ten legs of 8 to 12 miles zigzagging east along the Channel.
  const float lats[] = {50.30f, 50.45f, 50.30f, 50.48f, 50.32f, 50.46f, 50.28f, 50.44f, 50.30f, 50.47f, 50.33f};
  float lon = -2.6f;
  for (int i = 0; i <= 10; ++i) {
    RoutePoint p;
    p.Lat = lats[i];
    p.Lon = lon;
    p.Name = "P" + std::to_string(i + 1);
    p.Speed = 5.0f;
    b->s.Route.push_back(p);
    lon += 0.11f + 0.02f * static_cast<float>(i % 3);
  }
  return b;
}

RouteCalcInput Input(int hour) {
  RouteCalcInput in;
  char text[8];
  std::snprintf(text, sizeof text, "%02d:00", hour);
  in.DepartureText = text;
  in.Day = 172;
  in.Year = 2025;
  in.WorkingTime = static_cast<float>(hour);
  in.CalcInterval = 5.0f;
  in.AcceptableError = 1.0f;
  return in;
}

void Run(Bench& b, int hour) {
  PassageState s = b.s;
  const RouteCalcOutcome out = CalculateRoute(b.ctx, s, Input(hour));
  if (!out.completed) std::abort();
  benchmark::DoNotOptimize(s.ResultText.data());
}

// Every store the report and the chart read after a calculation.
bool SameStores(const Bench& x, const PassageState& a, const Bench& y, const PassageState& c) {
  if (a.ResultText != c.ResultText || a.RouteCog != c.RouteCog || a.RouteStreams != c.RouteStreams ||
      a.PassCog != c.PassCog || a.PassStreams != c.PassStreams || a.DriftChain != c.DriftChain ||
      a.Route.size() != c.Route.size() || x.streams.PortRange != y.streams.PortRange ||
      x.tides.TideDay != y.tides.TideDay || x.tides.PortTideState.size() != y.tides.PortTideState.size())
    return false;
  for (std::size_t i = 0; i < a.Route.size(); ++i) {
    const RoutePoint &p = a.Route[i], &q = c.Route[i];
    if (p.Lat != q.Lat || p.Lon != q.Lon || p.CourseToSteer != q.CourseToSteer || p.LegTime != q.LegTime ||
        p.DriftCount != q.DriftCount || p.DriftTrack != q.DriftTrack)
      return false;
  }
  for (std::size_t i = 0; i < x.tides.PortTideState.size(); ++i) {
    const PortTideStateRecord &p = x.tides.PortTideState[i], &q = y.tides.PortTideState[i];
    if (p.TurningCount != q.TurningCount || p.HwText != q.HwText || p.RangeText != q.RangeText ||
        p.PortName != q.PortName || p.Slot != q.Slot || p.Minutes != q.Minutes || p.TurningTime != q.TurningTime ||
        p.TurningHeight != q.TurningHeight)
      return false;
  }
  return true;
}

// The accelerated and the plain calculation give the same report, tracks,
// samples and port states at every hour of the sweep.
void CheckIdentical() {
  auto fast = Make(true), plain = Make(false);
  for (int hour = 0; hour < 24; ++hour) {
    PassageState a = fast->s, c = plain->s;
    const RouteCalcOutcome fastOut = CalculateRoute(fast->ctx, a, Input(hour));
    const RouteCalcOutcome plainOut = CalculateRoute(plain->ctx, c, Input(hour));
    if (fastOut.completed != plainOut.completed || fastOut.legLines != plainOut.legLines ||
        !SameStores(*fast, a, *plain, c)) {
      std::fprintf(stderr, "accelerated and straightforward results differ at %02d:00\n", hour);
      std::abort();
    }
  }
}

void BM_Route(benchmark::State& state) {
  static bool checked = (CheckIdentical(), true);
  (void)checked;
  auto b = Make(state.range(0) != 0);
  for (auto _ : state) Run(*b, 9);
}
BENCHMARK(BM_Route)->Arg(1)->Arg(0)->ArgName("accelerated")->Unit(benchmark::kMillisecond);

SweepInput SweepOfTheDay() {
  SweepInput in;
  in.Slot = 5;  // the full 24 hours
  in.Day = 172;
  in.Year = 2025;
  in.WorkingTime = 0;
  in.CalcInterval = 5.0f;
  in.AcceptableError = 1.0f;
  return in;
}

// The sweep with and without the accelerators: the same rows and report.
void CheckSweepIdentical() {
  auto fast = Make(true), plain = Make(false);
  const SweepOutcome a = SweepDepartures(fast->ctx, fast->s, SweepOfTheDay());
  const SweepOutcome c = SweepDepartures(plain->ctx, plain->s, SweepOfTheDay());
  if (a.verdict != SweepVerdict::Completed || c.verdict != SweepVerdict::Completed || a.rows.size() != 24 ||
      a.rows != c.rows || fast->s.ResultText != plain->s.ResultText) {
    std::fprintf(stderr, "accelerated and straightforward sweeps differ\n");
    std::abort();
  }
}

void BM_DepartureSweep(benchmark::State& state) {
  static bool checked = (CheckSweepIdentical(), true);
  (void)checked;
  auto b = Make(state.range(0) != 0);
  for (auto _ : state) {
    PassageState s = b->s;
    const SweepOutcome out = SweepDepartures(b->ctx, s, SweepOfTheDay());
    if (out.verdict != SweepVerdict::Completed) std::abort();
    benchmark::DoNotOptimize(out.rows.data());
  }
}
BENCHMARK(BM_DepartureSweep)->Arg(1)->Arg(0)->ArgName("accelerated")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelvane
