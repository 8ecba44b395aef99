// AIS messages out of !AIVDM sentences: the six-bit armouring, fragment
// joining, and one decoder per message type the program uses (1, 2, 5, 9,
// 18, 21, 24), each cut by a table of field widths.
//
// The arithmetic is that of the bit text the program has always used: a
// field is the next `width` characters of a text of "0" and "1", and what
// is left becomes the new text. A payload that ends early gives a short
// last field, read as the number of the bits that are there, and empty
// fields after it, read as 0. The decoders here hold the payload as six-bit
// groups and read fields by offset, with the same results.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

// "000000" for "0" up to "111111" for "w": codes 48 to 87 give code - 48,
// codes 96 to 119 give code - 56. Other characters give an empty text.
std::string BitsFromChar(char c);

// The six-bit character set: 0 "@", 1-26 "A"-"Z", 27 "[", 28 "\", 29 "]",
// 30 "^", 31 "_", 32 blank, 33 "!", 35-63 the same ASCII code. Code 34 has
// no entry (a double quote is never produced) and gives "", as does any
// code outside 0 to 63.
std::string CharFromCode(int code);

// Value of a bit text, last character as bit 0. Empty text is 0. Any
// character but "0" and "1" is an error: nullopt. Positions above 31 are
// outside the table of powers and also give nullopt.
std::optional<std::int64_t> BitsToNumber(std::string_view bits);

// The payload as six-bit values; a character outside the armour gives 0
// (six zero bits), as the bit text was first filled with "0".
class AisBits {
 public:
  explicit AisBits(std::string_view payload);
  std::size_t BitLength() const { return 6 * sixbits_.size(); }
  // The number of the field [offset, offset + width): the bits that exist
  // of it, so a field cut short by the payload's end reads as the number of
  // its first bits, and a field wholly past the end reads 0.
  std::int64_t Number(std::size_t offset, std::size_t width) const;
  // Whether the field's first bit exists and is 1 (the sign rule).
  bool FirstBitSet(std::size_t offset) const;
  // A text field of width / 6 characters through CharFromCode.
  std::string Text(std::size_t offset, std::size_t width) const;
  // The same with every blank dropped (callsigns, vendor identifiers).
  std::string TextNoBlanks(std::size_t offset, std::size_t width) const;
  // Longitude (28 bits) or latitude (27 bits) in degrees: a field whose
  // first bit is 1 has 0xFFFFFFF (or 0x7FFFFFF) taken off, one unit short of
  // two's complement; then / 600000 in double, stored as a single. The
  // unavailable values 181 and 91 are returned as they are.
  float Longitude(std::size_t offset) const;
  float Latitude(std::size_t offset) const;

 private:
  int Bit(std::size_t i) const;
  std::vector<std::uint8_t> sixbits_;
};

// The type (first six bits) of a payload.
int PayloadType(std::string_view payload);

// One decoded message: the fields its decoder returns. Which fields carry
// meaning depends on the type.
struct AisMessage {
  int type = 0;
  int repeat = 0;
  std::int64_t mmsi = 0;
  // Position reports (1, 2, 9, 18, 21).
  bool hasPosition = false;
  float lat = 0;
  float lon = 0;
  float speed = 0;   // knots (type 9: the raw value, no division)
  float course = 0;  // degrees
  float second = 0;
  int status = 0;  // the status handed to the target table: 0 for types 1 and 2
  // Type 9.
  int altitude = 0;
  // Static data (5, 21, 24).
  int aisVersion = 0;
  std::int64_t imo = 0;
  std::string callsign;
  std::string vesselName;
  int shipTypeCode = 0;
  std::string shipType;
  std::string dimensions;
  std::string eta;
  double draught = 0;
  std::string destination;
  // Type 21.
  int aidType = 0;
  int offPosition = 0;
  // Type 24.
  int part = 0;
  std::string vendor;
};

// The decoders. Each takes the whole payload (for type 5 both fragments).
AisMessage DecodeAIS1(const AisBits& bits);
AisMessage DecodeAIS2(const AisBits& bits);
AisMessage DecodeAIS5(const AisBits& bits);
AisMessage DecodeAIS9(const AisBits& bits);
AisMessage DecodeAIS18(const AisBits& bits);
AisMessage DecodeAIS21(const AisBits& bits);
AisMessage DecodeAIS24(const AisBits& bits);

std::string NavStatusText(int code);
std::string ShipTypeText(int code);
std::string AidTypeText(int code);

// The month of an ETA as the program shows it: the number is taken as a
// day count from 30 December 1899 and formatted as a month name, so 0 and
// 1 give "Dec" and 2 to 32 give "Jan".
std::string EtaMonthText(int month);

// What the dispatcher did with one !AIVDM line.
enum class AisOutcome {
  NotAivdm,       // not an !AIVDM line of 21 characters or more
  FirstFragment,  // fragment 1 of 2 stored
  Decoded,        // a message decoded (see message)
  CountedOnly,    // a type that is only counted
  DroppedJoined,  // two fragments of a type other than 5
  Ignored,        // fragment count or number not handled, or a type outside the table
};

struct AisDispatchResult {
  AisOutcome outcome = AisOutcome::NotAivdm;
  int type = 0;
  AisMessage message;
};

// The fragments of a two-part message and the per-type counters.
struct AisDecoderState {
  std::string AisFragment1;
  std::string AisFragment2;
  std::array<std::int32_t, 25> AisMessageCount{};  // 1 to 24 used
  std::int32_t SingleFragmentType5 = 0;
};

// Takes a checksummed !AIVDM line apart: fragment count and number, the
// payload, the joining of two fragments (sequence and channel are not
// compared), and the decoder by type. Counters are kept as the program
// keeps them; the caller applies the result to the target table.
AisDispatchResult DecodeAivdm(std::string_view line, AisDecoderState& state);

}  // namespace kelvane
