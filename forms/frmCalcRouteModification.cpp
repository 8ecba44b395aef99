#include "forms/frmCalcRouteModification.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/messages.h"

namespace kelvane::forms {

namespace {

// Keys that carry text go through IsStopMinutesKey; backspace arrives as a
// key without text and is let through with the editing keys.
class StopKeyFilter : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      auto* key = static_cast<QKeyEvent*>(event);
      const QString text = key->text();
      if (key->key() == Qt::Key_Backspace) return false;
      if (!text.isEmpty() && text.at(0).isPrint()) return !IsStopMinutesKey(text.at(0).unicode());
    }
    return QObject::eventFilter(watched, event);
  }
};

QLineEdit* Box(QWidget* parent, const char* name) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(name);
  return e;
}

}  // namespace

void FilterStopMinutesKeys(QLineEdit* box) { box->installEventFilter(new StopKeyFilter(box)); }

frmCalcRouteModification::frmCalcRouteModification(PassageState& passage, int leg, QWidget* parent)
    : QDialog(parent), passage_(passage), leg_(leg) {
  setObjectName("frmCalcRouteModification");
  setWindowTitle("Modify Route Leg");
  showMessage = DefaultMessageSink(this);
  txtroutestartname = Box(this, "txtroutestartname");
  txtroutestartlat = Box(this, "txtroutestartlat");
  txtroutestartlong = Box(this, "txtroutestartlong");
  txtroutedestname = Box(this, "txtroutedestname");
  txtroutedestlat = Box(this, "txtroutedestlat");
  txtroutedestlong = Box(this, "txtroutedestlong");
  txtroutespeed = Box(this, "txtroutespeed");
  txtStoppedFor = Box(this, "txtStoppedFor");
  FilterStopMinutesKeys(txtStoppedFor);
  lblLeg = new QLabel(QString("Leg %1").arg(leg), this);
  lblLeg->setObjectName("lblLeg");
  cmdAccept = new QPushButton("Accept", this);
  cmdAccept->setObjectName("cmdAccept");
  cmdCancel = new QPushButton("Cancel", this);
  cmdCancel->setObjectName("cmdCancel");

  auto* form = new QFormLayout;
  form->addRow("Start", txtroutestartname);
  form->addRow("Latitude", txtroutestartlat);
  form->addRow("Longitude", txtroutestartlong);
  form->addRow("Destination", txtroutedestname);
  form->addRow("Latitude", txtroutedestlat);
  form->addRow("Longitude", txtroutedestlong);
  form->addRow("Speed (kn)", txtroutespeed);
  form->addRow("Stopped for (mins)", txtStoppedFor);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdAccept);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblLeg);
  layout->addLayout(form);
  layout->addLayout(buttons);

  SetEdit(LegEditOf(passage_, leg_));
  connect(cmdAccept, &QPushButton::clicked, this, &frmCalcRouteModification::cmdAccept_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmCalcRouteModification::SetEdit(const LegEdit& e) {
  ShowLegEdit(e);
}

LegEdit frmCalcRouteModification::Edit() const {
  return ReadLegEdit();
}

void frmCalcRouteModification::cmdAccept_Click() {
  const std::string message = ApplyLegEdit(passage_, leg_, Edit());
  if (!message.empty()) {
    showMessage(message);
    return;
  }
  accept();
}

}  // namespace kelvane::forms
