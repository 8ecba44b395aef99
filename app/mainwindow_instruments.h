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
#include <optional>
#include <string>

#include "app/serialport_qt.h"
#include "instruments/comms.h"
#include "instruments/receive.h"
#include "tides/tidestate.h"

class QAction;
class QLabel;

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

  // The AIS targets from the chart (mainwindow_ais.cpp). The details of the
  // target nearest to a position (within `withinMiles`), in a form of their
  // own; false when there is no target there. The F2 key and the double
  // click on a target come here.
  bool OpenAISDetailsNear(float lat, float lon, float withinMiles = 1e9f);
  // F3 to F6: flips one display switch (1 details, 2 history, 3 predicted
  // track, 4 heading vector) of the target nearest to a position.
  bool ToggleAISFlagNear(float lat, float lon, int flag);
  // The AIS display entries follow the links: on while an AIS link or a
  // replay runs, off otherwise.
  void EnableAISDetails();
  void DisableAISDetails();
  // The chart's side of the instruments, once the chart's modes exist: the
  // popup's AIS item and the AIS count of the status bar.
  void ConnectChart();
  // The tidal stream of the predictions: the stream at a position now.
  std::optional<StreamAt> StreamNow(float lat, float lon);
  // The view cycle's recentring: the chart follows the boat when it has
  // left the middle third of the view.
  void RecentreOnBoat();
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
  void TakeTableSettings();  // the target table's share, at any time
  void SyncAISMenus();
  void ShowAISCount();
  void SyncTimers();
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
  TideState predictionTides_;  // the curves of the stream look-ups, apart from the chart's
  QLabel* aisPanel_ = nullptr;  // "Num AIS Targets Drawn = "
  bool allBaudRates_ = false;   // the port test opens with every rate
};

}  // namespace kelvane::app
