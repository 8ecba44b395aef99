// The departure sweep: the whole route worked from every whole hour of a
// slot of the working day, so that the skipper can see which departure the
// tide favours. Brute force: every hour is a full route calculation, each
// leg through the leg solver with the clock carried on as the route
// calculation carries it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "passage/legsolver.h"
#include "passage/passagestate.h"
#include "passage/routecalc.h"
#include "streams/tidalstreams.h"

namespace kelvane {

// One departure hour.
struct OptRow {
  float Depart = 0;          // decimal hours of the working day
  float TimeTaken = 0;       // hours: the sum of the legs' times (stops not counted)
  float GroundDistance = 0;  // miles: the sum of the legs' track distances
  // Miles: TimeTaken times the speed of the last leg run, whatever the
  // other legs' speeds. A rough "miles through the water" for a boat of
  // one speed; with legs of different speeds it is only that leg's figure.
  float WaterDistance = 0;
  float EffectiveSpeed = 0;  // knots: RouteDistance / TimeTaken (0 for no time)
  std::vector<float> CourseToSteer;  // per leg from leg 1, degrees TRUE (no variation, no leeway)
  bool operator==(const OptRow&) const = default;
};

// The five slots of the form, 1 to 5. The third starts at 12 although its
// caption says 13:00: the sweep starts an hour before the words say.
struct SweepSlot {
  const char* option;   // the form's option button
  const char* caption;
  int firstHour;
  int lastHour;
};
inline constexpr std::array<SweepSlot, 5> kSweepSlots{{
    {"Option1", "Midnight to 07:00hrs", 0, 7},
    {"Option2", "06:00hrs to 13:00hrs", 6, 13},
    {"Option3", "13:00hrs to 19:00 hrs", 12, 19},
    {"Option4", "18:00hrs to 23:00 hrs", 18, 23},
    {"Option5", "Full 24 hours", 0, 23},
}};

struct SweepInput {
  int Slot = 0;             // 1..5; any other value sweeps from hour 0 to hour 0
  std::int16_t Day = 1;     // the working day and year: every departure is on it
  std::int16_t Year = 2000;
  float WorkingTime = 0;    // the working moment's hours (the tides are put back to it)
  float CalcInterval = 5.0f;
  float AcceptableError = 1.0f;
};

// What the pump of events says at each step of the sweep.
enum class SweepPump { Go, Cancel };

struct SweepHooks {
  // The low-speed question; true is Yes. Without one the answer is Yes.
  std::function<bool(const std::string&)> askYesNo;
  // Before every leg of every hour (the first leg of an hour is the start
  // of its row): the place to pump events. Cancel stops the sweep there,
  // so a Cancel is honoured before the row in hand is done with more than
  // one leg.
  std::function<SweepPump()> pump;
  // After each row: rows done, rows in all.
  std::function<void(int, int)> progress;
};

enum class SweepVerdict {
  Completed,  // rows, ResultText and SummaryText are written
  Refused,    // a message stopped the sweep before or during it; the stores are as they were
  Declined,   // No to the low-speed question
  Cancelled,  // the pump said Cancel; the stores are as they were
};

struct [[nodiscard]] SweepOutcome {
  SweepVerdict verdict = SweepVerdict::Refused;
  std::vector<OptRow> rows;
  std::vector<std::string> rowLines;  // each row's line of the report, as lstResults lists them
  std::vector<std::string> messages;  // to show in order (stream notices, then any stop)
};

// The first and last hour of a slot (0 and 0 for an unknown slot).
struct SlotHours {
  int first = 0;
  int last = 0;
};
SlotHours HoursOfSlot(int slot);

// The head line of the rows: "Depart", "Arrive", "Time Taken",
// "Effective Speed", "Ground Distance", "Water Distance", tab separated.
std::string SweepHeaderLine();

// cmdOptimise. Every leg's speed is tested first (the last point's too).
// For each hour of the slot the tides of the working day are loaded afresh
// and the legs are worked from that hour on the working day; the clock
// runs on by each leg's time and the stop at its end, into the next day
// (and the next year) when the passage runs past midnight. A leg that
// misses its destination does not stop the sweep: its row carries the time
// the solver gave, and the route is not moved. On completion ResultText is
// the sweep's report and SummaryText its date line; RouteCog and
// RouteStreams hold the track of the last hour's run; the route itself is
// untouched. The tides are left for the working day.
SweepOutcome SweepDepartures(StreamContext& ctx, PassageState& s, const SweepInput& in, const SweepHooks& hooks = {});

// The pop-up of one row: the course to steer on each leg for that
// departure, true bearings as the sweep keeps them.
std::vector<std::string> CourseToSteerLines(const OptRow& row);

}  // namespace kelvane
