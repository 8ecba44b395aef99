#include "core/positions.h"

#include <clocale>
#include <cmath>
#include <cstdio>

#include "core/format.h"

namespace kelvane {

namespace {

// Radians to degrees in single, with the rule that a bearing never reads
// 360: when the value rounds to 360 or more it is cut to its whole degrees.
float RadiansToBearing(double radians) {
  float degrees = static_cast<float>(radians * kRadToDeg);
  if (RoundToInt(degrees) >= 360) degrees = std::trunc(degrees);
  return degrees;
}

// The quadrant rule shared by RangeBearing and XYToPolar: x east, y north.
double QuadrantAngle(float x, float y) {
  if (x > 0) {
    if (y > 0) return std::atan(static_cast<float>(x / y));
    if (y < 0) return std::atan(std::fabs(static_cast<float>(y / x))) + kPi / 2;
    return kPi / 2;
  }
  if (x < 0) {
    if (y < 0) return std::atan(std::fabs(static_cast<float>(x / y))) + kPi;
    if (y > 0) return std::atan(std::fabs(static_cast<float>(y / x))) + kThreePi / 2;
    return kThreePi / 2;
  }
  if (y < 0) return static_cast<float>(kPi);  // the single value 3.1415927
  return 0.0;
}

}  // namespace

namespace {

// The two legs of the plane-sailing triangle, in minutes: the departure x
// (positive east) and the difference of latitude (positive north).
struct PlaneLegs {
  float x = 0;
  float dLat = 0;
};

PlaneLegs Legs(float lat1, float lon1, float lat2, float lon2) {
  PlaneLegs legs;
  // Difference of latitude in minutes, positive going north.
  if (lat1 > lat2)
    legs.dLat = (lat1 - lat2) * -1.0f * 60.0f;
  else if (lat1 < lat2)
    legs.dLat = (lat2 - lat1) * 60.0f;
  // Difference of longitude in degrees, positive going east.
  float dLon = 0;
  if (lon1 < lon2)
    dLon = lon2 - lon1;
  else if (lon1 > lon2)
    dLon = (lon1 - lon2) * -1.0f;
  float mean = (lat1 + lat2) / 2.0f;
  double meanRad = mean * kPi / 180.0;
  legs.x = static_cast<float>(dLon * std::cos(meanRad) * 60.0);  // departure, minutes
  return legs;
}

float RangeOf(const PlaneLegs& legs) {
  return static_cast<float>(std::sqrt(std::pow(static_cast<double>(legs.x), 2.0) +
                                      std::pow(static_cast<double>(legs.dLat), 2.0)));
}

}  // namespace

RangeAndBearing RangeBearing(float lat1, float lon1, float lat2, float lon2) {
  const PlaneLegs legs = Legs(lat1, lon1, lat2, lon2);
  RangeAndBearing rb;
  rb.range = RangeOf(legs);
  rb.bearing = RadiansToBearing(QuadrantAngle(legs.x, legs.dLat));
  return rb;
}

float PlaneSailingRange(float lat1, float lon1, float lat2, float lon2) {
  return RangeOf(Legs(lat1, lon1, lat2, lon2));
}

PolarVector XYToPolar(float x, float y) {
  PolarVector v;
  v.length = static_cast<float>(std::sqrt(std::pow(static_cast<double>(x), 2.0) +
                                          std::pow(static_cast<double>(y), 2.0)));
  v.angle = RadiansToBearing(QuadrantAngle(x, y));
  return v;
}

Components BearingToComponents(float bearing, float length) {
  // The angle passes through a single before the sine and cosine.
  float radians = static_cast<float>((bearing / 360.0f) * 2.0f * kPi);
  Components c;
  c.east = static_cast<float>(length * std::sin(radians));
  c.north = static_cast<float>(length * std::cos(radians));
  return c;
}

Position OffsetPosition(float lat, float lon, float east, float north) {
  return OffsetPosition(lat, lon, static_cast<double>(east), north);
}

Position OffsetPosition(float lat, float lon, double east, float north) {
  Position p;
  p.lat = lat + north / 60.0f;
  float dLonMinutes = static_cast<float>(east / std::cos(DegToRad(lat)));
  p.lon = lon + dLonMinutes / 60.0f;
  return p;
}

float NormaliseBearing(float& angle) {
  while (angle < 0) angle += 360.0f;
  while (angle > 360) angle -= 360.0f;
  if (angle == 360.0f) angle = 0.0f;
  return angle;
}

double DegToRad(double degrees) { return degrees * kPi / 180.0; }

bool UsesDecimalComma() {
  // The same experiment as writing 1.23 in the user's locale and looking
  // for a comma in the text.
  const char* saved = std::setlocale(LC_NUMERIC, nullptr);
  std::string previous = saved ? saved : "C";
  bool comma = false;
  if (std::setlocale(LC_NUMERIC, "")) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%g", 1.23);
    comma = std::string(buf).find(',') != std::string::npos;
  }
  std::setlocale(LC_NUMERIC, previous.c_str());
  return comma;
}

// ---- point-decimal branch ----------------------------------------------

