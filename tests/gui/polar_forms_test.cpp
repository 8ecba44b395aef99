// The polar viewer and editor as a skipper meets them: opened from the wind
// menu of the main window over a seeded data tree, a cell changed in the
// editor and seen in the file and on the curve, and the forms opening on a
// tree that has no polar database.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <filesystem>
#include <sqlite3.h>

#include "forms/frmEditPlot.h"
#include "forms/frmPolarPlot.h"
#include "store/polars.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;

namespace {

// Wind12kn of the sample's row at `angle`, read straight through SQLite.
double SampleWind12(const std::filesystem::path& file, int angle) {
  double value = -1;
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(file.string().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "SELECT Wind12kn FROM \"Synthetic sample sloop (not a real boat)\" WHERE windangle = ?1", -1,
                       &stmt, nullptr);
    sqlite3_bind_int(stmt, 1, angle);
    if (stmt && sqlite3_step(stmt) == SQLITE_ROW) value = sqlite3_column_double(stmt, 0);
    sqlite3_finalize(stmt);
  }
  sqlite3_close(db);
  return value;
}

}  // namespace

TEST(PolarForms, EditPlotFromTheWindMenuWritesACellAndRedrawsTheCurve) {
  LoadedChart loaded;
  auto& [tree, messages, window] = loaded;
  ASSERT_TRUE(loaded.ShownAt(900, 700));
  const std::filesystem::path file = PolarDatabasePath(tree.folders.DataRoot());
  // The sample at 90 degrees in 12 kn: 7.926641 x (1 - e^(-12/9)) x
  // (0.35 + 0.65 sin 72°) = 5.65 -> 5.7.
  ASSERT_DOUBLE_EQ(SampleWind12(file, 90), 5.7);

  bool ran = false;
  WhenModal<forms::frmEditPlot>([&](forms::frmEditPlot* form) {
    ran = true;
    forms::PolarPlotPanel* panel = form->panel;
    panel->optWindPlot[6]->click();  // 12 kn
    EXPECT_EQ(panel->picPolar->Title(), "Boat Speed Vs Wind Angle for 12kn Wind");
    // A click near 91 degrees snaps to the 90 degree row and offers it.
    QTest::mouseClick(panel->picPolar, Qt::LeftButton, {}, panel->picPolar->PixelAt(91, 3).toPoint());
    EXPECT_EQ(panel->picWindSpeed->Title(), "Boat Speed vs Wind Speed at Wind Angle of 90");
    EXPECT_EQ(form->txtAngle->text(), "90");
    EXPECT_EQ(form->txtBoatSpeed2->text(), "5.7");

    // A refused entry is told and writes nothing.
    form->txtAngle->setText("92");
    form->cmdChangeData2->click();
    EXPECT_EQ(messages, std::vector<std::string>{"Wind angle must be an exact multiple of 5 - Entry not accepted"});

    const QImage before = panel->picPolar->grab().toImage();
    form->txtAngle->setText("90");
    form->txtBoatSpeed2->setText("6.5");
    form->cmdChangeData2->click();
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_DOUBLE_EQ(SampleWind12(file, 90), 6.5);
    // Drawn again from the file: the curve, the grid and the picture.
    ASSERT_EQ(panel->picPolar->Curve().size(), 31u);
    EXPECT_EQ(panel->picPolar->Curve()[12].angle, 90.0f);
    EXPECT_EQ(panel->picPolar->Curve()[12].speed, 6.5f);
    if (form->txtEditSpeed.size() == 31u) EXPECT_EQ(form->txtEditSpeed[12]->text(), "6.5");
    EXPECT_NE(panel->picPolar->grab().toImage(), before);
    EXPECT_EQ(panel->lblBoatSpeed->text(), "Boat Speed=6.5");
    Screenshot(form, "polar-edit");
    form->accept();
  });
  window.Action("mnuEditPolar")->trigger();
  EXPECT_TRUE(ran);

  ran = false;
  WhenModal<forms::frmPolarPlot>([&](forms::frmPolarPlot* form) {
    ran = true;
    EXPECT_EQ(form->panel->lblMessage->text(), "");
    EXPECT_EQ(form->panel->picPolar->Curve().at(12).speed, 6.5f);  // the edited file
    Screenshot(form, "polar-plot");
    form->accept();
  });
  window.Action("mnuPolarPlot")->trigger();
  EXPECT_TRUE(ran);

  // No database at all: both forms open and say why there is nothing.
  std::filesystem::remove(file);
  for (const char* entry : {"mnuPolarPlot", "mnuEditPolar"}) {
    ran = false;
    WhenModal<QDialog>([&](QDialog* form) {
      ran = true;
      auto* panel = form->findChild<forms::PolarPlotPanel*>();
      EXPECT_NE(panel, nullptr);
      if (panel) EXPECT_TRUE(panel->lblMessage->text().contains("Polars.mdb")) << panel->lblMessage->text().toStdString();
      if (auto* edit = qobject_cast<forms::frmEditPlot*>(form)) {
        edit->cmdChangeData2->click();
        EXPECT_EQ(messages.back(), "Select a set up");
      }
      form->accept();
    });
    window.Action(entry)->trigger();
    EXPECT_TRUE(ran) << entry;
  }
  EXPECT_FALSE(std::filesystem::exists(file));
}
