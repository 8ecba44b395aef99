// Temporary folders for one test, removed at the end of it, and the
// reading and writing of whole files inside them.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace kelvane::test {

struct TempDir {
  std::filesystem::path path;
  TempDir() {
    std::string t = (std::filesystem::temp_directory_path() / "kelvane-test-XXXXXX").string();
    path = mkdtemp(t.data());
  }
  ~TempDir() { std::filesystem::remove_all(path); }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  // The path of an entry, quoted for a shell command line.
  std::string Quoted(const std::string& sub) const { return "'" + (path / sub).string() + "'"; }
};

// The same folder behind an accessor, with / for the entries in it.
class TempFolder {
 public:
  const std::filesystem::path& path() const { return dir_.path; }
  std::filesystem::path operator/(const std::string& name) const { return dir_.path / name; }

 private:
  TempDir dir_;
};

// A temporary data root with its Charts folder.
class TestFolder : public TempFolder {
 public:
  TestFolder() { std::filesystem::create_directories(path() / "Charts"); }
};

// A folder that outlives the test (for a device link that a program still
// holds open): its name is unique to the process and a random number.
inline std::filesystem::path MakeTempDir(const std::string& stem) {
  std::random_device rd;
  auto dir = std::filesystem::temp_directory_path() / (stem + "-" + std::to_string(getpid()) + "-" + std::to_string(rd()));
  std::filesystem::create_directories(dir);
  return dir;
}

inline void WriteText(const std::filesystem::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
}

// The bytes of a file as text; "" when it cannot be read.
inline std::string ReadText(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace kelvane::test

// The names as the chart, routes and instruments suites spell them.
namespace kelvane {
using test::TestFolder;
}  // namespace kelvane
namespace kelvane::testing {
using test::MakeTempDir;
using test::ReadText;
using test::TempFolder;
using test::WriteText;
}  // namespace kelvane::testing
