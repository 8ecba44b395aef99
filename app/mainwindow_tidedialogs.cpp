// The tide menu's two small dialogs: the area file of the tide window
// (ProgramFolder/TS/*.hc) and its port. Each dialog writes its choice to
// the settings file itself; the window then takes the fields the dialog
// owns into the record it holds, so that the next form and the tide window
// see the same area and port as the file.
#include <QAction>

#include "app/mainwindow.h"
#include "core/settings.h"
#include "forms/frmPortName.h"
#include "forms/frmTidesSeaArea.h"
#include "tides/portselect.h"

namespace kelvane::app {

void FrmChart::ConnectTideDialogs() {
  QAction* area = Action("mnuArea");
  area->setEnabled(true);
  connect(area, &QAction::triggered, this, &FrmChart::mnuArea_Click);
  QAction* port = Action("mnuPortList");
  port->setEnabled(true);
  connect(port, &QAction::triggered, this, &FrmChart::mnuPortList_Click);
}

void FrmChart::mnuArea_Click() {
  const std::filesystem::path file = state_.folders.SettingsFile();
  forms::frmTidesSeaArea form(state_.folders.DataRoot() / "TS", file, this);
  if (form.exec() != QDialog::Accepted) return;
  state_.settings.HarmonicFile = ReadSettings(file).HarmonicFile;
}

void FrmChart::mnuPortList_Click() {
  const std::filesystem::path file = state_.folders.SettingsFile();
  forms::frmPortName form(AreaFilePath(state_.folders.DataRoot(), state_.settings.HarmonicFile), file,
                          state_.settings.PortIndex, this);
  if (form.exec() != QDialog::Accepted || form.ChosenPort() < 1) return;
  const SettingsRecord stored = ReadSettings(file);
  state_.settings.PortIndex = stored.PortIndex;
  state_.settings.Port = stored.Port;
}

}  // namespace kelvane::app
