// The settings record: every setting of the user in one binary record of
// 3,582 bytes, KelvaneConfigv1000.cfg, read whole and written whole.
//
// The file packs the fields with no padding, little-endian, at the offsets
// of SettingsFields(). Text fields are fixed-width and blank-padded; in
// memory they are held without their padding. 16-bit booleans are 0 and -1,
// except the few that the program stores as 0 and 1 (ShowTidalStreams,
// ShowWaypoints, UseLeeway, StreamFilled, WayFill). There is no version
// field: the version is in the file name, and a file of the wrong size is
// read as far as it goes.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kelvane {

inline constexpr std::size_t kSettingsRecordSize = 3582;
inline constexpr const char* kSettingsFileName = "KelvaneConfigv1000.cfg";

struct SettingsRecord {
  std::string ChartDescription;
  std::string ChartPath;
  std::string ChartSet;
  std::string WaypointFile;
  std::string WaypointFolder;
  std::string GPSType;
  std::string ImportFolder;
  std::string HazardFolder;
  std::string GribFolder;
  std::string Reserved1;
  std::string HarmonicFile;
  std::string Port;
  std::int16_t PortIndex = 0;
  std::int16_t ShowChartBoundaries = 0;
  std::int16_t ShowTideHeights = 0;
  float CPAAlarm = 0;
  float VHFRange = 0;
  float RadarRange = 0;
  float HorizonRange = 0;
  float SearchCircle = 0;
  float Draught = 0;
  float UnderKeelClearance = 0;
  float StreamThreshold = 0;
  std::int16_t EnableRings = 0;
  std::int16_t Reserved2 = 0;
  std::int16_t DisplayAISAsBoat = 0;
  std::int16_t BoatLineWidth = 0;
  std::int16_t BoatFutureTidePlot = 0;
  float AheadIntervals = 0;
  std::int16_t AISLineWidth = 0;
  std::int16_t ShowToolBar = 0;
  std::int16_t NmeaLogOn = 0;
  std::int16_t GPSThroAIS = 0;
  std::int16_t ShowAISDetails = 0;
  std::int16_t AISHistTrack = 0;
  std::int16_t AISPredTrack = 0;
  std::int16_t AISHeadingVector = 0;
  std::int16_t AISListIndex = 0;
  std::int16_t Reserved3 = 0;
  std::int16_t Reserved4 = 0;
  std::array<std::int16_t, 6> Reserved5{};
  float ShowTidalStreams = 0;
  float ShowWaypoints = 0;
  float Reserved6 = 0;
  float LineSize = 0;
  std::int16_t AISPort = 0;
  std::int16_t AISBaudCode = 0;
  std::int16_t GPSPort = 0;
  std::int16_t GPSBaudCode = 0;
  float CalcInterval = 0;
  float AISMinSpeed = 0;
  float VesselSpeed = 0;
  float AcceptableError = 0;
  float Variation = 0;
  float GPSOption1 = 0;
  float GPSOption2 = 0;
  std::int16_t GPSInterval = 0;
  float TrackLayer = 0;
  float Reserved7 = 0;
  float Reserved8 = 0;
  std::int16_t SummerTime = 0;
  float ClosestSailingAngle = 0;
  float Leeway = 0;
  std::int16_t Reserved9 = 0;
  float AheadVector = 0;
  std::int16_t HideStreamId = 0;
  std::int16_t HideStreamId2 = 0;
  std::int16_t UseLeeway = 0;
  std::int16_t BarbWeight = 0;
  std::string ChartFile;
  std::string ChartsFolder;
  float Reserved10 = 0;
  std::int16_t ShowWind = 0;
  std::int16_t ShowVectors = 0;
  std::int16_t Reserved11 = 0;
  std::int16_t ShowLegWaypoints = 0;
  std::int32_t HazardColour = 0;
  std::int32_t Reserved12 = 0;
  std::int32_t Reserved13 = 0;
  std::array<std::int16_t, 2> Reserved14{};
  std::int16_t GPSCentre = 0;
  std::int16_t UseTides = 0;
  std::int32_t ViewColour = 0;
  std::int32_t AISColour = 0;
  std::int32_t AISColour2 = 0;
  std::int32_t COGColour = 0;
  std::int32_t GPSColour = 0;
  std::int32_t WindColour = 0;
  std::int32_t WindFontColour = 0;
  std::int32_t WindFontSize = 0;
  float BarbLength = 0;
  std::int16_t BarbSpacing = 0;
  std::int16_t BarbDisplayText = 0;
  std::int16_t UseSmartMet = 0;
  std::int16_t WindDisplay = 0;
  std::int16_t TideOutputMode = 0;
  std::int16_t Reserved15 = 0;
  std::int16_t StreamLength = 0;
  std::int16_t StreamFilled = 0;
  std::int16_t StreamLineWidth = 0;
  std::int32_t TidalStreamColour = 0;
  std::int16_t StreamAsShape = 0;
  std::int32_t StreamFontSize = 0;
  std::int32_t StreamFontColour = 0;
  std::int32_t TextSize = 0;
  std::int32_t WreckTextColour = 0;
  std::int32_t WayColour = 0;
  std::int32_t WayTextColour = 0;
  std::int32_t TextWaySize = 0;
  std::int16_t WayLineSize = 0;
  std::int16_t WayFill = 0;
  std::int16_t WaySize = 0;
  std::int16_t WayPointIcon = 0;
  std::int32_t CursorX = 0;
  std::int32_t CursorY = 0;
  std::int16_t MouseAttached = 0;
  std::int16_t DataInApplicationFolder = 0;
  std::int16_t HazardFill = 0;
  std::int16_t WreckNames = 0;
  std::int16_t WreckFill = 0;
  std::int32_t WreckColour = 0;
  std::int32_t UserWreckLineColour = 0;
  std::int32_t Reserved16 = 0;
  std::int16_t WreckLineWidth = 0;
  float WreckRange = 0;
  std::int32_t DiveSiteColour = 0;
  std::int32_t ObstructionColour = 0;
  std::int16_t DisplayWreckAsBoat = 0;
  std::int16_t ObsDetails = 0;
  std::int16_t ObstLineWidth = 0;
  std::int16_t ShowWrecks = 0;
  std::int16_t ShowObstructions = 0;
  std::int16_t DisplayDead = 0;
  std::int16_t DisplayLive = 0;
  std::int16_t WreckLayer1 = 0;
  std::int16_t WreckLayer2 = 0;
  std::int16_t WreckLayer3 = 0;
  std::int16_t ShowChartName = 0;
  std::int16_t ShowChartNum = 0;
  std::int16_t AutoChartSwitch = 0;
  float ScaleMin = 0;
  float ScaleMax = 0;

