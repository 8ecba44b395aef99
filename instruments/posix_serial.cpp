#include "instruments/posix_serial.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace kelvane {

namespace {

speed_t SpeedOfCode(int baudCode) {
  switch (baudCode) {
    case 0: return B110;
    case 1: return B300;
    case 2: return B1200;
    case 3: return B2400;
    case 4: return B4800;
    case 5: return B9600;
    case 6: return B19200;
    case 7: return B38400;
    case 8: return B57600;
    case 9: return B115200;
    default: return B0;
  }
}

}  // namespace

PosixSerialPorts::PosixSerialPorts(std::vector<std::string> devices) {
  for (std::size_t i = 0; i < devices.size(); ++i) devices_[static_cast<int>(i)] = devices[i];
}

PosixSerialPorts::~PosixSerialPorts() {
  for (auto& [port, open] : open_)
    if (open.fd >= 0) ::close(open.fd);
}

void PosixSerialPorts::SetDevice(int port, const std::string& path) { devices_[port] = path; }

std::string PosixSerialPorts::Device(int port) const {
  auto it = devices_.find(port);
  return it == devices_.end() ? std::string() : it->second;
}

bool PosixSerialPorts::Gone(int port) const {
  auto it = open_.find(port);
  return it != open_.end() && it->second.gone;
}

PosixSerialPorts::Open* PosixSerialPorts::Find(int port) {
  auto it = open_.find(port);
  return it == open_.end() ? nullptr : &it->second;
}

void PosixSerialPorts::CheckGone(int port, Open& open) {
  if (open.gone) return;
  std::error_code ec;
  if (!std::filesystem::exists(Device(port), ec)) open.gone = true;
}

int PosixSerialPorts::Reset(int port, int rxQueue, int txQueue) {
  if (rxQueue <= 0 || txQueue <= 0) return kSioRangeError;
  std::string path = Device(port);
  if (path.empty()) return kSioNoSuchPort;
  if (Find(port)) return kSioAlreadyOpen;
  int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) {
    lastErrno_ = errno;
    if (errno == ENOENT || errno == ENODEV || errno == ENXIO) return kSioNoSuchPort;
    return kSioNotOpen;
  }
  termios tio{};
  if (::tcgetattr(fd, &tio) != 0) {
    // A device node with no terminal behind it: a ttyS slot with no UART.
    lastErrno_ = errno;
    ::close(fd);
    return kSioNoHardware;
  }
  ::cfmakeraw(&tio);
  tio.c_cflag |= CLOCAL | CREAD;
  tio.c_cc[VMIN] = 0;
  tio.c_cc[VTIME] = 0;
  ::tcsetattr(fd, TCSANOW, &tio);
  open_[port] = Open{fd, false};
  return 0;
}

int PosixSerialPorts::Done(int port) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  ::close(open->fd);
  open_.erase(port);
  return 0;
}

int PosixSerialPorts::Baud(int port, int baudCode) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  speed_t speed = SpeedOfCode(baudCode);
  if (speed == B0) return kSioBaudError;
  termios tio{};
  if (::tcgetattr(open->fd, &tio) != 0) return kSioNoHardware;
  ::cfsetispeed(&tio, speed);
  ::cfsetospeed(&tio, speed);
  ::tcsetattr(open->fd, TCSANOW, &tio);
  return 0;
}

int PosixSerialPorts::Parms(int port, int parity, int stopBits, int wordLength) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  if (parity != kNoParity || stopBits != kOneStopBit || wordLength != kWordLength8) return kSioRangeError;
  termios tio{};
  if (::tcgetattr(open->fd, &tio) != 0) return kSioNoHardware;
  tio.c_cflag &= ~static_cast<tcflag_t>(PARENB | CSTOPB | CSIZE);
  tio.c_cflag |= CS8;
  ::tcsetattr(open->fd, TCSANOW, &tio);
  return 0;
}

int PosixSerialPorts::OutputLine(int port, int bit, char command) {
  Open* open = Find(port);
  if (!open) return Device(port).empty() ? kSioNoSuchPort : kSioNotOpen;
  CheckGone(port, *open);
  if (open->gone) return kSioNoSuchPort;
  if (command == kLineSet) {
    // Pseudo-terminals have no modem lines; the request is then a no-op.
    ::ioctl(open->fd, TIOCMBIS, &bit);
    return 1;
  }
  int status = 0;
  if (::ioctl(open->fd, TIOCMGET, &status) != 0) return 0;
  return (status & bit) ? 1 : 0;
}

int PosixSerialPorts::InputLine(int port, int bit) { return OutputLine(port, bit, kLineRead); }

int PosixSerialPorts::DTR(int port, char command) { return OutputLine(port, TIOCM_DTR, command); }
int PosixSerialPorts::RTS(int port, char command) { return OutputLine(port, TIOCM_RTS, command); }
int PosixSerialPorts::DCD(int port) { return InputLine(port, TIOCM_CD); }
int PosixSerialPorts::DSR(int port) { return InputLine(port, TIOCM_DSR); }
int PosixSerialPorts::CTS(int port) { return InputLine(port, TIOCM_CTS); }
int PosixSerialPorts::RI(int port) { return InputLine(port, TIOCM_RI); }

int PosixSerialPorts::Gets(int port, char* buffer, int length) {
  Open* open = Find(port);
  if (!open || length <= 0 || open->gone) return 0;
  // A raw terminal with no minimum count reads 0 when nothing waits, so a
  // hang-up is told by poll: the other end of a pseudo-terminal closed, or a
  // USB adapter pulled (then reads fail with EIO or ENODEV).
  pollfd p{open->fd, POLLIN, 0};
  if (::poll(&p, 1, 0) > 0 && (p.revents & (POLLHUP | POLLERR | POLLNVAL)) && !(p.revents & POLLIN)) {
    open->gone = true;
    return 0;
  }
  ssize_t n = ::read(open->fd, buffer, static_cast<std::size_t>(length));
  if (n > 0) return static_cast<int>(n);
  if (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR) {
    lastErrno_ = errno;
    open->gone = true;
  }
  CheckGone(port, *open);
  return 0;
}

int PosixSerialPorts::Putc(int port, char c) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  ssize_t n = ::write(open->fd, &c, 1);
  if (n == 1) return 1;
  lastErrno_ = errno;
  return kSioSystemError;
}

int PosixSerialPorts::RxClear(int port) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  ::tcflush(open->fd, TCIFLUSH);
  return 0;
}

int PosixSerialPorts::TxClear(int port) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  ::tcflush(open->fd, TCOFLUSH);
  return 0;
}

std::string PosixSerialPorts::WinError() { return lastErrno_ ? std::strerror(lastErrno_) : std::string(); }

std::vector<std::string> SerialDevices(const std::vector<std::string>& extra) {
  std::vector<std::string> result;
  for (const char* family : {"ttyS", "ttyUSB", "ttyACM"}) {
    std::vector<std::pair<int, std::string>> found;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator("/dev", ec)) {
      std::string name = entry.path().filename().string();
      std::string prefix = family;
      if (name.rfind(prefix, 0) != 0 || name.size() == prefix.size()) continue;
      std::string digits = name.substr(prefix.size());
      if (!std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) continue;
      found.emplace_back(std::stoi(digits), entry.path().string());
    }
    std::sort(found.begin(), found.end());
    for (auto& [n, path] : found) result.push_back(path);
  }
  for (const std::string& path : extra) result.push_back(path);
  return result;
}

}  // namespace kelvane
