// The tidal stream arrows of the diamonds at the present time.
#include "app/overlaydrawing.h"
#include "core/format.h"

namespace kelvane::app {

using namespace overlay;

// ---- tidal streams -------------------------------------------------------------------------

void DrawStreams(OverlayFrame& f) {
  const SettingsRecord& s = f.settings;
  if (s.ShowTidalStreams == 0.0f) return;
  const std::vector<DiamondStreamNow>& now = f.sources.state->streams.StreamNow;
  if (now.empty()) return;
  QPainter& d = f.painter;
  const int textHeight = ScaledTextHeight(s.StreamFontSize, f.markRadius, f.baseRadius);
  std::vector<std::pair<ScreenPoint, const DiamondStreamNow*>> shown;
  shown.reserve(now.size());
  for (const DiamondStreamNow& item : now) {
    const ScreenPoint at = f.view.ToScreen(static_cast<float>(item.Lat), static_cast<float>(item.Lon));
    if (On(f, at)) shown.emplace_back(at, &item);
  }
  SelectSolidPen(d, s.StreamAsShape != 0 ? 1 : s.StreamLineWidth, s.TidalStreamColour);
  d.setBrush(s.StreamFilled == 1 ? QBrush(PackedColour(s.TidalStreamColour)) : QBrush(Qt::NoBrush));
  for (const auto& [at, item] : shown) {
    DrawStreamPoly(d, at.x, at.y, item->Direction, StreamArrowLength(item->Rate, s.StreamLength, f.markRadius), s);
    // The diamond itself, a small lozenge at the arrow's tail.
    const QPointF lozenge[4] = {{at.x, at.y - 4}, {at.x + 4, at.y}, {at.x, at.y + 4}, {at.x - 4, at.y}};
    d.drawPolygon(lozenge, 4);
  }
  RestorePen(d);
  SelectFont(d, "Arial", textHeight);
  for (const auto& [at, item] : shown) {
    std::string text = FormatNumber(item->Rate, "0.0");
    if (s.HideStreamId == 0) text += " " + Trim(item->Label);
    DrawLabel(f, Q(text), at.x + 6, at.y + 4, textHeight, s.StreamFontColour);
  }
  RestoreFont(d);
  f.outcome.drawnArrows = static_cast<int>(shown.size());
}

}  // namespace kelvane::app
