// The raster viewer of the chart window: shows one chart image at any zoom,
// scrolls and pans it, converts between screen and image pixels, draws the
// rubber-band rectangle, and hands its events to the chart form.
//
// Images of 15,000 x 15,000 pixels and more are shown: the reader's
// allocation limit is raised, the image is held once at full size in the
// 32-bit format the painter blits fastest, and reduced copies at 1/4, 1/16
// ... of each side serve the low zooms, so a paint never reads more than
// about four source pixels for each screen pixel. The reduced copies add
// 1/16 + 1/256 + ... of the full image, so the whole costs under 1.07 times
// the decoded image.
//
// Coordinates: image pixels (columns east, rows south, from the image's
// top-left corner) and screen pixels of the viewport. Zoom 1.0 is one image
// pixel per screen pixel. Scroll positions are screen pixels of the zoomed
// image. An image smaller than the viewport is centred in it.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <vector>

class QPainter;

namespace kelvane::app {

class ChartViewer : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit ChartViewer(QWidget* parent = nullptr);

  // Reads an image file whatever its name (the format is taken from the
  // content). Returns the status: 0 good; 1 missing file, 2 device error,
  // 3 unsupported format, 4 damaged data, 5 empty image, 6 unknown error.
  static int ReadImage(const QString& file, QImage& image);
  // Loads and shows a file; the status as ReadImage. On failure the image
  // on show stays.
  int LoadFile(const QString& file);
  // Shows an image already in memory (the native image of the program).
  void SetImage(QImage image);
  bool HasImage() const { return !levels_.empty(); }
  int ImageWidth() const;
  int ImageHeight() const;
  // The image in memory, full size, and the bytes held by all its levels.
  const QImage& Image() const;
  qint64 BytesHeld() const;
  // A copy reduced to w x h pixels (the aspect is not kept).
  QImage Thumbnail(int w = 150, int h = 150) const;

  // The visible part of the image, image pixels, clipped to the image.
  QRectF VisibleRect() const;
  // The rectangle to zoom to, then the zoom; the rectangle is cleared after.
  void SetRect(const QRectF& rect) { pendingRect_ = rect; }
  void ZoomToRect();
  void ClearRect() { pendingRect_ = QRectF(); }

  double Zoom() const { return zoom_; }
  // Sets the zoom keeping the image point at the centre of the view where
  // it is. The viewer's own limits apply (0.01 .. 32).
  void SetZoom(double zoom);
  void SetZoomPercent(double percent) { SetZoom(percent / 100.0); }
  // 2 fits the whole image, 3 fits the width, 5 fits the height.
  void SetZoomMode(int mode);
  int ZoomMode() const { return zoomMode_; }

  QPointF ScreenToImage(QPointF screen) const;
  QPointF ImageToScreen(QPointF image) const;

  // 0 arrow, 2 cross, 15 four-way arrows.
  void SetMousePointer(int code);
  int MousePointer() const { return pointer_; }
  // 1 rubber rectangle, 2 pan with the left button, 0 neither.
  void SetMouseMode(int mode);
  int MouseMode() const { return mouseMode_; }
  void ClearRubberRect();
  QRectF RubberRect() const { return rubber_; }

  // Brightness in steps: each step lightens (positive) or darkens
  // (negative) the chart by about 8 percent; 0 is the image as it is.
  void BrightnessStep(int step);
  int Brightness() const { return brightness_; }

  int HScrollMax() const;
  int VScrollMax() const;
  int HScroll() const;
  int VScroll() const;
  void SetHScroll(int x);
  void SetVScroll(int y);
  void SetScrollPosition(int x, int y);

  void Redraw();

 signals:
  void KeyDown(QKeyEvent* event);
  void MouseDown(QMouseEvent* event);
  void MouseMove(QMouseEvent* event);
  void MouseUp(QMouseEvent* event);
  void DoubleClick(QMouseEvent* event);
  // At the start of a paint, before the image is drawn: the form reads the
  // view and may change it.
  void PaintStarting();
  // After the image: the overlays, in image coordinates through
  // ImageToScreen.
  void Paint(QPainter& painter);
  void Scrolled();
  void ZoomChanged(double zoom);
  // The viewer or its viewport (as the scroll bars come and go) has a new size.
  void Resized();
  // The rubber band was released over this rectangle (image pixels).
  void RubberBandSelected(QRectF rect);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void BuildLevels(QImage image);
  void UpdateScrollBars();
  QPointF Offset() const;  // where image (0,0) lies when the image is smaller than the view
  void CentreOn(QPointF imagePoint);

  std::vector<QImage> levels_;  // full size, then each side / 4
  double zoom_ = 1.0;
  int zoomMode_ = 0;
  QRectF pendingRect_;
  int pointer_ = 0;
  int mouseMode_ = 2;
  QRectF rubber_;
  QPointF rubberStart_;
  bool rubberActive_ = false;
  bool panning_ = false;
  QPoint panLast_;
  int brightness_ = 0;
};

}  // namespace kelvane::app
