// Day curves of a port and the search for high and low water.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "tides/daycurve.h"

namespace kelvane {
namespace {

HarmonicPortRecord Dover() {
  auto r = ReadAreaRecord(std::filesystem::path(KELVANE_SOURCE_DIR) / "data" / "TS" / "UK.hc", 76);
  EXPECT_TRUE(r);
  return r.value_or(HarmonicPortRecord{});
}

struct Expected {
  float time;
  double height;
  bool high;
};

void ExpectTurning(const TurningPoints& got, const std::vector<Expected>& want, float timeTol, double heightTol) {
  ASSERT_EQ(got.points.size(), want.size());
  for (std::size_t i = 0; i < want.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_NEAR(got.points[i].time, want[i].time, timeTol);
    EXPECT_NEAR(got.points[i].height, want[i].height, heightTol);
    EXPECT_EQ(got.points[i].high, want[i].high);
  }
}

TEST(DayCurve, DoverOnADayOfSpringsAgreesWithTheHandCalculation) {
  // 14 March 2025 (day 73), port time: tests/data/tides/hand_calculation.py.
  const HarmonicPortRecord dover = Dover();
  const DayPrediction day = PredictHeights(dover, 2025, 73, 3, false);
  ASSERT_EQ(day.count, 148);
  // Times fall on the ten-minute samples, so they agree exactly; heights to
  // the centimetre (single against double arithmetic).
  ExpectTurning(FindTurningPoints(day.time.data(), day.height().data()),
                {{6.5f, 1.003, false}, {11.3333f, 6.412, true}, {18.6667f, 1.080, false}, {23.5f, 6.585, true}},
                1e-3f, 0.01);
  // The reference-port curve of the same month band is the same day.
  const DayCurve ref = RefPortDayCurve(dover, 2025, 73, false);
  ASSERT_EQ(ref.count, 148);
  for (int j = 1; j <= 148; ++j) ASSERT_EQ(ref.height[j], day.height()[j]) << j;
}

TEST(DayCurve, DoverAgreesWithAFullHarmonicPrediction) {
  // @neaps/tide-predictor with all of Dover's constituents, 14 March 2025
  // (UT = port time): LW 06:31 0.76 m, HW 11:40 6.28 m, LW 18:44 0.88 m,
  // HW 23:49 6.45 m. The simplified method leaves out N2, K2 and the rest;
  // at Dover that costs up to half an hour and three decimetres.
  const DayPrediction day = PredictHeights(Dover(), 2025, 73, 3, false);
  ExpectTurning(FindTurningPoints(day.time.data(), day.height().data()),
                {{6.51f, 0.76, false}, {11.67f, 6.28, true}, {18.73f, 0.88, false}, {23.82f, 6.45, true}}, 0.5f,
                0.3);
}

TEST(DayCurve, SummerTimeMovesTheWindowOneHourEarlier) {
  const HarmonicPortRecord dover = Dover();
  const DayCurve standard = RefPortDayCurve(dover, 2025, 73, false);
  const DayCurve summer = RefPortDayCurve(dover, 2025, 73, true);
  ASSERT_EQ(summer.count, 148);
  // Summer sample j + 6 is standard sample j: the same moment, shown an hour later.
  for (int j = 1; j <= 142; ++j) ASSERT_EQ(summer.height[j + 6], standard.height[j]) << j;
  EXPECT_EQ(summer.time[1], 0.0f);
  EXPECT_EQ(summer.time[7], 1.0f);
  // The first summer sample is 23:00 of the day before in port time. The
  // day before's own run reaches that moment from other whole-degree V, so
  // the two agree to a few centimetres only.
  const DayCurve before = RefPortDayCurve(dover, 2025, 72, false);
  EXPECT_NEAR(before.time[139], 23.0f, 1e-5);
  EXPECT_NEAR(summer.height[1], before.height[139], 0.05);
  // The tide window's summer day is 154 samples (run samples 139 to 292).
  const DayPrediction window = PredictHeights(dover, 2025, 73, 3, true);
  EXPECT_EQ(window.count, 154);
  ExpectTurning(FindTurningPoints(window.time.data(), window.height().data()),
                {{7.5f, 1.003, false}, {12.3333f, 6.412, true}, {19.6667f, 1.080, false}}, 1e-3f, 0.01);
}

TEST(DayCurve, LayersAddUpToTheTotal) {
  const DayPrediction day = PredictHeights(Dover(), 2025, 73, 3, false);
  for (int j = 1; j <= day.count; ++j) {
    double sum = 0;
    for (int layer = kLayerMeanLevel; layer < kLayerCount; ++layer) sum += day.layer[layer][j];
    ASSERT_NEAR(sum, day.height()[j], 1e-5) << j;
  }
  EXPECT_NEAR(day.layer[kLayerMeanLevel][1], Dover().Z0 + Dover().dZ0[2], 1e-6);
}

TEST(SeasonalMonth, BandsAFewDaysOffTheCalendar) {
  struct Case {
    int day, month;
  };
  const Case cases[] = {{-1, 0}, {0, 1},   {31, 1},  {32, 2},   {59, 2},   {60, 3},   {90, 3},  {91, 4},
                        {120, 4}, {121, 5}, {151, 5}, {152, 6},  {182, 6},  {183, 7},  {212, 7}, {213, 8},
                        {243, 8}, {244, 9}, {273, 9}, {274, 10}, {304, 10}, {305, 11}, {334, 11}, {335, 12},
                        {366, 12}, {367, 0}};
  for (const Case& c : cases) EXPECT_EQ(SeasonalMonth(c.day), c.month) << c.day;
}

TEST(DayCurve, MonthlyM2ReplacesTheRecordsAmplitude) {
  HarmonicPortRecord port{};
  port.Z0 = 3;
  port.M2Hm = 2;
  port.MonthM2.fill(1);
  port.dZ0.fill(0.5f);
  // Month 13 is no month: the record's own M2 Hm, no change of mean level.
  const DayPrediction own = PredictHeights(port, 2025, 73, 13, false);
  const DayPrediction monthly = PredictHeights(port, 2025, 73, 3, false);
  TurningPoints a = FindTurningPoints(own.time.data(), own.height().data());
  TurningPoints b = FindTurningPoints(monthly.time.data(), monthly.height().data());
  // A pure M2 tide: the range is twice the amplitude times the node factor.
  EXPECT_NEAR(a.range / b.range, 2.0, 0.01);
  EXPECT_NEAR(own.layer[kLayerMeanLevel][1], 3.0, 1e-6);
  EXPECT_NEAR(monthly.layer[kLayerMeanLevel][1], 3.5, 1e-6);
  // Day 367 of the reference curve is outside the bands: own amplitude too.
  const DayCurve late = RefPortDayCurve(port, 2025, 367, false);
  EXPECT_EQ(late.count, 148);
}

TEST(DayCurve, BadConstantsNeitherHangNorCrash) {
  for (float bad : {NAN, INFINITY, -INFINITY, 3.4e38f}) {
    SCOPED_TRACE(bad);
    HarmonicPortRecord port = Dover();
    port.M2g = bad;
    port.S2Hm = bad;
    port.f6 = bad;
    port.MonthM2[2] = bad;
    const DayPrediction day = PredictHeights(port, 2025, 73, 3, true);
    EXPECT_EQ(day.count, 154);
    const TurningPoints t = FindTurningPoints(day.time.data(), day.height().data());
    EXPECT_LE(t.points.size(), 15u);
    const DayCurve ref = RefPortDayCurve(port, 2025, 73, false);
    EXPECT_EQ(ref.count, 148);
  }
}

// A synthetic day: samples 1..n at ten minutes, heights by a function.
struct Samples {
  std::vector<float> time, height;
  explicit Samples(int n, float start = 0) : time(static_cast<std::size_t>(n) + 1), height(static_cast<std::size_t>(n) + 1) {
    for (int j = 1; j <= n; ++j) time[static_cast<std::size_t>(j)] = start + static_cast<float>(j - 1) / 6.0f;
  }
};

TEST(FindTurningPoints, StrictNeighboursOnlyAndNeverSample2) {
  Samples s(146);
  for (int j = 1; j <= 146; ++j) s.height[static_cast<std::size_t>(j)] = 1.0f;
  s.height[2] = 5.0f;   // sample 2 is never a candidate (the scan starts at 3)
  s.height[20] = 3.0f;  // a clean high water at 3:10
  s.height[40] = 2.0f;  // a flat top is not a turning point
  s.height[41] = 2.0f;
  s.height[80] = 0.5f;  // a low water at 13:10
  s.height[146] = 50.0f;  // beyond the range's samples 1..145
  const TurningPoints t = FindTurningPoints(s.time.data(), s.height.data());
  ASSERT_EQ(t.points.size(), 2u);
  EXPECT_FLOAT_EQ(t.points[0].time, 19.0f / 6.0f);
  EXPECT_TRUE(t.points[0].high);
  EXPECT_FALSE(t.points[1].high);
  EXPECT_FLOAT_EQ(t.points[1].height, 0.5f);
  EXPECT_FLOAT_EQ(t.range, 5.0f - 0.5f);  // sample 2 counts for the range, sample 146 does not
}

TEST(FindTurningPoints, DropsAPointAfter24Point0844Hours) {
  // Times running late (as a curve whose first sample is past midnight):
  // the last point found lies after 24.0844 h and belongs to tomorrow.
  for (float start : {0.0f, 0.1f}) {
    SCOPED_TRACE(start);
    Samples s(146, start);
    for (int j = 1; j <= 146; ++j) s.height[static_cast<std::size_t>(j)] = static_cast<float>(j % 2 ? 0 : 0);
    s.height[60] = 2.0f;
    s.height[145] = 3.0f;  // at start + 24.0 h
    const TurningPoints t = FindTurningPoints(s.time.data(), s.height.data());
    EXPECT_EQ(t.points.size(), start == 0.0f ? 2u : 1u);
  }
}

TEST(FindTurningPoints, KeepsAtMost15) {
  Samples s(146);
  for (int j = 1; j <= 146; ++j) s.height[static_cast<std::size_t>(j)] = (j % 2) ? 1.0f : 2.0f;
  const TurningPoints t = FindTurningPoints(s.time.data(), s.height.data());
  EXPECT_EQ(t.points.size(), 15u);
  EXPECT_EQ(t.points.front().time, 2.0f / 6.0f);
}

}  // namespace
}  // namespace kelvane
