// frmGPSConfig: the GPS settings (port, receiver type and with it the baud
// rate, log interval, prediction steps, ranges, the boat's colour and line,
// the switches of the GPS layer). frmAISGPSConfig adds the AIS link to the
// same form. Both read the settings file, scan the ports, and write the
// record back whole on OK.
#pragma once

#include <QDialog>
#include <filesystem>
#include <map>
#include <vector>

#include "core/settings.h"
#include "forms/formsupport.h"
#include "instruments/serial.h"

class QCheckBox;
class QComboBox;
class QFormLayout;

namespace kelvane::forms {

class FrmGPSConfig : public QDialog {
  Q_OBJECT
 public:
  // `devices` names the device of each port number, for the list.
  FrmGPSConfig(std::filesystem::path settingsFile, SerialPorts& ports, std::vector<std::string> devices,
               QWidget* parent = nullptr);

  // Writes the controls into the record and the record to the file.
  bool cmdOK_Click();
  const SettingsRecord& Record() const { return record_; }
  // The port numbers the scan found, in the order of the list.
  const std::vector<int>& PortsFound() const { return found_; }

  MessageSink showMessage;

 protected:
  FrmGPSConfig(std::filesystem::path settingsFile, SerialPorts& ports, std::vector<std::string> devices, int queueSize,
               QWidget* parent);
  // The list text of a port number: "COM<n+1>  <device>".
  std::string PortText(int port) const;
  int PortOfText(const std::string& text) const;
  QComboBox* Combo(const char* name, const std::vector<std::string>& entries, const std::string& current);
  // A list the user chooses from without typing.
  QComboBox* FixedCombo(const char* name, const std::vector<std::string>& entries, const std::string& current);
  QCheckBox* Check(const char* name, const char* caption, bool on);
  virtual void ReadControls();

  std::filesystem::path file_;
  SettingsRecord record_;
  std::vector<int> found_;
  std::vector<std::string> devices_;
  QFormLayout* layout_ = nullptr;
  std::map<std::string, QWidget*> controls_;

 private:
  void Build();
};

}  // namespace kelvane::forms
