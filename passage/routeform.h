// The rules of the route forms that are not the calculation itself: the
// speed box and its "all legs" button, the reversal of the route, the
// departure time lists, the edit of one leg (the route form's edit boxes
// and frmCalcRouteModification) and the route information list. The forms
// only show what these return.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "passage/passagestate.h"

namespace kelvane {

// "Must enter a valid speed": the speed box holds no usable speed.
std::string ValidSpeedMessage();

// The speed box read as a speed in knots. A usable speed is a plain
// decimal number ("5", "6.5", " 0.51 ") greater than 0; anything else
// (empty, letters, a sign, a second point, 0) gives ValidSpeedMessage().
// Speeds of 0.5 knots and below pass here: the calculation refuses them
// with its own message, naming the waypoints.
struct [[nodiscard]] SpeedEntry {
  float speed = 0;
  std::string message;  // "" when the speed is usable
};
SpeedEntry ParseRouteSpeed(std::string_view text);

// cmdRouteSpeed: every point of the route takes the speed, the last one
// too (the calculation checks the speed of every point).
void SetRouteSpeed(PassageState& s, float speed);

// The hours from the first point to the start of leg `leg` (1 for the
// first leg, which starts at 0), each earlier leg taking its plane-sailing
// range over its speed; a leg without a speed (0 or less) adds nothing.
// What the leg-speed form adds to the working moment to ask the wind of a
// leg.
float HoursBeforeLeg(const PassageState& s, int leg);

// cmdreverse: the points run the other way. What belongs to a place moves
// with it (position and its texts, name, waypoint flag, pixel); what
// belongs to a leg stays with its number (speed, tack, stop, remark). The
// results of the old direction no longer describe the route and are
// cleared.
void ReverseRoute(PassageState& s);

// The departure lists: hours "00" to "23" and minutes "00" to "59".
std::vector<std::string> DepartureHourEntries();
std::vector<std::string> DepartureMinuteEntries();
// A click in a list puts its entry into the departure text "HH:MM": the
// hours before the colon or the minutes after it, the other half kept (a
// text without a colon keeps nothing and starts "00").
std::string DepartureWithHours(std::string_view text, std::string_view hours);
std::string DepartureWithMinutes(std::string_view text, std::string_view minutes);

// The legs list holds three lines a leg: row 0, 1 or 2 is leg 1, and so on.
inline int LegOfListRow(int row) { return row < 0 ? 0 : row / 3 + 1; }

// The edit boxes of one leg (leg i runs from Route[i] to Route[i + 1]).
// StoppedFor is the stop at the leg's destination before the next leg, in
// minutes: the dive time the report shows on the "To" line.
struct LegEdit {
  std::string StartLat, StartLon, DestLat, DestLon;
  std::string StartName, DestName;
  std::string Speed;       // "" leaves the leg's speed as it is
  std::string StoppedFor;  // digits; "" is 0
};
LegEdit LegEditOf(const PassageState& s, int leg);

// "Error - Latitude entry" / "Error - Longitude entry".
std::string LatitudeEntryMessage();
std::string LongitudeEntryMessage();

// cmdAccept: the four positions are read with TextToLat and TextToLon; a
// latitude beyond 90 degrees either side gives LatitudeEntryMessage(), a
// longitude beyond 180 LongitudeEntryMessage() (the latitudes are checked
// first) and a bad speed ValidSpeedMessage(); then nothing is changed.
// Otherwise the start goes to Route[leg], the destination to
// Route[leg + 1] (which is also the next leg's start) with their texts and
// names, the speed to the leg, the stop to the destination (at most 32767
// minutes). Returns "" or the message.
std::string ApplyLegEdit(PassageState& s, int leg, const LegEdit& edit);

// The stop box's digits as minutes: 0 to 32767 (empty is 0).
std::int16_t StopMinutesOf(std::string_view digits);

// The stop box takes the digits 0 to 9 and backspace (code 8); every other
// key is dropped.
bool IsStopMinutesKey(char32_t key);

// The GPS as the route form sees it: a fix, or none.
struct GpsReading {
  bool valid = false;  // a good fix is held
  float lat = 0, lon = 0;
  float sog = 0;  // speed over the ground, knots
};

// The form's GPS line: the position and "SOG = " with the speed over the
// ground, or "No GPS fix" while there is none.
std::string GpsLineText(const GpsReading& fix);

// The name the first point takes when the GPS position replaces it.
inline constexpr const char* kGpsPointName = "GPS Position";

// cmdUseGPS: the boat's position becomes the first point of the route (its
// texts with it, and the name kGpsPointName, since the waypoint it was is
// left behind); with useSog the speed over the ground becomes the speed of
// every leg. Nothing changes without a fix or a route.
void UseGpsPosition(PassageState& s, const GpsReading& fix, bool useSog);

// frmrouteinfo: the summary of the last calculation, a blank line, then
// one line a point: number, name and position, tab separated, with the
// speed of the leg that starts there.
std::vector<std::string> RouteInfoLines(const PassageState& s);

}  // namespace kelvane
