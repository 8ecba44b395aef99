// A hand-made port curve and diamonds for the stream tests: one port whose
// curve has a single high water at entry 200 (09:10 of the day), the height
// falling by `step` metres each ten minutes either side, so that every
// number of the lookup can be worked by hand.
#pragma once

#include <cmath>
#include <cstdint>

#include "streams/tidalstreams.h"

namespace kelvane::test {

inline constexpr std::int16_t kDay = 100, kYear = 2025, kPort = 5;

inline void MakeCurve(TideState& tides, float step, int hwEntry = 200) {
  tides.UsedPortList = {kPort};
  tides.UsedPortName = {"TESTPORT"};
  tides.PortCurve.assign(1, PortCurveArray{});
  tides.PortTideState.assign(1, PortTideStateRecord{});
  for (int i = 1; i <= 433; ++i) {
    PortCurveEntry& e = tides.PortCurve[0][static_cast<std::size_t>(i)];
    const int minutes = (((i - 145) * 10) % 1440 + 1440) % 1440;
    e.time = static_cast<float>(minutes) / 60.0f;
    e.height = 5.0f - static_cast<float>(std::abs(i - hwEntry)) * step;
  }
  tides.TideDay = kDay;
  tides.TideYear = kYear;
}

// A diamond whose slot n holds direction 10 n, spring 0.2 n, neap 0.1 n.
inline Diamond TableDiamond(float lat, float lon, float sprange, float nprange, float diaRef = 3) {
  Diamond d;
  d.chartNumber = 9999;
  d.DiaRef = diaRef;
  d.RefPort = kPort;
  d.Sprange = sprange;
  d.Nprange = nprange;
  d.lat = lat;
  d.Lon = lon;
  for (int n = 1; n <= 13; ++n) {
    d.Rate(n, kRowDirection) = 10.0f * static_cast<float>(n);
    d.Rate(n, kRowSpring) = 0.2f * static_cast<float>(n);
    d.Rate(n, kRowNeap) = 0.1f * static_cast<float>(n);
  }
  return d;
}

// A diamond with the same stream (direction, and the same spring and neap
// rate) in every slot: every drift through it is plane sailing on paper.
inline Diamond UniformDiamond(float lat, float lon, float direction, float rate) {
  Diamond d = TableDiamond(lat, lon, 2, 1);
  for (int n = 1; n <= 13; ++n) {
    d.Rate(n, kRowDirection) = direction;
    d.Rate(n, kRowSpring) = rate;
    d.Rate(n, kRowNeap) = rate;
  }
  return d;
}

struct StreamWorld {
  TideState tides;
  StreamState streams;
  StreamContext ctx;
  StreamWorld() {
    ctx.tides = &tides;
    ctx.streams = &streams;
  }
  StreamWorld(const StreamWorld&) = delete;
};

}  // namespace kelvane::test
