// The polling loop on real pseudo-terminals made by socat: the program's
// end of each pair is opened through the POSIX serial ports, a writer at
// the other end sends sentences at 4800 baud in chunks that split them,
// and the loop is ticked with a clock of our own.
#include <gtest/gtest.h>

#include "instruments/comms.h"
#include "instruments/posix_serial.h"
#include "support/pty.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::PacedWriter;
using testing::SocatPair;

bool HaveSocat() { return std::system("command -v socat >/dev/null 2>&1") == 0; }

const std::string kRmcVoid = "$GPRMC,124541,V,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*6F\r\n";
const std::string kRmc = "$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*78\r\n";
const std::string kGll = "$GPGLL,4916.45,N,12311.12,W,225444,A*31\r\n";
const std::string kRmcLower = "$GPRMC,124600,A,4916.450,N,12311.120,W,5.5,054.7,230394,003.1,W*6e\r\n";
const std::string kRmb = "$GPRMB,A,0.66,L,003,004,4917.24,N,12309.57,W,001.3,052.5,000.5,V*20\r\n";
const std::string kAivdm = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C\r\n";

class PollingLoop : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!HaveSocat()) GTEST_SKIP() << "socat is not installed";
    dir_ = testing::MakeTempDir("kelvane-comms");
    gps_ = std::make_unique<SocatPair>(dir_, "gps");
    ais_ = std::make_unique<SocatPair>(dir_, "ais");
    ASSERT_TRUE(gps_->ok() && ais_->ok());
    ports_.SetDevice(0, gps_->b());
    ports_.SetDevice(1, ais_->b());
    comms_.GPSPort = 0;
    comms_.GPSBaudCode = 4;
    comms_.AISPort = 1;
    comms_.AISBaudCode = 4;
  }
  void TearDown() override {
    gps_.reset();
    ais_.reset();
    if (!dir_.empty()) std::filesystem::remove_all(dir_);
  }
  // Ticks with a clock that moves 750 milliseconds a tick.
  TickReport Tick(const CommsHooks& hooks = {}) {
    ms_ += kCommsTimerInterval;
    long s = ms_ / 1000;
    ClockReading now{2026, 11, 23, static_cast<int>(12 + s / 3600), static_cast<int>(s / 60 % 60),
                     static_cast<int>(s % 60)};
    return CommsTick(comms_, state_, ports_, now, hooks);
  }

  std::filesystem::path dir_;
  std::unique_ptr<SocatPair> gps_, ais_;
  PosixSerialPorts ports_;
  CommsState comms_;
  InstrumentsState state_;
  long ms_ = 0;
};

TEST_F(PollingLoop, EndToEndAt4800BaudInSplitChunks) {
  ASSERT_TRUE(AttachGps(comms_, ports_, ClockReading{}).ok);
  EXPECT_TRUE(comms_.commsTimerEnabled);
  EXPECT_FALSE(comms_.timer1Enabled);
  PacedWriter writer(gps_->a(), 4800);
  ASSERT_TRUE(writer.ok());
  std::string goodFirstHalf = kRmc.substr(0, 30), goodSecondHalf = kRmc.substr(30);

  // A void fix and half of a good one.
  writer.Write(kRmcVoid + goodFirstHalf, 7);
  Tick();
  Tick();
  EXPECT_EQ(state_.own.GPSValid, 0);
  EXPECT_EQ(state_.own.GPSLat, static_cast<float>(50 + 51.206 / 60));
  EXPECT_EQ(state_.own.GPSCourseSpeedText, "Heading54.7\xC2\xB0T @ 5.5 Kn");

  // The rest of the good fix, then a GLL elsewhere: ignored after an RMC.
  writer.Write(goodSecondHalf + kGll, 5);
  Tick();
  Tick();
  EXPECT_EQ(state_.own.GPSValid, -1);
  EXPECT_EQ(state_.own.GPSLat, static_cast<float>(50 + 51.206 / 60));
  EXPECT_EQ(state_.own.GPSTimeText, "124541");

  // A lower-case checksum is dropped; the waypoint sentence is read.
  writer.Write(kRmcLower + kRmb, 11);
  Tick();
  Tick();
  EXPECT_EQ(state_.own.GPSLat, static_cast<float>(50 + 51.206 / 60));
  EXPECT_EQ(state_.own.GPSTimeText, "124541");
  EXPECT_EQ(state_.own.GPSWaypointText, "Waypt (004) 001.3M@052.5\xC2\xB0T");
  EXPECT_NE(state_.monitorText.find("*6e"), std::string::npos);  // shown, not used
  EXPECT_GE(state_.track.UpperBound(), 1u);
}

