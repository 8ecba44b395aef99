// InitialiseTides: the reference ports and the three-day port curves.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/tempdir.h"
#include "tides/tidestate.h"

namespace kelvane {
namespace {

namespace fs = std::filesystem;

const fs::path kData = fs::path(KELVANE_SOURCE_DIR) / "data";

TEST(InitialiseTides, MissingReferencePortsFile) {
  test::TempDir dir;
  const fs::path& empty = dir.path;
  TideState state;
  state.UsedPortList = {1, 2};
  const std::string message = InitialiseTides(state, empty, 73, 2025, false);
  EXPECT_EQ(message, " Reference ports file in " + (empty / "Refports.hc").string() + "\nCannot be opened.");
  EXPECT_TRUE(state.RefPortList.empty());
  EXPECT_TRUE(state.UsedPortName.empty());
  EXPECT_TRUE(state.PortCurve.empty());
  EXPECT_EQ(state.UsedPortList.size(), 2u);  // the diamonds' list is not the loader's to clear
}

TEST(InitialiseTides, NoDiamondsFillsOnlyTheReferencePorts) {
  TideState state;
  EXPECT_EQ(InitialiseTides(state, kData, 73, 2025, false), "");
  EXPECT_EQ(state.RefPortList.size(), fs::file_size(kData / "Refports.hc") / 197);
  EXPECT_TRUE(state.PortCurve.empty());
  EXPECT_TRUE(state.UsedPortName.empty());
  EXPECT_EQ(state.TideDay, 73);
  EXPECT_EQ(state.TideYear, 2025);
}

int RecordOf(const TideState& state, const std::string& name) {
  for (std::size_t i = 0; i < state.RefPortList.size(); ++i)
    if (state.RefPortList[i].PortName == name) return static_cast<int>(i) + 1;
  return 0;
}

TEST(InitialiseTides, ThreeDaysOfCurveForEachUsedPort) {
  TideState state;
  ASSERT_EQ(InitialiseTides(state, kData, 1, 2025, false), "");
  const int dover = RecordOf(state, "DOVER");
  const int plymouth = RecordOf(state, "PLYMOUTH (DEVONPORT)");
  ASSERT_GT(dover, 0);
  ASSERT_GT(plymouth, 0);
  state.UsedPortList = {static_cast<std::int16_t>(dover), static_cast<std::int16_t>(plymouth)};
  // Day 1: the day before is day 0 of the same year.
  ASSERT_EQ(InitialiseTides(state, kData, 1, 2025, false), "");
  ASSERT_EQ(state.UsedPortName, (std::vector<std::string>{"DOVER", "PLYMOUTH (DEVONPORT)"}));
  ASSERT_EQ(state.PortCurve.size(), 2u);
  ASSERT_EQ(state.PortTideState.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    SCOPED_TRACE(i);
    const HarmonicPortRecord& port = *RefPort(state, state.UsedPortList[i]);
    const DayCurve before = RefPortDayCurve(port, 2025, 0, false);
    const DayCurve day = RefPortDayCurve(port, 2025, 1, false);
    const DayCurve after = RefPortDayCurve(port, 2025, 2, false);
    const PortCurveArray& curve = state.PortCurve[i];
    for (int k = 1; k <= 144; ++k) ASSERT_EQ(curve[k].height, before.height[k]) << k;
    for (int k = 145; k <= 288; ++k) ASSERT_EQ(curve[k].height, day.height[k - 144]) << k;
    for (int k = 289; k <= 433; ++k) ASSERT_EQ(curve[k].height, after.height[k - 288]) << k;
    EXPECT_EQ(curve[145].time, 0.0f);   // local midnight that starts the day
    EXPECT_EQ(curve[151].time, 1.0f);   // entry k is (k - 145) x 10 minutes from it
    EXPECT_EQ(curve[433].time, 24.0f);  // the day after's own midnight
    EXPECT_EQ(curve[434].height, 0.0f);
    // The last day curve made is the day after's.
    EXPECT_EQ(state.PortDayCurve[i].height[1], after.height[1]);
  }
}

TEST(InitialiseTides, ZeroDayOrYearMeansTheDateAlreadyHeld) {
  TideState state;
  state.TideDay = 200;
  state.TideYear = 2024;
  ASSERT_EQ(InitialiseTides(state, kData, 0, 2025, false), "");
  EXPECT_EQ(state.TideDay, 200);
  EXPECT_EQ(state.TideYear, 2024);
  ASSERT_EQ(InitialiseTides(state, kData, 10, 0, false), "");
  EXPECT_EQ(state.TideDay, 200);
}

TEST(InitialiseTides, AUsedPortBeyondTheFileIsAnError) {
  TideState state;
  state.UsedPortList = {1, 9999};
  const std::string message = InitialiseTides(state, kData, 73, 2025, false);
  EXPECT_EQ(message.rfind("InitialiseTidesError ", 0), 0u) << message;
}

}  // namespace
}  // namespace kelvane
