#include "app/mainmenus.h"

#include <QMenu>

namespace kelvane::app {

const std::vector<MenuEntry>& MainMenuEntries() {
  static const std::vector<MenuEntry> entries = {
      {"&File", "mnuFilWayLoad", "Load Waypoint File...", false},
      {"&File", "mnuWaySave", "Save Waypoints", false},
      {"&File", "mnuWayCreateNew", "New Waypoint File...", false},
      {"&File", "-", "", false},
      {"&File", "mnuConverttoGPX", "Convert Waypoints (.way) to GPX...", false},
      {"&File", "mnuConvertRouteToGPX", "Convert Route (.rte) to GPX...", false},
      {"&File", "mnuImport", "Import Text...", false},
      {"&File", "mnuExport1", "Export Text...", false},
      {"&File", "mnuCOGToWayExport", "Export Track as Waypoints...", false},
      {"&File", "mnuCompoundExport", "Export Routes and Waypoints to GPX...", false},
      {"&File", "-", "", false},
      {"&File", "mnuExit", "Exit", false},

      {"&Chart", "mnuSelectChartVisually", "Select Chart...", false},
      {"&Chart", "mnuViewChartBoundaries", "Show Chart Boundaries", true},
      {"&Chart", "mnuGPSCentre", "Keep Boat Centred", true},
      {"&Chart", "-", "", false},
      {"&Chart", "mnuViewNormal", "Day View", false},
      {"&Chart", "mnuViewNight", "Night View", false},
      {"&Chart", "mnuIncreaseIntensity", "Increase Intensity", false},
      {"&Chart", "-", "", false},
      {"&Chart", "mnuShowToolBar", "Show Toolbar", true},
      {"&Chart", "mnuViewVectors", "Show Vectors", true},
      {"&Chart", "mnuShowThumbnail", "Show Thumbnail", true},
      {"&Chart", "-", "", false},
      {"&Chart", "mnuOutlineLoad", "Load Outline...", false},
      {"&Chart", "mnuOutlineEdit", "Edit Outline...", false},
      {"&Chart", "mnuShowTools", "Show Tools Menu", true},

      {"T&ools", "mnuSelectL25", "Select Stream File...", false},
      {"T&ools", "mnuAppendDiamond", "Append Stream Diamond", false},

      {"&Tides", "mnutides", "Tide Heights...", false},
      {"&Tides", "mnusunrise", "Sun and Moon...", false},
      {"&Tides", "mnumonth", "Month of Tides...", false},
      {"&Tides", "mnuArea", "Tidal Area...", false},
      {"&Tides", "mnuPortList", "Tidal Port...", false},
      {"&Tides", "mnushowTideHeights", "Show Tidal Ports", true},
      {"&Tides", "-", "", false},
      {"&Tides", "mnuShowTidalStreams", "Show Tidal Streams", true},
      {"&Tides", "mnuTideRollPlus", "Tide Time + 1 Hour", false},
      {"&Tides", "mnuTideRollMinus", "Tide Time - 1 Hour", false},
      {"&Tides", "mnuAnimateStart", "Animate Route", false},
      {"&Tides", "mnuAnimatePause", "Pause Animation", false},
      {"&Tides", "mnuAnimateReverse", "Reverse Animation", false},
      {"&Tides", "mnuAnimateStop", "Stop Animation", false},
      {"&Tides", "-", "", false},
      {"&Tides", "mnuReadTabFile", "Build Stream File from Tables...", false},
      {"&Tides", "mnuStreamstoCSV", "Write Stream Components...", false},
      {"&Tides", "mnumaintainfile", "Edit Harmonic Constants...", false},

      {"&Route", "mnucalcrte", "Calculate Route...", false},
      {"&Route", "mnuOptimiseDeparture", "Optimise Departure...", false},
      {"&Route", "mnuSetLeg", "Single Leg...", false},
      {"&Route", "mnuDiverRoute", "Dive Route...", false},
      {"&Route", "mnuLastRouteResults", "Last Route Results...", false},
      {"&Route", "mnuPassagePlan", "Passage Plan...", false},
      {"&Route", "mnuRouteSave", "Save Route...", false},
      {"&Route", "mnuLoadExistRoute", "Load Route...", false},
      {"&Route", "mnuRouteWaypoints", "Route Waypoints...", false},
      {"&Route", "-", "", false},
      {"&Route", "mnuCalcCOG", "Course over Ground...", false},
      {"&Route", "mnuSaveCOG", "Save Course over Ground...", false},
      {"&Route", "mnuCOGToGoogle", "Course to Google Earth...", false},
      {"&Route", "mnuMOB", "Man Overboard...", false},
      {"&Route", "-", "", false},
      {"&Route", "mnuDividersOn", "Dividers", true},
      {"&Route", "mnuRouteDrag", "Route Drag", true},
      {"&Route", "mnuHazardEdit", "Hazards...", false},
      {"&Route", "-", "", false},
      {"&Route", "mnuShowHistorical", "Tracks...", false},
      {"&Route", "mnuhistPlot", "Plot Track", false},
      {"&Route", "mnuremovehistplot", "Remove Track Plot", false},
      {"&Route", "mnutrackoff", "Track Off", false},

      {"&Waypoints", "mnuShowWaypoints", "Show Waypoints", true},
      {"&Waypoints", "mnuMouseWayPoint", "New Waypoint at Cursor...", false},
      {"&Waypoints", "mnuwayedit", "Edit Waypoints...", false},
      {"&Waypoints", "mnuwaycopy", "Copy Waypoints...", false},
      {"&Waypoints", "mnuGoToWaypoint", "Go to Waypoint...", false},

      {"Wi&nd", "mnuWindEnter", "Enter Wind...", false},
      {"Wi&nd", "mnuWindGribImport", "Import GRIB File...", false},
      {"Wi&nd", "mnuViewWind", "View Imported GRIB Data...", false},
      {"Wi&nd", "mnuViewSmartMet", "View Stored Wind...", false},
      {"Wi&nd", "mnuWindTrueApp", "True and Apparent Wind...", false},
      {"Wi&nd", "mnuDisplayWindOverRoute", "Show Wind over Route", true},
      {"Wi&nd", "mnuWindDisplay", "Show Wind on Chart", true},
      {"Wi&nd", "mnuSailDocs", "GRIB Request...", false},
      {"Wi&nd", "mnuSmartMet", "Use Stored Wind for Route", true},
      {"Wi&nd", "-", "", false},
      {"Wi&nd", "mnuPolarPlot", "Polar Plot...", false},
      {"Wi&nd", "mnuEditPolar", "Edit Polars...", false},

      {"&Instruments", "mnuGPSattach", "Attach GPS", false},
      {"&Instruments", "mnuPosGpsDisconnect", "Detach GPS", false},
      {"&Instruments", "mnuAISEnable", "Attach AIS", false},
      {"&Instruments", "mnuAISDisable", "Detach AIS", false},
      {"&Instruments", "-", "", false},
      {"&Instruments", "mnuShowAISDetails", "AIS Details", true},
      {"&Instruments", "mnuAISDisplayPredicted", "AIS Predicted Track", true},
      {"&Instruments", "mnuAISShowHeadVect", "AIS Heading Vector", true},
      {"&Instruments", "-", "", false},
      {"&Instruments", "mnuLogGPS", "Log GPS Data...", false},
      {"&Instruments", "mnuLogAIS", "Log AIS Data...", false},
      {"&Instruments", "mnuStopGPSDataLog", "Stop GPS Log", false},
      {"&Instruments", "mnuStopAISDataLog", "Stop AIS Log", false},
      {"&Instruments", "mnuGPSReplay", "Replay GPS Log...", false},
      {"&Instruments", "mnuAISReplay", "Replay AIS Log...", false},
      {"&Instruments", "-", "", false},
      {"&Instruments", "mnuOpenRoute", "Upload to GPS...", false},
      {"&Instruments", "mnuAllBaudRates", "All Baud Rates", true},
      {"&Instruments", "mnuCopyComPortDetails", "Port Details...", false},
      {"&Instruments", "mnuDecode21", "Decode AIS Test Message", false},

      {"W&recks", "mnuViewWrecksShow", "Show Wrecks", true},
      {"W&recks", "mnuSearchWrecks", "Search Wrecks...", false},
      {"W&recks", "mnuUserWrecks", "My Dive Sites...", false},

      {"&Settings", "mnuConfigure", "General Settings...", false},
      {"&Settings", "mnuConfigureStreams", "Tidal Stream Settings...", false},
      {"&Settings", "mnuConfigureWrecks", "Display and Wreck Settings...", false},
      {"&Settings", "mnuSetTimeDate", "Date and Time...", false},
      {"&Settings", "mnuConfigMouseAttached", "Mouse Attached", true},

      {"&Help", "mnuQuickInstructions", "Quick Instructions...", false},
      {"&Help", "mnuAbout", "About Kelvane", false},
  };
  return entries;
}

std::map<std::string, QAction*> BuildMainMenus(QMenuBar* bar) {
  std::map<std::string, QAction*> actions;
  std::map<std::string, QMenu*> menus;
  for (const MenuEntry& e : MainMenuEntries()) {
    QMenu*& menu = menus[e.menu];
    if (!menu) {
      menu = bar->addMenu(e.menu);
      menu->setObjectName(QString("menu") + QString(e.menu).remove('&'));
    }
    if (std::string(e.name) == "-") {
      menu->addSeparator();
      continue;
    }
    QAction* a = menu->addAction(e.caption);
    a->setObjectName(e.name);
    a->setCheckable(e.checkable);
    a->setEnabled(false);
    actions[e.name] = a;
  }
  return actions;
}

}  // namespace kelvane::app
