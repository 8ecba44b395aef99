// The .way and .rte record readers and their conversions to GPX over any
// bytes.
#include <cstdint>

#include "routes/legacy.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kelvane::Bytes bytes(data, data + size);
  auto way = kelvane::ReadWayRecords(bytes);
  auto rte = kelvane::ReadRteRecords(bytes);
  (void)kelvane::WayRecordsToGpx(way, "fuzz");
  (void)kelvane::RteRecordsToGpx(rte);
  // Written back, the records read the same.
  if (kelvane::ReadWayRecords(kelvane::WayRecordBytes(way)).size() != way.size()) __builtin_trap();
  if (kelvane::ReadRteRecords(kelvane::RteRecordBytes(rte)).size() != rte.size()) __builtin_trap();
  return 0;
}
