// frmWind: leg speeds from the wind and the boat's polar table. List1 shows
// the route's legs as the route form lists them; a double click on a leg
// works its speed and tack from the wind on the leg (the wind store's
// forecast when the settings ask for GRIB, else the typed wind) and the
// chosen set-up of Polars.mdb, and stores them on the route. cmdCalc works
// one typed heading, cmdCalcPolar every leg in turn, cmdReset puts every
// leg back to the vessel's speed.
#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "forms/formsupport.h"
#include "state/programstate.h"
#include "store/polars.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

class frmWind : public QDialog {
  Q_OBJECT
 public:
  explicit frmWind(ProgramState& state, QWidget* parent = nullptr);

  // The handlers, public so that tests can run them as a click does.
  void List1_DblClick(int row);
  void lstSetUps_Click(int row);
  void cmdCalc_Click();
  void cmdCalcPolar_Click();
  void cmdReset_Click();
  // The legs list again from the route.
  void RefreshLegs();

  QListWidget* List1 = nullptr;
  QListWidget* lstSetUps = nullptr;
  QLineEdit* txtWindSpeed = nullptr;
  QLineEdit* txtWindDir = nullptr;
  QLineEdit* txtHeading = nullptr;
  QLineEdit* txtResult = nullptr;
  QLabel* lblInfo = nullptr;     // the opening lines
  QLabel* lblWindDir = nullptr;  // the wind given to the last leg
  QPushButton* cmdCalc = nullptr;
  QPushButton* cmdCalcPolar = nullptr;
  QPushButton* cmdReset = nullptr;
  QPushButton* cmdClose = nullptr;

  MessageSink showMessage;

 private:
  // Works one leg; false when a message stopped it. coverageTold keeps the
  // fall-back message of the wind store to once a run.
  bool CalcLeg(int leg, bool& coverageTold);
  // The typed wind as the working wind of the route forms, written whole.
  void KeepWorkingWind(float speed, float direction);

  ProgramState& state_;
  std::vector<std::string> setUps_;
  std::optional<PolarTable> table_;  // the chosen set-up's table
};

}  // namespace kelvane::forms
