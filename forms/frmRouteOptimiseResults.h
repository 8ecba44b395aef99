// frmRouteOptimiseResults: the departure sweep's report as plain text, the
// older form of the results; it prints under the heading "Optimise route
// departure Time".
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QPlainTextEdit;
class QPushButton;

namespace kelvane::forms {

class frmRouteOptimiseResults : public QDialog {
  Q_OBJECT
 public:
  frmRouteOptimiseResults(std::vector<std::string> report, QWidget* parent = nullptr);
  // What the printer gets: the heading, a blank, the report.
  std::vector<std::string> PrintedLines() const;

  QPlainTextEdit* txtResults = nullptr;
  QPushButton* cmdCopy = nullptr;
  QPushButton* cmdPrint = nullptr;
  QPushButton* cmdOK = nullptr;

 private:
  std::vector<std::string> report_;
};

}  // namespace kelvane::forms
