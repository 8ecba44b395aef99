// Painting the chart viewer: a 1920 x 1080 view over a 12,000 x 9,000 chart
// at zoom 1.0 and 0.25, offscreen. Target: 60 frames a second or more, with
// the viewer's memory under 1.2 times the decoded image.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>

#include "app/chartviewer.h"

namespace {

QApplication& App() {
  static int argc = 1;
  static char name[] = "chartviewer_bench";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return new QApplication(argc, argv);
  }();
  return *app;
}

// A chart-like image: sea, land and a graticule every 400 pixels.
QImage Chart(int w, int h) {
  QImage image(w, h, QImage::Format_RGB32);
  image.fill(QColor(216, 236, 245));
  QPainter p(&image);
  p.setBrush(QColor(245, 230, 184));
  p.setPen(QPen(Qt::black, 2));
  p.drawEllipse(QRect(w / 5, h / 5, w / 2, h / 3));
  p.setPen(QPen(QColor(110, 110, 150), 1));
  for (int x = 0; x < w; x += 400) p.drawLine(x, 0, x, h);
  for (int y = 0; y < h; y += 400) p.drawLine(0, y, w, y);
  return image;
}

kelvane::app::ChartViewer& Viewer() {
  static kelvane::app::ChartViewer* viewer = [] {
    App();
    auto* v = new kelvane::app::ChartViewer;
    v->setFrameShape(QFrame::NoFrame);
    v->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    v->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    v->resize(1920, 1080);
    v->show();
    v->SetImage(Chart(12000, 9000));
    return v;
  }();
  return *viewer;
}

void PaintAt(benchmark::State& state, double zoom) {
  auto& viewer = Viewer();
  viewer.SetZoom(zoom);
  viewer.SetScrollPosition(viewer.HScrollMax() / 3, viewer.VScrollMax() / 3);
  QImage frame(1920, 1080, QImage::Format_RGB32);
  int step = 0;
  for (auto _ : state) {
    // A small pan between frames, as a drag does.
    viewer.SetScrollPosition(viewer.HScrollMax() / 3 + (step % 50), viewer.VScrollMax() / 3 + (step % 30));
    ++step;
    QPainter painter(&frame);
    viewer.viewport()->render(&painter);
  }
  state.counters["fps"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  state.counters["memory_ratio"] =
      static_cast<double>(viewer.BytesHeld()) / static_cast<double>(viewer.Image().sizeInBytes());
}

void BM_PaintZoom100(benchmark::State& state) { PaintAt(state, 1.0); }
void BM_PaintZoom25(benchmark::State& state) { PaintAt(state, 0.25); }
void BM_PaintZoom60(benchmark::State& state) { PaintAt(state, 0.6); }
BENCHMARK(BM_PaintZoom100)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PaintZoom25)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PaintZoom60)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
