#include "app/overlays.h"

#include <algorithm>
#include <cmath>

#include "app/chartviewer.h"

namespace kelvane::app {

// ---- the view ------------------------------------------------------------------

ScreenPoint OverlayView::ToScreen(float lat, float lon) const {
  const double col = LonToPixel(*geometry, lon);
  const double row = LatToPixel(*geometry, lat);
  return ScreenPoint{col * scale + originX, row * scale + originY};
}

double OverlayView::MilesToPixels(float lat, float miles) const {
  const double rows = std::fabs(static_cast<double>(LatToPixel(*geometry, lat + miles / 60.0f)) -
                                static_cast<double>(LatToPixel(*geometry, lat)));
  return rows * scale;
}

OverlayView ViewOf(const ChartViewer& viewer, const ChartGeometry& geometry) {
  OverlayView v;
  v.geometry = &geometry;
  v.scale = viewer.Zoom();
  QPointF origin = viewer.ImageToScreen(QPointF(0, 0));
  v.originX = origin.x();
  v.originY = origin.y();
  v.surfaceWidth = viewer.viewport()->width();
  v.surfaceHeight = viewer.viewport()->height();
  v.visibleWidth = viewer.VisibleRect().width();
  v.imageWidth = viewer.ImageWidth();
  return v;
}

// ---- the ordered list ---------------------------------------------------------------------------

OverlayPainter::OverlayPainter() {
  layers_ = {
      {3, "route", [](OverlayFrame& f) { DrawRoute(f); DrawRouteConnections(f); }},
      {4, "cursor", DrawCursor},
      {6, "waypoints", DrawWaypoints},
      {7, "ports", DrawPorts},
      {8, "cog", DrawCOG},
      {9, "boat", DrawOwnBoat},
      {10, "mob", DrawMOB},
      {11, "marked", DrawMarkedPoint},
      {12, "aispicked", DrawPickedAisTarget},
      {13, "boundaries", DrawChartBoundaries},
      {14, "streams", DrawStreams},
      {16, "ais", DrawAIS},
      {20, "dividers", DrawDividers},
  };
}

void OverlayPainter::AddLayer(OverlayLayer layer) {
  auto at = std::upper_bound(layers_.begin(), layers_.end(), layer.step,
                             [](double step, const OverlayLayer& l) { return step < l.step; });
  layers_.insert(at, std::move(layer));
}

OverlayOutcome OverlayPainter::Paint(QPainter& painter, const OverlayView& view, const OverlaySources& sources) const {
  OverlayOutcome outcome;
  if (!view.geometry || !sources.state || view.surfaceWidth <= 0) return outcome;
  outcome.markRadius = MarkRadius(view.surfaceWidth, view.visibleWidth, view.imageWidth);
  OverlayFrame frame{painter, view, sources, sources.state->settings, outcome.markRadius,
                     BaseMarkRadius(view.surfaceWidth), outcome, &layouts_};
  for (const OverlayLayer& layer : layers_) {
    painter.save();
    layer.paint(frame);
    painter.restore();
  }
  return outcome;
}

}  // namespace kelvane::app
