// nmea, ais, listen: the instruments' receive chains without the chart.
//
//   nmea FILE|-          each line through the GPS chain (or, with --ais-port,
//                        through the AIS chain with GPS data on that port);
//                        one line out per line in: the own-ship state after
//                        an accepted sentence, or why the line was dropped.
//   ais FILE|-           one JSON object per line: the decoded message with
//                        the fields its decoder returns, or what happened to
//                        the line (first fragment, counted only, dropped).
//   listen --gps DEVICE  the real polling loop on real serial ports, printing
//                        the own-ship state and the target count as they
//                        change, and the port's line states when they change
//                        (a port that disappears reads "Port Doesnt exist").
#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <thread>

#include "cli/registry.h"
#include "core/format.h"
#include "instruments/ais_decode.h"
#include "instruments/comms.h"
#include "instruments/posix_serial.h"
#include "instruments/receive.h"

namespace kelvane::cli {
namespace {

// The number text of a float. Most numbers of a decoded message are whole
// tenths (speeds, courses, seconds, type 9 knots): their texts are made once
// by NumberText and kept, which saves the formatting of each one.
const std::string& FloatTextCached(int tenths) {
  static std::vector<std::string> cache(16384);
  std::string& text = cache[static_cast<std::size_t>(tenths)];
  if (text.empty()) text = NumberText(static_cast<float>(tenths / 10.0));
  return text;
}

std::string FloatText(float v) {
  if (v >= 0 && v < 1638.0f) {
    int tenths = RoundToInt(static_cast<double>(v) * 10.0);
    if (static_cast<float>(tenths / 10.0) == v) return FloatTextCached(tenths);
  }
  return NumberText(v);
}

// A small JSON object writer into a growing text.
class Json {
 public:
  explicit Json(std::string& out) : out_(out) { out_ += '{'; }
  Json& Key(std::string_view key) {
    if (!first_) out_ += ',';
    first_ = false;
    out_ += '"';
    out_ += key;
    out_ += "\":";
    return *this;
  }
  Json& Int(std::string_view key, long long v) {
    Key(key);
    char buf[24];
    auto end = std::to_chars(buf, buf + sizeof buf, v).ptr;
    out_.append(buf, end);
    return *this;
  }
  Json& Num(std::string_view key, float v) {
    Key(key);
    out_ += FloatText(v);
    return *this;
  }
  Json& Num(std::string_view key, double v) {
    Key(key);
    out_ += NumberText(v);
    return *this;
  }
  Json& Str(std::string_view key, std::string_view v) {
    Key(key);
    out_ += '"';
    for (char c : v) {
      if (c == '"' || c == '\\') {
        out_ += '\\';
        out_ += c;
      } else if (static_cast<unsigned char>(c) < 0x20) {
        char buf[8];
        std::snprintf(buf, sizeof buf, "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(c)));
        out_ += buf;
      } else {
        out_ += c;
      }
    }
    out_ += '"';
    return *this;
  }
  void End() { out_ += "}\n"; }

 private:
  std::string& out_;
  bool first_ = true;
};

// Reads lines from a file or standard input ("-"), without their line ends.
class LineSource {
 public:
  explicit LineSource(const std::string& name) {
    if (name != "-") {
      file_.open(name, std::ios::binary);
      in_ = &file_;
    }
  }
  bool ok() const { return in_ == &std::cin || file_.is_open(); }
  bool Next(std::string& line) {
    if (!std::getline(*in_, line)) return false;
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
    return true;
  }

