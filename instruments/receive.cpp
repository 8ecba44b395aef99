#include "instruments/receive.h"

namespace kelvane {

namespace {

// The line cut to its "*" and the two checksum digits; nullopt-like empty
// view when there is no "*".
bool CutAtChecksum(std::string_view line, std::string_view& cut) {
  std::size_t star = line.find('*');
  if (star == std::string_view::npos) return false;
  cut = line.substr(0, star + 3);
  return true;
}

struct LogRule {
  const char* text;
  std::int16_t SeenFlags::*flag;
};

// The order in which the GPS port's filter tests the types.
const LogRule kGpsLogRules[] = {
    {"RMC,", &SeenFlags::SeenRMC}, {"RME,", &SeenFlags::SeenRME}, {"GSA,", &SeenFlags::SeenGSA},
    {"GLL,", &SeenFlags::SeenGLL}, {"WPL,", &SeenFlags::SeenWPL}, {"RMB,", &SeenFlags::SeenRMB},
    {"DBT,", &SeenFlags::SeenDBT}, {"HDG,", &SeenFlags::SeenHDG}, {"MVW,", &SeenFlags::SeenMVW},
};
// The AIS port logs no RME, GSA or RMB.
const LogRule kAisLogRules[] = {
    {"RMC,", &SeenFlags::SeenRMC}, {"GLL,", &SeenFlags::SeenGLL}, {"WPL,", &SeenFlags::SeenWPL},
    {"DBT,", &SeenFlags::SeenDBT}, {"HDG,", &SeenFlags::SeenHDG}, {"MVW,", &SeenFlags::SeenMVW},
};

template <std::size_t N>
void LogOnce(InstrumentsState& state, std::string_view cut, const LogRule (&rules)[N]) {
  if (state.log.LoggingOn == 0 || cut.empty() || cut[0] != '$') return;
  for (const LogRule& rule : rules) {
    if (cut.find(rule.text) != std::string_view::npos && state.seen.*rule.flag == 0) {
      state.log.LogBuffer.emplace_back(cut);
      state.seen.*rule.flag = -1;
    }
  }
  if (cut.find("!AIVDM") != std::string_view::npos) state.log.LogBuffer.emplace_back(cut);
}

}  // namespace

std::vector<AssembledLine> GpsLineAssembler(InstrumentsState& state, std::string_view chunk, const ClockReading& now) {
  std::vector<AssembledLine> lines;
  std::string shown;
  for (char c : chunk) {
    if (c == '$') {
      state.GpsInSentence = -1;
      state.GpsLineBuffer.clear();
    }
    if (state.GpsInSentence != 0 && c == '\r') {
      state.GpsLineBuffer.push_back(c);
      shown += state.GpsLineBuffer;
      shown += "\r\n";
      // The flag stays set after a line, so the characters after the
      // carriage return gather until the next "$" clears them. That residue
      // never starts with "$" and is never a sentence.
      bool accepted = !state.GpsLineBuffer.empty() && state.GpsLineBuffer[0] == '$' &&
                      SentenceChecksumOk(state.GpsLineBuffer);
      if (accepted) GpsSentenceFilter(state, state.GpsLineBuffer, now);
      lines.push_back(AssembledLine{state.GpsLineBuffer, accepted});
      state.GpsLineBuffer.clear();
    }
    if (state.GpsInSentence != 0) state.GpsLineBuffer.push_back(c);
  }
  if (state.monitorText.size() > 2047) state.monitorText.clear();
  state.monitorText += shown;
  return lines;
}

std::vector<AssembledLine> AisLineAssembler(InstrumentsState& state, std::string_view chunk, const ClockReading& now) {
  std::vector<AssembledLine> lines;
  for (char c : chunk) {
    if (c == '$' || c == '!') state.AisInSentence = -1;  // the buffer is not cleared here
    if (state.AisInSentence != 0 && c == '\r') {
      state.AisInSentence = 0;
      state.AisLineBuffer.push_back(c);
      bool accepted = SentenceChecksumOk(state.AisLineBuffer);
      if (accepted) AisSentenceDispatch(state, state.AisLineBuffer, now);
      lines.push_back(AssembledLine{state.AisLineBuffer, accepted});
      state.AisLineBuffer.clear();
    }
    if (state.AisInSentence != 0) state.AisLineBuffer.push_back(c);
  }
  return lines;
}

void GpsSentenceFilter(InstrumentsState& state, std::string_view line, const ClockReading& now) {
  std::string_view cut;
  if (!CutAtChecksum(line, cut)) return;
  LogOnce(state, cut, kGpsLogRules);
  if (!cut.empty() && cut[0] == '$') NmeaDecode(cut, state.own, state.monitor, state.track, now);
}

AisDispatchResult AisSentenceDispatch(InstrumentsState& state, std::string_view line, const ClockReading& now) {
  AisDispatchResult result;
  std::string_view cut;
  if (!CutAtChecksum(line, cut)) return result;
  LogOnce(state, cut, kAisLogRules);
  if (cut.find("!AIVDM") != std::string_view::npos && cut.size() >= 21) {
    if (state.log.LoggingOn != 0) state.log.LogBuffer.emplace_back(cut);
    result = DecodeAivdm(cut, state.ais);
    if (result.outcome == AisOutcome::Decoded) ApplyAisMessage(state.targets, result.message, now.Hours());
  }
  if ((state.GPSThroAIS != 0 || state.AISReplayActive != 0) && !cut.empty() && cut[0] == '$')
    NmeaDecode(cut, state.own, state.monitor, state.track, now);
  return result;
}

AisDispatchResult DecodeTestAid(InstrumentsState& state, const ClockReading& now) {
  std::string body = std::string("AIVDM,1,1,,A,") + kTestAidPayload;
  return AisSentenceDispatch(state, "!" + body + "*" + NmeaChecksum(body), now);
}

}  // namespace kelvane
