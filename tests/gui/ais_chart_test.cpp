// The AIS targets on the chart of a real main window: a vessel heard on a
// pseudo-terminal through the receive chain, its details and display
// switches from the keys, the popup and the menus, the summary's Mark, the
// count on the status bar, the chart following the boat, and the tidal
// stream in the predictions.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <cmath>

#include "app/chartinteraction.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "app/mainwindow_layers.h"
#include "core/settings.h"
#include "forms/frmAISSummary.h"
#include "forms/frmCommsInfo.h"
#include "forms/frmAisDetails.h"
#include "instruments/comms.h"
#include "support/ais_encoder.h"
#include "support/gui_support.h"
#include "support/pty.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

bool HaveSocat() { return std::system("command -v socat >/dev/null 2>&1") == 0; }

constexpr std::uint32_t kMmsi = 235000001;

// A moored vessel at a position, then its name in a two-fragment type 5.
std::string VesselSentences(float lat, float lon) {
  kelvane::testing::PositionA p;
  p.mmsi = kMmsi;
  p.lat = std::llround(double(lat) * 600000.0);
  p.lon = std::llround(double(lon) * 600000.0);
  p.course = 900;
  kelvane::testing::StaticA st;
  st.mmsi = kMmsi;
  st.callsign = "MKLV1";
  st.name = "KELVANE TEST";
  st.destination = "POOLE";
  std::string text;
  for (const std::string& s : kelvane::testing::AivdmSentences(kelvane::testing::BitsOf(p))) text += s + "\r\n";
  for (const std::string& s : kelvane::testing::AivdmSentences(kelvane::testing::BitsOf(st), 40)) text += s + "\r\n";
  return text;
}

ViewCorners PaintedCorners(app::FrmChart& chart) {
  chart.Chart()->Viewer()->viewport()->repaint();
  return chart.Chart()->Corners();
}

}  // namespace

