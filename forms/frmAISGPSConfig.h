// frmAISGPSConfig: the GPS settings with the AIS link added: its port and
// speed, the target line width, the field a target label shows, and whether
// the GPS data comes in on the AIS port (the menu then reads "AIS/GPS").
#pragma once

#include "forms/frmGPSConfig.h"

namespace kelvane::forms {

class FrmAISGPSConfig : public FrmGPSConfig {
  Q_OBJECT
 public:
  FrmAISGPSConfig(const SettingsRecord& settings, std::filesystem::path settingsFile, SerialPorts& ports,
                  std::vector<std::string> devices, QWidget* parent = nullptr);

 protected:
  void ReadControls(SettingsRecord& record) const override;
};

}  // namespace kelvane::forms
