// Sun and moon almanac: the times of sunrise, sunset and the three
// twilights at a position, and the phases of the moon in a month.
//
// Sun times follow the sunrise recipe of the Almanac for Computers (US Naval
// Observatory), in radians with its own short constants (1.5708, 3.14159,
// 4.71239, 6.28319, 0.0174533); they are good to a minute or two in middle
// latitudes. Moon phases follow the mean-phase method of Meeus,
// Astronomical Formulae for Calculators, with its periodic terms; their
// times are Julian ephemeris days, within a few minutes of UT.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kelvane {

// One event of the day: the time in decimal hours of the zone, or none when
// the sun does not reach that altitude (the program's "None").
struct SunEvent {
  bool happens = false;
  float hours = 0;
};

// The eight times in their order.
enum SunEventIndex {
  kAstronomicalRise = 0,
  kNauticalRise,
  kCivilRise,
  kSunrise,
  kSunset,
  kCivilSet,
  kNauticalSet,
  kAstronomicalSet
};
using SunTimes = std::array<SunEvent, 8>;

// SunRiseSet. lat, lon: signed degrees, north and east positive. The date is
// the civil day, month 1-12 and year. `zone` is the zone in the form H.MMSS
// (1.3000 is 1 h 30 min), taken with the sign of a zone description: local
// time = UT - zone, so 0 for Greenwich, -1 for Central Europe, 5 for the US
// east coast. The day number of the recipe counts a year divisible by 4 as
// a leap year, with no century rule. A time that differs from the zone by
// more than 24 hours is brought back by 24; with summer time on each time
// gets one hour more. Near the poles, or in a polar summer for the
// twilights, the events that do not happen come back with happens = false.
SunTimes SunRiseSet(double lat, double lon, int day, int month, int year, double zone, bool summerTime);

// "hh:mm" of an event, or "None".
std::string SunEventText(const SunEvent& event);

struct MoonPhase {
  int day = 0;
  int month = 0;
  std::string monthName;  // "Jan" .. "Dec"
  std::string hourText;   // hours and minutes, minutes padded "00": "7:05"
  std::string phase;      // "NEW MOON     ", "FIRST QUARTER", "FULL MOON    ", "LAST QUARTER "
  double julianDay = 0;
};

// The phases of the moon that fall in the month, in time order. Seven
// phases are worked out around the lunation counted from 1900 at the month's
// middle (that new moon, the three quarters after it and the three before),
// and those inside the month are listed.
std::vector<MoonPhase> MoonPhasesFor(int year, int month);

}  // namespace kelvane
