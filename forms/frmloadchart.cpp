#include "forms/frmloadchart.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cctype>

#include "core/format.h"
#include "core/text.h"
#include "forms/messages.h"
#include "store/areadatabase.h"

namespace kelvane::forms {
namespace {

// The list boxes that take no typing: keys are dropped.
class KeysDropped : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    return !key->text().isEmpty();
  }
};

}  // namespace

FrmLoadChart::FrmLoadChart(const Folders& folders, SettingsRecord& settings, std::vector<ChartRecord> catalogue,
                           QWidget* parent)
    : QDialog(parent), folders_(folders), settings_(settings), saved_(settings), catalogue_(std::move(catalogue)) {
  setObjectName("frmLoadChart");
  setWindowTitle("Select Chart");
  setModal(true);

  lblInstructions_ = new QLabel(QString::fromStdString(kLoadChartInstructions), this);
  lblInstructions_->setObjectName("lblInstructions");
  lblInstructions_->setWordWrap(true);
  lstAreas_ = new QListWidget(this);
  lstAreas_->setObjectName("lstAreas");
  ListResults_ = new QListWidget(this);
  ListResults_->setObjectName("ListResults");
  GdViewer1_ = new QLabel(this);
  GdViewer1_->setObjectName("GdViewer1");
  GdViewer1_->setFixedSize(300, 220);
  GdViewer1_->setAlignment(Qt::AlignCenter);
  GdViewer1_->setFrameShape(QFrame::Box);
  lblChartNumber_ = new QLabel(this);
  lblChartNumber_->setObjectName("lblChartNumber");
  txtScale_ = new QLineEdit(this);
  txtScale_->setObjectName("txtScale");
  txtScale_->setReadOnly(true);
  searchTxt_ = new QLineEdit(this);
  searchTxt_->setObjectName("searchTxt");
  btnSearch_ = new QPushButton("Search", this);
  btnSearch_->setObjectName("btnSearch");
  cmdOK_ = new QPushButton("OK", this);
  cmdOK_->setObjectName("cmdOK");
  cmdOK_->setEnabled(false);
  cmdCancel_ = new QPushButton("Cancel", this);
  cmdCancel_->setObjectName("cmdCancel");
  cmdGenerateCSV_ = new QPushButton("Add to CSV", this);
  cmdGenerateCSV_->setObjectName("cmdGenerateCSV");
  auto* dropper = new KeysDropped(this);
  lstAreas_->installEventFilter(dropper);
  txtScale_->installEventFilter(dropper);

  auto* grid = new QGridLayout(this);
  grid->addWidget(lblInstructions_, 0, 0, 1, 3);
  grid->addWidget(lstAreas_, 1, 0);
  grid->addWidget(ListResults_, 1, 1);
  auto* side = new QVBoxLayout;
  side->addWidget(GdViewer1_);
  side->addWidget(new QLabel("Chart number", this));
  side->addWidget(lblChartNumber_);
  side->addWidget(new QLabel("Scale 1:", this));
  side->addWidget(txtScale_);
  side->addStretch();
  grid->addLayout(side, 1, 2);
  auto* search = new QHBoxLayout;
  search->addWidget(searchTxt_);
  search->addWidget(btnSearch_);
  grid->addLayout(search, 2, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdGenerateCSV_);
  buttons->addStretch();
  buttons->addWidget(cmdOK_);
  buttons->addWidget(cmdCancel_);
  grid->addLayout(buttons, 3, 0, 1, 3);

  connect(lstAreas_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { ClickArea(item->text().toStdString()); });
  connect(ListResults_, &QListWidget::currentRowChanged, this, [this](int row) { ClickChart(row); });
  connect(ListResults_, &QListWidget::itemDoubleClicked, this, [this] { Ok(); });
  connect(searchTxt_, &QLineEdit::textChanged, this, &FrmLoadChart::SearchTextChanged);
  connect(btnSearch_, &QPushButton::clicked, this, &FrmLoadChart::Search);
  connect(cmdOK_, &QPushButton::clicked, this, &FrmLoadChart::Ok);
  connect(cmdCancel_, &QPushButton::clicked, this, &FrmLoadChart::Cancel);
  connect(cmdGenerateCSV_, &QPushButton::clicked, this, &FrmLoadChart::GenerateCsv);

  // Load: centred on the screen; the areas; the area in force (which reads
  // its charts); then the catalogue's charts in the list.
  resize(900, 520);
  if (QScreen* screen = QGuiApplication::primaryScreen())
    move(screen->availableGeometry().center() - rect().center());
  for (const std::string& area : ListAreas(folders_.DataRoot())) lstAreas_->addItem(QString::fromStdString(area));
  const QString current = QString::fromStdString(Trim(settings_.ChartSet));
  for (int i = 0; i < lstAreas_->count(); ++i) {
    if (lstAreas_->item(i)->text() == current) {
      lstAreas_->setCurrentRow(i);
      ClickArea(current.toStdString());
    }
  }
  FillResults(catalogue_);
}

