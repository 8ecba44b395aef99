// The serial contract over the POSIX terminal interface, for the
// command-line tool and the tests (the program itself uses Qt's serial
// port with the same contract).
//
// Port numbers map to device paths: port n is the nth entry of the list,
// so a pseudo-terminal made by a multiplexer can stand in any slot. The
// kernel's terminal buffer is the receive queue: Gets drains it without
// blocking. A device that hangs up or disappears while open (an unplugged
// USB adapter, a multiplexer that ends) is remembered as gone: from then on
// Gets returns nothing and the line calls say the port does not exist.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "instruments/serial.h"

namespace kelvane {

class PosixSerialPorts : public SerialPorts {
 public:
  PosixSerialPorts() = default;
  explicit PosixSerialPorts(std::vector<std::string> devices);
  ~PosixSerialPorts() override;
  PosixSerialPorts(const PosixSerialPorts&) = delete;
  PosixSerialPorts& operator=(const PosixSerialPorts&) = delete;

  void SetDevice(int port, const std::string& path);
  std::string Device(int port) const;
  // Whether an open port has hung up or vanished since it was opened.
  bool Gone(int port) const;

  int Reset(int port, int rxQueue, int txQueue) override;
  int Done(int port) override;
  int Baud(int port, int baudCode) override;
  int Parms(int port, int parity, int stopBits, int wordLength) override;
  int DTR(int port, char command) override;
  int RTS(int port, char command) override;
  int DCD(int port) override;
  int DSR(int port) override;
  int CTS(int port) override;
  int RI(int port) override;
  int Gets(int port, char* buffer, int length) override;
  int Putc(int port, char c) override;
  int RxClear(int port) override;
  int TxClear(int port) override;
  std::string WinError() override;

 private:
  struct Open {
    int fd = -1;
    bool gone = false;
  };
  int InputLine(int port, int bit);
  int OutputLine(int port, int bit, char command);
  Open* Find(int port);
  void CheckGone(int port, Open& open);

  std::map<int, std::string> devices_;
  std::map<int, Open> open_;
  int lastErrno_ = 0;
};

// The serial devices of this machine, in order: /dev/ttyS*, /dev/ttyUSB*,
// /dev/ttyACM* (numerically within each family), then the extra paths the
// user added (pseudo-terminals of a multiplexer and the like).
std::vector<std::string> SerialDevices(const std::vector<std::string>& extra = {});

}  // namespace kelvane
