// The layer switches of the chart window: which settings field each menu
// toggle flips, and the pair of toolbar pictures (in the data tree's "res"
// folder) that shows its state. A toggle reads the settings file, sets the
// field and writes the whole record at once.
#pragma once

#include <string>
#include <vector>

#include "core/settings.h"

namespace kelvane {

struct LayerSwitch {
  const char* action;      // the menu item
  const char* button;      // its toolbar button, "" for none
  const char* onPicture;   // shown while the layer is on ("" for none)
  const char* offPicture;  // shown while it is off
  bool (*isOn)(const SettingsRecord&);
  void (*set)(SettingsRecord&, bool on);  // writes the field's own "on" value (-1 or 1.0)
};

// The switches this window draws layers for, in toolbar order.
const std::vector<LayerSwitch>& LayerSwitches();
// The switch of a menu item, or nullptr.
const LayerSwitch* FindLayerSwitch(const std::string& action);

// The dividers' button pictures: while the dividers are on the button shows
// "dividers.bmp", while they are off "dividerson.bmp" (the picture offers
// what a click does).
const char* DividersPicture(bool dividersOn);

}  // namespace kelvane