void FrmLoadChart::ReadChartData(const std::string& sql) {
  AreaDatabase db = AreaDatabase::Open(AreaDatabasePath(folders_.DataRoot(), Trim(settings_.ChartSet)));
  ChartCatalogue read = ReadChartsTable(db, sql);
  if (!read.message.empty()) ShowMessage(this, read.message);
  allCharts_ = read.charts;
  shown_ = read.charts;
}

void FrmLoadChart::FillResults(const std::vector<ChartRecord>& records) {
  QSignalBlocker block(ListResults_);
  ListResults_->clear();
  for (const ChartRecord& c : records) ListResults_->addItem(QString::fromStdString(Trim(c.chartName)));
}

void FrmLoadChart::ClickArea(const std::string& area) {
  settings_.ChartSet = Trim(area);
  ReadChartData("SELECT * FROM charts ORDER By chartName");
  FillResults(shown_);
}

void FrmLoadChart::ClickChart(int row) {
  if (ListResults_->count() > 0) cmdOK_->setEnabled(true);
  if (row < 0 || row >= ListResults_->count()) return;
  const std::string text = Trim(ListResults_->item(row)->text().toStdString());
  const ChartRecord* hit = nullptr;
  for (const ChartRecord& c : shown_)
    if (Trim(c.chartName) == text) {
      hit = &c;
      break;
    }
  if (!hit) return;
  number_ = hit->chartNumber;
  double scale = ChartScaleValue(hit->chartScale);
  lblChartNumber_->setText(QString::fromStdString(number_));
  path_ = (folders_.DataRoot() / "Charts" / number_).string();
  QImageReader reader(QString::fromStdString(path_ + ".tif"));
  reader.setDecideFormatFromContent(true);
  QImage preview;
  if (reader.read(&preview) && !preview.isNull()) {
    GdViewer1_->setPixmap(QPixmap::fromImage(
        preview.scaled(GdViewer1_->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)));
  } else {
    GdViewer1_->clear();
  }
  txtScale_->setText(QString::fromStdString(FormatNumber(scale, "0")));
}

void FrmLoadChart::SearchTextChanged(const QString& text) {
  // The scan runs over the catalogue of the area in force, whose order can
  // differ from the list's; its index is used as the list's.
  const std::string wanted = ToUpper(text.toStdString());
  for (std::size_t i = 0; i < catalogue_.size(); ++i) {
    if (ToUpper(catalogue_[i].chartName).find(wanted) != std::string::npos) {
      if (static_cast<int>(i) < ListResults_->count()) ListResults_->setCurrentRow(static_cast<int>(i));
      return;
    }
  }
}

void FrmLoadChart::Search() {
  const std::string text = Trim(searchTxt_->text().toStdString());
  AreaDatabase db = AreaDatabase::Open(AreaDatabasePath(folders_.DataRoot(), Trim(settings_.ChartSet)));
  ChartCatalogue read =
      ReadChartsTable(db, "SELECT * FROM charts Where chartName LIKE '%" + text + "%' ORDER BY chartName");
  if (!read.message.empty()) ShowMessage(this, read.message);
  shown_ = read.charts;
  FillResults(shown_);
}

void FrmLoadChart::Ok() {
  if (ListResults_->currentRow() < 0 || number_.empty()) return;
  accepted_ = true;
  settings_.ChartDescription = ListResults_->currentItem()->text().toStdString();
  settings_.ChartPath = path_;
  settings_.ChartFile = number_;
  accept();
}

void FrmLoadChart::Cancel() { reject(); }

void FrmLoadChart::reject() {
  // A click on another area stored that area at once; without OK the whole
  // record goes back, so the window never works with an area it didn't load.
  settings_ = saved_;
  accepted_ = false;
  QDialog::reject();
}

void FrmLoadChart::GenerateCsv() {
  for (const ChartRecord& c : shown_) {
    if (c.chartNumber != number_ || number_.empty()) continue;
    std::string error = AppendChartCsv(folders_.DataRoot(), settings_.ChartSet, c);
    if (!error.empty()) ShowMessage(this, error);
    return;
  }
}

std::filesystem::path SelectL25Folder(const Folders& folders, const SettingsRecord& settings) {
  std::string charts = Trim(settings.ChartsFolder);
  return charts.empty() ? folders.DataRoot() / "TS" : std::filesystem::path(charts);
}

std::string SelectL25(QWidget* parent, const Folders& folders, const SettingsRecord& settings) {
  QString file = QFileDialog::getOpenFileName(parent, "Select Tidal Stream File",
                                              QString::fromStdString(SelectL25Folder(folders, settings).string()),
                                              "Tidal stream files (*.l25)");
  return file.toStdString();
}

}  // namespace kelvane::forms
