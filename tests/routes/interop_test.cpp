// Every GPX the program writes, read by a real peer: gpsbabel reads each
// file and writes it back out as GPX, and the waypoints, routes and route
// points it found are counted there. The counts must be those written. The
// test runs when gpsbabel is installed (the set-up script installs it).
// The command-line tool is checked on the same files.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <pugixml.hpp>

#include "routes/exports.h"
#include "routes/gpx.h"
#include "routes/gpxwrite.h"
#include "routes/legacy.h"
#include "routes/samplewaypoints.h"
#include "support/commands.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using testing::ReadText;
using testing::RunCommand;
using testing::TempFolder;
using testing::WriteText;

struct Counts {
  std::size_t waypoints = 0;
  std::size_t routes = 0;
  std::size_t routePoints = 0;
  bool operator==(const Counts&) const = default;
};

std::ostream& operator<<(std::ostream& os, const Counts& c) {
  return os << c.waypoints << " wpt, " << c.routes << " rte, " << c.routePoints << " rtept";
}

bool HaveGpsbabel() { return std::system("command -v gpsbabel >/dev/null 2>&1") == 0; }

std::string Quote(const std::filesystem::path& p) { return "'" + p.string() + "'"; }

// What gpsbabel found in `file`, counted in the GPX it writes back.
Counts GpsbabelCounts(const std::filesystem::path& file, const std::filesystem::path& scratch) {
  int status = -1;
  std::string log = RunCommand("gpsbabel -r -w -i gpx -f " + Quote(file) + " -o gpx,gpxver=1.1 -F " + Quote(scratch) + " 2>&1",
                        &status);
  EXPECT_EQ(status, 0) << log;
  pugi::xml_document doc;
  EXPECT_TRUE(doc.load_file(scratch.c_str())) << "gpsbabel's output does not load";
  Counts c;
  pugi::xml_node gpx = doc.child("gpx");
  for (pugi::xml_node w : gpx.children("wpt")) (void)w, ++c.waypoints;
  for (pugi::xml_node r : gpx.children("rte")) {
    ++c.routes;
    for (pugi::xml_node p : r.children("rtept")) (void)p, ++c.routePoints;
  }
  return c;
}

class Interop : public ::testing::Test {
 protected:
  void SetUp() override {
    // The program's files: the sample, a converted .way and .rte, a route
    // file, a quick route, and a compound file of them all.
    Folders folders;
    folders.programFolder = tmp_.path();
    ASSERT_TRUE(WriteSampleWaypoints(folders));
    sample_ = folders.WaypointsFolder() / "Sample.gpx";
    GpxStore store;
    auto marks = ReadGpxFile(sample_, store);
    std::vector<WayRecord> way;
    std::vector<RteRecord> rte;
    std::vector<RouteFilePoint> points;
    for (std::size_t i = 0; i < 7; ++i) {
      way.push_back({marks[i].Name, marks[i].Lat, marks[i].Lon});
      rte.push_back({i % 2 ? marks[i].Name : "", marks[i].Lat, marks[i].Lon, 5.5f});
      RouteFilePoint p;
      p.Lat = marks[i].Lat;
      p.Lon = marks[i].Lon;
      p.Name = marks[i].Name;
      p.Desc = i % 2 ? marks[i].Desc : "";
      p.Sym = i % 3 ? marks[i].Sym : "";
      points.push_back(p);
    }
    ASSERT_TRUE(WriteFileAtomic(tmp_ / "old.way", WayRecordBytes(way)));
    ASSERT_TRUE(WriteFileAtomic(tmp_ / "old.rte", RteRecordBytes(rte)));
    ASSERT_TRUE(ConvertWayFileToGpx(tmp_ / "old.way", tmp_ / "way.gpx", "Converted").ok);
    ASSERT_TRUE(ConvertRteFileToGpx(tmp_ / "old.rte", tmp_ / "rte.gpx").ok);
    ASSERT_TRUE(WriteRouteFile(tmp_ / "route.gpx", points));
    WriteText(tmp_ / "quick.gpx", QuickRouteText(points));
    ASSERT_TRUE(ExportCompound({tmp_ / "route.gpx", tmp_ / "rte.gpx"}, {sample_, tmp_ / "way.gpx"},
                               tmp_ / "compound.gpx")
                    .ok);
  }
  TempFolder tmp_;
  std::filesystem::path sample_;
};

