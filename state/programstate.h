// The program's state for the whole run, one record for both front doors:
// the main window holds it and hands it to the forms and calculations, and
// each kelvane-cli command works from one made the same way, so that the
// same files give the same numbers. The folders, the settings record, the
// wind set-up, the working moment and the date order of the user, with the
// subsystems' own records beside them (tides, streams, route, marks).
#pragma once

#include "chart/chartmarks.h"
#include "core/datatree.h"
#include "core/dateformat.h"
#include "core/settings.h"
#include "core/windconfig.h"
#include "core/workingtime.h"
#include "passage/passagestate.h"
#include "routes/gpx.h"
#include "streams/tidalstreams.h"
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
  StreamState streams;          // the area's diamonds and the streams now
  PassageState passage;         // the route, its calculated track and results
  ChartMarks marks;             // the chart's modes and marks, for the overlays
  bool UseLeewaySwitch = false; // the leg forms' working leeway switch

  // The stream lookup's view of the tides and diamonds.
  StreamContext Streams() {
    StreamContext ctx;
    ctx.tides = &tides;
    ctx.streams = &streams;
    ctx.programFolder = folders.DataRoot();
    ctx.summerTime = settings.SummerTime != 0;
    return ctx;
  }
};

}  // namespace kelvane
