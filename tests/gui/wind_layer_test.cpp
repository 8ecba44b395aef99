// The wind on the chart: the barbs of an imported GRIB file at the working
// moment, switched on and off through the wind menu, and the GRIB request
// for the area on show.
#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTest>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/mainwindow.h"
#include "app/mainwindow_layers.h"
#include "app/overlays.h"
#include "support/gui_support.h"
#include "wind/windstore.h"

using namespace kelvane;
using namespace kelvane::app;
using namespace kelvane::test;

namespace {

int Count(const QImage& image, QRect box, QColor colour) {
  int n = 0;
  for (int y = box.top(); y <= box.bottom(); ++y)
    for (int x = box.left(); x <= box.right(); ++x)
      if (image.rect().contains(x, y) && image.pixelColor(x, y) == colour) ++n;
  return n;
}

}  // namespace

TEST(WindLayerWindow, GribWindsShowAsBarbsAtTheWorkingMomentAndTheRequestCoversTheView) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  // 25/11/2026 12:00 UTC: the +0 h winds of the sample (51N 0.5W from 000
  // at 9.7 kn, 50.5N 0.5E calm, ...).
  WindImport import = ImportGribToWindStore(std::string(KELVANE_TEST_DATA) + "/wind/wind_signed.grb",
                                            tree.folders.WindStoreFile(), tree.folders.GribPointsFile());
  ASSERT_TRUE(import.ok) << import.message;
  WorkingMoment& m = window.State().moment;
  m.WorkingYear = 2026;
  m.WorkingMonth = 11;
  m.WorkingDayOfMonth = 25;
  m.WorkingTime = 12.0f;
  m.userTimeSet = true;
  ASSERT_TRUE(loaded.ShownAt(1200, 800));
  window.Chart()->Viewer()->SetZoom(0.5);
  window.Chart()->LocatePoint(50.75f, 0.0f);
  QTest::qWait(20);
  ASSERT_EQ(window.State().settings.WindDisplay, 0);

  const OverlayView view = ViewOf(*window.Chart()->Viewer(), window.Chart()->Geometry());
  const ScreenPoint north = view.ToScreen(51.0f, -0.5f);
  const QColor wind = PackedColour(window.State().settings.WindColour);
  // The staff of the northerly runs up from the grid point, its barb to the east.
  const QRect staff(int(north.x) - 3, int(north.y) - 25, 16, 26);
  auto surface = [&] { return window.Chart()->Viewer()->viewport()->grab().toImage(); };
  const int before = Count(surface(), staff, wind);

  window.Action("mnuWindDisplay")->trigger();
  ASSERT_TRUE(WaitUntil([&] { return window.Layers().lastPaint.drawnBarbs == 6; }));
  EXPECT_EQ(window.State().settings.WindDisplay, -1);
  EXPECT_GT(Count(surface(), staff, wind), before + 20);
  Screenshot(&window, "wind-layer");

  window.Action("mnuWindDisplay")->trigger();
  ASSERT_TRUE(WaitUntil([&] { return window.Layers().lastPaint.drawnBarbs == 0; }));
  EXPECT_EQ(Count(surface(), staff, wind), before);

  // Over the route, with the grid off: one barb for the one leg, at its
  // midpoint, in the wind set for the leg.
  RoutePoint a, b;
  a.Lat = b.Lat = 50.6f;
  a.Lon = -0.4f;
  b.Lon = 0.2f;
  a.LegWind = WindSlot{25.0f, 45.0f};
  window.State().passage.Route.push_back(a);
  window.State().passage.Route.push_back(b);
  window.Action("mnuDisplayWindOverRoute")->trigger();
  ASSERT_TRUE(WaitUntil([&] { return window.Layers().lastPaint.drawnBarbs == 1; }));
  const ScreenPoint middle = view.ToScreen(50.6f, -0.1f);
  EXPECT_GT(Count(surface(), QRect(int(middle.x) - 2, int(middle.y) - 22, 25, 25), wind), 20);
  Screenshot(&window, "wind-over-route");

  // The request for the area on show goes to the clipboard, and the user is
  // told where to mail it.
  QAction* request = window.Action("mnuSailDocs");
  ASSERT_TRUE(request->isEnabled());
  messages.clear();
  request->trigger();
  const QString line = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(line.startsWith("send gfs:")) << line.toStdString();
  EXPECT_TRUE(line.endsWith(",117,120|WIND")) << line.toStdString();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find("send an email to : \n     query@saildocs.com\n"), std::string::npos) << messages[0];
}
