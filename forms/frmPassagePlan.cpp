#include "forms/frmPassagePlan.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/reportlines.h"

namespace kelvane::forms {

frmPassagePlan::frmPassagePlan(const std::vector<std::string>& planLines, const std::filesystem::path& folder,
                               QWidget* parent)
    : QDialog(parent), folder_(folder) {
  setObjectName("frmPassagePlan");
  setWindowTitle("Passage Plan");
  txtPlan = MakeReportBox(this, "txtPlan");
  ShowLines(txtPlan, planLines);
  cmdSavePdf = new QPushButton("Save as PDF...", this);
  cmdSavePdf->setObjectName("cmdSavePdf");
  cmdPrint = new QPushButton("Print...", this);
  cmdPrint->setObjectName("cmdPrint");
  cmdClose = new QPushButton("Close", this);
  cmdClose->setObjectName("cmdClose");
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdSavePdf);
  buttons->addWidget(cmdPrint);
  buttons->addStretch(1);
  buttons->addWidget(cmdClose);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtPlan, 1);
  layout->addLayout(buttons);
  resize(760, 520);

  showMessage = DefaultMessageSink(this);
  choosePdfFile = [this](const QString& caption, const QString& start) {
    return QFileDialog::getSaveFileName(this, caption, start, "PDF file (*.pdf)");
  };
  connect(cmdSavePdf, &QPushButton::clicked, this, [this] {
    QString chosen = choosePdfFile("Save Passage Plan", QString::fromStdString(folder_.string()));
    if (chosen.isEmpty() || !savePdf) return;
    if (!chosen.endsWith(".pdf", Qt::CaseInsensitive)) chosen += ".pdf";
    const std::string message = savePdf(std::filesystem::path(chosen.toStdString()));
    if (!message.empty()) showMessage(message);
  });
  connect(cmdPrint, &QPushButton::clicked, this, [this] {
    if (print) print();
  });
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace kelvane::forms
