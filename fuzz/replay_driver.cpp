// Replays a fuzz target without libFuzzer: every file of the seed corpus
// given on the command line, each of its truncations at a few lengths, a
// run of single-bit flips, and a fixed series of pseudo-random inputs. The
// series is seeded, so a failure repeats.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void Run(const std::vector<std::uint8_t>& bytes) { LLVMFuzzerTestOneInput(bytes.data(), bytes.size()); }

void Exercise(const std::vector<std::uint8_t>& seed, std::mt19937& rng) {
  Run(seed);
  for (std::size_t cut : {std::size_t{0}, std::size_t{1}, seed.size() / 3, seed.size() / 2, seed.size() - (seed.empty() ? 0 : 1)})
    Run(std::vector<std::uint8_t>(seed.begin(), seed.begin() + static_cast<std::ptrdiff_t>(std::min(cut, seed.size()))));
  for (int i = 0; i < 64 && !seed.empty(); ++i) {
    std::vector<std::uint8_t> flipped = seed;
    flipped[rng() % flipped.size()] ^= static_cast<std::uint8_t>(1u << (rng() % 8));
    Run(flipped);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::mt19937 rng(20261123);
  int files = 0;
  for (int a = 1; a < argc; ++a) {
    std::filesystem::path root(argv[a]);
    if (!std::filesystem::exists(root)) continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream in(entry.path(), std::ios::binary);
      std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
      Exercise(bytes, rng);
      ++files;
    }
  }
  for (int i = 0; i < 500; ++i) {
    std::vector<std::uint8_t> bytes(rng() % 4096);
    for (auto& b : bytes) b = static_cast<std::uint8_t>(rng());
    Run(bytes);
  }
  std::printf("replayed %d corpus files and 500 random inputs\n", files);
  return 0;
}
