// What the overlay layers share beyond the primitives of overlays.h: the
// surface test of a mark, the circle, the boat outline, the fixed colours
// and the small text helpers. Only the layers' own files include it.
#pragma once

#include <QPolygonF>
#include <QString>
#include <cstdint>
#include <string>

#include "app/overlays.h"
#include "core/text.h"

namespace kelvane::app::overlay {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }

// A mark is drawn only where its point is on the surface (OnSurface).
bool On(const OverlayFrame& f, ScreenPoint p);
void Circle(QPainter& device, ScreenPoint p, double radius);

inline constexpr std::int32_t kRed = 255;  // colour 255: red
inline constexpr std::int32_t kBlue = PackColour(0, 0, 255);
inline constexpr std::int32_t kBlack = 0;

// A boat outline along `course`, `length` pixels from stern to bow, centred
// on the position.
QPolygonF BoatOutline(ScreenPoint at, float course, double length);

}  // namespace kelvane::app::overlay
