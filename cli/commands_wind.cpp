// grib: read GRIB edition 1 files as the program reads them, and fill the
// wind store from one; wind at: the stored wind of a place and time.
#include <iostream>

#include "cli/registry.h"
#include "core/format.h"
#include "core/timetext.h"
#include "core/windconfig.h"
#include "wind/grib.h"
#include "wind/gribrequest.h"
#include "wind/windstore.h"

namespace kelvane::cli {
namespace {

// The reader's message, its CR LF line breaks as the terminal's.
void ShowError(const std::string& message) {
  std::string text = message;
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) text.replace(at, 2, "\n");
  std::cout << "error\t" << text << "\n";
}

std::string Level(const GribRecord& r) {
  std::string text = std::to_string(r.LevelType) + " " + std::to_string(r.LevelValue1);
  if (r.LevelValue2 != 0) text += "/" + std::to_string(r.LevelValue2);
  return text;
}

std::string ReferenceTime(const GribRecord& r) {
  int minutes = RoundToInt(r.Minutes);
  return FormatNumber(r.Year, "0000") + "-" + FormatNumber(r.Month, "00") + "-" + FormatNumber(r.Day, "00") + " " +
         FormatNumber(minutes / 60, "00") + ":" + FormatNumber(minutes % 60, "00");
}

std::string Corner(float lat, float lon) { return NumberText(lat) + " " + NumberText(lon); }

// One line per message, tab-separated:
//   number  param P  level TYPE VALUE[/VALUE2]  ref YYYY-MM-DD HH:MM  P1 n P2 n UNIT
//   grid Ni x Nj  first LAT LON  last LAT LON  inc Di Dj  scan S  bitmap yes|no
int Show(const std::string& file) {
  GribReadResult read = ReadGribFile(file);
  if (!read.ok) {
    ShowError(read.message);
    return 1;
  }
  for (std::size_t n = 0; n < read.GribRecords.size(); ++n) {
    const GribRecord& r = read.GribRecords[n];
    const GridSection& g = r.Grid;
    std::cout << n + 1 << "\tparam " << r.Parameter << "\tlevel " << Level(r) << "\tref " << ReferenceTime(r)
              << "\tP1 " << r.P1 << " P2 " << r.P2 << " " << GribTimeUnitText(r.TimeUnit) << "\tgrid " << g.Ni << " x "
              << g.Nj << "\tfirst " << Corner(g.La1, g.Lo1) << "\tlast " << Corner(g.La2, g.Lo2) << "\tinc "
              << NumberText(g.Di) << " " << NumberText(g.Dj) << "\tscan " << g.Scan << "\tbitmap "
              << (r.HasBitmap ? "yes" : "no") << "\n";
  }
  return 0;
}

// One line per grid point in the file's scan order: lat, lon, value in the
// file's units, or "missing" where the bitmap leaves the point out.
int Values(const std::string& file, int only) {
  GribReadResult read = ReadGribFile(file);
  if (!read.ok) {
    ShowError(read.message);
    return 1;
  }
  if (only != 0 && (only < 1 || static_cast<std::size_t>(only) > read.GribRecords.size())) {
    ShowError("There is no message " + std::to_string(only) + " in the file: it holds " +
              std::to_string(read.GribRecords.size()));
    return 1;
  }
  for (std::size_t n = 0; n < read.GribRecords.size(); ++n) {
    if (only != 0 && n + 1 != static_cast<std::size_t>(only)) continue;
    const GribRecord& r = read.GribRecords[n];
    for (std::size_t k = 0; k < r.Values.size(); ++k) {
      GribPosition p = GribPointPosition(r.Grid, k);
      std::cout << NumberText(static_cast<float>(p.Lat)) << "\t" << NumberText(static_cast<float>(p.Lon)) << "\t";
      if (!r.Present.empty() && !r.Present[k])
        std::cout << "missing\n";
      else
        std::cout << NumberText(r.Values[k]) << "\n";
    }
  }
  return 0;
}

// Fills the user's wind store (~wind.dat and ~GrDa.tmp) from a GRIB file,
// as the import form does.
int Import(const Folders& folders, const std::string& file) {
  WindImport import = ImportGribToWindStore(file, folders.WindStoreFile(), folders.GribPointsFile());
  if (!import.ok) {
    ShowError(import.message);
    return 1;
  }
  std::cout << import.message << "\n"
            << "messages " << import.messages << "\tU/V pairs " << import.pairs << "\twind records "
            << import.records << "\n"
            << "Wind store: " << folders.WindStoreFile().string() << "\n"
            << "Times are UTC, as the forecast gives them.\n";
  return 0;
}

// The stored wind at a place and a UTC moment: the nearest grid point of the
// 3-hour slot. Without coverage, the route tools' message and the working
// wind they then keep (WindConfig.cfg's route wind).
int At(const Folders& folders, float lat, float lon, const std::string& at) {
  std::optional<TypedMoment> moment = ParseDateTime(at);
  if (!moment) {
    ShowError("The time must be given as \"YYYY-MM-DD HH:MM\": " + at);
    return 1;
  }
  // The typed date itself (checked by ParseDateTime), not through the
  // day-of-year tables, whose leap years are the program's own.
  int month = std::stoi(at.substr(5, 2));
  int day = std::stoi(at.substr(8, 2));
  WorkingWind working = WorkingWindFrom(ReadWindConfig(folders.WindConfigFile()));
  WindLookup previous;
  previous.speed = working.speed;
  previous.direction = working.direction;
  WindLookup wind = LookupWind(folders.WindStoreFile(), lat, lon, month, day, moment->year, moment->hours, previous);
  if (!wind.found) {
    std::cout << kRouteWindCoverageMessage << "\n"
              << "wind " << FormatNumber(previous.speed, "0.0") << "kn from " << FormatNumber(previous.direction, "000")
              << "°T (the working wind)";
    if (wind.rangeNm >= 0) std::cout << "\tnearest grid point " << FormatNumber(wind.rangeNm, "0.0") << "nm away";
    std::cout << "\n";
    return 2;
  }
  std::cout << "wind " << FormatNumber(wind.speed, "0.0") << "kn from " << FormatNumber(wind.direction, "000")
            << "°T\tgrid point " << FormatNumber(wind.rangeNm, "0.0") << "nm away\n";
  return 0;
}

Registrar windCommands([](CLI::App& app, Context& ctx) {
  auto* grib = app.add_subcommand("grib", "GRIB edition 1 wind files");
  grib->require_subcommand(1);

  auto* show = grib->add_subcommand("show", "One line per message: parameter, level, time, grid and bitmap");
  static std::string showFile;
  show->add_option("file", showFile, "GRIB file")->required();
  show->callback([&ctx] { ctx.exitCode = Show(showFile); });

  auto* values = grib->add_subcommand("values", "One line per grid point in scan order: latitude, longitude, value");
  static std::string valuesFile;
  static int message = 0;
  values->add_option("file", valuesFile, "GRIB file")->required();
  values->add_option("--message", message, "Only message N (from 1)");
  values->callback([&ctx] { ctx.exitCode = Values(valuesFile, message); });

  auto* import = grib->add_subcommand("import", "Fill the wind store from a GRIB file, as the import form does");
  static std::string importFile;
  import->add_option("file", importFile, "GRIB file")->required();
  import->callback([&ctx] { ctx.exitCode = Import(ctx.folders(), importFile); });

  // The e-mail request for the area, as the chart's menu puts it on the clipboard.
  auto* request = grib->add_subcommand("request", "The GRIB-by-mail request line for an area, edges rounded outward");
  static double north = 0, south = 0, west = 0, east = 0;
  request->add_option("--north", north, "North edge, degrees north positive")->required();
  request->add_option("--south", south, "South edge, degrees north positive")->required();
  request->add_option("--west", west, "West edge, degrees east positive")->required();
  request->add_option("--east", east, "East edge, degrees east positive")->required();
  request->callback([&ctx] {
    std::cout << GribRequestLine(north, south, west, east) << "\n";
    ctx.exitCode = 0;
  });

  auto* wind = SharedCommand(app, "wind", kWindCommandHelp);
  auto* at = wind->add_subcommand("at", "Wind at a place and UTC time: nearest grid point of the 3-hour slot");
  static float lat = 0, lon = 0;
  static std::string when;
  at->add_option("--lat", lat, "Latitude, degrees north positive")->required();
  at->add_option("--lon", lon, "Longitude, degrees east positive")->required();
  at->add_option("--at", when, "\"YYYY-MM-DD HH:MM\", UTC")->required();
  at->callback([&ctx] { ctx.exitCode = At(ctx.folders(), lat, lon, when); });
});

}  // namespace
}  // namespace kelvane::cli
