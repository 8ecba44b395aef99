// The fixed-record waypoint and route files that came before GPX, and their
// conversion to GPX.
//
// Both are packed little-endian records, numbered from 1, with no header:
//
//   .way, 43 bytes            .rte, 47 bytes
//   0   35  Name, blank padded   0   35  Name, blank padded
//   35   4  Lat, single deg      35   4  Lat, single deg
//   39   4  Lon, single deg      39   4  Lon, single deg
//                                43   4  Speed, single, the leg speed
//
// The number of records is the file length divided by the record size; a
// trailing part of a record is not read.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/recordio.h"
#include "routes/gpx.h"

namespace kelvane {

inline constexpr std::size_t kWayRecordSize = 43;
inline constexpr std::size_t kRteRecordSize = 47;
inline constexpr std::size_t kLegacyNameWidth = 35;

struct WayRecord {
  std::string Name;  // without its trailing blanks
  float Lat = 0;
  float Lon = 0;
  bool operator==(const WayRecord&) const = default;
};

struct RteRecord {
  std::string Name;
  float Lat = 0;
  float Lon = 0;
  float Speed = 0;  // knots, the speed of the leg that starts here
  bool operator==(const RteRecord&) const = default;
};

std::vector<WayRecord> ReadWayRecords(const Bytes& bytes);
std::vector<RteRecord> ReadRteRecords(const Bytes& bytes);
Bytes WayRecordBytes(const std::vector<WayRecord>& records);
Bytes RteRecordBytes(const std::vector<RteRecord>& records);

// The intro of both conversion forms, line by line.
extern const char* const kConvertIntroLines[4];

// A .way file as a GPX waypoint file: one `wpt` per record with the
// coordinates in "0.000000000", the record's name, and the one description
// typed for all of them (sym is written empty). No records, no elements:
// the header and the footer only.
std::string WayRecordsToGpx(const std::vector<WayRecord>& records, std::string_view desc);

// A .rte file as a GPX route file (the route file form): one `rtept` per
// record; a blank name becomes "WAYPT" and the record number in "000".
std::string RteRecordsToGpx(const std::vector<RteRecord>& records);

// The outcome of a command that writes a file: the message to show, and
// whether the destination was written.
struct [[nodiscard]] FileCommandResult {
  bool ok = false;
  std::string message;
  std::filesystem::path written;
};

// Reads `source` and writes its conversion to `destination` atomically.
// Ends with "File saved to " and the path; a source that cannot be read
// leaves the destination unwritten.
FileCommandResult ConvertWayFileToGpx(const std::filesystem::path& source, const std::filesystem::path& destination,
                                      std::string_view desc);
FileCommandResult ConvertRteFileToGpx(const std::filesystem::path& source, const std::filesystem::path& destination);

}  // namespace kelvane
