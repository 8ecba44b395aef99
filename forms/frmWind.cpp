#include "forms/frmWind.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/format.h"
#include "core/positions.h"
#include "core/text.h"
#include "core/timetext.h"
#include "core/windconfig.h"
#include "forms/messages.h"
#include "passage/routecalc.h"
#include "passage/routeform.h"
#include "state/settingsroad.h"
#include "wind/sailing.h"
#include "wind/windstore.h"

namespace kelvane::forms {

namespace {

QLineEdit* Box(QWidget* parent, const char* name, const std::string& text = "") {
  auto* e = new QLineEdit(ToQString(text), parent);
  e->setObjectName(name);
  e->setMaximumWidth(90);
  return e;
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  return b;
}

}  // namespace

frmWind::frmWind(ProgramState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmWind");
  setWindowTitle("Leg Speeds from the Wind");
  showMessage = DefaultMessageSink(this);

  List1 = new QListWidget(this);
  List1->setObjectName("List1");
  List1->setMinimumSize(440, 280);
  lstSetUps = new QListWidget(this);
  lstSetUps->setObjectName("lstSetUps");
  lstSetUps->setMinimumWidth(260);
  lstSetUps->setMaximumHeight(110);
  txtWindSpeed = Box(this, "txtWindSpeed", TrimBlanks(state_.wind.RouteWindSpeed));
  txtWindDir = Box(this, "txtWindDir", TrimBlanks(state_.wind.RouteWindDir));
  txtHeading = Box(this, "txtHeading");
  txtResult = Box(this, "txtResult");
  txtResult->setReadOnly(true);
  std::string info = "Double click to calculate the leg speed from the polar plot.";
  if (state_.settings.UseSmartMet != 0) info += "\nConfigured to use GRIB - Ensure you have current data";
  lblInfo = new QLabel(ToQString(info), this);
  lblInfo->setObjectName("lblInfo");
  lblInfo->setWordWrap(true);
  lblWindDir = new QLabel(this);
  lblWindDir->setObjectName("lblWindDir");
  cmdCalc = Button(this, "cmdCalc", "Calculate");
  cmdCalcPolar = Button(this, "cmdCalcPolar", "Calculate All Legs");
  cmdReset = Button(this, "cmdReset", "Reset Speeds");
  cmdClose = Button(this, "cmdClose", "Close");

  auto* wind = new QGroupBox("Wind", this);
  auto* windForm = new QFormLayout(wind);
  windForm->addRow("Speed (kn)", txtWindSpeed);
  windForm->addRow("Direction (°T)", txtWindDir);
  auto* one = new QGroupBox("One Heading", this);
  auto* oneForm = new QFormLayout(one);
  oneForm->addRow("Heading (°T)", txtHeading);
  oneForm->addRow("Boat speed (kn)", txtResult);
  oneForm->addRow(cmdCalc);
  auto* setUps = new QGroupBox("Polar Set Up", this);
  auto* setUpLayout = new QVBoxLayout(setUps);
  setUpLayout->addWidget(lstSetUps);

  auto* right = new QVBoxLayout;
  right->addWidget(setUps);
  right->addWidget(wind);
  right->addWidget(one);
  right->addStretch(1);
  auto* left = new QVBoxLayout;
  left->addWidget(lblInfo);
  left->addWidget(List1, 1);
  left->addWidget(lblWindDir);
  auto* top = new QHBoxLayout;
  top->addLayout(left, 1);
  top->addLayout(right);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdCalcPolar);
  buttons->addWidget(cmdReset);
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(buttons);

  // The set-ups of the polar database; the one chosen last time is chosen
  // again when it is still there.
  PolarDatabase polars = OpenPolarDatabase(PolarDatabasePath(state_.folders.DataRoot()));
  std::string problem = polars.message;
  if (polars.db.ok()) {
    PolarSetUps list = ListPolarSetUps(polars.db);
    if (!list.message.empty()) problem = list.message;
    setUps_ = std::move(list.names);
  }
  for (const std::string& name : setUps_) lstSetUps->addItem(ToQString(name));
  RefreshLegs();

  connect(List1, &QListWidget::itemDoubleClicked, this,
          [this](QListWidgetItem* item) { List1_DblClick(List1->row(item)); });
  connect(lstSetUps, &QListWidget::currentRowChanged, this, &frmWind::lstSetUps_Click);
  connect(cmdCalc, &QPushButton::clicked, this, &frmWind::cmdCalc_Click);
  connect(cmdCalcPolar, &QPushButton::clicked, this, &frmWind::cmdCalcPolar_Click);
  connect(cmdReset, &QPushButton::clicked, this, &frmWind::cmdReset_Click);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);

  const int kept = state_.wind.PolarSetUpIndex;
  if (kept >= 0 && kept < static_cast<int>(setUps_.size())) {
    lstSetUps->blockSignals(true);
    lstSetUps->setCurrentRow(kept);
    lstSetUps->blockSignals(false);
    PolarTable table = ReadPolarTable(polars.db, setUps_[static_cast<std::size_t>(kept)]);
    if (table.message.empty()) table_ = std::move(table);
  }
  if (!problem.empty()) lblInfo->setText(lblInfo->text() + "\n" + ToQString(problem));
}

void frmWind::RefreshLegs() {
  const int row = List1->currentRow();
  List1->clear();
  for (const std::string& line : LegListLines(state_.passage)) List1->addItem(ToQString(line));
  if (row >= 0 && row < List1->count()) List1->setCurrentRow(row);
}

