// The decisions and messages of the area and port dialogs.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/settings.h"
#include "support/tempdir.h"
#include "tides/portselect.h"

namespace kelvane {
namespace {

namespace fs = std::filesystem;

TEST(AreaChoice, Messages) {
  struct Case {
    std::string label, message;
  };
  const Case cases[] = {
      {"", "Select a file by clicking a name in the list, followed by the OK button"},
      {"UK.txt", "Problem with the area file name"},
      {"UK.Hc", "Problem with the area file name"},  // neither ".hc" nor ".HC"
      {"UK.hc", ""},
      {"FRANCE.HC", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(CheckAreaChoice(c.label), c.message) << c.label;
}

using Folder = test::TempDir;

TEST(AreaChoice, ListsHcFilesAndStoresTheTrimmedName) {
  Folder dir;
  for (const char* name : {"UK.hc", "Brittany.hc", "notes.txt", "OLD.HC"}) std::ofstream(dir.path / name) << "x";
  EXPECT_EQ(AreaFileNames(dir.path), (std::vector<std::string>{"Brittany.hc", "OLD.HC", "UK.hc"}));
  const fs::path settings = dir.path / "KelvaneConfigv1000.cfg";
  SettingsRecord record = ReadSettings(settings);
  record.VesselSpeed = 6.5f;
  ASSERT_TRUE(WriteSettings(settings, record));
  ASSERT_TRUE(StoreAreaChoice(settings, "  Brittany.hc  "));
  const SettingsRecord after = ReadSettings(settings);
  EXPECT_EQ(after.HarmonicFile, "Brittany.hc");
  EXPECT_EQ(after.VesselSpeed, 6.5f);  // the rest of the record is kept
}

TEST(PortChoice, ListLinesAndStoredNumber) {
  const auto lines = PortListLines(fs::path(KELVANE_SOURCE_DIR) / "data" / "TS" / "UK.hc");
  ASSERT_GE(lines.size(), 76u);
  EXPECT_EQ(lines[75].text, "Dover  76");
  EXPECT_EQ(lines[75].recordNo, 76);
  EXPECT_EQ(lines[0].text, "Dublin  1");
  EXPECT_TRUE(PortListLines("/nonexistent/X.hc").empty());
  EXPECT_EQ(CurrentPortNumber(0, 107), 1);
  EXPECT_EQ(CurrentPortNumber(108, 107), 1);
  EXPECT_EQ(CurrentPortNumber(107, 107), 107);
  EXPECT_EQ(CurrentPortNumber(76, 107), 76);

  Folder dir;
  const fs::path settings = dir.path / "KelvaneConfigv1000.cfg";
  EXPECT_FALSE(StorePortChoice(settings, 0, "Nowhere"));
  ASSERT_TRUE(StorePortChoice(settings, 12, "Dunmore East"));
  const SettingsRecord after = ReadSettings(settings);
  EXPECT_EQ(after.PortIndex, 12);
  EXPECT_EQ(after.Port, "Dunmore East");
}

}  // namespace
}  // namespace kelvane
