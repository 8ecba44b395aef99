// The dive route from the main window's route menu: the form lists the
// legs, a dive time typed for a stop goes to that stop, and OK brings the
// report in the results form and the track on the chart.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include "app/mainwindow.h"
#include "forms/frmDiverRoute.h"
#include "forms/frmresults.h"
#include "forms/reportlines.h"
#include "support/gui_support.h"
#include "support/route_sample.h"

using namespace kelvane;
using namespace kelvane::test;

TEST(MainWindowDiveRoute, DiveTimeTypedThenOkShowsTheReport) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  chart.show();
  messages.clear();
  QAction* item = chart.Action("mnuDiverRoute");
  ASSERT_NE(item, nullptr);
  auto* menu = qobject_cast<QMenu*>(item->parent());
  ASSERT_NE(menu, nullptr);
  emit menu->aboutToShow();
  EXPECT_FALSE(item->isEnabled());  // no route yet
  // Two legs of 7.5 miles north at 7.5 knots: an hour each.
  PassageState& route = chart.State().passage;
  route.Route.push_back(Point(50.0f, 0.0f, "Alpha", 7.5f));
  route.Route.push_back(Point(50.125f, 0.0f, "Bravo", 7.5f));
  route.Route.push_back(Point(50.25f, 0.0f, "Charlie", 7.5f));
  emit menu->aboutToShow();
  ASSERT_TRUE(item->isEnabled());

  bool listed = false;
  WhenModal<forms::frmDiverRoute>([&](forms::frmDiverRoute* form) {
    listed = ListLines(form->List1).at(2) == "Speed : 7.5 Kn.   Range = 7.5  Bearing = 000°T  ";
    form->rtedeptime->setText("08:00");
    form->List1->setCurrentRow(0);  // leg 1: its stop is Bravo
    form->txtDiveTime->selectAll();
    QTest::keyClicks(form->txtDiveTime, "4x0");  // the letter is dropped
    Screenshot(form, "dive_route");
    QTest::mouseClick(form->Cmdrteok, Qt::LeftButton);
  });
  item->trigger();
  EXPECT_TRUE(listed);
  EXPECT_TRUE(messages.empty()) << messages.front();
  const PassageState& s = chart.State().passage;
  EXPECT_EQ(s.Route[2].StopMinutes, 40);
  ASSERT_EQ(s.ResultText.size(), 22u);
  // Bravo at 09:00, away at 09:40 after the dive, Charlie at 10:40.
  EXPECT_EQ(s.ResultText[10], "Starting at 08:00 arriving at 09:00");
  EXPECT_EQ(s.ResultText[11], "Dive duration 40 minutes");
  EXPECT_EQ(s.ResultText[12], "Departing at 09:40");
  EXPECT_EQ(s.ResultText[18], "Starting at 09:40 arriving at 10:40");
  EXPECT_EQ(s.ResultText[3], "Departing 08:00, Passage time = 02Hrs 40Min ");
  EXPECT_GT(s.RouteCog.size(), 2u);

  auto* results = chart.findChild<forms::frmresults*>();
  ASSERT_NE(results, nullptr);
  EXPECT_TRUE(results->isVisible());
  EXPECT_EQ(forms::BoxLines(results->txtResults), s.ResultText);
  QTest::mouseClick(results->cmdresultsok, Qt::LeftButton);
  EXPECT_EQ(chart.State().tides.TideDay, chart.State().moment.WorkingDay);
}
