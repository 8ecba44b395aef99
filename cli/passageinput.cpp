#include "cli/passageinput.h"

#include <cctype>
#include <cmath>
#include <iostream>

#include "core/format.h"
#include "core/positions.h"
#include "routes/gpx.h"

namespace kelvane::cli {

ProgramState MomentState(const Context& cli, const SettingsInUse& settings, const TypedMoment& at, bool summer) {
  ProgramState state = CommandState(cli.folders(), settings);
  if (summer) state.settings.SummerTime = -1;
  state.moment.WorkingDay = at.day;
  state.moment.WorkingYear = at.year;
  state.moment.WorkingTime = at.hours;
  return state;
}

std::optional<float> PointSpeed(const std::string& desc) {
  std::string text;
  for (char c : desc)
    if (c != ' ') text += c;
  for (const char* unit : {"kn", "kt", "KN", "KT"})
    if (text.size() > 2 && text.compare(text.size() - 2, 2, unit) == 0) text.resize(text.size() - 2);
  if (text.empty()) return std::nullopt;
  for (char c : text)
    if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+')) return std::nullopt;
  return static_cast<float>(TextValue(text));
}

float VariationValue(const std::string& text) {
  const float value = static_cast<float>(std::fabs(TextValue(text)));
  return text.find_first_of("Ww-") != std::string::npos ? -value : value;
}

bool LoadGpxRoute(const std::string& file, const std::string& name, float speed, PassageState& passage) {
  GpxStore store;
  GpxReadStatus status;
  ReadGpxFile(file, store, &status);
  if (status.outcome != GpxReadOutcome::Read) {
    std::cerr << "Cannot read " << file << (status.detail.empty() ? "" : ": " + status.detail) << "\n";
    return false;
  }
  const std::vector<RouteFilePoint>* points = ChosenRoutePoints(store, name);
  if (!points) {
    std::cerr << "No route named " << name << " in " << file << "\n";
    return false;
  }
  for (const RouteFilePoint& p : *points) {
    RoutePoint r;
    r.Lat = p.Lat;
    r.Lon = p.Lon;
    r.Name = p.Name;
    r.LatText = LatToText(p.Lat);
    r.LonText = LonToText(p.Lon);
    r.Speed = PointSpeed(p.Desc).value_or(speed);
    passage.Route.push_back(r);
  }
  return true;
}

}  // namespace kelvane::cli
