// The file list shared by the file dialogs: the names of the files of one
// folder with the given extension, sorted, in a list widget.
#pragma once

#include <QListWidget>
#include <filesystem>
#include <string>

namespace kelvane::forms {

void FillFileList(QListWidget* list, const std::filesystem::path& folder, const std::string& extension);

}  // namespace kelvane::forms
