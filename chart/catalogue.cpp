#include "chart/catalogue.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"

namespace kelvane {
namespace {

float Single(const QueryResult& rows, std::size_t row, std::string_view column) {
  return static_cast<float>(rows.Number(row, column));
}

}  // namespace

float IsometricLatitude(float lat) { return MercatorFunctionSine(lat); }

bool ComputeChartFields(ChartRecord& c) {
  c.MeridionalUpper = IsometricLatitude(c.UpperLat);
  c.MeridionalLower = IsometricLatitude(c.LowerLat);
  c.MeridionalSpan = c.MeridionalUpper - c.MeridionalLower;
  c.PixelSpan = c.LowerPixels - c.UpperPixels;
  // The pixel columns are singles; their difference is exact in double, and
  // the division runs there.
  double columns = static_cast<double>(c.RightPixels) - static_cast<double>(c.LeftPixels);
  if (columns == 0) return false;
  c.LonPerPixel = (static_cast<double>(c.rightLon) - static_cast<double>(c.LeftLon)) / columns;
  return true;
}

ChartCatalogue ChartsFromQuery(const QueryResult& rows) {
  ChartCatalogue catalogue;
  if (!rows.ok()) {
    catalogue.message = rows.message;
    return catalogue;
  }
  catalogue.charts.reserve(rows.rows.size());
  for (std::size_t r = 0; r < rows.rows.size(); ++r) {
    ChartRecord c;
    c.iD = RoundToInt16(rows.Number(r, "iD"));
    c.chartName = rows.Text(r, "chartName");
    c.chartNumber = rows.Text(r, "chartNumber");
    c.chartScale = NumberText(Single(rows, r, "chartScale"));
    c.rank = RoundToInt16(rows.Number(r, "rank"));
    c.TSArea = rows.Text(r, "TSArea");
    c.issueDate = Single(rows, r, "issueDate");
    c.UpperLat = Single(rows, r, "UpperLat");
    c.UpperPixels = Single(rows, r, "UpperPixels");
    c.LowerLat = Single(rows, r, "LowerLat");
    c.LowerPixels = Single(rows, r, "LowerPixels");
    c.LeftLon = Single(rows, r, "LeftLon");
    c.LeftPixels = Single(rows, r, "LeftPixels");
    c.rightLon = Single(rows, r, "rightLon");
    c.RightPixels = Single(rows, r, "RightPixels");
    c.issueDate2 = Single(rows, r, "issueDate");
    c.issueDate3 = Single(rows, r, "issueDate");
    if (!ComputeChartFields(c)) {
      catalogue.message = "Chart " + Trim(c.chartNumber) +
                          " can't be used: its left and right calibration lines lie on the same pixel column";
      break;
    }
    catalogue.charts.push_back(std::move(c));
  }
  return catalogue;
}

ChartCatalogue ReadChartsTable(const AreaDatabase& db, std::string_view sql) {
  return ChartsFromQuery(db.Query(sql));
}

ChartCatalogue ReadChartsTable(const std::filesystem::path& programFolder, std::string_view area) {
  AreaDatabase db = AreaDatabase::Open(AreaDatabasePath(programFolder, Trim(area)));
  if (!db.ok()) return ChartCatalogue{{}, db.message()};
  return ReadChartsTable(db);
}

std::string ChartNumberFromPath(std::string_view chartPath) {
  std::string path = Trim(chartPath);
  for (const char* marker : {"/Charts/", "\\Charts\\"}) {
    std::size_t at = path.rfind(marker);
    if (at != std::string::npos) return Trim(std::string_view(path).substr(at + 8));
  }
  std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : Trim(std::string_view(path).substr(slash + 1));
}

std::optional<std::size_t> SelectCurrentChart(const std::vector<ChartRecord>& catalogue, std::string_view chartPath) {
  std::string number = ChartNumberFromPath(chartPath);
  for (std::size_t i = 0; i < catalogue.size(); ++i)
    if (catalogue[i].chartNumber == number) return i;
  return std::nullopt;
}

ChartScales ScalesOf(const ChartRecord& c) {
  ChartScales s;
  s.DegreesLatPerPixel = (static_cast<double>(c.UpperLat) - c.LowerLat) / (static_cast<double>(c.LowerPixels) - c.UpperPixels);
  s.DegreesLonPerPixel = c.LonPerPixel;
  return s;
}

bool ChartContains(const ChartRecord& c, float lat, float lon) {
  return lat > c.LowerLat && lat < c.UpperLat && lon > c.LeftLon && lon < c.rightLon;
}

std::optional<std::size_t> ZoomToChart(const std::vector<ChartRecord>& catalogue, float lat, float lon) {
  std::optional<std::size_t> best;
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    const ChartRecord& c = catalogue[i];
    if (!ChartContains(c, lat, lon) || c.rank <= 0) continue;
    if (!best || c.rank > catalogue[*best].rank) best = i;
  }
  return best;
}

