// frmCalcMOB: man overboard. The position at the alarm (from the GPS when
// there is a fix, else as the window put it), the hours since, and for a
// boat searching under way her speed and heading (magnetic); empty or 0
// speed is the casualty herself. OK drifts her through the streams from the
// working moment, shows the report and hands the predicted position to the
// chart.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <string>

#include "forms/formsupport.h"
#include "passage/driftrun.h"
#include "passage/routeform.h"
#include "state/programstate.h"

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace kelvane::forms {

class frmCalcMOB : public QDialog {
  Q_OBJECT
 public:
  explicit frmCalcMOB(ProgramState& state, QWidget* parent = nullptr);

  void cmdOK_Click();
  void Cmdgpstostart_Click();
  // The GPS button follows the fix: enabled with one, "No GPS fix" without.
  void ShowGps();
  MobInput Input() const;
  const std::optional<DriftOutcome>& Outcome() const { return outcome_; }

  QLineEdit* txtStartPos = nullptr;
  QPushButton* Cmdgpstostart = nullptr;
  QLineEdit* txtDuration = nullptr;
  QLineEdit* Txtboatspeed = nullptr;
  QLineEdit* txtBearing = nullptr;
  QPlainTextEdit* txtResult = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;

  MessageSink showMessage;
  std::function<GpsReading()> gpsReading;
  // Told after a run with the predicted position of the casualty.
  std::function<void(Position)> predicted;

 private:
  ProgramState& state_;
  std::optional<DriftOutcome> outcome_;
};

}  // namespace kelvane::forms
