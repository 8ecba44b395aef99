// The wind store as a skipper meets it in the main window: a GRIB file
// imported through the Wind menu's form, the lists of what it holds, and the
// route's legs taking their wind from it.
//
// The winds of tests/data/wind/wind_signed.grb are listed in
// tools/make_grib_samples.sh (a 3 x 2 grid, 51N and 50.5N by 0.5W, 0 and
// 0.5E, forecast 25/11/2026 12:00 and 15:00 UTC) and worked there by hand:
// at 12:00 the point 51N 0.5W has U 0, V -5 m/s, 5 / 0.5148 = 9.7125 kn
// from 000; at 15:00 every point has a westerly of 10 m/s, 19.4250 kn from
// 270.
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <string>
#include <vector>

#include "core/recordio.h"
#include "core/settings.h"
#include "core/windconfig.h"
#include "forms/frmGribImport.h"
#include "forms/frmViewSmartMet.h"
#include "forms/frmViewWind.h"
#include "support/gui_support.h"
#include "wind/windstore.h"

namespace kelvane {
namespace {

using namespace kelvane::test;

const std::filesystem::path kData = std::filesystem::path(KELVANE_TEST_DATA) / "wind";

// Opens the menu entry and runs `act` on the modal form it shows.
template <class Form>
void RunForm(app::FrmChart& window, const char* entry, std::function<void(Form*)> act) {
  bool ran = false;
  WhenModal<Form>([&](Form* form) {
    act(form);
    ran = true;
    form->accept();
  });
  window.Action(entry)->trigger();
  EXPECT_TRUE(ran) << entry;
}

std::vector<std::string> TreeLines(const QTreeWidget* list) {
  std::vector<std::string> lines;
  for (int i = 0; i < list->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = list->topLevelItem(i);
    lines.push_back((item->text(0) + "|" + item->text(1) + "|" + item->text(2)).toStdString());
  }
  return lines;
}

TEST(WindStoreForms, GribImportThroughTheMenuListsItsMessagesAndFillsTheStore) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  const std::filesystem::path store = tree.folders.WindStoreFile();

  // Nothing imported yet: an empty list that says so.
  RunForm<forms::frmViewWind>(window, "mnuViewWind", [](forms::frmViewWind* form) {
    EXPECT_EQ(form->List1->count(), 0);
    EXPECT_FALSE(form->lblEmpty->isHidden());
    EXPECT_EQ(form->windowTitle(), "~GrDa.tmp");
  });

  std::vector<std::string> shown;
  RunForm<forms::frmGribImport>(window, "mnuWindGribImport", [&](forms::frmGribImport* form) {
    form->showMessage = [&](const std::string& m) { shown.push_back(m); };
    EXPECT_EQ(form->StartFolder().toStdString(), tree.folders.GribFolder().string())
        << "the first run's folder is the data tree's GRIB folder";
    std::string answer;
    form->chooseFile = [&](const QString&) { return QString::fromStdString(answer); };

    // The file box closed without a choice.
    QTest::mouseClick(form->cmdOpen, Qt::LeftButton);
    EXPECT_EQ(shown, std::vector<std::string>{"Select a file"});

    // U and V at + 0 h and + 3 h, the V of + 3 h before the U of + 0 h.
    answer = (kData / "wind_signed.grb").string();
    QTest::mouseClick(form->cmdOpen, Qt::LeftButton);
    EXPECT_EQ(shown.back(), "File Imported");
    EXPECT_EQ(TreeLines(form->List1), (std::vector<std::string>{"1|25/11/2026 @ 120000|33", "2|25/11/2026 @ 150000|34",
                                                                "3|25/11/2026 @ 120000|34", "4|25/11/2026 @ 150000|33"}));
    form->resize(640, 560);
    Screenshot(form, "grib-import");
    // The header record and 2 x 6 winds of 20 bytes.
    const auto imported = ReadFileBytes(store);
    ASSERT_TRUE(imported);
    EXPECT_EQ(imported->size(), 13u * 20u);
    // The folder of the file is the next import's start, saved at once.
    EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).GribFolder, kData.string());
    EXPECT_EQ(form->StartFolder().toStdString(), kData.string());

