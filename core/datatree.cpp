#include "core/datatree.h"

#include <cstdlib>
#include <fstream>

namespace kelvane {

namespace fs = std::filesystem;

fs::path Folders::SettingsFile() const { return UserFiles() / kSettingsFileName; }
fs::path Folders::WindConfigFile() const { return UserFiles() / kWindConfigFileName; }

namespace {

std::string Env(const char* name) {
  const char* v = std::getenv(name);
  return v ? std::string(v) : std::string();
}

fs::path Home() {
  std::string home = Env("HOME");
  return home.empty() ? fs::path("/tmp") : fs::path(home);
}

fs::path XdgFolder(const char* variable, const char* fallback) {
  std::string v = Env(variable);
  if (!v.empty() && fs::path(v).is_absolute()) return v;
  return Home() / fallback;
}

// The pictures folder of xdg-user-dirs: XDG_PICTURES_DIR in
// user-dirs.dirs, written as "$HOME/Pictures".
std::optional<fs::path> XdgPicturesFolder() {
  std::ifstream in(XdgFolder("XDG_CONFIG_HOME", ".config") / "user-dirs.dirs");
  std::string line;
  while (std::getline(in, line)) {
    const std::string key = "XDG_PICTURES_DIR=";
    if (line.rfind(key, 0) != 0) continue;
    std::string value = line.substr(key.size());
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
    if (value.rfind("$HOME", 0) == 0) value = Home().string() + value.substr(5);
    if (!value.empty()) return fs::path(value);
  }
  fs::path guess = Home() / "Pictures";
  std::error_code ec;
  if (fs::is_directory(guess, ec)) return guess;
  return std::nullopt;
}

std::string Pick(const std::string& option, const char* variable) {
  return !option.empty() ? option : Env(variable);
}

}  // namespace

Folders FindFolders(const FolderOverrides& overrides) {
  Folders f;
  std::string dataRoot = Pick(overrides.dataRoot, "KELVANE_DATA_ROOT");
  std::string user = Pick(overrides.userFolder, "KELVANE_USER_FOLDER");
  std::string pictures = Pick(overrides.picturesFolder, "KELVANE_PICTURES_FOLDER");
  f.programFolder = !dataRoot.empty() ? fs::path(dataRoot) : XdgFolder("XDG_DATA_HOME", ".local/share") / "kelvane";
  f.userFolder = !user.empty() ? fs::path(user) : XdgFolder("XDG_CONFIG_HOME", ".config") / "kelvane";
  if (!pictures.empty()) {
    f.picturesFolder = pictures;
  } else if (!dataRoot.empty()) {
    // A data root given by hand keeps the pictures beside it, so that a
    // test or a portable set-up never writes into the real home.
    f.picturesFolder = f.programFolder;
  } else {
    f.picturesFolder = XdgPicturesFolder().value_or(f.programFolder);
  }
  std::error_code ec;
  f.programFolder = fs::absolute(f.programFolder, ec).lexically_normal();
  f.userFolder = fs::absolute(f.userFolder, ec).lexically_normal();
  f.picturesFolder = fs::absolute(f.picturesFolder, ec).lexically_normal();
  return f;
}

std::optional<fs::path> SeedFolder(const fs::path& builtIn) {
  std::error_code ec;
  std::string env = Env("KELVANE_SEED_DIR");
  if (!env.empty() && fs::is_directory(env, ec)) return fs::path(env);
  if (!builtIn.empty() && fs::is_directory(builtIn, ec)) return builtIn;
  return std::nullopt;
}

std::vector<fs::path> SeedDataRoot(const Folders& folders, const fs::path& seed) {
  std::vector<fs::path> copied;
  std::error_code ec;
  if (!fs::is_directory(seed, ec)) return copied;
  for (auto it = fs::recursive_directory_iterator(seed, ec); !ec && it != fs::recursive_directory_iterator();
       it.increment(ec)) {
    fs::path relative = it->path().lexically_relative(seed);
    fs::path target = folders.DataRoot() / relative;
    std::error_code e2;
    if (it->is_directory(e2)) {
      fs::create_directories(target, e2);
    } else if (it->is_regular_file(e2) && !fs::exists(target, e2)) {
      fs::create_directories(target.parent_path(), e2);
      if (fs::copy_file(it->path(), target, e2)) copied.push_back(target);
    }
  }
  return copied;
}

std::vector<fs::path> CreateDataTree(const Folders& folders) {
  const std::vector<fs::path> order = {
      folders.UserFiles(),
      folders.WorkingFiles(),
      folders.RoutesFolder(),
      folders.WaypointsFolder(),
      folders.TracksFolder(),
      folders.GoogleEarthFolder(),
      folders.GribFolder(),
      folders.DiveSitesFolder(),
      folders.SitePicturesFolder(),
  };
  for (const fs::path& p : order) {
    // Parent first, then the child: each under its own guard.
    std::error_code ec;
    fs::create_directories(p.parent_path(), ec);
    fs::create_directory(p, ec);
  }
  return order;
}

bool FileMissing(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return true;
  return in.peek() == std::ifstream::traits_type::eof();
}

bool RestoreDefaults(const Folders& folders) {
  std::error_code ec;
  fs::create_directories(folders.UserFiles(), ec);
  bool ok = WriteSettings(folders.SettingsFile(), DefaultSettings(folders));
  ok = WriteWindConfig(folders.WindConfigFile(), RestoredWindConfig()) && ok;
  return ok;
}

LoadedSettings LoadSettings(const Folders& folders, const StartupHooks& hooks) {
  std::error_code ec;
  if (FileMissing(folders.SettingsFile())) {
    fs::remove(folders.SettingsFile(), ec);
    RestoreDefaults(folders);
  }
  fs::path sample = folders.WaypointsFolder() / "Sample.gpx";
  if (FileMissing(sample)) {
    fs::remove(sample, ec);
    if (hooks.writeSampleWaypoints) hooks.writeSampleWaypoints(folders);
  }
  fs::path sites = folders.DiveSitesFolder() / "My Sites.mdb";
  if (FileMissing(sites)) {
    fs::remove(sites, ec);
    if (hooks.createSitesDatabase) hooks.createSitesDatabase(folders);
  }
  LoadedSettings loaded;
  loaded.settings = ReadSettings(folders.SettingsFile());
  if (FileMissing(folders.WindConfigFile())) {
    fs::remove(folders.WindConfigFile(), ec);
    WriteWindConfig(folders.WindConfigFile(), FirstRunWindConfig());
  }
  loaded.wind = ReadWindConfig(folders.WindConfigFile());
  loaded.workingWind = WorkingWindFrom(loaded.wind);
  return loaded;
}

}  // namespace kelvane
