#include "forms/frmresults.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "forms/messages.h"
#include "forms/reportlines.h"
#include "passage/routecalc.h"

namespace kelvane::forms {

frmresults::frmresults(const PassageState& passage, QWidget* parent) : QDialog(parent), passage_(passage) {
  setObjectName("frmresults");
  setWindowTitle("Route Results");
  txtResults = MakeReportBox(this, "txtResults");
  grdTidalDetails = new QTableWidget(this);
  grdTidalDetails->setObjectName("grdTidalDetails");
  grdTidalDetails->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grdTidalDetails->verticalHeader()->setVisible(false);
  grdTidalDetails->verticalHeader()->setDefaultSectionSize(grdTidalDetails->fontMetrics().height() + 6);
  grdTidalDetails->setMinimumSize(560, 360);
  optSummary = new QRadioButton("Summary", this);
  optSummary->setObjectName("optSummary");
  optSummary->setChecked(true);
  optTidalDetails = new QRadioButton("Tidal Details", this);
  optTidalDetails->setObjectName("optTidalDetails");
  chKTidalStreams = new QCheckBox("Show Tidal Stream ID", this);
  chKTidalStreams->setObjectName("chKTidalStreams");
  chkDisplayAll = new QCheckBox("Display All", this);
  chkDisplayAll->setObjectName("chkDisplayAll");
  cmdClipboardCopy = new QPushButton("Copy", this);
  cmdClipboardCopy->setObjectName("cmdClipboardCopy");
  cmdresultsprint = new QPushButton("Print", this);
  cmdresultsprint->setObjectName("cmdresultsprint");
  cmdPassagePlan = new QPushButton("Passage Plan...", this);
  cmdPassagePlan->setObjectName("cmdPassagePlan");
  cmdresultsok = new QPushButton("OK", this);
  cmdresultsok->setObjectName("cmdresultsok");

  auto* options = new QHBoxLayout;
  for (QWidget* w : {static_cast<QWidget*>(optSummary), static_cast<QWidget*>(optTidalDetails),
                     static_cast<QWidget*>(chKTidalStreams), static_cast<QWidget*>(chkDisplayAll)})
    options->addWidget(w);
  options->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdClipboardCopy);
  buttons->addWidget(cmdresultsprint);
  buttons->addWidget(cmdPassagePlan);
  buttons->addStretch(1);
  buttons->addWidget(cmdresultsok);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(options);
  layout->addWidget(txtResults, 1);
  layout->addWidget(grdTidalDetails, 1);
  layout->addLayout(buttons);

  for (QAbstractButton* b : {static_cast<QAbstractButton*>(optSummary), static_cast<QAbstractButton*>(optTidalDetails),
                             static_cast<QAbstractButton*>(chKTidalStreams), static_cast<QAbstractButton*>(chkDisplayAll)})
    connect(b, &QAbstractButton::toggled, this, &frmresults::Refresh);
  connect(cmdClipboardCopy, &QPushButton::clicked, this, [this] { CopyLines(ShownLines()); });
  connect(cmdresultsprint, &QPushButton::clicked, this, [this] { PrintLines(this, ShownLines()); });
  connect(cmdPassagePlan, &QPushButton::clicked, this, [this] {
    if (onPassagePlan) onPassagePlan();
  });
  connect(cmdresultsok, &QPushButton::clicked, this, &QDialog::accept);
  connect(this, &QDialog::finished, this, [this] {
    if (onClose) onClose();
  });
  Refresh();
}

void frmresults::Refresh() {
  const bool details = optTidalDetails->isChecked();
  txtResults->setVisible(!details);
  grdTidalDetails->setVisible(details);
  if (!details) {
    ShowLines(txtResults, passage_.ResultText);
    return;
  }
  detailLines_ = TidalDetailsLines(passage_, chKTidalStreams->isChecked(), chkDisplayAll->isChecked());
  const QStringList header = ToQString(detailLines_.front()).split('\t');
  grdTidalDetails->clear();
  grdTidalDetails->setColumnCount(static_cast<int>(header.size()));
  grdTidalDetails->setHorizontalHeaderLabels(header);
  grdTidalDetails->setRowCount(static_cast<int>(detailLines_.size()) - 1);
  for (std::size_t r = 1; r < detailLines_.size(); ++r) {
    const QStringList fields = ToQString(detailLines_[r]).split('\t');
    for (int c = 0; c < fields.size() && c < header.size(); ++c)
      grdTidalDetails->setItem(static_cast<int>(r) - 1, c, new QTableWidgetItem(fields[c]));
  }
  grdTidalDetails->resizeColumnsToContents();
}

std::vector<std::string> frmresults::ShownLines() const {
  if (optTidalDetails->isChecked()) return detailLines_;
  return passage_.ResultText;
}

}  // namespace kelvane::forms
