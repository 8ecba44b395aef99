#include "instruments/nmea.h"

#include <chrono>
#include <ctime>

#include "core/clock.h"
#include "core/format.h"
#include "core/text.h"

namespace kelvane {

float ClockReading::Hours() const {
  return static_cast<float>(hour) + static_cast<float>(minute) / 60.0f + static_cast<float>(second) / 3600.0f;
}

ClockReading ClockReadingOf(const std::tm& tm) {
  return ClockReading{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

ClockReading ClockNow() { return ClockReadingOf(LocalNow()); }

void SeenFlags::ClearForFlush() {
  std::int16_t rmb = SeenRMB;
  *this = SeenFlags{};
  SeenRMB = rmb;
}

std::string NmeaChecksum(std::string_view text) {
  unsigned sum = 0;
  for (char c : text) sum ^= static_cast<unsigned char>(c);
  static const char digits[] = "0123456789ABCDEF";
  std::string out(2, '0');
  out[0] = digits[(sum >> 4) & 0xF];
  out[1] = digits[sum & 0xF];
  return out;
}

bool SentenceChecksumOk(std::string_view line) {
  std::size_t star = line.find('*');
  if (star == std::string_view::npos || star == 0) return false;
  std::string_view given = line.substr(star + 1, 2);
  return NmeaChecksum(line.substr(1, star - 1)) == given;
}

namespace {

// Walks the comma-separated fields of a sentence the way the program always
// has: each call takes the text up to the next comma and moves past it.
// With no comma left the whole rest is the field and the rest is empty.
class FieldCursor {
 public:
  explicit FieldCursor(std::string_view text) : rest_(text) {}
  std::string_view Next() {
    std::size_t comma = rest_.find(',');
    std::string_view field;
    if (comma == std::string_view::npos) {
      field = rest_;
      rest_ = {};
    } else {
      field = rest_.substr(0, comma);
      rest_ = rest_.substr(comma + 1);
    }
    return field;
  }
  // The rest of the text up to the "*" (or all of it).
  std::string_view UpToStar() {
    std::size_t star = rest_.find('*');
    std::string_view field = rest_.substr(0, star);
    rest_ = {};
    return field;
  }
  // The field up to the next comma, or up to the "*" when it is the last.
  std::string_view NextBeforeStar() {
    std::string_view field = Next();
    std::size_t star = field.find('*');
    return field.substr(0, star);
  }

 private:
  std::string_view rest_;
};

// The text between the first "$" and the "*" must give the two digits after
// the "*". The parsers' own test, independent of the assembler's.
bool OwnChecksumOk(std::string_view sentence) {
  std::size_t dollar = sentence.find('$');
  std::size_t star = sentence.find('*');
  if (dollar == std::string_view::npos || star == std::string_view::npos || star < dollar) return false;
  return NmeaChecksum(sentence.substr(dollar + 1, star - dollar - 1)) == sentence.substr(star + 1, 2);
}

std::string_view FirstChar(std::string_view s) { return s.substr(0, 1); }

// Degrees plus minutes / 60 in double, stored in single, negated by the
// hemisphere letter.
float CoordinateValue(const std::string& degrees, const std::string& minutes, std::string_view letter,
                      char negative) {
  double value = TextValue(degrees) + TextValue(minutes) / 60.0;
  float result = static_cast<float>(value);
  if (letter == std::string_view(&negative, 1)) result = -result;
  return result;
}

const char kDegree[] = "\xC2\xB0";  // the degree sign

int16_t TextInt(std::string_view text) { return RoundToInt16(TextValue(text)); }

// Point 1 of the trail from the first fix: hours, minutes and seconds from
// the time text "hhmmss.ss".
void CreateFirstTrackPoint(TrackBufferStore& track, float lat, float lon, const std::string& time) {
  if (track.UpperBound() != 0) return;
  TrackPoint p;
  p.Lat = lat;
  p.Long = lon;
  std::string_view t(time);
  p.Hour = TextInt(t.substr(0, 2));
  p.Minute = TextInt(t.substr(std::min<std::size_t>(2, t.size()), 2));
  p.Second = TextInt(t.substr(std::min<std::size_t>(4, t.size())));
  track.points.push_back(p);
}

std::string TwoDigits(int v) { return FormatNumber(v, "00"); }

}  // namespace

// The position of a fix sentence from its cut-up fields: the texts as
// "DD.MM.mmmH" with an absent part read as "0", and the numbers.
template <typename Fields>
void FillPosition(Fields& out, std::string latDeg, std::string latMin, std::string_view ns, std::string lonDeg,
                  std::string lonMin, std::string_view ew) {
  if (latDeg.empty()) latDeg = "0";
  if (latMin.empty()) latMin = "0";
  if (lonDeg.empty()) lonDeg = "0";
  if (lonMin.empty()) lonMin = "0";
  out.latText = latDeg + "." + latMin + std::string(ns);
  out.lonText = lonDeg + "." + lonMin + std::string(ew);
  out.lat = CoordinateValue(latDeg, latMin, ns, 'S');
  out.lon = CoordinateValue(lonDeg, lonMin, ew, 'W');
}

RmcFields ParseRMC(std::string_view sentence) {
  RmcFields r;
  if (!OwnChecksumOk(sentence)) {
    r.status = kFixBad;
    return r;
  }
  FieldCursor f(sentence);
  f.Next();  // the address
  r.time = f.Next();
  r.status = FirstChar(f.Next()) == "A" ? kFixGood : kFixWarning;

  std::string latField(f.Next());
  std::string latDeg, latMin;
  if (latField.size() < 8) {
    r.status = kFixWarning;
  } else {
    latDeg = latField.substr(0, 2);
    latMin = latField.substr(2);
  }
  std::string_view ns = FirstChar(f.Next());

  std::string lonField(f.Next());
  std::string lonDeg, lonMin;
  if (lonField.size() < 9) {
    r.status = kFixWarning;
  } else {
    lonDeg = lonField.substr(0, 3);
    lonMin = lonField.substr(3);
    if (lonMin.size() > 6) lonMin.pop_back();  // one character only, and for longitude only
  }
  std::string_view ew = FirstChar(f.Next());

  r.speedText = f.Next();
  r.courseText = f.Next();
  r.dateText = f.Next();
  r.variationText = f.Next();
  r.variationSide = f.UpToStar();

  FillPosition(r, latDeg, latMin, ns, lonDeg, lonMin, ew);
  return r;
}

GllFields ParseGLL(std::string_view sentence) {
  GllFields g;
  if (!OwnChecksumOk(sentence)) {
    g.status = kFixBad;
    return g;
  }
  FieldCursor f(sentence);
  f.Next();
  std::string latField(f.Next());
  std::string latDeg, latMin;
  if (latField.size() >= 6) {
    latDeg = latField.substr(0, 2);
    latMin = latField.substr(2, 6);
  }
  std::string_view ns = FirstChar(f.Next());
  std::string lonField(f.Next());
  std::string lonDeg, lonMin;
  if (lonField.size() >= 6) {
    lonDeg = lonField.substr(0, 3);
    lonMin = lonField.substr(3, 6);
  }
  std::string_view ew = FirstChar(f.NextBeforeStar());
  g.time = f.NextBeforeStar();
  g.status = FirstChar(f.NextBeforeStar()) == "A" ? kFixGood : kFixWarning;

  FillPosition(g, latDeg, latMin, ns, lonDeg, lonMin, ew);
  return g;
}

RmbFields ParseRMB(std::string_view sentence) {
  RmbFields r;
  FieldCursor f(sentence.substr(0, sentence.find('*')));
  std::string_view fields[12];
  for (auto& field : fields) field = f.Next();
  r.xte = fields[2];
  r.steerDirection = fields[3];
  r.waypointId = fields[5];
  std::string_view lat = fields[6], lon = fields[8];
  r.waypointLatText = std::string(lat.substr(0, 2)) + kDegree + std::string(lat.substr(std::min<std::size_t>(2, lat.size()))) +
                      std::string(fields[7]);
  r.waypointLongText = std::string(lon.substr(0, 3)) + kDegree +
                       std::string(lon.substr(std::min<std::size_t>(3, lon.size()))) + std::string(fields[9]);
  r.range = fields[10];
  r.bearing = fields[11];
  return r;
}

void NmeaDecode(std::string_view line, OwnShipState& own, WaypointMonitor& monitor, TrackBufferStore& track,
                const ClockReading& now) {
  if (line.find('$') == std::string_view::npos || line.find('*') == std::string_view::npos) return;

  if (line.find("RMC") != std::string_view::npos) {
    own.GPSRmcSeen = -1;
    own.GPSValid = 0;
    RmcFields r = ParseRMC(line);
    if (r.status == kFixGood || r.status == kFixWarning) {
      bool good = r.status == kFixGood;
      own.GPSLat = r.lat;
      own.GPSLong = r.lon;
      if (good) {
        own.GPSValid = -1;
        own.GPSTimeText = r.time;
        own.GPSDateText = r.dateText;
        own.GPSVariationText = r.variationText + r.variationSide;
        CreateFirstTrackPoint(track, r.lat, r.lon, r.time);
      }
      own.GPSCourse = r.courseText.empty() ? 0.0f : static_cast<float>(TextValue(r.courseText));
      own.GPSSpeed = r.speedText.empty() ? 0.0f : static_cast<float>(TextValue(r.speedText));
      if (good && track.UpperBound() > 0) {
        if (!r.courseText.empty()) track.points.back().Course = own.GPSCourse;
        if (!r.speedText.empty()) track.points.back().Speed = own.GPSSpeed;
      }
      own.GPSPositionText = r.latText + "  " + r.lonText;
      // A void fix's line has no blank after "Heading": so it always read.
      own.GPSCourseSpeedText = std::string(good ? "Heading " : "Heading") + NumberText(own.GPSCourse) + kDegree +
                               "T @ " + NumberText(own.GPSSpeed) + " Kn";
    }
  }

  if (line.find("GLL") != std::string_view::npos && own.GPSRmcSeen == 0) {
    GllFields g = ParseGLL(line);
    if (g.status == kFixGood) {
      own.GPSValid = -1;
      own.GPSLat = g.lat;
      own.GPSLong = g.lon;
      own.GPSTimeText = g.time;
      own.GPSDateText = TwoDigits(now.day) + TwoDigits(now.month) + TwoDigits(now.year % 100);
      CreateFirstTrackPoint(track, g.lat, g.lon, g.time);
    }
  }

  if (line.find("RMB") != std::string_view::npos) {
    RmbFields r = ParseRMB(line);
    if (Utf8Length(TrimSpaces(r.waypointLatText)) > 5) own.GPSWaypointValid = -1;
    monitor.lblxte = r.xte;
    monitor.lblwaydist = r.range;
    if (r.steerDirection == "R") {
      monitor.lblsteerdir = "Stbd";
      monitor.steerColour = 0x00FF00;
    } else if (r.steerDirection == "L") {
      monitor.lblsteerdir = "Port";
      monitor.steerColour = 0xFF0000;
    }
    monitor.lblwayname = r.waypointId;
    monitor.lblwaylat = r.waypointLatText;
    monitor.lblwaylong = r.waypointLongText;
    monitor.lblwaybearing = r.bearing;
    std::string id = r.waypointId.substr(0, 6);
    std::string bearing = r.bearing.empty() ? "0.0" : r.bearing;
    std::string range = r.range.empty() ? "0.0" : r.range;
    own.GPSWaypointText = id.empty() ? std::string() : "Waypt (" + id + ") " + range + "M@" + bearing + kDegree + "T";
  }
}

}  // namespace kelvane
