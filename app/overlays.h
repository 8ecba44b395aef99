// The overlays of the chart window, painted over the chart image at every
// paint, each time from scratch and in a fixed order: the route and its
// legs, the chart cursor, the waypoints, the tidal ports, the calculated
// track, the own boat, the MOB and marked points, the chart boundaries, the
// stream arrows, the AIS targets and the dividers. Later layers (wind,
// wrecks, sites, hazards, tracks) join the same ordered list by their step.
//
// Each layer makes its pens and fonts, draws, and gives them back before
// the next one starts: nothing of the device is held across paints.
#pragma once

#include <QColor>
#include <QLineF>
#include <QPainter>
#include <QStaticText>
#include <QString>
#include <unordered_map>
#include <functional>
#include <string>
#include <vector>

#include "state/programstate.h"
#include "chart/catalogue.h"
#include "chart/georef.h"
#include "chart/overlaygeometry.h"

namespace kelvane {
struct InstrumentsState;
}

namespace kelvane::app {

class ChartViewer;

// Image pixels to the drawing surface: screen = image x scale + origin, the
// viewer's own mapping taken once per paint. The surface is the viewer's
// visible area.
struct OverlayView {
  const ChartGeometry* geometry = nullptr;
  double scale = 1.0;  // the zoom: screen pixels per image pixel
  double originX = 0, originY = 0;
  int surfaceWidth = 0, surfaceHeight = 0;
  double visibleWidth = 0;  // image pixels on show across the surface
  int imageWidth = 0;

  ScreenPoint ToScreen(float lat, float lon) const;
  // Nautical miles to screen pixels at a latitude, by the chart's
  // north-south scale there (a minute of latitude is a mile).
  double MilesToPixels(float lat, float miles) const;
};

// The view of a viewer showing the chart of `geometry`.
OverlayView ViewOf(const ChartViewer& viewer, const ChartGeometry& geometry);

// Everything the layers read. The program state is read only, except that
// the AIS pass marks a close target to show its details.
struct OverlaySources {
  const ProgramState* state = nullptr;
  const std::vector<ChartRecord>* catalogue = nullptr;  // for the chart boundaries
  InstrumentsState* instruments = nullptr;              // own ship and AIS targets, when present
  bool gpsOn = false;       // a GPS is attached
  bool aisOn = false;       // AIS attached or its replay running
  float clockHours = 0;     // the instruments' clock, for the boat's future positions
  int pickedAisTarget = -1; // the target picked in the AIS summary (from 0), or -1
};

// What a paint tells the window.
struct OverlayOutcome {
  std::string mobLabel;          // "MOB Position " and the position, or "" when off the surface
  bool boatOutOfBounds = false;  // "Boat out of Chart Bounds"
  int markRadius = 0;
  int drawnWaypoints = 0;  // marks that were on the surface
  int drawnArrows = 0;
  int drawnAisTargets = 0;  // AIS targets on the surface ("Num AIS Targets Drawn = ")
  int drawnBarbs = 0;       // wind barbs on the surface
};

// Laid-out label texts kept from paint to paint, by font height and text:
// a label is shaped once and then only blitted. It holds no device object.
class TextLayouts {
 public:
  const QStaticText& Get(const QString& text, int height);

 private:
  std::unordered_map<QString, QStaticText> texts_;
};

// What a layer is handed.
struct OverlayFrame {
  QPainter& painter;
  const OverlayView& view;
  const OverlaySources& sources;
  const SettingsRecord& settings;
  int markRadius;
  int baseRadius;
  OverlayOutcome& outcome;
  TextLayouts* layouts = nullptr;  // when present, labels are drawn from it
};

struct OverlayLayer {
  double step = 0;   // place in the paint order; equal steps keep the order they were added in
  std::string name;
  std::function<void(OverlayFrame&)> paint;
};

class OverlayPainter {
 public:
  // The layers of the chart window in their order.
  OverlayPainter();
  // A later subsystem's layer, put after every layer of a lower or equal step.
  void AddLayer(OverlayLayer layer);
  const std::vector<OverlayLayer>& Layers() const { return layers_; }
  // Paints every layer; with no chart geometry nothing is drawn.
  OverlayOutcome Paint(QPainter& painter, const OverlayView& view, const OverlaySources& sources) const;

 private:
  std::vector<OverlayLayer> layers_;
  mutable TextLayouts layouts_;
};

// ---- device primitives ---------------------------------------------------------
// Each Select... saves the painter's state and sets the pen or font; the
// matching Restore... gives the previous one back.

QColor PackedColour(std::int32_t colour);
void SelectSolidPen(QPainter& device, int width, std::int32_t colour);
void SelectDashPen(QPainter& device, int width, std::int32_t colour);
void RestorePen(QPainter& device);
void DrawLine(double x1, double y1, double x2, double y2, QPainter& device);
// Solid lines `width` pixels wide in one colour, in one go.
void DrawWideLines(QPainter& device, const std::vector<QLineF>& lines, int width, std::int32_t colour);
// "Arial" of weight 500 at a height in pixels.
void SelectFont(QPainter& device, const char* name, int height);
void RestoreFont(QPainter& device);
// Text whose top-left corner is at (x, y); the background is left as it is
// unless `opaque`, then filled with backColour.
void DrawText(const QString& text, double x, double y, QPainter& device, std::int32_t textColour,
              std::int32_t backColour = 0xFFFFFF, bool opaque = false);

// A label of the layer's font (SelectFont at `height`) with its top-left
// corner at (x, y), transparent background.
void DrawLabel(OverlayFrame& f, const QString& text, double x, double y, int height, std::int32_t textColour);

// The layers themselves, for tests and for subsystems that reuse a shape.
void DrawRoute(OverlayFrame& f);
void DrawRouteConnections(OverlayFrame& f);
void DrawCursor(OverlayFrame& f);
void DrawWaypoints(OverlayFrame& f);  // circles or symbol marks by WayPointIcon
void DrawPorts(OverlayFrame& f);
void DrawCOG(OverlayFrame& f);
void DrawLegConstruction(OverlayFrame& f);  // the single leg's water track and stream vectors
void DrawOwnBoat(OverlayFrame& f);    // DrawInBoat, history marks, DrawinFuturePos
void DrawMOB(OverlayFrame& f);
void DrawMarkedPoint(OverlayFrame& f);
void DrawPickedAisTarget(OverlayFrame& f);
void DrawChartBoundaries(OverlayFrame& f);
void DrawStreams(OverlayFrame& f);
void DrawAIS(OverlayFrame& f);
void DrawDividers(OverlayFrame& f);
// One symbol mark with its bands (or WayColour when the code has none).
void DrawSymbolMark(QPainter& device, double x, double y, int size, const std::vector<std::int32_t>& bands,
                    std::int32_t plainColour, int lineWidth);
// One stream arrow (DrawStreamPoly) from (x, y).
void DrawStreamPoly(QPainter& device, double x, double y, float direction, double length,
                    const SettingsRecord& settings);

}  // namespace kelvane::app
