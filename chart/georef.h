// Position to image pixel and back on a Mercator raster chart calibrated by
// four lines, and the rules of the chart view: zoom steps, centring on a
// position, panning and the Home key.
//
// Image pixels: columns grow eastward from 0 at the image's left edge, rows
// grow southward from 0 at its top. Latitudes and longitudes are 32-bit
// float decimal degrees, north and east positive. Integer results round to
// the nearest, ties to even. The arithmetic keeps the program's own pi
// (3.14159265358598) in MercatorY and the sine form of the isometric
// latitude in the chart record: the two forms stay separate, and the
// difference shows only in the last bits.
#pragma once

#include <cstdint>
#include <optional>

#include "chart/catalogue.h"

namespace kelvane {

// The calibration of the chart on show and the scale factors derived from
// it. SelectCurrentChart fills chart, DegreesLatPerPixel and
// DegreesLonPerPixel; DrawChart fills the rest once the image height is
// known.
struct ChartGeometry {
  ChartRecord chart;
  double PixelsPerDegreeLon = 0;
  double PixelsPerDegreeLat = 0;
  double DegreesLatPerPixel = 0;
  double DegreesLonPerPixel = 0;
  std::int16_t ImageHeightPixels = 0;
};

// SelectCurrentChart's half: the record and the two scales per pixel.
void SelectChartGeometry(ChartGeometry& geometry, const ChartRecord& chart);
// DrawChart's half, given the image height H in pixels:
//   PixelsPerDegreeLat = H / (UpperLat - LowerLat)
//   PixelsPerDegreeLon = (RightPixels - LeftPixels) / |rightLon - LeftLon|
//   DegreesLatPerPixel = (UpperLat - LowerLat) / H
void SetImageGeometry(ChartGeometry& geometry, int imageHeight);
// Both halves for a chart whose image is not loaded (tools, tests): the
// height is taken as the image rows the calibration implies, which only
// the unused latitude scales depend on.
ChartGeometry GeometryOf(const ChartRecord& chart, int imageHeight = 0);

// ln(tan(lat / 360 * P + P / 4)) with P = 3.14159265358598, as a single.
float MercatorY(float lat);
// atan(sinh(y)) * 57.29577951 in degrees, with sinh(y) = (e^y - 1/e^y) / 2
// worked in single precision; the result is a single.
float InverseMercator(float y);

// Row of a latitude: UpperPixels + round(PixelSpan - r), with
// r = (MercatorY(lat) - MeridionalLower) * PixelSpan / MeridionalSpan; the
// inner value is rounded first, then the sum again. No clamping: a
// latitude off the chart gives a row off the image.
std::int32_t LatToPixel(const ChartGeometry& g, float lat);
// Latitude of a row: InverseMercator(MeridionalUpper - ((row - UpperPixels)
// / PixelSpan) * MeridionalSpan).
float PixelToLat(const ChartGeometry& g, std::int32_t row);
// Column of a longitude: (lon - LeftLon) * PixelsPerDegreeLon stored as a
// single, plus LeftPixels, rounded. West of LeftLon gives a column below
// LeftPixels, and nothing is clamped.
std::int32_t LonToPixel(const ChartGeometry& g, float lon);
// Longitude of a column: LeftLon + (col - LeftPixels) * DegreesLonPerPixel,
// the product stored as a single.
float PixelToLon(const ChartGeometry& g, std::int32_t col);

// twips / 1440 * dotsPerInch, rounded: the screen pixels of a length in
// twips, for the logical dots per inch of the axis.
std::int32_t TwipsToPixels(double twips, double dotsPerInch);

// ---- the view ---------------------------------------------------------------

// The visible part of the image in image pixels.
struct ViewRect {
  double left = 0, top = 0, width = 0, height = 0;
};

// What the view rules need to know of the viewer.
struct ViewState {
  double zoom = 1.0;  // ZoomFactor: 1.0 is one image pixel per screen pixel
  ViewRect rect;      // the visible rectangle
  int imageWidth = 0, imageHeight = 0;
};

// Zoom in: + 0.25 up to 1, + 0.5 above it, at most 2.5, then rounded to one
// decimal half to even (0.5 -> 0.8, 1.0 -> 1.2, 2.2 -> 2.5).
float ZoomInStep(float zoom);
// Zoom out: - 0.5 above 1, else - 0.25 with a negative result taken as 0.1;
// at most 2.5; the same rounding. A result of exactly 0 stands.
float ZoomOutStep(double zoom);
// The keys "O" and "-": - 0.5 with a floor of 0.1, the same rounding.
float KeyZoomOutStep(double zoom);
// The digit keys: "0" is 100 percent, "1" to "9" are 10 to 90 percent.
// Anything else is nothing.
std::optional<double> DigitZoomPercent(char key);

// LocatePoint: the rectangle that centres the image point (x, y) at the
// present zoom, or nothing when x is not below the image width or y not
// below its height. Left and top are rounded and raised to 0; when
// x + width passes the image's right edge the left becomes W - width (the
// target column is tested, not the new left, and the bottom edge is not
// tested at all).
std::optional<ViewRect> LocatePointRect(const ViewState& view, std::int32_t x, std::int32_t y);
// LocateGPS: the scroll position (screen pixels) that centres (x, y). The
// view's corner is worked in image pixels, x - w / 2 and y - h / 2, raised
// to 0 and held to W - w and H - h so that the view stays on the image,
// then scaled by the zoom into the viewer's scroll position; so the boat is
// on screen whatever the zoom. Nothing when the position is off the image.
struct ScrollPosition {
  std::int32_t x = 0, y = 0;
};
std::optional<ScrollPosition> LocateGPSScroll(const ViewState& view, std::int32_t x, std::int32_t y);

// The view saved across runs (left, top, width, height in image pixels):
// restored when its width or height is above 10, otherwise nothing, and
// the chart comes up at 50 percent.
std::optional<ViewRect> SavedViewToRestore(double left, double top, double width, double height);

// One step of panning: the rectangle moved by a fifth of its width or
// height, stopping at 0 or at the image's far edge.
enum class PanDirection { Left, Right, Up, Down };
ViewRect PanStep(const ViewState& view, PanDirection direction);
// With Shift: the scroll position at the edge (0 or the maximum) on the
// axis of the direction; the other axis keeps its value.
ScrollPosition PanToEdge(ScrollPosition now, ScrollPosition maximum, PanDirection direction);
// Home: both scroll positions at half their maximum.
ScrollPosition HomeScroll(ScrollPosition maximum);

// The corners of the view as positions, rewritten at each paint.
struct ViewCorners {
  float ViewTopLat = 0, ViewLeftLon = 0, ViewBottomLat = 0, ViewRightLon = 0;
};
ViewCorners CornersOf(const ChartGeometry& g, const ViewRect& rect);

// The rectangle on a new chart after a switch of the ladder: the corners of
// the old view, as positions, clamped into the new chart's calibration
// lines, turned into pixels of the new chart with negatives raised to 0.
ViewRect CarryViewToChart(const ViewCorners& oldCorners, const ChartGeometry& newChart);

}  // namespace kelvane
