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

// Julian date of a civil moment. A year below 1000 is taken as 19xx.
double JulianDate(int dayOfMonth, int month, int year, int hour, int minute, int second);

// ".jan" .. ".dec" for month 1 .. 12 (track file names); "" otherwise.
std::string MonthExtension(int month);
// The same for the month of the system clock.
std::string MonthExtension();

}  // namespace kelvane
