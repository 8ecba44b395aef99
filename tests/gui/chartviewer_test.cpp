// The chart viewer and the chart pane with real widgets, over the sample
// charts seeded into a temporary data tree, and the chart chooser.
#include <gtest/gtest.h>

#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <fstream>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "forms/frmloadchart.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

// A seeded tree with the factory settings written.
struct ChartTree {
  TempTree tree;
  SettingsRecord settings;
  ChartTree() {
    CreateDataTree(tree.folders);
    SeedDataRoot(tree.folders, fs::path(KELVANE_SOURCE_DIR) / "data");
    settings = DefaultSettings(tree.folders);
    WriteSettings(tree.folders.SettingsFile(), settings);
  }
};

// Anvil Point, the first mark of the sample waypoints.
constexpr float kAnvilLat = 50.58233f, kAnvilLon = -1.930833f;

QImage Pattern(int w, int h) {
  QImage image(w, h, QImage::Format_RGB32);
  image.fill(QColor(216, 236, 245));
  for (int x = 0; x < w; x += 100)
    for (int y = 0; y < h; ++y) image.setPixel(x, y, qRgb(0, 0, 0));
  return image;
}

// A 400 x 300 viewer without frame or scroll bars over a 1000 x 800
// pattern at 100 percent, scrolled to the top left.
void ShowPattern(app::ChartViewer& viewer) {
  viewer.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewer.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewer.setFrameShape(QFrame::NoFrame);
  viewer.resize(400, 300);
  viewer.show();
  viewer.SetImage(Pattern(1000, 800));
  viewer.SetZoomPercent(100);
  viewer.SetScrollPosition(0, 0);
}

// The chart pane over the seeded tree, its messages collected, shown at a
// size with the factory chart loaded.
struct Pane {
  std::vector<std::string> messages;
  app::ChartPane pane;
  Pane(ChartTree& t, int width, int height) : pane(t.tree.folders, t.settings) {
    pane.showMessage = [this](const std::string& m) { messages.push_back(m); };
    pane.resize(width, height);
    pane.show();
    pane.LoadChart();
  }
};

}  // namespace

TEST(ChartViewer, StatusOfImageFiles) {
  App();
  TempDir dir;
  QImage image = Pattern(300, 200);
  const QString good = QString::fromStdString((dir.path / "good.l55").string());
  ASSERT_TRUE(image.save(good, "PNG"));  // PNG content under the chart's own extension
  QImage read;
  EXPECT_EQ(app::ChartViewer::ReadImage(good, read), 0);
  EXPECT_EQ(read.size(), QSize(300, 200));
  EXPECT_EQ(app::ChartViewer::ReadImage(QString::fromStdString((dir.path / "none.l55").string()), read), 1);
  // A truncated image and a file of garbage each give a status, never a crash.
  {
    std::ifstream in((dir.path / "good.l55").string(), std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), {});
    std::ofstream((dir.path / "cut.l55").string(), std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    std::ofstream((dir.path / "junk.l55").string(), std::ios::binary) << std::string(5000, '\x37');
  }
  EXPECT_NE(app::ChartViewer::ReadImage(QString::fromStdString((dir.path / "cut.l55").string()), read), 0);
  EXPECT_NE(app::ChartViewer::ReadImage(QString::fromStdString((dir.path / "junk.l55").string()), read), 0);
}

