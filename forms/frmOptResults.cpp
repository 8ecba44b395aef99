#include "forms/frmOptResults.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QVBoxLayout>

#include "forms/frmRouteOptimiseResults.h"
#include "forms/messages.h"
#include "forms/reportlines.h"

namespace kelvane::forms {

DepartureGraphView::DepartureGraphView(QWidget* parent) : QWidget(parent) {
  setObjectName("pctResults");
  setMouseTracking(true);
  setMinimumSize(560, 280);
}

void DepartureGraphView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintDepartureGraph(painter, QRectF(rect()), points, marked);
}

void DepartureGraphView::mouseMoveEvent(QMouseEvent* event) {
  const int row = NearestDepartureRow(QRectF(rect()), points, event->position().x());
  if (row >= 0) emit rowPicked(row);
}

frmOptResults::frmOptResults(std::vector<OptRow> rows, std::vector<std::string> rowLines,
                             std::vector<std::string> report, QWidget* parent)
    : QDialog(parent), rows_(std::move(rows)), rowLines_(std::move(rowLines)), report_(std::move(report)) {
  setObjectName("frmOptResults");
  setWindowTitle("Optimum Departure");
  pctResults = new DepartureGraphView(this);
  for (const OptRow& r : rows_) pctResults->points.push_back({r.Depart, r.TimeTaken});
  lblHeader = new QLabel(ToQString(SweepHeaderLine()).replace('\t', "    "), this);
  lblHeader->setObjectName("lblHeader");
  lstResults = new QListWidget(this);
  lstResults->setObjectName("lstResults");
  lstResults->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lstResults->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  lstResults->setMinimumHeight(160);
  for (const std::string& line : rowLines_) lstResults->addItem(ToQString(line).replace('\t', "    "));

  auto* bar = new QMenuBar(this);
  QMenu* file = bar->addMenu("&File");
  mnuPrint = file->addAction("Print...");
  mnuPrint->setObjectName("mnuPrint");
  mnuTextList = file->addAction("Text List...");
  mnuTextList->setObjectName("mnuTextList");
  QMenu* edit = bar->addMenu("&Edit");
  mnuCopyAll = edit->addAction("Copy All");
  mnuCopyAll->setObjectName("mnuCopyAll");
  mnuCopySelected = edit->addAction("Copy Selected");
  mnuCopySelected->setObjectName("mnuCopySelected");
  mnuEditCopyGraph = edit->addAction("Copy Graph");
  mnuEditCopyGraph->setObjectName("mnuEditCopyGraph");
  mnuGraphCopy = new QAction("Copy Graph", this);
  mnuGraphCopy->setObjectName("mnuGraphCopy");
  mnuPopUpCTS = new QMenu("Courses to Steer (True)", this);
  mnuPopUpCTS->setObjectName("mnuPopUpCTS");
  mnuPopUpCopyAsText = new QAction("Copy as Text", this);
  mnuPopUpCopyAsText->setObjectName("mnuPopUpCopyAsText");

  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(bar);
  layout->addWidget(pctResults, 2);
  layout->addWidget(lblHeader);
  layout->addWidget(lstResults, 1);

  connect(lstResults, &QListWidget::currentRowChanged, this, &frmOptResults::lstResults_Click);
  connect(pctResults, &DepartureGraphView::rowPicked, this, [this](int row) {
    if (row != lstResults->currentRow()) lstResults->setCurrentRow(row);
  });
  connect(mnuCopyAll, &QAction::triggered, this, [this] { CopyLines(AllLines()); });
  connect(mnuCopySelected, &QAction::triggered, this, [this] { CopyLines(SelectedLines()); });
  connect(mnuEditCopyGraph, &QAction::triggered, this, &frmOptResults::CopyGraph);
  connect(mnuGraphCopy, &QAction::triggered, this, &frmOptResults::CopyGraph);
  connect(mnuPrint, &QAction::triggered, this, &frmOptResults::Print);
  connect(mnuTextList, &QAction::triggered, this, [this] {
    auto* text = new frmRouteOptimiseResults(report_, this);
    text->setAttribute(Qt::WA_DeleteOnClose);
    text->show();
  });
  connect(mnuPopUpCopyAsText, &QAction::triggered, this, [this] { CopyLines(PopUpLines()); });
  connect(mnuPopUpCTS, &QMenu::aboutToShow, this, &frmOptResults::FillPopUp);
  pctResults->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(pctResults, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    QMenu menu(this);
    menu.addAction(mnuGraphCopy);
    menu.exec(pctResults->mapToGlobal(at));
  });
  lstResults->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(lstResults, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    const int row = lstResults->row(lstResults->itemAt(at));
    if (row < 0) return;
    lstResults->setCurrentRow(row);
    mnuPopUpCTS->popup(lstResults->viewport()->mapToGlobal(at));
  });
  FillPopUp();
  mnuPopUpCopyAsText->setEnabled(false);  // until a row is chosen
}

void frmOptResults::lstResults_Click(int row) {
  pctResults->marked = row;
  pctResults->update();
  mnuPopUpCopyAsText->setEnabled(row >= 0);
}

std::vector<std::string> frmOptResults::SelectedLines() const {
  std::vector<std::string> lines{SweepHeaderLine()};
  for (int i = 0; i < lstResults->count(); ++i)
    if (lstResults->item(i)->isSelected() && i < static_cast<int>(rowLines_.size()))
      lines.push_back(rowLines_[static_cast<std::size_t>(i)]);
  return lines;
}

std::vector<std::string> frmOptResults::PopUpLines() const {
  const int row = lstResults->currentRow();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return {};
  return CourseToSteerLines(rows_[static_cast<std::size_t>(row)]);
}

void frmOptResults::FillPopUp() {
  mnuPopUpCTS->clear();
  for (const std::string& line : PopUpLines()) mnuPopUpCTS->addAction(ToQString(line).replace('\t', "  "))->setEnabled(false);
  mnuPopUpCTS->addSeparator();
  mnuPopUpCTS->addAction(mnuPopUpCopyAsText);
}

void frmOptResults::CopyGraph() { QGuiApplication::clipboard()->setPixmap(pctResults->grab()); }

void frmOptResults::Print() {
  QPrinter printer;
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() != QDialog::Accepted) return;
  QPainter painter(&printer);
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  const QRectF graph(0, 0, page.width(), page.height() * 0.4);
  PaintDepartureGraph(painter, graph, pctResults->points, pctResults->marked);
  painter.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const double lineHeight = painter.fontMetrics().height();
  double y = graph.bottom() + 2 * lineHeight;
  for (const std::string& line : report_) {
    if (y > page.height() - lineHeight) {
      printer.newPage();
      y = lineHeight;
    }
    painter.drawText(QPointF(0, y), ToQString(line).replace('\t', "    "));
    y += lineHeight;
  }
}

}  // namespace kelvane::forms
