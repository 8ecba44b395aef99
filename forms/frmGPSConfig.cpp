#include "forms/frmGPSConfig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "core/format.h"
#include "instruments/comms_forms.h"

namespace kelvane::forms {

FrmGPSConfig::FrmGPSConfig(const SettingsRecord& settings, std::filesystem::path settingsFile, SerialPorts& ports,
                           std::vector<std::string> devices, QWidget* parent)
    : FrmGPSConfig(settings, std::move(settingsFile), ports, std::move(devices), 4096, parent) {
  setObjectName("frmGPSConfig");
  setWindowTitle("Configure GPS");
}

FrmGPSConfig::FrmGPSConfig(const SettingsRecord& settings, std::filesystem::path settingsFile, SerialPorts& ports,
                           std::vector<std::string> devices, int queueSize, QWidget* parent)
    : QDialog(parent), record_(settings), file_(std::move(settingsFile)), devices_(std::move(devices)) {
  showMessage = DefaultMessageSink(this);
  found_ = ScanPorts(ports, queueSize);
  Build();
}

std::string FrmGPSConfig::PortText(int port) const {
  std::string text = "COM" + std::to_string(port + 1);
  if (port >= 0 && port < static_cast<int>(devices_.size())) text += "  " + devices_[static_cast<std::size_t>(port)];
  return text;
}

int FrmGPSConfig::PortOfText(const std::string& text) const {
  if (text.rfind("COM", 0) != 0) return -1;
  return static_cast<int>(TextValue(text.substr(3))) - 1;
}

QComboBox* FrmGPSConfig::Combo(const char* name, const std::vector<std::string>& entries, const std::string& current) {
  QComboBox* c = MakeCombo(this, name, entries, current);
  controls_[name] = c;
  return c;
}

QComboBox* FrmGPSConfig::FixedCombo(const char* name, const std::vector<std::string>& entries,
                                    const std::string& current) {
  QComboBox* c = Combo(name, entries, current);
  c->setEditable(false);
  c->setCurrentIndex(std::max(0, c->findText(QString::fromStdString(current))));
  return c;
}

QCheckBox* FrmGPSConfig::Check(const char* name, const char* caption, bool on) {
  auto* c = new QCheckBox(caption, this);
  c->setObjectName(name);
  c->setChecked(on);
  controls_[name] = c;
  return c;
}

void FrmGPSConfig::Build() {
  auto* outer = new QVBoxLayout(this);
  layout_ = new QFormLayout;
  outer->addLayout(layout_);
  std::vector<std::string> ports;
  for (int p : found_) ports.push_back(PortText(p));
  layout_->addRow("GPS port", Combo("cmbGPSPort", ports, PortText(record_.GPSPort)));
  std::vector<std::string> types;
  for (const GpsType& t : GpsTypes()) types.push_back(t.text);
  // The record holds the type's number from 1; a number off the list shows
  // the first type.
  const int type = GpsTypeOf(record_.GPSType);
  const bool listed = type >= 1 && type <= static_cast<int>(types.size());
  QComboBox* typeList = FixedCombo("cmbGPSType", types, types[listed ? static_cast<std::size_t>(type - 1) : 0]);
  layout_->addRow("GPS type", typeList);
  std::vector<std::string> intervals;
  for (const IntervalChoice& c : GpsIntervalChoices()) intervals.push_back(c.text);
  layout_->addRow("Log interval", FixedCombo("cmbGPSInterval", intervals, GpsIntervalText(record_.GPSInterval)));
  layout_->addRow("Ahead vector (min)", Combo("cmbAheadVector", AheadIntervalChoices(), NumberText(record_.AheadVector)));
  layout_->addRow("Ahead intervals (min)",
                  Combo("cmbAheadIntervals", AheadIntervalChoices(), NumberText(record_.AheadIntervals)));
  const std::vector<std::string> ranges = {"1", "2", "5", "10", "15", "20", "25", "30"};
  layout_->addRow("VHF range (nm)", Combo("cmbVHFRange", ranges, NumberText(record_.VHFRange)));
  layout_->addRow("Radar range (nm)", Combo("cmbRadarRange", ranges, NumberText(record_.RadarRange)));
  layout_->addRow("Horizon (nm)", Combo("cmbHorizion", ranges, NumberText(record_.HorizonRange)));
  auto* colour = new ColourButton(this, "cmdBoatColour", record_.GPSColour);
  controls_["cmdBoatColour"] = colour;
  layout_->addRow("Boat colour", colour);
  layout_->addRow("Boat line width",
                  Combo("cmbBoatLineWidth", {"1", "2", "3", "4", "5"}, std::to_string(record_.BoatLineWidth)));
  layout_->addRow(Check("chkGPSCentre", "Keep boat centred", record_.GPSCentre != 0));
  layout_->addRow(Check("chkEnableRings", "Range rings", record_.EnableRings != 0));
  layout_->addRow(Check("chkcomments", "Track comments", record_.GPSOption1 != 0));
  layout_->addRow(Check("chktracklayer", "Track layer", record_.TrackLayer != 0));
  layout_->addRow(Check("chkBoatFutureTidePlot", "Predict with tidal stream", record_.BoatFutureTidePlot != 0));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    if (cmdOK_Click()) accept();
  });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  outer->addWidget(buttons);
}

