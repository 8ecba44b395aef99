// The PDF of `kelvane-cli plan --pdf`. The pages are the window's own
// passage plan (app/passageplanpdf.h), so the command's file and the
// window's are one; they need the toolkit, so a build without it has only
// the message saying so (cli/planpdf_none.cpp) and prints the plan as text.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "passage/passageplan.h"
#include "state/programstate.h"

namespace kelvane::cli {

// Writes the plan of the route calculated in `state`, with the picture of
// the area's chart, to `file`. "" or the message.
std::string WritePlanPdf(const ProgramState& state, const PassagePlan& plan, std::string_view area,
                         const std::filesystem::path& file);

}  // namespace kelvane::cli
