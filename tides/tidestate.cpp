#include "tides/tidestate.h"

namespace kelvane {

const HarmonicPortRecord* RefPort(const TideState& state, int recordNo) {
  if (recordNo < 1 || recordNo > static_cast<int>(state.RefPortList.size())) return nullptr;
  return &state.RefPortList[static_cast<std::size_t>(recordNo - 1)];
}

std::string RefPortsMissingMessage(const std::filesystem::path& programFolder) {
  return " Reference ports file in " + (programFolder / "Refports.hc").string() + "\n" + "Cannot be opened.";
}

std::string InitialiseTides(TideState& state, const std::filesystem::path& programFolder, std::int16_t day,
                            std::int16_t year, bool summerTime) {
  state.RefPortList.clear();
  state.UsedPortName.clear();
  state.PortDayCurve.clear();
  state.PortCurve.clear();
  state.PortTideState.clear();
  if (day == 0 || year == 0) {
    day = state.TideDay;
    year = state.TideYear;
  }
  state.TideDay = day;
  state.TideYear = year;

  const std::filesystem::path file = programFolder / "Refports.hc";
  auto records = ReadHarmonicFile(file, NameLayout::kReference35);
  if (!records) return RefPortsMissingMessage(programFolder);
  state.RefPortList = std::move(*records);

  for (std::int16_t recordNo : state.UsedPortList) {
    const HarmonicPortRecord* port = RefPort(state, recordNo);
    if (!port) return "InitialiseTidesError Subscript out of range";
    state.UsedPortName.push_back(port->PortName);
  }

  const std::size_t used = state.UsedPortList.size();
  state.PortDayCurve.resize(used);
  state.PortCurve.resize(used);
  state.PortTideState.resize(used);
  for (std::size_t i = 0; i < used; ++i) {
    const HarmonicPortRecord& port = *RefPort(state, state.UsedPortList[i]);
    PortCurveArray& curve = state.PortCurve[i];
    DayCurve& dayCurve = state.PortDayCurve[i];
    // The day before, the day, and the day after with its own midnight.
    struct Piece {
      int dayOffset, samples, firstEntry;
    };
    static constexpr Piece kPieces[] = {{-1, 144, 1}, {0, 144, 145}, {1, 145, 289}};
    for (const Piece& piece : kPieces) {
      dayCurve = RefPortDayCurve(port, year, static_cast<std::int16_t>(day + piece.dayOffset), summerTime);
      for (int j = 1; j <= piece.samples; ++j) {
        PortCurveEntry& entry = curve[static_cast<std::size_t>(piece.firstEntry + j - 1)];
        entry.time = dayCurve.time[static_cast<std::size_t>(j)];
        entry.height = dayCurve.height[static_cast<std::size_t>(j)];
      }
    }
  }
  return "";
}

}  // namespace kelvane
