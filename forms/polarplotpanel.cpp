#include "forms/polarplotpanel.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cmath>

#include "core/format.h"
#include "forms/messages.h"
#include "wind/polars.h"

namespace kelvane::forms {

namespace {
// The wind shown when the form opens: 12 knots, a working breeze.
constexpr int kFirstWindOption = 6;
// The row shown in the second picture when the form opens: the beam reach.
constexpr float kFirstRowAngle = 90.0f;
}  // namespace

PolarPlotPanel::PolarPlotPanel(const std::filesystem::path& dataRoot, int setUpIndex, QWidget* parent)
    : QWidget(parent), file_(PolarDatabasePath(dataRoot)) {
  setObjectName("PolarPlotPanel");
  lstSetUps = new QListWidget(this);
  lstSetUps->setObjectName("lstSetUps");
  lstSetUps->setMaximumHeight(110);
  lstSetUps->setWordWrap(true);
  lstSetUps->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

  auto* winds = new QGroupBox("True Wind Speed", this);
  auto* windGrid = new QGridLayout(winds);
  auto* group = new QButtonGroup(this);
  for (int i = 1; i <= kWindPlotOptions; ++i) {
    optWindPlot[static_cast<std::size_t>(i)] = new QRadioButton(ToQString(SpeedLabel(WindOfOption(i))), winds);
    optWindPlot[static_cast<std::size_t>(i)]->setObjectName(QString("optWindPlot(%1)").arg(i));
    group->addButton(optWindPlot[static_cast<std::size_t>(i)], i);
    windGrid->addWidget(optWindPlot[static_cast<std::size_t>(i)], (i - 1) / 3, (i - 1) % 3);
  }

  auto label = [this](const char* name) {
    auto* l = new QLabel(this);
    l->setObjectName(name);
    return l;
  };
  lblWindAngle = label("lblWindAngle");
  lblBoatSpeed = label("lblBoatSpeed");
  lblMessage = label("lblMessage");
  lblMessage->setWordWrap(true);
  lblMessage->setStyleSheet("color: rgb(160, 20, 20);");
  lblCursor = label("lblCursor");

  auto* left = new QVBoxLayout;
  left->addWidget(new QLabel("Set Up", this));
  left->addWidget(lstSetUps);
  left->addWidget(winds);
  left->addWidget(lblWindAngle);
  left->addWidget(lblBoatSpeed);
  left->addWidget(lblMessage);
  left->addStretch(1);
  auto* leftBox = new QWidget(this);
  leftBox->setLayout(left);
  leftBox->setFixedWidth(230);

  picPolar = new PolarPicture(this);
  picWindSpeed = new WindSpeedPicture(this);
  auto* pictures = new QHBoxLayout;
  pictures->addWidget(picPolar, 5);
  pictures->addWidget(picWindSpeed, 4);
  auto* right = new QVBoxLayout;
  right->addLayout(pictures, 1);
  right->addWidget(lblCursor);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(leftBox);
  layout->addLayout(right, 1);

  picPolar->pointerMoved = [this](PolarPosition at) { PointerOverPolar(at); };
  picPolar->clicked = [this](PolarPosition at) {
    const std::optional<int> angle = RoundWindAngle(std::fabs(at.angle));
    const int row = angle ? PolarRowOfAngle(table_, static_cast<float>(*angle)) : -1;
    if (row < 0) return;
    ShowRow(row);
    if (rowClicked) rowClicked(row);
  };
  picWindSpeed->pointerMoved = [this](float wind, float speed) { lblCursor->setText(ToQString(WindCursorText(wind, speed))); };

  // The database, once; a Jet file is imported into SQLite here.
  polars_ = OpenPolarDatabase(file_);
  const PolarSetUps setUps = ListPolarSetUps(polars_.db);
  for (const std::string& name : setUps.names) lstSetUps->addItem(ToQString(name));
  if (!setUps.message.empty()) {
    lblMessage->setText(ToQString(setUps.message));
  } else if (setUps.names.empty()) {
    lblMessage->setText(ToQString("The polar database " + file_.string() + " holds no set ups"));
  } else if (!polars_.message.empty()) {
    lblMessage->setText(ToQString(polars_.message));
  }

  option_ = kFirstWindOption;
  optWindPlot[kFirstWindOption]->setChecked(true);
  connect(group, &QButtonGroup::idClicked, this, [this](int id) { SelectWind(id); });
  connect(lstSetUps, &QListWidget::currentRowChanged, this, [this](int) { SetUpChanged(); });
  if (setUpIndex >= 0 && setUpIndex < lstSetUps->count())
    lstSetUps->setCurrentRow(setUpIndex);
  else
    SetUpChanged();
}

bool PolarPlotPanel::HasSetUp() const { return SetUpIndex() >= 0 && table_.message.empty(); }

int PolarPlotPanel::SetUpIndex() const { return lstSetUps->currentRow(); }

std::string PolarPlotPanel::SetUpName() const {
  const QListWidgetItem* item = lstSetUps->currentItem();
  return item ? FromQString(item->text()) : std::string();
}

void PolarPlotPanel::SetUpChanged() {
  if (SetUpIndex() < 0) {
    table_ = PolarTable{};
    table_.message = kSelectASetUp;
  } else {
    table_ = ReadPolarTable(polars_.db, SetUpName());
  }
  row_ = PolarRowOfAngle(table_, kFirstRowAngle);
  if (row_ < 0 && !table_.rows.empty()) row_ = 0;
  Redraw();
  if (columnChanged) columnChanged();
}

void PolarPlotPanel::SelectWind(int option) {
  if (option < 1 || option > kWindPlotOptions) return;
  option_ = option;
  optWindPlot[static_cast<std::size_t>(option)]->setChecked(true);
  Redraw();
  if (columnChanged) columnChanged();
}

void PolarPlotPanel::ShowRow(int row) {
  if (row < 0 || row >= static_cast<int>(table_.rows.size())) return;
  row_ = row;
  Redraw();
}

void PolarPlotPanel::Reload() {
  const int row = row_;
  table_ = ReadPolarTable(polars_.db, SetUpName());
  row_ = row < static_cast<int>(table_.rows.size()) ? row : -1;
  Redraw();
  if (columnChanged) columnChanged();
}

void PolarPlotPanel::Redraw() {
  lblWindAngle->clear();
  lblBoatSpeed->clear();
  if (!HasSetUp()) {
    // The database's own message stays shown; a table that cannot be read
    // says why in the pictures.
    const std::string note = lstSetUps->count() == 0 ? FromQString(lblMessage->text()) : table_.message;
    picPolar->SetNote(note.empty() ? std::string(kSelectASetUp) : note);
    picWindSpeed->SetNote(note.empty() ? std::string(kSelectASetUp) : note);
    return;
  }
  if (lstSetUps->count() > 0 && polars_.message.empty()) lblMessage->clear();
  if (!table_.missingColumns.empty()) {
    std::string missing = "The set up lacks the columns";
    for (const std::string& c : table_.missingColumns) missing += " " + c;
    lblMessage->setText(ToQString(missing));
  }
  PolarCurve curve;
  const float largest = LoadCurve(table_, static_cast<std::size_t>(option_), curve);
  picPolar->SetCurve(std::move(curve), largest, WindOfOption(option_));
  if (row_ >= 0) {
    WindCurve across;
    const float most = LoadWindCurve(table_, static_cast<std::size_t>(row_), across);
    const PolarRow& row = table_.rows[static_cast<std::size_t>(row_)];
    const float angle = row.windangle ? static_cast<float>(TextValue(*row.windangle)) : 0.0f;
    picWindSpeed->SetCurve(std::move(across), most, angle);
    picPolar->SetMarkedAngle(angle);
    lblWindAngle->setText(ToQString(WindAngleText(angle)));
    const std::optional<std::string>& cell = row.speeds[static_cast<std::size_t>(option_)];
    if (cell) lblBoatSpeed->setText(ToQString(BoatSpeedText(static_cast<float>(TextValue(*cell)))));
  } else {
    picWindSpeed->SetNote("The set up has no rows");
    picPolar->SetMarkedAngle(std::nullopt);
  }
}

void PolarPlotPanel::PointerOverPolar(PolarPosition position) {
  lblCursor->setText(ToQString(PolarCursorText(position)));
  // The row under the pointer, read off the curve of the wind on show.
  const std::optional<int> angle = RoundWindAngle(std::fabs(position.angle));
  const int row = angle ? PolarRowOfAngle(table_, static_cast<float>(*angle)) : -1;
  if (row < 0) return;
  lblWindAngle->setText(ToQString(WindAngleText(static_cast<float>(*angle))));
  const std::optional<std::string>& cell = table_.rows[static_cast<std::size_t>(row)].speeds[static_cast<std::size_t>(option_)];
  lblBoatSpeed->setText(cell ? ToQString(BoatSpeedText(static_cast<float>(TextValue(*cell)))) : QString());
}

}  // namespace kelvane::forms
