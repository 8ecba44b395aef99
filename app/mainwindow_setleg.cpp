// The single leg inside the main window: the route menu opens the leg form
// over the window's state; each leg it solves replaces the calculated track
// and the report, and the chart redraws with the track, and with the water
// track and the stream vectors when the form asks for them.
#include <QAction>

#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "app/mainwindow_layers.h"
#include "forms/frmSetLeg.h"
#include "state/settingsroad.h"

namespace kelvane::app {

GpsReading FrmChart::CurrentGpsReading() const {
  GpsReading fix;
  if (!instruments_) return fix;
  const OwnShipState& own = instruments_->State().own;
  fix.valid = own.GPSValid == -1;
  fix.lat = own.GPSLat;
  fix.lon = own.GPSLong;
  fix.sog = own.GPSSpeed;
  return fix;
}

void FrmChart::ConnectSetLegMenu() {
  QAction* leg = Action("mnuSetLeg");
  leg->setEnabled(true);
  connect(leg, &QAction::triggered, this, &FrmChart::mnuSetLeg_Click);
  // The leg's construction paints with the calculated track.
  layers_->painter.AddLayer({8, "leg", DrawLegConstruction});
}

void FrmChart::mnuSetLeg_Click() {
  forms::frmSetLeg form(state_, this);
  form.showMessage = showMessage;
  form.gpsReading = [this] { return CurrentGpsReading(); };
  form.Timer1_Timer();
  form.storeSettings = [this](const SettingsChange& change) { return UpdateSettings(state_, change); };
  form.legSolved = [this] {
    // The leg puts the curves back to the working day when it has used
    // them; the moment is told so.
    if (state_.settings.UseTides != 0) {
      state_.moment.TideDay = state_.moment.WorkingDay;
      state_.moment.TideYear = state_.moment.WorkingYear;
    }
    Redraw();
  };
  form.exec();
  // The wind display switch may have changed: the menu and button follow.
  SetViewLayers();
}

}  // namespace kelvane::app