TEST(ChartViewer, ZoomRectanglesAndConversions) {
  App();
  app::ChartViewer viewer;
  ShowPattern(viewer);
  EXPECT_EQ(viewer.ImageWidth(), 1000);
  EXPECT_EQ(viewer.ImageHeight(), 800);
  EXPECT_EQ(viewer.VisibleRect(), QRectF(0, 0, 400, 300));
  // The rectangle 100,100 200x150 fills the view at zoom 2.
  viewer.SetRect(QRectF(100, 100, 200, 150));
  viewer.ZoomToRect();
  viewer.ClearRect();
  EXPECT_DOUBLE_EQ(viewer.Zoom(), 2.0);
  EXPECT_EQ(viewer.VisibleRect(), QRectF(100, 100, 200, 150));
  QPointF screen = viewer.ImageToScreen(QPointF(150, 175));
  EXPECT_EQ(screen, QPointF(100, 150));
  EXPECT_EQ(viewer.ScreenToImage(screen), QPointF(150, 175));
  // Scroll positions are screen pixels of the zoomed image.
  EXPECT_EQ(viewer.HScroll(), 200);
  EXPECT_EQ(viewer.HScrollMax(), 2000 - 400);
  EXPECT_EQ(viewer.VScrollMax(), 1600 - 300);
  // Fit the height (mode 5) and the width (mode 3).
  viewer.SetZoomMode(5);
  EXPECT_DOUBLE_EQ(viewer.Zoom(), 300.0 / 800.0);
  viewer.SetZoomMode(3);
  EXPECT_DOUBLE_EQ(viewer.Zoom(), 400.0 / 1000.0);
  // An image smaller than the view is centred in it.
  viewer.SetZoom(0.25);
  EXPECT_EQ(viewer.ImageToScreen(QPointF(0, 0)), QPointF((400 - 250) / 2.0, (300 - 200) / 2.0));
  EXPECT_EQ(viewer.Thumbnail().size(), QSize(150, 150));
  viewer.SetMousePointer(15);
  EXPECT_EQ(viewer.viewport()->cursor().shape(), Qt::SizeAllCursor);
  viewer.BrightnessStep(2);
  EXPECT_EQ(viewer.Brightness(), 2);
}

TEST(ChartViewer, RubberBandZoomsToTheRectangle) {
  App();
  app::ChartViewer viewer;
  ShowPattern(viewer);
  viewer.SetMouseMode(1);
  QRectF selected;
  QObject::connect(&viewer, &app::ChartViewer::RubberBandSelected, [&](QRectF r) { selected = r; });
  QTest::mousePress(viewer.viewport(), Qt::LeftButton, {}, QPoint(40, 30));
  QTest::mouseMove(viewer.viewport(), QPoint(140, 105));
  QTest::mouseRelease(viewer.viewport(), Qt::LeftButton, {}, QPoint(140, 105));
  EXPECT_EQ(selected, QRectF(40, 30, 100, 75));
  EXPECT_DOUBLE_EQ(viewer.Zoom(), 4.0);
}

TEST(ChartViewer, HugeImageWithinItsMemory) {
  App();
  TempDir dir;
  // 15,000 x 15,000 pixels: beyond the reader's default allocation limit.
  QImage big(15000, 15000, QImage::Format_Grayscale8);
  big.fill(200);
  for (int y = 0; y < 15000; y += 500) std::memset(big.scanLine(y), 0, 15000);
  const QString file = QString::fromStdString((dir.path / "big.l55").string());
  QImageWriter writer(file, "png");
  writer.setCompression(1);
  ASSERT_TRUE(writer.write(big));
  big = QImage();
  app::ChartViewer viewer;
  viewer.resize(800, 600);
  viewer.show();
  ASSERT_EQ(viewer.LoadFile(file), 0);
  EXPECT_EQ(viewer.ImageWidth(), 15000);
  EXPECT_EQ(viewer.ImageHeight(), 15000);
  const qint64 decoded = viewer.Image().sizeInBytes();
  EXPECT_LT(viewer.BytesHeld(), decoded * 12 / 10);
  viewer.SetZoom(0.05);
  viewer.grab();
  viewer.SetZoom(1.0);
  viewer.SetScrollPosition(7000, 7000);
  QImage shot = viewer.grab().toImage();
  EXPECT_FALSE(shot.isNull());
}

// ---- the chart pane over the sample charts ---------------------------------------

