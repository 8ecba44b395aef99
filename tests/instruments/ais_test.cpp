// The AIS decoder: armouring, the bit arithmetic, the sign rule, the
// dispatch table, the texts. Messages are built with the test encoder from
// chosen field values; the expected values follow from those by hand.
#include <gtest/gtest.h>

#include "instruments/ais_decode.h"
#include "instruments/receive.h"
#include "support/ais_encoder.h"

namespace kelvane {
namespace {

using testing::AivdmSentences;
using testing::BitsOf;

AisDispatchResult DecodeOne(const std::string& bits, AisDecoderState& state) {
  std::vector<std::string> lines = AivdmSentences(bits);
  return DecodeAivdm(lines.at(0), state);
}

TEST(AisArmour, CharacterTables) {
  struct Case {
    char c;
    std::string bits;
  } cases[] = {{'0', "000000"}, {'1', "000001"}, {'W', "100111"}, {'`', "101000"},
               {'w', "111111"}, {'X', ""},       {'_', ""},       {'x', ""}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.c);
    EXPECT_EQ(BitsFromChar(c.c), c.bits);
  }
  struct Text {
    int code;
    std::string text;
  } texts[] = {{0, "@"},  {1, "A"},  {26, "Z"}, {27, "["}, {28, "\\"}, {29, "]"}, {30, "^"}, {31, "_"},
               {32, " "}, {33, "!"}, {34, ""},  {35, "#"}, {48, "0"},  {63, "?"}, {64, ""},  {-1, ""}};
  for (const Text& t : texts) {
    SCOPED_TRACE(t.code);
    EXPECT_EQ(CharFromCode(t.code), t.text);
  }
}

TEST(AisArmour, BitsToNumber) {
  EXPECT_EQ(BitsToNumber(""), 0);
  EXPECT_EQ(BitsToNumber("101"), 5);
  EXPECT_EQ(BitsToNumber("000001"), 1);
  EXPECT_EQ(BitsToNumber("1" + std::string(31, '0')), 2147483648LL);
  EXPECT_EQ(BitsToNumber("1" + std::string(32, '0')), std::nullopt);  // beyond the table
  EXPECT_EQ(BitsToNumber("12"), std::nullopt);                         // run-time error 5
  // A character outside the armour leaves six zero bits in the payload.
  EXPECT_EQ(AisBits("1X1").Number(0, 18), (1 << 12) | 1);
  EXPECT_EQ(PayloadType("177KQJ5"), 1);
  EXPECT_EQ(PayloadType("H5"), 24);
}

TEST(AisSignRule, OneUnitShortOfTwosComplement) {
  struct Case {
    std::int64_t lon, lat;  // encoded, 1/10000 minute
    double expectLon, expectLat;
  } cases[] = {
      {0, 0, 0, 0},
      {600000, 300000, 1.0, 0.5},
      {-1, -1, 0.0, 0.0},                        // all ones: 0, not -1 unit
      {-600000, -300000, -599999 / 600000.0, -299999 / 600000.0},
      {181 * 600000, 91 * 600000, 181.0, 91.0},  // "not available" stored as it is
      {-(1LL << 27), -(1LL << 26), -134217727 / 600000.0, -67108863 / 600000.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.lon) + " " + std::to_string(c.lat));
    testing::PositionA m;
    m.mmsi = 235000000;
    m.lon = c.lon;
    m.lat = c.lat;
    AisDecoderState state;
    AisDispatchResult r = DecodeOne(BitsOf(m), state);
    ASSERT_EQ(r.outcome, AisOutcome::Decoded);
    EXPECT_EQ(r.message.lon, static_cast<float>(c.expectLon));
    EXPECT_EQ(r.message.lat, static_cast<float>(c.expectLat));
  }
}

