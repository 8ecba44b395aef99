#include "state/settingsroad.h"

namespace kelvane {

std::string UpdateSettings(const std::filesystem::path& file, SettingsRecord& held, const SettingsChange& change) {
  const bool written = ChangeSettingsFile(file, change);
  change(held);
  return written ? std::string() : SettingsNotSavedMessage(file);
}

std::string UpdateSettings(ProgramState& state, const SettingsChange& change) {
  return UpdateSettings(state.folders.SettingsFile(), state.settings, change);
}

std::string SettingsNotSavedMessage(const std::filesystem::path& file) {
  return "Unable to save settings to " + file.string();
}

SettingsInUse ReadSettingsInUse(const Folders& folders) {
  SettingsInUse in;
  in.file = folders.SettingsFile();
  in.fromFile = !FileMissing(in.file);
  in.record = in.fromFile ? ReadSettings(in.file) : DefaultSettings(folders);
  return in;
}

std::string SettingsInUseLine(const SettingsInUse& settings) {
  if (settings.fromFile) return "Settings file: " + settings.file.string();
  return "Settings file: none at " + settings.file.string() + ", factory settings";
}

ProgramState CommandState(const Folders& folders, const SettingsInUse& settings) {
  ProgramState state;
  state.folders = folders;
  state.settings = settings.record;
  return state;
}

}  // namespace kelvane