TEST(MainWindowAis, TargetFromThePortKeysPopupMenusMarkAndCount) {
  if (!HaveSocat()) GTEST_SKIP() << "socat is not installed";
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  ASSERT_TRUE(loaded.ShownAt(900, 700));
  app::InstrumentsController* instruments = chart.Instruments();
  const ViewCorners view = PaintedCorners(chart);
  const float lat = (view.ViewTopLat + view.ViewBottomLat) / 2, lon = (view.ViewLeftLon + view.ViewRightLon) / 2;

  // Before the link the AIS display entries wait, and so does its detach.
  for (const char* name : {"mnuShowAISDetails", "mnuAISDisplayPredicted", "mnuAISShowHeadVect", "mnuAISDisable"})
    EXPECT_FALSE(chart.Action(name)->isEnabled()) << name;
  EXPECT_FALSE(chart.Action("mnuPosGpsDisconnect")->isEnabled());

  auto dir = kelvane::testing::MakeTempDir("kelvane-aischart");
  kelvane::testing::SocatPair pair(dir, "ais");
  ASSERT_TRUE(pair.ok());
  instruments->SetDevices({pair.b()});
  chart.State().settings.AISPort = 0;
  chart.State().settings.AISBaudCode = 7;
  chart.Action("mnuAISEnable")->trigger();
  ASSERT_TRUE(messages.empty()) << messages.front();
  for (const char* name : {"mnuShowAISDetails", "mnuAISDisplayPredicted", "mnuAISShowHeadVect", "mnuAISDisable"})
    EXPECT_TRUE(chart.Action(name)->isEnabled()) << name;
  EXPECT_FALSE(chart.Action("mnuAISEnable")->isEnabled());
  {
    kelvane::testing::PacedWriter writer(pair.a(), 38400);
    writer.Write(VesselSentences(lat, lon), 64);
  }
  auto& targets = instruments->State().targets.AISTargets;
  for (int i = 0; i < 40 && (targets.empty() || targets[0].VesselName != "KELVANE TEST"); ++i) {
    QCoreApplication::processEvents();
    instruments->CommsTimer_Timer();
  }
  ASSERT_EQ(targets.size(), 1u);
  ASSERT_EQ(targets[0].VesselName, "KELVANE TEST");

  // The status bar counts the targets on the chart.
  auto* panel = chart.findChild<QLabel*>("PanelAIS");
  ASSERT_NE(panel, nullptr);
  PaintedCorners(chart);
  EXPECT_EQ(panel->text().toStdString(), "Num AIS Targets Drawn = 1");
  EXPECT_TRUE(panel->isVisible());

  // F2 opens the details of the target nearest to the cursor.
  chart.Chart()->SetCursorPosition(lat + 0.01f, lon - 0.01f);
  QTest::keyClick(chart.Chart()->Viewer(), Qt::Key_F2);
  auto* details = chart.findChild<forms::FrmAisDetails*>();
  ASSERT_NE(details, nullptr);
  EXPECT_EQ(details->Text().substr(0, 20), "Name : KELVANE TEST\n");
  EXPECT_NE(details->Text().find("Callsign : MKLV1\n"), std::string::npos);
  details->close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

  // F3 to F6 flip the target's own switches: details, history, predicted
  // track, heading vector; a second press flips each back.
  const SettingsRecord& s = chart.State().settings;
  AISTarget& t = targets[0];
  const std::int16_t before[] = {t.ShowDetails, t.ShowHistory, t.ShowPredicted, t.ShowHeading};
  EXPECT_EQ(before[0], s.ShowAISDetails);
  EXPECT_EQ(before[1], s.AISHistTrack);
  const Qt::Key keys[] = {Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F6};
  for (Qt::Key key : keys) QTest::keyClick(chart.Chart()->Viewer(), key);
  const std::int16_t after[] = {t.ShowDetails, t.ShowHistory, t.ShowPredicted, t.ShowHeading};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(after[i], before[i] != 0 ? 0 : -1) << "F" << i + 3;
  for (Qt::Key key : keys) QTest::keyClick(chart.Chart()->Viewer(), key);
  EXPECT_EQ(t.ShowPredicted, before[2]);

  // The menu switches flip the setting, every target and the file.
  const std::int16_t predicted = s.AISPredTrack;
  chart.Action("mnuAISDisplayPredicted")->trigger();
  EXPECT_EQ(s.AISPredTrack, predicted != 0 ? 0 : -1);
  EXPECT_EQ(t.ShowPredicted, s.AISPredTrack);
  EXPECT_EQ(ReadSettings(chart.State().folders.SettingsFile()).AISPredTrack, s.AISPredTrack);
  EXPECT_EQ(chart.Action("mnuAISDisplayPredicted")->isChecked(), s.AISPredTrack != 0);
  const std::int16_t heading = s.AISHeadingVector;
  chart.Action("mnuAISShowHeadVect")->trigger();
  EXPECT_EQ(ReadSettings(chart.State().folders.SettingsFile()).AISHeadingVector, heading != 0 ? 0 : -1);
  EXPECT_EQ(t.ShowHeading, s.AISHeadingVector);
  PaintedCorners(chart);  // the extras draw without fault
  Screenshot(&chart, "ais_target_on_chart");

  // The popup's AIS item is on with AIS and switches the details.
  QAction* item = chart.Interaction()->PopupItem("mnuPUAISDetails");
  ASSERT_NE(item, nullptr);
  item->setEnabled(false);
  QMetaObject::invokeMethod(chart.Chart()->PopupMenu(), "aboutToShow");
  EXPECT_TRUE(item->isEnabled());
  const std::int16_t shown = s.ShowAISDetails;
  item->trigger();
  EXPECT_EQ(s.ShowAISDetails, shown != 0 ? 0 : -1);
  EXPECT_EQ(t.ShowDetails, s.ShowAISDetails);
  EXPECT_EQ(ReadSettings(chart.State().folders.SettingsFile()).ShowAISDetails, s.ShowAISDetails);

  // Mark in the summary rings the target on the chart.
  auto* poll = new QTimer(&chart);
  poll->setInterval(10);
  QObject::connect(poll, &QTimer::timeout, [poll] {
    if (auto* summary = qobject_cast<forms::FrmAISSummary*>(QApplication::activeModalWidget())) {
      poll->stop();
      summary->SelectRow(0);
      summary->cmdMarkAISPt_Click();
      summary->accept();
    }
  });
  poll->start();
  chart.findChild<QAction*>("mnuAISSummary")->trigger();
  EXPECT_EQ(chart.Layers().pickedAisMmsi, static_cast<std::int32_t>(kMmsi));

  // All baud rates: the menu tells the user once.
  messages.clear();
  chart.Action("mnuAllBaudRates")->trigger();
  EXPECT_EQ(messages, std::vector<std::string>{"All rates are now available from the dropdown box"});

  // The boat leaves the middle third of the view: with "keep centred" on,
  // the view cycle brings it back into it.
  chart.Chart()->Viewer()->SetZoomPercent(100);
  chart.Chart()->Viewer()->SetScrollPosition(0, 0);
  const ChartGeometry& g = chart.Chart()->Geometry();
  const int w = chart.Chart()->Viewer()->ImageWidth(), h = chart.Chart()->Viewer()->ImageHeight();
  OwnShipState& own = instruments->State().own;
  own.GPSValid = -1;
  own.GPSLat = PixelToLat(g, h / 2);
  own.GPSLong = PixelToLon(g, w / 2);
  ViewCorners v = PaintedCorners(chart);
  ASSERT_TRUE(BoatLeftInnerBox(v.ViewTopLat, v.ViewLeftLon, v.ViewBottomLat, v.ViewRightLon, own.GPSLat, own.GPSLong));
  chart.State().settings.GPSCentre = -1;
  for (int i = 0; i < 22; ++i) instruments->CommsTimer_Timer();
  v = PaintedCorners(chart);
  EXPECT_FALSE(BoatLeftInnerBox(v.ViewTopLat, v.ViewLeftLon, v.ViewBottomLat, v.ViewRightLon, own.GPSLat, own.GPSLong));

  chart.close();
  fs::remove_all(dir);
}

