// Files kept beside the project rather than in it (../shared/testdata: the
// real Jet databases). A tree checked out alone has no such folder; the
// environment variable KELVANE_SHARED_TESTDATA names another place, and a
// test whose file is in neither is skipped with the reason, not failed.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace kelvane::test {

// The path of a shared file, e.g. SharedTestFile("jet/nwind.mdb").
inline std::filesystem::path SharedTestFile(const std::string& relative) {
  const char* env = std::getenv("KELVANE_SHARED_TESTDATA");
  return std::filesystem::path(env ? env : KELVANE_SHARED_TESTDATA) / relative;
}

}  // namespace kelvane::test

// In a test body: skips the rest of the test when the shared file is absent.
#define SKIP_WITHOUT_SHARED_FILE(relative)                                                      \
  do {                                                                                          \
    const std::filesystem::path sharedFile_ = ::kelvane::test::SharedTestFile(relative);         \
    if (!std::filesystem::exists(sharedFile_))                                                  \
      GTEST_SKIP() << "shared test file " << sharedFile_.string()                               \
                   << " is not here (set KELVANE_SHARED_TESTDATA to the folder that holds it)"; \
  } while (0)
