// The working moment of the main window: the day, year and time that the
// tides, streams and passages are worked for, beside today's date and the
// day for which the reference-port predictions are loaded.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>

#include "core/clock.h"

namespace kelvane {

struct WorkingMoment {
  std::int16_t WorkingDay = 1;   // day of the year
  std::int16_t WorkingYear = 2000;
  float WorkingTime = 0;         // decimal hours
  std::int16_t WorkingMonth = 1;
  std::int16_t WorkingDayOfMonth = 1;
  std::int16_t TodayDay = 1;
  std::int16_t TodayYear = 2000;
  std::int16_t TideDay = 0;      // the day the reference-port curves hold
  std::int16_t TideYear = 0;
  double JulianDateNow = 0;
  bool userTimeSet = false;      // a time set by the user is in force: the clock does not move it
};

// Sets the working moment and today from a reading of the clock: the time
// as hours + minutes / 60 + seconds / 3600, the day of the year, year,
// month and day of the month, and the Julian date.
void ReadClock(WorkingMoment& moment, const std::tm& local);

// The idle tick of the main window (every 100 ms while no instrument port is
// attached). It counts ticks and, when the count passes 600 (about once a
// minute), starts again from 0 and answers true: time to read the clock,
// run the minute's routine and redraw. It does not count while a replay
// runs or while a time set by the user is in force.
struct IdleTicker {
  int count = 0;
  bool Tick(bool replayActive, bool userTimeSet);
};

// What the minute's routine must do after the clock has been read.
struct [[nodiscard]] MinuteWork {
  bool newDay = false;      // the day changed: rebuild the day's curves
  std::string message;      // "Problem with time and date - Initialising Todays Tides" for a bad day
};
// Compares the clock's day of the year with TodayDay; a new day is stored
// into TodayDay and TodayYear.
MinuteWork Timer1Routine(WorkingMoment& moment, int clockDayOfYear, int clockYear);

}  // namespace kelvane
