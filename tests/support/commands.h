// Running a command from a test and reading what it prints: the output as
// text or lines, the flat JSON objects that kelvane-cli and gpsdecode
// write, and kelvane-cli itself.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace kelvane::testing {

// Keys and values of one flat JSON object; strings unescaped, numbers and
// booleans as their text. Nested values are not expected.
std::map<std::string, std::string> ParseFlatJson(const std::string& line);

// Runs a shell command and returns its standard output.
std::string RunCommand(const std::string& command, int* exitCode = nullptr);

// The lines of a text, without their line feeds.
std::vector<std::string> SplitLines(const std::string& text);

inline std::map<std::string, std::string> ParseFlatJson(const std::string& s) {
  std::map<std::string, std::string> out;
  std::size_t i = 0;
  auto skip = [&] {
    while (i < s.size() && (s[i] == ' ' || s[i] == '{' || s[i] == ',' || s[i] == '}' || s[i] == '\n')) ++i;
  };
  auto str = [&] {
    std::string v;
    ++i;  // opening quote
    while (i < s.size() && s[i] != '"') {
      if (s[i] == '\\' && i + 1 < s.size()) {
        ++i;
        if (s[i] == 'u' && i + 4 < s.size()) {
          v.push_back(static_cast<char>(std::stoi(s.substr(i + 1, 4), nullptr, 16)));
          i += 4;
        } else {
          v.push_back(s[i]);
        }
      } else {
        v.push_back(s[i]);
      }
      ++i;
    }
    ++i;
    return v;
  };
  while (true) {
    skip();
    if (i >= s.size() || s[i] != '"') break;
    std::string key = str();
    if (i < s.size() && s[i] == ':') ++i;
    std::string value;
    if (i < s.size() && s[i] == '"') {
      value = str();
    } else {
      while (i < s.size() && s[i] != ',' && s[i] != '}') value.push_back(s[i++]);
    }
    out[key] = value;
  }
  return out;
}

inline std::string RunCommand(const std::string& command, int* exitCode) {
  std::string out;
  FILE* p = popen(command.c_str(), "r");
  if (!p) return out;
  std::array<char, 65536> buf;
  std::size_t n;
  while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) out.append(buf.data(), n);
  int status = pclose(p);
  if (exitCode) *exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return out;
}

inline std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

}  // namespace kelvane::testing

#ifdef KELVANE_CLI
namespace kelvane::test {

struct CliResult {
  int status = -1;
  std::string out;
};

// kelvane-cli with the arguments, its standard error joined to its output.
inline CliResult RunCli(const std::string& arguments) {
  CliResult r;
  r.out = testing::RunCommand(std::string(KELVANE_CLI) + " " + arguments + " 2>&1", &r.status);
  return r;
}

}  // namespace kelvane::test
#endif
