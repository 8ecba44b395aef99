#include "forms/frmTrueAppWind.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/text.h"
#include "core/windconfig.h"
#include "forms/messages.h"
#include "state/settingsroad.h"
#include "wind/sailing.h"

namespace kelvane::forms {

namespace {

QLineEdit* Box(QWidget* parent, const char* name, const std::string& text = "") {
  auto* e = new QLineEdit(ToQString(text), parent);
  e->setObjectName(name);
  e->setMaximumWidth(80);
  return e;
}

QRadioButton* Option(QWidget* parent, const char* name, const char* caption) {
  auto* o = new QRadioButton(caption, parent);
  o->setObjectName(name);
  return o;
}

// One side of the calculator: its two boxes, the options that switch its
// list, and the list.
QGroupBox* Side(QWidget* parent, const char* title, QLineEdit* dir, QLineEdit* speed, QRadioButton* byDir,
                QRadioButton* byForce, QListWidget* list) {
  auto* box = new QGroupBox(title, parent);
  auto* form = new QFormLayout;
  form->addRow("Angle off the bow (°)", dir);
  form->addRow("Speed (kn)", speed);
  auto* options = new QHBoxLayout;
  options->addWidget(byDir);
  options->addWidget(byForce);
  auto* group = new QButtonGroup(box);
  group->addButton(byDir);
  group->addButton(byForce);
  byDir->setChecked(true);
  auto* layout = new QVBoxLayout(box);
  layout->addLayout(form);
  layout->addLayout(options);
  layout->addWidget(list);
  return box;
}

}  // namespace

frmTrueAppWind::frmTrueAppWind(ProgramState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmTrueAppWind");
  setWindowTitle("True and Apparent Wind");
  showMessage = DefaultMessageSink(this);

  txtWindDir = Box(this, "txtWindDir", TrimBlanks(state_.wind.CalcWindDir));
  txtWindSpeed = Box(this, "txtWindSpeed", TrimBlanks(state_.wind.CalcWindSpeed));
  txtAppWindDir = Box(this, "txtAppWindDir");
  txtAppWindSpeed = Box(this, "txtAppWindSpeed");
  Txtboatspeed = Box(this, "Txtboatspeed");
  optDirTrue = Option(this, "optDirTrue", "Angles");
  optTrueForce = Option(this, "optTrueForce", "Beaufort");
  optDirApp = Option(this, "optDirApp", "Angles");
  optForceApp = Option(this, "optForceApp", "Beaufort");
  lstTrue = new QListWidget(this);
  lstTrue->setObjectName("lstTrue");
  lstApp = new QListWidget(this);
  lstApp->setObjectName("lstApp");
  for (QListWidget* list : {lstTrue, lstApp}) list->setMinimumSize(220, 160);
  cmdCalcApparent = new QPushButton("Calculate Apparent Wind", this);
  cmdCalcApparent->setObjectName("cmdCalcApparent");
  cmdCalcTrueWind = new QPushButton("Calculate True Wind", this);
  cmdCalcTrueWind->setObjectName("cmdCalcTrueWind");
  cmdClose = new QPushButton("Close", this);
  cmdClose->setObjectName("cmdClose");

  auto* sides = new QHBoxLayout;
  sides->addWidget(Side(this, "True Wind", txtWindDir, txtWindSpeed, optDirTrue, optTrueForce, lstTrue));
  sides->addWidget(Side(this, "Apparent Wind", txtAppWindDir, txtAppWindSpeed, optDirApp, optForceApp, lstApp));
  auto* boat = new QFormLayout;
  boat->addRow("Boat speed (kn)", Txtboatspeed);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdCalcApparent);
  buttons->addWidget(cmdCalcTrueWind);
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(sides);
  layout->addLayout(boat);
  layout->addLayout(buttons);

  FillList(lstTrue, false);
  FillList(lstApp, false);
  connect(optDirTrue, &QRadioButton::toggled, this, [this](bool on) { FillList(lstTrue, !on); });
  connect(optDirApp, &QRadioButton::toggled, this, [this](bool on) { FillList(lstApp, !on); });
  // A chosen angle goes to the angle box; a chosen force puts its speed in
  // the speed box.
  auto pick = [](QListWidget* list, QRadioButton* byForce, QLineEdit* dir, QLineEdit* speed) {
    return [list, byForce, dir, speed](QListWidgetItem* item) {
      if (byForce->isChecked())
        speed->setText(ToQString(BeaufortSpeedText(list->row(item))));
      else
        dir->setText(item->text());
    };
  };
  connect(lstTrue, &QListWidget::itemClicked, this, pick(lstTrue, optTrueForce, txtWindDir, txtWindSpeed));
  connect(lstApp, &QListWidget::itemClicked, this, pick(lstApp, optForceApp, txtAppWindDir, txtAppWindSpeed));
  connect(cmdCalcApparent, &QPushButton::clicked, this, &frmTrueAppWind::cmdCalcApparent_Click);
  connect(cmdCalcTrueWind, &QPushButton::clicked, this, &frmTrueAppWind::cmdCalcTrueWind_Click);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmTrueAppWind::FillList(QListWidget* list, bool forces) {
  list->clear();
  for (const std::string& entry : forces ? BeaufortEntries() : WindAngleEntries()) list->addItem(ToQString(entry));
}

void frmTrueAppWind::cmdCalcApparent_Click() {
  const WindTriangle apparent = ApparentWindFromTrue(FromQString(txtWindSpeed->text()), FromQString(txtWindDir->text()),
                                                     FromQString(Txtboatspeed->text()));
  if (!apparent.message.empty()) {
    showMessage(apparent.message);
    return;
  }
  txtAppWindSpeed->setText(ToQString(apparent.speedText));
  txtAppWindDir->setText(ToQString(apparent.angleText));
  KeepTrueWind();
}

void frmTrueAppWind::cmdCalcTrueWind_Click() {
  const WindTriangle trueWind = TrueWindFromApparent(FromQString(txtAppWindSpeed->text()),
                                                     FromQString(txtAppWindDir->text()), FromQString(Txtboatspeed->text()));
  if (!trueWind.message.empty()) {
    showMessage(trueWind.message);
    return;
  }
  txtWindSpeed->setText(ToQString(trueWind.speedText));
  txtWindDir->setText(ToQString(trueWind.angleText));
  KeepTrueWind();
}

// The true wind of the boxes becomes the calculator's wind of the wind
// set-up, written whole.
void frmTrueAppWind::KeepTrueWind() {
  state_.wind.CalcWindSpeed = FromQString(txtWindSpeed->text());
  state_.wind.CalcWindDir = FromQString(txtWindDir->text());
  const std::filesystem::path file = state_.folders.WindConfigFile();
  if (!WriteWindConfig(file, state_.wind)) showMessage(SettingsNotSavedMessage(file));
}

}  // namespace kelvane::forms
