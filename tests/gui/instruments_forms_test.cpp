// The instruments' dialogs and the main window's links, with real widgets,
// real settings files in temporary folders, and real pseudo-terminals made
// by socat standing in for the GPS.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QTimer>
#include <QToolBar>

#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "core/settings.h"
#include "forms/frmAISGPSConfig.h"
#include "forms/frmAISSummary.h"
#include "forms/frmAisDetails.h"
#include "forms/frmCommsInfo.h"
#include "forms/frmGPSConfig.h"
#include "forms/frmgpsdetail.h"
#include "instruments/posix_serial.h"
#include "support/gui_support.h"
#include "support/pty.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

const std::string kRmc = "$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*78\r\n";

bool HaveSocat() { return std::system("command -v socat >/dev/null 2>&1") == 0; }

}  // namespace

TEST(AisForms, SummaryAndDetails) {
  App();
  AisTargetTable table;
  UpdateAISTarget(table, 1, 235000001, 50.5f, -1.0f, 90, 12, 0, 12.0f);
  UpdateAISStatic(table, 235000001, "2AB", "KELVANE", "Sailing", "POOLE", "12 x 4 x 1.8", "");
  UpdateAISTarget(table, 18, 235000002, 50.6f, -1.1f, 0, 5, 1, 12.0f);
  OwnShipState own;
  forms::FrmAISSummary summary(table, own, 12.0f);
  ASSERT_EQ(summary.LineCount(), 2);
  EXPECT_EQ(summary.LineText(0).substr(0, 17), "KELVANE\t235000001");
  EXPECT_EQ(summary.LineText(1).substr(0, 22), "* name not received  \t");
  forms::FrmAisDetails details(summary.DetailsOf(0));
  EXPECT_EQ(details.Text().substr(0, 15), "Name : KELVANE\n");
  Screenshot(&summary, "frmAISSummary");
}

