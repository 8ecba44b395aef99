// A pair of linked pseudo-terminals made by socat, and a writer that feeds
// one end at the pace of a serial line.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

namespace kelvane::testing {

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
