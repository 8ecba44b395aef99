// Helpers of the instruments tests: a reader of flat JSON objects (the
// output of kelvane-cli and of gpsdecode), running a command, temporary
// folders, and a pair of pseudo-terminals made by socat.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <random>
#include <thread>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kelvane::testing {

// Keys and values of one flat JSON object; strings unescaped, numbers and
// booleans as their text. Nested values are not expected.
std::map<std::string, std::string> ParseFlatJson(const std::string& line);

// Runs a shell command and returns its standard output.
std::string RunCommand(const std::string& command, int* exitCode = nullptr);

std::vector<std::string> SplitLines(const std::string& text);

std::filesystem::path MakeTempDir(const std::string& stem);

// Two linked pseudo-terminals, dir/gps-a and dir/gps-b, made by socat. What
// is written to one end is read at the other.
class SocatPair {
 public:
  SocatPair(const std::filesystem::path& dir, const std::string& name);
  ~SocatPair();
  bool ok() const { return ok_; }
  std::string a() const { return a_.string(); }
  std::string b() const { return b_.string(); }
  // Ends socat: both terminals hang up and their links vanish.
  void Stop();

 private:
  std::filesystem::path a_, b_;
  pid_t pid_ = -1;
  bool ok_ = false;
};

// Opens a terminal for writing at a baud rate and writes in chunks, pausing
// for the time the chunk takes on the wire at that rate.
class PacedWriter {
 public:
  PacedWriter(const std::string& device, int baud);
  ~PacedWriter();
  bool ok() const { return fd_ >= 0; }
  void Write(const std::string& text, std::size_t chunk);

 private:
  int fd_ = -1;
  int baud_;
};



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

inline std::filesystem::path MakeTempDir(const std::string& stem) {
  std::random_device rd;
  auto dir = std::filesystem::temp_directory_path() / (stem + "-" + std::to_string(getpid()) + "-" + std::to_string(rd()));
  std::filesystem::create_directories(dir);
  return dir;
}

inline SocatPair::SocatPair(const std::filesystem::path& dir, const std::string& name)
    : a_(dir / (name + "-a")), b_(dir / (name + "-b")) {
  pid_ = fork();
  if (pid_ == 0) {
    std::string left = "pty,raw,echo=0,link=" + a_.string();
    std::string right = "pty,raw,echo=0,link=" + b_.string();
    int devnull = open("/dev/null", O_WRONLY);
    dup2(devnull, 2);
    execlp("socat", "socat", left.c_str(), right.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  for (int i = 0; i < 200 && pid_ > 0; ++i) {
    if (std::filesystem::exists(a_) && std::filesystem::exists(b_)) {
      ok_ = true;
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

inline void SocatPair::Stop() {
  if (pid_ > 0) {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }
}

inline SocatPair::~SocatPair() { Stop(); }

inline PacedWriter::PacedWriter(const std::string& device, int baud) : baud_(baud) {
  fd_ = open(device.c_str(), O_WRONLY | O_NOCTTY);
  if (fd_ < 0) return;
  termios tio{};
  tcgetattr(fd_, &tio);
  cfmakeraw(&tio);
  speed_t speed = baud == 4800 ? B4800 : baud == 9600 ? B9600 : B38400;
  cfsetispeed(&tio, speed);
  cfsetospeed(&tio, speed);
  tcsetattr(fd_, TCSANOW, &tio);
}

inline PacedWriter::~PacedWriter() {
  if (fd_ >= 0) close(fd_);
}

inline void PacedWriter::Write(const std::string& text, std::size_t chunk) {
  for (std::size_t i = 0; i < text.size(); i += chunk) {
    std::string part = text.substr(i, chunk);
    ssize_t n = ::write(fd_, part.data(), part.size());
    (void)n;
    // Ten bits a character on the wire: start, eight data, stop.
    std::this_thread::sleep_for(std::chrono::microseconds(part.size() * 10 * 1000000 / static_cast<std::size_t>(baud_)));
  }
}

}  // namespace kelvane::testing
