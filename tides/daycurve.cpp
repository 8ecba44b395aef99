#include "tides/daycurve.h"

#include <cmath>

#include "tides/dayastronomy.h"

namespace kelvane {
namespace {

// Degrees to radians as the working writes it inline, and the digit-swapped
// factor of the sixth-diurnal line, which is how the method has always been
// carried out and stays so.
constexpr double kInlineRad = 0.017453293;
constexpr double kSixthRad = 0.017453925199433;

// The constants of one run.
struct RunConstants {
  float ML = 0;                // mean level Z0 + dZ0
  float g[4] = {0, 0, 0, 0};   // M2, S2, K1, O1 phase lags
  float Hm[4] = {0, 0, 0, 0};  // amplitudes
  float f4 = 0, F4 = 0, f6 = 0, F6 = 0;
};

RunConstants ConstantsFor(const HarmonicPortRecord& port, int month) {
  RunConstants c;
  c.g[kM2] = port.M2g;
  c.Hm[kM2] = port.M2Hm;
  c.g[kS2] = port.S2g;
  c.Hm[kS2] = port.S2Hm;
  c.g[kK1] = port.K1g;
  c.Hm[kK1] = port.K1Hm;
  c.g[kO1] = port.O1g;
  c.Hm[kO1] = port.O1Hm;
  c.f4 = port.f4;
  c.F4 = port.F4;
  c.f6 = port.f6;
  c.F6 = port.F6;
  float dZ0 = 0;
  if (month >= 1 && month <= 12) {
    c.Hm[kM2] = port.MonthM2[month - 1];
    dZ0 = port.dZ0[month - 1];
  }
  c.ML = port.Z0 + dZ0;
  return c;
}

// Sample i of the run: the height and, when asked, its terms.
struct Terms {
  float total, meanLevel, m2, s2, k1, o1, fourth, sixth;
};

// The run of 50 hours in steps of 1/6 h, t kept as a single and the last
// step wherever the accumulation lands. Only samples first..last are worked
// out (the others are never read); `sink(i, t, terms)` receives them.
template <typename Sink>
void RunFiftyHours(const RunConstants& c, std::int16_t year, std::int16_t day, int first, int last, Sink sink) {
  const DayArguments d1 = DayAstronomy(year, static_cast<std::int16_t>(day - 1));
  const DayArguments d2 = DayAstronomy(year, day);

  // Lines 3-5: the daily advance of each constituent, made just larger than
  // 600 degrees for the semi-diurnal pair and 300 for the diurnal pair, so
  // that a V that wrapped over the day is still read the right way round.
  float speed[4], fChange[4];
  for (int k = 0; k < 4; ++k) {
    const float threshold = (k == kM2 || k == kS2) ? 600.0f : 300.0f;
    float D = d1.V[k] - d2.V[k];
    for (int turns = 0; D <= threshold && turns < 8; ++turns) D += 360.0f;
    speed[k] = D / 24.0f;
    fChange[k] = (d2.f[k] - d1.f[k]) / 24.0f;
  }

  const float step = 1.0f / 6.0f;
  int i = 1;
  for (float t = 0; t <= 50.0f; t += step, ++i) {
    if (i < first) continue;
    if (i > last) break;
    double P[4], A[4];
    for (int k = 0; k < 4; ++k) {
      float phase = c.g[k] + d1.V[k] - t * speed[k];
      if (phase >= 360.0f) phase -= 360.0f;
      if (phase < 0.0f) phase += 360.0f;
      P[k] = phase * kInlineRad;
      A[k] = static_cast<float>((d1.f[k] + t * fChange[k]) * c.Hm[k]);
    }
    // Line 32: the semi-diurnal pair as one vector.
    const double m2Cos = A[kM2] * std::cos(P[kM2]);
    const double s2Cos = A[kS2] * std::cos(P[kS2]);
    const double X = A[kM2] * std::sin(P[kM2]) + A[kS2] * std::sin(P[kS2]);
    const double Y = m2Cos + s2Cos;
    // Line 33: its radius and angle carry the shallow-water terms.
    const Polar rd = PolarAngle(X, Y);
    const double R = rd.radius, d4 = rd.angle;
    const double alpha4 = (2 * d4 + c.f4) * kInlineRad;
    const double fourth = R * R * c.F4;
    const double alpha6 = (3 * d4 + c.f6) * kSixthRad;
    const double sixth = R * R * R * c.F6;
    Terms terms;
    terms.meanLevel = c.ML;
    terms.m2 = static_cast<float>(m2Cos);
    terms.s2 = static_cast<float>(s2Cos);
    terms.k1 = static_cast<float>(A[kK1] * std::cos(P[kK1]));
    terms.o1 = static_cast<float>(A[kO1] * std::cos(P[kO1]));
    terms.fourth = static_cast<float>(fourth * std::cos(alpha4));
    terms.sixth = static_cast<float>(sixth * std::cos(alpha6));
    terms.total = static_cast<float>(c.ML + Y + A[kK1] * std::cos(P[kK1]) + A[kO1] * std::cos(P[kO1]) +
                                     fourth * std::cos(alpha4) + sixth * std::cos(alpha6));
    sink(i, t, terms);
  }
}

}  // namespace

int SeasonalMonth(int day) {
  static constexpr int kLast[12] = {31, 59, 90, 120, 151, 182, 212, 243, 273, 304, 334, 366};
  if (day < 0 || day > 366) return 0;
  for (int m = 0; m < 12; ++m)
    if (day <= kLast[m]) return m + 1;
  return 0;
}

DayCurve RefPortDayCurve(const HarmonicPortRecord& port, std::int16_t year, std::int16_t day, bool summerTime) {
  const RunConstants c = ConstantsFor(port, SeasonalMonth(day));
  const int first = summerTime ? 139 : 145;
  const int last = first + kRefDaySamples - 1;
  DayCurve curve;
  RunFiftyHours(c, year, day, first, last, [&](int i, float, const Terms& terms) {
    const int j = i - first + 1;
    curve.time[j] = static_cast<float>(j - 1) / 6.0f;
    curve.height[j] = terms.total;
    curve.count = j;
  });
  return curve;
}

DayPrediction PredictHeights(const HarmonicPortRecord& port, std::int16_t year, std::int16_t day, int month,
                             bool summerTime) {
  const RunConstants c = ConstantsFor(port, month);
  const int first = summerTime ? 139 : 145;
  const int last = 292;
  DayPrediction out;
  RunFiftyHours(c, year, day, first, last, [&](int i, float, const Terms& terms) {
    const int j = i - first + 1;
    out.time[j] = static_cast<float>(j - 1) / 6.0f;
    out.layer[kLayerTotal][j] = terms.total;
    out.layer[kLayerMeanLevel][j] = terms.meanLevel;
    out.layer[kLayerM2][j] = terms.m2;
    out.layer[kLayerS2][j] = terms.s2;
    out.layer[kLayerK1][j] = terms.k1;
    out.layer[kLayerO1][j] = terms.o1;
    out.layer[kLayerQuarterDiurnal][j] = terms.fourth;
    out.layer[kLayerSixthDiurnal][j] = terms.sixth;
    out.count = j;
  });
  return out;
}

TurningPoints FindTurningPoints(const float* time, const float* height, int n) {
  TurningPoints out;
  for (int i = 2; i <= n - 2; ++i) {
    const float here = height[i + 1];
    const bool high = here > height[i] && here > height[i + 2];
    const bool low = here < height[i] && here < height[i + 2];
    if ((high || low) && static_cast<int>(out.points.size()) < kMaxTurningPoints)
      out.points.push_back({time[i + 1], here, high});
  }
  // A turning point found past the end of the day belongs to tomorrow.
  if (!out.points.empty() && out.points.back().time > 24.0844f) out.points.pop_back();
  float highest = -9999, lowest = 9999;
  for (int i = 1; i <= n - 1; ++i) {
    if (height[i] > highest) highest = height[i];
    if (height[i] < lowest) lowest = height[i];
  }
  out.range = highest - lowest;
  return out;
}

}  // namespace kelvane
