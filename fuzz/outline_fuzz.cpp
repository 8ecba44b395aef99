// The outline file reader and the polylines drawn from it.
#include <cstddef>
#include <cstdint>
#include <span>

#include "chart/outline.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kelvane;
  OutlineData outline = ReadOutlineBytes(std::span<const std::uint8_t>(data, size));
  auto lines = OutlinePolylines(outline.points);
  ShiftOutline(outline.points, 0.01f, -0.01f);
  (void)lines;
  return 0;
}
