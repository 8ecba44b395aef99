// Reading GPX: round trips of what the writers produce, files of other
// programs, the route rules of the walk, and bad input.
#include <gtest/gtest.h>

#include <random>

#include "routes/gpx.h"
#include "routes/gpxwrite.h"
#include "routes/samplewaypoints.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::ReadText;
using testing::TempFolder;
using testing::WriteText;

std::string Wrap(const std::string& body) { return GpxHeader() + body + GpxFooter(); }

TEST(GpxRead, WhatWaypointToGpxWroteReadsBackRoundedToSixDecimals) {
  // Coordinates are rounded on their decimal text to six places, half away
  // from zero, before they become singles: worked by hand from the texts.
  struct Case {
    const char* lat;
    const char* lon;
    float wantLat;
    float wantLon;
  };
  const Case cases[] = {
      {"50.58233", " -1.930833", 50.58233f, -1.930833f},     // the sample's own form, leading blank
      {"50.1234565", "-1.9308335", 50.123457f, -1.930834f},   // halves go away from zero
      {"50.1234564", "-1.9308334", 50.123456f, -1.930833f},   // below a half: down
      {"-33.9999999", "151.0000004", -34.0f, 151.0f},         // carries through the whole degrees
      {"0", "0", 0.0f, 0.0f},
      {"1e1", "+2.5", 10.0f, 2.5f},                           // any number form the parser takes
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.lat) + " " + c.lon);
    GpxStore store;
    GpxReadStatus status;
    auto w = ReadGpxText(Wrap(WaypointToGpx(c.lat, c.lon, "Anvil Point", "White Tower", "W")), store, &status);
    ASSERT_EQ(status.outcome, GpxReadOutcome::Read) << status.detail;
    ASSERT_EQ(w.size(), 2u);
    EXPECT_EQ(w[0].Lat, c.wantLat);
    EXPECT_EQ(w[0].Lon, c.wantLon);
    EXPECT_EQ(w[0].Name, "Anvil Point");
    EXPECT_EQ(w[0].Desc, "White Tower");
    EXPECT_EQ(w[0].Sym, "W");
    EXPECT_EQ(w[1], Waypoint{}) << "the array ends with its blank entry";
  }
}

TEST(GpxRead, WaypointFileRoundTrip) {
  std::vector<Waypoint> written(4);
  written[0] = {50.58233f, -1.930833f, "Anvil Point", "White Tower", 0, "", "W", "", ""};
  written[1] = {50.52967f, -2.33467f, "Shambles", "East Cardinal Buoy", 0, "", "BYB", "", ""};
  written[2] = {49.95967f, -5.20217f, "Lizard Point", "", 0, "", "", "", ""};  // empty desc and sym
  TempFolder tmp;
  // A file without markup characters keeps its bytes through a write.
  ASSERT_TRUE(WriteWaypointFile(tmp / "w.gpx", written));
  const std::string plainBytes = ReadText(tmp / "w.gpx");
  EXPECT_EQ(plainBytes.find('&'), std::string::npos);
  EXPECT_NE(plainBytes.find("    <name>Anvil Point</name>\r\n    <desc>White Tower</desc>\r\n"), std::string::npos);
  // Names typed at the chart with "&", "<", ">" or '"' survive the next load.
  written.insert(written.begin() + 3, {50.8f, -1.1f, "Fish & Chips", "<\"Quay\">", 0, "", "a>b", "", ""});
  ASSERT_TRUE(WriteWaypointFile(tmp / "w.gpx", written));
  GpxStore store;
  auto read = ReadGpxFile(tmp / "w.gpx", store);
  EXPECT_EQ(read, written);
  EXPECT_EQ(store.FileWaypoints, written);
  EXPECT_EQ(Count(store.FileRoutes), 0u);
}

// A file as a chart plotter or another planner writes it: declaration with
// encoding, metadata with its own name and time, extensions in a foreign
// namespace, times and comments on points, an entity in a name.
const char* kForeign = R"(<?xml version="1.0" encoding="UTF-8" standalone="no" ?>
<gpx xmlns="http://www.topografix.com/GPX/1/1" xmlns:gpxx="http://www.garmin.com/xmlschemas/GpxExtensions/v3"
     xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" creator="Plotter 3" version="1.1">
  <metadata>
    <name>Solent weekend</name>
    <desc>Marks for the race</desc>
    <link href="http://example.org"><text>club</text></link>
    <time>2024-05-01T10:00:00Z</time>
    <bounds minlat="50.6" minlon="-1.7" maxlat="50.8" maxlon="-1.0"/>
  </metadata>
  <wpt lat="50.7866700" lon="-1.3108300">
    <ele>0.0</ele>
    <time>2024-05-01T10:00:00Z</time>
    <name>West Bramble</name>
    <cmt>Racon (T)</cmt>
    <desc>West cardinal</desc>
    <sym>YBY</sym>
    <extensions>
      <gpxx:WaypointExtension><gpxx:DisplayMode>SymbolAndName</gpxx:DisplayMode></gpxx:WaypointExtension>
    </extensions>
  </wpt>
  <wpt lat="50.80583" lon="-1.294"><name>Calshot &amp; Spit</name><sym><![CDATA[R]]></sym></wpt>
  <rte>
    <name>Round the Island</name>
    <desc>Anticlockwise</desc>
    <extensions><gpxx:RouteExtension><gpxx:IsAutoNamed>false</gpxx:IsAutoNamed></gpxx:RouteExtension></extensions>
    <rtept lat="50.7" lon="-1.5"><time>2024-05-01T10:00:00Z</time><name>Start</name><cmt>gun</cmt></rtept>
    <rtept lat="50.66" lon="-1.6"><name>Needles</name><desc>leave to port</desc><sym>RW</sym></rtept>
  </rte>
