#include "forms/frmAisDetails.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/messages.h"

namespace kelvane::forms {

FrmAisDetails::FrmAisDetails(const std::vector<std::string>& lines, QWidget* parent) : QDialog(parent) {
  setObjectName("frmAisDetails");
  setWindowTitle("AIS Target");
  auto* outer = new QVBoxLayout(this);
  txtDetails_ = new QPlainTextEdit(this);
  txtDetails_->setObjectName("txtDetails");
  txtDetails_->setReadOnly(true);
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  txtDetails_->setPlainText(ToQString(text));
  outer->addWidget(txtDetails_);
  auto* row = new QHBoxLayout;
  auto* copy = new QPushButton("Copy", this);
  copy->setObjectName("cmdCopy");
  auto* print = new QPushButton("Print", this);
  print->setObjectName("cmdPrint");
  auto* close = new QPushButton("Close", this);
  close->setObjectName("cmdClose");
  row->addWidget(copy);
  row->addWidget(print);
  row->addWidget(close);
  outer->addLayout(row);
  connect(copy, &QPushButton::clicked, this, &FrmAisDetails::cmdCopy_Click);
  connect(print, &QPushButton::clicked, this, &FrmAisDetails::cmdPrint_Click);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

std::string FrmAisDetails::Text() const { return FromQString(txtDetails_->toPlainText()); }

void FrmAisDetails::cmdCopy_Click() { QGuiApplication::clipboard()->setText(txtDetails_->toPlainText()); }

void FrmAisDetails::cmdPrint_Click() {
  QPrinter printer;
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted) txtDetails_->print(&printer);
}

}  // namespace kelvane::forms