TEST(ChartPane, DrawsTheFactoryChartAndSavesTheView) {
  ChartTree t;
  {
    Pane opened(t, 1000, 700);
    auto& [messages, pane] = opened;
    EXPECT_TRUE(messages.empty()) << messages.front();
    EXPECT_EQ(pane.CurrentChart().chartNumber, "9999-1");
    EXPECT_EQ(pane.Viewer()->ImageWidth(), 3601);
    EXPECT_EQ(pane.Geometry().ImageHeightPixels, 1220);
    // The thumbnail is the chart reduced to 150 x 150.
    ASSERT_FALSE(pane.ThumbnailView()->pixmap().isNull());
    EXPECT_EQ(pane.ThumbnailView()->pixmap().size(), QSize(150, 150));
    // No saved view yet: zoom 50 percent.
    EXPECT_DOUBLE_EQ(pane.Viewer()->Zoom(), 0.5);
    pane.LocatePoint(kAnvilLat, kAnvilLon);
    pane.grab();
    Screenshot(&pane, "chart-9999-1");
    // The paint saved the view rectangle under "Settings".
    QRectF shown = pane.Viewer()->VisibleRect();
    EXPECT_NEAR(pane.ViewStore().value("Settings/Left").toDouble(), shown.left(), 1e-6);
    EXPECT_NEAR(pane.ViewStore().value("Settings/Width").toDouble(), shown.width(), 1e-6);
    // The corners of the view are positions on the chart.
    EXPECT_LT(pane.Corners().ViewLeftLon, kAnvilLon);
    EXPECT_GT(pane.Corners().ViewRightLon, kAnvilLon);
    EXPECT_GT(pane.Corners().ViewTopLat, kAnvilLat);
    EXPECT_LT(pane.Corners().ViewBottomLat, kAnvilLat);
    pane.ViewStore().sync();
  }
  // The next run comes back to the same view.
  Pane second(t, 1000, 700);
  app::ChartPane& again = second.pane;
  QRectF r = again.Viewer()->VisibleRect();
  EXPECT_NEAR(r.center().x(), again.ViewStore().value("Settings/Left").toDouble() + r.width() / 2, 2.0);
}

// The ladder once left ChartFile at the chooser's chart, so that after the
// chooser had picked 9999-1 the way back to it was refused as "no switch".
TEST(ChartPane, LadderByCommandAndByZoomWritesTheChartInUseAtEverySwitch) {
  ChartTree t;
  t.settings.ChartFile = "9999-1";  // as the chooser writes it
  Pane opened(t, 1000, 700);
  auto& [messages, pane] = opened;
  pane.SetCursorPosition(kAnvilLat, kAnvilLon);
  pane.LocatePoint(kAnvilLat, kAnvilLon);
  // Next scale: the finer chart at the cursor, written to the settings file.
  ASSERT_TRUE(pane.NextScaleChart());
  EXPECT_EQ(pane.CurrentChart().chartNumber, "9999-3");
  EXPECT_EQ(fs::path(ReadSettings(t.tree.folders.SettingsFile()).ChartPath).filename(), "9999-3");
  EXPECT_EQ(ReadSettings(t.tree.folders.SettingsFile()).ChartFile, "9999-3");
  // The old view, clamped into the finer chart, still shows the cursor.
  pane.grab();
  EXPECT_LT(pane.Corners().ViewLeftLon, kAnvilLon);
  EXPECT_GT(pane.Corners().ViewRightLon, kAnvilLon);
  EXPECT_GT(pane.Corners().ViewTopLat, kAnvilLat);
  EXPECT_LT(pane.Corners().ViewBottomLat, kAnvilLat);
  EXPECT_FALSE(pane.NextScaleChart());  // nothing finer here
  ASSERT_TRUE(pane.PreviousScaleChart());
  EXPECT_EQ(pane.CurrentChart().chartNumber, "9999-1");
  EXPECT_EQ(t.settings.ChartFile, "9999-1");
  EXPECT_EQ(t.settings.ChartDescription, pane.CurrentChart().chartName);
  EXPECT_LE(pane.Viewer()->Zoom(), 1.2);

  // Zooming past ScaleMax switches at the next paint to the finer chart at
  // the cursor, at zoom 1.0; zooming below ScaleMin comes back at 0.6.
  // The cursor is on the Purbeck coast west of Anvil Point.
  const float lat = 50.62f, lon = -1.965f;
  pane.SetCursorPosition(lat, lon);
  pane.LocatePoint(lat, lon);
  pane.Viewer()->SetZoom(1.6);
  pane.LocatePoint(lat, lon);
  pane.Viewer()->repaint();
  // The switch is carried out just after the paint; a loaded machine may
  // take a while to get there.
  WaitUntil([&] {
    pane.Viewer()->update();
    return pane.CurrentChart().chartNumber == "9999-3";
  });
  EXPECT_EQ(pane.CurrentChart().chartNumber, "9999-3");
  EXPECT_DOUBLE_EQ(pane.Viewer()->Zoom(), 1.0);
  pane.LocatePoint(lat, lon);  // the clamped view, centred again on the cursor for the picture
  pane.grab();
  Screenshot(&pane, "chart-9999-3-after-zoom");
  pane.Viewer()->SetZoom(0.1);
  pane.Viewer()->repaint();
  WaitUntil([&] {
    pane.Viewer()->update();
    return pane.CurrentChart().chartNumber == "9999-1";
  });
  EXPECT_EQ(pane.CurrentChart().chartNumber, "9999-1");
  EXPECT_NEAR(pane.Viewer()->Zoom(), 0.6, 1e-6);
  EXPECT_TRUE(messages.empty());
}

