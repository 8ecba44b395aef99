// The settings record: byte layout, defaults, short and odd files, the
// atomic write, colours, and the round of the configuration forms.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#include "core/configure.h"
#include "core/datatree.h"
#include "core/recordio.h"
#include "core/settings.h"
#include "support/tempdir.h"

using namespace kelvane;
using kelvane::test::TempDir;
namespace fs = std::filesystem;

namespace {

Folders TestFolders() {
  Folders f;
  f.programFolder = "/data";
  f.userFolder = "/user";
  f.picturesFolder = "/pics";
  return f;
}

std::uint32_t Le32(const Bytes& b, size_t at) {
  return b[at] | (b[at + 1] << 8) | (b[at + 2] << 16) | (static_cast<std::uint32_t>(b[at + 3]) << 24);
}
std::uint16_t Le16(const Bytes& b, size_t at) { return static_cast<std::uint16_t>(b[at] | (b[at + 1] << 8)); }

}  // namespace

TEST(SettingsRecord, FieldsCoverTheRecordWithoutGapsOrOverlap) {
  std::size_t next = 0;
  for (const SettingsField& f : SettingsFields()) {
    SCOPED_TRACE(f.name);
    EXPECT_EQ(f.offset, next);
    next = f.offset + f.width;
  }
  EXPECT_EQ(next, kSettingsRecordSize);
  EXPECT_EQ(SettingsFields().size(), 142u);
}

TEST(SettingsRecord, DefaultBytesAtTheirOffsets) {
  Bytes b = EncodeSettings(DefaultSettings(TestFolders()));
  ASSERT_EQ(b.size(), 3582u);
  // Texts: blank padded to their width.
  EXPECT_EQ(std::string(b.begin(), b.begin() + 12), "Sample Chart");
  EXPECT_EQ(b[12], ' ');
  EXPECT_EQ(b[255], ' ');
  EXPECT_EQ(std::string(b.begin() + 256, b.begin() + 256 + 21), "/data/Charts/9999-1  ");
  EXPECT_EQ(std::string(b.begin() + 2432, b.begin() + 2560), std::string(128, ' '));  // Reserved1
  EXPECT_EQ(std::string(b.begin() + 2560, b.begin() + 2565), "UK.hc");
  EXPECT_EQ(std::string(b.begin() + 2816, b.begin() + 2821), "Dover");
  EXPECT_EQ(std::string(b.begin() + 3120, b.begin() + 3130), "9999-1.cht");
  // Integers and booleans, little-endian; true is -1.
  EXPECT_EQ(Le16(b, 2944), 76);        // PortIndex
  EXPECT_EQ(Le16(b, 2948), 0xFFFF);    // ShowTideHeights -1
  EXPECT_EQ(Le16(b, 3014), 4);         // Reserved3
  EXPECT_EQ(Le16(b, 3114), 2);         // HideStreamId2
  EXPECT_EQ(Le32(b, 3388), 0x80u);     // HazardColour RGB(128,0,0): red in the low byte
  EXPECT_EQ(Le32(b, 3392), 143232u);   // Reserved12
  EXPECT_EQ(Le32(b, 3416), 0x808000u); // AISColour2 RGB(0,128,128)
  EXPECT_EQ(Le32(b, 3420), 0x595900u); // COGColour RGB(0,89,89)
  EXPECT_EQ(Le32(b, 3504), 512u);      // CursorX
  // Singles by their IEEE bits.
  EXPECT_EQ(Le32(b, 2950), 0x3E800000u);  // CPAAlarm 0.25
  EXPECT_EQ(Le32(b, 3070), 0xC0000000u);  // Variation -2.0
  EXPECT_EQ(Le32(b, 3376), 0x459C4000u);  // Reserved10 5000.0
  EXPECT_EQ(Le32(b, 3574), 0x3E3851ECu);  // ScaleMin 0.18
  EXPECT_EQ(Le32(b, 3578), 0x3FC00000u);  // ScaleMax 1.5
}

