#include "passage/passageplan.h"

#include <algorithm>
#include <optional>

#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"
#include "core/timetext.h"
#include "tides/almanac.h"
#include "tides/harmonicfile.h"

namespace kelvane {

namespace {

PlanStream StreamAt(const PassageState& s, int index) {
  PlanStream out;
  if (index < 1 || index >= static_cast<int>(s.RouteStreams.size())) return out;
  const StreamSample& sample = s.RouteStreams[static_cast<std::size_t>(index)];
  out.known = true;
  out.Clock = HoursToClockCoarse(sample.Time);
  out.Rate = FormatNumber(sample.Rate, "0.0") + "kn";
  out.Set = FormatNumber(sample.Direction, "000") + "°T";
  out.Source = sample.Source;
  return out;
}

// The used-port positions (from 1) of the reference ports whose diamonds
// named the route's stream samples, in the order the route met them.
std::vector<int> PortsOfRoute(const PassageState& s, const TideState& tides, const StreamState& streams) {
  std::vector<std::string> seen;
  std::vector<int> ports;
  for (std::size_t k = 1; k < s.RouteStreams.size(); ++k) {
    const std::string& source = s.RouteStreams[k].Source;
    if (source.empty() || source == "NONE" ||
        std::find(seen.begin(), seen.end(), source) != seen.end())
      continue;
    seen.push_back(source);
    for (const Diamond& d : streams.Diamonds) {
      if (DiamondText(d) != source) continue;
      const auto record = static_cast<std::int16_t>(d.RefPort);
      const auto used = std::find(tides.UsedPortList.begin(), tides.UsedPortList.end(), record);
      if (used == tides.UsedPortList.end()) break;
      const int position = static_cast<int>(used - tides.UsedPortList.begin()) + 1;
      if (std::find(ports.begin(), ports.end(), position) == ports.end()) ports.push_back(position);
      break;
    }
  }
  return ports;
}

std::string PlaceName(const RoutePoint& p) {
  const std::string name = Trim(p.Name);
  return name.empty() ? LatToText(p.Lat) + " " + LonToText(p.Lon) : name;
}

}  // namespace

std::string NoCalculatedRouteMessage() { return "Calculate the route first: there are no results to plan from."; }

PlanBuild BuildPassagePlan(const PassageState& s, const TideState& tides, const StreamState& streams,
                           bool summerTime) {
  PlanBuild out;
  const int count = RouteCount(s);
  if (count < 2 || s.ResultText.size() < 7 || static_cast<int>(s.LegResults.size()) != count - 1) {
    out.message = NoCalculatedRouteMessage();
    return out;
  }
  PassagePlan& plan = out.plan;
  const LegResult& first = s.LegResults.front();
  plan.Title = "Passage Plan";
  if (auto date = DayToDate(first.StartDay, first.StartYear))
    plan.DateText = std::to_string(date->dayOfMonth) + " " + date->monthName + " " + std::to_string(first.StartYear);
  plan.Departure = "Depart " + first.StartText + " from " + PlaceName(s.Route[1]);
  plan.Arrival = "Arrive " + s.LegResults.back().ArrivalText + " at " +
                 PlaceName(s.Route[static_cast<std::size_t>(count)]);
  plan.Warnings.push_back(s.ResultText[0]);
  if (!Trim(s.ResultText[1]).empty()) plan.Warnings.push_back(s.ResultText[1]);
  for (const std::string& line : s.SummaryText)
    if (!Trim(line).empty()) plan.Summary.push_back(line);

  for (int i = 1; i < count; ++i) {
    const RoutePoint& a = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = s.Route[static_cast<std::size_t>(i + 1)];
    const LegResult& r = s.LegResults[static_cast<std::size_t>(i - 1)];
    PlanLeg leg;
    leg.Number = i;
    leg.FromName = a.Name;
    leg.ToName = b.Name;
    leg.FromLat = LatToText(a.Lat);
    leg.FromLon = LonToText(a.Lon);
    leg.ToLat = LatToText(b.Lat);
    leg.ToLon = LonToText(b.Lon);
    leg.Course = FormatNumber(a.CourseToSteer, "000") + "°M";
    leg.Distance = FormatNumber(RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon).range, "0.0") + "nm";
    leg.Time = HoursToSpan(a.LegTime);
    leg.Start = r.StartText;
    leg.Eta = r.ArrivalText;
    leg.Sog = FormatNumber(r.GroundSpeed, "0.0") + "kt.";
    if (b.StopMinutes > 0) leg.Note = "Dive time " + std::to_string(b.StopMinutes) + " mins";
    // The samples are one a calculation step, each the stream of the step
    // that starts at its time: the middle of the leg falls in step n / 2.
    if (r.StreamCount > 0) {
      leg.Streams[0] = StreamAt(s, r.FirstStream);
      leg.Streams[1] = StreamAt(s, r.FirstStream + r.StreamCount / 2);
      leg.Streams[2] = StreamAt(s, r.FirstStream + r.StreamCount - 1);
    }
    plan.Legs.push_back(std::move(leg));
  }