std::optional<std::size_t> PreviousScaleChart(const std::vector<ChartRecord>& catalogue, float lat, float lon,
                                              std::int16_t currentRank) {
  std::optional<std::size_t> best;
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    const ChartRecord& c = catalogue[i];
    if (!ChartContains(c, lat, lon) || c.rank <= 0 || c.rank >= currentRank) continue;
    if (!best || c.rank > catalogue[*best].rank) best = i;
  }
  return best;
}

std::optional<std::size_t> NextScaleChart(const std::vector<ChartRecord>& catalogue, float lat, float lon,
                                          std::int16_t currentRank) {
  std::vector<std::size_t> hits;
  for (std::size_t i = 0; i < catalogue.size(); ++i)
    if (ChartContains(catalogue[i], lat, lon)) hits.push_back(i);
  // The bubble sort swaps only a pair out of order, so charts of equal rank
  // keep their catalogue order: a stable sort gives the same list.
  std::stable_sort(hits.begin(), hits.end(),
                   [&](std::size_t a, std::size_t b) { return catalogue[a].rank < catalogue[b].rank; });
  for (std::size_t i : hits)
    if (catalogue[i].rank > currentRank) return i;
  return std::nullopt;
}

AutoSwitchStep AutomaticSwitch(bool autoChartSwitch, double zoom, std::int16_t currentRank, double scaleMax,
                               double scaleMin) {
  AutoSwitchStep step;
  if (!autoChartSwitch) return step;
  if (zoom > scaleMax && currentRank < 100) return {AutoSwitch::Next, 1.0};
  if (zoom < scaleMin && currentRank >= 11) return {AutoSwitch::Previous, 0.6};
  return step;
}

double ChartScaleValue(std::string_view chartScale) {
  std::string text(chartScale);
  text.erase(std::remove(text.begin(), text.end(), ','), text.end());
  return TextValue(text);
}

std::string ChartCsvLine(const ChartRecord& c) {
  auto n = [](float v) { return NumberText(v); };
  return std::to_string(c.iD) + "," + c.chartName + "," + c.chartNumber + "," + c.chartScale + "," + c.TSArea +
         "," + n(c.issueDate) + "," + n(c.UpperLat) + "," + n(c.UpperPixels) + "," + n(c.LowerLat) + "," +
         n(c.LowerPixels) + "," + n(c.LeftLon) + "," + n(c.LeftPixels) + "," + n(c.rightLon) + "," +
         n(c.RightPixels);
}

std::string AppendChartCsv(const std::filesystem::path& programFolder, std::string_view chartSet,
                           const ChartRecord& chart) {
  std::filesystem::path file = programFolder / (Trim(chartSet) + ".csv");
  bool needHeader = !std::ifstream(file).good();
  // An append to a catalogue aid: the existing lines are never rewritten.
  std::ofstream out(file, std::ios::app | std::ios::binary);
  if (!out) return "Can't write " + file.string();
  if (needHeader) out << kChartCsvHeader << "\r\n";
  out << ChartCsvLine(chart) << "\r\n";
  return out.good() ? "" : "Can't write " + file.string();
}

std::string ImageErrorText(int status) { return "error code: " + std::to_string(status); }

std::string ChartFileErrorText(std::string_view chartsFolder, std::string_view chartPath) {
  return "Error in Chart File\n" + Trim(chartsFolder) + "\n" + Trim(chartPath) +
         "\n\nRestoring defaults to Sample Chart and exiting program";
}

bool IsChartSwitch(std::string_view chosenNumber, std::string_view chartFile) { return chosenNumber != chartFile; }

ChartChoice ChoiceOfChart(const std::filesystem::path& programFolder, const ChartRecord& chart) {
  return ChartChoice{(programFolder / "Charts" / chart.chartNumber).string(), chart.chartNumber,
                     Trim(chart.chartName)};
}

ChooserFollowUp AfterChartChooser(bool accepted) { return ChooserFollowUp{accepted, accepted}; }

std::vector<std::string> ListAreas(const std::filesystem::path& programFolder) {
  std::vector<std::string> areas;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(programFolder / "Charts", ec)) {
    std::string name = entry.path().filename().string();
    if (name.size() < 4) continue;
    if (ToLower(name.substr(name.size() - 4)) != ".l35") continue;
    areas.push_back(name.substr(0, name.find('.')));
  }
  std::sort(areas.begin(), areas.end());
  return areas;
}

}  // namespace kelvane
