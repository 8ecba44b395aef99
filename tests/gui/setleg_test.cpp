// The single leg as a skipper works it: from the route menu, a start typed,
// a destination picked from the waypoints, OK; the report in the form, the
// track on the chart, and the same report from kelvane-cli leg over the
// same folders and the user's settings.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <ctime>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/overlays.h"
#include "forms/frmSetLeg.h"
#include "forms/reportlines.h"
#include "support/gui_support.h"

namespace kelvane::test {
namespace {

int CountColour(const QImage& image, QColor colour) {
  int n = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixelColor(x, y).rgb() == colour.rgb()) ++n;
  return n;
}

}  // namespace

TEST(SingleLegWindow, MenuFormReportTrackAndTheCliAgree) {
  App();
  TempTree tree;
  ProgramState seeded = SeededState(tree);
  // The user's compass differs from the factory's: 3 degrees west.
  SettingsRecord user = DefaultSettings(tree.folders);
  user.Variation = -3.0f;
  ASSERT_TRUE(WriteSettings(tree.folders.SettingsFile(), user));

  // The window at noon on 15 June 2026, its clock standing.
  app::FrmChart chart(std::move(seeded));
  std::vector<std::string> messages;
  chart.showMessage = [&](const std::string& m) { messages.push_back(m); };
  chart.clock = StandingClock(2026, 6, 15, 12);
  chart.Load();
  chart.Timer1().stop();
  chart.resize(1000, 760);
  chart.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&chart));
  ASSERT_NE(chart.State().settings.UseTides, 0);
  const QColor cog = app::PackedColour(chart.State().settings.COGColour);
  const int cogBefore = CountColour(chart.Chart()->Viewer()->viewport()->grab().toImage(), cog);

  std::vector<std::string> report;
  std::string dest;
  bool gpsShowedNoData = false;
  WhenModal<forms::frmSetLeg>([&](forms::frmSetLeg* form) {
    gpsShowedNoData = form->txtGPSLat->text() == "No data" && form->txtGPSSOG->text() == "No data" &&
                      !form->Cmdgpstostart->isEnabled();
    form->txtStartPos->setText("50.30.00N 001.45.00W");
    const auto found = form->fillist->findItems("Nab Tower", Qt::MatchExactly);
    if (found.size() != 1) {
      ADD_FAILURE() << "Nab Tower is not in the waypoint list";
      form->reject();
      return;
    }
    form->fillist->setCurrentItem(found.front());
    QTest::mouseClick(form->cmdcopytodest, Qt::LeftButton);
    dest = form->txtDestPos->text().toStdString();
    form->Txtboatspeed->setText("5");
    form->chkWaterTrack->setChecked(true);
    form->chkVectorsOn->setChecked(true);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    report = forms::BoxLines(form->txtResult);
    Screenshot(form, "single-leg");
    form->reject();
  });
  chart.Action("mnuSetLeg")->trigger();
  ASSERT_TRUE(messages.empty()) << messages.front();
  EXPECT_TRUE(gpsShowedNoData);
  EXPECT_EQ(dest, "50.40.08N 000.57.15W");

  // The report: the course corrected by the user's 3 degrees west.
  ASSERT_EQ(report, chart.State().passage.ResultText);
  ASSERT_GE(report.size(), 10u);
  EXPECT_EQ(report[0], "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE");
  EXPECT_EQ(report[2], "From 50.30.00N , 001.45.00W");
  EXPECT_EQ(report[3], "To 50.40.08N , 000.57.15W");
  EXPECT_EQ(report.back().rfind("Course to steer ", 0), 0u);

  // The track on the chart, with the water track asked for.
  const PassageState& p = chart.State().passage;
  EXPECT_GT(p.RouteCog.size(), 3u);
  EXPECT_TRUE(p.LegChart.WaterTrack && p.LegChart.Vectors);
  QTest::qWait(50);
  const int cogAfter = CountColour(chart.Chart()->Viewer()->viewport()->grab().toImage(), cog);
  EXPECT_GT(cogAfter - cogBefore, 100);
  Screenshot(&chart, "single-leg-chart");

  // kelvane-cli over the same folders, with the same moment: the same lines.
  QProcess cli;
  cli.setProgram(KELVANE_CLI);
  cli.setArguments({"--data-root", QString::fromStdString(tree.folders.DataRoot().string()), "--user-folder",
                    QString::fromStdString(tree.folders.userFolder.string()), "--pictures-folder",
                    QString::fromStdString(tree.folders.picturesFolder.string()), "leg", "--from",
                    "50.30.00N 001.45.00W", "--to", QString::fromStdString(dest), "--speed", "5", "--at",
                    "2026-06-15 12:00"});
  cli.start();
  ASSERT_TRUE(cli.waitForFinished(120000));
  const std::string out = cli.readAllStandardOutput().toStdString();
  const std::string err = cli.readAllStandardError().toStdString();
  ASSERT_EQ(cli.exitCode(), 0) << err;
  EXPECT_EQ(err, "Settings file: " + tree.folders.SettingsFile().string() + "\n");
  std::string window;
  for (const std::string& line : report) window += line + "\n";
  EXPECT_EQ(out, window);
  chart.close();
}

}  // namespace kelvane::test
