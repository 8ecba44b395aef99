// The arithmetic of the chart's overlays, apart from any drawing device:
// which points lie on the drawing surface, the size of marks at the present
// zoom, the colour bands of a waypoint's symbol, the outline of a stream
// arrow, which legs of a route are drawn dashed, when a chart's boundary is
// worth drawing, and the intensity steps of the night view.
//
// Screen coordinates are pixels of the drawing surface, x to the right and
// y downward, as doubles (the painter rounds nothing itself). Directions are
// degrees true, 0 north, clockwise. Colours are packed RGB with red in the
// low byte (core/settings.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

struct ScreenPoint {
  double x = 0, y = 0;
};

// A mark is drawn only when its point is 1 or more and below the surface's
// width and height: the edge row and column are left alone, so that a mark
// exactly on the frame is not half drawn.
bool OnSurface(double x, double y, int surfaceWidth, int surfaceHeight);
// Points of a track (and their time labels) are accepted from -19, so that
// a label may start just off the left or top edge and still show its end.
bool TrackPointOnSurface(double x, double y, int surfaceWidth, int surfaceHeight);

// MarkRadius in screen pixels: round(round(3 x surfaceWidth / 1000) /
// (visibleWidth / imageWidth)), both roundings half to even. visibleWidth
// is the width of the visible part of the image in image pixels; the less
// of the image is on show, the bigger the marks. A surface or image of no
// width, or an empty view, gives the unscaled round(3 x surfaceWidth / 1000).
int MarkRadius(int surfaceWidth, double visibleWidth, int imageWidth);
// The radius that marks have when the whole image is on show:
// round(3 x surfaceWidth / 1000).
int BaseMarkRadius(int surfaceWidth);
// A text height scaled with the zoom as marks are: size x markRadius /
// baseRadius, kept between half and twice the size, at least 6, rounded.
int ScaledTextHeight(int size, int markRadius, int baseRadius);

// ---- waypoint symbols --------------------------------------------------------

// The colour bands of a symbol code, upper colour first: one band for the
// single colours (R, RED, G, GREEN, B, BLACK, O, ORANGE, Y, YELLOW, W,
// WHITE, GRAY, GREY), two for WB BW RG GR WR RW WG GW YB BY, three for BYB
// YBY BRB WRW OWO. The code is compared in upper case with surrounding
// blanks removed. Any other code gives no band: the plain mark in WayColour.
std::vector<std::int32_t> SymbolBands(std::string_view sym);

// The band colours by letter: R red, G green, B black, O orange (255, 144,
// 0), Y yellow, W white; grey is (192, 192, 192).
inline constexpr std::int32_t kBandRed = 0x0000FF;
inline constexpr std::int32_t kBandGreen = 0x00FF00;
inline constexpr std::int32_t kBandBlack = 0x000000;
inline constexpr std::int32_t kBandOrange = 0x0090FF;  // (255, 144, 0)
inline constexpr std::int32_t kBandYellow = 0x00FFFF;
inline constexpr std::int32_t kBandWhite = 0xFFFFFF;
inline constexpr std::int32_t kBandGrey = 0xC0C0C0;

// An integer rectangle of the surface.
struct PixelRect {
  int x = 0, y = 0, width = 0, height = 0;
};

// The body of a symbol mark centred on (cx, cy): size x 2 wide and size x 3
// high (size is the settings' WaySize, at least 2), split into `bands`
// horizontal bands of equal height, top first. The band edges are whole
// pixels and together they cover the body exactly. bands below 1 give one
// band (the plain mark).
std::vector<PixelRect> SymbolMarkBands(double cx, double cy, int size, int bands);

// The symbol code that paints an AIS aid to navigation of type 0 to 31 with
// the waypoint marks: cardinal marks by their bands (north "BY", east "BYB",
// south "YB", west "YBY"), lateral marks "R" and "G", preferred channels
// "GR" and "RG", isolated danger "BRB", safe water "RW", special marks "Y",
// a light vessel "O"; the plain types (0 to 8) and anything outside 0..31
// are "GREY".
std::string_view AidTypeSymbol(int aidType);

// ---- stream arrows -----------------------------------------------------------

