#include "tides/daytable.h"

#include "core/format.h"
#include "core/timetext.h"

namespace kelvane {

std::vector<std::string> DayTableLines(const std::string& dateText, const std::string& weekday,
                                       const std::string& portName, const TurningPoints& turning) {
  std::vector<std::string> lines;
  lines.push_back("Date : " + dateText + " " + weekday);
  lines.push_back("Port : " + portName);
  lines.push_back("   Time    Ht.");
  for (const TurningPoint& point : turning.points) {
    std::string height = FormatNumber(point.height, "#,#0.0;;;");
    lines.push_back("   " + HoursToClock(point.time) + std::string(height.size() < 6 ? 6 - height.size() : 1, ' ') +
                    height);
  }
  lines.push_back("   (Range " + FormatNumber(turning.range, "0.0") + ")");
  return lines;
}

}  // namespace kelvane
