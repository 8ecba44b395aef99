#include "app/serialport_qt.h"

#include <QSettings>
#include <QStringList>

#include "instruments/posix_serial.h"

namespace kelvane::app {

QtSerialPorts::QtSerialPorts(std::vector<std::string> devices) : devices_(std::move(devices)) {}

QtSerialPorts::~QtSerialPorts() = default;

std::string QtSerialPorts::Device(int port) const {
  return port >= 0 && port < static_cast<int>(devices_.size()) ? devices_[static_cast<std::size_t>(port)]
                                                                : std::string();
}

bool QtSerialPorts::Gone(int port) const {
  auto it = open_.find(port);
  return it != open_.end() && it->second.gone;
}

QtSerialPorts::Open* QtSerialPorts::Find(int port) {
  auto it = open_.find(port);
  return it == open_.end() ? nullptr : &it->second;
}

int QtSerialPorts::Reset(int port, int rxQueue, int txQueue) {
  if (rxQueue <= 0 || txQueue <= 0) return kSioRangeError;
  std::string path = Device(port);
  if (path.empty()) return kSioNoSuchPort;
  if (Find(port)) return kSioAlreadyOpen;
  auto serial = std::make_unique<QSerialPort>(QString::fromStdString(path));
  serial->setReadBufferSize(rxQueue);
  if (!serial->open(QIODevice::ReadWrite)) {
    lastError_ = serial->errorString().toStdString();
    switch (serial->error()) {
      case QSerialPort::DeviceNotFoundError: return kSioNoSuchPort;
      case QSerialPort::OpenError: return kSioAlreadyOpen;
      default: return kSioNotOpen;
    }
  }
  Open open;
  open.serial = std::move(serial);
  QSerialPort* raw = open.serial.get();
  open_[port] = std::move(open);
  QObject::connect(raw, &QSerialPort::errorOccurred, raw, [this, port](QSerialPort::SerialPortError e) {
    if (e == QSerialPort::ResourceError || e == QSerialPort::DeviceNotFoundError)
      if (Open* o = Find(port)) o->gone = true;
  });
  return 0;
}

int QtSerialPorts::Done(int port) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  open->serial->close();
  open_.erase(port);
  return 0;
}

int QtSerialPorts::Baud(int port, int baudCode) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  int rate = BaudRateOfCode(baudCode);
  if (rate == 0) return kSioBaudError;
  return open->serial->setBaudRate(rate) ? 0 : kSioBaudError;
}

int QtSerialPorts::Parms(int port, int parity, int stopBits, int wordLength) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  if (parity != kNoParity || stopBits != kOneStopBit || wordLength != kWordLength8) return kSioRangeError;
  open->serial->setParity(QSerialPort::NoParity);
  open->serial->setStopBits(QSerialPort::OneStop);
  open->serial->setDataBits(QSerialPort::Data8);
  return 0;
}

int QtSerialPorts::DTR(int port, char command) {
  Open* open = Find(port);
  if (!open) return Device(port).empty() ? kSioNoSuchPort : kSioNotOpen;
  if (open->gone) return kSioNoSuchPort;
  if (command == kLineSet) {
    open->serial->setDataTerminalReady(true);
    return 1;
  }
  return open->serial->isDataTerminalReady() ? 1 : 0;
}

int QtSerialPorts::RTS(int port, char command) {
  Open* open = Find(port);
  if (!open) return Device(port).empty() ? kSioNoSuchPort : kSioNotOpen;
  if (open->gone) return kSioNoSuchPort;
  if (command == kLineSet) {
    open->serial->setRequestToSend(true);
    return 1;
  }
  return open->serial->isRequestToSend() ? 1 : 0;
}

int QtSerialPorts::InputLine(int port, QSerialPort::PinoutSignal signal) {
  Open* open = Find(port);
  if (!open) return Device(port).empty() ? kSioNoSuchPort : kSioNotOpen;
  if (open->gone) return kSioNoSuchPort;
  return (open->serial->pinoutSignals() & signal) ? 1 : 0;
}

int QtSerialPorts::DCD(int port) { return InputLine(port, QSerialPort::DataCarrierDetectSignal); }
int QtSerialPorts::DSR(int port) { return InputLine(port, QSerialPort::DataSetReadySignal); }
int QtSerialPorts::CTS(int port) { return InputLine(port, QSerialPort::ClearToSendSignal); }
int QtSerialPorts::RI(int port) { return InputLine(port, QSerialPort::RingIndicatorSignal); }

int QtSerialPorts::Gets(int port, char* buffer, int length) {
  Open* open = Find(port);
  if (!open || open->gone || length <= 0) return 0;
  // Characters that arrived since the event loop last ran.
  if (open->serial->bytesAvailable() == 0) open->serial->waitForReadyRead(0);
  qint64 n = open->serial->read(buffer, length);
  if (open->serial->error() == QSerialPort::ResourceError) open->gone = true;
  return n > 0 ? static_cast<int>(n) : 0;
}

int QtSerialPorts::Putc(int port, char c) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  if (open->serial->write(&c, 1) != 1) {
    lastError_ = open->serial->errorString().toStdString();
    return kSioSystemError;
  }
  open->serial->flush();
  return 1;
}

int QtSerialPorts::RxClear(int port) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  open->serial->clear(QSerialPort::Input);
  return 0;
}

int QtSerialPorts::TxClear(int port) {
  Open* open = Find(port);
  if (!open) return kSioNotOpen;
  open->serial->clear(QSerialPort::Output);
  return 0;
}

std::string QtSerialPorts::WinError() { return lastError_; }

std::vector<std::string> ExtraSerialDevices(const std::string& storeFile) {
  QSettings store(QString::fromStdString(storeFile), QSettings::IniFormat);
  std::vector<std::string> paths;
  for (const QString& p : store.value("SerialPorts/Extra").toStringList()) paths.push_back(p.toStdString());
  return paths;
}

void SaveExtraSerialDevices(const std::string& storeFile, const std::vector<std::string>& paths) {
  QSettings store(QString::fromStdString(storeFile), QSettings::IniFormat);
  QStringList list;
  for (const std::string& p : paths) list << QString::fromStdString(p);
  store.setValue("SerialPorts/Extra", list);
  store.sync();
}

std::vector<std::string> ProgramSerialDevices(const std::string& storeFile) {
  return SerialDevices(ExtraSerialDevices(storeFile));
}

}  // namespace kelvane::app
