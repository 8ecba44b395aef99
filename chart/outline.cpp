#include "chart/outline.h"

#include <cmath>

#include "core/recordio.h"

namespace kelvane {

bool IsOutlineBreak(const Position& p) { return p.lat >= kOutlineBreakLat; }

OutlineData ReadOutlineBytes(std::span<const std::uint8_t> bytes) {
  OutlineData data;
  Bytes copy(bytes.begin(), bytes.end());
  RecordReader reader(copy);
  std::size_t records = copy.size() / 8;
  data.points.reserve(records);
  for (std::size_t i = 0; i < records; ++i) {
    Position p{reader.F32(i * 8), reader.F32(i * 8 + 4)};
    if (!std::isfinite(p.lat) || !std::isfinite(p.lon)) p = Position{90.0f, 0.0f};
    bool isBreak = IsOutlineBreak(p);
    // A leading run of breaks becomes one entry; later breaks are kept as
    // they stand, one entry each.
    if (isBreak && !data.points.empty() && data.points.size() == 1 && IsOutlineBreak(data.points[0])) continue;
    data.points.push_back(p);
  }
  return data;
}

OutlineData ReadOutlineFile(const std::filesystem::path& file) {
  auto bytes = ReadFileBytes(file, 256u * 1024 * 1024);
  if (!bytes) return OutlineData{{}, "The outline file " + file.string() + " could not be read"};
  return ReadOutlineBytes(*bytes);
}

std::string WriteOutlineFile(const std::filesystem::path& file, const std::vector<Position>& points) {
  Bytes bytes;
  RecordWriter writer(bytes);
  for (std::size_t i = 0; i < points.size(); ++i) {
    writer.F32(i * 8, points[i].lat);
    writer.F32(i * 8 + 4, points[i].lon);
  }
  return WriteFileAtomic(file, bytes) ? "" : "The outline file " + file.string() + " could not be written";
}

std::vector<std::vector<Position>> OutlinePolylines(const std::vector<Position>& points) {
  std::vector<std::vector<Position>> lines;
  std::vector<Position> run;
  auto flush = [&] {
    if (run.size() >= 2) lines.push_back(std::move(run));
    run.clear();
  };
  for (const Position& p : points) {
    if (IsOutlineBreak(p)) {
      flush();
    } else {
      run.push_back(p);
    }
  }
  flush();
  return lines;
}

void ShiftOutline(std::vector<Position>& points, float dLat, float dLon) {
  for (Position& p : points) {
    if (IsOutlineBreak(p)) continue;
    p.lat += dLat;
    p.lon += dLon;
  }
}

}  // namespace kelvane
