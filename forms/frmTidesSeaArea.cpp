#include "forms/frmTidesSeaArea.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/messages.h"
#include "tides/portselect.h"

namespace kelvane::forms {

frmTidesSeaArea::frmTidesSeaArea(const std::filesystem::path& tsFolder, const std::filesystem::path& settingsFile,
                                 QWidget* parent)
    : QDialog(parent), settingsFile_(settingsFile) {
  setWindowTitle("Area Select");
  FileList = new QListWidget(this);
  FileList->setObjectName("FileList");
  lblAreaToUse = new QLabel(this);
  lblAreaToUse->setObjectName("lblAreaToUse");
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(FileList);
  layout->addWidget(lblAreaToUse);
  layout->addWidget(cmdOK);
  for (const std::string& name : AreaFileNames(tsFolder)) FileList->addItem(ToQString(name));
  connect(FileList, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { lblAreaToUse->setText(item->text()); });
  connect(cmdOK, &QPushButton::clicked, this, &frmTidesSeaArea::OnOK);
}

void frmTidesSeaArea::OnOK() {
  const std::string label = FromQString(lblAreaToUse->text());
  const std::string message = CheckAreaChoice(label);
  if (!message.empty()) {
    ShowMessage(this, message);
    return;
  }
  if (storeChoice)
    storeChoice([label](SettingsRecord& r) { SetAreaChoice(r, label); });
  else
    StoreAreaChoice(settingsFile_, label);
  accept();
}

}  // namespace kelvane::forms
