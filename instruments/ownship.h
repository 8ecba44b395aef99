// The own ship as the GPS tells it, and the small stores around it that the
// receive chain fills: the waypoint labels of the monitor, the live track,
// the sentence-seen flags and the log buffer.
//
// These are plain records. One instance of each lives in the main window's
// instruments state (receive.h); a test builds its own.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace kelvane {

// A reading of the computer's clock, local time. The polling loop, the
// GLL date and the AIS ages read it; tests make their own.
struct ClockReading {
  int year = 2000;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;

  // Decimal hours of the time of day, as a 32-bit float: h + m/60 + s/3600.
  float Hours() const;
};

// A reading of a broken-down local time, and of the system clock now.
ClockReading ClockReadingOf(const std::tm& local);
ClockReading ClockNow();

// Own-ship state. Angles in degrees, north and east positive; booleans 0/-1.
struct OwnShipState {
  float GPSLat = 0;
  float GPSLong = 0;
  float GPSSpeed = 0;   // knots over the ground; 0 when the RMC field is empty
  float GPSCourse = 0;  // degrees true over the ground; 0 when empty
  std::int16_t GPSValid = 0;
  std::int16_t GPSRmcSeen = 0;  // once an RMC arrived, GLL is never read again
  std::string GPSTimeText;
  std::string GPSDateText;  // "DDMMYY"
  std::string GPSVariationText;
  std::string GPSPositionText;
  std::string GPSCourseSpeedText;
  std::string GPSWaypointText;
  std::int16_t GPSWaypointValid = 0;
};

// The waypoint labels of the GPS monitor, written by every RMB. The
// steering label keeps its text and colour until an RMB says "R" or "L".
struct WaypointMonitor {
  std::string lblxte;
  std::string lblwaydist;
  std::string lblsteerdir;
  std::uint32_t steerColour = 0;  // 0xRRGGBB
  std::string lblwayname;
  std::string lblwaylat;
  std::string lblwaylong;
  std::string lblwaybearing;
};

// One point of the live trail.
struct TrackPoint {
  float Lat = 0;
  float Long = 0;
  std::int16_t Hour = 0;
  std::int16_t Minute = 0;
  std::int16_t Second = 0;
  std::int16_t Day = 0;
  std::int16_t Month = 0;
  std::int16_t Year = 0;
  float Speed = 0;
  float Course = 0;
};

// The live trail in memory. Entry 0 is a placeholder that is never drawn
// or saved; the trail's upper bound is size() - 1.
struct TrackBufferStore {
  std::vector<TrackPoint> points{TrackPoint{}};
  std::size_t UpperBound() const { return points.size() - 1; }
};

// Sentence-seen flags of the present log period: the log takes at most one
// sentence of each type per period. The flush clears all but SeenRMB.
struct SeenFlags {
  std::int16_t SeenRMC = 0;
  std::int16_t SeenGSA = 0;
  std::int16_t SeenRME = 0;
  std::int16_t SeenGLL = 0;
  std::int16_t SeenWPL = 0;
  std::int16_t SeenRMB = 0;
  std::int16_t SeenDBT = 0;
  std::int16_t SeenHDG = 0;
  std::int16_t SeenMVW = 0;

  void ClearForFlush();
};

// The sentences waiting to be written to the log file.
struct NmeaLog {
  std::int16_t LoggingOn = 0;
  std::vector<std::string> LogBuffer;
};

}  // namespace kelvane
