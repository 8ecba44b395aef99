#include "routes/samplewaypoints.h"

#include "core/recordio.h"
#include "routes/gpxwrite.h"

namespace kelvane {

namespace {

struct SampleMark {
  const char* lat;  // decimal degrees, as written
  const char* lon;  // decimal degrees with its leading blank, as written
  const char* name;
  const char* desc;
  const char* sym;  // colour bands of the chart mark: W, RW, BW, GREY, G, R, BY, YB, BYB, YBY, BRB
};

// Marks of the English Channel coast from the Lizard to the South Foreland.
//
// Positions are WGS84 decimal degrees rounded to about a tenth of a cable:
// lights as published in the Admiralty List of Lights (volume A) and the
// Trinity House station pages (Needles 50 39.73N 001 35.51W, Portland Bill
// 50 30.85N 002 27.38W, St Catherine's 50 34.54N 001 17.87W and so on),
// buoys from the positions given on the Admiralty charts of the Solent
// (2036, 2045), Portland (2255), Falmouth (154) and the Dover Strait (1892),
// headlands at the seaward tip of the land on the same charts. Anvil Point
// keeps the position the program has always shipped. Buoys are moved from
// time to time: these are sample marks, not a substitute for a corrected
// chart.
//
// Cardinal buoys carry their bands top to bottom: north BY, south YB,
// east BYB, west YBY; the isolated danger beacon BRB; the safe water buoy
// of Poole red and white.
constexpr SampleMark kSampleMarks[] = {
    {"50.58233", " -1.930833", "Anvil Point", "White Tower", "W"},
    {"50.73372", " 0.24138", "Beachy Head", "Red and White Tower", "RW"},
    {"50.68583", " -1.04567", "Bembridge Ledge", "East Cardinal Buoy", "BYB"},
    {"50.3995", " -3.4835", "Berry Head", "White Tower", "W"},
    {"50.145", " -5.03333", "Black Rock", "Isolated Danger Beacon", "BRB"},
    {"50.2133", " -3.787", "Bolt Head", "", ""},
    {"50.6605", " -1.61467", "Bridge", "West Cardinal Buoy", "YBY"},
    {"50.218", " -4.804", "Dodman Point", "", ""},
    {"50.91283", " 0.97783", "Dungeness", "Black and White Tower", "BW"},
    {"50.617", " -1.174", "Dunnose", "", ""},
    {"50.596", " -1.953", "Durlston Head", "", ""},
    {"50.78717", " -1.22717", "East Bramble", "East Cardinal Buoy", "BYB"},
    {"50.18067", " -4.26567", "Eddystone", "Grey Tower", "GREY"},
    {"50.7665", " -1.3118", "Egypt Point", "", ""},
    {"50.686", " -1.072", "Foreland", "", ""},
    {"50.775", " -1.136", "Gilkicker Point", "", ""},
    {"50.3178", " -4.671", "Gribbin Head", "Red and White Daymark", "RW"},
    {"50.7136", " -1.755", "Hengistbury Head", "", ""},
    {"50.463", " -3.482", "Hope's Nose", "", ""},
    {"50.708", " -1.5505", "Hurst Point", "White Tower", "W"},
    {"49.95967", " -5.20217", "Lizard Point", "White Tower", "W"},
    {"50.04683", " -5.03183", "Manacles", "East Cardinal Buoy", "BYB"},
    {"50.668", " -0.9525", "Nab Tower", "Grey Tower", "GREY"},
    {"50.66228", " -1.59181", "Needles", "Red and White Tower", "RW"},
    {"50.776", " 0.06", "Newhaven Breakwater", "White Tower", "W"},
    {"50.7398", " -1.0945", "No Man's Land Fort", "", ""},
    {"50.71083", " -1.5905", "North Head", "Green Conical Buoy", "G"},
    {"50.643", " -1.925", "Old Harry Rocks", "", ""},
    {"50.75967", " -1.09167", "Outer Spit", "South Cardinal Buoy", "YB"},
    {"50.64317", " -0.68483", "Owers", "South Cardinal Buoy", "YB"},
    {"50.608", " -1.941", "Peveril Point", "", ""},
    {"50.3345", " -4.15867", "Plymouth Breakwater", "White Tower", "W"},
    {"50.64917", " -1.9145", "Poole Fairway", "Safe Water Buoy", "RW"},
    {"50.51417", " -2.45633", "Portland Bill", "Red and White Tower", "RW"},
    {"50.2026", " -3.7218", "Prawle Point", "", ""},
    {"50.3113", " -4.2228", "Rame Head", "", ""},
    {"50.70883", " -1.52383", "Sconce", "North Cardinal Buoy", "BY"},
    {"50.722", " -0.788", "Selsey Bill", "", ""},
    {"50.52967", " -2.33467", "Shambles", "East Cardinal Buoy", "BYB"},
    {"51.1403", " 1.3706", "South Foreland", "White Tower", "W"},
    {"50.5754", " -2.0555", "St Alban's Head", "", ""},
    {"50.141", " -5.016", "St Anthony Head", "White Tower", "W"},
    {"50.57567", " -1.29783", "St Catherine's Point", "White Tower", "W"},
    {"50.22233", " -3.64233", "Start Point", "White Tower", "W"},
    {"50.608", " -3.357", "Straight Point", "", ""},
    {"50.05233", " -5.57783", "Tater Du", "White Tower", "W"},
    {"51.0215", " 1.39833", "Varne", "Red Light Float", "R"},
    {"50.78667", " -1.31083", "West Bramble", "West Cardinal Buoy", "YBY"},
};

static_assert(sizeof(kSampleMarks) / sizeof(kSampleMarks[0]) == 48, "the sample holds 48 marks");

}  // namespace

std::string SampleWaypointsText() {
  std::string text = GpxHeader();
  for (const SampleMark& m : kSampleMarks) text += WaypointToGpx(m.lat, m.lon, m.name, m.desc, m.sym);
  text += GpxFooter();
  return text;
}

bool WriteSampleWaypoints(const Folders& folders) {
  std::error_code ec;
  std::filesystem::create_directories(folders.WaypointsFolder(), ec);
  return WriteFileAtomic(folders.WaypointsFolder() / kSampleWaypointFileName, SampleWaypointsText());
}

}  // namespace kelvane
