// The outline layer: polylines of a coastline or a boundary read from an
// `.l40` file in OutlineData, drawn over the chart on show.
//
// File layout, a sequence of 8-byte records, little-endian:
//   offset 0  single  latitude, degrees N+
//   offset 4  single  longitude, degrees E+
// A record whose latitude is 89 or more is a break between polylines. A
// trailing part-record (fewer than 8 bytes) is dropped silently, and so is
// nothing else: a record that is not a number (NaN or infinite) is read as
// a break, so that garbage never joins two lines.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "core/positions.h"

namespace kelvane {

inline constexpr float kOutlineBreakLat = 89.0f;

// The outline array as read: points and the breaks between runs, in file
// order. A leading run of breaks is kept as a single entry.
struct OutlineData {
  std::vector<Position> points;
  std::string message;  // "" or why the file could not be read
};

bool IsOutlineBreak(const Position& p);

OutlineData ReadOutlineBytes(std::span<const std::uint8_t> bytes);
OutlineData ReadOutlineFile(const std::filesystem::path& file);
// Writes the array back as records (temporary file and rename). "" or the
// error text.
std::string WriteOutlineFile(const std::filesystem::path& file, const std::vector<Position>& points);

// DrawOutline as data: the joined runs between breaks, each a polyline of
// two or more points (a lone point draws nothing and is left out).
std::vector<std::vector<Position>> OutlinePolylines(const std::vector<Position>& points);

// frmOutlineEdit: every point that is not a break moved by the differences.
void ShiftOutline(std::vector<Position>& points, float dLat, float dLon);

}  // namespace kelvane
