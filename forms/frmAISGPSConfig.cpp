#include "forms/frmAISGPSConfig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>

#include "core/format.h"
#include "instruments/comms_forms.h"

namespace kelvane::forms {

FrmAISGPSConfig::FrmAISGPSConfig(const SettingsRecord& settings, std::filesystem::path settingsFile,
                                 SerialPorts& ports, std::vector<std::string> devices, QWidget* parent)
    : FrmGPSConfig(settings, std::move(settingsFile), ports, std::move(devices), 256, parent) {
  setObjectName("frmAISGPSConfig");
  setWindowTitle("Configure GPS/AIS");
  std::vector<std::string> portTexts;
  for (int p : found_) portTexts.push_back(PortText(p));
  int row = 2;
  layout_->insertRow(row++, "AIS port",
                     Combo("cmbAISPort", portTexts, record_.AISPort >= 0 ? PortText(record_.AISPort) : std::string()));
  layout_->insertRow(row++, "AIS baud rate",
                     Combo("cmbAISBaud", AllBaudRates(), std::to_string(BaudRateOfCode(record_.AISBaudCode))));
  // The slowest moving target that is drawn, knots.
  layout_->insertRow(row++, "AIS minimum speed (kn)",
                     Combo("cmbAISSpeed", {"0", "0.5", "1", "2", "3", "5", "10"}, NumberText(record_.AISMinSpeed)));
  layout_->insertRow(row++, "AIS line width",
                     Combo("cmbAISLineWidth", {"1", "2", "3", "4", "5"}, std::to_string(record_.AISLineWidth)));
  const std::vector<std::string>& fields = AisFieldChoices();
  std::size_t index = static_cast<std::size_t>(std::max<int>(0, record_.AISListIndex));
  layout_->insertRow(row++, "Target label",
                     FixedCombo("cmbAISFields", fields, index < fields.size() ? fields[index] : fields[0]));
  layout_->addRow(Check("chkGPSThroAIS", "GPS data on the AIS port", record_.GPSThroAIS != 0));
}

void FrmAISGPSConfig::ReadControls(SettingsRecord& record) const {
  FrmGPSConfig::ReadControls(record);
  int port = PortOfText(ComboText(static_cast<QComboBox*>(controls_.at("cmbAISPort"))));
  if (port >= 0) record.AISPort = static_cast<std::int16_t>(port);
  int code = BaudCodeOfRate(static_cast<int>(TextValue(ComboText(static_cast<QComboBox*>(controls_.at("cmbAISBaud"))))));
  if (code >= 0) record.AISBaudCode = static_cast<std::int16_t>(code);
  const double minSpeed = TextValue(ComboText(static_cast<QComboBox*>(controls_.at("cmbAISSpeed"))));
  if (minSpeed >= 0) record.AISMinSpeed = static_cast<float>(minSpeed);
  record.AISLineWidth = RoundToInt16(TextValue(ComboText(static_cast<QComboBox*>(controls_.at("cmbAISLineWidth")))));
  record.AISListIndex = static_cast<std::int16_t>(static_cast<QComboBox*>(controls_.at("cmbAISFields"))->currentIndex());
  record.GPSThroAIS = static_cast<QCheckBox*>(controls_.at("chkGPSThroAIS"))->isChecked() ? -1 : 0;
}

}  // namespace kelvane::forms
