// The writers' exact text: header lines, CR LF, indentation, number forms,
// and the sample file.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include <map>
#include <unistd.h>

#include "routes/exports.h"
#include "routes/gpx.h"
#include "routes/gpxwrite.h"
#include "routes/samplewaypoints.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::ReadText;
using testing::TempFolder;
using testing::WriteText;

const std::string kHeader =
    "<?xml version=\"1.0\"?>\r\n"
    "<gpx version=\"1.1\"\r\n"
    "creator=\"Kelvane\"\r\n"
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\r\n"
    "xmlns=\"http://www.topografix.com/GPX/1/1\"\r\n"
    "xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1\r\n"
    "http://www.topografix.com/GPX/1/1/gpx.xsd\">\r\n";

TEST(GpxWrite, HeaderAndEmptyFile) {
  EXPECT_EQ(GpxHeader(), kHeader);
  EXPECT_EQ(WaypointFileText(std::vector<Waypoint>(1)), kHeader + "</gpx>\r\n");
  EXPECT_EQ(WaypointFileText({}), kHeader + "</gpx>\r\n");
}

TEST(GpxWrite, WaypointElementAsWrittenByHand) {
  EXPECT_EQ(WaypointToGpx("50.58233", " -1.930833", "Anvil Point", "White Tower", "W"),
            "  <wpt lat=\"50.58233\" lon=\" -1.930833\">\r\n"
            "    <name>Anvil Point</name>\r\n"
            "    <desc>White Tower</desc>\r\n"
            "    <sym>W</sym>\r\n"
            "  </wpt>\r\n");
  // desc and sym are written even when empty. The four characters of XML
  // markup in a text are written as entities (a bare "&" used to go out as
  // it was, and the file then failed to load); all else is left alone.
  EXPECT_EQ(WaypointToGpx("1", "2", "Fish & Chips", "<\"Quay\">", "'"),
            "  <wpt lat=\"1\" lon=\"2\">\r\n    <name>Fish &amp; Chips</name>\r\n"
            "    <desc>&lt;&quot;Quay&quot;&gt;</desc>\r\n    <sym>'</sym>\r\n  </wpt>\r\n");
}

TEST(GpxWrite, WaypointFileUsesTheShortestTextOfTheSingle) {
  std::vector<Waypoint> w(4);
  w[0] = {50.58233f, -1.930833f, "A", "", 0, "", "", "", ""};
  w[1] = {50.5f, 0.0f, "B", "d", 0, "", "YB", "", ""};
  // Within 0.0001 degrees of the meridian: a plain decimal, not "1E-05".
  w[2] = {0.00001f, -0.0000305f, "C", "", 0, "", "", "", ""};
  std::string text = WaypointFileText(w);
  EXPECT_NE(text.find("  <wpt lat=\"50.58233\" lon=\"-1.930833\">\r\n"), std::string::npos);
  EXPECT_NE(text.find("  <wpt lat=\"50.5\" lon=\"0\">\r\n"), std::string::npos);
  EXPECT_NE(text.find("  <wpt lat=\"0.00001\" lon=\"-0.0000305\">\r\n"), std::string::npos) << text;
  EXPECT_EQ(text.rfind("</gpx>\r\n"), text.size() - 8);
  EXPECT_EQ(text.find('\n'), text.find("\r\n") + 1) << "every line ends CR LF";
  for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 1)) ASSERT_EQ(text[i - 1], '\r');
}

