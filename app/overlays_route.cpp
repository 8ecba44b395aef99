// The stored route, its legs and the calculated track over the ground.
#include <QFontMetrics>
#include <algorithm>

#include "app/overlaydrawing.h"
#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"

namespace kelvane::app {

using namespace overlay;

namespace {

bool ResultsExist(const PassageState& p) { return p.RouteCog.size() > 1; }

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

}  // namespace kelvane::app
