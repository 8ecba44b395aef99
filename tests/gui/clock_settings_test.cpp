// The main window's clock, its settings round and its tide and help
// dialogs, as a user meets them: a real window over a seeded data tree, the
// menus triggered, the dialogs answered, the settings file read back.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QMouseEvent>
#include <QTextBrowser>
#include <ctime>
#include <fstream>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "core/settings.h"
#include "forms/frmAbout.h"
#include "forms/frmPortName.h"
#include "forms/frmTidesSeaArea.h"
#include "forms/frmconfigure.h"
#include "forms/frmtimdat.h"
#include "support/gui_support.h"
#include "support/pty.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

// A clock reading of the local calendar, with its day of the year.
std::tm At(int year, int month, int day, int hour, int minute) {
  std::tm t{};
  t.tm_year = year - 1900;
  t.tm_mon = month - 1;
  t.tm_mday = day;
  t.tm_hour = hour;
  t.tm_min = minute;
  timegm(&t);  // fills the day of the year
  return t;
}

struct PortNow {
  int slot, minutes;
  bool operator==(const PortNow&) const = default;
};
PortNow FirstPort(app::FrmChart& chart) {
  const auto& states = chart.State().tides.PortTideState;
  return states.empty() ? PortNow{99, 99} : PortNow{states[0].Slot, states[0].Minutes};
}

std::vector<std::pair<float, float>> Arrows(app::FrmChart& chart) {
  std::vector<std::pair<float, float>> arrows;
  for (const auto& s : chart.State().streams.StreamNow) arrows.emplace_back(s.Rate, s.Direction);
  return arrows;
}

// A minute of the idle timer's 100-millisecond ticks, and one more: the
// count passes 600 on the 601st.
void IdleMinute(app::FrmChart& chart, int ticks = 601) {
  for (int i = 0; i < ticks; ++i) chart.Timer1_Timer();
}

}  // namespace

TEST(MainWindowClock, OnRealTimeTheMinuteMovesThePortsAndTheStreamArrows) {
  TempTree tree;
  app::FrmChart chart(SeededState(tree));
  std::string message;
  chart.showMessage = [&](const std::string& m) { message = m; };
  std::tm now = At(2026, 3, 15, 10, 1);
  chart.clock = [&] { return now; };
  chart.Load();
  chart.Timer1().stop();  // its ticks are counted here
  ASSERT_FALSE(chart.State().streams.StreamNow.empty());
  const PortNow atTen = FirstPort(chart);
  const auto arrowsAtTen = Arrows(chart);

  now = At(2026, 3, 15, 10, 2);
  IdleMinute(chart, 600);
  EXPECT_EQ(FirstPort(chart), atTen);  // not yet a minute of ticks
  IdleMinute(chart, 1);
  EXPECT_NE(FirstPort(chart), atTen);  // the same day: no new curves, but the state moved
  EXPECT_FLOAT_EQ(chart.State().moment.WorkingTime, 10.0f + 2.0f / 60.0f);

  // Three hours on, a minute's ticks turn the arrows with the tide.
  now = At(2026, 3, 15, 13, 1);
  IdleMinute(chart);
  EXPECT_NE(Arrows(chart), arrowsAtTen);
  EXPECT_EQ(message, "");
  chart.close();
}

