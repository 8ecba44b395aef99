// The target table and the collision arithmetic. Geometry chosen so the
// answers can be worked by hand on a flat sea: a target one mile north and
// one mile east running west at 10 knots passes one mile north of a
// stopped own ship after six minutes.
#include <gtest/gtest.h>

#include <cmath>

#include "instruments/ais_targets.h"

namespace kelvane {
namespace {

constexpr float kLat = 50.0f, kLon = -1.0f;

float EastOf(float lat, float miles) { return static_cast<float>(miles / 60.0 / std::cos(lat * M_PI / 180.0)); }

TEST(ClosestApproach, HandWorkedCases) {
  float cpa = 7, t = 7;
  // Moving away: the range is not falling.
  ClosestApproach(kLat, kLon, 0, 0, kLat + 1.0f / 60, kLon, 10, 0, cpa, t);
  EXPECT_EQ(cpa, -12.0f);
  EXPECT_EQ(t, -1.0f);
  EXPECT_EQ(CpaText(cpa, t, 12.0f), "No Closure");

  // Zero relative speed: the same answer, without a division.
  cpa = t = 7;
  ClosestApproach(kLat, kLon, 5, 45, kLat + 1.0f / 60, kLon + 0.02f, 5, 45, cpa, t);
  EXPECT_EQ(cpa, -12.0f);
  EXPECT_EQ(t, -1.0f);

  // Head on, two miles apart, closing at 20 knots: a miss of 0 after six
  // minutes, or -1 when rounding takes the square just below 0 (and then
  // the time is left as it was).
  cpa = 7;
  t = 5;
  ClosestApproach(kLat, kLon, 10, 0, kLat + 2.0f / 60, kLon, 10, 180, cpa, t);
  if (cpa == -1.0f) {
    EXPECT_EQ(t, 5.0f);
  } else {
    EXPECT_NEAR(cpa, 0.0f, 1e-3);
    EXPECT_NEAR(t, 0.1f, 1e-4);  // the range is a single
  }

  // Crossing ahead: one mile north, one mile east, running west at 10.
  ClosestApproach(kLat, kLon, 0, 0, kLat + 1.0f / 60, kLon + EastOf(kLat, 1), 10, 270, cpa, t);
  EXPECT_NEAR(cpa, 1.0f, 2e-3);
  EXPECT_NEAR(t, 0.1f, 2e-4);
  EXPECT_EQ(CpaText(1.0f, 0.1f, 23.95f), "1.00nm @ 00:03");  // past midnight
}

TEST(PredictPosition, RunAndStream) {
  AisTableSettings s;
  StreamLookup stream = [](float, float) { return std::optional<StreamAt>(StreamAt{2.0f, 90.0f}); };
  // Ten knots north for six minutes: one mile, a sixtieth of a degree.
  Position p = PredictPosition(kLat, kLon, 6, 0, 10, s, stream);
  EXPECT_NEAR(p.lat, kLat + 1.0f / 60, 1e-5);
  EXPECT_NEAR(p.lon, kLon, 1e-6);
  // With the stream switched on, thirty minutes of a 2-knot stream east.
  s.BoatFutureTidePlot = -1;
  p = PredictPosition(kLat, kLon, 30, 0, 0, s, stream);
  EXPECT_NEAR(p.lat, kLat, 1e-6);
  EXPECT_NEAR(p.lon, kLon + EastOf(kLat, 1), 1e-5);
  // No stream known there: the run alone.
  p = PredictPosition(kLat, kLon, 30, 0, 0, s, [](float, float) { return std::optional<StreamAt>(); });
  EXPECT_EQ(p.lon, kLon);

  OwnShipState own;
  own.GPSLat = kLat;
  own.GPSLong = kLon;
  own.GPSSpeed = 6;
  own.GPSCourse = 180;
  AisTableSettings v;
  v.AheadVector = 10;
  std::array<AisPoint, 7> pts = ComputeOwnPrediction(own, v, {}, 23.5f);
  EXPECT_NEAR(pts[1].Lat, kLat - 1.0f / 60, 1e-5);
  EXPECT_NEAR(pts[6].Lat, kLat - 6.0f / 60, 1e-5);
  EXPECT_NEAR(pts[2].TimeHours, 23.5f + 20.0f / 60, 1e-5);
  EXPECT_NEAR(pts[3].TimeHours, 0.0f, 1e-5);  // 24.0 wraps to 0
  EXPECT_NEAR(pts[6].TimeHours, 0.5f, 1e-5);
}

float At(float hours, float seconds) { return hours + seconds / 3600.0f; }

TEST(UpdateAISTarget, HistoryThinningAndAgeing) {
  AisTargetTable table;
  table.settings.AheadIntervals = 6;
  table.settings.ShowAISDetails = -1;
  const float t0 = 10.0f;
  UpdateAISTarget(table, 1, 235000001, kLat, kLon, 0, 10, 0, t0);
  ASSERT_EQ(table.AISTargets.size(), 1u);
  AISTarget* a = &table.AISTargets[0];
  EXPECT_EQ(a->Alive, -1);
  EXPECT_EQ(a->ShowDetails, -1);
  EXPECT_EQ(a->Destination, "Not Received");
  EXPECT_EQ(a->ShipType, "0");
  for (int k = 1; k <= 6; ++k) EXPECT_EQ(a->History[k].TimeHours, t0);
  EXPECT_NEAR(a->Predicted[1].Lat, kLat + 1.0f / 60, 1e-5);
  EXPECT_NEAR(a->Predicted[1].TimeHours, t0 + 0.1f, 1e-5);

  // Ten seconds later: heard, new speed, but the position stays.
  UpdateAISTarget(table, 1, 235000001, kLat + 0.001f, kLon, 0, 11, 0, At(t0, 10));
  a = &table.AISTargets[0];
  EXPECT_EQ(a->Lat, kLat);
  EXPECT_EQ(a->Speed, 11.0f);
  EXPECT_EQ(a->LastHeardHours, At(t0, 10));

  // Forty seconds after the sample: the position moves.
  UpdateAISTarget(table, 1, 235000001, kLat + 0.002f, kLon, 0, 11, 0, At(t0, 40));
  EXPECT_EQ(table.AISTargets[0].Lat, kLat + 0.002f);

  // Six minutes on: a new history sample, and the position waits again.
  UpdateAISTarget(table, 1, 235000001, kLat + 0.01f, kLon, 0, 11, 0, At(t0, 360));
  a = &table.AISTargets[0];
  EXPECT_EQ(a->History[1].Lat, kLat + 0.01f);
  EXPECT_EQ(a->History[2].Lat, kLat);
  EXPECT_EQ(a->Lat, kLat + 0.002f);

  // A second vessel 0.34 hours later: the first has aged out.
  UpdateAISTarget(table, 18, 235000002, kLat, kLon, 0, 5, 1, At(t0, 360) + 0.34f);
  ASSERT_EQ(table.AISTargets.size(), 1u);
  EXPECT_EQ(table.AISTargets[0].MMSI, 235000002);
}

TEST(UpdateAISTarget, MidnightKeepsTargets) {
  AisTargetTable table;
  UpdateAISTarget(table, 1, 1, kLat, kLon, 0, 0, 0, 23.9f);
  UpdateAISTarget(table, 1, 2, kLat, kLon, 0, 0, 0, 0.1f);  // the next day
  EXPECT_EQ(table.AISTargets.size(), 2u);
  // Not until the clock passes 23.9 + 0.3333 on the next day: never, here.
  UpdateAISTarget(table, 1, 2, kLat, kLon, 0, 0, 0, 23.8f);
  EXPECT_EQ(table.AISTargets.size(), 2u);
}

TEST(AisStatic, StoringRules) {
  AisTargetTable table;
  // Static data before any position is lost.
  UpdateAISStatic(table, 7, "CALL", "NAME", "Tug", "DEST", "1 x 2 x 3", "01/Jan @ 00:00");
  UpdateAISTarget(table, 1, 7, kLat, kLon, 0, 0, 0, 12.0f);
  EXPECT_EQ(table.AISTargets[0].VesselName, " ");
  UpdateAISStatic(table, 7, "2A@@", "  KELVANE@@@@", "Tug", "POOLE@@@", "1 x 2 x 3", "01/Jan @ 00:00");
  const AISTarget& t = table.AISTargets[0];
  EXPECT_EQ(t.Callsign, "2A");
  EXPECT_EQ(t.VesselName, "KELVANE");
  EXPECT_EQ(t.Destination, "POOLE");
  EXPECT_EQ(t.ShipType, "Tug");

  // Class B: an empty name does not overwrite; part 1 sets its three fields.
  UpdateAISClassBStatic(table, 7, 0, "@@@@", "", "", "");
  EXPECT_EQ(table.AISTargets[0].VesselName, "KELVANE");
  UpdateAISClassBStatic(table, 7, 1, "", "M123@", "Sailing", "10 x 3");
  EXPECT_EQ(table.AISTargets[0].Callsign, "M123");
  EXPECT_EQ(table.AISTargets[0].Dimensions, "10 x 3");

  // A search and rescue aircraft: its static text comes from the altitude.
  AisMessage sar;
  sar.type = 9;
  sar.mmsi = 111;
  sar.hasPosition = true;
  sar.altitude = 300;
  ApplyAisMessage(table, sar, 12.0f);
  ASSERT_EQ(table.AISTargets.size(), 2u);
  EXPECT_EQ(table.AISTargets[1].VesselName, "SEARCH & RESCUE");
  EXPECT_EQ(table.AISTargets[1].Callsign, "Altitude = 300");
  EXPECT_EQ(table.AISTargets[1].ShipType, "S & R");
}

}  // namespace
}  // namespace kelvane
