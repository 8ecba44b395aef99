#include "core/timetext.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "core/clock.h"
#include "core/format.h"

namespace kelvane {

namespace {

const std::array<const char*, 12> kMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string TwoDigits(long v) { return FormatNumber(static_cast<double>(v), "00"); }

// Hours and minutes through hundredths of an hour, shared by the coarse
// clock and the span.
std::pair<std::string, std::string> CoarseParts(float hours) {
  double h = std::floor(hours + 0.0001);
  std::string hoursText;
  if (h == 0)
    hoursText = "00";
  else if (h >= 1 && h <= 9)
    hoursText = "0" + NumberText(h);
  else
    hoursText = NumberText(h);
  double f = hours - h;
  f = RoundToInt(f * 100.0) / 100.0;
  int m = RoundToInt(f * 60.0);
  if (m >= 60) {
    h += 1;
    m -= 60;
    hoursText = SignedNumberText(h);
  }
  std::string minutes = NumberText(static_cast<double>(m)).substr(0, 2);
  if (minutes.size() < 2) minutes.insert(0, 2 - minutes.size(), '0');
  if (!minutes.empty() && minutes.back() == '.') minutes.pop_back();
  return {hoursText, minutes};
}

}  // namespace

std::string HoursToClock(float hours) {
  double h = std::floor(hours);
  int m = RoundToInt((hours - h) * 60.0);
  if (m >= 60) {
    h += 1;
    m = 0;
  }
  if (h == 24) h = 0;
  return TwoDigits(static_cast<long>(h)) + ":" + TwoDigits(m);
}

std::string HoursToClockCoarse(float hours) {
  auto [h, m] = CoarseParts(hours);
  return h + ":" + m;
}

std::string HoursToSpan(float hours) {
  auto [h, m] = CoarseParts(hours);
  return h + "Hrs " + m + "Min ";
}

bool IsLeapYear(int year) { return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0); }

bool IsListedLeapYear(int year, int first, int last) { return year >= first && year <= last && year % 4 == 0; }

int DaysInMonth(int month, int year) {
  switch (month) {
    case 4: case 6: case 9: case 11: return 30;
    case 2: return IsLeapYear(year) ? 29 : 28;
    default: return 31;
  }
}

PassageMoment AdvanceMoment(std::int16_t day, std::int16_t year, float time, float added) {
  const float total = time + added;
  const int days = static_cast<int>(std::floor(total / 24.0f));
  PassageMoment m;
  m.time = total - 24.0f * static_cast<float>(days);
  int d = day + days, y = year;
  for (int length = IsLeapYear(y) ? 366 : 365; d > length; length = IsLeapYear(y) ? 366 : 365) {
    d -= length;
    ++y;
  }
  m.day = static_cast<std::int16_t>(d);
  m.year = static_cast<std::int16_t>(y);
  return m;
}

int DayOfYear(int dayOfMonth, int month, int year) {
  int day = dayOfMonth;
  for (int m = 1; m < month; ++m) day += DaysInMonth(m, year);
  return day;
}

CivilDate SerialDayToDate(std::int64_t serialDay) {
  // Days from 1 March of year 0, the start of a 400-year era whose leap day
  // falls at the end of each year (H. Hinnant's civil-calendar algorithm).
  // 30 December 1899 is day 693899 of that count.
  const std::int64_t z = serialDay + 693899;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const std::int64_t doe = z - era * 146097;                                   // 0 .. 146096
  const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;  // 0 .. 399
  const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);             // 0 .. 365, from 1 March
  const std::int64_t mp = (5 * doy + 2) / 153;                                  // 0 = March .. 11 = February
  CivilDate date;
  date.day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  date.month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  date.year = yoe + era * 400 + (date.month <= 2 ? 1 : 0);
  return date;
}