TEST_F(PollingLoop, PortsAlternateAndPassesFallOnTheirTicks) {
  ASSERT_TRUE(AttachGps(comms_, ports_, ClockReading{}).ok);
  ASSERT_TRUE(AttachAis(comms_, state_, ports_, ClockReading{}).ok);
  PacedWriter gpsWriter(gps_->a(), 4800), aisWriter(ais_->a(), 38400);
  gpsWriter.Write(kRmc, 64);
  aisWriter.Write(kAivdm, 64);

  int idle = 0, redraws = 0, flushes = 0;
  CommsHooks hooks;
  hooks.timer1Routine = [&] { ++idle; };
  hooks.redrawOverlays = [&] { ++redraws; };
  hooks.flushLog = [&] { ++flushes; };
  std::vector<int> timePasses, displayPasses;
  for (int tick = 1; tick <= 500; ++tick) {
    TickReport r = Tick(hooks);
    // GPS on odd ticks, AIS on even ones.
    EXPECT_EQ(r.gpsChars >= 0, tick % 2 == 1) << tick;
    EXPECT_EQ(r.aisChars >= 0, tick % 2 == 0) << tick;
    if (tick == 1) {
      EXPECT_EQ(r.gpsChars, static_cast<int>(kRmc.size()));
    }
    if (tick == 2) {
      EXPECT_EQ(r.aisChars, static_cast<int>(kAivdm.size()));
    }
    if (r.timePass) timePasses.push_back(tick);
    if (r.displayPass) displayPasses.push_back(tick);
    if (tick >= 3) {
      EXPECT_EQ(r.collisionTargets, 1) << tick;
    }
  }
  // The time pass on the first tick and whenever the tick count is 1: every
  // 21 ticks after the second.
  ASSERT_GE(timePasses.size(), 4u);
  EXPECT_EQ(std::vector<int>(timePasses.begin(), timePasses.begin() + 4), (std::vector<int>{1, 2, 23, 44}));
  EXPECT_EQ(displayPasses.front(), 22);
  // The idle routine on the 21st time pass (3 x 21 = 63 > 60).
  EXPECT_EQ(idle, static_cast<int>(timePasses.size()) / 21);
  // The view cycle counter starts at 0: a redraw on the third display pass,
  // then every second one.
  EXPECT_EQ(redraws, static_cast<int>(displayPasses.size() - 1) / 2);
  // The flush falls due every 5 seconds, but the clock word moves only at
  // time passes (every 15.75 seconds): one flush on the first tick, then one
  // a time pass from the third on (the second comes 0.75 s after the first).
  EXPECT_EQ(flushes, static_cast<int>(timePasses.size()) - 1);
  ASSERT_EQ(state_.targets.AISTargets.size(), 1u);
  EXPECT_NE(state_.targets.AISTargets[0].CPA, 0.0f);
  // Point 1 from the first fix, then one a time pass.
  EXPECT_EQ(state_.track.UpperBound(), timePasses.size() + 1);
}

TEST_F(PollingLoop, GpsThroughTheAisPort) {
  state_.GPSThroAIS = -1;
  ASSERT_TRUE(AttachAis(comms_, state_, ports_, ClockReading{}).ok);
  EXPECT_EQ(comms_.GPSAttached, -1);
  PacedWriter aisWriter(ais_->a(), 38400);
  aisWriter.Write(kAivdm + kRmc, 64);
  TickReport first = Tick();
  TickReport second = Tick();
  EXPECT_EQ(first.gpsChars, -1);  // the GPS branch reads nothing
  EXPECT_GT(second.aisChars, 0);
  EXPECT_EQ(state_.own.GPSValid, -1);
  EXPECT_EQ(state_.targets.AISTargets.size(), 1u);
  DetachAis(comms_, state_, ports_);
  EXPECT_EQ(comms_.GPSAttached, 0);
  EXPECT_EQ(state_.own.GPSLat, 0.0f);
  EXPECT_TRUE(comms_.timer1Enabled);
}

