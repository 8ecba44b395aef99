#include "core/helptext.h"

#include "core/recordio.h"

namespace kelvane {

namespace {

// A source file is a page or two of text; anything far larger is not one.
constexpr std::uintmax_t kMaxSourceFileBytes = 1024u * 1024u;

}  // namespace

const std::vector<std::string>& AdvisoryWarning() {
  static const std::vector<std::string> lines = {
      "Kelvane is a passage planning tool and a secondary aid to navigation. All of its results are advisory.",
      "Tidal heights and streams are derived from published harmonic constants and tidal diamonds: "
      "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE.",
      "Plane sailing calculations are used throughout; accuracy is claimed only to within a few percent.",
      "Check every result against the official charts and tide tables before you use it.",
  };
  return lines;
}

std::vector<DataSourceText> ShippedDataSources(const std::filesystem::path& dataRoot) {
  std::vector<DataSourceText> sources;
  for (const char* name : {"README.md", "TIDES-SOURCES.md", "STREAMS-SOURCES.md"}) {
    DataSourceText source;
    source.fileName = name;
    const std::filesystem::path file = dataRoot / name;
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
      source.text = "The file " + file.string() + " is missing from the data folder.";
    } else if (auto bytes = ReadFileBytes(file, kMaxSourceFileBytes)) {
      source.text = TextFromFile(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
      source.found = true;
    } else {
      source.text = "The file " + file.string() + " can't be read or is too large to be a list of sources.";
    }
    sources.push_back(std::move(source));
  }
  return sources;
}

std::string AboutText(std::string_view version, const std::filesystem::path& dataRoot) {
  std::string text = "# Kelvane " + std::string(version) + "\n\n";
  text += "Passage planner and secondary navigation aid for small craft and divers.\n\n";
  text += "## Warning\n\n";
  for (const std::string& line : AdvisoryWarning()) text += line + "\n\n";
  text += "## Data: sources and licences\n\n";
  text += "Read from the data folder " + dataRoot.string() + ".\n\n";
  for (const DataSourceText& source : ShippedDataSources(dataRoot)) {
    text += "---\n\n*" + source.fileName + "*\n\n";
    // The files carry their own headings; they sit one level below ours.
    std::string body;
    std::size_t start = 0;
    while (start <= source.text.size()) {
      std::size_t end = source.text.find('\n', start);
      if (end == std::string::npos) end = source.text.size();
      std::string line = source.text.substr(start, end - start);
      if (!line.empty() && line[0] == '#') line = "##" + line;
      body += line + "\n";
      start = end + 1;
    }
    text += body + "\n";
  }
  return text;
}

const std::string& QuickInstructionsText() {
  static const std::string text = R"(# Quick instructions

Kelvane works a passage leg by leg through the tidal streams of the chart's area. Its results are advisory: check them against the official charts and tide tables.

## First steps

1. **Settings > General Settings...**: set the variation (for example "2W"), your boat's speed through the water, the leeway and summer time. Saving the settings gives every leg of the route on show the new boat speed.
2. **Settings > Date and Time...**: the date and time to plan for. Until you set one, the program follows the clock and the streams on the chart move on every minute. **Tides > Tide Time + 1 Hour** and **- 1 Hour** step the tide time by the hour.
3. **Chart > Select Chart...**: pick the sea area and the chart. Cancel or Esc leaves the chart as it was.

## Building a route

- Hold **Shift** and click the left button on the chart to add a route point. Near a waypoint the pointer changes to four arrows: the point snaps to the waypoint and takes its name. The search circle of the settings sets how near is near.
- **Backspace** removes the last point; **Esc** clears the whole route.
- **M** marks the nearest waypoint or route point; with a route point marked, **Del** deletes it and **Ins** inserts a point on the nearest leg.
- **Route > Route Drag**: hold the right button over a route point and move it.
- **Route > Dividers**: Shift + click sets the zero point; the label then gives range and bearing to the pointer.

## Calculating

- **Route > Calculate Route...** lists the legs with their speeds. Set the departure time and press OK: each leg is worked through the stream at every step. The report gives the course to steer in degrees magnetic, the time on each leg and the arrival.
- A leg the boat cannot make against the stream is reported at that leg and the route point is moved to where the boat got to.
- **Route > Last Route Results...** shows the earlier reports.

## Wind and sailing

- **Wind > GRIB Request...** puts a request for a forecast of the chart's area on the clipboard: mail it to a GRIB-by-mail service as the message says, and save the file that comes back.
- **Wind > Import GRIB File...** reads that file (GRIB edition 1) into the wind store. **Show Wind on Chart** (**'**) draws the forecast as wind barbs for the tide time on show, the nearest forecast of its 3-hour slot.
- GRIB times are UTC, and so are the wind store's: the program holds no time zone. In summer time (BST, one hour ahead) the forecast for 12:00 UTC is the wind at 13:00 on your clock.
- **Wind > Use Stored Wind for Route** gives each leg of the route the forecast wind at its start, at the time the boat gets there. A leg the forecast does not cover (more than 40 miles from a grid point, or outside the forecast's times) keeps its last good wind.
- **Wind > Enter Wind...** (or **Wind** in the route form) works each leg's speed and tack from the wind and the boat's polar; **Tack** in the route form sets each leg's tack so that leeway goes the right way. **Polar Plot...** and **Edit Polars...** show and change the polar. The sample polar is synthetic, not a real boat's: enter your own.
- **Route > Single Leg...** solves one leg between two positions typed, picked from the waypoints or taken from the GPS.

## Moving about the chart

- Drag with the left button to pan; **Up**, **Down**, **Left**, **Right** (or **U**, **D**, **L**, **R**, **Page Up**, **Page Down**) pan too; **Home** centres the chart.
- **I** or **=** zooms in and **O** or **-** zooms out, centred on the pointer; **0** to **9** set the zoom to 100, 10, 20 ... 90 percent.
- The right button opens the chart's menu: zoom, the largest scale chart at the pointer, the next and previous scale charts.
- **F9** and **F10** take the chart's brightness down and up; **Chart > Night View** dims the whole window.

## Layers

- **S** tidal streams, **P** tidal ports, **W** waypoints, **N** wind over the route, **'** wind on the chart.

## Instruments

- **Instruments > Configure GPS...** chooses the port and the receiver type; **Attach GPS** starts the link. **G** keeps the boat in view.
- With an AIS receiver attached, **F2** opens the details of the vessel nearest the pointer.
)";
  return text;
}

}  // namespace kelvane