// The ports close while a port form is up and open again after it. A port
// that failed to reopen used to stay flagged open: the loop polled a dead
// port and the menus offered to detach it. Now the user hears why and the
// link ends.
TEST(MainWindowAis, PortGoneWhileAFormWasUpIsNotLeftFlaggedOpen) {
  if (!HaveSocat()) GTEST_SKIP() << "socat is not installed";
  LoadedChart loaded;
  auto& [tree, messages, chart] = loaded;
  app::InstrumentsController* instruments = chart.Instruments();
  auto dir = kelvane::testing::MakeTempDir("kelvane-reopen");
  kelvane::testing::SocatPair pair(dir, "ais");
  ASSERT_TRUE(pair.ok());
  instruments->SetDevices({pair.b()});
  chart.State().settings.AISPort = 0;
  chart.State().settings.AISBaudCode = 7;
  chart.Action("mnuAISEnable")->trigger();
  ASSERT_TRUE(messages.empty()) << messages.front();
  ASSERT_EQ(instruments->Comms().AISPortOpen, -1);

  // The receiver is unplugged while the port test is on screen.
  WhenModal<forms::FrmCommsInfo>([&pair](forms::FrmCommsInfo* form) {
    pair.Stop();
    form->reject();
  });
  chart.Action("mnuCopyComPortDetails")->trigger();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages.front(), "Invalid COM port name");  // the serial library's text of code -1
  EXPECT_EQ(instruments->Comms().AISPortOpen, 0);
  EXPECT_EQ(instruments->Comms().AISAttached, 0);
  EXPECT_FALSE(instruments->CommsTimer().isActive());
  EXPECT_TRUE(chart.Action("mnuAISEnable")->isEnabled());
  EXPECT_FALSE(chart.Action("mnuAISDisable")->isEnabled());
}

TEST(MainWindowAis, PredictionsRunWithTheTidalStreamAtTheBoat) {
  LoadedChart loaded;
  app::FrmChart& chart = loaded.chart;
  ProgramState& p = chart.State();
  ASSERT_FALSE(p.streams.Diamonds.empty());
  // A diamond whose table runs 1.2 knots towards 090 at every hour, springs
  // and neaps alike: whatever the tide, the stream there is 1.2 kn east.
  Diamond& d = p.streams.Diamonds[0];
  for (int slot = 0; slot <= 13; ++slot) {
    d.Rate(slot, kRowDirection) = 90.0f;
    d.Rate(slot, kRowSpring) = 1.2f;
    d.Rate(slot, kRowNeap) = 1.2f;
  }
  p.settings.BoatFutureTidePlot = -1;
  p.settings.AheadVector = 10;
  p.settings.AheadIntervals = 10;
  const std::vector<float> chartRanges = p.streams.PortRange;
  app::InstrumentsController* instruments = chart.Instruments();
  chart.Action("mnuDecode21")->trigger();  // takes the settings into the table

  // A boat lying still on the diamond: in an hour the stream alone sets it
  // 1.2 miles east, 1.2 / (60 cos lat) degrees of longitude.
  OwnShipState own;
  own.GPSLat = d.lat;
  own.GPSLong = d.Lon;
  const double east = 1.2 / (60.0 * std::cos(double(d.lat) * 3.14159265358979 / 180.0));
  auto& table = instruments->State().targets;
  const auto future = ComputeOwnPrediction(own, table.settings, table.stream, 12.0f);
  EXPECT_NEAR(future[6].Long, d.Lon + east, 2e-5);
  EXPECT_NEAR(future[6].Lat, d.lat, 2e-5);
  EXPECT_NEAR(future[3].Long, d.Lon + east / 2, 2e-5);
  // A vessel at anchor there is predicted the same way.
  UpdateAISTarget(table, 1, 235000009, d.lat, d.Lon, 0, 0, 0, 12.0f);
  EXPECT_NEAR(table.AISTargets.back().Predicted[6].Long, d.Lon + east, 2e-5);
  // The look-ups leave the ports' ranges of the chart as they were.
  EXPECT_EQ(p.streams.PortRange, chartRanges);
  chart.close();
}
