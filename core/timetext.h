// Moments of a passage: decimal-hour clock texts, the day-of-year calendar
// and the Julian date.
//
// Time of day is decimal hours in a 32-bit float (12:30 is 12.5); Day is the
// 16-bit day of the year from 1; Year is 16-bit with four digits. No time
// zone is held anywhere: times are plain local times.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kelvane {

// "HH:MM". Minutes are rounded to the nearest; a clock of 24 wraps to 00.
std::string HoursToClock(float hours);

// "HH:MM" for arrival times and results. The fraction of the hour passes
// through hundredths first, so minutes move in steps of about 0.6, and an
// hour that fills up is not wrapped: its text becomes the signed number
// text with a leading blank, " 4:00", " 24:00".
std::string HoursToClockCoarse(float hours);

// The same calculation as a span: "03Hrs 25Min ". Passages over a day
// print all their hours.
std::string HoursToSpan(float hours);

// The Gregorian rule.
bool IsLeapYear(int year);

// The leap years of the program's own day tables: the multiples of four
// from `first` to `last` and no others. The spans are the tables' own and
// are kept as they stand: the calendar of DayToDate knows 2000 to 2084, so
// 1996 takes the common table, and the year roll of AddHours knows 1984 to
// 2064 (and 2070). The Gregorian rule must not take their place.
bool IsListedLeapYear(int year, int first, int last);

// Days of the month, with the full Gregorian leap rule.
int DaysInMonth(int month, int year);

// Day of the year, from 1, of a Gregorian date.
int DayOfYear(int dayOfMonth, int month, int year);

// A date of the proleptic Gregorian calendar.
struct CivilDate {
  std::int64_t year = 0;
  int month = 0;  // 1 .. 12
  int day = 0;    // 1 .. 31
};

// The date of a serial day number, the count that databases and the chart
// catalogue keep dates in: day 0 is 30 December 1899, day 2 is 1 January
// 1900, and days before day 0 count back (-1 is 29 December 1899). Any
// 64-bit count well inside +-1e12 days is exact.
CivilDate SerialDayToDate(std::int64_t serialDay);

// A moment of a passage typed as text: the day of the year, the year, the
// time in decimal hours and the clock text "HH:MM".
struct TypedMoment {
  std::int16_t day = 0, year = 0;
  float hours = 0;
  std::string clock;
};

// "YYYY-MM-DD HH:MM" (years 1 to 9999, a real date, 00:00 to 23:59, nothing
// after the minutes) to a moment; anything else gives nothing.
std::optional<TypedMoment> ParseDateTime(const std::string& text);

struct DateOfYear {
  std::string monthName;  // "Jan" .. "Dec"
  int month = 0;          // 1 .. 12
  int dayOfMonth = 0;
};

// Month and day of a day of the year. Leap years for this purpose are the
// multiples of four from 2000 to 2084 and no others: 1996 takes the common
// table although it was a leap year. A day outside 1 .. 366 gives nothing,
// and callers keep what they had.
std::optional<DateOfYear> DayToDate(int day, int year);

struct Arrival {
  std::string text;      // "07:20" or "07:20 (5 Mar)"
  float time = 0;        // decimal hours of the new day
  std::int16_t day = 0;  // day of the year
  std::int16_t year = 0;
};

// Adds hours to a moment. The year rolls at 367 in the listed years (the
// multiples of four from 1984 to 2064, then 2070 in place of 2068) and at
// 366 in all others. The new time is worked out from the day numbers after
// the roll, so across New Year it gains a year's worth of hours, and its
// clock text shows them: that is the program's long-standing behaviour.
Arrival AddHours(int day, int year, float time, float added);

// A moment of a passage on the calendar: the time of day (0 to below 24),
// the day of the year and the year.
struct PassageMoment {
  float time = 0;
  std::int16_t day = 0;
  std::int16_t year = 0;
  bool operator==(const PassageMoment&) const = default;
};

// The moment `added` hours (0 or more) after `time` on `day` of `year`, as
// the tides must be looked up for it: the whole days are carried into the
// day of the year, and the year rolls after its real last day (365 or 366
// by the Gregorian rule), so that the clock of a passage over midnight or
// New Year stays within the day and its streams are those of the right
// date. AddHours keeps its own roll for the text it prints.
PassageMoment AdvanceMoment(std::int16_t day, std::int16_t year, float time, float added);

// Julian date of a civil moment. A year below 1000 is taken as 19xx.
double JulianDate(int dayOfMonth, int month, int year, int hour, int minute, int second);

// ".jan" .. ".dec" for month 1 .. 12 (track file names); "" otherwise.
std::string MonthExtension(int month);
// The same for the month of the system clock.
std::string MonthExtension();

}  // namespace kelvane
