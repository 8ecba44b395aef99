#include "app/overlays.h"

#include <QFontMetrics>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "app/chartviewer.h"
#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"
#include "core/timetext.h"
#include "instruments/ais_report.h"
#include "instruments/receive.h"

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

// ---- device primitives ---------------------------------------------------------

QColor PackedColour(std::int32_t c) { return QColor(ColourRed(c), ColourGreen(c), ColourBlue(c)); }

void SelectSolidPen(QPainter& device, int width, std::int32_t colour) {
  device.save();
  device.setPen(QPen(PackedColour(colour), std::max(1, width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void SelectDashPen(QPainter& device, int width, std::int32_t colour) {
  device.save();
  QPen pen(PackedColour(colour), std::max(1, width), Qt::CustomDashLine, Qt::FlatCap, Qt::RoundJoin);
  // Dashes of 6 and gaps of 4 pixels whatever the width, as the device's
  // own dash style draws them.
  const double w = std::max(1, width);
  pen.setDashPattern({6.0 / w, 4.0 / w});
  device.setPen(pen);
}

void RestorePen(QPainter& device) { device.restore(); }

void DrawLine(double x1, double y1, double x2, double y2, QPainter& device) {
  device.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void SelectFont(QPainter& device, const char* name, int height) {
  device.save();
  QFont font(name);
  font.setPixelSize(std::max(1, height));
  font.setWeight(QFont::Medium);  // 500
  device.setFont(font);
}

void RestoreFont(QPainter& device) { device.restore(); }

void DrawText(const QString& text, double x, double y, QPainter& device, std::int32_t textColour,
              std::int32_t backColour, bool opaque) {
  const QFontMetrics metrics = device.fontMetrics();
  if (opaque) {
    device.fillRect(QRectF(x, y, metrics.horizontalAdvance(text), metrics.height()), PackedColour(backColour));
  }
  const QPen old = device.pen();
  device.setPen(PackedColour(textColour));
  device.drawText(QPointF(x, y + metrics.ascent()), text);
  device.setPen(old);
}

const QStaticText& TextLayouts::Get(const QString& text, int height) {
  if (texts_.size() > 8000) texts_.clear();
  QString key = QString::number(height) + '|' + text;
  auto it = texts_.find(key);
  if (it == texts_.end()) {
    QStaticText st(text);
    st.setTextFormat(Qt::PlainText);
    st.setPerformanceHint(QStaticText::AggressiveCaching);
    it = texts_.emplace(std::move(key), std::move(st)).first;
  }
  return it->second;
}

void DrawLabel(OverlayFrame& f, const QString& text, double x, double y, int height, std::int32_t textColour) {
  if (!f.layouts) {
    DrawText(text, x, y, f.painter, textColour);
    return;
  }
  const QPen old = f.painter.pen();
  f.painter.setPen(PackedColour(textColour));
  f.painter.drawStaticText(QPointF(x, y), f.layouts->Get(text, height));
  f.painter.setPen(old);
}

namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }

bool On(const OverlayFrame& f, ScreenPoint p) {
  return OnSurface(p.x, p.y, f.view.surfaceWidth, f.view.surfaceHeight);
}

void Circle(QPainter& device, ScreenPoint p, double radius) { device.drawEllipse(QPointF(p.x, p.y), radius, radius); }

constexpr std::int32_t kRed = 255;                  // colour 255: red
constexpr std::int32_t kBlue = PackColour(0, 0, 255);
constexpr std::int32_t kBlack = 0;

bool ResultsExist(const PassageState& p) { return p.RouteCog.size() > 1; }

}  // namespace

void DrawWideLines(QPainter& device, const std::vector<QLineF>& lines, int width, std::int32_t colour) {
  // A line of several pixels is drawn as that many one-pixel lines side by
  // side across its run, as the device's own wide pens lay them: the
  // device's one-pixel lines are many times cheaper than a stroked outline.
  device.save();
  device.setPen(QPen(PackedColour(colour), 0));
  width = std::max(1, width);
  if (width == 1) {
    device.drawLines(lines.data(), static_cast<int>(lines.size()));
  } else {
    std::vector<QLineF> shifted(lines.size());
    for (int k = -(width - 1) / 2; k <= width / 2; ++k) {
      for (std::size_t i = 0; i < lines.size(); ++i) {
        const QLineF& l = lines[i];
        const bool steep = std::fabs(l.dy()) > std::fabs(l.dx());
        shifted[i] = steep ? l.translated(k, 0) : l.translated(0, k);
      }
      device.drawLines(shifted.data(), static_cast<int>(shifted.size()));
    }
  }
  device.restore();
}

namespace {

// A route being built shows its later points in blue; a calculated route
// in the waypoint colour.
bool RouteBeingBuilt(const OverlayFrame& f) {
  return f.sources.state->marks.InputMode == 3 && !ResultsExist(f.sources.state->passage);
}

}  // namespace

// ---- route -----------------------------------------------------------------------

void DrawRoute(OverlayFrame& f) {
  const PassageState& p = f.sources.state->passage;
  const int count = RouteCount(p);
  if (count < 1) return;
  QPainter& d = f.painter;
  const SettingsRecord& s = f.settings;
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  const std::int32_t later = RouteBeingBuilt(f) ? kBlue : s.WayColour;
  SelectFont(d, "Arial", textHeight);
  d.setBrush(Qt::NoBrush);
  for (int i = 1; i <= count; ++i) {
    const RoutePoint& rp = p.Route[static_cast<std::size_t>(i)];
    const ScreenPoint at = f.view.ToScreen(rp.Lat, rp.Lon);
    if (!On(f, at)) continue;
    const double r = std::max(3, f.markRadius);
    const std::int32_t colour = i == 1 ? kRed : later;
    SelectSolidPen(d, s.WayLineSize, colour);
    Circle(d, at, r);
    RestorePen(d);
    const std::string label = RoutePointLabel(i, rp.Name, rp.StopMinutes);
    DrawLabel(f, Q(label), at.x + r + 2, at.y - r - textHeight, textHeight, s.WayTextColour);
  }
  RestoreFont(d);
}

void DrawRouteConnections(OverlayFrame& f) {
  const PassageState& p = f.sources.state->passage;
  const int count = RouteCount(p);
  if (count < 2) return;
  QPainter& d = f.painter;
  const SettingsRecord& s = f.settings;
  const bool results = ResultsExist(p);
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  const int w = f.view.surfaceWidth, h = f.view.surfaceHeight;
  // The legs in two passes, solid then dashed, so that each pen is made once.
  std::vector<QLineF> solid;
  for (int dashed = 0; dashed < 2; ++dashed) {
    if (dashed) SelectDashPen(d, s.WayLineSize, s.WayColour);
    for (int i = 1; i < count; ++i) {
      const RoutePoint& a = p.Route[static_cast<std::size_t>(i)];
      const RoutePoint& b = p.Route[static_cast<std::size_t>(i + 1)];
      if (LegCalculated(results, a.LegTime, a.DriftCount) == (dashed != 0)) continue;
      const ScreenPoint pa = f.view.ToScreen(a.Lat, a.Lon);
      const ScreenPoint pb = f.view.ToScreen(b.Lat, b.Lon);
      // A leg wholly beyond one side of the surface is not drawn.
      if ((pa.x < 0 && pb.x < 0) || (pa.y < 0 && pb.y < 0) || (pa.x >= w && pb.x >= w) || (pa.y >= h && pb.y >= h))
        continue;
      if (dashed) {
        DrawLine(pa.x, pa.y, pb.x, pb.y, d);
      } else {
        solid.emplace_back(pa.x, pa.y, pb.x, pb.y);
      }
    }
    if (dashed) {
      RestorePen(d);
    } else {
      DrawWideLines(d, solid, s.WayLineSize, s.WayColour);
    }
  }
  // The leg text beside each leg's middle: range and bearing, and the
  // course to steer once calculated.
  SelectFont(d, "Arial", textHeight);
  for (int i = 1; i < count; ++i) {
    const RoutePoint& a = p.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = p.Route[static_cast<std::size_t>(i + 1)];
    const ScreenPoint pa = f.view.ToScreen(a.Lat, a.Lon);
    const ScreenPoint pb = f.view.ToScreen(b.Lat, b.Lon);
    const ScreenPoint mid{(pa.x + pb.x) / 2, (pa.y + pb.y) / 2};
    if (!On(f, mid)) continue;
    const RangeAndBearing rb = RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon);
    const std::string text =
        LegLabel(rb.range, rb.bearing, LegCalculated(results, a.LegTime, a.DriftCount), a.CourseToSteer, a.Remark);
    DrawLabel(f, Q(text), mid.x + 8, mid.y + 8, textHeight, s.WayTextColour);
  }
  RestoreFont(d);
}

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

// ---- waypoints ----------------------------------------------------------------------

void DrawSymbolMark(QPainter& device, double x, double y, int size, const std::vector<std::int32_t>& bands,
                    std::int32_t plainColour, int lineWidth) {
  const std::vector<PixelRect> rects = SymbolMarkBands(x, y, size, static_cast<int>(std::max<std::size_t>(1, bands.size())));
  for (std::size_t i = 0; i < rects.size(); ++i) {
    const PixelRect& r = rects[i];
    device.fillRect(QRect(r.x, r.y, r.width, r.height), PackedColour(bands.empty() ? plainColour : bands[i]));
  }
  SelectSolidPen(device, std::max(1, lineWidth / 2), kBlack);
  device.setBrush(Qt::NoBrush);
  const PixelRect& top = rects.front();
  const PixelRect& bottom = rects.back();
  device.drawRect(QRect(top.x, top.y, top.width, bottom.y + bottom.height - top.y));
  RestorePen(device);
}

void DrawWaypoints(OverlayFrame& f) {
  const SettingsRecord& s = f.settings;
  if (s.ShowWaypoints == 0.0f) return;
  const std::vector<Waypoint>& wps = f.sources.state->waypoints.ChartWaypoints;
  const std::size_t n = Count(wps);
  if (n == 0) return;
  QPainter& d = f.painter;
  const bool symbols = s.WayPointIcon != 0;
  const int size = std::max<int>(2, s.WaySize);
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  const QColor fill = PackedColour(s.WayColour);
  // The marks first, then every name over them, so that each pen and font
  // is made once for the layer.
  std::vector<std::pair<ScreenPoint, const Waypoint*>> shown;
  shown.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    const ScreenPoint at = f.view.ToScreen(wps[i].Lat, wps[i].Lon);
    if (On(f, at)) shown.emplace_back(at, &wps[i]);
  }
  if (symbols) {
    for (const auto& [at, wp] : shown) DrawSymbolMark(d, at.x, at.y, size, SymbolBands(wp->Sym), s.WayColour, s.WayLineSize);
  } else {
    SelectSolidPen(d, s.WayLineSize, s.WayColour);
    d.setBrush(s.WayFill == 1 ? QBrush(fill) : QBrush(Qt::NoBrush));
    for (const auto& [at, wp] : shown) Circle(d, at, size);
    RestorePen(d);
  }
  SelectFont(d, "Arial", textHeight);
  const double dx = symbols ? size + 3 : size + 2;
  for (const auto& [at, wp] : shown) {
    const std::string name = Trim(wp->Name);
    if (!name.empty()) DrawLabel(f, Q(name), at.x + dx, at.y - textHeight / 2.0, textHeight, s.WayTextColour);
  }
  RestoreFont(d);
  f.outcome.drawnWaypoints = static_cast<int>(shown.size());
}

// ---- tidal ports -------------------------------------------------------------------------

void DrawPorts(OverlayFrame& f) {
  const SettingsRecord& s = f.settings;
  if (s.ShowTideHeights == 0) return;
  const TideState& tides = f.sources.state->tides;
  if (tides.UsedPortList.empty()) return;
  QPainter& d = f.painter;
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  const std::int32_t portColour = PackColour(0, 96, 160);
  const double r = std::max(4, f.markRadius);
  SelectSolidPen(d, 2, portColour);
  SelectFont(d, "Arial", textHeight);
  for (std::size_t i = 0; i < tides.UsedPortList.size(); ++i) {
    const HarmonicPortRecord* port = RefPort(tides, tides.UsedPortList[i]);
    if (!port) continue;
    const ScreenPoint at = f.view.ToScreen(port->Latitude, port->Longitude);
    if (!On(f, at)) continue;
    // A tide-pole mark: a square with its datum line across.
    d.setBrush(QColor(255, 255, 255));
    d.drawRect(QRectF(at.x - r, at.y - r, 2 * r, 2 * r));
    DrawLine(at.x - r, at.y, at.x + r, at.y, d);
    std::string label = Trim(port->PortName);
    if (i < tides.PortTideState.size() && !Trim(tides.PortTideState[i].HwText).empty())
      label += " HW " + Trim(tides.PortTideState[i].HwText);
    DrawText(Q(label), at.x + r + 3, at.y - textHeight / 2.0, d, portColour, 0xFFFFFF, true);
  }
  RestoreFont(d);
  RestorePen(d);
}

// ---- calculated track ----------------------------------------------------------------------

void DrawCOG(OverlayFrame& f) {
  const std::vector<CogPoint>& cog = f.sources.state->passage.RouteCog;
  if (cog.size() < 2) return;
  QPainter& d = f.painter;
  const SettingsRecord& s = f.settings;
  const int w = f.view.surfaceWidth, h = f.view.surfaceHeight;
  const int lineWidth = std::max(1, RoundToInt(s.LineSize));
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  std::vector<ScreenPoint> pts(cog.size());
  for (std::size_t i = 0; i < cog.size(); ++i) pts[i] = f.view.ToScreen(cog[i].Lat, cog[i].Lon);
  std::vector<QLineF> lines;
  lines.reserve(pts.size());
  for (std::size_t i = 1; i < pts.size(); ++i) {
    if (TrackPointOnSurface(pts[i - 1].x, pts[i - 1].y, w, h) || TrackPointOnSurface(pts[i].x, pts[i].y, w, h))
      lines.emplace_back(pts[i - 1].x, pts[i - 1].y, pts[i].x, pts[i].y);
  }
  DrawWideLines(d, lines, lineWidth, s.COGColour);
  // A circle of 6 pixels across at each step, with its time beside it.
  SelectSolidPen(d, 1, s.COGColour);
  d.setBrush(Qt::NoBrush);
  for (std::size_t i = 0; i < pts.size(); ++i)
    if (TrackPointOnSurface(pts[i].x, pts[i].y, w, h))
      d.drawEllipse(QRect(RoundToInt(pts[i].x) - 3, RoundToInt(pts[i].y) - 3, 6, 6));
  RestorePen(d);
  SelectFont(d, "Arial", textHeight);
  // Each time label where it does not cover the one before it.
  const QFontMetrics metrics = d.fontMetrics();
  std::vector<LabelBox> boxes;
  std::vector<QString> texts;
  for (std::size_t i = 0; i < pts.size(); ++i) {
    if (!TrackPointOnSurface(pts[i].x, pts[i].y, w, h)) continue;
    texts.push_back(Q(HoursToClock(cog[i].Time)));
    boxes.push_back(LabelBox{pts[i].x + 5, pts[i].y - 5 - textHeight / 2.0,
                             static_cast<double>(metrics.horizontalAdvance(texts.back())),
                             static_cast<double>(metrics.height())});
  }
  const std::vector<bool> drawn = LabelsClearOfPrevious(boxes);
  for (std::size_t k = 0; k < boxes.size(); ++k)
    if (drawn[k]) DrawLabel(f, texts[k], boxes[k].x, boxes[k].y, textHeight, s.COGColour);
  RestoreFont(d);
}

// ---- own boat ----------------------------------------------------------------------------

namespace {

// A boat outline along `course`, `length` pixels from stern to bow, centred
// on the position.
QPolygonF BoatOutline(ScreenPoint at, float course, double length) {
  const double half = length / 2, beam = length / 5;
  const double c = course * 0.017453293;
  const double ux = std::sin(c), uy = -std::cos(c);  // along the course
  const double rx = -uy, ry = ux;                    // to starboard
  auto pt = [&](double along, double across) {
    return QPointF(at.x + ux * along + rx * across, at.y + uy * along + ry * across);
  };
  return QPolygonF({pt(half, 0), pt(half * 0.3, beam), pt(-half, beam * 0.8), pt(-half, -beam * 0.8),
                    pt(half * 0.3, -beam)});
}

}  // namespace

void DrawOwnBoat(OverlayFrame& f) {
  if (!f.sources.gpsOn || !f.sources.instruments) return;
  const OwnShipState& own = f.sources.instruments->own;
  const ChartRecord& chart = f.view.geometry->chart;
  f.outcome.boatOutOfBounds = own.GPSLat > chart.UpperLat || own.GPSLat < chart.LowerLat ||
                              own.GPSLong < chart.LeftLon || own.GPSLong > chart.rightLon;
  QPainter& d = f.painter;
  const SettingsRecord& s = f.settings;
  const ScreenPoint at = f.view.ToScreen(own.GPSLat, own.GPSLong);
  SelectSolidPen(d, s.BoatLineWidth, s.GPSColour);
  d.setBrush(Qt::NoBrush);
  if (On(f, at)) d.drawPolygon(BoatOutline(at, own.GPSCourse, std::max(12, f.markRadius * 6)));
  // The last positions of the live trail.
  const auto& track = f.sources.instruments->track.points;
  const std::size_t first = track.size() > 7 ? track.size() - 6 : 1;
  for (std::size_t i = first; i < track.size(); ++i) {
    const ScreenPoint p = f.view.ToScreen(track[i].Lat, track[i].Long);
    if (On(f, p)) Circle(d, p, 2);
  }
  // DrawinFuturePos: the six predicted positions along the course.
  const auto future = ComputeOwnPrediction(own, f.sources.instruments->targets.settings,
                                           f.sources.instruments->targets.stream, f.sources.clockHours);
  ScreenPoint last = at;
  for (int k = 1; k <= 6; ++k) {
    const ScreenPoint p = f.view.ToScreen(future[static_cast<std::size_t>(k)].Lat, future[static_cast<std::size_t>(k)].Long);
    if (On(f, p) || On(f, last)) DrawLine(last.x, last.y, p.x, p.y, d);
    if (On(f, p)) {
      DrawLine(p.x - 3, p.y - 3, p.x + 3, p.y + 3, d);
      DrawLine(p.x - 3, p.y + 3, p.x + 3, p.y - 3, d);
    }
    last = p;
  }
  RestorePen(d);
}

// ---- MOB, marked point, picked target ---------------------------------------------------------

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

// ---- tidal streams -------------------------------------------------------------------------

void DrawStreamPoly(QPainter& device, double x, double y, float direction, double length,
                    const SettingsRecord& s) {
  if (length <= 0) return;
  if (s.StreamAsShape != 0) {
    const auto pts = StreamArrowPolygon(x, y, direction, length, std::max(1.0, s.StreamLineWidth / 2.0));
    QPointF poly[7];
    for (int i = 0; i < 7; ++i) poly[i] = QPointF(pts[static_cast<std::size_t>(i)].x, pts[static_cast<std::size_t>(i)].y);
    device.drawPolygon(poly, 7);
  } else {
    const ArrowLines a = StreamArrowLines(x, y, direction, length);
    DrawLine(a.tail.x, a.tail.y, a.tip.x, a.tip.y, device);
    DrawLine(a.tip.x, a.tip.y, a.headRight.x, a.headRight.y, device);
    DrawLine(a.tip.x, a.tip.y, a.headLeft.x, a.headLeft.y, device);
  }
}

void DrawStreams(OverlayFrame& f) {
  const SettingsRecord& s = f.settings;
  if (s.ShowTidalStreams == 0.0f) return;
  const std::vector<DiamondStreamNow>& now = f.sources.state->streams.StreamNow;
  if (now.empty()) return;
  QPainter& d = f.painter;
  const int textHeight = ScaledTextHeight(s.StreamFontSize, f.markRadius, f.baseRadius);
  std::vector<std::pair<ScreenPoint, const DiamondStreamNow*>> shown;
  shown.reserve(now.size());
  for (const DiamondStreamNow& item : now) {
    const ScreenPoint at = f.view.ToScreen(static_cast<float>(item.Lat), static_cast<float>(item.Lon));
    if (On(f, at)) shown.emplace_back(at, &item);
  }
  SelectSolidPen(d, s.StreamAsShape != 0 ? 1 : s.StreamLineWidth, s.TidalStreamColour);
  d.setBrush(s.StreamFilled == 1 ? QBrush(PackedColour(s.TidalStreamColour)) : QBrush(Qt::NoBrush));
  for (const auto& [at, item] : shown) {
    DrawStreamPoly(d, at.x, at.y, item->Direction, StreamArrowLength(item->Rate, s.StreamLength, f.markRadius), s);
    // The diamond itself, a small lozenge at the arrow's tail.
    const QPointF lozenge[4] = {{at.x, at.y - 4}, {at.x + 4, at.y}, {at.x, at.y + 4}, {at.x - 4, at.y}};
    d.drawPolygon(lozenge, 4);
  }
  RestorePen(d);
  SelectFont(d, "Arial", textHeight);
  for (const auto& [at, item] : shown) {
    std::string text = FormatNumber(item->Rate, "0.0");
    if (s.HideStreamId == 0) text += " " + Trim(item->Label);
    DrawLabel(f, Q(text), at.x + 6, at.y + 4, textHeight, s.StreamFontColour);
  }
  RestoreFont(d);
  f.outcome.drawnArrows = static_cast<int>(shown.size());
}

// ---- AIS -----------------------------------------------------------------------------------

namespace {

// The target's own extras, each under its switch: the history trail
// through the six samples (dashed), the predicted track through the six
// dead-reckoned points with a tick at each, the heading vector along the
// course for the run of one prediction step (at least 20 pixels), and the
// label of the field chosen in the AIS settings.
void DrawAISExtras(OverlayFrame& f, std::int32_t colour, const AISTarget& t, ScreenPoint at) {
  QPainter& d = f.painter;
  auto trail = [&](const std::array<AisPoint, 7>& points, bool ticks) {
    ScreenPoint last = at;
    for (std::size_t k = 1; k <= 6; ++k) {
      const ScreenPoint p = f.view.ToScreen(points[k].Lat, points[k].Long);
      if (On(f, p) || On(f, last)) DrawLine(last.x, last.y, p.x, p.y, d);
      if (ticks && On(f, p)) Circle(d, p, 2);
      last = p;
    }
  };
  if (t.ShowHistory != 0) {
    SelectDashPen(d, 1, colour);
    trail(t.History, false);
    RestorePen(d);
  }
  SelectSolidPen(d, 1, colour);
  if (t.ShowPredicted != 0) trail(t.Predicted, true);
  if (t.ShowHeading != 0) {
    const float run = t.Speed * f.sources.instruments->targets.settings.AheadIntervals / 60.0f;
    const double length = std::max(20.0, f.view.MilesToPixels(t.Lat, run));
    const double c = t.Course * 0.017453293;
    DrawLine(at.x, at.y, at.x + std::sin(c) * length, at.y - std::cos(c) * length, d);
  }
  RestorePen(d);
  if (t.ShowDetails != 0) {
    const int height = ScaledTextHeight(f.settings.TextWaySize, f.markRadius, f.baseRadius);
    SelectFont(d, "Arial", height);
    DrawLabel(f, QString::fromStdString(AisLabelText(t, f.settings.AISListIndex)), at.x + 8, at.y + 6, height,
              colour);
    RestoreFont(d);
  }
}

bool DrawInAISBoat(OverlayFrame& f, bool filled, std::int32_t colour, const AISTarget& t) {
  const ScreenPoint at = f.view.ToScreen(t.Lat, t.Long);
  if (!On(f, at)) return false;
  QPainter& d = f.painter;
  SelectSolidPen(d, f.settings.AISLineWidth, colour);
  if (f.settings.DisplayAISAsBoat == 0) {
    d.setBrush(filled ? QBrush(PackedColour(colour)) : QBrush(Qt::NoBrush));
    Circle(d, at, 5);
  } else {
    d.setBrush(filled ? QBrush(PackedColour(colour)) : QBrush(Qt::NoBrush));
    d.drawPolygon(BoatOutline(at, t.Course, std::max(14, f.markRadius * 5)));
    d.setBrush(Qt::NoBrush);
    Circle(d, at, 4);
  }
  RestorePen(d);
  DrawAISExtras(f, colour, t, at);
  return true;
}

bool DrawInAIS_SAR(OverlayFrame& f, const AISTarget& t) {
  const ScreenPoint at = f.view.ToScreen(t.Lat, t.Long);
  if (!On(f, at)) return false;
  QPainter& d = f.painter;
  SelectSolidPen(d, f.settings.AISLineWidth, f.settings.AISColour);
  // An aircraft: fuselage along the course and the wings across it.
  const double c = t.Course * 0.017453293, ux = std::sin(c), uy = -std::cos(c);
  DrawLine(at.x - ux * 8, at.y - uy * 8, at.x + ux * 8, at.y + uy * 8, d);
  DrawLine(at.x + uy * 8, at.y - ux * 8, at.x - uy * 8, at.y + ux * 8, d);
  RestorePen(d);
  DrawAISExtras(f, f.settings.AISColour, t, at);
  return true;
}

}  // namespace

void DrawAIS(OverlayFrame& f) {
  if (!f.sources.aisOn || !f.sources.instruments) return;
  const SettingsRecord& s = f.settings;
  int& drawn = f.outcome.drawnAisTargets;
  for (AISTarget& t : f.sources.instruments->targets.AISTargets) {
    const bool close = t.CPA >= 0 && f.sources.gpsOn && t.CPA <= s.CPAAlarm;
    switch (t.MessageType) {
      case 1:
      case 2:
      case 3:
        if (close) {
          t.ShowDetails = -1;  // a close target shows its details by itself
          drawn += DrawInAISBoat(f, true, s.AISColour, t);
        } else if (t.Speed >= s.AISMinSpeed) {
          drawn += DrawInAISBoat(f, false, s.AISColour, t);
        }
        break;
      case 18:
        if (close) {
          t.ShowDetails = -1;
          drawn += DrawInAISBoat(f, true, s.AISColour2, t);
        } else {
          drawn += DrawInAISBoat(f, false, s.AISColour2, t);
        }
        break;
      case 9: drawn += DrawInAIS_SAR(f, t); break;
      case 21: {
        const ScreenPoint at = f.view.ToScreen(t.Lat, t.Long);
        if (!On(f, at)) break;
        ++drawn;
        int aidType = -1;
        try {
          aidType = std::stoi(t.ShipType);
        } catch (...) {
        }
        DrawSymbolMark(f.painter, at.x, at.y, std::max<int>(2, s.WaySize), SymbolBands(AidTypeSymbol(aidType)),
                       kBandGrey, 2);
        break;
      }
      default: break;
    }
  }
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
