// A temporary folder for one test, removed at the end of it.
#pragma once

#include <cstdlib>
#include <filesystem>
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

}  // namespace kelvane::test
