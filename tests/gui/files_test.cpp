// The file entries of the main window, triggered as the menus trigger them,
// over real files in a temporary data tree: the route save, the waypoint
// file in use, the text import, the converters and the exports.
#include <gtest/gtest.h>

#include <QAction>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

#include "app/mainwindow.h"
#include "core/recordio.h"
#include "core/settings.h"
#include "forms/frmcogexport.h"
#include "forms/frmcompoundexport.h"
#include "forms/frmconverttogpx.h"
#include "forms/frmtxtfileimport.h"
#include "routes/gpxwrite.h"
#include "routes/legacy.h"
#include "store/areadatabase.h"
#include "support/gui_support.h"
#include "support/tempdir.h"

using namespace kelvane;
using namespace kelvane::test;
namespace fs = std::filesystem;

namespace {

struct Window : LoadedChart {
  Window() { messages.clear(); }
  const Folders& folders() const { return tree.folders; }
};

std::string FileText(const fs::path& file) {
  auto bytes = ReadFileBytes(file);
  return bytes ? std::string(bytes->begin(), bytes->end()) : std::string("(missing)");
}

// Answers the window's next file box with `file`, noting the folder it
// opened on.
void AnswerFileBox(app::FrmChart& chart, const fs::path& file, QString* openedOn = nullptr) {
  chart.chooseFile = [file, openedOn](const QString&, const QString& folder, bool) {
    if (openedOn) *openedOn = folder;
    return QString::fromStdString(file.string());
  };
}

// Types `text` into the next name box and presses OK.
void AnswerNameBox(const std::string& text) {
  WhenModal<QInputDialog>([text](QInputDialog* box) {
    box->setTextValue(QString::fromStdString(text));
    box->accept();
  });
}

// Notes the text of the next message box and closes it.
void NoteMessageBox(std::string* text) {
  WhenModal<QMessageBox>([text](QMessageBox* box) {
    *text = box->text().toStdString();
    box->accept();
  });
}

QPushButton* Button(QWidget* form, const char* caption) {
  for (auto* b : form->findChildren<QPushButton*>())
    if (b->text() == caption) return b;
  return nullptr;
}

RoutePoint Point(float lat, float lon, const char* name) {
  RoutePoint p;
  p.Lat = lat;
  p.Lon = lon;
  p.Name = name;
  p.Speed = 5;
  return p;
}

}  // namespace

TEST(MainWindowFiles, SaveRouteWritesTheRouteFileInTheRoutesFolder) {
  Window w;
  EXPECT_FALSE(w.chart.Action("mnuRouteSave")->isEnabled()) << "no route, nothing to save";
  PassageState& p = w.chart.State().passage;
  p.Route.push_back(Point(50.4f, -1.0f, "Alpha"));
  p.Route.push_back(Point(50.6f, -1.0f, ""));
  p.Route.push_back(Point(50.5f, -1.1f, "Fish & Chips"));
  w.chart.EnableRouteMenus();
  ASSERT_TRUE(w.chart.Action("mnuRouteSave")->isEnabled());
  QString openedOn;
  AnswerFileBox(w.chart, w.folders().RoutesFolder() / "passage", &openedOn);
  w.chart.Action("mnuRouteSave")->trigger();
  EXPECT_EQ(fs::path(openedOn.toStdString()), w.folders().RoutesFolder());
  const fs::path file = w.folders().RoutesFolder() / "passage.gpx";
  ASSERT_EQ(w.messages, std::vector<std::string>{"File saved to " + file.string()});
  // Worked by hand: nine decimals of the singles' seven digits, the
  // unnamed second point named by its number, the "&" as its entity.
  EXPECT_EQ(FileText(file), GpxHeader() +
                                "<rte>\r\n"
                                "    <rtept lat=\"50.400000000\" lon=\"-1.000000000\">\r\n"
                                "      <name>Alpha</name>\r\n"
                                "    </rtept>\r\n"
                                "    <rtept lat=\"50.600000000\" lon=\"-1.000000000\">\r\n"
                                "      <name>WAYPT002</name>\r\n"
                                "    </rtept>\r\n"
                                "    <rtept lat=\"50.500000000\" lon=\"-1.100000000\">\r\n"
                                "      <name>Fish &amp; Chips</name>\r\n"
                                "    </rtept>\r\n"
                                "</rte>\r\n" +
                                GpxFooter());
  GpxStore store;
  ReadGpxFile(file, store);
  ASSERT_EQ(UnnamedRoutePoints(store).size(), 3u);
  EXPECT_EQ(UnnamedRoutePoints(store)[2].Name, "Fish & Chips");
}

