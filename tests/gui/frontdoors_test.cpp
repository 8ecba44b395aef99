// The two front doors over one data tree: kelvane-cli and the main window
// work from the same program state, so the same GPX route and the same
// settings file give the same passage.
#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QProcess>
#include <ctime>
#include <fstream>

#include "forms/frmcalcroute.h"
#include "forms/frmresults.h"
#include "support/gui_support.h"
#include "routes/gpx.h"

namespace kelvane::test {
namespace {

// Three points across the sample chart's tidal area; no leg speed of their
// own, so the boat speed of the settings drives every leg.
const char* const kRouteGpx = R"(<?xml version="1.0" encoding="UTF-8"?>
<gpx version="1.1" creator="test" xmlns="http://www.topografix.com/GPX/1/1">
  <rte>
    <name>Across</name>
    <rtept lat="50.700000000" lon="-1.300000000"><name>North</name></rtept>
    <rtept lat="50.650000000" lon="-1.200000000"><name>Middle</name></rtept>
    <rtept lat="50.600000000" lon="-1.100000000"><name>South</name></rtept>
  </rte>
</gpx>
)";

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

}  // namespace

// kelvane-cli route once worked every passage with the factory settings
// (5 knots, no variation) whatever the user's settings file said, so the
// window and the command line gave two passages for one route.
TEST(FrontDoors, CliRouteWorkedWithTheFactorySettingsInsteadOfTheUsersFile) {
  TempTree tree;
  ProgramState seeded = SeededState(tree);
  // The user's settings differ from the factory's in the boat and the
  // compass: 3.5 knots and 4 degrees east.
  SettingsRecord user = DefaultSettings(tree.folders);
  user.VesselSpeed = 3.5f;
  user.Variation = 4.0f;
  ASSERT_TRUE(WriteSettings(tree.folders.SettingsFile(), user));
  const std::filesystem::path gpx = tree.dir.path / "across.gpx";
  std::ofstream(gpx) << kRouteGpx;

  // The window, started at noon on 15 June 2026, with the route marked on
  // its chart at those points: each new point takes the boat speed.
  app::FrmChart chart(std::move(seeded));
  std::vector<std::string> messages;
  chart.showMessage = [&](const std::string& m) { messages.push_back(m); };
  chart.clock = StandingClock(2026, 6, 15, 12);
  chart.Load();
  chart.Timer1().stop();  // the clock stands at noon
  ASSERT_EQ(chart.State().settings.VesselSpeed, 3.5f);
  GpxStore store;
  GpxReadStatus read;
  ReadGpxFile(gpx, store, &read);
  ASSERT_EQ(read.outcome, GpxReadOutcome::Read);
  ASSERT_EQ(Count(store.FileRoutes), 1u);
  for (const RouteFilePoint& p : store.FileRoutes[0].Points) {
    RoutePoint r;
    r.Lat = p.Lat;
    r.Lon = p.Lon;
    r.Name = p.Name;
    r.LatText = LatToText(p.Lat);
    r.LonText = LonToText(p.Lon);
    r.Speed = chart.State().settings.VesselSpeed;
    chart.State().passage.Route.push_back(r);
  }
  chart.EnableRouteMenus();
  WhenModal<forms::frmcalcroute>([](forms::frmcalcroute* form) {
    ASSERT_EQ(form->rtedeptime->text().toStdString(), "12:00");
    form->Cmdrteok_Click();
  });
  chart.Action("mnucalcrte")->trigger();
  auto* results = chart.findChild<forms::frmresults*>();
  ASSERT_NE(results, nullptr) << (messages.empty() ? "" : messages.back());
  // The report as the results form shows it, line by line.
  const std::string window = results->txtResults->toPlainText().toStdString() + "\n";
  ASSERT_EQ(window, Joined(chart.State().passage.ResultText));

  // The command line over the same folders, route file and moment.
  QProcess cli;
  cli.setProgram(KELVANE_CLI);
  cli.setArguments({"--data-root", QString::fromStdString(tree.folders.DataRoot().string()), "--user-folder",
                    QString::fromStdString(tree.folders.userFolder.string()), "--pictures-folder",
                    QString::fromStdString(tree.folders.picturesFolder.string()), "route",
                    QString::fromStdString(gpx.string()), "--area",
                    QString::fromStdString(chart.State().settings.ChartSet), "--depart", "2026-06-15 12:00"});
  cli.start();
  ASSERT_TRUE(cli.waitForFinished(120000));
  const std::string out = cli.readAllStandardOutput().toStdString();
  const std::string err = cli.readAllStandardError().toStdString();
  ASSERT_EQ(cli.exitCode(), 0) << err;
  EXPECT_EQ(err, "Settings file: " + tree.folders.SettingsFile().string() + "\n");
  EXPECT_EQ(out, window);
  results->close();
  chart.close();
}

}  // namespace kelvane::test
