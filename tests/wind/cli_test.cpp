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
      {sample + " --wind 9 --twa 180", 1, "Boat speed = (none: the table has no value for 9 kn at 180°)\n" + settings},
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

}  // namespace
}  // namespace kelvane
