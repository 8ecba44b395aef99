// tides, tides-ports, sun, moon: the tide engine and the almanac, headless.
#include <chrono>
#include <cstdio>
#include <iostream>
#include <optional>

#include "cli/registry.h"
#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"
#include "core/timetext.h"
#include "tides/almanac.h"
#include "tides/daycurve.h"
#include "tides/daytable.h"
#include "tides/harmonicfile.h"

namespace kelvane::cli {
namespace {

namespace chr = std::chrono;

std::optional<chr::year_month_day> ParseDate(const std::string& text) {
  int y = 0, m = 0, d = 0;
  char tail = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d%c", &y, &m, &d, &tail) != 3) return std::nullopt;
  chr::year_month_day date{chr::year{y}, chr::month{static_cast<unsigned>(m)}, chr::day{static_cast<unsigned>(d)}};
  if (!date.ok()) return std::nullopt;
  return date;
}

std::string DateText(const chr::year_month_day& date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()));
  return text;
}

int DayOfYear(const chr::year_month_day& date) {
  const chr::sys_days start{date.year() / chr::January / 1};
  return static_cast<int>((chr::sys_days{date} - start).count()) + 1;
}

std::string WeekdayName(const chr::year_month_day& date) {
  static const char* const kNames[7] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  return kNames[chr::weekday{chr::sys_days{date}}.c_encoding()];
}

std::filesystem::path FindAreaFile(const Context& ctx, const std::string& name) {
  std::filesystem::path given(name);
  if (std::filesystem::exists(given)) return given;
  std::filesystem::path inTree = ctx.folders().DataRoot() / "TS" / name;
  if (std::filesystem::exists(inTree)) return inTree;
  return given;
}

struct TidesOptions {
  std::string area, port, date;
  int portNo = 0, days = 1;
  bool summer = false, csv = false;
};

int Tides(const Context& ctx, const TidesOptions& o) {
  const auto file = FindAreaFile(ctx, o.area);
  auto records = ReadHarmonicFile(file, NameLayout::kArea31);
  if (!records) {
    std::cerr << "Cannot open area file " << file.string() << "\n";
    return 1;
  }
  int recordNo = o.portNo;
  if (!o.port.empty()) {
    recordNo = 0;
    for (std::size_t i = 0; i < records->size() && !recordNo; ++i)
      if (ToLower((*records)[i].PortName) == ToLower(o.port)) recordNo = static_cast<int>(i) + 1;
    for (std::size_t i = 0; i < records->size() && !recordNo; ++i)
      if (ToLower((*records)[i].PortName).find(ToLower(o.port)) != std::string::npos) recordNo = static_cast<int>(i) + 1;
    if (!recordNo) {
      std::cerr << "Port " << o.port << " not found in " << file.string() << "\n";
      return 1;
    }
  }
  if (recordNo < 1 || recordNo > static_cast<int>(records->size())) {
    std::cerr << "Port number " << recordNo << " not found in " << file.string() << "\n";
    return 1;
  }
  auto start = ParseDate(o.date);
  if (!start) {
    std::cerr << "Bad date " << o.date << " (YYYY-MM-DD)\n";
    return 1;
  }
  const HarmonicPortRecord& port = (*records)[static_cast<std::size_t>(recordNo - 1)];
  if (!o.csv) {
    std::cout << kTideHeightsNotice << "\n" << (o.summer ? kSummerTimeNotice : kNoSummerTimeNotice) << "\n";
  } else {
    std::cout << "date,time,height_m,type\n";
  }
  for (int n = 0; n < o.days; ++n) {
    const chr::year_month_day date{chr::sys_days{*start} + chr::days{n}};
    const auto year = static_cast<std::int16_t>(static_cast<int>(date.year()));
    const auto day = static_cast<std::int16_t>(DayOfYear(date));
    const DayPrediction prediction =
        PredictHeights(port, year, day, static_cast<int>(static_cast<unsigned>(date.month())), o.summer);
    const TurningPoints turning = FindTurningPoints(prediction.time.data(), prediction.height().data());
    if (!o.csv) {
      for (const std::string& line : DayTableLines(DateText(date), WeekdayName(date), port.PortName, turning))
        std::cout << line << "\n";
      continue;
    }
    for (const TurningPoint& point : turning.points) {
      // A turning point at the midnight that ends the day is dated tomorrow.
      float hours = point.time;
      chr::year_month_day when = date;
      if (hours >= 24.0f) {
        hours -= 24.0f;
        when = chr::year_month_day{chr::sys_days{date} + chr::days{1}};
      }
      std::cout << DateText(when) << "," << HoursToClock(hours) << "," << FormatNumber(point.height, "0.00") << ","
                << (point.high ? "HW" : "LW") << "\n";
    }
  }
  return 0;
}

int TidesPorts(const Context& ctx, const std::string& area, bool reference) {
  const auto file = reference ? std::filesystem::path(area) : FindAreaFile(ctx, area);
  auto records = ReadHarmonicFile(file, reference ? NameLayout::kReference35 : NameLayout::kArea31);
  if (!records) {
    std::cerr << "Cannot open " << file.string() << "\n";
    return 1;
  }
  int recordNo = 0;
  for (const HarmonicPortRecord& r : *records) {
    ++recordNo;
    std::cout << recordNo << "\t" << r.PortNo << "\t" << r.PortName << "\t" << LatToText(r.Latitude) << "\t"
              << LonToText(r.Longitude) << "\t" << r.TimeZone << "\n";
  }
  return 0;
}

