#include "app/overlaydrawing.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

namespace kelvane::app {

using namespace overlay;

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

namespace overlay {

bool On(const OverlayFrame& f, ScreenPoint p) {
  return OnSurface(p.x, p.y, f.view.surfaceWidth, f.view.surfaceHeight);
}

void Circle(QPainter& device, ScreenPoint p, double radius) { device.drawEllipse(QPointF(p.x, p.y), radius, radius); }

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

}  // namespace overlay

}  // namespace kelvane::app
