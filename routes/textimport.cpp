#include "routes/textimport.h"

#include <algorithm>

#include "core/format.h"
#include "core/text.h"
#include "routes/gpxfields.h"

namespace kelvane {

namespace {

// Degrees before the first point, minutes after it, in degrees.
float DegreesAndMinutes(std::string_view text, char negative) {
  std::size_t point = text.find('.');
  double value = point == std::string_view::npos
                     ? TextValue(text)
                     : TextValue(text.substr(0, point)) + TextValue(text.substr(point + 1)) / 60.0;
  float result = static_cast<float>(value);
  if (text.find(negative) != std::string_view::npos) result = -result;
  return result;
}

}  // namespace

std::vector<std::string> TextLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find_first_of("\r\n", start);
    if (end == std::string_view::npos) {
      lines.emplace_back(text.substr(start));
      break;
    }
    lines.emplace_back(text.substr(start, end - start));
    start = end + 1;
    if (text[end] == '\r' && start < text.size() && text[start] == '\n') ++start;
  }
  return lines;
}

std::string ValidateImportLines(const std::vector<std::string>& lines, TextImportKind kind) {
  const long commas = kind == TextImportKind::Route ? 3 : 2;
  for (const std::string& line : lines) {
    if (TrimBlanks(line).empty() || std::count(line.begin(), line.end(), ',') < commas) return "File contains invalid lines";
  }
  return std::string();
}

float ImportLatitude(std::string_view text) { return DegreesAndMinutes(text, 'S'); }
float ImportLongitude(std::string_view text) { return DegreesAndMinutes(text, 'W'); }

WayRecord ImportWayLine(std::string_view line) {
  WayRecord r;
  std::size_t comma = line.find(',');
  r.Name = CutUtf8(TrimBlanks(line.substr(0, comma)), kLegacyNameWidth);
  r.Lat = ImportLatitude(SecondCsvField(line));
  r.Lon = ImportLongitude(ThirdCsvField(line));
  return r;
}

RteRecord ImportRteLine(std::string_view line) {
  WayRecord w = ImportWayLine(line);
  return {w.Name, w.Lat, w.Lon, static_cast<float>(TextValue(FourthCsvField(line)))};
}

TextImportResult ImportTextLines(const std::vector<std::string>& lines, const std::filesystem::path& destination,
                                 TextImportKind kind) {
  TextImportResult result;
  if (destination.filename().empty()) {
    result.message = "Select valid name for destination file.";
    return result;
  }
  if (lines.empty()) {
    result.message = "Nothing to Import";
    return result;
  }
  std::filesystem::path file = destination;
  file += kind == TextImportKind::Route ? ".rte" : ".way";
  Bytes bytes;
  if (kind == TextImportKind::Route) {
    for (const std::string& line : lines) result.route.push_back(ImportRteLine(line));
    bytes = RteRecordBytes(result.route);
  } else {
    std::vector<WayRecord> records;
    for (const std::string& line : lines) records.push_back(ImportWayLine(line));
    bytes = WayRecordBytes(records);
  }
  if (!WriteFileAtomic(file, bytes)) {
    result.route.clear();
    result.message = "Unable to write " + file.string();
    return result;
  }
  result.ok = true;
  result.written = file;
  result.message = kind == TextImportKind::Route ? "Route saved - Press 'Exit' when finished"
                                                 : "Waypoints saved - Press 'Exit' when finished";
  return result;
}

std::vector<std::string> ReadTextFileLines(const std::filesystem::path& path, bool* readable) {
  std::optional<Bytes> bytes = ReadFileBytes(path);
  if (readable) *readable = bytes.has_value();
  if (!bytes) return {};
  std::string raw(bytes->begin(), bytes->end());
  return TextLines(TextFromFile(raw));
}

}  // namespace kelvane
