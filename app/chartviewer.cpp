#include "app/chartviewer.h"

#include <QImageReader>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace kelvane::app {
namespace {

constexpr double kMinZoom = 0.01;
constexpr double kMaxZoom = 32.0;
constexpr int kLevelFactor = 4;
constexpr int kSmallestLevel = 256;  // no reduced copy below this many pixels a side

}  // namespace

ChartViewer::ChartViewer(QWidget* parent) : QAbstractScrollArea(parent) {
  setObjectName("oGdViewer");
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

int ChartViewer::ReadImage(const QString& file, QImage& image) {
  // A chart of 15,000 x 15,000 pixels decodes to 900 MB in 32 bits; the
  // reader's default limit of 256 MB would refuse it.
  QImageReader::setAllocationLimit(4096);
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  QImage read;
  if (!reader.read(&read)) {
    switch (reader.error()) {
      case QImageReader::FileNotFoundError: return 1;
      case QImageReader::DeviceError: return 2;
      case QImageReader::UnsupportedFormatError: return 3;
      case QImageReader::InvalidDataError: return 4;
      default: return 6;
    }
  }
  if (read.isNull() || read.height() < 1 || read.width() < 1) return 5;
  image = std::move(read);
  return 0;
}

int ChartViewer::LoadFile(const QString& file) {
  QImage image;
  int status = ReadImage(file, image);
  if (status == 0) SetImage(std::move(image));
  return status;
}

void ChartViewer::SetImage(QImage image) {
  BuildLevels(std::move(image));
  rubber_ = QRectF();
  pendingRect_ = QRectF();
  UpdateScrollBars();
  viewport()->update();
}

void ChartViewer::BuildLevels(QImage image) {
  levels_.clear();
  if (image.isNull()) return;
  if (image.format() != QImage::Format_RGB32) image = image.convertToFormat(QImage::Format_RGB32);
  levels_.push_back(std::move(image));
  while (std::min(levels_.back().width(), levels_.back().height()) / kLevelFactor >= kSmallestLevel) {
    const QImage& last = levels_.back();
    levels_.push_back(last.scaled(std::max(1, last.width() / kLevelFactor), std::max(1, last.height() / kLevelFactor),
                                  Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
}

int ChartViewer::ImageWidth() const { return levels_.empty() ? 0 : levels_.front().width(); }
int ChartViewer::ImageHeight() const { return levels_.empty() ? 0 : levels_.front().height(); }

const QImage& ChartViewer::Image() const {
  static const QImage empty;
  return levels_.empty() ? empty : levels_.front();
}

qint64 ChartViewer::BytesHeld() const {
  qint64 total = 0;
  for (const QImage& level : levels_) total += level.sizeInBytes();
  return total;
}

QImage ChartViewer::Thumbnail(int w, int h) const {
  if (levels_.empty()) return QImage();
  return levels_.back().scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// ---- geometry -------------------------------------------------------------

QPointF ChartViewer::Offset() const {
  QSize view = viewport()->size();
  double ox = std::max(0.0, (view.width() - ImageWidth() * zoom_) / 2);
  double oy = std::max(0.0, (view.height() - ImageHeight() * zoom_) / 2);
  return QPointF(ox, oy);
}

QPointF ChartViewer::ScreenToImage(QPointF screen) const {
  QPointF o = Offset();
  return QPointF((screen.x() - o.x() + HScroll()) / zoom_, (screen.y() - o.y() + VScroll()) / zoom_);
}

QPointF ChartViewer::ImageToScreen(QPointF image) const {
  QPointF o = Offset();
  return QPointF(image.x() * zoom_ - HScroll() + o.x(), image.y() * zoom_ - VScroll() + o.y());
}

QRectF ChartViewer::VisibleRect() const {
  if (levels_.empty()) return QRectF();
  QPointF a = ScreenToImage(QPointF(0, 0));
  QPointF b = ScreenToImage(QPointF(viewport()->width(), viewport()->height()));
  QRectF r(a, b);
  return r.intersected(QRectF(0, 0, ImageWidth(), ImageHeight()));
}

void ChartViewer::UpdateScrollBars() {
  QSize view = viewport()->size();
  int maxX = std::max(0, static_cast<int>(std::ceil(ImageWidth() * zoom_)) - view.width());
  int maxY = std::max(0, static_cast<int>(std::ceil(ImageHeight() * zoom_)) - view.height());
  horizontalScrollBar()->setRange(0, maxX);
  verticalScrollBar()->setRange(0, maxY);
  horizontalScrollBar()->setPageStep(view.width());
  verticalScrollBar()->setPageStep(view.height());
  horizontalScrollBar()->setSingleStep(std::max(1, view.width() / 20));
  verticalScrollBar()->setSingleStep(std::max(1, view.height() / 20));
}

void ChartViewer::CentreOn(QPointF p) {
  QSize view = viewport()->size();
  SetScrollPosition(static_cast<int>(std::lround(p.x() * zoom_ - view.width() / 2.0)),
                    static_cast<int>(std::lround(p.y() * zoom_ - view.height() / 2.0)));
}

void ChartViewer::SetZoom(double zoom) {
  if (!std::isfinite(zoom)) return;
  zoom = std::clamp(zoom, kMinZoom, kMaxZoom);
  QSize view = viewport()->size();
  QPointF centre = ScreenToImage(QPointF(view.width() / 2.0, view.height() / 2.0));
  zoom_ = zoom;
  zoomMode_ = 0;
  UpdateScrollBars();
  CentreOn(centre);
  viewport()->update();
  emit ZoomChanged(zoom_);
}

void ChartViewer::SetZoomMode(int mode) {
  if (levels_.empty()) return;
  QSize view = viewport()->size();
  double zx = static_cast<double>(view.width()) / ImageWidth();
  double zy = static_cast<double>(view.height()) / ImageHeight();
  double z = mode == 3 ? zx : mode == 5 ? zy : std::min(zx, zy);
  SetZoom(z);
  zoomMode_ = mode;
}

void ChartViewer::ZoomToRect() {
  QRectF r = pendingRect_;
  if (levels_.empty() || r.width() <= 0 || r.height() <= 0) return;
  QSize view = viewport()->size();
  double z = std::min(view.width() / r.width(), view.height() / r.height());
  zoom_ = std::clamp(z, kMinZoom, kMaxZoom);
  zoomMode_ = 0;
  UpdateScrollBars();
  CentreOn(r.center());
  viewport()->update();
  emit ZoomChanged(zoom_);
}

// ---- scrolling --------------------------------------------------------------

int ChartViewer::HScrollMax() const { return horizontalScrollBar()->maximum(); }
int ChartViewer::VScrollMax() const { return verticalScrollBar()->maximum(); }
int ChartViewer::HScroll() const { return horizontalScrollBar()->value(); }
int ChartViewer::VScroll() const { return verticalScrollBar()->value(); }
void ChartViewer::SetHScroll(int x) { horizontalScrollBar()->setValue(x); }
void ChartViewer::SetVScroll(int y) { verticalScrollBar()->setValue(y); }
void ChartViewer::SetScrollPosition(int x, int y) {
  SetHScroll(x);
  SetVScroll(y);
}

void ChartViewer::scrollContentsBy(int, int) {
  viewport()->update();
  emit Scrolled();
}

void ChartViewer::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (zoomMode_ != 0) {
    int mode = zoomMode_;
    SetZoomMode(mode);
  } else {
    UpdateScrollBars();
  }
  emit Resized();
}

// ---- pointer, modes, brightness ----------------------------------------------

void ChartViewer::SetMousePointer(int code) {
  pointer_ = code;
  Qt::CursorShape shape = code == 2 ? Qt::CrossCursor : code == 15 ? Qt::SizeAllCursor : Qt::ArrowCursor;
  viewport()->setCursor(shape);
}

void ChartViewer::SetMouseMode(int mode) {
  mouseMode_ = mode;
  rubberActive_ = false;
  panning_ = false;
}

void ChartViewer::ClearRubberRect() {
  rubber_ = QRectF();
  rubberActive_ = false;
  viewport()->update();
}

void ChartViewer::BrightnessStep(int step) {
  brightness_ = std::clamp(brightness_ + step, -10, 10);
  viewport()->update();
}

void ChartViewer::Redraw() { viewport()->update(); }

// ---- paint ----------------------------------------------------------------

void ChartViewer::paintEvent(QPaintEvent*) {
  emit PaintStarting();
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), QColor(128, 128, 128));
  if (!levels_.empty()) {
    // The level whose pixels are no more than four to a screen pixel.
    std::size_t level = 0;
    double factor = 1;
    while (level + 1 < levels_.size() && zoom_ * factor * kLevelFactor <= 1.0) {
      ++level;
      factor *= kLevelFactor;
    }
    const QImage& source = levels_[level];
    double sx = static_cast<double>(source.width()) / ImageWidth();
    double sy = static_cast<double>(source.height()) / ImageHeight();
    QRectF visible = VisibleRect();
    QRectF target(ImageToScreen(visible.topLeft()), ImageToScreen(visible.bottomRight()));
    QRectF from(visible.left() * sx, visible.top() * sy, visible.width() * sx, visible.height() * sy);
    double scale = zoom_ / std::min(sx, sy);
    // At one source pixel per screen pixel the plain blit is exact and fastest.
    bool exact = std::fabs(scale - 1.0) < 1e-9;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !exact && scale < 4.0);
    painter.drawImage(target, source, from);
    if (brightness_ != 0) {
      int alpha = std::min(220, std::abs(brightness_) * 20);
      painter.fillRect(target, brightness_ > 0 ? QColor(255, 255, 255, alpha) : QColor(0, 0, 0, alpha));
    }
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  emit Paint(painter);
  if (rubberActive_ || !rubber_.isNull()) {
    QRectF r(ImageToScreen(rubber_.topLeft()), ImageToScreen(rubber_.bottomRight()));
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(r.normalized());
  }
}

// ---- events -----------------------------------------------------------------

void ChartViewer::keyPressEvent(QKeyEvent* event) {
  // Every key goes to the chart form; the viewer scrolls on its own only
  // through its scroll bars.
  emit KeyDown(event);
  event->accept();
}

void ChartViewer::mousePressEvent(QMouseEvent* event) {
  emit MouseDown(event);
  if (event->button() != Qt::LeftButton) return;
  if (mouseMode_ == 1) {
    rubberActive_ = true;
    rubberStart_ = ScreenToImage(event->position());
    rubber_ = QRectF(rubberStart_, rubberStart_);
  } else if (mouseMode_ == 2 && event->modifiers() == Qt::NoModifier) {
    panning_ = true;
    panLast_ = event->position().toPoint();
  }
}

void ChartViewer::mouseMoveEvent(QMouseEvent* event) {
  if (rubberActive_) {
    rubber_ = QRectF(rubberStart_, ScreenToImage(event->position())).normalized();
    viewport()->update();
  } else if (panning_) {
    QPoint now = event->position().toPoint();
    QPoint d = now - panLast_;
    panLast_ = now;
    SetScrollPosition(HScroll() - d.x(), VScroll() - d.y());
  }
  emit MouseMove(event);
}

void ChartViewer::mouseReleaseEvent(QMouseEvent* event) {
  if (rubberActive_ && event->button() == Qt::LeftButton) {
    rubberActive_ = false;
    QRectF selected = rubber_.normalized().intersected(QRectF(0, 0, ImageWidth(), ImageHeight()));
    if (selected.width() > 2 && selected.height() > 2) {
      SetRect(selected);
      ZoomToRect();
      ClearRect();
      emit RubberBandSelected(selected);
    }
    rubber_ = QRectF();
    viewport()->update();
  }
  panning_ = false;
  emit MouseUp(event);
}

void ChartViewer::mouseDoubleClickEvent(QMouseEvent* event) { emit DoubleClick(event); }

void ChartViewer::wheelEvent(QWheelEvent* event) {
  if (levels_.empty()) return;
  // Smooth zoom about the point under the pointer: 1.25 for each notch of
  // the wheel, in proportion for the finer steps of a touch pad.
  double notches = event->angleDelta().y() / 120.0;
  if (notches == 0) return;
  QPointF under = ScreenToImage(event->position());
  double zoom = std::clamp(zoom_ * std::pow(1.25, notches), kMinZoom, kMaxZoom);
  zoom_ = zoom;
  zoomMode_ = 0;
  UpdateScrollBars();
  QPointF o = Offset();
  SetScrollPosition(static_cast<int>(std::lround(under.x() * zoom_ - event->position().x() + o.x())),
                    static_cast<int>(std::lround(under.y() * zoom_ - event->position().y() + o.y())));
  viewport()->update();
  emit ZoomChanged(zoom_);
  event->accept();
}

}  // namespace kelvane::app
