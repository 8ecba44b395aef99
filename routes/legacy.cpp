#include "routes/legacy.h"

#include "core/format.h"
#include "routes/gpxwrite.h"

namespace kelvane {

const char* const kConvertIntroLines[4] = {
    "This version of Kelvane uses a more convenient exchangeable format (gpx) for storing its routes and waypoints.",
    "This utility allows conversion between the previous .way format to gpx format.",
    "Click on an existing file and the conversion takes place. If required a description can be entered into the "
    "<desc> field",
    "Click on the save button to complete the process",
};

std::vector<WayRecord> ReadWayRecords(const Bytes& bytes) {
  std::vector<WayRecord> records;
  std::size_t n = bytes.size() / kWayRecordSize;
  records.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    RecordReader r(bytes, i * kWayRecordSize);
    records.push_back({r.Text(0, kLegacyNameWidth), r.F32(35), r.F32(39)});
  }
  return records;
}

std::vector<RteRecord> ReadRteRecords(const Bytes& bytes) {
  std::vector<RteRecord> records;
  std::size_t n = bytes.size() / kRteRecordSize;
  records.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    RecordReader r(bytes, i * kRteRecordSize);
    records.push_back({r.Text(0, kLegacyNameWidth), r.F32(35), r.F32(39), r.F32(43)});
  }
  return records;
}

Bytes WayRecordBytes(const std::vector<WayRecord>& records) {
  Bytes bytes;
  bytes.reserve(records.size() * kWayRecordSize);
  for (std::size_t i = 0; i < records.size(); ++i) {
    RecordWriter w(bytes, i * kWayRecordSize);
    w.Text(0, kLegacyNameWidth, records[i].Name);
    w.F32(35, records[i].Lat);
    w.F32(39, records[i].Lon);
  }
  return bytes;
}

Bytes RteRecordBytes(const std::vector<RteRecord>& records) {
  Bytes bytes;
  bytes.reserve(records.size() * kRteRecordSize);
  for (std::size_t i = 0; i < records.size(); ++i) {
    RecordWriter w(bytes, i * kRteRecordSize);
    w.Text(0, kLegacyNameWidth, records[i].Name);
    w.F32(35, records[i].Lat);
    w.F32(39, records[i].Lon);
    w.F32(43, records[i].Speed);
  }
  return bytes;
}

std::string WayRecordsToGpx(const std::vector<WayRecord>& records, std::string_view desc) {
  std::string out = GpxHeader();
  for (const WayRecord& r : records)
    out += WaypointToGpx(FormatNumber(r.Lat, "0.000000000"), FormatNumber(r.Lon, "0.000000000"), r.Name, desc, "");
  out += GpxFooter();
  return out;
}

std::string RteRecordsToGpx(const std::vector<RteRecord>& records) {
  std::vector<RouteFilePoint> points;
  points.reserve(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    RouteFilePoint p;
    p.Lat = records[i].Lat;
    p.Lon = records[i].Lon;
    p.Name = records[i].Name;
    if (p.Name.find_first_not_of(' ') == std::string::npos) p.Name = "WAYPT" + FormatNumber(static_cast<int>(i + 1), "000");
    points.push_back(std::move(p));
  }
  return RouteFileText(points);
}

namespace {

FileCommandResult WriteConverted(const std::filesystem::path& destination, const std::string& text) {
  FileCommandResult result;
  if (!WriteFileAtomic(destination, text)) {
    result.message = "Unable to write " + destination.string();
    return result;
  }
  result.ok = true;
  result.written = destination;
  result.message = "File saved to " + destination.string();
  return result;
}

}  // namespace

FileCommandResult ConvertWayFileToGpx(const std::filesystem::path& source, const std::filesystem::path& destination,
                                      std::string_view desc) {
  std::optional<Bytes> bytes = ReadFileBytes(source);
  if (!bytes) return {false, "Unable to read " + source.string(), {}};
  return WriteConverted(destination, WayRecordsToGpx(ReadWayRecords(*bytes), desc));
}

FileCommandResult ConvertRteFileToGpx(const std::filesystem::path& source, const std::filesystem::path& destination) {
  std::optional<Bytes> bytes = ReadFileBytes(source);
  if (!bytes) return {false, "Unable to read " + source.string(), {}};
  return WriteConverted(destination, RteRecordsToGpx(ReadRteRecords(*bytes)));
}

}  // namespace kelvane
