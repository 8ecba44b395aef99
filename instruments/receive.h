// The two receive chains: characters from a port become sentences, the
// sentences are logged, and those the program reads update the own ship
// and the AIS target table.
//
// The chains are deliberately not alike. The GPS port starts a sentence at
// "$" only and clears its buffer there; the AIS port starts one at "$" or
// "!" and clears its buffer after each carriage return. Both test the
// checksum and drop a bad line silently.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "instruments/ais_decode.h"
#include "instruments/ais_targets.h"
#include "instruments/nmea.h"
#include "instruments/ownship.h"

namespace kelvane {

// Everything the receive chain and the polling loop touch. The main window
// owns one; a test or the command-line tool builds its own.
struct InstrumentsState {
  OwnShipState own;
  WaypointMonitor monitor;
  TrackBufferStore track;
  SeenFlags seen;
  NmeaLog log;
  AisDecoderState ais;
  AisTargetTable targets;

  std::string GpsLineBuffer;
  std::string AisLineBuffer;
  std::int16_t GpsInSentence = 0;
  std::int16_t AisInSentence = 0;
  // The raw lines shown in the GPS monitor; emptied when over 2047
  // characters before new lines are added.
  std::string monitorText;

  // Settings of the chain.
  std::int16_t GPSThroAIS = 0;       // GPS sentences come in on the AIS port
  std::int16_t AISReplayActive = 0;  // a log replay feeds the AIS chain
};

// One line the assembler completed, with the verdict of its checksum.
struct AssembledLine {
  std::string line;  // with its carriage return
  bool accepted = false;
};

// Feeds the characters of one read of the GPS port. Returns the lines
// completed in this chunk.
std::vector<AssembledLine> GpsLineAssembler(InstrumentsState& state, std::string_view chunk, const ClockReading& now);

// The same for the AIS port.
std::vector<AssembledLine> AisLineAssembler(InstrumentsState& state, std::string_view chunk, const ClockReading& now);

// Logs a checksummed GPS-port line (at most one of each type per log
// period) and passes "$" sentences to NmeaDecode.
void GpsSentenceFilter(InstrumentsState& state, std::string_view line, const ClockReading& now);

// Logs a checksummed AIS-port line, decodes !AIVDM into the target table,
// and passes "$" sentences to NmeaDecode when GPS data shares the port or
// a replay runs. Returns what the AIS decoder made of the line.
AisDispatchResult AisSentenceDispatch(InstrumentsState& state, std::string_view line, const ClockReading& now);

// The debug menu's test message: a fixed type-21 aid to navigation, put
// through the AIS dispatcher as if it had been received, so the drawing of
// aids can be tried without a receiver. (The caller also marks the AIS link
// attached and redraws.)
inline constexpr const char* kTestAidPayload = "E3:G4RQVTR@1T0W72V@@@@@@@@@Oue;<>Lw;0:1IQ`r@1P,4";
AisDispatchResult DecodeTestAid(InstrumentsState& state, const ClockReading& now);

}  // namespace kelvane
