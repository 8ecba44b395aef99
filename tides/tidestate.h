// The reference ports and their curves, as the main window holds them.
//
// TideState is a plain record owned by the main window and handed to the
// calculations that read it: the stream lookup reads PortCurve, the stream
// report reads PortTideState. InitialiseTides fills it for a date; nothing
// else in the library keeps any state.
//
// Record numbers and used-port positions are numbered from 1 as the program
// numbers them; the vectors below hold position i at element i - 1, and the
// accessors take the program's numbers.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tides/daycurve.h"
#include "tides/harmonicfile.h"

namespace kelvane {

inline constexpr int kPortCurveEntries = 433;

// One entry of a port curve. `spare` is not used by any reader and stays 0.
struct PortCurveEntry {
  float spare = 0;
  float time = 0;    // hours of the sample's own day, 0 to 24
  float height = 0;  // metres above chart datum
};

// PortCurve[i]: three days of samples at ten minutes. Entries 1..433 are
// filled (element 0 is not used): 1..144 the day before, 145..288 the day,
// 289..433 the day after with its midnight. Entry k stands for (k - 145) x
// 10 minutes from the local midnight that starts the day.
using PortCurveArray = std::array<PortCurveEntry, kCurveCapacity + 1>;

// PortTideState[i], filled by the stream lookup for each used port.
struct PortTideStateRecord {
  std::int16_t TurningCount = 0;
  std::string HwText;     // time of the high water used
  std::string RangeText;  // the tide's range as number text
  std::string PortName;
  std::int16_t Slot = 0;     // whole hours from high water, -7 to +6
  std::int16_t Minutes = 0;  // 0 to 59
  std::array<std::string, 15> TurningTime;
  std::array<std::string, 15> TurningHeight;
};

struct TideState {
  std::vector<HarmonicPortRecord> RefPortList;   // record r at element r - 1
  std::vector<std::int16_t> UsedPortList;        // record numbers in Refports.hc, set by the diamonds
  std::vector<std::string> UsedPortName;         // trimmed names, by used-port position
  std::vector<DayCurve> PortDayCurve;            // the last day curve made for each used port
  std::vector<PortCurveArray> PortCurve;
  std::vector<PortTideStateRecord> PortTideState;
  std::int16_t TideDay = 0;   // the date of the curves
  std::int16_t TideYear = 0;
};

// RefPortList entry of record `recordNo` (from 1), or nullptr.
const HarmonicPortRecord* RefPort(const TideState& state, int recordNo);

// The message when Refports.hc cannot be opened:
// " Reference ports file in <folder>/Refports.hc" a line break, "Cannot be opened."
std::string RefPortsMissingMessage(const std::filesystem::path& programFolder);

// InitialiseTides: reads every record of <programFolder>/Refports.hc (the
// 35-character layout) into RefPortList and, for each port of UsedPortList,
// makes the curves of the day before, the day and the day after into
// PortCurve. A Day or Year of 0 means the date already held in the state.
// The date used is stored in TideDay and TideYear. UsedPortList is kept.
//
// Returns "" on success, or the message to show: the missing-file message
// above (the port arrays then stay empty and the caller goes on without
// curves), or a message beginning "InitialiseTidesError " when a used port
// names a record that the file does not hold.
std::string InitialiseTides(TideState& state, const std::filesystem::path& programFolder, std::int16_t day,
                            std::int16_t year, bool summerTime);

}  // namespace kelvane
