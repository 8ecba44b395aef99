#include "forms/frmCalcCOG.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/format.h"
#include "forms/messages.h"
#include "forms/reportlines.h"

namespace kelvane::forms {

namespace {

QLineEdit* Box(QWidget* parent, const char* name, const char* hint = nullptr) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(name);
  if (hint) e->setPlaceholderText(hint);
  return e;
}

}  // namespace

DriftSettings DriftSettingsOf(const ProgramState& state) {
  DriftSettings d;
  d.Variation = state.settings.Variation;
  d.CalcInterval = state.settings.CalcInterval;
  d.Day = state.moment.WorkingDay;
  d.Year = state.moment.WorkingYear;
  d.Time = state.moment.WorkingTime;
  return d;
}

frmCalcCOG::frmCalcCOG(ProgramState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmCalcCOG");
  setWindowTitle("Course over Ground");
  showMessage = DefaultMessageSink(this);
  const SettingsRecord& s = state_.settings;

  txtStartPos = Box(this, "txtStartPos", "DD.MM.mmN DDD.MM.mmW");
  txtDestPos = Box(this, "txtDestPos", "optional");
  for (QLineEdit* e : {txtStartPos, txtDestPos}) e->setMinimumWidth(200);
  Txtboatspeed = Box(this, "Txtboatspeed");
  Txtboatspeed->setText(ToQString(NumberText(s.VesselSpeed)));
  txtBearing = Box(this, "txtBearing", "°M");
  txtDuration = Box(this, "txtDuration", "HH:MM");
  chkLeeway = new QCheckBox("Leeway", this);
  chkLeeway->setObjectName("chkLeeway");
  chkLeeway->setChecked(state_.UseLeewaySwitch);
  txtLeeway = Box(this, "txtLeeway");
  txtLeeway->setText(ToQString(NumberText(s.Leeway)));
  txtLeeway->setMaximumWidth(50);
  optPort = new QRadioButton("Port", this);
  optPort->setObjectName("optPort");
  optStarboard = new QRadioButton("Starboard", this);
  optStarboard->setObjectName("optStarboard");
  auto* sides = new QButtonGroup(this);
  sides->addButton(optPort);
  sides->addButton(optStarboard);
  txtResult = MakeReportBox(this, "txtResult");
  txtResult->setMinimumSize(520, 200);
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setDefault(true);
  cmdCancel = new QPushButton("Close", this);
  cmdCancel->setObjectName("cmdCancel");

  auto* grid = new QGridLayout;
  int row = 0;
  auto add = [&](const char* label, QWidget* w) {
    grid->addWidget(new QLabel(label, this), row, 0);
    grid->addWidget(w, row++, 1);
  };
  add("Start", txtStartPos);
  add("Destination", txtDestPos);
  add("Heading (°M)", txtBearing);
  add("Boat speed (kn)", Txtboatspeed);
  add("Duration (HH:MM)", txtDuration);
  auto* leeway = new QHBoxLayout;
  leeway->addWidget(chkLeeway);
  leeway->addWidget(txtLeeway);
  leeway->addWidget(new QLabel("°  wind on", this));
  leeway->addWidget(optPort);
  leeway->addWidget(optStarboard);
  leeway->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addLayout(leeway);
  layout->addWidget(txtResult, 1);
  layout->addLayout(buttons);

  connect(cmdOK, &QPushButton::clicked, this, &frmCalcCOG::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

CogInput frmCalcCOG::Input() const {
  CogInput in;
  in.Start = FromQString(txtStartPos->text());
  in.Dest = FromQString(txtDestPos->text());
  in.Speed = FromQString(Txtboatspeed->text());
  in.Duration = FromQString(txtDuration->text());
  in.Bearing = FromQString(txtBearing->text());
  in.LeewayOn = chkLeeway->isChecked();
  in.LeewayText = FromQString(txtLeeway->text());
  in.Side = optPort->isChecked() ? LeewaySide::Port : optStarboard->isChecked() ? LeewaySide::Starboard
                                                                                : LeewaySide::None;
  return in;
}

void frmCalcCOG::cmdOK_Click() {
  StreamContext ctx = state_.Streams();
  outcome_ = CalculateCog(ctx, state_.passage, Input(), DriftSettingsOf(state_));
  for (const std::string& notice : outcome_->notices) showMessage(notice);
  switch (outcome_->verdict) {
    case DriftVerdict::Refused:
      showMessage(outcome_->message);
      return;
    case DriftVerdict::Done:
      state_.UseLeewaySwitch = chkLeeway->isChecked();
      ShowLines(txtResult, outcome_->lines);
      if (drifted) drifted();
      return;
  }
}

}  // namespace kelvane::forms
