// Clock and span texts, the day-of-year calendar, AddHours and the Julian
// date. Expected texts are worked by hand from the rules of each function.
#include <gtest/gtest.h>

#include "core/timetext.h"

using namespace kelvane;

TEST(Clock, HoursToClockRoundsAndWraps) {
  EXPECT_EQ(HoursToClock(12.5f), "12:30");
  EXPECT_EQ(HoursToClock(0.0f), "00:00");
  EXPECT_EQ(HoursToClock(9.0166667f), "09:01");
  EXPECT_EQ(HoursToClock(7.991f), "07:59");   // 59.46 min rounds down
  EXPECT_EQ(HoursToClock(7.992f), "08:00");   // 59.52 min rounds up and carries
  EXPECT_EQ(HoursToClock(23.999f), "00:00");  // 24 wraps to 00
}

TEST(Clock, CoarseClockGoesThroughHundredthsAndDoesNotWrap) {
  EXPECT_EQ(HoursToClockCoarse(2.5f), "02:30");
  EXPECT_EQ(HoursToClockCoarse(12.0f), "12:00");
  EXPECT_EQ(HoursToClockCoarse(10.75f), "10:45");
  // 0.125 h: 12.5 hundredths round to even, 12, so 0.12 h = 7.2 min -> 07.
  EXPECT_EQ(HoursToClockCoarse(0.125f), "00:07");
  // 3.995 as a float is 3.99499989: 99 hundredths, 59.4 min -> 59.
  EXPECT_EQ(HoursToClockCoarse(3.995f), "03:59");
  // A full hour carries into the plain number text, leading blank and all.
  EXPECT_EQ(HoursToClockCoarse(3.999f), " 4:00");
  EXPECT_EQ(HoursToClockCoarse(23.999f), " 24:00");
  EXPECT_EQ(HoursToClockCoarse(30.5f), "30:30");
}

TEST(Clock, Spans) {
  // 3 h 25 min: 0.41667 h -> 0.42 h -> 25.2 min -> 25.
  EXPECT_EQ(HoursToSpan(3.4166667f), "03Hrs 25Min ");
  EXPECT_EQ(HoursToSpan(27.5f), "27Hrs 30Min ");
  EXPECT_EQ(HoursToSpan(0.0f), "00Hrs 00Min ");
}

TEST(Calendar, DayToDateUsesItsOwnLeapList) {
  struct Case {
    int day, year;
    const char* month;
    int monthNumber, dayOfMonth;
  };
  const Case cases[] = {
      {1, 2023, "Jan", 1, 1},     {60, 2000, "Feb", 2, 29}, {60, 2024, "Feb", 2, 29},
      {60, 2023, "Mar", 3, 1},    {60, 1996, "Mar", 3, 1},  // 1996 is not in the list
      {60, 2088, "Mar", 3, 1},    {366, 2024, "Dec", 12, 31}, {365, 2023, "Dec", 12, 31},
      {101, 2023, "Apr", 4, 11},  {335, 2023, "Dec", 12, 1},  {336, 2024, "Dec", 12, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.day) + "/" + std::to_string(c.year));
    auto d = DayToDate(c.day, c.year);
    ASSERT_TRUE(d.has_value());
    EXPECT_EQ(d->monthName, c.month);
    EXPECT_EQ(d->month, c.monthNumber);
    EXPECT_EQ(d->dayOfMonth, c.dayOfMonth);
  }
  EXPECT_FALSE(DayToDate(0, 2023).has_value());
  EXPECT_FALSE(DayToDate(367, 2024).has_value());
  EXPECT_TRUE(IsLeapYear(1996));
  EXPECT_TRUE(IsLeapYear(2000));
  EXPECT_FALSE(IsLeapYear(1900));
  EXPECT_FALSE(IsLeapYear(2023));
}

TEST(Calendar, AddHours) {
  struct Case {
    const char* name;
    int day, year;
    float time, added;
    const char* text;
    float newTime;
    int newDay, newYear;
  };
  const Case cases[] = {
      {"next day", 100, 2023, 23.5f, 1.0f, "00:30 (11 Apr)", 0.5f, 101, 2023},
      {"same day", 100, 2023, 10.0f, 2.25f, "12:15", 12.25f, 100, 2023},
      // 10.333333 h: 19.99998 min are truncated to 19.
      {"minutes truncated", 100, 2023, 10.0f, 0.3333333f, "10:19", 10.333333f, 100, 2023},
      // Over New Year in a year off the list the day rolls at 366; the time
      // is worked from day 1 against day 365 and gains 364 x 24 hours.
      {"New Year, unlisted year", 365, 2023, 23.0f, 2.0f, "8761:00 (1 Jan)", 8761.0f, 1, 2024},
      // In a listed year the day runs to 366 and rolls at 367.
      {"New Year, listed year", 366, 2024, 23.0f, 2.0f, "8785:00 (1 Jan)", 8785.0f, 1, 2025},
      {"day 366 of a listed year", 365, 2024, 23.0f, 2.0f, "01:00 (31 Dec)", 1.0f, 366, 2024},
      // 2068 is a leap year but not on the list (2070 stands in its place).
      {"2068 rolls early", 365, 2068, 23.0f, 2.0f, "8761:00 (1 Jan)", 8761.0f, 1, 2069},
      // 2070 is on the roll list but not in the calendar's leap list.
      {"2070 keeps day 366", 365, 2070, 23.0f, 2.0f, "01:00 (32 Dec)", 1.0f, 366, 2070},
      {"two days on", 10, 2023, 20.0f, 30.0f, "02:00 (12 Jan)", 2.0f, 12, 2023},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Arrival a = AddHours(c.day, c.year, c.time, c.added);
    EXPECT_EQ(a.text, c.text);
    EXPECT_FLOAT_EQ(a.time, c.newTime);
    EXPECT_EQ(a.day, c.newDay);
    EXPECT_EQ(a.year, c.newYear);
  }
}

