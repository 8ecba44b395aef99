// kelvane-cli cog and mob on the installed sample area, far out of reach
// of its diamonds (45N 60W, hundreds of miles from Nantucket Sound), where
// the answers are plane sailing on paper.
#include <gtest/gtest.h>

#include <string>

#include "support/commands.h"

namespace {

kelvane::test::CliResult Cli(const std::string& args) {
  return kelvane::test::RunCli("--data-root '" + std::string(KELVANE_SOURCE_DIR) + "/data' " + args +
                               " --at '2025-06-10 08:00' --area 'Nantucket Sound'");
}

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(CliDrift, CogAndMobOutOfReachOfTheStreams) {
  // Due north at 6 knots for an hour: 13 steps of 5 minutes, 6.5 miles.
  auto r = Cli("cog --from '45.00.00N 060.00.00W' --heading 0 --speed 6 --duration 1:00 --variation 0 --track");
  ASSERT_EQ(r.status, 0) << r.out;
  EXPECT_TRUE(Has(r.out, "From \t45.00.00N , 060.00.00W\nTo \t45.06.50N , 060.00.00W\n")) << r.out;
  EXPECT_TRUE(Has(r.out, "Steer 000°M Time taken=01:00 at 6 kt.\nStarting at 08:00 Completion Time 09:00\n"));
  EXPECT_TRUE(Has(r.out, "Range and bearing between waypoints : 6.5nm @ 000°T \n"));
  EXPECT_TRUE(Has(r.out, "Speed Over Ground = 6.0kt. Water Track Distance 6.5nm.\n"));
  // The track: the start, then the end of each step at the time it began.
  EXPECT_TRUE(Has(r.out, "08:00\t45.00.00N\t060.00.00W\n08:00\t45.00.50N\t060.00.00W\n"));
  EXPECT_TRUE(Has(r.out, "09:00\t45.06.50N\t060.00.00W\n"));

  r = Cli("mob --from '45.00.00N 060.00.00W' --hours 1");
  ASSERT_EQ(r.status, 0) << r.out;
  EXPECT_TRUE(Has(r.out, "Predicted position \t45.00.00N , 060.00.00W\n")) << r.out;
  EXPECT_TRUE(Has(r.out, "Drift from the alarm : 0.00nm @ 000°T \n"));

  for (const char* bad : {"mob --from '45N' --hours 1", "mob --from '45.00.00N 060.00.00W' --hours 90",
                          "mob --from '45.00.00N 060.00.00W' --hours=-1",
                          "cog --from '45.00.00N 060.00.00W' --heading 0 --speed 0 --duration 1:00",
                          "cog --from '45.00.00N 060.00.00W' --heading 0 --speed 6 --duration 90"}) {
    SCOPED_TRACE(bad);
    r = Cli(bad);
    EXPECT_EQ(r.status, 1) << r.out;
    EXPECT_FALSE(Has(r.out, "RESULTS ARE FROM DERIVED DATA")) << r.out;
  }
  EXPECT_TRUE(Has(Cli("mob --from '45.00.00N 060.00.00W' --hours 90").out, "Duration too long"));
  EXPECT_TRUE(Has(Cli("cog --from '45.00.00N 060.00.00W' --heading 0 --speed 0 --duration 1:00").out,
                  "Enter boat speed"));
  EXPECT_TRUE(Has(Cli("cog --from '45.00.00N 060.00.00W' --heading 0 --speed 6 --duration 90").out,
                  "Duration entry ambiguous"));
}

}  // namespace
