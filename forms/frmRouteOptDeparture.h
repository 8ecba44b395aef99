// frmRouteOptDeparture: the departure sweep of the route. The user picks a
// slot of the working day; cmdOptimise works the whole route from every
// whole hour of it. The progress bar and its label follow the rows, and
// cmdrtecancel stops a running sweep at the next leg (before it closes the
// form when nothing runs). A completed sweep accepts the dialog; the main
// window then shows the results.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <optional>

#include "core/settings.h"
#include "core/workingtime.h"
#include "forms/formsupport.h"
#include "passage/departuresweep.h"

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace kelvane::forms {

class frmRouteOptDeparture : public QDialog {
  Q_OBJECT
 public:
  // The settings give CalcInterval and AcceptableError; the moment the
  // working day of every departure and the time the tides go back to.
  frmRouteOptDeparture(PassageState& passage, StreamContext streams, const SettingsRecord& settings,
                       const WorkingMoment& moment, QWidget* parent = nullptr);

  void cmdOptimise_Click();
  void cmdreverse_Click();
  void cmdrtecancel_Click();
  void RefreshLegs();
  // The slot chosen, 1 to 5.
  int Slot() const;
  const std::optional<SweepOutcome>& Outcome() const { return outcome_; }
  bool Running() const { return running_; }

  std::array<QRadioButton*, 5> Options{};  // Option1 .. Option5
  QListWidget* List1 = nullptr;
  QProgressBar* ProgressBar1 = nullptr;
  QLabel* lblProgress = nullptr;
  QPushButton* cmdOptimise = nullptr;
  QPushButton* cmdreverse = nullptr;
  QPushButton* cmdrtecancel = nullptr;

  // Messages and the low-speed question: modal "Kelvane" boxes unless
  // replaced.
  MessageSink showMessage;
  std::function<bool(const std::string&)> askYesNo;
  // The event pump between legs; by default the application's.
  std::function<void()> pumpEvents;
  // Told true as a sweep starts and false when it ends (the owner holds
  // its timers meanwhile).
  std::function<void(bool)> working;

  // Closing is refused while a sweep runs: cmdrtecancel stops it first.
  void reject() override;

 private:
  void SetWorking(bool on);

  PassageState& passage_;
  StreamContext streams_;
  const SettingsRecord& settings_;
  WorkingMoment moment_;
  bool running_ = false;
  bool cancelAsked_ = false;
  std::optional<SweepOutcome> outcome_;
};

}  // namespace kelvane::forms
