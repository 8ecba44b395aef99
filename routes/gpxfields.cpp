#include "routes/gpxfields.h"

#include "core/format.h"

namespace kelvane {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The characters of `text` that may belong to a number, in order.
std::string NumberCharacters(std::string_view text) {
  std::string kept;
  for (char c : text)
    if (IsDigit(c) || c == '.' || c == '-') kept += c;
  return kept;
}

}  // namespace

void ParseGpxLine(std::string_view line, float& lat, float& lon, bool& valid) {
  valid = false;
  if (line.find('>') == std::string_view::npos) return;
  std::size_t at = line.find("lat");
  if (at == std::string_view::npos) return;
  std::string latText;
  std::string lonText;
  std::size_t i = at;
  for (; i < line.size() && line.compare(i, 3, "lon") != 0; ++i)
    if (IsDigit(line[i]) || line[i] == '.') latText += line[i];
  for (; i < line.size(); ++i)
    if (IsDigit(line[i]) || line[i] == '.' || line[i] == '-') lonText += line[i];
  if (latText.empty() || lonText.empty()) return;
  lat = static_cast<float>(TextValue(latText));
  lon = static_cast<float>(TextValue(lonText));
  valid = true;
}

GpxLineCoordinates ParseGpxLine(std::string_view line) {
  GpxLineCoordinates c;
  ParseGpxLine(line, c.lat, c.lon, c.valid);
  return c;
}

bool LatitudeFieldValid(std::string_view text) {
  if (text.empty()) return false;
  if (text.find_first_of("nNsS") == std::string_view::npos) return false;
  double value = TextValue(NumberCharacters(text));
  return value > -90.0 && value < 90.0;
}

bool LongitudeFieldValid(std::string_view text) {
  if (text.empty()) return false;
  if (text.find_first_of("eEwW") == std::string_view::npos) return false;
  std::string number = NumberCharacters(text);
  double value = TextValue(number);
  if (number.find('.') == std::string::npos && value == 0.0) return false;
  return value > -180.0 && value < 180.0;
}

std::string CsvField(std::string_view line, int number) {
  if (line.find(',') == std::string_view::npos) return "!";
  std::size_t start = 0;
  for (int k = 1; k < number; ++k) {
    std::size_t comma = line.find(',', start);
    if (comma == std::string_view::npos) return std::string();
    start = comma + 1;
  }
  std::size_t end = line.find(',', start);
  return std::string(line.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
}

std::string FirstCsvField(std::string_view line) { return CsvField(line, 1); }
std::string SecondCsvField(std::string_view line) { return CsvField(line, 2); }
std::string ThirdCsvField(std::string_view line) { return CsvField(line, 3); }
std::string FourthCsvField(std::string_view line) { return CsvField(line, 4); }
std::string FifthCsvField(std::string_view line) { return CsvField(line, 5); }

}  // namespace kelvane
