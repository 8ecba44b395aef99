// frmCalcCOG: course over ground. A start, an optional destination, the
// heading steered (magnetic), the boat speed and a time "HH:MM"; OK runs the
// boat through the streams from the working moment and shows the report.
// The track goes to the chart. The form stays open for the next run.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "forms/formsupport.h"
#include "passage/driftrun.h"
#include "state/programstate.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace kelvane::forms {

class frmCalcCOG : public QDialog {
  Q_OBJECT
 public:
  explicit frmCalcCOG(ProgramState& state, QWidget* parent = nullptr);

  void cmdOK_Click();
  CogInput Input() const;
  const std::optional<DriftOutcome>& Outcome() const { return outcome_; }

  QLineEdit* txtStartPos = nullptr;
  QLineEdit* txtDestPos = nullptr;
  QLineEdit* Txtboatspeed = nullptr;
  QLineEdit* txtBearing = nullptr;
  QLineEdit* txtDuration = nullptr;
  QCheckBox* chkLeeway = nullptr;
  QLineEdit* txtLeeway = nullptr;
  QRadioButton* optPort = nullptr;
  QRadioButton* optStarboard = nullptr;
  QPlainTextEdit* txtResult = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;

  MessageSink showMessage;
  // Told after a run: the chart shows its track.
  std::function<void()> drifted;

 private:
  ProgramState& state_;
  std::optional<DriftOutcome> outcome_;
};

// The settings and moment a run of either form is worked with.
DriftSettings DriftSettingsOf(const ProgramState& state);

}  // namespace kelvane::forms
