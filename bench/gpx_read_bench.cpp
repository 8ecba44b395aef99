// Reading large GPX files. Waypoint files are read whole at start-up and
// each time a dialog opens one, so a big file must not stall the window.
// Target: 100,000 waypoints (about 10 MB) read in well under a second on
// an ordinary laptop; the sample's 48 marks in well under a millisecond.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "routes/gpx.h"
#include "routes/gpxwrite.h"
#include "routes/samplewaypoints.h"

namespace {

std::filesystem::path MakeFile(int count) {
  std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("kelvane-bench-" + std::to_string(count) + ".gpx");
  std::vector<kelvane::Waypoint> w(static_cast<std::size_t>(count) + 1);
  for (int i = 0; i < count; ++i) {
    w[static_cast<std::size_t>(i)].Lat = 49.5f + static_cast<float>(i % 1000) * 0.0013f;
    w[static_cast<std::size_t>(i)].Lon = -5.5f + static_cast<float>(i / 1000) * 0.071f;
    w[static_cast<std::size_t>(i)].Name = "Mark " + std::to_string(i);
    w[static_cast<std::size_t>(i)].Desc = i % 3 ? "East Cardinal Buoy" : "";
    w[static_cast<std::size_t>(i)].Sym = "BYB";
  }
  kelvane::WriteWaypointFile(file, w);
  return file;
}

void BM_ReadGpxFile(benchmark::State& state) {
  std::filesystem::path file = MakeFile(static_cast<int>(state.range(0)));
  kelvane::GpxStore store;
  for (auto _ : state) benchmark::DoNotOptimize(kelvane::ReadGpxFile(file, store));
  state.SetItemsProcessed(state.iterations() * state.range(0));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(file)));
  std::filesystem::remove(file);
}
BENCHMARK(BM_ReadGpxFile)->Arg(48)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_LoadChartWaypoints(benchmark::State& state) {
  std::filesystem::path file = MakeFile(static_cast<int>(state.range(0)));
  kelvane::GpxStore store;
  for (auto _ : state) benchmark::DoNotOptimize(kelvane::LoadChartWaypoints(file, store));
  state.SetItemsProcessed(state.iterations() * state.range(0));
  std::filesystem::remove(file);
}
BENCHMARK(BM_LoadChartWaypoints)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_ReadSampleText(benchmark::State& state) {
  std::string text = kelvane::SampleWaypointsText();
  kelvane::GpxStore store;
  for (auto _ : state) benchmark::DoNotOptimize(kelvane::ReadGpxText(text, store));
}
BENCHMARK(BM_ReadSampleText)->Unit(benchmark::kMicrosecond);

}  // namespace
