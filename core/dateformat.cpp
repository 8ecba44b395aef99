#include "core/dateformat.h"

#include <langinfo.h>
#include <locale.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "core/clock.h"
#include "core/format.h"
#include "core/timetext.h"

namespace kelvane {

namespace {

struct LanguageNames {
  const char* language;
  const char* wednesday;
  const char* thursday;
};

// Abbreviated weekday names of the test dates, by language.
const std::array<LanguageNames, 9> kLanguages = {{
    {"ENGLISH", "Wed", "Thu"},
    {"BASQUE", "az.", "og."},
    {"FRENCH", "mer.", "jeu"},
    {"GERMAN", "Mi", "Do"},
    {"SPANISH", "mié", "jue"},
    {"PORTUGESE", "qua", "qui"},
    {"NYNORSK", "on", "to"},
    {"ITALIAN", "mer", "gio"},
    {"DUTCH", "wo", "do"},
}};

std::string SeparatorOf(const std::string& text) {
  std::string sep;
  for (const char* s : {"/", "-", "."})
    if (text.find(s) != std::string::npos) sep = s;  // the last one found wins
  return sep;
}

std::string FormatFor(const std::string& sep, bool yearFirst, bool dayFirst) {
  if (yearFirst) return dayFirst ? "YYYY" + sep + "DD" + sep + "MM" : "YYYY" + sep + "MM" + sep + "DD";
  return dayFirst ? "DD" + sep + "MM" + sep + "YYYY" : "MM" + sep + "DD" + sep + "YYYY";
}

}  // namespace

DateFormat DetectDateFormat(const LocaleDateFacts& facts) {
  DateFormat r;
  r.separator = SeparatorOf(facts.todayText);
  r.month = facts.month;
  r.day = facts.day;
  r.year = facts.year;
  r.monthName = facts.monthName;
  for (const LanguageNames& l : kLanguages) {
    bool wednesday = facts.testWeekday == l.wednesday;
    bool thursday = facts.testWeekday == l.thursday;
    if (!wednesday && !thursday) continue;
    r.language = l.language;
    if (r.language == "NYNORSK" && r.separator == ".") r.language = "NORWEGIAN";
    r.format = FormatFor(r.separator, facts.yearFirst, wednesday);
    return r;
  }
  return r;
}

std::optional<LocaleDateFacts> LocaleDateFactsFor(const std::string& localeName) {
  std::string name = localeName;
  if (name.empty()) {
    for (const char* var : {"LC_ALL", "LC_TIME", "LANG"}) {
      const char* v = std::getenv(var);
      if (v && *v) {
        name = v;
        break;
      }
    }
    if (name.empty()) name = "C";
  }
  locale_t loc = newlocale(LC_TIME_MASK, name.c_str(), static_cast<locale_t>(0));
  if (loc == static_cast<locale_t>(0)) return std::nullopt;
  LocaleDateFacts facts;
  std::string dfmt = nl_langinfo_l(D_FMT, loc);
  // The order of the fields in the locale's short date.
  auto at = [&](std::initializer_list<const char*> keys) {
    size_t best = std::string::npos;
    for (const char* k : keys) best = std::min(best, dfmt.find(k));
    return best;
  };
  size_t d = at({"%d", "%e", "%-d"});
  size_t m = at({"%m", "%-m", "%b"});
  size_t y = at({"%Y", "%y", "%C"});
  facts.yearFirst = y != std::string::npos && (d == std::string::npos || y < d) && (m == std::string::npos || y < m);
  facts.dayBeforeMonth = d != std::string::npos && (m == std::string::npos || d < m);

  std::tm today = LocalNow();
  char buf[128];
  strftime_l(buf, sizeof buf, dfmt.c_str(), &today, loc);
  facts.todayText = buf;
  strftime_l(buf, sizeof buf, "%B", &today, loc);
  facts.monthName = buf;
  facts.month = today.tm_mon + 1;
  facts.day = today.tm_mday;
  facts.year = today.tm_year + 1900;

  // The test date read in the locale's own order: 03 then 01 of 2001.
  std::tm test{};
  test.tm_year = 2001 - 1900;
  test.tm_mon = facts.dayBeforeMonth ? 0 : 2;
  test.tm_mday = facts.dayBeforeMonth ? 3 : 1;
  test.tm_hour = 12;
  std::mktime(&test);
  strftime_l(buf, sizeof buf, "%a", &test, loc);
  facts.testWeekday = buf;
  freelocale(loc);
  return facts;
}

DateFormat DetectSystemDateFormat() {
  std::optional<LocaleDateFacts> facts = LocaleDateFactsFor();
  bool fromUser = facts.has_value();
  if (!facts) facts = LocaleDateFactsFor("C");
  DateFormat r = facts ? DetectDateFormat(*facts) : DateFormat{};
  if (r.format.empty() && facts) {
    std::string sep = r.separator.empty() ? "/" : r.separator;
    r.format = FormatFor(sep, facts->yearFirst, facts->dayBeforeMonth);
    r.language = "ENGLISH";
    r.fellBack = true;
  }
  if (!fromUser) r.fellBack = true;
  return r;
}

// ---- the working date and time form -------------------------------------

ClockCheck CheckTimeText(const std::string& text) {
  ClockCheck c;
  size_t colon = text.find(':');
  if (colon == std::string::npos) {
    c.message = "Please enter a valid time i.e. 12:35";
    return c;
  }
  double h = TextValue(text.substr(0, colon));
  double m = TextValue(text.substr(colon + 1));
  if (h > 23 || m >= 60 || h < 0 || m < 0) {
    c.message = "Please enter a valid time";
    return c;
  }
  c.entry = ClockEntry{static_cast<int>(h), static_cast<int>(m)};
  return c;
}

std::string DateText(const std::string& format, int day, int month, int year) {
  std::string out = format;
  auto put = [&](const std::string& key, const std::string& value) {
    size_t p = out.find(key);
    if (p != std::string::npos) out.replace(p, key.size(), value);
  };
  put("YYYY", FormatNumber(year, "0000"));
  put("DD", FormatNumber(day, "00"));
  put("MM", FormatNumber(month, "00"));
  return out;
}

WorkingDate MakeWorkingDate(int day, int month, int year, const ClockEntry& clock) {
  std::tm t{};
  t.tm_year = year - 1900;
  t.tm_mon = month - 1;
  t.tm_mday = day;
  t.tm_hour = 12;  // noon keeps a summer-time change out of the date
  std::mktime(&t);
  static const char* weekdays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  static const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  WorkingDate w;
  w.dayOfYear = t.tm_yday + 1;
  w.year = t.tm_year + 1900;
  w.month = t.tm_mon + 1;
  w.dayOfMonth = t.tm_mday;
  w.time = static_cast<float>(clock.hours + clock.minutes / 60.0);
  w.julianDate = JulianDate(w.dayOfMonth, w.month, w.year, clock.hours, clock.minutes, 0);
  w.weekday = weekdays[t.tm_wday];
  w.monthName = months[t.tm_mon];
  return w;
}

}  // namespace kelvane