TEST(GpxWrite, RouteFileForms) {
  std::vector<RouteFilePoint> p(2);
  p[0].Lat = 50.58233f;
  p[0].Lon = -1.930833f;
  p[0].Name = "Anvil Point";
  p[0].Desc = "White Tower";
  p[1].Lat = 50.5f;
  p[1].Lon = -2.0f;
  p[1].Name = "Off";
  p[1].Sym = "YB";
  EXPECT_EQ(RouteFileText(p), kHeader +
                                  "<rte>\r\n"
                                  "    <rtept lat=\"50.582330000\" lon=\"-1.930833000\">\r\n"
                                  "      <name>Anvil Point</name>\r\n"
                                  "      <desc>White Tower</desc>\r\n"
                                  "    </rtept>\r\n"
                                  "    <rtept lat=\"50.500000000\" lon=\"-2.000000000\">\r\n"
                                  "      <name>Off</name>\r\n"
                                  "      <sym>YB</sym>\r\n"
                                  "    </rtept>\r\n"
                                  "</rte>\r\n"
                                  "</gpx>\r\n");
  EXPECT_EQ(QuickRouteText(p), kHeader +
                                   "<rte>\r\n"
                                   "<rtept lat=\"50.582330000\" lon=\"-1.930833000\">\r\n"
                                   "   <name>Anvil Point</name>\r\n"
                                   "</rtept>\r\n"
                                   "<rtept lat=\"50.500000000\" lon=\"-2.000000000\">\r\n"
                                   "   <name>Off</name>\r\n"
                                   "</rtept>\r\n"
                                   "</rte>\r\n"
                                   "</gpx>\r\n");
  EXPECT_EQ(CompoundRouteBlock("Passage", {p[1]}),
            "  <rte>\r\n"
            "    <name>Passage</name>\r\n"
            "    <rtept lat=\"50.500000000\" lon=\"-2.000000000\">\r\n"
            "      <name>Off</name>\r\n"
            "      <sym>YB</sym>\r\n"
            "    </rtept>\r\n"
            "  </rte>\r\n");
}

TEST(GpxWrite, CompoundFileOfRoutesAndWaypoints) {
  TempFolder tmp;
  std::vector<RouteFilePoint> p(1);
  p[0].Lat = 50.1f;
  p[0].Lon = -1.1f;
  p[0].Name = "P";
  WriteText(tmp / "plain.gpx", RouteFileText(p));  // unnamed: takes the export's name
  WriteText(tmp / "named.gpx",
            GpxHeader() + CompoundRouteBlock("One", p) + CompoundRouteBlock("Two", p) + GpxFooter());
  std::vector<Waypoint> w(2);
  w[0] = {50.58233f, -1.930833f, "Anvil Point", "White Tower", 0, "", "W", "", ""};
  WriteWaypointFile(tmp / "marks.gpx", w);
  FileCommandResult r = ExportCompound({tmp / "plain.gpx", tmp / "named.gpx", tmp / "absent.gpx"}, {tmp / "marks.gpx"},
                                       tmp / "Trip.gpx");
  ASSERT_TRUE(r.ok) << r.message;
  EXPECT_EQ(r.message, "File saved to :" + (tmp / "Trip.gpx").string());
  std::string point =
      "    <rtept lat=\"50.100000000\" lon=\"-1.100000000\">\r\n      <name>P</name>\r\n    </rtept>\r\n";
  EXPECT_EQ(ReadText(tmp / "Trip.gpx"),
            kHeader + "  <rte>\r\n    <name>Trip</name>\r\n" + point + "  </rte>\r\n" +
                "  <rte>\r\n    <name>One</name>\r\n" + point + "  </rte>\r\n" +
                "  <rte>\r\n    <name>Two</name>\r\n" + point + "  </rte>\r\n" +
                WaypointToGpx("50.58233", "-1.930833", "Anvil Point", "White Tower", "W") + "</gpx>\r\n");
  GpxStore store;
  auto read = ReadGpxFile(tmp / "Trip.gpx", store);
  EXPECT_EQ(Count(read), 1u);
  EXPECT_EQ(Count(store.FileRoutes), 3u);
}

