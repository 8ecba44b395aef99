#include "app/mainwindow_instruments.h"

#include <QToolBar>
#include <QIcon>
#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

#include "app/mainwindow.h"
#include "core/settings.h"
#include "forms/frmAISGPSConfig.h"
#include "forms/frmAISSummary.h"
#include "forms/frmCommsInfo.h"
#include "forms/frmGPSConfig.h"
#include "forms/frmgpsdetail.h"
#include "forms/messages.h"
#include "app/chartpane.h"
#include "app/mainwindow_layers.h"
#include "instruments/comms_forms.h"
#include "state/settingsroad.h"

namespace kelvane::app {

InstrumentsController::InstrumentsController(FrmChart& chart) : QObject(&chart), chart_(chart) {
  setObjectName("Instruments");
  ports_ = std::make_unique<QtSerialPorts>(ProgramSerialDevices(StoreFile()));
  // The predictions of the targets and of the own ship take the tidal
  // stream where it is known (when the settings ask for it).
  state_.targets.stream = [this](float lat, float lon) { return StreamNow(lat, lon); };
  commsTimer_.setInterval(kCommsTimerInterval);
  connect(&commsTimer_, &QTimer::timeout, this, &InstrumentsController::CommsTimer_Timer);
  ConnectMenus();
}

InstrumentsController::~InstrumentsController() { commsTimer_.stop(); }

std::string InstrumentsController::StoreFile() const {
  return (chart_.State().folders.UserFiles() / "Kelvane.ini").string();
}

void InstrumentsController::SetDevices(std::vector<std::string> devices) {
  ports_ = std::make_unique<QtSerialPorts>(std::move(devices));
}

void InstrumentsController::ConnectMenus() {
  auto enable = [this](const char* name, auto handler) {
    if (QAction* a = chart_.Action(name)) {
      a->setEnabled(true);
      connect(a, &QAction::triggered, this, handler);
    }
  };
  enable("mnuGPSattach", [this] { mnuGPSattach_Click(); });
  enable("mnuPosGpsDisconnect", [this] { mnuPosGpsDisconnect_Click(); });
  enable("mnuAISEnable", [this] { mnuAISEnable_Click(); });
  enable("mnuAISDisable", [this] { mnuAISDisable_Click(); });
  enable("mnuDecode21", [this] { mnuDecode21_Click(); });
  // The toolbar's link buttons: a click starts a link that is down and
  // ends one that is up.
  if (QToolBar* bar = chart_.ToolBar()) {
    gpsButton_ = bar->addAction("GPS");
    gpsButton_->setObjectName("cmdGPSLink");
    connect(gpsButton_, &QAction::triggered, this, [this] { mnuGPSattach_Click(); });
    aisButton_ = bar->addAction("AIS");
    aisButton_->setObjectName("cmdAISLink");
    connect(aisButton_, &QAction::triggered, this, [this] {
      if (comms_.AISPortOpen != 0)
        mnuAISDisable_Click();
      else
        mnuAISEnable_Click();
    });
    UpdateMenus();
  }
  // The AIS display switches: the setting flips, every target follows it,
  // and the record is written at once.
  auto aisSwitch = [this, &enable](const char* name, std::int16_t SettingsRecord::*field, TargetFlag flag) {
    enable(name, [this, field, flag] {
      const std::int16_t on = chart_.State().settings.*field != 0 ? 0 : -1;
      const std::string m = UpdateSettings(chart_.State(), [field, on](SettingsRecord& r) { r.*field = on; });
      SetTargetFlags(state_.targets, flag, on);
      TakeTableSettings();
      if (!m.empty()) chart_.showMessage(m);
      SyncAISMenus();
      emit chart_.RedrawRequested();
    });
  };
  aisSwitch("mnuShowAISDetails", &SettingsRecord::ShowAISDetails, TargetFlag::Details);
  aisSwitch("mnuAISDisplayPredicted", &SettingsRecord::AISPredTrack, TargetFlag::Predicted);
  aisSwitch("mnuAISShowHeadVect", &SettingsRecord::AISHeadingVector, TargetFlag::Heading);
  enable("mnuCopyComPortDetails", [this] {
    WithPortsClosed([this] {
      forms::FrmCommsInfo form(*ports_, ports_->Devices(), &chart_);
      if (allBaudRates_) {
        // The list is widened without telling again what the menu said.
        form.showMessage = [](const std::string&) {};
        form.mnuAllBaudRates_Click();
        form.showMessage = forms::DefaultMessageSink(&form);
      }
      form.exec();
    });
  });
  // The port test offers every rate of the serial library while this is on.
  enable("mnuAllBaudRates", [this](bool on) {
    allBaudRates_ = on;
    if (on) chart_.showMessage(kAllRatesAvailable);
  });
  // The entries of this subsystem that the menu table does not carry.
  QMenu* menu = chart_.menuBar()->findChild<QMenu*>("menuInstruments");
  if (!menu) return;
  menu->addSeparator();
  auto add = [&](const char* name, const char* caption, auto handler) {
    QAction* a = menu->addAction(caption);
    a->setObjectName(name);
    connect(a, &QAction::triggered, this, handler);
  };
  add("mnuConfigureGPS", "Configure GPS...", [this] {
    WithPortsClosed([this] {
      ProgramState& state = chart_.State();
      forms::FrmGPSConfig form(state.settings, state.folders.SettingsFile(), *ports_, ports_->Devices(), &chart_);
      form.storeSettings = [&state](const SettingsChange& change) { return UpdateSettings(state, change); };
      form.exec();
    });
  });
  add("mnuConfigureAIS", "Configure GPS/AIS...", [this] {
    WithPortsClosed([this] {
      ProgramState& state = chart_.State();
      forms::FrmAISGPSConfig form(state.settings, state.folders.SettingsFile(), *ports_, ports_->Devices(), &chart_);
      form.storeSettings = [&state](const SettingsChange& change) { return UpdateSettings(state, change); };
      form.exec();
    });
    UpdateMenus();
  });
  add("mnuGPSMonitor", "GPS Monitor...", [this] {
    if (!monitor_) monitor_ = new forms::FrmGpsDetail(&chart_);
    monitor_->Refresh(state_, CommsDetailsLines(*ports_, comms_.GPSPort));
    monitor_->show();
  });
  add("mnuAISSummary", "AIS Targets...", [this] {
    forms::FrmAISSummary form(state_.targets, state_.own, ClockReadingOf(chart_.clock()).Hours(), &chart_);
    // Mark: the chosen target is ringed on the chart and brought into view.
    connect(&form, &forms::FrmAISSummary::MarkPosition, this, [this](std::int32_t mmsi, float lat, float lon) {
      chart_.Layers().pickedAisMmsi = mmsi;
      if (chart_.Chart()) chart_.Chart()->LocatePoint(lat, lon);
      emit chart_.RedrawRequested();
    });
    connect(&form, &forms::FrmAISSummary::ClearMark, this, [this] {
      chart_.Layers().pickedAisMmsi = 0;
      emit chart_.RedrawRequested();
    });
    form.exec();
  });
  UpdateMenus();
}

void InstrumentsController::TakeSettings() {
  TakeTableSettings();
  const SettingsRecord& s = chart_.State().settings;
  comms_.GPSPort = s.GPSPort;
  comms_.GPSBaudCode = s.GPSBaudCode;
  comms_.AISPort = s.AISPort;
  comms_.AISBaudCode = s.AISBaudCode;
  comms_.GPSInterval = s.GPSInterval > 0 ? s.GPSInterval : 5;
  comms_.GPSCentre = s.GPSCentre;
  state_.GPSThroAIS = s.GPSThroAIS;
}

void InstrumentsController::TakeTableSettings() {
  const SettingsRecord& s = chart_.State().settings;
  AisTableSettings& t = state_.targets.settings;
  t.AheadVector = s.AheadVector;
  t.AheadIntervals = s.AheadIntervals;
  t.BoatFutureTidePlot = s.BoatFutureTidePlot;
  t.ShowAISDetails = s.ShowAISDetails;
  t.AISHistTrack = s.AISHistTrack;
  t.AISPredTrack = s.AISPredTrack;
  t.AISHeadingVector = s.AISHeadingVector;
  // Keeping the boat in view is switched from the chart at any time.
  comms_.GPSCentre = s.GPSCentre;
}

void InstrumentsController::UpdateMenus() {
  bool throAis = chart_.State().settings.GPSThroAIS != 0;
  if (QAction* a = chart_.Action("mnuAISEnable")) a->setText(throAis ? "Attach AIS/GPS" : "Attach AIS");
  if (QAction* a = chart_.Action("mnuAISDisable")) a->setText(throAis ? "Detach AIS/GPS" : "Detach AIS");
  if (QAction* a = chart_.Action("mnuGPSattach")) a->setText(comms_.GPSPortOpen != 0 ? "Detach GPS" : "Attach GPS");
  // Each entry is on when it can act: a link is ended only while it runs.
  if (QAction* a = chart_.Action("mnuPosGpsDisconnect")) a->setEnabled(comms_.GPSPortOpen != 0);
  if (QAction* a = chart_.Action("mnuAISEnable")) a->setEnabled(comms_.AISPortOpen == 0);
  if (QAction* a = chart_.Action("mnuAISDisable")) a->setEnabled(comms_.AISPortOpen != 0);
  SyncAISMenus();
  // The link buttons show the state of their links.
  LinkPictures pictures = LinkPicturesFor(comms_, throAis);
  const std::filesystem::path res = chart_.State().folders.DataRoot() / "res";
  auto show = [&](QAction* button, const std::string& picture) {
    if (!button) return;
    button->setIcon(QIcon(QString::fromStdString((res / picture).string())));
    button->setData(QString::fromStdString(picture));
  };
  show(gpsButton_, pictures.gps);
  show(aisButton_, pictures.ais);
}

void InstrumentsController::SyncTimers() {
  if (comms_.commsTimerEnabled) {
    if (!commsTimer_.isActive()) commsTimer_.start();
  } else {
    commsTimer_.stop();
  }
  if (comms_.timer1Enabled) {
    if (!chart_.Timer1().isActive()) chart_.Timer1().start();
  } else {
    chart_.Timer1().stop();
  }
  UpdateMenus();
}

CommsHooks InstrumentsController::Hooks() {
  CommsHooks hooks;
  hooks.timer1Routine = [this] { chart_.Timer1Routine(); };
  hooks.redrawOverlays = [this] { emit chart_.RedrawRequested(); };
  hooks.recentreCheck = [this] { RecentreOnBoat(); };
  hooks.pumpEvents = [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); };
  return hooks;
}

