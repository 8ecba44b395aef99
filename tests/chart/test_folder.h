// A temporary folder for one test, removed with everything in it.
#pragma once

#include <filesystem>

#include "support/tempdir.h"

namespace kelvane {

// A temporary data root with its Charts folder.
class TestFolder {
 public:
  TestFolder() { std::filesystem::create_directories(dir_.path / "Charts"); }
  const std::filesystem::path& path() const { return dir_.path; }

 private:
  test::TempDir dir_;
};

}  // namespace kelvane