  bool operator==(const SettingsRecord&) const = default;
};

// One field of the file: its name, offset and width in bytes, and where it
// lives in the record. The table is in file order and covers every byte.
struct SettingsField {
  using Member = std::variant<std::string SettingsRecord::*, std::int16_t SettingsRecord::*,
                              std::int32_t SettingsRecord::*, float SettingsRecord::*,
                              std::array<std::int16_t, 6> SettingsRecord::*,
                              std::array<std::int16_t, 2> SettingsRecord::*>;
  const char* name;
  std::size_t offset;
  std::size_t width;
  Member member;
};
const std::vector<SettingsField>& SettingsFields();

struct Folders;  // datatree.h

// The record of a first run. Paths join the program's folders with "/".
SettingsRecord DefaultSettings(const Folders& folders);

// Puts the factory chart choice into a record and leaves every other field
// as it is: the sample chart's area, path, title and number, and the charts
// folder. What the program writes when the chart in use cannot be shown.
void SetFactoryChart(SettingsRecord& record, const Folders& folders);

// The record as file bytes: exactly 3,582 of them.
std::vector<std::uint8_t> EncodeSettings(const SettingsRecord& record);
// The record from file bytes. A short input is read as far as it goes, the
// rest left blank or zero; bytes past the record are ignored. A text field
// that is not valid UTF-8 is taken as Windows-1252 (files written on
// Windows) and converted.
SettingsRecord DecodeSettings(const std::vector<std::uint8_t>& bytes);

// Reads the settings file. A missing file reads as an empty one.
SettingsRecord ReadSettings(const std::filesystem::path& file);
// Writes the whole record. The bytes go to a temporary file beside the
// settings file, which is then renamed over it: a crash never leaves a
// torn record. Returns false (and leaves the old file) when it cannot.
bool WriteSettings(const std::filesystem::path& file, const SettingsRecord& record);

// A change of the settings: edits the fields it owns and no other.
using SettingsChange = std::function<void(SettingsRecord&)>;
// The one read-change-write of the settings file: the record is read, the
// change made to it, and it is written back whole (atomically). The file
// keeps every field the change does not own, whoever wrote it last.
// Returns false (and leaves the old file) when it cannot be written.
bool ChangeSettingsFile(const std::filesystem::path& file, const SettingsChange& change);

// "Name = value" lines, one per field, in file order.
std::vector<std::string> SettingsLines(const SettingsRecord& record);

// ---- colours -------------------------------------------------------------

// Packed RGB with red in the low byte.
constexpr std::int32_t PackColour(int red, int green, int blue) {
  return static_cast<std::int32_t>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}
constexpr int ColourRed(std::int32_t c) { return c & 0xFF; }
constexpr int ColourGreen(std::int32_t c) { return (c >> 8) & 0xFF; }
constexpr int ColourBlue(std::int32_t c) { return (c >> 16) & 0xFF; }

// The names offered for the user's wreck line colour, in list order.
const std::vector<std::string>& ColourNames();
// The colour of a name of that list; any other text gives yellow.
std::int32_t ColourFromName(std::string_view name);
// The name of a colour of that list, or "" when it is none of them.
std::string ColourName(std::int32_t colour);

}  // namespace kelvane
