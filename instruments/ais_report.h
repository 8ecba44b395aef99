// The texts of the AIS forms: one summary line per target for the list,
// and the detail block of one target. The forms only show them.
#pragma once

#include <string>
#include <vector>

#include "instruments/ais_targets.h"
#include "instruments/ownship.h"

namespace kelvane {

// Tab-separated: name (or "* name not received  "), MMSI "000000000",
// message type, position, range "0.0 nm " and bearing "000°T" from the own
// ship (blank while the own ship is at 0, 0), and the closest approach.
std::string AisSummaryLine(const AISTarget& target, const OwnShipState& own, float nowHours);

// The detail block, one "label : value" line each, as the details form and
// its print and copy show it. An aid to navigation gets its short form.
std::vector<std::string> AisDetailsLines(const AISTarget& target, float nowHours);

// The label of a target on the chart: the field chosen in the AIS settings
// (AISListIndex, in the order of their list): 0 MMSI, 1 vessel name (or
// the MMSI while no name has come), 2 ship type, 3 navigation status,
// 4 dimensions, 5 destination, 6 speed and course.
std::string AisLabelText(const AISTarget& target, int listIndex);

// "Num AIS Targets Drawn = " and the count, for the status panel.
std::string AisTargetsDrawnText(int count);

}  // namespace kelvane
