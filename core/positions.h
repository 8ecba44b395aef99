// Positions on the sea: plane-sailing range and bearing, the vector helpers of
// the leg solver, and the text forms of latitude and longitude.
//
// Latitude and longitude are 32-bit float decimal degrees, north and east
// positive. Bearings are 32-bit float degrees true in [0, 360). Ranges are
// nautical miles. The arithmetic is that of a hand calculation carried into
// code in single precision, and the value of pi is the program's own
// 3.14159265358598 (not the textbook value): results must agree to the last
// bit with the numbers the program has always printed.
#pragma once

#include <string>
#include <string_view>

namespace kelvane {

// The program's pi and the multiples it uses. Deliberately short of the
// exact values; every formula that says "pi" uses these.
inline constexpr double kPi = 3.14159265358598;
inline constexpr double kThreePi = 9.42477796075794;
inline constexpr double kTwoPi = 6.28318530717196;
inline constexpr double kRadToDeg = 57.29577951;
inline constexpr double kDegToRadShort = 0.017453293;

struct RangeAndBearing {
  float range = 0;    // nautical miles
  float bearing = 0;  // degrees true, never 360
};

struct PolarVector {
  float length = 0;
  float angle = 0;  // degrees, 0 up (north), clockwise
};

struct Components {
  float east = 0;
  float north = 0;
};

struct Position {
  float lat = 0;
  float lon = 0;
};

// Plane sailing with the mean latitude. dLat is in minutes (positive
// north), the departure x = dLon * cos(mean lat) * 60 in minutes (positive
// east); range = sqrt(x^2 + dLat^2). The bearing is taken quadrant by
// quadrant from arctangents of a ratio, never from atan2, and a bearing
// that would round to 360 is cut to its whole degrees: 359.7 reads 359.0.
// Same point twice: range 0, bearing 0. No handling of the 180 degree
// meridian: a leg across it runs the long way round.
RangeAndBearing RangeBearing(float lat1, float lon1, float lat2, float lon2);
// The range of RangeBearing alone, bit for bit, without the arctangent of
// the bearing: for searches that only compare distances. It is never less
// than the difference of latitude in minutes, |lat1 - lat2| x 60 worked in
// single precision (the sum of squares is taken in double, where the
// squares of singles are exact).
float PlaneSailingRange(float lat1, float lon1, float lat2, float lon2);

// The same quadrant logic on a plain vector (x east, y north).
PolarVector XYToPolar(float x, float y);

// East and north parts of a vector of `length` along `bearing` degrees.
// Bearings below 0 are outside the contract.
Components BearingToComponents(float bearing, float length);

// Moves a position by east and north distances in nautical miles. The
// longitude uses the cosine of the starting latitude, not of a mean.
Position OffsetPosition(float lat, float lon, float east, float north);
// Companion form taking the east distance in double; same results.
Position OffsetPosition(float lat, float lon, double east, float north);

// Brings an angle into [0, 360): below 0 adds 360, above 360 subtracts it,
// exactly 360 becomes 0. Changes the argument and returns it.
float NormaliseBearing(float& angle);

// Degrees to radians with the program's pi, in double.
double DegToRad(double degrees);

// Whether numbers are written with a decimal comma in the user's locale
// (the text of 1.23 holds a comma). Chooses the branch of LatToText.
bool UsesDecimalComma();

// "DD.MM.mmN" and "DDD.MM.mmE". The branch follows UsesDecimalComma();
// both branches are callable directly. The comma branch truncates the
// hundredths of a minute where the point branch rounds them, and prints a
// longitude of 10 degrees or more without padding ("15.30.00E").
std::string LatToText(float lat);
std::string LonToText(float lon);
std::string LatToTextPoint(float lat);
std::string LonToTextPoint(float lon);
std::string LatToTextComma(float lat);
std::string LonToTextComma(float lon);

// Three decimals of a minute: "DD.MM.mmmN", "DDD.MM.mmmE". The cursor
// read-out and the editors show these.
std::string LatToText3(float lat);
std::string LonToText3(float lon);
std::string LatToText3Point(float lat);
std::string LonToText3Point(float lon);

// Reads "DD.MM.mm[NS]" and "DDD.MM.mm[EW]" without validating: degrees up
// to the first point, then the number after it as minutes. Every "S" (or
// "W") in the text negates the result, so two of them cancel; a lower-case
// letter is not a hemisphere. With no point the whole text is minutes.
float TextToLat(std::string_view text);
float TextToLon(std::string_view text);

// Mercator function ln(tan(lat/360*pi + pi/4)), lat in degrees, single.
float MercatorFunction(float lat);
// The equivalent double-precision form through the sine of the latitude,
// rounded to single at the end.
float MercatorFunctionSine(float lat);
// (e^x - 1/e^x) / 2.
double HyperbolicSine(double x);

}  // namespace kelvane
