// Kelvane: passage planner and secondary navigation aid.
#include <QApplication>
#include <QCommandLineParser>

#include "app/frmdisclaimer.h"
#include "core/datatree.h"

int main(int argc, char** argv) {
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
  parser.process(app);

  kelvane::FolderOverrides overrides;
  overrides.dataRoot = parser.value(dataRoot).toStdString();
  overrides.userFolder = parser.value(userFolder).toStdString();
  overrides.picturesFolder = parser.value(picturesFolder).toStdString();

  kelvane::app::Frmdisclaimer start(kelvane::FindFolders(overrides));
  if (!start.Prepare()) return 1;
  start.show();
  return app.exec();
}