</gpx>
)";

TEST(GpxRead, ForeignFileWithMetadataTimesCommentsExtensionsAndNamespaces) {
  GpxStore store;
  GpxReadStatus status;
  auto w = ReadGpxText(kForeign, store, &status);
  ASSERT_EQ(status.outcome, GpxReadOutcome::Read) << status.detail;
  ASSERT_EQ(Count(w), 2u);
  EXPECT_EQ(w[0].Name, "West Bramble");
  EXPECT_EQ(w[0].Desc, "West cardinal");
  EXPECT_EQ(w[0].Sym, "YBY");
  EXPECT_EQ(w[0].Lat, 50.78667f);
  EXPECT_EQ(w[0].Lon, -1.31083f);
  EXPECT_EQ(w[1].Name, "Calshot & Spit");
  EXPECT_EQ(w[1].Sym, "R");
  EXPECT_EQ(w[1].Desc, "");
  // The metadata's name came before any waypoint and went nowhere; its desc
  // is the file's description. The route's own desc, met before its first
  // point, has no point to go to and is the file's description too.
  EXPECT_EQ(store.GpxDescription, "Anticlockwise");
  ASSERT_EQ(Count(store.FileRoutes), 1u);
  const RouteFileEntry& r = store.FileRoutes[0];
  EXPECT_EQ(r.Name, "Round the Island");
  ASSERT_EQ(r.Points.size(), 2u);
  EXPECT_EQ(r.Points[0].Name, "Start");
  EXPECT_EQ(r.Points[0].Desc, "");
  EXPECT_EQ(r.Points[1].Name, "Needles");
  EXPECT_EQ(r.Points[1].Desc, "leave to port");
  EXPECT_EQ(r.Points[1].Sym, "RW");
  EXPECT_EQ(r.Points[1].Lat, 50.66f);
  EXPECT_EQ(store.FileRoutes[1], RouteFileEntry{});
}

TEST(GpxRead, MetadataDescriptionAloneIsTheFileDescription) {
  GpxStore store;
  ReadGpxText(Wrap("<metadata><name>N</name><desc>About</desc></metadata>" +
                   WaypointToGpx("50", "-1", "A", "", "")),
              store);
  EXPECT_EQ(store.GpxDescription, "About");
  EXPECT_EQ(store.FileWaypoints[0].Name, "A");
}

