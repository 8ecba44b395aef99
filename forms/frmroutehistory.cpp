#include "forms/frmroutehistory.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/reportlines.h"

namespace kelvane::forms {

frmroutehistory::frmroutehistory(const PassageState& passage, QWidget* parent) : QDialog(parent) {
  setObjectName("frmroutehistory");
  setWindowTitle("Last Route Results");
  txtSummary = MakeReportBox(this, "txtSummary");
  txtSummary->setMinimumHeight(100);
  txtSummary->setMaximumHeight(120);
  txtResults = MakeReportBox(this, "txtResults");
  cmdClipboardCopy = new QPushButton("Copy", this);
  cmdClipboardCopy->setObjectName("cmdClipboardCopy");
  cmdPrint = new QPushButton("Print", this);
  cmdPrint->setObjectName("cmdPrint");
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdClipboardCopy);
  buttons->addWidget(cmdPrint);
  buttons->addStretch(1);
  buttons->addWidget(cmdOK);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtSummary);
  layout->addWidget(txtResults, 1);
  layout->addLayout(buttons);

  ShowLines(txtSummary, passage.SummaryText);
  const std::vector<std::string> lines = passage.ResultText;
  ShowLines(txtResults, lines);
  connect(cmdClipboardCopy, &QPushButton::clicked, this, [lines] { CopyLines(lines); });
  connect(cmdPrint, &QPushButton::clicked, this, [this, lines] { PrintLines(this, lines); });
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace kelvane::forms
