// The route forms with real widgets over the sample data: a route of three
// points on the meridian of 1 degree west, across the Channel streams of
// the sample chart's diamonds (which run east and west, so the course to
// steer leaves the meridian).
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <functional>

#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "core/positions.h"
#include "core/settings.h"
#include "forms/frmCalcRouteModification.h"
#include "forms/frmcalcroute.h"
#include "forms/frmresults.h"
#include "forms/frmroutehistory.h"
#include "forms/frmrouteinfo.h"
#include "forms/reportlines.h"
#include "passage/routecalc.h"
#include "support/gui_support.h"
#include "support/route_sample.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

// The sample data in a temporary tree, the sample chart's diamonds, and
// the tides of 10 June 2025 (day 161) with the working time 10:00.
struct RouteWorld : ApplicationStarted {
  TempTree tree;
  TideState tides;
  StreamState streams;
  PassageState passage;
  SettingsRecord settings;
  WorkingMoment moment;
  StreamContext ctx;
  RouteWorld() {
    CreateDataTree(tree.folders);
    SeedDataRoot(tree.folders, fs::path(KELVANE_SOURCE_DIR) / "data");
    settings = DefaultSettings(tree.folders);
    ctx.tides = &tides;
    ctx.streams = &streams;
    ctx.programFolder = tree.folders.DataRoot();
    EXPECT_EQ(LoadAreaDiamonds(ctx, "Sample Chart"), "");
    EXPECT_EQ(ReloadTides(ctx, 161, 2025), "");
    moment.WorkingDay = 161;
    moment.WorkingYear = 2025;
    moment.WorkingTime = 10.0f;
    UpdatePortStates(ctx, true, moment.WorkingTime);
    ThreePointRoute(passage);
  }
};

struct Sinks {
  std::vector<std::string> messages, warnings, questions;
  bool answer = false;
  void Attach(forms::frmcalcroute& form) {
    form.showMessage = [this](const std::string& m) { messages.push_back(m); };
    form.showWarning = [this](const std::string& m) { warnings.push_back(m); };
    form.askYesNo = [this](const std::string& q) {
      questions.push_back(q);
      return answer;
    };
  }
};

}  // namespace

TEST(frmcalcroute, ListsTheLegsInThreeLinesAndFillsTheBoxes) {
  RouteWorld w;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  form.show();
  EXPECT_EQ(ListLines(form.List1), kLegLines);
  EXPECT_EQ(form.rtedeptime->text(), "10:00");
  EXPECT_FALSE(form.cmdUseGPS->isEnabled());
  EXPECT_TRUE(form.cmdRouteSpeed->isEnabled());
  EXPECT_FALSE(form.ProgressBar1->isVisible());
  // The factory settings: leeway off, 5 degrees.
  EXPECT_FALSE(form.chkLeeway->isChecked());
  EXPECT_EQ(form.txtLeeway->text(), "5");
  Screenshot(&form, "frmcalcroute");

  // Any of a leg's three lines selects it.
  form.List1->setCurrentRow(5);
  EXPECT_EQ(form.SelectedLeg(), 2);
  EXPECT_EQ(form.txtroutestartname->text(), "Bravo");
  EXPECT_EQ(form.txtroutestartlat->text(), "50.36.00N");
  EXPECT_EQ(form.txtroutestartlong->text(), "001.00.00W");
  EXPECT_EQ(form.txtroutedestname->text(), "Charlie");
  EXPECT_EQ(form.txtroutedestlat->text(), "50.30.00N");
  EXPECT_EQ(form.txtroutespeed->text(), "5");
  EXPECT_EQ(form.txtStoppedFor->text(), "0");
  form.List1->setCurrentRow(0);
  EXPECT_EQ(form.SelectedLeg(), 1);
  EXPECT_EQ(form.txtroutedestname->text(), "Bravo");

  // The departure lists fill the time text.
  form.lsthrs->setCurrentRow(7);
  emit form.lsthrs->itemClicked(form.lsthrs->item(7));
  EXPECT_EQ(form.rtedeptime->text(), "07:00");
  emit form.lstmins->itemClicked(form.lstmins->item(45));
  EXPECT_EQ(form.rtedeptime->text(), "07:45");

  // The list goes to the clipboard as it stands.
  QTest::mouseClick(form.cmdCopy, Qt::LeftButton);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            kLegLines[0] + "\n" + kLegLines[1] + "\n" + kLegLines[2] + "\n" + kLegLines[3] + "\n" + kLegLines[4] +
                "\n" + kLegLines[5]);
}