TEST(MainWindowClock, UserTimeSurvivesThePollingLoopOfAnAttachedPort) {
  if (std::system("command -v socat >/dev/null 2>&1") != 0) GTEST_SKIP() << "socat is not installed";
  TempTree tree;
  app::FrmChart chart(SeededState(tree));
  std::string message;
  chart.showMessage = [&](const std::string& m) { message = m; };
  std::tm now = At(2026, 3, 15, 15, 0);
  chart.clock = [&] { return now; };
  chart.Load();

  // The user sets 03:30 on the date form.
  WhenModal<forms::FrmTimDat>([](forms::FrmTimDat* form) {
    form->findChild<QLineEdit*>("txtSelTime")->setText("03:30");
    form->cmdOK_Click();
  });
  chart.Action("mnuSetTimeDate")->trigger();
  ASSERT_TRUE(chart.State().moment.userTimeSet);
  ASSERT_FLOAT_EQ(chart.State().moment.WorkingTime, 3.5f);
  const PortNow atUserTime = FirstPort(chart);

  auto dir = kelvane::testing::MakeTempDir("kelvane-clock");
  kelvane::testing::SocatPair pair(dir, "gps");
  ASSERT_TRUE(pair.ok());
  app::InstrumentsController* instruments = chart.Instruments();
  instruments->SetDevices({pair.b()});
  chart.State().settings.GPSPort = 0;
  chart.Action("mnuGPSattach")->trigger();
  ASSERT_EQ(message, "");
  ASSERT_TRUE(instruments->CommsTimer().isActive());
  // The display count is near its turn, so the routine runs within the 30
  // ticks (it otherwise takes some 440).
  instruments->Comms().DisplayCount = 58;
  now = At(2026, 3, 15, 15, 5);
  for (int i = 0; i < 30; ++i) instruments->CommsTimer_Timer();
  EXPECT_LT(instruments->Comms().DisplayCount, 58);  // the routine ran
  EXPECT_TRUE(chart.State().moment.userTimeSet);
  EXPECT_FLOAT_EQ(chart.State().moment.WorkingTime, 3.5f);
  EXPECT_EQ(FirstPort(chart), atUserTime);
  EXPECT_NE(chart.windowTitle().indexOf("03:30"), -1) << chart.windowTitle().toStdString();
  chart.Action("mnuPosGpsDisconnect")->trigger();
  // Letting go of the user's time puts the clock's moment back in force.
  chart.BackToClockTime();
  EXPECT_FALSE(chart.State().moment.userTimeSet);
  EXPECT_FLOAT_EQ(chart.State().moment.WorkingTime, 15.0f + 5.0f / 60.0f);
  chart.close();
  fs::remove_all(dir);
}

TEST(MainWindowSettings, SavingANewBoatSpeedSetsEveryLegOfTheRoute) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  PassageState& p = chart.State().passage;
  p.Route.resize(4);  // three points, legs at their own speeds
  p.Route[1].Speed = 4.0f;
  p.Route[2].Speed = 7.5f;
  p.Route[3].Speed = 3.0f;
  WhenModal<forms::FrmConfigure>([](forms::FrmConfigure* form) {
    form->findChild<QLineEdit*>("Txtboatspeed")->setText("6.5");
    form->findChild<QCheckBox*>("chkShowChartNum")->setChecked(true);
    form->cmdconfigok_Click();
  });
  chart.Action("mnuConfigure")->trigger();
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(p.Route[static_cast<std::size_t>(i)].Speed, 6.5f) << i;
  EXPECT_EQ(p.LegSpeed, 6.5f);
  EXPECT_EQ(chart.State().settings.ShowChartNum, -1);
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).VesselSpeed, 6.5f);
  chart.close();
}

