// The legacy record files, their conversion to GPX, text import, and the
// exports of calculated steps.
#include <gtest/gtest.h>

#include "routes/exports.h"
#include "routes/gpx.h"
#include "routes/gpxwrite.h"
#include "routes/legacy.h"
#include "routes/textimport.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::ReadText;
using testing::TempFolder;
using testing::WriteText;

// 50.5 is 0x424A0000 and -1.5 is 0xBFC00000 as singles; 6.0 is 0x40C00000.
Bytes HandMadeRecord(const std::string& name, bool withSpeed) {
  Bytes b(name.begin(), name.end());
  b.resize(35, ' ');
  for (std::uint8_t x : {0x00, 0x00, 0x4A, 0x42, 0x00, 0x00, 0xC0, 0xBF}) b.push_back(x);
  if (withSpeed)
    for (std::uint8_t x : {0x00, 0x00, 0xC0, 0x40}) b.push_back(x);
  return b;
}

TEST(LegacyRecords, LayoutOfWayAndRte) {
  Bytes way = HandMadeRecord("Anvil Point", false);
  ASSERT_EQ(way.size(), 43u);
  EXPECT_EQ(WayRecordBytes({{"Anvil Point", 50.5f, -1.5f}}), way);
  EXPECT_EQ(ReadWayRecords(way), (std::vector<WayRecord>{{"Anvil Point", 50.5f, -1.5f}}));
  Bytes rte = HandMadeRecord("Start", true);
  ASSERT_EQ(rte.size(), 47u);
  EXPECT_EQ(RteRecordBytes({{"Start", 50.5f, -1.5f, 6.0f}}), rte);
  EXPECT_EQ(ReadRteRecords(rte), (std::vector<RteRecord>{{"Start", 50.5f, -1.5f, 6.0f}}));
}

TEST(LegacyRecords, LengthNotAMultipleOfTheRecord) {
  Bytes two = HandMadeRecord("A", false);
  Bytes b = HandMadeRecord("B", false);
  two.insert(two.end(), b.begin(), b.end());
  for (std::size_t len : {std::size_t{0}, std::size_t{42}, std::size_t{43}, std::size_t{85}, std::size_t{86}}) {
    SCOPED_TRACE(len);
    EXPECT_EQ(ReadWayRecords(Bytes(two.begin(), two.begin() + static_cast<long>(len))).size(), len / 43);
  }
  EXPECT_EQ(ReadRteRecords(two).size(), 1u);  // 86 bytes hold one 47-byte record
}

TEST(LegacyConversion, WayFileToGpxAndEmptyAndMissingSources) {
  TempFolder tmp;
  Bytes bytes = WayRecordBytes({{"Anvil Point", 50.58233f, -1.930833f}, {"  Lead", 50.5f, -1.5f}});
  bytes.push_back(0x41);  // a stray byte at the end is not a record
  ASSERT_TRUE(WriteFileAtomic(tmp / "old.way", bytes));
  FileCommandResult r = ConvertWayFileToGpx(tmp / "old.way", tmp / "new.gpx", "From the old list");
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.message, "File saved to " + (tmp / "new.gpx").string());
  EXPECT_EQ(ReadText(tmp / "new.gpx"),
            GpxHeader() +
                "  <wpt lat=\"50.582330000\" lon=\"-1.930833000\">\r\n    <name>Anvil Point</name>\r\n"
                "    <desc>From the old list</desc>\r\n    <sym></sym>\r\n  </wpt>\r\n"
                "  <wpt lat=\"50.500000000\" lon=\"-1.500000000\">\r\n    <name>  Lead</name>\r\n"
                "    <desc>From the old list</desc>\r\n    <sym></sym>\r\n  </wpt>\r\n" +
                GpxFooter());
  // An empty file gives the header and footer only.
  WriteText(tmp / "empty.way", "");
  ASSERT_TRUE(ConvertWayFileToGpx(tmp / "empty.way", tmp / "empty.gpx", "").ok);
  EXPECT_EQ(ReadText(tmp / "empty.gpx"), GpxHeader() + GpxFooter());
  // A missing source leaves the destination unwritten.
  WriteText(tmp / "keep.gpx", "old");
  EXPECT_FALSE(ConvertRteFileToGpx(tmp / "absent.rte", tmp / "keep.gpx").ok);
  EXPECT_EQ(ReadText(tmp / "keep.gpx"), "old");
}

