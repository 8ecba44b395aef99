// The hour from high water and the interpolation, against values worked by
// hand on a curve with one high water at 09:10 (entry 200) and diamonds
// whose slot n holds direction 10 n, spring 0.2 n and neap 0.1 n knots.
#include <gtest/gtest.h>

#include <random>

#include "core/positions.h"
#include "stream_fixture.h"

namespace kelvane {
namespace {

using test::kDay;
using test::kYear;
using test::MakeCurve;
using test::StreamWorld;
using test::TableDiamond;

TEST(HourFromHighWater, BandsAroundHighWater) {
  TideState tides;
  MakeCurve(tides, 0.1f);
  const struct {
    int now, slot, minutes;
    bool behind;
  } cases[] = {
      {550, 0, 30, true},    // exactly at HW: found by the look-back window, slot 0, minutes 30
      {540, 0, 40, false},   // 10 minutes before
      {520, -1, 0, false},   // 30 before: minutes 60 become 0 one band out
      {519, -1, 1, false},   // 31 before
      {490, -1, 30, false},  // an hour before
      {460, -2, 0, false},   // 90 before
      {551, 0, 29, true},    // a minute after
      {580, 0, 0, true},     // 30 after
      {581, 1, 59, true},    // 31 after: minutes count down
      {600, 1, 40, true},
      {940, 6, 0, true},     // 390 after, the last band
      {950, 6, 59, true},    // beyond 390: slot 6, minutes 59
      {980, -6, 59, true},   // 430 after reads as across midnight: before, 1010, the last band
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.now);
    const HighWaterHour hw = HourFromHighWater(tides, 1, c.now);
    ASSERT_TRUE(hw.found);
    EXPECT_EQ(hw.hwSample, 200);
    EXPECT_EQ(hw.HwText, "09:10");
    EXPECT_EQ(hw.Slot, c.slot);
    EXPECT_EQ(hw.Minutes, c.minutes);
    EXPECT_EQ(hw.behind, c.behind);
    EXPECT_NEAR(hw.Range, 3.9f, 1e-5f);  // 39 samples either side, 0.1 m each
  }
  // Beyond both windows: nothing found, nothing set.
  EXPECT_FALSE(HourFromHighWater(tides, 1, 990).found);
  EXPECT_FALSE(HourFromHighWater(tides, 2, 550).found);  // no such port
}

TEST(HourFromHighWater, AcrossMidnight) {
  TideState tides;
  MakeCurve(tides, 0.1f, 290);  // HW 00:10 of the next day
  HighWaterHour hw = HourFromHighWater(tides, 1, 1430);
  EXPECT_EQ(hw.HwText, "00:10");
  EXPECT_EQ(hw.Slot, 0);  // before HW by 10 + 1440 - 1430 = 20 minutes
  EXPECT_EQ(hw.Minutes, 50);

  MakeCurve(tides, 0.1f, 140);  // HW 23:10 of the day before
  hw = HourFromHighWater(tides, 1, 20);
  EXPECT_EQ(hw.HwText, "23:10");
  EXPECT_TRUE(hw.behind);
  EXPECT_EQ(hw.Slot, 1);  // after HW by 20 + 1440 - 1390 = 70 minutes
  EXPECT_EQ(hw.Minutes, 20);
}

TEST(HourFromHighWater, MinutesOfTheGivenTimeAreTruncated) {
  EXPECT_EQ(MinutesOfDay(9.5f), 570);
  EXPECT_EQ(MinutesOfDay(9.99f), 599);   // 59.4 minutes
  EXPECT_EQ(MinutesOfDay(0.0f), 0);
  EXPECT_EQ(MinutesOfDay(23.999f), 1439);
}

TEST(UpdatePortStates, FillsThePortRecord) {
  StreamWorld w;
  MakeCurve(w.tides, 0.1f);
  UpdatePortStates(w.ctx, true, 10.0f);
  const PortTideStateRecord& s = w.tides.PortTideState[0];
  EXPECT_EQ(s.Slot, 1);
  EXPECT_EQ(s.Minutes, 40);
  EXPECT_EQ(s.HwText, "09:10");
  EXPECT_EQ(s.RangeText, " 3.9");
  EXPECT_EQ(s.PortName, "TESTPORT");
  ASSERT_EQ(s.TurningCount, 1);
  EXPECT_EQ(s.TurningTime[0], "09:10");
  EXPECT_EQ(s.TurningHeight[0], "5");
}

struct LookupCase {
  const char* name;
  float hours;
  float sprange, nprange;
  int zeroSlot;  // a slot emptied (0 for none)
  float rate, direction;
  int slot;
};

TEST(TidalStreamAt, InterpolatesAsWorkedByHand) {
  // Range 3.9 m between neaps 2 and springs 5: K = 1.9 / 3.
  const double K = 1.9 / 3.0;
  const LookupCase cases[] = {
      {"at HW: midway between slots 7 and 8", 550 / 60.0f, 5, 2, 0, float((0.7 + 0.8) * (1 + K) / 2), 70, 0},
      {"HW+1h50: two thirds into the band", 10.0f, 5, 2, 0, float(0.8 * (1 + K) + 0.1 * (1 + K) * 20 / 60), 80, 1},
      // 8.65 h is 8.6499996 in single precision: 38.99998 minutes, truncated
      // to 8:38, 32 minutes before HW: slot -1, minutes 2.
      {"HW-32min: direction of the next slot", 519 / 60.0f, 5, 2, 0, float(0.6 * (1 + K) + 0.1 * (1 + K) * 58 / 60), 70, -1},
      {"HW+6h30: slot 13 wraps to slot 1", 940 / 60.0f, 5, 2, 0, float(0.1 * (1 + K)), 10, 6},
      {"above springs: spring rates", 550 / 60.0f, 3, 1, 0, 1.5f, 70, 0},
      {"below neaps: neap rates", 550 / 60.0f, 8, 4, 0, 0.75f, 70, 0},
      {"no data at the next slot keeps d1", 519 / 60.0f, 5, 2, 7, float(0.6 * (1 + K) * 2 / 60), 60, -1},
      {"no data at the slot takes d2", 10.0f, 5, 2, 8, float(0.9 * (1 + K) * 20 / 60), 90, 1},
  };
  for (bool fast : {false, true}) {
    for (const LookupCase& c : cases) {
      SCOPED_TRACE(std::string(c.name) + (fast ? " (index)" : " (scan)"));
      StreamWorld w;
      w.streams.UseAccelerators = fast;
      MakeCurve(w.tides, 0.1f);
      Diamond d = TableDiamond(50.0f, 0.0f, c.sprange, c.nprange);
      if (c.zeroSlot)
        for (int row = 0; row < 3; ++row) d.Rate(c.zeroSlot, row) = 0;
      SetDiamonds(w.streams, {d});
      StreamAnswer a;
      EXPECT_EQ(TidalStreamAt(w.ctx, 50.1f, 0.1f, c.hours, kDay, kYear, a), "");
      EXPECT_NEAR(a.Rate, c.rate, 2e-6f);
      EXPECT_EQ(a.Direction, c.direction);
      EXPECT_EQ(a.Slot, c.slot);
      EXPECT_EQ(a.DiamondText, "9999, 3");
    }
  }
}

TEST(TidalStreamAt, ReachTiesAndFailures) {
  for (bool fast : {false, true}) {
    SCOPED_TRACE(fast ? "index" : "scan");
    StreamWorld w;
    w.streams.UseAccelerators = fast;
    MakeCurve(w.tides, 0.1f);
    // Exactly 30 miles north: 30 minutes of latitude.
    SetDiamonds(w.streams, {TableDiamond(50.5f, 0.0f, 5, 2)});
    StreamAnswer a;
    TidalStreamAt(w.ctx, 50.0f, 0.0f, 10.0f, kDay, kYear, a);
    EXPECT_EQ(a.DiamondText, "9999, 3");
    a = StreamAnswer{9, 9, 9, "x"};
    TidalStreamAt(w.ctx, 49.99f, 0.0f, 10.0f, kDay, kYear, a);
    EXPECT_EQ(a.DiamondText, "NONE");
    EXPECT_EQ(a.Rate, 0.0f);
    EXPECT_EQ(a.Direction, 0.0f);
    EXPECT_EQ(a.Slot, 0);

    // East and west at equal range: the first in the list wins.
    SetDiamonds(w.streams, {TableDiamond(50.0f, 0.1f, 5, 2, 7), TableDiamond(50.0f, -0.1f, 5, 2, 8)});
    TidalStreamAt(w.ctx, 50.0f, 0.0f, 10.0f, kDay, kYear, a);
    EXPECT_EQ(a.DiamondText, "9999, 7");
    SetDiamonds(w.streams, {TableDiamond(50.0f, -0.1f, 5, 2, 8), TableDiamond(50.0f, 0.1f, 5, 2, 7)});
    TidalStreamAt(w.ctx, 50.0f, 0.0f, 10.0f, kDay, kYear, a);
    EXPECT_EQ(a.DiamondText, "9999, 8");

    // Spring range equal to neap range: the message, and no rate.
    SetDiamonds(w.streams, {TableDiamond(50.0f, 0.0f, 2, 2)});
    a = StreamAnswer{42, 43, 4, ""};
    EXPECT_EQ(TidalStreamAt(w.ctx, 50.0f, 0.0f, 10.0f, kDay, kYear, a),
              "CalculateTidalStreams\r\nDivide by Zero (Diamond(intDiaNo)Sprange - Diamond(intDiaNo).Nprange)");
    EXPECT_EQ(a.Rate, 42.0f);
    EXPECT_EQ(a.Direction, 43.0f);
    EXPECT_EQ(a.Slot, 4);
    EXPECT_EQ(a.DiamondText, "9999, 3");

    // No diamonds: the answer is left alone.
    SetDiamonds(w.streams, {});
    a = StreamAnswer{1, 2, 3, "kept"};
    EXPECT_EQ(TidalStreamAt(w.ctx, 50.0f, 0.0f, 10.0f, kDay, kYear, a), "");
    EXPECT_EQ(a.DiamondText, "kept");
  }
}

TEST(TidalStreamAt, AnotherDayReloadsTheTides) {
  StreamWorld w;
  w.ctx.programFolder = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
  Diamond d = TableDiamond(51.0f, 1.3f, 5, 2);
  d.RefPort = 4;  // DOVER
  SetDiamonds(w.streams, {d});
  BuildUsedPorts(w.tides, w.streams.Diamonds);
  for (bool fast : {false, true, true}) {
    w.streams.UseAccelerators = fast;
    StreamAnswer a;
    EXPECT_EQ(TidalStreamAt(w.ctx, 51.0f, 1.3f, 12.0f, 101, 2025, a), "");
    EXPECT_EQ(w.tides.TideDay, 101);
    EXPECT_EQ(w.tides.TideYear, 2025);
    ASSERT_EQ(w.tides.PortCurve.size(), 1u);
    EXPECT_EQ(w.tides.UsedPortName[0], "DOVER");
    EXPECT_EQ(a.DiamondText, "9999, 3");
    TidalStreamAt(w.ctx, 51.0f, 1.3f, 12.0f, 102, 2025, a);
    EXPECT_EQ(w.tides.TideDay, 102);
  }
}

TEST(CalculateTidalStreams, DisplayRulesAndZeroRange) {
  StreamWorld w;
  MakeCurve(w.tides, 0.1f);
  SetDiamonds(w.streams, {TableDiamond(50.0f, 0.0f, 5, 2), TableDiamond(50.2f, 0.0f, 2, 2, 4),
                          TableDiamond(50.4f, 0.0f, 5, 2, 5)});
  UpdatePortStates(w.ctx, true, 10.0f);  // slot 1, minutes 40
  const StreamsNow now = CalculateTidalStreams(w.ctx);
  EXPECT_EQ(now.Count, 1);
  EXPECT_EQ(now.message,
            "CalculateTidalStreams\r\nDivide by Zero (Diamond(iCount)Sprange - Diamond(iCount).Nprange)");
  ASSERT_EQ(w.streams.StreamNow.size(), 1u);
  const DiamondStreamNow& s = w.streams.StreamNow[0];
  EXPECT_EQ(s.Label, "9999-3    ");
  // r1 = 0.8 (1 + K) = 1.30667 cut to 1.30; 1.30 + (1.47 - 1.30) x 20 / 60 = 1.3567, shown 1.4.
  EXPECT_EQ(s.Rate, 1.4f);
  EXPECT_EQ(s.Direction, 80.0f);
  EXPECT_EQ(s.Slot, 7);  // minutes 40: one earlier than slot index 8
}

TEST(BuildUsedPorts, FirstAppearanceOrder) {
  TideState tides;
  tides.UsedPortList = {99};
  std::vector<Diamond> ds(5);
  const float ports[] = {35, 34, 35, 4, 34};
  for (int i = 0; i < 5; ++i) ds[static_cast<std::size_t>(i)].RefPort = ports[i];
  BuildUsedPorts(tides, ds);
  EXPECT_EQ(tides.UsedPortList, (std::vector<std::int16_t>{35, 34, 4}));

  // FindRefPorts: from the stream file; a missing file changes nothing.
  FindRefPorts(tides, std::filesystem::path(KELVANE_SOURCE_DIR) / "data", "No Such Area");
  EXPECT_EQ(tides.UsedPortList, (std::vector<std::int16_t>{35, 34, 4}));
  FindRefPorts(tides, std::filesystem::path(KELVANE_SOURCE_DIR) / "data", "Nantucket Sound ");
  EXPECT_EQ(tides.UsedPortList, (std::vector<std::int16_t>{34, 35}));
}

TEST(DiamondIndex, SameNearestAsThePlainScan) {
  std::mt19937 rng(7);
  std::uniform_real_distribution<float> lat(41.0f, 42.0f), lon(-71.5f, -69.5f), q(40.3f, 42.7f), ql(-72.5f, -68.5f);
  StreamState scan, fast;
  scan.UseAccelerators = false;
  std::vector<Diamond> ds;
  for (int i = 0; i < 500; ++i) {
    Diamond d;
    d.lat = lat(rng);
    d.Lon = lon(rng);
    ds.push_back(d);
  }
  ds.push_back(ds[17]);  // a twin: the earlier must win
  SetDiamonds(scan, ds);
  SetDiamonds(fast, ds);
  int within = 0;
  for (int i = 0; i < 5000; ++i) {
    float a = q(rng), b = ql(rng);
    if (i % 10 == 0) {
      a = ds[17].lat;
      b = ds[17].Lon;
    }
    const NearestDiamond s = FindNearestDiamond(scan, a, b);
    const NearestDiamond f = FindNearestDiamond(fast, a, b);
    if (s.range <= kStreamReachMiles) {
      ++within;
      ASSERT_EQ(f.index, s.index) << a << " " << b;
      ASSERT_EQ(f.range, s.range);
    } else {
      ASSERT_GT(f.range, kStreamReachMiles);
    }
  }
  EXPECT_GT(within, 3000);
}

}  // namespace
}  // namespace kelvane