std::optional<TypedMoment> ParseDateTime(const std::string& text) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0;
  char tail = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d %d:%d%c", &y, &mo, &d, &h, &mi, &tail) != 5) return std::nullopt;
  if (y < 1 || y > 9999 || mo < 1 || mo > 12 || d < 1 || h < 0 || h > 23 || mi < 0 || mi > 59) return std::nullopt;
  if (d > DaysInMonth(mo, y)) return std::nullopt;
  TypedMoment out;
  out.day = static_cast<std::int16_t>(DayOfYear(d, mo, y));
  out.year = static_cast<std::int16_t>(y);
  out.hours = static_cast<float>(h) + static_cast<float>(mi) / 60.0f;
  char clock[8];
  std::snprintf(clock, sizeof clock, "%02d:%02d", h, mi);
  out.clock = clock;
  return out;
}

std::optional<DateOfYear> DayToDate(int day, int year) {
  static const std::array<int, 12> leapStarts = {1, 32, 61, 92, 122, 153, 183, 214, 245, 275, 306, 336};
  static const std::array<int, 12> commonStarts = {1, 32, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
  if (day < 1 || day > 366) return std::nullopt;
  bool leap = IsListedLeapYear(year, 2000, 2084);
  const auto& starts = leap ? leapStarts : commonStarts;
  int month = 11;
  while (month > 0 && day < starts[static_cast<size_t>(month)]) --month;
  DateOfYear d;
  d.month = month + 1;
  d.monthName = kMonthNames[static_cast<size_t>(month)];
  d.dayOfMonth = day - starts[static_cast<size_t>(month)] + 1;
  return d;
}

namespace {

// The years in which the day count runs to 366 before it rolls. This list
// is the program's own and is kept as it stands, 2070 and all.
bool InRollList(int year) {
  return year == 2070 || IsListedLeapYear(year, 1984, 2064);
}

}  // namespace

Arrival AddHours(int day, int year, float time, float added) {
  float total = time + added;
  int newDay = static_cast<std::int16_t>(day + static_cast<int>(std::floor(total / 24.0f)));
  int newYear = year;
  if (InRollList(year)) {
    if (newDay >= 367) {
      newDay -= 366;
      newYear += 1;
    }
  } else if (newDay >= 366) {
    newDay -= 365;
    newYear += 1;
  }
  Arrival a;
  a.time = total - 24.0f * static_cast<float>(newDay - day);
  a.day = static_cast<std::int16_t>(newDay);
  a.year = static_cast<std::int16_t>(newYear);
  long wholeHours = static_cast<long>(std::trunc(a.time));
  long wholeMinutes = static_cast<long>(std::trunc((a.time - static_cast<float>(wholeHours)) * 60.0f));
  std::string clock = (wholeHours < 10 && wholeHours >= 0 ? "0" : "") + std::to_string(wholeHours) +
                      (wholeMinutes < 10 && wholeMinutes >= 0 ? ":0" : ":") + std::to_string(wholeMinutes);
  if (newDay != day) {
    // The date part names the new day in the year it now belongs to.
    std::optional<DateOfYear> date = DayToDate(newDay, newYear);
    std::string dayText = date ? std::to_string(date->dayOfMonth) + " " + date->monthName : "";
    a.text = clock + " (" + dayText + ")";
  } else {
    a.text = clock;
  }
  return a;
}

double JulianDate(int dayOfMonth, int month, int year, int hour, int minute, int second) {
  double Y = year < 1000 ? year + 1900 : year;
  double M = month;
  double D = dayOfMonth;
  double UT = hour + minute / 60.0 + second / 3600.0;
  double arg = 100.0 * Y + M - 190002.5;
  double sign = arg > 0 ? 1.0 : -1.0;
  return 367.0 * Y - std::floor(7.0 * (Y + std::floor((M + 9.0) / 12.0)) / 4.0) + std::floor(275.0 * M / 9.0) +
         D + 1721013.5 + UT / 24.0 - 0.5 * sign + 0.5;
}

std::string MonthExtension(int month) {
  static const std::array<const char*, 12> ext = {".jan", ".feb", ".mar", ".apr", ".may", ".jun",
                                                  ".jul", ".aug", ".sep", ".oct", ".nov", ".dec"};
  if (month < 1 || month > 12) return "";
  return ext[static_cast<size_t>(month - 1)];
}

std::string MonthExtension() { return MonthExtension(LocalNow().tm_mon + 1); }

}  // namespace kelvane
