// frmTidesSeaArea: choose the area file (ProgramFolder/TS/*.hc) of the tide
// window. On OK the name is stored in the settings file and the dialog
// closes; a missing or wrong name is refused with the program's message.
#pragma once

#include <QDialog>
#include <filesystem>

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

 private:
  void OnOK();
  std::filesystem::path settingsFile_;
};

}  // namespace kelvane::forms
