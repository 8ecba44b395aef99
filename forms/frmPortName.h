// frmPortName: choose the port of the tide window from the current area
// file. The list shows "NAME  12"; choosing a line shows its name and
// number; OK stores the number (when at least 1) and the name in the
// settings file and closes, after which the caller refreshes the tide window
// for ChosenPort().
#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tides/portselect.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

class frmPortName : public QDialog {
  Q_OBJECT
 public:
  frmPortName(const std::filesystem::path& areaFile, const std::filesystem::path& settingsFile, int storedPort,
              QWidget* parent = nullptr);
  int ChosenPort() const { return chosen_; }

  QListWidget* portlist2 = nullptr;
  QLabel* portconfigbox = nullptr;
  QLabel* confportnolabel = nullptr;
  QPushButton* portconfigok = nullptr;
  // Where the choice goes: without it, straight into the settings file
  // given; the main window sends it down the program's road of settings
  // changes instead.
  std::function<void(const std::function<void(SettingsRecord&)>&)> storeChoice;

 private:
  void Choose(int row);
  void OnOK();
  std::filesystem::path settingsFile_;
  std::vector<PortListEntry> lines_;
  int chosen_ = 0;
};

}  // namespace kelvane::forms
