#include "instruments/comms.h"

#include <vector>

#include "core/format.h"
#include "core/timetext.h"

namespace kelvane {

namespace {

constexpr int kReadLength = 1024;

double JulianOf(const ClockReading& now) {
  return JulianDate(now.day, now.month, now.year, now.hour, now.minute, now.second);
}

void Call(const std::function<void()>& hook) {
  if (hook) hook();
}

// Closes a port and opens it again: the same three calls the program has
// always used for a restart.
bool Restart(SerialPorts& ports, int port, int baudCode) {
  ports.Reset(port, 1024, 1024);
  ports.Done(port);
  return OpenPort(ports, port, baudCode).ok;
}

int ReadPort(SerialPorts& ports, int port, std::string& buffer) {
  buffer.resize(kReadLength);
  int count = ports.Gets(port, buffer.data(), kReadLength);
  buffer.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return count;
}

// A point of the trail from the own ship, with the time of the fix and the
// date words of the clock.
TrackPoint TrackPointFrom(const OwnShipState& own, const CommsState& comms) {
  TrackPoint p;
  p.Lat = own.GPSLat;
  p.Long = own.GPSLong;
  std::string_view t(own.GPSTimeText);
  p.Hour = RoundToInt16(TextValue(t.substr(0, 2)));
  p.Minute = RoundToInt16(TextValue(t.substr(2, 2)));
  p.Second = RoundToInt16(TextValue(t.substr(4)));
  p.Day = comms.ClockDay;
  p.Month = comms.ClockMonth;
  p.Year = comms.ClockYear;
  p.Speed = own.GPSSpeed;
  p.Course = own.GPSCourse;
  return p;
}

}  // namespace

TickReport CommsTick(CommsState& comms, InstrumentsState& state, SerialPorts& ports, const ClockReading& now,
                     const CommsHooks& hooks) {
  TickReport report;
  comms.commsTimerEnabled = false;  // a long tick must not overlap itself

  std::string buffer;
  if (comms.PollState == 0) {
    if (comms.GPSAttached == -1 && state.GPSThroAIS == 0) {
      report.gpsChars = ReadPort(ports, comms.GPSPort, buffer);
      if (report.gpsChars > 0) GpsLineAssembler(state, buffer, now);
    }
  } else if (comms.PollState == 1) {
    if (comms.AISAttached == -1) {
      report.aisChars = ReadPort(ports, comms.AISPort, buffer);
      if (report.aisChars > 0) AisLineAssembler(state, buffer, now);
    }
  } else {
    comms.PollState = 1;
  }
  Call(hooks.pumpEvents);
  if (++comms.PollState > 1) comms.PollState = 0;

  if (comms.TickCount == 1 || comms.firstTick) {
    report.timePass = true;
    comms.TimeNowHours = now.Hours();
    comms.ClockYear = static_cast<std::int16_t>(now.year);
    comms.ClockMonth = static_cast<std::int16_t>(now.month);
    comms.ClockDay = static_cast<std::int16_t>(now.day);
    comms.ClockHour = static_cast<std::int16_t>(now.hour);
    comms.ClockMinute = static_cast<std::int16_t>(now.minute);
    comms.JulianNow = JulianOf(now);
    comms.DisplayCount = static_cast<std::int16_t>(comms.DisplayCount + 3);
    if (comms.DisplayCount > 60) {
      Call(hooks.timer1Routine);
      report.timer1Routine = true;
      comms.DisplayCount = 0;
    }
    const OwnShipState& own = state.own;
    if (own.GPSValid == -1 && own.GPSDateText.size() > 5 && own.GPSTimeText.size() > 5) {
      state.track.points.push_back(TrackPointFrom(own, comms));
      report.trackPoint = true;
    }
  }

  if (comms.AISAttached == -1 && state.own.GPSValid == -1) {
    const OwnShipState& own = state.own;
    for (AISTarget& t : state.targets.AISTargets) {
      ClosestApproach(own.GPSLat, own.GPSLong, own.GPSSpeed, own.GPSCourse, t.Lat, t.Long, t.Speed, t.Course, t.CPA,
                      t.TimeToCPA);
      ++report.collisionTargets;
    }
  }

  if (comms.TickCount > 20) {
    if (++comms.viewCycle > 2) {
      comms.viewCycle = 1;
      Call(hooks.redrawOverlays);
      report.redraw = true;
    }
    if (state.own.GPSValid == -1 && comms.GPSCentre == -1 && state.own.GPSLat != 0) Call(hooks.recentreCheck);
    comms.TickCount = 0;
    report.displayPass = true;
    if (comms.debugPanel) comms.statusPanel = "Display refreshed";
  }
  if (comms.debugPanel) comms.statusPanel = "Comms interrupts = " + std::to_string(comms.TickCount);
  comms.TickCount = static_cast<std::int16_t>(comms.TickCount + 1);

  // The clock word moves only at time passes (every 21 ticks), so a short
  // interval flushes at the first time pass after it falls due.
  if (comms.JulianNow >= comms.NextLogFlush || comms.firstTick) {
    Call(hooks.flushLog);
    state.seen.ClearForFlush();
    comms.NextLogFlush = comms.JulianNow + static_cast<double>(comms.GPSInterval) / 86400.0;
    report.flushed = true;
  }
  comms.firstTick = false;
  comms.commsTimerEnabled = true;
  return report;
}

AttachResult AttachGps(CommsState& comms, SerialPorts& ports, const ClockReading& now, const CommsHooks& hooks) {
  AttachResult result;
  ports.Reset(comms.GPSPort, 1024, 1024);
  ports.Done(comms.GPSPort);
  if (!OpenPort(ports, comms.GPSPort, comms.GPSBaudCode).ok) {
    result.message = "The Comm Port " + std::to_string(comms.GPSPort + 1) +
                     " requested for the GPS does not exist or is in use.\r\n"
                     "Use the Configure GPS menu to see what available ports are on this PC.";
    return result;
  }
  comms.NextLogFlush = JulianOf(now);
  Call(hooks.trackPreload);
  Restart(ports, comms.GPSPort, comms.GPSBaudCode);
  if (comms.AISPortOpen != 0) Restart(ports, comms.AISPort, comms.AISBaudCode);
  comms.GPSPortOpen = -1;
  comms.GPSAttached = -1;
  comms.trackDrawing = true;
  comms.firstTick = true;
  comms.commsTimerEnabled = true;
  comms.timer1Enabled = false;
  result.ok = true;
  return result;
}

void DetachGps(CommsState& comms, SerialPorts& ports) {
  comms.GPSAttached = 0;
  comms.GPSPortOpen = 0;
  comms.commsTimerEnabled = false;
  if (comms.AISAttached == 0) {
    comms.timer1Enabled = true;
  } else {
    comms.commsTimerEnabled = true;  // the AIS link keeps the loop running
  }
  ports.Done(comms.GPSPort);
}

AttachResult AttachAis(CommsState& comms, InstrumentsState& state, SerialPorts& ports, const ClockReading& now,
                       const CommsHooks& hooks) {
  AttachResult result;
  if (comms.AISPort < 0) {
    result.message = "The Comm Port requested for the AIS does not exist.\r\nAIS connection cancelled.";
    return result;
  }
  // The probe runs at 38400 baud whatever the setting.
  if (!OpenPort(ports, comms.AISPort, 7).ok) {
    result.message = "The Comm Port " + std::to_string(comms.AISPort + 1) +
                     " requested for the AIS does not exist or is in use.\r\n"
                     "Use the Configure GPS/AIS menu to see what available ports are on this PC.";
    return result;
  }
  comms.AISAttached = -1;
  Restart(ports, comms.AISPort, comms.AISBaudCode);
  if (comms.GPSPortOpen != 0) Restart(ports, comms.GPSPort, comms.GPSBaudCode);
  comms.AISPortOpen = -1;
  comms.PollState = 0;
  state.targets.AISTargets.clear();
  comms.commsTimerEnabled = true;
  comms.timer1Enabled = false;
  if (!comms.firstTick && comms.GPSAttached == 0) comms.firstTick = true;
  if (state.GPSThroAIS != 0) {
    comms.GPSAttached = -1;
    comms.NextLogFlush = JulianOf(now);
    Call(hooks.trackPreload);
  }
  result.ok = true;
  return result;
}

void DetachAis(CommsState& comms, InstrumentsState& state, SerialPorts& ports) {
  ports.Done(comms.AISPort);
  comms.AISPortOpen = 0;
  comms.AISAttached = 0;
  if (state.GPSThroAIS != 0) {
    comms.GPSAttached = 0;
    state.own.GPSLat = 0;
    state.own.GPSLong = 0;
  }
  if (comms.GPSAttached == 0) {
    comms.commsTimerEnabled = false;
    comms.timer1Enabled = true;
  }
}

}  // namespace kelvane

namespace kelvane {

namespace {
// "\res\name.bmp" -> "name.bmp"
std::string PictureFile(const char* path) {
  std::string p(path);
  std::size_t slash = p.find_last_of('\\');
  return slash == std::string::npos ? p : p.substr(slash + 1);
}
}  // namespace

LinkPictures LinkPicturesFor(const CommsState& comms, bool gpsThroAis) {
  LinkPictures p;
  p.gps = PictureFile(comms.GPSPortOpen != 0 ? kGpsDetachPicture : kGpsAttachPicture);
  if (comms.AISPortOpen != 0)
    p.ais = PictureFile(gpsThroAis ? kAisGpsDetachPicture : kAisDetachPicture);
  else
    p.ais = PictureFile(kAisAttachPicture);
  return p;
}

bool BoatLeftInnerBox(float topLat, float leftLon, float bottomLat, float rightLon, float lat, float lon) {
  const float thirdHeight = (topLat - bottomLat) / 3.0f;
  const float thirdWidth = (rightLon - leftLon) / 3.0f;
  return lat > topLat - thirdHeight || lat < bottomLat + thirdHeight || lon < leftLon + thirdWidth ||
         lon > rightLon - thirdWidth;
}

}  // namespace kelvane
