// The main window on a German desktop. QApplication puts the C library into
// the user's locale, where strtod and printf use a decimal comma; the
// program must read and write its numbers with a point all the same.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <clocale>
#include <cstdlib>

#include "app/mainwindow.h"
#include "forms/frmconfigure.h"
#include "streams/tidalstreams.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;

namespace {

// The process as a desktop session under `name` would run it: environment
// and C library locale, both put back at the end.
class DesktopLocale {
 public:
  explicit DesktopLocale(const char* name) {
    for (const char* var : {"LC_ALL", "LANG"}) {
      const char* v = std::getenv(var);
      saved_.push_back({var, v ? std::optional<std::string>(v) : std::nullopt});
      setenv(var, name, 1);
    }
    const char* current = std::setlocale(LC_ALL, nullptr);
    previous_ = current ? current : "C";
    ok_ = std::setlocale(LC_ALL, name) != nullptr;
  }
  ~DesktopLocale() {
    std::setlocale(LC_ALL, previous_.c_str());
    for (const auto& [var, value] : saved_) {
      if (value)
        setenv(var.c_str(), value->c_str(), 1);
      else
        unsetenv(var.c_str());
    }
  }
  bool ok() const { return ok_; }

 private:
  std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
  std::string previous_;
  bool ok_ = false;
};

struct Seen {
  std::vector<std::pair<float, float>> waypoints;
  std::vector<float> rates;
  float typedSpeed = 0;
};

// Loads the main window over a fresh tree, works the streams at 10:30 of
// the day, and types a boat speed of "5.5" into the settings form.
Seen LoadTheWindow() {
  TempTree tree;
  app::FrmChart chart(SeededState(tree));
  chart.showMessage = [](const std::string& m) { ADD_FAILURE() << m; };
  chart.Load();
  Seen seen;
  for (const Waypoint& w : chart.State().waypoints.ChartWaypoints) seen.waypoints.push_back({w.Lat, w.Lon});
  chart.State().moment.WorkingTime = 10.5f;
  StreamContext ctx = chart.State().Streams();
  UpdatePortStates(ctx, true, chart.State().moment.WorkingTime);
  chart.CalculateStreamsNow();
  for (const DiamondStreamNow& s : chart.State().streams.StreamNow) seen.rates.push_back(s.Rate);

  WhenModal<forms::FrmConfigure>([](forms::FrmConfigure* form) {
    form->findChild<QLineEdit*>("Txtboatspeed")->setText("5.5");
    form->findChild<QPushButton*>("cmdconfigok")->click();
  });
  chart.Action("mnuConfigure")->trigger();
  seen.typedSpeed = chart.State().settings.VesselSpeed;
  chart.close();
  return seen;
}

}  // namespace

// Under de_DE and fr_FR, strtod stopped at the point: every sample waypoint
// landed on whole degrees and the Solent's 0.4 - 0.9 kn streams read 0.0
// and 1.0.
TEST(DecimalCommaDesktop, WaypointsStreamsAndTypedSpeedAsUnderC) {
  App();
  Seen plain;
  {
    DesktopLocale c("C.UTF-8");
    ASSERT_TRUE(c.ok());
    plain = LoadTheWindow();
  }
  ASSERT_GE(plain.waypoints.size(), 48u);
  // Anvil Point, the first row of the sample file.
  EXPECT_EQ(plain.waypoints[0], std::make_pair(50.58233f, -1.930833f));
  // Some of the streams at 10:30 are fractions of a knot.
  ASSERT_FALSE(plain.rates.empty());
  EXPECT_TRUE(std::any_of(plain.rates.begin(), plain.rates.end(),
                          [](float r) { return r != static_cast<float>(static_cast<int>(r)); }));
  EXPECT_EQ(plain.typedSpeed, 5.5f);

  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
    SCOPED_TRACE(name);
    DesktopLocale desktop(name);
    ASSERT_TRUE(desktop.ok()) << "locale " << name << " is not installed";
    Seen seen = LoadTheWindow();
    EXPECT_EQ(seen.waypoints, plain.waypoints);
    EXPECT_EQ(seen.rates, plain.rates);
    EXPECT_EQ(seen.typedSpeed, 5.5f);
  }
}

// The main window at 10:30 of the day in the locale the process was started
// in. tools/screenshots.sh runs it under C.UTF-8 and under de_DE.UTF-8 and
// checks that the two pictures are the same, pixel for pixel.
TEST(DecimalCommaDesktop, MainWindowPictureInTheStartingLocale) {
  TempTree tree;
  app::FrmChart chart(SeededState(tree));
  chart.showMessage = [](const std::string& m) { ADD_FAILURE() << m; };
  chart.Load();
  chart.State().moment.WorkingTime = 10.5f;
  StreamContext ctx = chart.State().Streams();
  UpdatePortStates(ctx, true, chart.State().moment.WorkingTime);
  chart.CalculateStreamsNow();
  chart.resize(1100, 760);
  chart.show();
  QCoreApplication::processEvents();
  EXPECT_FALSE(chart.State().streams.StreamNow.empty());
  Screenshot(&chart, "main-window-locale");
  chart.close();
}
