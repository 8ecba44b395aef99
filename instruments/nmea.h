// NMEA 0183 sentences: the checksum, the three sentences the program reads
// (RMC, GLL, RMB) and the own-ship rules that follow from them.
//
// It is a string-level decoder: sentences are taken apart by searching for
// the next comma, and every value is also kept as the text it came in.
#pragma once

#include <string>
#include <string_view>

#include "instruments/ownship.h"

namespace kelvane {

// XOR of the 8-bit codes of the text, as upper-case hexadecimal with one
// leading "0" when shorter than two characters ("0A", "5C").
std::string NmeaChecksum(std::string_view text);

// Whether a received line's checksum is right. The two characters after
// the first "*" must equal NmeaChecksum of the text from the second
// character up to the "*" (the first character is skipped whatever it is),
// compared exactly: lower-case digits fail. No "*" fails.
bool SentenceChecksumOk(std::string_view line);

// Status words of the parsers.
inline constexpr const char* kFixGood = "GOOD";
inline constexpr const char* kFixWarning = "WARNING";
inline constexpr const char* kFixBad = "BAD";

struct RmcFields {
  std::string time;
  float lat = 0;
  float lon = 0;
  std::string latText;  // "50.51.206N"
  std::string lonText;  // "001.23.456W"
  std::string status;   // kFixGood, kFixWarning, kFixBad (checksum wrong)
  std::string speedText;
  std::string courseText;
  std::string dateText;
  std::string variationText;
  std::string variationSide;  // everything up to the "*"
};

// $--RMC,hhmmss.ss,A,llll.ll,a,yyyyy.yy,a,x.x,x.x,ddmmyy,x.x,a*hh
// The latitude field needs 8 characters and the longitude 9, otherwise the
// status is "WARNING" and that coordinate reads 0; longitude minutes of more
// than 6 characters lose their last one. A checksum that does not match
// the text between "$" and "*" gives "BAD" and nothing else.
RmcFields ParseRMC(std::string_view sentence);

struct GllFields {
  std::string time;
  float lat = 0;
  float lon = 0;
  std::string latText;
  std::string lonText;
  std::string status;
};

// $--GLL,llll.ll,a,yyyyy.yy,a,hhmmss.ss,A*hh
// Fields of 6 characters or more are split into degrees (2 or 3) and
// minutes cut to 6 characters; shorter ones read 0.
GllFields ParseGLL(std::string_view sentence);

struct RmbFields {
  std::string xte;
  std::string steerDirection;
  std::string waypointId;
  std::string waypointLatText;   // "49°17.24N"
  std::string waypointLongText;  // "123°09.57W"
  std::string range;
  std::string bearing;
};

// $--RMB,A,x.x,a,c--c,c--c,llll.ll,a,yyyyy.yy,a,x.x,x.x,x.x,A*hh
// By field position from 0 (the address): 2 XTE, 3 steer, 5 destination,
// 6-9 its position, 10 range, 11 bearing. No checksum test of its own.
RmbFields ParseRMB(std::string_view sentence);

// Updates the own ship from one "$" sentence that already passed the
// checksum. The type is found by searching the whole line for "RMC", "GLL"
// and "RMB" in turn, so the talker is ignored and any sentence holding
// those letters counts. `now` gives the date of a GLL fix.
void NmeaDecode(std::string_view line, OwnShipState& own, WaypointMonitor& monitor, TrackBufferStore& track,
                const ClockReading& now);

}  // namespace kelvane
