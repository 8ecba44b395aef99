#include "forms/frmconfigure.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <cmath>

#include "core/format.h"
#include "state/settingsroad.h"

namespace kelvane::forms {

namespace {

std::string VariationText(float variation) {
  return NumberText(std::fabs(variation)) + (variation < 0 ? "W" : "E");
}

std::string Num(float v) { return NumberText(v); }
std::string Num(int v) { return std::to_string(v); }

const std::vector<std::string> kScales = {"10", "18", "25", "50", "75", "100", "125", "150", "200", "300"};
const std::vector<std::string> kWidths = {"1", "2", "3", "4", "5", "6"};
const std::vector<std::string> kFontSizes = {"8", "10", "12", "14", "16", "18", "20", "22", "24", "28", "32"};

}  // namespace

FrmConfigure::FrmConfigure(Variant variant, const SettingsRecord& settings, std::filesystem::path settingsFile,
                           QWidget* parent)
    : QDialog(parent), variant_(variant), settings_(settings), file_(std::move(settingsFile)) {
  showMessage = DefaultMessageSink(this);
  switch (variant_) {
    case Variant::Wrecks: setObjectName("frmConfigureWrecks"); break;
    case Variant::General: setObjectName("frmConfigure"); break;
    case Variant::Streams: setObjectName("frmConfigureStreams"); break;
  }
  setWindowTitle(variant_ == Variant::Streams ? "Tidal Stream Settings" : "Settings");
  Build();
}

QLineEdit* FrmConfigure::Edit(const char* name, const std::string& text) {
  auto* e = new QLineEdit(QString::fromStdString(text), this);
  e->setObjectName(name);
  controls_[name] = e;
  return e;
}

QCheckBox* FrmConfigure::Check(const char* name, const char* caption, bool on) {
  auto* c = new QCheckBox(caption, this);
  c->setObjectName(name);
  c->setChecked(on);
  controls_[name] = c;
  return c;
}

QComboBox* FrmConfigure::Combo(const char* name, const std::vector<std::string>& entries, const std::string& current) {
  QComboBox* c = MakeCombo(this, name, entries, current);
  controls_[name] = c;
  return c;
}

void FrmConfigure::Build() {
  const SettingsRecord& r = settings_;
  auto* tabs = new QTabWidget(this);
  auto page = [&](const char* title) {
    auto* w = new QWidget(tabs);
    auto* form = new QFormLayout(w);
    tabs->addTab(w, title);
    return form;
  };
  auto colour = [&](const char* name, std::int32_t value) {
    auto* b = new ColourButton(this, name, value);
    controls_[name] = b;
    return b;
  };
  const bool all = variant_ == Variant::Wrecks;
  const bool general = all || variant_ == Variant::General;
  const bool streams = all || variant_ == Variant::Streams;

  if (general) {
    QFormLayout* f = page("Passage");
    f->addRow("Variation (e.g. 2W, 3E)", Edit("Txtvariation", VariationText(r.Variation)));
    f->addRow("Acceptable calculation error (nm)", Edit("txtErrorCircle", Num(r.AcceptableError)));
    f->addRow("Search circle (nm)", Edit("txtSearchCircle", Num(r.SearchCircle)));
    f->addRow("Vessel speed (knots)", Edit("Txtboatspeed", Num(r.VesselSpeed)));
    f->addRow("Closest sailing angle (degrees)", Edit("txtCPAWind", Num(r.ClosestSailingAngle)));
    f->addRow("Calculation interval (minutes)", Edit("txtCalcInterval", Num(r.CalcInterval)));
    f->addRow("Leeway (degrees)", Edit("txtLeeway", Num(r.Leeway)));
    f->addRow(Check("chkLeeway", "Allow for leeway", r.UseLeeway != 0));
    f->addRow(Check("chkUseTides", "Use tidal streams in calculations", r.UseTides != 0));
    f->addRow(Check("chkShowwind", "Show wind over route", r.ShowWind != 0));
    auto* summer = new QRadioButton("Summer time (add one hour to tide times)", this);
    summer->setObjectName("optSummerTime");
    auto* winter = new QRadioButton("No summer time", this);
    winter->setObjectName("optNoSummerTime");
    (r.SummerTime != 0 ? summer : winter)->setChecked(true);
    controls_["optSummerTime"] = summer;
    f->addRow(summer);
    f->addRow(winter);

    QFormLayout* c = page("Chart");
    c->addRow("Step to a coarser chart below zoom (%)", Combo("cmbLower", kScales, Num(RoundToInt(r.ScaleMin * 100.0))));
    c->addRow("Step to a finer chart above zoom (%)", Combo("cmbUpper", kScales, Num(RoundToInt(r.ScaleMax * 100.0))));
    c->addRow(Check("chkAutoChartSwitch", "Change chart automatically by zoom", r.AutoChartSwitch != 0));
    c->addRow(Check("chkShowChartName", "Show chart names on the boundaries", r.ShowChartName != 0));
    c->addRow(Check("chkShowChartNum", "Show chart numbers on the boundaries", r.ShowChartNum != 0));
    c->addRow("Course line width", Combo("cmbLineSize", kWidths, Num(r.LineSize)));
    c->addRow("Course colour", colour("pctCOGCol", r.COGColour));
    c->addRow("Boat colour", colour("pctGPSCol", r.GPSColour));
    auto* app = new QRadioButton("Keep data in the program's data folder", this);
    app->setObjectName("optAppFolder");
    auto* docs = new QRadioButton("Keep data in Documents", this);
    docs->setObjectName("optDocsFolder");
    (r.DataInApplicationFolder != 0 ? app : docs)->setChecked(true);
    controls_["optAppFolder"] = app;
    c->addRow(app);
    c->addRow(docs);

    QFormLayout* w = page("Wind");
    w->addRow("Barb line width", Combo("cmbBarbWeight", kWidths, Num(r.BarbWeight)));
    w->addRow("Barb length", Combo("cmbBarbLength", {"10", "15", "20", "25", "30", "40"}, Num(r.BarbLength)));
    w->addRow("Barb spacing", Combo("cmbBarbSpacing", {"2", "4", "6", "8", "10"}, Num(r.BarbSpacing)));
    w->addRow("Wind font size", Combo("cmbWindFontSize", kFontSizes, Num(r.WindFontSize)));
    w->addRow("Wind colour", colour("pctWindCol", r.WindColour));
    w->addRow("Wind font colour", colour("pctWindFontColour", r.WindFontColour));
    w->addRow(Check("chkBarbDisplayText", "Show wind text", r.BarbDisplayText != 0));
    w->addRow(Check("chkUseSmartMet", "Take wind from the stored forecast", r.UseSmartMet != 0));

    QFormLayout* t = page("Text and waypoints");
    t->addRow("Text size", Combo("cmbTextSize", kFontSizes, Num(r.TextSize)));
    t->addRow("Waypoint size", Combo("cmbWaySize", {"Small", "Medium", "Large"},
                                     r.WaySize == 6 ? "Small" : r.WaySize == 8 ? "Medium" : "Large"));
    t->addRow("Waypoint line width", Combo("cmbWayLineSize", kWidths, Num(r.WayLineSize)));
    t->addRow("Waypoint text size", Combo("cmbTextWaySize", kFontSizes, Num(r.TextWaySize)));
    t->addRow("Waypoint colour", colour("pctWayCol", r.WayColour));
    t->addRow("Waypoint text colour", colour("pctWayTextCol", r.WayTextColour));
    t->addRow(Check("chkWayFill", "Fill waypoint circles", r.WayFill != 0));
    t->addRow(Check("optWayPointIcon", "Show waypoints as their symbols", r.WayPointIcon != 0));
  }
  if (streams) {
    QFormLayout* s = page("Tidal streams");
    s->addRow("Report threshold", Combo("cmbThreshold", {"1", "2", "3", "4", "5"}, Num(r.StreamThreshold)));
    s->addRow("Arrow line width", Combo("cmbStreamLineWidth", kWidths, Num(r.StreamLineWidth)));
    s->addRow("Arrow length", Combo("cmbStreamLength", {"1", "2", "3", "4", "5"}, Num(r.StreamLength)));
    s->addRow("Stream font size", Combo("cmbStreamFontSize", kFontSizes, Num(r.StreamFontSize)));
    s->addRow("Arrow colour", colour("pctTidalStreamCol", r.TidalStreamColour));
    s->addRow("Stream font colour", colour("pctStreamFontColour", r.StreamFontColour));
    s->addRow(Check("chkStreamFilled", "Fill arrows", r.StreamFilled != 0));
    s->addRow(Check("chkStreamAsShape", "Draw streams as arrows", r.StreamAsShape != 0));
    s->addRow(Check("chkHideStreamId", "Hide diamond letters", r.HideStreamId != 0));
  }
  if (all) {
    QFormLayout* k = page("Wrecks");
    k->addRow(Check("chkShowWrecks", "Show wrecks", r.ShowWrecks != 0));
    k->addRow(Check("chkshowObstructions", "Show obstructions", r.ShowObstructions != 0));
    k->addRow(Check("chkDisplayLive", "Show live wrecks", r.DisplayLive != 0));
    k->addRow(Check("chkDisplayDead", "Show dead wrecks", r.DisplayDead != 0));
    k->addRow(Check("chkWreckNames", "Show wreck names", r.WreckNames != 0));
    k->addRow(Check("chkFill", "Fill wreck marks", r.WreckFill != 0));
    k->addRow(Check("chkDisplayWreckAsBoat", "Draw wrecks as boats", r.DisplayWreckAsBoat != 0));
    k->addRow(Check("chkObsDetails", "Show obstruction details", r.ObsDetails != 0));
    k->addRow("Wreck colour", colour("pctWreckCol", r.WreckColour));
    k->addRow("Dive site colour", colour("pctDiveSiteCol", r.DiveSiteColour));
    k->addRow("Obstruction colour", colour("pctObstructionCol", r.ObstructionColour));
    std::string lineName = ColourName(r.UserWreckLineColour);
    k->addRow("User wreck line colour", Combo("cmbUserWreckLineCol", ColourNames(), lineName.empty() ? "Yellow" : lineName));
    k->addRow("Wreck line width", Combo("cmbWreckLineWidth", kWidths, Num(r.WreckLineWidth)));
    k->addRow("Wreck range (nm)", Combo("cmbWreckRange", {"0.5", "1", "2", "5", "10"}, Num(r.WreckRange)));
    k->addRow("Obstruction line width", Combo("cmbObstLineWidth", kWidths, Num(r.ObstLineWidth)));
  }

  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton("OK", QDialogButtonBox::AcceptRole);
  ok->setObjectName("cmdconfigok");
  QPushButton* cancel = buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
  cancel->setObjectName("cmdCancel");
  connect(ok, &QPushButton::clicked, this, &FrmConfigure::cmdconfigok_Click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs);
  layout->addWidget(buttons);
}

ConfigureControls FrmConfigure::Controls() const {
  ConfigureControls c;
  auto text = [&](const char* name) -> std::optional<std::string> {
    auto it = controls_.find(name);
    if (it == controls_.end()) return std::nullopt;
    if (auto* e = qobject_cast<QLineEdit*>(it->second)) return e->text().toStdString();
    if (auto* b = qobject_cast<QComboBox*>(it->second)) return ComboText(b);
    return std::nullopt;
  };
  auto on = [&](const char* name) -> std::optional<bool> {
    auto it = controls_.find(name);
    if (it == controls_.end()) return std::nullopt;
    if (auto* b = qobject_cast<QAbstractButton*>(it->second)) return b->isChecked();
    return std::nullopt;
  };
  auto colour = [&](const char* name) -> std::optional<std::int32_t> {
    auto it = controls_.find(name);
    if (it == controls_.end()) return std::nullopt;
    if (auto* b = qobject_cast<ColourButton*>(it->second)) return b->colour();
    return std::nullopt;
  };
  c.cmbLower = text("cmbLower");
  c.cmbUpper = text("cmbUpper");
  c.chkShowChartName = on("chkShowChartName");
  c.chkShowChartNum = on("chkShowChartNum");
  c.chkAutoChartSwitch = on("chkAutoChartSwitch");
  c.StreamFontColour = colour("pctStreamFontColour");
  c.cmbStreamFontSize = text("cmbStreamFontSize");
  c.cmbWindFontSize = text("cmbWindFontSize");
  c.WindFontColour = colour("pctWindFontColour");
  c.Txtvariation = text("Txtvariation");
  c.txtErrorCircle = text("txtErrorCircle");
  c.cmbThreshold = text("cmbThreshold");
  c.txtSearchCircle = text("txtSearchCircle");
  c.Txtboatspeed = text("Txtboatspeed");
  c.optSummerTime = on("optSummerTime");
  c.txtCPAWind = text("txtCPAWind");
  c.chkHideStreamId = on("chkHideStreamId");
  c.cmbLineSize = text("cmbLineSize");
  c.txtCalcInterval = text("txtCalcInterval");
  c.chkLeeway = on("chkLeeway");
  c.chkShowwind = on("chkShowwind");
  c.txtLeeway = text("txtLeeway");
  c.chkUseTides = on("chkUseTides");
  c.cmbBarbWeight = text("cmbBarbWeight");
  c.cmbBarbLength = text("cmbBarbLength");
  c.cmbBarbSpacing = text("cmbBarbSpacing");
  c.chkBarbDisplayText = on("chkBarbDisplayText");
  c.chkUseSmartMet = on("chkUseSmartMet");
  c.cmbStreamLineWidth = text("cmbStreamLineWidth");
  c.cmbStreamLength = text("cmbStreamLength");
  c.chkStreamFilled = on("chkStreamFilled");
  c.chkStreamAsShape = on("chkStreamAsShape");
  c.TidalStreamColour = colour("pctTidalStreamCol");
  c.cmbTextSize = text("cmbTextSize");
  c.COGColour = colour("pctCOGCol");
  c.GPSColour = colour("pctGPSCol");
  c.WindColour = colour("pctWindCol");
  c.WayColour = colour("pctWayCol");
  c.WayTextColour = colour("pctWayTextCol");
  c.cmbTextWaySize = text("cmbTextWaySize");
  c.cmbWayLineSize = text("cmbWayLineSize");
  c.chkWayFill = on("chkWayFill");
  c.cmbWaySize = text("cmbWaySize");
  if (auto icon = on("optWayPointIcon")) c.optWayPointIcon = static_cast<std::int16_t>(*icon ? -1 : 0);
  c.chkWreckNames = on("chkWreckNames");
  c.chkFill = on("chkFill");
  c.chkDisplayWreckAsBoat = on("chkDisplayWreckAsBoat");
  c.chkObsDetails = on("chkObsDetails");
  c.chkShowWrecks = on("chkShowWrecks");
  c.chkshowObstructions = on("chkshowObstructions");
  c.chkDisplayDead = on("chkDisplayDead");
  c.chkDisplayLive = on("chkDisplayLive");
  c.WreckColour = colour("pctWreckCol");
  c.DiveSiteColour = colour("pctDiveSiteCol");
  c.ObstructionColour = colour("pctObstructionCol");
  c.cmbUserWreckLineCol = text("cmbUserWreckLineCol");
  c.cmbWreckLineWidth = text("cmbWreckLineWidth");
  c.cmbWreckRange = text("cmbWreckRange");
  c.cmbObstLineWidth = text("cmbObstLineWidth");
  c.optAppFolder = on("optAppFolder");
  return c;
}

void FrmConfigure::cmdconfigok_Click() {
  // The checks run on a scratch copy: a refusal leaves the program's
  // settings and the file as they were.
  SettingsRecord scratch = settings_;
  ConfigureControls controls = Controls();
  ConfigureOutcome out = ApplyConfigure(scratch, controls);
  if (out.cmbUpperShown) {
    if (auto* u = qobject_cast<QComboBox*>(controls_["cmbUpper"])) u->setCurrentText(QString::fromStdString(*out.cmbUpperShown));
    if (auto* l = qobject_cast<QComboBox*>(controls_["cmbLower"])) l->setCurrentText(QString::fromStdString(*out.cmbLowerShown));
    // The scale pair is saved as shown, already in order.
    controls.cmbUpper = out.cmbUpperShown;
    controls.cmbLower = out.cmbLowerShown;
  }
  if (!out.message.empty()) {
    showMessage(out.message);
    return;  // the form stays open
  }
  const SettingsChange change = [controls](SettingsRecord& r) { (void)ApplyConfigure(r, controls); };
  const std::string failed = storeSettings ? storeSettings(change)
                             : ChangeSettingsFile(file_, change) ? std::string()
                                                                 : SettingsNotSavedMessage(file_);
  if (!failed.empty()) {
    showMessage(failed);
    return;  // the form stays open
  }
  out.written = true;
  outcome_ = out;
  accept();
}

}  // namespace kelvane::forms
