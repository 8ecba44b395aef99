#include "forms/frmDiverRoute.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/format.h"
#include "core/timetext.h"
#include "forms/departurelists.h"
#include "forms/frmCalcRouteModification.h"
#include "forms/messages.h"
#include "forms/reportlines.h"
#include "passage/routecalc.h"

namespace kelvane::forms {

frmDiverRoute::frmDiverRoute(PassageState& passage, StreamContext streams, const SettingsRecord& settings,
                             const WorkingMoment& moment, QWidget* parent)
    : QDialog(parent), passage_(passage), streams_(streams), settings_(settings), moment_(moment) {
  setObjectName("frmDiverRoute");
  setWindowTitle("Dive Route");
  showMessage = DefaultMessageSink(this);
  runModification = [this](PassageState& s, int leg, const LegEdit& edit) {
    frmCalcRouteModification form(s, leg, this);
    form.SetEdit(edit);
    form.showMessage = showMessage;
    return form.exec() == QDialog::Accepted;
  };
  Build();
  RefreshLegs();
}

void frmDiverRoute::Build() {
  auto box = [this](const char* name) {
    auto* e = new QLineEdit(this);
    e->setObjectName(name);
    return e;
  };
  auto button = [this](const char* name, const char* caption) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    return b;
  };
  List1 = new QListWidget(this);
  List1->setObjectName("List1");
  List1->setMinimumSize(420, 260);
  rtedeptime = box("rtedeptime");
  rtedeptime->setText(ToQString(HoursToClock(moment_.WorkingTime)));
  const DepartureLists departureLists = MakeDepartureLists(this, rtedeptime);
  lsthrs = departureLists.lsthrs;
  lstmins = departureLists.lstmins;
  txtroutestartname = box("txtroutestartname");
  txtroutestartlat = box("txtroutestartlat");
  txtroutestartlong = box("txtroutestartlong");
  txtroutedestname = box("txtroutedestname");
  txtroutedestlat = box("txtroutedestlat");
  txtroutedestlong = box("txtroutedestlong");
  txtroutespeed = box("txtroutespeed");
  txtroutespeed->setText(ToQString(NumberText(settings_.VesselSpeed)));
  // The dive box is the leg's stop box: the minutes at its destination.
  txtDiveTime = box("txtDiveTime");
  FilterStopMinutesKeys(txtDiveTime);
  txtStoppedFor = txtDiveTime;
  cmdmodify = button("cmdmodify", "Modify Leg");
  cmdCopy = button("cmdCopy", "Copy");
  Cmdrteok = button("Cmdrteok", "OK");
  Cmdrteok->setDefault(true);
  cmdCancel = button("cmdCancel", "Cancel");

  auto* legs = new QVBoxLayout;
  legs->addWidget(List1);
  legs->addWidget(cmdCopy, 0, Qt::AlignLeft);

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
  legForm->addRow("Dive time (mins)", txtDiveTime);
  legForm->addRow(cmdmodify);

  auto* right = new QVBoxLayout;
  right->addWidget(departure);
  right->addWidget(leg);
  auto* top = new QHBoxLayout;
  top->addLayout(legs, 1);
  top->addLayout(right);
  auto* bottom = new QHBoxLayout;
  bottom->addStretch(1);
  bottom->addWidget(Cmdrteok);
  bottom->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(bottom);

  connect(List1, &QListWidget::currentRowChanged, this, &frmDiverRoute::List1_Click);
  connect(txtDiveTime, &QLineEdit::textEdited, this, &frmDiverRoute::txtDiveTime_Change);
  connect(cmdmodify, &QPushButton::clicked, this, &frmDiverRoute::cmdmodify_Click);
  connect(cmdCopy, &QPushButton::clicked, this, &frmDiverRoute::cmdCopy_Click);
  connect(Cmdrteok, &QPushButton::clicked, this, &frmDiverRoute::Cmdrteok_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmDiverRoute::RefreshLegs() {
  const int keep = selectedLeg_;
  List1->blockSignals(true);
  List1->clear();
  for (const std::string& line : LegListLines(passage_)) List1->addItem(ToQString(line));
  List1->blockSignals(false);
  ShowLeg(keep >= 1 && keep < RouteCount(passage_) ? keep : 0);
}

void frmDiverRoute::ShowLeg(int leg) {
  selectedLeg_ = leg;
  ShowLegEdit(LegEditOf(passage_, leg), leg > 0);
  txtDiveTime->setEnabled(leg > 0);
}

void frmDiverRoute::List1_Click(int row) {
  if (row < 0) return;
  ShowLeg(LegOfListRow(row));
}

void frmDiverRoute::txtDiveTime_Change() { SetDiveTime(passage_, selectedLeg_, FromQString(txtDiveTime->text())); }

void frmDiverRoute::cmdmodify_Click() {
  if (selectedLeg_ < 1) return;
  if (runModification(passage_, selectedLeg_, ReadLegEdit())) RefreshLegs();
}

void frmDiverRoute::cmdCopy_Click() { CopyLines(LegListLines(passage_)); }

void frmDiverRoute::Cmdrteok_Click() {
  DiveRouteInput in;
  in.DepartureText = FromQString(rtedeptime->text());
  in.Day = moment_.WorkingDay;
  in.Year = moment_.WorkingYear;
  in.WorkingTime = moment_.WorkingTime;
  in.Variation = settings_.Variation;
  in.CalcInterval = settings_.CalcInterval;
  outcome_ = CalculateDiveRoute(streams_, passage_, in);
  for (const std::string& message : outcome_->messages) showMessage(message);
  if (outcome_->completed) {
    accept();
  } else {
    RefreshLegs();
  }
}

}  // namespace kelvane::forms
