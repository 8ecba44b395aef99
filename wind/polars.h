// A boat's polar table read: the speed through the water for a true wind
// speed and a true wind angle off the bow.
//
// Notation: W true wind speed in knots (32-bit float), 0 upwards; angles in
// degrees, 32-bit floats. A table has a row per 5 degrees of true wind
// angle and a column per even wind speed, 0 to 30 knots
// (store/polars.h). The lookups reproduce the hand method of the program
// the tables come from, odd edges included, since skippers compare its
// answers with ours: each edge is noted where it stands.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "store/polars.h"

namespace kelvane {

// The even wind speeds either side of W and how far above the lower one W
// lies, in knots.
struct WindSpeedBand {
  float lower = 0;
  float upper = 0;
  float fraction = 0;
};

// NearestWindSpeed(W):
//   W exactly 0             -> 0, 2, fraction 2
//   W exactly even, 2 .. 38 -> W, W + 2, fraction 2
//   W between two evens     -> the even below, the even above, W - lower
//   W 40 or more            -> 40, 42, W - 40 (so exactly 40 has fraction 0)
// The fraction of 2, not 0, at an exact even speed is deliberate: the wind
// interpolation ((high - low) x fraction) / 2 + low then lands on the column
// of the speed above. A negative W follows the "between" rule.
WindSpeedBand NearestWindSpeed(float windSpeed);

// RoundWindAngle: the row angle of the 5-degree band centred on each row.
// 0 up to 27.5 -> 30 (no row is closer than 30 degrees to the wind);
// above 27.5 up to 32.5 -> 30; above 32.5 up to 37.5 -> 35; ... above 177.5
// up to 180.5 -> 180. A negative angle, one above 180.5 or NaN -> no row.
std::optional<int> RoundWindAngle(float angle);

// Which side of the boat the wind blows onto: 0 none (dead ahead or dead
// astern), 1 port, 2 starboard, the values of a route point's tack.
enum class WindSide : std::int16_t { None = 0, Port = 1, Starboard = 2 };

struct RelativeWind {
  float angle = 0;  // 0 .. 180 degrees off the bow
  WindSide side = WindSide::None;
};

// RelativeWindAngle(boatCourse, windDirection): the smaller angle between
// the bow and the direction the wind comes from, 0 to 180 degrees, and the
// side it is on. Course and direction are degrees true, any finite value
// (reduced modulo 360). A wind from 1 to 179 degrees clockwise of the bow
// is on the starboard side; exactly 0 or 180 off the bow is on neither.
RelativeWind RelativeWindAngle(float boatCourse, float windDirection);

// The text of one cell, and PolarLookupFailed: set when the cell could not
// be read (no such row, a missing column, a NULL), the text then empty.
struct [[nodiscard]] PolarCell {
  std::string speedText;
  bool PolarLookupFailed = false;
};

// BoatSpeedFromWindEntryAndSpeed(row, W): the field of a row (numbered from
// 1 in the file's order) in the column of W, as the field's text; no
// interpolation.
//   row: above 30 is read as 30 (the tables stop at 180 degrees, row 31);
//        1 or less reads the first row, since the walk moves on row - 1
//        times from the first only for a row above 1.
//   W:   0 up to below 2 reads Wind0kn, 2 up to below 4 wind2kn, and so on,
//        each even band reading the column at its lower bound; 30 and above
//        read Wind30kn. A negative or NaN W reads no column (failed).
PolarCell BoatSpeedFromWindEntryAndSpeed(const PolarTable& table, std::int16_t row, float windSpeed);

// The angle step of a polar table, in degrees (PolarStep).
inline constexpr float kPolarStep = 5.0f;

// calcAngle(angle): the two table angles either side of an angle off the
// bow and how far above the lower one it lies: lower = int(angle / 5) x 5
// as a 16-bit integer, upper = lower + 5, fraction = angle - lower.
struct AngleBand {
  float lower = 0;
  float upper = 0;
  float fraction = 0;
};
AngleBand calcAngle(float angle);

// Boat speed through the water at true wind speed W and true wind angle
// off the bow (0 .. 180), in knots as text "0.0", from the two rows either
// side of the angle (calcAngle, found by their `windangle`):
//   - Below closestSailingAngle the boat is pinching: the mean of the two
//     rows at W, scaled by angle / 30, never below 0.5 knots. Scaled by 30,
//     not by the closest angle, so the speed jumps where pinching begins.
//   - Otherwise each of the columns of W and W + 2 is interpolated along the
//     angle, s1 +/- |s1 - s2| / 5 x (angle - lower), and the two results
//     along the wind by NearestWindSpeed's fraction:
//     ((high - low) x f) / 2 + low.
// A band angle the table has no row for is read from the first row (row
// number 0 is not moved on from the first): below 30 degrees both rows are
// the first, and at 180 the row above (185) is, with a fraction of 0. Any
// failed read (an empty table, a missing column, a NULL) leaves the text
// empty with PolarLookupFailed set.
PolarCell PolarBoatSpeed(const PolarTable& table, float windSpeed, float windAngle, float closestSailingAngle);

}  // namespace kelvane
