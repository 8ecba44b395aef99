#include "forms/polarpictures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "forms/messages.h"

namespace kelvane::forms {

namespace {

const QColor kGrid(200, 206, 214);
const QColor kGridStrong(150, 158, 170);
const QColor kInk(30, 30, 30);
const QColor kCurve(0, 82, 170);
const QColor kMark(200, 30, 30);
constexpr double kRadiansPerDegree = 0.017453293;

QFont WithPointSize(QFont font, double points, bool bold = false) {
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}

void DrawTitle(QPainter& p, const QWidget& w, const std::string& title) {
  p.setPen(kInk);
  p.setFont(WithPointSize(w.font(), 10.5, true));
  p.drawText(QRectF(0, 4, w.width(), 22), Qt::AlignCenter, ToQString(title));
}

void DrawNote(QPainter& p, const QWidget& w, const std::string& note) {
  p.setPen(kInk);
  p.setFont(WithPointSize(w.font(), 10));
  p.drawText(w.rect().adjusted(12, 30, -12, -12), Qt::AlignCenter | Qt::TextWordWrap, ToQString(note));
}

void DrawDot(QPainter& p, QPointF at, double radius, const QColor& colour) {
  p.setPen(Qt::NoPen);
  p.setBrush(colour);
  p.drawEllipse(at, radius, radius);
  p.setBrush(Qt::NoBrush);
}

}  // namespace

// ---- boat speed against true wind angle ------------------------------------

// Margins around the half disc, pixels: the title above, the ring labels
// left of the wind's axis, the ray labels right and below.
constexpr double kPolarTop = 52, kPolarBottom = 40, kPolarLeft = 58, kPolarRight = 48;

PolarPicture::PolarPicture(QWidget* parent) : QWidget(parent) {
  setObjectName("picPolar");
  setMouseTracking(true);
  setMinimumSize(320, 320);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PolarPicture::SetCurve(PolarCurve curve, float largest, float windSpeed) {
  curve_ = std::move(curve);
  rings_ = RingsForSpeed(largest);
  title_ = PolarPlotTitle(windSpeed);
  note_.clear();
  update();
}

void PolarPicture::SetNote(const std::string& note) {
  curve_.clear();
  title_.clear();
  note_ = note;
  marked_.reset();
  update();
}

void PolarPicture::SetMarkedAngle(std::optional<float> angle) {
  marked_ = angle;
  update();
}

double PolarPicture::Radius() const {
  return std::max(10.0, std::min((height() - kPolarTop - kPolarBottom) / 2.0, width() - kPolarLeft - kPolarRight));
}

QPointF PolarPicture::Centre() const {
  // The half disc stands in the middle of the width it leaves.
  const double spare = std::max(0.0, width() - kPolarLeft - kPolarRight - Radius());
  return {kPolarLeft + spare / 2.0, kPolarTop + std::max(1.0, height() - kPolarTop - kPolarBottom) / 2.0};
}

double PolarPicture::PixelsPerKnot() const { return Radius() / static_cast<double>(rings_.Outer()); }

QPointF PolarPicture::PixelAt(float angle, float knots) const {
  const QPointF c = Centre();
  const double k = PixelsPerKnot();
  const double a = angle * kRadiansPerDegree;
  return {c.x() + std::sin(a) * knots * k, c.y() - std::cos(a) * knots * k};
}

PolarPosition PolarPicture::At(QPointF pixel) const {
  const QPointF c = Centre();
  const double k = PixelsPerKnot();
  return ScreenToPolar(static_cast<float>((pixel.x() - c.x()) / k), static_cast<float>((c.y() - pixel.y()) / k));
}

void PolarPicture::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), Qt::white);
  if (!note_.empty()) {
    DrawNote(p, *this, note_);
    return;
  }
  DrawTitle(p, *this, title_);

  const QPointF c = Centre();
  const double k = PixelsPerKnot();
  const double outer = k * static_cast<double>(rings_.Outer());
  auto point = [&](double angle, double knots) {
    return PixelAt(static_cast<float>(angle), static_cast<float>(knots));
  };
  const QFont small = WithPointSize(font(), 8.5);
  p.setFont(small);

  // Rings of boat speed, half circles on the wind's right, labelled where
  // they cross the wind's axis.
  for (int i = 1; i <= rings_.rings; ++i) {
    const double r = k * rings_.step * i;
    p.setPen(QPen(i == rings_.rings ? kGridStrong : kGrid, 1));
    p.drawArc(QRectF(c.x() - r, c.y() - r, 2 * r, 2 * r), 90 * 16, -180 * 16);
    p.setPen(kInk);
    p.drawText(QRectF(c.x() - 56, c.y() - r - 8, 52, 16), Qt::AlignRight | Qt::AlignVCenter,
               ToQString(SpeedLabel(rings_.step * static_cast<float>(i))));
  }
  // The wind's axis, 0 up to 180 down, and the rays every 10 degrees.
  p.setPen(QPen(kGridStrong, 1));
  p.drawLine(point(0, rings_.Outer()), point(180, rings_.Outer()));
  for (int angle = 30; angle <= 160; angle += 10) {
    p.setPen(QPen(angle == 90 ? kGridStrong : kGrid, 1, angle % 30 == 0 ? Qt::SolidLine : Qt::DotLine));
    p.drawLine(c, point(angle, rings_.Outer()));
    const QPointF at = point(angle, rings_.Outer() + 14.0 / k);
    p.setPen(kInk);
    p.drawText(QRectF(at.x() - 20, at.y() - 8, 40, 16), Qt::AlignCenter, ToQString(RayLabel(angle)));
  }
  p.setPen(kInk);
  p.drawText(QRectF(c.x() - 30, c.y() - outer - 30, 60, 16), Qt::AlignCenter, "0°");
  p.drawText(QRectF(c.x() - 30, c.y() + outer + 4, 60, 16), Qt::AlignCenter, "180°");
  // The axis names: the angle runs round the rim, the speed out along it.
  p.setFont(WithPointSize(font(), 9, true));
  p.drawText(QRectF(c.x(), height() - 22, outer + 40, 18), Qt::AlignRight | Qt::AlignVCenter, "True Wind Angle");
  p.drawText(QRectF(c.x() - 60, c.y() - outer - 30, 40, 16), Qt::AlignRight | Qt::AlignVCenter, "Wind");

  if (curve_.empty()) return;
  QPainterPath path;
  path.moveTo(point(curve_.front().angle, curve_.front().speed));
  for (const PolarCurvePoint& q : curve_) path.lineTo(point(q.angle, q.speed));
  p.setPen(QPen(kCurve, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(path);
  for (const PolarCurvePoint& q : curve_) DrawDot(p, point(q.angle, q.speed), 2.6, kCurve);
  if (marked_) {
    for (const PolarCurvePoint& q : curve_)
      if (q.angle == *marked_) {
        p.setPen(QPen(kMark, 2));
        p.drawEllipse(point(q.angle, q.speed), 6, 6);
      }
  }
}

void PolarPicture::mouseMoveEvent(QMouseEvent* event) {
  if (note_.empty() && pointerMoved) pointerMoved(At(event->position()));
}

void PolarPicture::mousePressEvent(QMouseEvent* event) {
  if (note_.empty() && clicked && event->button() == Qt::LeftButton) clicked(At(event->position()));
}

// ---- boat speed against true wind speed ------------------------------------

WindSpeedPicture::WindSpeedPicture(QWidget* parent) : QWidget(parent) {
  setObjectName("picWindSpeed");
  setMouseTracking(true);
  setMinimumSize(320, 240);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void WindSpeedPicture::SetCurve(WindCurve curve, float largest, float windAngle) {
  curve_ = std::move(curve);
  rings_ = RingsForSpeed(largest);
  title_ = WindPlotTitle(windAngle);
  note_.clear();
  update();
}

void WindSpeedPicture::SetNote(const std::string& note) {
  curve_.clear();
  title_.clear();
  note_ = note;
  update();
}

QRectF WindSpeedPicture::PlotArea() const {
  return QRectF(QPointF(58, 52), QPointF(std::max(120, width() - 22), std::max(120, height() - 46)));
}

// The wind axis runs from calm to the last column, 30 knots.
constexpr float kWindAxisKnots = 30.0f;

void WindSpeedPicture::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), Qt::white);
  if (!note_.empty()) {
    DrawNote(p, *this, note_);
    return;
  }
  DrawTitle(p, *this, title_);
  const QRectF area = PlotArea();
  auto point = [&](double wind, double speed) {
    return QPointF(area.left() + area.width() * wind / kWindAxisKnots,
                   area.bottom() - area.height() * speed / rings_.Outer());
  };
  p.setFont(WithPointSize(font(), 8.5));
  for (int wind = 0; wind <= 30; wind += 5) {
    p.setPen(QPen(wind == 0 ? kGridStrong : kGrid, 1));
    p.drawLine(point(wind, 0), point(wind, rings_.Outer()));
    const QPointF at = point(wind, 0);
    p.setPen(kInk);
    p.drawText(QRectF(at.x() - 24, at.y() + 4, 48, 16), Qt::AlignCenter, ToQString(SpeedLabel(static_cast<float>(wind))));
  }
  for (int i = 0; i <= rings_.rings; ++i) {
    const float speed = rings_.step * static_cast<float>(i);
    p.setPen(QPen(i == 0 ? kGridStrong : kGrid, 1));
    p.drawLine(point(0, speed), point(kWindAxisKnots, speed));
    const QPointF at = point(0, speed);
    p.setPen(kInk);
    p.drawText(QRectF(at.x() - 54, at.y() - 8, 50, 16), Qt::AlignRight | Qt::AlignVCenter, ToQString(SpeedLabel(speed)));
  }
  p.setFont(WithPointSize(font(), 9, true));
  p.drawText(QRectF(area.left(), height() - 22, area.width(), 18), Qt::AlignCenter, "True Wind Speed");
  p.drawText(QRectF(4, area.top() - 24, 160, 16), Qt::AlignLeft | Qt::AlignVCenter, "Boat Speed");

  if (curve_.empty()) return;
  QPainterPath path;
  path.moveTo(point(curve_.front().wind, curve_.front().speed));
  for (const WindCurvePoint& q : curve_) path.lineTo(point(q.wind, q.speed));
  p.setPen(QPen(kCurve, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(path);
  for (const WindCurvePoint& q : curve_) DrawDot(p, point(q.wind, q.speed), 2.6, kCurve);
}

void WindSpeedPicture::mouseMoveEvent(QMouseEvent* event) {
  if (!note_.empty() || !pointerMoved) return;
  const QRectF area = PlotArea();
  const double wind = (event->position().x() - area.left()) / area.width() * kWindAxisKnots;
  const double speed = (area.bottom() - event->position().y()) / area.height() * rings_.Outer();
  pointerMoved(static_cast<float>(wind), static_cast<float>(speed));
}

}  // namespace kelvane::forms
