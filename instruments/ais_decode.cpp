#include "instruments/ais_decode.h"

#include "core/format.h"
#include "core/timetext.h"

namespace kelvane {

namespace {

// Six-bit value of an armoured character, or -1 outside the table.
constexpr int SixBitOf(unsigned char c) {
  if (c >= 48 && c <= 87) return c - 48;
  if (c >= 96 && c <= 119) return c - 56;
  return -1;
}

// The character table of CharFromCode; 0 marks "no character" (code 34).
constexpr char kSixBitChars[65] =
    "@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_ !\0#$%&'()*+,-./0123456789:;<=>?";

// A field of a message layout: bit offset from 0 and width.
struct Field {
  std::size_t offset;
  std::size_t width;
};

// Types 1 and 2: position report of class A.
namespace type1 {
constexpr Field mmsi{8, 30}, status{38, 4}, turn{42, 8}, speed{50, 10}, accuracy{60, 1}, lon{61, 28}, lat{89, 27},
    course{116, 12}, heading{128, 9}, second{137, 6}, manoeuvre{143, 4}, spare{147, 1}, raim{148, 1}, radio{149, 19};
}
// Type 5: static and voyage data, 424 bits in two fragments.
namespace type5 {
constexpr Field mmsi{8, 30}, version{38, 2}, imo{40, 30}, callsign{70, 42}, name{112, 120}, shipType{232, 8},
    toBow{240, 9}, toStern{249, 9}, toPort{258, 6}, toStarboard{264, 6}, fixType{270, 4}, etaMonth{274, 4},
    etaDay{278, 5}, etaHour{283, 5}, etaMinute{288, 6}, draught{294, 8}, destination{302, 120}, dte{422, 1};
}
// Type 9: search and rescue aircraft.
namespace type9 {
constexpr Field mmsi{8, 30}, altitude{38, 12}, speed{50, 10}, accuracy{60, 1}, lon{61, 28}, lat{89, 27},
    course{116, 12}, second{128, 6};
}
// Type 18: position report of class B.
namespace type18 {
constexpr Field mmsi{8, 30}, reserved{38, 8}, speed{46, 10}, accuracy{56, 1}, lon{57, 28}, lat{85, 27},
    course{112, 12}, heading{124, 9}, second{133, 6}, radio{148, 20};
}
// Type 21: aid to navigation.
namespace type21 {
constexpr Field mmsi{8, 30}, aidType{38, 5}, name{43, 120}, accuracy{163, 1}, lon{164, 28}, lat{192, 27},
    toBow{219, 9}, toStern{228, 9}, toPort{237, 6}, toStarboard{243, 6}, fixType{249, 4}, second{253, 6},
    offPosition{259, 1};
}
// Type 24: static data of class B, part A (0) or part B (1).
namespace type24 {
constexpr Field mmsi{8, 30}, part{38, 2}, name{40, 120}, shipType{40, 8}, vendor{48, 42}, callsign{90, 42},
    toBow{132, 9}, toStern{141, 9}, toPort{150, 6}, toStarboard{156, 6}, mothership{162, 30};
}

std::int64_t Num(const AisBits& b, Field f) { return b.Number(f.offset, f.width); }

AisMessage Header(const AisBits& b) {
  AisMessage m;
  m.type = static_cast<int>(b.Number(0, 6));
  m.repeat = static_cast<int>(b.Number(6, 2));
  m.mmsi = b.Number(8, 30);
  return m;
}

std::string DimensionsText(const AisBits& b, Field bow, Field stern, Field port, Field starboard) {
  double length = static_cast<double>(Num(b, bow)) + static_cast<double>(Num(b, stern));
  double beam = static_cast<double>(Num(b, port)) + static_cast<double>(Num(b, starboard));
  return NumberText(length) + " x " + NumberText(beam);
}

}  // namespace

std::string BitsFromChar(char c) {
  int v = SixBitOf(static_cast<unsigned char>(c));
  if (v < 0) return {};
  std::string bits(6, '0');
  for (int i = 0; i < 6; ++i)
    if (v & (32 >> i)) bits[static_cast<std::size_t>(i)] = '1';
  return bits;
}

std::string CharFromCode(int code) {
  if (code < 0 || code > 63 || code == 34) return {};
  return std::string(1, kSixBitChars[code]);
}

std::optional<std::int64_t> BitsToNumber(std::string_view bits) {
  std::int64_t value = 0;
  std::size_t n = bits.size();
  for (std::size_t i = 0; i < n; ++i) {
    char c = bits[n - 1 - i];
    if (c != '0' && c != '1') return std::nullopt;
    if (c == '1') {
      if (i > 31) return std::nullopt;
      value += std::int64_t{1} << i;
    }
  }
  return value;
}

AisBits::AisBits(std::string_view payload) {
  sixbits_.resize(payload.size());
  for (std::size_t i = 0; i < payload.size(); ++i) {
    int v = SixBitOf(static_cast<unsigned char>(payload[i]));
    sixbits_[i] = static_cast<std::uint8_t>(v < 0 ? 0 : v);
  }
}

int AisBits::Bit(std::size_t i) const { return (sixbits_[i / 6] >> (5 - i % 6)) & 1; }

std::int64_t AisBits::Number(std::size_t offset, std::size_t width) const {
  std::size_t length = BitLength();
  if (offset >= length) return 0;
  std::size_t end = std::min(length, offset + width);
  // Whole six-bit groups at a time; the first and last may be partial.
  std::int64_t value = 0;
  for (std::size_t i = offset; i < end;) {
    std::size_t skip = i % 6;
    std::size_t take = std::min<std::size_t>(6 - skip, end - i);
    unsigned group = (sixbits_[i / 6] >> (6 - skip - take)) & ((1u << take) - 1u);
    value = (value << take) | group;
    i += take;
  }
  return value;
}

bool AisBits::FirstBitSet(std::size_t offset) const { return offset < BitLength() && Bit(offset) == 1; }

std::string AisBits::Text(std::size_t offset, std::size_t width) const {
  std::string text;
  text.reserve(width / 6);
  for (std::size_t i = 0; i < width / 6; ++i) {
    // A group cut short by the payload's end reads as the number of its
    // bits; one wholly past the end reads 0, an "@".
    int code = static_cast<int>(Number(offset + 6 * i, 6));
    char c = kSixBitChars[code];
    if (c != '\0') text.push_back(c);
  }
  return text;
}

std::string AisBits::TextNoBlanks(std::size_t offset, std::size_t width) const {
  std::string text = Text(offset, width);
  std::erase(text, ' ');
  return text;
}

float AisBits::Longitude(std::size_t offset) const {
  std::int64_t n = Number(offset, 28);
  if (FirstBitSet(offset)) n -= 268435455;  // 0xFFFFFFF: one unit short of two's complement
  return static_cast<float>(static_cast<double>(n) / 600000.0);
}

float AisBits::Latitude(std::size_t offset) const {
  std::int64_t n = Number(offset, 27);
  if (FirstBitSet(offset)) n -= 134217727;  // 0x7FFFFFF
  return static_cast<float>(static_cast<double>(n) / 600000.0);
}

int PayloadType(std::string_view payload) {
  if (payload.empty()) return 0;
  int v = SixBitOf(static_cast<unsigned char>(payload[0]));
  return v < 0 ? 0 : v;
}

// Types 1 and 2 read the navigation status, rate of turn and heading and
// throw them away: a class A target always reaches the table with status 0.
AisMessage DecodeAIS1(const AisBits& b) {
  AisMessage m = Header(b);
  m.hasPosition = true;
  m.speed = static_cast<float>(static_cast<double>(Num(b, type1::speed)) / 10.0);
  m.lon = b.Longitude(type1::lon.offset);
  m.lat = b.Latitude(type1::lat.offset);
  m.course = static_cast<float>(static_cast<double>(Num(b, type1::course)) / 10.0);
  m.second = static_cast<float>(Num(b, type1::second));
  m.status = 0;
  return m;
}

AisMessage DecodeAIS2(const AisBits& b) { return DecodeAIS1(b); }

AisMessage DecodeAIS5(const AisBits& b) {
  AisMessage m = Header(b);
  m.aisVersion = static_cast<int>(Num(b, type5::version));
  m.imo = Num(b, type5::imo);
  m.callsign = b.TextNoBlanks(type5::callsign.offset, type5::callsign.width);
  m.vesselName = b.Text(type5::name.offset, type5::name.width);
  m.shipTypeCode = static_cast<int>(Num(b, type5::shipType));
  m.shipType = ShipTypeText(m.shipTypeCode);
  m.draught = static_cast<double>(Num(b, type5::draught)) / 10.0;
  m.dimensions = DimensionsText(b, type5::toBow, type5::toStern, type5::toPort, type5::toStarboard) + " x " +
                 NumberText(m.draught);
  m.eta = FormatNumber(Num(b, type5::etaDay), "00") + "/" + EtaMonthText(static_cast<int>(Num(b, type5::etaMonth))) +
          " @ " + FormatNumber(Num(b, type5::etaHour), "00") + ":" + FormatNumber(Num(b, type5::etaMinute), "00");
  m.destination = b.Text(type5::destination.offset, type5::destination.width);
  return m;
}

// Type 9: altitude in metres and speed in knots as they stand (no tenths).
AisMessage DecodeAIS9(const AisBits& b) {
  AisMessage m = Header(b);
  m.hasPosition = true;
  m.altitude = static_cast<int>(Num(b, type9::altitude));
  m.speed = static_cast<float>(Num(b, type9::speed));
  m.lon = b.Longitude(type9::lon.offset);
  m.lat = b.Latitude(type9::lat.offset);
  m.course = static_cast<float>(static_cast<double>(Num(b, type9::course)) / 10.0);
  m.second = static_cast<float>(Num(b, type9::second));
  return m;
}

AisMessage DecodeAIS18(const AisBits& b) {
  AisMessage m = Header(b);
  m.hasPosition = true;
  m.speed = static_cast<float>(static_cast<double>(Num(b, type18::speed)) / 10.0);
  m.lon = b.Longitude(type18::lon.offset);
  m.lat = b.Latitude(type18::lat.offset);
  m.course = static_cast<float>(static_cast<double>(Num(b, type18::course)) / 10.0);
  m.second = static_cast<float>(Num(b, type18::second));
  m.status = 1;
  return m;
}

AisMessage DecodeAIS21(const AisBits& b) {
  AisMessage m = Header(b);
  m.hasPosition = true;
  m.aidType = static_cast<int>(Num(b, type21::aidType));
  m.shipType = AidTypeText(m.aidType);
  m.vesselName = b.Text(type21::name.offset, type21::name.width);
  m.lon = b.Longitude(type21::lon.offset);
  m.lat = b.Latitude(type21::lat.offset);
  m.dimensions = DimensionsText(b, type21::toBow, type21::toStern, type21::toPort, type21::toStarboard);
  m.second = static_cast<float>(Num(b, type21::second));
  m.offPosition = static_cast<int>(Num(b, type21::offPosition));
  m.status = 100;
  return m;
}

AisMessage DecodeAIS24(const AisBits& b) {
  AisMessage m = Header(b);
  m.part = static_cast<int>(Num(b, type24::part));
  if (m.part == 0) {
    m.vesselName = b.Text(type24::name.offset, type24::name.width);
  } else if (m.part == 1) {
    m.shipTypeCode = static_cast<int>(Num(b, type24::shipType));
    m.shipType = ShipTypeText(m.shipTypeCode);
    m.vendor = b.TextNoBlanks(type24::vendor.offset, type24::vendor.width);
    m.callsign = b.TextNoBlanks(type24::callsign.offset, type24::callsign.width);
    m.dimensions = DimensionsText(b, type24::toBow, type24::toStern, type24::toPort, type24::toStarboard);
  }
  return m;
}

std::string NavStatusText(int code) {
  switch (code) {
    case 0: return "Underway engine";
    case 1: return "";
    case 2: return "Not Under Command";
    case 3: return "Restricted manoeuvrability";
    case 4: return "Constrained by draught";
    case 5: return "Moored";
    case 6: return "Aground";
    case 7: return "Fishing";
    case 8: return "Underway sailing";
    case 100: return "AIS Virtual Mark (Aid to Navigation)";
    default: return "Not defined";
  }
}

std::string ShipTypeText(int code) {
  static const char* const hazardous[] = {"Hazardous category A", "Hazardous category B", "Hazardous category C",
                                          "Hazardous category D"};
  if (code == 0) return "Not available";
  if (code >= 1 && code <= 19) return "reserved";
  if (code == 20) return "Hazardous";
  if (code >= 21 && code <= 24) return hazardous[code - 21];
  if (code >= 25 && code <= 29) return "Reserved";
  switch (code) {
    case 30: return "Fishing";
    case 31: return "Towing";
    case 32: return "Towing: exceeds 200m or breadth exceeds 25m";
    case 33: return "Dredging or underwater ops";
    case 34: return "Diving ops";
    case 35: return "Military ops";
    case 36: return "Sailing";
    case 37: return "Pleasure Craft";
    case 38:
    case 39: return "Reserved";
    case 50: return "Pilot Vessel";
    case 51: return "Search and Rescue vessel";
    case 52: return "Tug";
    case 53: return "Port Tender";
    case 54: return "Anti-pollution equipment";
    case 55: return "55";
    case 56:
    case 57: return "Local Vessel";
    case 58: return "Medical Transport";
    case 59: return "Ship according to RR Resolution No. 18";
    case 70: return "Cargo";
    case 80: return "Tanker";
    default: break;
  }
  if (code >= 40 && code <= 49) return "High speed craft";
  if (code >= 60 && code <= 69) return "Passenger";
  if (code >= 71 && code <= 74) return "Cargo, Hazardous";
  if (code >= 75 && code <= 79) return "Cargo";
  if (code >= 81 && code <= 89) return "Tanker, Hazardous";
  if (code >= 91 && code <= 94) return "Hazardous";
  return "Not Classified";
}

std::string AidTypeText(int code) {
  static const char* const rows[] = {
      "Default",
      "Reference point",
      "RACON",
      "Structure",
      "Un-Specified",
      "Light, without sectors",
      "Light, with sectors",
      "Leading Light Front",
      "Leading Light Rear",
      "Beacon, Cardinal N",
      "Beacon, Cardinal E",
      "Beacon, Cardinal S",
      "Beacon, Cardinal W",
      "Beacon, Port hand",
      "Beacon, Starboard hand",
      "Beacon, Preferred Channel port hand",
      "Beacon, Preferred Channel starboard hand",
      "Beacon, Isolated danger",
      "Beacon, Safe water",
      "Beacon, Special mark",
      "Cardinal Mark N",
      "Cardinal Mark E",
      "Cardinal Mark S",
      "Cardinal Mark W",
      "Port hand Mark",
      "Starboard hand Mark",
      "Preferred Channel Port hand",
      "Preferred Channel Starboard hand ",
      "Isolated danger",
      "Safe Water",
      "Special Mark",
      "Light Starboard hand Mark",
  };
  if (code >= 0 && code <= 31) return rows[code];
  // The routine runs on into the ship type rows from 33 up, which a 5-bit
  // field cannot reach.
  if (code >= 33) return ShipTypeText(code);
  return "Not Classified";
}

std::string EtaMonthText(int month) {
  // The month field is read as a serial day number (day 0 is 30 December
  // 1899, day 2 is 1 January 1900). The field has four bits, so only
  // December (0 and 1) and January (2 to 15) ever come of it.
  static const char* const names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  if (month <= 1) return "Dec";
  return names[SerialDayToDate(month).month - 1];
}

namespace {

// Removes the text up to and including the first comma; with no comma the
// text stays as it is.
std::string_view DropField(std::string_view s) {
  std::size_t comma = s.find(',');
  return comma == std::string_view::npos ? s : s.substr(comma + 1);
}

enum class Action { Ignore, CountOnly, Decode };

struct DispatchRow {
  Action action;
  AisMessage (*decoder)(const AisBits&);
  bool counted;
};

// The dispatch table by message type. Type 9 is decoded but not counted;
// a single-fragment type 5 goes to its own counter.
const DispatchRow& RowOf(int type) {
  static const DispatchRow ignore{Action::Ignore, nullptr, false};
  static const DispatchRow countOnly{Action::CountOnly, nullptr, true};
  static const DispatchRow rows[25] = {
      ignore,                                  // 0
      {Action::Decode, DecodeAIS1, true},      // 1
      {Action::Decode, DecodeAIS2, true},      // 2
      countOnly,                               // 3
      countOnly,                               // 4
      {Action::Decode, DecodeAIS5, false},     // 5
      countOnly,                               // 6
      countOnly,                               // 7
      countOnly,                               // 8
      {Action::Decode, DecodeAIS9, false},     // 9
      countOnly, countOnly, countOnly, countOnly, countOnly, countOnly, countOnly, countOnly,  // 10-17
      {Action::Decode, DecodeAIS18, true},     // 18
      countOnly,                               // 19
      countOnly,                               // 20
      {Action::Decode, DecodeAIS21, true},     // 21
      countOnly,                               // 22
      countOnly,                               // 23
      {Action::Decode, DecodeAIS24, true},     // 24
  };
  if (type < 0 || type > 24) return ignore;
  return rows[type];
}

}  // namespace

AisDispatchResult DecodeAivdm(std::string_view line, AisDecoderState& state) {
  AisDispatchResult result;
  if (line.find("!AIVDM") == std::string_view::npos || line.size() < 21) return result;

  std::string_view rest = DropField(line);
  int count = static_cast<int>(TextValue(rest.substr(0, 1)));
  rest = DropField(rest);
  int number = static_cast<int>(TextValue(rest.substr(0, 1)));
  rest = DropField(DropField(DropField(rest)));
  std::size_t comma = rest.find(',');
  std::string_view payload = comma == std::string_view::npos ? std::string_view() : rest.substr(0, comma);

  if (count == 2 && number == 1) {
    state.AisFragment1 = payload;
    result.outcome = AisOutcome::FirstFragment;
    return result;
  }
  if (count == 2 && number == 2) {
    state.AisFragment2 = payload;
    std::string whole = state.AisFragment1 + state.AisFragment2;
    result.type = PayloadType(whole);
    if (result.type != 5) {
      result.outcome = AisOutcome::DroppedJoined;
      return result;
    }
    state.AisMessageCount[5] += 1;
    result.message = DecodeAIS5(AisBits(whole));
    result.outcome = AisOutcome::Decoded;
    return result;
  }
  if (count != 1 || number != 1) {
    result.outcome = AisOutcome::Ignored;
    return result;
  }

  result.type = PayloadType(payload);
  const DispatchRow& row = RowOf(result.type);
  if (row.counted) state.AisMessageCount[static_cast<std::size_t>(result.type)] += 1;
  if (result.type == 5) state.SingleFragmentType5 += 1;
  switch (row.action) {
    case Action::Ignore: result.outcome = AisOutcome::Ignored; break;
    case Action::CountOnly: result.outcome = AisOutcome::CountedOnly; break;
    case Action::Decode:
      result.message = row.decoder(AisBits(payload));
      result.outcome = AisOutcome::Decoded;
      break;
  }
  return result;
}

}  // namespace kelvane
