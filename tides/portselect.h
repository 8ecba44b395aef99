// Choosing the area file and the port of the tide window: the decisions and
// messages of the two small dialogs, kept here so that they can be checked
// without a screen.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/settings.h"

namespace kelvane {

// The names of the *.hc files of a folder (ProgramFolder/TS), sorted.
std::vector<std::string> AreaFileNames(const std::filesystem::path& tsFolder);

// The message for the OK button of the area dialog, given the chosen name
// as its label shows it, or "" when the name may be stored.
std::string CheckAreaChoice(const std::string& label);

// The chosen area file name, trimmed, as the record's HarmonicFile.
void SetAreaChoice(SettingsRecord& settings, const std::string& label);

// Stores the chosen area file name, trimmed, in the settings file: the
// record is read, changed and written back. False when it cannot be written.
bool StoreAreaChoice(const std::filesystem::path& settingsFile, const std::string& label);

// The area file in use: ProgramFolder/TS/ and the setting's name, its
// padding trimmed.
std::filesystem::path AreaFilePath(const std::filesystem::path& programFolder, const std::string& harmonicFile);

// One line of the port dialog's list: the port's name, two blanks and its
// record number ("Dover  76").
struct PortListEntry {
  std::string text;
  int recordNo = 0;
  std::string name;
};

// Every record of an area file as a list line. Empty for a file that cannot
// be opened.
std::vector<PortListEntry> PortListLines(const std::filesystem::path& areaFile);

// The stored port number as the dialog shows it: zero or beyond the last
// record becomes 1.
int CurrentPortNumber(int stored, int recordCount);

// The chosen port as the record's PortIndex and Port.
void SetPortChoice(SettingsRecord& settings, int recordNo, const std::string& name);

// Stores the chosen port in the settings file (PortIndex and Port) when its
// number is at least 1. False when nothing was stored.
bool StorePortChoice(const std::filesystem::path& settingsFile, int recordNo, const std::string& name);

}  // namespace kelvane
