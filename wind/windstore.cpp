#include "wind/windstore.h"

#include <cmath>

#include "core/format.h"
#include "core/positions.h"
#include "core/recordio.h"
#include "core/timetext.h"

namespace kelvane {
namespace {

// Julian date of 01/01/2000 00:00, the store's day 0.
constexpr double kJulianDay2000 = 2451544.5;
constexpr float kSpeedFactor = 0.5148f;  // metres per second in a knot, as the program has it
constexpr double kDegreesPerRadian = 180.0 / 3.14159265358598;

constexpr std::int16_t kParameterU = 33;
constexpr std::int16_t kParameterV = 34;

bool IsMissing(float value) { return value == GribMissing; }

// Two fields describe the same points when their grids, levels and valid
// times agree.
bool SameGrid(const GridSection& a, const GridSection& b) {
  return a.DataRep == b.DataRep && a.Ni == b.Ni && a.Nj == b.Nj && a.La1 == b.La1 && a.Lo1 == b.Lo1 &&
         a.La2 == b.La2 && a.Lo2 == b.Lo2 && a.Di == b.Di && a.Dj == b.Dj && a.Scan == b.Scan &&
         a.Resolution == b.Resolution;
}

bool SameField(const GribRecord& u, const GribRecord& v) {
  return SameGrid(u.Grid, v.Grid) && u.LevelType == v.LevelType && u.LevelValue1 == v.LevelValue1 &&
         u.LevelValue2 == v.LevelValue2 && u.Values.size() == v.Values.size() &&
         GribValidTimeDays(u) == GribValidTimeDays(v);
}

// Longitudes of the store run -180 .. 180, whatever convention the file
// used, so that a 0..360 grid and a signed one give the same places.
float StoreLongitude(double lon) {
  if (lon > 180) lon -= 360;
  if (lon < -180) lon += 360;
  return static_cast<float>(lon);
}

WindRecord HeaderRecord() {
  WindRecord header;
  header.Long = 1.0f;
  header.Direction = 0;
  return header;
}

std::string DateText(const WindMoment& m) {
  return std::to_string(m.day) + "/" + std::to_string(m.month) + "/" + std::to_string(m.year) + " @ " +
         FormatNumber((m.minutes / 60) * 10000 + (m.minutes % 60) * 100, "000000");
}

std::string ListLine(double timeDays, float lat, float lon, float speed, float direction) {
  return DateText(WindMomentOf(timeDays)) + "\t" + NumberText(lat) + ", " + NumberText(lon) + "\t" +
         FormatNumber(speed, "0.0") + "\t" + FormatNumber(direction, "000") + "°T";
}

}  // namespace

double GribValidTimeDays(const GribRecord& r) {
  int minutes = RoundToInt(r.Minutes);
  double julian = JulianDate(r.Day, r.Month, r.Year, minutes / 60, minutes % 60, 0);
  return julian + r.ForecastOffsetSeconds / 86400.0 - kJulianDay2000;
}

std::string WindTimeText(double timeDays) { return DateText(WindMomentOf(timeDays)); }

double DaysSince2000(int dayOfMonth, int month, int year, double hours) {
  return JulianDate(dayOfMonth, month, year, 0, 0, 0) - kJulianDay2000 + hours / 24.0;
}

WindMoment WindMomentOf(double timeDays) {
  WindMoment m;
  if (!std::isfinite(timeDays) || std::fabs(timeDays) > 1e8) return m;
  double whole = std::floor(timeDays);
  // Serial day 36526 is 01/01/2000 in the count that starts on 30/12/1899.
  CivilDate date = SerialDayToDate(static_cast<std::int64_t>(whole) + 36526);
  m.year = static_cast<int>(date.year);
  m.month = date.month;
  m.day = date.day;
  m.minutes = RoundToInt((timeDays - whole) * 1440.0);
  if (m.minutes >= 1440) {
    // A time a hair short of midnight rounds into the next day.
    date = SerialDayToDate(static_cast<std::int64_t>(whole) + 36527);
    m.year = static_cast<int>(date.year);
    m.month = date.month;
    m.day = date.day;
    m.minutes = 0;
  }
  return m;
}

WindFromUV WindFromComponents(float u, float v) {
  WindFromUV w;
  double U = u, V = v;
  w.speed = static_cast<float>(std::sqrt(U * U + V * V) / kSpeedFactor);
  double direction = 0;
  if (V == 0) {
    // Straight along a parallel: blowing east comes from the west.
    direction = U > 0 ? 270 : (U < 0 ? 90 : 0);
  } else {
    // atan(U / V) is the bearing the wind blows towards, within a half
    // turn; the quadrant offset, 180 of it, makes it the bearing it comes
    // from: towards the north (V > 0) it comes from the south.
    direction = std::atan(U / V) * kDegreesPerRadian + (V > 0 ? 180.0 : 360.0);
  }
  float bearing = static_cast<float>(direction);
  w.direction = NormaliseBearing(bearing);
  return w;
}

WindBracket WindTimeBracket(float dayFraction) {
  // The eighth that holds the fraction: 0 <= f < 0.125 -> 0 .. 0.125, and
  // so on to 0.875 <= f < 1 -> 0.875 .. 1.
  WindBracket b;
  float eighth = std::floor(dayFraction * 8.0f);
  if (!(eighth >= 0)) eighth = 0;
  if (eighth > 7) eighth = 7;
  b.lower = eighth / 8.0f;
  b.upper = (eighth + 1.0f) / 8.0f;
  return b;
}

WindStoreBuild BuildWindStore(const std::vector<GribRecord>& records) {
  WindStoreBuild build;
  build.records.push_back(HeaderRecord());
  std::vector<bool> used(records.size(), false);
  // For the list of decoded values: the speed and direction of the pair a
  // U or V field belongs to, point by point.
  std::vector<const std::vector<WindRecord>*> pairOf(records.size(), nullptr);
  std::vector<std::vector<WindRecord>> pairWinds;
  pairWinds.reserve(records.size());
  for (std::size_t a = 0; a < records.size(); ++a) {
    const GribRecord& u = records[a];
    if (u.Parameter != kParameterU) continue;
    for (std::size_t b = 0; b < records.size(); ++b) {
      const GribRecord& v = records[b];
      if (used[b] || v.Parameter != kParameterV || !SameField(u, v)) continue;
      used[b] = true;
      ++build.pairs;
      double days = GribValidTimeDays(u);
      std::vector<WindRecord> winds;
      winds.reserve(u.Values.size());
      for (std::size_t k = 0; k < u.Values.size(); ++k) {
        GribPosition p = GribPointPosition(u.Grid, k);
        WindRecord r;
        r.TimeDays = static_cast<float>(days);
        r.Lat = static_cast<float>(p.Lat);
        r.Long = StoreLongitude(p.Lon);
        if (IsMissing(u.Values[k]) || IsMissing(v.Values[k])) {
          r.Speed = kNoWindSpeed;
        } else {
          WindFromUV w = WindFromComponents(u.Values[k], v.Values[k]);
          r.Speed = w.speed;
          r.Direction = w.direction;
        }
        winds.push_back(r);
      }
      build.records.insert(build.records.end(), winds.begin(), winds.end());
      pairWinds.push_back(std::move(winds));
      pairOf[a] = &pairWinds.back();
      pairOf[b] = &pairWinds.back();
      break;
    }
  }
  if (build.pairs == 0) {
    build.records.clear();
    build.message = "No wind in this file: it holds no pair of U and V wind fields (parameters 33 and 34) "
                    "on the same grid and time. The wind store is left as it was.";
    return build;
  }
  for (std::size_t n = 0; n < records.size(); ++n) {
    const GribRecord& r = records[n];
    double days = GribValidTimeDays(r);
    for (std::size_t k = 0; k < r.Values.size(); ++k) {
      GribPosition p = GribPointPosition(r.Grid, k);
      GribPoint g;
      g.TimeDays = days;
      g.Lat = static_cast<float>(p.Lat);
      g.Long = StoreLongitude(p.Lon);
      g.Parameter = r.Parameter;
      g.LevelType = r.LevelType;
      g.Value = r.Values[k];
      if (pairOf[n]) {
        g.Speed = (*pairOf[n])[k].Speed;
        g.Direction = (*pairOf[n])[k].Direction;
      }
      build.points.push_back(g);
    }
  }
  build.ok = true;
  return build;
}

std::vector<std::uint8_t> EncodeWindStore(std::span<const WindRecord> records) {
  Bytes bytes;
  bytes.reserve(records.size() * kWindRecordSize);
  for (std::size_t n = 0; n < records.size(); ++n) {
    RecordWriter w(bytes, n * kWindRecordSize);
    w.F32(0, records[n].TimeDays);
    w.F32(4, records[n].Lat);
    w.F32(8, records[n].Long);
    w.F32(12, records[n].Speed);
    w.F32(16, records[n].Direction);
  }
  return bytes;
}

std::vector<std::uint8_t> EncodeGribPoints(std::span<const GribPoint> points) {
  Bytes bytes;
  bytes.reserve(points.size() * kGribPointSize);
  for (std::size_t n = 0; n < points.size(); ++n) {
    RecordWriter w(bytes, n * kGribPointSize);
    w.F64(0, points[n].TimeDays);
    w.F32(8, points[n].Lat);
    w.F32(12, points[n].Long);
    w.I16(16, points[n].Parameter);
    w.I16(18, points[n].LevelType);
    w.F32(20, points[n].Value);
    w.F32(24, points[n].Speed);
    w.F32(28, points[n].Direction);
  }
  return bytes;
}

bool WriteWindStore(const std::filesystem::path& windDat, const std::filesystem::path& gribPoints,
                    const WindStoreBuild& build) {
  if (!build.ok) return false;
  std::error_code ec;
  std::filesystem::create_directories(windDat.parent_path(), ec);
  // The list first: a failure there leaves the store the lookups read as it
  // was.
  if (!WriteFileAtomic(gribPoints, EncodeGribPoints(build.points))) return false;
  return WriteFileAtomic(windDat, EncodeWindStore(build.records));
}

std::vector<WindRecord> DecodeWindStore(std::span<const std::uint8_t> bytes) {
  std::vector<WindRecord> records;
  Bytes copy(bytes.begin(), bytes.end());
  std::size_t count = copy.size() / kWindRecordSize;
  records.reserve(count);
  for (std::size_t n = 0; n < count; ++n) {
    RecordReader r(copy, n * kWindRecordSize);
    records.push_back({r.F32(0), r.F32(4), r.F32(8), r.F32(12), r.F32(16)});
  }
  return records;
}

std::vector<WindRecord> ReadWindStore(const std::filesystem::path& windDat) {
  std::optional<Bytes> bytes = ReadFileBytes(windDat);
  if (!bytes) return {};
  return DecodeWindStore(*bytes);
}

std::vector<GribPoint> ReadGribPoints(const std::filesystem::path& gribPoints) {
  std::vector<GribPoint> points;
  std::optional<Bytes> bytes = ReadFileBytes(gribPoints);
  if (!bytes) return points;
  std::size_t count = bytes->size() / kGribPointSize;
  points.reserve(count);
  for (std::size_t n = 0; n < count; ++n) {
    RecordReader r(*bytes, n * kGribPointSize);
    GribPoint g;
    g.TimeDays = r.F64(0);
    g.Lat = r.F32(8);
    g.Long = r.F32(12);
    g.Parameter = r.I16(16);
    g.LevelType = r.I16(18);
    g.Value = r.F32(20);
    g.Speed = r.F32(24);
    g.Direction = r.F32(28);
    points.push_back(g);
  }
  return points;
}

WindImport ImportGribToWindStore(const std::filesystem::path& gribFile, const std::filesystem::path& windDat,
                                 const std::filesystem::path& gribPoints) {
  WindImport result;
  GribReadResult read = ReadGribFile(gribFile);
  if (!read.ok) {
    result.message = read.message;
    return result;
  }
  result.messages = read.GribRecords.size();
  for (std::size_t n = 0; n < read.GribRecords.size(); ++n)
    result.read.push_back({n + 1, GribValidTimeDays(read.GribRecords[n]), read.GribRecords[n].Parameter});
  WindStoreBuild build = BuildWindStore(read.GribRecords);
  if (!build.ok) {
    result.message = build.message;
    return result;
  }
  result.pairs = build.pairs;
  result.records = build.records.size() - 1;
  if (!WriteWindStore(windDat, gribPoints, build)) {
    result.message = "The wind store could not be written at " + windDat.string() +
                     ". The last import is left as it was.";
    return result;
  }
  result.ok = true;
  result.message = "File Imported";
  return result;
}

WindSlotSpan WindSlotOf(int month, int day, int year, float hours) {
  WindBracket bracket = WindTimeBracket(hours / 24.0f);
  double days = std::round(DaysSince2000(day, month, year, 0));
  return WindSlotSpan{days + bracket.lower, days + bracket.upper};
}

bool InWindSlot(const WindRecord& r, WindSlotSpan slot) {
  return r.TimeDays >= slot.from && r.TimeDays < slot.to && r.Speed < kNoWindThreshold;
}

std::vector<WindRecord> WindsInSlot(std::span<const WindRecord> records, WindSlotSpan slot) {
  std::vector<WindRecord> winds;
  for (std::size_t n = 1; n < records.size(); ++n)
    if (InWindSlot(records[n], slot)) winds.push_back(records[n]);
  return winds;
}

const std::vector<WindRecord>& WindSlotReader::Winds(const std::filesystem::path& windDat, WindSlotSpan slot) {
  std::error_code ec;
  std::filesystem::file_time_type written = std::filesystem::last_write_time(windDat, ec);
  if (ec) written = {};
  std::uintmax_t size = std::filesystem::file_size(windDat, ec);
  if (ec) size = 0;
  if (valid_ && file_ == windDat && written_ == written && size_ == size && slot_ == slot) return winds_;
  winds_ = WindsInSlot(ReadWindStore(windDat), slot);
  file_ = windDat;
  written_ = written;
  size_ = size;
  slot_ = slot;
  valid_ = true;
  ++readings_;
  return winds_;
}

WindLookup LookupWind(std::span<const WindRecord> records, float lat, float lon, int month, int day, int year,
                      float hours, WindLookup previous) {
  WindLookup result = previous;
  result.found = false;
  result.rangeNm = -1;
  const WindSlotSpan slot = WindSlotOf(month, day, year, hours);
  float best = 24000.0f;
  // Record 1 is the header; it never matches a real slot as its speed and
  // time are 0, but it is skipped outright.
  for (std::size_t n = 1; n < records.size(); ++n) {
    const WindRecord& r = records[n];
    // The slot and the data flag first: ranges only for the records that count.
    if (!InWindSlot(r, slot)) continue;
    float range = RangeBearing(lat, lon, r.Lat, r.Long).range;
    if (range < best) {
      best = range;
      result.speed = r.Speed;
      result.direction = r.Direction;
      result.rangeNm = range;
      if (range < kWindCoverageRangeNm) result.found = true;
    }
  }
  return result;
}

WindLookup LookupWind(const std::filesystem::path& windDat, float lat, float lon, int month, int day, int year,
                      float hours, WindLookup previous) {
  std::vector<WindRecord> records = ReadWindStore(windDat);
  return LookupWind(records, lat, lon, month, day, year, hours, previous);
}

std::string WindRecordLine(const WindRecord& r) { return ListLine(r.TimeDays, r.Lat, r.Long, r.Speed, r.Direction); }

std::string GribPointLine(const GribPoint& g) { return ListLine(g.TimeDays, g.Lat, g.Long, g.Speed, g.Direction); }

}  // namespace kelvane
