// Harmonic constants files from outside: any bytes must read as records
// (numbers as read, a torn tail ignored) and the engine must run on whatever
// numbers they hold without hanging or crashing.
#include <cstddef>
#include <cstdint>

#include "tides/daycurve.h"
#include "tides/harmonicfile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const kelvane::Bytes bytes(data, data + size);
  const std::size_t count = size / kelvane::kHarmonicRecordSize;
  for (std::size_t i = 0; i < count && i < 4; ++i) {
    for (auto layout : {kelvane::NameLayout::kReference35, kelvane::NameLayout::kArea31}) {
      const kelvane::HarmonicPortRecord r =
          kelvane::DecodeHarmonicRecord(bytes, i * kelvane::kHarmonicRecordSize, layout);
      (void)kelvane::TimeZoneHours(r.TimeZone);
      const kelvane::Bytes back = kelvane::EncodeHarmonicRecord(r, layout);
      if (back.size() != kelvane::kHarmonicRecordSize) __builtin_trap();
    }
  }
  // A short record is read as far as it goes; run the engine on record 1.
  const kelvane::HarmonicPortRecord port = kelvane::DecodeHarmonicRecord(bytes, 0, kelvane::NameLayout::kArea31);
  const std::int16_t day = size > 2 ? static_cast<std::int16_t>(data[size - 1] + data[size - 2]) : 73;
  const kelvane::DayPrediction p = kelvane::PredictHeights(port, 2025, day, 1 + (day % 14), size % 2);
  const kelvane::TurningPoints t = kelvane::FindTurningPoints(p.time.data(), p.height().data());
  if (t.points.size() > 15) __builtin_trap();
  const kelvane::DayCurve c = kelvane::RefPortDayCurve(port, static_cast<std::int16_t>(1985 + day % 80), day, size % 3 == 0);
  if (c.count != kelvane::kRefDaySamples) __builtin_trap();
  return 0;
}
