// The clock of the main window. On real time the moment in force is the
// clock's: every minute the reference ports' state and the streams on the
// chart move on with it. A date and time set by the user (or a rolled tide
// time) stay in force until the user lets go of them; the minute's routine
// then only watches for a new day.
//
// Two timers drive the routine. With no port attached the idle tick
// (Timer1, 100 ms) counts to a minute, reads the clock and runs it; while a
// port is attached the polling loop of the instruments calls it instead,
// about every 21 of its time passes.
#include "app/mainwindow.h"
#include "streams/tidalstreams.h"

namespace kelvane::app {

void FrmChart::Timer1_Timer() {
  if (ticker_.Tick(false, state_.moment.userTimeSet)) MinuteTick();
}

void FrmChart::MinuteTick() {
  Timer1Routine();
  if (!isMinimized()) Redraw();
}

void FrmChart::Timer1Routine() {
  // The legs of a route are being worked through the day's curves: the
  // routine leaves the tide and stream state alone until they are done.
  if (calculating_) return;
  WorkingMoment& m = state_.moment;
  const std::tm now = clock();
  if (!m.userTimeSet) {
    // The routine compares the clock's day with the day in force, so the
    // clock reading must not take today's day over first.
    const std::int16_t today = m.TodayDay, todayYear = m.TodayYear;
    ReadClock(m, now);
    m.TodayDay = today;
    m.TodayYear = todayYear;
  }
  MinuteWork work = kelvane::Timer1Routine(m, now.tm_yday + 1, now.tm_year + 1900);
  if (!work.message.empty()) showMessage(work.message);
  if (work.newDay) {
    // The curves of the day in force (today's on real time), then the
    // ports' state and the streams.
    LoadTides(m.WorkingDay, m.WorkingYear);
  } else {
    StreamContext ctx = state_.Streams();
    UpdatePortStates(ctx, true, m.WorkingTime);
    CalculateStreamsNow();
  }
  UpdateCaption();
}

void FrmChart::BackToClockTime() {
  WorkingMoment& m = state_.moment;
  m.userTimeSet = false;
  ReadClock(m, clock());
  LoadTides(m.WorkingDay, m.WorkingYear);
  UpdateCaption();
  Redraw();
}

}  // namespace kelvane::app
