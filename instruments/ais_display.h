// What the chart shows of the AIS targets at one paint, decided apart from
// any drawing device: which targets are on the surface, the symbol of each
// and its colour and fill, its history trail, predicted track, heading
// vector and label, and which close targets the pass switches to show
// their details. The chart's paint only draws the list it is given, and
// sets the details switches it is told to.
//
// Screen points are pixels of the drawing surface (chart/overlaygeometry.h);
// colours are packed RGB with red in the low byte (core/settings.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/overlaygeometry.h"
#include "core/settings.h"
#include "instruments/ais_targets.h"

namespace kelvane {

// The chart's mapping of positions to the surface at this paint.
struct AisDisplayView {
  std::function<ScreenPoint(float lat, float lon)> toScreen;
  // Nautical miles to screen pixels at a latitude.
  std::function<double(float lat, float miles)> milesToPixels;
  int surfaceWidth = 0, surfaceHeight = 0;
  int markRadius = 0;  // MarkRadius at this zoom
  int baseRadius = 0;  // the radius with the whole chart on show
};

enum class AisSymbol {
  Circle,       // a vessel as a circle of `size` pixels radius
  BoatOutline,  // a vessel as a boat `size` pixels long along its course, a circle of 4 at the position
  Aircraft,     // a search and rescue aircraft: fuselage and wings `size` pixels either side
  AidMark,      // an aid to navigation: a waypoint symbol mark of `size` in its colour bands
};

// One step of a trail, from the point before (the target itself for the
// first) to the next sample. The line shows when either end is on the
// surface; the tick (a circle of 2 pixels) only where the end is.
struct AisTrailStep {
  ScreenPoint from, to;
  bool line = false;
  bool tick = false;
};

struct AisSegment {
  ScreenPoint from, to;
};

struct AisTargetMark {
  std::size_t target = 0;  // index in AISTargets
  AisSymbol symbol = AisSymbol::Circle;
  ScreenPoint at;
  std::int32_t colour = 0;  // pen and fill; an aid mark's plain colour
  bool filled = false;      // a vessel closing within the alarm is drawn solid
  int lineWidth = 1;        // the symbol's pen
  float course = 0;         // the outline's and the aircraft's heading, degrees true
  double size = 0;
  std::vector<std::int32_t> bands;  // an aid mark's colour bands, top first

  // The target's extras, each under its own switch, in the colour above
  // with a pen of one pixel: the history trail dashed through the six
  // samples, the predicted track through the six dead-reckoned points
  // with a tick at each, the heading vector.
  std::vector<AisTrailStep> history;
  std::vector<AisTrailStep> predicted;
  std::optional<AisSegment> heading;
  std::string label;  // empty: no label
  ScreenPoint labelAt;  // top-left corner of the label
  int labelHeight = 0;  // pixels of the label's "Arial"
};

struct AisDisplayList {
  std::vector<AisTargetMark> marks;  // in table order; their count is the targets drawn
  // Targets closing within the alarm, on the surface or not: their
  // ShowDetails is to be set to -1 so that they keep showing their details.
  std::vector<std::size_t> closeTargets;
};

// The AIS pass, target by target in table order, by message type:
// 1, 2, 3 (class A) in AISColour: closing within CPAAlarm (CPA 0 or more,
// GPS attached) a filled symbol with its details; otherwise hollow, and
// only at AISMinSpeed or more. 18 (class B) in AISColour2: the same, with
// no minimum speed. 9: an aircraft in AISColour. 21: an aid to navigation,
// the waypoint mark of its aid type (ShipType, 0 to 31; unreadable counts
// as none) with grey for the plain types; an aid has no extras. Other
// types are not drawn.
AisDisplayList AisDisplay(const AisTargetTable& table, const SettingsRecord& settings, bool gpsOn,
                          const AisDisplayView& view);

}  // namespace kelvane
