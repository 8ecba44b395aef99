#include "forms/frmCalcMOB.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/frmCalcCOG.h"
#include "forms/messages.h"
#include "forms/reportlines.h"
#include "passage/singleleg.h"

namespace kelvane::forms {

namespace {

QLineEdit* Box(QWidget* parent, const char* name, const char* hint) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(name);
  e->setPlaceholderText(hint);
  return e;
}

}  // namespace

frmCalcMOB::frmCalcMOB(ProgramState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmCalcMOB");
  setWindowTitle("Man Overboard");
  showMessage = DefaultMessageSink(this);

  txtStartPos = Box(this, "txtStartPos", "DD.MM.mmN DDD.MM.mmW");
  txtStartPos->setMinimumWidth(200);
  Cmdgpstostart = new QPushButton("GPS", this);
  Cmdgpstostart->setObjectName("Cmdgpstostart");
  // Hours in the water: a plain number, 1.5 for an hour and a half.
  txtDuration = Box(this, "txtDuration", "hours");
  txtDuration->setText("1");
  Txtboatspeed = Box(this, "Txtboatspeed", "0: in the water");
  txtBearing = Box(this, "txtBearing", "°M");
  txtResult = MakeReportBox(this, "txtResult");
  txtResult->setMinimumSize(480, 160);
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setDefault(true);
  cmdCancel = new QPushButton("Close", this);
  cmdCancel->setObjectName("cmdCancel");

  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel("Position at the alarm", this), 0, 0);
  grid->addWidget(txtStartPos, 0, 1);
  grid->addWidget(Cmdgpstostart, 0, 2);
  grid->addWidget(new QLabel("Hours in the water", this), 1, 0);
  grid->addWidget(txtDuration, 1, 1);
  grid->addWidget(new QLabel("Speed (kn)", this), 2, 0);
  grid->addWidget(Txtboatspeed, 2, 1);
  grid->addWidget(new QLabel("Heading (°M)", this), 3, 0);
  grid->addWidget(txtBearing, 3, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(txtResult, 1);
  layout->addLayout(buttons);

  connect(cmdOK, &QPushButton::clicked, this, &frmCalcMOB::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(Cmdgpstostart, &QPushButton::clicked, this, &frmCalcMOB::Cmdgpstostart_Click);
  ShowGps();
}

void frmCalcMOB::ShowGps() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  Cmdgpstostart->setEnabled(fix.valid);
  Cmdgpstostart->setText(fix.valid ? "GPS" : "No GPS fix");
}

void frmCalcMOB::Cmdgpstostart_Click() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  if (fix.valid) txtStartPos->setText(ToQString(PositionEntryText(fix.lat, fix.lon)));
}

MobInput frmCalcMOB::Input() const {
  MobInput in;
  in.Start = FromQString(txtStartPos->text());
  in.Duration = FromQString(txtDuration->text());
  in.Speed = FromQString(Txtboatspeed->text());
  in.Bearing = FromQString(txtBearing->text());
  return in;
}

void frmCalcMOB::cmdOK_Click() {
  StreamContext ctx = state_.Streams();
  outcome_ = CalculateMob(ctx, state_.passage, Input(), DriftSettingsOf(state_));
  for (const std::string& notice : outcome_->notices) showMessage(notice);
  switch (outcome_->verdict) {
    case DriftVerdict::Refused:
      showMessage(outcome_->message);
      return;
    case DriftVerdict::Done:
      ShowLines(txtResult, outcome_->lines);
      if (predicted) predicted(outcome_->run.End);
      return;
  }
}

}  // namespace kelvane::forms