TEST(AisDecoders, PositionReports) {
  testing::PositionA a;
  a.type = 2;
  a.mmsi = 235012345;
  a.status = 5;  // moored: read and thrown away
  a.speed = 123;
  a.course = 2705;
  a.second = 42;
  a.lon = -(1 * 600000 + 23456 * 10);  // 1 23.456W
  a.lat = 50 * 600000 + 51206 * 10;    // 50 51.206N
  AisDecoderState state;
  AisDispatchResult r = DecodeOne(BitsOf(a), state);
  ASSERT_EQ(r.outcome, AisOutcome::Decoded);
  EXPECT_EQ(r.message.type, 2);
  EXPECT_EQ(r.message.mmsi, 235012345);
  EXPECT_EQ(r.message.speed, 12.3f);
  EXPECT_EQ(r.message.course, 270.5f);
  EXPECT_EQ(r.message.second, 42.0f);
  EXPECT_EQ(r.message.status, 0);
  EXPECT_EQ(r.message.lat, static_cast<float>(30512060 / 600000.0));
  EXPECT_EQ(r.message.lon, static_cast<float>(-834559 / 600000.0));  // one unit towards zero

  testing::SarAircraft sar;
  sar.mmsi = 111232511;
  sar.altitude = 1500;
  sar.speed = 102;
  sar.course = 901;
  r = DecodeOne(BitsOf(sar), state);
  EXPECT_EQ(r.message.speed, 102.0f);  // knots as they stand
  EXPECT_EQ(r.message.altitude, 1500);
  EXPECT_EQ(r.message.course, 90.1f);

  testing::PositionB b;
  b.mmsi = 235099999;
  b.speed = 55;
  b.course = 100;
  r = DecodeOne(BitsOf(b), state);
  EXPECT_EQ(r.message.speed, 5.5f);
  EXPECT_EQ(r.message.course, 10.0f);
  EXPECT_EQ(r.message.status, 1);

  EXPECT_EQ(state.AisMessageCount[2], 1);
  EXPECT_EQ(state.AisMessageCount[18], 1);
  EXPECT_EQ(state.AisMessageCount[9], 0);  // type 9 is decoded but not counted
}

TEST(AisDecoders, StaticVoyageDataInTwoFragments) {
  testing::StaticA m;
  m.mmsi = 235000555;
  m.imo = 9123456;
  m.callsign = "2AB C";
  m.name = "KELVANE \"ONE\"";  // code 34 leaves no character
  m.destination = "POOLE";
  m.shipType = 37;
  m.toBow = 8;
  m.toStern = 4;
  m.toPort = 2;
  m.toStarboard = 2;
  m.month = 7;
  m.day = 5;
  m.hour = 7;
  m.minute = 3;
  m.draught = 18;
  std::vector<std::string> lines = AivdmSentences(BitsOf(m), 60);
  ASSERT_EQ(lines.size(), 2u);
  AisDecoderState state;
  EXPECT_EQ(DecodeAivdm(lines[0], state).outcome, AisOutcome::FirstFragment);
  AisDispatchResult r = DecodeAivdm(lines[1], state);
  ASSERT_EQ(r.outcome, AisOutcome::Decoded);
  const AisMessage& s = r.message;
  EXPECT_EQ(s.callsign, "2ABC@@");  // blanks dropped; "@" goes only when stored
  EXPECT_EQ(s.vesselName, "KELVANE ONE@@@@@@@");
  EXPECT_EQ(s.destination.substr(0, 6), "POOLE@");
  EXPECT_EQ(s.shipType, "Pleasure Craft");
  EXPECT_EQ(s.dimensions, "12 x 4 x 1.8");
  EXPECT_EQ(s.eta, "05/Jan @ 07:03");  // month 7 read as a day count: January 1900
  EXPECT_EQ(s.imo, 9123456);
  EXPECT_EQ(state.AisMessageCount[5], 1);

  // A second fragment alone joins the stale first one: here a type-5 pair
  // again; after another message's first fragment it is dropped.
  testing::PositionA a;
  a.mmsi = 1;
  std::string other = AivdmSentences(BitsOf(a))[0];
  std::string otherPayload = other.substr(14, other.find(',', 14) - 14);
  std::string body = "AIVDM,2,1,3,B," + otherPayload + ",0";
  DecodeAivdm(testing::WithChecksum(body, '!'), state);
  EXPECT_EQ(DecodeAivdm(lines[1], state).outcome, AisOutcome::DroppedJoined);
}

TEST(AisDecoders, EtaMonthQuirk) {
  struct Case {
    int month;
    const char* text;
  } cases[] = {{0, "Dec"}, {1, "Dec"}, {2, "Jan"}, {12, "Jan"}, {15, "Jan"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.month);
    EXPECT_EQ(EtaMonthText(c.month), c.text);
  }
}

