#include "forms/frmSetLeg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/format.h"
#include "forms/messages.h"
#include "forms/reportlines.h"
#include "routes/gpx.h"

namespace kelvane::forms {

namespace {

QLineEdit* Box(QWidget* parent, const char* name, bool readOnly = false) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(name);
  e->setReadOnly(readOnly);
  return e;
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  return b;
}

QCheckBox* Check(QWidget* parent, const char* name, const char* caption, bool on) {
  auto* c = new QCheckBox(caption, parent);
  c->setObjectName(name);
  c->setChecked(on);
  return c;
}

constexpr const char* kNoData = "No data";

}  // namespace

frmSetLeg::frmSetLeg(ProgramState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmSetLeg");
  setWindowTitle("Single Leg");
  showMessage = DefaultMessageSink(this);
  askYesNo = [this](const std::string& text) { return AskYesNo(this, text); };
  Build();
  Timer1_Timer();
}

void frmSetLeg::Build() {
  const SettingsRecord& s = state_.settings;
  txtStartPos = Box(this, "txtStartPos");
  txtDestPos = Box(this, "txtDestPos");
  for (QLineEdit* e : {txtStartPos, txtDestPos}) {
    e->setPlaceholderText("DD.MM.mmN DDD.MM.mmW");
    e->setMinimumWidth(200);
  }
  Cmdgpstostart = Button(this, "Cmdgpstostart", "GPS");
  CmdDesttogps = Button(this, "CmdDesttogps", "GPS");
  cmdcopytostart = Button(this, "cmdcopytostart", "Waypoint");
  cmdcopytodest = Button(this, "cmdcopytodest", "Waypoint");

  Txtboatspeed = Box(this, "Txtboatspeed");
  Txtboatspeed->setText(ToQString(NumberText(s.VesselSpeed)));
  Txtboatspeed->setMaximumWidth(70);
  cmdUseSOG = Button(this, "cmdUseSOG", "Use SOG");

  txtGPSLat = Box(this, "txtGPSLat", true);
  txtGPSLong = Box(this, "txtGPSLong", true);
  txtGPSSOG = Box(this, "txtGPSSOG", true);

  fillist = new QListWidget(this);
  fillist->setObjectName("fillist");
  const std::vector<Waypoint>& wps = state_.waypoints.ChartWaypoints;
  for (std::size_t i = 0; i < Count(wps); ++i) fillist->addItem(ToQString(wps[i].Name));
  fillist->setMinimumHeight(150);

  chkLeeway = Check(this, "chkLeeway", "Leeway", state_.UseLeewaySwitch);
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

  chkDisplayWind = Check(this, "chkDisplayWind", "Display wind", s.ShowWind != 0);
  chkWaterTrack = Check(this, "chkWaterTrack", "Show water track", false);
  chkVectorsOn = Check(this, "chkVectorsOn", "Show tidal vectors", false);

  txtResult = MakeReportBox(this, "txtResult");
  txtResult->setMinimumSize(520, 230);
  // The report's one tab parts the true course from its "°T".
  txtResult->setTabStopDistance(txtResult->fontMetrics().horizontalAdvance(' ') * 4.0);
  cmdOK = Button(this, "cmdOK", "OK");
  cmdOK->setDefault(true);
  cmdCancel = Button(this, "cmdCancel", "Close");
  Timer1 = new QTimer(this);
  Timer1->setObjectName("Timer1");
  Timer1->setInterval(1000);

  // Left: the two ends of the leg with their sources.
  auto* ends = new QGroupBox("Leg", this);
  auto* endsGrid = new QGridLayout(ends);
  endsGrid->addWidget(new QLabel("Start", ends), 0, 0);
  endsGrid->addWidget(txtStartPos, 0, 1);
  endsGrid->addWidget(Cmdgpstostart, 0, 2);
  endsGrid->addWidget(cmdcopytostart, 0, 3);
  endsGrid->addWidget(new QLabel("Destination", ends), 1, 0);
  endsGrid->addWidget(txtDestPos, 1, 1);
  endsGrid->addWidget(CmdDesttogps, 1, 2);
  endsGrid->addWidget(cmdcopytodest, 1, 3);
  auto* speedRow = new QHBoxLayout;
  speedRow->addWidget(Txtboatspeed);
  speedRow->addWidget(new QLabel("kn", ends));
  speedRow->addWidget(cmdUseSOG);
  speedRow->addStretch(1);
  endsGrid->addWidget(new QLabel("Boat speed", ends), 2, 0);
  endsGrid->addLayout(speedRow, 2, 1, 1, 3);

  auto* gps = new QGroupBox("GPS", this);
  auto* gpsForm = new QFormLayout(gps);
  gpsForm->addRow("Latitude", txtGPSLat);
  gpsForm->addRow("Longitude", txtGPSLong);
  gpsForm->addRow("SOG (kn)", txtGPSSOG);

  auto* leeway = new QGroupBox("Leeway", this);
  auto* leewayRow = new QHBoxLayout(leeway);
  leewayRow->addWidget(chkLeeway);
  leewayRow->addWidget(txtLeeway);
  leewayRow->addWidget(new QLabel("°  wind on", leeway));
  leewayRow->addWidget(optPort);
  leewayRow->addWidget(optStarboard);
  leewayRow->addStretch(1);

  auto* display = new QGroupBox("Chart", this);
  auto* displayRow = new QHBoxLayout(display);
  displayRow->addWidget(chkWaterTrack);
  displayRow->addWidget(chkVectorsOn);
  displayRow->addWidget(chkDisplayWind);
  displayRow->addStretch(1);

  auto* waypoints = new QGroupBox("Waypoints", this);
  auto* wpLayout = new QVBoxLayout(waypoints);
  wpLayout->addWidget(fillist);

  auto* left = new QVBoxLayout;
  left->addWidget(ends);
  left->addWidget(leeway);
  left->addWidget(display);
  left->addWidget(txtResult, 1);
  auto* right = new QVBoxLayout;
  right->addWidget(gps);
  right->addWidget(waypoints, 1);
  auto* top = new QHBoxLayout;
  top->addLayout(left, 1);
  top->addLayout(right);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top, 1);
  layout->addLayout(buttons);

  connect(cmdOK, &QPushButton::clicked, this, &frmSetLeg::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdUseSOG, &QPushButton::clicked, this, &frmSetLeg::cmdUseSOG_Click);
  connect(Cmdgpstostart, &QPushButton::clicked, this, &frmSetLeg::Cmdgpstostart_Click);
  connect(CmdDesttogps, &QPushButton::clicked, this, &frmSetLeg::CmdDesttogps_Click);
  connect(cmdcopytostart, &QPushButton::clicked, this, &frmSetLeg::cmdcopytostart_Click);
  connect(cmdcopytodest, &QPushButton::clicked, this, &frmSetLeg::cmdcopytodest_Click);
  connect(Timer1, &QTimer::timeout, this, &frmSetLeg::Timer1_Timer);
  Timer1->start();
}

