// The chart window as a skipper meets it across runs and dialogs: the view
// that comes back at the next start, the chart chooser left without OK,
// and the Chart menu's commands, tools, keys and toolbar buttons, on the
// sample charts in a temporary data tree.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include "app/chartinteraction.h"
#include "app/chartmenus.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "app/mainwindow_layers.h"
#include "chart/chartmodes.h"
#include "core/recordio.h"
#include "forms/frmAisDetails.h"
#include "forms/frmOutlineEdit.h"
#include "forms/frmloadchart.h"
#include "support/commands.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

// The Solent off Cowes, on the sample chart 9999-1.
constexpr float kSolentLat = 50.78f, kSolentLon = -1.30f;

std::string Quoted(const fs::path& p) { return "\"" + p.string() + "\""; }

std::string FolderArgs(const Folders& f) {
  return " --data-root " + Quoted(f.programFolder) + " --user-folder " + Quoted(f.userFolder) +
         " --pictures-folder " + Quoted(f.picturesFolder);
}

}  // namespace

// DrawChart restored the saved view while the window was still unshown and
// its viewer a few pixels wide, so the chart came back as a speck and that
// speck's view was then saved for the run after.
TEST(ChartWindow, SavedViewWaitsForTheWindowsSizeSoTheChartComesBackAsItWasLeft) {
  TempTree tree;
  const ProgramState seeded = SeededState(tree);
  QRectF left;
  double zoom = 0;
  {
    app::FrmChart chart(seeded);
    chart.showMessage = [](const std::string& m) { ADD_FAILURE() << m; };
    chart.Load();
    chart.resize(1000, 760);
    chart.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&chart));
    app::ChartPane* pane = chart.Chart();
    pane->Viewer()->SetZoomPercent(100);
    pane->SetCursorPosition(kSolentLat, kSolentLon);
    pane->LocatePoint(kSolentLat, kSolentLon);
    pane->ZoomIn();  // 1.0 -> 1.2, below the switch to a finer chart
    QTest::qWait(50);  // the scroll bars come with the zoom
    chart.grab();      // the paint saves the view
    left = pane->Viewer()->VisibleRect();
    zoom = pane->Viewer()->Zoom();
    ASSERT_NEAR(zoom, 1.2, 1e-6);
    ASSERT_EQ(pane->CurrentChart().chartNumber, "9999-1");
    Screenshot(&chart, "restore-1-as-left");
    chart.close();
  }
  app::FrmChart again(seeded);
  again.showMessage = [](const std::string& m) { ADD_FAILURE() << m; };
  again.Load();
  again.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&again));
  QTest::qWait(50);
  again.grab();
  Screenshot(&again, "restore-2-next-start");
  EXPECT_EQ(again.size(), QSize(1000, 760));
  const QRectF back = again.Chart()->Viewer()->VisibleRect();
  EXPECT_NEAR(again.Chart()->Viewer()->Zoom(), zoom, 0.01);
  EXPECT_NEAR(back.left(), left.left(), 1.0);
  EXPECT_NEAR(back.top(), left.top(), 1.0);
  EXPECT_NEAR(back.width(), left.width(), 1.0);
  EXPECT_NEAR(back.height(), left.height(), 1.0);
  // And the view saved by this run is the same one, not a speck's.
  EXPECT_NEAR(again.Chart()->ViewStore().value("Settings/Width").toDouble(), left.width(), 1.0);
}

