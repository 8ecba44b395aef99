// A temporary folder per test, removed at the end.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "core/recordio.h"
#include "support/tempdir.h"

namespace kelvane::testing {

class TempFolder {
 public:
  const std::filesystem::path& path() const { return dir_.path; }
  std::filesystem::path operator/(const std::string& name) const { return dir_.path / name; }

 private:
  test::TempDir dir_;
};

inline void WriteText(const std::filesystem::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
}

inline std::string ReadText(const std::filesystem::path& file) {
  auto bytes = ReadFileBytes(file);
  return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

}  // namespace kelvane::testing
