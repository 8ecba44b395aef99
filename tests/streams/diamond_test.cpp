#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "store/areadatabase.h"
#include "streams/diamond.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

Diamond Numbered() {
  Diamond d;
  d.chartNumber = 1;
  d.DiaRef = 2;
  d.RefPort = 3;
  d.Sprange = 4;
  d.Nprange = 5;
  d.lat = 6;
  d.Lon = 7;
  for (int row = 0; row < 3; ++row)
    for (int slot = 0; slot < 14; ++slot) d.Rate(slot, row) = 100.0f * row + slot;
  return d;
}

float FloatAt(const Bytes& b, std::size_t offset) {
  float f;
  std::memcpy(&f, b.data() + offset, 4);
  return f;
}

TEST(Diamond, RecordLayoutSlotVariesFastest) {
  const Bytes b = DiamondToBytes(Numbered());
  ASSERT_EQ(b.size(), 196u);
  const struct {
    std::size_t offset;
    float value;
  } cases[] = {{0, 1}, {4, 2}, {8, 3}, {12, 4}, {16, 5}, {20, 6}, {24, 7},
               // Rates[slot][row] at 28 + 4 (slot + 14 row)
               {28, 0}, {28 + 4 * 1, 1}, {28 + 4 * 13, 13}, {28 + 4 * 14, 100}, {28 + 4 * (7 + 28), 207}, {192, 213}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.offset);
    EXPECT_EQ(FloatAt(b, c.offset), c.value);
  }
  EXPECT_EQ(DiamondFromBytes(b), Numbered());
}

TEST(Diamond, StreamFileKeepsWholeRecordsOnly) {
  test::TempDir dir;
  std::filesystem::create_directories(dir.path / "TS");
  ASSERT_TRUE(WriteStreamFile(dir.path / "TS" / "Area.l25", {Numbered(), Numbered()}));
  {
    std::ofstream torn(dir.path / "TS" / "Area.l25", std::ios::binary | std::ios::app);
    torn << std::string(50, 'x');  // 442 bytes: an odd length
  }
  const StreamFileRead read = ReadStreamFile(dir.path, "  Area ");
  ASSERT_TRUE(read.ok());
  ASSERT_EQ(read.diamonds.size(), 2u);
  EXPECT_EQ(read.diamonds[1], Numbered());

  const StreamFileRead missing = ReadStreamFile(dir.path, "Nowhere");
  EXPECT_TRUE(missing.diamonds.empty());
  EXPECT_EQ(missing.message, "Stream file " + (dir.path / "TS" / "Nowhere.l25").string() + "\r\ncannot be read.");
}

TEST(Diamond, DatabaseColumnsFillTheRecordByName) {
  test::TempDir dir;
  std::filesystem::create_directories(dir.path / "Charts");
  const auto file = dir.path / "Charts" / "Test Area.l35";
  {
    AreaDatabase db = AreaDatabase::Create(file);
    ASSERT_TRUE(db.ok()) << db.message();
    // NPRange before SPRange in the table; Nprange after Sprange in the record.
    ASSERT_EQ(db.Execute("INSERT INTO diamonds (chartNumber, DiaRef, lat, Lon, RefPort, NPRange, SPRange, dirM6, "
                         "spM6, npm6, dir0, sp0, np0, dirp6, spP6, npP6) VALUES "
                         "(9998, 4, 41.5, -70.6, 35, 0.79, 1.23, 250, 1.5, 1.1, 70, 0.2, 0.1, 60, 2.5, 2.0)"),
              "");
  }
  const DiamondsRead read = ReadDiamondsFromDatabase(dir.path, "Test Area");
  ASSERT_TRUE(read.ok()) << read.message;
  ASSERT_EQ(read.diamonds.size(), 1u);
  const Diamond& d = read.diamonds[0];
  EXPECT_EQ(d.chartNumber, 9998.0f);
  EXPECT_EQ(d.DiaRef, 4.0f);
  EXPECT_EQ(d.RefPort, 35.0f);
  EXPECT_EQ(d.Sprange, 1.23f);
  EXPECT_EQ(d.Nprange, 0.79f);
  EXPECT_EQ(d.lat, 41.5f);
  EXPECT_EQ(d.Lon, -70.6f);
  EXPECT_EQ(d.Rate(1, kRowDirection), 250.0f);  // M6 is slot 1
  EXPECT_EQ(d.Rate(1, kRowNeap), 1.1f);
  EXPECT_EQ(d.Rate(7, kRowSpring), 0.2f);  // HW is slot 7
  EXPECT_EQ(d.Rate(13, kRowSpring), 2.5f);  // P6 is slot 13
  EXPECT_EQ(d.Rate(2, kRowDirection), 0.0f);  // NULL columns read as 0

  EXPECT_FALSE(ReadDiamondsFromDatabase(dir.path, "Missing").ok());
}

TEST(Diamond, SampleDataOfBothAreasAgreeWithTheirStreamFiles) {
  const std::filesystem::path data = std::filesystem::path(KELVANE_SOURCE_DIR) / "data";
  for (const char* area : {"Nantucket Sound", "Sample Chart"}) {
    SCOPED_TRACE(area);
    const DiamondsRead db = ReadDiamondsFromDatabase(data, area);
    const StreamFileRead file = ReadStreamFile(data, area);
    ASSERT_TRUE(db.ok()) << db.message;
    ASSERT_TRUE(file.ok());
    EXPECT_GT(db.diamonds.size(), 20u);
    EXPECT_EQ(db.diamonds, file.diamonds);
  }
}

}  // namespace
}  // namespace kelvane
