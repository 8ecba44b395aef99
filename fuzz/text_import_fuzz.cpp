// The text import over any bytes: line split, validation, and the records
// of both kinds (the file itself is not written).
#include <cstdint>
#include <string>

#include "core/recordio.h"
#include "routes/gpxfields.h"
#include "routes/textimport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string raw(reinterpret_cast<const char*>(data), size);
  auto lines = kelvane::TextLines(kelvane::TextFromFile(raw));
  (void)kelvane::ValidateImportLines(lines, kelvane::TextImportKind::Waypoints);
  (void)kelvane::ValidateImportLines(lines, kelvane::TextImportKind::Route);
  std::vector<kelvane::RteRecord> route;
  for (const std::string& line : lines) {
    kelvane::WayRecord w = kelvane::ImportWayLine(line);
    if (w.Name.size() > kelvane::kLegacyNameWidth) __builtin_trap();
    route.push_back(kelvane::ImportRteLine(line));
    (void)kelvane::FifthCsvField(line);
  }
  (void)kelvane::RteRecordBytes(route);
  return 0;
}
