// The main window as a skipper meets it: every entry of its menus, popup
// menu and tool bar answers when clicked, except those waiting for their
// subsystem, which stay grey.
#include <gtest/gtest.h>

#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <map>
#include <set>

#include "app/actionlist.h"
#include "app/chartmenus.h"
#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/mainwindow.h"
#include "core/positions.h"
#include "forms/frmOptResults.h"
#include "forms/frmRouteOptDeparture.h"
#include "forms/frmcalcroute.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;

TEST(MainWindowActions, EveryEntryAnswersOrWaitsGreyedForItsSubsystem) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  EXPECT_TRUE(messages.empty()) << messages.front();

  std::set<std::string> awaiting;
  for (const app::AwaitingAction& a : app::ActionsAwaitingWork()) awaiting.insert(a.name);
  std::set<std::string> seen;
  for (const app::ActionRow& row : app::ListActions(window)) {
    SCOPED_TRACE(row.name + " \"" + row.caption + "\"");
    EXPECT_FALSE(row.name.empty()) << "every action carries its name";
    seen.insert(row.name);
    if (awaiting.count(row.name)) {
      // A waiting entry is grey and unanswered; once its work lands it must
      // come off the list.
      EXPECT_FALSE(row.connected) << "has a handler: take it off the waiting list";
      EXPECT_FALSE(row.enabled);
    } else {
      EXPECT_TRUE(row.connected) << "shown but answers nothing";
    }
  }
  for (const std::string& name : awaiting) EXPECT_TRUE(seen.count(name)) << name << " is not on any menu";
}

// The listing as the program prints it: no screen needed, no window shown,
// nothing written outside the folders it is given, and one line per action
// with the same verdicts as above.
TEST(MainWindowActions, ListActionsRunsHeadlessAndWritesOnlyItsOwnTree) {
  App();
  TempTree tree;
  QProcess program;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.remove("QT_QPA_PLATFORM");
  env.remove("DISPLAY");
  program.setProcessEnvironment(env);
  program.start(KELVANE_APP, {"--list-actions", "--data-root", QString::fromStdString(tree.folders.programFolder.string()),
                              "--user-folder", QString::fromStdString(tree.folders.userFolder.string())});
  ASSERT_TRUE(program.waitForFinished(60000));
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  const QStringList lines = QString::fromUtf8(program.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  ASSERT_GT(lines.size(), 100);
  EXPECT_TRUE(lines.contains("mnucalcrte\tCalculate Route...\tdisabled\tconnected"));
  EXPECT_TRUE(lines.contains("mnuSearchWrecks\tSearch Wrecks...\tdisabled\tno handler"));
  for (const QString& line : lines) EXPECT_EQ(line.count('\t'), 3) << line.toStdString();
}

namespace {

// The forms that came up while an entry ran, by their class (lower case,
// without the namespace, as their files are named). Each modal form is
// closed with Cancel as soon as it is up, so that the entry returns;
// `inside` may take a form over instead (to reach the forms it opens), and
// then closes it itself.
struct FormWatch {
  std::set<std::string> opened;
  std::function<bool(QDialog&)> inside;
  QTimer poll;
  FormWatch() {
    poll.setInterval(10);
    QObject::connect(&poll, &QTimer::timeout, [this] {
      for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(w);
        if (!dialog || !dialog->isVisible()) continue;
        std::string name = dialog->metaObject()->className();
        name = QString::fromStdString(name.substr(name.rfind(':') + 1)).toLower().toStdString();
        const bool first = opened.insert(name).second;
        if (first && inside && inside(*dialog)) continue;
        if (dialog->isVisible()) dialog->reject();
      }
    });
    poll.start();
  }
};

// A route of two legs across the sample chart, as Shift + click leaves it.
void MarkRoute(app::FrmChart& window) {
  auto point = [](float lat, float lon) {
    RoutePoint p;
    p.Lat = lat;
    p.Lon = lon;
    p.LatText = LatToText(lat);
    p.LonText = LonToText(lon);
    p.Speed = 5;
    return p;
  };
  auto& route = window.State().passage.Route;
  route.push_back(point(50.70f, -1.30f));
  route.push_back(point(50.65f, -1.20f));
  route.push_back(point(50.60f, -1.10f));
  window.EnableRouteMenus();
}

}  // namespace

