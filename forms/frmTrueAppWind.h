// frmTrueAppWind: the true and apparent wind calculator. The true wind
// (txtWindDir, txtWindSpeed) and the boat's speed give the apparent wind
// (cmdCalcApparent); the apparent wind and the speed give the true wind
// (cmdCalcTrueWind). Beside each side a list offers angles off the bow or,
// with its force option, the Beaufort forces, whose choice puts the middle
// of the force's band into the speed box. The true wind is kept in
// WindConfig.cfg (CalcWindSpeed, CalcWindDir) and shown again next time.
#pragma once

#include <QDialog>

#include "forms/formsupport.h"
#include "state/programstate.h"

class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace kelvane::forms {

class frmTrueAppWind : public QDialog {
  Q_OBJECT
 public:
  explicit frmTrueAppWind(ProgramState& state, QWidget* parent = nullptr);

  void cmdCalcApparent_Click();
  void cmdCalcTrueWind_Click();

  QLineEdit* txtWindDir = nullptr;
  QLineEdit* txtWindSpeed = nullptr;
  QLineEdit* txtAppWindDir = nullptr;
  QLineEdit* txtAppWindSpeed = nullptr;
  QLineEdit* Txtboatspeed = nullptr;
  QRadioButton* optDirTrue = nullptr;
  QRadioButton* optTrueForce = nullptr;
  QRadioButton* optDirApp = nullptr;
  QRadioButton* optForceApp = nullptr;
  QListWidget* lstTrue = nullptr;
  QListWidget* lstApp = nullptr;
  QPushButton* cmdCalcApparent = nullptr;
  QPushButton* cmdCalcTrueWind = nullptr;
  QPushButton* cmdClose = nullptr;

  MessageSink showMessage;

 private:
  void FillList(QListWidget* list, bool forces);
  void KeepTrueWind();

  ProgramState& state_;
};

}  // namespace kelvane::forms
