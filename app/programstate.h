// The state the main window holds for the whole run and hands to the forms
// and calculations: the folders, the settings record, the wind set-up, the
// working moment and the date order of the user. Later subsystems keep
// their own state records beside it (tides, route, instruments).
#pragma once

#include "core/datatree.h"
#include "core/dateformat.h"
#include "core/settings.h"
#include "core/windconfig.h"
#include "core/workingtime.h"
#include "routes/gpx.h"
#include "tides/tidestate.h"

namespace kelvane {

struct ProgramState {
  Folders folders;
  SettingsRecord settings;
  WindConfig wind;
  WorkingWind workingWind;
  WorkingMoment moment;
  DateFormat dateFormat;
  GpxStore waypoints;           // ChartWaypoints of the waypoint file in use
  TideState tides;              // reference ports and the day's curves
  float LegSpeed = 0;           // the working leg speed of the leg forms, knots
  bool UseLeewaySwitch = false; // the leg forms' working leeway switch
};

}  // namespace kelvane
