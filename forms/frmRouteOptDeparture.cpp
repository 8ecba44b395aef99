#include "forms/frmRouteOptDeparture.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/timetext.h"
#include "forms/messages.h"
#include "passage/routecalc.h"
#include "passage/routeform.h"

namespace kelvane::forms {

frmRouteOptDeparture::frmRouteOptDeparture(PassageState& passage, StreamContext streams,
                                           const SettingsRecord& settings, const WorkingMoment& moment,
                                           QWidget* parent)
    : QDialog(parent), passage_(passage), streams_(streams), settings_(settings), moment_(moment) {
  setObjectName("frmRouteOptDeparture");
  setWindowTitle("Optimise Route Departure Time");
  showMessage = DefaultMessageSink(this);
  askYesNo = [this](const std::string& text) { return AskYesNo(this, text); };
  pumpEvents = [] { QCoreApplication::processEvents(); };

  auto* slotBox = new QGroupBox("Departures", this);
  auto* slotBoxLayout = new QVBoxLayout(slotBox);
  for (std::size_t i = 0; i < kSweepSlots.size(); ++i) {
    Options[i] = new QRadioButton(kSweepSlots[i].caption, slotBox);
    Options[i]->setObjectName(kSweepSlots[i].option);
    slotBoxLayout->addWidget(Options[i]);
  }
  Options[0]->setChecked(true);
  List1 = new QListWidget(this);
  List1->setObjectName("List1");
  List1->setMinimumSize(420, 200);
  ProgressBar1 = new QProgressBar(this);
  ProgressBar1->setObjectName("ProgressBar1");
  ProgressBar1->setRange(0, 100);
  ProgressBar1->setValue(0);
  lblProgress = new QLabel(this);
  lblProgress->setObjectName("lblProgress");
  cmdOptimise = new QPushButton("Optimise", this);
  cmdOptimise->setObjectName("cmdOptimise");
  cmdreverse = new QPushButton("Reverse Route", this);
  cmdreverse->setObjectName("cmdreverse");
  cmdrtecancel = new QPushButton("Cancel", this);
  cmdrtecancel->setObjectName("cmdrtecancel");

  auto* top = new QHBoxLayout;
  top->addWidget(slotBox);
  top->addWidget(List1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdreverse);
  buttons->addStretch(1);
  buttons->addWidget(cmdOptimise);
  buttons->addWidget(cmdrtecancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top, 1);
  layout->addWidget(ProgressBar1);
  layout->addWidget(lblProgress);
  layout->addLayout(buttons);

  connect(cmdOptimise, &QPushButton::clicked, this, &frmRouteOptDeparture::cmdOptimise_Click);
  connect(cmdreverse, &QPushButton::clicked, this, &frmRouteOptDeparture::cmdreverse_Click);
  connect(cmdrtecancel, &QPushButton::clicked, this, &frmRouteOptDeparture::cmdrtecancel_Click);
  RefreshLegs();
}

int frmRouteOptDeparture::Slot() const {
  for (std::size_t i = 0; i < Options.size(); ++i)
    if (Options[i]->isChecked()) return static_cast<int>(i) + 1;
  return 1;
}

void frmRouteOptDeparture::RefreshLegs() {
  List1->clear();
  for (const std::string& line : LegListLines(passage_)) List1->addItem(ToQString(line));
}

void frmRouteOptDeparture::cmdreverse_Click() {
  ReverseRoute(passage_);
  RefreshLegs();
}

void frmRouteOptDeparture::cmdrtecancel_Click() {
  if (running_) {
    cancelAsked_ = true;
    lblProgress->setText("Cancelling...");
    return;
  }
  QDialog::reject();
}

void frmRouteOptDeparture::reject() {
  if (!running_) QDialog::reject();
}

void frmRouteOptDeparture::SetWorking(bool on) {
  running_ = on;
  for (QWidget* w : {static_cast<QWidget*>(cmdOptimise), static_cast<QWidget*>(cmdreverse),
                     static_cast<QWidget*>(List1)})
    w->setEnabled(!on);
  for (QRadioButton* option : Options) option->setEnabled(!on);
  if (working) working(on);
}

void frmRouteOptDeparture::cmdOptimise_Click() {
  if (running_) return;
  SweepInput in;
  in.Slot = Slot();
  in.Day = moment_.WorkingDay;
  in.Year = moment_.WorkingYear;
  in.WorkingTime = moment_.WorkingTime;
  in.CalcInterval = settings_.CalcInterval;
  in.AcceptableError = settings_.AcceptableError;

  SweepHooks hooks;
  hooks.askYesNo = [this](const std::string& q) { return askYesNo(q); };
  hooks.pump = [this] {
    if (pumpEvents) pumpEvents();
    return cancelAsked_ ? SweepPump::Cancel : SweepPump::Go;
  };
  const SlotHours hours = HoursOfSlot(in.Slot);
  hooks.progress = [this, hours](int done, int all) {
    ProgressBar1->setValue(100 * done / all);
    if (done < all)
      lblProgress->setText(ToQString("Departure " + HoursToClockCoarse(static_cast<float>(hours.first + done))));
  };

  cancelAsked_ = false;
  ProgressBar1->setValue(0);
  lblProgress->setText(ToQString("Departure " + HoursToClockCoarse(static_cast<float>(hours.first))));
  SetWorking(true);
  outcome_ = SweepDepartures(streams_, passage_, in, hooks);
  SetWorking(false);
  for (const std::string& m : outcome_->messages) showMessage(m);
  switch (outcome_->verdict) {
    case SweepVerdict::Completed:
      accept();
      return;
    case SweepVerdict::Cancelled:
      lblProgress->setText("Cancelled");
      break;
    case SweepVerdict::Refused:
    case SweepVerdict::Declined:
      lblProgress->clear();
      break;
  }
  ProgressBar1->setValue(0);
}

}  // namespace kelvane::forms
