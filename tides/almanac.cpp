#include "tides/almanac.h"

#include <algorithm>
#include <cmath>

#include "core/format.h"
#include "core/timetext.h"

namespace kelvane {
namespace {

// The recipe's own constants, as printed.
constexpr double kHalfPi = 1.5708, kPiShort = 3.14159, kThreeHalfPi = 4.71239, kTwoPiShort = 6.28319;
constexpr double kDegRad = 0.0174533, kFifteenDeg = 0.261799, kRadToHours = 3.81972;

// Zenith cosines in the order of use: astronomical, nautical and civil
// twilight, and sunrise and sunset (upper limb with refraction).
constexpr double kZenithCos[4] = {-0.309017, -0.207912, -0.104528, -0.0145439};

// Zone H.MMSS to radians of hour angle, sign kept.
double ZoneRadians(double zone) {
  const double magnitude = std::fabs(zone);
  const double hours = std::floor(magnitude);
  const double rest = (magnitude - hours) * 100.0 + 1e-7;
  const double minutes = std::floor(rest);
  const double seconds = std::floor((rest - minutes) * 100.0 + 1e-5);
  double value = (hours + minutes / 60.0 + seconds / 3600.0) * kFifteenDeg;
  return zone < 0 ? -value : value;
}

double ToRange(double radians) {
  while (radians < 0) radians += kTwoPiShort;
  while (radians > kTwoPiShort) radians -= kTwoPiShort;
  return radians;
}

// One event. N is the day number, L latitude and W west longitude in
// radians, zone in radians.
SunEvent OneEvent(double N, double L, double W, double zone, double zenithCos, bool rise) {
  const double t = N + ((rise ? kHalfPi : kThreeHalfPi) + W) / kTwoPiShort;
  const double A = 0.017202 * t - 0.0574039;  // mean anomaly
  double Ls = A + 0.0334405 * std::sin(A) + 0.000349066 * std::sin(2 * A) + 4.93289;
  while (Ls < 0) Ls += kTwoPiShort;
  while (Ls > kTwoPiShort) Ls -= kTwoPiShort;
  if (std::fmod(Ls, kHalfPi) == 0) Ls += 4.84814e-06;  // keep tan away from its poles
  double RA = std::atan(0.91746 * std::tan(Ls));
  if (Ls > kThreeHalfPi) RA += kTwoPiShort;
  else if (Ls > kHalfPi) RA += kPiShort;
  const double sinDec = 0.39782 * std::sin(Ls);
  const double cosDec = std::sqrt(1 - sinDec * sinDec);
  const double x = (zenithCos - sinDec * std::sin(L)) / (cosDec * std::cos(L));
  if (!(std::fabs(x) <= 1)) return {};  // the sun never reaches this altitude today
  double H = -std::atan(x / std::sqrt(1 - x * x)) + kHalfPi;
  if (rise) H = kTwoPiShort - H;
  const double T = H + RA - 0.0172028 * t - 1.73364;
  const double UT = ToRange(T + W - zone);
  return {true, static_cast<float>(UT * kRadToHours)};
}

const char* const kMonthNames[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// Angle in degrees reduced to 0..360 by dividing by 360, taking off the
// whole part and multiplying back, then put in radians.
double ReducedRadians(double degrees) {
  double turns = degrees / 360.0;
  turns -= std::floor(turns);
  return turns * 360.0 * 3.14159265358598 / 180.0;
}

struct CalendarMoment {
  int year, month, day;
  double dayFraction;
};

// Julian day to the Gregorian (or, before 1582, Julian) calendar.
CalendarMoment FromJulianDay(double jd) {
  const double shifted = jd + 0.5;
  const double Z = std::floor(shifted);
  const double F = shifted - Z;
  double A = Z;
  if (Z >= 2299161) {
    const double alpha = std::floor((Z - 1867216.25) / 36524.25);
    A = Z + 1 + alpha - std::floor(alpha / 4);
  }
  const double B = A + 1524;
  const double C = std::floor((B - 122.1) / 365.25);
  const double D = std::floor(365.25 * C);
  const double E = std::floor((B - D) / 30.6001);
  const int day = static_cast<int>(B - D - std::floor(30.6001 * E));
  const int month = static_cast<int>(E < 14 ? E - 1 : E - 13);
  const int year = static_cast<int>(month > 2 ? C - 4716 : C - 4715);
  return {year, month, day, F};
}

// Julian ephemeris day of the phase at lunation k (k + 0, .25, .5, .75).
double PhaseJulianDay(double k) {
  const double T = k / 1236.85;
  const double T2 = T * T, T3 = T2 * T;
  double jd = 2415020.75933 + 29.53058868 * k + 0.0001178 * T2 - 0.000000155 * T3 +
              0.00033 * std::sin((166.56 + 132.87 * T - 0.009173 * T2) * 3.14159265358598 / 180.0);
  const double M = ReducedRadians(359.2242 + 29.10535608 * k - 0.0000333 * T2 - 0.00000347 * T3);
  const double Mp = ReducedRadians(306.0253 + 385.81691806 * k + 0.0107306 * T2 + 0.00001236 * T3);
  const double F = ReducedRadians(21.2964 + 390.67050646 * k - 0.0016528 * T2 - 0.00000239 * T3);
  double fraction = k - std::floor(k);
  if (fraction < 0.125 || fraction > 0.875 || std::fabs(fraction - 0.5) < 0.125) {
    // New and full moon.
    jd += (0.1734 - 0.000393 * T) * std::sin(M) + 0.0021 * std::sin(2 * M) - 0.4068 * std::sin(Mp) +
          0.0161 * std::sin(2 * Mp) - 0.0004 * std::sin(3 * Mp) + 0.0104 * std::sin(2 * F) -
          0.0051 * std::sin(M + Mp) - 0.0074 * std::sin(M - Mp) + 0.0004 * std::sin(2 * F + M) -
          0.0004 * std::sin(2 * F - M) - 0.0006 * std::sin(2 * F + Mp) + 0.0010 * std::sin(2 * F - Mp) +
          0.0005 * std::sin(M + 2 * Mp);
  } else {
    // First and last quarter.
    jd += (0.1721 - 0.0004 * T) * std::sin(M) + 0.0021 * std::sin(2 * M) - 0.628 * std::sin(Mp) +
          0.0089 * std::sin(2 * Mp) - 0.0004 * std::sin(3 * Mp) + 0.0079 * std::sin(2 * F) -
          0.0119 * std::sin(M + Mp) - 0.0047 * std::sin(M - Mp) + 0.0003 * std::sin(2 * F + M) -
          0.0004 * std::sin(2 * F - M) - 0.0006 * std::sin(2 * F + Mp) + 0.0021 * std::sin(2 * F - Mp) +
          0.0003 * std::sin(M + 2 * Mp) + 0.0004 * std::sin(M - 2 * Mp) - 0.0003 * std::sin(2 * M + Mp);
    const double w = 0.0028 - 0.0004 * std::cos(M) + 0.0003 * std::cos(Mp);
    jd += (fraction < 0.5) ? w : -w;
  }
  return jd;
}

}  // namespace

SunTimes SunRiseSet(double lat, double lon, int day, int month, int year, double zone, bool summerTime) {
  const double L = lat * kDegRad;
  const double W = -lon * kDegRad;
  const double zoneRad = ZoneRadians(zone);
  const double zoneHours = zoneRad / kFifteenDeg;
  const int K = (year % 4 == 0) ? 1 : 2;  // the recipe's leap test, with no century rule
  const double N = std::floor(275.0 * month / 9) - K * std::floor((month + 9) / 12.0) + day - 30;

  SunTimes times;
  for (int z = 0; z < 4; ++z) {
    times[static_cast<std::size_t>(kAstronomicalRise + z)] = OneEvent(N, L, W, zoneRad, kZenithCos[z], true);
    times[static_cast<std::size_t>(kAstronomicalSet - z)] = OneEvent(N, L, W, zoneRad, kZenithCos[z], false);
  }
  for (SunEvent& event : times) {
    if (!event.happens) continue;
    if (event.hours - zoneHours > 24) event.hours -= 24;
    if (zoneHours - event.hours > 24) event.hours += 24;
    if (summerTime) event.hours += 1;
  }
  return times;
}

std::string SunEventText(const SunEvent& event) {
  if (!event.happens) return "None";
  return HoursToClock(event.hours);
}

std::vector<MoonPhase> MoonPhasesFor(int year, int month) {
  static constexpr double kNormal[12] = {0.042438, 0.123206, 0.203974, 0.28748,  0.370987, 0.454493,
                                         0.537999, 0.622874, 0.706381, 0.789887, 0.873393, 0.956899};
  static constexpr double kLeap[12] = {0.042438, 0.124575, 0.205343, 0.288849, 0.372356, 0.455862,
                                       0.539368, 0.624243, 0.70775,  0.791256, 0.874762, 0.958268};
  std::vector<MoonPhase> out;
  if (month < 1 || month > 12) return out;
  const double fraction = (IsLeapYear(year) ? kLeap : kNormal)[month - 1];
  const double K = std::trunc((year + fraction - 1900) * 12.3685);
  static constexpr double kSteps[7] = {-0.75, -0.5, -0.25, 0, 0.25, 0.5, 0.75};
  static const char* const kWords[4] = {"NEW MOON     ", "FIRST QUARTER", "FULL MOON    ", "LAST QUARTER "};
  for (double step : kSteps) {
    const double k = K + step;
    const double jd = PhaseJulianDay(k);
    const CalendarMoment when = FromJulianDay(jd);
    if (when.year != year || when.month != month) continue;
    int quarter = static_cast<int>(std::lround((k - std::floor(k)) * 4)) % 4;
    int minutesOfDay = static_cast<int>(std::floor(when.dayFraction * 1440 + 0.5));
    if (minutesOfDay >= 1440) minutesOfDay = 1439;  // stay inside the day that was found
    MoonPhase phase;
    phase.day = when.day;
    phase.month = when.month;
    phase.monthName = kMonthNames[month - 1];
    phase.hourText = std::to_string(minutesOfDay / 60) + ":" + FormatNumber(minutesOfDay % 60, "00");
    phase.phase = kWords[quarter];
    phase.julianDay = jd;
    out.push_back(phase);
  }
  std::sort(out.begin(), out.end(), [](const MoonPhase& a, const MoonPhase& b) { return a.julianDay < b.julianDay; });
  return out;
}

}  // namespace kelvane
