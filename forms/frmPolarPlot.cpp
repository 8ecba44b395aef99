#include "forms/frmPolarPlot.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelvane::forms {

frmPolarPlot::frmPolarPlot(const std::filesystem::path& dataRoot, int setUpIndex, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmPolarPlot");
  setWindowTitle("Polar Plot");
  panel = new PolarPlotPanel(dataRoot, setUpIndex, this);
  cmdClose = new QPushButton("Close", this);
  cmdClose->setObjectName("cmdClose");
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(panel, 1);
  layout->addLayout(buttons);
  resize(1180, 600);
}

}  // namespace kelvane::forms