TEST(Calendar, JulianDate) {
  // J2000.0 is JD 2451545.0 at noon on 1 January 2000.
  EXPECT_DOUBLE_EQ(JulianDate(1, 1, 2000, 12, 0, 0), 2451545.0);
  EXPECT_DOUBLE_EQ(JulianDate(1, 1, 2000, 0, 0, 0), 2451544.5);
  // Sputnik 1, 1957 October 4.81 UT = JD 2436116.31 (a standard worked
  // example); a two-digit year is taken as 19xx.
  EXPECT_NEAR(JulianDate(4, 10, 1957, 19, 26, 24), 2436116.31, 1e-6);
  EXPECT_NEAR(JulianDate(4, 10, 57, 19, 26, 24), 2436116.31, 1e-6);
  EXPECT_EQ(MonthExtension(1), ".jan");
  EXPECT_EQ(MonthExtension(12), ".dec");
  EXPECT_EQ(MonthExtension(13), "");
  EXPECT_EQ(MonthExtension().size(), 4u);
}

TEST(AdvanceMoment, StaysWithinTheDayAndRollsAtTheRealEndOfTheYear) {
  struct Case {
    const char* name;
    int day, year;
    float time, added;
    PassageMoment want;
  };
  const Case cases[] = {
      {"same day", 100, 2025, 9.5f, 2.25f, {11.75f, 100, 2025}},
      {"over midnight", 100, 2025, 23.0f, 2.0f, {1.0f, 101, 2025}},
      {"two days on", 10, 2023, 20.0f, 30.0f, {2.0f, 12, 2023}},
      // 31 December of a common year is day 365: the next day is 1 January.
      {"New Year of a common year", 365, 2025, 22.0f, 3.0f, {1.0f, 1, 2026}},
      // A leap year has its day 366; 1900 was not one, 2000 was.
      {"31 December of a leap year", 365, 2024, 23.0f, 2.0f, {1.0f, 366, 2024}},
      {"New Year of a leap year", 366, 2024, 23.0f, 2.0f, {1.0f, 1, 2025}},
      {"1900 is common", 365, 1900, 23.0f, 2.0f, {1.0f, 1, 1901}},
      {"2000 is leap", 365, 2000, 23.0f, 2.0f, {1.0f, 366, 2000}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PassageMoment m = AdvanceMoment(static_cast<std::int16_t>(c.day), static_cast<std::int16_t>(c.year), c.time, c.added);
    EXPECT_FLOAT_EQ(m.time, c.want.time);
    EXPECT_EQ(m.day, c.want.day);
    EXPECT_EQ(m.year, c.want.year);
  }
}

TEST(DaysInMonth, FullLeapRule) {
  struct Case {
    int month, year, days;
  };
  const Case cases[] = {{1, 2025, 31}, {2, 2025, 28}, {2, 2024, 29}, {2, 1900, 28}, {2, 2000, 29},
                        {4, 2025, 30}, {6, 2025, 30}, {9, 2025, 30}, {11, 2025, 30}, {12, 2025, 31}};
  for (const Case& c : cases) EXPECT_EQ(DaysInMonth(c.month, c.year), c.days) << c.month << "/" << c.year;
}

TEST(TypedDateTime, RealDatesOnlyWithTheGregorianLeapRule) {
  struct Case {
    const char* text;
    bool ok;
    int day, year;
    float hours;
    const char* clock;
  } cases[] = {
      {"2024-02-29 12:30", true, 60, 2024, 12.5f, "12:30"},
      {"2000-12-31 23:59", true, 366, 2000, 23.0f + 59.0f / 60.0f, "23:59"},
      {"2025-6-10 8:5", true, 161, 2025, 8.0f + 5.0f / 60.0f, "08:05"},
      {"2023-02-29 00:00", false, 0, 0, 0, ""},
      {"1900-02-29 00:00", false, 0, 0, 0, ""},  // a century year is common
      {"2025-06-10 24:00", false, 0, 0, 0, ""},
      {"2025-06-10 08:00x", false, 0, 0, 0, ""},
      {"2025-06-10", false, 0, 0, 0, ""},
      {"0000-01-01 00:00", false, 0, 0, 0, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const auto m = ParseDateTime(c.text);
    ASSERT_EQ(m.has_value(), c.ok);
    if (!m) continue;
    EXPECT_EQ(m->day, c.day);
    EXPECT_EQ(m->year, c.year);
    EXPECT_FLOAT_EQ(m->hours, c.hours);
    EXPECT_EQ(m->clock, c.clock);
  }
}