template <typename Run>
void InstrumentsController::WithPortsClosed(Run run) {
  bool gps = comms_.GPSPortOpen != 0, ais = comms_.AISPortOpen != 0;
  commsTimer_.stop();
  if (gps) ports_->Done(comms_.GPSPort);
  if (ais) ports_->Done(comms_.AISPort);
  run();
  // A port that will not open again (unplugged, or taken by another program
  // while the form was up) must not stay flagged open, or the loop would
  // poll nothing and the menus would offer a detach of a dead link: the
  // user is told why and that link ends.
  if (gps) {
    const OpenResult r = OpenPort(*ports_, comms_.GPSPort, comms_.GPSBaudCode);
    if (!r.ok) {
      chart_.showMessage(r.message);
      mnuPosGpsDisconnect_Click();
    }
  }
  if (ais) {
    const OpenResult r = OpenPort(*ports_, comms_.AISPort, comms_.AISBaudCode);
    if (!r.ok) {
      chart_.showMessage(r.message);
      DetachAis(comms_, state_, *ports_);
    }
  }
  SyncTimers();
}

void InstrumentsController::mnuGPSattach_Click() {
  if (comms_.GPSPortOpen != 0) {  // the entry is a toggle
    mnuPosGpsDisconnect_Click();
    return;
  }
  TakeSettings();
  AttachResult r = AttachGps(comms_, *ports_, ClockReadingOf(chart_.clock()), Hooks());
  if (!r.ok) chart_.showMessage(r.message);
  SyncTimers();
}

