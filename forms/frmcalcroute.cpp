#include "forms/frmcalcroute.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/format.h"
#include "core/timetext.h"
#include "core/windconfig.h"
#include "forms/departurelists.h"
#include "forms/frmCalcRouteModification.h"
#include "forms/messages.h"
#include "forms/reportlines.h"
#include "wind/sailing.h"

namespace kelvane::forms {

namespace {

QLineEdit* Box(QWidget* parent, const char* name) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(name);
  return e;
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  return b;
}

}  // namespace

frmcalcroute::frmcalcroute(PassageState& passage, StreamContext streams, const SettingsRecord& settings,
                           const WorkingMoment& moment, QWidget* parent)
    : QDialog(parent), passage_(passage), streams_(streams), settings_(settings), moment_(moment) {
  setObjectName("frmcalcroute");
  setWindowTitle("Calculate Route");
  showMessage = DefaultMessageSink(this);
  showWarning = [this](const std::string& text) {
    QMessageBox box(QMessageBox::Warning, kProgramName, ToQString(text), QMessageBox::Ok, this);
    box.exec();
  };
  askYesNo = [this](const std::string& text) { return AskYesNo(this, text); };
  windDirection = [] { return WorkingWindFrom(FirstRunWindConfig()).direction; };
  runModification = [this](PassageState& s, int leg, const LegEdit& edit) {
    frmCalcRouteModification form(s, leg, this);
    form.SetEdit(edit);
    form.showMessage = showMessage;
    return form.exec() == QDialog::Accepted;
  };
  Build();
  RefreshLegs();
}

