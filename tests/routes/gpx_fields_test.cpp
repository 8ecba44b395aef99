// The line scanner, the position box validators and the comma fields.
#include <gtest/gtest.h>

#include "routes/gpxfields.h"

namespace kelvane {
namespace {

TEST(ParseGpxLine, Cases) {
  struct Case {
    const char* line;
    bool valid;
    float lat;
    float lon;
  };
  const Case cases[] = {
      {"  <wpt lat=\"50.58233\" lon=\" -1.930833\">", true, 50.58233f, -1.930833f},
      {"    <rtept lat=\"50.500000000\" lon=\"-2.000000000\">", true, 50.5f, -2.0f},
      {"<wpt lat=\"-33.5\" lon=\"151.2\">", true, 33.5f, 151.2f},  // the latitude takes no sign
      {"  <wpt lat=\"50.5\" lon=\"-1.5\"", false, 0, 0},          // no ">"
      {"<wpt lat=\"\" lon=\"-1.5\">", false, 0, 0},
      {"<wpt lat=\"50.5\">", false, 0, 0},                          // no "lon": nothing after it
      {"<name>Anvil Point</name>", false, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    float lat = 7, lon = 8;
    bool valid = !c.valid;
    ParseGpxLine(c.line, lat, lon, valid);
    EXPECT_EQ(valid, c.valid);
    if (c.valid) {
      EXPECT_EQ(lat, c.lat);
      EXPECT_EQ(lon, c.lon);
    } else {
      EXPECT_EQ(lat, 7);
      EXPECT_EQ(lon, 8);
    }
  }
}

TEST(PositionFields, Validators) {
  struct Case {
    const char* text;
    bool lat;
    bool lon;
  };
  const Case cases[] = {
      {"50.25.41N", true, false},  {"50.25.41S", true, false},   {"50.25.41n", true, false},
      {"90.00.00N", false, false}, {"89.59.99N", true, false},   {"", false, false},
      {"50.25.41", false, false},  {"001.18.11W", false, true},  {"001.18.11e", false, true},
      {"180.00.00E", false, false}, {"179.59.99W", false, true}, {"0E", false, false},
      {"000W", false, false},      {"000.00.00E", false, true},  {"-89.5S", true, false},
      {"-90.0N", false, false},    {"5E", false, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(LatitudeFieldValid(c.text), c.lat);
    EXPECT_EQ(LongitudeFieldValid(c.text), c.lon);
  }
}

TEST(CsvFields, Cases) {
  const std::string line = "1,Anvil Point,50.35.30N,001.57.36W,White Tower,W";
  EXPECT_EQ(FirstCsvField(line), "1");
  EXPECT_EQ(SecondCsvField(line), "Anvil Point");
  EXPECT_EQ(ThirdCsvField(line), "50.35.30N");
  EXPECT_EQ(FourthCsvField(line), "001.57.36W");
  EXPECT_EQ(FifthCsvField(line), "White Tower");
  EXPECT_EQ(CsvField(line, 6), "W");
  for (auto f : {FirstCsvField, SecondCsvField, ThirdCsvField, FourthCsvField, FifthCsvField})
    EXPECT_EQ(f("no comma here"), "!");
  EXPECT_EQ(FirstCsvField(""), "!");
  EXPECT_EQ(ThirdCsvField("a,b"), "");
  EXPECT_EQ(FifthCsvField("a,b,c"), "");
  EXPECT_EQ(SecondCsvField("a,"), "");
  EXPECT_EQ(FirstCsvField(",b"), "");
}

}  // namespace
}  // namespace kelvane
