// The request for a GRIB file by e-mail: the text a GRIB-by-mail service
// (SailDocs, or any that reads the same text) answers with a forecast of
// the chart's area, and what the user is told to do with it.
//
// The area's edges are rounded outward to a half degree so that the grid
// always covers the chart: an edge whose fraction of a degree is below 0.5
// goes to the half degree, one of 0.5 or more to the next whole degree (so
// 50.2 N -> 50.5, 50.6 -> 51, and an edge on a whole degree still moves
// out by a half: 50.0 -> 50.5). Northern and eastern edges move north and
// east, southern and western ones south and west, whatever the hemisphere.
//
//   send gfs:50.5N,49.5N,1.5W,0.5E|0.25,0.25|0,3,...,120|WIND
//
// A 0.25 degree grid, forecasts every 3 hours out to 120: the 3-hourly
// slots the wind store looks winds up in.
#pragma once

#include <string>
#include <vector>

namespace kelvane {

// An edge rounded outward: `outward` +1 for the north and east edges, -1
// for the south and west ones.
double GribEdgeOutward(double edge, int outward);

// The one-line request for the area between the four edges (degrees, north
// and east positive), edges rounded outward.
std::string GribRequestLine(double north, double south, double west, double east);

// The address the request is mailed to: KELVANE_GRIB_REQUEST_ADDRESS when
// it is set and not empty, else SailDocs' "query@saildocs.com".
inline constexpr const char* kDefaultGribRequestAddress = "query@saildocs.com";
std::string GribRequestAddress();

// The lines shown once the request is on the clipboard.
std::vector<std::string> GribRequestMessageLines(const std::string& address);

}  // namespace kelvane
