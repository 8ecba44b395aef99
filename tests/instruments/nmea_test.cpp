// NMEA sentences through the checksum, the parsers and the own-ship rules.
// Checksums of the sentences below were worked out with a separate script
// (XOR of the characters between "$" and "*"); the positions by hand:
// 5051.206 N is 50 + 51.206 / 60 = 50.853433 degrees.
#include <gtest/gtest.h>

#include <random>

#include "instruments/nmea.h"
#include "instruments/receive.h"

namespace kelvane {
namespace {

const std::string kRmc = "$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*78";
const std::string kRmcVoid = "$GPRMC,124541,V,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*6F";
const std::string kRmcShortLat = "$GPRMC,124541,A,5051.20,N,00123.456,W,5.5,054.7,230394,003.1,W*4E";
const std::string kRmcLongMinutes = "$GPRMC,124541,A,5051.206,N,00123.4567,W,,,230394,003.1,W*49";
const std::string kRmcSouthEast = "$GPRMC,000000,A,5000.000,S,00030.000,E,0,0,010124,,*00";
const std::string kRmcWithMode = "$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W,A*15";
const std::string kRmcInXxx = "$GPXXX,RMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*0C";
const std::string kGll = "$GPGLL,4916.45,N,12311.12,W,225444,A*31";
const std::string kGllVoid = "$GPGLL,5051.206,N,00123.456,W,124541,V*2A";
const std::string kRmb = "$GPRMB,A,0.66,L,003,004,4917.24,N,12309.57,W,001.3,052.5,000.5,V*20";
const std::string kRmbNoId = "$GPRMB,A,0.66,R,003,,4917.24,N,12309.57,W,,,000.5,V*0A";
const std::string kRmbLongId = "$GPRMB,A,0.66,L,003,WAYPOINTLONG,4917.24,S,12309.57,E,001.3,052.5,000.5,V*12";
const std::string kGsa = "$GPGSA,A,3,,,,,,,,,,,,,1.0,1.0,1.0*33";
const std::string kAivdm = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C";

const ClockReading kNow{2026, 11, 23, 14, 5, 30};

void Decode(InstrumentsState& s, const std::string& line) { NmeaDecode(line, s.own, s.monitor, s.track, kNow); }

TEST(NmeaChecksum, XorAsTwoUpperCaseDigits) {
  EXPECT_EQ(NmeaChecksum(""), "00");
  EXPECT_EQ(NmeaChecksum("A"), "41");
  EXPECT_EQ(NmeaChecksum("AB"), "03");  // 0x41 ^ 0x42: one digit, padded
  EXPECT_EQ(NmeaChecksum("GPGSA,A,3,,,,,,,,,,,,,1.0,1.0,1.0"), "33");
  EXPECT_EQ(NmeaChecksum(std::string("\xff")), "FF");
}

TEST(SentenceChecksumOk, CasesOfTheLineTest) {
  struct Case {
    std::string line;
    bool ok;
  } cases[] = {
      {kRmc, true},
      {kRmc + "\r", true},
      {"$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*6f", false},  // lower case
      {"$GPGSA,A,3,,,,,,,,,,,,,1.0,1.0,1.0*3", false},                                // one digit
      {"$GPGSA,A,3,,,,,,,,,,,,,1.0,1.0,1.0", false},                                  // no star
      {"XGPGSA,A,3,,,,,,,,,,,,,1.0,1.0,1.0*33", true},  // the first character is skipped whatever it is
      {"*00", false},
      {"", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    EXPECT_EQ(SentenceChecksumOk(c.line), c.ok);
  }
}

TEST(ParseRMC, FieldsTextsAndValues) {
  RmcFields r = ParseRMC(kRmc);
  EXPECT_EQ(r.status, "GOOD");
  EXPECT_EQ(r.time, "124541");
  EXPECT_EQ(r.latText, "50.51.206N");
  EXPECT_EQ(r.lonText, "001.23.456W");
  EXPECT_EQ(r.lat, static_cast<float>(50 + 51.206 / 60));
  EXPECT_EQ(r.lon, -static_cast<float>(1 + 23.456 / 60));
  EXPECT_EQ(r.speedText, "5.5");
  EXPECT_EQ(r.courseText, "054.7");
  EXPECT_EQ(r.dateText, "230394");
  EXPECT_EQ(r.variationText, "003.1");
  EXPECT_EQ(r.variationSide, "W");

  RmcFields se = ParseRMC(kRmcSouthEast);
  EXPECT_EQ(se.lat, -50.0f);
  EXPECT_EQ(se.lon, 0.5f);
  EXPECT_EQ(se.variationSide, "");

  // The checksum is the parser's own business too.
  EXPECT_EQ(ParseRMC("$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*79").status, "BAD");
  // The newer mode field stays in the variation side: all up to the "*".
  EXPECT_EQ(ParseRMC(kRmcWithMode).variationSide, "W,A");
}

TEST(NmeaDecode, RmcStatesOfTheOwnShip) {
  InstrumentsState s;
  Decode(s, kRmc);
  EXPECT_EQ(s.own.GPSValid, -1);
  EXPECT_EQ(s.own.GPSRmcSeen, -1);
  EXPECT_EQ(s.own.GPSTimeText, "124541");
  EXPECT_EQ(s.own.GPSDateText, "230394");
  EXPECT_EQ(s.own.GPSVariationText, "003.1W");
  EXPECT_EQ(s.own.GPSPositionText, "50.51.206N  001.23.456W");
  EXPECT_EQ(s.own.GPSCourseSpeedText, "Heading 54.7\xC2\xB0T @ 5.5 Kn");
  EXPECT_EQ(s.own.GPSSpeed, 5.5f);
  EXPECT_EQ(s.own.GPSCourse, 54.7f);
  ASSERT_EQ(s.track.UpperBound(), 1u);
  EXPECT_EQ(s.track.points[1].Hour, 12);
  EXPECT_EQ(s.track.points[1].Minute, 45);
  EXPECT_EQ(s.track.points[1].Second, 41);
  EXPECT_EQ(s.track.points[1].Speed, 5.5f);

  // A void fix still moves the numbers and the texts, and clears GPSValid.
  InstrumentsState v;
  Decode(v, kRmcVoid);
  EXPECT_EQ(v.own.GPSValid, 0);
  EXPECT_EQ(v.own.GPSLat, static_cast<float>(50 + 51.206 / 60));
  EXPECT_EQ(v.own.GPSCourseSpeedText, "Heading54.7\xC2\xB0T @ 5.5 Kn");
  EXPECT_EQ(v.own.GPSTimeText, "");
  EXPECT_EQ(v.track.UpperBound(), 0u);

  // Latitude of 7 characters: a warning, and the latitude reads 0.
  Decode(s, kRmcShortLat);
  EXPECT_EQ(s.own.GPSValid, 0);
  EXPECT_EQ(s.own.GPSLat, 0.0f);
  EXPECT_EQ(s.own.GPSPositionText, "0.0N  001.23.456W");

  // Longitude minutes of 7 characters lose the last; empty speed gives 0.
  Decode(s, kRmcLongMinutes);
  EXPECT_EQ(s.own.GPSValid, -1);
  EXPECT_EQ(s.own.GPSPositionText, "50.51.206N  001.23.456W");
  EXPECT_EQ(s.own.GPSSpeed, 0.0f);
  EXPECT_EQ(s.own.GPSCourse, 0.0f);

  // Any sentence holding the letters RMC is read as an RMC.
  InstrumentsState x;
  Decode(x, kRmcInXxx);
  EXPECT_EQ(x.own.GPSRmcSeen, -1);
  EXPECT_EQ(x.own.GPSValid, 0);
}

TEST(NmeaDecode, GllOnlyWithoutRmc) {
  InstrumentsState s;
  s.own.GPSSpeed = 3.25f;
  Decode(s, kGll);
  EXPECT_EQ(s.own.GPSValid, -1);
  EXPECT_EQ(s.own.GPSLat, static_cast<float>(49 + 16.45 / 60));
  EXPECT_EQ(s.own.GPSLong, -static_cast<float>(123 + 11.12 / 60));
  EXPECT_EQ(s.own.GPSTimeText, "225444");
  EXPECT_EQ(s.own.GPSDateText, "231126");  // from the clock
  EXPECT_EQ(s.own.GPSSpeed, 3.25f);        // a GLL fix keeps the speed
  EXPECT_EQ(s.track.UpperBound(), 1u);

  // A void GLL leaves a good fix standing.
  Decode(s, kGllVoid);
  EXPECT_EQ(s.own.GPSValid, -1);
  EXPECT_EQ(s.own.GPSLat, static_cast<float>(49 + 16.45 / 60));

  // After any RMC, even a void one, GLL changes nothing.
  Decode(s, kRmcVoid);
  float lat = s.own.GPSLat;
  Decode(s, kGll);
  EXPECT_EQ(s.own.GPSValid, 0);
  EXPECT_EQ(s.own.GPSLat, lat);
}

TEST(NmeaDecode, RmbWaypointTextAndLabels) {
  InstrumentsState s;
  Decode(s, kRmb);
  EXPECT_EQ(s.own.GPSWaypointText, "Waypt (004) 001.3M@052.5\xC2\xB0T");
  EXPECT_EQ(s.own.GPSWaypointValid, -1);
  EXPECT_EQ(s.monitor.lblxte, "0.66");
  EXPECT_EQ(s.monitor.lblsteerdir, "Port");
  EXPECT_EQ(s.monitor.steerColour, 0xFF0000u);
  EXPECT_EQ(s.monitor.lblwaylat, "49\xC2\xB0" "17.24N");
  EXPECT_EQ(s.monitor.lblwaylong, "123\xC2\xB0" "09.57W");
  EXPECT_EQ(s.monitor.lblwaydist, "001.3");
  EXPECT_EQ(s.monitor.lblwaybearing, "052.5");

  // Identifiers are cut to 6 characters in the text, not in the label.
  Decode(s, kRmbLongId);
  EXPECT_EQ(s.own.GPSWaypointText, "Waypt (WAYPOI) 001.3M@052.5\xC2\xB0T");
  EXPECT_EQ(s.monitor.lblwayname, "WAYPOINTLONG");
  EXPECT_EQ(s.monitor.lblwaylat, "49\xC2\xB0" "17.24S");

  // No identifier: the text is cleared, the labels are still written.
  Decode(s, kRmbNoId);
  EXPECT_EQ(s.own.GPSWaypointText, "");
  EXPECT_EQ(s.monitor.lblsteerdir, "Stbd");
  EXPECT_EQ(s.monitor.steerColour, 0x00FF00u);
  EXPECT_EQ(s.monitor.lblwayname, "");
  EXPECT_EQ(s.monitor.lblwaybearing, "");
  EXPECT_EQ(s.own.GPSWaypointValid, -1);  // never cleared here
}

TEST(LineAssemblers, ChunksSplitAndJoined) {
  InstrumentsState s;
  std::string stream = kRmc + "\r\n" + kRmb + "\r\n";
  // Every split point of the two sentences gives the same result.
  for (std::size_t cut = 1; cut < stream.size(); cut += 7) {
    SCOPED_TRACE(cut);
    InstrumentsState t;
    auto first = GpsLineAssembler(t, stream.substr(0, cut), kNow);
    auto second = GpsLineAssembler(t, stream.substr(cut), kNow);
    EXPECT_EQ(first.size() + second.size(), 2u);
    EXPECT_EQ(t.own.GPSValid, -1);
    EXPECT_EQ(t.own.GPSWaypointText, "Waypt (004) 001.3M@052.5\xC2\xB0T");
  }
  // The monitor shows each line with CR LF after it.
  GpsLineAssembler(s, stream, kNow);
  EXPECT_EQ(s.monitorText, kRmc + "\r\r\n" + kRmb + "\r\r\n");
}

TEST(LineAssemblers, PortsDifferOnAivdmAndGpsData) {
  InstrumentsState gps;
  auto lines = GpsLineAssembler(gps, kAivdm + "\r\n", kNow);
  EXPECT_EQ(gps.targets.AISTargets.size(), 0u);

  InstrumentsState ais;
  AisLineAssembler(ais, kAivdm + "\r\n" + kRmc + "\r\n", kNow);
  ASSERT_EQ(ais.targets.AISTargets.size(), 1u);
  EXPECT_EQ(ais.targets.AISTargets[0].MMSI, 477553000);
  EXPECT_EQ(ais.own.GPSValid, 0);  // GPS data on the AIS port only with the setting on

  InstrumentsState shared;
  shared.GPSThroAIS = -1;
  AisLineAssembler(shared, kAivdm + "\r\n" + kRmc + "\r\n", kNow);
  EXPECT_EQ(shared.own.GPSValid, -1);
  EXPECT_EQ(shared.targets.AISTargets.size(), 1u);
}

TEST(LineAssemblers, LowerCaseChecksumDropped) {
  InstrumentsState s;
  auto lines = GpsLineAssembler(s, "$GPRMC,124541,A,5051.206,N,00123.456,W,5.5,054.7,230394,003.1,W*6f\r\n", kNow);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_FALSE(lines[0].accepted);
  EXPECT_EQ(s.own.GPSRmcSeen, 0);
}

TEST(SentenceFilter, LogsOneOfEachTypePerPeriod) {
  InstrumentsState s;
  s.log.LoggingOn = -1;
  std::string stream = kRmc + "\r\n" + kRmc + "\r\n" + kRmb + "\r\n" + kGsa + "\r\n" + kGll + "\r\n";
  GpsLineAssembler(s, stream, kNow);
  EXPECT_EQ(s.log.LogBuffer, (std::vector<std::string>{kRmc, kRmb, kGsa, kGll}));
  s.seen.ClearForFlush();
  s.log.LogBuffer.clear();
  GpsLineAssembler(s, stream, kNow);
  // RMB stays seen for the run; the others are logged again.
  EXPECT_EQ(s.log.LogBuffer, (std::vector<std::string>{kRmc, kGsa, kGll}));

  // The AIS port logs !AIVDM every time and no GSA or RMB.
  InstrumentsState a;
  a.log.LoggingOn = -1;
  AisLineAssembler(a, kAivdm + "\r\n" + kAivdm + "\r\n" + kGsa + "\r\n" + kRmb + "\r\n", kNow);
  EXPECT_EQ(a.log.LogBuffer, (std::vector<std::string>{kAivdm, kAivdm}));
}

TEST(BadInput, TheChainGoesOn) {
  std::mt19937 rng(8);
  InstrumentsState s;
  // Random bytes, in chunks of random sizes, on both ports.
  for (int i = 0; i < 2000; ++i) {
    std::string chunk(rng() % 300, '\0');
    for (char& c : chunk) c = static_cast<char>(rng() % 256);
    GpsLineAssembler(s, chunk, kNow);
    AisLineAssembler(s, chunk, kNow);
  }
  // An over-long line with no carriage return, then a good sentence.
  std::string longLine = "$GPRMC" + std::string(200000, 'x');
  GpsLineAssembler(s, longLine, kNow);
  AisLineAssembler(s, longLine, kNow);
  GpsLineAssembler(s, "\r\n" + kRmb + "\r\n", kNow);
  EXPECT_EQ(s.own.GPSWaypointText, "Waypt (004) 001.3M@052.5\xC2\xB0T");
  // The AIS buffer took the good line onto the long one; the next is clean.
  AisLineAssembler(s, "\r\n" + kAivdm + "\r\n", kNow);
  EXPECT_TRUE(std::any_of(s.targets.AISTargets.begin(), s.targets.AISTargets.end(),
                          [](const AISTarget& t) { return t.MMSI == 477553000; }));

  // 82 commas: an even number XORs to 0; with the RMC name, an RMC of
  // empty fields: a warning at 0, 0.
  std::string commas(82, ',');
  std::string bare = "$" + commas + "*00";
  std::string rmc = "$GPRMC" + commas + "*" + NmeaChecksum("GPRMC" + commas);
  InstrumentsState c;
  GpsLineAssembler(c, bare + "\r\n" + rmc + "\r\n", kNow);
  EXPECT_EQ(c.own.GPSRmcSeen, -1);
  EXPECT_EQ(c.own.GPSValid, 0);
  EXPECT_EQ(c.own.GPSPositionText, "0.0  0.0");
  AisLineAssembler(c, "!AIVDM" + commas + "*" + NmeaChecksum("AIVDM" + commas) + "\r\n", kNow);
}

}  // namespace
}  // namespace kelvane
