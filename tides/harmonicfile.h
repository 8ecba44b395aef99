// Harmonic constants of ports: the 197-byte record and the two kinds of
// file that carry it.
//
// Every tide height the program gives comes from one HarmonicPortRecord: the
// mean level Z0 above chart datum, the four constituents of the simplified
// harmonic method (M2, S2, K1, O1) with their phase lags g (degrees, referred
// to the port's zone time) and amplitudes Hm (metres), the shallow-water
// terms f4/F4 and f6/F6, and twelve monthly values each of the change of
// mean level and of the M2 amplitude.
//
// Refports.hc (in the program folder) holds the standard ports that the
// tidal diamonds name by record number. An area file, TS/<name>.hc, holds
// the ports of the tide window. Both are headerless runs of 197-byte
// records, little-endian IEEE singles, record numbers from 1; the record
// count is the file length / 197, truncated, so a torn tail is ignored.
//
// The name field is read in two ways, and both are kept: the reference-port
// reader takes 35 characters at offset 5, the area-file readers and writer
// take 31 characters and a spare single at offset 36 that nothing uses and
// that is written back exactly as it was read.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/recordio.h"

namespace kelvane {

inline constexpr std::size_t kHarmonicRecordSize = 197;

// Which reading of bytes 5..39 to use.
enum class NameLayout {
  kReference35,  // Refports.hc: 35-character name, no spare
  kArea31,       // area files: 31-character name, spare single at 36
};

struct HarmonicPortRecord {
  std::string PortNo;     // offset 0, 5 characters: UKHO number ("0089", "0036A")
  std::string PortName;   // offset 5, 35 or 31 characters, trailing blanks removed
  float Spare = 0;        // offset 36, area layout only; never used, kept bit for bit
  float Latitude = 0;     // offset 40, signed degrees, north positive
  float Longitude = 0;    // offset 44, signed degrees, east positive
  std::string TimeZone;   // offset 48, one letter (see TimeZoneHours)
  float Z0 = 0;           // offset 49, mean level above chart datum, metres
  float M2g = 0, M2Hm = 0;  // 53, 57
  float S2g = 0, S2Hm = 0;  // 61, 65
  float K1g = 0, K1Hm = 0;  // 69, 73
  float O1g = 0, O1Hm = 0;  // 77, 81
  float f4 = 0, F4 = 0;     // 85, 89: quarter-diurnal phase (deg) and coefficient (1/m)
  float f6 = 0, F6 = 0;     // 93, 97: sixth-diurnal phase (deg) and coefficient (1/m^2)
  std::array<float, 12> dZ0{};      // 101: monthly change of mean level, January first, metres
  std::array<float, 12> MonthM2{};  // 149: monthly M2 Hm, January first, metres
};

// Decodes the record that starts at `base`. Bytes past the end of a short
// buffer read as zero (numbers) or blanks (texts): a short record is read as
// far as it goes. Texts are taken as Windows-1252 unless already UTF-8.
HarmonicPortRecord DecodeHarmonicRecord(const Bytes& bytes, std::size_t base, NameLayout layout);

// The 197 bytes of a record. In the 35-character layout the spare is not
// written (the name covers its bytes).
Bytes EncodeHarmonicRecord(const HarmonicPortRecord& record, NameLayout layout);

// Whole records in a file: length / 197, truncated. 0 for a missing file.
int HarmonicRecordCount(const std::filesystem::path& file);

// Every whole record of a file, record 1 first. Empty optional when the file
// cannot be opened.
std::optional<std::vector<HarmonicPortRecord>> ReadHarmonicFile(const std::filesystem::path& file,
                                                                NameLayout layout);

// Record `recordNo` (from 1) of an area file in the 31-character layout.
// Empty when the file cannot be opened or the record is not there.
std::optional<HarmonicPortRecord> ReadAreaRecord(const std::filesystem::path& file, int recordNo);

// Writes record `recordNo` (from 1) of an area file in the 31-character
// layout, leaving every other byte of the file as it was. A number past the
// end extends the file, with zero bytes in any gap, as a random-access Put
// does. The file is replaced atomically. False when recordNo < 1 or the
// file cannot be written.
bool WriteAreaRecord(const std::filesystem::path& file, int recordNo, const HarmonicPortRecord& record);

// Hours of a time-zone letter, case-insensitive, as the constants editor
// shows them: L 0, V 1, U 2, S 4, T 5, R 6, Q 7, P 8, O 9, N 10, M 11, and
// A to K for -1 to -11. The reader tests "T" before "S" and then "T" a
// second time for 3; that test can never succeed, so no letter reads as 3.
// An unknown letter gives nothing, and the editor leaves its text as it was.
std::optional<int> TimeZoneHours(std::string_view letter);

}  // namespace kelvane