void frmSetLeg::Timer1_Timer() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  txtGPSLat->setText(fix.valid ? ToQString(LatToText(fix.lat)) : QString(kNoData));
  txtGPSLong->setText(fix.valid ? ToQString(LonToText(fix.lon)) : QString(kNoData));
  txtGPSSOG->setText(fix.valid ? ToQString(FormatNumber(fix.sog, "0.0")) : QString(kNoData));
  for (QPushButton* b : {cmdUseSOG, Cmdgpstostart, CmdDesttogps}) b->setEnabled(fix.valid);
}

void frmSetLeg::cmdUseSOG_Click() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  if (fix.valid) Txtboatspeed->setText(ToQString(FormatNumber(fix.sog, "0.0")));
}

void frmSetLeg::Cmdgpstostart_Click() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  if (fix.valid) txtStartPos->setText(ToQString(PositionEntryText(fix.lat, fix.lon)));
}

void frmSetLeg::CmdDesttogps_Click() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  if (fix.valid) txtDestPos->setText(ToQString(PositionEntryText(fix.lat, fix.lon)));
}

std::string frmSetLeg::PickedWaypoint() const {
  const int row = fillist->currentRow();
  const std::vector<Waypoint>& wps = state_.waypoints.ChartWaypoints;
  if (row < 0 || static_cast<std::size_t>(row) >= Count(wps)) return "";
  return PositionEntryText(wps[static_cast<std::size_t>(row)].Lat, wps[static_cast<std::size_t>(row)].Lon);
}

