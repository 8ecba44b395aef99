// The 197-byte harmonic constants record, its two name layouts, the files
// that carry it and the time-zone letters.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "support/tempdir.h"
#include "tides/harmonicfile.h"

namespace kelvane {
namespace {

namespace fs = std::filesystem;

using test::TempDir;

void WriteBytes(const fs::path& file, const Bytes& bytes) { test::WriteText(file, std::string(bytes.begin(), bytes.end())); }

// Little-endian IEEE single, spelled out byte by byte.
void Put(Bytes& b, std::size_t at, std::uint8_t b0, std::uint8_t b1, std::uint8_t b2, std::uint8_t b3) {
  b[at] = b0;
  b[at + 1] = b1;
  b[at + 2] = b2;
  b[at + 3] = b3;
}

// A record laid out by hand from the record table: port number "0089",
// name "DOVER", latitude 51.125 (0x424C8000), longitude 1.5 (0x3FC00000),
// zone "L", Z0 3.75 (0x40700000), M2g 330 (0x43A50000), M2Hm 2.25
// (0x40100000), F4 0.5 (0x3F000000), dZ0[0] -0.125 (0xBE000000), MonthM2[11]
// 2.5 (0x40200000); every other byte of the numbers zero, texts blank-padded.
Bytes HandMadeRecord() {
  Bytes b(197, 0);
  std::memcpy(b.data(), "0089 DOVER", 10);
  for (std::size_t i = 10; i < 40; ++i) b[i] = ' ';
  Put(b, 40, 0x00, 0x80, 0x4C, 0x42);
  Put(b, 44, 0x00, 0x00, 0xC0, 0x3F);
  b[48] = 'L';
  Put(b, 49, 0x00, 0x00, 0x70, 0x40);
  Put(b, 53, 0x00, 0x00, 0xA5, 0x43);
  Put(b, 57, 0x00, 0x00, 0x10, 0x40);
  Put(b, 89, 0x00, 0x00, 0x00, 0x3F);
  Put(b, 101, 0x00, 0x00, 0x00, 0xBE);
  Put(b, 149 + 44, 0x00, 0x00, 0x20, 0x40);
  return b;
}

TEST(HarmonicRecord, DecodesTheHandMadeBytesInBothLayouts) {
  const Bytes bytes = HandMadeRecord();
  for (NameLayout layout : {NameLayout::kReference35, NameLayout::kArea31}) {
    SCOPED_TRACE(layout == NameLayout::kReference35 ? "35" : "31");
    const HarmonicPortRecord r = DecodeHarmonicRecord(bytes, 0, layout);
    EXPECT_EQ(r.PortNo, "0089");
    EXPECT_EQ(r.PortName, "DOVER");
    EXPECT_EQ(r.Latitude, 51.125f);
    EXPECT_EQ(r.Longitude, 1.5f);
    EXPECT_EQ(r.TimeZone, "L");
    EXPECT_EQ(r.Z0, 3.75f);
    EXPECT_EQ(r.M2g, 330.0f);
    EXPECT_EQ(r.M2Hm, 2.25f);
    EXPECT_EQ(r.S2g, 0.0f);
    EXPECT_EQ(r.F4, 0.5f);
    EXPECT_EQ(r.dZ0[0], -0.125f);
    EXPECT_EQ(r.MonthM2[11], 2.5f);
    // Blank bytes 36..39 as a single: 0x20202020.
    if (layout == NameLayout::kArea31) {
      EXPECT_EQ(r.Spare, 1.3563156e-19f);
    }
  }
}

TEST(HarmonicRecord, EncodesTheSameBytes) {
  const Bytes bytes = HandMadeRecord();
  for (NameLayout layout : {NameLayout::kReference35, NameLayout::kArea31}) {
    SCOPED_TRACE(layout == NameLayout::kReference35 ? "35" : "31");
    EXPECT_EQ(EncodeHarmonicRecord(DecodeHarmonicRecord(bytes, 0, layout), layout), bytes);
  }
}

TEST(HarmonicRecord, TheTwoLayoutsDisagreeOverBytes36To39) {
  // A 35-character reference name read by the area reader: the first 31
  // characters are the name, the last four are the spare single.
  Bytes bytes = HandMadeRecord();
  std::memcpy(bytes.data() + 5, "LONDON BRIDGE (TOWER PIER) ABCDEFGH", 35);
  const HarmonicPortRecord ref = DecodeHarmonicRecord(bytes, 0, NameLayout::kReference35);
  const HarmonicPortRecord area = DecodeHarmonicRecord(bytes, 0, NameLayout::kArea31);
  EXPECT_EQ(ref.PortName, "LONDON BRIDGE (TOWER PIER) ABCDEFGH");
  EXPECT_EQ(area.PortName, "LONDON BRIDGE (TOWER PIER) ABCD");
  float efgh;
  std::memcpy(&efgh, "EFGH", 4);
  EXPECT_EQ(std::memcmp(&area.Spare, &efgh, 4), 0);
  // Both agree from offset 40 on.
  EXPECT_EQ(ref.Latitude, area.Latitude);
  EXPECT_EQ(ref.MonthM2, area.MonthM2);
}

TEST(HarmonicRecord, AShortRecordReadsAsFarAsItGoes) {
  Bytes bytes = HandMadeRecord();
  bytes.resize(51);  // up to the middle of Z0
  const HarmonicPortRecord r = DecodeHarmonicRecord(bytes, 0, NameLayout::kArea31);
  EXPECT_EQ(r.PortName, "DOVER");
  EXPECT_EQ(r.Longitude, 1.5f);
  EXPECT_EQ(r.Z0, 0.0f);  // two of its bytes missing: the zero bytes read 0
  EXPECT_EQ(r.MonthM2[11], 0.0f);
}

TEST(AreaFile, RewritingARecordKeepsTheSpareSingleAsRead) {
  TempDir dir;
  const fs::path file = dir.path / "area.hc";
  Bytes bytes = HandMadeRecord();
  Put(bytes, 36, 0x01, 0x00, 0xA0, 0x7F);  // a signalling NaN: its bits must survive
  Bytes two = bytes;
  two.insert(two.end(), bytes.begin(), bytes.end());
  WriteBytes(file, two);
  auto record = ReadAreaRecord(file, 2);
  ASSERT_TRUE(record);
  record->Z0 = 4.0f;  // 0x40800000
  ASSERT_TRUE(WriteAreaRecord(file, 2, *record));
  auto after = ReadFileBytes(file);
  ASSERT_TRUE(after);
  ASSERT_EQ(after->size(), 394u);
  Bytes expected = two;
  Put(expected, 197 + 49, 0x00, 0x00, 0x80, 0x40);
  EXPECT_EQ(*after, expected);
}

TEST(AreaFile, WritingPastTheEndFillsTheGapWithZeros) {
  TempDir dir;
  const fs::path file = dir.path / "area.hc";
  WriteBytes(file, HandMadeRecord());
  ASSERT_TRUE(WriteAreaRecord(file, 3, DecodeHarmonicRecord(HandMadeRecord(), 0, NameLayout::kArea31)));
  auto after = ReadFileBytes(file);
  ASSERT_TRUE(after);
  ASSERT_EQ(after->size(), 3u * 197u);
  for (std::size_t i = 197; i < 394; ++i) ASSERT_EQ((*after)[i], 0) << i;
  EXPECT_EQ(ReadAreaRecord(file, 3)->PortName, "DOVER");
  EXPECT_FALSE(WriteAreaRecord(file, 0, HarmonicPortRecord{}));
}

TEST(AreaFile, ALengthNotAMultipleOf197GivesTheWholeRecordsOnly) {
  TempDir dir;
  const fs::path file = dir.path / "torn.hc";
  Bytes bytes = HandMadeRecord();
  Bytes file3 = bytes;
  file3.insert(file3.end(), bytes.begin(), bytes.end());
  file3.insert(file3.end(), bytes.begin(), bytes.begin() + 196);  // one byte short of three
  WriteBytes(file, file3);
  EXPECT_EQ(HarmonicRecordCount(file), 2);
  auto all = ReadHarmonicFile(file, NameLayout::kArea31);
  ASSERT_TRUE(all);
  EXPECT_EQ(all->size(), 2u);
  EXPECT_TRUE(ReadAreaRecord(file, 2));
  EXPECT_FALSE(ReadAreaRecord(file, 3));
  EXPECT_FALSE(ReadHarmonicFile(dir.path / "missing.hc", NameLayout::kArea31));
  EXPECT_EQ(HarmonicRecordCount(dir.path / "missing.hc"), 0);
}

TEST(TimeZoneLetters, ReadAsTheEditorShowsThem) {
  struct Case {
    const char* letter;
    std::optional<int> hours;
  };
  const Case cases[] = {
      {"L", 0},  {"V", 1},  {"U", 2},  {"S", 4},  {"T", 5},  {"R", 6},  {"Q", 7},  {"P", 8},
      {"O", 9},  {"N", 10}, {"M", 11}, {"A", -1}, {"B", -2}, {"C", -3}, {"D", -4}, {"E", -5},
      {"F", -6}, {"G", -7}, {"H", -8}, {"I", -9}, {"J", -10}, {"K", -11},
      {"l", 0},  {"t", 5},  {"a", -1},
      // No letter reads as 3: the second test of "T" never succeeds.
      {"W", std::nullopt}, {"Z", std::nullopt}, {" ", std::nullopt}, {"", std::nullopt}, {"LL", std::nullopt},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.letter);
    EXPECT_EQ(TimeZoneHours(c.letter), c.hours);
  }
  for (char c = 'A'; c <= 'Z'; ++c) EXPECT_NE(TimeZoneHours(std::string(1, c)), 3) << c;
}

TEST(InstalledData, DoverIsRecord76OfTheUKAreaAndTheFilesAreWholeRecords) {
  const fs::path data = fs::path(KELVANE_SOURCE_DIR) / "data";
  auto uk = ReadHarmonicFile(data / "TS" / "UK.hc", NameLayout::kArea31);
  auto ref = ReadHarmonicFile(data / "Refports.hc", NameLayout::kReference35);
  ASSERT_TRUE(uk);
  ASSERT_TRUE(ref);
  EXPECT_EQ(fs::file_size(data / "TS" / "UK.hc") % 197, 0u);
  EXPECT_EQ(fs::file_size(data / "Refports.hc") % 197, 0u);
  EXPECT_GE(uk->size(), 50u);
  ASSERT_GE(uk->size(), 76u);
  const HarmonicPortRecord& dover = (*uk)[75];
  EXPECT_EQ(dover.PortName, "Dover");
  EXPECT_EQ(dover.PortNo, "0089");
  EXPECT_EQ(dover.TimeZone, "L");
  // Published values for Dover (Admiralty): mean level about 3.7 m above
  // chart datum, M2 about 2.2 m with g about 330 degrees, S2 about 0.7 m.
  EXPECT_NEAR(dover.Z0, 3.7, 0.15);
  EXPECT_NEAR(dover.M2Hm, 2.24, 0.05);
  EXPECT_NEAR(dover.M2g, 332, 5);
  EXPECT_NEAR(dover.S2Hm, 0.70, 0.05);
  EXPECT_NEAR(dover.Latitude, 51.11, 0.02);
  for (float m2 : dover.MonthM2) EXPECT_NEAR(m2, dover.M2Hm, 0.1);
  // Refports.hc: the 35-character names, Dover among them, US ports at the end.
  bool foundDover = false;
  for (const HarmonicPortRecord& r : *ref) foundDover |= (r.PortName == "DOVER" && r.PortNo == "0089");
  EXPECT_TRUE(foundDover);
  EXPECT_EQ(ref->back().TimeZone, "T");
  for (const auto* list : {&*uk, &*ref})
    for (const HarmonicPortRecord& r : *list) {
      SCOPED_TRACE(r.PortName);
      EXPECT_TRUE(TimeZoneHours(r.TimeZone));
      EXPECT_TRUE(std::isfinite(r.Z0) && r.Z0 > 0 && r.Z0 < 8);
      EXPECT_TRUE(r.M2Hm >= 0 && r.M2Hm < 5);
    }
}

}  // namespace
}  // namespace kelvane
