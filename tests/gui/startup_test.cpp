// The start form and the main window shell, with real widgets over a data
// tree in a temporary folder.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QToolBar>

#include "app/frmdisclaimer.h"
#include "app/mainwindow.h"
#include "core/settings.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

TEST(StartForm, NoticesAndDecline) {
  TempTree tree;
  app::Frmdisclaimer start(tree.folders);
  int ended = -1;
  start.endProgram = [&](int code) { ended = code; };
  ASSERT_TRUE(start.Prepare());
  start.show();
  EXPECT_TRUE(start.windowTitle().startsWith("Kelvane "));
  auto* list = start.findChild<QListWidget*>("lstNotices");
  ASSERT_NE(list, nullptr);
  EXPECT_FALSE(list->findItems("Please ensure that configurations are correct for your area.", Qt::MatchExactly).isEmpty());
  Screenshot(&start, "start-form");
  // The tree is laid out before the user answers...
  EXPECT_TRUE(fs::is_directory(tree.folders.WaypointsFolder()));
  EXPECT_TRUE(fs::is_directory(tree.folders.SitePicturesFolder()));
  // ...and declining ends at once, having touched nothing but the tree.
  QTest::mouseClick(start.findChild<QPushButton*>("cmddecline"), Qt::LeftButton);
  EXPECT_EQ(ended, 0);
  EXPECT_FALSE(fs::exists(tree.folders.SettingsFile()));
  EXPECT_FALSE(fs::exists(tree.folders.WindConfigFile()));
  // The sample data is copied into the data root on acceptance only (it
  // used to be copied before the user had chosen).
  EXPECT_FALSE(fs::exists(tree.folders.DataRoot() / "Charts"));
  EXPECT_FALSE(fs::exists(tree.folders.DataRoot() / "Refports.hc"));
}

TEST(StartForm, RestoreDefaultsConfirms) {
  TempTree tree;
  app::Frmdisclaimer start(tree.folders);
  std::string message;
  start.showMessage = [&](const std::string& m) { message = m; };
  ASSERT_TRUE(start.Prepare());
  start.findChild<QAction*>("mnuRestoreDefaults")->trigger();
  EXPECT_EQ(message, "Settings restored to defaults");
  EXPECT_EQ(fs::file_size(tree.folders.SettingsFile()), 3582u);
  EXPECT_EQ(fs::file_size(tree.folders.WindConfigFile()), 24u);
}

TEST(MainWindow, AcceptOpensTheChartWindow) {
  TempTree tree;
  app::Frmdisclaimer start(tree.folders);
  std::string message;
  start.showMessage = [&](const std::string& m) { message = m; };
  ASSERT_TRUE(start.Prepare());
  start.show();
  EXPECT_FALSE(fs::exists(tree.folders.DataRoot() / "Charts"));
  QTest::mouseClick(start.findChild<QPushButton*>("cmdCCok"), Qt::LeftButton);
  EXPECT_EQ(message, "");
  EXPECT_TRUE(fs::exists(tree.folders.DataRoot() / "Charts" / "Sample Chart.l35"));
  app::FrmChart* chart = start.MainWindow();
  ASSERT_NE(chart, nullptr);
  EXPECT_TRUE(chart->isVisible());
  EXPECT_FALSE(start.isVisible());

  // The load wrote the first-run files.
  EXPECT_EQ(fs::file_size(tree.folders.SettingsFile()), 3582u);
  EXPECT_TRUE(fs::exists(tree.folders.WindConfigFile()));
  // Chart boundaries show for the first chart whatever the file says, but
  // the file is not changed for it.
  EXPECT_EQ(chart->State().settings.ShowChartBoundaries, -1);
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowChartBoundaries, 0);
  EXPECT_EQ(chart->State().passage.LegSpeed, 5.0f);
  // The sample chart's area brings its diamonds, whose reference port
  // (Dover) has the day's curves and a state at the working time.
  EXPECT_EQ(chart->State().streams.Diamonds.size(), 24u);
  ASSERT_FALSE(chart->State().tides.UsedPortList.empty());
  EXPECT_EQ(chart->State().moment.TideDay, chart->State().moment.WorkingDay);
  // Menus of work still to come are there but disabled.
  ASSERT_NE(chart->Action("mnuCalcCOG"), nullptr);
  EXPECT_FALSE(chart->Action("mnuCalcCOG")->isEnabled());
  EXPECT_TRUE(chart->Action("mnuExit")->isEnabled());
  EXPECT_TRUE(chart->Timer1().isActive());
  Screenshot(chart, "main-window");
  chart->close();
}

