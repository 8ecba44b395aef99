// The route's wind from the wind store: the Wind menu's "Use Stored Wind for
// Route". Each leg takes the forecast of the nearest grid point at its start
// position, in the 3-hour slot of the moment the boat leaves that point.
//
// The moment of leg i is the calculation's start (the working day, year and
// time) plus the time used by the legs before it: their LegTime and the
// stop at each leg's end (StopMinutes / 60), carried forward with AddHours
// as the route calculation carries its clock. A route not yet calculated
// has no leg times, so every leg is asked at the start moment.
//
// Times are the store's: UTC. The program holds no time zone, so the
// working time is taken as UTC here.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "core/windconfig.h"
#include "core/workingtime.h"
#include "passage/passagestate.h"
#include "state/programstate.h"
#include "wind/windstore.h"

namespace kelvane {

// One leg asked of the store.
struct LegWindLookup {
  int leg = 0;             // leg i runs from Route[i] to Route[i + 1]
  std::int16_t day = 0;    // day of the year the leg starts
  std::int16_t year = 0;
  float hours = 0;         // time of day it starts, decimal hours
  bool found = false;      // the store covers the leg's start: LegWind becomes `wind`
  WindSlot wind;           // meaningful only when found
};

struct [[nodiscard]] RouteWindOutcome {
  std::vector<LegWindLookup> legs;  // every leg in order
  // kRouteWindCoverageMessage, once, when any leg is not covered (that leg
  // keeps the wind it had); "" when all are.
  std::string message;
};

// Walks the legs of the route (none for a route of fewer than two points).
RouteWindOutcome RouteWindFromStore(const PassageState& passage, const WorkingMoment& start,
                                    std::span<const WindRecord> store);

// mnuSmartMet: UseSmartMet flips (0 / -1) and the settings file is written
// at once. Switched on with a route of at least one leg, the store of the
// last import is read and the legs walked.
struct [[nodiscard]] StoredWindSwitch {
  bool on = false;              // UseSmartMet after the flip
  std::string settingsMessage;  // "" or why the settings file was not written
  bool routeWalked = false;     // on, with at least one leg: `route` holds the legs
  RouteWindOutcome route;
};
StoredWindSwitch SwitchStoredWind(ProgramState& state);

// A point just added at the end of the route: with the stored wind in use
// and a store that holds winds, the new last leg takes the forecast at its
// start. A leg the store does not cover keeps the wind it had and the route
// tools' message is given. Nothing is asked with the stored wind off or
// before any import, so that building a route without GRIB data raises no
// message at every click.
struct [[nodiscard]] NewLegWind {
  bool asked = false;   // the store was asked about the last leg
  LegWindLookup leg;    // the last leg, when asked
  std::string message;  // kRouteWindCoverageMessage when asked and not covered
};
NewLegWind WindForNewLastLeg(const ProgramState& state);

}  // namespace kelvane