  // The tide times are those of the port's own zone, so the sun's are
  // given in the zone of the first port the route leans on (Greenwich
  // when it uses none).
  const std::vector<int> ports = PortsOfRoute(s, tides, streams);
  double zone = 0;
  for (int position : ports) {
    const std::size_t p = static_cast<std::size_t>(position - 1);
    if (p >= tides.PortTideState.size()) continue;
    const PortTideStateRecord& record = tides.PortTideState[p];
    PlanPort port;
    port.Name = p < tides.UsedPortName.size() ? tides.UsedPortName[p] : record.PortName;
    for (int t = 0; t < record.TurningCount && t < 15; ++t)
      port.Turning.push_back({record.TurningTime[static_cast<std::size_t>(t)],
                              record.TurningHeight[static_cast<std::size_t>(t)]});
    if (plan.Ports.empty()) {
      if (const HarmonicPortRecord* ref = RefPort(tides, tides.UsedPortList[p]))
        zone = TimeZoneHours(ref->TimeZone).value_or(0);
    }
    plan.Ports.push_back(std::move(port));
  }
  if (plan.Ports.empty()) plan.PortsNote = "No tidal diamond within reach of the route: no reference port used.";

  if (auto date = DayToDate(first.StartDay, first.StartYear)) {
    const SunTimes sun = SunRiseSet(s.Route[1].Lat, s.Route[1].Lon, date->dayOfMonth, date->month, first.StartYear,
                                    zone, summerTime);
    plan.Sunrise = SunEventText(sun[kSunrise]);
    plan.Sunset = SunEventText(sun[kSunset]);
  }
  return out;
}

std::vector<std::string> PassagePlanLines(const PassagePlan& plan) {
  std::vector<std::string> lines;
  lines.push_back(plan.Title + " - " + plan.DateText);
  for (const std::string& w : plan.Warnings) lines.push_back(w);
  lines.push_back(plan.Departure);
  lines.push_back(plan.Arrival);
  for (const std::string& line : plan.Summary) lines.push_back(line);
  lines.push_back("Sunrise " + plan.Sunrise + "  Sunset " + plan.Sunset);
  lines.push_back("");
  for (const PlanLeg& leg : plan.Legs) {
    lines.push_back("Leg " + std::to_string(leg.Number) + ": " + leg.FromName + " to " + leg.ToName);
    lines.push_back("  From " + leg.FromLat + " " + leg.FromLon + "  To " + leg.ToLat + " " + leg.ToLon);
    lines.push_back("  Steer " + leg.Course + "  " + leg.Distance + "  Time " + leg.Time + "  Start " + leg.Start +
                    "  ETA " + leg.Eta + "  SOG " + leg.Sog + (leg.Note.empty() ? "" : "  " + leg.Note));
    static constexpr const char* kWhere[] = {"start", "middle", "end"};
    std::string streams = "  Streams:";
    for (std::size_t k = 0; k < 3; ++k) {
      const PlanStream& st = leg.Streams[k];
      streams += std::string(" ") + kWhere[k] + " ";
      streams += st.known ? st.Clock + " " + st.Set + " " + st.Rate : "-";
      if (k < 2) streams += ",";
    }
    lines.push_back(streams);
  }
  lines.push_back("");
  lines.push_back("High and low waters");
  if (plan.Ports.empty()) lines.push_back(plan.PortsNote);
  for (const PlanPort& port : plan.Ports) {
    std::string line = port.Name + ":";
    for (const auto& t : port.Turning) line += "  " + t[0] + " " + t[1] + "m";
    lines.push_back(line);
  }
  return lines;
}

}  // namespace kelvane
