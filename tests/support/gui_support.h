// Support for widget tests: one QApplication for the test program, and
// temporary folders for the program's data tree.
#pragma once

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QListWidget>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/mainwindow.h"
#include "core/datatree.h"
#include "state/programstate.h"
#include "support/tempdir.h"

namespace kelvane::test {

inline QApplication& App() {
  static int argc = 1;
  static char name[] = "test_gui";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    return new QApplication(argc, argv);
  }();
  return *app;
}

// Starts the one application before the widgets of a test.
struct ApplicationStarted {
  ApplicationStarted() { App(); }
};

// The program's three folders inside a temporary folder (the application
// started, for the widgets that show them).
struct TempTree : ApplicationStarted {
  TempDir dir;
  Folders folders;
  TempTree() {
    folders.programFolder = dir.path / "data";
    folders.userFolder = dir.path / "user";
    folders.picturesFolder = dir.path / "pics";
  }
};

// A main window's state over a fresh tree seeded with the sample data, as
// the start form hands it on.
inline ProgramState SeededState(const TempTree& tree) {
  ProgramState state;
  state.folders = tree.folders;
  CreateDataTree(tree.folders);
  SeedDataRoot(tree.folders, std::filesystem::path(KELVANE_SOURCE_DIR) / "data");
  return state;
}

// A main window loaded over a fresh tree seeded with the sample data, as
// the start form hands it on; its messages are collected, not shown. Its
// parts are meant to be bound by name:
//   LoadedChart loaded;
//   auto& [tree, messages, chart] = loaded;
struct LoadedChart : ApplicationStarted {
  TempTree tree;
  std::vector<std::string> messages;
  app::FrmChart chart;
  LoadedChart() : chart(SeededState(tree)) {
    chart.showMessage = [this](const std::string& m) { messages.push_back(m); };
    chart.Load();
  }
  // Shows the window at a size and waits until it is on a surface.
  bool ShownAt(int width, int height) {
    chart.resize(width, height);
    chart.show();
    return QTest::qWaitForWindowExposed(&chart);
  }
};

// Runs the event loop until the condition holds or ten seconds pass.
template <typename Condition>
bool WaitUntil(Condition condition, int milliseconds = 10000) {
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.elapsed() > milliseconds) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QThread::msleep(5);
  }
  return true;
}

// Runs `act` on the modal dialog of type T as soon as it is up: set before
// the action that opens the dialog and blocks in its exec().
template <class T>
void WhenModal(std::function<void(T*)> act) {
  auto* poll = new QTimer(qApp);
  poll->setInterval(10);
  QObject::connect(poll, &QTimer::timeout, [poll, act] {
    if (auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget())) {
      poll->stop();
      poll->deleteLater();
      act(dialog);
    }
  });
  poll->start();
}

// A clock that stands at a UTC moment, for a window whose time must not run
// on: chart.clock = StandingClock(2026, 6, 15, 12).
inline std::function<std::tm()> StandingClock(int year, int month, int day, int hour) {
  return [=] {
    std::tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    timegm(&t);
    return t;
  };
}

// The texts of a list box, top to bottom.
inline std::vector<std::string> ListLines(const QListWidget* list) {
  std::vector<std::string> lines;
  for (int i = 0; i < list->count(); ++i) lines.push_back(list->item(i)->text().toStdString());
  return lines;
}

// Saves a picture of a window when KELVANE_SCREENSHOT_DIR names a folder.
inline void Screenshot(QWidget* w, const char* name) {
  const char* dir = std::getenv("KELVANE_SCREENSHOT_DIR");
  if (!dir || !*dir) return;
  QDir().mkpath(dir);
  w->grab().save(QString(dir) + "/" + name + ".png");
}

}  // namespace kelvane::test
