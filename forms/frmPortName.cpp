#include "forms/frmPortName.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/messages.h"

namespace kelvane::forms {

frmPortName::frmPortName(const std::filesystem::path& areaFile, const std::filesystem::path& settingsFile,
                         int storedPort, QWidget* parent)
    : QDialog(parent), settingsFile_(settingsFile), lines_(PortListLines(areaFile)) {
  setWindowTitle("Port Select");
  portlist2 = new QListWidget(this);
  portlist2->setObjectName("portlist2");
  portconfigbox = new QLabel(this);
  portconfigbox->setObjectName("portconfigbox");
  confportnolabel = new QLabel(this);
  confportnolabel->setObjectName("confportnolabel");
  portconfigok = new QPushButton("OK", this);
  portconfigok->setObjectName("portconfigok");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(portlist2);
  layout->addWidget(portconfigbox);
  layout->addWidget(confportnolabel);
  layout->addWidget(portconfigok);
  for (const PortListEntry& line : lines_) portlist2->addItem(ToQString(line.text));
  if (!lines_.empty()) {
    const int current = CurrentPortNumber(storedPort, static_cast<int>(lines_.size()));
    portlist2->setCurrentRow(current - 1);
    Choose(current - 1);
  }
  connect(portlist2, &QListWidget::currentRowChanged, this, &frmPortName::Choose);
  connect(portconfigok, &QPushButton::clicked, this, &frmPortName::OnOK);
}

void frmPortName::Choose(int row) {
  if (row < 0 || row >= static_cast<int>(lines_.size())) return;
  const PortListEntry& line = lines_[static_cast<std::size_t>(row)];
  portconfigbox->setText(ToQString(line.name));
  confportnolabel->setText(QString::number(line.recordNo));
  chosen_ = line.recordNo;
}

void frmPortName::OnOK() {
  if (chosen_ >= 1) {
    const std::string name = lines_[static_cast<std::size_t>(chosen_ - 1)].name;
    if (storeChoice)
      storeChoice([this, &name](SettingsRecord& r) { SetPortChoice(r, chosen_, name); });
    else
      StorePortChoice(settingsFile_, chosen_, name);
  }
  accept();
}

}  // namespace kelvane::forms
