// The configuration forms: frmConfigureWrecks shows every setting of the
// chart display, passage and wrecks; frmConfigure and frmConfigureStreams
// show parts of it with the same checks and messages. All three run the
// same round (core/configure.h) on OK and stay open on a refusal. They show
// the settings the program holds and hand the change of their fields to the
// settings road; they never write the record whole.
#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>
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

  // Fills the controls from `settings` (the program's record, which must
  // outlive the form); `settingsFile` is where a change goes when no
  // storeSettings is set.
  FrmConfigure(Variant variant, const SettingsRecord& settings, std::filesystem::path settingsFile,
               QWidget* parent = nullptr);

  // The controls as the round takes them (only those this variant shows).
  ConfigureControls Controls() const;
  // Runs the checks on a copy of the settings; on success the change of
  // this form's fields is stored and, when that went, the dialog is
  // accepted and Outcome() holds what the main window must do next.
  void cmdconfigok_Click();
  const std::optional<ConfigureOutcome>& Outcome() const { return outcome_; }

  MessageSink showMessage;
  // Stores a change of the settings: "" or the message for the user. The
  // main window sends it down the settings road; unset, the change goes to
  // the settings file alone.
  std::function<std::string(const SettingsChange&)> storeSettings;

 private:
  void Build();
  QLineEdit* Edit(const char* name, const std::string& text);
  QCheckBox* Check(const char* name, const char* caption, bool on);
  QComboBox* Combo(const char* name, const std::vector<std::string>& entries, const std::string& current);

  Variant variant_;
  const SettingsRecord& settings_;
  std::filesystem::path file_;
  std::optional<ConfigureOutcome> outcome_;
  std::map<std::string, QWidget*> controls_;
};

}  // namespace kelvane::forms
