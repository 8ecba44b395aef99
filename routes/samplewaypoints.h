// The sample waypoint file written at the first run, so that a new user has
// marks on the sample chart to snap a route to.
#pragma once

#include <string>

#include "core/datatree.h"

namespace kelvane {

inline constexpr const char* kSampleWaypointFileName = "Sample.gpx";

// The text of "Sample.gpx": 48 marks of the English Channel coast in
// alphabetical order, in the waypoint element form.
std::string SampleWaypointsText();

// Writes "Sample.gpx" into the waypoints folder in one go (atomically),
// creating the folder when it is missing. False when it could not be
// written. Start-up calls it when the file is missing or empty.
bool WriteSampleWaypoints(const Folders& folders);

}  // namespace kelvane