// The picked waypoint is also the end of the leg at once (LegStart,
// LegDest), as the drift forms read it.
void frmSetLeg::cmdcopytostart_Click() {
  const std::string text = PickedWaypoint();
  if (text.empty()) return;
  txtStartPos->setText(ToQString(text));
  state_.passage.LegStart = ParsePositionEntry(text).at;
}

void frmSetLeg::cmdcopytodest_Click() {
  const std::string text = PickedWaypoint();
  if (text.empty()) return;
  txtDestPos->setText(ToQString(text));
  state_.passage.LegDest = ParsePositionEntry(text).at;
}

SingleLegInput frmSetLeg::Input() const {
  SingleLegInput in;
  in.Start = FromQString(txtStartPos->text());
  in.Dest = FromQString(txtDestPos->text());
  in.Speed = FromQString(Txtboatspeed->text());
  in.LeewayOn = chkLeeway->isChecked();
  in.LeewayText = FromQString(txtLeeway->text());
  in.Side = optPort->isChecked() ? LeewaySide::Port : optStarboard->isChecked() ? LeewaySide::Starboard
                                                                                : LeewaySide::None;
  return in;
}

void frmSetLeg::cmdOK_Click() {
  SingleLegInput in = Input();
  CheckedLeg leg = CheckSingleLeg(in);
  if (leg.verdict == LegCheckVerdict::AskToContinue) {
    if (!askYesNo(leg.message)) return;
    in.LowSpeedAccepted = true;
    leg = CheckSingleLeg(in);
  }
  switch (leg.verdict) {
    case LegCheckVerdict::Refused:
    case LegCheckVerdict::AskToContinue:
      showMessage(leg.message);
      return;
    case LegCheckVerdict::Ready:
      break;
  }

  // The wind display switch is kept in the settings before the leg is
  // worked; the leeway switch is the working one of the run.
  const std::int16_t showWind = chkDisplayWind->isChecked() ? -1 : 0;
  if (storeSettings) {
    const std::string failed = storeSettings([showWind](SettingsRecord& r) { r.ShowWind = showWind; });
    if (!failed.empty()) showMessage(failed);
  }
  state_.UseLeewaySwitch = chkLeeway->isChecked();

  const SettingsRecord& s = state_.settings;
  SingleLegSettings settings;
  settings.UseTides = s.UseTides != 0;
  settings.Variation = s.Variation;
  settings.CalcInterval = s.CalcInterval;
  settings.AcceptableError = s.AcceptableError;
  settings.Day = state_.moment.WorkingDay;
  settings.Year = state_.moment.WorkingYear;
  settings.Time = state_.moment.WorkingTime;
  StreamContext ctx = state_.Streams();
  outcome_ = SolveSingleLeg(ctx, state_.passage, leg, settings);
  for (const std::string& notice : outcome_->notices) showMessage(notice);
  switch (outcome_->verdict) {
    case LegSolveVerdict::Failed:
      showMessage(outcome_->message);
      return;
    case LegSolveVerdict::Solved:
      state_.passage.LegChart.WaterTrack = chkWaterTrack->isChecked();
      state_.passage.LegChart.Vectors = chkVectorsOn->isChecked();
      ShowLines(txtResult, outcome_->lines);
      if (legSolved) legSolved();
      return;
  }
}

}  // namespace kelvane::forms