TEST_F(PollingLoop, PortThatDisappearsWhileAttached) {
  ASSERT_TRUE(AttachGps(comms_, ports_, ClockReading{}).ok);
  PacedWriter writer(gps_->a(), 4800);
  writer.Write(kRmc, 64);
  Tick();
  ASSERT_EQ(state_.own.GPSValid, -1);
  for (int i = 0; i < 4; ++i) Tick();  // nothing waiting is not a hang-up
  EXPECT_FALSE(ports_.Gone(0));
  EXPECT_EQ(CommsDetailsLines(ports_, 0)[0], "DCD Status = CLEAR(Pin 1-IN)");
  gps_->Stop();  // the adapter is pulled
  for (int i = 0; i < 10; ++i) {
    TickReport r = Tick();
    if (r.gpsChars >= 0) {
      EXPECT_EQ(r.gpsChars, 0);
    }
  }
  EXPECT_TRUE(ports_.Gone(0));
  std::vector<std::string> lines = CommsDetailsLines(ports_, 0);
  EXPECT_EQ(lines[0], "DCD Port Doesnt exist");
  EXPECT_EQ(lines[1], "Port Doesnt exist");  // DTR has no line name here
  EXPECT_EQ(lines[5], "RI Port Doesnt exist");
  EXPECT_EQ(state_.own.GPSValid, -1);  // the last state stands
  DetachGps(comms_, ports_);
  EXPECT_TRUE(comms_.timer1Enabled);
}

TEST_F(PollingLoop, ReadAndClearTakesAFreshSample) {
  ASSERT_TRUE(OpenPort(ports_, 0, 4).ok);
  PacedWriter writer(gps_->a(), 4800);
  writer.Write(kRmc + kRmb, 64);
  std::string sample = ReadAndClear(ports_, 0);
  EXPECT_EQ(sample, kRmc + kRmb);
  EXPECT_EQ(ReadAndClear(ports_, 0), "");
  EXPECT_EQ(OpenPort(ports_, 0, 4).message, "COM port already open");
  ports_.Done(0);
}

TEST(Attach, MessagesWhenThePortIsAbsent) {
  PosixSerialPorts ports;
  ports.SetDevice(0, "/nonexistent/kelvane-tty");
  CommsState comms;
  comms.GPSPort = 0;
  AttachResult r = AttachGps(comms, ports, ClockReading{});
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.message,
            "The Comm Port 1 requested for the GPS does not exist or is in use.\r\n"
            "Use the Configure GPS menu to see what available ports are on this PC.");
  EXPECT_FALSE(comms.commsTimerEnabled);
  EXPECT_EQ(comms.GPSAttached, 0);

  InstrumentsState state;
  comms.AISPort = -1;
  r = AttachAis(comms, state, ports, ClockReading{});
  EXPECT_EQ(r.message, "The Comm Port requested for the AIS does not exist.\r\nAIS connection cancelled.");
  comms.AISPort = 0;
  r = AttachAis(comms, state, ports, ClockReading{});
  EXPECT_EQ(r.message,
            "The Comm Port 1 requested for the AIS does not exist or is in use.\r\n"
            "Use the Configure GPS/AIS menu to see what available ports are on this PC.");
  EXPECT_FALSE(comms.commsTimerEnabled);
}

TEST(SerialContract, TextsAndTables) {
  EXPECT_EQ(CommsErrorText(-2), "COM port already open");
  EXPECT_EQ(CommsErrorText(-103, std::string(200, 'x')), std::string(120, 'x'));
  EXPECT_EQ(CommsErrorText(-7), "Error code -7");
  EXPECT_EQ(GpsTypeBaudCode(5), 5);
  EXPECT_EQ(GpsTypeBaudCode(0), 4);
  EXPECT_EQ(GpsTypes()[2].text, std::string("Magellan(NMEA 0183)"));
  EXPECT_EQ(BaudRateOfCode(9), 115200);
  EXPECT_EQ(BaudCodeOfRate(38400), 7);
  EXPECT_EQ(LineStatusText(SerialLine::RTS, 1), "RTS Status = SET (Pin 7-OUT)");
  EXPECT_EQ(LineStatusText(SerialLine::DTR, -3), "Port Not Open");
  EXPECT_EQ(LineStatusText(SerialLine::CTS, 0), "CTS Status = CLEAR(Pin 8-IN)");
}

}  // namespace
}  // namespace kelvane

TEST(BoatLeftInnerBox, MiddleThirdOfTheView) {
  // A view from 51N to 50N and 2W to 1W: the inner box runs from 50.333N
  // to 50.667N and from 1.667W to 1.333W.
  struct Case {
    float lat, lon;
    bool left;
  } cases[] = {{50.5f, -1.5f, false}, {50.66f, -1.34f, false}, {50.7f, -1.5f, true},
               {50.3f, -1.5f, true},  {50.5f, -1.7f, true},    {50.5f, -1.3f, true}};
  for (const Case& c : cases)
    EXPECT_EQ(kelvane::BoatLeftInnerBox(51.0f, -2.0f, 50.0f, -1.0f, c.lat, c.lon), c.left) << c.lat << " " << c.lon;
}
