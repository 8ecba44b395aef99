#include "instruments/ais_display.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "instruments/ais_report.h"

namespace kelvane {

namespace {

bool On(const AisDisplayView& view, ScreenPoint p) {
  return OnSurface(p.x, p.y, view.surfaceWidth, view.surfaceHeight);
}

// The trail from the target's position through samples 1 to 6.
std::vector<AisTrailStep> Trail(const AisDisplayView& view, const std::array<AisPoint, 7>& points, ScreenPoint at,
                                bool ticks) {
  std::vector<AisTrailStep> steps;
  steps.reserve(6);
  ScreenPoint last = at;
  for (std::size_t k = 1; k <= 6; ++k) {
    const ScreenPoint p = view.toScreen(points[k].Lat, points[k].Long);
    steps.push_back(AisTrailStep{last, p, On(view, p) || On(view, last), ticks && On(view, p)});
    last = p;
  }
  return steps;
}

// The extras of a vessel or aircraft: the trails and the heading vector by
// the target's switches, the label by its details switch (or when the pass
// shows a close target's details). The heading vector runs along the
// course for the distance of one prediction step, at least 20 pixels; the
// label sits 8 right of and 6 below the position.
void AddExtras(AisTargetMark& mark, const AISTarget& t, bool details, const AisTableSettings& table,
               const SettingsRecord& s, const AisDisplayView& view) {
  if (t.ShowHistory != 0) mark.history = Trail(view, t.History, mark.at, false);
  if (t.ShowPredicted != 0) mark.predicted = Trail(view, t.Predicted, mark.at, true);
  if (t.ShowHeading != 0) {
    const float run = t.Speed * table.AheadIntervals / 60.0f;
    const double length = std::max(20.0, view.milesToPixels(t.Lat, run));
    const double c = t.Course * 0.017453293;
    mark.heading = AisSegment{mark.at, {mark.at.x + std::sin(c) * length, mark.at.y - std::cos(c) * length}};
  }
  if (details) {
    mark.label = AisLabelText(t, s.AISListIndex);
    mark.labelAt = {mark.at.x + 8, mark.at.y + 6};
    mark.labelHeight = ScaledTextHeight(s.TextWaySize, view.markRadius, view.baseRadius);
  }
}

// The aid type a type 21 report carries in ShipType; -1 when it reads as
// no number.
int AidType(const std::string& shipType) {
  try {
    return std::stoi(shipType);
  } catch (...) {
    return -1;
  }
}

}  // namespace

AisDisplayList AisDisplay(const AisTargetTable& table, const SettingsRecord& s, bool gpsOn,
                          const AisDisplayView& view) {
  AisDisplayList list;
  // A vessel: a circle, or with DisplayAISAsBoat a boat outline along its
  // course that grows with the zoom.
  // The mark of target i at its screen point, or nothing when the point
  // is off the surface.
  auto markAt = [&](std::size_t i, const AISTarget& t, std::int32_t colour) -> std::optional<AisTargetMark> {
    const ScreenPoint at = view.toScreen(t.Lat, t.Long);
    if (!On(view, at)) return std::nullopt;
    AisTargetMark mark;
    mark.target = i;
    mark.at = at;
    mark.colour = colour;
    return mark;
  };
  auto vessel = [&](std::size_t i, const AISTarget& t, bool filled, std::int32_t colour, bool details) {
    std::optional<AisTargetMark> placed = markAt(i, t, colour);
    if (!placed) return;
    AisTargetMark& mark = *placed;
    mark.filled = filled;
    mark.lineWidth = s.AISLineWidth;
    mark.course = t.Course;
    if (s.DisplayAISAsBoat == 0) {
      mark.symbol = AisSymbol::Circle;
      mark.size = 5;
    } else {
      mark.symbol = AisSymbol::BoatOutline;
      mark.size = std::max(14, view.markRadius * 5);
    }
    AddExtras(mark, t, details, table.settings, s, view);
    list.marks.push_back(std::move(mark));
  };
  for (std::size_t i = 0; i < table.AISTargets.size(); ++i) {
    const AISTarget& t = table.AISTargets[i];
    const bool close = t.CPA >= 0 && gpsOn && t.CPA <= s.CPAAlarm;
    switch (t.MessageType) {
      case 1:
      case 2:
      case 3:
        if (close) {
          list.closeTargets.push_back(i);
          vessel(i, t, true, s.AISColour, true);
        } else if (t.Speed >= s.AISMinSpeed) {
          vessel(i, t, false, s.AISColour, t.ShowDetails != 0);
        }
        break;
      case 18:
        if (close) {
          list.closeTargets.push_back(i);
          vessel(i, t, true, s.AISColour2, true);
        } else {
          vessel(i, t, false, s.AISColour2, t.ShowDetails != 0);
        }
        break;
      case 9: {
        std::optional<AisTargetMark> placed = markAt(i, t, s.AISColour);
        if (!placed) break;
        AisTargetMark& mark = *placed;
        mark.symbol = AisSymbol::Aircraft;
        mark.lineWidth = s.AISLineWidth;
        mark.course = t.Course;
        mark.size = 8;
        AddExtras(mark, t, t.ShowDetails != 0, table.settings, s, view);
        list.marks.push_back(std::move(mark));
        break;
      }
      case 21: {
        std::optional<AisTargetMark> placed = markAt(i, t, kBandGrey);
        if (!placed) break;
        AisTargetMark& mark = *placed;
        mark.symbol = AisSymbol::AidMark;
        mark.lineWidth = 2;
        mark.size = std::max<int>(2, s.WaySize);
        mark.bands = SymbolBands(AidTypeSymbol(AidType(t.ShipType)));
        list.marks.push_back(std::move(mark));
        break;
      }
      default: break;
    }
  }
  return list;
}

}  // namespace kelvane
