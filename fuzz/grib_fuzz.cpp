// The GRIB edition 1 reader on arbitrary bytes, and the grid walk over
// whatever grids it accepts.
#include <cstddef>
#include <cstdint>
#include <span>

#include "wind/grib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kelvane::GribReadResult read = kelvane::DecodeGrib(std::span<const std::uint8_t>(data, size));
  for (const kelvane::GribRecord& r : read.GribRecords) {
    if (r.Values.size() != static_cast<std::size_t>(r.Grid.Ni) * static_cast<std::size_t>(r.Grid.Nj)) __builtin_trap();
    if (!r.Values.empty()) (void)kelvane::GribPointPosition(r.Grid, r.Values.size() - 1);
  }
  return 0;
}
