// The instruments of the main window: the GPS and AIS links, the polling
// timer (CommsTimer, 750 ms) and its hand-over with the idle timer, the
// monitor and the AIS forms, and the port dialogs. The window makes one of
// these at start and asks it to close the ports at the end; everything else
// is wired here to the window's Instruments menu.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <memory>
#include <string>

#include "app/serialport_qt.h"
#include "instruments/comms.h"
#include "instruments/receive.h"

class QAction;

namespace kelvane::forms {
class FrmGpsDetail;
}

namespace kelvane::app {

class FrmChart;

class InstrumentsController : public QObject {
  Q_OBJECT
 public:
  explicit InstrumentsController(FrmChart& chart);
  ~InstrumentsController() override;

  // The menu handlers, public so that tests can run them.
  void mnuGPSattach_Click();
  void mnuPosGpsDisconnect_Click();
  void mnuAISEnable_Click();
  void mnuAISDisable_Click();
  void mnuDecode21_Click();
  void CommsTimer_Timer();
  // The details of the AIS target nearest to a position (within
  // `withinMiles`), in a form of their own; false when there is no target
  // there. The double click on a target comes here.
  bool OpenAISDetailsNear(float lat, float lon, float withinMiles = 1e9f);
  // Closes both ports (program end).
  void Shutdown();

  InstrumentsState& State() { return state_; }
  CommsState& Comms() { return comms_; }
  QTimer& CommsTimer() { return commsTimer_; }
  QtSerialPorts& Ports() { return *ports_; }
  // Replaces the device list (tests use pseudo-terminals).
  void SetDevices(std::vector<std::string> devices);

 private:
  void ConnectMenus();
  void TakeSettings();
  void SyncTimers();
  void SaveSettings();
  void UpdateMenus();
  CommsHooks Hooks();
  // Closes the attached ports around a port dialog and reopens them after.
  template <typename Run>
  void WithPortsClosed(Run run);
  std::string StoreFile() const;

  FrmChart& chart_;
  QAction* gpsButton_ = nullptr;  // the toolbar's link buttons
  QAction* aisButton_ = nullptr;
  InstrumentsState state_;
  CommsState comms_;
  std::unique_ptr<QtSerialPorts> ports_;
  QTimer commsTimer_;
  QPointer<forms::FrmGpsDetail> monitor_;
};

}  // namespace kelvane::app
