#include "app/passageplanpdf.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QString>
#include <algorithm>
#include <cmath>

#include "app/chartviewer.h"
#include "app/overlays.h"
#include "chart/georef.h"
#include "chart/overlaygeometry.h"
#include "forms/departuregraph.h"

namespace kelvane::app {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

// Every position the picture must hold: the route's points and the track.
std::vector<Position> RoutePositions(const PassageState& p) {
  std::vector<Position> out;
  for (int i = 1; i <= RouteCount(p); ++i)
    out.push_back({p.Route[static_cast<std::size_t>(i)].Lat, p.Route[static_cast<std::size_t>(i)].Lon});
  for (std::size_t k = 1; k < p.RouteCog.size(); ++k) out.push_back({p.RouteCog[k].Lat, p.RouteCog[k].Lon});
  return out;
}

// The chart to show: most points held first, then the finer scale (the
// smaller denominator), then catalogue order.
std::optional<std::size_t> ChartForRoute(const std::vector<ChartRecord>& catalogue,
                                         const std::vector<Position>& points) {
  std::optional<std::size_t> best;
  std::size_t bestHeld = 0;
  double bestScale = 0;
  for (std::size_t c = 0; c < catalogue.size(); ++c) {
    const std::size_t held = static_cast<std::size_t>(std::count_if(
        points.begin(), points.end(), [&](const Position& at) { return ChartContains(catalogue[c], at.lat, at.lon); }));
    if (held == 0) continue;
    const double scale = ChartScaleValue(catalogue[c].chartScale);
    if (!best || held > bestHeld || (held == bestHeld && scale < bestScale)) {
      best = c;
      bestHeld = held;
      bestScale = scale;
    }
  }
  return best;
}

}  // namespace

QImage PassagePlanChart(const ProgramState& state, const std::vector<ChartRecord>& catalogue,
                        const std::filesystem::path& chartsFolder, QSize size) {
  const std::vector<Position> points = RoutePositions(state.passage);
  const std::optional<std::size_t> chosen = ChartForRoute(catalogue, points);
  if (!chosen || size.isEmpty()) return {};
  const ChartRecord& chart = catalogue[*chosen];
  QImage image;
  ChartViewer::ReadImage(Q((chartsFolder / (chart.chartNumber + ".l55")).string()), image);
  if (image.isNull()) return {};
  const ChartGeometry geometry = GeometryOf(chart, image.height());

  // The route's box in image pixels, widened by a fifth each side (and to
  // at least 200 pixels, so that a short hop keeps some coast around it),
  // then to the picture's shape, and kept on the image.
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
  for (const Position& at : points) {
    const double x = LonToPixel(geometry, at.lon), y = LatToPixel(geometry, at.lat);
    left = std::min(left, x);
    right = std::max(right, x);
    top = std::min(top, y);
    bottom = std::max(bottom, y);
  }
  double w = std::max(200.0, (right - left) * 1.4), h = std::max(200.0, (bottom - top) * 1.4);
  const double aspect = static_cast<double>(size.width()) / size.height();
  if (w / h < aspect) w = h * aspect; else h = w / aspect;
  w = std::min(w, static_cast<double>(image.width()));
  h = std::min(h, static_cast<double>(image.height()));
  const double cx = (left + right) / 2, cy = (top + bottom) / 2;
  const double x0 = std::clamp(cx - w / 2, 0.0, image.width() - w);
  const double y0 = std::clamp(cy - h / 2, 0.0, image.height() - h);
  const double scale = std::min(size.width() / w, size.height() / h);
  const QSize out(static_cast<int>(std::lround(w * scale)), static_cast<int>(std::lround(h * scale)));

  QImage picture(out, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(0, 0, out.width(), out.height()), image, QRectF(x0, y0, w, h));

  OverlayView view;
  view.geometry = &geometry;
  view.scale = scale;
  view.originX = -x0 * scale;
  view.originY = -y0 * scale;
  view.surfaceWidth = out.width();
  view.surfaceHeight = out.height();
  view.visibleWidth = w;
  view.imageWidth = image.width();
  OverlaySources sources;
  sources.state = &state;
  OverlayOutcome outcome;
  OverlayFrame frame{painter,
                     view,
                     sources,
                     state.settings,
                     MarkRadius(view.surfaceWidth, view.visibleWidth, view.imageWidth),
                     BaseMarkRadius(view.surfaceWidth),
                     outcome};
  // Only the route and its calculated track: the plan's picture is of the
  // passage, not of everything the window happens to show.
  for (auto layer : {DrawRouteConnections, DrawRoute, DrawCOG}) {
    painter.save();
    layer(frame);
    painter.restore();
  }
  return picture;
}

namespace {

// A top-down writer of lines and blocks over the pages of a device.
class PageWriter {
 public:
  PageWriter(QPagedPaintDevice& device, QPainter& painter) : device_(device), p_(painter) {
    width_ = painter.viewport().width();
    height_ = painter.viewport().height();
  }
  double Width() const { return width_; }

  void Font(double points, bool bold = false) {
    QFont f("DejaVu Sans");
    f.setPointSizeF(points);
    f.setBold(bold);
    // No shaping for Latin text: no ligatures, so that "ff" copies out of
    // the PDF as two letters and a search for a word finds it.
    f.setStyleStrategy(QFont::PreferNoShaping);
    p_.setFont(f);
  }
  double LineHeight() const { return QFontMetricsF(p_.font(), &device_).lineSpacing(); }

