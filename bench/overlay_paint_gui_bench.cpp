// A full paint of the chart window at 1920 x 1080: the largest sample
// chart (9998-1, 3201 x 1807) at zoom 1, with 500 waypoints, 200 diamonds'
// stream arrows, a 100-point route with its calculated track (a point every
// five minutes) and the area's chart boundaries, all on the view. Measured
// twice: the overlays alone over a copy of the chart, and the whole viewer
// paint (image and overlays). Target: 60 frames a second or more.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <filesystem>

#include "app/chartviewer.h"
#include "app/overlays.h"
#include "core/settings.h"

using namespace kelvane;
using namespace kelvane::app;

namespace {

QApplication& App() {
  static int argc = 1;
  static char name[] = "overlay_paint_bench";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return new QApplication(argc, argv);
  }();
  return *app;
}

struct Fixture {
  ProgramState state;
  std::vector<ChartRecord> catalogue;
  ChartGeometry geometry;
  ChartViewer* viewer = nullptr;

  Fixture() {
    App();
    const std::filesystem::path data = std::filesystem::path(KELVANE_SEED_DIR);
    state.settings = DefaultSettings(Folders{});
    state.settings.ShowChartBoundaries = -1;
    state.settings.WayPointIcon = -1;
    ChartCatalogue read = ReadChartsTable(data, "Nantucket Sound");
    catalogue = read.charts;
    viewer = new ChartViewer;
    viewer->setFrameShape(QFrame::NoFrame);
    viewer->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewer->resize(1920, 1080);
    viewer->show();
    viewer->LoadFile(QString::fromStdString((data / "Charts" / "9998-1.l55").string()));
    for (const ChartRecord& c : catalogue)
      if (c.chartNumber == "9998-1") geometry = GeometryOf(c, viewer->ImageHeight());
    viewer->SetZoom(1.0);
    viewer->SetScrollPosition(viewer->HScrollMax() / 2, viewer->VScrollMax() / 2);
    const QRectF vis = viewer->VisibleRect();
    auto at = [&](double fx, double fy) {
      return Position{PixelToLat(geometry, static_cast<int>(vis.top() + fy * vis.height())),
                      PixelToLon(geometry, static_cast<int>(vis.left() + fx * vis.width()))};
    };
    const char* syms[] = {"BYB", "YBY", "BY", "YB", "R", "G", "BRB", "RW", "W", ""};
    state.waypoints.ChartWaypoints.clear();
    for (int i = 0; i < 500; ++i) {
      Position p = at(0.02 + 0.96 * ((i * 37) % 500) / 500.0, 0.02 + 0.96 * ((i * 91) % 500) / 500.0);
      Waypoint w;
      w.Lat = p.lat;
      w.Lon = p.lon;
      w.Name = "Mark " + std::to_string(i);
      w.Sym = syms[i % 10];
      state.waypoints.ChartWaypoints.push_back(w);
    }
    state.waypoints.ChartWaypoints.push_back(Waypoint{});  // the blank end
    for (int i = 0; i < 200; ++i) {
      Position p = at(0.03 + 0.94 * ((i * 53) % 200) / 200.0, 0.03 + 0.94 * ((i * 71) % 200) / 200.0);
      DiamondStreamNow d;
      d.Lat = p.lat;
      d.Lon = p.lon;
      d.Rate = 0.3f + (i % 25) * 0.1f;
      d.Direction = static_cast<float>((i * 29) % 360);
      d.Label = "9998-1-" + std::to_string(i);
      state.streams.StreamNow.push_back(d);
    }
    // A 100-point route zigzagging across the view, each leg calculated,
    // and its track of 12 five-minute steps a leg.
    for (int i = 0; i < 100; ++i) {
      Position p = at(0.05 + 0.9 * i / 99.0, i % 2 ? 0.3 : 0.7);
      RoutePoint rp;
      rp.Lat = p.lat;
      rp.Lon = p.lon;
      rp.Name = i % 3 ? "" : "WP" + std::to_string(i);
      rp.LegTime = 1.0f;
      rp.DriftCount = 12;
      state.passage.Route.push_back(rp);
    }
    state.passage.RouteCog.clear();
    for (int i = 0; i < 99; ++i) {
      for (int k = 0; k < 12; ++k) {
        double t = (i + k / 12.0) / 99.0;
        Position p = at(0.05 + 0.9 * t, 0.5 + (i % 2 ? -0.2 : 0.2) * (1 - 2 * (k / 12.0)) + 0.01);
        state.passage.RouteCog.push_back(CogPoint{p.lat, p.lon, 8.0f + (i * 12 + k) / 12.0f, 100, 2024});
      }
    }
    state.marks.InputMode = 3;
  }