TEST(SettingsRecord, ShortLongAndRandomFilesReadAsFarAsTheyGo) {
  SettingsRecord defaults = DefaultSettings(TestFolders());
  Bytes full = EncodeSettings(defaults);
  EXPECT_EQ(DecodeSettings(full), defaults);

  // Cut inside ChartPath: the first text whole, the second cut, the rest
  // blank or zero.
  Bytes cut(full.begin(), full.begin() + 262);
  SettingsRecord r = DecodeSettings(cut);
  EXPECT_EQ(r.ChartDescription, "Sample Chart");
  EXPECT_EQ(r.ChartPath, "/data/");
  EXPECT_EQ(r.ChartSet, "");
  EXPECT_EQ(r.PortIndex, 0);
  EXPECT_EQ(r.ScaleMax, 0.0f);

  // Cut just after PortIndex.
  r = DecodeSettings(Bytes(full.begin(), full.begin() + 2946));
  EXPECT_EQ(r.PortIndex, 76);
  EXPECT_EQ(r.ShowTideHeights, 0);

  // Longer than a record: the tail is ignored.
  Bytes longer = full;
  longer.resize(10000, 0x41);
  EXPECT_EQ(DecodeSettings(longer), defaults);

  // Random bytes: read without complaint, every field printable.
  std::mt19937 rng(7);
  for (int i = 0; i < 50; ++i) {
    Bytes junk(rng() % 5000);
    for (auto& x : junk) x = static_cast<std::uint8_t>(rng());
    SettingsRecord j = DecodeSettings(junk);
    EXPECT_EQ(SettingsLines(j).size(), 142u);
  }
  EXPECT_EQ(DecodeSettings({}), SettingsRecord{});
}

TEST(SettingsRecord, WindowsTextIsConverted) {
  Bytes b = EncodeSettings(DefaultSettings(TestFolders()));
  const char* name = "Baie de Seine";
  std::memcpy(b.data(), name, std::strlen(name));
  b[3] = 0xE9;  // e acute in Windows-1252 in place of the "e" of "Baie"
  SettingsRecord r = DecodeSettings(b);
  EXPECT_EQ(r.ChartDescription.substr(0, 5), "Bai\xC3\xA9");
  // UTF-8 text round-trips untouched, and a cut never splits a character.
  r.ChartSet = std::string(127, 'x') + "\xC3\xA9";  // 129 bytes fit the 256 of ChartSet
  r.Port = std::string(127, 'x') + "\xC3\xA9";      // but not the 128 of Port: the e acute goes whole
  SettingsRecord back = DecodeSettings(EncodeSettings(r));
  EXPECT_EQ(back.ChartSet, r.ChartSet);
  EXPECT_EQ(back.Port, std::string(127, 'x'));
}

TEST(SettingsRecord, WriteReplacesTheWholeFileAtomically) {
  TempDir dir;
  fs::path file = dir.path / kSettingsFileName;
  SettingsRecord r = DefaultSettings(TestFolders());
  ASSERT_TRUE(WriteSettings(file, r));
  EXPECT_EQ(fs::file_size(file), 3582u);
  // An over-long old file is replaced by exactly one record.
  std::ofstream(file, std::ios::binary) << std::string(9000, 'z');
  r.VesselSpeed = 6.5f;
  ASSERT_TRUE(WriteSettings(file, r));
  EXPECT_EQ(fs::file_size(file), 3582u);
  EXPECT_EQ(ReadSettings(file).VesselSpeed, 6.5f);
  // No temporary file is left beside it.
  int entries = 0;
  for (auto& e : fs::directory_iterator(dir.path)) (void)e, ++entries;
  EXPECT_EQ(entries, 1);
  // A folder that does not exist: refused, nothing written, no crash.
  EXPECT_FALSE(WriteSettings(dir.path / "nowhere" / kSettingsFileName, r));
  // A missing file reads as an empty one.
  EXPECT_EQ(ReadSettings(dir.path / "missing.cfg"), SettingsRecord{});
}

TEST(Colours, PackingAndNames) {
  EXPECT_EQ(PackColour(255, 0, 0), 255);
  EXPECT_EQ(PackColour(0, 0, 255), 0xFF0000);
  EXPECT_EQ(ColourRed(0x123456), 0x56);
  EXPECT_EQ(ColourGreen(0x123456), 0x34);
  EXPECT_EQ(ColourBlue(0x123456), 0x12);
  ASSERT_EQ(ColourNames().size(), 9u);
  EXPECT_EQ(ColourNames().front(), "Cyan");
  EXPECT_EQ(ColourNames().back(), "Black");
  EXPECT_EQ(ColourFromName("Red"), PackColour(255, 0, 0));
  EXPECT_EQ(ColourFromName("Dark Green"), PackColour(0, 128, 0));
  EXPECT_EQ(ColourFromName("Mauve"), PackColour(255, 255, 0));  // unknown: yellow
  EXPECT_EQ(ColourFromName("red"), PackColour(255, 255, 0));
  for (const std::string& n : ColourNames()) EXPECT_EQ(ColourName(ColourFromName(n)), n);
}

