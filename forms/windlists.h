// The two lists of the wind store (frmViewWind, frmViewSmartMet): one
// tab-separated line per record, under the file's name as the caption, with
// a line of its own when nothing has been imported yet.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

class QDialog;
class QLabel;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

// "No imported wind yet ...": the file is missing or holds no record.
extern const char* const kNoImportedWind;

struct WindListParts {
  QListWidget* List1 = nullptr;
  QLabel* lblEmpty = nullptr;  // shown only when the list is empty
  QPushButton* cmdOK = nullptr;
};

// Lays out the dialog: a heading line, the list filled in one pass (a store
// of many thousand points comes up at once), the empty line, and cmdOK,
// which closes it. The caption is the file's name.
WindListParts BuildWindList(QDialog* dialog, const std::filesystem::path& file, const std::vector<std::string>& lines);

}  // namespace kelvane::forms
