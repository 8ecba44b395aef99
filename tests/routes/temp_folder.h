// A temporary folder per test, removed at the end.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "core/recordio.h"

namespace kelvane::testing {

class TempFolder {
 public:
  TempFolder() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() / ("kelvane-routes-" + std::to_string(rd()) + std::to_string(rd()));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
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
