// Rolling the tide time by the hour. Dates worked by hand from the calendar
// (2023 a common year, 2024 a leap year).
#include <gtest/gtest.h>

#include "streams/tideroll.h"

namespace kelvane {
namespace {

TEST(TideRoll, StepsToWholeHoursAndRollsTheDate) {
  struct Case {
    const char* what;
    TideMoment from;
    bool plus;
    float hours;
    int day, year, month, dayOfMonth;
    bool changed;
  } cases[] = {
      {"plus from 10:20", {10.3333f, 100, 2023, 4, 10}, true, 11.0f, 100, 2023, 4, 10, false},
      {"minus from 10:20", {10.3333f, 100, 2023, 4, 10}, false, 9.0f, 100, 2023, 4, 10, false},
      {"minus from 10:00", {10.0f, 100, 2023, 4, 10}, false, 9.0f, 100, 2023, 4, 10, false},
      {"plus from 22:59", {22.99f, 100, 2023, 4, 10}, true, 23.0f, 100, 2023, 4, 10, false},
      {"past 23:00 to the next day", {23.5f, 100, 2023, 4, 10}, true, 0.0f, 101, 2023, 4, 11, true},
      {"before 00:00 to the day before", {0.5f, 60, 2024, 2, 29}, false, 23.0f, 59, 2024, 2, 28, true},
      {"minus from 00:00 exactly", {0.0f, 61, 2024, 3, 1}, false, 23.0f, 60, 2024, 2, 29, true},
      {"before New Year to 31 December", {0.25f, 1, 2024, 1, 1}, false, 23.0f, 365, 2023, 12, 31, true},
      {"before New Year after a leap year", {0.25f, 1, 2025, 1, 1}, false, 23.0f, 366, 2024, 12, 31, true},
      {"past midnight of 31 December", {23.0f, 365, 2023, 12, 31}, true, 0.0f, 1, 2024, 1, 1, true},
      {"31 December of a leap year is day 366", {23.2f, 365, 2024, 12, 30}, true, 0.0f, 366, 2024, 12, 31, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TideRollResult r = RollTideTime(c.from, c.plus);
    EXPECT_EQ(r.moment.hours, c.hours);
    EXPECT_EQ(r.moment.day, c.day);
    EXPECT_EQ(r.moment.year, c.year);
    EXPECT_EQ(r.moment.month, c.month);
    EXPECT_EQ(r.moment.dayOfMonth, c.dayOfMonth);
    EXPECT_EQ(r.dateChanged, c.changed);
  }
}

}  // namespace
}  // namespace kelvane
