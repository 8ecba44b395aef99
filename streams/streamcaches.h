// The stream lookup's accelerators, kept inside StreamState.
//
// DiamondIndex: a grid of square cells over the diamonds, about one diamond
// a cell (a minute to a quarter of a degree a side). A query visits cells
// ring by ring outwards from its own and evaluates the diamonds of every
// cell whose nearest possible range could still beat the best found (or
// the 30-mile reach), each diamond first meeting the same bound of its
// own. The range is always the program's own plane sailing
// (PlaneSailingRange, the range of RangeBearing); the grid only decides
// which diamonds need not be asked. A lower bound uses the cosine of the
// highest latitude involved (the mean latitude of any pair lies nearer the
// equator) and is shrunk by a margin far wider than single-precision
// rounding, so the nearest diamond, ties included (the lowest number wins,
// as in the plain scan), is always among those evaluated.
//
// StreamCaches: the port curves of the dates met (a route over midnight
// reloads the tides on every pass), the hour from high water of each port
// for each minute of the day on the curve in hand, the port states held
// back during a StreamBatch, and the diamonds' texts.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "streams/tidalstreams.h"

namespace kelvane {

class DiamondIndex {
 public:
  void Build(const std::vector<Diamond>& diamonds);
  bool Matches(const std::vector<Diamond>& diamonds) const {
    return built_ && count_ == diamonds.size() && source_ == diamonds.data();
  }
  // Nearest diamond as the plain scan finds it whenever its range is within
  // `reach`; beyond the reach the answer is some diamond beyond it (or none).
  NearestDiamond Nearest(const std::vector<Diamond>& diamonds, float lat, float lon, float reach) const;

 private:
  bool built_ = false;
  bool usable_ = false;
  std::size_t count_ = 0;
  const Diamond* source_ = nullptr;
  double cell_ = 0.25;  // degrees
  double lat0_ = 0, lon0_ = 0;
  int rows_ = 0, cols_ = 0;
  double maxAbsLat_ = 0;
  std::vector<double> rowCos_;      // per row of cells
  std::vector<double> diamondCos_;  // the cosine of each diamond's latitude
  double cosAtMax_ = 1;             // the cosine a cell beyond the highest latitude
  std::vector<std::vector<int>> cells_;  // row-major, diamond numbers from 0 in rising order
};

// The curves of one date, as InitialiseTides leaves them.
struct CurveSnapshot {
  std::vector<HarmonicPortRecord> RefPortList;
  std::vector<std::string> UsedPortName;
  std::vector<DayCurve> PortDayCurve;
  std::vector<PortCurveArray> PortCurve;
};

struct CurveFingerprint {
  std::int16_t day = 0, year = 0;
  std::vector<std::int16_t> ports;
  std::vector<std::uint32_t> samples;
  bool operator==(const CurveFingerprint&) const = default;
};

struct StreamCaches {
  DiamondIndex index;
  using CurveKey = std::tuple<std::string, bool, std::int16_t, std::int16_t, std::vector<std::int16_t>>;
  std::map<CurveKey, CurveSnapshot> curves;

  // The hours from HW worked on one set of curves (one date), per used port
  // and minute of the day. A route over midnight moves between two dates on
  // every pass, so a few sets are kept.
  struct HourTable {
    CurveFingerprint fingerprint;
    std::vector<std::vector<HighWaterHour>> hourByMinute;  // [port][minute]
    std::vector<std::vector<bool>> hourKnown;
    std::vector<PortTideStateRecord> turning;  // per used port, turning fields only
    std::vector<bool> turningKnown;
    std::uint64_t lastUse = 0;
  };
  std::vector<HourTable> hourTables;
  std::uint64_t uses = 0;

  // A StreamBatch in progress (nested batches count up). While one runs,
  // the lookup does not write PortTideState and PortRange at every step:
  // it notes the minute of each lookup on hour table `pendingTable`, and a
  // port's answer is worked only when asked for: the slot, minutes and
  // range of the nearest diamond's port are those of its latest answer
  // that found a high water. SettlePortStates writes each port's latest
  // found answer, as the lookups one by one would have left it (a found
  // answer overwrites every field; one without a high water leaves the
  // last standing). Anything that reloads the tides or updates every port
  // settles first.
  int batchDepth = 0;
  int batchTable = -1;  // the hour table of the curves in hand until a reload
  int pendingTable = -1;
  std::vector<int> heldMinutes;  // the minutes looked up, oldest first
  std::vector<int> lastFound;    // per used port: place in heldMinutes of its latest found answer, or -1
  std::vector<int> examined;     // per used port: how many of heldMinutes its walk has passed

  // DiamondText of each diamond, with the bits of the two numbers it was
  // made from: a label is made again whenever they differ.
  struct DiamondLabel {
    std::uint32_t chartNumberBits = 0, diaRefBits = 0;
    bool made = false;
    std::string text;
  };
  std::vector<DiamondLabel> labels;
};

}  // namespace kelvane
