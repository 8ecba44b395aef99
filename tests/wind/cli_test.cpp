// kelvane-cli polar on a copy of the shipped sample, with the user's
// factory settings (closest sailing angle 40 degrees).
#include <gtest/gtest.h>

#include <filesystem>

#include "support/commands.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

TEST(PolarCli, SpeedsFromTheSamplePolarAndBadInput) {
  test::TempFolder dir;
  std::filesystem::create_directories(dir / "root");
  std::filesystem::copy_file(std::filesystem::path(KELVANE_SOURCE_DIR) / "data" / "Polars.mdb", dir / "root" / "Polars.mdb");
  const std::string folders = "--data-root " + (dir / "root").string() + " --user-folder " + (dir / "user").string() + " ";
  const std::string sample = " --setup 'Synthetic sample sloop (not a real boat)'";
  const std::string settings =
      "Settings file: none at " + (dir / "user" / "KelvaneFiles" / "KelvaneConfigv1000.cfg").string() + ", factory settings\n";

  EXPECT_EQ(test::RunCli(folders + "polar setups").out, "Synthetic sample sloop (not a real boat)\n");
  // Sample rows (wind8kn, wind10kn, Wind12kn): 35: 2.0 2.2 2.4; 40: 2.3 2.6 2.8;
  // 90: 4.5 5.1 5.7; 95: 4.6 5.2 5.8.
  struct Case { std::string args; int status; std::string out; } cases[] = {
      // 9 kn at 92: 4.5 + 0.1 / 5 x 2 = 4.54 and 5.1 + 0.1 / 5 x 2 = 5.14; (5.14 - 4.54) / 2 + 4.54 = 4.84.
      {sample + " --wind 9 --twa 92", 0, "Boat speed = 4.8 kn\n" + settings},
      // Exactly 10 kn lands on the 12 kn column.
      {sample + " --wind 10 --twa 90", 0, "Boat speed = 5.7 kn\n" + settings},
      // Pinching at 38: (2.0 + 2.3) / 2 x 38 / 30 = 2.72.
      {sample + " --wind 9 --twa 38", 0, "Boat speed = 2.7 kn\n" + settings},
      // Dead downwind: the row of 180 is row 31, read as row 30 (175), and
      // the 185 above it has no row (read from the first) but a fraction of
      // 0: the speed of 175 degrees, exactly as at 175 itself.
      {sample + " --wind 9 --twa 180", 0, test::RunCli(folders + "polar speed" + sample + " --wind 9 --twa 175").out},
      {sample + " --wind calm --twa 90", 2, "Invalid Wind Speed\n"},
      {sample + " --wind 9 --twa 181", 2, "Check Wind Angle\n"},
      {" --setup Reefed --wind 9 --twa 90", 1,
       "The polar database " + (dir / "root" / "Polars.mdb").string() + " has no table for the set up \"Reefed\"\n"},
  };
  for (const Case& c : cases) {
    test::CliResult r = test::RunCli(folders + "polar speed" + c.args);
    EXPECT_EQ(r.out, c.out) << c.args;
    EXPECT_EQ(r.status, c.status) << c.args;
  }
}

TEST(WindCli, CalculatorAndTacksOfAGpxRoute) {
  test::TempFolder dir;
  test::WriteText(dir / "trial.gpx",
                  "<?xml version=\"1.0\"?>\n<gpx version=\"1.1\" creator=\"test\"><rte><name>Trial</name>"
                  "<rtept lat=\"50.70\" lon=\"-1.30\"><name>Start</name></rtept>"
                  "<rtept lat=\"50.80\" lon=\"-1.30\"><name>North</name></rtept>"
                  "<rtept lat=\"50.80\" lon=\"-1.15\"><name>East</name></rtept></rte></gpx>\n");
  const std::string gpx = (dir / "trial.gpx").string();
  struct Case { std::string args; int status; std::string out; } cases[] = {
      // sqrt(10^2 + 5^2) = 11.18 at atan(10 / 5) = 63.4, and back.
      {"wind apparent --true-speed 10 --true-angle 90 --boat-speed 5", 0,
       "Apparent wind speed = 11.2 kn\nApparent wind angle = 063°\n"},
      {"wind true --apparent-speed 10 --apparent-angle 90 --boat-speed 5", 0,
       "True wind speed = 11.2 kn\nTrue wind angle = 117°\n"},
      {"wind apparent --true-speed 6 --true-angle 180 --boat-speed 6", 0,
       "Apparent wind speed = 0.0 kn\nApparent wind angle = none (no wind)\n"},
      {"wind apparent --true-speed 10 --true-angle 90 --boat-speed 0", 2, "Set boat speed\n"},
      {"wind true --apparent-speed 10 --apparent-angle 360 --boat-speed 5", 2, "Check Apparent Wind Direction\n"},
      // Wind from 045: the leg north has it on the starboard bow, the leg
      // east on the port bow.
      {"tack " + gpx + " --wind-dir 45", 0, "1\tStart to North\t000°T\tStarboard Tack\n2\tNorth to East\t090°T\tPort Tack\n"},
      // From 000: dead ahead on the first leg, no tack.
      {"tack " + gpx + " --wind-dir 0", 0, "1\tStart to North\t000°T\t\n2\tNorth to East\t090°T\tPort Tack\n"},
      {"tack " + gpx + " --wind-dir west", 2, "Invalid Wind Direction\n"},
  };
  for (const Case& c : cases) {
    test::CliResult r = test::RunCli(c.args);
    EXPECT_EQ(r.out, c.out) << c.args;
    EXPECT_EQ(r.status, c.status) << c.args;
  }
}

}  // namespace
}  // namespace kelvane