  // Room for `h` more, or the next page.
  void Need(double h) {
    if (y_ + h > height_ && y_ > 0) {
      device_.newPage();
      y_ = 0;
    }
  }
  void Line(const std::string& text, double indent = 0) {
    const double h = LineHeight();
    Need(h);
    p_.drawText(QRectF(indent, y_, width_ - indent, h), Qt::AlignLeft | Qt::AlignVCenter, Q(text));
    y_ += h;
  }
  // One row of cells at the given left edges (fractions of the width).
  void Row(const std::vector<std::string>& cells, const std::vector<double>& edges) {
    const double h = LineHeight();
    Need(h);
    for (std::size_t c = 0; c < cells.size() && c < edges.size(); ++c) {
      const double x = edges[c] * width_;
      const double right = c + 1 < edges.size() ? edges[c + 1] * width_ : width_;
      p_.drawText(QRectF(x, y_, right - x, h), Qt::AlignLeft | Qt::AlignVCenter, Q(cells[c]));
    }
    y_ += h;
  }
  void Rule() {
    Need(LineHeight() / 2);
    p_.drawLine(QPointF(0, y_ + 2), QPointF(width_, y_ + 2));
    y_ += LineHeight() / 2;
  }
  void Gap(double lines = 0.6) { y_ += LineHeight() * lines; }
  // A picture across the width, on a new page when less than `minShare`
  // of a page is left.
  void Picture(const QImage& image, const std::string& caption) {
    if (image.isNull()) return;
    const double fit = std::min(width_ / image.width(), (height_ * 0.8) / image.height());
    const double w = image.width() * fit, h = image.height() * fit;
    Need(h + LineHeight() * 2);
    Line(caption);
    p_.drawImage(QRectF(0, y_, w, h), image);
    y_ += h;
    Gap();
  }

 private:
  QPagedPaintDevice& device_;
  QPainter& p_;
  double width_ = 0, height_ = 0, y_ = 0;
};

}  // namespace

QImage PassagePlanDepartureGraph(const PassageState& passage, QSize size) {
  if (passage.SweptHours.empty()) return {};
  std::vector<forms::DepartureGraphPoint> points;
  for (const SweptHour& h : passage.SweptHours) points.push_back({h.Depart, h.TimeTaken});
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  forms::PaintDepartureGraph(painter, QRectF(QPointF(0, 0), QSizeF(size)), points, -1);
  return image;
}

void PaintPassagePlan(QPagedPaintDevice& device, const PassagePlan& plan, const QImage* chart,
                      const QImage* departureGraph) {
  QPainter painter(&device);
  if (!painter.isActive()) return;
  PageWriter page(device, painter);

  page.Font(16, true);
  page.Line(plan.Title + "  " + plan.DateText);
  page.Font(9, true);
  for (const std::string& w : plan.Warnings) page.Line(w);
  page.Font(10);
  page.Gap(0.3);
  page.Line(plan.Departure);
  page.Line(plan.Arrival);
  page.Font(9);
  for (const std::string& line : plan.Summary) page.Line(line);
  page.Line("Sunrise " + plan.Sunrise + "   Sunset " + plan.Sunset + "   (at the start, on the day of departure)");
  page.Gap();

  // The legs: two rows a leg (from, to) and a row of the streams met.
  const std::vector<double> edges{0.0, 0.04, 0.24, 0.47, 0.56, 0.65, 0.76, 0.83, 0.92};
  page.Font(11, true);
  page.Line("Legs");
  page.Font(8, true);
  page.Row({"Leg", "Waypoint", "Position", "Steer", "Distance", "Time", "Start", "ETA", "SOG"}, edges);
  page.Rule();
  static constexpr const char* kWhere[] = {"start", "middle", "end"};
  for (const PlanLeg& leg : plan.Legs) {
    page.Font(8);
    page.Need(page.LineHeight() * 4);
    page.Row({std::to_string(leg.Number), "From " + leg.FromName, leg.FromLat + " " + leg.FromLon, leg.Course,
              leg.Distance, leg.Time, leg.Start, leg.Eta, leg.Sog},
             edges);
    page.Row({"", "To " + leg.ToName, leg.ToLat + " " + leg.ToLon, "", "", "", "", "", leg.Note}, edges);
    std::string streams = "Streams:";
    for (std::size_t k = 0; k < 3; ++k) {
      const PlanStream& st = leg.Streams[k];
      streams += std::string("    ") + kWhere[k] + " ";
      streams += st.known ? st.Clock + " " + st.Set + " " + st.Rate : "-";
    }
    page.Line(streams, page.Width() * edges[1]);
    page.Rule();
  }
  page.Gap();

  page.Font(11, true);
  page.Line("High and low waters at the reference ports");
  page.Font(9);
  if (plan.Ports.empty()) page.Line(plan.PortsNote);
  for (const PlanPort& port : plan.Ports) {
    std::string line = port.Name + ":";
    for (const auto& t : port.Turning) line += "   " + t[0] + " " + t[1] + "m";
    page.Line(line);
  }
  page.Gap();

  page.Font(9, true);
  if (chart) page.Picture(*chart, "The route and its calculated track");
  if (departureGraph) page.Picture(*departureGraph, "Departure times");
}

std::string WritePassagePlanPdf(const std::filesystem::path& file, const PassagePlan& plan, const QImage* chart,
                                const QImage* departureGraph) {
  QSaveFile out(Q(file.string()));
  if (!out.open(QIODevice::WriteOnly)) return "Cannot write " + file.string();
  {
    QPdfWriter writer(&out);
    writer.setTitle(Q(plan.Title + " " + plan.DateText));
    writer.setCreator("Kelvane");
    writer.setResolution(300);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                                     QPageLayout::Millimeter));
    PaintPassagePlan(writer, plan, chart, departureGraph);
  }
  if (!out.commit()) return "Cannot write " + file.string();
  return "";
}

}  // namespace kelvane::app