// Every dialog of the forms library opens from the main window, through the
// menu entry, key or button a skipper would use. The list of forms is read
// from the forms folder, so a new form that nothing opens fails here.
TEST(MainWindowActions, EveryFormOpensFromTheMainWindow) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  ASSERT_TRUE(loaded.ShownAt(900, 700));
  MarkRoute(window);

  FormWatch watch;
  auto run = [&](const char* action) {
    QAction* a = window.Action(action);
    if (!a) a = window.findChild<QAction*>(action);
    ASSERT_NE(a, nullptr) << action;
    // The user opens the menu first; some entries look at the state then.
    if (auto* menu = qobject_cast<QMenu*>(a->parent())) emit menu->aboutToShow();
    ASSERT_TRUE(a->isEnabled()) << action;
    a->trigger();
    QTest::qWait(50);
  };
  for (const char* entry : {"mnuConfigure", "mnuSetTimeDate", "mnuSelectChartVisually", "mnuMouseWayPoint",
                            "mnuLastRouteResults", "mnuRouteInfo", "mnuConfigureGPS", "mnuConfigureAIS",
                            "mnuCopyComPortDetails", "mnuGPSMonitor", "mnuAISSummary", "mnuArea", "mnuPortList", "mnuAbout",
                            "mnuQuickInstructions", "mnuConverttoGPX", "mnuImport", "mnuExport1", "mnuCompoundExport",
                            "mnuSetLeg", "mnuWindEnter", "mnuWindTrueApp", "mnuWindGribImport", "mnuViewWind",
                            "mnuViewSmartMet", "mnuPolarPlot", "mnuEditPolar", "mnuSailDocs", "mnuCalcCOG", "mnuMOB"})
    run(entry);
  // The outline's editor, once an outline is loaded.
  app::ChartMenus* chartMenus = window.findChild<app::ChartMenus*>();
  ASSERT_NE(chartMenus, nullptr);
  chartMenus->chooseOutline = [&](const std::filesystem::path&) {
    return (tree.folders.DataRoot() / "OutlineData" / "Sample Coast.l40").string();
  };
  run("mnuOutlineLoad");
  run("mnuOutlineEdit");
  // The calculation form, and from it the modification of a leg; a
  // completed calculation brings the results.
  // The clicks run from a timer of their own, so that the watch goes on
  // closing the forms they open.
  watch.inside = [](QDialog& form) {
    auto* calc = qobject_cast<forms::frmcalcroute*>(&form);
    if (!calc) return false;
    QTimer::singleShot(0, calc, [calc] {
      calc->List1->setCurrentRow(0);
      QTest::mouseClick(calc->cmdmodify, Qt::LeftButton);
      QTest::mouseClick(calc->Cmdrteok, Qt::LeftButton);
      if (calc->isVisible()) calc->reject();
    });
    return true;
  };
  run("mnucalcrte");
  // The passage plan of those results (a sweep's report is no route
  // report: the plan waits for the next calculation).
  run("mnuPassagePlan");
  // The departure sweep: a completed sweep brings its results, and from
  // them the text-only list.
  watch.inside = [](QDialog& form) {
    if (auto* sweep = qobject_cast<forms::frmRouteOptDeparture*>(&form)) {
      QTimer::singleShot(0, sweep, [sweep] {
        QTest::mouseClick(sweep->cmdOptimise, Qt::LeftButton);
        if (sweep->isVisible()) sweep->reject();
      });
      return true;
    }
    if (auto* results = qobject_cast<forms::frmOptResults*>(&form)) {
      results->mnuTextList->trigger();
      return true;  // closed by the watch once the list is up
    }
    return false;
  };
  run("mnuOptimiseDeparture");
  QTest::qWait(50);
  watch.inside = nullptr;
  run("mnuDiverRoute");
  // The calculated track as waypoints.
  run("mnuCOGToWayExport");
  // The details of an AIS target: the test aid's report, then F2 at the chart.
  run("mnuDecode21");
  QTest::keyClick(window.Chart()->Viewer(), Qt::Key_F2);
  QTest::qWait(50);

  std::set<std::string> forms;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(KELVANE_SOURCE_DIR) / "forms")) {
    const std::string stem = QString::fromStdString(file.path().stem().string()).toLower().toStdString();
    if (file.path().extension() == ".h" && stem.rfind("frm", 0) == 0) forms.insert(stem);
  }
  for (const std::string& form : forms) EXPECT_TRUE(watch.opened.count(form)) << form << " is not reached";
}
