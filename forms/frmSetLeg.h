// frmSetLeg: one leg worked by hand. The start and destination are typed,
// copied from the waypoint list or taken from the GPS; OK checks the boxes
// and solves the leg through the streams of the working moment, shows the
// report in the result box and leaves the track for the chart. The form
// stays open for the next leg.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <string>

#include "core/settings.h"
#include "forms/formsupport.h"
#include "passage/routeform.h"
#include "passage/singleleg.h"
#include "state/programstate.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTimer;

namespace kelvane::forms {

class frmSetLeg : public QDialog {
  Q_OBJECT
 public:
  // Works on the program's state: its waypoints, settings, working moment,
  // streams and passage stores (which the leg's results replace).
  explicit frmSetLeg(ProgramState& state, QWidget* parent = nullptr);

  // The handlers, public so that tests can run them as a click does.
  void cmdOK_Click();
  void cmdUseSOG_Click();
  void Cmdgpstostart_Click();
  void CmdDesttogps_Click();
  void cmdcopytostart_Click();
  void cmdcopytodest_Click();
  // One tick of the GPS boxes: the fix now, or "No data".
  void Timer1_Timer();

  // The boxes as the checks read them.
  SingleLegInput Input() const;
  // What the last OK solved, if it got that far.
  const std::optional<SingleLegOutcome>& Outcome() const { return outcome_; }

  QLineEdit* txtStartPos = nullptr;
  QLineEdit* txtDestPos = nullptr;
  QLineEdit* Txtboatspeed = nullptr;
  QLineEdit* txtGPSLat = nullptr;
  QLineEdit* txtGPSLong = nullptr;
  QLineEdit* txtGPSSOG = nullptr;
  QPushButton* cmdUseSOG = nullptr;
  QPushButton* Cmdgpstostart = nullptr;
  QPushButton* CmdDesttogps = nullptr;
  QListWidget* fillist = nullptr;
  QPushButton* cmdcopytostart = nullptr;
  QPushButton* cmdcopytodest = nullptr;
  QCheckBox* chkLeeway = nullptr;
  QLineEdit* txtLeeway = nullptr;
  QRadioButton* optPort = nullptr;
  QRadioButton* optStarboard = nullptr;
  QCheckBox* chkDisplayWind = nullptr;
  QCheckBox* chkWaterTrack = nullptr;
  QCheckBox* chkVectorsOn = nullptr;
  QPlainTextEdit* txtResult = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;
  QTimer* Timer1 = nullptr;

  // Messages and the low-speed question: modal boxes titled "Kelvane"
  // unless replaced.
  MessageSink showMessage;
  std::function<bool(const std::string&)> askYesNo;
  // The GPS now; without it the form has no fix.
  std::function<GpsReading()> gpsReading;
  // The road of a changed setting; returns "" or the message to show.
  std::function<std::string(const SettingsChange&)> storeSettings;
  // Told after a leg is solved: the chart shows its track.
  std::function<void()> legSolved;

 private:
  void Build();
  // The waypoint picked in fillist as box text, or "" with none picked.
  std::string PickedWaypoint() const;

  ProgramState& state_;
  std::optional<SingleLegOutcome> outcome_;
};

}  // namespace kelvane::forms
