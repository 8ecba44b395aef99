#include "forms/frmOutlineEdit.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "chart/outline.h"
#include "core/format.h"
#include "forms/messages.h"

namespace kelvane::forms {

frmOutlineEdit::frmOutlineEdit(std::vector<Position>& outline, std::filesystem::path file, QWidget* parent)
    : QDialog(parent), outline_(outline), file_(std::move(file)) {
  setObjectName("frmOutlineEdit");
  setWindowTitle("Edit Outline");
  showMessage = DefaultMessageSink(this);
  txtLatDiff = new QLineEdit("0", this);
  txtLatDiff->setObjectName("txtLatDiff");
  txtLonDiff = new QLineEdit("0", this);
  txtLonDiff->setObjectName("txtLonDiff");
  cmdApply = new QPushButton("Apply", this);
  cmdApply->setObjectName("cmdApply");
  cmdSave = new QPushButton("Save", this);
  cmdSave->setObjectName("cmdSave");
  cmdSave->setEnabled(!file_.empty());
  cmdClose = new QPushButton("Close", this);
  cmdClose->setObjectName("cmdClose");
  auto* form = new QFormLayout(this);
  form->addRow("Latitude difference (degrees, N +)", txtLatDiff);
  form->addRow("Longitude difference (degrees, E +)", txtLonDiff);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdApply);
  buttons->addWidget(cmdSave);
  buttons->addStretch();
  buttons->addWidget(cmdClose);
  form->addRow(buttons);
  connect(cmdApply, &QPushButton::clicked, this, &frmOutlineEdit::cmdApply_Click);
  connect(cmdSave, &QPushButton::clicked, this, &frmOutlineEdit::cmdSave_Click);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

void frmOutlineEdit::cmdApply_Click() {
  const float dLat = static_cast<float>(TextValue(FromQString(txtLatDiff->text())));
  const float dLon = static_cast<float>(TextValue(FromQString(txtLonDiff->text())));
  ShiftOutline(outline_, dLat, dLon);
  if (changed) changed();
}

void frmOutlineEdit::cmdSave_Click() {
  const std::string error = WriteOutlineFile(file_, outline_);
  if (!error.empty()) showMessage(error);
}

}  // namespace kelvane::forms
