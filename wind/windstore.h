// The wind store: the winds of the last GRIB import, by time and place, and
// the question "what is the wind here, then?".
//
// ~wind.dat holds fixed 20-byte records, little-endian 32-bit floats:
//
//   0  TimeDays   days since 01/01/2000 00:00 UTC, with the day's fraction
//   4  Lat        degrees, north positive
//   8  Long       degrees, east positive, -180 .. 180
//   12 Speed      knots; 1000 marks a point with no data (999 or more = none)
//   16 Direction  degrees true, the direction the wind blows FROM
//
// Record 1 is a header (Direction 0, Long 1.0); the winds follow from
// record 2, one per grid point of each U/V pair of fields, in the grid's
// scan order.
//
// ~GrDa.tmp beside it keeps every decoded value of the import as a 32-byte
// GribPoint, for the list of what the file held:
//
//   0  f64 TimeDays    8  f32 Lat    12 f32 Long    16 i16 Parameter
//   18 i16 LevelType   20 f32 Value (file units)    24 f32 Speed (kn)
//   28 f32 Direction   (Speed and Direction of the U/V pair at that point
//                       for wind fields; 1000 and 0 for anything else)
//
// GRIB times are UTC and so are the store's; the program holds no time
// zone, so a forecast is looked up at the clock time the user types.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "wind/grib.h"

