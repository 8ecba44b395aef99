// The configuration forms: frmConfigureWrecks shows every setting of the
// chart display, passage and wrecks; frmConfigure and frmConfigureStreams
// show parts of it with the same checks and messages. All three run the
// same round (core/configure.h) on OK and stay open on a refusal.
#pragma once

#include <QDialog>
#include <filesystem>
#include <map>
#include <optional>

#include "core/configure.h"
#include "forms/formsupport.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QRadioButton;

namespace kelvane::forms {

class FrmConfigure : public QDialog {
  Q_OBJECT
 public:
  enum class Variant { Wrecks, General, Streams };

  // Reads the settings file and fills the controls from it.
  FrmConfigure(Variant variant, std::filesystem::path settingsFile, QWidget* parent = nullptr);

  // The controls as the round takes them (only those this variant shows).
  ConfigureControls Controls() const;
  // Runs the round; on success the dialog is accepted and Outcome() holds
  // what the main window must do next.
  void cmdconfigok_Click();
  const std::optional<ConfigureOutcome>& Outcome() const { return outcome_; }
  const SettingsRecord& Record() const { return record_; }

  MessageSink showMessage;

 private:
  void Build();
  QLineEdit* Edit(const char* name, const std::string& text);
  QCheckBox* Check(const char* name, const char* caption, bool on);
  QComboBox* Combo(const char* name, const std::vector<std::string>& entries, const std::string& current);

  Variant variant_;
  std::filesystem::path file_;
  SettingsRecord record_;
  std::optional<ConfigureOutcome> outcome_;
  std::map<std::string, QWidget*> controls_;
};

}  // namespace kelvane::forms
