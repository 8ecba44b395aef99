// The wind menu's polar forms: the viewer and the editor of the boat's
// polar tables in Polars.mdb. The set-up chosen in either is the wind
// set-up's (WindConfig.PolarSetUpIndex), kept in WindConfig.cfg.
#include <QAction>
#include <utility>

#include "app/mainwindow.h"
#include "forms/frmEditPlot.h"
#include "forms/frmPolarPlot.h"

namespace kelvane::app {

void FrmChart::ConnectPolarMenus() {
  for (auto [name, handler] : {std::pair{"mnuPolarPlot", &FrmChart::mnuPolarPlot_Click},
                               std::pair{"mnuEditPolar", &FrmChart::mnuEditPolar_Click}}) {
    QAction* a = Action(name);
    a->setEnabled(true);
    connect(a, &QAction::triggered, this, handler);
  }
}

void FrmChart::mnuPolarPlot_Click() {
  forms::frmPolarPlot form(state_.folders.DataRoot(), state_.wind.PolarSetUpIndex, this);
  form.exec();
  KeepPolarSetUp(form.panel->SetUpIndex());
}

void FrmChart::mnuEditPolar_Click() {
  forms::frmEditPlot form(state_.folders.DataRoot(), state_.wind.PolarSetUpIndex, this);
  form.showMessage = showMessage;
  form.exec();
  KeepPolarSetUp(form.panel->SetUpIndex());
}

void FrmChart::KeepPolarSetUp(int index) {
  if (index < 0 || index == state_.wind.PolarSetUpIndex) return;
  state_.wind.PolarSetUpIndex = static_cast<std::int16_t>(index);
  if (!WriteWindConfig(state_.folders.WindConfigFile(), state_.wind))
    showMessage("The wind set-up could not be written to " + state_.folders.WindConfigFile().string());
}

}  // namespace kelvane::app
