#include "forms/frmtimdat.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/format.h"
#include "core/timetext.h"

namespace kelvane::forms {

namespace {
const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                         "July",    "August",   "September", "October", "November", "December"};
}

FrmTimDat::FrmTimDat(const WorkingMoment& moment, DateFormat format, QWidget* parent)
    : QDialog(parent), format_(std::move(format)) {
  setObjectName("frmtimdat");
  setWindowTitle("Select Date and Time");
  showMessage = DefaultMessageSink(this);
  cmbDay_ = new QComboBox(this);
  cmbDay_->setObjectName("cmbDay");
  for (int d = 1; d <= 31; ++d) cmbDay_->addItem(QString::fromStdString(FormatNumber(d, "00")));
  cmbDay_->setCurrentIndex(moment.WorkingDayOfMonth - 1);
  cmbMonth_ = new QComboBox(this);
  cmbMonth_->setObjectName("cmbMonth");
  for (const char* m : kMonths) cmbMonth_->addItem(m);
  cmbMonth_->setCurrentIndex(moment.WorkingMonth - 1);
  cmbYear_ = new QComboBox(this);
  cmbYear_->setObjectName("cmbYear");
  for (int y = 1990; y <= 2060; ++y) cmbYear_->addItem(QString::number(y));
  cmbYear_->setCurrentText(QString::number(moment.WorkingYear));
  txtSelTime_ = new QLineEdit(QString::fromStdString(HoursToClock(moment.WorkingTime)), this);
  txtSelTime_->setObjectName("txtSelTime");
  lblDay_ = new QLabel(this);
  lblDay_->setObjectName("lblDay");

  auto* form = new QFormLayout(this);
  form->addRow("Day", cmbDay_);
  form->addRow("Month", cmbMonth_);
  form->addRow("Year", cmbYear_);
  form->addRow("", lblDay_);
  form->addRow("Time (HH:MM)", txtSelTime_);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
  ok->setObjectName("cmdOK");
  QPushButton* cancel = buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
  cancel->setObjectName("cmdCancel");
  form->addRow(buttons);
  connect(ok, &QPushButton::clicked, this, &FrmTimDat::cmdOK_Click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  for (QComboBox* c : {cmbDay_, cmbMonth_, cmbYear_})
    connect(c, &QComboBox::currentIndexChanged, this, &FrmTimDat::UpdateWeekday);
  UpdateWeekday();
}

void FrmTimDat::UpdateWeekday() {
  WorkingDate w = MakeWorkingDate(cmbDay_->currentIndex() + 1, cmbMonth_->currentIndex() + 1,
                                  cmbYear_->currentText().toInt(), {0, 0});
  std::string date = DateText(format_.format.empty() ? "DD/MM/YYYY" : format_.format, w.dayOfMonth, w.month, w.year);
  lblDay_->setText(QString::fromStdString(date + " (" + w.weekday + ")"));
}

void FrmTimDat::cmdOK_Click() {
  ClockCheck check = CheckTimeText(txtSelTime_->text().toStdString());
  if (!check.entry) {
    showMessage(check.message);
    return;
  }
  result_ = MakeWorkingDate(cmbDay_->currentIndex() + 1, cmbMonth_->currentIndex() + 1,
                            cmbYear_->currentText().toInt(), *check.entry);
  accept();
}

}  // namespace kelvane::forms
