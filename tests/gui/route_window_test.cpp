// The route items of the main window over the sample data: a route too
// short to work, then the whole round of the route form, the results, the
// last results and the point list, with and without a GPS fix.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <fstream>

#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "forms/frmPassagePlan.h"
#include "forms/frmcalcroute.h"
#include "forms/frmresults.h"
#include "forms/frmroutehistory.h"
#include "forms/frmrouteinfo.h"
#include "forms/reportlines.h"
#include "passage/routecalc.h"
#include "support/gui_support.h"
#include "support/route_sample.h"
#include "support/tempdir.h"

using namespace kelvane;
using namespace kelvane::test;

TEST(MainWindowRoute, FewerThanTwoPointsIsRefused) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  messages.clear();
  // No route: the item is off; should it be run all the same, it refuses.
  EXPECT_FALSE(chart.Action("mnucalcrte")->isEnabled());
  chart.mnucalcrte_Click();
  // The first point puts the route items on (as the chart does when a
  // point is marked); one point is still no leg.
  chart.State().passage.Route.push_back(Point(50.4f, -1.0f, "Alpha", 5));
  chart.EnableRouteMenus();
  ASSERT_TRUE(chart.Action("mnucalcrte")->isEnabled());
  chart.Action("mnucalcrte")->trigger();
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0], RouteTooShortMessage());
  EXPECT_EQ(messages[1], RouteTooShortMessage());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(MainWindowRoute, CalculateThenResultsThenLastResults) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  chart.show();
  messages.clear();
  ThreePointRoute(chart.State().passage);
  chart.EnableRouteMenus();  // as the chart does when the points are marked
  int redraws = 0;
  QObject::connect(&chart, &app::FrmChart::RedrawRequested, [&] { ++redraws; });

  bool formSeen = false, timerHeld = false;
  WhenModal<forms::frmcalcroute>([&](forms::frmcalcroute* form) {
    formSeen = ListLines(form->List1) == kLegLines;
    // The idle timer is held while the legs are worked, and only then.
    EXPECT_TRUE(chart.Timer1().isActive());
    auto held = form->working;
    form->working = [&, held](bool on) {
      held(on);
      if (on) timerHeld = !chart.Timer1().isActive();
    };
    form->rtedeptime->setText("06:30");
    form->chkLeeway->setChecked(false);
    QTest::mouseClick(form->Cmdrteok, Qt::LeftButton);
  });
  chart.Action("mnucalcrte")->trigger();
  EXPECT_TRUE(formSeen);
  EXPECT_TRUE(timerHeld);
  EXPECT_TRUE(chart.Timer1().isActive());
  EXPECT_TRUE(messages.empty()) << messages.front();
  EXPECT_GE(redraws, 1);
  const int redrawsAfterFirst = redraws;
  const PassageState& s = chart.State().passage;
  ASSERT_GE(s.ResultText.size(), 22u);
  EXPECT_EQ(s.ResultText[3].substr(0, 13), "Depart 06:30,");
  EXPECT_GT(s.RouteCog.size(), 2u);
  // The leg lines are in the window's report box too, and it is on show.
  auto* report = chart.findChild<QPlainTextEdit*>("txtRouteReport");
  ASSERT_NE(report, nullptr);
  EXPECT_TRUE(report->isVisible());
  EXPECT_EQ(forms::BoxLines(report), std::vector<std::string>(s.ResultText.begin() + 7, s.ResultText.begin() + 21));
  EXPECT_EQ(s.ResultText[7].substr(0, 6), "Steer ");
  EXPECT_EQ(chart.State().moment.TideDay, chart.State().moment.WorkingDay);

  // The results form is up, not modal, with the report.
  auto* results = chart.findChild<forms::frmresults*>();
  ASSERT_NE(results, nullptr);
  EXPECT_TRUE(results->isVisible());
  EXPECT_EQ(forms::BoxLines(results->txtResults), s.ResultText);
  // The passage plan from the results, saved as a PDF under the name given
  // (".pdf" added); the route menu offers it too now that results exist.
  QMetaObject::invokeMethod(chart.Action("mnuPassagePlan")->parent(), "aboutToShow");
  EXPECT_TRUE(chart.Action("mnuPassagePlan")->isEnabled());
  QTest::mouseClick(results->cmdPassagePlan, Qt::LeftButton);
  auto* plan = chart.findChild<forms::frmPassagePlan*>();
  ASSERT_NE(plan, nullptr);
  Screenshot(plan, "passage_plan");
  EXPECT_NE(plan->txtPlan->toPlainText().toStdString().find("  Steer " + s.ResultText[7].substr(6, 6)),
            std::string::npos);
  TempDir out;
  plan->choosePdfFile = [&](const QString&, const QString&) { return QString::fromStdString((out.path / "plan").string()); };
  QTest::mouseClick(plan->cmdSavePdf, Qt::LeftButton);
  EXPECT_TRUE(messages.empty()) << messages.front();
  std::ifstream pdf(out.path / "plan.pdf", std::ios::binary);
  std::string magic(5, '\0');
  pdf.read(magic.data(), 5);
  EXPECT_EQ(magic, "%PDF-");
  plan->close();
  QTest::mouseClick(results->cmdresultsok, Qt::LeftButton);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(chart.findChild<forms::frmresults*>(), nullptr);
  EXPECT_EQ(chart.State().tides.TideDay, chart.State().moment.WorkingDay);

  // The last results again, summary on top.
  chart.Action("mnuLastRouteResults")->trigger();
  auto* history = chart.findChild<forms::frmroutehistory*>();
  ASSERT_NE(history, nullptr);
  EXPECT_EQ(forms::BoxLines(history->txtResults), s.ResultText);
  EXPECT_EQ(forms::BoxLines(history->txtSummary), s.SummaryText);
  ASSERT_EQ(s.SummaryText.size(), 5u);
  EXPECT_EQ(s.SummaryText[2].substr(0, 18), "Route distance = 1");
  history->close();
  // The point list opens from the route menu once the menu has looked at
  // the route.
  QAction* info = chart.findChild<QAction*>("mnuRouteInfo");
  ASSERT_NE(info, nullptr);
  QMetaObject::invokeMethod(info->parent(), "aboutToShow");
  ASSERT_TRUE(info->isEnabled());
  info->trigger();
  auto* routeInfo = chart.findChild<forms::frmrouteinfo*>();
  ASSERT_NE(routeInfo, nullptr);
  EXPECT_TRUE(routeInfo->isVisible());
  routeInfo->close();

  // A cancelled form leaves the results and still redraws (a reversed
  // route shows at once).
  WhenModal<forms::frmcalcroute>([&](forms::frmcalcroute* form) {
    QTest::mouseClick(form->cmdreverse, Qt::LeftButton);
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
  });
  chart.Action("mnucalcrte")->trigger();
  EXPECT_GT(redraws, redrawsAfterFirst);
  EXPECT_EQ(s.Route[1].Name, "Charlie");
  EXPECT_TRUE(s.ResultText.empty());  // the old direction's report is gone

  // With a fix the form's GPS line shows it, and "Use GPS Position" puts
  // the boat at the first point and, with "Use SOG", its speed on every leg.
  OwnShipState& own = chart.Instruments()->State().own;
  own.GPSValid = -1;
  own.GPSLat = 50.45f;
  own.GPSLong = -1.05f;
  own.GPSSpeed = 6.2f;
  std::string gpsLine;
  bool buttonOn = false;
  WhenModal<forms::frmcalcroute>([&](forms::frmcalcroute* form) {
    gpsLine = form->lblGPS->text().toStdString();
    buttonOn = form->cmdUseGPS->isEnabled() && form->chkUseSOG->isEnabled();
    form->chkUseSOG->setChecked(true);
    QTest::mouseClick(form->cmdUseGPS, Qt::LeftButton);
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
  });
  chart.Action("mnucalcrte")->trigger();
  EXPECT_EQ(gpsLine, "50.27.00N  001.03.00W  SOG = 6.2");
  EXPECT_TRUE(buttonOn);
  EXPECT_EQ(s.Route[1].Lat, 50.45f);
  EXPECT_EQ(s.Route[1].Lon, -1.05f);
  EXPECT_EQ(s.Route[1].Name, "GPS Position");
  EXPECT_EQ(s.Route[1].LatText, "50.27.00N");
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(s.Route[static_cast<std::size_t>(i)].Speed, 6.2f);
  // Without a fix the button is off and the line says so.
  own.GPSValid = 0;
  WhenModal<forms::frmcalcroute>([&](forms::frmcalcroute* form) {
    gpsLine = form->lblGPS->text().toStdString();
    buttonOn = form->cmdUseGPS->isEnabled();
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
  });
  chart.Action("mnucalcrte")->trigger();
  EXPECT_EQ(gpsLine, "No GPS fix");
  EXPECT_FALSE(buttonOn);
  chart.close();
}