TEST(MainWindowFiles, NewSaveAndLoadTheWaypointFileInUse) {
  Window w;
  const fs::path folder = w.folders().WaypointsFolder();
  // Refused names leave everything as it was.
  struct Refused { const char* typed; const char* message; } refused[] = {
      {"  ", "Enter a new waypoint file name an then click the OK button"},
      {"../Dives", "Check Waypoint file name"},
  };
  for (const auto& r : refused) {
    SCOPED_TRACE(r.typed);
    w.messages.clear();
    AnswerNameBox(r.typed);
    w.chart.Action("mnuWayCreateNew")->trigger();
    EXPECT_EQ(w.messages, std::vector<std::string>{r.message});
    EXPECT_EQ(w.chart.State().settings.WaypointFile, "Sample.gpx");
  }
  // A new empty file becomes the one in use, in the settings file too.
  w.messages.clear();
  AnswerNameBox("Dives");
  w.chart.Action("mnuWayCreateNew")->trigger();
  EXPECT_TRUE(w.messages.empty());
  EXPECT_EQ(FileText(folder / "Dives.gpx"), GpxHeader() + GpxFooter());
  EXPECT_EQ(ReadSettings(w.folders().SettingsFile()).WaypointFile, "Dives.gpx");
  EXPECT_EQ(w.chart.StatusPanel(3)->text().toStdString(), "Waypoints = Dives.gpx");
  EXPECT_EQ(Count(w.chart.State().waypoints.ChartWaypoints), 0u);

  // A waypoint typed at the chart with an "&" survives a save and a load.
  auto& marks = w.chart.State().waypoints.ChartWaypoints;
  marks.insert(marks.begin(), Waypoint{50.76f, -1.2972f, "Fish & Chips", "Cowes <Quay>", 0, "", "R", "", ""});
  AnswerNameBox("Supper");
  w.chart.Action("mnuWaySave")->trigger();
  EXPECT_EQ(ReadSettings(w.folders().SettingsFile()).WaypointFile, "Supper.gpx");
  AnswerFileBox(w.chart, folder / "Sample.gpx");
  w.chart.Action("mnuFilWayLoad")->trigger();
  EXPECT_EQ(Count(w.chart.State().waypoints.ChartWaypoints), 48u);
  EXPECT_EQ(w.chart.StatusPanel(3)->text().toStdString(), "Waypoints = Sample.gpx");
  AnswerFileBox(w.chart, folder / "Supper.gpx");
  w.chart.Action("mnuFilWayLoad")->trigger();
  ASSERT_EQ(Count(w.chart.State().waypoints.ChartWaypoints), 1u);
  const Waypoint& back = w.chart.State().waypoints.ChartWaypoints[0];
  EXPECT_EQ(back.Name, "Fish & Chips");
  EXPECT_EQ(back.Desc, "Cowes <Quay>");
  EXPECT_EQ(back.Lat, 50.76f);
  EXPECT_TRUE(w.messages.empty()) << w.messages.front();
}

TEST(MainWindowFiles, ImportedRouteIsOnTheChart) {
  Window w;
  TempDir source;
  WriteFileAtomic(source.path / "legs.txt", std::string("Alpha,50.30.5N,001.00.0W,5\r\nBravo,50.40.0N,001.10.0W,6\r\n"));
  std::string message;
  WhenModal<forms::frmTxtFileImport>([&](forms::frmTxtFileImport* form) {
    form->optRoute->setChecked(true);
    ASSERT_TRUE(form->OpenSource(source.path / "legs.txt"));
    form->txtDestination->setText("legs");
    message = form->Import();
    form->accept();
  });
  w.chart.Action("mnuImport")->trigger();
  EXPECT_EQ(message, "Route saved - Press 'Exit' when finished");
  EXPECT_EQ(ReadFileBytes(w.folders().RoutesFolder() / "legs.rte")->size(), 94u);
  const PassageState& p = w.chart.State().passage;
  ASSERT_EQ(RouteCount(p), 2);
  EXPECT_EQ(p.Route[1].Name, "Alpha");
  EXPECT_FLOAT_EQ(p.Route[1].Lat, 50.0f + 30.5f / 60.0f);
  EXPECT_FLOAT_EQ(p.Route[2].Lon, -(1.0f + 10.0f / 60.0f));
  EXPECT_EQ(p.Route[2].Speed, 6.0f);
  EXPECT_TRUE(w.chart.Action("mnucalcrte")->isEnabled());
  EXPECT_TRUE(w.chart.Action("mnuRouteSave")->isEnabled());
}