TEST(MainWindow, LayerTogglesAreWrittenAtOnce) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  chart.show();
  EXPECT_TRUE(messages.empty());
  // The load took the sample waypoints and the reference ports.
  EXPECT_EQ(chart.State().waypoints.ChartWaypoints.size(), 49u);  // 48 marks and the blank end
  EXPECT_FALSE(chart.State().tides.RefPortList.empty());
  ASSERT_TRUE(chart.ToolBar()->isVisible());
  // Chart boundaries start on in memory, so the first toggle turns them
  // off, and the file says so.
  chart.Action("mnuViewChartBoundaries")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowChartBoundaries, 0);
  chart.Action("mnuViewChartBoundaries")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowChartBoundaries, -1);
  chart.Action("mnuShowToolBar")->trigger();
  EXPECT_FALSE(chart.ToolBar()->isVisible());
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowToolBar, 0);
  chart.Action("mnuShowToolBar")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowToolBar, -1);
  chart.Action("mnuShowTidalStreams")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowTidalStreams, 0.0f);
  chart.Action("mnuShowTidalStreams")->trigger();
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).ShowTidalStreams, 1.0f);
  // Window geometry lives in the per-user store under "Settings".
  chart.resize(700, 500);
  chart.close();
  QSettings store(QString::fromStdString((tree.folders.UserFiles() / "Kelvane.ini").string()), QSettings::IniFormat);
  EXPECT_EQ(store.value("Settings/Width").toInt(), 700);
  EXPECT_EQ(store.value("Settings/Height").toInt(), 500);
}

TEST(MainWindow, MinuteTickKeepsTheDayAndTheCaption) {
  LoadedChart loaded;
  app::FrmChart& chart = loaded.chart;
  int redraws = 0;
  QObject::connect(&chart, &app::FrmChart::RedrawRequested, [&] { ++redraws; });
  chart.State().moment.TodayDay = 1;  // as if the program had started on New Year's Day
  chart.State().moment.TodayYear = 2000;
  chart.MinuteTick();
  EXPECT_EQ(chart.State().moment.TideDay, chart.State().moment.TodayDay);
  EXPECT_NE(chart.State().moment.TodayDay, 1);
  EXPECT_TRUE(loaded.messages.empty());
  EXPECT_EQ(redraws, 1);
}

TEST(MainWindow, ComesUpWithWhatItHasWhenTheTideFileIsMissing) {
  TempTree tree;
  ProgramState state;
  state.folders = tree.folders;
  CreateDataTree(tree.folders);  // no sample data: no Refports.hc
  app::FrmChart chart(state);
  std::vector<std::string> messages;
  chart.showMessage = [&](const std::string& m) { messages.push_back(m); };
  chart.Load();
  // The tide file's message, then the chart's: no area database and no
  // chart image either.
  ASSERT_EQ(messages.size(), 3u);
  EXPECT_EQ(messages[0], RefPortsMissingMessage(tree.folders.DataRoot()));
  EXPECT_EQ(messages[1], "The database " + (tree.folders.DataRoot() / "Charts" / "Sample Chart.l35").string() +
                             " could not be opened: the file is missing or can't be read");
  EXPECT_EQ(messages[2], "error code: 1");
  EXPECT_TRUE(chart.State().tides.RefPortList.empty());
  // The sample waypoints are written at the first load all the same.
  EXPECT_EQ(chart.State().waypoints.ChartWaypoints.size(), 49u);
  EXPECT_TRUE(chart.Timer1().isActive());
}