namespace {
std::int16_t Flag(QWidget* w) { return static_cast<QCheckBox*>(w)->isChecked() ? -1 : 0; }
std::string Text(QWidget* w) { return ComboText(static_cast<QComboBox*>(w)); }
}  // namespace

void FrmGPSConfig::ReadControls(SettingsRecord& record) const {
  int port = PortOfText(Text(controls_.at("cmbGPSPort")));
  if (port >= 0) record.GPSPort = static_cast<std::int16_t>(port);
  auto* type = static_cast<QComboBox*>(controls_.at("cmbGPSType"));
  const int number = type->currentIndex() + 1;
  record.GPSType = GpsTypeText(number);
  record.GPSBaudCode = static_cast<std::int16_t>(GpsTypeBaudCode(number));
  auto* interval = static_cast<QComboBox*>(controls_.at("cmbGPSInterval"));
  record.GPSInterval = static_cast<std::int16_t>(GpsIntervalChoices()[static_cast<std::size_t>(
      std::max(0, interval->currentIndex()))].seconds);
  record.AheadVector = static_cast<float>(TextValue(Text(controls_.at("cmbAheadVector"))));
  record.AheadIntervals = static_cast<float>(TextValue(Text(controls_.at("cmbAheadIntervals"))));
  record.VHFRange = static_cast<float>(TextValue(Text(controls_.at("cmbVHFRange"))));
  record.RadarRange = static_cast<float>(TextValue(Text(controls_.at("cmbRadarRange"))));
  record.HorizonRange = static_cast<float>(TextValue(Text(controls_.at("cmbHorizion"))));
  record.GPSColour = static_cast<ColourButton*>(controls_.at("cmdBoatColour"))->colour();
  record.BoatLineWidth = RoundToInt16(TextValue(Text(controls_.at("cmbBoatLineWidth"))));
  record.GPSCentre = Flag(controls_.at("chkGPSCentre"));
  record.EnableRings = Flag(controls_.at("chkEnableRings"));
  // Two switches of this form are kept as 32-bit reals, 1.0 on and 0.0 off.
  record.TrackLayer = static_cast<QCheckBox*>(controls_.at("chktracklayer"))->isChecked() ? 1.0f : 0.0f;
  record.GPSOption1 = static_cast<QCheckBox*>(controls_.at("chkcomments"))->isChecked() ? 1.0f : 0.0f;
  record.BoatFutureTidePlot = Flag(controls_.at("chkBoatFutureTidePlot"));
}

bool FrmGPSConfig::cmdOK_Click() {
  const SettingsChange change = [this](SettingsRecord& r) { ReadControls(r); };
  const bool stored = storeSettings ? storeSettings(change).empty() : ChangeSettingsFile(file_, change);
  if (!stored) {
    showMessage("Cannot write " + file_.string());
    return false;
  }
  return true;
}

}  // namespace kelvane::forms
