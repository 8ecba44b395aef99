// Kelvane: passage planner and secondary navigation aid.
#include <QApplication>
#include <QCommandLineParser>
#include <QTemporaryDir>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "app/actionlist.h"
#include "app/frmdisclaimer.h"
#include "app/mainwindow.h"
#include "core/datatree.h"

namespace {

bool Asked(int argc, char** argv, const char* option) {
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], option) == 0) return true;
  return false;
}

// Builds the main window as the start form would, without showing it, and
// prints every action it offers. Without folder options or their
// environment variables the window is built
// over a temporary tree seeded with the sample data, so the listing never
// writes into the user's own folders.
int ListMainWindowActions(const kelvane::FolderOverrides& overrides) {
  QTemporaryDir scratch;
  kelvane::FolderOverrides folders = overrides;
  const bool fromEnvironment = std::getenv("KELVANE_DATA_ROOT") || std::getenv("KELVANE_USER_FOLDER");
  if (folders.dataRoot.empty() && folders.userFolder.empty() && !fromEnvironment) {
    if (!scratch.isValid()) {
      std::cerr << "kelvane: cannot make a temporary folder\n";
      return 1;
    }
    const std::string root = scratch.path().toStdString();
    folders.dataRoot = root + "/data";
    folders.userFolder = root + "/user";
    folders.picturesFolder = root + "/pictures";
  }
  kelvane::ProgramState state;
  state.folders = kelvane::FindFolders(folders);
  kelvane::CreateDataTree(state.folders);
  if (auto seed = kelvane::SeedFolder(KELVANE_SEED_DIR)) kelvane::SeedDataRoot(state.folders, *seed);
  state.dateFormat = kelvane::DetectSystemDateFormat();
  kelvane::app::FrmChart window(std::move(state));
  window.showMessage = [](const std::string& text) { std::cerr << "kelvane: " << text << '\n'; };
  window.Load();
  std::cout << kelvane::app::ActionListText(kelvane::app::ListActions(window));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // The listing needs no screen: it runs on the offscreen platform.
  const bool listActions = Asked(argc, argv, "--list-actions");
  if (listActions) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication app(argc, argv);
  QApplication::setApplicationName("Kelvane");
  QApplication::setApplicationVersion(KELVANE_VERSION);

  QCommandLineParser parser;
  parser.setApplicationDescription("Passage planner and secondary navigation aid");
  parser.addHelpOption();
  parser.addVersionOption();
  QCommandLineOption dataRoot("data-root", "Data root: charts, harmonic constants, the user's working data.", "folder");
  QCommandLineOption userFolder("user-folder", "Per-user folder holding KelvaneFiles/ and the settings.", "folder");
  QCommandLineOption picturesFolder("pictures-folder", "Folder of the pictures of dive sites.", "folder");
  parser.addOption(dataRoot);
  parser.addOption(userFolder);
  parser.addOption(picturesFolder);
  QCommandLineOption listActionsOption(
      "list-actions", "Print every action of the main window (name, caption, enabled, handler) and end.");
  parser.addOption(listActionsOption);
  parser.process(app);

  kelvane::FolderOverrides overrides;
  overrides.dataRoot = parser.value(dataRoot).toStdString();
  overrides.userFolder = parser.value(userFolder).toStdString();
  overrides.picturesFolder = parser.value(picturesFolder).toStdString();

  if (listActions) return ListMainWindowActions(overrides);

  kelvane::app::Frmdisclaimer start(kelvane::FindFolders(overrides));
  if (!start.Prepare()) return 1;
  start.show();
  return app.exec();
}
