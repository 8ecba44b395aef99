// The road of a settings change: what reaches the file, what the program
// keeps, and what a command says it used.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "state/settingsroad.h"
#include "support/tempdir.h"

namespace kelvane {
namespace {

using test::TempDir;

Folders TreeIn(const TempDir& dir) {
  Folders f;
  f.programFolder = dir.path / "data";
  f.userFolder = dir.path / "user";
  f.picturesFolder = dir.path / "pics";
  std::filesystem::create_directories(f.UserFiles());
  return f;
}

// The held record shows the first chart's boundaries for the run only; the
// file holds a boat speed another form saved. A change of the tool bar
// writes the saved speed and the new tool bar, never the run's boundaries,
// and the held record keeps its boundaries and takes the tool bar.
TEST(SettingsRoad, AChangeWritesOnlyItsFieldsOverTheFileAndKeepsTheRunsOwn) {
  TempDir dir;
  ProgramState state;
  state.folders = TreeIn(dir);
  SettingsRecord saved = DefaultSettings(state.folders);
  saved.ShowChartBoundaries = 0;
  saved.VesselSpeed = 6.5f;
  saved.ShowToolBar = -1;
  ASSERT_TRUE(WriteSettings(state.folders.SettingsFile(), saved));
  state.settings = DefaultSettings(state.folders);
  state.settings.ShowChartBoundaries = -1;
  state.settings.VesselSpeed = 5.0f;

  EXPECT_EQ(UpdateSettings(state, [](SettingsRecord& r) { r.ShowToolBar = 0; }), "");
  const SettingsRecord file = ReadSettings(state.folders.SettingsFile());
  EXPECT_EQ(file.ShowToolBar, 0);
  EXPECT_EQ(file.ShowChartBoundaries, 0);
  EXPECT_EQ(file.VesselSpeed, 6.5f);
  EXPECT_EQ(state.settings.ShowToolBar, 0);
  EXPECT_EQ(state.settings.ShowChartBoundaries, -1);

  // A settings folder that is not there: the user is told, the file is not
  // made, and the program goes on with the change.
  state.folders.userFolder = dir.path / "gone";
  const std::filesystem::path missing = state.folders.SettingsFile();
  EXPECT_EQ(UpdateSettings(state, [](SettingsRecord& r) { r.ShowToolBar = -1; }),
            "Unable to save settings to " + missing.string());
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_EQ(state.settings.ShowToolBar, -1);
}

// A command reads the user's file when there is one, the factory record
// when it is missing or empty, and says which.
TEST(SettingsRoad, CommandsSayWhichSettingsTheyUsed) {
  TempDir dir;
  const Folders folders = TreeIn(dir);
  const std::string file = folders.SettingsFile().string();
  SettingsInUse in = ReadSettingsInUse(folders);
  EXPECT_FALSE(in.fromFile);
  EXPECT_EQ(in.record, DefaultSettings(folders));
  EXPECT_EQ(SettingsInUseLine(in), "Settings file: none at " + file + ", factory settings");
  { std::ofstream(folders.SettingsFile()); }  // empty: a first run's file
  EXPECT_FALSE(ReadSettingsInUse(folders).fromFile);

  SettingsRecord user = DefaultSettings(folders);
  user.VesselSpeed = 3.5f;
  ASSERT_TRUE(WriteSettings(folders.SettingsFile(), user));
  in = ReadSettingsInUse(folders);
  EXPECT_TRUE(in.fromFile);
  EXPECT_EQ(in.record.VesselSpeed, 3.5f);
  EXPECT_EQ(SettingsInUseLine(in), "Settings file: " + file);
  EXPECT_EQ(CommandState(folders, in).settings.VesselSpeed, 3.5f);
}

}  // namespace
}  // namespace kelvane