void frmcalcroute::Build() {
  List1 = new QListWidget(this);
  List1->setObjectName("List1");
  List1->setMinimumSize(420, 260);
  rtedeptime = Box(this, "rtedeptime");
  rtedeptime->setText(ToQString(HoursToClock(moment_.WorkingTime)));
  const DepartureLists departureLists = MakeDepartureLists(this, rtedeptime);
  lsthrs = departureLists.lsthrs;
  lstmins = departureLists.lstmins;
  txtroutestartname = Box(this, "txtroutestartname");
  txtroutestartlat = Box(this, "txtroutestartlat");
  txtroutestartlong = Box(this, "txtroutestartlong");
  txtroutedestname = Box(this, "txtroutedestname");
  txtroutedestlat = Box(this, "txtroutedestlat");
  txtroutedestlong = Box(this, "txtroutedestlong");
  txtroutespeed = Box(this, "txtroutespeed");
  txtroutespeed->setText(ToQString(NumberText(settings_.VesselSpeed)));
  txtStoppedFor = Box(this, "txtStoppedFor");
  FilterStopMinutesKeys(txtStoppedFor);
  cmdmodify = Button(this, "cmdmodify", "Modify Leg");
  cmdRouteSpeed = Button(this, "cmdRouteSpeed", "Set Speed for All Legs");
  cmdreverse = Button(this, "cmdreverse", "Reverse Route");
  cmdCopy = Button(this, "cmdCopy", "Copy");
  cmdUseGPS = Button(this, "cmdUseGPS", "Use GPS Position");
  cmdUseGPS->setEnabled(false);
  chkUseSOG = new QCheckBox("Use SOG", this);
  chkUseSOG->setObjectName("chkUseSOG");
  chkUseSOG->setEnabled(false);
  lblGPS = new QLabel(ToQString(GpsLineText({})), this);
  lblGPS->setObjectName("lblGPS");
  Timer1 = new QTimer(this);
  Timer1->setObjectName("Timer1");
  Timer1->setInterval(1000);
  cmdWind = Button(this, "cmdWind", "Wind...");
  cmdTack = Button(this, "cmdTack", "Tack");
  chkLeeway = new QCheckBox("Leeway", this);
  chkLeeway->setObjectName("chkLeeway");
  chkLeeway->setChecked(settings_.UseLeeway != 0);
  txtLeeway = Box(this, "txtLeeway");
  txtLeeway->setText(ToQString(NumberText(settings_.Leeway)));
  ProgressBar1 = new QProgressBar(this);
  ProgressBar1->setObjectName("ProgressBar1");
  ProgressBar1->setRange(0, 100);
  ProgressBar1->setValue(0);
  ProgressBar1->setVisible(false);
  Cmdrteok = Button(this, "Cmdrteok", "OK");
  Cmdrteok->setDefault(true);
  cmdCancel = Button(this, "cmdCancel", "Cancel");

  auto* legs = new QVBoxLayout;
  legs->addWidget(List1);
  auto* listButtons = new QHBoxLayout;
  listButtons->addWidget(cmdreverse);
  listButtons->addWidget(cmdCopy);
  listButtons->addWidget(cmdWind);
  listButtons->addWidget(cmdTack);
  legs->addLayout(listButtons);

  auto* departure = new QGroupBox("Departure Time", this);
  auto* depLayout = new QGridLayout(departure);
  depLayout->addWidget(rtedeptime, 0, 0, 1, 2);
  depLayout->addWidget(lsthrs, 1, 0);
  depLayout->addWidget(lstmins, 1, 1);

  auto* leg = new QGroupBox("Selected Leg", this);
  auto* legForm = new QFormLayout(leg);
  legForm->addRow("From", txtroutestartname);
  legForm->addRow("Latitude", txtroutestartlat);
  legForm->addRow("Longitude", txtroutestartlong);
  legForm->addRow("To", txtroutedestname);
  legForm->addRow("Latitude", txtroutedestlat);
  legForm->addRow("Longitude", txtroutedestlong);
  legForm->addRow("Speed (kn)", txtroutespeed);
  legForm->addRow("Stopped for (mins)", txtStoppedFor);
  legForm->addRow(cmdmodify, cmdRouteSpeed);

  auto* gps = new QHBoxLayout;
  gps->addWidget(cmdUseGPS);
  gps->addWidget(chkUseSOG);
  gps->addWidget(lblGPS);
  auto* leeway = new QHBoxLayout;
  leeway->addWidget(chkLeeway);
  leeway->addWidget(txtLeeway);

  auto* right = new QVBoxLayout;
  right->addWidget(departure);
  right->addWidget(leg);
  right->addLayout(gps);
  right->addLayout(leeway);

  auto* top = new QHBoxLayout;
  top->addLayout(legs, 1);
  top->addLayout(right);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(ProgressBar1, 1);
  bottom->addWidget(Cmdrteok);
  bottom->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(bottom);

  connect(List1, &QListWidget::currentRowChanged, this, &frmcalcroute::List1_Click);
  connect(cmdmodify, &QPushButton::clicked, this, &frmcalcroute::cmdmodify_Click);
  connect(cmdRouteSpeed, &QPushButton::clicked, this, &frmcalcroute::cmdRouteSpeed_Click);
  connect(cmdreverse, &QPushButton::clicked, this, &frmcalcroute::cmdreverse_Click);
  connect(cmdCopy, &QPushButton::clicked, this, &frmcalcroute::cmdCopy_Click);
  connect(Cmdrteok, &QPushButton::clicked, this, &frmcalcroute::Cmdrteok_Click);
  connect(cmdUseGPS, &QPushButton::clicked, this, &frmcalcroute::cmdUseGPS_Click);
  connect(cmdTack, &QPushButton::clicked, this, &frmcalcroute::cmdTack_Click);
  connect(cmdWind, &QPushButton::clicked, this, &frmcalcroute::cmdWind_Click);
  connect(Timer1, &QTimer::timeout, this, &frmcalcroute::Timer1_Timer);
  Timer1->start();
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmcalcroute::RefreshLegs() {
  const int keep = selectedLeg_;
  List1->blockSignals(true);
  List1->clear();
  for (const std::string& line : LegListLines(passage_)) List1->addItem(ToQString(line));
  List1->blockSignals(false);
  cmdTack->setEnabled(!working_ && RouteCount(passage_) >= 2);
  ShowLeg(keep >= 1 && keep < RouteCount(passage_) ? keep : 0);
}

void frmcalcroute::ShowLeg(int leg) {
  selectedLeg_ = leg;
  const LegEdit e = LegEditOf(passage_, leg);
  ShowLegEdit(e, leg > 0);
}

void frmcalcroute::List1_Click(int row) {
  if (row < 0) return;
  ShowLeg(LegOfListRow(row));
}

LegEdit frmcalcroute::Edit() const {
  return ReadLegEdit();
}

void frmcalcroute::cmdmodify_Click() {
  if (selectedLeg_ < 1) return;
  if (runModification(passage_, selectedLeg_, Edit())) RefreshLegs();
}

void frmcalcroute::cmdRouteSpeed_Click() {
  const SpeedEntry entry = ParseRouteSpeed(FromQString(txtroutespeed->text()));
  if (!entry.message.empty()) {
    showMessage(entry.message);
    return;
  }
  SetRouteSpeed(passage_, entry.speed);
  RefreshLegs();
}

void frmcalcroute::cmdreverse_Click() {
  ReverseRoute(passage_);
  selectedLeg_ = 0;
  RefreshLegs();
}

void frmcalcroute::Timer1_Timer() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  lblGPS->setText(ToQString(GpsLineText(fix)));
  if (working_) return;
  cmdUseGPS->setEnabled(fix.valid);
  chkUseSOG->setEnabled(fix.valid);
}

