// frmcalcroute: the route's legs, their speeds and the departure time, and
// the calculation of the whole route (Cmdrteok). The form works on the
// route the main window holds: a reversal, a new speed or an edited leg
// stands whether or not the calculation is run. A completed calculation
// accepts the dialog; the main window then redraws and shows the results.
#pragma once

#include <QDialog>

#include "forms/legeditfields.h"
#include <functional>
#include <optional>

#include "core/settings.h"
#include "core/workingtime.h"
#include "forms/formsupport.h"
#include "passage/routecalc.h"
#include "passage/routeform.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTimer;

namespace kelvane::forms {

class frmcalcroute : public QDialog, public LegEditFields {
  Q_OBJECT
 public:
  // The settings give the leeway (UseLeeway, Leeway), Variation,
  // CalcInterval and AcceptableError, read from the caller's record (the
  // program state's), which outlives the form; the moment gives the day
  // of departure and the time the tides go back to.
  frmcalcroute(PassageState& passage, StreamContext streams, const SettingsRecord& settings,
               const WorkingMoment& moment, QWidget* parent = nullptr);

  // The handlers, public so that tests can run them as a click does.
  void Cmdrteok_Click();
  void cmdRouteSpeed_Click();
  void cmdreverse_Click();
  void cmdCopy_Click();
  void cmdmodify_Click();
  void List1_Click(int row);
  void cmdUseGPS_Click();
  void cmdTack_Click();
  void cmdWind_Click();
  // One tick of the GPS line: the position and speed now, and the GPS
  // buttons on while there is a fix.
  void Timer1_Timer();

  // The legs list again from the route.
  void RefreshLegs();
  // The leg in the edit boxes (0 for none).
  int SelectedLeg() const { return selectedLeg_; }
  LegEdit Edit() const;
  // What the last calculation said.
  const std::optional<RouteCalcOutcome>& Outcome() const { return outcome_; }

  QListWidget* List1 = nullptr;
  QLineEdit* rtedeptime = nullptr;
  QListWidget* lsthrs = nullptr;
  QListWidget* lstmins = nullptr;
  QPushButton* cmdmodify = nullptr;
  QPushButton* cmdRouteSpeed = nullptr;
  QPushButton* cmdreverse = nullptr;
  QPushButton* cmdCopy = nullptr;
  QPushButton* cmdUseGPS = nullptr;  // the GPS position into the first point
  QCheckBox* chkUseSOG = nullptr;    // ... and the speed over the ground into every leg
  QLabel* lblGPS = nullptr;          // the GPS line, kept by Timer1
  QTimer* Timer1 = nullptr;
  QPushButton* cmdWind = nullptr;  // leg speeds from the wind (frmWind)
  QPushButton* cmdTack = nullptr;  // the tack of every leg against the working wind
  QCheckBox* chkLeeway = nullptr;
  QLineEdit* txtLeeway = nullptr;
  QProgressBar* ProgressBar1 = nullptr;
  QPushButton* Cmdrteok = nullptr;
  QPushButton* cmdCancel = nullptr;

  // Information messages, warnings (the unreached leg) and the Yes/No
  // question of a low speed; modal boxes titled "Kelvane" unless replaced.
  MessageSink showMessage;
  MessageSink showWarning;
  std::function<bool(const std::string&)> askYesNo;
  // Runs the leg's modification form and says whether the route changed;
  // by default frmCalcRouteModification filled from the edit boxes.
  std::function<bool(PassageState&, int, const LegEdit&)> runModification;
  // Told true as a calculation starts and false when it ends: the owner
  // holds its timers meanwhile, so that nothing touches the route or the
  // tides while the events are pumped between legs.
  std::function<void(bool)> working;
  // The working wind's direction, degrees true, that cmdTack sets the legs
  // against; by default the first-run wind's.
  std::function<float()> windDirection;
  // Runs the leg-speed form over the route (cmdWind); the legs are listed
  // again when it closes.
  std::function<void()> runWind;
  // The GPS now; without it the form has no fix.
  std::function<GpsReading()> gpsReading;
  // Where the report lines of each leg go besides the results (the main
  // window's report box), as each leg is worked.
  std::function<void(const std::vector<std::string>&)> reportLines;

  // Closing is refused while a calculation runs.
  void reject() override;

 private:
  void Build();
  void ShowLeg(int leg);
  void SetWorking(bool working);

  PassageState& passage_;
  StreamContext streams_;
  const SettingsRecord& settings_;
  WorkingMoment moment_;
  int selectedLeg_ = 0;
  bool working_ = false;
  std::optional<RouteCalcOutcome> outcome_;
};

}  // namespace kelvane::forms
