// Daily arguments of the simplified harmonic method.
#include <gtest/gtest.h>

#include <cmath>

#include "tides/dayastronomy.h"

namespace kelvane {
namespace {

TEST(Normalise360, TakesOffWholeTurnsAndNeverReturns360) {
  struct Case {
    float in, out;
  };
  const Case cases[] = {{0, 0}, {360, 0}, {720, 0}, {-360, 0}, {370.5f, 10.5f}, {-10, 350},
                        {-1e-9f, 0}, {1450.25f, 10.25f}, {-1090.5f, 349.5f}, {359.5f, 359.5f}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.in);
    EXPECT_EQ(Normalise360(c.in), c.out);
  }
  EXPECT_TRUE(std::isnan(Normalise360(NAN)));
  EXPECT_TRUE(std::isinf(Normalise360(INFINITY)));  // returned, not looped on
}

TEST(PolarAngle, QuadrantsClockwiseFromY) {
  struct Case {
    double X, Y, radius, angle;
  };
  const Case cases[] = {
      {1, 1, std::sqrt(2.0), 45},  {1, 0, 1, 90},         {1, -1, std::sqrt(2.0), 135}, {0, -2, 2, 180},
      {-1, -1, std::sqrt(2.0), 225}, {-1, 0, 1, 270},     {-1, 1, std::sqrt(2.0), 315}, {0, 3, 3, 0},
      {0, 0, 0, 0},                 {0.5, std::sqrt(3.0) / 2, 1, 30},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.X << "," << c.Y);
    const Polar p = PolarAngle(c.X, c.Y);
    EXPECT_NEAR(p.radius, c.radius, 1e-6);
    // The program's pi and 57.29577951 are short of the exact values by
    // parts in 1e11: far below this tolerance.
    EXPECT_NEAR(p.angle, c.angle, 1e-4);
  }
}

// The mean longitudes of Meeus (Astronomical Algorithms, ch. 47 and 25) at
// a Julian day, degrees: s, h, p, N.
struct Mean {
  double s, h, p, N;
};
Mean MeeusMean(double jd) {
  const double T = (jd - 2451545.0) / 36525.0;
  auto n = [](double a) { return std::fmod(std::fmod(a, 360.0) + 360.0, 360.0); };
  return {n(218.3164477 + 481267.88123421 * T), n(280.46646 + 36000.76983 * T), n(83.3532465 + 4069.0137287 * T),
          n(125.04452 - 1934.136261 * T)};
}
double AngleDiff(double a, double b) {
  double d = std::fmod(a - b + 540.0, 360.0) - 180.0;
  return std::fabs(d);
}

TEST(YearStart, WalksAgreeWithTheMeanLongitudesWhereTheyShould) {
  // Julian days of 00:00 UT, 1 January.
  struct Case {
    int year;
    double jd;
    double shortfallDays;  // days the walk counts beyond the true calendar
  };
  const Case cases[] = {
      {2000, 2451544.5, 0},  // tabled
      {2001, 2451910.5, 0},  // walked forward from 1992
      {2025, 2460676.5, 0},
      {2050, 2469807.5, 0},
      // Walked back: every year is counted as 366 days, so the values are
      // those of one more day back for each common year crossed.
      {1989, 2447527.5, 3},  // 1991, 1990, 1989: three common years
      {1985, 2446066.5, 6},  // and 1988 a leap year, 1987..1985 common
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.year);
    const YearStart v = YearStartValues(static_cast<std::int16_t>(c.year));
    const Mean m = MeeusMean(c.jd - c.shortfallDays);
    // The table holds two decimals and the daily rates six: 0.05 degrees.
    EXPECT_LT(AngleDiff(v.s, m.s), 0.05);
    EXPECT_LT(AngleDiff(v.h, m.h), 0.05);
    EXPECT_LT(AngleDiff(v.p, m.p), 0.05);
    EXPECT_LT(AngleDiff(v.N, m.N), 0.05);
  }
}

TEST(YearStart, TableAnd1990) {
  const YearStart t1996 = YearStartValues(1996);
  EXPECT_EQ(t1996.s, 41.01f);
  EXPECT_EQ(t1996.p1, 282.87f);
  const YearStart y1990 = YearStartValues(1990);
  EXPECT_EQ(y1990.s, 0.0f);
  EXPECT_EQ(y1990.h, 0.0f);
  EXPECT_EQ(y1990.p, 0.0f);
  EXPECT_EQ(y1990.N, 0.0f);
  EXPECT_EQ(y1990.p1, 0.0f);
  EXPECT_NE(YearStartValues(1989).s, 0.0f);
  EXPECT_NE(YearStartValues(1991).s, 0.0f);
}

TEST(DayAstronomy, HandCalculation) {
  // Worked by tests/data/tides/hand_calculation.py in double precision.
  struct Case {
    int year, day;
    float V[4];
    double f[4];
  };
  const Case cases[] = {
      {2000, 1, {239, 1, 0, 233}, {0.93986, 0.82659, 1.24502, 0.78053}},     // tabled
      {2000, 100, {115, 359, 249, 213}, {1.15380, 1.22083, 0.74411, 1.07785}},
      {2025, 73, {359, 6, 281, 78}, {0.86123, 1.37513, 0.74834, 1.01731}},    // walked forward
      {2026, 1, {288, 12, 352, 306}, {1.14384, 0.75689, 1.48684, 1.46087}},
      {1989, 200, {292, 20, 166, 141}, {0.90027, 0.80177, 1.29933, 1.10998}}, // walked back
      {1990, 1, {356, 0, 270, 90}, {1.20239, 1.41722, 0.84186, 1.52198}},     // all zero at the start
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.year << " day " << c.day);
    const DayArguments a = DayAstronomy(static_cast<std::int16_t>(c.year), static_cast<std::int16_t>(c.day));
    for (int k = 0; k < 4; ++k) {
      SCOPED_TRACE(k);
      EXPECT_EQ(a.V[k], c.V[k]);  // whole degrees
      // Single-precision mean longitudes against double: well inside 1e-4.
      EXPECT_NEAR(a.f[k], c.f[k], 1e-4);
    }
  }
}

TEST(DayAstronomy, DaysPastTheEndsOfTheYearRunOn) {
  // Day 0 is the last day of the year before, reached from this year's
  // start; day 367 of a common year runs into the next. Both are accepted,
  // and the arguments move by a day's worth from their neighbours.
  for (int day : {0, 367}) {
    SCOPED_TRACE(day);
    const DayArguments a = DayAstronomy(2025, static_cast<std::int16_t>(day));
    const DayArguments b = DayAstronomy(2025, static_cast<std::int16_t>(day == 0 ? 1 : 366));
    for (int k = 0; k < 4; ++k) {
      EXPECT_GE(a.V[k], 0);
      EXPECT_LE(a.V[k], 360);
      EXPECT_NEAR(a.f[k], b.f[k], 0.2);
    }
    // K1 moves about one degree a day.
    float dK1 = std::fabs(a.V[kK1] - b.V[kK1]);
    EXPECT_TRUE(dK1 <= 3 || dK1 >= 357) << dK1;
  }
}

}  // namespace
}  // namespace kelvane
