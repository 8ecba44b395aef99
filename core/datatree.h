// The data tree on disk: where the program's folders are, what is created at
// the first run, and the order in which start-up loads the settings.
//
// On Linux the three folders are writable per-user folders:
//   DataRoot (also ProgramFolder)  $XDG_DATA_HOME/kelvane  (~/.local/share/kelvane)
//   UserFolder                     $XDG_CONFIG_HOME/kelvane (~/.config/kelvane)
//   PicturesFolder                 the XDG pictures folder, or DataRoot
// Each can be set by an option (--data-root, --user-folder,
// --pictures-folder) or by the environment (KELVANE_DATA_ROOT,
// KELVANE_USER_FOLDER, KELVANE_PICTURES_FOLDER); an option wins over the
// environment, which wins over XDG. DataRoot is seeded from the installed
// sample data (KELVANE_SEED_DIR, or the folder built into the program) with
// the files it does not yet have; nothing there is ever overwritten.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"
#include "core/windconfig.h"

namespace kelvane {

struct Folders {
  std::filesystem::path programFolder;  // the data root: charts, .hc files, the user's working data
  std::filesystem::path userFolder;     // per-user settings
  std::filesystem::path picturesFolder; // pictures of the user's dive sites

  const std::filesystem::path& DataRoot() const { return programFolder; }
  std::filesystem::path UserFiles() const { return userFolder / "KelvaneFiles"; }
  std::filesystem::path SettingsFile() const;
  std::filesystem::path WindConfigFile() const;
  // The wind of the last GRIB import, beside WindConfig.cfg: the store of
  // 20-byte records the lookups read, and the list of decoded points.
  std::filesystem::path WindStoreFile() const { return UserFiles() / "~wind.dat"; }
  std::filesystem::path GribPointsFile() const { return UserFiles() / "~GrDa.tmp"; }
  std::filesystem::path WorkingFiles() const { return programFolder / "KelvaneFiles"; }
  std::filesystem::path WaypointsFolder() const { return WorkingFiles() / "Waypoints"; }
  std::filesystem::path RoutesFolder() const { return WorkingFiles() / "Routes"; }
  std::filesystem::path TracksFolder() const { return WorkingFiles() / "Tracks"; }
  std::filesystem::path GoogleEarthFolder() const { return WorkingFiles() / "Google Earth"; }
  std::filesystem::path DiveSitesFolder() const { return WorkingFiles() / "My Dive Sites"; }
  std::filesystem::path GribFolder() const { return programFolder / "Grib Data"; }
  std::filesystem::path ChartsFolder() const { return programFolder / "Charts"; }
  std::filesystem::path SitePicturesFolder() const { return picturesFolder / "Dive Sites"; }
};

// What the user asked for on the command line; empty means not given.
struct FolderOverrides {
  std::string dataRoot;
  std::string userFolder;
  std::string picturesFolder;
};

// Resolves the three folders: option, then environment, then XDG.
Folders FindFolders(const FolderOverrides& overrides = {});

// The folder of installed sample data that seeds DataRoot, if there is one.
std::optional<std::filesystem::path> SeedFolder(const std::filesystem::path& builtIn);

// Copies into DataRoot every file of the seed folder that DataRoot lacks.
// Returns the files copied. Existing files are left alone.
std::vector<std::filesystem::path> SeedDataRoot(const Folders& folders, const std::filesystem::path& seed);

// Creates the folders of the tree in the start form's order: the user's
// KelvaneFiles; DataRoot's KelvaneFiles with Routes, Waypoints, Tracks and
// Google Earth; Grib Data; then My Dive Sites and the pictures' Dive Sites.
// A folder that exists is no error, and a folder that cannot be made is
// skipped: each creation stands on its own. Returns the folders in order.
std::vector<std::filesystem::path> CreateDataTree(const Folders& folders);

// True when the file cannot be opened for reading or is empty.
bool FileMissing(const std::filesystem::path& file);

// The steps of start-up that belong to other subsystems. A hook left empty
// is skipped.
struct StartupHooks {
  std::function<void(const Folders&)> writeSampleWaypoints;  // "Sample.gpx" missing or empty
  std::function<void(const Folders&)> createSitesDatabase;   // "My Sites.mdb" missing or empty
};

struct LoadedSettings {
  SettingsRecord settings;
  WindConfig wind;
  WorkingWind workingWind;
};

// LoadSettings in its order: defaults for a missing or empty settings file
// (which also makes a fresh wind file), the sample waypoints, the sites
// database, the settings record, the wind file with its own first-run
// values when missing or empty, then the wind record. Returns what was
// read.
LoadedSettings LoadSettings(const Folders& folders, const StartupHooks& hooks = {});

// RestoreDefaults: writes the default settings record and a fresh wind file
// (5.0 knots, 225 and 290 degrees). Returns false when a file could not be
// written.
bool RestoreDefaults(const Folders& folders);

}  // namespace kelvane
