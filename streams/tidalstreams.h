// The stream at a place and a moment, from the tidal diamonds.
//
// The lookup takes the nearest diamond within 30 miles, finds the hour from
// high water at the diamond's reference port on the port curve that
// InitialiseTides holds for the day, interpolates between the neap and the
// spring rates by the day's range, then linearly between the hours, and
// holds the direction until halfway between them.
//
// State lives in two plain records that the main window owns: TideState
// (the port curves and PortTideState, tides/tidestate.h) and StreamState
// below (the diamonds and the display list). A StreamContext points at both
// together with the two settings the curves depend on, and is what the
// calculations receive.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "streams/diamond.h"
#include "tides/tidestate.h"

namespace kelvane {

// DiamondStreamNow: one entry per diamond for the stream layer.
struct DiamondStreamNow {
  std::string Label;  // chartNumber "-" DiaRef, 10 characters, blank-padded
  float chartNumber = 0;
  double Lat = 0;
  double Lon = 0;
  float Rate = 0;       // knots, through the text "0.0"
  float Direction = 0;  // degrees true
  float Radians = 0;    // the direction by 0.017453293
  std::int16_t Slot = 0;  // the table slot the display names (1..13, see CalculateTidalStreams)
};

class DiamondIndex;
struct StreamCaches;

struct StreamState {
  StreamState();
  ~StreamState();
  StreamState(const StreamState&);
  StreamState& operator=(const StreamState&);
  StreamState(StreamState&&) noexcept;
  StreamState& operator=(StreamState&&) noexcept;

  std::vector<Diamond> Diamonds;            // program's Diamond(i) at element i - 1
  std::vector<Diamond> StreamFileDiamonds;  // the .l25 of the area, for the maintenance keys
  std::vector<DiamondStreamNow> StreamNow;  // by CalculateTidalStreams
  std::vector<float> PortRange;             // the numeric range of PortTideState[i], metres

  // The lookup's accelerators: a grid index of the diamonds and caches of
  // the day's port curves and of the hour from high water per minute. The
  // answers are identical with them and without (the straightforward scan
  // of every diamond and a fresh InitialiseTides on each date change);
  // switching them off serves the comparison.
  bool UseAccelerators = true;
  std::unique_ptr<StreamCaches> caches;  // made on first use
};

// What the lookup needs besides the two state records.
struct StreamContext {
  TideState* tides = nullptr;
  StreamState* streams = nullptr;
  std::filesystem::path programFolder;  // Refports.hc lives here
  bool summerTime = false;
};

// Replaces the diamonds (and the index over them).
void SetDiamonds(StreamState& streams, std::vector<Diamond> diamonds);

// BuildUsedPorts: UsedPortList from the diamonds: the first diamond's port,
// then each port not yet in the list, in order of first appearance.
void BuildUsedPorts(TideState& tides, const std::vector<Diamond>& diamonds);

// FindRefPorts: the same from the RefPort fields of ProgramFolder/TS/
// <ChartSet>.l25. A missing file returns at once and changes nothing.
void FindRefPorts(TideState& tides, const std::filesystem::path& programFolder, std::string_view chartSet);

// A run of lookups of which only the end is read, as the leg solver's pass
// is: with the accelerators on, TidalStreamAt inside the batch writes the
// port states (PortTideState, PortRange) once, when the batch ends or
// before anything reloads the tides or updates every port, and they then
// hold exactly what the lookups one by one would have left. Until it ends,
// nothing but the lookup itself may change the tides or read the port
// states. With the accelerators off it does nothing.
class StreamBatch {
 public:
  explicit StreamBatch(StreamContext& ctx);
  ~StreamBatch();
  StreamBatch(const StreamBatch&) = delete;
  StreamBatch& operator=(const StreamBatch&) = delete;

