// The tidal ports in use, with their next high water.
#include <algorithm>

#include "app/overlaydrawing.h"

namespace kelvane::app {

using namespace overlay;

// ---- tidal ports -------------------------------------------------------------------------

void DrawPorts(OverlayFrame& f) {
  const SettingsRecord& s = f.settings;
  if (s.ShowTideHeights == 0) return;
  const TideState& tides = f.sources.state->tides;
  if (tides.UsedPortList.empty()) return;
  QPainter& d = f.painter;
  const int textHeight = ScaledTextHeight(s.TextWaySize, f.markRadius, f.baseRadius);
  const std::int32_t portColour = PackColour(0, 96, 160);
  const double r = std::max(4, f.markRadius);
  SelectSolidPen(d, 2, portColour);
  SelectFont(d, "Arial", textHeight);
  for (std::size_t i = 0; i < tides.UsedPortList.size(); ++i) {
    const HarmonicPortRecord* port = RefPort(tides, tides.UsedPortList[i]);
    if (!port) continue;
    const ScreenPoint at = f.view.ToScreen(port->Latitude, port->Longitude);
    if (!On(f, at)) continue;
    // A tide-pole mark: a square with its datum line across.
    d.setBrush(QColor(255, 255, 255));
    d.drawRect(QRectF(at.x - r, at.y - r, 2 * r, 2 * r));
    DrawLine(at.x - r, at.y, at.x + r, at.y, d);
    std::string label = Trim(port->PortName);
    if (i < tides.PortTideState.size() && !Trim(tides.PortTideState[i].HwText).empty())
      label += " HW " + Trim(tides.PortTideState[i].HwText);
    DrawText(Q(label), at.x + r + 3, at.y - textHeight / 2.0, d, portColour, 0xFFFFFF, true);
  }
  RestoreFont(d);
  RestorePen(d);
}

}  // namespace kelvane::app
