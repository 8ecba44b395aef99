// frmAISSummary: one line per AIS target, taken from the table when the
// form loads (a snapshot: the table moves on without it). Choosing a line
// opens its details.
#pragma once

#include <QDialog>
#include <vector>

#include "instruments/ais_targets.h"
#include "instruments/ownship.h"

class QListWidget;

namespace kelvane::forms {

class FrmAISSummary : public QDialog {
  Q_OBJECT
 public:
  FrmAISSummary(const AisTargetTable& table, const OwnShipState& own, float nowHours, QWidget* parent = nullptr);

  int LineCount() const;
  std::string LineText(int row) const;
  // The detail lines of the target on a row.
  std::vector<std::string> DetailsOf(int row) const;

 signals:
  // Mark: the user asked for the chosen target to be marked on the chart.
  void MarkPosition(std::int32_t mmsi, float lat, float lon);
  // Clear Mark: the chart's mark of a target goes.
  void ClearMark();

 private:
  void Fill();
  void lstAISTargets_Click();
 public:
  void cmdMarkAISPt_Click();
  void SelectRow(int row);

 private:
  std::vector<AISTarget> targets_;
  OwnShipState own_;
  float now_;
  QListWidget* lstAISTargets_;
};

}  // namespace kelvane::forms