TEST(GpxWrite, AFailedWriteLeavesTheOldFile) {
  TempFolder tmp;
  std::vector<Waypoint> w(2);
  w[0].Name = "Kept";
  ASSERT_TRUE(WriteWaypointFile(tmp / "in-use.gpx", w));
  std::string before = ReadText(tmp / "in-use.gpx");
  // A disk that fills up half way through the new file: a file size limit
  // of 200 bytes stops the write, whoever runs the test.
  std::vector<Waypoint> many(300);
  for (std::size_t i = 0; i + 1 < many.size(); ++i) many[i].Name = "Lost " + std::to_string(i);
  struct rlimit old {};
  getrlimit(RLIMIT_FSIZE, &old);
  auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  struct rlimit small = old;
  small.rlim_cur = 200;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  bool written = WriteWaypointFile(tmp / "in-use.gpx", many);
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(written);
  EXPECT_EQ(ReadText(tmp / "in-use.gpx"), before);
  // No half-written temporary file is left beside it.
  int entries = 0;
  for (auto& e : std::filesystem::directory_iterator(tmp.path())) (void)e, ++entries;
  EXPECT_EQ(entries, 1);
}

TEST(SampleWaypoints, FirstRowAndLayout) {
  std::string text = SampleWaypointsText();
  EXPECT_EQ(text.substr(0, kHeader.size()), kHeader);
  const std::string first =
      "  <wpt lat=\"50.58233\" lon=\" -1.930833\">\r\n"
      "    <name>Anvil Point</name>\r\n"
      "    <desc>White Tower</desc>\r\n"
      "    <sym>W</sym>\r\n"
      "  </wpt>\r\n";
  EXPECT_EQ(text.substr(kHeader.size(), first.size()), first);
  EXPECT_EQ(text.rfind("</gpx>\r\n"), text.size() - 8);
}

TEST(SampleWaypoints, FortyEightChannelMarksWithTheirBands) {
  GpxStore store;
  auto w = ReadGpxText(SampleWaypointsText(), store);
  ASSERT_EQ(Count(w), 48u);
  // The bands a buoy's description calls for, top to bottom.
  const std::map<std::string, std::string> bands = {
      {"North Cardinal Buoy", "BY"},  {"South Cardinal Buoy", "YB"},    {"East Cardinal Buoy", "BYB"},
      {"West Cardinal Buoy", "YBY"},  {"Isolated Danger Beacon", "BRB"}, {"White Tower", "W"},
  };
  const std::vector<std::string> chartCodes = {"", "R", "G", "B", "O", "Y", "W", "GREY", "WB", "BW", "RG", "GR",
                                               "WR", "RW", "WG", "GW", "YB", "BY", "BYB", "YBY", "BRB", "WRW", "OWO"};
  int yb = 0;
  for (std::size_t i = 0; i < Count(w); ++i) {
    SCOPED_TRACE(w[i].Name);
    if (i > 0) {
      EXPECT_LT(w[i - 1].Name, w[i].Name);
    }
    // The English Channel, from the Scillies' side to the Dover Strait.
    EXPECT_GT(w[i].Lat, 49.9f);
    EXPECT_LT(w[i].Lat, 51.2f);
    EXPECT_GT(w[i].Lon, -5.7f);
    EXPECT_LT(w[i].Lon, 1.5f);
    EXPECT_NE(std::find(chartCodes.begin(), chartCodes.end(), w[i].Sym), chartCodes.end());
    auto it = bands.find(w[i].Desc);
    if (it != bands.end()) {
      EXPECT_EQ(w[i].Sym, it->second);
    }
    if (w[i].Sym == "YB") ++yb;
  }
  EXPECT_GE(yb, 2);
  EXPECT_EQ(w[0].Name, "Anvil Point");
  EXPECT_EQ(w[0].Desc, "White Tower");
  EXPECT_EQ(w[0].Lat, 50.58233f);
  EXPECT_EQ(w[0].Lon, -1.930833f);
}

TEST(SampleWaypoints, WrittenIntoTheWaypointsFolder) {
  TempFolder tmp;
  Folders folders;
  folders.programFolder = tmp.path();
  ASSERT_TRUE(WriteSampleWaypoints(folders));
  EXPECT_EQ(ReadText(folders.WaypointsFolder() / "Sample.gpx"), SampleWaypointsText());
}

}  // namespace
}  // namespace kelvane