  OverlaySources Sources() {
    OverlaySources s;
    s.state = &state;
    s.catalogue = &catalogue;
    return s;
  }
};

Fixture& F() {
  static Fixture* f = new Fixture;
  return *f;
}

void BM_OverlaysAlone(benchmark::State& bench) {
  Fixture& f = F();
  OverlayPainter painter;
  const OverlayView view = ViewOf(*f.viewer, f.geometry);
  QImage frame(1920, 1080, QImage::Format_RGB32);
  OverlaySources sources = f.Sources();
  OverlayOutcome out;
  for (auto _ : bench) {
    frame.fill(Qt::white);
    QPainter p(&frame);
    out = painter.Paint(p, view, sources);
    p.end();
    benchmark::DoNotOptimize(frame.bits());
  }
  bench.counters["waypoints"] = out.drawnWaypoints;
  bench.counters["arrows"] = out.drawnArrows;
  bench.counters["fps"] = benchmark::Counter(static_cast<double>(bench.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_OverlaysAlone)->Unit(benchmark::kMillisecond);

// The whole paint as the window does it: the chart image, then the layers.
void BM_FullPaint(benchmark::State& bench) {
  Fixture& f = F();
  OverlayPainter painter;
  OverlaySources sources = f.Sources();
  // The benchmark library calls this function several times while it finds
  // its iteration count: the connection must not outlive one call, or later
  // calls would paint the layers once for every earlier call as well.
  QMetaObject::Connection layers = QObject::connect(f.viewer, &ChartViewer::Paint, f.viewer, [&](QPainter& p) {
    painter.Paint(p, ViewOf(*f.viewer, f.geometry), sources);
  });
  QImage frame(1920, 1080, QImage::Format_RGB32);
  for (auto _ : bench) {
    f.viewer->viewport()->render(&frame);
    benchmark::DoNotOptimize(frame.bits());
  }
  QObject::disconnect(layers);
  bench.counters["fps"] = benchmark::Counter(static_cast<double>(bench.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_FullPaint)->Unit(benchmark::kMillisecond);

// The chart image alone through the same path, for the share of each.
void BM_ImageOnly(benchmark::State& bench) {
  Fixture& f = F();
  QImage frame(1920, 1080, QImage::Format_RGB32);
  for (auto _ : bench) {
    f.viewer->viewport()->render(&frame);
    benchmark::DoNotOptimize(frame.bits());
  }
  bench.counters["fps"] = benchmark::Counter(static_cast<double>(bench.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ImageOnly)->Unit(benchmark::kMillisecond);

}  // namespace

namespace {

// Each layer on its own, to see where a paint's time goes.
void BM_OneLayer(benchmark::State& bench) {
  Fixture& f = F();
  OverlayPainter all;
  const OverlayLayer layer = all.Layers()[static_cast<std::size_t>(bench.range(0))];
  const OverlayView view = ViewOf(*f.viewer, f.geometry);
  QImage frame(1920, 1080, QImage::Format_RGB32);
  OverlaySources sources = f.Sources();
  OverlayOutcome out;
  const int radius = MarkRadius(view.surfaceWidth, view.visibleWidth, view.imageWidth);
  TextLayouts layouts;
  for (auto _ : bench) {
    frame.fill(Qt::white);
    QPainter p(&frame);
    OverlayFrame fr{p, view, sources, f.state.settings, radius, BaseMarkRadius(view.surfaceWidth), out, &layouts};
    layer.paint(fr);
    p.end();
  }
  bench.SetLabel(layer.name);
}
BENCHMARK(BM_OneLayer)->DenseRange(0, 12)->Unit(benchmark::kMillisecond);

}  // namespace
