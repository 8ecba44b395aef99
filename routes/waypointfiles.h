// Naming a new waypoint file: the checks of the boxes that create an empty
// waypoint file or save the chart's waypoints under a new name.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kelvane {

inline constexpr const char* kNewWayIntro =
    "This routine creates an empty waypoint file in your\n"
    "Documents\\KelvanePlus folder and sets the\n"
    "current waypoint file name to your new empty file.\n"
    "To enter waypoints use 'Create by mouse' from the Toolbar or Waypoint menu.";
inline constexpr const char* kNewWayNameMissing = "Enter a new waypoint file name an then click the OK button";
inline constexpr const char* kWaySaveNameMissing = "Enter a new route file name an then click the OK button";
inline constexpr const char* kBadWayFileName = "Check Waypoint file name";
inline constexpr const char* kWayFileExists = "File already exists - continue and overwrite the contents?";
inline constexpr const char* kConfigurationNotSaved = "Error saving the configuration file";

// The verdict on a typed name: the message that refuses it (empty when it
// is fit), the file it names in `folder` (".gpx" added when the name has
// no extension of its own), and whether that file exists, so that the
// caller asks kWayFileExists before writing over it. A name is refused
// when it is blank (`missingMessage`), or when it holds a folder separator
// or one of the characters no file name can carry (kBadWayFileName).
struct [[nodiscard]] WayFileName {
  std::string message;
  std::filesystem::path file;
  bool exists = false;
};
WayFileName CheckWayFileName(const std::filesystem::path& folder, std::string_view typed,
                             std::string_view missingMessage);

}  // namespace kelvane