TEST(MainWindowFiles, ConvertersAndExportsFromTheirEntries) {
  Window w;
  const fs::path folder = w.folders().WaypointsFolder();
  ASSERT_TRUE(WriteFileAtomic(folder / "old.way", WayRecordBytes({{"Needles", 50.6623f, -1.5918f}, {"", 50.7f, -1.3f}})));

  // .way to GPX: pick the file, type a description, save.
  std::string saved;
  WhenModal<forms::frmConvertToGPX>([&](forms::frmConvertToGPX* form) {
    ASSERT_EQ(form->lstFiles->count(), 1);
    form->lstFiles->setCurrentRow(0);
    emit form->lstFiles->itemClicked(form->lstFiles->item(0));
    EXPECT_EQ(form->lstRecords->count(), 2);
    form->txtDesc->setText("Light");
    NoteMessageBox(&saved);
    Button(form, "Save")->click();
    form->accept();
  });
  w.chart.Action("mnuConverttoGPX")->trigger();
  EXPECT_EQ(saved, "File saved to " + (folder / "old.gpx").string());
  GpxStore store;
  auto converted = ReadGpxFile(folder / "old.gpx", store);
  ASSERT_EQ(Count(converted), 2u);
  EXPECT_EQ(converted[0].Name, "Needles");
  EXPECT_EQ(converted[1].Desc, "Light");

  // The other entries open their forms; with no calculation the exports of
  // results say so.
  bool routeConverter = false;
  WhenModal<forms::frmConvertToGPX>([&](forms::frmConvertToGPX* form) {
    routeConverter = form->windowTitle() == "Convert route to GPX";
    form->reject();
  });
  w.chart.Action("mnuConvertRouteToGPX")->trigger();
  EXPECT_TRUE(routeConverter);

  std::string cogMessage;
  WhenModal<forms::frmCOGexport>([&](forms::frmCOGexport* form) {
    NoteMessageBox(&cogMessage);
    Button(form, "Save")->click();
    form->reject();
  });
  w.chart.Action("mnuExport1")->trigger();
  EXPECT_EQ(cogMessage, "No Valid COG data exit this screen and Calculate a Leg or Route");

  w.chart.Action("mnuCOGToWayExport")->trigger();
  EXPECT_EQ(w.messages, std::vector<std::string>{"No Valid COG data exit this screen and Calculate a Leg or Route"});

  int waypointFiles = 0;
  WhenModal<forms::frmCompoundExport>([&](forms::frmCompoundExport* form) {
    waypointFiles = form->lstWaypoints->count();
    form->reject();
  });
  w.chart.Action("mnuCompoundExport")->trigger();
  EXPECT_EQ(waypointFiles, 2) << "old.gpx and Sample.gpx";
}

// An area database whose charts "table" is a view without end: the chart
// load comes back with the message instead of hanging the window.
TEST(MainWindowFiles, AnEndlessChartsViewComesBackWithAMessage) {
  TempTree tree;
  ProgramState state;
  state.folders = tree.folders;
  CreateDataTree(tree.folders);
  const fs::path area = tree.folders.DataRoot() / "Charts" / "Sample Chart.l35";
  fs::create_directories(area.parent_path());
  {
    AreaDatabase db = AreaDatabase::Create(area);
    ASSERT_EQ(db.Execute("DROP TABLE charts; CREATE VIEW charts AS WITH RECURSIVE n(i) AS "
                         "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i AS iD, 'E' || i AS chartNumber FROM n"),
              "");
  }
  app::FrmChart chart(state);
  std::vector<std::string> messages;
  chart.showMessage = [&](const std::string& m) { messages.push_back(m); };
  chart.Load();
  EXPECT_NE(std::find(messages.begin(), messages.end(),
                      "The database " + area.string() +
                          " did not finish the query: it yields more than 250000 rows or more work than any table "
                          "of charts, diamonds or wrecks needs"),
            messages.end());
  EXPECT_TRUE(chart.Timer1().isActive());
}
