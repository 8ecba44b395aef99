// The one road of the user's settings. Readers look at the record the
// program's state holds (a const reference, never a copy of their own);
// every change goes through UpdateSettings, which keeps the file and the
// held record in step.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/datatree.h"
#include "core/settings.h"
#include "state/programstate.h"

namespace kelvane {

// The round of every change of a setting: the record is read from the file,
// the change is made to it and it is written back whole (atomically), and
// the same change is made to the record the program holds. The file thus
// gets the user's saved fields plus the change, and never a field the
// program holds only for the run (the first chart's boundaries, a chooser's
// choice not yet accepted); two changes in a row keep each other's fields.
// Returns "" or the message for the user when the file could not be
// written; the held record is changed either way, as the user asked.
std::string UpdateSettings(const std::filesystem::path& file, SettingsRecord& held, const SettingsChange& change);
std::string UpdateSettings(ProgramState& state, const SettingsChange& change);

// "Unable to save settings to " and the file.
std::string SettingsNotSavedMessage(const std::filesystem::path& file);

// The settings a front door that writes nothing works from: the user's
// settings file of the data tree, or, when it is missing or empty, the
// factory record, which is what the first start of the window writes there.
struct SettingsInUse {
  SettingsRecord record;
  std::filesystem::path file;
  bool fromFile = false;
};
SettingsInUse ReadSettingsInUse(const Folders& folders);

// What a command says about the settings it used: "Settings file: " and the
// file, or "Settings file: none at " and the file ", factory settings".
std::string SettingsInUseLine(const SettingsInUse& settings);

// A state over the folders with the settings in use: what a command of
// kelvane-cli works from.
ProgramState CommandState(const Folders& folders, const SettingsInUse& settings);

}  // namespace kelvane