TEST(MainWindowSettings, ChartFileErrorWritesOnlyTheFactoryChart) {
  TempTree tree;
  ProgramState state = SeededState(tree);
  // A chart whose image is not there: the viewer has no picture.
  fs::remove(tree.folders.DataRoot() / "Charts" / "9999-1.l55");
  app::FrmChart chart(state);
  std::vector<std::string> messages;
  chart.showMessage = [&](const std::string& m) { messages.push_back(m); };
  chart.Load();
  SettingsRecord s = ReadSettings(tree.folders.SettingsFile());
  s.ChartPath = "/elsewhere/Charts/1234-5";
  s.ChartFile = "1234-5.cht";
  s.VesselSpeed = 7.25f;
  s.Variation = 4.0f;
  ASSERT_TRUE(WriteSettings(tree.folders.SettingsFile(), s));
  bool ended = false;
  chart.Chart()->endProgram = [&] { ended = true; };
  chart.show();
  QWidget* surface = chart.Chart()->Viewer()->viewport();
  QMouseEvent move(QEvent::MouseMove, QPointF(20, 20), QPointF(surface->mapToGlobal(QPoint(20, 20))), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(surface, &move);
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(messages.back().substr(0, 20), "Error in Chart File\n");
  EXPECT_TRUE(ended);
  const SettingsRecord after = ReadSettings(tree.folders.SettingsFile());
  const SettingsRecord factory = DefaultSettings(tree.folders);
  EXPECT_EQ(after.ChartPath, factory.ChartPath);
  EXPECT_EQ(after.ChartFile, factory.ChartFile);
  EXPECT_EQ(after.ChartSet, factory.ChartSet);
  EXPECT_EQ(after.ChartDescription, factory.ChartDescription);
  EXPECT_EQ(after.VesselSpeed, 7.25f);  // the user's other settings stay
  EXPECT_EQ(after.Variation, 4.0f);
  chart.close();
}

TEST(MainWindowMenus, TidalAreaAndPortThenAboutAndQuickInstructions) {
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  // A second area file beside the sample's.
  fs::copy_file(tree.folders.DataRoot() / "TS" / "UK.hc", tree.folders.DataRoot() / "TS" / "Channel.hc");

  ASSERT_TRUE(chart.Action("mnuArea")->isEnabled());
  WhenModal<forms::frmTidesSeaArea>([](forms::frmTidesSeaArea* form) {
    emit form->FileList->itemClicked(form->FileList->item(0));  // "Channel.hc"
    form->cmdOK->click();
  });
  chart.Action("mnuArea")->trigger();
  EXPECT_EQ(chart.State().settings.HarmonicFile, "Channel.hc");
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).HarmonicFile, "Channel.hc");

  // The port list is the new area's; the stored port (Dover, 76) is shown.
  std::string shown;
  WhenModal<forms::frmPortName>([&shown](forms::frmPortName* form) {
    shown = form->portconfigbox->text().toStdString();
    form->portlist2->setCurrentRow(77);
    form->portconfigok->click();
  });
  chart.Action("mnuPortList")->trigger();
  EXPECT_EQ(shown, "Dover");
  EXPECT_EQ(chart.State().settings.PortIndex, 78);
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).PortIndex, 78);
  EXPECT_EQ(chart.State().settings.Port, ReadSettings(tree.folders.SettingsFile()).Port);

  // The about box reads the data's sources when it opens: a source file
  // taken away is named as missing.
  fs::remove(tree.folders.DataRoot() / "README.md");
  QString about;
  WhenModal<forms::frmAbout>([&about](forms::frmAbout* form) {
    about = form->lblVersion->text() + "\n" + form->txtAbout->toPlainText();
    Screenshot(form, "about-box");
    form->accept();
  });
  chart.Action("mnuAbout")->trigger();
  EXPECT_TRUE(about.startsWith(QString("Kelvane ") + KELVANE_VERSION)) << about.toStdString();
  EXPECT_NE(about.indexOf("ONLY APPROXIMATE"), -1);
  EXPECT_NE(about.indexOf("Plane sailing"), -1);
  EXPECT_NE(about.indexOf("TICON-4"), -1);               // TIDES-SOURCES.md
  EXPECT_NE(about.indexOf("SYNTHETIC SAMPLE VALUES"), -1);  // STREAMS-SOURCES.md
  EXPECT_NE(about.indexOf("README.md is missing"), -1);

  QString quick;
  WhenModal<forms::frmQuickInstructions>([&quick](forms::frmQuickInstructions* form) {
    quick = form->txtInstructions->toPlainText();
    form->accept();
  });
  chart.Action("mnuQuickInstructions")->trigger();
  EXPECT_NE(quick.indexOf("Shift"), -1);
  chart.close();
}
