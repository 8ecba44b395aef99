// The GPX reader over any bytes: both walks, and the line scanner on each
// line of the same text.
#include <cstdint>
#include <string_view>

#include "routes/gpx.h"
#include "routes/gpxfields.h"
#include "routes/gpxwrite.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  kelvane::GpxStore store;
  kelvane::GpxReadStatus status;
  auto waypoints = kelvane::ReadGpxText(text, store, &status);
  // What was read must write out again.
  (void)kelvane::WaypointFileText(waypoints);
  for (std::size_t r = 0; r < kelvane::Count(store.FileRoutes); ++r)
    (void)kelvane::CompoundRouteBlock(store.FileRoutes[r].Name, store.FileRoutes[r].Points);
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    (void)kelvane::ParseGpxLine(text.substr(start, end - start));
    (void)kelvane::LatitudeFieldValid(text.substr(start, end - start));
    (void)kelvane::LongitudeFieldValid(text.substr(start, end - start));
    start = end + 1;
  }
  return 0;
}
