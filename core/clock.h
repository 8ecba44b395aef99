// The one reading of the system clock. Everything that needs the present
// date or time asks here, so that there is one place where the program
// meets the machine's clock; the main window reads it through its own
// `clock` member, which a test may point at a fixed moment.
#pragma once

#include <ctime>

namespace kelvane {

// The local civil time now, broken down (tm_year counts from 1900, tm_mon
// from 0, tm_yday from 0).
std::tm LocalNow();

}  // namespace kelvane
