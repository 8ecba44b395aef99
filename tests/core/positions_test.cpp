// Range and bearing by plane sailing, the vector helpers, and the position
// texts. Golden values are worked by hand with the mean-latitude formula;
// tolerances allow for single precision and the program's short pi
// (3.8e-12 short of the true value).
#include <gtest/gtest.h>

#include <cmath>

#include "core/positions.h"

using namespace kelvane;

TEST(RangeBearing, QuadrantsAgainstHandWorkedValues) {
  struct Case {
    const char* name;
    float lat1, lon1, lat2, lon2;
    double range, bearing;
  };
  // range = sqrt(dLat^2 + (dLon cos(mean) 60)^2); bearing from the quadrant.
  const Case cases[] = {
      {"north-east", 0, 0, 1, 1, 84.851198, 44.998909},
      {"south-east", 50, 0, 49, 1, 71.543120, 146.998370},
      {"south-west", 50, -1, 49.5f, -2, 49.019530, 232.265673},
      {"north-west", 49.5f, -2, 50, -3, 49.019530, 307.734327},
      {"Dover to Calais", 51.1167f, 1.3167f, 50.9667f, 1.85f, 22.040185, 114.100915},
      {"due north", 50, -1, 51, -1, 60.0, 0.0},
      {"due south", 50, -1, 49, -1, 60.0, 180.0},
      {"due east", 0, 0, 0, 1, 60.0, 90.0},
      {"due west", 0, 1, 0, 0, 60.0, 270.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RangeAndBearing rb = RangeBearing(c.lat1, c.lon1, c.lat2, c.lon2);
    // Positions held as floats are within 2e-6 degrees of the decimal
    // values: on a 9-mile leg that moves the bearing by up to 1e-3 degrees.
    EXPECT_NEAR(rb.range, c.range, 1e-4 * c.range + 1e-5);
    EXPECT_NEAR(rb.bearing, c.bearing, 1e-3);
  }
}

TEST(RangeBearing, EdgesOfTheCompass) {
  RangeAndBearing same = RangeBearing(50.5f, -1.25f, 50.5f, -1.25f);
  EXPECT_EQ(same.range, 0.0f);
  EXPECT_EQ(same.bearing, 0.0f);
  // Due south uses the single value of pi: 180 to the accuracy of a float.
  EXPECT_EQ(RangeBearing(50, -1, 49, -1).bearing, 180.0f);
  // A bearing of 359.7 would round to 360: it is cut to 359, never 360 or 0.
  RangeAndBearing nearlyNorth = RangeBearing(0, 0, 1, -0.005236f);
  EXPECT_EQ(nearlyNorth.bearing, 359.0f);
  // 359.4 rounds to 359 and stays as it is.
  RangeAndBearing b = RangeBearing(0, 0, 1, -0.0104721f);
  EXPECT_NEAR(b.bearing, 359.4, 1e-3);
}

TEST(Vectors, ComponentsPolarAndOffsets) {
  Components c = BearingToComponents(90, 2);
  EXPECT_NEAR(c.east, 2.0, 1e-6);
  EXPECT_NEAR(c.north, 0.0, 1e-6);
  c = BearingToComponents(225, std::sqrt(2.0f));
  EXPECT_NEAR(c.east, -1.0, 1e-6);
  EXPECT_NEAR(c.north, -1.0, 1e-6);

  PolarVector v = XYToPolar(-1, -1);
  EXPECT_NEAR(v.length, std::sqrt(2.0), 1e-6);
  EXPECT_NEAR(v.angle, 225.0, 1e-4);
  EXPECT_NEAR(XYToPolar(3, 4).angle, 36.869898, 1e-4);
  EXPECT_EQ(XYToPolar(0, 0).angle, 0.0f);

  // 6 nm east at 60 degrees north is 12 minutes of longitude.
  Position p = OffsetPosition(60.0f, 0.0f, 6.0f, 3.0f);
  EXPECT_NEAR(p.lat, 60.05, 1e-5);
  EXPECT_NEAR(p.lon, 0.2, 1e-5);
  Position q = OffsetPosition(60.0f, 0.0f, 6.0, 3.0f);
  EXPECT_EQ(p.lat, q.lat);
  EXPECT_EQ(p.lon, q.lon);

  float a = -30;
  EXPECT_EQ(NormaliseBearing(a), 330.0f);
  EXPECT_EQ(a, 330.0f);
  a = 360;
  EXPECT_EQ(NormaliseBearing(a), 0.0f);
  a = 725;
  EXPECT_EQ(NormaliseBearing(a), 5.0f);
}

TEST(PositionText, PointBranch) {
  struct Case {
    float value;
    const char* lat;
    const char* lon;
  };
  const Case cases[] = {
      // 50.2056666 = 50 deg 12.34 min.
      {50.2056666f, "50.12.34N", "050.12.34E"},
      {-0.5f, "00.30.00S", "000.30.00W"},  // zero degrees keeps its hemisphere
      {0.0f, "00.00.00N", "000.00.00E"},
      // 1 - 1e-6: the longitude's nudge takes it to the next degree.
      {0.999999f, "01.00.00N", "001.00.00E"},
      {49.999999f, "50.00.00N", "050.00.00E"},
      {-1.930833f, "01.55.85S", "001.55.85W"},
      {15.5f, "15.30.00N", "015.30.00E"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lat);
    EXPECT_EQ(LatToTextPoint(c.value), c.lat);
    EXPECT_EQ(LonToTextPoint(c.value), c.lon);
  }
}

TEST(PositionText, MinutesNearSixty) {
  // 10.99994 deg: 59.9964 min, which prints as 60.00, so the latitude
  // carries into the next degree.
  EXPECT_EQ(LatToTextPoint(10.99994f), "11.00.00N");
  // The longitude tests the minutes themselves: above 59.99 carries...
  EXPECT_EQ(LonToTextPoint(2.99984f), "003.00.00E");
  // ...and 59.9898 does not.
  EXPECT_EQ(LonToTextPoint(2.99983f), "002.59.99E");
  // The comma branch carries only at a full 60 and cuts the hundredths:
  // 59.9964 min reads 59.99.
  EXPECT_EQ(LatToTextComma(10.99994f), "10.59.99N");
}

TEST(PositionText, CommaBranchCutsWhereThePointBranchRounds) {
  // 12.339936 min: the point branch rounds to 12.34, the comma branch
  // keeps the first two figures of the hundredths, 33.99.. -> "33".
  EXPECT_EQ(LatToTextComma(50.2056666f), "50.12.33N");
  // 5.99999 min: point branch 06.00, comma branch 05 and "99".
  EXPECT_EQ(LonToTextPoint(5.1f), "005.06.00E");
  EXPECT_EQ(LonToTextComma(5.1f), "005.05.99E");
  // Hundredths from 1 to 9 get a leading zero: 6.0509 min -> "05".
  EXPECT_EQ(LatToTextComma(50.10085f), "50.06.05N");
  // Longitudes of ten degrees and more are not padded in this branch.
  EXPECT_EQ(LonToTextComma(15.5f), "15.30.00E");
  EXPECT_EQ(LonToTextComma(-0.5f), "000.30.00W");
  EXPECT_EQ(LonToTextComma(123.25f), "123.15.00E");
}

TEST(PositionText, ThreeDecimals) {
  EXPECT_EQ(LatToText3Point(50.2056666f), "50.12.340N");
  EXPECT_EQ(LonToText3Point(-1.930833f), "001.55.850W");
  EXPECT_EQ(LatToText3Point(10.99994f), "11.00.000N");
}

TEST(PositionText, ReadingPositions) {
  EXPECT_NEAR(TextToLat("50.12.34N"), 50.205667, 1e-5);
  EXPECT_NEAR(TextToLat("50.12.34S"), -50.205667, 1e-5);
  EXPECT_NEAR(TextToLat("50.12.34SS"), 50.205667, 1e-5);  // two S cancel
  EXPECT_NEAR(TextToLon("001.30.00W"), -1.5, 1e-6);
  EXPECT_NEAR(TextToLon("001.30.00w"), 1.5, 1e-6);  // lower case is no west
  EXPECT_NEAR(TextToLon("001.30.00E"), 1.5, 1e-6);
  EXPECT_NEAR(TextToLat("1234"), 1234.0 / 60.0, 1e-4);  // no point: all minutes
  EXPECT_EQ(TextToLat(""), 0.0f);
  EXPECT_EQ(TextToLat("rubbish"), 0.0f);
  // What the text forms write, they read back within a hundredth of a minute.
  for (float v : {50.2056666f, -1.930833f, 0.5f, 12.999f}) {
    SCOPED_TRACE(v);
    EXPECT_NEAR(TextToLat(LatToTextPoint(v)), v, 0.01 / 60 + 1e-6);
    EXPECT_NEAR(TextToLon(LonToTextPoint(v)), v, 0.01 / 60 + 1e-6);
  }
}

TEST(Projection, MercatorForms) {
  // ln(tan(45 + 25)) at 50 deg = 1.0106831886; the sine form is the same
  // function through atanh(sin lat).
  EXPECT_NEAR(MercatorFunction(50), 1.0106832, 1e-6);
  EXPECT_NEAR(MercatorFunctionSine(50), 1.0106832, 1e-6);
  EXPECT_NEAR(MercatorFunctionSine(-50), -1.0106832, 1e-6);
  // With the program's short pi, tan(pi/4) is a hair under 1.
  EXPECT_NEAR(MercatorFunction(0), 0.0f, 1e-11);
  EXPECT_NEAR(HyperbolicSine(1.0), 1.1752011936, 1e-9);
}
