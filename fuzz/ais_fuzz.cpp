// The AIS decoder on arbitrary bytes: each line as an !AIVDM sentence
// (fragments joined across lines), each line also as a bare payload through
// every decoder, and the decoded messages into the target table.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "instruments/ais_decode.h"
#include "instruments/ais_targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  kelvane::AisDecoderState state;
  kelvane::AisTargetTable table;
  table.settings.AheadIntervals = 6;
  table.settings.BoatFutureTidePlot = -1;
  table.stream = [](float, float) { return std::optional<kelvane::StreamAt>(kelvane::StreamAt{1.5f, 45.0f}); };
  float hours = 12.0f;
  while (!text.empty()) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    kelvane::AisDispatchResult r = kelvane::DecodeAivdm(line, state);
    if (r.outcome == kelvane::AisOutcome::Decoded) kelvane::ApplyAisMessage(table, r.message, hours);
    kelvane::AisBits bits(line);
    for (auto decode : {kelvane::DecodeAIS1, kelvane::DecodeAIS5, kelvane::DecodeAIS9, kelvane::DecodeAIS18,
                        kelvane::DecodeAIS21, kelvane::DecodeAIS24})
      kelvane::ApplyAisMessage(table, decode(bits), hours);
    hours += 0.01f;
  }
  float cpa = 0, t = 0;
  for (const kelvane::AISTarget& target : table.AISTargets)
    kelvane::ClosestApproach(50, -1, 5, 90, target.Lat, target.Long, target.Speed, target.Course, cpa, t);
  return 0;
}
