// The texts of the AIS list and detail forms.
#include <gtest/gtest.h>

#include "instruments/ais_report.h"
#include "instruments/comms_forms.h"

namespace kelvane {
namespace {

TEST(AisReport, SummaryAndDetails) {
  AisTargetTable table;
  UpdateAISTarget(table, 1, 2350001, 50.5f, -1.0f, 90, 12, 0, 12.0f);
  UpdateAISStatic(table, 2350001, "2AB", "KELVANE@@", "Sailing", "POOLE", "12 x 4 x 1.8", "05/Jan @ 07:03");
  AISTarget& t = table.AISTargets[0];
  t.CPA = -12;
  OwnShipState own;
  std::string line = AisSummaryLine(t, own, 12.0f);
  EXPECT_EQ(line, "KELVANE\t002350001\t1\t50.30.00N, 001.00.00W\t\tNo Closure");
  // With the own ship one mile south: range and bearing.
  own.GPSLat = 50.5f - 1.0f / 60;
  own.GPSLong = -1.0f;
  t.CPA = 0.5f;
  t.TimeToCPA = 0.25f;
  EXPECT_EQ(AisSummaryLine(t, own, 12.0f),
            "KELVANE\t002350001\t1\t50.30.00N, 001.00.00W\t1.0 nm 000\xC2\xB0T\t0.50nm @ 12:15");

  std::vector<std::string> d = AisDetailsLines(t, 12.0f);
  ASSERT_EQ(d.size(), 25u);
  EXPECT_EQ(d[0], "Name : KELVANE");
  EXPECT_EQ(d[1], "Callsign : 2AB");
  EXPECT_EQ(d[3], "Status : Underway engine");
  EXPECT_EQ(d[6], "Vessel Type  : Sailing");
  EXPECT_EQ(d[7], "Position    : 50.30.00N, 001.00.00W");
  EXPECT_EQ(d[8], "Heading    : 12.0kn @ 090\xC2\xB0T");
  EXPECT_EQ(d[9], "CPA : 0.50nm @ 12:15");
  EXPECT_EQ(d[11], "Historical Data");
  EXPECT_EQ(d[18], "Predicted Position");

  // A search and rescue aircraft shows its altitude in place of a callsign.
  t.Callsign = "Altitude = 300";
  EXPECT_EQ(AisDetailsLines(t, 12.0f)[1], "Altitude : Altitude = 300");
  // An aid to navigation has the short form.
  t.Status = 100;
  d = AisDetailsLines(t, 12.0f);
  EXPECT_EQ(d, (std::vector<std::string>{"Target Name : KELVANE", "Position : 50.30.00N, 001.00.00W",
                                         "(AIS Aid to Navigation - MMSI 2350001)"}));
  EXPECT_EQ(AisTargetsDrawnText(3), "Num AIS Targets Drawn = 3");
}

TEST(CommsForms, ListsAndIntervals) {
  EXPECT_EQ(CommonBaudRates().front(), "4800");
  EXPECT_EQ(AllBaudRates().size(), 10u);
  EXPECT_EQ(CommsInfoIntroLines().size(), 9u);
  EXPECT_EQ(GpsIntervalText(5), "5 Secs");
  EXPECT_EQ(GpsIntervalText(60), "1 Min");
  EXPECT_EQ(GpsIntervalText(7), "10 Secs");
  EXPECT_EQ(MonitorCourseText(5.4f), "005\xC2\xB0T");
}

}  // namespace
}  // namespace kelvane
