#include "wind/polarplot.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/format.h"
#include "core/text.h"

namespace kelvane {

namespace {

// Radians to degrees, as the program converts them.
constexpr float kDegreesPerRadian = 57.29577951f;

// The value of a cell the file holds; nothing for a NULL or a missing column.
std::optional<float> FieldValue(const std::optional<std::string>& field) {
  if (!field) return std::nullopt;
  return static_cast<float>(TextValue(*field));
}

}  // namespace

float LoadCurve(const PolarTable& table, std::size_t column, PolarCurve& curve) {
  curve.clear();
  float largest = 0;
  if (column >= kPolarSpeedColumns.size()) return largest;
  for (const PolarRow& row : table.rows) {
    const std::optional<float> angle = FieldValue(row.windangle);
    const std::optional<float> speed = FieldValue(row.speeds[column]);
    if (!angle || !speed) continue;
    curve.push_back({*angle, *speed});
    largest = std::max(largest, *speed);
  }
  return largest;
}

float LoadWindCurve(const PolarTable& table, std::size_t row, WindCurve& curve) {
  curve.clear();
  float largest = 0;
  if (row >= table.rows.size()) return largest;
  for (int option = 1; option <= kWindPlotOptions; ++option) {
    const std::optional<float> speed = FieldValue(table.rows[row].speeds[static_cast<std::size_t>(option)]);
    if (!speed) continue;
    curve.push_back({WindOfOption(option), *speed});
    largest = std::max(largest, *speed);
  }
  return largest;
}

int PolarRowOfAngle(const PolarTable& table, float angle) {
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const std::optional<float> a = FieldValue(table.rows[i].windangle);
    if (a && *a == angle) return static_cast<int>(i);
  }
  return -1;
}

PolarRings RingsForSpeed(float largestSpeed) {
  PolarRings r;
  if (!(largestSpeed > 0.0f)) return r;
  r.step = largestSpeed <= 8.0f ? 1.0f : largestSpeed <= 16.0f ? 2.0f : 5.0f;
  r.rings = std::max(1, static_cast<int>(std::ceil(largestSpeed / r.step - 1e-4f)));
  return r;
}

PolarPosition ScreenToPolar(float x, float y) {
  return {std::sqrt(x * x + y * y), std::atan2(x, y) * kDegreesPerRadian};
}

std::string PolarPlotTitle(float windSpeed) {
  return "Boat Speed Vs Wind Angle for " + NumberText(windSpeed) + "kn Wind";
}

std::string WindPlotTitle(float windAngle) { return "Boat Speed vs Wind Speed at Wind Angle of " + NumberText(windAngle); }

std::string RayLabel(int angle) { return std::to_string(angle) + "°"; }

std::string SpeedLabel(float knots) { return NumberText(knots) + "kn"; }

std::string PolarCursorText(PolarPosition position) {
  float bearing = position.angle < 0.0f ? position.angle + 360.0f : position.angle;
  if (bearing >= 360.0f) bearing -= 360.0f;
  return "Cursor Position - Angle Axis " + FormatNumber(std::fabs(position.angle), "0") + "°  Boat Axis = " +
         FormatNumber(position.radius, "0.0") + " Bearing = " + FormatNumber(bearing, "0");
}

std::string WindCursorText(float windSpeed, float boatSpeed) {
  return "Wind Axis (X)=" + FormatNumber(windSpeed, "0.0") + "kn    Boat Axis (Y)=" + FormatNumber(boatSpeed, "0.0");
}

std::string WindAngleText(float angle) { return "Wind Angle=" + NumberText(angle); }

std::string BoatSpeedText(float speed) { return "Boat Speed=" + FormatNumber(speed, "0.0"); }

EditColumnCheck CheckEditColumn(const std::vector<std::string>& texts) {
  EditColumnCheck check;
  std::vector<double> speeds;
  speeds.reserve(texts.size());
  for (const std::string& text : texts) {
    if (Trim(text).empty()) {
      check.message = "Empty Data field";
      return check;
    }
    const double value = TextValue(text);
    if (value == 0.0) {
      check.message = "Invalid Data (Zero Entry)";
      return check;
    }
    speeds.push_back(value);
  }
  check.speeds = std::move(speeds);
  return check;
}

ColumnFill CheckChange1(std::string_view boatSpeedText, std::string_view windSpeedText) {
  ColumnFill fill;
  const double speed = TextValue(boatSpeedText);
  // A negative speed is refused with the zero: no boat sails backwards.
  if (Trim(boatSpeedText).empty() || !(speed > 0.0)) {
    fill.message = "Invalid entry for boat speed";
    return fill;
  }
  const double wind = TextValue(windSpeedText);
  const double half = std::round(wind / 2.0);
  if (wind != half * 2.0 || half < 1.0 || half > kWindPlotOptions) {
    fill.message = "Wind speed must be a multiple of 2";
    return fill;
  }
  fill.column = static_cast<std::size_t>(half);
  fill.speed = speed;
  return fill;
}

CellChange CheckChangeData2(const PolarTable& table, int windOption, std::string_view angleText,
                            std::string_view boatSpeedText) {
  CellChange change;
  if (windOption < 1 || windOption > kWindPlotOptions) {
    change.message = "No wind speed selected";
    return change;
  }
  if (Trim(angleText).empty()) {
    change.message = "Check Wind Angle Entry";
    return change;
  }
  const double angle = TextValue(angleText);
  const double rowAngle = static_cast<double>(RoundToInt(angle / 5.0)) * 5.0;
  if (std::fabs(rowAngle - angle) > 0.1) {
    change.message = "Wind angle must be an exact multiple of 5 - Entry not accepted";
    return change;
  }
  const int row = PolarRowOfAngle(table, static_cast<float>(rowAngle));
  if (row < 0) {
    change.message = "Check Wind Angle";
    return change;
  }
  if (!IsNumberText(boatSpeedText)) {
    change.message = "Check Boat Speed Entry)";
    return change;
  }
  const double speed = TextValue(boatSpeedText);
  if (!(speed > 0.0)) {
    change.message = "Boat Speed of 0kn Detected ! - Entry must be greater than 0kn";
    return change;
  }
  change.row = static_cast<std::size_t>(row);
  change.column = static_cast<std::size_t>(windOption);
  change.speed = speed;
  return change;
}

GridAdjust AdjustEditColumn(const std::vector<std::string>& texts, std::string_view addSubtractText) {
  GridAdjust adjust;
  adjust.texts = texts;
  const float step = static_cast<float>(TextValue(addSubtractText));
  for (std::string& text : adjust.texts) {
    const float value = static_cast<float>(TextValue(text)) + step;
    if (value < 0.0f) {
      adjust.message = "This produces a negative value - Please study your entries";
      return adjust;
    }
    text = NumberText(value);
  }
  return adjust;
}

}  // namespace kelvane
