#include "core/workingtime.h"

#include "core/timetext.h"

namespace kelvane {

void ReadClock(WorkingMoment& m, const std::tm& t) {
  m.WorkingTime = static_cast<float>(t.tm_hour + t.tm_min / 60.0 + t.tm_sec / 3600.0);
  m.WorkingDay = static_cast<std::int16_t>(t.tm_yday + 1);
  m.WorkingYear = static_cast<std::int16_t>(t.tm_year + 1900);
  m.WorkingMonth = static_cast<std::int16_t>(t.tm_mon + 1);
  m.WorkingDayOfMonth = static_cast<std::int16_t>(t.tm_mday);
  m.TodayDay = m.WorkingDay;
  m.TodayYear = m.WorkingYear;
  m.JulianDateNow = JulianDate(t.tm_mday, t.tm_mon + 1, t.tm_year + 1900, t.tm_hour, t.tm_min, t.tm_sec);
}

bool IdleTicker::Tick(bool replayActive, bool userTimeSet) {
  if (replayActive || userTimeSet) return false;
  ++count;
  if (count > 600) {
    count = 0;
    return true;
  }
  return false;
}

MinuteWork Timer1Routine(WorkingMoment& m, int clockDayOfYear, int clockYear) {
  MinuteWork w;
  if (clockDayOfYear != m.TodayDay) {
    m.TodayDay = static_cast<std::int16_t>(clockDayOfYear);
    m.TodayYear = static_cast<std::int16_t>(clockYear);
    w.newDay = true;
    if (clockDayOfYear < 0 || clockDayOfYear > 366) w.message = "Problem with time and date - Initialising Todays Tides";
  }
  return w;
}

}  // namespace kelvane
