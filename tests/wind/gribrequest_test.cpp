// The GRIB request by e-mail: edges rounded outward to the half degree with
// their letters, the one request line, the same from kelvane-cli.
#include <gtest/gtest.h>

#include "support/commands.h"
#include "wind/gribrequest.h"

namespace kelvane {
namespace {

const std::string kHours =
    "0.25,0.25|0,3,6,9,12,15,18,21,24,27,30,33,36,39,42,45,48,51,54,57,60,63,66,69,72,75,78,81,84,87,90,93,96,99,"
    "102,105,108,111,114,117,120|WIND";

TEST(GribRequest, EdgesRoundOutwardToTheHalfDegreeWithTheirLetters) {
  struct Case { double north, south, west, east; std::string area; } cases[] = {
      // A fraction below 0.5 goes to the half, 0.5 or more to the next
      // degree, outward: 50.2 -> 50.5, 49.7 -> 49.5; across Greenwich the
      // west edge is "W," and the east "E|".
      {50.2, 49.7, -0.3, 0.4, "50.5N,49.5N,0.5W,0.5E|"},
      // 50.6 -> 51; 49.2 -> 49; 1.6 W -> 2 W; an area wholly west: "W|".
      {50.6, 49.2, -1.6, -0.7, "51N,49N,2W,0.5W|"},
      // A whole degree still moves out by a half; 0.5 exactly goes to 1; a
      // west edge of 0.2 E rounds to 0, written "0E,".
      {50.0, 49.0, 0.2, 0.5, "50.5N,48.5N,0E,1E|"},
      // Southern and eastern hemispheres: 33.8 S -> 33.5 S (north is up),
      // 34.3 S -> 34.5 S, 151.2 E -> 151 E, 151.7 E -> 152 E.
      {-33.8, -34.3, 151.2, 151.7, "33.5S,34.5S,151E,152E|"},
  };
  for (const Case& c : cases) EXPECT_EQ(GribRequestLine(c.north, c.south, c.west, c.east), "send gfs:" + c.area + kHours);

  test::CliResult r = test::RunCli("grib request --north 50.2 --south 49.7 --west -0.3 --east 0.4");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "send gfs:50.5N,49.5N,0.5W,0.5E|" + kHours + "\n");

  const std::vector<std::string> lines = GribRequestMessageLines("query@saildocs.com");
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[2], "send an email to : ");
  EXPECT_EQ(lines[3], "     query@saildocs.com");
}

}  // namespace
}  // namespace kelvane
