#include "forms/filelist.h"

#include <algorithm>
#include <vector>

#include "core/text.h"
#include "forms/messages.h"

namespace kelvane::forms {

void FillFileList(QListWidget* list, const std::filesystem::path& folder, const std::string& extension) {
  list->clear();
  std::vector<std::string> names;
  std::error_code ec;
  for (auto it = std::filesystem::directory_iterator(folder, ec); !ec && it != std::filesystem::directory_iterator();
       it.increment(ec)) {
    const std::string ext = ToLower(it->path().extension().string());
    if (it->is_regular_file() && ext == extension) names.push_back(it->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  for (const std::string& n : names) list->addItem(ToQString(n));
}

}  // namespace kelvane::forms
