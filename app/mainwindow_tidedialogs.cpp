// The tide menu's two small dialogs: the area file of the tide window
// (ProgramFolder/TS/*.hc) and its port. Each dialog's choice goes down the
// program's road of settings changes, into the settings file and the
// record the window holds at once, so that the next form and the tide
// window see the same area and port as the file.
#include <QAction>

#include "app/mainwindow.h"
#include "core/settings.h"
#include "forms/frmPortName.h"
#include "forms/frmTidesSeaArea.h"
#include "state/settingsroad.h"
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
  forms::frmTidesSeaArea form(state_.folders.DataRoot() / "TS", state_.folders.SettingsFile(), this);
  form.storeChoice = [this](const SettingsChange& change) {
    if (const std::string m = UpdateSettings(state_, change); !m.empty()) showMessage(m);
  };
  form.exec();
}

void FrmChart::mnuPortList_Click() {
  forms::frmPortName form(AreaFilePath(state_.folders.DataRoot(), state_.settings.HarmonicFile),
                          state_.folders.SettingsFile(), state_.settings.PortIndex, this);
  form.storeChoice = [this](const SettingsChange& change) {
    if (const std::string m = UpdateSettings(state_, change); !m.empty()) showMessage(m);
  };
  form.exec();
}

}  // namespace kelvane::app
