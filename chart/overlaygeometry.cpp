#include "chart/overlaygeometry.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

#include "core/format.h"
#include "core/text.h"

namespace kelvane {

bool OnSurface(double x, double y, int surfaceWidth, int surfaceHeight) {
  return x >= 1 && y >= 1 && x < surfaceWidth && y < surfaceHeight;
}

bool TrackPointOnSurface(double x, double y, int surfaceWidth, int surfaceHeight) {
  return x >= -19 && y >= -19 && x < surfaceWidth && y < surfaceHeight;
}

int BaseMarkRadius(int surfaceWidth) { return RoundToInt(3.0 * surfaceWidth / 1000.0); }

int MarkRadius(int surfaceWidth, double visibleWidth, int imageWidth) {
  const int base = BaseMarkRadius(surfaceWidth);
  if (imageWidth <= 0 || visibleWidth <= 0) return base;
  return RoundToInt(base / (visibleWidth / imageWidth));
}

int ScaledTextHeight(int size, int markRadius, int baseRadius) {
  double factor = baseRadius > 0 ? static_cast<double>(markRadius) / baseRadius : 1.0;
  factor = std::clamp(factor, 0.5, 2.0);
  return std::max(6, RoundToInt(size * factor));
}

// ---- waypoint symbols --------------------------------------------------------

namespace {

std::int32_t LetterColour(char c) {
  switch (c) {
    case 'R': return kBandRed;
    case 'G': return kBandGreen;
    case 'B': return kBandBlack;
    case 'O': return kBandOrange;
    case 'Y': return kBandYellow;
    case 'W': return kBandWhite;
    default: return -1;
  }
}

std::string Normalised(std::string_view sym) { return ToUpper(Trim(sym)); }

}  // namespace

std::vector<std::int32_t> SymbolBands(std::string_view sym) {
  static const char* const kNamed[][2] = {{"RED", "R"},    {"GREEN", "G"},  {"BLACK", "B"}, {"ORANGE", "O"},
                                           {"YELLOW", "Y"}, {"WHITE", "W"}};
  static const char* const kCodes[] = {"R",  "G",  "B",  "O",  "Y",  "W",  "WB",  "BW",  "RG",  "GR",  "WR",
                                       "RW", "WG", "GW", "YB", "BY", "BYB", "YBY", "BRB", "WRW", "OWO"};
  std::string code = Normalised(sym);
  if (code == "GRAY" || code == "GREY") return {kBandGrey};
  for (const auto& named : kNamed)
    if (code == named[0]) code = named[1];
  for (const char* known : kCodes) {
    if (code != known) continue;
    std::vector<std::int32_t> bands;
    for (char c : code) bands.push_back(LetterColour(c));
    return bands;
  }
  return {};
}

std::vector<PixelRect> SymbolMarkBands(double cx, double cy, int size, int bands) {
  size = std::max(size, 2);
  bands = std::max(bands, 1);
  const int width = size * 2, height = size * 3;
  const int left = RoundToInt(cx) - size;
  const int top = RoundToInt(cy) - height / 2;
  std::vector<PixelRect> rects;
  int y = top;
  for (int i = 1; i <= bands; ++i) {
    const int bottom = top + height * i / bands;
    rects.push_back(PixelRect{left, y, width, bottom - y});
    y = bottom;
  }
  return rects;
}

std::string_view AidTypeSymbol(int aidType) {
  switch (aidType) {
    case 9:
    case 20: return "BY";
    case 10:
    case 21: return "BYB";
    case 11:
    case 22: return "YB";
    case 12:
    case 23: return "YBY";
    case 13:
    case 24: return "R";
    case 14:
    case 25: return "G";
    case 15:
    case 26: return "GR";
    case 16:
    case 27: return "RG";
    case 17:
    case 28: return "BRB";
    case 18:
    case 29: return "RW";
    case 19:
    case 30: return "Y";
    case 31: return "O";
    default: return "GREY";
  }
}

// ---- stream arrows -----------------------------------------------------------

namespace {

constexpr double kDegToRad = 0.017453293;

// The screen vector of a true direction: east is +x, north is -y.
ScreenPoint Along(float direction) {
  return ScreenPoint{std::sin(direction * kDegToRad), -std::cos(direction * kDegToRad)};
}

ScreenPoint Offset(ScreenPoint p, ScreenPoint unit, double distance) {
  return ScreenPoint{p.x + unit.x * distance, p.y + unit.y * distance};
}

double HeadLength(double length) { return std::max(4.0, length * 0.35); }
double HeadHalfWidth(double length) { return std::max(3.0, HeadLength(length) / 2.0); }

}  // namespace

double StreamArrowLength(float rate, int streamLength, int markRadius) {
  if (!(rate > 0.0f)) return 0.0;
  return std::max(8.0, static_cast<double>(streamLength) * markRadius * rate);
}

std::array<ScreenPoint, 7> StreamArrowPolygon(double x, double y, float direction, double length,
                                              double shaftHalfWidth) {
  const ScreenPoint u = Along(direction);
  const ScreenPoint right = Along(direction + 90.0f);
  const ScreenPoint left = Along(direction - 90.0f);
  const double shaft = std::max(1.0, shaftHalfWidth);
  const ScreenPoint tail{x, y};
  const ScreenPoint tip = Offset(tail, u, length);
  const ScreenPoint neck = Offset(tip, u, -HeadLength(length));
  const double half = HeadHalfWidth(length);
  return {Offset(tail, right, shaft), Offset(neck, right, shaft), Offset(neck, right, half), tip,
          Offset(neck, left, half),   Offset(neck, left, shaft),  Offset(tail, left, shaft)};
}

ArrowLines StreamArrowLines(double x, double y, float direction, double length) {
  const ScreenPoint u = Along(direction);
  const ScreenPoint tail{x, y};
  const ScreenPoint tip = Offset(tail, u, length);
  const ScreenPoint neck = Offset(tip, u, -HeadLength(length));
  const double half = HeadHalfWidth(length);
  return {tail, tip, Offset(neck, Along(direction + 90.0f), half), Offset(neck, Along(direction - 90.0f), half)};
}

// ---- route and chart boundaries ------------------------------------------------

bool LegCalculated(bool resultsExist, float legTime, int driftCount) {
  return resultsExist && (legTime > 0.0f || driftCount > 0);
}

bool BoundaryWorthDrawing(ScreenPoint a, ScreenPoint b, int surfaceWidth, int surfaceHeight) {
  const double left = std::min(a.x, b.x), right = std::max(a.x, b.x);
  const double top = std::min(a.y, b.y), bottom = std::max(a.y, b.y);
  if (right - left < 8.0) return false;
  return right >= 0 && bottom >= 0 && left < surfaceWidth && top < surfaceHeight;
}

std::string RoutePointLabel(int index, std::string_view name, int stopMinutes) {
  std::string label = index == 1 ? "Start" : std::to_string(index);
  const std::string trimmed = TrimSpaces(name);
  if (!trimmed.empty()) label += " Wa " + trimmed;
  if (stopMinutes > 0) label += " Stop " + std::to_string(stopMinutes) + "min";
  return label;
}

std::string LegLabel(float range, float bearing, bool calculated, float courseToSteer, std::string_view remark) {
  std::string text = FormatNumber(range, "0.0") + "nm " + FormatNumber(bearing, "000") + "\u00b0T";
  if (calculated) text += " Steer " + FormatNumber(courseToSteer, "000") + "\u00b0M";
  const std::string trimmed = TrimSpaces(remark);
  if (!trimmed.empty()) text += " " + trimmed;
  return text;
}

// ---- labels ----------------------------------------------------------------------

bool BoxesOverlap(const LabelBox& a, const LabelBox& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

std::vector<bool> LabelsClearOfPrevious(const std::vector<LabelBox>& boxes) {
  std::vector<bool> drawn(boxes.size(), false);
  const LabelBox* last = nullptr;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (last && BoxesOverlap(*last, boxes[i])) continue;
    drawn[i] = true;
    last = &boxes[i];
  }
  return drawn;
}

ScreenPoint FloatingLabelPlace(double pointerX, double pointerY, double width, double height, int surfaceWidth,
                               int surfaceHeight) {
  ScreenPoint p{pointerX + 20, pointerY + 20};
  if (p.x + width > surfaceWidth) p.x = pointerX - 20 - width;
  if (p.y + height > surfaceHeight) p.y = pointerY - 20 - height;
  p.x = std::max(0.0, p.x);
  p.y = std::max(0.0, p.y);
  return p;
}

std::string BoundaryLabel(std::string_view chartName, std::string_view chartNumber, bool showName, bool showNumber) {
  std::string label;
  if (showName) label = chartName;
  if (showNumber) label += (label.empty() ? "" : " : ") + std::string(chartNumber);
  return label;
}

// ---- night view ----------------------------------------------------------------

int BrightnessAfterStep(int brightness, int step) { return std::clamp(brightness + step, 10, kFullBrightness); }

int ViewerStepsFor(int brightness) { return (brightness - kFullBrightness) / 10; }

}  // namespace kelvane
