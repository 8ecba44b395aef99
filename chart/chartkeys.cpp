// The chart window's keyboard table: what each key does to the route and
// the marks, and which keys the window carries out itself.
#include "chart/chartmodes.h"

namespace kelvane {

KeyOutcome ChartInteraction::KeyDown(int key, bool shift, const KeyContext& context) {
  (void)shift;  // "=" with Shift is still "I"; the view keys read Shift themselves
  KeyOutcome k;
  auto menu = [&](const char* name) {
    k.command = KeyCommand::Menu;
    k.menu = name;
  };
  switch (key) {
    case vk::Equals:
    case vk::Minus:
    case vk::PageUp:
    case vk::Up:
    case 'U':
    case vk::PageDown:
    case vk::Down:
    case 'D':
    case vk::Left:
    case 'L':
    case vk::Right:
    case 'R':
    case vk::Home:
    case 'I':
    case 'O': k.command = KeyCommand::Viewer; return k;
    case vk::Back: k.effects = RemoveLastPoint(); return k;
    case vk::Return:
      k.command = KeyCommand::Redraw;
      k.effects.redraw = true;
      return k;
    case vk::Escape:
      if (context.animating) {
        k.effects.endAnimation = true;
        return k;
      }
      k.effects = ClearRoute();
      k.effects.timesBackToNow = k.effects.routeChanged;
      return k;
    case vk::Insert: {
      // On a marked route point the new point goes in after it, in the
      // middle of its leg; otherwise at the cursor.
      float lat = CursorLat, lon = CursorLon;
      if (marks_.PointMarked && marks_.MarkedKind == 2 && marks_.MarkedIndex >= 1 &&
          marks_.MarkedIndex < RouteCount(passage_)) {
        const RoutePoint& a = passage_.Route[static_cast<std::size_t>(marks_.MarkedIndex)];
        const RoutePoint& b = passage_.Route[static_cast<std::size_t>(marks_.MarkedIndex + 1)];
        lat = (a.Lat + b.Lat) / 2;
        lon = (a.Lon + b.Lon) / 2;
      }
      k.effects = InsertRoutePoint(lat, lon);
      return k;
    }
    case vk::Delete: k.effects = DeleteMarked(); return k;
    case 'G': menu("mnuGPSCentre"); return k;
    case 'M': k.effects = MarkNearest(); return k;
    case 'N': menu("mnuDisplayWindOverRoute"); return k;
    case 'P': menu("mnushowTideHeights"); return k;
    case 'S':
      if (context.streamDataLoaded) menu("mnuShowTidalStreams");
      return k;
    case 'T':
      if (context.gpsValid) {
        k.trackingText = TrackingTexts(passage_, context.gpsLat, context.gpsLon, context.timeNow);
        if (!k.trackingText.empty()) k.command = KeyCommand::ShowTracking;
      }
      return k;
    case 'W': menu("mnuShowWaypoints"); return k;
    case vk::Apostrophe: menu("mnuWindDisplay"); return k;
    case vk::F1: k.command = KeyCommand::Memory; return k;
    case vk::F2:
      if (context.aisOn) k.command = KeyCommand::AisDetails;
      return k;
    case vk::F8:
      if (context.toolsMenuShown) k.command = KeyCommand::ChooseStreamFile;
      return k;
    case vk::F9:
    case vk::F10:
      k.command = KeyCommand::Brightness;
      k.value = key == vk::F9 ? -10 : 10;
      return k;
    case vk::F12:
      if (context.toolsMenuShown) k.command = KeyCommand::AppendDiamond;
      return k;
    default: break;
  }
  if (key >= '0' && key <= '9') {
    k.command = KeyCommand::Viewer;
    return k;
  }
  if (key >= vk::F3 && key <= vk::F6) {
    if (context.aisOn) {
      k.command = KeyCommand::AisFlag;
      k.value = key - vk::F3 + 1;
    }
    return k;
  }
  return k;
}

}  // namespace kelvane
