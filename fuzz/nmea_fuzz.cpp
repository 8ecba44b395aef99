// The NMEA receive chain on arbitrary bytes: both line assemblers (with
// logging on, so the filters run too) and the three parsers on the raw text.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "instruments/nmea.h"
#include "instruments/receive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  kelvane::ClockReading now{2026, 11, 23, 12, 0, 0};
  kelvane::InstrumentsState state;
  state.log.LoggingOn = -1;
  state.GPSThroAIS = -1;
  // Two chunks split in the middle, as two reads of a port would give.
  kelvane::GpsLineAssembler(state, text.substr(0, size / 2), now);
  kelvane::GpsLineAssembler(state, text.substr(size / 2), now);
  kelvane::AisLineAssembler(state, text, now);
  kelvane::ParseRMC(text);
  kelvane::ParseGLL(text);
  kelvane::ParseRMB(text);
  kelvane::NmeaDecode(text, state.own, state.monitor, state.track, now);
  return 0;
}
