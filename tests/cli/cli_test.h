// Running kelvane-cli from a test: command line in, output and status out.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

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

// A temporary folder removed at the end of the test.
struct TempDir {
  std::filesystem::path path;
  TempDir() {
    std::string t = (std::filesystem::temp_directory_path() / "kelvane-cli-XXXXXX").string();
    path = mkdtemp(t.data());
  }
  ~TempDir() { std::filesystem::remove_all(path); }
  std::string Quoted(const std::string& sub) const { return "'" + (path / sub).string() + "'"; }
};

}  // namespace kelvane::test
