#include "state/routewind.h"

#include "core/timetext.h"
#include "state/settingsroad.h"

namespace kelvane {

RouteWindOutcome RouteWindFromStore(const PassageState& passage, const WorkingMoment& start,
                                    std::span<const WindRecord> store) {
  RouteWindOutcome out;
  const int count = RouteCount(passage);
  std::int16_t day = start.WorkingDay, year = start.WorkingYear;
  float time = start.WorkingTime;
  bool uncovered = false;
  for (int i = 1; i < count; ++i) {
    const RoutePoint& from = passage.Route[static_cast<std::size_t>(i)];
    LegWindLookup leg;
    leg.leg = i;
    leg.day = day;
    leg.year = year;
    leg.hours = time;
    // A day the calendar does not know finds nothing: the leg keeps its wind.
    if (std::optional<DateOfYear> date = DayToDate(day, year)) {
      const WindLookup w = LookupWind(store, from.Lat, from.Lon, date->month, date->dayOfMonth, year, time);
      leg.found = w.found;
      if (w.found) leg.wind = WindSlot{w.speed, w.direction};
    }
    uncovered = uncovered || !leg.found;
    out.legs.push_back(leg);
    // The clock runs on through the leg and any stop at its end.
    const RoutePoint& to = passage.Route[static_cast<std::size_t>(i + 1)];
    const Arrival next = AddHours(day, year, time, from.LegTime + static_cast<float>(to.StopMinutes) / 60.0f);
    day = next.day;
    year = next.year;
    time = next.time;
  }
  if (uncovered) out.message = kRouteWindCoverageMessage;
  return out;
}

StoredWindSwitch SwitchStoredWind(ProgramState& state) {
  StoredWindSwitch out;
  const std::int16_t flag = state.settings.UseSmartMet != 0 ? 0 : -1;
  out.settingsMessage = UpdateSettings(state, [flag](SettingsRecord& r) { r.UseSmartMet = flag; });
  out.on = flag != 0;
  if (!out.on || RouteCount(state.passage) < 2) return out;
  // One reading of the store serves every leg: nothing replaces it between them.
  const std::vector<WindRecord> store = ReadWindStore(state.folders.WindStoreFile());
  out.routeWalked = true;
  out.route = RouteWindFromStore(state.passage, state.moment, store);
  return out;
}

NewLegWind WindForNewLastLeg(const ProgramState& state) {
  NewLegWind out;
  if (state.settings.UseSmartMet == 0 || RouteCount(state.passage) < 2) return out;
  const std::vector<WindRecord> store = ReadWindStore(state.folders.WindStoreFile());
  if (store.size() < 2) return out;  // the header alone: nothing imported
  RouteWindOutcome route = RouteWindFromStore(state.passage, state.moment, store);
  if (route.legs.empty()) return out;
  out.asked = true;
  out.leg = route.legs.back();
  if (!out.leg.found) out.message = kRouteWindCoverageMessage;
  return out;
}

}  // namespace kelvane