TEST_F(Interop, GpsbabelReadsEveryFileWithTheSameCounts) {
  if (!HaveGpsbabel()) GTEST_SKIP() << "gpsbabel is not installed";
  struct Case {
    const char* file;
    Counts want;
  };
  const Case cases[] = {
      {"KelvaneFiles/Waypoints/Sample.gpx", {48, 0, 0}},
      {"way.gpx", {7, 0, 0}},
      {"rte.gpx", {0, 1, 7}},
      {"route.gpx", {0, 1, 7}},
      {"quick.gpx", {0, 1, 7}},
      {"compound.gpx", {55, 2, 14}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    EXPECT_EQ(GpsbabelCounts(tmp_ / c.file, tmp_ / "babel-out.gpx"), c.want);
  }
}

TEST_F(Interop, GpsbabelSeesTheSameNamesAndPositions) {
  if (!HaveGpsbabel()) GTEST_SKIP() << "gpsbabel is not installed";
  // gpsbabel's own comma text of the sample (number, latitude, longitude,
  // name, ...), against what the program reads.
  std::string csv = RunCommand("gpsbabel -i gpx -f " + Quote(sample_) + " -o unicsv -F - 2>&1");
  GpxStore store;
  auto w = ReadGpxFile(sample_, store);
  std::size_t line = 0;
  std::size_t at = csv.find('\n') + 1;  // after the heading
  for (; line < Count(w) && at < csv.size(); ++line) {
    std::size_t end = csv.find('\n', at);
    std::string row = csv.substr(at, end - at);
    at = end + 1;
    SCOPED_TRACE(row);
    EXPECT_NE(row.find("\"" + w[line].Name + "\""), std::string::npos);
    // gpsbabel read the decimal text as a double; the program keeps a
    // single rounded to six places, which agrees to within half a unit of
    // the sixth place plus the single's own step (about 4e-6 at 50).
    double lat = 0, lon = 0;
    ASSERT_EQ(std::sscanf(row.c_str(), "%*d,%lf,%lf", &lat, &lon), 2);
    EXPECT_NEAR(lat, w[line].Lat, 5e-6);
    EXPECT_NEAR(lon, w[line].Lon, 5e-6);
  }
  EXPECT_EQ(line, 48u);
}

TEST_F(Interop, CommandLine) {
  const std::string cli = KELVANE_CLI;
  int status = -1;
  std::string out = RunCommand(cli + " gpx show " + Quote(sample_), &status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(out.substr(0, out.find('\n')), "wpt\t50.58233\t-1.930833\tAnvil Point\tWhite Tower\tW");
  EXPECT_NE(out.find("\ntotal\t48\t0\t0\n"), std::string::npos);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 49);

  out = RunCommand(cli + " gpx show " + Quote(tmp_ / "compound.gpx"), &status);
  EXPECT_NE(out.find("\nrte\tcompound\t7\n"), std::string::npos) << out;
  EXPECT_NE(out.find("\ntotal\t55\t2\t14\n"), std::string::npos);

  out = RunCommand(cli + " gpx show " + Quote(tmp_ / "route.gpx"), &status);
  EXPECT_NE(out.find("rte\t\t7\n"), std::string::npos) << "the route file's route has no name";

  WriteText(tmp_ / "cut.gpx", ReadText(sample_).substr(0, 900));
  out = RunCommand(cli + " gpx show " + Quote(tmp_ / "cut.gpx"), &status);
  EXPECT_EQ(status, 1);
  EXPECT_EQ(out.substr(0, 6), "error\t");

  out = RunCommand(cli + " gpx from-way " + Quote(tmp_ / "old.way") + " " + Quote(tmp_ / "cli-way.gpx") + " --desc 'Old list'",
            &status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(out, "File saved to " + (tmp_ / "cli-way.gpx").string() + "\n");
  EXPECT_NE(ReadText(tmp_ / "cli-way.gpx").find("<desc>Old list</desc>"), std::string::npos);

  out = RunCommand(cli + " gpx from-rte " + Quote(tmp_ / "old.rte") + " " + Quote(tmp_ / "cli-rte.gpx"), &status);
  EXPECT_EQ(out, "File saved to " + (tmp_ / "cli-rte.gpx").string() + "\n");
  EXPECT_EQ(ReadText(tmp_ / "cli-rte.gpx"), ReadText(tmp_ / "rte.gpx"));

  WriteText(tmp_ / "marks.txt", "Anvil Point,50.35.30N,001.57.36W\r\nShambles,50.31.78N,002.20.08W\r\n");
  out = RunCommand(cli + " gpx import-text " + Quote(tmp_ / "marks.txt") + " " + Quote(tmp_ / "marks.way"), &status);
  EXPECT_EQ(out, "Waypoints saved - Press 'Exit' when finished\n");
  EXPECT_EQ(ReadFileBytes(tmp_ / "marks.way")->size(), 86u);
  out = RunCommand(cli + " gpx import-text " + Quote(tmp_ / "marks.txt") + " " + Quote(tmp_ / "marks.rte"), &status);
  EXPECT_EQ(out, "File contains invalid lines\n");
  EXPECT_EQ(status, 1);
  EXPECT_FALSE(std::filesystem::exists(tmp_ / "marks.rte"));
}

}  // namespace
}  // namespace kelvane
