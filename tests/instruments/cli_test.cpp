// kelvane-cli nmea, ais and listen against logs with expected output beside
// them (tests/data/instruments, see its README for where they came from),
// bad input, and the listening loop on a socat pseudo-terminal whose other
// end goes away.
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <thread>

#include "core/recordio.h"
#include "support/commands.h"
#include "support/pty.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::ReadText;
using testing::RunCommand;
using testing::SplitLines;

const std::string kCli = KELVANE_CLI;
const std::string kData = std::string(KELVANE_TEST_DATA) + "/instruments/";

// Line by line; a missing or extra line fails as well as a differing one.
void ExpectSameLines(const std::string& actual, const std::string& expected) {
  std::vector<std::string> a = SplitLines(actual), e = SplitLines(expected);
  for (std::size_t i = 0; i < std::max(a.size(), e.size()); ++i) {
    SCOPED_TRACE("line " + std::to_string(i + 1));
    ASSERT_LT(i, a.size()) << "missing: " << e[i];
    ASSERT_LT(i, e.size()) << "extra: " << a[i];
    EXPECT_EQ(a[i], e[i]);
  }
}

TEST(CliAis, SampleLogGivesExpectedLines) {
  int code = -1;
  std::string out = RunCommand(kCli + " ais " + kData + "ais_sample.nmea", &code);
  EXPECT_EQ(code, 0);
  ExpectSameLines(out, ReadText(kData + "ais_sample.expected"));
  // Standard input gives the same.
  ExpectSameLines(RunCommand(kCli + " ais - < " + kData + "ais_sample.nmea"), out);
}

TEST(CliNmea, SampleLogOnBothPorts) {
  ExpectSameLines(RunCommand(kCli + " nmea " + kData + "nmea_sample.nmea"), ReadText(kData + "nmea_sample.expected"));
  ExpectSameLines(RunCommand(kCli + " nmea --ais-port " + kData + "nmea_sample.nmea"),
                  ReadText(kData + "nmea_sample_aisport.expected"));
}

TEST(CliBadInput, RandomBytesAndLongLinesGiveOneLineEach) {
  auto dir = testing::MakeTempDir("kelvane-cli-bad");
  std::string path = (dir / "junk.nmea").string();
  std::mt19937 rng(3);
  std::string junk;
  int lines = 0;
  for (int i = 0; i < 3000; ++i) {
    std::size_t n = rng() % 200;
    for (std::size_t k = 0; k < n; ++k) {
      char c = static_cast<char>(rng() % 256);
      junk.push_back(c == '\n' ? ' ' : c);
    }
    junk.push_back('\n');
    ++lines;
  }
  junk += "!AIVDM,1,1,,B," + std::string(100000, 'w') + ",0*00\n";
  junk += "$GPRMC" + std::string(82, ',') + "*00\n";
  lines += 2;
  WriteFileAtomic(path, std::vector<std::uint8_t>(junk.begin(), junk.end()));
  for (std::string command : {" ais ", " nmea ", " nmea --ais-port "}) {
    SCOPED_TRACE(command);
    int code = -1;
    std::string out = RunCommand(kCli + command + path, &code);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(SplitLines(out).size(), static_cast<std::size_t>(lines));
  }
  int code = 0;
  RunCommand(kCli + " ais " + (dir / "absent.nmea").string() + " 2>/dev/null", &code);
  EXPECT_EQ(code, 1);
  std::filesystem::remove_all(dir);
}

TEST(CliListen, ReadsAPortAndTellsWhenItIsGone) {
  if (std::system("command -v socat >/dev/null 2>&1") != 0) GTEST_SKIP() << "socat is not installed";
  auto dir = testing::MakeTempDir("kelvane-listen");
  testing::SocatPair pair(dir, "gps");
  ASSERT_TRUE(pair.ok());
  std::string out;
  std::thread listener(
      [&] { out = RunCommand(kCli + " listen --gps " + pair.b() + " --baud 4800 --seconds 8 --tick-ms 100"); });
  // Time for the listener to start and open its port, with room for a
  // slow instrumented build on a loaded machine.
  std::this_thread::sleep_for(std::chrono::milliseconds(2000));
  {
    testing::PacedWriter writer(pair.a(), 4800);
    ASSERT_TRUE(writer.ok());
    writer.Write("$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*78\r\n", 9);
    writer.Write("$GPRMB,A,0.66,L,003,004,4917.24,N,12309.57,W,001.3,052.5,000.5,V*20\r\n", 9);
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(2000));
  pair.Stop();  // the adapter is unplugged
  listener.join();
  EXPECT_NE(out.find("\"GPSValid\":-1,\"GPSLat\":50.85343,\"GPSLong\":-1.390933"), std::string::npos) << out;
  EXPECT_NE(out.find("\"GPSWaypointText\":\"Waypt (004) 001.3M@052.5\xC2\xB0T\""), std::string::npos) << out;
  std::size_t alive = out.find("\"0\":\"DCD Status = CLEAR(Pin 1-IN)\"");
  std::size_t gone = out.find("\"0\":\"DCD Port Doesnt exist\"");
  ASSERT_NE(alive, std::string::npos) << out;
  ASSERT_NE(gone, std::string::npos) << out;
  EXPECT_LT(alive, gone);
  EXPECT_NE(out.find("\"status\":\"Port Doesnt exist\""), std::string::npos) << out;

  int code = 0;
  std::string absent = RunCommand(kCli + " listen --gps " + (dir / "none").string() + " --seconds 1", &code);
  EXPECT_EQ(code, 1);
  EXPECT_EQ(absent,
            "The Comm Port 1 requested for the GPS does not exist or is in use.\r\n"
            "Use the Configure GPS menu to see what available ports are on this PC.\n");
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace kelvane
