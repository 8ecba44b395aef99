// A small AIS encoder for the tests and the benchmark: field values in,
// !AIVDM sentences out. Written from the published message layouts (ITU-R
// M.1371, as tabulated in the AIVDM/AIVDO protocol notes), independently
// of the decoder it checks: two's complement for signed fields, the six-bit
// text table, armouring and the NMEA checksum.
#pragma once

#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace kelvane::testing {

class AisBitWriter {
 public:
  void Put(std::uint64_t value, int width) {
    for (int i = width - 1; i >= 0; --i) bits_.push_back(((value >> i) & 1) ? '1' : '0');
  }
  // Two's complement in `width` bits.
  void PutSigned(std::int64_t value, int width) { Put(static_cast<std::uint64_t>(value) & ((1ull << width) - 1), width); }
  // Text of `chars` six-bit characters, padded with "@".
  void PutText(const std::string& text, int chars) {
    for (int i = 0; i < chars; ++i) {
      unsigned char c = i < static_cast<int>(text.size()) ? static_cast<unsigned char>(text[static_cast<std::size_t>(i)]) : '@';
      int code = (c >= 64 && c <= 95) ? c - 64 : (c >= 32 && c <= 63) ? c : 0;
      Put(static_cast<std::uint64_t>(code), 6);
    }
  }
  const std::string& bits() const { return bits_; }

 private:
  std::string bits_;
};

struct Armoured {
  std::string payload;
  int fill = 0;
};

inline Armoured Armour(std::string bits) {
  Armoured a;
  while (bits.size() % 6 != 0) {
    bits.push_back('0');
    ++a.fill;
  }
  for (std::size_t i = 0; i < bits.size(); i += 6) {
    int v = 0;
    for (std::size_t k = 0; k < 6; ++k) v = v * 2 + (bits[i + k] == '1');
    a.payload.push_back(static_cast<char>(v < 40 ? v + 48 : v + 56));
  }
  return a;
}

inline std::string WithChecksum(const std::string& body, char start) {
  unsigned sum = 0;
  for (char c : body) sum ^= static_cast<unsigned char>(c);
  char buf[4];
  std::snprintf(buf, sizeof buf, "%02X", sum);
  return std::string(1, start) + body + "*" + buf;
}

// One or two sentences for a message; two when `split` is above 0 (the
// first fragment takes that many payload characters).
inline std::vector<std::string> AivdmSentences(const std::string& bits, std::size_t split = 0, char channel = 'B',
                                               int sequence = 1) {
  Armoured a = Armour(bits);
  if (split == 0 || split >= a.payload.size())
    return {WithChecksum(std::string("AIVDM,1,1,,") + channel + "," + a.payload + "," + std::to_string(a.fill), '!')};
  std::string seq = std::to_string(sequence);
  return {WithChecksum("AIVDM,2,1," + seq + "," + channel + "," + a.payload.substr(0, split) + ",0", '!'),
          WithChecksum("AIVDM,2,2," + seq + "," + channel + "," + a.payload.substr(split) + "," + std::to_string(a.fill),
                       '!')};
}

// Position report of class A (types 1, 2, 3). lon and lat in 1/10000 minute.
struct PositionA {
  int type = 1;
  std::uint32_t mmsi = 0;
  int status = 0;
  int turn = -128;
  int speed = 0;  // tenths of a knot
  int accuracy = 0;
  std::int64_t lon = 0;
  std::int64_t lat = 0;
  int course = 0;  // tenths of a degree
  int heading = 511;
  int second = 60;
};

inline std::string BitsOf(const PositionA& m) {
  AisBitWriter w;
  w.Put(static_cast<std::uint64_t>(m.type), 6);
  w.Put(0, 2);
  w.Put(m.mmsi, 30);
  w.Put(static_cast<std::uint64_t>(m.status), 4);
  w.PutSigned(m.turn, 8);
  w.Put(static_cast<std::uint64_t>(m.speed), 10);
  w.Put(static_cast<std::uint64_t>(m.accuracy), 1);
  w.PutSigned(m.lon, 28);
  w.PutSigned(m.lat, 27);
  w.Put(static_cast<std::uint64_t>(m.course), 12);
  w.Put(static_cast<std::uint64_t>(m.heading), 9);
  w.Put(static_cast<std::uint64_t>(m.second), 6);
  w.Put(0, 4);   // manoeuvre
  w.Put(0, 3);   // spare
  w.Put(0, 1);   // RAIM
  w.Put(0, 19);  // radio
  return w.bits();
}

struct StaticA {
  std::uint32_t mmsi = 0;
  std::uint32_t imo = 0;
  std::string callsign, name, destination;
  int shipType = 0;
  int toBow = 0, toStern = 0, toPort = 0, toStarboard = 0;
  int month = 0, day = 0, hour = 24, minute = 60;
  int draught = 0;  // tenths of a metre
};

