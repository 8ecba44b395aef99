// A temporary folder for one test, removed with everything in it.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace kelvane {

class TestFolder {
 public:
  TestFolder() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() / ("kelvane-chart-" + std::to_string(rd()) + std::to_string(rd()));
    std::filesystem::create_directories(path_ / "Charts");
  }
  ~TestFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace kelvane
