// The tides and streams of an area for a day, loaded into the program's
// state in the same steps by the main window and by kelvane-cli: the
// area's diamonds, which name the reference ports; the ports' curves for
// the day; and the state of each port at the hour.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "state/programstate.h"

namespace kelvane {

// The diamonds of the area's database (Charts/<area>.l35). Returns "" or
// the message; an area without a database leaves no diamonds.
std::string LoadAreaDiamonds(ProgramState& state, std::string_view area);

// The reference ports' curves for the day, which the state's moment then
// names as the tide day, and each port's state at the hours. Returns "" or
// the message of the curves.
std::string LoadTidesForDay(ProgramState& state, std::int16_t day, std::int16_t year, float hours);

// Both, stopping at the first message: a command's area for its moment.
std::string LoadAreaForDay(ProgramState& state, std::string_view area, std::int16_t day, std::int16_t year,
                           float hours);

}  // namespace kelvane
