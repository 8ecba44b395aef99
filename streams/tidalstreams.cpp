#include "streams/tidalstreams.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"
#include "streams/streamcaches.h"

namespace kelvane {

// ---------------------------------------------------------------- state

StreamState::StreamState() = default;
StreamState::~StreamState() = default;
StreamState::StreamState(StreamState&&) noexcept = default;
StreamState& StreamState::operator=(StreamState&&) noexcept = default;
StreamState::StreamState(const StreamState& other)
    : Diamonds(other.Diamonds),
      StreamFileDiamonds(other.StreamFileDiamonds),
      StreamNow(other.StreamNow),
      PortRange(other.PortRange),
      UseAccelerators(other.UseAccelerators) {}
StreamState& StreamState::operator=(const StreamState& other) {
  if (this != &other) {
    Diamonds = other.Diamonds;
    StreamFileDiamonds = other.StreamFileDiamonds;
    StreamNow = other.StreamNow;
    PortRange = other.PortRange;
    UseAccelerators = other.UseAccelerators;
    caches.reset();
  }
  return *this;
}

namespace {

StreamCaches& Caches(StreamState& streams) {
  if (!streams.caches) streams.caches = std::make_unique<StreamCaches>();
  return *streams.caches;
}

std::int16_t PortNumber(float refPort) { return RoundToInt16(refPort); }

void AddUsedPort(std::vector<std::int16_t>& list, std::int16_t port) {
  if (std::find(list.begin(), list.end(), port) == list.end()) list.push_back(port);
}

const PortCurveArray* CurveOf(const TideState& tides, int portIndex) {
  if (portIndex < 1 || portIndex > static_cast<int>(tides.PortCurve.size())) return nullptr;
  return &tides.PortCurve[static_cast<std::size_t>(portIndex - 1)];
}

float Height(const PortCurveArray& curve, int i) { return curve[static_cast<std::size_t>(i)].height; }

// "H:MM" back to minutes of the day.
int ClockMinutes(const std::string& text) {
  const auto colon = text.find(':');
  if (colon == std::string::npos) return 0;
  const int hours = static_cast<int>(TextValue(text.substr(0, colon)));
  const int minutes = static_cast<int>(TextValue(text.substr(colon + 1)));
  return hours * 60 + minutes;
}

// The bands of step 8: before HW the minutes count up towards the band's
// end, after HW down, each band an hour wide and centred on a whole hour.
void SlotAndMinutes(bool before, int delta, std::int16_t& slot, std::int16_t& minutes) {
  if (before) {
    if (delta <= 30) {
      slot = 0;
      minutes = static_cast<std::int16_t>(delta + 30);
    } else if (delta <= 390) {
      const int band = (delta - 31) / 60 + 1;  // 31..90 -> 1, 91..150 -> 2, ...
      slot = static_cast<std::int16_t>(-band);
      minutes = static_cast<std::int16_t>(delta - (band * 60 - 30));
    } else {
      slot = -6;
      minutes = 59;
    }
    if (minutes == 60) {
      minutes = 0;
      slot = static_cast<std::int16_t>(slot - 1);
    }
  } else {
    if (delta <= 30) {
      slot = 0;
      minutes = static_cast<std::int16_t>(30 - delta);
    } else if (delta <= 390) {
      const int band = (delta - 31) / 60 + 1;
      slot = static_cast<std::int16_t>(band);
      minutes = static_cast<std::int16_t>(band * 60 + 30 - delta);
    } else {
      slot = 6;
      minutes = 59;
    }
    if (minutes == 60) {
      minutes = 0;
      slot = static_cast<std::int16_t>(slot + 1);
    }
  }
}

// The samples a fingerprint takes of each curve: a spread over the three
// days.
constexpr int kProbes[] = {1, 100, 145, 217, 288, 350, 433};

// Compared by their bits: a NaN sample must still match itself.
std::uint32_t SampleBits(const PortCurveArray& curve, int i) { return std::bit_cast<std::uint32_t>(Height(curve, i)); }

CurveFingerprint FingerprintOf(const TideState& tides) {
  CurveFingerprint f;
  f.day = tides.TideDay;
  f.year = tides.TideYear;
  f.ports = tides.UsedPortList;
  for (const PortCurveArray& curve : tides.PortCurve)
    for (int i : kProbes) f.samples.push_back(SampleBits(curve, i));
  return f;
}

// FingerprintOf(tides) == f, without making one.
bool FingerprintMatches(const CurveFingerprint& f, const TideState& tides) {
  if (f.day != tides.TideDay || f.year != tides.TideYear || f.ports != tides.UsedPortList ||
      f.samples.size() != tides.PortCurve.size() * std::size(kProbes))
    return false;
  std::size_t n = 0;
  for (const PortCurveArray& curve : tides.PortCurve)
    for (int i : kProbes)
      if (f.samples[n++] != SampleBits(curve, i)) return false;
  return true;
}

void StorePortState(StreamContext& ctx, std::size_t p, const HighWaterHour& hw, const PortTideStateRecord& turning) {
  TideState& tides = *ctx.tides;
  PortTideStateRecord& rec = tides.PortTideState[p];
  if (!hw.found) return;  // no high water in reach: the fields stay as they were
  rec.Slot = hw.Slot;
  rec.Minutes = hw.Minutes;
  rec.HwText = hw.HwText;
  rec.RangeText = hw.RangeText;
  rec.PortName = p < tides.UsedPortName.size() ? tides.UsedPortName[p] : std::string();
  if (rec.TurningCount != turning.TurningCount || rec.TurningTime != turning.TurningTime ||
      rec.TurningHeight != turning.TurningHeight) {
    rec.TurningCount = turning.TurningCount;
    rec.TurningTime = turning.TurningTime;
    rec.TurningHeight = turning.TurningHeight;
  }
  ctx.streams->PortRange[p] = hw.Range;
}

}  // namespace

std::string SingleStrText(float value) { return SignedNumberText(TextValue(NumberText(value))); }

// ---------------------------------------------------------------- ports

void SetDiamonds(StreamState& streams, std::vector<Diamond> diamonds) {
  streams.Diamonds = std::move(diamonds);
  if (streams.caches) streams.caches->index = DiamondIndex{};
}

void BuildUsedPorts(TideState& tides, const std::vector<Diamond>& diamonds) {
  tides.UsedPortList.clear();
  for (const Diamond& d : diamonds) AddUsedPort(tides.UsedPortList, PortNumber(d.RefPort));
}

void FindRefPorts(TideState& tides, const std::filesystem::path& programFolder, std::string_view chartSet) {
  auto bytes = ReadFileBytes(StreamFilePath(programFolder, chartSet));
  if (!bytes) return;
  BuildUsedPorts(tides, DiamondsFromBytes(*bytes));
}

// ---------------------------------------------------------------- hour from HW

int MinutesOfDay(float timeHours) {
  const float whole = std::trunc(timeHours);
  const float fraction = timeHours - whole;
  const float minutes = fraction * 60.0f;
  return static_cast<int>(whole) * 60 + static_cast<int>(std::trunc(minutes));
}

HighWaterHour HourFromHighWater(const TideState& tides, int portIndex, int now) {
  HighWaterHour out;
  const PortCurveArray* curvePtr = CurveOf(tides, portIndex);
  if (!curvePtr) return out;
  const PortCurveArray& curve = *curvePtr;
  // Keep the windows inside the three filled days whatever minute is asked.
  now = std::clamp(now, 0, 1439);
  const int k = now / 10 + 145;
  int hw = 0;
  for (int i = k; i <= k + 36 && !hw; ++i)
    if (Height(curve, i) < Height(curve, i + 1) && Height(curve, i + 2) < Height(curve, i + 1)) hw = i + 1;
  if (!hw) {
    for (int i = k + 2; i >= k - 42 && !hw; --i)
      if (Height(curve, i) < Height(curve, i - 1) && Height(curve, i - 2) < Height(curve, i - 1)) {
        hw = i - 1;
        out.behind = true;
      }
  }
  if (!hw) return out;
  out.found = true;
  out.hwSample = hw;

  float highest = -9999.0f, lowest = 9999.0f;
  for (int i = hw - 39; i <= hw + 39; ++i) {
    highest = std::max(highest, Height(curve, i));
    lowest = std::min(lowest, Height(curve, i));
  }
  out.Range = highest - lowest;
  out.RangeText = SingleStrText(out.Range);

  out.HwText = HoursToClock(curve[static_cast<std::size_t>(hw)].time);
  const int hwMinutes = ClockMinutes(out.HwText);

  bool before = false;
  int delta = 0;
  if (std::abs(hwMinutes - now) > 420) {
    // The high water lies across midnight.
    if (now < hwMinutes) {
      before = false;
      delta = now + 1440 - hwMinutes;
    } else {
      before = true;
      delta = hwMinutes + 1440 - now;
    }
  } else if (hwMinutes - now < 1) {
    before = false;
    delta = std::abs(hwMinutes - now);
  } else {
    before = true;
    delta = std::abs(hwMinutes - now);
  }
  SlotAndMinutes(before, delta, out.Slot, out.Minutes);
  return out;
}

void TurningPointsOfDay(const TideState& tides, int portIndex, PortTideStateRecord& record) {
  record.TurningCount = 0;
  record.TurningTime.fill("");
  record.TurningHeight.fill("");
  const PortCurveArray* curvePtr = CurveOf(tides, portIndex);
  if (!curvePtr) return;
  const PortCurveArray& curve = *curvePtr;
  for (int i = 143; i <= 286 && record.TurningCount < 15; ++i) {
    const float h = Height(curve, i), before = Height(curve, i - 1), after = Height(curve, i + 1);
    if ((h > before && h > after) || (h < before && h < after)) {
      const auto n = static_cast<std::size_t>(record.TurningCount);
      record.TurningTime[n] = HoursToClock(curve[static_cast<std::size_t>(i)].time);
      const float rounded = static_cast<float>(RoundToInt(double(h) * 10.0)) / 10.0f;
      record.TurningHeight[n] = NumberText(rounded);
      ++record.TurningCount;
    }
  }
}

namespace {

// The hour table of the curves in hand (made when none matches, the least
// recently used giving way after four), by its place in hourTables.
int HourTableFor(StreamCaches& c, const TideState& tides, std::size_t ports) {
  int found = -1;
  for (std::size_t t = 0; t < c.hourTables.size(); ++t)
    if (c.hourTables[t].hourByMinute.size() == ports && FingerprintMatches(c.hourTables[t].fingerprint, tides))
      found = static_cast<int>(t);
  return found;
}

int MakeHourTable(StreamCaches& c, const TideState& tides, std::size_t ports) {
  std::size_t slot = c.hourTables.size();
  if (slot < 4) {
    c.hourTables.emplace_back();
  } else {
    slot = 0;
    for (std::size_t t = 0; t < c.hourTables.size(); ++t)
      if (c.hourTables[t].lastUse < c.hourTables[slot].lastUse) slot = t;
  }
  StreamCaches::HourTable& table = c.hourTables[slot];
  table.fingerprint = FingerprintOf(tides);
  table.hourByMinute.assign(ports, std::vector<HighWaterHour>(1440));
  table.hourKnown.assign(ports, std::vector<bool>(1440, false));
  table.turning.assign(ports, {});
  table.turningKnown.assign(ports, false);
  return static_cast<int>(slot);
}

// The answer of port p at minute m (0..1439) of the table, worked once.
const HighWaterHour& TableHour(StreamCaches::HourTable& table, const TideState& tides, std::size_t p, int now,
                               std::size_t m) {
  if (!table.hourKnown[p][m]) {
    table.hourByMinute[p][m] = HourFromHighWater(tides, static_cast<int>(p) + 1, now);
    table.hourKnown[p][m] = true;
  }
  return table.hourByMinute[p][m];
}

const PortTideStateRecord& TableTurning(StreamCaches::HourTable& table, const TideState& tides, std::size_t p) {
  if (!table.turningKnown[p]) {
    TurningPointsOfDay(tides, static_cast<int>(p) + 1, table.turning[p]);
    table.turningKnown[p] = true;
  }
  return table.turning[p];
}

// The latest answer that found a high water for used port p (from 0)
// among the lookups a batch holds, or nullptr. Each port's walk goes back
// from the newest lookup and stops at the first found; the lookups it has
// passed are not walked again.
const HighWaterHour* HeldAnswer(StreamCaches& c, const TideState& tides, std::size_t p) {
  if (c.pendingTable < 0 || p >= c.lastFound.size()) return nullptr;
  StreamCaches::HourTable& table = c.hourTables[static_cast<std::size_t>(c.pendingTable)];
  const int end = static_cast<int>(c.heldMinutes.size());
  for (int k = end - 1; k >= c.examined[p]; --k) {
    const int m = c.heldMinutes[static_cast<std::size_t>(k)];
    if (TableHour(table, tides, p, m, static_cast<std::size_t>(m)).found) {
      c.lastFound[p] = k;
      break;
    }
  }
  c.examined[p] = end;
  if (c.lastFound[p] < 0) return nullptr;
  return &table.hourByMinute[p][static_cast<std::size_t>(c.heldMinutes[static_cast<std::size_t>(c.lastFound[p])])];
}

// Writes the port states a batch holds back.
void SettlePortStates(StreamContext& ctx) {
  if (!ctx.streams->caches) return;
  StreamCaches& c = *ctx.streams->caches;
  if (c.pendingTable < 0) return;
  StreamCaches::HourTable& table = c.hourTables[static_cast<std::size_t>(c.pendingTable)];
  for (std::size_t p = 0; p < c.lastFound.size(); ++p)
    if (const HighWaterHour* hw = HeldAnswer(c, *ctx.tides, p))
      StorePortState(ctx, p, *hw, TableTurning(table, *ctx.tides, p));
  c.pendingTable = -1;
  c.heldMinutes.clear();
  c.lastFound.clear();
  c.examined.clear();
}

// UpdatePortStates with the minute worked out. `defer` (inside a batch)
// notes the minute instead of writing the ports.
void UpdatePorts(StreamContext& ctx, int now, bool defer) {
  TideState& tides = *ctx.tides;
  StreamState& streams = *ctx.streams;
  const std::size_t ports = std::min(tides.UsedPortList.size(), tides.PortCurve.size());
  if (tides.PortTideState.size() < ports) tides.PortTideState.resize(ports);
  if (streams.PortRange.size() < ports) streams.PortRange.resize(ports, 0.0f);

  if (!streams.UseAccelerators) {
    for (std::size_t p = 0; p < ports; ++p) {
      PortTideStateRecord turning;
      TurningPointsOfDay(tides, static_cast<int>(p) + 1, turning);
      StorePortState(ctx, p, HourFromHighWater(tides, static_cast<int>(p) + 1, now), turning);
    }
    return;
  }

  StreamCaches& c = Caches(streams);
  if (!defer) SettlePortStates(ctx);
  // Within a batch the curves change only by a reload, which forgets the
  // table; otherwise they are recognised by their fingerprint.
  int t = defer && c.batchTable >= 0 &&
                  c.hourTables[static_cast<std::size_t>(c.batchTable)].hourByMinute.size() == ports
              ? c.batchTable
              : HourTableFor(c, tides, ports);
  if (t != c.pendingTable) SettlePortStates(ctx);  // before a table can give way
  if (t < 0) t = MakeHourTable(c, tides, ports);
  if (defer) c.batchTable = t;
  StreamCaches::HourTable& table = c.hourTables[static_cast<std::size_t>(t)];
  table.lastUse = ++c.uses;
  const int m = std::clamp(now, 0, 1439);
  if (defer) {
    // Only the minute is noted: a port's answer is worked when it is asked
    // for or when the batch settles.
    if (c.pendingTable != t) {
      c.pendingTable = t;
      c.lastFound.assign(ports, -1);
      c.examined.assign(ports, 0);
    }
    c.heldMinutes.push_back(m);
    return;
  }
  for (std::size_t p = 0; p < ports; ++p)
    StorePortState(ctx, p, TableHour(table, tides, p, m, static_cast<std::size_t>(m)), TableTurning(table, tides, p));
}

// The slot, minutes and range of used port p (from 0) as the port states
// hold them, or would once a batch settles.
struct PortNow {
  std::int16_t Slot = 0, Minutes = 0;
  float range = 0;
};

PortNow PortStateNow(const StreamContext& ctx, std::size_t p) {
  if (StreamCaches* c = ctx.streams->caches.get())
    if (const HighWaterHour* hw = HeldAnswer(*c, *ctx.tides, p)) return {hw->Slot, hw->Minutes, hw->Range};
  const PortTideStateRecord& state = ctx.tides->PortTideState[p];
  return {state.Slot, state.Minutes, p < ctx.streams->PortRange.size() ? ctx.streams->PortRange[p] : 0.0f};
}

}  // namespace

void UpdatePortStates(StreamContext& ctx, bool useGivenTime, float timeHours, int clockMinutes) {
  UpdatePorts(ctx, useGivenTime ? MinutesOfDay(timeHours) : clockMinutes, false);
}

StreamBatch::StreamBatch(StreamContext& ctx) : ctx_(ctx) {
  if (!ctx.streams->UseAccelerators) return;
  ++Caches(*ctx.streams).batchDepth;
  active_ = true;
}

StreamBatch::~StreamBatch() {
  if (!active_ || !ctx_.streams->caches) return;
  StreamCaches& c = *ctx_.streams->caches;
  if (--c.batchDepth > 0) return;
  SettlePortStates(ctx_);
  c.batchTable = -1;
}

// ---------------------------------------------------------------- lookup

std::string ZeroRangeMessage(bool display) {
  return display ? "CalculateTidalStreams\r\nDivide by Zero (Diamond(iCount)Sprange - Diamond(iCount).Nprange)"
                 : "CalculateTidalStreams\r\nDivide by Zero (Diamond(intDiaNo)Sprange - Diamond(intDiaNo).Nprange)";
}

NearestDiamond FindNearestDiamond(StreamState& streams, float lat, float lon) {
  if (streams.UseAccelerators) {
    StreamCaches& c = Caches(streams);
    if (!c.index.Matches(streams.Diamonds)) c.index.Build(streams.Diamonds);
    return c.index.Nearest(streams.Diamonds, lat, lon, kStreamReachMiles);
  }
  NearestDiamond best;
  for (int i = 0; i < static_cast<int>(streams.Diamonds.size()); ++i) {
    const Diamond& d = streams.Diamonds[static_cast<std::size_t>(i)];
    const float r = RangeBearing(lat, lon, d.lat, d.Lon).range;
    if (r < best.range) {
      best.range = r;
      best.index = i;
    }
  }
  return best;
}

std::string ReloadTides(StreamContext& ctx, std::int16_t day, std::int16_t year) {
  TideState& tides = *ctx.tides;
  SettlePortStates(ctx);
  if (ctx.streams->caches) ctx.streams->caches->batchTable = -1;
  if (!ctx.streams->UseAccelerators) return InitialiseTides(tides, ctx.programFolder, day, year, ctx.summerTime);
  if (day == 0 || year == 0) {
    day = tides.TideDay;
    year = tides.TideYear;
  }
  StreamCaches& c = Caches(*ctx.streams);
  StreamCaches::CurveKey key{ctx.programFolder.string(), ctx.summerTime, day, year, tides.UsedPortList};
  auto it = c.curves.find(key);
  if (it != c.curves.end()) {
    const CurveSnapshot& s = it->second;
    tides.RefPortList = s.RefPortList;
    tides.UsedPortName = s.UsedPortName;
    tides.PortDayCurve = s.PortDayCurve;
    tides.PortCurve = s.PortCurve;
    tides.PortTideState.assign(tides.PortCurve.size(), PortTideStateRecord{});
    tides.TideDay = day;
    tides.TideYear = year;
    return "";
  }
  std::string message = InitialiseTides(tides, ctx.programFolder, day, year, ctx.summerTime);
  if (message.empty()) {
    if (c.curves.size() >= 16) c.curves.erase(c.curves.begin());
    c.curves.emplace(std::move(key),
                     CurveSnapshot{tides.RefPortList, tides.UsedPortName, tides.PortDayCurve, tides.PortCurve});
  }
  return message;
}

namespace {

// Steps 6 to 11 for one diamond at the state of its port. `display` picks
// the stream layer's differences. Returns false on the zero range.
struct Interpolated {
  float rate = 0, direction = 0;
  int n = 0;
  bool portFound = false;
  bool zeroRange = false;
};

Interpolated Interpolate(const StreamContext& ctx, const Diamond& d, bool display) {
  Interpolated out;
  const TideState& tides = *ctx.tides;
  const std::int16_t port = PortNumber(d.RefPort);
  std::size_t p = 0;
  while (p < tides.UsedPortList.size() && tides.UsedPortList[p] != port) ++p;
  if (p >= tides.UsedPortList.size() || p >= tides.PortTideState.size()) return out;
  out.portFound = true;
  const PortNow state = PortStateNow(ctx, p);
  const int n = state.Slot + 7;
  int next = n + 1;
  if (next == 14) next = 1;
  const int first = std::clamp(n, 0, 13), second = std::clamp(next, 0, 13);
  const float d1 = d.Rate(first, kRowDirection), s1 = d.Rate(first, kRowSpring), p1 = d.Rate(first, kRowNeap);
  const float d2 = d.Rate(second, kRowDirection), s2 = d.Rate(second, kRowSpring), p2 = d.Rate(second, kRowNeap);
  const bool noFirst = (d1 + s1 + p1) == 0.0f;
  const bool noSecond = (d2 + s2 + p2) == 0.0f;

  float range = state.range;
  if (range >= d.Nprange && range <= d.Sprange) {
  } else if (range > d.Sprange) {
    range = d.Sprange;
  } else if (range < d.Nprange) {
    range = d.Nprange;
  }
  const float spread = d.Sprange - d.Nprange;
  if (spread == 0.0f) {
    out.zeroRange = true;
    return out;
  }
  const float K = (range - d.Nprange) / spread;
  float r1 = p1 + K * (s1 - p1);
  const float r2 = p2 + K * (s2 - p2);
  if (display) r1 = static_cast<float>(std::floor(double(r1 * 100.0f))) / 100.0f;
  const float minutesLeft = static_cast<float>(60 - state.Minutes);
  out.rate = r1 - ((r1 - r2) / 60.0f) * minutesLeft;
  float direction = state.Minutes >= 30 ? d1 : d2;
  if (noSecond) direction = d1;
  if (noFirst) direction = d2;
  out.direction = direction;
  out.n = n;
  return out;
}

// DiamondText of diamond i through the labels cache.
const std::string& DiamondLabel(StreamCaches& c, const std::vector<Diamond>& diamonds, std::size_t i) {
  if (c.labels.size() != diamonds.size()) c.labels.assign(diamonds.size(), {});
  StreamCaches::DiamondLabel& label = c.labels[i];
  const Diamond& d = diamonds[i];
  const auto chart = std::bit_cast<std::uint32_t>(d.chartNumber), ref = std::bit_cast<std::uint32_t>(d.DiaRef);
  if (!label.made || label.chartNumberBits != chart || label.diaRefBits != ref) {
    label.text = DiamondText(d);
    label.chartNumberBits = chart;
    label.diaRefBits = ref;
    label.made = true;
  }
  return label.text;
}

}  // namespace

std::string DiamondText(const Diamond& d) { return NumberText(d.chartNumber) + ", " + NumberText(d.DiaRef); }

std::string TidalStreamAt(StreamContext& ctx, float lat, float lon, float timeHours, std::int16_t day,
                          std::int16_t year, StreamAnswer& answer) {
  StreamState& streams = *ctx.streams;
  TideState& tides = *ctx.tides;
  if (streams.Diamonds.empty()) return "";
  if (day != tides.TideDay || year != tides.TideYear) {
    std::string message = ReloadTides(ctx, day, year);
    if (!message.empty()) return message;
  }
  const bool batch = streams.UseAccelerators && streams.caches && streams.caches->batchDepth > 0;
  UpdatePorts(ctx, MinutesOfDay(timeHours), batch);

  const NearestDiamond nearest = FindNearestDiamond(streams, lat, lon);
  if (nearest.index < 0 || nearest.range > kStreamReachMiles) {
    answer.Rate = 0;
    answer.Direction = 0;
    answer.Slot = 0;
    answer.DiamondText = "NONE";
    return "";
  }
  const Diamond& d = streams.Diamonds[static_cast<std::size_t>(nearest.index)];
  const Interpolated s = Interpolate(ctx, d, false);
  if (!s.portFound) return "";
  answer.DiamondText = streams.UseAccelerators
                           ? DiamondLabel(Caches(streams), streams.Diamonds, static_cast<std::size_t>(nearest.index))
                           : DiamondText(d);
  if (s.zeroRange) return ZeroRangeMessage(false);
  answer.Rate = s.rate;
  answer.Direction = s.direction;
  answer.Slot = static_cast<std::int16_t>(s.n - 7);
  return "";
}

StreamsNow CalculateTidalStreams(StreamContext& ctx) {
  StreamsNow result;
  SettlePortStates(ctx);
  StreamState& streams = *ctx.streams;
  streams.StreamNow.clear();
  for (const Diamond& d : streams.Diamonds) {
    const Interpolated s = Interpolate(ctx, d, true);
    if (s.zeroRange) {
      result.message = ZeroRangeMessage(true);
      break;
    }
    DiamondStreamNow now;
    std::string label = NumberText(d.chartNumber) + "-" + NumberText(d.DiaRef);
    label.resize(10, ' ');
    now.Label = label;
    now.chartNumber = d.chartNumber;
    now.Lat = d.lat;
    now.Lon = d.Lon;
    if (s.portFound) {
      now.Rate = static_cast<float>(TextValue(FormatNumber(s.rate, "0.0")));
      now.Direction = s.direction;
      now.Radians = static_cast<float>(double(s.direction) * kDegToRadShort);
      const PortTideStateRecord* state = nullptr;
      for (std::size_t p = 0; p < ctx.tides->UsedPortList.size(); ++p)
        if (ctx.tides->UsedPortList[p] == PortNumber(d.RefPort) && p < ctx.tides->PortTideState.size())
          state = &ctx.tides->PortTideState[p];
      int slot = s.n;
      if (state) slot = state->Minutes >= 30 ? slot - 1 : slot + 1;
      if (slot < 1) slot = 13;
      now.Slot = static_cast<std::int16_t>(slot);
    }
    streams.StreamNow.push_back(now);
    ++result.Count;
  }
  return result;
}

}  // namespace kelvane

namespace kelvane {

std::string LoadAreaDiamonds(StreamContext& ctx, std::string_view area) {
  DiamondsRead read = ReadDiamondsFromDatabase(ctx.programFolder, area);
  SetDiamonds(*ctx.streams, std::move(read.diamonds));
  BuildUsedPorts(*ctx.tides, ctx.streams->Diamonds);
  return read.message;
}

}  // namespace kelvane