TEST(GpsConfigForms, WriteTheSettingsRecordWithTheGpsTypeAsItsNumber) {
  if (!HaveSocat()) GTEST_SKIP() << "socat is not installed";
  TempTree tree;
  CreateDataTree(tree.folders);
  WriteSettings(tree.folders.SettingsFile(), SettingsRecord{});
  auto dir = kelvane::testing::MakeTempDir("kelvane-gpsconfig");
  kelvane::testing::SocatPair pair(dir, "gps");
  ASSERT_TRUE(pair.ok());
  PosixSerialPorts ports({pair.b()});
  const SettingsRecord formSettings = ReadSettings(tree.folders.SettingsFile());
  forms::FrmGPSConfig form(formSettings, tree.folders.SettingsFile(), ports, {pair.b()});
  EXPECT_EQ(form.PortsFound(), std::vector<int>{0});
  form.findChild<QComboBox*>("cmbGPSType")->setCurrentIndex(4);  // "USB 9600 Baud"
  form.findChild<QComboBox*>("cmbGPSInterval")->setCurrentIndex(4);  // "1 Min"
  form.findChild<QComboBox*>("cmbGPSPort")->setCurrentIndex(0);
  ASSERT_TRUE(form.cmdOK_Click());
  SettingsRecord r = ReadSettings(tree.folders.SettingsFile());
  EXPECT_EQ(r.GPSType, "5");  // the type's number from 1, not its text
  EXPECT_EQ(r.GPSBaudCode, 5);
  EXPECT_EQ(r.GPSInterval, 60);
  EXPECT_EQ(r.GPSPort, 0);
  {
    // Reopened, the form shows type 5, and OK keeps the receiver at 9600.
    const SettingsRecord againSettings = ReadSettings(tree.folders.SettingsFile());
    forms::FrmGPSConfig again(againSettings, tree.folders.SettingsFile(), ports, {pair.b()});
    EXPECT_EQ(again.findChild<QComboBox*>("cmbGPSType")->currentText(), "USB 9600 Baud");
    ASSERT_TRUE(again.cmdOK_Click());
    r = ReadSettings(tree.folders.SettingsFile());
    EXPECT_EQ(r.GPSType, "5");
    EXPECT_EQ(r.GPSBaudCode, 5);
  }

  const SettingsRecord aisSettings = ReadSettings(tree.folders.SettingsFile());
  forms::FrmAISGPSConfig ais(aisSettings, tree.folders.SettingsFile(), ports, {pair.b()});
  ais.findChild<QComboBox*>("cmbAISPort")->setCurrentIndex(0);
  ais.findChild<QComboBox*>("cmbAISBaud")->setCurrentText("38400");
  // cmbAISSpeed is the slowest target drawn, in knots, not a baud rate.
  ais.findChild<QComboBox*>("cmbAISSpeed")->setCurrentText("0.5");
  ASSERT_TRUE(ais.cmdOK_Click());
  r = ReadSettings(tree.folders.SettingsFile());
  EXPECT_EQ(r.AISPort, 0);
  EXPECT_EQ(r.AISBaudCode, 7);
  EXPECT_EQ(r.AISMinSpeed, 0.5f);
  EXPECT_EQ(r.GPSBaudCode, 5);  // the GPS part kept

  // The comments switch follows its field both ways: it was always shown
  // ticked and never written.
  {
    const SettingsRecord againSettings = ReadSettings(tree.folders.SettingsFile());
    forms::FrmGPSConfig again(againSettings, tree.folders.SettingsFile(), ports, {pair.b()});
    auto* comments = again.findChild<QCheckBox*>("chkcomments");
    EXPECT_FALSE(comments->isChecked());  // the record written above holds 0
    comments->setChecked(true);
    again.findChild<QCheckBox*>("chktracklayer")->setChecked(true);
    ASSERT_TRUE(again.cmdOK_Click());
  }
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).GPSOption1, 1.0f);
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).TrackLayer, 1.0f);
  const SettingsRecord reopenedSettings = ReadSettings(tree.folders.SettingsFile());
  forms::FrmGPSConfig reopened(reopenedSettings, tree.folders.SettingsFile(), ports, {pair.b()});
  EXPECT_TRUE(reopened.findChild<QCheckBox*>("chkcomments")->isChecked());
  fs::remove_all(dir);
}

TEST(CommsInfoForm, PortTestShowsDataAndTheLinesAndAVanishedPort) {
  if (!HaveSocat()) GTEST_SKIP() << "socat is not installed";
  App();
  auto dir = kelvane::testing::MakeTempDir("kelvane-commsinfo");
  kelvane::testing::SocatPair pair(dir, "gps");
  ASSERT_TRUE(pair.ok());
  app::QtSerialPorts ports({pair.b()});
  forms::FrmCommsInfo form(ports, {pair.b()});
  std::string message;
  form.showMessage = [&](const std::string& m) { message = m; };
  EXPECT_NE(form.RawText().find("This routine scans through the available comms ports on the PC. "),
            std::string::npos);
  form.cmdTest_Click();
  ASSERT_EQ(message, "");
  ASSERT_EQ(form.TestPort(), 0);
  {
    kelvane::testing::PacedWriter writer(pair.a(), 4800);
    writer.Write(kRmc, 16);
  }
  for (int i = 0; i < 20 && form.RawText().find("$GPRMC") == std::string::npos; ++i) {
    QCoreApplication::processEvents();
    form.Timer1_Timer();
  }
  EXPECT_NE(form.RawText().find(kRmc.substr(0, 60)), std::string::npos);
  EXPECT_NE(form.DetailsText().find("Data In to PC PIN 2"), std::string::npos);
  EXPECT_EQ(form.DetailsText().find("Doesnt exist"), std::string::npos);
  pair.Stop();
  for (int i = 0; i < 20 && form.DetailsText().find("DCD Port Doesnt exist") == std::string::npos; ++i) {
    QCoreApplication::processEvents();
    form.Timer1_Timer();
  }
  EXPECT_NE(form.DetailsText().find("DCD Port Doesnt exist"), std::string::npos) << form.DetailsText();
  form.mnuAllBaudRates_Click();
  EXPECT_EQ(message, "All rates are now available from the dropdown box");

  app::QtSerialPorts none(std::vector<std::string>{});
  forms::FrmCommsInfo empty(none, {});
  empty.showMessage = [&](const std::string& m) { message = m; };
  empty.cmdTest_Click();
  EXPECT_EQ(message, "No comms port selected");
  fs::remove_all(dir);
}

