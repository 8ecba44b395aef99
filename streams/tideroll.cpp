#include "streams/tideroll.h"

#include <cmath>

#include "core/timetext.h"

namespace kelvane {

namespace {

int DaysInYear(int year) { return IsLeapYear(year) ? 366 : 365; }

}  // namespace

TideRollResult RollTideTime(const TideMoment& now, bool plus) {
  TideRollResult out;
  out.moment = now;
  float hours;
  if (plus) {
    hours = std::floor(now.hours) + 1.0f;
  } else {
    const float half = std::floor(now.hours) + 0.5f;
    hours = std::floor(half - 1.0f);
  }
  int day = now.day, year = now.year;
  if (hours >= 24.0f) {
    hours -= 24.0f;
    if (++day > DaysInYear(year)) {
      day = 1;
      ++year;
    }
  } else if (hours < 0.0f) {
    hours += 24.0f;
    if (--day < 1) {
      --year;
      day = DaysInYear(year);
    }
  }
  out.moment.hours = hours;
  out.dateChanged = day != now.day || year != now.year;
  out.moment.day = static_cast<std::int16_t>(day);
  out.moment.year = static_cast<std::int16_t>(year);
  if (out.dateChanged) {
    if (auto date = DayToDate(day, year)) {
      out.moment.month = static_cast<std::int16_t>(date->month);
      out.moment.dayOfMonth = static_cast<std::int16_t>(date->dayOfMonth);
    }
  }
  return out;
}

}  // namespace kelvane
