#include "tides/dayastronomy.h"

#include <cmath>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"

namespace kelvane {

float Normalise360(float degrees) {
  if (!std::isfinite(degrees)) return degrees;
  // fmod is exact, and so is each step of adding or taking off 360 from a
  // single of this size, so the result is that of the step-by-step loop.
  float r = std::fmod(degrees, 360.0f);
  if (r < 0) r += 360.0f;
  if (r >= 360.0f) r = 0;
  return r;
}

double Normalise360(double degrees) {
  if (!std::isfinite(degrees)) return degrees;
  double r = std::fmod(degrees, 360.0);
  if (r < 0) r += 360.0;
  if (r >= 360.0) r = 0;
  return r;
}

RectParts Rectangular(double angle, double amplitude) {
  double radians = 2 * angle / 360 * kPi;
  return {amplitude * std::sin(radians), amplitude * std::cos(radians)};
}

Polar PolarAngle(double X, double Y) {
  double angle = 0;
  if (X > 0 && Y > 0) angle = std::atan(X / Y);
  else if (X > 0 && Y == 0) angle = kPi / 2;
  else if (X > 0 && Y < 0) angle = std::atan(std::fabs(Y / X)) + kPi / 2;
  else if (X == 0 && Y < 0) angle = kPi;
  else if (X == 0 && Y >= 0) angle = 0;
  else if (X < 0 && Y < 0) angle = std::atan(std::fabs(X / Y)) + kPi;
  else if (X < 0 && Y == 0) angle = kThreePi / 2;
  else if (X < 0 && Y > 0) angle = std::atan(std::fabs(Y / X)) + kThreePi / 2;
  Polar out;
  out.radius = static_cast<float>(std::sqrt(X * X + Y * Y));
  out.angle = static_cast<float>(angle * kRadToDeg);
  return out;
}

namespace {

// Daily rates of s, h, p, N, p1 in degrees per day.
constexpr float kRate[5] = {13.176396f, 0.985647f, 0.111404f, -0.052954f, 0.000047f};

struct TableRow {
  int year;
  float v[5];
};
// Year-start values for 1991-2000: s, h, p, N, p1 in degrees.
constexpr TableRow kYearTable[] = {
    {1991, {100.91f, 280.15f, 77.11f, 299.13f, 282.78f}}, {1992, {230.30f, 279.91f, 117.78f, 279.80f, 282.80f}},
    {1993, {12.86f, 280.66f, 158.55f, 260.42f, 282.82f}}, {1994, {142.24f, 280.42f, 199.21f, 241.09f, 282.84f}},
    {1995, {271.63f, 280.18f, 239.87f, 221.76f, 282.85f}}, {1996, {41.01f, 279.94f, 280.54f, 202.44f, 282.87f}},
    {1997, {183.57f, 280.69f, 321.31f, 183.06f, 282.89f}}, {1998, {312.96f, 280.45f, 1.97f, 163.73f, 282.90f}},
    {1999, {82.34f, 280.21f, 42.64f, 144.40f, 282.92f}},  {2000, {211.73f, 279.97f, 83.30f, 125.07f, 282.94f}},
};

YearStart FromArray(const float v[5]) { return {v[0], v[1], v[2], v[3], v[4]}; }

void Advance(float v[5], double days) {
  for (int i = 0; i < 5; ++i) v[i] = Normalise360(static_cast<float>(v[i] + days * kRate[i]));
}

// Argument in degrees -> sine and cosine parts of one line of a vector sum.
struct VectorSum {
  double sinSum = 0, cosSum = 0;
  void Add(double weight, double factor, double argument) {
    RectParts parts = Rectangular(Normalise360(argument), weight * factor);
    sinSum += parts.sinPart;
    cosSum += parts.cosPart;
  }
  float Factor() const { return static_cast<float>(std::sqrt(cosSum * cosSum + sinSum * sinSum)); }
  float Angle() const { return PolarAngle(sinSum, cosSum).angle; }
};

}  // namespace

YearStart YearStartValues(std::int16_t year) {
  for (const TableRow& row : kYearTable)
    if (row.year == year) return FromArray(row.v);
  float v[5] = {0, 0, 0, 0, 0};
  if (year == 1990) return FromArray(v);  // between the table and the walks: left at zero
  const float* base = kYearTable[1].v;    // the walks start from 1992
  for (int i = 0; i < 5; ++i) v[i] = base[i];
  if (year > 2000) {
    int days = 366;  // 1992 is a leap year
    for (int y = 1992; y < year;) {
      Advance(v, days);
      ++y;
      days = IsLeapYear(y) ? 366 : 365;
    }
  } else {
    // Walking back the day count starts at 366 and changes only in a
    // century year, so an ordinary year is taken as 366 days long.
    int days = 366;
    for (int y = 1992; y > year;) {
      Advance(v, -static_cast<double>(days));
      --y;
      if (y % 100 == 0) days = (y % 400 == 0) ? 366 : 365;
    }
  }
  return FromArray(v);
}

DayArguments DayAstronomy(std::int16_t year, std::int16_t day) {
  YearStart start = YearStartValues(year);
  float v[5] = {start.s, start.h, start.p, start.N, start.p1};
  Advance(v, static_cast<double>(day) - 1);
  const float s = v[0], h = v[1], p = v[2], N = v[3], p1 = v[4];

  // Node arguments. 2N and 3N go to radians by the inline factor, the rest
  // by the general helper: both ways are those of the original working.
  const double rad2N = Normalise360(2.0f * N) * kDegToRadShort;
  const double rad3N = Normalise360(3.0f * N) * kDegToRadShort;
  const double rad2p = DegToRad(Normalise360(2.0f * p));
  const double rad2pN = DegToRad(Normalise360(2.0f * p - N));
  const double rad2p2N = DegToRad(Normalise360(2.0f * p - 2.0f * N));
  const double radN = DegToRad(Normalise360(N));

  // The M1 term enters the M2 sum through its own factor and angle.
  const double X1 = -0.25 * std::sin(rad2p) - 0.1102 * std::sin(rad2pN) - 0.0156 * std::sin(rad2p2N) -
                    0.037 * std::sin(radN);
  const double Y1 = 1 - 0.25 * std::cos(rad2p) - 0.1102 * std::cos(rad2pN) - 0.0156 * std::cos(rad2p2N) -
                    0.037 * std::cos(radN);
  const Polar m1 = PolarAngle(X1, Y1);
  const float a = m1.angle;
  double fM1 = X1 / std::sin(DegToRad(a));
  if (!std::isfinite(fM1)) fM1 = m1.radius;  // X1 = 0: the limit of X1 / sin a

  const double sN = std::sin(radN), s2N = std::sin(rad2N), s3N = std::sin(rad3N);
  const double cN = std::cos(radN), c2N = std::cos(rad2N), c3N = std::cos(rad3N);
  const float uM2 = static_cast<float>(-2.14 * sN);
  const float uO1 = static_cast<float>(10.8 * sN - 1.34 * s2N + 0.19 * s3N);
  const float uK1 = static_cast<float>(-8.86 * sN + 0.68 * s2N - 0.07 * s3N);
  const float uJ1 = static_cast<float>(-12.94 * sN + 1.34 * s2N - 0.19 * s3N);
  const float uK2 = static_cast<float>(-17.74 * sN + 0.68 * s2N - 0.04 * s3N);
  const float fO1 = static_cast<float>(1.0089 + 0.1871 * cN - 0.0147 * c2N + 0.0014 * c3N);
  const float fK1 = static_cast<float>(1.006 + 0.115 * cN - 0.0088 * c2N + 0.0006 * c3N);
  const float fJ1 = static_cast<float>(1.0129 + 0.1676 * cN - 0.017 * c2N + 0.0016 * c3N);
  const float fM2 = static_cast<float>(1.0004 - 0.0373 * cN + 0.0002 * c2N);
  const float fK2 = static_cast<float>(1.0246 + 0.2863 * cN + 0.0083 * c2N - 0.0015 * c3N);

  DayArguments out;

  VectorSum m2;
  m2.Add(0.02534, fM2, 2 * h - 4 * s + 2 * p + 30 + uM2);
  m2.Add(0.03057, fM2, 4 * h - 4 * s + 30 + uM2);
  m2.Add(0.19146, fM2, 2 * h - 3 * s + p + 15 + uM2);
  m2.Add(0.03636, fM2, 4 * h - 3 * s - p + 15 + uM2);
  m2.Add(1, fM2, 2 * h - 2 * s + uM2);
  m2.Add(0.00738, fM2, p - s + 165 + uM2);
  m2.Add(0.02827, fM1, 2 * h - s - p + 165 + a);
  out.f[kM2] = m2.Factor();
  out.V[kM2] = Normalise360(static_cast<float>(RoundToInt(360.0 - m2.Angle())));

  VectorSum s2;
  s2.Add(0.05861, 1, p1 - h);
  s2.Add(1, 1, 0);
  s2.Add(0.27215, fK2, 2 * h + uK2);
  out.f[kS2] = s2.Factor();
  out.V[kS2] = static_cast<float>(RoundToInt(Normalise360(360.0f - s2.Angle())));

  VectorSum k1;
  k1.Add(0.01939, 1, p1 - 2 * h - 90);
  k1.Add(0.33093, 1, -h - 90);
  k1.Add(1, fK1, h + 90 + uK1);
  k1.Add(0.01424, 1, 3 * h + 90);
  k1.Add(0.05591, fJ1, h + s - p + 90 + uJ1);
  out.f[kK1] = k1.Factor();
  out.V[kK1] = Normalise360(static_cast<float>(RoundToInt(360.0 - k1.Angle())));

  VectorSum o1;
  o1.Add(0.02534, fO1, h - 4 * s + 2 * p - 90 + uO1);
  o1.Add(0.03056, fO1, 3 * h - 4 * s - 90 + uO1);
  o1.Add(0.1946, fO1, h - 3 * s + p - 90 + uO1);
  o1.Add(0.03637, fO1, 3 * h - 3 * s - p - 90 + uO1);
  o1.Add(1, fO1, h - 2 * s - 90 + uO1);
  out.f[kO1] = o1.Factor();
  out.V[kO1] = Normalise360(static_cast<float>(RoundToInt(360.0 - o1.Angle())));
  return out;
}

}  // namespace kelvane
