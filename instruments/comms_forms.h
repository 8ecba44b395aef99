// The words and lists of the port dialogs: the port test's introduction
// and messages, the baud lists, the log intervals of the GPS settings. The
// dialogs show these; tests check them without a screen.
#pragma once

#include <string>
#include <vector>

namespace kelvane {

// The introduction of the port test, one line each.
const std::vector<std::string>& CommsInfoIntroLines();

// "4800", "9600", "19200", "38400"; all ten rates once widened.
const std::vector<std::string>& CommonBaudRates();
const std::vector<std::string>& AllBaudRates();

inline constexpr const char* kNoCommsPortSelected = "No comms port selected";
inline constexpr const char* kAllRatesAvailable = "All rates are now available from the dropdown box";
inline constexpr const char* kLogWriteError = "***** Error in writing Log File *****";
inline constexpr const char* kSaveNmeaTitle = "Save NMEA data to ile";
inline constexpr const char* kSaveNmeaPrompt = "Enter a Destination File Name";

// The log intervals of the GPS settings and their seconds.
struct IntervalChoice {
  const char* text;
  int seconds;
};
const std::vector<IntervalChoice>& GpsIntervalChoices();
// The text of a stored interval; the nearest choice at or above it.
std::string GpsIntervalText(int seconds);

// "5", "10", "20", "30", "60": minutes between predicted points.
const std::vector<std::string>& AheadIntervalChoices();

// The fields a target label may show.
const std::vector<std::string>& AisFieldChoices();

// The monitor's speed and course read-outs.
std::string MonitorSpeedText(float knots);
std::string MonitorCourseText(float degrees);

}  // namespace kelvane
