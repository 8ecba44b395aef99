// The texts of the help menu: the about box (version, the advisory warning,
// and the sources and licences of the data the program ships with) and the
// quick instructions for a skipper.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

// The warning every result carries: derived data, approximate, plane
// sailing. One line per entry.
const std::vector<std::string>& AdvisoryWarning();

// One source file of the shipped data, as the data root holds it.
struct DataSourceText {
  std::string fileName;  // "TIDES-SOURCES.md"
  std::string text;      // the file's text, or a line saying why it is not there
  bool found = false;
};

// The files that name the sources and licences of the installed data, read
// from the data root at the moment of asking: README.md, TIDES-SOURCES.md
// and STREAMS-SOURCES.md. A file that is missing, unreadable or larger than
// a megabyte is reported in its place; a file that is not UTF-8 is read as
// Windows-1252.
std::vector<DataSourceText> ShippedDataSources(const std::filesystem::path& dataRoot);

// The about box's text, in Markdown: "Kelvane " and the version, the
// advisory warning, then each source file under its own heading.
std::string AboutText(std::string_view version, const std::filesystem::path& dataRoot);

// The quick instructions, in Markdown: the first steps of a passage, the
// mouse and the keys of the chart.
const std::string& QuickInstructionsText();

}  // namespace kelvane
