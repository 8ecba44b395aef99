// The wind store: a GRIB file imported, and the wind of a place and a time
// asked of it, as a user meets it through kelvane-cli.
//
// The winds of tests/data/wind/wind_signed.grb are listed in
// tools/make_grib_samples.sh; every speed and direction below is worked by
// hand from those U and V values: speed = sqrt(U^2 + V^2) / 0.5148 knots,
// direction = where the wind comes from.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/recordio.h"
#include "support/commands.h"
#include "support/tempdir.h"
#include "wind/windstore.h"

namespace kelvane {
namespace {

using test::RunCli;
using test::TempDir;

const std::string kData = std::string(KELVANE_TEST_DATA) + "/wind/";

struct Tree {
  TempDir dir;
  std::string Cli(const std::string& args, int* status = nullptr) const {
    auto r = RunCli("--data-root '" + (dir.path / "d").string() + "' --user-folder '" + (dir.path / "u").string() +
                    "' " + args);
    if (status) *status = r.status;
    return r.out;
  }
  std::filesystem::path Store() const { return dir.path / "u/KelvaneFiles/~wind.dat"; }
  std::filesystem::path Points() const { return dir.path / "u/KelvaneFiles/~GrDa.tmp"; }
};

TEST(WindStore, DirectionIsWhereTheWindComesFromAndSpeedUsesTheProgramsKnot) {
  struct Row {
    float u, v, speed, direction;
  };
  // 5 m/s / 0.5148 = 9.71251 kn; atan(3/4) = 36.8699 degrees.
  const Row rows[] = {
      {0, -5, 9.71251f, 0},         {5, 0, 9.71251f, 270},       {-5, 0, 9.71251f, 90},
      {0, 5, 9.71251f, 180},        {-3, 4, 9.71251f, 143.1301f}, {3, 4, 9.71251f, 216.8699f},
      {3, -4, 9.71251f, 323.1301f}, {-3, -4, 9.71251f, 36.8699f}, {0, 0, 0, 0},
  };
  for (const Row& r : rows) {
    WindFromUV w = WindFromComponents(r.u, r.v);
    EXPECT_NEAR(w.speed, r.speed, 1e-4) << r.u << "," << r.v;
    EXPECT_NEAR(w.direction, r.direction, 1e-3) << r.u << "," << r.v;
  }
}

TEST(WindStore, ThreeHourSlotsIncludeTheirStartAndNotTheirEnd) {
  struct Row {
    float hours, lower, upper;
  };
  const Row rows[] = {{0, 0, 0.125f}, {2.99f, 0, 0.125f}, {3, 0.125f, 0.25f}, {12, 0.5f, 0.625f},
                      {23.99f, 0.875f, 1}, {24, 0.875f, 1}};
  for (const Row& r : rows) {
    WindBracket b = WindTimeBracket(r.hours / 24.0f);
    EXPECT_EQ(b.lower, r.lower) << r.hours;
    EXPECT_EQ(b.upper, r.upper) << r.hours;
  }
}

// Import, then ask: the nearest grid point of the 3-hour slot, with the
// route tools' message and the working wind where the store does not cover
// the place or the time.
TEST(WindStore, WindAtGivesTheNearestPointOfTheSlotOrTheCoverageMessage) {
  Tree t;
  t.Cli("init");
  int status = -1;
  std::string out = t.Cli("grib import " + kData + "wind_signed.grb", &status);
  ASSERT_EQ(status, 0) << out;
  EXPECT_NE(out.find("File Imported"), std::string::npos);
  EXPECT_NE(out.find("U/V pairs 2\twind records 12"), std::string::npos) << out;
  // Header plus 6 points at + 0 h and 6 at + 3 h.
  EXPECT_EQ(std::filesystem::file_size(t.Store()), 13 * kWindRecordSize);

  const std::string coverage = kRouteWindCoverageMessage;
  struct Row {
    const char* where;
    const char* at;
    std::string expected;
  };
  const Row rows[] = {
      // 50.6N 0.45W: nearest 50.5N 0.5W, (U, V) = (3, 4) at + 0 h.
      {"--lat 50.6 --lon -0.45", "2026-11-25 12:00", "wind 9.7kn from 217°T"},
      {"--lat 50.6 --lon -0.45", "2026-11-25 14:59", "wind 9.7kn from 217°T"},
      // 15:00 is the next slot's start: the westerly of + 3 h.
      {"--lat 50.6 --lon -0.45", "2026-11-25 15:00", "wind 19.4kn from 270°T"},
      {"--lat 50.6 --lon -0.45", "2026-11-25 17:59", "wind 19.4kn from 270°T"},
      // Past the last forecast, and the same hour a day later: no record.
      {"--lat 50.6 --lon -0.45", "2026-11-25 18:00", coverage + "\nwind 5.0kn from 290°T (the working wind)\n"},
      {"--lat 50.6 --lon -0.45", "2026-11-26 12:00", coverage + "\nwind 5.0kn from 290°T (the working wind)\n"},
      // 41' of latitude south of the grid: the nearest point is 41 nm away,
      // beyond the 40 nm of coverage; 39.6 nm is within it.
      {"--lat 49.8167 --lon -0.5", "2026-11-25 12:00",
       coverage + "\nwind 5.0kn from 290°T (the working wind)\tnearest grid point 41.0nm away"},
      {"--lat 49.84 --lon -0.5", "2026-11-25 12:00", "wind 9.7kn from 217°T\tgrid point 39.6nm away"},
      // East of Greenwich: (-3, 4) and the calm point.
      {"--lat 51 --lon 0.4", "2026-11-25 12:00", "wind 9.7kn from 143°T"},
      {"--lat 50.5 --lon 0.45", "2026-11-25 12:00", "wind 0.0kn from 000°T"},
  };
  for (const Row& r : rows) {
    std::string text = t.Cli(std::string("wind at ") + r.where + " --at \"" + r.at + "\"");
    EXPECT_NE(text.find(r.expected), std::string::npos) << r.where << " " << r.at << "\n" << text;
  }
}

// A grid stored in 0..360 longitudes gives the same records, at the same
// places, as the same grid with signed longitudes.
TEST(WindStore, GridAcrossGreenwichStoredEitherWayGivesTheSameWinds) {
  Tree a, b;
  a.Cli("init");
  b.Cli("init");
  a.Cli("grib import " + kData + "wind_signed.grb");
  b.Cli("grib import " + kData + "wind_360.grb");
  std::vector<WindRecord> signedStore = ReadWindStore(a.Store());
  std::vector<WindRecord> store360 = ReadWindStore(b.Store());
  ASSERT_EQ(signedStore.size(), 13u);
  ASSERT_EQ(store360.size(), 7u);
  for (std::size_t n = 0; n < store360.size(); ++n) EXPECT_EQ(store360[n], signedStore[n]) << n;
  EXPECT_EQ(store360[1].Long, -0.5f);
  EXPECT_EQ(store360[0], (WindRecord{0, 0, 1.0f, 0, 0}));  // the header
}

// What cannot be imported leaves the last import as it was, byte for byte.
TEST(WindStore, RefusedImportsLeaveTheStoreAsItWas) {
  Tree t;
  t.Cli("init");
  t.Cli("grib import " + kData + "wind_signed.grb");
  std::optional<Bytes> before = ReadFileBytes(t.Store());
  std::optional<Bytes> pointsBefore = ReadFileBytes(t.Points());
  ASSERT_TRUE(before && pointsBefore);
  struct Row {
    std::string file, message;
  };
  const Row rows[] = {
      {kData + "edition2.grb", "Grib file wrong edition number"},
      {kData + "u8_north.grb", "No wind in this file"},  // a U field with no V
      {kData + "no such file.grb", "error"},
  };
  for (const Row& r : rows) {
    int status = 0;
    std::string out = t.Cli("grib import '" + r.file + "'", &status);
    EXPECT_NE(status, 0) << r.file;
    EXPECT_NE(out.find(r.message), std::string::npos) << out;
    EXPECT_EQ(ReadFileBytes(t.Store()), before) << r.file;
    EXPECT_EQ(ReadFileBytes(t.Points()), pointsBefore) << r.file;
  }
}

// The lookup on records in memory: the no-data mark never matches, even as
// the nearest point; a missing or truncated file finds nothing and keeps the
// caller's wind.
TEST(WindStore, NoDataPointsAndShortFilesNeverGiveAWind) {
  const float noon = static_cast<float>(DaysSince2000(25, 11, 2026, 12));
  std::vector<WindRecord> records = {{0, 0, 1, 0, 0},
                                     {noon, 50.5f, -1.0f, kNoWindSpeed, 0},
                                     {noon, 50.5f, -1.2f, 12.0f, 200.0f}};
  WindLookup previous{7.0f, 90.0f, false, -1};
  WindLookup w = LookupWind(records, 50.5f, -1.0f, 11, 25, 2026, 12.5f, previous);
  EXPECT_TRUE(w.found);
  EXPECT_EQ(w.speed, 12.0f);
  EXPECT_EQ(w.direction, 200.0f);

  TempDir dir;
  WindLookup none = LookupWind(dir.path / "missing.dat", 50.5f, -1.0f, 11, 25, 2026, 12.5f, previous);
  EXPECT_FALSE(none.found);
  EXPECT_EQ(none.speed, 7.0f);
  EXPECT_EQ(none.direction, 90.0f);
  // Two whole records and a torn third: the torn bytes are dropped.
  Bytes bytes = EncodeWindStore(records);
  bytes.resize(2 * kWindRecordSize + 7);
  EXPECT_EQ(DecodeWindStore(bytes).size(), 2u);
}

// The list of what the store holds: date, position, speed and direction.
TEST(WindStore, ListLinesShowDateTimePositionSpeedAndDirection) {
  WindRecord r{static_cast<float>(DaysSince2000(25, 11, 2026, 15)), 50.5f, -0.5f, 19.425f, 270};
  EXPECT_EQ(WindRecordLine(r), "25/11/2026 @ 150000\t50.5, -0.5\t19.4\t270°T");
  WindRecord leap{static_cast<float>(DaysSince2000(29, 2, 2024, 0)), -40, 150, 3.04f, 5};
  EXPECT_EQ(WindRecordLine(leap), "29/2/2024 @ 000000\t-40, 150\t3.0\t005°T");
}

}  // namespace
}  // namespace kelvane
