#include "forms/departuregraph.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <string>

#include "core/timetext.h"

namespace kelvane::forms {

namespace {

// Where the points go inside `area`: room on the left for the hour labels
// of the time axis and below for the departure hours.
struct Plot {
  QRectF frame;
  float firstHour = 0, lastHour = 1;  // x range, hours of departure
  float low = 0, high = 1;            // y range, hours taken
  double X(float hour) const {
    return frame.left() + frame.width() * double(hour - firstHour) / double(lastHour - firstHour);
  }
  double Y(float taken) const { return frame.bottom() - frame.height() * double(taken - low) / double(high - low); }
};

Plot PlotOf(const QRectF& area, const std::vector<DepartureGraphPoint>& points) {
  Plot p;
  p.frame = area.adjusted(56, 24, -24, -36);
  if (p.frame.width() < 10) p.frame.setWidth(10);
  if (p.frame.height() < 10) p.frame.setHeight(10);
  if (points.empty()) return p;
  const auto [minDepart, maxDepart] = std::minmax_element(
      points.begin(), points.end(), [](const auto& a, const auto& b) { return a.depart < b.depart; });
  const auto [minTaken, maxTaken] = std::minmax_element(
      points.begin(), points.end(), [](const auto& a, const auto& b) { return a.timeTaken < b.timeTaken; });
  p.firstHour = minDepart->depart;
  p.lastHour = maxDepart->depart;
  if (p.lastHour <= p.firstHour) p.lastHour = p.firstHour + 1;
  // Whole hours either side of the passages, with half an hour of air so
  // that the extremes do not sit on the frame.
  p.low = std::floor(std::max(0.0f, minTaken->timeTaken - 0.5f));
  p.high = std::ceil(maxTaken->timeTaken + 0.5f);
  if (p.high <= p.low) p.high = p.low + 1;
  return p;
}

QString HourLabel(int hour, bool last) {
  const QString two = QString("%1").arg(hour, 2, 10, QChar('0'));
  return last ? two + ":00" : two;
}

}  // namespace

int NearestDepartureRow(const QRectF& area, const std::vector<DepartureGraphPoint>& points, double x) {
  if (points.empty()) return -1;
  const Plot plot = PlotOf(area, points);
  int best = 0;
  double bestDistance = std::fabs(plot.X(points[0].depart) - x);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double d = std::fabs(plot.X(points[i].depart) - x);
    if (d < bestDistance) {
      bestDistance = d;
      best = static_cast<int>(i);
    }
  }
  return best;
}

void PaintDepartureGraph(QPainter& painter, const QRectF& area, const std::vector<DepartureGraphPoint>& points,
                         int markedRow) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.fillRect(area, Qt::white);
  const Plot plot = PlotOf(area, points);
  const QFontMetricsF metrics(painter.font());

  // The frame, the hour grid and its labels.
  painter.setPen(QPen(Qt::black, 1));
  painter.drawRect(plot.frame);
  const int first = static_cast<int>(std::floor(plot.firstHour)), last = static_cast<int>(std::ceil(plot.lastHour));
  for (int h = first; h <= last; ++h) {
    const double x = plot.X(static_cast<float>(h));
    painter.setPen(QPen(QColor(220, 220, 220), 1));
    painter.drawLine(QPointF(x, plot.frame.top()), QPointF(x, plot.frame.bottom()));
    painter.setPen(Qt::black);
    const QString label = HourLabel(h, h == last);
    painter.drawText(QPointF(x - metrics.horizontalAdvance(label) / 2, plot.frame.bottom() + metrics.height() + 2), label);
  }
  const int step = std::max(1, static_cast<int>(std::ceil((plot.high - plot.low) / 8.0f)));
  for (int t = static_cast<int>(plot.low); t <= static_cast<int>(plot.high); t += step) {
    const double y = plot.Y(static_cast<float>(t));
    painter.setPen(QPen(QColor(220, 220, 220), 1));
    painter.drawLine(QPointF(plot.frame.left(), y), QPointF(plot.frame.right(), y));
    painter.setPen(Qt::black);
    const QString label = QString::number(t) + "h";
    painter.drawText(QPointF(plot.frame.left() - metrics.horizontalAdvance(label) - 6, y + metrics.ascent() / 2), label);
  }
  if (points.empty()) {
    painter.restore();
    return;
  }

  // The marked hour under the line.
  if (markedRow >= 0 && markedRow < static_cast<int>(points.size())) {
    const double x = plot.X(points[static_cast<std::size_t>(markedRow)].depart);
    painter.setPen(QPen(QColor(200, 0, 0), 2, Qt::DashLine));
    painter.drawLine(QPointF(x, plot.frame.top()), QPointF(x, plot.frame.bottom()));
  }

  QPainterPath line;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const QPointF at(plot.X(points[i].depart), plot.Y(points[i].timeTaken));
    if (i == 0)
      line.moveTo(at);
    else
      line.lineTo(at);
  }
  painter.setPen(QPen(QColor(0, 0, 160), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(line);
  painter.setBrush(QColor(0, 0, 160));
  for (const auto& p : points) painter.drawEllipse(QPointF(plot.X(p.depart), plot.Y(p.timeTaken)), 2.5, 2.5);

  // The extremes, named: the first of equal passages.
  std::size_t maxRow = 0, minRow = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (points[i].timeTaken > points[maxRow].timeTaken) maxRow = i;
    if (points[i].timeTaken < points[minRow].timeTaken) minRow = i;
  }
  auto name = [&](std::size_t row, const char* words, double dy) {
    const QString text = QString::fromStdString(HoursToSpan(points[row].timeTaken) + words);
    double x = plot.X(points[row].depart) + 6;
    if (x + metrics.horizontalAdvance(text) > area.right()) x = plot.X(points[row].depart) - 6 - metrics.horizontalAdvance(text);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(x, plot.Y(points[row].timeTaken) + dy), text);
  };
  name(maxRow, " (Max. time) ", -4);
  name(minRow, " (Min. time)", metrics.ascent() + 2);

  if (markedRow >= 0 && markedRow < static_cast<int>(points.size())) {
    const auto& p = points[static_cast<std::size_t>(markedRow)];
    painter.setPen(QPen(QColor(200, 0, 0), 2));
    painter.setBrush(QColor(200, 0, 0));
    painter.drawEllipse(QPointF(plot.X(p.depart), plot.Y(p.timeTaken)), 4.5, 4.5);
  }
  painter.restore();
}

}  // namespace kelvane::forms
