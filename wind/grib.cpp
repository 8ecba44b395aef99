#include "wind/grib.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>

#include "core/format.h"

namespace kelvane {
namespace {

constexpr const char* kCrLf = "\r\n";
constexpr const char* kExitReading = "Exiting the GRIB Reading routine";

// The largest grid the reader takes: 4096 x 4096 points. A constant field
// (bit width 0) needs no data bits, so without this bound a 50-byte message
// could ask for 4 thousand million values.
constexpr std::size_t kMostPoints = 4096u * 4096u;

// Byte n (1-based, as the tables count) of a section that starts at s.
struct Section {
  std::span<const std::uint8_t> bytes;
  int operator[](std::size_t n) const { return bytes[n - 1]; }
  std::size_t size() const { return bytes.size(); }
};

std::string Numbered(int message, const std::string& text) {
  return "Bad File - message " + std::to_string(message) + ": " + text;
}

// GRIB 1 single-value levels (code table 3): bytes 11 and 12 are one number.
bool SingleValueLevel(int type) {
  switch (type) {
    case 100: case 103: case 105: case 107: case 109: case 111: case 113: case 115:
    case 117: case 119: case 125: case 160: case 200: case 201:
      return true;
    default:
      return false;
  }
}

// Seconds in one time unit of code table 4; 0 for units of no fixed length
// (month, year, decade, normal, century) and codes outside the table.
double TimeUnitSeconds(int code) {
  switch (code) {
    case 0: return 60;
    case 1: return 3600;
    case 2: return 86400;
    case 10: return 3 * 3600;
    case 11: return 6 * 3600;
    case 12: return 12 * 3600;
    case 13: return 900;
    case 14: return 1800;
    case 254: return 1;
    default: return 0;
  }
}

// Sign and magnitude in 16 bits: the top bit of the first byte is the sign.
int SignedPair(int high, int low) {
  int magnitude = (high & 127) * 256 + low;
  return (high & 128) ? -magnitude : magnitude;
}

// A corner in millidegrees over three bytes. The sign is taken as the
// rounded quotient of the first byte by 127 being non-zero, so any first
// byte from 64 up counts as negative; real corners (at most 360 000, first
// byte 5) never reach it. 128, 0, 0 reads as -0.
float Corner(int b1, int b2, int b3) {
  bool negative = RoundToInt(b1 / 127.0) != 0;
  double magnitude = (b1 & 127) * 65536.0 + b2 * 256.0 + b3;
  float value = static_cast<float>(magnitude / 1000.0);
  return negative ? -value : value;
}

// IBM System/360 single precision: sign bit, 7-bit exponent of 16 with
// excess 64, 24-bit fraction.
double IbmFloat(int b1, int b2, int b3, int b4) {
  double fraction = (b2 * 65536.0 + b3 * 256.0 + b4) / 16777216.0;
  double value = std::ldexp(fraction, 4 * ((b1 & 127) - 64));
  return (b1 & 128) ? -value : value;
}

std::string DecodePDS(Section pds, int message, GribRecord& record) {
  if (pds.size() < 28) return Numbered(message, "the Product Definition Section is shorter than 28 bytes");
  record.Parameter = static_cast<std::int16_t>(pds[9]);
  record.LevelType = static_cast<std::int16_t>(pds[10]);
  if (SingleValueLevel(pds[10])) {
    record.LevelValue1 = pds[11] * 256 + pds[12];
    record.LevelValue2 = 0;
  } else {
    record.LevelValue1 = pds[11];
    record.LevelValue2 = pds[12];
  }
  record.Year = static_cast<std::int16_t>((pds[25] - 1) * 100 + pds[13]);
  record.Month = static_cast<std::int16_t>(pds[14]);
  record.Day = static_cast<std::int16_t>(pds[15]);
  record.Minutes = pds[16] * 60.0 + pds[17];
  record.TimeUnit = static_cast<std::int16_t>(pds[18]);
  record.P1 = pds[19];
  record.P2 = pds[20];
  record.TimeRange = static_cast<std::int16_t>(pds[21]);
  record.DecimalScale = static_cast<std::int16_t>(SignedPair(pds[27], pds[28]));

  double unit = TimeUnitSeconds(pds[18]);
  // The valid time of the product: a forecast (0) at P1; an average (3) or
  // an accumulation (4) at the end of its period, P2; time range 10 holds one
  // 16-bit P1 in bytes 19 and 20; the others (analysis, periods, differences,
  // climate means) at the later of P1 and P2.
  double steps = 0;
  switch (record.TimeRange) {
    case 0: steps = record.P1; break;
    case 3: steps = record.P2; break;
    case 4: steps = record.P2; break;
    case 10:
      record.P1 = pds[19] * 256 + pds[20];
      record.P2 = 0;
      steps = record.P1;
      break;
    case 1: case 2: case 5: case 6: case 7: case 8: case 9:
      steps = std::max(record.P1, record.P2);
      break;
    default:
      return "Unhandled Time range vlaue of " + std::to_string(record.TimeRange);
  }
  if (unit == 0) return Numbered(message, "unhandled time unit of " + std::to_string(record.TimeUnit));
  record.ForecastOffsetSeconds = steps * unit;
  return {};
}

std::string DecodeGDS(Section gds, int message, int parameter, GridSection& grid) {
  if (gds.size() < 6) return Numbered(message, "the Grid Description Section is shorter than 6 bytes");
  grid.DataRep = static_cast<std::int16_t>(gds[6]);
  switch (grid.DataRep) {
    case 0: case 4: case 10: break;
    default:
      return "Unpacking BDS data_rep ; Grid type " + std::to_string(grid.DataRep) + " not understood";
  }
  if (grid.DataRep == 10) {
    switch (parameter) {
      case 23: case 24: case 26: case 63: case 64:
        return "unpacking BDS case 10 exception - not yet implemented";
      default: break;
    }
  }
  if (gds.size() < 28) return Numbered(message, "the Grid Description Section is shorter than 28 bytes");
  // 255 and not 256: grids up to 255 points a side read the same either way.
  grid.Ni = gds[7] * 255 + gds[8];
  grid.Nj = gds[9] * 255 + gds[10];
  grid.La1 = Corner(gds[11], gds[12], gds[13]);
  grid.Lo1 = Corner(gds[14], gds[15], gds[16]);
  grid.Resolution = static_cast<std::int16_t>(gds[17]);
  grid.La2 = Corner(gds[18], gds[19], gds[20]);
  grid.Lo2 = Corner(gds[21], gds[22], gds[23]);
  grid.Di = static_cast<float>((gds[24] * 256 + gds[25]) / 1000.0);
  grid.Dj = static_cast<float>((gds[26] * 256 + gds[27]) / 1000.0);
  grid.Scan = static_cast<std::int16_t>(gds[28]);
  if (grid.Ni == 0 || grid.Nj == 0) return Numbered(message, "the grid has no points");
  if (static_cast<std::size_t>(grid.Ni) * static_cast<std::size_t>(grid.Nj) > kMostPoints)
    return Numbered(message, "the grid of " + std::to_string(grid.Ni) + " x " + std::to_string(grid.Nj) +
                                 " points is larger than this reader takes");
  return {};
}

std::string DecodeBMS(Section bms, int message, std::size_t points, std::vector<bool>& present) {
  if (bms.size() < 6) return Numbered(message, "the Bitmap Section is shorter than 6 bytes");
  if (bms[5] != 0 || bms[6] != 0)
    return Numbered(message, "a predefined bitmap (number " + std::to_string(bms[5] * 256 + bms[6]) +
                                 ") is not handled");
  std::size_t bits = (bms.size() - 6) * 8;
  std::size_t unused = bms[4] & 15;
  bits = bits >= unused ? bits - unused : 0;
  if (bits < points) return Numbered(message, "the bitmap holds fewer bits than the grid has points");
  present.assign(points, false);
  for (std::size_t k = 0; k < points; ++k) present[k] = (bms[7 + k / 8] >> (7 - k % 8)) & 1;
  return {};
}

// Simple grid-point packing: count values of width bits each, most
// significant bit first, from byte 12 on.
std::string DecodeBDS(Section bds, int message, const std::vector<bool>& present, int decimalScale,
                      std::size_t points, std::vector<float>& values) {
  if (bds.size() < 11) return Numbered(message, "the Binary Data Section is shorter than 11 bytes");
  int flags = bds[4] / 16;
  std::size_t unused = bds[4] & 15;
  if (flags & 8) return Numbered(message, "spherical harmonic data are not handled");
  if (flags & 5) return Numbered(message, "complex or second-order packing is not handled");
  int binaryScale = SignedPair(bds[5], bds[6]);
  double reference = IbmFloat(bds[7], bds[8], bds[9], bds[10]);
  int width = bds[11];
  double scale = std::ldexp(1.0, binaryScale);
  double divisor = std::pow(10.0, decimalScale);
  if (!std::isfinite(reference) || !std::isfinite(scale) || !std::isfinite(divisor) || divisor == 0)
    return Numbered(message, "the packing scales are out of range");
  if (width > 32) return Numbered(message, "values of " + std::to_string(width) + " bits are not handled");

  std::size_t count = points;
  if (!present.empty()) {
    count = 0;
    for (bool p : present) count += p ? 1 : 0;
  }
  std::size_t available = (bds.size() - 11) * 8;
  available = available >= unused ? available - unused : 0;
  if (width > 0 && count > available / static_cast<std::size_t>(width))
    return Numbered(message, "the Binary Data Section holds fewer values than the grid has points");

  values.assign(points, GribMissing);
  std::size_t bit = 11 * 8;  // the first bit of byte 12
  const std::uint8_t* data = bds.bytes.data();
  const std::size_t size = bds.size();
  for (std::size_t k = 0; k < points; ++k) {
    if (!present.empty() && !present[k]) continue;
    // A value of up to 32 bits lies within the 8 bytes from its first
    // byte: take them as one big-endian word, shift the value's bits to the
    // top, and keep `width` of them. Near the end of the section the bytes
    // past it read as 0; the count check above keeps every value's own bits
    // inside.
    std::uint64_t raw = 0;
    if (width > 0) {
      const std::size_t first = bit / 8;
      std::uint64_t word = 0;
      if (first + 8 <= size) {
        for (int b = 0; b < 8; ++b) word = word << 8 | data[first + static_cast<std::size_t>(b)];
      } else {
        for (std::size_t b = first; b < first + 8; ++b) word = word << 8 | (b < size ? data[b] : 0u);
      }
      raw = (word << (bit % 8)) >> (64 - width);
      bit += static_cast<std::size_t>(width);
    }
    double value = (reference + static_cast<double>(raw) * scale) / divisor;
    if (!std::isfinite(value) || std::fabs(value) > std::numeric_limits<float>::max())
      return Numbered(message, "a value is out of range");
    values[k] = static_cast<float>(value);
  }
  return {};
}

// The section that starts at pos inside a message ending at end: its
// length from its first 3 bytes, checked against the message.
struct SectionRead {
  Section section;
  std::string error;
};

SectionRead ReadSection(std::span<const std::uint8_t> bytes, std::size_t pos, std::size_t end, int message,
                        const char* name, const std::string& zeroMessage) {
  if (pos + 3 > end) return {{}, Numbered(message, std::string("the message ends before its ") + name)};
  std::size_t length = static_cast<std::size_t>(ThreeByteLength(bytes[pos], bytes[pos + 1], bytes[pos + 2]));
  if (length == 0) return {{}, zeroMessage};
  if (length > end - pos)
    return {{}, Numbered(message, std::string("the ") + name + " length of " + std::to_string(length) +
                                      " bytes runs past the end of the message")};
  return {{bytes.subspan(pos, length)}, {}};
}

}  // namespace

std::int32_t ThreeByteLength(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3) {
  return b1 * 65536 + b2 * 256 + b3;
}

GribReadResult DecodeGrib(std::span<const std::uint8_t> bytes) {
  GribReadResult result;
  auto fail = [&](std::string text) {
    result.ok = false;
    result.GribRecords.clear();
    result.message = std::move(text);
    return result;
  };
  std::size_t size = bytes.size();
  if (size == 0) return fail("Bad File - the file is empty");
  // The walk counts from 1 and runs until the position reaches the length,
  // so one stray byte after the last message is passed over.
  std::size_t pos = 0;
  int message = 0;
  while (pos + 1 < size) {
    ++message;
    if (size - pos < 8) return fail(Numbered(message, "the file ends inside the Indicator Section"));
    // The "GRIB" letters are not tested: the length and edition decide.
    std::size_t total = static_cast<std::size_t>(ThreeByteLength(bytes[pos + 4], bytes[pos + 5], bytes[pos + 6]));
    if (bytes[pos + 7] != 1) return fail(std::string("Grib file wrong edition number") + kCrLf + "Exiting routine");
    if (total == 0) return fail(Numbered(message, "the total length is 0"));
    if (total > size - pos)
      return fail(Numbered(message, "the total length of " + std::to_string(total) + " bytes runs past the end of the file (" +
                                        std::to_string(size - pos) + " bytes left)"));
    std::size_t end = pos + total;
    std::size_t at = pos + 8;

    GribRecord record;
    SectionRead pds = ReadSection(bytes, at, end, message, "Product Definition Section",
                                  std::string("Bad File - Product Definition Length = 0") + kCrLf + kExitReading);
    if (!pds.error.empty()) return fail(pds.error);
    if (std::string e = DecodePDS(pds.section, message, record); !e.empty()) return fail(e);
    at += pds.section.size();
    int present = pds.section[8];

    if (!(present & 128)) return fail(Numbered(message, "a grid given only by its catalogue number is not handled"));
    SectionRead gds = ReadSection(bytes, at, end, message, "Grid Description Section",
                                  std::string("Bad data - Grid Description Section Length = 0") + kCrLf + kExitReading);
    if (!gds.error.empty()) return fail(gds.error);
    if (std::string e = DecodeGDS(gds.section, message, record.Parameter, record.Grid); !e.empty()) return fail(e);
    at += gds.section.size();
    std::size_t points = static_cast<std::size_t>(record.Grid.Ni) * static_cast<std::size_t>(record.Grid.Nj);

    if (present & 64) {
      SectionRead bms = ReadSection(bytes, at, end, message, "Bitmap Section", "Bad data - Bitmap Description Length = 0");
      if (!bms.error.empty()) return fail(bms.error);
      if (std::string e = DecodeBMS(bms.section, message, points, record.Present); !e.empty()) return fail(e);
      record.HasBitmap = true;
      at += bms.section.size();
    }

    SectionRead bds = ReadSection(bytes, at, end, message, "Binary Data Section", "Bad File - Binary Data Section = 0");
    if (!bds.error.empty()) return fail(bds.error);
    if (std::string e = DecodeBDS(bds.section, message, record.Present, record.DecimalScale, points, record.Values);
        !e.empty())
      return fail(e);

    result.GribRecords.push_back(std::move(record));
    pos = end;
  }
  result.ok = true;
  return result;
}

GribReadResult ReadGribFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    GribReadResult result;
    result.message = "Cannot open the GRIB file " + file.string();
    return result;
  }
  std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return DecodeGrib(bytes);
}

