// The settings forms and the date form: real dialogs, real files.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "core/settings.h"
#include "forms/frmconfigure.h"
#include "forms/frmtimdat.h"
#include "state/settingsroad.h"
#include "support/gui_support.h"

using namespace kelvane;
using namespace kelvane::test;

namespace {

template <typename T>
T* Child(QWidget& w, const char* name) {
  T* c = w.findChild<T*>(name);
  EXPECT_NE(c, nullptr) << name;
  return c;
}

}  // namespace

TEST(ConfigureForm, RefusesAndStaysOpenThenSaves) {
  TempTree tree;
  std::filesystem::create_directories(tree.folders.UserFiles());
  ASSERT_TRUE(WriteSettings(tree.folders.SettingsFile(), DefaultSettings(tree.folders)));
  const SettingsRecord settings = ReadSettings(tree.folders.SettingsFile());
  forms::FrmConfigure form(forms::FrmConfigure::Variant::Wrecks, settings, tree.folders.SettingsFile());
  std::vector<std::string> messages;
  form.showMessage = [&](const std::string& m) { messages.push_back(m); };
  form.show();
  // The controls show the record.
  EXPECT_EQ(Child<QLineEdit>(form, "Txtvariation")->text(), "2W");
  EXPECT_EQ(Child<QComboBox>(form, "cmbLower")->currentText(), "18");
  EXPECT_EQ(Child<QComboBox>(form, "cmbWaySize")->currentText(), "Small");

  Child<QLineEdit>(form, "Txtvariation")->setText("2 w");
  QTest::mouseClick(Child<QPushButton>(form, "cmdconfigok"), Qt::LeftButton);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0], "Enter a valid for Variation");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(ReadSettings(tree.folders.SettingsFile()).Variation, -2.0f);

  Child<QLineEdit>(form, "Txtvariation")->setText("3E");
  Child<QLineEdit>(form, "txtSearchCircle")->setText("0");
  Child<QLineEdit>(form, "Txtboatspeed")->setText("6");
  QTest::mouseClick(Child<QPushButton>(form, "cmdconfigok"), Qt::LeftButton);
  EXPECT_EQ(messages.size(), 1u);
  EXPECT_EQ(form.result(), QDialog::Accepted);
  SettingsRecord saved = ReadSettings(tree.folders.SettingsFile());
  EXPECT_EQ(saved.Variation, 3.0f);
  EXPECT_EQ(saved.SearchCircle, 0.01f);
  EXPECT_EQ(saved.VesselSpeed, 6.0f);
  ASSERT_TRUE(form.Outcome().has_value());
  EXPECT_EQ(form.Outcome()->legSpeed, 6.0f);
  Screenshot(&form, "configure-form");
}

TEST(ConfigureForm, StreamSubsetChecksItsFontSize) {
  TempTree tree;
  std::filesystem::create_directories(tree.folders.UserFiles());
  ASSERT_TRUE(WriteSettings(tree.folders.SettingsFile(), DefaultSettings(tree.folders)));
  const SettingsRecord settings = ReadSettings(tree.folders.SettingsFile());
  forms::FrmConfigure form(forms::FrmConfigure::Variant::Streams, settings, tree.folders.SettingsFile());
  std::string message;
  form.showMessage = [&](const std::string& m) { message = m; };
  EXPECT_EQ(form.findChild<QLineEdit*>("Txtvariation"), nullptr);  // not on this form
  Child<QComboBox>(form, "cmbStreamFontSize")->setCurrentText("0");
  form.cmdconfigok_Click();
  EXPECT_EQ(message, "Font Size = 0 !!");
  Child<QComboBox>(form, "cmbStreamFontSize")->setCurrentText("12");
  Child<QComboBox>(form, "cmbStreamLength")->setCurrentText("0");
  form.cmdconfigok_Click();
  EXPECT_EQ(message, "Tidal Stream line length =0 !!");
  Child<QComboBox>(form, "cmbStreamLength")->setCurrentText("3");
  form.cmdconfigok_Click();
  SettingsRecord saved = ReadSettings(tree.folders.SettingsFile());
  EXPECT_EQ(saved.StreamLength, 3);
  EXPECT_EQ(saved.StreamFontSize, 12);
  EXPECT_EQ(saved.Variation, -2.0f);  // a field of another form is kept
}

// The form used to read the whole record at open and write it back whole at
// OK, undoing a setting changed elsewhere (a menu switch) while it was open.
TEST(ConfigureForm, OkKeepsASettingChangedSinceTheFormOpened) {
  TempTree tree;
  std::filesystem::create_directories(tree.folders.UserFiles());
  const std::filesystem::path file = tree.folders.SettingsFile();
  ASSERT_TRUE(WriteSettings(file, DefaultSettings(tree.folders)));
  SettingsRecord held = ReadSettings(file);
  forms::FrmConfigure form(forms::FrmConfigure::Variant::Streams, held, file);
  form.storeSettings = [&](const SettingsChange& change) { return UpdateSettings(file, held, change); };
  ASSERT_EQ(UpdateSettings(file, held, [](SettingsRecord& r) { r.ShowToolBar = 0; }), "");  // hidden; the factory shows it
  Child<QComboBox>(form, "cmbStreamLength")->setCurrentText("4");
  form.cmdconfigok_Click();
  ASSERT_EQ(form.result(), QDialog::Accepted);
  for (const SettingsRecord& r : {ReadSettings(file), held}) {
    EXPECT_EQ(r.ShowToolBar, 0);
    EXPECT_EQ(r.StreamLength, 4);
  }
}

TEST(DateForm, TimeBoxChecks) {
  App();
  WorkingMoment m;
  m.WorkingDayOfMonth = 1;
  m.WorkingMonth = 3;
  m.WorkingYear = 2024;
  m.WorkingTime = 9.5f;
  DateFormat format;
  format.format = "DD/MM/YYYY";
  forms::FrmTimDat form(m, format);
  std::string message;
  form.showMessage = [&](const std::string& t) { message = t; };
  EXPECT_EQ(Child<QLineEdit>(form, "txtSelTime")->text(), "09:30");
  EXPECT_EQ(form.findChild<QWidget*>("lblDay")->property("text").toString(), "01/03/2024 (Friday)");
  Child<QLineEdit>(form, "txtSelTime")->setText("1235");
  form.cmdOK_Click();
  EXPECT_EQ(message, "Please enter a valid time i.e. 12:35");
  Child<QLineEdit>(form, "txtSelTime")->setText("12:60");
  form.cmdOK_Click();
  EXPECT_EQ(message, "Please enter a valid time");
  Child<QLineEdit>(form, "txtSelTime")->setText("12:35");
  form.cmdOK_Click();
  ASSERT_TRUE(form.Result().has_value());
  EXPECT_EQ(form.Result()->dayOfYear, 61);
  EXPECT_FLOAT_EQ(form.Result()->time, 12.0f + 35.0f / 60.0f);
}
