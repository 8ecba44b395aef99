// Sailing legs: the wind off the bow and the tack of a heading, the boat
// speed of a heading from the polar table, the checks of the leg-speed
// form, and the true and apparent wind calculator.
//
// Notation: headings and wind directions in degrees true, the wind given as
// the direction it blows from; angles off the bow 0 to 180; speeds in knots;
// all 32-bit floats, as the hand method the skippers compare with worked
// them. Tacks are the values of a route point's Tack: 0 none, 1 port,
// 2 starboard (WindSide).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/positions.h"
#include "store/polars.h"
#include "wind/polars.h"

namespace kelvane {

// WindAngleOffBow(heading, windDirection): the angle between the bow and
// the wind, 0 to 180, and the tack. The hand method lifts wind + 180 and
// heading + 180 into a frame of 0 to 880 degrees and tests the difference
// sector by sector (0-180 starboard, 180-360 port, 360-540 starboard,
// 540-720 port, 720-880 starboard), taking the difference or its
// complement. Every sector is the clockwise angle from bow to wind reduced
// modulo 360, so it is the same function as RelativeWindAngle and is that
// function: a wind 1 to 179 degrees clockwise of the bow is starboard tack,
// 181 to 359 port tack, exactly 0 or 180 off the bow no tack.
inline RelativeWind WindAngleOffBow(float heading, float windDirection) {
  return RelativeWindAngle(heading, windDirection);
}

// The tack of every leg of a route through the points, in order (one fewer
// than the points), for the wind from windDirection: each leg's heading is
// its plane-sailing bearing.
std::vector<WindSide> LegTacks(const std::vector<Position>& points, float windDirection);

// "Select a set up": no polar set-up chosen.
std::string SelectSetUpMessage();

// CalcRouteElement(table, W, windDirection, heading): the boat speed
// through the water on a heading, as text "0.0", and the tack. With no
// table (no set-up chosen) the message is SelectSetUpMessage() and nothing
// else is worked. The angle off the bow comes from WindAngleOffBow and the
// speed from PolarBoatSpeed (pinching below closestSailingAngle); a failed
// read of the table leaves speedText empty with PolarLookupFailed set, the
// tack still given, since it depends on the wind alone.
struct [[nodiscard]] RouteElement {
  std::string message;
  std::string speedText;
  WindSide tack = WindSide::None;
  float windAngle = 0;  // off the bow, 0 .. 180
  bool PolarLookupFailed = false;
};
RouteElement CalcRouteElement(const PolarTable* table, float windSpeed, float windDirection, float heading,
                              float closestSailingAngle);

// The typed wind of the leg-speed form. Speed: a plain number (digits and
// at most one point, blanks around) from 0 to 40 knots, the widest band
// NearestWindSpeed knows, else "Invalid Wind Speed". Direction: a plain
// number from 0 to 360, else "Invalid Wind Direction". The speed is checked
// first.
struct [[nodiscard]] WindEntry {
  float speed = 0;
  float direction = 0;
  std::string message;  // "" when both are usable
};
WindEntry ParseWindEntry(std::string_view speedText, std::string_view directionText);
// The direction alone, by the same rule; nothing when it fails.
std::optional<float> ParseWindDirection(std::string_view text);

// The heading of the form's single calculation: a plain number from 0 to
// 360, else "Enter Boat Heading".
struct [[nodiscard]] HeadingEntry {
  float heading = 0;
  std::string message;
};
HeadingEntry ParseHeading(std::string_view text);

// The true and apparent wind calculator. Angles are off the bow, degrees,
// turned into radians with 0.017453293; radians back with 57.29577951.
//   apparent from true:  S = sqrt((W sin a)^2 + (W cos a + B)^2)
//                        A = atan(W sin a / (W cos a + B))
//   true from apparent:  S = sqrt((A sin a)^2 + (A cos a - B)^2)
//                        A = atan(A sin a / (A cos a - B))
// with 180 added to a negative angle. The arctangent of one ratio knows no
// quadrant, and the rule of 180 mends only a negative denominator on the
// starboard side, so two answers of the calculator stand as skippers know
// them: a wind on the port side (over 180) comes back between 90 and 180,
// and a wind of exactly 180 (0.017453293 x 180 is a hair over pi, whose
// sine is negative) comes back as 000.
//
// A zero denominator is a division by zero. With a speed that shows as
// "0.0" (a true wind dead astern at the boat's speed, an apparent wind dead
// ahead at it) there is no wind to have a direction, and the angle is left
// out: its text is empty. Otherwise the ratio is infinite and the angle is
// its limit, 90.
//
// Checks, in order: apparent from true needs a boat speed other than 0
// ("Set boat speed") and a true angle from 0 to 359 ("Check True Wind
// Direction"); true from apparent needs a boat speed other than 0 ("Set
// Speed Over Ground") and an apparent angle from 0 to 359 ("Check Apparent
// Wind Direction"). Speeds are read as the number the text begins with (an
// empty text is 0).
struct [[nodiscard]] WindTriangle {
  std::string message;  // "" when worked
  float speed = 0;
  std::optional<float> angle;  // none after the division by zero in still air
  std::string speedText;       // "0.0"
  std::string angleText;       // "000", or "" with no angle
};
WindTriangle ApparentWindFromTrue(std::string_view trueSpeed, std::string_view trueAngle, std::string_view boatSpeed);
WindTriangle TrueWindFromApparent(std::string_view apparentSpeed, std::string_view apparentAngle,
                                  std::string_view boatSpeed);

// The Beaufort scale (WMO), forces 0 to 12, by the mean wind in knots at
// 10 metres: each force covers lowKnots to highKnots (force 12 from 64 up,
// highKnots 0).
struct BeaufortForce {
  int force = 0;
  const char* description = "";
  int lowKnots = 0;
  int highKnots = 0;
};
const std::array<BeaufortForce, 13>& BeaufortScale();
// The entries of the calculator's force lists: "F4  Moderate breeze  11-16 kn",
// force 0 "F0  Calm  <1 kn", force 12 "F12  Hurricane force  64+ kn".
std::vector<std::string> BeaufortEntries();
// The speed a force puts in the speed box, "0.0": the middle of its band
// (force 0 gives 0.0, force 12 its lower bound, 64.0).
std::string BeaufortSpeedText(int force);
// The entries of the direction lists: "000", "010", ... "350".
std::vector<std::string> WindAngleEntries();

}  // namespace kelvane
