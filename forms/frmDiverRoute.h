// frmDiverRoute: a boat trip between dive sites. The route's legs with the
// dive time at each stop, the departure time, the edit of one leg, and the
// calculation at plain speed (Cmdrteok). The form works on the route the
// main window holds: an edited leg or a dive time stands whether or not
// the calculation is run. A completed calculation accepts the dialog; the
// main window then redraws and shows the results.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "core/settings.h"
#include "core/workingtime.h"
#include "forms/formsupport.h"
#include "forms/legeditfields.h"
#include "passage/diveroute.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

class frmDiverRoute : public QDialog, public LegEditFields {
  Q_OBJECT
 public:
  // The settings give Variation and CalcInterval, from the caller's record,
  // which outlives the form; the moment gives the day of departure and the
  // time the tides go back to.
  frmDiverRoute(PassageState& passage, StreamContext streams, const SettingsRecord& settings,
                const WorkingMoment& moment, QWidget* parent = nullptr);

  // The handlers, public so that tests can run them as a click does.
  void Cmdrteok_Click();
  void cmdCopy_Click();
  void cmdmodify_Click();
  void List1_Click(int row);
  void txtDiveTime_Change();

  // The legs list again from the route.
  void RefreshLegs();
  // The leg in the edit boxes (0 for none); its destination is the stop
  // whose dive time the dive box shows.
  int SelectedLeg() const { return selectedLeg_; }
  // What the last calculation said.
  const std::optional<DiveRouteOutcome>& Outcome() const { return outcome_; }

  QListWidget* List1 = nullptr;
  QLineEdit* rtedeptime = nullptr;
  QListWidget* lsthrs = nullptr;
  QListWidget* lstmins = nullptr;
  QLineEdit* txtDiveTime = nullptr;  // minutes at the selected stop, digits only
  QPushButton* cmdmodify = nullptr;
  QPushButton* cmdCopy = nullptr;
  QPushButton* Cmdrteok = nullptr;
  QPushButton* cmdCancel = nullptr;

  // The messages of the calculation; a modal box titled "Kelvane" unless
  // replaced.
  MessageSink showMessage;
  // Runs the leg's modification form and says whether the route changed;
  // by default frmCalcRouteModification filled from the edit boxes.
  std::function<bool(PassageState&, int, const LegEdit&)> runModification;

 private:
  void Build();
  void ShowLeg(int leg);

  PassageState& passage_;
  StreamContext streams_;
  const SettingsRecord& settings_;
  WorkingMoment moment_;
  int selectedLeg_ = 0;
  std::optional<DiveRouteOutcome> outcome_;
};

}  // namespace kelvane::forms
