// kelvane-cli init and settings show: the data tree of a first run, a
// second run that changes nothing, and settings files of every bad shape.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <random>

#include "core/datatree.h"
#include "core/recordio.h"
#include "core/settings.h"
#include "core/windconfig.h"
#include "support/commands.h"
#include "support/tempdir.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

std::string FolderArgs(const TempDir& t) {
  return "--data-root " + t.Quoted("data") + " --user-folder " + t.Quoted("user") + " --pictures-folder " +
         t.Quoted("pics");
}

Folders FoldersOf(const TempDir& t) {
  Folders f;
  f.programFolder = t.path / "data";
  f.userFolder = t.path / "user";
  f.picturesFolder = t.path / "pics";
  return f;
}

// Every file under a folder with its bytes and modification time.
std::map<std::string, std::pair<Bytes, fs::file_time_type>> Snapshot(const fs::path& root) {
  std::map<std::string, std::pair<Bytes, fs::file_time_type>> files;
  for (auto& e : fs::recursive_directory_iterator(root))
    if (e.is_regular_file()) files[e.path().string()] = {*ReadFileBytes(e.path()), e.last_write_time()};
  return files;
}

}  // namespace

TEST(Init, FirstRunLaysOutTheTreeAndWritesDefaults) {
  TempDir t;
  CliResult r = RunCli(FolderArgs(t) + " init");
  ASSERT_EQ(r.status, 0) << r.out;
  Folders f = FoldersOf(t);
  for (const fs::path& p : {f.UserFiles(), f.WorkingFiles(), f.RoutesFolder(), f.WaypointsFolder(),
                            f.TracksFolder(), f.GoogleEarthFolder(), f.GribFolder(), f.DiveSitesFolder(),
                            f.SitePicturesFolder()}) {
    SCOPED_TRACE(p.string());
    EXPECT_TRUE(fs::is_directory(p));
  }
  // The settings file is exactly the default record, byte for byte.
  fs::path settings = t.path / "user/KelvaneFiles/KelvaneConfigv1000.cfg";
  ASSERT_EQ(fs::file_size(settings), 3582u);
  EXPECT_EQ(*ReadFileBytes(settings), EncodeSettings(DefaultSettings(f)));
  // A first run goes through the restore of defaults, whose wind file holds
  // 5.0 knots from 225 and 290.
  fs::path wind = t.path / "user/KelvaneFiles/WindConfig.cfg";
  ASSERT_EQ(fs::file_size(wind), 24u);
  EXPECT_EQ(ReadWindConfig(wind), RestoredWindConfig());
  EXPECT_NE(r.out.find("DataRoot = " + (t.path / "data").string()), std::string::npos);
  EXPECT_NE(r.out.find("UserFolder = " + (t.path / "user").string()), std::string::npos);
  EXPECT_NE(r.out.find("PicturesFolder = " + (t.path / "pics").string()), std::string::npos);

  // A second run changes no file.
  auto before = Snapshot(t.path);
  ASSERT_EQ(RunCli(FolderArgs(t) + " init").status, 0);
  EXPECT_EQ(Snapshot(t.path), before);
}

TEST(Init, FoldersFromTheEnvironment) {
  TempDir t;
  std::string env = "KELVANE_DATA_ROOT=" + t.Quoted("d") + " KELVANE_USER_FOLDER=" + t.Quoted("u") +
                    " KELVANE_PICTURES_FOLDER=" + t.Quoted("p") + " ";
  // An option beats the environment.
  std::string command = env + std::string(KELVANE_CLI) + " --user-folder " + t.Quoted("opt") + " init";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_TRUE(fs::exists(t.path / "opt/KelvaneFiles/KelvaneConfigv1000.cfg"));
  EXPECT_FALSE(fs::exists(t.path / "u"));
  EXPECT_TRUE(fs::is_directory(t.path / "d/KelvaneFiles/Waypoints"));
  EXPECT_TRUE(fs::is_directory(t.path / "p/Dive Sites"));
}

TEST(Init, BadSettingsFiles) {
  TempDir t;
  ASSERT_EQ(RunCli(FolderArgs(t) + " init").status, 0);
  fs::path settings = t.path / "user/KelvaneFiles/KelvaneConfigv1000.cfg";
  Bytes defaults = *ReadFileBytes(settings);

  // Zero bytes: treated as missing and replaced by the defaults.
  std::ofstream(settings, std::ios::trunc).close();
  ASSERT_EQ(RunCli(FolderArgs(t) + " init").status, 0);
  EXPECT_EQ(*ReadFileBytes(settings), defaults);

  // Short: kept as it is and read as far as it goes.
  WriteFileAtomic(settings, Bytes(defaults.begin(), defaults.begin() + 2946));
  ASSERT_EQ(RunCli(FolderArgs(t) + " init").status, 0);
  EXPECT_EQ(fs::file_size(settings), 2946u);
  CliResult show = RunCli(FolderArgs(t) + " settings show");
  ASSERT_EQ(show.status, 0);
  EXPECT_NE(show.out.find("ChartDescription = Sample Chart\n"), std::string::npos);
  EXPECT_NE(show.out.find("PortIndex = 76\n"), std::string::npos);
  EXPECT_NE(show.out.find("ShowTideHeights = 0\n"), std::string::npos);
  EXPECT_NE(show.out.find("ScaleMax = 0\n"), std::string::npos);

  // Over-long: the first record counts.
  Bytes longer = defaults;
  longer.resize(20000, 'q');
  WriteFileAtomic(settings, longer);
  show = RunCli(FolderArgs(t) + " settings show");
  ASSERT_EQ(show.status, 0);
  EXPECT_NE(show.out.find("ScaleMax = 1.5\n"), std::string::npos);
  EXPECT_NE(show.out.find("ScaleMin = 0.18\n"), std::string::npos);

  // Random bytes: every field printed, no crash.
  std::mt19937 rng(99);
  Bytes junk(3582);
  for (auto& b : junk) b = static_cast<std::uint8_t>(rng());
  WriteFileAtomic(settings, junk);
  show = RunCli(FolderArgs(t) + " settings show");
  ASSERT_EQ(show.status, 0);
  EXPECT_EQ(std::count(show.out.begin(), show.out.end(), '\n') >= 142, true);
}

TEST(Init, SettingsShowWithoutAFile) {
  TempDir t;
  CliResult show = RunCli(FolderArgs(t) + " settings show");
  EXPECT_EQ(show.status, 1);
  EXPECT_NE(show.out.find("No settings file"), std::string::npos);
}
