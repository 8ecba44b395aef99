// Man overboard as a skipper meets it: one key on the chart, with no route
// and no GPS fix, opens the casualty's form at the centre of the view; OK
// puts the MOB mark and its label on the chart at the predicted position
// and her drift as the calculated track.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/mainwindow.h"
#include "app/mainwindow_layers.h"
#include "forms/frmCalcCOG.h"
#include "forms/frmCalcMOB.h"
#include "passage/singleleg.h"
#include "support/gui_support.h"

namespace kelvane::test {

TEST(DriftWindow, TheMobKeyMarksTheCasualtyWithoutARouteOrAFix) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  ASSERT_TRUE(loaded.ShownAt(900, 700));
  // A key reaches its shortcut only in the active window, as the skipper's
  // window is when the key is hit (a bare X server activates nothing by
  // itself).
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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
    Screenshot(form, "man_overboard");
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
  Screenshot(&window, "casualty_display");

  // Course over ground from the route menu: a boat on 090 magnetic from the
  // casualty's start for half an hour; the report's first course line
  // names the heading as typed.
  window.EnableRouteMenus();
  std::vector<std::string> cogLines;
  WhenModal<forms::frmCalcCOG>([&](forms::frmCalcCOG* form) {
    form->txtStartPos->setText(QString::fromStdString(start));
    form->Txtboatspeed->setText("5");
    form->txtBearing->setText("90");
    form->txtDuration->setText("0:30");
    form->cmdOK->click();
    if (form->Outcome()) cogLines = form->Outcome()->lines;
    Screenshot(form, "course_over_ground");
    form->reject();
  });
  QAction* cog = window.Action("mnuCalcCOG");
  cog->setEnabled(true);
  cog->trigger();
  ASSERT_FALSE(cogLines.empty());
  EXPECT_EQ(window.State().passage.ResultText, cogLines);
  EXPECT_EQ(window.State().passage.RouteCog.size(), 8u);
}

}  // namespace kelvane::test
