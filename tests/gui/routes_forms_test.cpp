// The file dialogs of the GPX store over real files in a temporary tree.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "core/recordio.h"
#include "forms/frmcogtowayexport.h"
#include "forms/frmcompoundexport.h"
#include "forms/frmtxtfileimport.h"
#include "routes/gpx.h"
#include "routes/legacy.h"
#include "routes/samplewaypoints.h"

// Qt after the program's headers (its "slots" macro).
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>

#include "support/gui_support.h"

namespace kelvane::forms {
namespace {

// The data tree in a temporary folder, laid out as start-up lays it out.
struct Tree : test::TempTree {
  Tree() { CreateDataTree(folders); }
};

TEST(RoutesForms, TextImportOfARoute) {
  Tree tree;
  std::filesystem::path source = tree.folders.programFolder / "legs.txt";
  std::ofstream(source) << "Start,50.30.0N,001.30.0W,5\nEnd,50.40.0N,001.20.0W,6\n";
  frmTxtFileImport form(tree.folders);
  form.optRoute->setChecked(true);
  ASSERT_TRUE(form.OpenSource(source));
  EXPECT_EQ(form.lstLines->count(), 2);
  EXPECT_EQ(form.Import(), "Select valid name for destination file.");
  QTest::keyClicks(form.txtDestination, "legs");
  EXPECT_EQ(form.Import(), "Route saved - Press 'Exit' when finished");
  EXPECT_EQ(form.ImportedRoute().size(), 2u);
  EXPECT_EQ(ReadFileBytes(tree.folders.RoutesFolder() / "legs.rte")->size(), 94u);
}

TEST(RoutesForms, StepsToWaypointsDropsCharactersAsTyped) {
  Tree tree;
  frmCOGToWayExport form(tree.folders, {{50.5f, -1.5f}, {50.6f, -1.4f}});
  EXPECT_EQ(form.Save(), "No file name");
  QTest::keyClicks(form.txtgpx, "My.trip:1?");
  EXPECT_EQ(form.txtgpx->text(), "Mytrip1");
  form.chkAsGPX->setChecked(true);
  EXPECT_EQ(form.Save(), "File saved to " + (tree.folders.WaypointsFolder() / "Mytrip1.gpx").string());
  GpxStore store;
  auto w = ReadGpxFile(tree.folders.WaypointsFolder() / "Mytrip1.gpx", store);
  ASSERT_EQ(Count(w), 2u);
  EXPECT_EQ(w[1].Name, "ENDWAYPT");
}

TEST(RoutesForms, CompoundExportOfPickedFiles) {
  Tree tree;
  ASSERT_TRUE(WriteSampleWaypoints(tree.folders));
  frmCompoundExport form(tree.folders);
  ASSERT_EQ(form.lstWaypoints->count(), 1);
  form.lstWaypoints->item(0)->setSelected(true);
  QTest::keyClicks(form.txtName, "All");
  EXPECT_EQ(form.Export([] { return true; }), "File saved to :" + (tree.folders.RoutesFolder() / "All.gpx").string());
  EXPECT_EQ(form.Export([] { return false; }), "") << "a refused overwrite writes nothing";
  GpxStore store;
  EXPECT_EQ(Count(ReadGpxFile(tree.folders.RoutesFolder() / "All.gpx", store)), 48u);
}

}  // namespace
}  // namespace kelvane::forms
