// Small text helpers of the waypoint files and forms: the line scanner of
// GPX text, the validators of typed positions, and the comma-field cutters.
#pragma once

#include <string>
#include <string_view>

namespace kelvane {

// Reads the coordinates of a `<wpt ...>` or `<rtept ...>` line without an
// XML parser, as the hazard reader does. The line must hold ">". From the
// first "lat" on, the digits and "." met before "lon" are the latitude text
// (a "-" there is not taken: a southern latitude reads as northern); from
// "lon" to the end of the line, digits, "." and "-" are the longitude text.
// Valid when both texts are non-empty; lat and lon are then their values.
// On an invalid line lat and lon are left as they were.
struct GpxLineCoordinates {
  float lat = 0;
  float lon = 0;
  bool valid = false;
};
void ParseGpxLine(std::string_view line, float& lat, float& lon, bool& valid);
GpxLineCoordinates ParseGpxLine(std::string_view line);

// The validators of the position boxes, "DD.mm.ddN" and "DDD.mm.dddE".
// A latitude text must hold one of "n", "N", "s", "S" and its number (the
// digits, "." and "-" in it, read as far as they form a number: "50.25.41N"
// gives 50.25) must lie strictly between -90 and 90, so 90 itself fails. A
// longitude text must hold one of "e", "E", "w", "W"; a number text without
// a point whose value is 0 is refused, and the number must lie strictly
// between -180 and 180. An empty text is invalid.
bool LatitudeFieldValid(std::string_view text);
bool LongitudeFieldValid(std::string_view text);

// The numbered comma-separated field of a line. A line with no comma at all
// gives "!" for every field. A field the line does not reach comes back
// empty; the last field runs to the end of the line.
std::string FirstCsvField(std::string_view line);
std::string SecondCsvField(std::string_view line);
std::string ThirdCsvField(std::string_view line);
std::string FourthCsvField(std::string_view line);
std::string FifthCsvField(std::string_view line);
// The same for any field from 1.
std::string CsvField(std::string_view line, int number);

}  // namespace kelvane
