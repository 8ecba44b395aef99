// The daily astronomical arguments of the simplified harmonic method.
//
// For a date, DayAstronomy gives each of the four constituents M2, S2, K1
// and O1 a phase V (whole degrees, the equilibrium argument taken with its
// nodal phase u and brought to the form 360 - A) and a node factor f. The
// port's own g and Hm turn these into heights (see daycurve.h).
//
// The mean longitudes of the moon (s), the sun (h), the lunar perigee (p),
// the node (N) and the solar perigee (p1) at the start of a year come from
// a table for 1991-2000 and are otherwise walked year by year from 1992.
// The walk, the constants and the order of rounding are those of the hand
// calculation the method was first written for, and they are kept as they
// stand even where they are not the textbook values:
//   - walking back, every year counts 366 days except when a century year
//     resets the count;
//   - 1990 falls between the table and the walks and gets all five values 0;
//   - the M2, K1 and O1 arguments are rounded and then normalised, the S2
//     argument normalised and then rounded, so S2 can read 360.
#pragma once

#include <cstdint>

namespace kelvane {

// Brings an angle in degrees into [0, 360): a whole number of turns is taken
// off (exactly as repeated adding or subtracting of 360 would), and a value
// that lands on 360 becomes 0. A NaN or infinite angle is returned as it is,
// so that bad constants cannot hang a loop.
float Normalise360(float degrees);
double Normalise360(double degrees);

// Sine and cosine parts of a vector of `amplitude` at `angle` degrees:
// amplitude * sin(2 * angle / 360 * pi) and amplitude * cos(...), pi being
// the program's 3.14159265358598.
struct RectParts {
  double sinPart = 0;
  double cosPart = 0;
};
RectParts Rectangular(double angle, double amplitude);

// Radius and angle of the vector whose sine part is X and cosine part is Y.
// The angle is in degrees, 0 to under 360, clockwise from the +Y axis, taken
// quadrant by quadrant from arctangents of a ratio (never atan2) and turned
// into degrees by 57.29577951. X = Y = 0 gives radius 0 and angle 0.
struct Polar {
  float radius = 0;
  float angle = 0;
};
Polar PolarAngle(double X, double Y);

// Mean longitudes (degrees) at 00:00 on 1 January of a year, before the days
// of the year are added.
struct YearStart {
  float s = 0, h = 0, p = 0, N = 0, p1 = 0;
};
YearStart YearStartValues(std::int16_t year);

// The constituent set of one day.
struct DayArguments {
  float V[4] = {0, 0, 0, 0};  // M2, S2, K1, O1: whole degrees (S2 may read 360)
  float f[4] = {0, 0, 0, 0};  // node factors
};
inline constexpr int kM2 = 0, kS2 = 1, kK1 = 2, kO1 = 3;

// V and f of M2, S2, K1, O1 for day `day` of `year` (1 = 1 January, at
// 00:00 of the zone the port's g are referred to). Day 0 and days past the
// year's end are accepted and simply run on from the year's start.
DayArguments DayAstronomy(std::int16_t year, std::int16_t day);

}  // namespace kelvane
