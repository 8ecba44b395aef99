// frmEditPlot: the polar viewer with the table open for editing. The grid
// txtEditSpeed holds the column of the wind on show, one box per row of
// true wind angle; it is written back whole (cmdWriteColumn), set for
// every row from one speed (cmdChange1), changed one cell at a time
// (cmdChangeData2) or moved up or down by a step (cmdAdjust). Every write
// goes to Polars.mdb at once, all or nothing, and the pictures are drawn
// again from the file.
#pragma once

#include <QDialog>
#include <filesystem>
#include <string>
#include <vector>

#include "forms/formsupport.h"
#include "forms/polarplotpanel.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvane::forms {

class frmEditPlot : public QDialog {
  Q_OBJECT
 public:
  // setUpIndex: the set-up to show first (WindConfig.PolarSetUpIndex).
  frmEditPlot(const std::filesystem::path& dataRoot, int setUpIndex, QWidget* parent = nullptr);

  MessageSink showMessage;

  PolarPlotPanel* panel = nullptr;
  QLabel* lblInstruction = nullptr;
  QLabel* lblGrid = nullptr;
  std::vector<QLineEdit*> txtEditSpeed;  // one per row of the table, from 0
  QLineEdit* txtBoatSpeed1 = nullptr;
  QLineEdit* txtWindSpeed1 = nullptr;
  QPushButton* cmdChange1 = nullptr;
  QLineEdit* txtAngle = nullptr;
  QLineEdit* txtBoatSpeed2 = nullptr;
  QPushButton* cmdChangeData2 = nullptr;
  QLineEdit* txtAddSubtract = nullptr;
  QPushButton* cmdAdjust = nullptr;
  QPushButton* cmdWriteColumn = nullptr;
  QPushButton* cmdClose = nullptr;

  void cmdWriteColumn_Click();
  void cmdChange1_Click();
  void cmdChangeData2_Click();
  void cmdAdjust_Click();

 private:
  // Copies the column on show into the grid, making a box per row.
  void FillGrid();
  std::vector<std::string> GridTexts() const;
  // Reads the table again after a write, or tells the user why not.
  void Written(const std::string& error);

  QGridLayout* grid_ = nullptr;
  std::vector<QLabel*> gridAngles_;
};

}  // namespace kelvane::forms
