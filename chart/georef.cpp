#include "chart/georef.h"

#include <algorithm>
#include <cmath>

#include "core/format.h"
#include "core/positions.h"

namespace kelvane {

void SelectChartGeometry(ChartGeometry& g, const ChartRecord& chart) {
  g.chart = chart;
  ChartScales s = ScalesOf(chart);
  g.DegreesLatPerPixel = s.DegreesLatPerPixel;
  g.DegreesLonPerPixel = s.DegreesLonPerPixel;
}

void SetImageGeometry(ChartGeometry& g, int imageHeight) {
  const ChartRecord& c = g.chart;
  double latSpan = static_cast<double>(c.UpperLat) - c.LowerLat;
  g.PixelsPerDegreeLat = imageHeight / latSpan;
  g.PixelsPerDegreeLon =
      (static_cast<double>(c.RightPixels) - c.LeftPixels) / std::fabs(static_cast<double>(c.rightLon) - c.LeftLon);
  g.DegreesLatPerPixel = latSpan / imageHeight;
  g.ImageHeightPixels = RoundToInt16(imageHeight);
}

ChartGeometry GeometryOf(const ChartRecord& chart, int imageHeight) {
  ChartGeometry g;
  SelectChartGeometry(g, chart);
  if (imageHeight <= 0) imageHeight = RoundToInt(static_cast<double>(chart.LowerPixels) + chart.UpperPixels);
  if (imageHeight <= 0) imageHeight = 1;
  SetImageGeometry(g, imageHeight);
  return g;
}

float MercatorY(float lat) { return MercatorFunction(lat); }

float InverseMercator(float y) {
  float ey = static_cast<float>(std::exp(static_cast<double>(y)));
  float sinhY = (ey - 1.0f / ey) / 2.0f;
  return static_cast<float>(std::atan(static_cast<double>(sinhY)) * kRadToDeg);
}

std::int32_t LatToPixel(const ChartGeometry& g, float lat) {
  const ChartRecord& c = g.chart;
  float y = MercatorY(lat);
  double r = (static_cast<double>(y) - c.MeridionalLower) * c.PixelSpan / c.MeridionalSpan;
  std::int32_t inner = RoundToInt(c.PixelSpan - r);
  return RoundToInt(static_cast<double>(c.UpperPixels) + inner);
}

float PixelToLat(const ChartGeometry& g, std::int32_t row) {
  const ChartRecord& c = g.chart;
  double fraction = (static_cast<double>(row) - c.UpperPixels) / c.PixelSpan;
  return InverseMercator(static_cast<float>(c.MeridionalUpper - fraction * c.MeridionalSpan));
}

std::int32_t LonToPixel(const ChartGeometry& g, float lon) {
  const ChartRecord& c = g.chart;
  float offset = static_cast<float>((static_cast<double>(lon) - c.LeftLon) * g.PixelsPerDegreeLon);
  return RoundToInt(static_cast<double>(offset) + c.LeftPixels);
}

float PixelToLon(const ChartGeometry& g, std::int32_t col) {
  const ChartRecord& c = g.chart;
  float product = static_cast<float>((static_cast<double>(col) - c.LeftPixels) * g.DegreesLonPerPixel);
  return c.LeftLon + product;
}

std::int32_t TwipsToPixels(double twips, double dotsPerInch) { return RoundToInt(twips / 1440.0 * dotsPerInch); }

// ---- zoom -----------------------------------------------------------------

namespace {
// One decimal, half to even on the tenths: 0.75 -> 0.8, 1.25 -> 1.2.
float RoundTenths(float z) { return static_cast<float>(RoundToInt(static_cast<double>(z) * 10.0)) / 10.0f; }
}  // namespace

float ZoomInStep(float zoom) {
  float z = zoom <= 1.0f ? zoom + 0.25f : zoom + 0.5f;
  if (z > 2.5f) z = 2.5f;
  return RoundTenths(z);
}

float ZoomOutStep(double zoom) {
  float z = static_cast<float>(zoom);
  if (z > 1.0f) {
    z -= 0.5f;
  } else {
    z -= 0.25f;
    if (z < 0) z = 0.1f;
  }
  if (z > 2.5f) z = 2.5f;
  return RoundTenths(z);
}

float KeyZoomOutStep(double zoom) {
  float z = static_cast<float>(zoom) - 0.5f;
  if (z < 0.1f) z = 0.1f;
  return RoundTenths(z);
}

std::optional<double> DigitZoomPercent(char key) {
  if (key == '0') return 100.0;
  if (key >= '1' && key <= '9') return (key - '0') * 10.0;
  return std::nullopt;
}

// ---- centring and panning ----------------------------------------------------

std::optional<ViewRect> LocatePointRect(const ViewState& view, std::int32_t x, std::int32_t y) {
  if (x >= view.imageWidth || y >= view.imageHeight) return std::nullopt;
  ViewRect r = view.rect;
  double top = RoundToInt(y - r.height / 2);
  double left = RoundToInt(x - r.width / 2);
  if (top < 0) top = 0;
  if (left < 0) left = 0;
  if (x + r.width > view.imageWidth) left = view.imageWidth - r.width;
  r.left = left;
  r.top = top;
  return r;
}

std::optional<ScrollPosition> LocateGPSScroll(const ViewState& view, std::int32_t x, std::int32_t y) {
  if (x < 0 || y < 0 || x >= view.imageWidth || y >= view.imageHeight) return std::nullopt;
  const ViewRect& r = view.rect;
  // The view's corner in image pixels, kept on the image; the scroll bars
  // count screen pixels of the zoomed image, so the corner is scaled last.
  double left = x - r.width / 2, top = y - r.height / 2;
  left = std::min(left, view.imageWidth - r.width);
  top = std::min(top, view.imageHeight - r.height);
  if (left < 0) left = 0;
  if (top < 0) top = 0;
  return ScrollPosition{RoundToInt(view.zoom * left), RoundToInt(view.zoom * top)};
}

std::optional<ViewRect> SavedViewToRestore(double left, double top, double width, double height) {
  if (width > 10 || height > 10) return ViewRect{left, top, width, height};
  return std::nullopt;
}

ViewRect PanStep(const ViewState& view, PanDirection direction) {
  ViewRect r = view.rect;
  double stepX = r.width / 5, stepY = r.height / 5;
  double maxLeft = std::max(0.0, view.imageWidth - r.width);
  double maxTop = std::max(0.0, view.imageHeight - r.height);
  switch (direction) {
    case PanDirection::Left: r.left = std::max(0.0, r.left - stepX); break;
    case PanDirection::Right: r.left = std::min(maxLeft, r.left + stepX); break;
    case PanDirection::Up: r.top = std::max(0.0, r.top - stepY); break;
    case PanDirection::Down: r.top = std::min(maxTop, r.top + stepY); break;
  }
  return r;
}

ScrollPosition PanToEdge(ScrollPosition now, ScrollPosition maximum, PanDirection direction) {
  switch (direction) {
    case PanDirection::Left: now.x = 0; break;
    case PanDirection::Right: now.x = maximum.x; break;
    case PanDirection::Up: now.y = 0; break;
    case PanDirection::Down: now.y = maximum.y; break;
  }
  return now;
}

ScrollPosition HomeScroll(ScrollPosition maximum) { return {maximum.x / 2, maximum.y / 2}; }

ViewCorners CornersOf(const ChartGeometry& g, const ViewRect& r) {
  ViewCorners c;
  c.ViewTopLat = PixelToLat(g, RoundToInt(r.top));
  c.ViewLeftLon = PixelToLon(g, RoundToInt(r.left));
  c.ViewBottomLat = PixelToLat(g, RoundToInt(r.top + r.height));
  c.ViewRightLon = PixelToLon(g, RoundToInt(r.left + r.width));
  return c;
}

ViewRect CarryViewToChart(const ViewCorners& old, const ChartGeometry& g) {
  const ChartRecord& c = g.chart;
  float top = std::min(old.ViewTopLat, c.UpperLat);
  float bottom = std::max(old.ViewBottomLat, c.LowerLat);
  float left = std::max(old.ViewLeftLon, c.LeftLon);
  float right = std::min(old.ViewRightLon, c.rightLon);
  double x1 = std::max(0, LonToPixel(g, left));
  double y1 = std::max(0, LatToPixel(g, top));
  double x2 = std::max(0, LonToPixel(g, right));
  double y2 = std::max(0, LatToPixel(g, bottom));
  return ViewRect{x1, y1, std::max(0.0, x2 - x1), std::max(0.0, y2 - y1)};
}

}  // namespace kelvane
