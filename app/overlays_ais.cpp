// The AIS targets and the target picked in the summary. What to draw of
// each target is decided by the display list of the instruments library;
// this layer draws it and sets the details switch of the close targets.
#include <algorithm>
#include <cmath>

#include "app/overlaydrawing.h"
#include "instruments/ais_display.h"
#include "instruments/receive.h"

namespace kelvane::app {

using namespace overlay;

// ---- the target picked in the AIS summary ---------------------------------------------------

void DrawPickedAisTarget(OverlayFrame& f) {
  if (!f.sources.instruments || f.sources.pickedAisTarget < 0) return;
  const auto& targets = f.sources.instruments->targets.AISTargets;
  if (static_cast<std::size_t>(f.sources.pickedAisTarget) >= targets.size()) return;
  const AISTarget& t = targets[static_cast<std::size_t>(f.sources.pickedAisTarget)];
  const ScreenPoint at = f.view.ToScreen(t.Lat, t.Long);
  if (!On(f, at)) return;
  QPainter& d = f.painter;
  SelectSolidPen(d, 2, f.settings.AISColour);
  d.setBrush(Qt::NoBrush);
  Circle(d, at, std::max(10, f.markRadius * 3));
  RestorePen(d);
}

// ---- AIS -----------------------------------------------------------------------------------

namespace {

AisDisplayView DisplayView(const OverlayFrame& f) {
  AisDisplayView v;
  const OverlayView& view = f.view;
  v.toScreen = [&view](float lat, float lon) { return view.ToScreen(lat, lon); };
  v.milesToPixels = [&view](float lat, float miles) { return view.MilesToPixels(lat, miles); };
  v.surfaceWidth = view.surfaceWidth;
  v.surfaceHeight = view.surfaceHeight;
  v.markRadius = f.markRadius;
  v.baseRadius = f.baseRadius;
  return v;
}

void DrawTrail(QPainter& d, const std::vector<AisTrailStep>& steps) {
  for (const AisTrailStep& step : steps) {
    if (step.line) DrawLine(step.from.x, step.from.y, step.to.x, step.to.y, d);
    if (step.tick) Circle(d, step.to, 2);
  }
}

// The target's extras: the history trail dashed, the predicted track and
// the heading vector solid, then the label.
void DrawAISExtras(OverlayFrame& f, const AisTargetMark& m) {
  QPainter& d = f.painter;
  if (!m.history.empty()) {
    SelectDashPen(d, 1, m.colour);
    DrawTrail(d, m.history);
    RestorePen(d);
  }
  SelectSolidPen(d, 1, m.colour);
  DrawTrail(d, m.predicted);
  if (m.heading) DrawLine(m.heading->from.x, m.heading->from.y, m.heading->to.x, m.heading->to.y, d);
  RestorePen(d);
  if (!m.label.empty()) {
    SelectFont(d, "Arial", m.labelHeight);
    DrawLabel(f, Q(m.label), m.labelAt.x, m.labelAt.y, m.labelHeight, m.colour);
    RestoreFont(d);
  }
}

void DrawMark(OverlayFrame& f, const AisTargetMark& m) {
  QPainter& d = f.painter;
  switch (m.symbol) {
    case AisSymbol::Circle:
      SelectSolidPen(d, m.lineWidth, m.colour);
      d.setBrush(m.filled ? QBrush(PackedColour(m.colour)) : QBrush(Qt::NoBrush));
      Circle(d, m.at, m.size);
      RestorePen(d);
      DrawAISExtras(f, m);
      break;
    case AisSymbol::BoatOutline:
      SelectSolidPen(d, m.lineWidth, m.colour);
      d.setBrush(m.filled ? QBrush(PackedColour(m.colour)) : QBrush(Qt::NoBrush));
      d.drawPolygon(BoatOutline(m.at, m.course, m.size));
      d.setBrush(Qt::NoBrush);
      Circle(d, m.at, 4);
      RestorePen(d);
      DrawAISExtras(f, m);
      break;
    case AisSymbol::Aircraft: {
      // The fuselage along the course and the wings across it.
      SelectSolidPen(d, m.lineWidth, m.colour);
      const double c = m.course * 0.017453293, ux = std::sin(c), uy = -std::cos(c), r = m.size;
      DrawLine(m.at.x - ux * r, m.at.y - uy * r, m.at.x + ux * r, m.at.y + uy * r, d);
      DrawLine(m.at.x + uy * r, m.at.y - ux * r, m.at.x - uy * r, m.at.y + ux * r, d);
      RestorePen(d);
      DrawAISExtras(f, m);
      break;
    }
    case AisSymbol::AidMark:
      DrawSymbolMark(d, m.at.x, m.at.y, static_cast<int>(m.size), m.bands, m.colour, m.lineWidth);
      break;
  }
}

}  // namespace

void DrawAIS(OverlayFrame& f) {
  if (!f.sources.aisOn || !f.sources.instruments) return;
  AisTargetTable& table = f.sources.instruments->targets;
  const AisDisplayList list = AisDisplay(table, f.settings, f.sources.gpsOn, DisplayView(f));
  // A close target shows its details by itself from now on.
  for (std::size_t i : list.closeTargets) table.AISTargets[i].ShowDetails = -1;
  for (const AisTargetMark& m : list.marks) DrawMark(f, m);
  f.outcome.drawnAisTargets += static_cast<int>(list.marks.size());
}

}  // namespace kelvane::app
