// frmCommsInfo: the port test. It scans the ports, lets the user choose one
// and a baud rate, then shows what arrives and the six line states, twice a
// second, until the form closes. The ports the chart had open are closed
// by the caller before and reopened after.
#pragma once

#include <QDialog>
#include <QTimer>
#include <string>
#include <vector>

#include "forms/formsupport.h"
#include "instruments/serial.h"

class QComboBox;
class QMenuBar;
class QPlainTextEdit;

namespace kelvane::forms {

class FrmCommsInfo : public QDialog {
  Q_OBJECT
 public:
  FrmCommsInfo(SerialPorts& ports, std::vector<std::string> devices, QWidget* parent = nullptr);
  ~FrmCommsInfo() override;

  void cmdTest_Click();
  void mnuAllBaudRates_Click();
  // One tick of the test timer: read what came, rebuild the line states.
  void Timer1_Timer();
  std::string RawText() const;
  std::string DetailsText() const;
  int TestPort() const { return testPort_; }

  MessageSink showMessage;

 private:
  SerialPorts& ports_;
  std::vector<std::string> devices_;
  std::vector<int> found_;
  int testPort_ = -1;
  QComboBox* cmbPort_;
  QComboBox* cmbBaud_;
  QPlainTextEdit* txtNMEA_;
  QPlainTextEdit* txtCommsDetails_;
  QTimer timer1_;
};

}  // namespace kelvane::forms
