// The GRIB edition 1 reader, through kelvane-cli as a user meets it.
//
// The files of tests/data/wind/ were made by ecCodes from known values
// (tools/make_grib_samples.sh); each grid point must come back with its
// position and the value written, within the packing's precision, and agree
// with ecCodes' own grib_get_data where that tool is installed.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "support/commands.h"
#include "wind/grib.h"

namespace kelvane {
namespace {

using test::RunCli;
using testing::RunCommand;
using testing::SplitLines;

const std::string kData = std::string(KELVANE_TEST_DATA) + "/wind/";
constexpr double kMissing = 1e30;  // a point the bitmap leaves out

struct Point {
  double lat = 0, lon = 0, value = 0;
};

// "lat lon value" lines, "missing" as kMissing; ecCodes' header line (not
// numbers) is passed over.
std::vector<Point> ParsePoints(const std::string& text) {
  std::vector<Point> points;
  for (const std::string& line : SplitLines(text)) {
    std::istringstream in(line);
    Point p;
    std::string value;
    if (!(in >> p.lat >> p.lon >> value)) continue;
    p.value = value == "missing" ? kMissing : std::strtod(value.c_str(), nullptr);
    points.push_back(p);
  }
  return points;
}

double Lon360(double lon) { return std::fmod(lon + 720.0, 360.0); }

bool HaveEccodes() { return std::system("command -v grib_get_data >/dev/null 2>&1") == 0; }

std::vector<std::uint8_t> FileBytes(const std::string& name) {
  std::ifstream in(kData + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(GribValues, EveryPointComesBackWithItsPositionAndTheValueWrittenAndAgreesWithEccodes) {
  struct Row {
    std::string file;
    std::string show;  // the line of `grib show` for the first message
    Point first, last;
    std::vector<double> written;  // as given to grib_filter, kMissing where masked
    double precision;             // the packing's step
  };
  const double M = kMissing;
  const std::vector<Row> rows = {
      {"u8_north.grb",
       "1\tparam 33\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 4 x 3\tfirst 50 -6\tlast 48 -3\tinc 1 1\tscan 0\tbitmap no",
       {50, -6}, {48, -3}, {-5.5, -3.25, 0, 1.5, 2, 4.75, 6, 7.5, -1, 0.25, 3, 9.5}, 0.07},
      {"v12_south.grb",
       "1\tparam 34\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 3 x 3\tfirst -40 150\tlast -38 152\tinc 1 1\tscan 64\tbitmap no",
       {-40, 150}, {-38, 152}, {-12.345, -7.5, -0.125, 0, 3.3, 8.8, 12.25, 15, 20.5}, 0.01},
      {"bitmap.grb",
       "1\tparam 33\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 3 x 2\tfirst 10 20\tlast 9 22\tinc 1 1\tscan 0\tbitmap yes",
       {10, 20}, {9, 22}, {1, M, 3, 4.5, M, -6}, 0.05},
      {"seam360.grb",
       "1\tparam 33\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 5 x 2\tfirst 51 358\tlast 50 2\tinc 1 1\tscan 0\tbitmap no",
       {51, 358}, {50, 2}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 0.01},
      {"seamsigned.grb",
       "1\tparam 34\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 5 x 2\tfirst 51 -2\tlast 50 2\tinc 1 1\tscan 0\tbitmap no",
       {51, -2}, {50, 2}, {-1, -2, -3, -4, -5, -6, -7, -8, -9, -10}, 0.01},
      {"west.grb",
       "1\tparam 33\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 3 x 2\tfirst 45 10\tlast 44 8\tinc 1 1\tscan 128\tbitmap no",
       {45, 10}, {44, 8}, {0.5, 1, 1.5, 2, 2.5, 3}, 0.02},
      // Three messages: those of u8_north, v12_south and bitmap in a row.
      {"several.grb",
       "1\tparam 33\tlevel 105 10\tref 2026-11-25 12:00\tP1 6 P2 0 hour\tgrid 4 x 3\tfirst 50 -6\tlast 48 -3\tinc 1 1\tscan 0\tbitmap no",
       {50, -6}, {9, 22},
       {-5.5, -3.25, 0, 1.5, 2, 4.75, 6, 7.5, -1, 0.25, 3, 9.5, -12.345, -7.5, -0.125, 0, 3.3, 8.8, 12.25, 15, 20.5,
        1, M, 3, 4.5, M, -6},
       0.07},
      // Two forecast steps (+ 0 h and + 3 h) of U and V, out of order.
      {"wind_signed.grb",
       "1\tparam 33\tlevel 105 10\tref 2026-11-25 12:00\tP1 0 P2 0 hour\tgrid 3 x 2\tfirst 51 -0.5\tlast 50.5 0.5\tinc 0.5 0.5\tscan 0\tbitmap no",
       {51, -0.5}, {50.5, 0.5},
       {0, 5, -3, 3, -4, 0, 0, 0, 0, 0, 0, 0, -5, 0, 4, 4, 3, 0, 10, 10, 10, 10, 10, 10}, 0.01},
  };
  bool eccodes = HaveEccodes();
  for (const Row& row : rows) {
    SCOPED_TRACE(row.file);
    auto show = RunCli("grib show " + kData + row.file);
    ASSERT_EQ(show.status, 0) << show.out;
    EXPECT_EQ(SplitLines(show.out).front(), row.show);

    auto values = RunCli("grib values " + kData + row.file);
    ASSERT_EQ(values.status, 0) << values.out;
    std::vector<Point> ours = ParsePoints(values.out);
    ASSERT_EQ(ours.size(), row.written.size());
    EXPECT_DOUBLE_EQ(ours.front().lat, row.first.lat);
    EXPECT_DOUBLE_EQ(ours.front().lon, row.first.lon);
    EXPECT_DOUBLE_EQ(ours.back().lat, row.last.lat);
    EXPECT_DOUBLE_EQ(ours.back().lon, row.last.lon);
    for (std::size_t k = 0; k < ours.size(); ++k) {
      if (row.written[k] == kMissing)
        EXPECT_EQ(ours[k].value, kMissing) << "point " << k;
      else
        EXPECT_NEAR(ours[k].value, row.written[k], row.precision) << "point " << k;
    }

    if (!eccodes) continue;
    std::vector<Point> theirs = ParsePoints(RunCommand("grib_get_data -m missing " + kData + row.file));
    ASSERT_EQ(theirs.size(), ours.size());
    for (std::size_t k = 0; k < ours.size(); ++k) {
      SCOPED_TRACE("point " + std::to_string(k));
      EXPECT_NEAR(ours[k].lat, theirs[k].lat, 1e-3);
      EXPECT_NEAR(Lon360(ours[k].lon), Lon360(theirs[k].lon), 1e-3);
      if (theirs[k].value == kMissing)
        EXPECT_EQ(ours[k].value, kMissing);
      else
        EXPECT_NEAR(ours[k].value, theirs[k].value, 1e-5 * std::max(1.0, std::fabs(theirs[k].value)));
    }
  }
  if (!eccodes) GTEST_SKIP() << "grib_get_data (libeccodes-tools) is not installed: values checked only against those written";
}

TEST(GribValues, OneMessageOfSeveralOnRequest) {
  auto second = RunCli("grib values " + kData + "several.grb --message 2");
  ASSERT_EQ(second.status, 0);
  std::vector<Point> points = ParsePoints(second.out);
  ASSERT_EQ(points.size(), 9u);
  EXPECT_DOUBLE_EQ(points.front().lat, -40);
  auto none = RunCli("grib values " + kData + "several.grb --message 4");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.out, "error\tThere is no message 4 in the file: it holds 3\n");
}

// Every refusal is a message with no records, never a crash or a hang. The
// offsets are those of u8_north.grb: indicator 0-7, PDS 8-59 (ecCodes
// writes 52 bytes), GDS 60-91, BDS 92-115, "7777".
TEST(GribRead, BadInputIsRefusedWithAMessage) {
  const std::vector<std::uint8_t> good = FileBytes("u8_north.grb");
  ASSERT_EQ(good.size(), 120u);
  auto patched = [&](std::vector<std::pair<std::size_t, std::uint8_t>> changes, std::size_t keep = 120) {
    std::vector<std::uint8_t> bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(keep));
    for (auto [at, value] : changes) bytes[at] = value;
    return bytes;
  };
  struct Row {
    std::string what;
    std::vector<std::uint8_t> bytes;
    std::string message;
  };
  const std::vector<Row> rows = {
      {"edition 2", FileBytes("edition2.grb"), "Grib file wrong edition number\r\nExiting routine"},
      {"empty file", {}, "Bad File - the file is empty"},
      {"cut inside the indicator", patched({}, 5), "Bad File - message 1: the file ends inside the Indicator Section"},
      {"cut at 50 bytes", patched({}, 50),
       "Bad File - message 1: the total length of 120 bytes runs past the end of the file (50 bytes left)"},
      {"zero-length message", patched({{4, 0}, {5, 0}, {6, 0}}), "Bad File - message 1: the total length is 0"},
      {"PDS length 0", patched({{8, 0}, {9, 0}, {10, 0}}),
       "Bad File - Product Definition Length = 0\r\nExiting the GRIB Reading routine"},
      {"GDS length 0", patched({{60, 0}, {61, 0}, {62, 0}}),
       "Bad data - Grid Description Section Length = 0\r\nExiting the GRIB Reading routine"},
      {"BDS length 0", patched({{92, 0}, {93, 0}, {94, 0}}), "Bad File - Binary Data Section = 0"},
      {"BDS length past the message", patched({{93, 1}}),
       "Bad File - message 1: the Binary Data Section length of 280 bytes runs past the end of the message"},
      {"a million points in 120 bytes", patched({{66, 3}, {67, 235}, {68, 3}, {69, 235}}),
       "Bad File - message 1: the Binary Data Section holds fewer values than the grid has points"},
      {"binary scale beyond any number", patched({{96, 0x7F}, {97, 0xFF}}),
       "Bad File - message 1: the packing scales are out of range"},
      {"Lambert grid", patched({{65, 3}}), "Unpacking BDS data_rep ; Grid type 3 not understood"},
      {"time range 51", patched({{28, 51}}), "Unhandled Time range vlaue of 51"},
      {"second message cut", [&] { auto b = good; b.insert(b.end(), good.begin(), good.begin() + 60); return b; }(),
       "Bad File - message 2: the total length of 120 bytes runs past the end of the file (60 bytes left)"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    GribReadResult read = DecodeGrib(row.bytes);
    EXPECT_FALSE(read.ok);
    EXPECT_TRUE(read.GribRecords.empty());
    EXPECT_EQ(read.message, row.message);
  }
}

// The quirks of the grid description: Ni is byte 7 * 255 + byte 8, so 1, 0
// reads 255; a first latitude of 128, 0, 0 reads -0; one stray byte after
// the last message is passed over.
TEST(GribRead, GridBytesReadAsTheReaderTakesThem) {
  std::vector<std::uint8_t> bytes = FileBytes("u8_north.grb");
  bytes[70] = 128;  // La1 = 128, 0, 0
  bytes[71] = 0;
  bytes[72] = 0;
  bytes.push_back('\n');
  GribReadResult read = DecodeGrib(bytes);
  ASSERT_TRUE(read.ok) << read.message;
  EXPECT_EQ(read.GribRecords[0].Grid.La1, 0.0f);
  EXPECT_TRUE(std::signbit(read.GribRecords[0].Grid.La1));

  bytes = FileBytes("u8_north.grb");
  bytes[66] = 1;  // Ni = 1, 0
  bytes[67] = 0;
  bytes[68] = 0;  // Nj = 0, 1, so that 255 8-bit values would be needed
  bytes[69] = 1;
  read = DecodeGrib(bytes);
  EXPECT_EQ(read.message, "Bad File - message 1: the Binary Data Section holds fewer values than the grid has points");
}

}  // namespace
}  // namespace kelvane
