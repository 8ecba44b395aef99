// The steps of start-up that belong to subsystems other than the core, as
// one set shared by kelvane-cli init and the main window, so that both lay
// out the tree and write the same files.
#pragma once

#include "core/datatree.h"
#include "routes/samplewaypoints.h"

namespace kelvane {

inline StartupHooks ProgramStartupHooks() {
  StartupHooks hooks;
  hooks.writeSampleWaypoints = [](const Folders& folders) { WriteSampleWaypoints(folders); };
  return hooks;
}

}  // namespace kelvane
