// The AIS decoders against an independent decoder: gpsd's gpsdecode (Debian
// package gpsd-clients), run in unscaled mode on the same sentences. It
// agrees on MMSI, position (up to the one unit by which this program's sign
// rule differs from two's complement on negative values), speed, course,
// texts and dimensions. Differences the program keeps on purpose are taken
// into account, not compared: the navigation status of types 1 and 2 is not
// carried, callsigns lose their blanks, the ETA month is shown as the old
// date formatter makes it, and "@" is removed only when a record is stored.
#include <gtest/gtest.h>

#include <fstream>

#include "core/format.h"
#include "instruments/ais_decode.h"
#include "instruments/nmea.h"
#include "support/ais_encoder.h"
#include "support/commands.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::ParseFlatJson;

bool HaveGpsdecode() { return std::system("command -v gpsdecode >/dev/null 2>&1") == 0; }

std::string WithoutAt(std::string s) {
  std::erase(s, '@');
  return s;
}

std::string Trim(const std::string& s) {
  std::size_t b = s.find_first_not_of(' ');
  if (b == std::string::npos) return {};
  return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// Our coordinate from gpsd's two's-complement value: one unit more for a
// negative field, then / 600000 into a single.
float Expected(long long raw) { return static_cast<float>(static_cast<double>(raw < 0 ? raw + 1 : raw) / 600000.0); }

float Tenths(const std::string& raw) { return static_cast<float>(std::stod(raw) / 10.0); }

std::string Dimensions(const std::map<std::string, std::string>& g) {
  double length = std::stod(g.at("to_bow")) + std::stod(g.at("to_stern"));
  double beam = std::stod(g.at("to_port")) + std::stod(g.at("to_starboard"));
  return NumberText(length) + " x " + NumberText(beam);
}

void Compare(const AisMessage& m, const std::map<std::string, std::string>& g) {
  ASSERT_EQ(std::to_string(m.type), g.at("type"));
  EXPECT_EQ(std::to_string(m.mmsi), g.at("mmsi"));
  if (m.hasPosition) {
    EXPECT_EQ(m.lon, Expected(std::stoll(g.at("lon"))));
    EXPECT_EQ(m.lat, Expected(std::stoll(g.at("lat"))));
  }
  switch (m.type) {
    case 1:
    case 2:
    case 18:
      EXPECT_EQ(m.speed, Tenths(g.at("speed")));
      EXPECT_EQ(m.course, Tenths(g.at("course")));
      EXPECT_EQ(m.second, std::stof(g.at("second")));
      EXPECT_EQ(m.status, m.type == 18 ? 1 : 0);  // gpsd's status is not carried
      break;
    case 9:
      EXPECT_EQ(m.speed, std::stof(g.at("speed")));  // knots as they stand
      EXPECT_EQ(m.course, Tenths(g.at("course")));
      EXPECT_EQ(std::to_string(m.altitude), g.at("alt"));
      break;
    case 5: {
      std::string callsign = g.at("callsign");
      std::erase(callsign, ' ');
      EXPECT_EQ(WithoutAt(m.callsign), callsign);
      EXPECT_EQ(Trim(WithoutAt(m.vesselName)), g.at("shipname"));
      EXPECT_EQ(Trim(WithoutAt(m.destination)), g.at("destination"));
      EXPECT_EQ(std::to_string(m.shipTypeCode), g.at("shiptype"));
      EXPECT_EQ(std::to_string(m.imo), g.at("imo"));
      double draught = std::stod(g.at("draught")) / 10.0;
      EXPECT_EQ(m.dimensions, Dimensions(g) + " x " + NumberText(draught));
      // gpsd's "MM-DDTHH:MMZ" against "DD/<month> @ HH:MM".
      const std::string& eta = g.at("eta");
      EXPECT_EQ(m.eta.substr(0, 2), eta.substr(3, 2));
      EXPECT_EQ(m.eta.substr(m.eta.size() - 5), eta.substr(6, 5));
      int month = std::stoi(eta.substr(0, 2));
      EXPECT_EQ(m.eta.substr(3, 3), month <= 1 ? "Dec" : "Jan");
      break;
    }
    case 21:
      EXPECT_EQ(Trim(WithoutAt(m.vesselName)), g.at("name"));
      EXPECT_EQ(std::to_string(m.aidType), g.at("aid_type"));
      EXPECT_EQ(m.offPosition != 0 ? "true" : "false", g.at("off_position"));
      EXPECT_EQ(m.dimensions, Dimensions(g));
      break;
    case 24:
      if (m.part == 0) {
        EXPECT_EQ(g.at("part"), "A");
        EXPECT_EQ(Trim(WithoutAt(m.vesselName)), g.at("shipname"));
      } else {
        EXPECT_EQ(g.at("part"), "B");
        std::string callsign = g.at("callsign");
        std::erase(callsign, ' ');
        EXPECT_EQ(WithoutAt(m.callsign), callsign);
        EXPECT_EQ(std::to_string(m.shipTypeCode), g.at("shiptype"));
        EXPECT_EQ(m.dimensions, Dimensions(g));
      }
      break;
    default: FAIL() << "unexpected type " << m.type;
  }
}

TEST(Gpsdecode, AgreesOnEncodedMessagesOfEveryDecodedType) {
  if (!HaveGpsdecode()) GTEST_SKIP() << "gpsdecode (gpsd-clients) is not installed";
  auto dir = testing::MakeTempDir("kelvane-gpsdecode");
  auto log = dir / "encoded.nmea";
  std::vector<std::string> sentences;
  {
    testing::RandomAis random(20261123);
    std::ofstream out(log);
    for (int i = 0; i < 3000; ++i)
      for (const std::string& s : random.Next()) {
        sentences.push_back(s);
        out << s << "\n";
      }
    // Negative extremes and the all-ones fields of the sign rule.
    testing::PositionA a;
    a.mmsi = 235000001;
    a.lon = -1;
    a.lat = -1;
    for (const std::string& s : testing::AivdmSentences(testing::BitsOf(a))) {
      sentences.push_back(s);
      out << s << "\n";
    }
  }
  std::vector<std::string> gpsd =
      testing::SplitLines(testing::RunCommand("gpsdecode -u -s < '" + log.string() + "' 2>/dev/null"));

  std::vector<AisMessage> ours;
  AisDecoderState state;
  std::map<int, int> types;
  for (const std::string& s : sentences) {
    ASSERT_TRUE(SentenceChecksumOk(s)) << s;
    AisDispatchResult r = DecodeAivdm(s, state);
    if (r.outcome == AisOutcome::Decoded) {
      ours.push_back(r.message);
      ++types[r.message.type];
    }
  }
  ASSERT_EQ(ours.size(), gpsd.size());
  for (int type : {1, 2, 5, 9, 18, 21, 24}) EXPECT_GT(types[type], 50) << "type " << type;
  for (std::size_t i = 0; i < ours.size(); ++i) {
    SCOPED_TRACE("message " + std::to_string(i) + ": " + gpsd[i]);
    Compare(ours[i], ParseFlatJson(gpsd[i]));
    if (::testing::Test::HasFailure()) break;
  }
  std::filesystem::remove_all(dir);
}

// The published sample of the AIVDM protocol notes, type 1 with a negative
// longitude: gpsdecode and this decoder differ by exactly one unit there.
TEST(Gpsdecode, PublishedSampleDiffersByOneUnitOnNegativeLongitude) {
  if (!HaveGpsdecode()) GTEST_SKIP() << "gpsdecode (gpsd-clients) is not installed";
  const std::string line = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C";
  auto g = ParseFlatJson(testing::RunCommand("echo '" + line + "' | gpsdecode -u"));
  AisDecoderState state;
  AisDispatchResult r = DecodeAivdm(line, state);
  ASSERT_EQ(r.outcome, AisOutcome::Decoded);
  EXPECT_EQ(g.at("lon"), "-73407500");
  EXPECT_EQ(r.message.lon, static_cast<float>(-73407499 / 600000.0));
  EXPECT_EQ(g.at("status"), "5");  // "Moored" by gpsd; the program carries status 0
  EXPECT_EQ(r.message.status, 0);
}

}  // namespace
}  // namespace kelvane
