#include "forms/frmAISSummary.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/frmAisDetails.h"
#include "forms/messages.h"
#include "instruments/ais_report.h"

namespace kelvane::forms {

FrmAISSummary::FrmAISSummary(const AisTargetTable& table, const OwnShipState& own, float nowHours, QWidget* parent)
    : QDialog(parent), targets_(table.AISTargets), own_(own), now_(nowHours) {
  setObjectName("frmAISSummary");
  setWindowTitle("AIS Targets");
  auto* outer = new QVBoxLayout(this);
  lstAISTargets_ = new QListWidget(this);
  lstAISTargets_->setObjectName("lstAISTargets");
  outer->addWidget(lstAISTargets_);
  auto* row = new QHBoxLayout;
  auto button = [&](const char* name, const char* caption) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    row->addWidget(b);
    return b;
  };
  QPushButton* details = button("Command1", "Details");
  QPushButton* mark = button("cmdMarkAISPt", "Mark Position");
  QPushButton* clear = button("cmdClear", "Clear Mark");
  QPushButton* close = button("Command2", "Close");
  outer->addLayout(row);
  connect(lstAISTargets_, &QListWidget::itemDoubleClicked, this, &FrmAISSummary::lstAISTargets_Click);
  connect(details, &QPushButton::clicked, this, &FrmAISSummary::lstAISTargets_Click);
  connect(mark, &QPushButton::clicked, this, &FrmAISSummary::cmdMarkAISPt_Click);
  connect(clear, &QPushButton::clicked, this, &FrmAISSummary::ClearMark);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  Fill();
}

void FrmAISSummary::Fill() {
  lstAISTargets_->clear();
  for (const AISTarget& t : targets_) lstAISTargets_->addItem(ToQString(AisSummaryLine(t, own_, now_)));
}

void FrmAISSummary::cmdMarkAISPt_Click() {
  const int r = lstAISTargets_->currentRow();
  if (r < 0 || r >= static_cast<int>(targets_.size())) return;
  const AISTarget& t = targets_[static_cast<std::size_t>(r)];
  emit MarkPosition(t.MMSI, t.Lat, t.Long);
}

void FrmAISSummary::SelectRow(int row) { lstAISTargets_->setCurrentRow(row); }

int FrmAISSummary::LineCount() const { return lstAISTargets_->count(); }
std::string FrmAISSummary::LineText(int row) const { return FromQString(lstAISTargets_->item(row)->text()); }

std::vector<std::string> FrmAISSummary::DetailsOf(int row) const {
  if (row < 0 || row >= static_cast<int>(targets_.size())) return {};
  return AisDetailsLines(targets_[static_cast<std::size_t>(row)], now_);
}

void FrmAISSummary::lstAISTargets_Click() {
  std::vector<std::string> lines = DetailsOf(lstAISTargets_->currentRow());
  if (lines.empty()) return;
  FrmAisDetails details(lines, this);
  details.exec();
}

}  // namespace kelvane::forms