void frmcalcroute::cmdUseGPS_Click() {
  const GpsReading fix = gpsReading ? gpsReading() : GpsReading{};
  if (!fix.valid) return;
  UseGpsPosition(passage_, fix, chkUseSOG->isChecked());
  RefreshLegs();
}

void frmcalcroute::cmdCopy_Click() { CopyLines(LegListLines(passage_)); }

void frmcalcroute::cmdTack_Click() {
  std::vector<Position> points;
  for (int i = 1; i <= RouteCount(passage_); ++i)
    points.push_back({passage_.Route[static_cast<std::size_t>(i)].Lat, passage_.Route[static_cast<std::size_t>(i)].Lon});
  const std::vector<WindSide> tacks = LegTacks(points, windDirection());
  for (std::size_t leg = 0; leg < tacks.size(); ++leg)
    passage_.Route[leg + 1].Tack = static_cast<std::int16_t>(tacks[leg]);
  RefreshLegs();
}

void frmcalcroute::cmdWind_Click() {
  if (runWind) runWind();
  RefreshLegs();
}

void frmcalcroute::reject() {
  if (!working_) QDialog::reject();
}

void frmcalcroute::SetWorking(bool working) {
  working_ = working;
  for (QWidget* w : {static_cast<QWidget*>(List1), static_cast<QWidget*>(rtedeptime),
                     static_cast<QWidget*>(lsthrs), static_cast<QWidget*>(lstmins),
                     static_cast<QWidget*>(cmdmodify), static_cast<QWidget*>(cmdRouteSpeed),
                     static_cast<QWidget*>(cmdreverse), static_cast<QWidget*>(cmdCopy),
                     static_cast<QWidget*>(cmdWind), static_cast<QWidget*>(cmdTack),
                     static_cast<QWidget*>(chkLeeway), static_cast<QWidget*>(txtLeeway),
                     static_cast<QWidget*>(Cmdrteok), static_cast<QWidget*>(cmdCancel)})
    w->setEnabled(!working);
  if (working) {
    cmdUseGPS->setEnabled(false);
    chkUseSOG->setEnabled(false);
  }
  working_ = working;
  if (!working) Timer1_Timer();
  if (this->working) this->working(working);
}

void frmcalcroute::Cmdrteok_Click() {
  ProgressBar1->setVisible(true);
  RouteCalcInput in;
  in.DepartureText = FromQString(rtedeptime->text());
  in.Day = moment_.WorkingDay;
  in.Year = moment_.WorkingYear;
  in.WorkingTime = moment_.WorkingTime;
  in.LeewaySwitch = chkLeeway->isChecked();
  in.LeewayText = FromQString(txtLeeway->text());
  // The box feeds the report line; the course is corrected by the leeway
  // of the settings, which is what the box shows when the form opens.
  in.Leeway = settings_.Leeway;
  in.Variation = settings_.Variation;
  in.CalcInterval = settings_.CalcInterval;
  in.AcceptableError = settings_.AcceptableError;

  RouteCalcHooks hooks;
  hooks.askYesNo = [this](const std::string& q) { return askYesNo(q); };
  hooks.progress = [this](int value) { ProgressBar1->setValue(value); };
  hooks.beforeLeg = [] { QCoreApplication::processEvents(); };
  // Every message is shown as it arises: the warning of a leg that cannot
  // be reached comes before the next leg is worked.
  hooks.tell = [this](const RouteMessage& m) { (m.kind == MessageKind::Warning ? showWarning : showMessage)(m.text); };
  hooks.legLines = [this](const std::vector<std::string>& lines) {
    if (reportLines) reportLines(lines);
  };

  SetWorking(true);
  outcome_ = CalculateRoute(streams_, passage_, in, hooks);
  SetWorking(false);
  if (outcome_->completed) {
    accept();
  } else {
    ProgressBar1->setValue(0);
    RefreshLegs();
  }
}

}  // namespace kelvane::forms
