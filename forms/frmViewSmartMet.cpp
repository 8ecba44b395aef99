#include "forms/frmViewSmartMet.h"

#include <string>
#include <vector>

#include "forms/windlists.h"
#include "wind/windstore.h"

namespace kelvane::forms {

frmViewSmartMet::frmViewSmartMet(const std::filesystem::path& windStore, QWidget* parent) : QDialog(parent) {
  setObjectName("frmViewSmartMet");
  const std::vector<WindRecord> records = ReadWindStore(windStore);
  std::vector<std::string> lines;
  // Record 1 is the store's header, not a wind.
  for (std::size_t n = 1; n < records.size(); ++n) lines.push_back(WindRecordLine(records[n]));
  const WindListParts parts = BuildWindList(this, windStore, lines);
  List1 = parts.List1;
  lblEmpty = parts.lblEmpty;
  cmdOK = parts.cmdOK;
}

}  // namespace kelvane::forms