GribPosition GribPointPosition(const GridSection& grid, std::size_t k) {
  std::size_t ni = static_cast<std::size_t>(std::max(grid.Ni, 1));
  std::size_t nj = static_cast<std::size_t>(std::max(grid.Nj, 1));
  std::size_t i = (grid.Scan & 32) ? k / nj : k % ni;
  std::size_t j = (grid.Scan & 32) ? k % nj : k / ni;
  bool west = grid.Scan & 128;
  bool north = grid.Scan & 64;
  double di = grid.Di;
  double dj = grid.Dj;
  // Increments not given (resolution flag clear, or all ones): from the
  // corners, the longitude span taken in the scanning direction across the
  // 0/360 seam.
  if (!(grid.Resolution & 128) || grid.Di >= 65.535f) {
    double span = static_cast<double>(grid.Lo2) - grid.Lo1;
    if (!west && span < 0) span += 360;
    if (west && span > 0) span -= 360;
    di = grid.Ni > 1 ? std::fabs(span) / (grid.Ni - 1) : 0;
  }
  if (!(grid.Resolution & 128) || grid.Dj >= 65.535f)
    dj = grid.Nj > 1 ? std::fabs(static_cast<double>(grid.La2) - grid.La1) / (grid.Nj - 1) : 0;
  GribPosition p;
  p.Lat = grid.La1 + (north ? 1.0 : -1.0) * static_cast<double>(j) * dj;
  p.Lon = grid.Lo1 + (west ? -1.0 : 1.0) * static_cast<double>(i) * di;
  // A grid across the meridian of Greenwich stored 0..360 (358 to 2) steps
  // on past 360: fold back to 0 so that the file's convention holds.
  if (p.Lon >= 360) p.Lon -= 360;
  if (p.Lon < -180) p.Lon += 360;
  return p;
}

std::string GribTimeUnitText(int code) {
  switch (code) {
    case 0: return "minute";
    case 1: return "hour";
    case 2: return "day";
    case 3: return "month";
    case 4: return "year";
    case 5: return "decade";
    case 6: return "normal";
    case 7: return "century";
    case 10: return "3 hours";
    case 11: return "6 hours";
    case 12: return "12 hours";
    case 13: return "15 minutes";
    case 14: return "30 minutes";
    case 254: return "second";
    default: return "unit " + std::to_string(code);
  }
}

}  // namespace kelvane
