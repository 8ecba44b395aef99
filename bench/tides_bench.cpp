// Tide engine speed. Target: InitialiseTides for 20 used ports (60 day
// curves of 50-hour runs) under 5 ms, since it runs on every change of date.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "tides/dayastronomy.h"
#include "tides/daycurve.h"
#include "tides/tidestate.h"

namespace {

const std::filesystem::path kData = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";

void BM_InitialiseTides20Ports(benchmark::State& state) {
  kelvane::TideState tides;
  for (std::int16_t r = 1; r <= 20; ++r) tides.UsedPortList.push_back(r);
  for (auto _ : state) {
    std::string message = kelvane::InitialiseTides(tides, kData, 73, 2025, false);
    benchmark::DoNotOptimize(message);
    benchmark::DoNotOptimize(tides.PortCurve.data());
  }
}
BENCHMARK(BM_InitialiseTides20Ports)->Unit(benchmark::kMillisecond);

void BM_PredictHeightsOneDay(benchmark::State& state) {
  auto dover = kelvane::ReadAreaRecord(kData / "TS" / "UK.hc", 76);
  for (auto _ : state) {
    kelvane::DayPrediction day = kelvane::PredictHeights(*dover, 2025, 73, 3, false);
    kelvane::TurningPoints t = kelvane::FindTurningPoints(day.time.data(), day.height().data());
    benchmark::DoNotOptimize(t);
  }
}
BENCHMARK(BM_PredictHeightsOneDay)->Unit(benchmark::kMicrosecond);

void BM_DayAstronomy(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(kelvane::DayAstronomy(2025, 73));
}
BENCHMARK(BM_DayAstronomy);

}  // namespace
