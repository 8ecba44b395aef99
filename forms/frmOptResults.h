// frmOptResults: the departure sweep as a graph and a table. pctResults
// draws time taken against the hour of departure; lstResults holds a line
// an hour. A click on a row marks its hour on the graph, and the mouse over
// the graph picks the row of the nearest hour. The table's pop-up shows the
// courses to steer of the row's departure (true bearings, as the sweep
// keeps them). The report can be copied whole or by the selected rows, the
// graph copied as a picture, both printed, and the older text-only list
// (frmRouteOptimiseResults) opened.
#pragma once

#include <QDialog>
#include <QWidget>
#include <string>
#include <vector>

#include "forms/departuregraph.h"
#include "passage/departuresweep.h"

class QAction;
class QLabel;
class QListWidget;
class QMenu;

namespace kelvane::forms {

// The graph's surface: paints the sweep and reports the row under the mouse.
class DepartureGraphView : public QWidget {
  Q_OBJECT
 public:
  explicit DepartureGraphView(QWidget* parent);
  std::vector<DepartureGraphPoint> points;
  int marked = -1;
 signals:
  void rowPicked(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
};

class frmOptResults : public QDialog {
  Q_OBJECT
 public:
  // `report` is the sweep's report (ResultText), kept for the copy, the
  // print and the text-only list.
  frmOptResults(std::vector<OptRow> rows, std::vector<std::string> rowLines, std::vector<std::string> report,
                QWidget* parent = nullptr);

  // A click on a row of the table: its hour is marked on the graph.
  void lstResults_Click(int row);
  int MarkedRow() const { return pctResults->marked; }
  // What the copies put on the clipboard.
  std::vector<std::string> AllLines() const { return report_; }
  std::vector<std::string> SelectedLines() const;
  // The pop-up's lines for the selected row (empty with none).
  std::vector<std::string> PopUpLines() const;
  const std::vector<OptRow>& Rows() const { return rows_; }

  DepartureGraphView* pctResults = nullptr;
  QListWidget* lstResults = nullptr;
  QLabel* lblHeader = nullptr;
  QAction* mnuCopyAll = nullptr;
  QAction* mnuCopySelected = nullptr;
  QAction* mnuEditCopyGraph = nullptr;
  QAction* mnuGraphCopy = nullptr;  // the graph's own pop-up
  QAction* mnuPrint = nullptr;
  QAction* mnuTextList = nullptr;   // the text-only list
  QMenu* mnuPopUpCTS = nullptr;     // the table's pop-up: courses to steer
  QAction* mnuPopUpCopyAsText = nullptr;

 private:
  void CopyGraph();
  void Print();
  void FillPopUp();

  std::vector<OptRow> rows_;
  std::vector<std::string> rowLines_;
  std::vector<std::string> report_;
};

}  // namespace kelvane::forms
