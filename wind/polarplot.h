// PolarPlot: what the polar viewer and editor show and accept, decided
// without the toolkit. The curves of a polar table (store/polars.h) for
// plotting, the scale of the rings, the pointer's read-outs, and the checks
// of the editor's entries with the messages the user is given.
//
// Notation: angles are true wind angles off the bow in degrees, 0 up the
// page (the wind's eye) and growing clockwise; speeds in knots. The option
// buttons of the forms count the wind columns from 1 (2 kn) to 15 (30 kn),
// so option k reads kPolarSpeedColumns[k], the speeds at 2k knots.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "store/polars.h"

namespace kelvane {

// optWindPlot(1) .. optWindPlot(15): 2 to 30 knots of true wind.
inline constexpr int kWindPlotOptions = 15;
inline float WindOfOption(int option) { return static_cast<float>(2 * option); }

// One point of the speed-against-angle curve.
struct PolarCurvePoint {
  float angle = 0;  // true wind angle, degrees
  float speed = 0;  // boat speed, knots
};
using PolarCurve = std::vector<PolarCurvePoint>;

// LoadCurve: the one routine behind LoadCurve2kn .. LoadCurve30kn. Fills
// curve with (windangle, speed) of every row of the speed column `column`
// (0 Wind0kn .. 15 Wind30kn) in the table's order, and returns the largest
// speed (0 for none). A row whose angle or speed the file does not hold
// (a NULL, a missing column) is left out of the curve rather than drawn
// as a speed of 0: the skipper would read it as a boat that stops.
float LoadCurve(const PolarTable& table, std::size_t column, PolarCurve& curve);

// One point of the speed-against-wind curve of a row.
struct WindCurvePoint {
  float wind = 0;   // true wind speed, knots
  float speed = 0;  // boat speed, knots
};
using WindCurve = std::vector<WindCurvePoint>;

// The row `row` (from 0, the file's order) across the wind columns 2 to 30
// knots, for the second picture; cells the file lacks are left out. Returns
// the largest speed (0 for none).
float LoadWindCurve(const PolarTable& table, std::size_t row, WindCurve& curve);

// The row (from 0) whose windangle is the angle; -1 when none.
int PolarRowOfAngle(const PolarTable& table, float angle);

// Rings of boat speed: every `step` knots out to rings x step, the outer
// ring at or beyond the largest speed. A step of 1 up to 8 knots, 2 up to
// 16, then 5, so that the labels stay apart; at least one ring.
struct PolarRings {
  float step = 1;
  int rings = 1;
  float Outer() const { return step * static_cast<float>(rings); }
};
PolarRings RingsForSpeed(float largestSpeed);

// ScreenToPolar: a pointer position as offsets from the plot's centre, x
// to the right and y up the page, in knots: radius = sqrt(x^2 + y^2),
// angle = the arc tangent of x over y, degrees clockwise from up
// (-180 .. 180; the left half of the picture is negative).
struct PolarPosition {
  float radius = 0;
  float angle = 0;
};
PolarPosition ScreenToPolar(float x, float y);

// The texts of the pictures and their read-outs.
std::string PolarPlotTitle(float windSpeed);     // "Boat Speed Vs Wind Angle for 12kn Wind"
std::string WindPlotTitle(float windAngle);      // "Boat Speed vs Wind Speed at Wind Angle of 90"
std::string RayLabel(int angle);                 // "30°"
std::string SpeedLabel(float knots);             // "10kn"
// The pointer over the polar picture: "Cursor Position - Angle Axis 45°
// Boat Axis = 5.2 Bearing = 315": the angle off the wind folded into 0 to
// 180, the radius, and the direction from the centre 0 to 360.
std::string PolarCursorText(PolarPosition position);
// The pointer over the speed-against-wind picture.
std::string WindCursorText(float windSpeed, float boatSpeed);  // "Wind Axis (X)=12.0kn    Boat Axis (Y)=5.4"
std::string WindAngleText(float angle);                        // "Wind Angle=45"
std::string BoatSpeedText(float speed);                        // "Boat Speed=5.2"

// ---- the editor's checks ------------------------------------------------
// Each returns the user's message ("" when the entry is accepted) with what
// to write. A refused entry changes nothing.

inline constexpr const char* kEditInstruction =
    "Select a wind speed, enter a boat speed for the specific true wind angle to the boat, press 'Change Data' "
    "when complete";
inline constexpr const char* kSelectASetUp = "Select a set up";

// CheckEditColumn: the write-back of the grid txtEditSpeed to one column.
// Row by row, an empty text stops with "Empty Data field" and a value of 0
// (which is also what a text that is no number reads as) with "Invalid Data
// (Zero Entry)"; only when every row passes are the speeds given.
struct [[nodiscard]] EditColumnCheck {
  std::string message;
  std::vector<double> speeds;  // one per row, knots
};
EditColumnCheck CheckEditColumn(const std::vector<std::string>& texts);

// cmdChange1: one boat speed for every row of one wind column. The boat
// speed must be given and above 0 ("Invalid entry for boat speed"); the
// wind speed must be an even number of knots from 2 to 30 ("Wind speed must
// be a multiple of 2").
struct [[nodiscard]] ColumnFill {
  std::string message;
  std::size_t column = 0;  // 1 .. 15
  double speed = 0;
};
ColumnFill CheckChange1(std::string_view boatSpeedText, std::string_view windSpeedText);

// cmdChangeData2: one cell, in this order of checks:
//   option 0 (none set)                      "No wind speed selected"
//   angle empty                              "Check Wind Angle Entry"
//   angle not within 0.1 of a multiple of 5  "Wind angle must be an exact multiple of 5 - Entry not accepted"
//   no row of that angle in the table        "Check Wind Angle"
//   boat speed no number                     "Check Boat Speed Entry)" (its lone bracket is the program's)
//   boat speed 0 or below                    "Boat Speed of 0kn Detected ! - Entry must be greater than 0kn"
// The multiple of 5 is found as the nearest whole number of fives (ties to
// even) times 5.
struct [[nodiscard]] CellChange {
  std::string message;
  std::size_t row = 0;     // from 0, the file's order
  std::size_t column = 0;  // 1 .. 15
  double speed = 0;
};
CellChange CheckChangeData2(const PolarTable& table, int windOption, std::string_view angleText,
                            std::string_view boatSpeedText);

// cmdAdjust: txtAddSubtract added to every row of the grid, top down. A
// result below 0 stops there with "This produces a negative value - Please
// study your entries"; the rows above keep their new values, the row and
// those below keep theirs. The grid is only the edit boxes: nothing is
// written until the column is written back.
struct [[nodiscard]] GridAdjust {
  std::string message;
  std::vector<std::string> texts;  // the grid after the adjustment
};
GridAdjust AdjustEditColumn(const std::vector<std::string>& texts, std::string_view addSubtractText);

}  // namespace kelvane
