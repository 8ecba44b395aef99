#include "tides/portselect.h"

#include <algorithm>

#include "core/settings.h"
#include "core/text.h"
#include "tides/harmonicfile.h"

namespace kelvane {

std::vector<std::string> AreaFileNames(const std::filesystem::path& tsFolder) {
  std::vector<std::string> names;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(tsFolder, ec)) {
    const std::string ext = entry.path().extension().string();
    if (entry.is_regular_file(ec) && (ext == ".hc" || ext == ".HC" || ext == ".Hc" || ext == ".hC"))
      names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string CheckAreaChoice(const std::string& label) {
  if (label.empty()) return "Select a file by clicking a name in the list, followed by the OK button";
  if (label.find(".hc") == std::string::npos && label.find(".HC") == std::string::npos)
    return "Problem with the area file name";
  return "";
}

std::filesystem::path AreaFilePath(const std::filesystem::path& programFolder, const std::string& harmonicFile) {
  return programFolder / "TS" / TrimBlanks(harmonicFile);
}

bool StoreAreaChoice(const std::filesystem::path& settingsFile, const std::string& label) {
  return ChangeSettingsFile(settingsFile, [&label](SettingsRecord& settings) { SetAreaChoice(settings, label); });
}

void SetAreaChoice(SettingsRecord& settings, const std::string& label) { settings.HarmonicFile = TrimBlanks(label); }

std::vector<PortListEntry> PortListLines(const std::filesystem::path& areaFile) {
  std::vector<PortListEntry> lines;
  auto records = ReadHarmonicFile(areaFile, NameLayout::kArea31);
  if (!records) return lines;
  int recordNo = 0;
  for (const HarmonicPortRecord& r : *records) {
    ++recordNo;
    lines.push_back({r.PortName + "  " + std::to_string(recordNo), recordNo, r.PortName});
  }
  return lines;
}

int CurrentPortNumber(int stored, int recordCount) {
  if (stored == 0 || stored > recordCount) return 1;
  return stored;
}

bool StorePortChoice(const std::filesystem::path& settingsFile, int recordNo, const std::string& name) {
  if (recordNo < 1) return false;
  return ChangeSettingsFile(settingsFile,
                            [recordNo, &name](SettingsRecord& settings) { SetPortChoice(settings, recordNo, name); });
}

void SetPortChoice(SettingsRecord& settings, int recordNo, const std::string& name) {
  settings.PortIndex = static_cast<std::int16_t>(recordNo);
  settings.Port = name;
}

}  // namespace kelvane