 private:
  StreamContext& ctx_;
  bool active_ = false;
};

// The result of HourFromHighWater for one port.
struct HighWaterHour {
  bool found = false;      // no high water in either window: nothing else is set
  bool behind = false;     // found by the look-back window
  int hwSample = 0;        // PortCurve entry of the high water
  std::string HwText;      // "HH:MM" of that entry
  float Range = 0;         // highest less lowest over HW-39 .. HW+39, metres
  std::string RangeText;   // Str of the range (" 3.9")
  std::int16_t Slot = 0;   // -7 .. +6
  std::int16_t Minutes = 0;
};

// Minutes of the day as the lookup counts them: hours and the fraction
// times 60, each truncated (in single precision).
int MinutesOfDay(float timeHours);

// HourFromHighWater for used port `portIndex` (from 1), at minute `now` of
// the day (0..1439) on the curve held in `tides`:
//  - start sample k = now / 10 + 145;
//  - high water ahead: the first i from k to k + 36 with h[i] < h[i+1] and
//    h[i+2] < h[i+1] gives HW = i + 1; else looking back, i from k + 2 down
//    to k - 42 with h[i] < h[i-1] and h[i-2] < h[i-1] gives HW = i - 1;
//  - the minutes between, across midnight when they exceed 420, fall in
//    bands of an hour centred on each whole hour; before HW the minutes
//    count up to the next band, after HW down, and 60 becomes 0 in the next
//    band out from HW. At HW itself the answer is slot 0, minutes 30.
// Reads only; the caller stores the result.
HighWaterHour HourFromHighWater(const TideState& tides, int portIndex, int now);

// The day's turning points of used port `portIndex` (from 1): every sample
// from 143 to 286 strictly above or below both neighbours, at most 15, as
// the clock text of its time and Round(h x 10) / 10 as number text.
void TurningPointsOfDay(const TideState& tides, int portIndex, PortTideStateRecord& record);

// UpdatePortStates: HourFromHighWater for every used port into
// PortTideState (slot, minutes, HW text, range text, port name and turning
// points) and PortRange. With useGivenTime false the minute is clockMinutes
// (the system clock's, read by the caller).
void UpdatePortStates(StreamContext& ctx, bool useGivenTime, float timeHours, int clockMinutes = 0);

// The answer of the lookup. A lookup leaves fields it does not reach as
// the caller set them.
struct StreamAnswer {
  float Rate = 0;        // knots
  float Direction = 0;   // degrees true, towards
  std::int16_t Slot = 0; // hours from HW of the slot used, -7 .. +6
  std::string DiamondText;  // chartNumber ", " DiaRef, or "NONE"
};

// The name of a diamond in a stream answer: chartNumber ", " DiaRef.
std::string DiamondText(const Diamond& d);

inline constexpr float kStreamReachMiles = 30.0f;

// The message of a diamond whose spring and neap ranges are equal.
std::string ZeroRangeMessage(bool display);

// TidalStreamAt. Day or year other than the curves' reloads the tides
// (InitialiseTides) first; then UpdatePortStates at the given time. With no
// diamonds the answer is left as it stands; beyond 30 miles of every
// diamond it is rate 0, direction 0, slot 0, "NONE". A nearest diamond with
// Sprange equal to Nprange sets only the text and returns the zero-range
// message. Returns "" or a message to show (a failed reload of the tides
// gives InitialiseTides' message and no stream).
std::string TidalStreamAt(StreamContext& ctx, float lat, float lon, float timeHours, std::int16_t day,
                          std::int16_t year, StreamAnswer& answer);

// The nearest diamond (from 0) and its range in miles by plane sailing,
// the first on a tie; -1 and 9999 with no diamonds. Uses the index when the
// accelerators are on, the plain scan otherwise.
struct NearestDiamond {
  int index = -1;
  float range = 9999.0f;
};
NearestDiamond FindNearestDiamond(StreamState& streams, float lat, float lon);

// Reloads the tides for a date (through the cache of curves when the
// accelerators are on): InitialiseTides with the context's folder and
// summer time. Returns its message.
std::string ReloadTides(StreamContext& ctx, std::int16_t day, std::int16_t year);

// CalculateTidalStreams: the stream of every diamond at the state of the
// ports as PortTideState holds it, into StreamNow, without a distance test.
// It differs from the lookup: r1 is cut to two decimals (Int(r1 x 100) /
// 100) before use, the rate is stored through "0.0", the slot shown moves
// one earlier when Minutes >= 30 and one later otherwise (below 1 wraps to
// 13), and a zero range stops the loop with its message. Count is the
// number of entries made.
struct StreamsNow {
  int Count = 0;
  std::string message;
};
StreamsNow CalculateTidalStreams(StreamContext& ctx);

// Str of a single: its 7-digit text with the sign column (" 3.45", "-.5").
std::string SingleStrText(float value);

}  // namespace kelvane

namespace kelvane {

// The diamonds of an area as start-up and a chart change load them: the
// `diamonds` table of ProgramFolder/Charts/<area>.l35 into the state, and
// UsedPortList rebuilt from them. Returns "" or the storage message (the
// diamonds are then empty). The caller then loads the tides for its day.
std::string LoadAreaDiamonds(StreamContext& ctx, std::string_view area);

}  // namespace kelvane