TEST(ChartPane, KeysZoomAndPan) {
  ChartTree t;
  Pane opened(t, 800, 600);
  app::ChartPane& pane = opened.pane;
  pane.Viewer()->SetZoomPercent(50);
  pane.SetCursorPosition(kAnvilLat, kAnvilLon);
  pane.HandleKey(Qt::Key_I, {});
  EXPECT_NEAR(pane.Viewer()->Zoom(), 0.8, 1e-6);  // 0.75 to one decimal, half to even
  pane.HandleKey(Qt::Key_Minus, {});
  EXPECT_NEAR(pane.Viewer()->Zoom(), 0.3, 1e-6);
  pane.HandleKey(Qt::Key_0, {});
  EXPECT_DOUBLE_EQ(pane.Viewer()->Zoom(), 1.0);
  pane.HandleKey(Qt::Key_4, {});
  EXPECT_DOUBLE_EQ(pane.Viewer()->Zoom(), 0.4);
  pane.HandleKey(Qt::Key_Home, {});
  EXPECT_EQ(pane.Viewer()->HScroll(), pane.Viewer()->HScrollMax() / 2);
  QRectF before = pane.Viewer()->VisibleRect();
  pane.HandleKey(Qt::Key_Right, {});
  QRectF after = pane.Viewer()->VisibleRect();
  EXPECT_NEAR(after.left() - before.left(), before.width() / 5, 3.0);
  EXPECT_DOUBLE_EQ(pane.Viewer()->Zoom(), 0.4);  // no drift
  pane.HandleKey(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(pane.Viewer()->HScroll(), 0);
}

TEST(ChartPane, BadImagesAndOutlines) {
  ChartTree t;
  Pane opened(t, 800, 600);
  auto& [messages, pane] = opened;
  ASSERT_TRUE(pane.Viewer()->HasImage());
  // A missing image: "error code: 1", and the old chart stays on show.
  t.settings.ChartPath = (t.tree.folders.DataRoot() / "Charts" / "nothing").string();
  EXPECT_FALSE(pane.DrawChart());
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "error code: 1");
  EXPECT_EQ(pane.Viewer()->ImageWidth(), 3601);
  // A truncated image.
  fs::path cut = t.tree.folders.DataRoot() / "Charts" / "cut";
  {
    std::ifstream in((t.tree.folders.DataRoot() / "Charts" / "9999-4.l55").string(), std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), {});
    std::ofstream(cut.string() + ".l55", std::ios::binary) << bytes.substr(0, bytes.size() / 3);
  }
  t.settings.ChartPath = cut.string();
  EXPECT_FALSE(pane.DrawChart());
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[1].rfind("error code: ", 0), 0u);
  // The sample outline draws; a random-byte outline loads and paints
  // without harm; a missing one gives its message.
  EXPECT_TRUE(pane.LoadOutline(t.tree.folders.DataRoot() / "OutlineData" / "Sample Coast.l40"));
  EXPECT_FALSE(pane.Outline().empty());
  pane.grab();
  fs::path junk = t.tree.folders.DataRoot() / "OutlineData" / "junk.l40";
  {
    std::ofstream out(junk.string(), std::ios::binary);
    std::uint32_t x = 12345;
    for (int i = 0; i < 4001; ++i) {
      x = x * 1103515245u + 12345u;
      out.put(static_cast<char>(x >> 24));
    }
  }
  EXPECT_TRUE(pane.LoadOutline(junk));
  pane.grab();
  EXPECT_FALSE(pane.LoadOutline(t.tree.folders.DataRoot() / "OutlineData" / "none.l40"));
  EXPECT_EQ(messages.back(), "The outline file " + (t.tree.folders.DataRoot() / "OutlineData" / "none.l40").string() +
                                 " could not be read");
}

