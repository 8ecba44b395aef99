#include "forms/frmCommsInfo.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/format.h"
#include "forms/messages.h"
#include "instruments/comms_forms.h"

namespace kelvane::forms {

FrmCommsInfo::FrmCommsInfo(SerialPorts& ports, std::vector<std::string> devices, QWidget* parent)
    : QDialog(parent), ports_(ports), devices_(std::move(devices)) {
  setObjectName("frmCommsInfo");
  setWindowTitle("Comms Port Test");
  showMessage = DefaultMessageSink(this);
  auto* outer = new QVBoxLayout(this);
  auto* bar = new QMenuBar(this);
  QMenu* options = bar->addMenu("Options");
  QAction* all = options->addAction("All Baud Rates");
  all->setObjectName("mnuAllBaudRates");
  QMenu* copy = bar->addMenu("Copy");
  QAction* copyRaw = copy->addAction("Raw Data");
  copyRaw->setObjectName("mnuCopyRawData");
  QAction* copyPort = copy->addAction("Port Details");
  copyPort->setObjectName("mnuCopyComPortDetails");
  QAction* copyAll = copy->addAction("All");
  copyAll->setObjectName("mnuCopyAll");
  outer->setMenuBar(bar);

  auto* row = new QHBoxLayout;
  cmbPort_ = new QComboBox(this);
  cmbPort_->setObjectName("cmbPort");
  found_ = ScanPorts(ports_, 256);
  for (int p : found_) {
    std::string text = "COM" + std::to_string(p + 1);
    if (p < static_cast<int>(devices_.size())) text += "  " + devices_[static_cast<std::size_t>(p)];
    cmbPort_->addItem(ToQString(text), p);
  }
  if (!found_.empty()) cmbPort_->setCurrentIndex(0);
  cmbBaud_ = new QComboBox(this);
  cmbBaud_->setObjectName("cmbBaud");
  for (const std::string& r : CommonBaudRates()) cmbBaud_->addItem(ToQString(r));
  cmbBaud_->setCurrentText("4800");
  auto* test = new QPushButton("Test Port", this);
  test->setObjectName("cmdTest");
  row->addWidget(cmbPort_);
  row->addWidget(cmbBaud_);
  row->addWidget(test);
  outer->addLayout(row);
  txtNMEA_ = new QPlainTextEdit(this);
  txtNMEA_->setObjectName("txtNMEA");
  txtNMEA_->setReadOnly(true);
  std::string intro;
  for (const std::string& line : CommsInfoIntroLines()) intro += line + "\n";
  txtNMEA_->setPlainText(ToQString(intro));
  txtCommsDetails_ = new QPlainTextEdit(this);
  txtCommsDetails_->setObjectName("txtCommsDetails");
  txtCommsDetails_->setReadOnly(true);
  outer->addWidget(txtNMEA_);
  outer->addWidget(txtCommsDetails_);

  connect(test, &QPushButton::clicked, this, &FrmCommsInfo::cmdTest_Click);
  connect(all, &QAction::triggered, this, &FrmCommsInfo::mnuAllBaudRates_Click);
  connect(copyRaw, &QAction::triggered, this, [this] { QGuiApplication::clipboard()->setText(txtNMEA_->toPlainText()); });
  connect(copyPort, &QAction::triggered, this,
          [this] { QGuiApplication::clipboard()->setText(txtCommsDetails_->toPlainText()); });
  connect(copyAll, &QAction::triggered, this, [this] {
    QGuiApplication::clipboard()->setText(txtNMEA_->toPlainText() + "\n" + txtCommsDetails_->toPlainText());
  });
  timer1_.setInterval(500);
  connect(&timer1_, &QTimer::timeout, this, &FrmCommsInfo::Timer1_Timer);
}

FrmCommsInfo::~FrmCommsInfo() {
  timer1_.stop();
  if (testPort_ >= 0) ports_.Done(testPort_);
}

void FrmCommsInfo::mnuAllBaudRates_Click() {
  QString current = cmbBaud_->currentText();
  cmbBaud_->clear();
  for (const std::string& r : AllBaudRates()) cmbBaud_->addItem(ToQString(r));
  cmbBaud_->setCurrentText(current);
  showMessage(kAllRatesAvailable);
}

void FrmCommsInfo::cmdTest_Click() {
  if (cmbPort_->currentIndex() < 0) {
    showMessage(kNoCommsPortSelected);
    return;
  }
  timer1_.stop();
  if (testPort_ >= 0) ports_.Done(testPort_);
  testPort_ = cmbPort_->currentData().toInt();
  int code = BaudCodeOfRate(static_cast<int>(TextValue(FromQString(cmbBaud_->currentText()))));
  OpenResult open = OpenPort(ports_, testPort_, code < 0 ? 4 : code);
  if (!open.ok) {
    showMessage(open.message);
    testPort_ = -1;
    return;
  }
  txtNMEA_->clear();
  timer1_.start();
}

void FrmCommsInfo::Timer1_Timer() {
  if (testPort_ < 0) return;
  std::string buffer(1024, '\0');
  int n = ports_.Gets(testPort_, buffer.data(), static_cast<int>(buffer.size()));
  if (n > 0) {
    if (txtNMEA_->toPlainText().size() > 2047) txtNMEA_->clear();
    txtNMEA_->moveCursor(QTextCursor::End);
    txtNMEA_->insertPlainText(ToQString(buffer.substr(0, static_cast<std::size_t>(n))));
  }
  std::string details;
  for (const std::string& line : CommsDetailsLines(ports_, testPort_)) details += line + "\n";
  txtCommsDetails_->setPlainText(ToQString(details));
}

std::string FrmCommsInfo::RawText() const { return FromQString(txtNMEA_->toPlainText()); }
std::string FrmCommsInfo::DetailsText() const { return FromQString(txtCommsDetails_->toPlainText()); }

}  // namespace kelvane::forms