// A click on another area in the chooser stored that area at once; Esc or
// the close box then left it in the settings, and the window reloaded the
// other area's diamonds, so the next route was worked in slack water.
TEST(ChartWindow, ChooserLeftWithoutOkAfterAnotherAreaChangesNothing) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  ASSERT_TRUE(loaded.ShownAt(1000, 760));
  app::ChartPane* pane = chart.Chart();
  pane->Viewer()->SetZoomPercent(100);
  pane->LocatePoint(kSolentLat, kSolentLon);

  const std::string args = FolderArgs(chart.State().folders);
  auto cli = [&] {
    return RunCli(args + " settings show").out +
           RunCli(args + " stream --area \"Sample Chart\" --lat 50.55 --lon -1.5 --at \"2026-06-15 12:00\"").out;
  };
  const std::string cliBefore = cli();
  ASSERT_NE(cliBefore.find("ChartSet = Sample Chart"), std::string::npos) << cliBefore;
  const auto fileBefore = ReadFileBytes(chart.State().folders.SettingsFile());
  const SettingsRecord settingsBefore = chart.State().settings;
  const std::vector<Diamond> diamondsBefore = chart.State().streams.Diamonds;
  ASSERT_FALSE(diamondsBefore.empty());
  std::vector<float> ratesBefore;
  for (const DiamondStreamNow& d : chart.State().streams.StreamNow) ratesBefore.push_back(d.Rate);
  const QRectF viewBefore = pane->Viewer()->VisibleRect();

  // The serial polling stands still while the chooser is up.
  QTimer& comms = chart.Instruments()->CommsTimer();
  comms.setInterval(3600 * 1000);
  comms.start();
  for (const bool escape : {true, false}) {
    SCOPED_TRACE(escape ? "Esc" : "close box");
    bool pollingWhileOpen = true;
    pane->runChooser = [&](QDialog& dialog) {
      auto& form = static_cast<forms::FrmLoadChart&>(dialog);
      pollingWhileOpen = comms.isActive();
      form.show();
      form.ClickArea("Nantucket Sound");
      form.Results()->setCurrentRow(1);
      if (escape) {
        QTest::keyClick(&form, Qt::Key_Escape);
      } else {
        form.close();
      }
    };
    chart.Action("mnuSelectChartVisually")->trigger();
    EXPECT_FALSE(pollingWhileOpen);
    EXPECT_TRUE(comms.isActive());
    EXPECT_EQ(chart.State().settings, settingsBefore);
    EXPECT_EQ(ReadFileBytes(chart.State().folders.SettingsFile()), fileBefore);
    EXPECT_EQ(pane->CurrentChart().chartNumber, "9999-1");
    EXPECT_EQ(chart.State().streams.Diamonds, diamondsBefore);
    std::vector<float> rates;
    for (const DiamondStreamNow& d : chart.State().streams.StreamNow) rates.push_back(d.Rate);
    EXPECT_EQ(rates, ratesBefore);
    const QRectF view = pane->Viewer()->VisibleRect();
    EXPECT_NEAR(view.left(), viewBefore.left(), 0.5);
    EXPECT_NEAR(view.width(), viewBefore.width(), 0.5);
    EXPECT_EQ(cli(), cliBefore);
  }
  comms.stop();
  EXPECT_TRUE(messages.empty()) << messages.front();
}

