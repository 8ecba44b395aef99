// Tidal diamonds: the charted points that carry a stream table.
//
// A diamond tabulates the stream for each hour from six hours before to six
// hours after high water at its reference port, at springs and at neaps.
// The record is 49 singles, 196 bytes, the same in memory and in a stream
// file (.l25):
//
//   offset  0  chartNumber   number of the chart the diamond belongs to
//           4  DiaRef        the diamond's reference on that chart
//           8  RefPort       record number of its port in Refports.hc
//          12  Sprange       the port's spring range for this diamond, metres
//          16  Nprange       the neap range, metres
//          20  lat           signed decimal degrees
//          24  Lon           signed decimal degrees
//          28  Rates[14][3]  the table; slot varies fastest, so the value of
//                            (slot, row) lies at 28 + 4 x (slot + 14 x row)
//
// Slot 0 of each row is unused. Slot n (1..13) is n - 7 hours from high
// water: slot 1 is HW-6, slot 7 HW, slot 13 HW+6. Row 0 is the direction the
// water flows towards, degrees true; row 1 the spring rate and row 2 the
// neap rate, knots. A slot whose three values sum to zero has no data.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/recordio.h"

namespace kelvane {

inline constexpr std::size_t kDiamondBytes = 196;
inline constexpr int kDiamondSlots = 14;  // 0 unused, 1..13 = HW-6 .. HW+6
inline constexpr int kRowDirection = 0;
inline constexpr int kRowSpring = 1;
inline constexpr int kRowNeap = 2;

struct Diamond {
  float chartNumber = 0;
  float DiaRef = 0;
  float RefPort = 0;
  float Sprange = 0;
  float Nprange = 0;
  float lat = 0;
  float Lon = 0;
  // Rates[row][slot]: the row-major view of the file's slot-fastest order.
  std::array<std::array<float, kDiamondSlots>, 3> Rates{};

  float& Rate(int slot, int row) { return Rates[static_cast<std::size_t>(row)][static_cast<std::size_t>(slot)]; }
  float Rate(int slot, int row) const { return Rates[static_cast<std::size_t>(row)][static_cast<std::size_t>(slot)]; }
  bool operator==(const Diamond&) const = default;
};

// One record from bytes at `base` (a short buffer reads as zeros past its
// end), and the 196 bytes of a record.
Diamond DiamondFromBytes(const Bytes& bytes, std::size_t base = 0);
Bytes DiamondToBytes(const Diamond& diamond);

// Every whole record of a stream file's bytes: the count is the length /
// 196, truncated, so a torn last record is dropped without a message.
std::vector<Diamond> DiamondsFromBytes(const Bytes& bytes);

// ProgramFolder/TS/<name>.l25, the name trimmed of blanks.
std::filesystem::path StreamFilePath(const std::filesystem::path& programFolder, std::string_view name);

struct [[nodiscard]] StreamFileRead {
  std::vector<Diamond> diamonds;
  std::string message;  // "" when the file was read
  bool ok() const { return message.empty(); }
};

// ReadStreamFile: every record of ProgramFolder/TS/<Name>.l25. A file that
// cannot be read gives no diamonds and the message
// "Stream file " <path> CRLF "cannot be read.".
StreamFileRead ReadStreamFile(const std::filesystem::path& programFolder, std::string_view name);

// Writes the diamonds as a stream file, replacing it atomically. False when
// the file could not be written (the old one is then untouched).
bool WriteStreamFile(const std::filesystem::path& file, const std::vector<Diamond>& diamonds);

// The columns of the area database's `diamonds` table in the order they
// fill the record: chartNumber, DiaRef, lat, Lon, RefPort, NPRange,
// SPRange, then direction, spring and neap of each slot from M6 to P6
// (dirM6, spM6, npm6, ... dirp6, spP6, npP6).
const std::vector<std::string>& DiamondColumns();

struct [[nodiscard]] DiamondsRead {
  std::vector<Diamond> diamonds;
  std::string message;  // "" on success
  bool ok() const { return message.empty(); }
};

// ReadDiamondsFromDatabase: "SELECT * FROM diamonds" on
// ProgramFolder/Charts/<area>.l35, each row into a record by column name.
// A database or table that cannot be read gives no diamonds and the
// storage layer's message.
DiamondsRead ReadDiamondsFromDatabase(const std::filesystem::path& programFolder, std::string_view area);
DiamondsRead ReadDiamondsFromDatabaseFile(const std::filesystem::path& database);

// The values of a record in the order of DiamondColumns(), for writers of
// the table.
std::vector<double> DiamondColumnValues(const Diamond& diamond);

}  // namespace kelvane