// ---- the configuration round --------------------------------------------

namespace {

ConfigureControls GoodControls() {
  ConfigureControls c;
  c.cmbLower = "18";
  c.cmbUpper = "150";
  c.Txtvariation = "2W";
  c.txtErrorCircle = "1";
  c.cmbThreshold = "3";
  c.txtSearchCircle = "1";
  c.Txtboatspeed = "5";
  c.optSummerTime = false;
  c.txtCPAWind = "40";
  c.chkHideStreamId = false;
  c.cmbLineSize = "2";
  c.txtCalcInterval = "5";
  c.chkLeeway = false;
  c.chkShowwind = false;
  c.txtLeeway = "5";
  c.chkUseTides = true;
  c.cmbBarbWeight = "2";
  c.cmbBarbLength = "20";
  c.cmbBarbSpacing = "6";
  c.cmbStreamLineWidth = "2";
  c.cmbStreamLength = "2";
  c.cmbTextSize = "22";
  c.cmbWaySize = "Small";
  c.cmbWreckRange = "2";
  return c;
}

}  // namespace

TEST(Configure, EachCheckGivesItsMessageAndWritesNothing) {
  struct Case {
    const char* name;
    void (*spoil)(ConfigureControls&);
    const char* message;
  };
  const Case cases[] = {
      {"lower-case w", [](ConfigureControls& c) { c.Txtvariation = "2 w"; }, "Enter a valid for Variation"},
      {"no hemisphere", [](ConfigureControls& c) { c.Txtvariation = "2"; }, "Enter a valid for Variation"},
      {"error empty", [](ConfigureControls& c) { c.txtErrorCircle = ""; },
       "Enter a value for Acceptable Calculation Error Distance"},
      {"error zero", [](ConfigureControls& c) { c.txtErrorCircle = "0"; },
       "Enter a value greater than 0 for Acceptable Calculation Error Distance"},
      {"speed zero", [](ConfigureControls& c) { c.Txtboatspeed = "0"; }, "Enter a value for Vessel Speed"},
      {"speed negative", [](ConfigureControls& c) { c.Txtboatspeed = "-3"; }, "Enter a value for Vessel Speed"},
      {"sailing angle", [](ConfigureControls& c) { c.txtCPAWind = ""; }, "Enter a value for Closest Sailing Angle"},
      {"interval empty", [](ConfigureControls& c) { c.txtCalcInterval = ""; }, "Enter a value for Calculation Interval"},
      {"interval zero", [](ConfigureControls& c) { c.txtCalcInterval = "0"; }, "Enter a value for Calculation Interval"},
      {"barb weight", [](ConfigureControls& c) { c.cmbBarbWeight = "0"; }, "Barb line width =0 !!"},
      {"barb length", [](ConfigureControls& c) { c.cmbBarbLength = "0"; }, "Barb length =0 !!"},
      {"barb spacing", [](ConfigureControls& c) { c.cmbBarbSpacing = "0"; }, "Barb spacing =0 !!"},
      {"stream width", [](ConfigureControls& c) { c.cmbStreamLineWidth = "0"; }, "Tidal Stream line width =0 !!"},
      {"stream length", [](ConfigureControls& c) { c.cmbStreamLength = "0"; }, "Tidal Stream line length =0 !!"},
      {"font size", [](ConfigureControls& c) { c.cmbTextSize = "0"; }, "Font Size = 0 !!"},
  };
  TempDir dir;
  fs::path file = dir.path / kSettingsFileName;
  ASSERT_TRUE(WriteSettings(file, DefaultSettings(TestFolders())));
  Bytes before = *ReadFileBytes(file);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ConfigureControls controls = GoodControls();
    c.spoil(controls);
    SettingsRecord r;
    ConfigureOutcome out = ApplyConfigure(r, controls, file);
    EXPECT_EQ(out.message, c.message);
    EXPECT_FALSE(out.written);
    EXPECT_EQ(*ReadFileBytes(file), before);
  }
}

