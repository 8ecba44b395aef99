// WindConfig.cfg: the small record of wind set-up that the wind forms keep,
// and the working wind that start-up takes from it.
//
// One fixed 24-byte record, little-endian, texts blank-padded:
//   0  i16   WindFormState1        13 i16  WindFormState4
//   2  i16   WindFormState2        15 4    RouteWindSpeed (text, knots)
//   4  4     CalcWindSpeed (text)  19 3    RouteWindDir (text, degrees)
//   8  3     CalcWindDir (text)    22 i16  PolarSetUpIndex
//   11 i16   WindFormState3
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace kelvane {

inline constexpr std::size_t kWindConfigSize = 24;
inline constexpr const char* kWindConfigFileName = "WindConfig.cfg";

struct WindConfig {
  std::int16_t WindFormState1 = 4;
  std::int16_t WindFormState2 = 4;
  std::string CalcWindSpeed = "14.0";
  std::string CalcWindDir = "292";
  std::int16_t WindFormState3 = 4;
  std::int16_t WindFormState4 = 0;
  std::string RouteWindSpeed = "14.0";
  std::string RouteWindDir = "292";
  std::int16_t PolarSetUpIndex = 0;

  bool operator==(const WindConfig&) const = default;
};

// The record written when the file is missing at start-up: 14.0 knots from
// 292 degrees in both slots.
WindConfig FirstRunWindConfig();
// The record RestoreDefaults writes: 5.0 knots, from 225 in the calculator
// slot and from 290 in the route slot.
WindConfig RestoredWindConfig();

std::vector<std::uint8_t> EncodeWindConfig(const WindConfig& config);
// A short input is read as far as it goes; the rest is blank or zero.
WindConfig DecodeWindConfig(const std::vector<std::uint8_t>& bytes);
WindConfig ReadWindConfig(const std::filesystem::path& file);
// Atomic replace: temporary file, then rename.
bool WriteWindConfig(const std::filesystem::path& file, const WindConfig& config);

// The working wind of the route forms and its 25 hourly slots.
struct WindSlot {
  float speed = 0;      // knots
  float direction = 0;  // degrees true, from
};
struct WorkingWind {
  float speed = 0;
  float direction = 0;
  std::array<WindSlot, 25> windSlots{};
};
// Takes the route wind texts and fills every slot with them.
WorkingWind WorkingWindFrom(const WindConfig& config);

}  // namespace kelvane
