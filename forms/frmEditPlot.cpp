#include "forms/frmEditPlot.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/format.h"
#include "forms/messages.h"
#include "store/polars.h"
#include "wind/polarplot.h"

namespace kelvane::forms {

namespace {
// The grid's rows are laid out in columns of this many boxes.
constexpr int kGridRowsPerColumn = 11;
// A full table: 30 to 180 degrees by 5.
constexpr int kPolarRowsShown = 31;

QLineEdit* Entry(QWidget* parent, const char* name, int width) {
  auto* e = new QLineEdit(parent);
  e->setObjectName(name);
  e->setFixedWidth(width);
  return e;
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
  auto* b = new QPushButton(caption, parent);
  b->setObjectName(name);
  b->setAutoDefault(false);
  return b;
}
}  // namespace

frmEditPlot::frmEditPlot(const std::filesystem::path& dataRoot, int setUpIndex, QWidget* parent) : QDialog(parent) {
  setObjectName("frmEditPlot");
  setWindowTitle("Edit Polars");
  showMessage = DefaultMessageSink(this);
  panel = new PolarPlotPanel(dataRoot, setUpIndex, this);

  // The grid of the column on show.
  auto* gridBox = new QGroupBox(this);
  grid_ = new QGridLayout;
  grid_->setHorizontalSpacing(6);
  grid_->setVerticalSpacing(2);
  // The angles stand beside their boxes; the spare width goes to the right.
  grid_->setColumnStretch(2 * ((kPolarRowsShown + kGridRowsPerColumn - 1) / kGridRowsPerColumn), 1);
  lblGrid = new QLabel(gridBox);
  lblGrid->setObjectName("lblGrid");
  auto* gridLayout = new QVBoxLayout(gridBox);
  gridLayout->addWidget(lblGrid);
  gridLayout->addLayout(grid_);
  gridLayout->addStretch(1);
  cmdWriteColumn = Button(gridBox, "cmdWriteColumn", "Save Column");
  gridLayout->addWidget(cmdWriteColumn, 0, Qt::AlignLeft);

  lblInstruction = new QLabel(kEditInstruction, this);
  lblInstruction->setObjectName("lblInstruction");
  lblInstruction->setWordWrap(true);

  auto* whole = new QGroupBox("Whole Wind Speed Column", this);
  auto* wholeLayout = new QGridLayout(whole);
  txtBoatSpeed1 = Entry(whole, "txtBoatSpeed1", 70);
  txtWindSpeed1 = Entry(whole, "txtWindSpeed1", 70);
  cmdChange1 = Button(whole, "cmdChange1", "Change");
  wholeLayout->addWidget(new QLabel("Boat Speed (kn)", whole), 0, 0);
  wholeLayout->addWidget(txtBoatSpeed1, 0, 1);
  wholeLayout->addWidget(new QLabel("Wind Speed (kn)", whole), 1, 0);
  wholeLayout->addWidget(txtWindSpeed1, 1, 1);
  wholeLayout->addWidget(cmdChange1, 1, 2);

  auto* cell = new QGroupBox("One Wind Angle", this);
  auto* cellLayout = new QGridLayout(cell);
  txtAngle = Entry(cell, "txtAngle", 70);
  txtBoatSpeed2 = Entry(cell, "txtBoatSpeed2", 70);
  cmdChangeData2 = Button(cell, "cmdChangeData2", "Change Data");
  cellLayout->addWidget(new QLabel("True Wind Angle (°)", cell), 0, 0);
  cellLayout->addWidget(txtAngle, 0, 1);
  cellLayout->addWidget(new QLabel("Boat Speed (kn)", cell), 1, 0);
  cellLayout->addWidget(txtBoatSpeed2, 1, 1);
  cellLayout->addWidget(cmdChangeData2, 1, 2);

  auto* adjust = new QGroupBox("Add or Subtract", this);
  auto* adjustLayout = new QGridLayout(adjust);
  txtAddSubtract = Entry(adjust, "txtAddSubtract", 70);
  cmdAdjust = Button(adjust, "cmdAdjust", "Adjust");
  adjustLayout->addWidget(new QLabel("Knots (+/-)", adjust), 0, 0);
  adjustLayout->addWidget(txtAddSubtract, 0, 1);
  adjustLayout->addWidget(cmdAdjust, 0, 2);

  cmdClose = Button(this, "cmdClose", "Close");
  auto* controls = new QVBoxLayout;
  controls->addWidget(lblInstruction);
  controls->addWidget(cell);
  controls->addWidget(whole);
  controls->addWidget(adjust);
  controls->addStretch(1);
  controls->addWidget(cmdClose, 0, Qt::AlignRight);

  auto* editing = new QHBoxLayout;
  editing->addWidget(gridBox, 1);
  editing->addLayout(controls, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(panel, 1);
  layout->addLayout(editing);

  connect(cmdWriteColumn, &QPushButton::clicked, this, &frmEditPlot::cmdWriteColumn_Click);
  connect(cmdChange1, &QPushButton::clicked, this, &frmEditPlot::cmdChange1_Click);
  connect(cmdChangeData2, &QPushButton::clicked, this, &frmEditPlot::cmdChangeData2_Click);
  connect(cmdAdjust, &QPushButton::clicked, this, &frmEditPlot::cmdAdjust_Click);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  panel->columnChanged = [this] { FillGrid(); };
  // A click on the polar picture puts its row into the one-cell entries.
  panel->rowClicked = [this](int row) {
    const PolarRow& r = panel->Table().rows[static_cast<std::size_t>(row)];
    txtAngle->setText(ToQString(r.windangle.value_or("")));
    txtBoatSpeed2->setText(ToQString(r.speeds[static_cast<std::size_t>(panel->WindOption())].value_or("")));
    if (static_cast<std::size_t>(row) < txtEditSpeed.size()) txtEditSpeed[static_cast<std::size_t>(row)]->setFocus();
  };
  FillGrid();
  resize(1180, 860);
}

void frmEditPlot::FillGrid() {
  const PolarTable& table = panel->Table();
  const std::size_t rows = panel->HasSetUp() ? table.rows.size() : 0;
  while (txtEditSpeed.size() > rows) {
    delete txtEditSpeed.back();
    delete gridAngles_.back();
    txtEditSpeed.pop_back();
    gridAngles_.pop_back();
  }
  while (txtEditSpeed.size() < rows) {
    const int i = static_cast<int>(txtEditSpeed.size());
    auto* angle = new QLabel(this);
    angle->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    angle->setMinimumWidth(64);
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString("txtEditSpeed(%1)").arg(i));
    edit->setFixedWidth(56);
    grid_->addWidget(angle, i % kGridRowsPerColumn, 2 * (i / kGridRowsPerColumn));
    grid_->addWidget(edit, i % kGridRowsPerColumn, 2 * (i / kGridRowsPerColumn) + 1);
    gridAngles_.push_back(angle);
    txtEditSpeed.push_back(edit);
  }
  const std::size_t column = static_cast<std::size_t>(panel->WindOption());
  for (std::size_t i = 0; i < rows; ++i) {
    gridAngles_[i]->setText(ToQString(table.rows[i].windangle.value_or("?") + "°"));
    txtEditSpeed[i]->setText(ToQString(table.rows[i].speeds[column].value_or("")));
  }
  lblGrid->setText(rows == 0 ? QString()
                             : ToQString("Boat Speed (kn) at " + SpeedLabel(WindOfOption(panel->WindOption())) +
                                         " True Wind, " + panel->SetUpName()));
}

std::vector<std::string> frmEditPlot::GridTexts() const {
  std::vector<std::string> texts;
  for (const QLineEdit* e : txtEditSpeed) texts.push_back(FromQString(e->text()));
  return texts;
}

void frmEditPlot::Written(const std::string& error) {
  if (!error.empty()) {
    showMessage(error);
    return;
  }
  panel->Reload();
}

void frmEditPlot::cmdWriteColumn_Click() {
  if (!panel->HasSetUp()) return showMessage(kSelectASetUp);
  const EditColumnCheck check = CheckEditColumn(GridTexts());
  if (!check.message.empty()) return showMessage(check.message);
  Written(WritePolarColumn(panel->File(), panel->SetUpName(), static_cast<std::size_t>(panel->WindOption()),
                           check.speeds));
}

void frmEditPlot::cmdChange1_Click() {
  if (!panel->HasSetUp()) return showMessage(kSelectASetUp);
  const ColumnFill fill = CheckChange1(FromQString(txtBoatSpeed1->text()), FromQString(txtWindSpeed1->text()));
  if (!fill.message.empty()) return showMessage(fill.message);
  const std::vector<double> speeds(panel->Table().rows.size(), fill.speed);
  const std::string error = WritePolarColumn(panel->File(), panel->SetUpName(), fill.column, speeds);
  if (!error.empty()) return showMessage(error);
  // Show the column just written.
  panel->SelectWind(static_cast<int>(fill.column));
  panel->Reload();
}

void frmEditPlot::cmdChangeData2_Click() {
  if (!panel->HasSetUp()) return showMessage(kSelectASetUp);
  const CellChange change = CheckChangeData2(panel->Table(), panel->WindOption(), FromQString(txtAngle->text()),
                                             FromQString(txtBoatSpeed2->text()));
  if (!change.message.empty()) return showMessage(change.message);
  const std::string error = WritePolarCell(panel->File(), panel->SetUpName(), change.row, change.column, change.speed);
  if (!error.empty()) return showMessage(error);
  panel->Reload();
  panel->ShowRow(static_cast<int>(change.row));
}

void frmEditPlot::cmdAdjust_Click() {
  const GridAdjust adjust = AdjustEditColumn(GridTexts(), FromQString(txtAddSubtract->text()));
  for (std::size_t i = 0; i < adjust.texts.size() && i < txtEditSpeed.size(); ++i)
    txtEditSpeed[i]->setText(ToQString(adjust.texts[i]));
  if (!adjust.message.empty()) showMessage(adjust.message);
}

}  // namespace kelvane::forms
