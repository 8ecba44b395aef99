// Exports of calculated tracks and of several files at once: the course
// over ground as text, the calculated steps as waypoints, and the compound
// GPX file of routes and waypoints.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/positions.h"
#include "routes/legacy.h"

namespace kelvane {

// The course over ground text: the lines of the results list, one step a
// line, CR LF after each. Guards, in order: no lines gives "No Valid COG
// data exit this screen and Calculate a Leg or Route", no file name "Select
// name for destination file", no folder "Select location for destination
// file". The proposed destination is "COG.txt" in the tracks folder.
inline constexpr const char* kCogDefaultFileName = "COG.txt";
FileCommandResult ExportCogText(const std::vector<std::string>& lines, const std::filesystem::path& folder,
                                std::string_view fileName);

// The calculated steps as editable waypoint lines: name, ",", latitude,
// ", ", longitude, in decimal degrees to six places. The first step is
// "STARTWPT", the last "ENDWAYPT", each other "WAY" and its step number in
// "00000" (the start is step 0).
std::vector<std::string> CogToWayLines(const std::vector<Position>& steps);

// The captions over the editable list.
inline constexpr const char* kCogToWayHelp1 =
    "The results below can be edited as required, if latitudes or longitudes are changed ensure to keep to the "
    "format of XX.XXXXXX (-ve for West or South)";
inline constexpr const char* kCogToWayHelp2 = "Degrees are in decimal (NOT minutes). Waypoints must have a name.";

// Saves the edited lines: as they stand (CR LF after each), or with asGpx
// as a waypoint file, one `wpt` per line with the coordinates in
// "0.000000000" and desc and sym empty. A destination without a file name
// gives "No file name".
FileCommandResult SaveCogWayLines(const std::vector<std::string>& lines, const std::filesystem::path& destination,
                                  bool asGpx);

// What typing in the file name box keeps: the characters "!", "#", "$",
// "%", "*", ",", ".", "/", ":", ";", "<", "=", ">", "?", "@", "^", "`",
// "~" and "£" are dropped.
std::string DropFileNameCharacters(std::string_view typed);

// The compound GPX file: for each route file picked, a route block per
// named route it holds (its unnamed route, when it has one, under
// `exportName`; so is a named route whose name is empty), then for each
// waypoint file picked, a `wpt` per waypoint; then "</gpx>". Files that do
// not read add nothing.
std::string CompoundExportText(const std::vector<std::filesystem::path>& routeFiles,
                               const std::vector<std::filesystem::path>& waypointFiles, std::string_view exportName);
inline constexpr const char* kOverwriteQuestion = "File exist - Overwrite?";
inline constexpr const char* kFinishedExportingQuestion = "Are you finished exporting?";
inline constexpr const char* kGpxFileFilter = "GPX file | *.gpx";
// Writes the compound file; ends with "File saved to :" and the path.
FileCommandResult ExportCompound(const std::vector<std::filesystem::path>& routeFiles,
                                 const std::vector<std::filesystem::path>& waypointFiles,
                                 const std::filesystem::path& destination);

}  // namespace kelvane
