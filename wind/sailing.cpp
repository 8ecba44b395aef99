#include "wind/sailing.h"

#include <cmath>

#include "core/format.h"
#include "core/text.h"

namespace kelvane {

namespace {

// A plain unsigned decimal as typed in a box: digits with at most one
// point, blanks and tabs around it. What the forms' IsNumeric test let
// through for a speed, a direction or a heading.
std::optional<float> PlainNumber(std::string_view text) {
  const std::string trimmed = TrimBlanks(text);
  int digits = 0, points = 0;
  for (char c : trimmed) {
    if (c >= '0' && c <= '9')
      ++digits;
    else if (c == '.')
      ++points;
    else
      return std::nullopt;
  }
  if (digits == 0 || points > 1) return std::nullopt;
  return static_cast<float>(TextValue(trimmed));
}

constexpr float kDegreesToRadians = 0.017453293f;
constexpr float kRadiansToDegrees = 57.29577951f;

// One side of the calculator: the resultant of a wind of `wind` knots at
// `angle` off the bow and the boat's own speed `along` (+B for the
// apparent wind, -B for the true one).
WindTriangle Resultant(float wind, float angleDegrees, float along) {
  const float a = angleDegrees * kDegreesToRadians;
  const float across = wind * std::sin(a);
  const float ahead = wind * std::cos(a) + along;
  WindTriangle out;
  out.speed = std::sqrt(across * across + ahead * ahead);
  out.speedText = FormatNumber(out.speed, "0.0");
  if (ahead == 0.0f) {
    // The division by zero: still air has no direction; otherwise the
    // ratio is infinite and its arctangent 90 either way round.
    if (out.speedText != "0.0") out.angle = 90.0f;
  } else {
    float angle = std::atan(across / ahead) * kRadiansToDegrees;
    if (angle < 0.0f) angle += 180.0f;
    out.angle = angle;
  }
  if (out.angle) out.angleText = FormatNumber(*out.angle, "000");
  return out;
}

// The calculator's angle box: a plain number from 0 to 359.
std::optional<float> CalculatorAngle(std::string_view text) {
  const std::optional<float> angle = PlainNumber(text);
  if (!angle || *angle > 359.0f) return std::nullopt;
  return angle;
}

}  // namespace

std::vector<WindSide> LegTacks(const std::vector<Position>& points, float windDirection) {
  std::vector<WindSide> tacks;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const RangeAndBearing rb = RangeBearing(points[i].lat, points[i].lon, points[i + 1].lat, points[i + 1].lon);
    tacks.push_back(WindAngleOffBow(rb.bearing, windDirection).side);
  }
  return tacks;
}

std::string SelectSetUpMessage() { return "Select a set up"; }

RouteElement CalcRouteElement(const PolarTable* table, float windSpeed, float windDirection, float heading,
                              float closestSailingAngle) {
  RouteElement out;
  if (!table) {
    out.message = SelectSetUpMessage();
    return out;
  }
  const RelativeWind off = WindAngleOffBow(heading, windDirection);
  out.tack = off.side;
  out.windAngle = off.angle;
  PolarCell cell = PolarBoatSpeed(*table, windSpeed, off.angle, closestSailingAngle);
  out.PolarLookupFailed = cell.PolarLookupFailed;
  out.speedText = std::move(cell.speedText);
  return out;
}

WindEntry ParseWindEntry(std::string_view speedText, std::string_view directionText) {
  WindEntry out;
  const std::optional<float> speed = PlainNumber(speedText);
  if (!speed || *speed > 40.0f) {
    out.message = "Invalid Wind Speed";
    return out;
  }
  const std::optional<float> direction = ParseWindDirection(directionText);
  if (!direction) {
    out.message = "Invalid Wind Direction";
    return out;
  }
  out.speed = *speed;
  out.direction = *direction;
  return out;
}

std::optional<float> ParseWindDirection(std::string_view text) {
  const std::optional<float> direction = PlainNumber(text);
  if (!direction || *direction > 360.0f) return std::nullopt;
  return direction;
}

HeadingEntry ParseHeading(std::string_view text) {
  HeadingEntry out;
  const std::optional<float> heading = PlainNumber(text);
  if (!heading || *heading > 360.0f) {
    out.message = "Enter Boat Heading";
    return out;
  }
  out.heading = *heading;
  return out;
}

WindTriangle ApparentWindFromTrue(std::string_view trueSpeed, std::string_view trueAngle, std::string_view boatSpeed) {
  const float boat = static_cast<float>(TextValue(boatSpeed));
  WindTriangle refused;
  if (boat == 0.0f) {
    refused.message = "Set boat speed";
    return refused;
  }
  const std::optional<float> angle = CalculatorAngle(trueAngle);
  if (!angle) {
    refused.message = "Check True Wind Direction";
    return refused;
  }
  return Resultant(static_cast<float>(TextValue(trueSpeed)), *angle, boat);
}

WindTriangle TrueWindFromApparent(std::string_view apparentSpeed, std::string_view apparentAngle,
                                  std::string_view boatSpeed) {
  const float boat = static_cast<float>(TextValue(boatSpeed));
  WindTriangle refused;
  if (boat == 0.0f) {
    refused.message = "Set Speed Over Ground";
    return refused;
  }
  const std::optional<float> angle = CalculatorAngle(apparentAngle);
  if (!angle) {
    refused.message = "Check Apparent Wind Direction";
    return refused;
  }
  return Resultant(static_cast<float>(TextValue(apparentSpeed)), *angle, -boat);
}

const std::array<BeaufortForce, 13>& BeaufortScale() {
  static const std::array<BeaufortForce, 13> scale = {{
      {0, "Calm", 0, 0},
      {1, "Light air", 1, 3},
      {2, "Light breeze", 4, 6},
      {3, "Gentle breeze", 7, 10},
      {4, "Moderate breeze", 11, 16},
      {5, "Fresh breeze", 17, 21},
      {6, "Strong breeze", 22, 27},
      {7, "Near gale", 28, 33},
      {8, "Gale", 34, 40},
      {9, "Strong gale", 41, 47},
      {10, "Storm", 48, 55},
      {11, "Violent storm", 56, 63},
      {12, "Hurricane force", 64, 0},
  }};
  return scale;
}

std::vector<std::string> BeaufortEntries() {
  std::vector<std::string> entries;
  for (const BeaufortForce& f : BeaufortScale()) {
    std::string knots;
    if (f.force == 0)
      knots = "<1";
    else if (f.highKnots == 0)
      knots = std::to_string(f.lowKnots) + "+";
    else
      knots = std::to_string(f.lowKnots) + "-" + std::to_string(f.highKnots);
    entries.push_back("F" + std::to_string(f.force) + "  " + f.description + "  " + knots + " kn");
  }
  return entries;
}

std::string BeaufortSpeedText(int force) {
  if (force < 0 || force > 12) return "";
  const BeaufortForce& f = BeaufortScale()[static_cast<std::size_t>(force)];
  const float knots = f.highKnots == 0 ? static_cast<float>(f.lowKnots)
                                       : static_cast<float>(f.lowKnots + f.highKnots) / 2.0f;
  return FormatNumber(knots, "0.0");
}

std::vector<std::string> WindAngleEntries() {
  std::vector<std::string> entries;
  for (int angle = 0; angle < 360; angle += 10) entries.push_back(FormatNumber(angle, "000"));
  return entries;
}

}  // namespace kelvane