TEST(GpxRead, RouteRules) {
  struct Case {
    const char* label;
    std::string body;
    std::size_t namedRoutes;
    std::vector<std::size_t> pointsPerRoute;
    std::size_t unnamedPoints;
  };
  const std::string p1 = R"(<rtept lat="50.1" lon="-1.1"><name>P1</name></rtept>)";
  const std::string p2 = R"(<rtept lat="50.2" lon="-1.2"><name>P2</name></rtept>)";
  const Case cases[] = {
      {"a route without a leading name adds no route", "<rte>" + p1 + p2 + "</rte>", 0, {}, 2},
      {"name not first: no route either", "<rte>" + p1 + "<name>Late</name>" + p2 + "</rte>", 0, {}, 2},
      {"a nameless route extends the route before it",
       "<rte><name>A</name>" + p1 + "</rte><rte>" + p2 + p1 + "</rte>", 1, {3}, 0},
      {"two named routes", "<rte><name>A</name>" + p1 + "</rte><rte><name>B</name>" + p2 + p2 + "</rte>", 2, {1, 2}, 0},
      {"a leading nameless route is dropped once a named one follows",
       "<rte>" + p1 + "</rte><rte><name>B</name>" + p2 + "</rte>", 1, {1}, 0},
      {"a named route with no points", "<rte><name>Empty</name></rte>", 1, {0}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    GpxStore store;
    GpxReadStatus status;
    auto w = ReadGpxText(Wrap(c.body), store, &status);
    ASSERT_EQ(status.outcome, GpxReadOutcome::Read) << status.detail;
    EXPECT_EQ(Count(w), 0u) << "a file with routes and no wpt has no waypoints";
    ASSERT_EQ(Count(store.FileRoutes), c.namedRoutes);
    for (std::size_t r = 0; r < c.namedRoutes; ++r) EXPECT_EQ(store.FileRoutes[r].Points.size(), c.pointsPerRoute[r]);
    EXPECT_EQ(UnnamedRoutePoints(store).size(), c.unnamedPoints);
  }
}

TEST(GpxRead, RouteFileAsSavedIsTheUnnamedRoute) {
  std::vector<RouteFilePoint> points(2);
  points[0].Lat = 50.7f;
  points[0].Lon = -1.5f;
  points[0].Name = "Start";
  points[0].Desc = "gun";
  points[1].Lat = 50.66228f;
  points[1].Lon = -1.59181f;
  points[1].Name = "Needles";
  points[1].Sym = "RW";
  GpxStore store;
  ReadGpxText(RouteFileText(points), store);
  EXPECT_EQ(Count(store.FileRoutes), 0u);
  EXPECT_EQ(UnnamedRoutePoints(store), points);
}

TEST(GpxRead, TextIsMatchedByElementNameAlone) {
  // The walk keeps the kind of the latest wpt or rte: a later `name`
  // anywhere (here a track's) lands on the last waypoint. A prefixed name
  // of another namespace is a different element and lands nowhere.
  GpxStore store;
  auto w = ReadGpxText(Wrap(WaypointToGpx("50", "-1", "Mark", "", "") +
                            "<extensions><x:name xmlns:x=\"urn:x\">Other</x:name></extensions>"
                            "<trk><name>Evening sail</name><trkseg><trkpt lat=\"50\" lon=\"-1\"/></trkseg></trk>"),
                       store);
  ASSERT_EQ(Count(w), 1u);
  EXPECT_EQ(w[0].Name, "Evening sail");
}

TEST(GpxRead, ChartLoadFillsChartWaypointsOnly) {
  TempFolder tmp;
  WriteText(tmp / "Sample.gpx", SampleWaypointsText());
  GpxStore store;
  ReadGpxText(kForeign, store);
  const auto routesBefore = store.FileRoutes;
  const auto fileWaypointsBefore = store.FileWaypoints;
  GpxReadStatus status;
  EXPECT_EQ(LoadChartWaypoints(tmp / "Sample.gpx", store, &status), 48u);
  EXPECT_EQ(status.outcome, GpxReadOutcome::Read);
  EXPECT_EQ(store.ChartWaypoints.size(), 49u);
  EXPECT_EQ(store.ChartWaypoints.back(), Waypoint{});
  EXPECT_EQ(store.FileRoutes, routesBefore);
  EXPECT_EQ(store.FileWaypoints, fileWaypointsBefore);
}

TEST(GpxRead, WaypointFilePathFromSettings) {
  Folders folders;
  folders.programFolder = "/data";
  SettingsRecord s;
  s.WaypointFile = "Sample.gpx";
  s.WaypointFolder = "/data/KelvaneFiles/Waypoints/";
  EXPECT_EQ(WaypointFilePath(s, folders), std::filesystem::path("/data/KelvaneFiles/Waypoints/Sample.gpx"));
  s.WaypointFolder.clear();
  EXPECT_EQ(WaypointFilePath(s, folders), std::filesystem::path("/data/KelvaneFiles/Waypoints/Sample.gpx"));
  s.WaypointFile = "/elsewhere/Mine.gpx";
  EXPECT_EQ(WaypointFilePath(s, folders), std::filesystem::path("/elsewhere/Mine.gpx"));
}

// Bad input of every kind gives an empty result with a reason, never a
// crash, and leaves the waypoint file in use and the chart's marks alone.
class GpxBadInput : public ::testing::Test {
 protected:
  void SetUp() override {
    inUse_ = tmp_ / "Sample.gpx";
    WriteText(inUse_, SampleWaypointsText());
    ASSERT_EQ(LoadChartWaypoints(inUse_, store_), 48u);
    chartBefore_ = store_.ChartWaypoints;
    bytesBefore_ = ReadText(inUse_);
  }
  void ExpectEmpty(const std::filesystem::path& file, GpxReadOutcome outcome) {
    // A dialog had read a good file before.
    ReadGpxText(kForeign, store_);
    GpxReadStatus status;
    auto w = ReadGpxFile(file, store_, &status);
    EXPECT_EQ(status.outcome, outcome) << status.detail;
    EXPECT_FALSE(status.detail.empty());
    EXPECT_EQ(w, std::vector<Waypoint>(1));
    EXPECT_EQ(store_.FileWaypoints, std::vector<Waypoint>(1));
    EXPECT_EQ(store_.FileRoutes, std::vector<RouteFileEntry>(1));
    EXPECT_EQ(store_.ChartWaypoints, chartBefore_);
    EXPECT_EQ(ReadText(inUse_), bytesBefore_);
  }
  TempFolder tmp_;
  std::filesystem::path inUse_;
  GpxStore store_;
  std::vector<Waypoint> chartBefore_;
  std::string bytesBefore_;
};

TEST_F(GpxBadInput, MissingTruncatedEmptyAndGarbageFiles) {
  ExpectEmpty(tmp_ / "nothing.gpx", GpxReadOutcome::NoFile);
  const std::string text = SampleWaypointsText();
  std::mt19937 rng(7);
  std::string garbage(64 * 1024, '\0');
  for (char& c : garbage) c = static_cast<char>(rng());
  for (const std::string& bytes : {text.substr(0, text.size() / 2), text.substr(0, text.size() - 4),
                                   text.substr(0, 30), std::string(), garbage}) {
    SCOPED_TRACE(bytes.size());
    WriteText(tmp_ / "bad.gpx", bytes);
    ExpectEmpty(tmp_ / "bad.gpx", GpxReadOutcome::NotLoaded);
  }
}

TEST_F(GpxBadInput, WaypointWithoutLatitudeStopsTheWalk) {
  const char* bodies[] = {
      R"(<wpt lat="50" lon="-1"><name>Good</name></wpt><wpt lon="-1.5"><name>No lat</name></wpt>)",
      R"(<wpt lat="50"><name>No lon</name></wpt>)",
      R"(<wpt lat="north" lon="-1"/>)",
      R"(<wpt lat="" lon="-1"/>)",
      R"(<wpt lat="nan" lon="-1"/>)",
      R"(<wpt lat="1e300" lon="-1"/>)",
      R"(<rte><name>R</name><rtept lat="50"/></rte>)",
  };
  for (const char* body : bodies) {
    SCOPED_TRACE(body);
    WriteText(tmp_ / "bad.gpx", Wrap(body));
    ExpectEmpty(tmp_ / "bad.gpx", GpxReadOutcome::WalkStopped);
  }
}

TEST_F(GpxBadInput, FiftyMegabyteFiles) {
  // Made here, not kept in the tree: waypoints with long descriptions up to
  // 50 MB. Whole, it reads every one; cut short, it gives nothing.
  const std::string desc(10000, 'x');
  std::string text = GpxHeader();
  std::size_t n = 0;
  while (text.size() < 50u * 1024u * 1024u) {
    text += WaypointToGpx("50.5", "-1.5", "W" + std::to_string(n), desc, "YB");
    ++n;
  }
  std::string whole = text + GpxFooter();
  WriteText(tmp_ / "big.gpx", whole);
  GpxReadStatus status;
  auto w = ReadGpxFile(tmp_ / "big.gpx", store_, &status);
  EXPECT_EQ(status.outcome, GpxReadOutcome::Read);
  ASSERT_EQ(Count(w), n);
  EXPECT_EQ(w[n - 1].Name, "W" + std::to_string(n - 1));
  EXPECT_EQ(w[n - 1].Desc.size(), desc.size());
  WriteText(tmp_ / "big-cut.gpx", whole.substr(0, whole.size() - 100));
  ExpectEmpty(tmp_ / "big-cut.gpx", GpxReadOutcome::NotLoaded);
}

TEST_F(GpxBadInput, ChartLoadOfABadFileGivesNoMarks) {
  WriteText(tmp_ / "cut.gpx", SampleWaypointsText().substr(0, 500));
  GpxReadStatus status;
  EXPECT_EQ(LoadChartWaypoints(tmp_ / "cut.gpx", store_, &status), 0u);
  EXPECT_EQ(status.outcome, GpxReadOutcome::NotLoaded);
  EXPECT_EQ(store_.ChartWaypoints, std::vector<Waypoint>(1));
  EXPECT_EQ(ReadText(inUse_), bytesBefore_);
}

TEST_F(GpxBadInput, DeepNestingDoesNotExhaustTheStack) {
  std::string deep;
  for (int i = 0; i < 200000; ++i) deep += "<e>";
  deep += R"(<wpt lat="50" lon="-1"><name>Deep</name></wpt>)";
  for (int i = 0; i < 200000; ++i) deep += "</e>";
  WriteText(tmp_ / "deep.gpx", Wrap(deep));
  GpxReadStatus status;
  auto w = ReadGpxFile(tmp_ / "deep.gpx", store_, &status);
  if (status.outcome == GpxReadOutcome::Read) {
    ASSERT_EQ(Count(w), 1u);
    EXPECT_EQ(w[0].Name, "Deep");
  } else {
    EXPECT_EQ(w, std::vector<Waypoint>(1));
  }
}

}  // namespace
}  // namespace kelvane