void InstrumentsController::mnuPosGpsDisconnect_Click() {
  DetachGps(comms_, *ports_);
  if (monitor_) monitor_->HideGPSMonWaySetails();
  SyncTimers();
}

void InstrumentsController::mnuAISEnable_Click() {
  TakeSettings();
  AttachResult r = AttachAis(comms_, state_, *ports_, ClockReadingOf(chart_.clock()), Hooks());
  if (!r.ok) chart_.showMessage(r.message);
  SyncTimers();
}

void InstrumentsController::mnuAISDisable_Click() {
  if (!forms::AskYesNo(&chart_, kDisableAisQuestion)) return;
  DetachAis(comms_, state_, *ports_);
  SyncTimers();
}

void InstrumentsController::mnuDecode21_Click() {
  TakeTableSettings();
  comms_.AISAttached = -1;
  DecodeTestAid(state_, ClockReadingOf(chart_.clock()));
  SyncAISMenus();
  emit chart_.RedrawRequested();
}

void InstrumentsController::CommsTimer_Timer() {
  commsTimer_.stop();
  TakeTableSettings();
  TickReport report = CommsTick(comms_, state_, *ports_, ClockReadingOf(chart_.clock()), Hooks());
  // The monitor follows every tick, not only those with data, so that its
  // line states tell the user at once when the port has gone.
  (void)report;
  if (monitor_ && monitor_->isVisible()) monitor_->Refresh(state_, CommsDetailsLines(*ports_, comms_.GPSPort));
  SyncTimers();
}

void InstrumentsController::Shutdown() {
  commsTimer_.stop();
  ports_->Done(comms_.GPSPort);
  if (comms_.AISPort >= 0) ports_->Done(comms_.AISPort);
}

}  // namespace kelvane::app
