#include "passage/routeform.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"

namespace kelvane {

std::string ValidSpeedMessage() { return "Must enter a valid speed"; }

SpeedEntry ParseRouteSpeed(std::string_view text) {
  SpeedEntry out;
  const std::string trimmed = TrimBlanks(text);
  bool plain = !trimmed.empty();
  int digits = 0, points = 0;
  if (plain) {
    for (char c : trimmed) {
      if (c >= '0' && c <= '9')
        ++digits;
      else if (c == '.')
        ++points;
      else
        plain = false;
    }
  }
  if (!plain || digits == 0 || points > 1) {
    out.message = ValidSpeedMessage();
    return out;
  }
  out.speed = static_cast<float>(TextValue(text));
  if (!(out.speed > 0.0f)) out.message = ValidSpeedMessage();
  return out;
}

void SetRouteSpeed(PassageState& s, float speed) {
  for (int i = 1; i <= RouteCount(s); ++i) s.Route[static_cast<std::size_t>(i)].Speed = speed;
}

std::string GpsLineText(const GpsReading& fix) {
  if (!fix.valid) return "No GPS fix";
  return LatToText(fix.lat) + "  " + LonToText(fix.lon) + "  SOG = " + FormatNumber(fix.sog, "0.0");
}

void UseGpsPosition(PassageState& s, const GpsReading& fix, bool useSog) {
  if (!fix.valid || RouteCount(s) < 1) return;
  RoutePoint& first = s.Route[1];
  first.Lat = fix.lat;
  first.Lon = fix.lon;
  first.LatText = LatToText(fix.lat);
  first.LonText = LonToText(fix.lon);
  first.Name = kGpsPointName;
  if (useSog) SetRouteSpeed(s, fix.sog);
}

float HoursBeforeLeg(const PassageState& s, int leg) {
  float hours = 0;
  for (int i = 1; i < leg && i < RouteCount(s); ++i) {
    const RoutePoint& a = s.Route[static_cast<std::size_t>(i)];
    const RoutePoint& b = s.Route[static_cast<std::size_t>(i + 1)];
    if (a.Speed > 0.0f) hours += RangeBearing(a.Lat, a.Lon, b.Lat, b.Lon).range / a.Speed;
  }
  return hours;
}

void ReverseRoute(PassageState& s) {
  const int n = RouteCount(s);
  for (int i = 1, j = n; i < j; ++i, --j) {
    RoutePoint& a = s.Route[static_cast<std::size_t>(i)];
    RoutePoint& b = s.Route[static_cast<std::size_t>(j)];
    std::swap(a.Lat, b.Lat);
    std::swap(a.Lon, b.Lon);
    std::swap(a.Name, b.Name);
    std::swap(a.LatText, b.LatText);
    std::swap(a.LonText, b.LonText);
    std::swap(a.Flag1, b.Flag1);
    std::swap(a.ScreenX, b.ScreenX);
    std::swap(a.ScreenY, b.ScreenY);
  }
  ClearRouteResults(s);
}

namespace {
std::vector<std::string> TwoDigitEntries(int count) {
  std::vector<std::string> out;
  char buf[4];
  for (int i = 0; i < count; ++i) {
    std::snprintf(buf, sizeof buf, "%02d", i);
    out.emplace_back(buf);
  }
  return out;
}
}  // namespace

std::vector<std::string> DepartureHourEntries() { return TwoDigitEntries(24); }
std::vector<std::string> DepartureMinuteEntries() { return TwoDigitEntries(60); }

std::string DepartureWithHours(std::string_view text, std::string_view hours) {
  const auto colon = text.find(':');
  const std::string minutes = colon == std::string_view::npos ? "00" : std::string(text.substr(colon + 1));
  return std::string(hours) + ":" + minutes;
}

std::string DepartureWithMinutes(std::string_view text, std::string_view minutes) {
  const auto colon = text.find(':');
  const std::string hours = colon == std::string_view::npos ? "00" : std::string(text.substr(0, colon));
  return hours + ":" + std::string(minutes);
}

LegEdit LegEditOf(const PassageState& s, int leg) {
  LegEdit e;
  if (leg < 1 || leg >= RouteCount(s)) return e;
  const RoutePoint& a = s.Route[static_cast<std::size_t>(leg)];
  const RoutePoint& b = s.Route[static_cast<std::size_t>(leg + 1)];
  e.StartLat = LatToText(a.Lat);
  e.StartLon = LonToText(a.Lon);
  e.DestLat = LatToText(b.Lat);
  e.DestLon = LonToText(b.Lon);
  e.StartName = a.Name;
  e.DestName = b.Name;
  e.Speed = NumberText(a.Speed);
  e.StoppedFor = std::to_string(b.StopMinutes);
  return e;
}

std::string LatitudeEntryMessage() { return "Error - Latitude entry"; }
std::string LongitudeEntryMessage() { return "Error - Longitude entry"; }

std::string ApplyLegEdit(PassageState& s, int leg, const LegEdit& edit) {
  if (leg < 1 || leg >= RouteCount(s)) return "";
  const float startLat = TextToLat(edit.StartLat), destLat = TextToLat(edit.DestLat);
  const float startLon = TextToLon(edit.StartLon), destLon = TextToLon(edit.DestLon);
  if (std::fabs(startLat) > 90.0f || std::fabs(destLat) > 90.0f) return LatitudeEntryMessage();
  if (std::fabs(startLon) > 180.0f || std::fabs(destLon) > 180.0f) return LongitudeEntryMessage();
  float speed = -1;
  if (!edit.Speed.empty()) {
    const SpeedEntry entry = ParseRouteSpeed(edit.Speed);
    if (!entry.message.empty()) return entry.message;
    speed = entry.speed;
  }
  RoutePoint& a = s.Route[static_cast<std::size_t>(leg)];
  RoutePoint& b = s.Route[static_cast<std::size_t>(leg + 1)];
  a.Lat = startLat;
  a.Lon = startLon;
  a.LatText = LatToText(startLat);
  a.LonText = LonToText(startLon);
  a.Name = edit.StartName;
  b.Lat = destLat;
  b.Lon = destLon;
  b.LatText = LatToText(destLat);
  b.LonText = LonToText(destLon);
  b.Name = edit.DestName;
  if (speed > 0) a.Speed = speed;
  b.StopMinutes = StopMinutesOf(edit.StoppedFor);
  return "";
}

std::int16_t StopMinutesOf(std::string_view digits) {
  const double stop = TextValue(digits);
  return static_cast<std::int16_t>(std::clamp(stop, 0.0, 32767.0));
}

bool IsStopMinutesKey(char32_t key) { return (key >= U'0' && key <= U'9') || key == 8; }

std::vector<std::string> RouteInfoLines(const PassageState& s) {
  std::vector<std::string> lines(s.SummaryText.begin(), s.SummaryText.end());
  if (!lines.empty()) lines.push_back("");
  const int n = RouteCount(s);
  for (int i = 1; i <= n; ++i) {
    const RoutePoint& p = s.Route[static_cast<std::size_t>(i)];
    std::string line = std::to_string(i) + "\t" + p.Name + "\t" + LatToText(p.Lat) + " , " + LonToText(p.Lon);
    if (i < n) line += "\tSpeed " + NumberText(p.Speed) + " kt.";
    lines.push_back(line);
  }
  return lines;
}

}  // namespace kelvane
