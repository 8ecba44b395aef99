// Messages to the user: a modal box titled with the program's name.
#pragma once

#include <QString>
#include <string>

class QWidget;

namespace kelvane::forms {

inline constexpr const char* kProgramName = "Kelvane";

// A modal information box titled "Kelvane".
void ShowMessage(QWidget* parent, const std::string& text);
// A modal Yes/No question titled "Kelvane"; true for Yes.
bool AskYesNo(QWidget* parent, const std::string& text);

QString ToQString(const std::string& text);
std::string FromQString(const QString& text);

}  // namespace kelvane::forms
