// Import of waypoints and routes from plain text, one point a line:
//
//   waypoints   <name>,<latitude>,<longitude>
//   routes      <name>,<latitude>,<longitude>,<speed>
//
// A position is degrees, a point, and decimal minutes behind it, with the
// hemisphere letter anywhere: "50.30.5N" is 50 degrees 30.5 minutes north.
// The result is a legacy .way or .rte file.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "routes/legacy.h"

namespace kelvane {

enum class TextImportKind { Waypoints, Route };

// The lines of a text file, without their CR LF or LF. A line end at the
// very end of the text does not make one more (empty) line.
std::vector<std::string> TextLines(std::string_view text);

// The check made when a file is opened: every line holds the commas its
// kind needs (two for waypoints, three for a route) and no line is blank.
// "File contains invalid lines" on failure, empty when the file is fit.
std::string ValidateImportLines(const std::vector<std::string>& lines, TextImportKind kind);

// The position text of an import line in degrees. The text is split at its
// first "."; the left part is whole degrees and all that stands behind the
// point is read as decimal minutes, so "50.30.5N" is 50 + 30.5 / 60. With no
// point the whole text is degrees. Any "S" (latitude) or "W" (longitude)
// negates the value; "N" and "E" do nothing. The sign is not carried into
// the minutes: "-50.30" is -50 + 0.5.
float ImportLatitude(std::string_view text);
float ImportLongitude(std::string_view text);

// One line as a record: the name is the trimmed text before the first
// comma, cut to 35 characters; the speed of a route line is its fourth field.
WayRecord ImportWayLine(std::string_view line);
RteRecord ImportRteLine(std::string_view line);

// The import command: checks the destination ("Select valid name for
// destination file." when it has no name) and the source ("Nothing to
// Import" when there are no lines), appends ".way" or ".rte", and writes one
// record per line in list order. Ends with "Waypoints saved - Press 'Exit'
// when finished" or "Route saved - Press 'Exit' when finished". `route`
// receives the records of a route import, for the chart's route.
struct [[nodiscard]] TextImportResult : FileCommandResult {
  std::vector<RteRecord> route;
};
TextImportResult ImportTextLines(const std::vector<std::string>& lines, const std::filesystem::path& destination,
                                 TextImportKind kind);

// Reads a text file's lines (empty when it cannot be read).
std::vector<std::string> ReadTextFileLines(const std::filesystem::path& path, bool* readable = nullptr);

}  // namespace kelvane
