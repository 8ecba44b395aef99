// The toolkit-free build: no pages to paint.
#include "cli/planpdf.h"

namespace kelvane::cli {

std::string WritePlanPdf(const ProgramState&, const PassagePlan&, std::string_view, const std::filesystem::path&) {
  return "PDF output needs the toolkit build of kelvane-cli; without --pdf the plan is printed as text.";
}

}  // namespace kelvane::cli