TEST(MainWindowInstruments, AttachPollDetach) {
  if (!HaveSocat()) GTEST_SKIP() << "socat is not installed";
  TempTree tree;
  app::FrmChart chart(SeededState(tree));
  std::string message;
  chart.showMessage = [&](const std::string& m) { message = m; };
  chart.Load();
  app::InstrumentsController* instruments = chart.Instruments();
  ASSERT_NE(instruments, nullptr);

  // No such port: the message, and the idle timer keeps running.
  instruments->SetDevices({(fs::path(tree.dir.path) / "absent").string()});
  chart.State().settings.GPSPort = 0;
  chart.State().settings.GPSBaudCode = 4;
  chart.Action("mnuGPSattach")->trigger();
  EXPECT_EQ(message,
            "The Comm Port 1 requested for the GPS does not exist or is in use.\r\n"
            "Use the Configure GPS menu to see what available ports are on this PC.");
  EXPECT_FALSE(instruments->CommsTimer().isActive());
  EXPECT_TRUE(chart.Timer1().isActive());
  // The link buttons show links that are down, with pictures from the
  // data tree.
  QAction* gpsButton = chart.ToolBar()->findChild<QAction*>("cmdGPSLink");
  QAction* aisButton = chart.ToolBar()->findChild<QAction*>("cmdAISLink");
  ASSERT_NE(gpsButton, nullptr);
  ASSERT_NE(aisButton, nullptr);
  EXPECT_EQ(gpsButton->data().toString(), "configengps.bmp");
  EXPECT_EQ(aisButton->data().toString(), "confenais.bmp");
  EXPECT_FALSE(gpsButton->icon().isNull());

  auto dir = kelvane::testing::MakeTempDir("kelvane-mainwindow");
  kelvane::testing::SocatPair pair(dir, "gps");
  ASSERT_TRUE(pair.ok());
  instruments->SetDevices({pair.b()});
  message.clear();
  chart.Action("mnuGPSattach")->trigger();
  EXPECT_EQ(message, "");
  EXPECT_TRUE(instruments->CommsTimer().isActive());
  EXPECT_EQ(instruments->CommsTimer().interval(), 750);
  EXPECT_EQ(gpsButton->data().toString(), "configdisgps.bmp");
  EXPECT_FALSE(chart.Timer1().isActive());
  {
    kelvane::testing::PacedWriter writer(pair.a(), 4800);
    writer.Write(kRmc, 16);
  }
  for (int i = 0; i < 20 && instruments->State().own.GPSValid != -1; ++i) {
    QCoreApplication::processEvents();
    instruments->CommsTimer_Timer();
  }
  EXPECT_EQ(instruments->State().own.GPSValid, -1);
  EXPECT_EQ(instruments->State().own.GPSPositionText, "50.51.206N  001.23.456W");

  chart.Action("mnuPosGpsDisconnect")->trigger();
  EXPECT_FALSE(instruments->CommsTimer().isActive());
  EXPECT_TRUE(chart.Timer1().isActive());

  chart.Action("mnuDecode21")->trigger();
  ASSERT_EQ(instruments->State().targets.AISTargets.size(), 1u);
  EXPECT_EQ(instruments->State().targets.AISTargets[0].VesselName, "MID CHANNEL");
  chart.close();
  fs::remove_all(dir);
}