 private:
  std::ifstream file_;
  std::istream* in_ = &std::cin;
};

void OwnShipJson(std::string& out, long long lineNo, const InstrumentsState& s) {
  const OwnShipState& o = s.own;
  Json j(out);
  if (lineNo > 0) j.Int("line", lineNo);
  j.Int("GPSValid", o.GPSValid)
      .Num("GPSLat", o.GPSLat)
      .Num("GPSLong", o.GPSLong)
      .Num("GPSSpeed", o.GPSSpeed)
      .Num("GPSCourse", o.GPSCourse)
      .Str("GPSTimeText", o.GPSTimeText)
      .Str("GPSDateText", o.GPSDateText)
      .Str("GPSVariationText", o.GPSVariationText)
      .Str("GPSPositionText", o.GPSPositionText)
      .Str("GPSCourseSpeedText", o.GPSCourseSpeedText)
      .Str("GPSWaypointText", o.GPSWaypointText)
      .Int("GPSWaypointValid", o.GPSWaypointValid)
      .Int("GPSRmcSeen", o.GPSRmcSeen)
      .Int("targets", static_cast<long long>(s.targets.AISTargets.size()));
  j.End();
}

int Nmea(const std::string& name, bool aisPort) {
  LineSource source(name);
  if (!source.ok()) {
    std::cerr << "Cannot open " << name << "\n";
    return 1;
  }
  InstrumentsState state;
  state.GPSThroAIS = aisPort ? -1 : 0;
  std::string line, out;
  long long lineNo = 0;
  while (source.Next(line)) {
    ++lineNo;
    ClockReading now = ClockNow();
    std::string chunk = line + "\r\n";
    std::vector<AssembledLine> lines =
        aisPort ? AisLineAssembler(state, chunk, now) : GpsLineAssembler(state, chunk, now);
    bool accepted = false;
    for (const AssembledLine& l : lines) accepted = accepted || l.accepted;
    if (accepted) {
      OwnShipJson(out, lineNo, state);
    } else {
      Json j(out);
      j.Int("line", lineNo).Str("dropped", lines.empty() ? "no sentence" : "not accepted");
      j.End();
    }
    if (out.size() > 65536) {
      std::fwrite(out.data(), 1, out.size(), stdout);
      out.clear();
    }
  }
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

void MessageJson(Json& j, const AisMessage& m) {
  j.Int("type", m.type).Int("repeat", m.repeat).Int("mmsi", m.mmsi);
  if (m.hasPosition) {
    j.Num("lat", m.lat).Num("long", m.lon);
    if (m.type != 21) j.Num("speed", m.speed).Num("course", m.course);
    j.Num("second", m.second);
    if (m.type != 9) j.Int("status", m.status);
  }
  switch (m.type) {
    case 5:
      j.Int("aisVersion", m.aisVersion)
          .Int("imo", m.imo)
          .Str("callsign", m.callsign)
          .Str("vesselName", m.vesselName)
          .Int("shipTypeCode", m.shipTypeCode)
          .Str("shipType", m.shipType)
          .Str("dimensions", m.dimensions)
          .Str("eta", m.eta)
          .Num("draught", m.draught)
          .Str("destination", m.destination);
      break;
    case 9: j.Int("altitude", m.altitude); break;
    case 21:
      j.Int("aidType", m.aidType)
          .Str("aidTypeText", m.shipType)
          .Str("name", m.vesselName)
          .Str("dimensions", m.dimensions)
          .Int("offPosition", m.offPosition);
      break;
    case 24:
      j.Int("part", m.part);
      if (m.part == 0) j.Str("name", m.vesselName);
      if (m.part == 1)
        j.Int("shipTypeCode", m.shipTypeCode)
            .Str("shipType", m.shipType)
            .Str("vendor", m.vendor)
            .Str("callsign", m.callsign)
            .Str("dimensions", m.dimensions);
      break;
    default: break;
  }
}

int Ais(const std::string& name) {
  LineSource source(name);
  if (!source.ok()) {
    std::cerr << "Cannot open " << name << "\n";
    return 1;
  }
  AisDecoderState decoder;
  std::string line, out;
  out.reserve(1 << 17);
  long long lineNo = 0;
  while (source.Next(line)) {
    ++lineNo;
    Json j(out);
    j.Int("line", lineNo);
    // The AIS port's assembler starts a sentence at the first "$" or "!".
    std::size_t start = line.find_first_of("$!");
    std::string_view sentence = start == std::string::npos ? std::string_view() : std::string_view(line).substr(start);
    std::size_t star = sentence.find('*');
    if (sentence.empty() || !SentenceChecksumOk(sentence)) {
      j.Str("ignored", "checksum");
    } else {
      AisDispatchResult r = DecodeAivdm(sentence.substr(0, star + 3), decoder);
      switch (r.outcome) {
        case AisOutcome::Decoded: MessageJson(j, r.message); break;
        case AisOutcome::FirstFragment: j.Int("fragment", 1); break;
        case AisOutcome::CountedOnly: j.Int("type", r.type).Str("ignored", "counted only"); break;
        case AisOutcome::DroppedJoined: j.Int("type", r.type).Str("ignored", "two fragments not of type 5"); break;
        case AisOutcome::Ignored: j.Str("ignored", "fragments or type not handled"); break;
        case AisOutcome::NotAivdm: j.Str("ignored", "not AIVDM"); break;
      }
    }
    j.End();
    if (out.size() > (1 << 16)) {
      std::fwrite(out.data(), 1, out.size(), stdout);
      out.clear();
    }
  }
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

struct ListenOptions {
  std::string gps;
  std::string ais;
  int baud = 4800;
  int aisBaud = 38400;
  double seconds = 0;
  int tickMs = kCommsTimerInterval;
};

int Listen(const ListenOptions& o) {
  int gpsCode = BaudCodeOfRate(o.baud), aisCode = BaudCodeOfRate(o.aisBaud);
  if (gpsCode < 0 || aisCode < 0) {
    std::cerr << "Unsupported baud rate\n";
    return 2;
  }
  PosixSerialPorts ports;
  ports.SetDevice(0, o.gps);
  CommsState comms;
  comms.GPSPort = 0;
  comms.GPSBaudCode = static_cast<std::int16_t>(gpsCode);
  InstrumentsState state;
  ClockReading now = ClockNow();
  AttachResult gps = AttachGps(comms, ports, now);
  if (!gps.ok) {
    std::cout << gps.message << std::endl;
    return 1;
  }
  if (!o.ais.empty()) {
    ports.SetDevice(1, o.ais);
    comms.AISPort = 1;
    comms.AISBaudCode = static_cast<std::int16_t>(aisCode);
    AttachResult ais = AttachAis(comms, state, ports, now);
    if (!ais.ok) {
      std::cout << ais.message << std::endl;
      return 1;
    }
  }
  std::string lastState, lastLines[2];
  auto start = std::chrono::steady_clock::now();
  while (true) {
    auto tickStart = std::chrono::steady_clock::now();
    CommsTick(comms, state, ports, ClockNow());
    std::string out;
    OwnShipJson(out, 0, state);
    if (out != lastState) {
      std::cout << out << std::flush;
      lastState = out;
    }
    // The line states of each port; the user sees it when a port goes.
    for (int port = 0; port < (o.ais.empty() ? 1 : 2); ++port) {
      std::vector<std::string> lines = CommsDetailsLines(ports, port);
      std::string text;
      Json j(text);
      j.Str("port", port == 0 ? o.gps : o.ais);
      for (std::size_t i = 0; i < 6; ++i) j.Str(std::to_string(i), lines[i]);
      if (ports.Gone(port)) j.Str("status", "Port Doesnt exist");
      j.End();
      if (text != lastLines[port]) {
        std::cout << text << std::flush;
        lastLines[port] = text;
      }
    }
    double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (o.seconds > 0 && elapsed >= o.seconds) break;
    std::this_thread::sleep_until(tickStart + std::chrono::milliseconds(o.tickMs));
  }
  DetachGps(comms, ports);
  if (!o.ais.empty()) DetachAis(comms, state, ports);
  return 0;
}

Registrar instrumentsCommands([](CLI::App& app, Context& ctx) {
  auto* nmea = app.add_subcommand("nmea", "Feed NMEA lines through the receive chain and print the own-ship state");
  auto nmeaFile = std::make_shared<std::string>();
  auto aisPort = std::make_shared<bool>(false);
  nmea->add_option("file", *nmeaFile, "NMEA text file, or - for standard input")->required();
  nmea->add_flag("--ais-port", *aisPort, "Use the AIS port's chain (GPS data on the AIS port)");
  nmea->callback([&ctx, nmeaFile, aisPort] { ctx.exitCode = Nmea(*nmeaFile, *aisPort); });

  auto* ais = app.add_subcommand("ais", "Decode !AIVDM lines: one JSON object per line");
  auto aisFile = std::make_shared<std::string>();
  ais->add_option("file", *aisFile, "AIVDM text file, or - for standard input")->required();
  ais->callback([&ctx, aisFile] { ctx.exitCode = Ais(*aisFile); });

  auto* listen = app.add_subcommand("listen", "Run the polling loop on real serial ports");
  auto opts = std::make_shared<ListenOptions>();
  listen->add_option("--gps", opts->gps, "GPS serial device")->required();
  listen->add_option("--baud", opts->baud, "GPS baud rate (4800)");
  listen->add_option("--ais", opts->ais, "AIS serial device");
  listen->add_option("--ais-baud", opts->aisBaud, "AIS baud rate (38400)");
  listen->add_option("--seconds", opts->seconds, "Stop after this many seconds (0: run until stopped)");
  listen->add_option("--tick-ms", opts->tickMs, "Tick of the polling loop in milliseconds (750)");
  listen->callback([&ctx, opts] { ctx.exitCode = Listen(*opts); });
});

}  // namespace
}  // namespace kelvane::cli
