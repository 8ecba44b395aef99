// The sailing legs as a skipper meets them: the route form's tack button,
// its wind button opening the leg-speed form, a double click on a leg that
// gives the leg its speed from the sample polar and its tack, and the reset
// to the vessel's speed that keeps the tacks.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "app/mainwindow.h"
#include "core/positions.h"
#include "forms/frmcalcroute.h"
#include "forms/frmWind.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;

namespace {

// A double click as the window system delivers it: a click, then the
// double-click event (QTest's own sends the second alone, which a list
// takes for a fresh press).
void DoubleClickRow(QListWidget* list, int row) {
  const QPoint at = list->visualItemRect(list->item(row)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

}  // namespace

TEST(SailingForms, RouteFormTacksAndLegSpeedsFromTheWind) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  ASSERT_TRUE(loaded.ShownAt(900, 700));
  // Due north, then due east; the working wind is the one restored with the
  // data tree, from 290.
  auto point = [](const char* name, float lat, float lon) {
    RoutePoint p;
    p.Name = name;
    p.Lat = lat;
    p.Lon = lon;
    p.LatText = LatToText(lat);
    p.LonText = LonToText(lon);
    p.Speed = 5;
    return p;
  };
  ProgramState& state = window.State();
  state.passage.Route.push_back(point("Start", 50.70f, -1.30f));
  state.passage.Route.push_back(point("North", 50.80f, -1.30f));
  state.passage.Route.push_back(point("East", 50.80f, -1.15f));
  // The factory settings ask for GRIB winds; no file has been imported.
  ASSERT_EQ(state.settings.UseSmartMet, -1);
  window.EnableRouteMenus();
  ASSERT_FLOAT_EQ(state.workingWind.direction, 290.0f);

  bool windRan = false, calcRan = false;
  WhenModal<forms::frmcalcroute>([&](forms::frmcalcroute* calc) {
    calcRan = true;
    // 290 lies 290 degrees clockwise of the first leg's bow and 200 of the
    // second's: both on the port side.
    ASSERT_TRUE(calc->cmdTack->isEnabled());
    QTest::mouseClick(calc->cmdTack, Qt::LeftButton);
    std::vector<std::string> lines = ListLines(calc->List1);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_TRUE(lines[2].ends_with("°T  Port Tack")) << lines[2];
    EXPECT_TRUE(lines[5].ends_with("°T  Port Tack")) << lines[5];

    WhenModal<forms::frmWind>([&](forms::frmWind* wind) {
      windRan = true;
      EXPECT_EQ(wind->lblInfo->text(), "Double click to calculate the leg speed from the polar plot.\n"
                                       "Configured to use GRIB - Ensure you have current data");
      EXPECT_EQ(wind->lstSetUps->currentRow(), 0) << "the set-up kept in WindConfig.cfg";
      wind->txtWindSpeed->setText("13");
      wind->txtWindDir->setText("173");
      // No forecast covers the legs: the typed wind is taken.
      // Leg 2 heads 090: the wind is 83 off the starboard bow. Rows 80/85,
      // Wind12kn 5.3/5.5 and wind14kn 5.7/5.9: 5.3 + 0.2 / 5 x 3 = 5.42,
      // 5.7 + 0.2 / 5 x 3 = 5.82, (5.82 - 5.42) x 1 / 2 + 5.42 = 5.62.
      DoubleClickRow(wind->List1, 4);
      std::vector<std::string> legs = ListLines(wind->List1);
      ASSERT_EQ(legs.size(), 6u);
      EXPECT_TRUE(legs[5].starts_with("Speed : 5.6 Kn.")) << legs[5];
      EXPECT_TRUE(legs[5].ends_with("Bearing = 090°T  Starboard Tack")) << legs[5];
      EXPECT_EQ(wind->lblWindDir->text(), "Wind Direction for Route Leg 2 Set To 173°");
      // Leg 1 heads 000: 173 off. Rows 170/175 falling: 4.7 - 0.2 / 5 x 3
      // = 4.58, 5.0 - 0.2 / 5 x 3 = 4.88, (4.88 - 4.58) / 2 + 4.58 = 4.73.
      DoubleClickRow(wind->List1, 0);
      legs = ListLines(wind->List1);
      EXPECT_TRUE(legs[2].starts_with("Speed : 4.7 Kn.")) << legs[2];
      EXPECT_TRUE(legs[2].ends_with("Starboard Tack")) << legs[2];
      Screenshot(wind, "sailing-legs");

      // Back to the vessel's speed, the tacks kept.
      QTest::mouseClick(wind->cmdReset, Qt::LeftButton);
      legs = ListLines(wind->List1);
      EXPECT_TRUE(legs[2].starts_with("Speed : 5 Kn.") && legs[2].ends_with("Starboard Tack")) << legs[2];
      EXPECT_TRUE(legs[5].starts_with("Speed : 5 Kn.") && legs[5].ends_with("Starboard Tack")) << legs[5];
      wind->accept();
    });
    QTest::mouseClick(calc->cmdWind, Qt::LeftButton);
    lines = ListLines(calc->List1);
    EXPECT_TRUE(lines[5].ends_with("Starboard Tack")) << lines[5];
    calc->reject();
  });
  window.Action("mnucalcrte")->trigger();
  EXPECT_TRUE(calcRan);
  EXPECT_TRUE(windRan);
  // The typed wind is the working wind now, kept in WindConfig.cfg.
  EXPECT_FLOAT_EQ(state.workingWind.direction, 173.0f);
  EXPECT_EQ(ReadWindConfig(state.folders.WindConfigFile()).RouteWindDir, "173");
  EXPECT_EQ(state.passage.Route[1].Tack, 2);
  EXPECT_FLOAT_EQ(state.passage.Route[1].Speed, 5.0f);
  // Each leg fell back on the typed wind, and said so.
  EXPECT_EQ(messages, std::vector<std::string>(2, "Wind file data coverage incorrect - setting default values"));
}
