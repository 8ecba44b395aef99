// The help menu of the main window: the quick instructions, and the about
// box with the version, the advisory warning and the sources and licences
// of the data in the data folder.
#include <QAction>

#include "app/mainwindow.h"
#include "forms/frmAbout.h"

namespace kelvane::app {

void FrmChart::ConnectHelp() {
  QAction* about = Action("mnuAbout");
  about->setEnabled(true);
  connect(about, &QAction::triggered, this, &FrmChart::mnuAbout_Click);
  QAction* quick = Action("mnuQuickInstructions");
  quick->setEnabled(true);
  connect(quick, &QAction::triggered, this, &FrmChart::mnuQuickInstructions_Click);
}

void FrmChart::mnuAbout_Click() {
  forms::frmAbout form(KELVANE_VERSION, state_.folders.DataRoot(), this);
  form.exec();
}

void FrmChart::mnuQuickInstructions_Click() {
  forms::frmQuickInstructions form(this);
  form.exec();
}

}  // namespace kelvane::app
