// frmCalcRouteModification: the ends of one leg of the route, its speed
// and the stop at its destination. cmdAccept checks the positions and
// writes the leg into the route; a refusal leaves the route as it was and
// the form open.
#pragma once

#include <QDialog>

#include "forms/legeditfields.h"

#include "forms/formsupport.h"
#include "passage/routeform.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvane::forms {

class frmCalcRouteModification : public QDialog, public LegEditFields {
  Q_OBJECT
 public:
  // Leg `leg` of the route (from 1), its boxes filled from the route.
  frmCalcRouteModification(PassageState& passage, int leg, QWidget* parent = nullptr);

  // Fills the boxes (the route form hands on what its boxes hold).
  void SetEdit(const LegEdit& edit);
  LegEdit Edit() const;
  void cmdAccept_Click();

  QLabel* lblLeg = nullptr;
  QPushButton* cmdAccept = nullptr;
  QPushButton* cmdCancel = nullptr;

  MessageSink showMessage;

 private:
  PassageState& passage_;
  int leg_;
};

// Drops every key the stop box does not take (IsStopMinutesKey).
void FilterStopMinutesKeys(QLineEdit* box);

}  // namespace kelvane::forms