TEST(frmcalcroute, SpeedForAllLegsAndTheSpeedChecks) {
  RouteWorld w;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  Sinks sinks;
  sinks.Attach(form);

  // Not a speed: refused, nothing changes.
  for (const char* bad : {"", "fast", "-2", "0"}) {
    SCOPED_TRACE(bad);
    sinks.messages.clear();
    form.txtroutespeed->setText(bad);
    QTest::mouseClick(form.cmdRouteSpeed, Qt::LeftButton);
    ASSERT_EQ(sinks.messages.size(), 1u);
    EXPECT_EQ(sinks.messages[0], "Must enter a valid speed");
    EXPECT_EQ(w.passage.Route[1].Speed, 5.0f);
  }

  // 0.5 is taken by the box but refused by the calculation, naming the
  // first pair of waypoints; the form stays open, the stores untouched.
  sinks.messages.clear();
  form.txtroutespeed->setText("0.5");
  QTest::mouseClick(form.cmdRouteSpeed, Qt::LeftButton);
  EXPECT_TRUE(sinks.messages.empty());
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(w.passage.Route[static_cast<std::size_t>(i)].Speed, 0.5f);
  EXPECT_EQ(ListLines(form.List1)[2], "Speed : 0.5 Kn.   Range = 12.0  Bearing = 000°T  ");
  form.show();
  QTest::mouseClick(form.Cmdrteok, Qt::LeftButton);
  ASSERT_EQ(sinks.messages.size(), 1u);
  EXPECT_EQ(sinks.messages[0], "Boat speed below 0.5kn between waypoints 1 and 2\r\nCannot continue - please correct.");
  EXPECT_TRUE(sinks.questions.empty());
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(w.passage.ResultText.empty());

  // 0.51 asks; No stops with no more said.
  sinks.messages.clear();
  form.txtroutespeed->setText("0.51");
  QTest::mouseClick(form.cmdRouteSpeed, Qt::LeftButton);
  QTest::mouseClick(form.Cmdrteok, Qt::LeftButton);
  ASSERT_EQ(sinks.questions.size(), 1u);
  EXPECT_EQ(sinks.questions[0],
            "Boat speed very low between waypoints 1 and 2\r\nDo you wish to continue?\r\n(This may cause problems)");
  EXPECT_TRUE(sinks.messages.empty());
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(w.passage.ResultText.empty());
  EXPECT_TRUE(form.Cmdrteok->isEnabled());

  // 1.0 asks nothing.
  sinks.questions.clear();
  form.txtroutespeed->setText("1.0");
  QTest::mouseClick(form.cmdRouteSpeed, Qt::LeftButton);
  EXPECT_EQ(w.passage.Route[3].Speed, 1.0f);
}

