// The serial link: the queue contract the polling loop reads through, the
// opening sequence of a port, its error texts, and the GPS type table.
//
// The program was built on a serial library that keeps a receive and a
// transmit queue per port behind a handful of calls: reset (open) with the
// queue sizes, baud code, parameters, line set and read, read up to N
// characters, write one character, clear a queue. Everything above this
// file talks to that contract only, so the same logic runs over the POSIX
// terminal interface (posix_serial.h), over Qt's serial port in the
// program, and over pseudo-terminals in the tests.
//
// Port numbers are 0-based, the list shows them plus 1 (COM1 is port 0).
// Every call returns a 32-bit integer, negative for failure.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

// Result codes of the serial calls.
inline constexpr int kSioThreadError = -106;
inline constexpr int kSioBufferError = -105;
inline constexpr int kSioSystemError = -103;
inline constexpr int kSioRangeError = -101;
inline constexpr int kSioNoData = -100;
inline constexpr int kSioBaudError = -12;
inline constexpr int kSioByteSizeError = -11;
inline constexpr int kSioNoHardware = -10;
inline constexpr int kSioDefaultError = -5;
inline constexpr int kSioMemoryError = -4;
inline constexpr int kSioNotOpen = -3;  // also the line calls: port not open
inline constexpr int kSioAlreadyOpen = -2;
inline constexpr int kSioNoSuchPort = -1;  // also the line calls: port does not exist

// Line commands of SetDTR/SetRTS: "S" sets the line, "R" reads it.
inline constexpr char kLineSet = 'S';
inline constexpr char kLineRead = 'R';

// Parity and stop-bit codes of Parms.
inline constexpr int kNoParity = 0;
inline constexpr int kOneStopBit = 0;
inline constexpr int kWordLength8 = 3;

// The queue contract of one serial library. Implementations keep the
// receive queue themselves (or leave it to the kernel) and never block in
// Gets: it copies what has arrived, up to the length asked, and returns
// the count (0 when nothing waits).
class SerialPorts {
 public:
  virtual ~SerialPorts() = default;
  // Opens the port and allocates its queues; 0 or more on success. The
  // program also uses it as the existence test of a port number.
  virtual int Reset(int port, int rxQueue, int txQueue) = 0;
  virtual int Done(int port) = 0;
  virtual int Baud(int port, int baudCode) = 0;
  virtual int Parms(int port, int parity, int stopBits, int wordLength) = 0;
  // Output lines: command kLineSet sets the line; kLineRead reads it.
  virtual int DTR(int port, char command) = 0;
  virtual int RTS(int port, char command) = 0;
  // Input lines: -3 port not open, -1 no such port, 0 clear, above 0 set.
  virtual int DCD(int port) = 0;
  virtual int DSR(int port) = 0;
  virtual int CTS(int port) = 0;
  virtual int RI(int port) = 0;
  // Copies up to `length` received characters into `buffer`; the count.
  virtual int Gets(int port, char* buffer, int length) = 0;
  virtual int Putc(int port, char c) = 0;
  virtual int RxClear(int port) = 0;
  virtual int TxClear(int port) = 0;
  // The text of the last system error (for code -103).
  virtual std::string WinError() = 0;
};

// Baud rate of a baud code: 0 = 110, 1 = 300, 2 = 1200, 3 = 2400,
// 4 = 4800, 5 = 9600, 6 = 19200, 7 = 38400, 8 = 57600, 9 = 115200.
// Any other code gives 0.
int BaudRateOfCode(int baudCode);
// The code of a rate from that list; -1 when the rate is not in it.
int BaudCodeOfRate(int rate);

// The message text of a failing result code. Code -103 takes the system's
// own error text, cut to 120 characters.
std::string CommsErrorText(int code, const std::string& systemErrorText = {});

struct [[nodiscard]] OpenResult {
  bool ok = false;
  std::string message;  // CommsErrorText of the failing reset
};

// Opens a port for the instruments: reset with 4096-character queues, the
// baud code, DTR and RTS set (in that order), no parity, one stop bit,
// 8 data bits, both queues cleared. Never throws.
OpenResult OpenPort(SerialPorts& ports, int port, int baudCode);

// One read of up to 4096 characters and a clear of the receive queue: the
// port test wants a fresh sample each time.
std::string ReadAndClear(SerialPorts& ports, int port);

// The GPS types of the configuration list, stored as a number from 1.
struct GpsType {
  int number;
  const char* text;
  int baudCode;
};
const std::vector<GpsType>& GpsTypes();
// The baud code a type implies; any number not in the list gives 4.
int GpsTypeBaudCode(int type);
// The type number the settings' text field holds ("5" is 5), 0 when the
// text holds no number; and the text stored for a type.
int GpsTypeOf(std::string_view stored);
std::string GpsTypeText(int type);

// The six line states of a port in the pin order of a nine-pin connector,
// followed by the three fixed pin lines, as the monitor and the port test
// show them.
enum class SerialLine { DCD, DTR, DSR, RTS, CTS, RI };
std::string LineStatusText(SerialLine line, int result);
std::vector<std::string> CommsDetailsLines(SerialPorts& ports, int port);

// Every port number from 0 to 256 whose reset succeeds (result above -1),
// each closed again at once. The lists show the number plus 1.
std::vector<int> ScanPorts(SerialPorts& ports, int queueSize);

}  // namespace kelvane