TEST(Configure, FieldsSetBeforeAFailureStayInMemory) {
  TempDir dir;
  fs::path file = dir.path / kSettingsFileName;
  ASSERT_TRUE(WriteSettings(file, DefaultSettings(TestFolders())));
  ConfigureControls c = GoodControls();
  c.Txtvariation = "4E";
  c.txtSearchCircle = "0";
  c.Txtboatspeed = "0";  // fails at step 7, after variation and search circle
  SettingsRecord r;
  ConfigureOutcome out = ApplyConfigure(r, c, file);
  EXPECT_EQ(out.message, "Enter a value for Vessel Speed");
  EXPECT_EQ(r.Variation, 4.0f);
  EXPECT_EQ(r.SearchCircle, 0.01f);
  EXPECT_EQ(ReadSettings(file).Variation, -2.0f);
}

TEST(Configure, AppliedValuesAndWhatFollows) {
  TempDir dir;
  fs::path file = dir.path / kSettingsFileName;
  SettingsRecord start = DefaultSettings(TestFolders());
  start.GPSColour = PackColour(1, 2, 3);
  ASSERT_TRUE(WriteSettings(file, start));

  ConfigureControls c = GoodControls();
  c.Txtvariation = "3.5E";
  c.txtSearchCircle = "0";   // below 0.01 becomes 0.01
  c.cmbWreckRange = "0.05";  // below 0.1 becomes 0.1
  c.Txtboatspeed = "6.5";
  c.optSummerTime = true;
  c.chkLeeway = true;
  c.chkUseTides = false;
  c.cmbWaySize = "Medium";
  c.cmbUserWreckLineCol = "Blue";
  c.cmbLower = "150";  // at or above the upper list: forced back into order
  c.cmbUpper = "100";
  c.chkShowChartName = true;
  c.chkAutoChartSwitch = false;
  SettingsRecord r;
  ConfigureOutcome out = ApplyConfigure(r, c, file);
  ASSERT_EQ(out.message, "");
  EXPECT_TRUE(out.written);
  SettingsRecord saved = ReadSettings(file);
  EXPECT_EQ(saved.Variation, 3.5f);
  EXPECT_EQ(saved.SearchCircle, 0.01f);
  EXPECT_EQ(saved.WreckRange, 0.1f);
  EXPECT_EQ(saved.VesselSpeed, 6.5f);
  EXPECT_EQ(out.legSpeed, 6.5f);
  EXPECT_EQ(saved.SummerTime, -1);
  EXPECT_TRUE(out.summerTimeChanged);
  EXPECT_EQ(saved.UseLeeway, 1);  // stored as 1, not -1
  EXPECT_TRUE(out.useLeewaySwitch);
  EXPECT_EQ(saved.UseTides, 0);
  EXPECT_FALSE(out.streamMenusEnabled);
  EXPECT_EQ(saved.WaySize, 8);
  EXPECT_EQ(saved.UserWreckLineColour, PackColour(0, 0, 255));
  EXPECT_EQ(*out.cmbUpperShown, "150");
  EXPECT_EQ(*out.cmbLowerShown, "18");
  EXPECT_FLOAT_EQ(saved.ScaleMax, 1.5f);
  EXPECT_FLOAT_EQ(saved.ScaleMin, 0.18f);
  EXPECT_EQ(saved.ShowChartName, -1);
  EXPECT_EQ(saved.ShowChartNum, 0);  // not on the form: as the file had it
  EXPECT_EQ(saved.AutoChartSwitch, 0);
  EXPECT_TRUE(out.setRouteSpeeds);  // every leg speed becomes the vessel speed
  // On save the view colour follows the boat colour and the twin follows
  // the stream-label switch.
  EXPECT_EQ(saved.ViewColour, PackColour(1, 2, 3));
  EXPECT_EQ(saved.HideStreamId2, saved.HideStreamId);
}

TEST(Configure, TwoFormsInARowKeepEachOthersFields) {
  TempDir dir;
  fs::path file = dir.path / kSettingsFileName;
  ASSERT_TRUE(WriteSettings(file, DefaultSettings(TestFolders())));
  // The general form changes the variation...
  ConfigureControls general;
  general.Txtvariation = "7E";
  SettingsRecord first;
  ASSERT_EQ(ApplyConfigure(first, general, file).message, "");
  // ...then the stream form, which reads the file first, changes the arrows.
  ConfigureControls streams;
  streams.cmbStreamLength = "4";
  SettingsRecord second = DefaultSettings(TestFolders());  // stale memory is not what is saved
  ASSERT_EQ(ApplyConfigure(second, streams, file).message, "");
  SettingsRecord saved = ReadSettings(file);
  EXPECT_EQ(saved.Variation, 7.0f);
  EXPECT_EQ(saved.StreamLength, 4);
}
