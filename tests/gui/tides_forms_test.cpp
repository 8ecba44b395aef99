// The area and port dialogs on real widgets and real files in a temporary
// folder.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "core/settings.h"
#include "forms/frmPortName.h"
#include "forms/frmTidesSeaArea.h"
#include "support/gui_support.h"

namespace {

namespace fs = std::filesystem;

// A data root with its TS folder, in a temporary folder of its own.
struct Folder : kelvane::test::ApplicationStarted {
  kelvane::test::TempDir dir;
  fs::path path = dir.path;
  Folder() { fs::create_directories(path / "TS"); }
};

TEST(frmTidesSeaArea, RefusesAnEmptyChoiceThenStoresTheClickedName) {
  Folder dir;
  fs::copy_file(fs::path(KELVANE_SOURCE_DIR) / "data" / "TS" / "UK.hc", dir.path / "TS" / "UK.hc");
  std::ofstream(dir.path / "TS" / "Brittany.hc") << "";
  const fs::path settings = dir.path / "KelvaneConfigv1000.cfg";
  kelvane::forms::frmTidesSeaArea form(dir.path / "TS", settings);
  ASSERT_EQ(form.FileList->count(), 2);
  EXPECT_EQ(form.FileList->item(1)->text(), "UK.hc");

  QString shown;
  QTimer::singleShot(50, [&shown] {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* box = qobject_cast<QMessageBox*>(w)) {
        shown = box->text();
        box->accept();
      }
  });
  form.cmdOK->click();  // nothing chosen yet
  EXPECT_EQ(shown, "Select a file by clicking a name in the list, followed by the OK button");
  EXPECT_FALSE(fs::exists(settings));

  emit form.FileList->itemClicked(form.FileList->item(0));
  EXPECT_EQ(form.lblAreaToUse->text(), "Brittany.hc");
  form.cmdOK->click();
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(kelvane::ReadSettings(settings).HarmonicFile, "Brittany.hc");
}

TEST(frmPortName, ShowsTheStoredPortAndStoresTheChoice) {
  Folder dir;
  const fs::path area = fs::path(KELVANE_SOURCE_DIR) / "data" / "TS" / "UK.hc";
  const fs::path settings = dir.path / "KelvaneConfigv1000.cfg";
  {
    // A stored number beyond the last record shows record 1.
    kelvane::forms::frmPortName form(area, settings, 999);
    EXPECT_EQ(form.confportnolabel->text(), "1");
    EXPECT_EQ(form.portconfigbox->text(), "Dublin");
  }
  kelvane::forms::frmPortName form(area, settings, 76);
  EXPECT_EQ(form.portlist2->item(75)->text(), "Dover  76");
  EXPECT_EQ(form.portconfigbox->text(), "Dover");
  form.portlist2->setCurrentRow(77);
  EXPECT_EQ(form.confportnolabel->text(), "78");
  form.portconfigok->click();
  EXPECT_EQ(form.ChosenPort(), 78);
  const kelvane::SettingsRecord stored = kelvane::ReadSettings(settings);
  EXPECT_EQ(stored.PortIndex, 78);
  EXPECT_EQ(stored.Port, form.portconfigbox->text().toStdString());
}

}  // namespace
