// The polling loop of the instruments and the attaching and detaching of
// the two ports.
//
// There is no receive thread: the serial queues buffer each port, and one
// timer of the chart window (750 milliseconds) drains them in turn, a port
// every second tick, then runs the periodic passes: the clock, the track,
// the collision data, the display cycle and the log flush. CommsTick is
// that timer's handler as a function of the state, the ports and a clock
// reading, so a test can run the loop tick by tick without a timer; the
// window's own jobs (the idle routine, the redraw, the recentring, the log
// flush of the logging module) come in as hooks.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "instruments/ownship.h"
#include "instruments/receive.h"
#include "instruments/serial.h"

namespace kelvane {

inline constexpr int kCommsTimerInterval = 750;  // milliseconds

struct CommsState {
  std::int16_t GPSPort = 0;
  std::int16_t GPSBaudCode = 4;
  std::int16_t AISPort = -1;  // negative: none chosen
  std::int16_t AISBaudCode = 7;
  std::int16_t GPSPortOpen = 0;
  std::int16_t AISPortOpen = 0;
  std::int16_t GPSAttached = 0;
  std::int16_t AISAttached = 0;
  std::int16_t PollState = 0;  // 0 reads the GPS port next, 1 the AIS port
  std::int16_t TickCount = 0;
  std::int16_t DisplayCount = 0;
  float TimeNowHours = 0;
  std::int16_t ClockYear = 0, ClockMonth = 0, ClockDay = 0, ClockHour = 0, ClockMinute = 0;
  double JulianNow = 0;
  double NextLogFlush = 0;
  std::int16_t GPSInterval = 5;  // seconds between log flushes
  std::int16_t GPSCentre = 0;
  bool firstTick = true;  // the first tick after the loop started
  int viewCycle = 0;      // the chart's view cycle counter, 1 to 2
  bool debugPanel = false;
  bool trackDrawing = false;
  // What the window's two timers should be doing.
  bool commsTimerEnabled = false;
  bool timer1Enabled = true;
  std::string statusPanel;  // the last text written to the status panel
};

// The window's jobs that the loop triggers.
struct CommsHooks {
  std::function<void()> timer1Routine;  // the chart's idle routine, every ~21 time passes
  std::function<void()> redrawOverlays;
  std::function<void()> recentreCheck;  // keep the own ship inside the middle third of the view
  std::function<void()> flushLog;       // write LogBuffer to the log file
  std::function<void()> trackPreload;   // reload the trail and comments from the named log
  std::function<void()> pumpEvents;     // let the user interface run during the reads
};

// What one tick did, for the caller's display and for tests.
struct TickReport {
  int gpsChars = -1;  // characters read from the GPS port; -1 when it was not read
  int aisChars = -1;
  bool timePass = false;
  bool timer1Routine = false;
  bool trackPoint = false;
  int collisionTargets = 0;
  bool redraw = false;
  bool displayPass = false;
  bool flushed = false;
};

// One tick of the polling loop (the timer disables itself for the length of
// the tick and enables itself again at the end).
TickReport CommsTick(CommsState& comms, InstrumentsState& state, SerialPorts& ports, const ClockReading& now,
                     const CommsHooks& hooks = {});

// The view cycle's test for following the boat: a third of the view's
// height in from the top and bottom and a third of its width in from each
// side leave the middle third as an inner box; true when the boat stands
// outside it (on an edge counts as inside), so that the view is moved only
// when the boat has wandered well off centre, not at every fix.
bool BoatLeftInnerBox(float topLat, float leftLon, float bottomLat, float rightLon, float lat, float lon);

// The result of an attach: whether the port is now polled, and the exact
// message for the user's box (empty on success).
struct [[nodiscard]] AttachResult {
  bool ok = false;
  std::string message;
};

// Toggle of the GPS link: try the port, then close and reopen it (and the
// AIS port with it when that is open), set the flags and start the loop.
AttachResult AttachGps(CommsState& comms, SerialPorts& ports, const ClockReading& now, const CommsHooks& hooks = {});
// Ends the GPS link. When no AIS link runs, the idle timer takes over.
void DetachGps(CommsState& comms, SerialPorts& ports);

// Starts the AIS link: the port is probed at 38400 baud whatever the
// setting, then reopened at its own rate; the target table is cleared.
AttachResult AttachAis(CommsState& comms, InstrumentsState& state, SerialPorts& ports, const ClockReading& now,
                       const CommsHooks& hooks = {});
// The question asked before the AIS link is ended.
inline constexpr const char* kDisableAisQuestion = "Disable AIS link?";
// Ends the AIS link (after a Yes). With GPS data on the AIS port the GPS
// link ends too and the own-ship position goes to 0, 0.
void DetachAis(CommsState& comms, InstrumentsState& state, SerialPorts& ports);

// Picture names of the toolbar button for the states of the links.
inline constexpr const char* kGpsDetachPicture = "\\res\\configdisgps.bmp";
inline constexpr const char* kGpsAttachPicture = "\\res\\configengps.bmp";
inline constexpr const char* kAisGpsDetachPicture = "\\res\\configdisaisgps.bmp";
inline constexpr const char* kAisDetachPicture = "\\res\\confdisais.bmp";
// The AIS button while its link is down (the rules leave it unnamed).
inline constexpr const char* kAisAttachPicture = "\\res\\confenais.bmp";

// The pictures of the two link buttons, by file name in the res folder:
// while a link is up its button shows the picture that ends it.
struct LinkPictures {
  std::string gps;
  std::string ais;
};
LinkPictures LinkPicturesFor(const CommsState& comms, bool gpsThroAis);

}  // namespace kelvane
