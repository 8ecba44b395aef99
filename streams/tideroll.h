// Rolling the tide time by an hour (the Tides menu's "+ 1 Hour" and
// "- 1 Hour"): the stream arrows and port states then show the next or the
// previous whole hour.
#pragma once

#include <cstdint>

namespace kelvane {

// The tide time: decimal hours of the day and the date.
struct TideMoment {
  float hours = 0;            // 0 <= hours < 24
  std::int16_t day = 1;       // day of the year from 1
  std::int16_t year = 2000;
  std::int16_t month = 1;     // 1 .. 12
  std::int16_t dayOfMonth = 1;
};

struct [[nodiscard]] TideRollResult {
  TideMoment moment;
  bool dateChanged = false;  // the day's curves must be rebuilt
};

// One roll. A plus step goes to Int(hours) + 1; a minus step to the whole
// hour below Int(hours): the time is first put on the half hour,
// Int(hours) + 0.5, so that a time a hair under a whole hour (9.9999 for
// 10:00) stays within its hour, and then one hour back and down to the
// whole hour (Int floors, as the program's Int does). 24 and more rolls to
// 0 of the next day; below 0 to 23 of the day before. The day of the year
// runs to 365 or 366 (Gregorian years) and rolls the year: before 00:00 on
// 1 January comes 23:00 on 31 December of the year before. Month and day
// of the month follow the day through DayToDate.
TideRollResult RollTideTime(const TideMoment& now, bool plus);

}  // namespace kelvane
