// AIS decoding speed: `kelvane-cli ais` against gpsd's `gpsdecode` on the
// same log of 100,000 sentences (a random mixture of types 1, 2, 5, 9, 18,
// 21 and 24 made by the test encoder, type 5 in two fragments), each program
// run whole with its output thrown away, and the library's decoder alone.
//
// Target: kelvane-cli at least as fast as gpsdecode, that is a ratio
// (gpsdecode time / kelvane-cli time) of 1 or more. The benchmark reports
// messages per second of both and that ratio.
//
// kelvane-cli is looked for beside the build's cli folder (or in
// $KELVANE_CLI); gpsdecode on the PATH (Debian package gpsd-clients).
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "instruments/ais_decode.h"
#include "instruments/nmea.h"
#include "tests/support/ais_encoder.h"

namespace {

constexpr int kSentences = 100000;

struct Log {
  std::filesystem::path path;
  std::vector<std::string> lines;
  long messages = 0;
};

const Log& TheLog() {
  static Log log = [] {
    Log l;
    l.path = std::filesystem::temp_directory_path() / ("kelvane-ais-bench-" + std::to_string(getpid()) + ".nmea");
    kelvane::testing::RandomAis random(20261123);
    while (static_cast<int>(l.lines.size()) < kSentences) {
      std::vector<std::string> s = random.Next();
      if (static_cast<int>(l.lines.size() + s.size()) > kSentences) break;
      for (std::string& line : s) l.lines.push_back(std::move(line));
      ++l.messages;
    }
    while (static_cast<int>(l.lines.size()) < kSentences) {  // fill up with single-sentence messages
      std::vector<std::string> s = random.Next();
      if (s.size() != 1) continue;
      l.lines.push_back(s[0]);
      ++l.messages;
    }
    std::ofstream out(l.path);
    for (const std::string& line : l.lines) out << line << "\n";
    std::atexit([] { std::filesystem::remove(TheLog().path); });
    return l;
  }();
  return log;
}

std::string CliPath() {
  if (const char* env = std::getenv("KELVANE_CLI")) return env;
  std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe");
  return (self.parent_path().parent_path() / "cli" / "kelvane-cli").string();
}

bool HaveGpsdecode() { return std::system("command -v gpsdecode >/dev/null 2>&1") == 0; }

double RunSeconds(const std::string& command) {
  auto start = std::chrono::steady_clock::now();
  int rc = std::system(command.c_str());
  (void)rc;
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string KelvaneCommand() { return CliPath() + " ais '" + TheLog().path.string() + "' > /dev/null"; }
std::string GpsdCommand() { return "gpsdecode < '" + TheLog().path.string() + "' > /dev/null 2>&1"; }

void SetRates(benchmark::State& state) {
  state.counters["messages_per_s"] =
      benchmark::Counter(static_cast<double>(TheLog().messages) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate);
  state.counters["sentences_per_s"] =
      benchmark::Counter(static_cast<double>(kSentences) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate);
}

void BM_KelvaneCliAis(benchmark::State& state) {
  std::string command = KelvaneCommand();
  for (auto _ : state) state.SetIterationTime(RunSeconds(command));
  SetRates(state);
}
BENCHMARK(BM_KelvaneCliAis)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_Gpsdecode(benchmark::State& state) {
  if (!HaveGpsdecode()) {
    state.SkipWithError("gpsdecode is not installed");
    return;
  }
  std::string command = GpsdCommand();
  for (auto _ : state) state.SetIterationTime(RunSeconds(command));
  SetRates(state);
}
BENCHMARK(BM_Gpsdecode)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

// Both programs in turn in each iteration, so that a busy machine slows
// both alike: ratio = gpsdecode time / kelvane-cli time (1 or more meets
// the target).
void BM_RatioToGpsdecode(benchmark::State& state) {
  if (!HaveGpsdecode()) {
    state.SkipWithError("gpsdecode is not installed");
    return;
  }
  double ours = 0, theirs = 0;
  for (auto _ : state) {
    double a = RunSeconds(KelvaneCommand());
    double b = RunSeconds(GpsdCommand());
    ours += a;
    theirs += b;
    state.SetIterationTime(a + b);
  }
  auto n = static_cast<double>(state.iterations());
  state.counters["kelvane_msgs_per_s"] = static_cast<double>(TheLog().messages) * n / ours;
  state.counters["gpsdecode_msgs_per_s"] = static_cast<double>(TheLog().messages) * n / theirs;
  state.counters["ratio"] = theirs / ours;
}
BENCHMARK(BM_RatioToGpsdecode)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

// The library alone: checksum and decoder over the lines in memory.
void BM_DecodeAivdmInProcess(benchmark::State& state) {
  const Log& log = TheLog();
  for (auto _ : state) {
    kelvane::AisDecoderState decoder;
    long decoded = 0;
    for (const std::string& line : log.lines) {
      if (!kelvane::SentenceChecksumOk(line)) continue;
      kelvane::AisDispatchResult r = kelvane::DecodeAivdm(line, decoder);
      decoded += r.outcome == kelvane::AisOutcome::Decoded;
    }
    benchmark::DoNotOptimize(decoded);
  }
  SetRates(state);
}
BENCHMARK(BM_DecodeAivdmInProcess)->Unit(benchmark::kMillisecond);

}  // namespace
