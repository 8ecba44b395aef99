// The wind store inside the main window: the GRIB import, the lists of what
// the last import decoded and stored, and the route's wind taken from it.
#include <QAction>
#include <QMenu>

#include "app/mainwindow.h"
#include "forms/frmGribImport.h"
#include "forms/frmViewSmartMet.h"
#include "forms/frmViewWind.h"
#include "state/routewind.h"
#include "state/settingsroad.h"

namespace kelvane::app {

void FrmChart::ConnectWindStore() {
  auto enable = [this](const char* name, auto handler) {
    QAction* a = Action(name);
    a->setEnabled(true);
    connect(a, &QAction::triggered, this, handler);
  };
  enable("mnuWindGribImport", [this] { mnuWindGribImport_Click(); });
  enable("mnuViewWind", [this] {
    forms::frmViewWind form(state_.folders.GribPointsFile(), this);
    form.exec();
  });
  enable("mnuViewSmartMet", [this] {
    forms::frmViewSmartMet form(state_.folders.WindStoreFile(), this);
    form.exec();
  });
  enable("mnuSmartMet", [this] { mnuSmartMet_Click(); });
  // The tick of the switch follows the settings whenever the menu opens.
  QAction* smartMet = Action("mnuSmartMet");
  if (auto* menu = qobject_cast<QMenu*>(smartMet->parent()))
    connect(menu, &QMenu::aboutToShow, this,
            [this, smartMet] { smartMet->setChecked(state_.settings.UseSmartMet != 0); });
}

void FrmChart::mnuWindGribImport_Click() {
  forms::frmGribImport form(state_.folders, state_.settings.GribFolder, this);
  form.storeSettings = [this](const SettingsChange& change) { return UpdateSettings(state_, change); };
  // The chart's wind is drawn from the store: a new import shows at once.
  connect(&form, &forms::frmGribImport::WindStoreChanged, this, &FrmChart::Redraw);
  form.exec();
}

void FrmChart::mnuSmartMet_Click() {
  const StoredWindSwitch out = SwitchStoredWind(state_);
  Action("mnuSmartMet")->setChecked(out.on);
  if (!out.settingsMessage.empty()) showMessage(out.settingsMessage);
  if (!out.routeWalked) return;
  for (const LegWindLookup& leg : out.route.legs)
    if (leg.found) state_.passage.Route[static_cast<std::size_t>(leg.leg)].LegWind = leg.wind;
  if (!out.route.message.empty()) showMessage(out.route.message);
  Redraw();
}

}  // namespace kelvane::app
