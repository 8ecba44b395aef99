// GRIB edition 1: the fields of a weather service's file, message by message.
//
// A GRIB 1 message is five sections laid end to end, each counted in bytes
// from 1 as the WMO tables count them:
//
//   indicator (8 bytes)  "GRIB", total length in bytes 5-7, edition in byte 8
//   PDS  product definition: parameter, level, reference time, forecast time
//   GDS  grid description (when PDS byte 8 has bit 128): the grid and its corners
//   BMS  bitmap (when PDS byte 8 has bit 64): one bit per grid point, 1 = value
//   BDS  binary data: simple packing, value = (R + X * 2^E) / 10^D
//
// The reader walks the file byte by byte and handles the latitude/longitude
// grids (data representation 0, 4 and 10) with simple grid-point packing,
// which is what an e-mail wind service sends. Anything else, and any length
// that does not fit, ends the read with a message; the records read up to
// then are discarded by the caller (DecodeGrib returns ok = false). It never
// throws and never reads past the bytes it is given.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kelvane {

// A grid point that the bitmap leaves out carries this value; the wind store
// treats it as "no data".
inline constexpr float GribMissing = -9999.0f;

// The grid of one message (GDS). Corners and increments in degrees, north and
// east positive, as the file gives them (longitudes may run 0..360).
struct GridSection {
  std::int16_t DataRep = 0;     // GDS byte 6: 0 lat/lon, 4 Gaussian, 10 rotated lat/lon
  std::int32_t Ni = 0;          // points along a parallel: byte 7 * 255 + byte 8
  std::int32_t Nj = 0;          // points along a meridian: byte 9 * 255 + byte 10
  float La1 = 0, Lo1 = 0;       // first grid point
  float La2 = 0, Lo2 = 0;       // last grid point
  std::int16_t Resolution = 0;  // GDS byte 17: bit 128 = increments given
  float Di = 0, Dj = 0;         // increments (bytes 24-25, 26-27) / 1000
  std::int16_t Scan = 0;        // byte 28: 128 = i runs west, 64 = j runs north, 32 = j fastest
};

// One message read.
struct GribRecord {
  std::int16_t Parameter = 0;    // PDS byte 9 (33 = U wind, 34 = V wind, m/s)
  std::int16_t LevelType = 0;    // PDS byte 10 (105 = height above ground)
  std::int32_t LevelValue1 = 0;  // PDS bytes 11-12 as one value for a single-value level,
  std::int32_t LevelValue2 = 0;  // otherwise byte 11 and byte 12
  std::int16_t Year = 0;         // reference time: full year from century (byte 25) and year (byte 13)
  std::int16_t Month = 0, Day = 0;
  double Minutes = 0;            // PDS bytes 16-17 as hour * 60 + minute
  std::int16_t TimeUnit = 0;     // PDS byte 18 (code table 4)
  std::int32_t P1 = 0, P2 = 0;   // PDS bytes 19, 20 (one 16-bit P1 for time range 10)
  std::int16_t TimeRange = 0;    // PDS byte 21, the time range indicator
  std::int16_t DecimalScale = 0; // D, PDS bytes 27-28, sign and magnitude
  double ForecastOffsetSeconds = 0;  // valid time = reference time + this
  GridSection Grid;
  bool HasBitmap = false;
  // Ni * Nj values in the file's scan order, in the file's units; GribMissing
  // where the bitmap has a 0.
  std::vector<float> Values;
  std::vector<bool> Present;     // with a bitmap: its bits; without: empty
};

struct [[nodiscard]] GribReadResult {
  bool ok = false;
  std::vector<GribRecord> GribRecords;  // the messages read, in file order
  std::string message;                  // why the read stopped, when !ok
};

// b1 * 65536 + b2 * 256 + b3.
std::int32_t ThreeByteLength(std::uint8_t b1, std::uint8_t b2, std::uint8_t b3);

// The whole file walk over bytes in memory.
GribReadResult DecodeGrib(std::span<const std::uint8_t> bytes);
// The same over a file; a file that cannot be read gives a message.
GribReadResult ReadGribFile(const std::filesystem::path& file);

// The position of grid point k (0-based, in scan order) of a message: from
// the first point and the increments, stepping as the scanning mode says.
// Longitudes keep the file's convention (0..360 stays 0..360), folded back
// into -180..360 where a grid steps across the seam.
struct GribPosition {
  double Lat = 0, Lon = 0;
};
GribPosition GribPointPosition(const GridSection& grid, std::size_t k);

// The unit of a time unit code (code table 4) as text: "minute", "hour",
// "day", "3 hours", ...; "unit N" for a code outside the table.
std::string GribTimeUnitText(int code);

}  // namespace kelvane
