// Settings and wind set-up records from arbitrary bytes: decoded, printed
// and encoded again without a fault; an encoded record is always whole.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "core/settings.h"
#include "core/windconfig.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> bytes(data, data + size);
  kelvane::SettingsRecord r = kelvane::DecodeSettings(bytes);
  (void)kelvane::SettingsLines(r);
  if (kelvane::EncodeSettings(r).size() != kelvane::kSettingsRecordSize) std::abort();
  kelvane::WindConfig w = kelvane::DecodeWindConfig(bytes);
  (void)kelvane::WorkingWindFrom(w);
  if (kelvane::EncodeWindConfig(w).size() != kelvane::kWindConfigSize) std::abort();
  return 0;
}