TEST(ChartPane, MissingDatabaseGivesItsMessage) {
  ChartTree t;
  t.settings.ChartSet = "Nowhere";
  app::ChartPane pane(t.tree.folders, t.settings);
  std::vector<std::string> messages;
  pane.showMessage = [&](const std::string& m) { messages.push_back(m); };
  pane.ReadCatalogue();
  EXPECT_TRUE(pane.Catalogue().empty());
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find("could not be opened"), std::string::npos);
}

// ---- the chooser ---------------------------------------------------------------

TEST(LoadChartForm, AreasChartsSearchAndCancel) {
  ChartTree t;
  ChartCatalogue catalogue = ReadChartsTable(t.tree.folders.DataRoot(), "Sample Chart");
  const SettingsRecord before = t.settings;
  {
    forms::FrmLoadChart form(t.tree.folders, t.settings, catalogue.charts);
    form.show();
    Screenshot(&form, "frmLoadChart");
    ASSERT_EQ(form.Areas()->count(), 2);
    EXPECT_EQ(form.Areas()->item(0)->text(), "Nantucket Sound");
    EXPECT_EQ(form.Areas()->currentItem()->text(), "Sample Chart");
    EXPECT_EQ(form.Results()->count(), static_cast<int>(catalogue.charts.size()));
    EXPECT_FALSE(form.OkButton()->isEnabled());
    // Browse another area, pick a chart there, then cancel.
    form.ClickArea("Nantucket Sound");
    EXPECT_EQ(t.settings.ChartSet, "Nantucket Sound");
    ASSERT_EQ(form.Results()->count(), 3);
    EXPECT_EQ(form.Results()->item(0)->text(), "Nantucket Sound");  // name order
    form.Results()->setCurrentRow(2);
    EXPECT_TRUE(form.OkButton()->isEnabled());
    EXPECT_EQ(form.ChartNumber()->text(), "9998-2");
    EXPECT_FALSE(form.Preview()->pixmap().isNull());
    // Esc leaves as Cancel does (it once kept the browsed area).
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
  }
  EXPECT_EQ(t.settings.ChartSet, before.ChartSet);
  EXPECT_EQ(t.settings.ChartPath, before.ChartPath);
  EXPECT_EQ(t.settings.ChartFile, before.ChartFile);
  EXPECT_EQ(t.settings.ChartDescription, before.ChartDescription);

  forms::FrmLoadChart form(t.tree.folders, t.settings, catalogue.charts);
  form.SearchBox()->setText("solent");
  ASSERT_GE(form.Results()->currentRow(), 0);
  // The type-ahead's hit is the catalogue's index of "The Solent", used as
  // the list's index.
  EXPECT_EQ(form.Results()->currentRow(), 1);
  form.Search();
  ASSERT_EQ(form.Results()->count(), 1);
  EXPECT_EQ(form.Results()->item(0)->text(), "The Solent");
  form.Results()->setCurrentRow(0);
  EXPECT_EQ(form.Scale()->text(), "93000");
  form.Ok();
  EXPECT_TRUE(form.ChartAccepted());
  EXPECT_EQ(t.settings.ChartFile, "9999-2");
  EXPECT_EQ(t.settings.ChartDescription, "The Solent");
  EXPECT_EQ(fs::path(t.settings.ChartPath), t.tree.folders.DataRoot() / "Charts" / "9999-2");
}

TEST(SelectL25, OpensOnTheChartsFolder) {
  TempTree tree;
  SettingsRecord s;
  s.ChartsFolder = "/somewhere/Charts";
  EXPECT_EQ(forms::SelectL25Folder(tree.folders, s), fs::path("/somewhere/Charts"));
  s.ChartsFolder = "   ";
  EXPECT_EQ(forms::SelectL25Folder(tree.folders, s), tree.folders.DataRoot() / "TS");
}
