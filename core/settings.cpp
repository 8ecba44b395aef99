#include "core/settings.h"

#include <cstdio>
#include <type_traits>

#include "core/datatree.h"
#include "core/format.h"
#include "core/recordio.h"

namespace kelvane {

const std::vector<SettingsField>& SettingsFields() {
  using R = SettingsRecord;
  static const std::vector<SettingsField> fields = {
      {"ChartDescription", 0, 256, &R::ChartDescription},
      {"ChartPath", 256, 256, &R::ChartPath},
      {"ChartSet", 512, 256, &R::ChartSet},
      {"WaypointFile", 768, 256, &R::WaypointFile},
      {"WaypointFolder", 1024, 256, &R::WaypointFolder},
      {"GPSType", 1280, 128, &R::GPSType},
      {"ImportFolder", 1408, 512, &R::ImportFolder},
      {"HazardFolder", 1920, 256, &R::HazardFolder},
      {"GribFolder", 2176, 256, &R::GribFolder},
      {"Reserved1", 2432, 128, &R::Reserved1},
      {"HarmonicFile", 2560, 256, &R::HarmonicFile},
      {"Port", 2816, 128, &R::Port},
      {"PortIndex", 2944, 2, &R::PortIndex},
      {"ShowChartBoundaries", 2946, 2, &R::ShowChartBoundaries},
      {"ShowTideHeights", 2948, 2, &R::ShowTideHeights},
      {"CPAAlarm", 2950, 4, &R::CPAAlarm},
      {"VHFRange", 2954, 4, &R::VHFRange},
      {"RadarRange", 2958, 4, &R::RadarRange},
      {"HorizonRange", 2962, 4, &R::HorizonRange},
      {"SearchCircle", 2966, 4, &R::SearchCircle},
      {"Draught", 2970, 4, &R::Draught},
      {"UnderKeelClearance", 2974, 4, &R::UnderKeelClearance},
      {"StreamThreshold", 2978, 4, &R::StreamThreshold},
      {"EnableRings", 2982, 2, &R::EnableRings},
      {"Reserved2", 2984, 2, &R::Reserved2},
      {"DisplayAISAsBoat", 2986, 2, &R::DisplayAISAsBoat},
      {"BoatLineWidth", 2988, 2, &R::BoatLineWidth},
      {"BoatFutureTidePlot", 2990, 2, &R::BoatFutureTidePlot},
      {"AheadIntervals", 2992, 4, &R::AheadIntervals},
      {"AISLineWidth", 2996, 2, &R::AISLineWidth},
      {"ShowToolBar", 2998, 2, &R::ShowToolBar},
      {"NmeaLogOn", 3000, 2, &R::NmeaLogOn},
      {"GPSThroAIS", 3002, 2, &R::GPSThroAIS},
      {"ShowAISDetails", 3004, 2, &R::ShowAISDetails},
      {"AISHistTrack", 3006, 2, &R::AISHistTrack},
      {"AISPredTrack", 3008, 2, &R::AISPredTrack},
      {"AISHeadingVector", 3010, 2, &R::AISHeadingVector},
      {"AISListIndex", 3012, 2, &R::AISListIndex},
      {"Reserved3", 3014, 2, &R::Reserved3},
      {"Reserved4", 3016, 2, &R::Reserved4},
      {"Reserved5", 3018, 12, &R::Reserved5},
      {"ShowTidalStreams", 3030, 4, &R::ShowTidalStreams},
      {"ShowWaypoints", 3034, 4, &R::ShowWaypoints},
      {"Reserved6", 3038, 4, &R::Reserved6},
      {"LineSize", 3042, 4, &R::LineSize},
      {"AISPort", 3046, 2, &R::AISPort},
      {"AISBaudCode", 3048, 2, &R::AISBaudCode},
      {"GPSPort", 3050, 2, &R::GPSPort},
      {"GPSBaudCode", 3052, 2, &R::GPSBaudCode},
      {"CalcInterval", 3054, 4, &R::CalcInterval},
      {"AISMinSpeed", 3058, 4, &R::AISMinSpeed},
      {"VesselSpeed", 3062, 4, &R::VesselSpeed},
      {"AcceptableError", 3066, 4, &R::AcceptableError},
      {"Variation", 3070, 4, &R::Variation},
      {"GPSOption1", 3074, 4, &R::GPSOption1},
      {"GPSOption2", 3078, 4, &R::GPSOption2},
      {"GPSInterval", 3082, 2, &R::GPSInterval},
      {"TrackLayer", 3084, 4, &R::TrackLayer},
      {"Reserved7", 3088, 4, &R::Reserved7},
      {"Reserved8", 3092, 4, &R::Reserved8},
      {"SummerTime", 3096, 2, &R::SummerTime},
      {"ClosestSailingAngle", 3098, 4, &R::ClosestSailingAngle},
      {"Leeway", 3102, 4, &R::Leeway},
      {"Reserved9", 3106, 2, &R::Reserved9},
      {"AheadVector", 3108, 4, &R::AheadVector},
      {"HideStreamId", 3112, 2, &R::HideStreamId},
      {"HideStreamId2", 3114, 2, &R::HideStreamId2},
      {"UseLeeway", 3116, 2, &R::UseLeeway},
      {"BarbWeight", 3118, 2, &R::BarbWeight},
      {"ChartFile", 3120, 128, &R::ChartFile},
      {"ChartsFolder", 3248, 128, &R::ChartsFolder},
      {"Reserved10", 3376, 4, &R::Reserved10},
      {"ShowWind", 3380, 2, &R::ShowWind},
      {"ShowVectors", 3382, 2, &R::ShowVectors},
      {"Reserved11", 3384, 2, &R::Reserved11},
      {"ShowLegWaypoints", 3386, 2, &R::ShowLegWaypoints},
      {"HazardColour", 3388, 4, &R::HazardColour},
      {"Reserved12", 3392, 4, &R::Reserved12},
      {"Reserved13", 3396, 4, &R::Reserved13},
      {"Reserved14", 3400, 4, &R::Reserved14},
      {"GPSCentre", 3404, 2, &R::GPSCentre},
      {"UseTides", 3406, 2, &R::UseTides},
      {"ViewColour", 3408, 4, &R::ViewColour},
      {"AISColour", 3412, 4, &R::AISColour},
      {"AISColour2", 3416, 4, &R::AISColour2},
      {"COGColour", 3420, 4, &R::COGColour},
      {"GPSColour", 3424, 4, &R::GPSColour},
      {"WindColour", 3428, 4, &R::WindColour},
      {"WindFontColour", 3432, 4, &R::WindFontColour},
      {"WindFontSize", 3436, 4, &R::WindFontSize},
      {"BarbLength", 3440, 4, &R::BarbLength},
      {"BarbSpacing", 3444, 2, &R::BarbSpacing},
      {"BarbDisplayText", 3446, 2, &R::BarbDisplayText},
      {"UseSmartMet", 3448, 2, &R::UseSmartMet},
      {"WindDisplay", 3450, 2, &R::WindDisplay},
      {"TideOutputMode", 3452, 2, &R::TideOutputMode},
      {"Reserved15", 3454, 2, &R::Reserved15},
      {"StreamLength", 3456, 2, &R::StreamLength},
      {"StreamFilled", 3458, 2, &R::StreamFilled},
      {"StreamLineWidth", 3460, 2, &R::StreamLineWidth},
      {"TidalStreamColour", 3462, 4, &R::TidalStreamColour},
      {"StreamAsShape", 3466, 2, &R::StreamAsShape},
      {"StreamFontSize", 3468, 4, &R::StreamFontSize},
      {"StreamFontColour", 3472, 4, &R::StreamFontColour},
      {"TextSize", 3476, 4, &R::TextSize},
      {"WreckTextColour", 3480, 4, &R::WreckTextColour},
      {"WayColour", 3484, 4, &R::WayColour},
      {"WayTextColour", 3488, 4, &R::WayTextColour},
      {"TextWaySize", 3492, 4, &R::TextWaySize},
      {"WayLineSize", 3496, 2, &R::WayLineSize},
      {"WayFill", 3498, 2, &R::WayFill},
      {"WaySize", 3500, 2, &R::WaySize},
      {"WayPointIcon", 3502, 2, &R::WayPointIcon},
      {"CursorX", 3504, 4, &R::CursorX},
      {"CursorY", 3508, 4, &R::CursorY},
      {"MouseAttached", 3512, 2, &R::MouseAttached},
      {"DataInApplicationFolder", 3514, 2, &R::DataInApplicationFolder},
      {"HazardFill", 3516, 2, &R::HazardFill},
      {"WreckNames", 3518, 2, &R::WreckNames},
      {"WreckFill", 3520, 2, &R::WreckFill},
      {"WreckColour", 3522, 4, &R::WreckColour},
      {"UserWreckLineColour", 3526, 4, &R::UserWreckLineColour},
      {"Reserved16", 3530, 4, &R::Reserved16},
      {"WreckLineWidth", 3534, 2, &R::WreckLineWidth},
      {"WreckRange", 3536, 4, &R::WreckRange},
      {"DiveSiteColour", 3540, 4, &R::DiveSiteColour},
      {"ObstructionColour", 3544, 4, &R::ObstructionColour},
      {"DisplayWreckAsBoat", 3548, 2, &R::DisplayWreckAsBoat},
      {"ObsDetails", 3550, 2, &R::ObsDetails},
      {"ObstLineWidth", 3552, 2, &R::ObstLineWidth},
      {"ShowWrecks", 3554, 2, &R::ShowWrecks},
      {"ShowObstructions", 3556, 2, &R::ShowObstructions},
      {"DisplayDead", 3558, 2, &R::DisplayDead},
      {"DisplayLive", 3560, 2, &R::DisplayLive},
      {"WreckLayer1", 3562, 2, &R::WreckLayer1},
      {"WreckLayer2", 3564, 2, &R::WreckLayer2},
      {"WreckLayer3", 3566, 2, &R::WreckLayer3},
      {"ShowChartName", 3568, 2, &R::ShowChartName},
      {"ShowChartNum", 3570, 2, &R::ShowChartNum},
      {"AutoChartSwitch", 3572, 2, &R::AutoChartSwitch},
      {"ScaleMin", 3574, 4, &R::ScaleMin},
      {"ScaleMax", 3578, 4, &R::ScaleMax},
  };
  return fields;
}

void SetFactoryChart(SettingsRecord& record, const Folders& folders) {
  const SettingsRecord factory = DefaultSettings(folders);
  record.ChartDescription = factory.ChartDescription;
  record.ChartPath = factory.ChartPath;
  record.ChartSet = factory.ChartSet;
  record.ChartFile = factory.ChartFile;
  record.ChartsFolder = factory.ChartsFolder;
}

SettingsRecord DefaultSettings(const Folders& folders) {
  const std::string program = folders.programFolder.string();
  const std::string data = folders.DataRoot().string();
  SettingsRecord r;
  r.ChartDescription = "Sample Chart";
  r.ChartPath = program + "/Charts/9999-1";
  r.ChartSet = "Sample Chart";
  r.WaypointFile = "Sample.gpx";
  r.WaypointFolder = data + "/KelvaneFiles/Waypoints/";
  r.GPSType = "1";
  r.ImportFolder = program;
  r.HazardFolder = "";
  r.GribFolder = data;
  r.Reserved1 = "";  // 128 blanks in the file
  r.HarmonicFile = "UK.hc";
  r.Port = "Dover";
  r.PortIndex = 76;
  r.ShowChartBoundaries = 0;
  r.ShowTideHeights = -1;
  r.CPAAlarm = 0.25f;
  r.VHFRange = 10.0f;
  r.RadarRange = 12.0f;
  r.HorizonRange = 8.0f;
  r.SearchCircle = 1.0f;
  r.Draught = 0.5f;
  r.UnderKeelClearance = 0.5f;
  r.StreamThreshold = 3.0f;
  r.EnableRings = -1;
  r.Reserved2 = 0;
  r.DisplayAISAsBoat = -1;
  r.BoatLineWidth = 2;
  r.BoatFutureTidePlot = 0;
  r.AheadIntervals = 10.0f;
  r.AISLineWidth = 2;
  r.ShowToolBar = -1;
  r.NmeaLogOn = -1;
  r.GPSThroAIS = 0;
  r.ShowAISDetails = -1;
  r.AISHistTrack = -1;
  r.AISPredTrack = 0;
  r.AISHeadingVector = 0;
  r.AISListIndex = 1;
  r.Reserved3 = 4;
  r.Reserved4 = 5;
  r.Reserved5 = {};
  r.ShowTidalStreams = 1.0f;
  r.ShowWaypoints = 1.0f;
  r.Reserved6 = 0.0f;
  r.LineSize = 2.0f;
  r.AISPort = 1;
  r.AISBaudCode = 7;
  r.GPSPort = 0;
  r.GPSBaudCode = 4;
  r.CalcInterval = 5.0f;
  r.AISMinSpeed = 0.0f;
  r.VesselSpeed = 5.0f;
  r.AcceptableError = 1.0f;
  r.Variation = -2.0f;
  r.GPSOption1 = 1.0f;
  r.GPSOption2 = 1.0f;
  r.GPSInterval = 10;
  r.TrackLayer = 1.0f;
  r.Reserved7 = 1.0f;
  r.Reserved8 = 0.0f;
  r.SummerTime = 0;
  r.ClosestSailingAngle = 40.0f;
  r.Leeway = 5.0f;
  r.Reserved9 = 0;
  r.AheadVector = 5.0f;
  r.HideStreamId = 0;
  r.HideStreamId2 = 2;
  r.UseLeeway = 0;
  r.BarbWeight = 2;
  r.ChartFile = "9999-1.cht";
  r.ChartsFolder = program + "/Charts";
  r.Reserved10 = 5000.0f;
  r.ShowWind = 0;
  r.ShowVectors = -1;
  r.Reserved11 = 0;
  r.ShowLegWaypoints = 0;
  r.HazardColour = PackColour(128, 0, 0);
  r.Reserved12 = 143232;
  r.Reserved13 = 4;
  r.Reserved14 = {};
  r.GPSCentre = 0;
  r.UseTides = -1;
  r.ViewColour = 255;
  r.AISColour = 0xFF0000;
  r.AISColour2 = PackColour(0, 128, 128);
  r.COGColour = PackColour(0, 89, 89);
  r.GPSColour = 255;
  r.WindColour = 255;
  r.WindFontColour = 0;
  r.WindFontSize = 16;
  r.BarbLength = 20.0f;
  r.BarbSpacing = 6;
  r.BarbDisplayText = -1;
  r.UseSmartMet = -1;
  r.WindDisplay = 0;
  r.TideOutputMode = 2;
  r.Reserved15 = 1;
  r.StreamLength = 2;
  r.StreamFilled = 1;
  r.StreamLineWidth = 2;
  r.TidalStreamColour = 0xFF00FF;
  r.StreamAsShape = -1;
  r.StreamFontSize = 16;
  r.StreamFontColour = 0;
  r.TextSize = 22;
  r.WreckTextColour = 0;
  r.WayColour = 0xFF0000;
  r.WayTextColour = 0xFF0000;
  r.TextWaySize = 12;
  r.WayLineSize = 2;
  r.WayFill = 1;
  r.WaySize = 6;
  r.WayPointIcon = 0;
  r.CursorX = 512;
  r.CursorY = 400;
  r.MouseAttached = -1;
  r.DataInApplicationFolder = 0;
  r.HazardFill = -1;
  r.WreckNames = -1;
  r.WreckFill = -1;
  r.WreckColour = 0xFFFF;
  r.UserWreckLineColour = 0;
  r.Reserved16 = 0;
  r.WreckLineWidth = 1;
  r.WreckRange = 2.0f;
  r.DiveSiteColour = 255;
  r.ObstructionColour = 255;
  r.DisplayWreckAsBoat = -1;
  r.ObsDetails = -1;
  r.ObstLineWidth = 2;
  r.ShowWrecks = -1;
  r.ShowObstructions = -1;
  r.DisplayDead = 0;
  r.DisplayLive = -1;
  r.WreckLayer1 = -1;
  r.WreckLayer2 = -1;
  r.WreckLayer3 = -1;
  r.ShowChartName = 0;
  r.ShowChartNum = 0;
  r.AutoChartSwitch = -1;
  r.ScaleMin = 0.18f;
  r.ScaleMax = 1.5f;
  return r;
}

namespace {

// Calls f(field, value) for every field of the record in file order, the
// value being the record's member (const when the record is).
template <typename Record, typename F>
void ForEachField(Record& record, F&& f) {
  for (const SettingsField& field : SettingsFields())
    std::visit([&](auto member) { f(field, record.*member); }, field.member);
}

// One overload per field type: how it goes into the file...
void Put(RecordWriter& w, const SettingsField& f, const std::string& v) { w.Text(f.offset, f.width, v); }
void Put(RecordWriter& w, const SettingsField& f, std::int16_t v) { w.I16(f.offset, v); }
void Put(RecordWriter& w, const SettingsField& f, std::int32_t v) { w.I32(f.offset, v); }
void Put(RecordWriter& w, const SettingsField& f, float v) { w.F32(f.offset, v); }
template <std::size_t N>
void Put(RecordWriter& w, const SettingsField& f, const std::array<std::int16_t, N>& v) {
  for (std::size_t i = 0; i < N; ++i) w.I16(f.offset + 2 * i, v[i]);
}

// ...how it comes out of it...
void Get(const RecordReader& r, const SettingsField& f, std::string& v) { v = r.Text(f.offset, f.width); }
void Get(const RecordReader& r, const SettingsField& f, std::int16_t& v) { v = r.I16(f.offset); }
void Get(const RecordReader& r, const SettingsField& f, std::int32_t& v) { v = r.I32(f.offset); }
void Get(const RecordReader& r, const SettingsField& f, float& v) { v = r.F32(f.offset); }
template <std::size_t N>
void Get(const RecordReader& r, const SettingsField& f, std::array<std::int16_t, N>& v) {
  for (std::size_t i = 0; i < N; ++i) v[i] = r.I16(f.offset + 2 * i);
}

// ...and how it reads in "settings show".
std::string Show(const std::string& v) { return v; }
std::string Show(std::int16_t v) { return std::to_string(v); }
std::string Show(std::int32_t v) { return std::to_string(v); }
std::string Show(float v) { return NumberText(v); }
template <std::size_t N>
std::string Show(const std::array<std::int16_t, N>& v) {
  std::string text;
  for (std::size_t i = 0; i < N; ++i) text += (i ? " " : "") + std::to_string(v[i]);
  return text;
}

}  // namespace

std::vector<std::uint8_t> EncodeSettings(const SettingsRecord& record) {
  Bytes bytes(kSettingsRecordSize, 0);
  RecordWriter w(bytes);
  ForEachField(record, [&](const SettingsField& f, const auto& value) { Put(w, f, value); });
  return bytes;
}

SettingsRecord DecodeSettings(const std::vector<std::uint8_t>& bytes) {
  SettingsRecord record;
  RecordReader r(bytes);
  ForEachField(record, [&](const SettingsField& f, auto& value) { Get(r, f, value); });
  return record;
}

SettingsRecord ReadSettings(const std::filesystem::path& file) {
  // Only the first record matters; a huge file is not read past it.
  std::optional<Bytes> bytes = ReadFileBytes(file);
  if (!bytes) {
    // Too large to read whole: take the record's worth from the front.
    Bytes head(kSettingsRecordSize, 0);
    std::FILE* f = std::fopen(file.c_str(), "rb");
    if (!f) return DecodeSettings({});
    std::size_t n = std::fread(head.data(), 1, head.size(), f);
    std::fclose(f);
    head.resize(n);
    return DecodeSettings(head);
  }
  return DecodeSettings(*bytes);
}

bool WriteSettings(const std::filesystem::path& file, const SettingsRecord& record) {
  return WriteFileAtomic(file, EncodeSettings(record));
}

bool ChangeSettingsFile(const std::filesystem::path& file, const SettingsChange& change) {
  SettingsRecord stored = ReadSettings(file);
  change(stored);
  return WriteSettings(file, stored);
}

std::vector<std::string> SettingsLines(const SettingsRecord& record) {
  std::vector<std::string> lines;
  ForEachField(record, [&](const SettingsField& f, const auto& value) {
    lines.push_back(std::string(f.name) + " = " + Show(value));
  });
  return lines;
}

const std::vector<std::string>& ColourNames() {
  static const std::vector<std::string> names = {"Cyan",       "Magenta", "Yellow", "Blue", "Dark Green",
                                                 "Green",      "Red",     "White",  "Black"};
  return names;
}

namespace {
const std::int32_t kNamedColours[] = {PackColour(0, 255, 255), PackColour(255, 0, 255), PackColour(255, 255, 0),
                                      PackColour(0, 0, 255),   PackColour(0, 128, 0),   PackColour(0, 255, 0),
                                      PackColour(255, 0, 0),   PackColour(255, 255, 255), PackColour(0, 0, 0)};
}

std::int32_t ColourFromName(std::string_view name) {
  const auto& names = ColourNames();
  for (std::size_t i = 0; i < names.size(); ++i)
    if (names[i] == name) return kNamedColours[i];
  return PackColour(255, 255, 0);
}

std::string ColourName(std::int32_t colour) {
  const auto& names = ColourNames();
  for (std::size_t i = 0; i < names.size(); ++i)
    if (kNamedColours[i] == colour) return names[i];
  return "";
}

}  // namespace kelvane
