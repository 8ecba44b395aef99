// The chart catalogue of a sea area: the chart record with its calibration,
// the reading of the `charts` table, the choice of the chart on show, and
// the ladder of detail that moves between charts of different scale at the
// cursor.
//
// A sea area is one database `Charts/<area>.l35` with a `charts` table;
// beside it lie the chart images `<chartNumber>.l55` and their previews
// `<chartNumber>.tif`. Each chart is a Mercator raster calibrated by four
// lines: two parallels (UpperLat at image row UpperPixels, LowerLat at row
// LowerPixels) and two meridians (LeftLon at column LeftPixels, rightLon at
// column RightPixels).
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/areadatabase.h"

namespace kelvane {

// One chart in memory, fields in the order of the program's record.
struct ChartRecord {
  std::int16_t iD = 0;
  std::string chartName;    // the title shown to the user
  std::string chartNumber;  // also the stem of the chart's image files
  std::string chartScale;   // natural scale denominator, a single as text
  std::int16_t rank = 0;    // place on the ladder of detail; <= 0 keeps it off
  std::string TSArea;       // tidal stream area
  float issueDate = 0;
  float UpperLat = 0, UpperPixels = 0;  // degrees N+, image row
  float LowerLat = 0, LowerPixels = 0;
  float LeftLon = 0, LeftPixels = 0;  // degrees E+, image column
  float rightLon = 0, RightPixels = 0;
  float MeridionalUpper = 0;  // isometric latitude of UpperLat
  float MeridionalLower = 0;  // isometric latitude of LowerLat
  float MeridionalSpan = 0;   // MeridionalUpper - MeridionalLower
  float PixelSpan = 0;        // LowerPixels - UpperPixels
  double LonPerPixel = 0;     // (rightLon - LeftLon) / (RightPixels - LeftPixels)
  float issueDate2 = 0, issueDate3 = 0;  // the issue date again, twice
};

// Isometric (meridional) latitude of the record, in the sine form:
// s = sin(|lat| * 0.017453293), sign(lat) * ln((1 + s) / (1 - s)) / 2, held
// as a single. Latitude 0 takes the positive branch and gives 0. lat in
// degrees, -90 < lat < 90; at +-90 the result is infinite.
float IsometricLatitude(float lat);

// Fills the computed fields from the calibration, in the record's order:
// MeridionalUpper, MeridionalLower, MeridionalSpan, PixelSpan, LonPerPixel.
// Returns false when the right and left pixel columns are equal, the
// floating-point fault that stops a catalogue read; the record is then
// left with LonPerPixel unset.
bool ComputeChartFields(ChartRecord& chart);

// The catalogue of one area as read, with the reason a read stopped.
struct ChartCatalogue {
  std::vector<ChartRecord> charts;  // indexes from 0, in the table's order
  std::string message;              // "" when the whole table was read
};

// Builds the records of a query on `charts` (columns by name). A row whose
// right and left pixel columns are equal stops the read: the rows before it
// are kept and message says which row stopped it.
ChartCatalogue ChartsFromQuery(const QueryResult& rows);

// ReadChartsTable: `SELECT * FROM charts` (no ordering) from the area
// database ProgramFolder/Charts/<area>.l35. A database that can't be
// opened, or has no `charts` table, gives an empty catalogue with the
// reason in message.
ChartCatalogue ReadChartsTable(const std::filesystem::path& programFolder, std::string_view area);
// The same on a database already open, with the query given (the chooser
// uses "SELECT * FROM charts ORDER By chartName" and its LIKE search).
ChartCatalogue ReadChartsTable(const AreaDatabase& db, std::string_view sql = "SELECT * FROM charts");

// The chart number named by a chart path: the part behind "/Charts/" (or
// "\Charts\"), trimmed. A path without that folder gives its file name.
std::string ChartNumberFromPath(std::string_view chartPath);

// Degrees of latitude and longitude per image pixel as SelectCurrentChart
// sets them: (UpperLat - LowerLat) / (LowerPixels - UpperPixels), and the
// record's LonPerPixel.
struct ChartScales {
  double DegreesLatPerPixel = 0;
  double DegreesLonPerPixel = 0;
};

// SelectCurrentChart: the index of the record whose chartNumber equals the
// number of chartPath exactly, or nothing (the current chart then stays as
// it was).
std::optional<std::size_t> SelectCurrentChart(const std::vector<ChartRecord>& catalogue, std::string_view chartPath);
ChartScales ScalesOf(const ChartRecord& chart);

// Whether a position lies strictly inside a chart's calibration lines: a
// point on an edge is outside.
bool ChartContains(const ChartRecord& chart, float lat, float lon);

// The three switches of the ladder of detail, as functions of catalogue,
// cursor and current chart. Each returns the catalogue index of the chart
// to show, or nothing when nothing is to happen.
//
// ZoomToChart: the highest rank above 0 among the charts containing the
// cursor; first in catalogue order on a tie.
std::optional<std::size_t> ZoomToChart(const std::vector<ChartRecord>& catalogue, float lat, float lon);
// PreviousScaleChart: among the charts containing the cursor with 0 < rank
// < current rank, the highest rank; first on a tie.
std::optional<std::size_t> PreviousScaleChart(const std::vector<ChartRecord>& catalogue, float lat, float lon,
                                              std::int16_t currentRank);
// NextScaleChart: the charts containing the cursor sorted by rank
// ascending, the first with a rank above the current rank.
std::optional<std::size_t> NextScaleChart(const std::vector<ChartRecord>& catalogue, float lat, float lon,
                                          std::int16_t currentRank);

// What automatic switching at the start of a paint asks for.
enum class AutoSwitch { None, Next, Previous };
struct [[nodiscard]] AutoSwitchStep {
  AutoSwitch action = AutoSwitch::None;
  double newZoom = 0;  // the zoom to set after the switch (set even when no chart was found)
};
// With the setting on: zoom above ScaleMax (1.5) on a chart of rank below
// 100 asks for the next finer chart and zoom 1.0; otherwise zoom below
// ScaleMin (0.18) on a chart of rank 11 or more asks for the previous chart
// and zoom 0.6. The second test sees the zoom as the first left it.
AutoSwitchStep AutomaticSwitch(bool autoChartSwitch, double zoom, std::int16_t currentRank,
                               double scaleMax = 1.5, double scaleMin = 0.18);

// The chart's scale as the chooser shows it: the number with any comma
// taken out, then its value.
double ChartScaleValue(std::string_view chartScale);

// cmdGenerateCSV: the header line and one catalogue line of a chart, and
// the append to ProgramFolder/<ChartSet>.csv (header first when the file
// can't be opened for reading). Returns "" or the error text.
inline constexpr const char* kChartCsvHeader =
    "iD,name,number,chartScale,tSArea,issueDate,upperLat,upperPixels,lowerLat,lowerPixels,leftLon,leftPixels,"
    "rightLon,rightPixels";
std::string ChartCsvLine(const ChartRecord& chart);
std::string AppendChartCsv(const std::filesystem::path& programFolder, std::string_view chartSet,
                           const ChartRecord& chart);

// The message of an image that can't be loaded: "error code: " and the
// imaging status.
std::string ImageErrorText(int status);
// The message when the chart image has no height at a mouse movement: the
// lines "Error in Chart File", the trimmed charts folder, the trimmed chart
// path, an empty line and "Restoring defaults to Sample Chart and exiting
// program".
std::string ChartFileErrorText(std::string_view chartsFolder, std::string_view chartPath);

// Whether a chart chosen on the ladder is a switch: its number differs
// from the ChartFile setting (the factory value is "9999-1.cht").
bool IsChartSwitch(std::string_view chosenNumber, std::string_view chartFile);

// The chart choice of the settings once a chart is on show. Every switch
// of the ladder writes it as the chooser does, so that ChartFile names the
// chart in use and the ladder can come back to a chart it left.
struct [[nodiscard]] ChartChoice {
  std::string ChartPath;         // ProgramFolder/Charts/<number>
  std::string ChartFile;         // the number
  std::string ChartDescription;  // the trimmed title, as the chooser lists it
};
ChartChoice ChoiceOfChart(const std::filesystem::path& programFolder, const ChartRecord& chart);

// What the window does once the chart chooser has closed. Accepted, it
// writes the settings file and loads the area and the chart (catalogue,
// diamonds, ports, tides, image, fit to height). Cancelled, by its button,
// Esc or the window's close box, the settings are already back as they
// were and nothing is reloaded: the area, the chart, its view and the
// streams in use stay exactly as they were.
struct [[nodiscard]] ChooserFollowUp {
  bool writeSettings = false;
  bool loadChart = false;
};
ChooserFollowUp AfterChartChooser(bool accepted);

// The areas installed: every "*.l35" in ProgramFolder/Charts by its name up
// to the first ".", sorted.
std::vector<std::string> ListAreas(const std::filesystem::path& programFolder);

}  // namespace kelvane
