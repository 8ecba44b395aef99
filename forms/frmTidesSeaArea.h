// frmTidesSeaArea: choose the area file (ProgramFolder/TS/*.hc) of the tide
// window. On OK the name is stored in the settings file and the dialog
// closes; a missing or wrong name is refused with the program's message.
#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>

#include "core/settings.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

class frmTidesSeaArea : public QDialog {
  Q_OBJECT
 public:
  frmTidesSeaArea(const std::filesystem::path& tsFolder, const std::filesystem::path& settingsFile,
                  QWidget* parent = nullptr);
  QListWidget* FileList = nullptr;
  QLabel* lblAreaToUse = nullptr;
  QPushButton* cmdOK = nullptr;
  // Where the choice goes: without it, straight into the settings file
  // given; the main window sends it down the program's road of settings
  // changes instead.
  std::function<void(const std::function<void(SettingsRecord&)>&)> storeChoice;

 private:
  void OnOK();
  std::filesystem::path settingsFile_;
};

}  // namespace kelvane::forms
