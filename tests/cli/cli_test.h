// Running kelvane-cli from a test: command line in, output and status out.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/tempdir.h"

namespace kelvane::test {

struct CliResult {
  int status = -1;
  std::string out;
};

inline CliResult RunCli(const std::string& arguments) {
  CliResult r;
  std::string command = std::string(KELVANE_CLI) + " " + arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buf;
  size_t n;
  while ((n = fread(buf.data(), 1, buf.size(), pipe)) > 0) r.out.append(buf.data(), n);
  int raw = pclose(pipe);
  r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  return r;
}

}  // namespace kelvane::test