TEST(AisDecoders, AidAndClassBStatic) {
  // The debug menu's fixed aid; the values agree with gpsdecode's reading
  // of the same payload (name "MID CHANNEL", aid type 3, 10+11 by 12+13).
  InstrumentsState st;
  AisDispatchResult r = DecodeTestAid(st, ClockReading{2026, 1, 1, 10, 0, 0});
  ASSERT_EQ(r.outcome, AisOutcome::Decoded);
  EXPECT_EQ(r.message.mmsi, 212190346);
  EXPECT_EQ(r.message.aidType, 3);
  EXPECT_EQ(r.message.shipType, "Structure");
  EXPECT_EQ(r.message.dimensions, "21 x 25");
  EXPECT_EQ(r.message.offPosition, 1);
  EXPECT_EQ(r.message.lon, static_cast<float>(-601395 / 600000.0));
  EXPECT_EQ(r.message.lat, static_cast<float>(30309976 / 600000.0));
  ASSERT_EQ(st.targets.AISTargets.size(), 1u);
  const AISTarget& aid = st.targets.AISTargets[0];
  EXPECT_EQ(aid.Status, 100);
  EXPECT_EQ(aid.VesselName, "MID CHANNEL");
  EXPECT_EQ(aid.Callsign, "NONE");
  EXPECT_EQ(aid.ShipType, "Aid to Navigation");
  EXPECT_EQ(aid.OffPosition, 1);

  testing::StaticB b;
  b.mmsi = 235000777;
  b.part = 1;
  b.shipType = 36;
  b.vendor = "AB C";
  b.callsign = "M 123";
  b.toBow = 6;
  b.toStern = 4;
  b.toPort = 1;
  b.toStarboard = 2;
  AisDecoderState state;
  r = DecodeOne(BitsOf(b), state);
  EXPECT_EQ(r.message.part, 1);
  EXPECT_EQ(r.message.shipType, "Sailing");
  EXPECT_EQ(r.message.vendor, "ABC@@@");
  EXPECT_EQ(r.message.callsign, "M123@@");
  EXPECT_EQ(r.message.dimensions, "10 x 3");
}

TEST(AisDecoders, DispatchTableAndTruncatedPayloads) {
  AisDecoderState state;
  testing::PositionA three;
  three.type = 3;
  three.mmsi = 2;
  EXPECT_EQ(DecodeOne(BitsOf(three), state).outcome, AisOutcome::CountedOnly);
  EXPECT_EQ(state.AisMessageCount[3], 1);
  // Three fragments are not supported.
  EXPECT_EQ(DecodeAivdm(testing::WithChecksum("AIVDM,3,1,1,A,177KQJ5000G?tO`K>RA1wUbN0TKH,0", '!'), state).outcome,
            AisOutcome::Ignored);
  // Too short to be an AIVDM line at all.
  EXPECT_EQ(DecodeAivdm("!AIVDM,1,1,,A,1*00", state).outcome, AisOutcome::NotAivdm);

  // A type-1 payload cut after 54 bits: MMSI whole, speed from the 4 bits
  // that are there, position 0, 0.
  testing::PositionA a;
  a.mmsi = 235012345;
  a.speed = 0x3FF;
  std::string full = testing::Armour(BitsOf(a)).payload;
  AisMessage m = DecodeAIS1(AisBits(full.substr(0, 9)));
  EXPECT_EQ(m.mmsi, 235012345);
  EXPECT_EQ(m.speed, 1.5f);  // 0b1111 / 10
  EXPECT_EQ(m.lat, 0.0f);
  EXPECT_EQ(m.lon, 0.0f);
  // Every cut of a type-5 message decodes without a fault.
  testing::StaticA s;
  s.name = "TRUNCATED";
  std::string payload = testing::Armour(BitsOf(s)).payload;
  for (std::size_t n = 0; n <= payload.size(); ++n) DecodeAIS5(AisBits(payload.substr(0, n)));
  EXPECT_EQ(DecodeAIS5(AisBits(payload.substr(0, 20))).vesselName.size(), 20u);
}

TEST(AisTexts, StatusShipAndAidTables) {
  EXPECT_EQ(NavStatusText(0), "Underway engine");
  EXPECT_EQ(NavStatusText(1), "");
  EXPECT_EQ(NavStatusText(8), "Underway sailing");
  EXPECT_EQ(NavStatusText(9), "Not defined");
  EXPECT_EQ(NavStatusText(100), "AIS Virtual Mark (Aid to Navigation)");
  struct Case {
    int code;
    const char* text;
  } ships[] = {{0, "Not available"},     {19, "reserved"},         {20, "Hazardous"},
               {23, "Hazardous category C"}, {29, "Reserved"},     {37, "Pleasure Craft"},
               {45, "High speed craft"}, {55, "55"},               {57, "Local Vessel"},
               {65, "Passenger"},        {70, "Cargo"},            {72, "Cargo, Hazardous"},
               {79, "Cargo"},            {80, "Tanker"},           {89, "Tanker, Hazardous"},
               {90, "Not Classified"},   {94, "Hazardous"},        {99, "Not Classified"}};
  for (const Case& c : ships) {
    SCOPED_TRACE(c.code);
    EXPECT_EQ(ShipTypeText(c.code), c.text);
  }
  EXPECT_EQ(AidTypeText(0), "Default");
  EXPECT_EQ(AidTypeText(27), "Preferred Channel Starboard hand ");
  EXPECT_EQ(AidTypeText(31), "Light Starboard hand Mark");
}

}  // namespace
}  // namespace kelvane
