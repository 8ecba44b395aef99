// Frmdisclaimer: the start form. It finds the folders, lays out the data
// tree, probes the date order, shows the notices, and on acceptance gives
// way to the main window. Declining ends the program at once.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "forms/formsupport.h"
#include "state/programstate.h"

class QListWidget;
class QPushButton;

namespace kelvane::app {

class FrmChart;

class Frmdisclaimer : public QMainWindow {
  Q_OBJECT
 public:
  explicit Frmdisclaimer(Folders folders, QWidget* parent = nullptr);
  ~Frmdisclaimer() override;

  // The start-up steps up to the wait for a button. False when the program
  // must end (a date order it cannot use); the message has been shown.
  bool Prepare();

  void cmdCCok_Click();
  void cmddecline_Click();
  void mnuRestoreDefaults_Click();

  FrmChart* MainWindow() const { return chart_.get(); }
  const ProgramState& State() const { return state_; }

  forms::MessageSink showMessage;
  std::function<void(int)> endProgram;  // quits the application by default

 private:
  ProgramState state_;
  QListWidget* lstNotices_;
  std::unique_ptr<FrmChart> chart_;
};

// The notices of the start form, line by line.
const std::vector<std::string>& StartNotices();

}  // namespace kelvane::app
