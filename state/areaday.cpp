#include "state/areaday.h"

#include "streams/tidalstreams.h"

namespace kelvane {

std::string LoadAreaDiamonds(ProgramState& state, std::string_view area) {
  StreamContext ctx = state.Streams();
  return LoadAreaDiamonds(ctx, area);
}

std::string LoadTidesForDay(ProgramState& state, std::int16_t day, std::int16_t year, float hours) {
  StreamContext ctx = state.Streams();
  std::string message = ReloadTides(ctx, day, year);
  state.moment.TideDay = day;
  state.moment.TideYear = year;
  UpdatePortStates(ctx, true, hours);
  return message;
}

std::string LoadAreaForDay(ProgramState& state, std::string_view area, std::int16_t day, std::int16_t year,
                           float hours) {
  if (std::string message = LoadAreaDiamonds(state, area); !message.empty()) return message;
  return LoadTidesForDay(state, day, year, hours);
}

}  // namespace kelvane
