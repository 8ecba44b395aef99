// The serial contract over Qt's serial port, for the program.
//
// Port numbers map to the machine's serial devices in order (/dev/ttyS*,
// /dev/ttyUSB*, /dev/ttyACM*), then to the device paths the user added
// (a multiplexer's pseudo-terminal, say); the extra paths are kept in the
// per-user store. Qt gathers the received characters while the event loop
// runs; Gets hands them out up to the length asked. A device that goes
// away while open raises Qt's resource error: from then on the port reads
// nothing and its lines say "Port Doesnt exist".
#pragma once

#include <QSerialPort>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "instruments/serial.h"

namespace kelvane::app {

class QtSerialPorts : public SerialPorts {
 public:
  explicit QtSerialPorts(std::vector<std::string> devices);
  ~QtSerialPorts() override;

  const std::vector<std::string>& Devices() const { return devices_; }
  std::string Device(int port) const;
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
    std::unique_ptr<QSerialPort> serial;
    bool gone = false;
  };
  Open* Find(int port);
  int InputLine(int port, QSerialPort::PinoutSignal signal);

  std::vector<std::string> devices_;
  std::map<int, Open> open_;
  std::string lastError_;
};

// The extra device paths of the per-user store ("SerialPorts/Extra" in the
// window store file) and the full device list built from them.
std::vector<std::string> ExtraSerialDevices(const std::string& storeFile);
void SaveExtraSerialDevices(const std::string& storeFile, const std::vector<std::string>& paths);
std::vector<std::string> ProgramSerialDevices(const std::string& storeFile);

}  // namespace kelvane::app
