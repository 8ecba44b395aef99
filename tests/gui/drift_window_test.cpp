// Man overboard as a skipper meets it: one key on the chart, with no route
// and no GPS fix, opens the casualty's form at the centre of the view; OK
// puts the MOB mark and its label on the chart at the predicted position
// and her drift as the calculated track.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/mainwindow.h"
#include "app/mainwindow_layers.h"
#include "forms/frmCalcMOB.h"
#include "passage/singleleg.h"
#include "support/gui_support.h"

namespace kelvane::test {

TEST(DriftWindow, TheMobKeyMarksTheCasualtyWithoutARouteOrAFix) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  ASSERT_TRUE(loaded.ShownAt(900, 700));
  ASSERT_EQ(RouteCount(window.State().passage), 0);
  const ViewCorners v = window.Chart()->Corners();
  const std::string centre = PositionEntryText((v.ViewTopLat + v.ViewBottomLat) / 2.0f,
                                               (v.ViewLeftLon + v.ViewRightLon) / 2.0f);

  std::string start, gpsCaption;
  bool gpsEnabled = true;
  std::optional<DriftOutcome> outcome;
  WhenModal<forms::frmCalcMOB>([&](forms::frmCalcMOB* form) {
    start = form->txtStartPos->text().toStdString();
    gpsEnabled = form->Cmdgpstostart->isEnabled();
    gpsCaption = form->Cmdgpstostart->text().toStdString();
    form->txtDuration->setText("0.5");
    form->cmdOK->click();
    outcome = form->Outcome();
    form->reject();
  });
  QTest::keyClick(window.Chart()->Viewer(), Qt::Key_F7);
  ASSERT_TRUE(WaitUntil([&] { return outcome.has_value(); }));
  EXPECT_EQ(start, centre);
  EXPECT_FALSE(gpsEnabled);
  EXPECT_EQ(gpsCaption, "No GPS fix");
  ASSERT_EQ(outcome->verdict, DriftVerdict::Done) << outcome->message;

  const ChartMarks& marks = window.State().marks;
  EXPECT_TRUE(marks.MOBSet);
  EXPECT_EQ(marks.MOBLat, outcome->run.End.lat);
  EXPECT_EQ(marks.MOBLon, outcome->run.End.lon);
  const QString label = QString::fromStdString("MOB Position " + LatToText(marks.MOBLat) + " " + LonToText(marks.MOBLon));
  EXPECT_TRUE(WaitUntil([&] { return window.Layers().lblMOB->text() == label; }))
      << window.Layers().lblMOB->text().toStdString();
  EXPECT_TRUE(window.Layers().lblMOB->isVisible());
  // Half an hour at five minutes a step: seven steps after the start.
  EXPECT_EQ(window.State().passage.RouteCog.size(), 8u);
  EXPECT_EQ(window.State().passage.ResultText, outcome->lines);
}

}  // namespace kelvane::test
