// The report boxes of the route forms: lines of text shown in a read-only
// box with tab stops, copied to the clipboard and printed.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <vector>

class QWidget;

namespace kelvane::forms {

// A read-only box for report lines, with tab stops wide enough for the
// report's columns.
QPlainTextEdit* MakeReportBox(QWidget* parent, const char* objectName);
void ShowLines(QPlainTextEdit* box, const std::vector<std::string>& lines);
// The lines as the box shows them, one element a line.
std::vector<std::string> BoxLines(const QPlainTextEdit* box);
// The lines joined by newlines onto the clipboard.
void CopyLines(const std::vector<std::string>& lines);
// The printer dialog, then the lines on paper.
void PrintLines(QWidget* parent, const std::vector<std::string>& lines);

}  // namespace kelvane::forms
