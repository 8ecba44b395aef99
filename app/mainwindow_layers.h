// The main window's share of the overlays: the painter with its ordered
// layers, the MOB label over the chart, and the chart's brightness for the
// night view.
#pragma once

#include <QPalette>

#include "app/overlays.h"

class QLabel;

namespace kelvane::app {

struct LayerControls {
  OverlayPainter painter;
  OverlayOutcome lastPaint;    // what the last paint reported
  QLabel* lblMOB = nullptr;    // "MOB Position " and the position, or empty
  int brightness = kFullBrightness;  // percent, 10 to 100
  bool night = false;
  QPalette dayPalette;
  std::int32_t pickedAisMmsi = 0;  // the target marked in the AIS summary (0 none)
};

}  // namespace kelvane::app
