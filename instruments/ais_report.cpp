#include "instruments/ais_report.h"

#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"
#include "core/timetext.h"

namespace kelvane {

namespace {

const char kDegree[] = "\xC2\xB0";

std::string PositionText(float lat, float lon) { return LatToText(lat) + ", " + LonToText(lon); }

std::string Line(const std::string& label, const std::string& value) { return label + " : " + value; }

}  // namespace

std::string AisSummaryLine(const AISTarget& t, const OwnShipState& own, float nowHours) {
  std::string name = TrimSpaces(t.VesselName);
  if (name.empty()) name = "* name not received  ";
  std::string line = name + "\t" + FormatNumber(t.MMSI, "000000000") + "\t" + std::to_string(t.MessageType) + "\t" +
                     PositionText(t.Lat, t.Long) + "\t";
  if (own.GPSLat != 0 || own.GPSLong != 0) {
    RangeAndBearing rb = RangeBearing(own.GPSLat, own.GPSLong, t.Lat, t.Long);
    line += FormatNumber(rb.range, "0.0") + " nm " + FormatNumber(rb.bearing, "000") + kDegree + "T";
  }
  line += "\t" + CpaText(t.CPA, t.TimeToCPA, nowHours);
  return line;
}

std::vector<std::string> AisDetailsLines(const AISTarget& t, float nowHours) {
  std::vector<std::string> lines;
  if (t.Status == 100) {
    lines.push_back(Line("Target Name", TrimSpaces(t.VesselName)));
    lines.push_back("Position : " + PositionText(t.Lat, t.Long));
    lines.push_back("(AIS Aid to Navigation - MMSI " + std::to_string(t.MMSI) + ")");
    return lines;
  }
  lines.push_back(Line("Name", t.VesselName));
  if (t.Callsign.find("Altitude") != std::string::npos)
    lines.push_back(Line("Altitude", t.Callsign));
  else
    lines.push_back(Line("Callsign", t.Callsign));
  lines.push_back(Line("MMSI", std::to_string(t.MMSI)));
  lines.push_back(Line("Status", NavStatusText(t.Status)));
  lines.push_back(Line("Destination", t.Destination));
  lines.push_back(Line("Dimensions", t.Dimensions));
  lines.push_back(Line("Vessel Type ", t.ShipType));
  lines.push_back(Line("Position   ", PositionText(t.Lat, t.Long)));
  lines.push_back(Line("Heading   ", FormatNumber(t.Speed, "0.0") + "kn @ " + FormatNumber(t.Course, "000") + kDegree + "T"));
  lines.push_back(Line("CPA", CpaText(t.CPA, t.TimeToCPA, nowHours)));
  lines.push_back(Line("Time", HoursToClock(t.LastHeardHours)));
  lines.push_back("Historical Data");
  for (std::size_t k = 1; k <= 6; ++k)
    lines.push_back(HoursToClock(t.History[k].TimeHours) + "  " + PositionText(t.History[k].Lat, t.History[k].Long));
  lines.push_back("Predicted Position");
  for (std::size_t k = 1; k <= 6; ++k)
    lines.push_back(HoursToClock(t.Predicted[k].TimeHours) + "  " +
                    PositionText(t.Predicted[k].Lat, t.Predicted[k].Long));
  return lines;
}

std::string AisLabelText(const AISTarget& t, int listIndex) {
  switch (listIndex) {
    case 1: {
      const std::string name = TrimSpaces(t.VesselName);
      return name.empty() ? std::to_string(t.MMSI) : name;
    }
    case 2: return t.ShipType;
    case 3: return NavStatusText(t.Status);
    case 4: return t.Dimensions;
    case 5: return t.Destination;
    case 6: return FormatNumber(t.Speed, "0.0") + "kn @ " + FormatNumber(t.Course, "000") + kDegree + "T";
    default: return std::to_string(t.MMSI);
  }
}

std::string AisTargetsDrawnText(int count) { return "Num AIS Targets Drawn = " + std::to_string(count); }

}  // namespace kelvane
