#include "forms/frmViewWind.h"

#include <string>
#include <vector>

#include "forms/windlists.h"
#include "wind/windstore.h"

namespace kelvane::forms {

frmViewWind::frmViewWind(const std::filesystem::path& gribPoints, QWidget* parent) : QDialog(parent) {
  setObjectName("frmViewWind");
  std::vector<std::string> lines;
  for (const GribPoint& point : ReadGribPoints(gribPoints)) lines.push_back(GribPointLine(point));
  const WindListParts parts = BuildWindList(this, gribPoints, lines);
  List1 = parts.List1;
  lblEmpty = parts.lblEmpty;
  cmdOK = parts.cmdOK;
}

}  // namespace kelvane::forms
