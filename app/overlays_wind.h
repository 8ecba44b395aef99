// The wind layer of the chart (step 15 of the paint): the forecast winds of
// the working moment's 3-hour slot as barbs at their grid points, and the
// wind of each leg of the route at the leg's midpoint.
#pragma once

#include "app/overlays.h"

namespace kelvane::app {

// The layer, with its own reader of the wind store: the store is read
// again only when the slot of the working moment or the file changes.
OverlayLayer WindLayer();

}  // namespace kelvane::app
