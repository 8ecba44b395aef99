#include "routes/waypointfiles.h"

#include <system_error>

#include "core/text.h"

namespace kelvane {

WayFileName CheckWayFileName(const std::filesystem::path& folder, std::string_view typed,
                             std::string_view missingMessage) {
  WayFileName out;
  const std::string name = TrimBlanks(typed);
  if (name.empty()) {
    out.message = missingMessage;
    return out;
  }
  if (name.find_first_of("/\\:*?\"<>|") != std::string::npos || name == "." || name == ".." ||
      name.find_first_of("\r\n") != std::string::npos) {
    out.message = kBadWayFileName;
    return out;
  }
  std::filesystem::path file = folder / name;
  if (!file.has_extension()) file += ".gpx";
  out.file = file;
  std::error_code ec;
  out.exists = std::filesystem::exists(file, ec);
  return out;
}

}  // namespace kelvane