TEST(frmcalcroute, BadDepartureTimes) {
  RouteWorld w;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  Sinks sinks;
  sinks.Attach(form);
  const struct {
    const char* text;
    const char* message;
  } cases[] = {{"1230", "Please enter a valid time i.e. 12:35"},
               {"1:5", "Please enter a valid time i.e. 12:35"},
               {"24:00", "Please enter a valid time"},
               {"12:60", "Please enter a valid time"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    sinks.messages.clear();
    form.rtedeptime->setText(c.text);
    form.Cmdrteok_Click();
    ASSERT_EQ(sinks.messages.size(), 1u);
    EXPECT_EQ(sinks.messages[0], c.message);
    EXPECT_NE(form.result(), QDialog::Accepted);
  }
  EXPECT_TRUE(w.passage.ResultText.empty());
}

TEST(frmcalcroute, ReverseTurnsTheRouteRound) {
  RouteWorld w;
  w.passage.Route[2].Speed = 4;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  form.List1->setCurrentRow(1);
  QTest::mouseClick(form.cmdreverse, Qt::LeftButton);
  EXPECT_EQ(w.passage.Route[1].Name, "Charlie");
  EXPECT_EQ(w.passage.Route[3].Name, "Alpha");
  EXPECT_EQ(w.passage.Route[1].Lat, 50.5f);
  EXPECT_EQ(ListLines(form.List1), (std::vector<std::string>{
                                       "From   :Charlie",
                                       "To      :Bravo",
                                       "Speed : 5 Kn.   Range = 6.0  Bearing = 000°T  ",
                                       "From   :Bravo",
                                       "To      :Alpha",
                                       "Speed : 4 Kn.   Range = 12.0  Bearing = 180°T  ",
                                   }));
  EXPECT_EQ(form.SelectedLeg(), 0);
}

TEST(frmcalcroute, ModifyALegThroughItsForm) {
  RouteWorld w;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  std::vector<std::string> messages;
  form.showMessage = [&](const std::string& m) { messages.push_back(m); };
  form.List1->setCurrentRow(0);
  form.txtroutedestname->setText("Bravo Buoy");

  // The modification form opens with what the boxes hold; a latitude
  // beyond the pole is refused and the form stays; a good one is taken.
  bool sawRefusal = false;
  WhenModal<forms::frmCalcRouteModification>([&](forms::frmCalcRouteModification* m) {
    EXPECT_EQ(m->txtroutedestname->text(), "Bravo Buoy");
    m->txtroutedestlat->setText("91.00.00N");
    QTest::mouseClick(m->cmdAccept, Qt::LeftButton);
    sawRefusal = m->isVisible() && messages.size() == 1 && messages[0] == "Error - Latitude entry";
    m->txtroutedestlat->setText("50.45.00N");
    m->txtStoppedFor->clear();
    QTest::keyClicks(m->txtStoppedFor, "3a0-.");  // only the digits stay
    EXPECT_EQ(m->txtStoppedFor->text(), "30");
    QTest::keyClick(m->txtStoppedFor, Qt::Key_Backspace);
    QTest::keyClicks(m->txtStoppedFor, "5");
    QTest::mouseClick(m->cmdAccept, Qt::LeftButton);
  });
  QTest::mouseClick(form.cmdmodify, Qt::LeftButton);
  EXPECT_TRUE(sawRefusal);
  EXPECT_EQ(w.passage.Route[2].Lat, 50.75f);
  EXPECT_EQ(w.passage.Route[2].Name, "Bravo Buoy");
  EXPECT_EQ(w.passage.Route[2].StopMinutes, 35);
  // The list shows the new leg: 0.35 degrees north, 21 miles.
  EXPECT_EQ(ListLines(form.List1)[1], "To      :Bravo Buoy");
  EXPECT_EQ(ListLines(form.List1)[2], "Speed : 5 Kn.   Range = 21.0  Bearing = 000°T  ");
  EXPECT_EQ(ListLines(form.List1)[5], "Speed : 5 Kn.   Range = 15.0  Bearing = 180°T  ");
  EXPECT_EQ(form.txtStoppedFor->text(), "35");
}

TEST(frmcalcroute, CalculatesAndTheResultsShowTheReport) {
  RouteWorld w;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  Sinks sinks;
  sinks.Attach(form);
  form.show();
  // Leeway on with an empty box: said, and the calculation goes on.
  form.chkLeeway->setChecked(true);
  form.txtLeeway->clear();
  form.rtedeptime->setText("10:00");
  // A close asked for while the legs are worked is refused; the buttons
  // are off meanwhile.
  bool stayedOpen = false, buttonsOff = false;
  form.working = [&](bool on) {
    if (!on) return;
    form.reject();
    stayedOpen = form.isVisible();
    buttonsOff = !form.Cmdrteok->isEnabled() && !form.cmdCancel->isEnabled() && !form.cmdreverse->isEnabled();
  };
  QTest::mouseClick(form.Cmdrteok, Qt::LeftButton);
  EXPECT_TRUE(stayedOpen);
  EXPECT_TRUE(buttonsOff);
  ASSERT_TRUE(form.Outcome().has_value());
  EXPECT_TRUE(form.Outcome()->completed);
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(form.ProgressBar1->value(), 100);
  ASSERT_EQ(sinks.messages.size(), 1u);
  EXPECT_EQ(sinks.messages[0], "You have selected to use leeway but there is no value entered");
  EXPECT_TRUE(sinks.warnings.empty());  // both legs reached at 5 knots

  const std::vector<std::string>& r = w.passage.ResultText;
  ASSERT_GE(r.size(), 26u);
  EXPECT_EQ(r[0], "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE");
  EXPECT_EQ(r[1], "   ");
  EXPECT_EQ(r[2], "Route calculation for 10 Jun 2025");
  // 18 miles, to the rounding of the single-precision latitudes.
  ASSERT_EQ(r[4].substr(0, 17), "Route distance = ");
  EXPECT_NEAR(std::stod(r[4].substr(17)), 18.0, 0.001) << r[4];
  EXPECT_EQ(r[4].substr(r[4].size() - 3), "nm.");
  // The factory variation is 2 degrees west; the leeway box was empty.
  EXPECT_EQ(r[6], "(Leeway of ° and a variation of 2W applied to all legs)");
  EXPECT_EQ(r[8], "   Alpha\tFrom 50.24.00N , 001.00.00W");
  EXPECT_EQ(r[9], "   Bravo\tTo 50.36.00N , 001.00.00W");
  EXPECT_EQ(r[10].substr(0, 23), "Starting at 10:00 arriv");
  EXPECT_EQ(r[11], "Range and bearing between waypoints : 12.0nm @ 000°T ");
  EXPECT_EQ(r[18], "Range and bearing between waypoints : 6.0nm @ 180°T ");
  EXPECT_EQ(r[21], "");
  EXPECT_EQ(r[22], "Reference Port predictions for the areas Tidal Diamonds ");
  EXPECT_EQ(r[24], "Port Name DOVER");
  // The streams of the Channel acted: the course is off the meridian and
  // the samples name their diamonds.
  EXPECT_NE(w.passage.Route[1].CourseToSteer, 0.0f);
  ASSERT_GT(w.passage.RouteStreams.size(), 2u);
  EXPECT_EQ(w.passage.RouteStreams[1].Source.rfind("9999, ", 0), 0u) << w.passage.RouteStreams[1].Source;
  // The tides are back at the working day.
  EXPECT_EQ(w.tides.TideDay, 161);

  // The results form shows the report line by line.
  forms::frmresults results(w.passage);
  results.show();
  EXPECT_TRUE(results.optSummary->isChecked());
  EXPECT_TRUE(results.txtResults->isVisible());
  EXPECT_FALSE(results.grdTidalDetails->isVisible());
  EXPECT_EQ(forms::BoxLines(results.txtResults), r);
  EXPECT_EQ(results.ShownLines(), r);
  Screenshot(&results, "frmresults-summary");

  // Tidal details: a table of the samples where the hour changes...
  results.optTidalDetails->setChecked(true);
  EXPECT_FALSE(results.txtResults->isVisible());
  EXPECT_TRUE(results.grdTidalDetails->isVisible());
  QTableWidget* grid = results.grdTidalDetails;
  ASSERT_EQ(grid->columnCount(), 3);
  EXPECT_EQ(grid->horizontalHeaderItem(0)->text(), "Time");
  EXPECT_EQ(grid->horizontalHeaderItem(1)->text(), "Predicted Position");
  EXPECT_EQ(grid->horizontalHeaderItem(2)->text(), "Stream");
  const std::vector<std::string> hourly = TidalDetailsLines(w.passage, false, false);
  EXPECT_EQ(results.ShownLines(), hourly);
  EXPECT_EQ(grid->rowCount(), static_cast<int>(hourly.size()) - 1);
  // A passage of about 3.6 hours from 10:00 touches the hours 10 to 13.
  EXPECT_GE(grid->rowCount(), 4);
  EXPECT_LE(grid->rowCount(), 5);
  EXPECT_EQ(grid->item(0, 0)->text(), "10:00");
  // ...with the diamonds' names on request...
  results.chKTidalStreams->setChecked(true);
  ASSERT_EQ(grid->columnCount(), 4);
  EXPECT_EQ(grid->horizontalHeaderItem(3)->text(), "Tidal Stream ID");
  EXPECT_EQ(grid->item(0, 3)->text().toStdString(), w.passage.RouteStreams[1].Source);
  // ...and every step with chkDisplayAll.
  results.chkDisplayAll->setChecked(true);
  EXPECT_EQ(grid->rowCount(), static_cast<int>(w.passage.RouteStreams.size()) - 1);
  EXPECT_EQ(results.ShownLines(), TidalDetailsLines(w.passage, true, true));
  Screenshot(&results, "frmresults-details");
  QTest::mouseClick(results.cmdClipboardCopy, Qt::LeftButton);
  EXPECT_EQ(QGuiApplication::clipboard()->text().split('\n').size(), grid->rowCount() + 1);
  // Back to the summary.
  results.optSummary->setChecked(true);
  EXPECT_EQ(results.ShownLines(), r);

  int closed = 0;
  results.onClose = [&] { ++closed; };
  QTest::mouseClick(results.cmdresultsok, Qt::LeftButton);
  EXPECT_EQ(closed, 1);
  EXPECT_FALSE(results.isVisible());
}

TEST(frmrouteinfo, ListsThePointsUnderTheSummary) {
  App();
  PassageState s;
  ThreePointRoute(s);
  s.SummaryText = {"Route calculation for 10 Jun 2025"};
  forms::frmrouteinfo form(s);
  EXPECT_EQ(forms::BoxLines(form.txtRouteInfo), (std::vector<std::string>{
                                                    "Route calculation for 10 Jun 2025",
                                                    "",
                                                    "1\tAlpha\t50.24.00N , 001.00.00W\tSpeed 5 kt.",
                                                    "2\tBravo\t50.36.00N , 001.00.00W\tSpeed 5 kt.",
                                                    "3\tCharlie\t50.30.00N , 001.00.00W",
                                                }));
  form.show();
  QTest::mouseClick(form.frmrteresultsok, Qt::LeftButton);
  EXPECT_EQ(form.result(), QDialog::Accepted);
}


TEST(frmcalcroute, YesToALowSpeedGoesOnAndAnUnreachedLegWarnsAtThatLeg) {
  RouteWorld w;
  // The streams turn in the twenty hours a slow boat takes over the first
  // leg and bring it back near its line; a skipper who asks for a track
  // within a few yards of each mark is told it was not achieved.
  w.settings.AcceptableError = 0.002f;
  forms::frmcalcroute form(w.passage, w.ctx, w.settings, w.moment);
  Sinks sinks;
  sinks.Attach(form);
  sinks.answer = true;
  // The warning of the first leg comes while that leg is worked, before
  // its report lines and long before the second leg's.
  std::size_t reportLines = 0, linesAtWarning = 99;
  form.reportLines = [&](const std::vector<std::string>& lines) { reportLines += lines.size(); };
  form.showWarning = [&](const std::string& m) {
    if (sinks.warnings.empty()) linesAtWarning = reportLines;
    sinks.warnings.push_back(m);
  };
  form.txtroutespeed->setText("0.6");
  QTest::mouseClick(form.cmdRouteSpeed, Qt::LeftButton);
  form.rtedeptime->setText("10:00");
  form.Cmdrteok_Click();
  // One question for the first pair of waypoints is enough: Yes goes on
  // to the next check and on to the calculation.
  ASSERT_GE(sinks.questions.size(), 1u);
  EXPECT_EQ(sinks.questions[0],
            "Boat speed very low between waypoints 1 and 2\r\nDo you wish to continue?\r\n(This may cause problems)");
  ASSERT_TRUE(form.Outcome().has_value());
  ASSERT_TRUE(form.Outcome()->completed) << (sinks.messages.empty() ? "" : sinks.messages.back());
  ASSERT_FALSE(sinks.warnings.empty());
  EXPECT_EQ(sinks.warnings[0].rfind("Unable to achieve leg 1 destination.\r\nCPA = ", 0), 0u) << sinks.warnings[0];
  EXPECT_EQ(linesAtWarning, 0u);
  EXPECT_EQ(reportLines, 14u);
  EXPECT_NE(sinks.warnings[0].find("nm\r\nRoute waypoint modified to last good COG point.\r\n"
                                   "(Caused by boat speed and tidal stream combinations,\r\n"
                                   "modify waypoints, departure time or boat speed.)"),
            std::string::npos);
  EXPECT_EQ(w.passage.ResultText[1],
            "* WARNING * Unable to achieve destination waypoint, examine results before use * WARNING * ");
  // The route itself moved: the second leg starts where the boat got to.
  EXPECT_NE(w.passage.Route[2].Lon, -1.0f);
  EXPECT_EQ(w.passage.Route[2].Lon, w.passage.Route[2].ModLon);
}
