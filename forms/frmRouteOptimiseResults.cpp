#include "forms/frmRouteOptimiseResults.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/reportlines.h"

namespace kelvane::forms {

frmRouteOptimiseResults::frmRouteOptimiseResults(std::vector<std::string> report, QWidget* parent)
    : QDialog(parent), report_(std::move(report)) {
  setObjectName("frmRouteOptimiseResults");
  setWindowTitle("Optimise route departure Time");
  txtResults = MakeReportBox(this, "txtResults");
  ShowLines(txtResults, report_);
  cmdCopy = new QPushButton("Copy", this);
  cmdCopy->setObjectName("cmdCopy");
  cmdPrint = new QPushButton("Print", this);
  cmdPrint->setObjectName("cmdPrint");
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdCopy);
  buttons->addWidget(cmdPrint);
  buttons->addStretch(1);
  buttons->addWidget(cmdOK);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtResults, 1);
  layout->addLayout(buttons);
  connect(cmdCopy, &QPushButton::clicked, this, [this] { CopyLines(report_); });
  connect(cmdPrint, &QPushButton::clicked, this, [this] { PrintLines(this, PrintedLines()); });
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

std::vector<std::string> frmRouteOptimiseResults::PrintedLines() const {
  std::vector<std::string> lines{"Optimise route departure Time", ""};
  lines.insert(lines.end(), report_.begin(), report_.end());
  return lines;
}

}  // namespace kelvane::forms