    // An edition 2 file is refused with the reader's message, and the store
    // keeps the last import byte for byte.
    answer = (kData / "edition2.grb").string();
    QTest::mouseClick(form->cmdOpen, Qt::LeftButton);
    EXPECT_EQ(shown.back(), "Grib file wrong edition number\r\nExiting routine");
    EXPECT_EQ(form->List1->topLevelItemCount(), 0);
    EXPECT_EQ(ReadFileBytes(store), imported);
  });
  EXPECT_EQ(shown.size(), 3u);

  RunForm<forms::frmViewSmartMet>(window, "mnuViewSmartMet", [](forms::frmViewSmartMet* form) {
    EXPECT_EQ(form->windowTitle(), "~wind.dat");
    const std::vector<std::string> lines = ListLines(form->List1);
    ASSERT_EQ(lines.size(), 12u) << "six grid points at two times, the header left out";
    EXPECT_EQ(lines[0], "25/11/2026 @ 120000\t51, -0.5\t9.7\t000°T");
    EXPECT_EQ(lines[6], "25/11/2026 @ 150000\t51, -0.5\t19.4\t270°T");
    EXPECT_TRUE(form->lblEmpty->isHidden());
    Screenshot(form, "stored-wind");
  });
  RunForm<forms::frmViewWind>(window, "mnuViewWind", [](forms::frmViewWind* form) {
    EXPECT_EQ(form->List1->count(), 24) << "every decoded value: four fields of six points";
  });
}

TEST(WindStoreForms, StoredWindGivesEachLegTheForecastAtItsStartAndTime) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  ASSERT_TRUE(ImportGribToWindStore(kData / "wind_signed.grb", tree.folders.WindStoreFile(),
                                    tree.folders.GribPointsFile())
                  .ok);
  // The working moment: 25/11/2026 (day 329) at 12:00, read as UTC.
  WorkingMoment& m = window.State().moment;
  m.WorkingDay = 329;
  m.WorkingYear = 2026;
  m.WorkingMonth = 11;
  m.WorkingDayOfMonth = 25;
  m.WorkingTime = 12.0f;
  // Leg 1 leaves 51N 0.5W at 12:00 and takes 1.5 h; a stop of 90 minutes
  // at its end starts leg 2 at 0 (50.5N) at 15:00. Leg 2 takes an hour:
  // leg 3 leaves 52.5N at 16:00, still the 15:00 slot, but 90 miles from
  // the nearest grid point, so it keeps the wind it had.
  auto point = [](float lat, float lon, float legTime, std::int16_t stop) {
    RoutePoint p;
    p.Lat = lat;
    p.Lon = lon;
    p.LegTime = legTime;
    p.StopMinutes = stop;
    return p;
  };
  auto& route = window.State().passage.Route;
  route.push_back(point(51.0f, -0.5f, 1.5f, 0));
  route.push_back(point(50.5f, 0.0f, 1.0f, 90));
  route.push_back(point(52.5f, 0.0f, 2.0f, 0));
  route.push_back(point(52.6f, 0.1f, 0.0f, 0));
  route[3].LegWind = WindSlot{5.0f, 180.0f};
  QAction* smartMet = window.Action("mnuSmartMet");
  ASSERT_TRUE(smartMet->isCheckable());

  // The first run's record has the switch on: the first click turns it
  // off, saved at once, and leaves the legs alone.
  smartMet->trigger();
  EXPECT_FALSE(smartMet->isChecked());
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).UseSmartMet, 0);
  EXPECT_FALSE(route[1].LegWind);
  EXPECT_TRUE(messages.empty());

  smartMet->trigger();
  EXPECT_TRUE(smartMet->isChecked());
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).UseSmartMet, -1);
  ASSERT_TRUE(route[1].LegWind);
  EXPECT_NEAR(route[1].LegWind->speed, 9.7125f, 1e-3);
  EXPECT_NEAR(route[1].LegWind->direction, 0.0f, 1e-3);
  ASSERT_TRUE(route[2].LegWind);
  EXPECT_NEAR(route[2].LegWind->speed, 19.4250f, 1e-3);
  EXPECT_NEAR(route[2].LegWind->direction, 270.0f, 1e-3);
  ASSERT_TRUE(route[3].LegWind);
  EXPECT_EQ(route[3].LegWind->speed, 5.0f);
  EXPECT_EQ(route[3].LegWind->direction, 180.0f);
  EXPECT_FALSE(route[4].LegWind) << "the last point starts no leg";
  EXPECT_EQ(messages, std::vector<std::string>{kRouteWindCoverageMessage});

  // The wind over the route is saved in both files.
  std::filesystem::remove(tree.folders.WindConfigFile());
  const std::int16_t before = window.State().settings.ShowWind;
  window.Action("mnuDisplayWindOverRoute")->trigger();
  EXPECT_NE(ReadSettings(tree.folders.SettingsFile()).ShowWind, before);
  EXPECT_EQ(ReadFileBytes(tree.folders.WindConfigFile())->size(), kWindConfigSize);
}

}  // namespace
}  // namespace kelvane
