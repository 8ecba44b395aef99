#include "instruments/comms_forms.h"

#include "core/format.h"

namespace kelvane {

const std::vector<std::string>& CommsInfoIntroLines() {
  static const std::vector<std::string> lines = {
      "This routine scans through the available comms ports on the PC. ",
      "The available ports are shown in the drop down box.",
      "Your GPS or AIS should be connected before entering this routine.",
      "Select a port, baud rate and then select 'Test Port'",
      "Typical baud rates are GPS NMEA 4800 baud, AIS rate 38400, some receivers ",
      "output at other rates.",
      "GPS Data looks like $GPRMC,124541,A,5051.206,N.......",
      "AIS Data looks like !AIVDM,2,2,9,A,40H=tI4i@E53......",
      "(Baud is a term used to denote the speed of data transmission).",
  };
  return lines;
}

const std::vector<std::string>& CommonBaudRates() {
  static const std::vector<std::string> rates = {"4800", "9600", "19200", "38400"};
  return rates;
}

const std::vector<std::string>& AllBaudRates() {
  static const std::vector<std::string> rates = {"110",  "300",   "1200",  "2400",  "4800",
                                                 "9600", "19200", "38400", "57600", "115200"};
  return rates;
}

const std::vector<IntervalChoice>& GpsIntervalChoices() {
  static const std::vector<IntervalChoice> choices = {
      {"5 Secs", 5},  {"10 Secs", 10}, {"15 Secs", 15},  {"30 Secs", 30},   {"1 Min", 60},
      {"2 Mins", 120}, {"5 Mins", 300}, {"10 Mins", 600}, {"15 Mins", 900},
  };
  return choices;
}

std::string GpsIntervalText(int seconds) {
  for (const IntervalChoice& c : GpsIntervalChoices())
    if (c.seconds >= seconds) return c.text;
  return GpsIntervalChoices().back().text;
}

const std::vector<std::string>& AheadIntervalChoices() {
  static const std::vector<std::string> choices = {"5", "10", "20", "30", "60"};
  return choices;
}

const std::vector<std::string>& AisFieldChoices() {
  static const std::vector<std::string> choices = {"MMSI",       "Vessel Name", "Ship Type", "Navstatus",
                                                   "Dimensions", "Destination", "Heading"};
  return choices;
}

std::string MonitorSpeedText(float knots) { return FormatNumber(knots, "0.0") + " Kn"; }
std::string MonitorCourseText(float degrees) { return FormatNumber(degrees, "000") + "\xC2\xB0T"; }

}  // namespace kelvane
