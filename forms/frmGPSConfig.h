// frmGPSConfig: the GPS settings (port, receiver type and with it the baud
// rate, log interval, prediction steps, ranges, the boat's colour and line,
// the switches of the GPS layer). frmAISGPSConfig adds the AIS link to the
// same form. Both show the settings the program holds, scan the ports, and
// on OK hand the change of their own fields to the settings road.
#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>
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
  // `settings` is the program's record (it must outlive the form), shown in
  // the controls; `settingsFile` names the file in a failure's message and
  // takes the change when no storeSettings is set. `devices` names the
  // device of each port number, for the list.
  FrmGPSConfig(const SettingsRecord& settings, std::filesystem::path settingsFile, SerialPorts& ports,
               std::vector<std::string> devices, QWidget* parent = nullptr);

  // Stores the change of the form's fields; false (after the message) when
  // it could not be saved.
  bool cmdOK_Click();
  // The port numbers the scan found, in the order of the list.
  const std::vector<int>& PortsFound() const { return found_; }

  MessageSink showMessage;
  // Stores a change of the settings: "" or the road's message. The main
  // window sends it down the settings road; unset, the change goes to the
  // settings file alone.
  std::function<std::string(const SettingsChange&)> storeSettings;

 protected:
  FrmGPSConfig(const SettingsRecord& settings, std::filesystem::path settingsFile, SerialPorts& ports,
               std::vector<std::string> devices, int queueSize, QWidget* parent);
  // The list text of a port number: "COM<n+1>  <device>".
  std::string PortText(int port) const;
  int PortOfText(const std::string& text) const;
  QComboBox* Combo(const char* name, const std::vector<std::string>& entries, const std::string& current);
  // A list the user chooses from without typing.
  QComboBox* FixedCombo(const char* name, const std::vector<std::string>& entries, const std::string& current);
  QCheckBox* Check(const char* name, const char* caption, bool on);
  // Sets the fields of the form's controls in `record`.
  virtual void ReadControls(SettingsRecord& record) const;

  const SettingsRecord& record_;
  std::filesystem::path file_;
  std::vector<int> found_;
  std::vector<std::string> devices_;
  QFormLayout* layout_ = nullptr;
  std::map<std::string, QWidget*> controls_;

 private:
  void Build();
};

}  // namespace kelvane::forms
