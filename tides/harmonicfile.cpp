#include "tides/harmonicfile.h"

#include <cctype>
#include <cstring>

namespace kelvane {
namespace {

// Offsets of the record (see the table in harmonicfile.h).
constexpr std::size_t kPortNo = 0, kPortNoWidth = 5;
constexpr std::size_t kName = 5, kNameRef = 35, kNameArea = 31;
constexpr std::size_t kSpare = 36;
constexpr std::size_t kLat = 40, kLon = 44, kZone = 48;
constexpr std::size_t kZ0 = 49;
constexpr std::size_t kDZ0 = 101, kMonthM2 = 149;

// The constituent singles from offset 53, in file order.
constexpr float HarmonicPortRecord::*kConstants[] = {
    &HarmonicPortRecord::M2g, &HarmonicPortRecord::M2Hm, &HarmonicPortRecord::S2g, &HarmonicPortRecord::S2Hm,
    &HarmonicPortRecord::K1g, &HarmonicPortRecord::K1Hm, &HarmonicPortRecord::O1g, &HarmonicPortRecord::O1Hm,
    &HarmonicPortRecord::f4,  &HarmonicPortRecord::F4,   &HarmonicPortRecord::f6,  &HarmonicPortRecord::F6};
constexpr std::size_t kFirstConstant = 53;

// The spare single is copied as four bytes, so that no pattern of bits (a
// signalling NaN included) is changed on its way back to the file.
float SpareFromBytes(const Bytes& bytes, std::size_t at) {
  std::uint8_t raw[4] = {0, 0, 0, 0};
  for (std::size_t i = 0; i < 4; ++i)
    if (at + i < bytes.size()) raw[i] = bytes[at + i];
  float value;
  std::memcpy(&value, raw, 4);
  return value;
}

}  // namespace

HarmonicPortRecord DecodeHarmonicRecord(const Bytes& bytes, std::size_t base, NameLayout layout) {
  RecordReader in(bytes, base);
  HarmonicPortRecord r;
  r.PortNo = TextFromFile(in.Text(kPortNo, kPortNoWidth));
  if (layout == NameLayout::kReference35) {
    r.PortName = TextFromFile(in.Text(kName, kNameRef));
  } else {
    r.PortName = TextFromFile(in.Text(kName, kNameArea));
    r.Spare = SpareFromBytes(bytes, base + kSpare);
  }
  r.Latitude = in.F32(kLat);
  r.Longitude = in.F32(kLon);
  r.TimeZone = TextFromFile(in.RawText(kZone, 1));
  r.Z0 = in.F32(kZ0);
  for (std::size_t i = 0; i < std::size(kConstants); ++i) r.*kConstants[i] = in.F32(kFirstConstant + 4 * i);
  for (std::size_t m = 0; m < 12; ++m) {
    r.dZ0[m] = in.F32(kDZ0 + 4 * m);
    r.MonthM2[m] = in.F32(kMonthM2 + 4 * m);
  }
  return r;
}

Bytes EncodeHarmonicRecord(const HarmonicPortRecord& r, NameLayout layout) {
  Bytes bytes(kHarmonicRecordSize, 0);
  RecordWriter out(bytes);
  out.Text(kPortNo, kPortNoWidth, r.PortNo);
  if (layout == NameLayout::kReference35) {
    out.Text(kName, kNameRef, r.PortName);
  } else {
    out.Text(kName, kNameArea, r.PortName);
    std::memcpy(bytes.data() + kSpare, &r.Spare, 4);
  }
  out.F32(kLat, r.Latitude);
  out.F32(kLon, r.Longitude);
  out.Text(kZone, 1, r.TimeZone);
  out.F32(kZ0, r.Z0);
  for (std::size_t i = 0; i < std::size(kConstants); ++i) out.F32(kFirstConstant + 4 * i, r.*kConstants[i]);
  for (std::size_t m = 0; m < 12; ++m) {
    out.F32(kDZ0 + 4 * m, r.dZ0[m]);
    out.F32(kMonthM2 + 4 * m, r.MonthM2[m]);
  }
  bytes.resize(kHarmonicRecordSize);
  return bytes;
}

int HarmonicRecordCount(const std::filesystem::path& file) {
  std::error_code ec;
  auto size = std::filesystem::file_size(file, ec);
  if (ec) return 0;
  return static_cast<int>(size / kHarmonicRecordSize);
}

std::optional<std::vector<HarmonicPortRecord>> ReadHarmonicFile(const std::filesystem::path& file,
                                                                NameLayout layout) {
  auto bytes = ReadFileBytes(file);
  if (!bytes) return std::nullopt;
  std::vector<HarmonicPortRecord> records;
  std::size_t count = bytes->size() / kHarmonicRecordSize;
  records.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    records.push_back(DecodeHarmonicRecord(*bytes, i * kHarmonicRecordSize, layout));
  return records;
}

std::optional<HarmonicPortRecord> ReadAreaRecord(const std::filesystem::path& file, int recordNo) {
  if (recordNo < 1) return std::nullopt;
  auto bytes = ReadFileBytes(file);
  if (!bytes) return std::nullopt;
  std::size_t base = static_cast<std::size_t>(recordNo - 1) * kHarmonicRecordSize;
  if (base + kHarmonicRecordSize > bytes->size()) return std::nullopt;
  return DecodeHarmonicRecord(*bytes, base, NameLayout::kArea31);
}

bool WriteAreaRecord(const std::filesystem::path& file, int recordNo, const HarmonicPortRecord& record) {
  if (recordNo < 1) return false;
  Bytes bytes;
  if (auto old = ReadFileBytes(file)) bytes = std::move(*old);
  std::size_t base = static_cast<std::size_t>(recordNo - 1) * kHarmonicRecordSize;
  if (bytes.size() < base + kHarmonicRecordSize) bytes.resize(base + kHarmonicRecordSize, 0);
  Bytes encoded = EncodeHarmonicRecord(record, NameLayout::kArea31);
  std::memcpy(bytes.data() + base, encoded.data(), kHarmonicRecordSize);
  return WriteFileAtomic(file, bytes);
}

std::optional<int> TimeZoneHours(std::string_view letter) {
  // The reader's tests in their order. The second "T" (3 hours) is never
  // reached because the first "T" answers first; it is kept so that the
  // table reads as the program has always read it.
  struct Row {
    char letter;
    int hours;
  };
  static constexpr Row kRows[] = {
      {'L', 0},   {'M', 11},  {'N', 10},  {'O', 9},   {'P', 8},   {'Q', 7},   {'R', 6},   {'T', 5},
      {'S', 4},   {'T', 3},   {'U', 2},   {'V', 1},   {'A', -1},  {'B', -2},  {'C', -3},  {'D', -4},
      {'E', -5},  {'F', -6},  {'G', -7},  {'H', -8},  {'I', -9},  {'J', -10}, {'K', -11},
  };
  if (letter.size() != 1) return std::nullopt;
  char c = static_cast<char>(std::toupper(static_cast<unsigned char>(letter[0])));
  for (const Row& row : kRows)
    if (row.letter == c) return row.hours;
  return std::nullopt;
}

}  // namespace kelvane
