// The main window as a skipper meets it: every entry of its menus, popup
// menu and tool bar answers when clicked, except those waiting for their
// subsystem, which stay grey.
#include <gtest/gtest.h>

#include <QProcess>
#include <map>
#include <set>

#include "app/actionlist.h"
#include "app/mainwindow.h"
#include "gui_support.h"

using namespace kelvane;
using namespace kelvane::test;

TEST(MainWindowActions, EveryEntryAnswersOrWaitsGreyedForItsSubsystem) {
  App();
  TempTree tree;
  app::FrmChart window(SeededState(tree));
  std::vector<std::string> messages;
  window.showMessage = [&](const std::string& m) { messages.push_back(m); };
  window.Load();
  EXPECT_TRUE(messages.empty()) << messages.front();

  std::set<std::string> awaiting;
  for (const app::AwaitingAction& a : app::ActionsAwaitingWork()) awaiting.insert(a.name);
  std::set<std::string> seen;
  for (const app::ActionRow& row : app::ListActions(window)) {
    SCOPED_TRACE(row.name + " \"" + row.caption + "\"");
    EXPECT_FALSE(row.name.empty()) << "every action carries its name";
    seen.insert(row.name);
    if (awaiting.count(row.name)) {
      // A waiting entry is grey and unanswered; once its work lands it must
      // come off the list.
      EXPECT_FALSE(row.connected) << "has a handler: take it off the waiting list";
      EXPECT_FALSE(row.enabled);
    } else {
      EXPECT_TRUE(row.connected) << "shown but answers nothing";
    }
  }
  for (const std::string& name : awaiting) EXPECT_TRUE(seen.count(name)) << name << " is not on any menu";
}

// The listing as the program prints it: no screen needed, no window shown,
// nothing written outside the folders it is given, and one line per action
// with the same verdicts as above.
TEST(MainWindowActions, ListActionsRunsHeadlessAndWritesOnlyItsOwnTree) {
  App();
  TempTree tree;
  QProcess program;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.remove("QT_QPA_PLATFORM");
  env.remove("DISPLAY");
  program.setProcessEnvironment(env);
  program.start(KELVANE_APP, {"--list-actions", "--data-root", QString::fromStdString(tree.folders.programFolder.string()),
                              "--user-folder", QString::fromStdString(tree.folders.userFolder.string())});
  ASSERT_TRUE(program.waitForFinished(60000));
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  const QStringList lines = QString::fromUtf8(program.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  ASSERT_GT(lines.size(), 100);
  EXPECT_TRUE(lines.contains("mnucalcrte\tCalculate Route...\tdisabled\tconnected"));
  EXPECT_TRUE(lines.contains("mnuSearchWrecks\tSearch Wrecks...\tdisabled\tno handler"));
  for (const QString& line : lines) EXPECT_EQ(line.count('\t'), 3) << line.toStdString();
}
