// The user's short-date order and language, found by experiment, and the
// checks of the working date and time form.
//
// The program builds date texts in the order of the user's short date and
// needs to know the language of the weekday names. It finds both the way a
// careful person would: it looks at today's date text for the separator and
// the place of the year, then writes the test date 3 January 2001 (day
// first) or 1 March 2001 (month first) in the locale's own order and reads
// the abbreviated weekday back. A Wednesday means the day comes before the
// month; a Thursday means the month comes first. The name itself tells the
// language.
#pragma once

#include <optional>
#include <string>

namespace kelvane {

// What the locale tells about dates, gathered from the system (or made up
// in a test).
struct LocaleDateFacts {
  std::string todayText;       // today's short date in the locale, e.g. "23/11/26"
  bool yearFirst = false;      // the year stands at the front of the short date
  bool dayBeforeMonth = true;  // the day comes before the month
  std::string testWeekday;     // abbreviated weekday of the test date in the locale
  int month = 0;               // today's month number, 1 .. 12
  int day = 0;
  int year = 0;
  std::string monthName;       // today's month in full, in the locale
};

struct DateFormat {
  std::string format;     // "DD/MM/YYYY", "MM-DD-YYYY", "YYYY.MM.DD", ... or "" when unknown
  std::string language;   // "ENGLISH", "GERMAN", ... or "" when unknown
  std::string separator;  // "/", "-" or "."
  std::string monthName;
  int month = 0;
  int day = 0;
  int year = 0;
  bool fellBack = false;  // the weekday matched no known language
};

inline constexpr const char* kDateFormatIncompatible =
    "DATE FORMAT INCOMPATIBLE WITH PROGRAM - Change in 'Control Panel' -> 'International Settings' and set short "
    "date to 'MM/DD/YY'";

// The experiment on given facts. A weekday of no known language gives an
// empty format and language.
DateFormat DetectDateFormat(const LocaleDateFacts& facts);

// The facts of a glibc locale by name ("en_GB.UTF-8"), or of the user's
// time locale (LC_ALL, LC_TIME, LANG) when the name is empty. Empty when
// the locale is not installed.
std::optional<LocaleDateFacts> LocaleDateFactsFor(const std::string& localeName = "");

// The start-up probe: the experiment on the user's locale. A locale that is
// not installed, or whose weekday names the table does not know, falls back
// to the order the locale (or, failing that, the C locale) writes dates in,
// with English: on Linux a missing control-panel setting is no reason to
// refuse to start.
DateFormat DetectSystemDateFormat();

// ---- the working date and time form -------------------------------------

struct ClockEntry {
  int hours = 0;
  int minutes = 0;
};

// The time box of the date form: "HH:MM". No ":" gives
// "Please enter a valid time i.e. 12:35"; hours above 23 or minutes of 60
// or more give "Please enter a valid time". Returns the entry or the
// message.
struct [[nodiscard]] ClockCheck {
  std::optional<ClockEntry> entry;
  std::string message;
};
ClockCheck CheckTimeText(const std::string& text);

// The date text of day, month and year in the order of a format string
// ("DD/MM/YYYY" -> "05/03/2026").
std::string DateText(const std::string& format, int day, int month, int year);

// What the form sets on OK: the working day of the year, year, time and
// Julian date, with the weekday word for its label.
struct WorkingDate {
  int dayOfYear = 0;
  int year = 0;
  int month = 0;
  int dayOfMonth = 0;
  float time = 0;
  double julianDate = 0;
  std::string weekday;    // "Monday" ..
  std::string monthName;  // "Jan" ..
};
// Builds the working date from the form's lists and time box. The day of
// the year follows the real calendar. A day that the month does not have
// (31 April) rolls into the next month, as a date text read back by the
// system would.
WorkingDate MakeWorkingDate(int day, int month, int year, const ClockEntry& clock);

}  // namespace kelvane