void frmWind::lstSetUps_Click(int row) {
  table_.reset();
  if (row < 0 || row >= static_cast<int>(setUps_.size())) return;
  PolarDatabase polars = OpenPolarDatabase(PolarDatabasePath(state_.folders.DataRoot()));
  if (!polars.db.ok()) {
    showMessage(polars.message);
    return;
  }
  PolarTable table = ReadPolarTable(polars.db, setUps_[static_cast<std::size_t>(row)]);
  if (!table.message.empty()) {
    showMessage(table.message);
    return;
  }
  table_ = std::move(table);
  state_.wind.PolarSetUpIndex = static_cast<std::int16_t>(row);
  const std::filesystem::path file = state_.folders.WindConfigFile();
  if (!WriteWindConfig(file, state_.wind)) showMessage(SettingsNotSavedMessage(file));
}

void frmWind::KeepWorkingWind(float speed, float direction) {
  const std::string speedText = FormatNumber(speed, "0.0");
  const std::string dirText = FormatNumber(direction, "000");
  if (TrimBlanks(state_.wind.RouteWindSpeed) == speedText && TrimBlanks(state_.wind.RouteWindDir) == dirText) return;
  state_.wind.RouteWindSpeed = speedText;
  state_.wind.RouteWindDir = dirText;
  state_.workingWind = WorkingWindFrom(state_.wind);
  const std::filesystem::path file = state_.folders.WindConfigFile();
  if (!WriteWindConfig(file, state_.wind)) showMessage(SettingsNotSavedMessage(file));
}

bool frmWind::CalcLeg(int leg, bool& coverageTold) {
  PassageState& passage = state_.passage;
  if (leg < 1 || leg >= RouteCount(passage)) return true;
  if (!table_) {
    showMessage(SelectSetUpMessage());
    return false;
  }
  RoutePoint& from = passage.Route[static_cast<std::size_t>(leg)];
  const RoutePoint& to = passage.Route[static_cast<std::size_t>(leg + 1)];
  const RangeAndBearing rb = RangeBearing(from.Lat, from.Lon, to.Lat, to.Lon);

  // The forecast of the leg's start, at the time the boat leaves it at the
  // legs' speeds from the working moment; the typed wind where the store
  // has none (or the settings do not ask for it).
  std::optional<WindLookup> forecast;
  if (state_.settings.UseSmartMet != 0) {
    const WorkingMoment& m = state_.moment;
    const Arrival at = AddHours(m.WorkingDay, m.WorkingYear, m.WorkingTime, HoursBeforeLeg(passage, leg));
    if (const std::optional<DateOfYear> date = DayToDate(at.day, at.year)) {
      const WindLookup wind = LookupWind(state_.folders.WindStoreFile(), from.Lat, from.Lon, date->month,
                                         date->dayOfMonth, at.year, at.time);
      if (wind.found) forecast = wind;
    }
    if (!forecast && !coverageTold) {
      showMessage(kPolarWindCoverageMessage);
      coverageTold = true;
    }
  }
  float windSpeed = 0, windDir = 0;
  if (forecast) {
    windSpeed = forecast->speed;
    windDir = forecast->direction;
  } else {
    const WindEntry typed = ParseWindEntry(FromQString(txtWindSpeed->text()), FromQString(txtWindDir->text()));
    if (!typed.message.empty()) {
      showMessage(typed.message);
      return false;
    }
    windSpeed = typed.speed;
    windDir = typed.direction;
    KeepWorkingWind(typed.speed, typed.direction);
  }
  lblWindDir->setText(ToQString("Wind Direction for Route Leg " + std::to_string(leg) + " Set To " +
                                FormatNumber(windDir, "000") + "°"));

  const RouteElement element =
      CalcRouteElement(&*table_, windSpeed, windDir, rb.bearing, state_.settings.ClosestSailingAngle);
  // The tack comes from the wind alone; a speed the table cannot give
  // leaves the leg's speed as it was.
  from.Tack = static_cast<std::int16_t>(element.tack);
  from.LegWind = WindSlot{windSpeed, windDir};  // drawn over the route
  if (!element.PolarLookupFailed) from.Speed = static_cast<float>(TextValue(element.speedText));
  return true;
}

void frmWind::List1_DblClick(int row) {
  if (row < 0) return;
  bool coverageTold = false;
  CalcLeg(LegOfListRow(row), coverageTold);
  RefreshLegs();
}

void frmWind::cmdCalcPolar_Click() {
  bool coverageTold = false;
  for (int leg = 1; leg < RouteCount(state_.passage); ++leg)
    if (!CalcLeg(leg, coverageTold)) break;
  RefreshLegs();
}

void frmWind::cmdCalc_Click() {
  if (!table_) {
    showMessage(SelectSetUpMessage());
    return;
  }
  const WindEntry typed = ParseWindEntry(FromQString(txtWindSpeed->text()), FromQString(txtWindDir->text()));
  if (!typed.message.empty()) {
    showMessage(typed.message);
    return;
  }
  const HeadingEntry heading = ParseHeading(FromQString(txtHeading->text()));
  if (!heading.message.empty()) {
    showMessage(heading.message);
    return;
  }
  KeepWorkingWind(typed.speed, typed.direction);
  const RouteElement element = CalcRouteElement(&*table_, typed.speed, typed.direction, heading.heading,
                                                state_.settings.ClosestSailingAngle);
  txtResult->setText(ToQString(element.speedText));
}

void frmWind::cmdReset_Click() {
  SetRouteSpeed(state_.passage, state_.settings.VesselSpeed);
  RefreshLegs();
}

}  // namespace kelvane::forms