// Length in screen pixels of the arrow of a stream of `rate` knots: the
// settings' StreamLength x markRadius x rate, so that the configured length
// is the scale and arrows grow with the zoom. A running stream gets at
// least 8 pixels so that its head shows; a slack stream (rate 0 or less)
// gets no arrow.
double StreamArrowLength(float rate, int streamLength, int markRadius);

// The outline of an arrow from (x, y) along `direction` for `length`
// pixels: tail corners, shoulders, head corners and the tip, 7 points in
// drawing order (tail right, neck right, head right, tip, head left, neck
// left, tail left; "right" is the side 90 degrees clockwise of the
// direction). The head is 35 percent of the length (at least 4 pixels)
// and half as wide as that on each side (at least 3); the shaft is
// shaftHalfWidth each side (at least 1). Angles use 0.017453293 per degree
// and the head's sides are set off by adding and taking 90 degrees.
std::array<ScreenPoint, 7> StreamArrowPolygon(double x, double y, float direction, double length,
                                              double shaftHalfWidth);
// The arrow as lines: the shaft from the tail to the tip, then the two
// strokes of the head from the tip back to the head's corners.
struct ArrowLines {
  ScreenPoint tail, tip, headRight, headLeft;
};
ArrowLines StreamArrowLines(double x, double y, float direction, double length);

// ---- route and chart boundaries ------------------------------------------------

// A leg is drawn solid once a calculation has given it a result: results
// exist (RouteCog holds more than its blank start) and the leg's point has
// a time taken or a track. Otherwise the leg is dashed.
bool LegCalculated(bool resultsExist, float legTime, int driftCount);

// A chart's boundary rectangle (screen corners, any order) is drawn when it
// overlaps the surface and is at least 8 pixels wide on screen: a chart
// that shrinks to a few pixels at this zoom tells nothing.
bool BoundaryWorthDrawing(ScreenPoint a, ScreenPoint b, int surfaceWidth, int surfaceHeight);

// The text of route point i (from 1): "Start" for the first, its number
// after; " Wa " and the waypoint's name when it carries one; and, for a
// point where the boat stops before the next leg (the dive time of a dive
// route), " Stop " and the minutes with "min".
std::string RoutePointLabel(int index, std::string_view name, int stopMinutes);
// The text beside a leg: range "0.0" "nm ", bearing "000" "°T", then
// " Steer " course "000" "°M" once the leg is calculated, then the point's
// remark (the text the route gives its leg line) when it has one.
std::string LegLabel(float range, float bearing, bool calculated, float courseToSteer, std::string_view remark);

// ---- labels ----------------------------------------------------------------------

// A label's box on the surface, top-left corner and size.
struct LabelBox {
  double x = 0, y = 0, width = 0, height = 0;
};
bool BoxesOverlap(const LabelBox& a, const LabelBox& b);
// The time labels of a track, in track order: a label is drawn only when
// it is clear of the last one drawn (the first is always drawn), so that
// steps close together on the screen don't print their times over each
// other, over the track and over the legs' "Steer" text.
std::vector<bool> LabelsClearOfPrevious(const std::vector<LabelBox>& boxes);
// A label that floats beside the pointer (the dividers' range): 20 pixels
// right of and below it; where that runs past the surface's right or
// bottom edge it goes as far to the left of or above the pointer instead,
// and it never starts left of or above the surface.
ScreenPoint FloatingLabelPlace(double pointerX, double pointerY, double width, double height, int surfaceWidth,
                               int surfaceHeight);

// The label written inside a drawn boundary's upper-left corner by the two
// settings beside it: the chart's name, its number, or both as the status
// bar gives them ("name : number"); empty with both off.
std::string BoundaryLabel(std::string_view chartName, std::string_view chartNumber, bool showName, bool showNumber);

// ---- night view ----------------------------------------------------------------

// The chart's brightness in percent, 10 to 100; 100 is the chart as it is.
// Night view takes it down by 10, Increase Intensity up by 10, Day view
// back to 100; the result is kept between 10 and 100.
inline constexpr int kFullBrightness = 100;
int BrightnessAfterStep(int brightness, int step);
// The viewer's brightness step for a brightness in percent: one step per 10
// percent below full, (brightness - 100) / 10.
int ViewerStepsFor(int brightness);

}  // namespace kelvane