namespace {

// Longitude: whole degrees rounded down after a small nudge for east,
// truncated towards zero for west, so -0.5 keeps 0 degrees and its "W".
// Minutes above 59.99 carry into the degrees. The two-decimal form cuts
// its minutes text to five characters; the three-decimal form does not.
std::string LonPoint(float lon, const char* minutesFormat, bool cutToFive) {
  float d = lon >= 0 ? std::floor(static_cast<float>(lon + 0.00001)) : std::trunc(lon);
  double magnitude = std::sqrt(static_cast<double>(d) * d);
  float m = std::fabs(lon - d) * 60.0f;
  if (m > 59.99f) {
    magnitude += 1;
    m = 0;
  }
  std::string minutes = FormatNumber(m, minutesFormat);
  if (cutToFive) minutes = minutes.substr(0, 5);
  return FormatNumber(magnitude, "000") + "." + minutes + (lon >= 0 ? "E" : "W");
}

// Latitude: whole degrees truncated; the minutes carry when their text
// reads above 59.99, so 59.996 prints as the next degree and "00.00".
std::string LatPoint(float lat, const char* minutesFormat, const char* zeroMinutes) {
  float d = std::trunc(lat);
  double magnitude = std::fabs(d);
  double m = (std::fabs(lat - d) + 0.00000001) * 60.0;
  if (m >= 60) magnitude += 1;
  std::string minutes = FormatNumber(m, minutesFormat);
  if (TextValue(minutes) > 59.99) {
    minutes = zeroMinutes;
    magnitude += 1;
  }
  return FormatNumber(magnitude, "00") + "." + minutes + (lat >= 0 ? "N" : "S");
}

}  // namespace

std::string LonToTextPoint(float lon) { return LonPoint(lon, "00.00", true); }
std::string LatToTextPoint(float lat) { return LatPoint(lat, "00.00", "00.00"); }
std::string LonToText3Point(float lon) { return LonPoint(lon, "00.000", false); }
std::string LatToText3Point(float lat) { return LatPoint(lat, "00.000", "00.000"); }

// ---- comma-decimal branch ----------------------------------------------

namespace {

struct CommaParts {
  double magnitude;
  std::string minutes;   // whole minutes, two digits
  std::string decimals;  // hundredths, truncated, two characters
};

CommaParts CommaSplit(float value) {
  float d = std::trunc(value);
  CommaParts parts;
  parts.magnitude = std::fabs(d);
  double m = (std::fabs(value - d) + 0.00000001) * 60.0;
  if (m >= 60) {
    parts.magnitude += 1;
    m = 0;
  }
  double w = std::trunc(m);
  parts.minutes = FormatNumber(w, "00");
  double c = (m - w) * 100.0;
  std::string decimals;
  if (c < 0 || c > 0.999) {
    if (c >= 1 && c <= 9)
      decimals = "0" + NumberText(c);
    else
      decimals = NumberText(c);
  } else {
    decimals = "00";
  }
  // The hundredths are cut, not rounded: 12.3 gives "12".
  parts.decimals = decimals.substr(0, 2);
  return parts;
}

}  // namespace

std::string LatToTextComma(float lat) {
  CommaParts p = CommaSplit(lat);
  return FormatNumber(p.magnitude, "00") + "." + p.minutes + "." + p.decimals + (lat >= 0 ? "N" : "S");
}

std::string LonToTextComma(float lon) {
  CommaParts p = CommaSplit(lon);
  std::string degrees;
  if (p.magnitude < 1)
    degrees = "000";
  else if (p.magnitude < 10)
    degrees = "00" + NumberText(p.magnitude);
  else
    degrees = NumberText(p.magnitude);
  return degrees + "." + p.minutes + "." + p.decimals + (lon >= 0 ? "E" : "W");
}

std::string LatToText(float lat) { return UsesDecimalComma() ? LatToTextComma(lat) : LatToTextPoint(lat); }
std::string LonToText(float lon) { return UsesDecimalComma() ? LonToTextComma(lon) : LonToTextPoint(lon); }
std::string LatToText3(float lat) { return UsesDecimalComma() ? LatToTextComma(lat) : LatToText3Point(lat); }
std::string LonToText3(float lon) { return UsesDecimalComma() ? LonToTextComma(lon) : LonToText3Point(lon); }

// ---- text to position --------------------------------------------------

namespace {

float TextToAngle(std::string_view text, char negative) {
  size_t point = text.find('.');
  size_t p = point == std::string_view::npos ? 0 : point + 1;  // 1-based position
  double d = TextValue(text.substr(0, p));
  double m = TextValue(text.substr(p)) / 60.0;
  float result = static_cast<float>(d + m);
  for (char c : text)
    if (c == negative) result = -result;
  return result;
}

}  // namespace

float TextToLat(std::string_view text) { return TextToAngle(text, 'S'); }
float TextToLon(std::string_view text) { return TextToAngle(text, 'W'); }

// ---- projection helpers ------------------------------------------------

float MercatorFunction(float lat) {
  return static_cast<float>(std::log(std::tan(lat / 360.0 * kPi + kPi / 4.0)));
}

float MercatorFunctionSine(float lat) {
  double s = lat < 0 ? -1.0 : 1.0;
  double sine = std::sin(lat * kDegToRadShort * s);
  return static_cast<float>(0.5 * std::log((1 + sine) / (1 - sine)) * s);
}

double HyperbolicSine(double x) { return (std::exp(x) - 1.0 / std::exp(x)) / 2.0; }

}  // namespace kelvane
