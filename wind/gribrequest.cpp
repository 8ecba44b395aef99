#include "wind/gribrequest.h"

#include <cmath>
#include <cstdlib>

#include "core/format.h"

namespace kelvane {

namespace {

// "50.5N," from 50.5 and the letters of its two signs.
std::string EdgeText(double edge, const char* positive, const char* negative, const char* tail) {
  // A rounded edge is a whole or half degree: "51", "50.5".
  return NumberText(std::fabs(edge)) + (edge < 0 ? negative : positive) + tail;
}

}  // namespace

double GribEdgeOutward(double edge, int outward) {
  // Work on the edge as if it were a north edge: a south or west edge is
  // the north edge of the mirrored area.
  const double x = outward >= 0 ? edge : -edge;
  const double whole = std::floor(x);
  const double rounded = whole + (x - whole < 0.5 ? 0.5 : 1.0);
  const double back = outward >= 0 ? rounded : -rounded;
  return back == 0 ? 0.0 : back;  // never a "-0"
}

std::string GribRequestLine(double north, double south, double west, double east) {
  return "send gfs:" + EdgeText(GribEdgeOutward(north, 1), "N", "S", ",") +
         EdgeText(GribEdgeOutward(south, -1), "N", "S", ",") + EdgeText(GribEdgeOutward(west, -1), "E", "W", ",") +
         EdgeText(GribEdgeOutward(east, 1), "E", "W", "|") + "0.25,0.25|" +
         "0,3,6,9,12,15,18,21,24,27,30,33,36,39,42,45,48,51,54,57,60,63,66,69,72,75,78,81,84,87,90,93,96,99,102,105,"
         "108,111,114,117,120|WIND";
}

std::string GribRequestAddress() {
  const char* set = std::getenv("KELVANE_GRIB_REQUEST_ADDRESS");
  return set && *set ? std::string(set) : std::string(kDefaultGribRequestAddress);
}

std::vector<std::string> GribRequestMessageLines(const std::string& address) {
  return {"A request for a GRIB file for this chart area",
          "has been put into the PC's clipboard.",
          "send an email to : ",
          "     " + address,
          "with a title of 'grib' and paste only the contents",
          "of the clipboard into the body of the email.",
          "A reply can be expected by return with the",
          "grib data as an attachment.",
          "Save the attachments to your PC and navigate to",
          "it in the Grib Import window."};
}

}  // namespace kelvane