inline std::string BitsOf(const StaticA& m) {
  AisBitWriter w;
  w.Put(5, 6);
  w.Put(0, 2);
  w.Put(m.mmsi, 30);
  w.Put(0, 2);
  w.Put(m.imo, 30);
  w.PutText(m.callsign, 7);
  w.PutText(m.name, 20);
  w.Put(static_cast<std::uint64_t>(m.shipType), 8);
  w.Put(static_cast<std::uint64_t>(m.toBow), 9);
  w.Put(static_cast<std::uint64_t>(m.toStern), 9);
  w.Put(static_cast<std::uint64_t>(m.toPort), 6);
  w.Put(static_cast<std::uint64_t>(m.toStarboard), 6);
  w.Put(1, 4);
  w.Put(static_cast<std::uint64_t>(m.month), 4);
  w.Put(static_cast<std::uint64_t>(m.day), 5);
  w.Put(static_cast<std::uint64_t>(m.hour), 5);
  w.Put(static_cast<std::uint64_t>(m.minute), 6);
  w.Put(static_cast<std::uint64_t>(m.draught), 8);
  w.PutText(m.destination, 20);
  w.Put(0, 1);
  w.Put(0, 1);
  return w.bits();
}

struct SarAircraft {
  std::uint32_t mmsi = 0;
  int altitude = 0;
  int speed = 0;  // knots
  std::int64_t lon = 0, lat = 0;
  int course = 0;  // tenths
  int second = 0;
};

inline std::string BitsOf(const SarAircraft& m) {
  AisBitWriter w;
  w.Put(9, 6);
  w.Put(0, 2);
  w.Put(m.mmsi, 30);
  w.Put(static_cast<std::uint64_t>(m.altitude), 12);
  w.Put(static_cast<std::uint64_t>(m.speed), 10);
  w.Put(0, 1);
  w.PutSigned(m.lon, 28);
  w.PutSigned(m.lat, 27);
  w.Put(static_cast<std::uint64_t>(m.course), 12);
  w.Put(static_cast<std::uint64_t>(m.second), 6);
  w.Put(0, 8);
  w.Put(0, 1);
  w.Put(0, 3);
  w.Put(0, 1);
  w.Put(0, 1);
  w.Put(0, 1);
  w.Put(0, 19);
  return w.bits();
}

struct PositionB {
  std::uint32_t mmsi = 0;
  int speed = 0;  // tenths
  std::int64_t lon = 0, lat = 0;
  int course = 0;  // tenths
  int heading = 511;
  int second = 0;
};

inline std::string BitsOf(const PositionB& m) {
  AisBitWriter w;
  w.Put(18, 6);
  w.Put(0, 2);
  w.Put(m.mmsi, 30);
  w.Put(0, 8);
  w.Put(static_cast<std::uint64_t>(m.speed), 10);
  w.Put(0, 1);
  w.PutSigned(m.lon, 28);
  w.PutSigned(m.lat, 27);
  w.Put(static_cast<std::uint64_t>(m.course), 12);
  w.Put(static_cast<std::uint64_t>(m.heading), 9);
  w.Put(static_cast<std::uint64_t>(m.second), 6);
  w.Put(0, 2);
  for (int i = 0; i < 7; ++i) w.Put(0, 1);
  w.Put(0, 20);
  return w.bits();
}

struct AidToNavigation {
  std::uint32_t mmsi = 0;
  int aidType = 0;
  std::string name;
  std::int64_t lon = 0, lat = 0;
  int toBow = 0, toStern = 0, toPort = 0, toStarboard = 0;
  int second = 0;
  int offPosition = 0;
};

inline std::string BitsOf(const AidToNavigation& m) {
  AisBitWriter w;
  w.Put(21, 6);
  w.Put(0, 2);
  w.Put(m.mmsi, 30);
  w.Put(static_cast<std::uint64_t>(m.aidType), 5);
  w.PutText(m.name, 20);
  w.Put(0, 1);
  w.PutSigned(m.lon, 28);
  w.PutSigned(m.lat, 27);
  w.Put(static_cast<std::uint64_t>(m.toBow), 9);
  w.Put(static_cast<std::uint64_t>(m.toStern), 9);
  w.Put(static_cast<std::uint64_t>(m.toPort), 6);
  w.Put(static_cast<std::uint64_t>(m.toStarboard), 6);
  w.Put(1, 4);
  w.Put(static_cast<std::uint64_t>(m.second), 6);
  w.Put(static_cast<std::uint64_t>(m.offPosition), 1);
  w.Put(0, 8);
  w.Put(0, 1);
  w.Put(0, 1);
  w.Put(0, 1);
  w.Put(0, 1);
  return w.bits();
}

struct StaticB {
  std::uint32_t mmsi = 0;
  int part = 0;
  std::string name;                  // part A
  int shipType = 0;                  // part B
  std::string vendor, callsign;      // part B
  int toBow = 0, toStern = 0, toPort = 0, toStarboard = 0;
};