namespace kelvane {

inline constexpr std::size_t kWindRecordSize = 20;
inline constexpr std::size_t kGribPointSize = 32;
// Speed of a point with no data, and the threshold readers use.
inline constexpr float kNoWindSpeed = 1000.0f;
inline constexpr float kNoWindThreshold = 999.0f;
// A grid point further than this from the place asked about still gives its
// values, but the lookup says the file does not cover the place.
inline constexpr float kWindCoverageRangeNm = 40.0f;

struct WindRecord {
  float TimeDays = 0;
  float Lat = 0;
  float Long = 0;
  float Speed = 0;
  float Direction = 0;
  bool operator==(const WindRecord&) const = default;
};

struct GribPoint {
  double TimeDays = 0;
  float Lat = 0;
  float Long = 0;
  std::int16_t Parameter = 0;
  std::int16_t LevelType = 0;
  float Value = 0;
  float Speed = kNoWindSpeed;
  float Direction = 0;
};

// Days since 01/01/2000 00:00 of a civil moment (hours with their fraction).
double DaysSince2000(int dayOfMonth, int month, int year, double hours);
// The civil moment of a TimeDays value: date and time of day in minutes.
struct WindMoment {
  int year = 2000, month = 1, day = 1;
  int minutes = 0;  // 0 .. 1439
};
WindMoment WindMomentOf(double timeDays);

// Wind from the U (east) and V (north) components in metres per second:
// speed in knots as sqrt(U^2 + V^2) / 0.5148 (the program's own factor,
// a little under the 1852/3600 = 0.51444 of the definition, kept so that
// speeds agree with the forecasts skippers compared it with), and the
// direction the wind comes from, 0 .. 360 degrees true, taken from
// atan(U / V) quadrant by quadrant. Calm (U = V = 0) reads 0 degrees.
struct WindFromUV {
  float speed = 0;
  float direction = 0;
};
WindFromUV WindFromComponents(float u, float v);

// Forecasts are taken as 3-hourly: the eighths of a day either side of the
// fraction, lower <= fraction < upper.
struct WindBracket {
  float lower = 0;
  float upper = 0;
};
WindBracket WindTimeBracket(float dayFraction);

// The store built from the fields of a GRIB file.
struct [[nodiscard]] WindStoreBuild {
  bool ok = false;
  std::vector<WindRecord> records;  // record 1 (the header) first
  std::vector<GribPoint> points;    // every decoded value, for ~GrDa.tmp
  std::size_t pairs = 0;            // U/V pairs found
  std::string message;              // why nothing was built
};
// Pairs each U field (parameter 33) with the V field (34) of the same grid,
// level and valid time, and turns each grid point into a record. Grids in
// 0..360 longitudes are stored in -180..180. A file without a single pair
// gives a message and nothing to write.
WindStoreBuild BuildWindStore(const std::vector<GribRecord>& records);

// The bytes of the two files, and their writing. Each file is replaced
// whole, so a failed write leaves the last import as it was.
std::vector<std::uint8_t> EncodeWindStore(std::span<const WindRecord> records);
std::vector<std::uint8_t> EncodeGribPoints(std::span<const GribPoint> points);
[[nodiscard]] bool WriteWindStore(const std::filesystem::path& windDat, const std::filesystem::path& gribPoints,
                                  const WindStoreBuild& build);

// Reads ~wind.dat: every whole record, the header included; a trailing
// partial record is dropped. A missing file reads as no records.
std::vector<WindRecord> ReadWindStore(const std::filesystem::path& windDat);
std::vector<WindRecord> DecodeWindStore(std::span<const std::uint8_t> bytes);
std::vector<GribPoint> ReadGribPoints(const std::filesystem::path& gribPoints);

// The valid time of a message (reference time + forecast offset) in days
// since 01/01/2000 00:00 UTC, as the store keeps it.
double GribValidTimeDays(const GribRecord& record);
// A TimeDays value as the lists show it: "25/11/2026 @ 150000".
std::string WindTimeText(double timeDays);

// One message of an import, as the import form lists it.
struct GribMessageRow {
  std::size_t recNo = 0;       // from 1, in file order
  double timeDays = 0;         // valid time, UTC
  std::int16_t parameter = 0;  // GRIB parameter number
};

// The whole import, as the form and `kelvane-cli grib import` run it: read
// the GRIB file, build, write. On any failure the store is left as it was
// and the message says why; on success the message is "File Imported".
struct [[nodiscard]] WindImport {
  bool ok = false;
  std::size_t messages = 0;  // GRIB messages read
  std::size_t pairs = 0;
  std::size_t records = 0;   // wind records written, header excluded
  std::string message;
  std::vector<GribMessageRow> read;  // every message read (none when the reader stopped)
};
WindImport ImportGribToWindStore(const std::filesystem::path& gribFile, const std::filesystem::path& windDat,
                                 const std::filesystem::path& gribPoints);

// The wind at a place and time: the record of the nearest grid point in
// the 3-hour slot of the time, with no interpolation in time or space.
//   - A record counts when TimeDays lies in [days + lower, days + upper) of
//     the slot and its Speed is below 999.
//   - The nearest by plane sailing gives speed and direction; found is set
//     only when it lies within 40 nm.
//   - No record in the slot leaves speed and direction as they came in
//     (`previous`), with found clear: callers keep the last good wind.
// hours is the time of day (0 .. 24, decimal), UTC as the store is.
struct WindLookup {
  float speed = 0;
  float direction = 0;
  bool found = false;
  float rangeNm = -1;  // range to the grid point taken, -1 when none
};
WindLookup LookupWind(std::span<const WindRecord> records, float lat, float lon, int month, int day, int year,
                      float hours, WindLookup previous = {});
// The same reading the file afresh, as every lookup of the program does
// (the file is replaced by each import, and a lookup never raises).
WindLookup LookupWind(const std::filesystem::path& windDat, float lat, float lon, int month, int day, int year,
                      float hours, WindLookup previous = {});

// The 3-hour slot of a moment as store times: the records of the slot lie
// in [from, to). The day is counted whole from 01/01/2000, as the lookup
// counts it.
struct WindSlotSpan {
  double from = 0;
  double to = 0;
  bool operator==(const WindSlotSpan&) const = default;
};
WindSlotSpan WindSlotOf(int month, int day, int year, float hours);
// Whether a record is one of the slot's winds: in the slot, and with data.
bool InWindSlot(const WindRecord& record, WindSlotSpan slot);
// The winds of a slot, in store order, the header left out: what the
// chart's wind layer draws.
std::vector<WindRecord> WindsInSlot(std::span<const WindRecord> records, WindSlotSpan slot);

// The winds of one slot of ~wind.dat, read again only when the slot asked
// for or the file (its time of writing or size) has changed since the last
// reading; a paint asks at every redraw and the file changes only at an
// import.
class WindSlotReader {
 public:
  const std::vector<WindRecord>& Winds(const std::filesystem::path& windDat, WindSlotSpan slot);
  int Readings() const { return readings_; }

 private:
  std::filesystem::path file_;
  std::filesystem::file_time_type written_{};
  std::uintmax_t size_ = 0;
  WindSlotSpan slot_;
  bool valid_ = false;
  int readings_ = 0;
  std::vector<WindRecord> winds_;
};

// The list line of one store record or decoded point, tab-separated:
//   "25/11/2026 @ 030000\t50.5, -1.25\t14.2\t292°T"
std::string WindRecordLine(const WindRecord& record);
std::string GribPointLine(const GribPoint& point);

// The messages of the callers when the store does not cover the leg.
inline constexpr const char* kRouteWindCoverageMessage =
    "GRIB Wind file data coverage incorrect - using last good wind values";
inline constexpr const char* kPolarWindCoverageMessage = "Wind file data coverage incorrect - setting default values";

}  // namespace kelvane
