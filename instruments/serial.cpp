#include "instruments/serial.h"

#include <array>

#include "core/format.h"

namespace kelvane {

namespace {
constexpr std::array<int, 10> kBaudRates = {110, 300, 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
}

int BaudRateOfCode(int baudCode) {
  if (baudCode < 0 || baudCode >= static_cast<int>(kBaudRates.size())) return 0;
  return kBaudRates[static_cast<std::size_t>(baudCode)];
}

int BaudCodeOfRate(int rate) {
  for (std::size_t i = 0; i < kBaudRates.size(); ++i)
    if (kBaudRates[i] == rate) return static_cast<int>(i);
  return -1;
}

std::string CommsErrorText(int code, const std::string& systemErrorText) {
  switch (code) {
    case -106: return "Cannot start thread";
    case -105: return "Cannot allocate memory for buffers";
    case -103: return systemErrorText.substr(0, 120);
    case -101: return "Parameter out of range";
    case -100: return "No data";
    case -12: return "Unsupported baud rate";
    case -11: return "Unsupported byte size";
    case -10: return "Hardware not present";
    case -5: return "Error in default parameters";
    case -4: return "Unable to allocate memory";
    case -3: return "Cannot open COM port";
    case -2: return "COM port already open";
    case -1: return "Invalid COM port name";
    default: return "Error code " + std::to_string(code);
  }
}

OpenResult OpenPort(SerialPorts& ports, int port, int baudCode) {
  OpenResult result;
  int code = ports.Reset(port, 4096, 4096);
  if (code < 0) {
    result.message = CommsErrorText(code, code == kSioSystemError ? ports.WinError() : std::string());
    return result;
  }
  ports.Baud(port, baudCode);
  ports.DTR(port, kLineSet);
  ports.RTS(port, kLineSet);
  ports.Parms(port, kNoParity, kOneStopBit, kWordLength8);
  ports.RxClear(port);
  ports.TxClear(port);
  result.ok = true;
  return result;
}

std::string ReadAndClear(SerialPorts& ports, int port) {
  std::string buffer(4096, '\0');
  int count = ports.Gets(port, buffer.data(), static_cast<int>(buffer.size()));
  ports.RxClear(port);
  buffer.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return buffer;
}

const std::vector<GpsType>& GpsTypes() {
  static const std::vector<GpsType> types = {
      {1, "Standard NMEA 0183", 4}, {2, "Garmin (NMEA 0183)", 4}, {3, "Magellan(NMEA 0183)", 4},
      {4, "USB 4800 Baud", 4},      {5, "USB 9600 Baud", 5},      {6, "USB 19200 Baud", 6},
      {7, "USB 38400 Baud", 7},
  };
  return types;
}

int GpsTypeBaudCode(int type) {
  for (const GpsType& t : GpsTypes())
    if (t.number == type) return t.baudCode;
  return 4;
}

int GpsTypeOf(std::string_view stored) { return RoundToInt(TextValue(stored)); }

std::string GpsTypeText(int type) { return std::to_string(type); }

std::string LineStatusText(SerialLine line, int result) {
  // Name, pin text; DTR alone has no line name in its two error texts.
  struct Row {
    const char* name;
    const char* notOpen;
    const char* missing;
    const char* pin;
  };
  static const Row rows[] = {
      {"DCD", "DCD Port Not Open", "DCD Port Doesnt exist", "(Pin 1-IN)"},
      {"DTR", "Port Not Open", "Port Doesnt exist", "(Pin 4-OUT)"},
      {"DSR", "DSR Port Not Open", "DSR Port Doesnt exist", "(Pin 6-IN)"},
      {"RTS", "RTS Port Not Open", "RTS Port Doesnt exist", "(Pin 7-OUT)"},
      {"CTS", "CTS Port Not Open", "CTS Port Doesnt exist", "(Pin 8-IN)"},
      {"RI", "RI Port Not Open", "RI Port Doesnt exist", "(Pin 9-IN)"},
  };
  const Row& row = rows[static_cast<int>(line)];
  if (result == kSioNotOpen) return row.notOpen;
  if (result == kSioNoSuchPort) return row.missing;
  if (result == 0) return std::string(row.name) + " Status = CLEAR" + row.pin;
  if (result > 0) return std::string(row.name) + " Status = SET " + row.pin;
  return std::string(row.name) + " Status = " + std::to_string(result);
}

std::vector<std::string> CommsDetailsLines(SerialPorts& ports, int port) {
  return {
      LineStatusText(SerialLine::DCD, ports.DCD(port)),
      LineStatusText(SerialLine::DTR, ports.DTR(port, kLineRead)),
      LineStatusText(SerialLine::DSR, ports.DSR(port)),
      LineStatusText(SerialLine::RTS, ports.RTS(port, kLineRead)),
      LineStatusText(SerialLine::CTS, ports.CTS(port)),
      LineStatusText(SerialLine::RI, ports.RI(port)),
      "Data In to PC PIN 2",
      "Data Out of PC PIN 3",
      "Signal ground PIN 5",
  };
}

std::vector<int> ScanPorts(SerialPorts& ports, int queueSize) {
  std::vector<int> found;
  for (int port = 0; port <= 256; ++port) {
    if (ports.Reset(port, queueSize, queueSize) > -1) {
      found.push_back(port);
      ports.Done(port);
    }
  }
  return found;
}

}  // namespace kelvane