inline std::string BitsOf(const StaticB& m) {
  AisBitWriter w;
  w.Put(24, 6);
  w.Put(0, 2);
  w.Put(m.mmsi, 30);
  w.Put(static_cast<std::uint64_t>(m.part), 2);
  if (m.part == 0) {
    w.PutText(m.name, 20);
  } else {
    w.Put(static_cast<std::uint64_t>(m.shipType), 8);
    w.PutText(m.vendor, 7);
    w.PutText(m.callsign, 7);
    w.Put(static_cast<std::uint64_t>(m.toBow), 9);
    w.Put(static_cast<std::uint64_t>(m.toStern), 9);
    w.Put(static_cast<std::uint64_t>(m.toPort), 6);
    w.Put(static_cast<std::uint64_t>(m.toStarboard), 6);
    w.Put(0, 6);
  }
  return w.bits();
}

// A random mixture of the message types the program decodes, for the
// comparison with gpsdecode and the benchmark. Texts use letters, digits
// and blanks inside the text, which both decoders render alike.
class RandomAis {
 public:
  explicit RandomAis(std::uint32_t seed) : rng_(seed) {}

  int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
  std::uint32_t Mmsi() { return static_cast<std::uint32_t>(Int(200000000, 775999999)); }
  std::int64_t Lon() { return Int(-180 * 600000, 180 * 600000); }
  std::int64_t Lat() { return Int(-90 * 600000, 90 * 600000); }
  std::string Text(int maxChars) {
    static const char chars[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    int n = Int(1, maxChars);
    std::string s;
    for (int i = 0; i < n; ++i) s.push_back(chars[Int(0, 35)]);
    if (n > 4 && Int(0, 1)) s[static_cast<std::size_t>(Int(1, n - 2))] = ' ';
    return s;
  }

  // The sentences of one random message (two for type 5).
  std::vector<std::string> Next() {
    switch (Int(0, 7)) {
      case 0:
      case 1: {
        PositionA m;
        m.type = Int(1, 2);
        m.mmsi = Mmsi();
        m.status = Int(0, 8);
        m.speed = Int(0, 1023);
        m.lon = Lon();
        m.lat = Lat();
        m.course = Int(0, 3599);
        m.heading = Int(0, 359);
        m.second = Int(0, 59);
        return AivdmSentences(BitsOf(m));
      }
      case 2: {
        StaticA m;
        m.mmsi = Mmsi();
        m.imo = static_cast<std::uint32_t>(Int(1000000, 9999999));
        m.callsign = Text(7);
        m.name = Text(20);
        m.destination = Text(20);
        m.shipType = Int(0, 99);
        m.toBow = Int(0, 511);
        m.toStern = Int(0, 511);
        m.toPort = Int(0, 63);
        m.toStarboard = Int(0, 63);
        m.month = Int(1, 12);
        m.day = Int(1, 31);
        m.hour = Int(0, 23);
        m.minute = Int(0, 59);
        m.draught = Int(0, 255);
        return AivdmSentences(BitsOf(m), 60, 'A', Int(0, 9));
      }
      case 3: {
        SarAircraft m;
        m.mmsi = Mmsi();
        m.altitude = Int(0, 4094);
        m.speed = Int(0, 1022);
        m.lon = Lon();
        m.lat = Lat();
        m.course = Int(0, 3599);
        m.second = Int(0, 59);
        return AivdmSentences(BitsOf(m));
      }
      case 4:
      case 5: {
        PositionB m;
        m.mmsi = Mmsi();
        m.speed = Int(0, 1022);
        m.lon = Lon();
        m.lat = Lat();
        m.course = Int(0, 3599);
        m.heading = Int(0, 359);
        m.second = Int(0, 59);
        return AivdmSentences(BitsOf(m));
      }
      case 6: {
        AidToNavigation m;
        m.mmsi = static_cast<std::uint32_t>(Int(992000000, 992999999));
        m.aidType = Int(0, 31);
        m.name = Text(20);
        m.lon = Lon();
        m.lat = Lat();
        m.toBow = Int(0, 511);
        m.toStern = Int(0, 511);
        m.toPort = Int(0, 63);
        m.toStarboard = Int(0, 63);
        m.second = Int(0, 59);
        m.offPosition = Int(0, 1);
        return AivdmSentences(BitsOf(m));
      }
      default: {
        StaticB m;
        m.mmsi = Mmsi();
        m.part = Int(0, 1);
        m.name = Text(20);
        m.shipType = Int(0, 99);
        m.vendor = Text(3);
        m.callsign = Text(7);
        m.toBow = Int(0, 511);
        m.toStern = Int(0, 511);
        m.toPort = Int(0, 63);
        m.toStarboard = Int(0, 63);
        return AivdmSentences(BitsOf(m));
      }
    }
  }

 private:
  std::mt19937 rng_;
};

}  // namespace kelvane::testing