TEST(LegacyConversion, RteFileToGpxNamesBlankPoints) {
  TempFolder tmp;
  ASSERT_TRUE(WriteFileAtomic(tmp / "old.rte", RteRecordBytes({{"Start", 50.5f, -1.5f, 6.0f},
                                                                 {"", 50.6f, -1.6f, 5.0f},
                                                                 {"   ", 50.7f, -1.7f, 5.0f}})));
  ASSERT_TRUE(ConvertRteFileToGpx(tmp / "old.rte", tmp / "new.gpx").ok);
  GpxStore store;
  ReadGpxFile(tmp / "new.gpx", store);
  const auto& points = UnnamedRoutePoints(store);
  ASSERT_EQ(points.size(), 3u);
  EXPECT_EQ(points[0].Name, "Start");
  EXPECT_EQ(points[1].Name, "WAYPT002");
  EXPECT_EQ(points[2].Name, "WAYPT003");
  EXPECT_EQ(points[2].Lat, 50.7f);
  EXPECT_NE(ReadText(tmp / "new.gpx").find("    <rtept lat=\"50.600000000\" lon=\"-1.600000000\">\r\n"
                                            "      <name>WAYPT002</name>\r\n    </rtept>\r\n"),
            std::string::npos);
}

TEST(TextImport, PositionTexts) {
  struct Case {
    const char* text;
    bool latitude;
    double want;  // by hand: degrees + minutes / 60
  };
  const Case cases[] = {
      {"50.30.5N", true, 50 + 30.5 / 60},     {"50.12.34S", true, -(50 + 12.34 / 60)},
      {"001.30.00W", false, -1.5},            {"001.30.00E", false, 1.5},
      {"50", true, 50},                       {"50.30", true, 50.5},
      {"-50.30", true, -49.5},                {"S50.30", true, -0.5},  /* a letter before the degrees hides them */
      {"001.30.00w", false, 1.5},             {"", true, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.latitude ? ImportLatitude(c.text) : ImportLongitude(c.text), static_cast<float>(c.want));
  }
}

TEST(TextImport, LinesToRecords) {
  WayRecord w = ImportWayLine("  Anvil Point  ,50.35.30N,001.57.36W");
  EXPECT_EQ(w.Name, "Anvil Point");
  EXPECT_EQ(w.Lat, static_cast<float>(50 + 35.30 / 60));
  EXPECT_EQ(w.Lon, static_cast<float>(-(1 + 57.36 / 60)));
  const std::string name36 = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  ASSERT_EQ(name36.size(), 36u);
  EXPECT_EQ(ImportWayLine(name36 + ",50.0N,1.0W").Name, name36.substr(0, 35));
  RteRecord r = ImportRteLine("Leg,50.30.0N,001.00.0W,6.5");
  EXPECT_EQ(r.Speed, 6.5f);
  EXPECT_EQ(r.Lat, 50.5f);
  EXPECT_EQ(r.Lon, -1.0f);
}