TEST(ChartWindow, ChartMenuToolsKeysAndToolbarButtons) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  ASSERT_TRUE(loaded.ShownAt(1000, 760));
  app::ChartPane* pane = chart.Chart();
  app::ChartViewer* viewer = pane->Viewer();
  auto* menus = chart.findChild<app::ChartMenus*>();
  ASSERT_NE(menus, nullptr);
  auto key = [&](Qt::Key k) { QTest::keyClick(viewer, k); };

  // F9 and F10 step the brightness by 10 and stop at 10 and 100 percent.
  for (int i = 0; i < 12; ++i) key(Qt::Key_F9);
  EXPECT_EQ(chart.Layers().brightness, 10);
  key(Qt::Key_F10);
  EXPECT_EQ(chart.Layers().brightness, 20);
  for (int i = 0; i < 12; ++i) key(Qt::Key_F10);
  EXPECT_EQ(chart.Layers().brightness, 100);
  EXPECT_EQ(viewer->Brightness(), 0);

  // "G" is Keep Boat Centred: the setting is written at once.
  QAction* centre = chart.Action("mnuGPSCentre");
  ASSERT_TRUE(centre->isEnabled());
  key(Qt::Key_G);
  EXPECT_TRUE(centre->isChecked());
  EXPECT_EQ(ReadSettings(chart.State().folders.SettingsFile()).GPSCentre, -1);
  EXPECT_EQ(chart.Instruments()->Comms().GPSCentre, -1);
  key(Qt::Key_G);
  EXPECT_FALSE(centre->isChecked());
  EXPECT_EQ(ReadSettings(chart.State().folders.SettingsFile()).GPSCentre, 0);
  // Centring on the boat keeps it on the screen at any zoom, near the
  // chart's south-east corner too.
  const ChartRecord& c = pane->CurrentChart();
  for (const double zoom : {0.5, 1.0, 2.5}) {
    SCOPED_TRACE(zoom);
    viewer->SetZoom(zoom);
    viewer->SetScrollPosition(0, 0);
    const float lat = c.LowerLat + 0.01f, lon = c.rightLon - 0.01f;
    pane->LocateGPS(lat, lon);
    const QPointF at = viewer->ImageToScreen(
        QPointF(LonToPixel(pane->Geometry(), lon), LatToPixel(pane->Geometry(), lat)));
    EXPECT_TRUE(viewer->viewport()->rect().contains(at.toPoint())) << at.x() << "," << at.y();
  }
  viewer->SetZoomPercent(100);

  // The toolbar's File, View and Wrecks buttons open their menus.
  for (const char* button : {"cmdFile", "cmdView", "cmdWrecks"}) {
    SCOPED_TRACE(button);
    chart.ToolBar()->findChild<QAction*>(button)->trigger();
    QMenu* menu = menus->ButtonMenu(button);
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(WaitUntil([&] { return menu->isVisible(); }, 2000));
    menu->hide();
  }
  EXPECT_EQ(menus->ButtonMenu("cmdView")->objectName(), "menuChart");

  // The thumbnail.
  chart.Action("mnuShowThumbnail")->trigger();
  EXPECT_TRUE(pane->ThumbnailView()->isVisible());
  chart.Action("mnuShowThumbnail")->trigger();
  EXPECT_FALSE(pane->ThumbnailView()->isVisible());

  // F8 and F12 act only with the tools menu on show: F8 reads the stream
  // file chosen in frmSelectL25, F12 appends its diamond under the cursor.
  int asked = 0;
  menus->chooseStreamFile = [&] {
    ++asked;
    return (chart.State().folders.DataRoot() / "TS" / "Sample Chart.l25").string();
  };
  key(Qt::Key_F8);
  EXPECT_EQ(asked, 0);
  chart.Action("mnuShowTools")->trigger();
  EXPECT_TRUE(menus->ToolsMenuShown());
  key(Qt::Key_F8);
  EXPECT_EQ(asked, 1);
  const std::vector<Diamond>& file = chart.State().streams.StreamFileDiamonds;
  ASSERT_FALSE(file.empty());
  const std::size_t before = chart.State().streams.Diamonds.size();
  const QPoint over = viewer->ImageToScreen(QPointF(LonToPixel(pane->Geometry(), file[0].Lon),
                                                    LatToPixel(pane->Geometry(), file[0].lat)))
                          .toPoint();
  QMouseEvent move(QEvent::MouseMove, QPointF(over), QPointF(viewer->viewport()->mapToGlobal(over)), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(viewer->viewport(), &move);
  key(Qt::Key_F12);
  ASSERT_EQ(chart.State().streams.Diamonds.size(), before + 1);
  EXPECT_EQ(chart.State().streams.Diamonds.back(), file[0]);

  // The outline file loads from its folder and frmOutlineEdit moves it.
  EXPECT_FALSE(chart.Action("mnuOutlineEdit")->isEnabled());
  fs::path shownFolder;
  menus->chooseOutline = [&](const fs::path& folder) {
    shownFolder = folder;
    return (folder / "Sample Coast.l40").string();
  };
  chart.Action("mnuOutlineLoad")->trigger();
  EXPECT_EQ(shownFolder, chart.State().folders.DataRoot() / "OutlineData");
  ASSERT_FALSE(pane->Outline().empty());
  ASSERT_TRUE(chart.Action("mnuOutlineEdit")->isEnabled());
  std::size_t first = 0;
  while (IsOutlineBreak(pane->Outline()[first])) ++first;
  const Position was = pane->Outline()[first];
  WhenModal<forms::frmOutlineEdit>([](forms::frmOutlineEdit* form) {
    form->txtLatDiff->setText("0.5");
    form->txtLonDiff->setText("-0.25");
    form->cmdApply->click();
    form->cmdClose->click();
  });
  chart.Action("mnuOutlineEdit")->trigger();
  EXPECT_FLOAT_EQ(pane->Outline()[first].lat, was.lat + 0.5f);
  EXPECT_FLOAT_EQ(pane->Outline()[first].lon, was.lon - 0.25f);

  // A double click on an AIS target clear of the diamonds opens its details.
  {
    const float lat = 50.70f, lon = -1.95f;
    std::vector<Position> diamonds;
    for (const Diamond& d : chart.State().streams.Diamonds) diamonds.push_back(Position{d.lat, d.Lon});
    ASSERT_LT(NearestWithinCircle(diamonds, lat, lon, 1.0f), 0);
    AISTarget target;
    target.Lat = lat;
    target.Long = lon;
    target.MMSI = 235012345;
    target.VesselName = "SOLENT TRADER";
    chart.Instruments()->State().targets.AISTargets.push_back(target);
    viewer->SetZoomPercent(100);
    pane->LocatePoint(lat, lon);
    const QPoint p = viewer->ImageToScreen(QPointF(LonToPixel(pane->Geometry(), lon), LatToPixel(pane->Geometry(), lat)))
                         .toPoint();
    QTest::mouseDClick(viewer->viewport(), Qt::LeftButton, Qt::NoModifier, p);
    forms::FrmAisDetails* form = nullptr;
    ASSERT_TRUE(WaitUntil([&] { return (form = chart.findChild<forms::FrmAisDetails*>()) != nullptr; }, 2000));
    EXPECT_NE(form->Text().find("235012345"), std::string::npos) << form->Text();
    delete form;
  }

  // The dividers' label near the right edge stays on the chart.
  chart.Action("mnuDividersOn")->trigger();
  const QPoint nearEdge(viewer->viewport()->width() - 5, 200);
  QMouseEvent edge(QEvent::MouseMove, QPointF(nearEdge), QPointF(viewer->viewport()->mapToGlobal(nearEdge)),
                   Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(viewer->viewport(), &edge);
  QLabel* label = chart.Interaction()->DividersLabel();
  ASSERT_TRUE(label->isVisible());
  EXPECT_LE(label->geometry().right(), viewer->viewport()->width());
  EXPECT_GE(label->x(), 0);
  EXPECT_TRUE(messages.empty()) << messages.front();
}
