// What the passage commands share: the program state for a moment, a route
// read from a GPX file onto the chart's route, and the texts of a leg speed
// and a variation as the command line gives them.
#pragma once

#include <optional>
#include <string>

#include "cli/registry.h"
#include "core/timetext.h"
#include "state/programstate.h"
#include "state/settingsroad.h"

namespace kelvane::cli {

// The state a command works from: the user's settings of the data tree,
// as the window holds them, and the moment given.
ProgramState MomentState(const Context& cli, const SettingsInUse& settings, const TypedMoment& at, bool summer);

// The leg speed a route point carries: a `desc` that is a number, with or
// without "kn" or "kt" after it. Anything else carries none.
std::optional<float> PointSpeed(const std::string& desc);

// "2W" is -2, "3.5E" or "3.5" is 3.5.
float VariationValue(const std::string& text);

// The route `name` of a GPX file (the first when empty) as the route of
// `passage`: names, positions and their texts, and each point's speed from
// its `desc` or else `speed`. Says on standard error why not and returns
// false when the file cannot be read or holds no such route.
bool LoadGpxRoute(const std::string& file, const std::string& name, float speed, PassageState& passage);

}  // namespace kelvane::cli
