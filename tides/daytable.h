// The text of a tide day as the tide window's day table shows it.
#pragma once

#include <string>
#include <vector>

#include "tides/daycurve.h"

namespace kelvane {

// Header line of a tide page.
inline constexpr const char* kTideHeightsNotice =
    "Heights in Metres, all data are derived and should therefore be considered as approximate";
inline constexpr const char* kSummerTimeNotice = " Times shown are with Summer Time correction";
inline constexpr const char* kNoSummerTimeNotice = "Times from midnight local time - WITHOUT SUMMER TIME CORRECTION";

// "Date : <date> <weekday>", "Port : <name>", "   Time    Ht.", one row per
// turning point ("hh:nn" and the height by "#,#0.0;;;", so a negative
// height shows blank) and "   (Range <range>)".
std::vector<std::string> DayTableLines(const std::string& dateText, const std::string& weekday,
                                       const std::string& portName, const TurningPoints& turning);

}  // namespace kelvane
