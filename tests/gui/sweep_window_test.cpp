// The departure sweep from the route menu over the sample data: a sweep
// cancelled part way, and a completed one whose results pick a row.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/mainwindow.h"
#include "app/passageplanpdf.h"
#include "forms/frmOptResults.h"
#include "forms/frmRouteOptDeparture.h"
#include "passage/departuresweep.h"
#include "support/gui_support.h"
#include "support/route_sample.h"

using namespace kelvane;
using namespace kelvane::test;

namespace {

// The results form after a sweep of the slot from the route menu.
forms::frmOptResults* SweepFromTheMenu(app::FrmChart& chart, int slot) {
  WhenModal<forms::frmRouteOptDeparture>([slot](forms::frmRouteOptDeparture* form) {
    form->Options[static_cast<std::size_t>(slot - 1)]->setChecked(true);
    QTest::mouseClick(form->cmdOptimise, Qt::LeftButton);
  });
  chart.Action("mnuOptimiseDeparture")->trigger();
  return chart.findChild<forms::frmOptResults*>();
}

}  // namespace

// Cancel is honoured at the next leg: with two legs an hour, a Cancel
// clicked as the second hour starts stops it before any of its legs is
// worked, and the route's results stay as they were.
TEST(MainWindowSweep, CancelStopsAtTheNextLegAndKeepsTheResults) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  chart.show();
  ThreePointRoute(chart.State().passage);
  chart.State().passage.ResultText = {"the report of an earlier calculation"};
  chart.EnableRouteMenus();
  ASSERT_TRUE(chart.Action("mnuOptimiseDeparture")->isEnabled());

  int pumps = 0, progressAtCancel = -1;
  bool timerHeld = false;
  std::optional<SweepVerdict> verdict;
  QString label;
  WhenModal<forms::frmRouteOptDeparture>([&](forms::frmRouteOptDeparture* form) {
    EXPECT_EQ(ListLines(form->List1), kLegLines);
    EXPECT_EQ(form->Options[2]->text(), "13:00hrs to 19:00 hrs");
    form->Options[4]->setChecked(true);  // "Full 24 hours"
    auto pump = form->pumpEvents;
    form->pumpEvents = [&, form, pump] {
      pump();
      timerHeld = !chart.Timer1().isActive();
      if (++pumps == 3) {  // hour 01:00, its first leg
        progressAtCancel = form->ProgressBar1->value();
        QTest::mouseClick(form->cmdrtecancel, Qt::LeftButton);
      }
    };
    QTest::mouseClick(form->cmdOptimise, Qt::LeftButton);
    verdict = form->Outcome()->verdict;
    label = form->lblProgress->text();
    Screenshot(form, "optimise_departure");
    EXPECT_TRUE(form->isVisible());  // the first Cancel stops the sweep only
    QTest::mouseClick(form->cmdrtecancel, Qt::LeftButton);
  });
  chart.Action("mnuOptimiseDeparture")->trigger();
  EXPECT_EQ(pumps, 3);
  EXPECT_EQ(progressAtCancel, 100 * 1 / 24);  // one row of 24 done
  EXPECT_EQ(verdict, SweepVerdict::Cancelled);
  EXPECT_EQ(label, "Cancelled");
  EXPECT_TRUE(timerHeld);
  EXPECT_TRUE(chart.Timer1().isActive());
  EXPECT_EQ(chart.State().passage.ResultText, std::vector<std::string>{"the report of an earlier calculation"});
  EXPECT_EQ(chart.findChild<forms::frmOptResults*>(), nullptr);
  EXPECT_EQ(chart.State().tides.TideDay, chart.State().moment.WorkingDay);
  EXPECT_TRUE(messages.empty());
}

TEST(MainWindowSweep, ResultsMarkAndPickARowAndCopy) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  chart.show();
  ThreePointRoute(chart.State().passage);
  chart.EnableRouteMenus();
  forms::frmOptResults* results = SweepFromTheMenu(chart, 4);
  ASSERT_NE(results, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(results));
  const PassageState& s = chart.State().passage;
  ASSERT_GE(s.ResultText.size(), 11u);
  EXPECT_EQ(s.ResultText[4], "Depart\tArrive\tTime Taken\tEffective Speed\tGround Distance\tWater Distance");
  EXPECT_EQ(s.ResultText[5].substr(0, 6), "18:00\t");

  // Six hours, 18:00 to 23:00, each row a line of the report.
  ASSERT_EQ(results->lstResults->count(), 6);
  ASSERT_EQ(results->Rows().size(), 6u);
  EXPECT_EQ(results->Rows().front().Depart, 18.0f);
  EXPECT_EQ(results->Rows().back().Depart, 23.0f);
  EXPECT_EQ(results->lstResults->item(5)->text().toStdString().substr(0, 5), "23:00");

  // A click on a row marks its hour.
  QListWidget* list = results->lstResults;
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(2)).center());
  EXPECT_EQ(results->MarkedRow(), 2);
  // The mouse at the graph's left and right ends picks the first and last hours.
  QWidget* graph = results->pctResults;
  auto moveTo = [graph](int x) {
    const QPointF at(x, graph->height() / 2);
    QMouseEvent move(QEvent::MouseMove, at, graph->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(graph, &move);
  };
  moveTo(graph->width() - 25);
  EXPECT_EQ(list->currentRow(), 5);
  EXPECT_EQ(results->MarkedRow(), 5);
  moveTo(57);
  EXPECT_EQ(list->currentRow(), 0);
  Screenshot(results, "optimise_results");

  // The pop-up's courses are true bearings, one a leg.
  const std::vector<std::string> ctsLines = results->PopUpLines();
  ASSERT_EQ(ctsLines.size(), 4u);
  EXPECT_EQ(ctsLines[0], "Depart 18:00 - courses to steer, degrees TRUE");
  EXPECT_EQ(ctsLines[2].substr(0, 6), "Leg 1\t");
  EXPECT_EQ(ctsLines[3].substr(ctsLines[3].size() - 3), "°T");
  results->mnuPopUpCopyAsText->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().toStdString().substr(0, 13), "Depart 18:00 ");

  // The copies: everything, and the rows selected under the header.
  results->mnuCopyAll->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().toStdString().substr(0, 62), s.ResultText[0]);
  list->clearSelection();
  list->item(1)->setSelected(true);
  list->item(3)->setSelected(true);
  results->mnuCopySelected->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            s.ResultText[4] + "\n" + s.ResultText[6] + "\n" + s.ResultText[8]);
  EXPECT_TRUE(messages.empty());
  results->close();

  // The six hours stay with the route for the passage plan's graph; the
  // sweep's report is no route report, so the legs' plan records go, and a
  // changed route takes the hours with it.
  ASSERT_EQ(s.SweptHours.size(), 6u);
  EXPECT_EQ(s.SweptHours.back(), (SweptHour{23.0f, results->Rows().back().TimeTaken}));
  EXPECT_TRUE(s.LegResults.empty());
  EXPECT_FALSE(app::PassagePlanDepartureGraph(s, {600, 300}).isNull());
  ClearLegResults(chart.State().passage);
  EXPECT_TRUE(app::PassagePlanDepartureGraph(s, {600, 300}).isNull());
}