TEST(TextImport, Validation) {
  using K = TextImportKind;
  EXPECT_EQ(ValidateImportLines({"A,50.1N,1.1W", "B,50.2N,1.2W"}, K::Waypoints), "");
  EXPECT_EQ(ValidateImportLines({"A,50.1N,1.1W", "", "B,50.2N,1.2W"}, K::Waypoints), "File contains invalid lines");
  EXPECT_EQ(ValidateImportLines({"A,50.1N 1.1W"}, K::Waypoints), "File contains invalid lines");
  EXPECT_EQ(ValidateImportLines({"A,50.1N,1.1W"}, K::Route), "File contains invalid lines");
  EXPECT_EQ(ValidateImportLines({"A,50.1N,1.1W,5"}, K::Route), "");
  EXPECT_EQ(TextLines("a\r\nb\nc\r\n"), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(TextLines("a\r\n\r\nb"), (std::vector<std::string>{"a", "", "b"}));
}

TEST(TextImport, Commands) {
  TempFolder tmp;
  auto r = ImportTextLines({"A,50.1N,1.1W"}, tmp.path() / "", TextImportKind::Waypoints);
  EXPECT_EQ(r.message, "Select valid name for destination file.");
  r = ImportTextLines({}, tmp / "marks", TextImportKind::Waypoints);
  EXPECT_EQ(r.message, "Nothing to Import");
  EXPECT_FALSE(std::filesystem::exists(tmp / "marks.way"));

  r = ImportTextLines({"A,50.30.0N,001.30.0W", "B,50.0N,1.0E"}, tmp / "marks", TextImportKind::Waypoints);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.message, "Waypoints saved - Press 'Exit' when finished");
  auto bytes = ReadFileBytes(tmp / "marks.way");
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->size(), 86u);
  EXPECT_EQ(ReadWayRecords(*bytes), (std::vector<WayRecord>{{"A", 50.5f, -1.5f}, {"B", 50.0f, 1.0f}}));

  r = ImportTextLines({"S,50.30.0N,001.30.0W,5", "E,50.0N,1.0E,0"}, tmp / "leg", TextImportKind::Route);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.message, "Route saved - Press 'Exit' when finished");
  EXPECT_EQ(r.route.size(), 2u);
  EXPECT_EQ(ReadFileBytes(tmp / "leg.rte")->size(), 94u);
  EXPECT_EQ(ReadRteRecords(*ReadFileBytes(tmp / "leg.rte")), r.route);
}

TEST(CogExports, Texts) {
  TempFolder tmp;
  EXPECT_EQ(ExportCogText({}, tmp.path(), "COG.txt").message,
            "No Valid COG data exit this screen and Calculate a Leg or Route");
  EXPECT_EQ(ExportCogText({"x"}, tmp.path(), "").message, "Select name for destination file");
  EXPECT_EQ(ExportCogText({"x"}, "", "COG.txt").message, "Select location for destination file");
  auto r = ExportCogText({"10:00 50.10N", "10:10 50.12N"}, tmp.path(), kCogDefaultFileName);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(ReadText(tmp / "COG.txt"), "10:00 50.10N\r\n10:10 50.12N\r\n");

  std::vector<Position> steps = {{50.5f, -1.5f}, {50.52f, -1.48f}, {50.54f, -1.46f}, {50.56f, -1.44f}};
  auto lines = CogToWayLines(steps);
  EXPECT_EQ(lines, (std::vector<std::string>{"STARTWPT,50.500000, -1.500000", "WAY00001,50.520000, -1.480000",
                                              "WAY00002,50.540000, -1.460000", "ENDWAYPT,50.560000, -1.440000"}));
  EXPECT_EQ(SaveCogWayLines(lines, tmp.path() / "", false).message, "No file name");
  ASSERT_TRUE(SaveCogWayLines(lines, tmp / "steps.gpx", true).ok);
  GpxStore store;
  auto w = ReadGpxFile(tmp / "steps.gpx", store);
  ASSERT_EQ(Count(w), 4u);
  EXPECT_EQ(w[0].Name, "STARTWPT");
  EXPECT_EQ(w[3].Lat, 50.56f);
  EXPECT_NE(ReadText(tmp / "steps.gpx").find("<wpt lat=\"50.520000000\" lon=\"-1.480000000\">"), std::string::npos);
  ASSERT_TRUE(SaveCogWayLines(lines, tmp / "steps.txt", false).ok);
  EXPECT_EQ(ReadText(tmp / "steps.txt").substr(0, 32), "STARTWPT,50.500000, -1.500000\r\nW");

  EXPECT_EQ(DropFileNameCharacters("My.Route:2024/05 \xC2\xA3 ok!#$%*,;<=>?@^`~-_"), "MyRoute202405  ok-_");
}

}  // namespace
}  // namespace kelvane
