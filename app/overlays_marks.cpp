// The marks of the chart's own tools: the touch cursor, the MOB, the
// marked point, the chart boundaries and the dividers.
#include <algorithm>

#include "app/overlaydrawing.h"
#include "core/format.h"
#include "core/positions.h"

namespace kelvane::app {

using namespace overlay;

// ---- chart cursor (touch input) ------------------------------------------------------

void DrawCursor(OverlayFrame& f) {
  const ChartMarks& m = f.sources.state->marks;
  if (m.MouseAttached) return;
  QPainter& d = f.painter;
  SelectSolidPen(d, 1, kBlack);
  const double x = m.ChartCursorX, y = m.ChartCursorY;
  DrawLine(x - 15, y, x + 15, y, d);
  DrawLine(x, y - 15, x, y + 15, d);
  d.setBrush(Qt::NoBrush);
  Circle(d, {x, y}, 6);
  RestorePen(d);
}

// ---- MOB and marked point -------------------------------------------------------------------

void DrawMOB(OverlayFrame& f) {
  const ChartMarks& m = f.sources.state->marks;
  if (!m.MOBSet) return;
  const ScreenPoint at = f.view.ToScreen(m.MOBLat, m.MOBLon);
  if (!On(f, at)) return;  // lblMOB is emptied
  QPainter& d = f.painter;
  const double r = std::max(3, f.markRadius);
  SelectSolidPen(d, 2, kRed);
  d.setBrush(Qt::NoBrush);
  Circle(d, at, r);
  DrawLine(at.x - r * 1.5, at.y - r * 1.5, at.x + r * 1.5, at.y + r * 1.5, d);
  DrawLine(at.x - r * 1.5, at.y + r * 1.5, at.x + r * 1.5, at.y - r * 1.5, d);
  RestorePen(d);
  f.outcome.mobLabel = "MOB Position " + LatToText(m.MOBLat) + " " + LonToText(m.MOBLon);
}

void DrawMarkedPoint(OverlayFrame& f) {
  const ChartMarks& m = f.sources.state->marks;
  if (!m.PointMarked) return;
  const ScreenPoint at = f.view.ToScreen(m.MarkedLat, m.MarkedLon);
  if (!On(f, at)) return;
  QPainter& d = f.painter;
  SelectSolidPen(d, 2, kRed);
  d.setBrush(Qt::NoBrush);
  Circle(d, at, std::max(6, f.markRadius * 2));
  RestorePen(d);
}

// ---- chart boundaries ---------------------------------------------------------------------

void DrawChartBoundaries(OverlayFrame& f) {
  if (f.settings.ShowChartBoundaries == 0 || !f.sources.catalogue) return;
  QPainter& d = f.painter;
  SelectDashPen(d, 1, kBlack);
  d.setBrush(Qt::NoBrush);
  for (const ChartRecord& c : *f.sources.catalogue) {
    const ScreenPoint lowerLeft = f.view.ToScreen(c.LowerLat, c.LeftLon);
    const ScreenPoint upperRight = f.view.ToScreen(c.UpperLat, c.rightLon);
    if (!BoundaryWorthDrawing(lowerLeft, upperRight, f.view.surfaceWidth, f.view.surfaceHeight)) continue;
    // The closed five-point polygon from (LeftLon, LowerLat) round to
    // (rightLon, UpperLat) and back.
    const QPointF ring[5] = {{lowerLeft.x, lowerLeft.y},
                             {upperRight.x, lowerLeft.y},
                             {upperRight.x, upperRight.y},
                             {lowerLeft.x, upperRight.y},
                             {lowerLeft.x, lowerLeft.y}};
    d.drawPolyline(ring, 5);
    const std::string label = BoundaryLabel(Trim(c.chartName), Trim(c.chartNumber),
                                            f.settings.ShowChartName != 0, f.settings.ShowChartNum != 0);
    if (!label.empty()) {
      SelectFont(d, "Arial", 12);
      DrawText(QString::fromStdString(label), std::min(lowerLeft.x, upperRight.x) + 3,
               std::min(lowerLeft.y, upperRight.y) + 3, d, kBlack, 0, false);
      RestoreFont(d);
    }
  }
  RestorePen(d);
}

// ---- dividers ------------------------------------------------------------------------------

void DrawDividers(OverlayFrame& f) {
  const ChartMarks& m = f.sources.state->marks;
  if (!m.DividersOn || !m.DividerZeroSet) return;
  QPainter& d = f.painter;
  const std::int32_t colour = kBlack;
  const int textHeight = ScaledTextHeight(f.settings.TextWaySize, f.markRadius, f.baseRadius);
  const ScreenPoint zero = f.view.ToScreen(m.DividerZeroLat, m.DividerZeroLon);
  const double radius = std::max(3.0, f.view.MilesToPixels(m.DividerZeroLat, f.settings.SearchCircle));
  SelectSolidPen(d, 2, colour);
  SelectFont(d, "Arial", textHeight);
  d.setBrush(Qt::NoBrush);
  Circle(d, zero, radius);
  DrawText("Divider Ref.", zero.x + radius + 2, zero.y - radius - textHeight, d, colour, 0xFFFFFF, true);
  if (m.DividerEndSet) {
    const ScreenPoint end = f.view.ToScreen(m.DividerEndLat, m.DividerEndLon);
    DrawLine(zero.x, zero.y, end.x, end.y, d);
    Circle(d, end, std::max(3.0, f.view.MilesToPixels(m.DividerEndLat, f.settings.SearchCircle)));
    const RangeAndBearing rb = RangeBearing(m.DividerZeroLat, m.DividerZeroLon, m.DividerEndLat, m.DividerEndLon);
    const std::string text = FormatNumber(rb.range, "0.0") + "nm" + " @ " + FormatNumber(rb.bearing, "000") + "°T";
    DrawText(Q(text), end.x + 12, end.y + 12, d, colour, 0xFFFFFF, true);
  }
  RestoreFont(d);
  RestorePen(d);
}

}  // namespace kelvane::app