double PositionValue(const std::string& text, bool latitude) {
  if (!text.empty()) {
    char last = static_cast<char>(std::toupper(static_cast<unsigned char>(text.back())));
    if (last == 'N' || last == 'S' || last == 'E' || last == 'W')
      return latitude ? TextToLat(text) : TextToLon(text);
  }
  return TextValue(text);
}

int Sun(const std::string& lat, const std::string& lon, const std::string& date, const std::string& month,
        double zone, bool summer) {
  const double la = PositionValue(lat, true), lo = PositionValue(lon, false);
  std::vector<chr::year_month_day> days;
  if (!date.empty()) {
    auto d = ParseDate(date);
    if (!d) {
      std::cerr << "Bad date " << date << " (YYYY-MM-DD)\n";
      return 1;
    }
    days.push_back(*d);
  } else {
    auto first = ParseDate(month + "-01");
    if (!first) {
      std::cerr << "Bad month " << month << " (YYYY-MM)\n";
      return 1;
    }
    const int y = static_cast<int>(first->year());
    const int m = static_cast<int>(static_cast<unsigned>(first->month()));
    for (int d = 1; d <= DaysInMonth(m, y); ++d)
      days.push_back(chr::year_month_day{first->year(), first->month(), chr::day{static_cast<unsigned>(d)}});
  }
  for (const auto& d : days) {
    const SunTimes times = SunRiseSet(la, lo, static_cast<int>(static_cast<unsigned>(d.day())),
                                      static_cast<int>(static_cast<unsigned>(d.month())), static_cast<int>(d.year()),
                                      zone, summer);
    std::cout << DateText(d);
    for (const SunEvent& e : times) std::cout << " " << SunEventText(e);
    std::cout << "\n";
  }
  return 0;
}

int Moon(int year, int month) {
  if (month < 1 || month > 12) {
    std::cerr << "Bad month " << month << "\n";
    return 1;
  }
  for (const MoonPhase& p : MoonPhasesFor(year, month))
    std::cout << FormatNumber(p.day, "00") << " " << p.monthName << " " << p.hourText << " " << p.phase << "\n";
  return 0;
}

Registrar tideCommands([](CLI::App& app, Context& ctx) {
  auto* tides = app.add_subcommand("tides", "High and low waters of a port of an area file, day by day");
  auto o = std::make_shared<TidesOptions>();
  tides->add_option("--area", o->area, "Area file (.hc), a path or a name in DataRoot/TS")->required();
  auto* byName = tides->add_option("--port", o->port, "Port name (whole name, or a part of it)");
  auto* byNo = tides->add_option("--port-no", o->portNo, "Record number of the port");
  byName->excludes(byNo);
  tides->add_option("--date", o->date, "First day, YYYY-MM-DD")->required();
  tides->add_option("--days", o->days, "Number of days")->check(CLI::Range(1, 3660));
  tides->add_flag("--summer", o->summer, "Times with the summer hour");
  tides->add_flag("--csv", o->csv, "Lines date,time,height_m,type");
  tides->callback([&ctx, o, byName, byNo] {
    if (!*byName && !*byNo) {
      std::cerr << "--port or --port-no is required\n";
      ctx.exitCode = 2;
      return;
    }
    ctx.exitCode = Tides(ctx, *o);
  });

  auto* ports = app.add_subcommand("tides-ports", "Records of a harmonic constants file: number, port no., name, position, zone");
  auto area = std::make_shared<std::string>();
  auto reference = std::make_shared<bool>(false);
  ports->add_option("--area", *area, "Area file (.hc), or Refports.hc with --reference")->required();
  ports->add_flag("--reference", *reference, "Read the 35-character layout of Refports.hc");
  ports->callback([&ctx, area, reference] { ctx.exitCode = TidesPorts(ctx, *area, *reference); });

  struct SunOptions {
    std::string lat, lon, date, month;
    double zone = 0;
    bool summer = false;
  };
  auto s = std::make_shared<SunOptions>();
  auto* sun = app.add_subcommand("sun", "Twilights, sunrise and sunset: eight times per day (\"None\" for no event)");
  sun->add_option("--lat", s->lat, "Latitude: signed degrees or DD.MM.mmN")->required();
  sun->add_option("--lon", s->lon, "Longitude: signed degrees or DDD.MM.mmE")->required();
  auto* dateOpt = sun->add_option("--date", s->date, "Day, YYYY-MM-DD");
  auto* monthOpt = sun->add_option("--month", s->month, "Month, YYYY-MM");
  dateOpt->excludes(monthOpt);
  sun->add_option("--zone", s->zone, "Zone H.MMSS: local time = UT - zone (0 Greenwich, -1 Central Europe)");
  sun->add_flag("--summer", s->summer, "Add the summer hour");
  sun->callback([&ctx, s, dateOpt, monthOpt] {
    if (!*dateOpt && !*monthOpt) {
      std::cerr << "--date or --month is required\n";
      ctx.exitCode = 2;
      return;
    }
    ctx.exitCode = Sun(s->lat, s->lon, s->date, s->month, s->zone, s->summer);
  });

  auto ym = std::make_shared<std::pair<int, int>>(0, 0);
  auto* moon = app.add_subcommand("moon", "Phases of the moon in a month");
  moon->add_option("--year", ym->first, "Year")->required();
  moon->add_option("--month", ym->second, "Month 1-12")->required();
  moon->callback([&ctx, ym] { ctx.exitCode = Moon(ym->first, ym->second); });
});

}  // namespace
}  // namespace kelvane::cli
