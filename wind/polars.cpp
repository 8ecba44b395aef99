#include "wind/polars.h"

#include <cmath>

#include "core/format.h"

namespace kelvane {

WindSpeedBand NearestWindSpeed(float windSpeed) {
  if (windSpeed >= 40.0f) return {40.0f, 42.0f, windSpeed - 40.0f};
  const float lower = 2.0f * std::floor(windSpeed / 2.0f);
  if (windSpeed == lower) return {lower, lower + 2.0f, 2.0f};
  return {lower, lower + 2.0f, windSpeed - lower};
}

std::optional<int> RoundWindAngle(float angle) {
  if (!(angle >= 0.0f) || angle > 180.5f) return std::nullopt;
  // The band of 180 is cut at 180.5, half the width of the others.
  for (int row = 30; row < 180; row += 5)
    if (angle <= static_cast<float>(row) + 2.5f) return row;
  return 180;
}

RelativeWind RelativeWindAngle(float boatCourse, float windDirection) {
  // How far the wind lies clockwise of the bow, 0 up to 360.
  float clockwise = std::fmod(windDirection - boatCourse, 360.0f);
  if (clockwise < 0.0f) clockwise += 360.0f;
  if (clockwise == 0.0f || clockwise == 180.0f) return {clockwise, WindSide::None};
  if (clockwise < 180.0f) return {clockwise, WindSide::Starboard};
  return {360.0f - clockwise, WindSide::Port};
}

PolarCell BoatSpeedFromWindEntryAndSpeed(const PolarTable& table, std::int16_t row, float windSpeed) {
  PolarCell cell;
  if (row > 30) row = 30;
  const std::size_t index = row > 1 ? static_cast<std::size_t>(row - 1) : 0;
  if (!(windSpeed >= 0.0f) || index >= table.rows.size()) {
    cell.PolarLookupFailed = true;
    return cell;
  }
  const std::size_t column = windSpeed >= 30.0f ? 15 : static_cast<std::size_t>(windSpeed / 2.0f);
  const std::optional<std::string>& field = table.rows[index].speeds[column];
  if (!field) {
    cell.PolarLookupFailed = true;
    return cell;
  }
  cell.speedText = *field;
  return cell;
}

namespace {

// The row number (from 1) whose windangle is the given angle; 0 when none.
std::int16_t RowOfAngle(const PolarTable& table, float angle) {
  for (std::size_t i = 0; i < table.rows.size() && i < 32767; ++i)
    if (table.rows[i].windangle && static_cast<float>(TextValue(*table.rows[i].windangle)) == angle)
      return static_cast<std::int16_t>(i + 1);
  return 0;
}

// Along the angle, from the row below (s1) towards the row above (s2).
float AlongAngle(float s1, float s2, float fraction) {
  const float step = std::fabs(s1 - s2) / kPolarStep * fraction;
  return s1 < s2 ? s1 + step : s1 - step;
}

}  // namespace

AngleBand calcAngle(float angle) {
  AngleBand band;
  band.lower = static_cast<float>(RoundToInt16(std::floor(angle / kPolarStep) * kPolarStep));
  band.upper = band.lower + kPolarStep;
  band.fraction = angle - band.lower;
  return band;
}

PolarCell PolarBoatSpeed(const PolarTable& table, float windSpeed, float windAngle, float closestSailingAngle) {
  PolarCell failed;
  failed.PolarLookupFailed = true;
  if (!std::isfinite(windAngle) || !std::isfinite(windSpeed)) return failed;
  const auto [lower, upper, fraction] = calcAngle(windAngle);
  // An angle with no row of its own (below the table's first angle, or the
  // 185 above the row of 180) keeps row number 0, and row 0 reads the first
  // row: a leg dead upwind still gets a pinching speed (held at 0.5 kn at
  // the least) and one dead downwind the speed of the last row, rather than
  // no speed at all and the leg left at whatever it had.
  const std::int16_t lowerRow = RowOfAngle(table, lower);
  const std::int16_t upperRow = RowOfAngle(table, upper);

  bool ok = true;
  auto read = [&](std::int16_t row, float w) {
    PolarCell c = BoatSpeedFromWindEntryAndSpeed(table, row, w);
    if (c.PolarLookupFailed) ok = false;
    return static_cast<float>(TextValue(c.speedText));
  };

  float speed = 0;
  if (windAngle < closestSailingAngle) {
    const float s1 = read(lowerRow, windSpeed);
    const float s2 = read(upperRow, windSpeed);
    speed = ((s1 + s2) / 2.0f) * windAngle / 30.0f;
    if (speed < 0.5f) speed = 0.5f;
  } else {
    const float low = AlongAngle(read(lowerRow, windSpeed), read(upperRow, windSpeed), fraction);
    const float high = AlongAngle(read(lowerRow, windSpeed + 2.0f), read(upperRow, windSpeed + 2.0f), fraction);
    const float f = NearestWindSpeed(windSpeed).fraction;
    speed = ((high - low) * f) / 2.0f + low;
  }
  if (!ok) return failed;
  PolarCell cell;
  cell.speedText = FormatNumber(speed, "0.0");
  return cell;
}

}  // namespace kelvane
