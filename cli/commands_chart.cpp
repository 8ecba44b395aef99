// charts, chart and db: the chart catalogue, the pixel arithmetic of a
// chart and the area databases, without the chart window.
#include <iostream>
#include <sstream>

#include "chart/catalogue.h"
#include "chart/georef.h"
#include "cli/registry.h"
#include "core/format.h"
#include "core/positions.h"
#include "store/areadatabase.h"

namespace kelvane::cli {
namespace {

// The sample area the program starts on.
constexpr const char* kDefaultArea = "Sample Chart";

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

std::string Calibration(const ChartRecord& c) {
  std::ostringstream out;
  out << NumberText(c.UpperLat) << "@" << NumberText(c.UpperPixels) << " " << NumberText(c.LowerLat) << "@"
      << NumberText(c.LowerPixels) << " " << NumberText(c.LeftLon) << "@" << NumberText(c.LeftPixels) << " "
      << NumberText(c.rightLon) << "@" << NumberText(c.RightPixels);
  return out.str();
}

// The catalogue of an area, or an error line and exit code 1.
bool LoadCatalogue(const Context& ctx, const std::string& area, ChartCatalogue& catalogue) {
  catalogue = ReadChartsTable(ctx.folders().DataRoot(), area);
  if (!catalogue.message.empty()) {
    std::cerr << catalogue.message << "\n";
    if (catalogue.charts.empty()) return false;
  }
  return true;
}

int ChartsList(const Context& ctx, const std::string& area) {
  ChartCatalogue catalogue;
  if (!LoadCatalogue(ctx, area, catalogue)) return 1;
  for (const ChartRecord& c : catalogue.charts)
    std::cout << c.chartNumber << "\t" << c.chartName << "\t1:" << c.chartScale << "\trank " << c.rank << "\t"
              << Calibration(c) << "\n";
  return 0;
}

int ChartsAt(const Context& ctx, const std::string& area, float lat, float lon) {
  ChartCatalogue catalogue;
  if (!LoadCatalogue(ctx, area, catalogue)) return 1;
  std::vector<std::size_t> hits;
  for (std::size_t i = 0; i < catalogue.charts.size(); ++i)
    if (ChartContains(catalogue.charts[i], lat, lon)) hits.push_back(i);
  std::stable_sort(hits.begin(), hits.end(), [&](std::size_t a, std::size_t b) {
    return catalogue.charts[a].rank < catalogue.charts[b].rank;
  });
  for (std::size_t i : hits) {
    const ChartRecord& c = catalogue.charts[i];
    std::cout << c.chartNumber << "\t" << c.chartName << "\trank " << c.rank << "\n";
  }
  return 0;
}

// Reads "A B" pairs from the arguments, or from standard input one pair a
// line when none are given, and prints one line per pair.
int ChartConvert(const Context& ctx, const std::string& area, const std::string& number,
                 const std::vector<std::string>& args, bool toPixel) {
  ChartCatalogue catalogue;
  if (!LoadCatalogue(ctx, area, catalogue)) return 1;
  auto index = SelectCurrentChart(catalogue.charts, "/Charts/" + number);
  if (!index) {
    std::cerr << "No chart " << number << " in area " << area << "\n";
    return 1;
  }
  ChartGeometry g = GeometryOf(catalogue.charts[*index]);
  auto convert = [&](const std::string& a, const std::string& b) {
    if (toPixel) {
      float lat = static_cast<float>(TextValue(a)), lon = static_cast<float>(TextValue(b));
      std::cout << LonToPixel(g, lon) << " " << LatToPixel(g, lat) << "\n";
    } else {
      std::int32_t x = RoundToInt(TextValue(a)), y = RoundToInt(TextValue(b));
      float lat = PixelToLat(g, y), lon = PixelToLon(g, x);
      std::cout << FormatNumber(lat, "0.000000") << " " << FormatNumber(lon, "0.000000") << " " << LatToText3(lat)
                << " " << LonToText3(lon) << "\n";
    }
  };
  if (args.size() >= 2) {
    for (std::size_t i = 0; i + 1 < args.size(); i += 2) convert(args[i], args[i + 1]);
    return 0;
  }
  std::string line;
  while (std::getline(std::cin, line)) {
    std::istringstream in(line);
    std::string a, b;
    if (!(in >> a >> b)) {
      std::cout << "error: two numbers expected\n";
      continue;
    }
    convert(a, b);
  }
  return 0;
}

int DbTables(const std::string& file) {
  AreaDatabase db = AreaDatabase::Open(file);
  if (!db.ok()) {
    std::cerr << db.message() << "\n";
    return 1;
  }
  for (const std::string& t : db.Tables()) std::cout << t << "\n";
  return 0;
}

int DbQuery(const std::string& file, const std::string& sql) {
  AreaDatabase db = AreaDatabase::Open(file);
  if (!db.ok()) {
    std::cerr << db.message() << "\n";
    return 1;
  }
  QueryResult r = db.Query(sql);
  if (!r.ok()) {
    std::cerr << r.message << "\n";
    return 1;
  }
  for (std::size_t c = 0; c < r.columns.size(); ++c) std::cout << (c ? "," : "") << CsvField(r.columns[c]);
  std::cout << "\n";
  for (const auto& row : r.rows) {
    for (std::size_t c = 0; c < row.size(); ++c) std::cout << (c ? "," : "") << CsvField(ValueText(row[c]));
    std::cout << "\n";
  }
  return 0;
}

int DbImport(const std::string& from, const std::string& to) {
  AreaDatabase db = AreaDatabase::Open(from);
  if (!db.ok()) {
    std::cerr << db.message() << "\n";
    return 1;
  }
  std::string error = db.SaveAs(to);
  if (!error.empty()) {
    std::cerr << "Can't write " << to << ": " << error << "\n";
    return 1;
  }
  std::cout << db.Tables().size() << " tables copied to " << to << "\n";
  return 0;
}

int DbCreate(const std::string& file) {
  AreaDatabase db = AreaDatabase::Create(file);
  if (!db.ok()) {
    std::cerr << db.message() << "\n";
    return 1;
  }
  return 0;
}

Registrar chartCommands([](CLI::App& app, Context& ctx) {
  static std::string area = kDefaultArea, number, file, sql, target;
  static float lat = 0, lon = 0;
  static std::vector<std::string> values;

  auto* charts = app.add_subcommand("charts", "The chart catalogue of a sea area");
  charts->require_subcommand(1);
  auto* list = charts->add_subcommand("list", "Number, title, scale, rank and calibration of every chart");
  list->add_option("--area", area, "Sea area (the .l35 name in Charts/)");
  list->callback([&ctx] { ctx.exitCode = ChartsList(ctx, area); });
  auto* at = charts->add_subcommand("at", "The charts containing a position, in ladder order");
  at->add_option("LAT", lat)->required();
  at->add_option("LON", lon)->required();
  at->add_option("--area", area, "Sea area");
  at->callback([&ctx] { ctx.exitCode = ChartsAt(ctx, area, lat, lon); });

  auto* chart = app.add_subcommand("chart", "Pixel arithmetic of one chart");
  chart->require_subcommand(1);
  auto* pixel = chart->add_subcommand("pixel", "Image column and row of LAT LON pairs (or lines of stdin)");
  pixel->add_option("--chart", number, "Chart number")->required();
  pixel->add_option("--area", area, "Sea area");
  pixel->add_option("VALUES", values);
  pixel->callback([&ctx] { ctx.exitCode = ChartConvert(ctx, area, number, values, true); });
  auto* position = chart->add_subcommand("position", "Latitude and longitude of X Y pixel pairs (or lines of stdin)");
  position->add_option("--chart", number, "Chart number")->required();
  position->add_option("--area", area, "Sea area");
  position->add_option("VALUES", values);
  position->callback([&ctx] { ctx.exitCode = ChartConvert(ctx, area, number, values, false); });

  auto* db = app.add_subcommand("db", "Area databases: SQLite or Jet (.mdb/.l35) files");
  db->require_subcommand(1);
  auto* tables = db->add_subcommand("tables", "The user tables of a database");
  tables->add_option("FILE", file)->required();
  tables->callback([&ctx] { ctx.exitCode = DbTables(file); });
  auto* query = db->add_subcommand("query", "Run one SQL statement, rows out as CSV with a header");
  query->add_option("FILE", file)->required();
  query->add_option("SQL", sql)->required();
  query->callback([&ctx] { ctx.exitCode = DbQuery(file, sql); });
  auto* import = db->add_subcommand("import", "Copy a Jet database into a new SQLite file");
  import->add_option("JETFILE", file)->required();
  import->add_option("SQLITEFILE", target)->required();
  import->callback([&ctx] { ctx.exitCode = DbImport(file, target); });
  auto* create = db->add_subcommand("create", "Create an SQLite area database with the charts, diamonds, wrecks "
                                              "and vesseltypes tables");
  create->add_option("FILE", file)->required();
  create->callback([&ctx] { ctx.exitCode = DbCreate(file); });
});

}  // namespace
}  // namespace kelvane::cli
