// The stream lookup's accelerators, kept inside StreamState.
//
// DiamondIndex: a grid of quarter-degree cells over the diamonds. A query
// visits cells ring by ring outwards from its own and evaluates the
// diamonds of every cell whose nearest possible range could still beat the
// best found (or the 30-mile reach). The range is always the program's own
// plane-sailing RangeBearing; the grid only decides which diamonds need not
// be asked. The lower bound of a cell uses the cosine of the highest
// latitude involved (the mean latitude of any pair lies nearer the equator)
// and is shrunk by a margin far wider than single-precision rounding, so
// the nearest diamond, ties included (the lowest number wins, as in the
// plain scan), is always among those evaluated.
//
// StreamCaches: the port curves of the dates met (a route over midnight
// reloads the tides on every pass) and the hour from high water of each
// port for each minute of the day on the curve in hand.
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
};

}  // namespace kelvane
