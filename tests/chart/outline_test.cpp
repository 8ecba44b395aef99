// The outline file: records, breaks, damaged input.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "chart/outline.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

std::vector<std::uint8_t> Records(const std::vector<std::pair<float, float>>& points) {
  std::vector<std::uint8_t> bytes(points.size() * 8);
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::memcpy(&bytes[i * 8], &points[i].first, 4);  // little-endian host
    std::memcpy(&bytes[i * 8 + 4], &points[i].second, 4);
  }
  return bytes;
}

TEST(Outline, BreaksAndPolylines) {
  auto bytes = Records({{90, 0}, {89, 0}, {95, 1},  // a leading run of breaks: one entry kept
                        {50.1f, -1.1f}, {50.2f, -1.2f}, {50.3f, -1.3f},
                        {90, 0},                     // a break
                        {50.5f, -1.5f},              // a lone point: nothing to draw
                        {89, 0}, {89.5f, 0},         // two breaks in a row are both kept
                        {50.6f, -1.6f}, {50.7f, -1.7f}});
  bytes.push_back(0x12);  // a trailing part-record is dropped
  OutlineData data = ReadOutlineBytes(bytes);
  ASSERT_EQ(data.points.size(), 10u);
  EXPECT_EQ(data.points[0].lat, 90.0f);
  EXPECT_EQ(data.points[1].lat, 50.1f);
  auto lines = OutlinePolylines(data.points);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].size(), 3u);
  EXPECT_EQ(lines[1].size(), 2u);
  EXPECT_EQ(lines[1][1].lon, -1.7f);

  ShiftOutline(data.points, 0.5f, -0.25f);
  EXPECT_EQ(data.points[0].lat, 90.0f);  // breaks stay breaks
  EXPECT_EQ(data.points[1].lat, 50.1f + 0.5f);
  EXPECT_EQ(data.points[1].lon, -1.1f - 0.25f);
}

TEST(Outline, NotANumberIsABreakAndFilesRoundTrip) {
  float nan = std::nanf("");
  OutlineData data = ReadOutlineBytes(Records({{50, 1}, {51, 2}, {nan, 3}, {52, 3}, {53, 4}}));
  EXPECT_EQ(OutlinePolylines(data.points).size(), 2u);
  TestFolder dir;
  auto file = dir.path() / "o.l40";
  ASSERT_EQ(WriteOutlineFile(file, data.points), "");
  OutlineData back = ReadOutlineFile(file);
  ASSERT_EQ(back.points.size(), data.points.size());
  EXPECT_EQ(back.points[4].lat, 53.0f);
  OutlineData missing = ReadOutlineFile(dir.path() / "none.l40");
  EXPECT_TRUE(missing.points.empty());
  EXPECT_NE(missing.message, "");
}

TEST(Outline, SampleCoast) {
  OutlineData data = ReadOutlineFile(std::filesystem::path(KELVANE_SOURCE_DIR) / "data/OutlineData/Sample Coast.l40");
  ASSERT_EQ(data.message, "");
  auto lines = OutlinePolylines(data.points);
  ASSERT_FALSE(lines.empty());
  for (const auto& line : lines)
    for (const Position& p : line) {
      // The outline sheet K11-0 spans 50.5..50.9N, 2.2..0.9W.
      EXPECT_GE(p.lat, 50.5f);
      EXPECT_LE(p.lat, 50.9f);
      EXPECT_GE(p.lon, -2.2f);
      EXPECT_LE(p.lon, -0.9f);
    }
}

}  // namespace
}  // namespace kelvane
