#include "passage/departuresweep.h"

#include <algorithm>

#include "core/format.h"
#include "core/positions.h"
#include "core/timetext.h"

namespace kelvane {

SlotHours HoursOfSlot(int slot) {
  if (slot < 1 || slot > static_cast<int>(kSweepSlots.size())) return {};
  const SweepSlot& s = kSweepSlots[static_cast<std::size_t>(slot - 1)];
  return {s.firstHour, s.lastHour};
}

std::string SweepHeaderLine() {
  return "Depart\tArrive\tTime Taken\tEffective Speed\tGround Distance\tWater Distance";
}

std::vector<std::string> CourseToSteerLines(const OptRow& row) {
  std::vector<std::string> lines;
  lines.push_back("Depart " + HoursToClockCoarse(row.Depart) + " - courses to steer, degrees TRUE");
  lines.push_back("(not corrected for variation or leeway)");
  for (std::size_t i = 0; i < row.CourseToSteer.size(); ++i)
    lines.push_back("Leg " + std::to_string(i + 1) + "\t" + FormatNumber(row.CourseToSteer[i], "000") + "°T");
  return lines;
}

SweepOutcome SweepDepartures(StreamContext& ctx, PassageState& live, const SweepInput& in, const SweepHooks& hooks) {
  SweepOutcome out;
  auto note = [&](const std::string& text) {
    if (!text.empty() && std::find(out.messages.begin(), out.messages.end(), text) == out.messages.end())
      out.messages.push_back(text);
  };
  auto restoreTides = [&] {
    if (ctx.tides->TideDay != in.Day || ctx.tides->TideYear != in.Year) note(ReloadTides(ctx, in.Day, in.Year));
    UpdatePortStates(ctx, true, in.WorkingTime);
  };

  const int count = RouteCount(live);
  if (count < 2) {
    out.messages.push_back(RouteTooShortMessage());
    return out;
  }
  const SpeedCheck speeds = CheckRouteSpeeds(live, hooks.askYesNo);
  switch (speeds.verdict) {
    case SpeedVerdict::Go:
      break;
    case SpeedVerdict::Refused:
      out.messages.push_back(speeds.message);
      return out;
    case SpeedVerdict::Declined:
      out.verdict = SweepVerdict::Declined;
      return out;
  }

  // The stores are worked on a copy: a stop or a Cancel leaves them as
  // they were.
  PassageState s = live;
  const SlotHours hours = HoursOfSlot(in.Slot);
  const std::string dateText = ReportDateText(in.Day, in.Year);
  s.ResultText = {"RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE", "   ",
                  "Optimum Departure for " + dateText, " ", SweepHeaderLine()};
  s.SummaryText = {"Optimum Departure for " + dateText};
  s.LegChart = {};
  s.LegResults.clear();
  s.RouteDistance = RouteDistanceOf(s);

  const SolverSettings solver{in.CalcInterval, in.AcceptableError, in.WorkingTime};
  const int rowsInAll = hours.last - hours.first + 1;
  for (int hour = hours.first; hour <= hours.last; ++hour) {
    // Every departure starts from the tides of the working day, whatever
    // day the hour before ended on.
    note(ReloadTides(ctx, in.Day, in.Year));
    UpdatePortStates(ctx, true, in.WorkingTime);
    s.RouteCog.assign(1, CogPoint{});
    s.RouteStreams.assign(1, StreamSample{});

    OptRow row;
    row.Depart = static_cast<float>(hour);
    PassageMoment at{row.Depart, in.Day, in.Year};
    Arrival arrival;
    float lastSpeed = 0;
    for (int i = 1; i < count; ++i) {
      if (hooks.pump && hooks.pump() == SweepPump::Cancel) {
        restoreTides();
        out.verdict = SweepVerdict::Cancelled;
        out.rows.clear();
        out.rowLines.clear();
        return out;
      }
      const LegRun run = RunRouteLeg(ctx, s, solver, i, at);
      for (const std::string& notice : run.leg.notices) note(notice);
      if (!run.leg.ok) {
        restoreTides();
        out.messages.push_back(run.leg.message);
        out.rows.clear();
        out.rowLines.clear();
        return out;
      }
      row.TimeTaken += run.leg.TimeTaken;
      row.GroundDistance += run.leg.TrackDistance;
      row.CourseToSteer.push_back(run.leg.CourseToSteer);
      lastSpeed = s.Route[static_cast<std::size_t>(i)].Speed;
      arrival = run.arrival;
      at = run.next;
    }
    row.WaterDistance = row.TimeTaken * lastSpeed;
    row.EffectiveSpeed = row.TimeTaken == 0.0f ? 0.0f : s.RouteDistance / row.TimeTaken;

    std::string line = HoursToClockCoarse(row.Depart) + "\t" + arrival.text + "\t" + HoursToSpan(row.TimeTaken) +
                       "\t" + FormatNumber(row.EffectiveSpeed, "0.0") + "kt." + "\t" +
                       FormatNumber(row.GroundDistance, "0.00") + "nm." + "\t" +
                       FormatNumber(row.WaterDistance, "0.00") + "nm.";
    s.ResultText.push_back(line);
    out.rowLines.push_back(std::move(line));
    out.rows.push_back(std::move(row));
    if (hooks.progress) hooks.progress(static_cast<int>(out.rows.size()), rowsInAll);
  }
  restoreTides();

  const std::string rule = "=========================================";
  s.ResultText.push_back("");
  s.ResultText.push_back(rule);
  s.ResultText.push_back("");
  s.ResultText.push_back("Route Details - Distance = " + FormatNumber(s.RouteDistance, "0.0") + "nm.");
  s.ResultText.push_back("");
  for (int i = 1; i < count; ++i) {
    const RoutePoint& a = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = s.Route[static_cast<std::size_t>(i + 1)];
    const RangeAndBearing rb = RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon);
    s.ResultText.push_back("From :" + a.Name);
    s.ResultText.push_back("To :" + b.Name);
    s.ResultText.push_back("Speed : " + NumberText(a.Speed) + " Kn. " + "Range = " + FormatNumber(rb.range, "0.0") +
                           " Bearing = " + FormatNumber(rb.bearing, "000") + "°T");
  }
  s.ResultText.push_back(rule);
  s.ResultText.push_back("Reference Port predictions for the areas Tidal Diamonds ");
  for (const std::string& l : ReferencePortLines(*ctx.tides)) s.ResultText.push_back(l);

  s.SweptHours.clear();
  for (const OptRow& row : out.rows) s.SweptHours.push_back({row.Depart, row.TimeTaken});
  live = std::move(s);
  out.verdict = SweepVerdict::Completed;
  return out;
}

}  // namespace kelvane
