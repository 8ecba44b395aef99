#include "app/chartinteraction.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QToolBar>
#include <fstream>
#include <unistd.h>

#include "app/chartmenus.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "chart/overlaygeometry.h"
#include "core/format.h"
#include "core/positions.h"
#include "forms/frmMouseInput.h"
#include "forms/messages.h"
#include "routes/gpxwrite.h"
#include "state/routewind.h"
#include "state/settingsroad.h"

namespace kelvane::app {
namespace {

// The platform's virtual key code of a Qt key, as the key table is written.
int VirtualKey(int key) {
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return vk::F1 + (key - Qt::Key_F1);
  switch (key) {
    case Qt::Key_Backspace: return vk::Back;
    case Qt::Key_Return:
    case Qt::Key_Enter: return vk::Return;
    case Qt::Key_Escape: return vk::Escape;
    case Qt::Key_PageUp: return vk::PageUp;
    case Qt::Key_PageDown: return vk::PageDown;
    case Qt::Key_Home: return vk::Home;
    case Qt::Key_Left: return vk::Left;
    case Qt::Key_Up: return vk::Up;
    case Qt::Key_Right: return vk::Right;
    case Qt::Key_Down: return vk::Down;
    case Qt::Key_Insert: return vk::Insert;
    case Qt::Key_Delete: return vk::Delete;
    case Qt::Key_Equal:
    case Qt::Key_Plus: return vk::Equals;  // the same key, with Shift or not
    case Qt::Key_Minus: return vk::Minus;
    case Qt::Key_Apostrophe: return vk::Apostrophe;
    default: return 0;
  }
}

// The resident memory of the program in bytes.
long long ResidentBytes() {
  std::ifstream statm("/proc/self/statm");
  long long pages = 0, resident = 0;
  statm >> pages >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

}  // namespace

ChartInteractionController::ChartInteractionController(FrmChart& window, ChartPane& pane)
    : QObject(&window),
      window_(window),
      pane_(pane),
      machine_(window.State().marks, window.State().passage, window.State().waypoints, window.State().settings,
               &pane.Geometry()) {
  setObjectName("ChartInteraction");
  askYesNo = [this](const std::string& text, const std::string& title) {
    return QMessageBox::question(&window_, forms::ToQString(title), forms::ToQString(text),
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
  };
  runMouseInput = [](forms::frmMouseInput& form) { form.exec(); };
  machine_.hooks.showMessage = [this](const std::string& m) { window_.showMessage(m); };
  machine_.hooks.askYesNo = [this](const std::string& text, const std::string& title) {
    return askYesNo(text, title);
  };

  lbldividers_ = new QLabel(pane_.Viewer()->viewport());
  lbldividers_->setObjectName("lbldividers");
  lbldividers_->setStyleSheet("background-color: rgb(255, 255, 225); border: 1px solid black; padding: 1px;");
  lbldividers_->setAttribute(Qt::WA_TransparentForMouseEvents);
  lbldividers_->hide();

  ChartViewer* viewer = pane_.Viewer();
  connect(viewer, &ChartViewer::MouseDown, this, &ChartInteractionController::OnMouseDown);
  connect(viewer, &ChartViewer::MouseMove, this, &ChartInteractionController::OnMouseMove);
  connect(viewer, &ChartViewer::MouseUp, this, &ChartInteractionController::OnMouseUp);
  connect(viewer, &ChartViewer::DoubleClick, this, &ChartInteractionController::OnDoubleClick);
  pane_.keyHandler = [this](QKeyEvent* event) { OnKey(event); };
  pane_.popupOnRightButton = true;

  BuildPopupItems();
  BuildMenus();
  BuildToolBar();
  SyncMenus();
}

void ChartInteractionController::TakeSettings() {
  window_.State().marks.MouseAttached = window_.State().settings.MouseAttached != 0;
  SyncMenus();
}

QAction* ChartInteractionController::PopupItem(const std::string& name) const {
  auto it = popupItems_.find(name);
  return it == popupItems_.end() ? nullptr : it->second;
}

QAction* ChartInteractionController::ToolButton(const std::string& name) const {
  auto it = toolButtons_.find(name);
  return it == toolButtons_.end() ? nullptr : it->second;
}

// ---- building ---------------------------------------------------------------------

void ChartInteractionController::BuildPopupItems() {
  QMenu* menu = pane_.PopupMenu();
  for (QAction* a : menu->actions())
    if (!a->objectName().isEmpty()) popupItems_[a->objectName().toStdString()] = a;
  QAction* first = menu->actions().isEmpty() ? nullptr : menu->actions().first();
  auto make = [this, menu](const char* name, const char* caption, auto handler) {
    auto* a = new QAction(caption, menu);
    a->setObjectName(name);
    connect(a, &QAction::triggered, this, handler);
    popupItems_[name] = a;
    return a;
  };
  // The route's items come first, the dividers' and the details' last.
  QAction* top[] = {make("mnuPUSetCursorPos", "Set Cursor Position", [this] { mnuPUSetCursorPos(); }),
                    make("mnuPURouteAdd", "Add Route Point", [this] { mnuPURouteAdd(); }),
                    make("mnuPUInsert", "Insert Route Point", [this] { mnuPUInsert(); }),
                    make("mnuPUDeleteRoutePoint", "Delete Route Point", [this] { mnuPUDeleteRoutePoint(); })};
  for (QAction* a : top) menu->insertAction(first, a);
  menu->insertSeparator(first);
  divHomeSeparator_ = menu->addSeparator();
  menu->addAction(make("mnuPUDivHome", "Dividers Zero Here", [this] { mnuPUDivHome(); }));
  menu->addSeparator();
  menu->addAction(make("mnuPUAISDetails", "AIS Details", [] {}));
  // The tide and stream detail views come with the tide window and the
  // diamond report: until then their items stay grey and unanswered.
  for (const auto& [name, caption] : {std::pair{"mnuPUTidalHeightDetails", "Tidal Height Details"},
                                      std::pair{"mnuPUTidalStreamDetails", "Tidal Stream Details"}}) {
    auto* a = menu->addAction(caption);
    a->setObjectName(name);
    popupItems_[name] = a;
  }
  for (const char* later : {"mnuPUAISDetails", "mnuPUTidalHeightDetails", "mnuPUTidalStreamDetails"})
    popupItems_[later]->setEnabled(false);
  if (QAction* rect = PopupItem("mnuPUZoomRect"))
    connect(rect, &QAction::toggled, this, [this](bool on) { Apply(machine_.SetRectangleZoom(on)); });
}

void ChartInteractionController::BuildMenus() {
  auto connectAction = [this](const char* name, auto handler) {
    if (QAction* a = window_.Action(name)) {
      connect(a, &QAction::triggered, this, handler);
      return a;
    }
    return static_cast<QAction*>(nullptr);
  };
  if (QAction* a = connectAction("mnuDividersOn", [this](bool on) { Apply(machine_.SetDividers(on)); }))
    a->setEnabled(true);
  connectAction("mnuRouteDrag", [this](bool on) { Apply(machine_.SetRouteDrag(on)); });
  connectAction("mnucalcrte", [this] { Apply(machine_.RouteCalculationOpened()); });
  if (QAction* a = connectAction("mnuMouseWayPoint", [this] { mnuMouseWayPoint(); })) a->setEnabled(true);
  if (QAction* a = connectAction("mnuConfigMouseAttached", [this] {
        // The switch is written to the settings file at once.
        const bool attached = !window_.State().marks.MouseAttached;
        const std::string m =
            UpdateSettings(window_.State(), [attached](SettingsRecord& r) { r.MouseAttached = attached ? -1 : 0; });
        if (!m.empty()) window_.showMessage(m);
        Apply(machine_.SetMouseAttached(attached));
      }))
    a->setEnabled(true);
  // mnuWayMouse: Shift + click opens frmMouseInput while it is on.
  for (QMenu* menu : window_.menuBar()->findChildren<QMenu*>()) {
    if (menu->objectName() != "menuWaypoints") continue;
    mnuWayMouse_ = menu->addAction("Add Waypoints with the Mouse");
    mnuWayMouse_->setObjectName("mnuWayMouse");
    mnuWayMouse_->setCheckable(true);
    connect(mnuWayMouse_, &QAction::triggered, this, [this](bool on) { Apply(machine_.SetAddWaypointMode(on)); });
  }
}

void ChartInteractionController::BuildToolBar() {
  QToolBar* bar = window_.ToolBar();
  // Each array's first button (index 0) opens its group; a click on any
  // button first closes whatever group is open.
  for (const char* name : {"cmdFile", "cmdRoute", "cmdTimeDate", "cmdView", "cmdSettings", "cmdWrecks", "cmdZoom"}) {
    if (QAction* a = bar->findChild<QAction*>(name)) {
      toolButtons_[name] = a;
      connect(a, &QAction::triggered, this, [this] { CloseToolGroups(); });
    }
  }
  QAction* zoom = toolButtons_.count("cmdZoom") ? toolButtons_["cmdZoom"] : nullptr;
  if (zoom) {
    disconnect(zoom, &QAction::triggered, this, nullptr);
    connect(zoom, &QAction::triggered, this, [this] { cmdZoom_Click(0); });
    const char* captions[] = {"Rectangle", "In", "Out", "Largest Scale", "Next Scale", "Previous Scale"};
    for (int i = 1; i <= 6; ++i) {
      auto* a = new QAction(captions[i - 1], bar);
      a->setObjectName(QString("cmdZoom%1").arg(i));
      a->setVisible(false);
      bar->addAction(a);
      connect(a, &QAction::triggered, this, [this, i] { cmdZoom_Click(i); });
      toolButtons_["cmdZoom" + std::to_string(i)] = a;
      toolGroups_["cmdZoom"].push_back(a);
    }
  }
  if (QAction* route = toolButtons_.count("cmdRoute") ? toolButtons_["cmdRoute"] : nullptr) {
    connect(route, &QAction::triggered, this, [this] {
      for (QAction* a : toolGroups_["cmdRoute"]) a->setVisible(true);
    });
    int i = 1;
    for (const char* menu : {"mnucalcrte", "mnuRouteSave", "mnuDividersOn", "mnuRouteDrag"}) {
      QAction* target = window_.Action(menu);
      if (!target) continue;
      auto* a = new QAction(target->text(), bar);
      a->setObjectName(QString("cmdRoute%1").arg(i));
      a->setVisible(false);
      bar->addAction(a);
      connect(a, &QAction::triggered, this, [this, target] {
        CloseToolGroups();
        if (target->isEnabled()) target->trigger();
      });
      toolButtons_["cmdRoute" + std::to_string(i)] = a;
      toolGroups_["cmdRoute"].push_back(a);
      ++i;
    }
  }
  cmbRoute_ = new QComboBox(bar);
  cmbRoute_->setObjectName("cmbRoute");
  cmbRoute_->setMinimumContentsLength(24);
  bar->addWidget(cmbRoute_);
}

void ChartInteractionController::CloseToolGroups() {
  for (auto& [name, group] : toolGroups_)
    for (QAction* a : group) a->setVisible(false);
}

void ChartInteractionController::cmdZoom_Click(int index) {
  CloseToolGroups();
  switch (index) {
    case 0:
      for (QAction* a : toolGroups_["cmdZoom"]) a->setVisible(true);
      return;
    case 1:
      if (QAction* rect = PopupItem("mnuPUZoomRect")) rect->trigger();
      return;
    case 2: pane_.ZoomIn(); return;
    case 3: pane_.ZoomOut(); return;
    case 4: pane_.ZoomToChart(); return;
    case 5: pane_.NextScaleChart(); return;
    case 6: {
      pane_.PreviousScaleChart();
      // The chart cursor goes back over the same position on the chart now
      // on show.
      const ChartGeometry& g = pane_.Geometry();
      const float lat = machine_.ChartCursorLat, lon = machine_.ChartCursorLon;
      QPointF s = pane_.Viewer()->ImageToScreen(QPointF(LonToPixel(g, lon), LatToPixel(g, lat)));
      Apply(machine_.SetChartCursor(RoundToInt(s.x()), RoundToInt(s.y()), lat, lon));
      return;
    }
    default: return;
  }
}

// ---- events -------------------------------------------------------------------------

PointerEvent ChartInteractionController::Pointer(QMouseEvent* event, bool moving) const {
  PointerEvent e;
  QPointF at = event->position();
  e.x = RoundToInt(at.x());
  e.y = RoundToInt(at.y());
  Position p = pane_.CoordsFromPixels(at);
  e.lat = p.lat;
  e.lon = p.lon;
  Qt::MouseButtons held = event->buttons();
  if (moving) {
    e.left = held & Qt::LeftButton;
    e.right = held & Qt::RightButton;
  } else {
    e.left = event->button() == Qt::LeftButton;
    e.right = event->button() == Qt::RightButton;
  }
  e.shift = event->modifiers() & Qt::ShiftModifier;
  return e;
}

void ChartInteractionController::OnMouseMove(QMouseEvent* event) {
  if (pane_.Viewer()->ImageHeight() < 1) return;  // the pane has dealt with it
  Apply(machine_.MouseMove(Pointer(event, true)));
}

void ChartInteractionController::OnMouseDown(QMouseEvent* event) {
  if (pane_.Viewer()->ImageHeight() < 1) return;
  PointerEvent e = Pointer(event, false);
  InteractionOutcome out = machine_.MouseDown(e);
  Apply(out);
  if (out.popup) {
    auto enable = [this](const char* name, bool on) {
      if (QAction* a = PopupItem(name)) a->setEnabled(on);
    };
    enable("mnuPUDeleteRoutePoint", out.popupItems.deleteRoutePoint);
    enable("mnuPUInsert", out.popupItems.insert);
    enable("mnuPUAISDetails", out.popupItems.aisDetails);
    if (QAction* home = PopupItem("mnuPUDivHome")) home->setVisible(out.popupItems.dividerHome);
    divHomeSeparator_->setVisible(out.popupItems.dividerHome);
    pane_.SetCursorPosition(machine_.ClickLat, machine_.ClickLon);
    pane_.PopupMenu()->popup(pane_.Viewer()->viewport()->mapToGlobal(event->position().toPoint()));
  }
}

void ChartInteractionController::OnMouseUp(QMouseEvent* event) {
  Apply(machine_.MouseUp(Pointer(event, false)));
}

void ChartInteractionController::OnDoubleClick(QMouseEvent* event) {
  PointerEvent e = Pointer(event, false);
  const ProgramState& s = window_.State();
  DoubleClickCandidates c;
  c.streamsShown = s.settings.ShowTidalStreams != 0;
  for (const Diamond& d : s.streams.Diamonds) c.diamonds.push_back(Position{d.lat, d.Lon});
  c.portsShown = s.settings.ShowTideHeights != 0;
  InstrumentsController* instruments = window_.Instruments();
  if (instruments)
    for (const AISTarget& t : instruments->State().targets.AISTargets) c.aisTargets.push_back(Position{t.Lat, t.Long});
  DoubleClickTarget t = DoubleClickOrder(c, e.lat, e.lon, SearchCircleOf(s.settings));
  if (t.kind == DoubleClickKind::None) return;
  emit DoubleClicked(static_cast<int>(t.kind), t.index);
  switch (t.kind) {
    case DoubleClickKind::None: break;
    case DoubleClickKind::AisTarget:
      if (instruments) instruments->OpenAISDetailsNear(e.lat, e.lon, SearchCircleOf(s.settings));
      break;
    // Waits for the tide window of the tidal heights subsystem.
    case DoubleClickKind::TidalStation: break;
    // Waits for the diamond report of the tidal streams subsystem.
    case DoubleClickKind::Diamond: break;
    // Wait for the wreck report and the user sites of the wrecks subsystem.
    case DoubleClickKind::Wreck:
    case DoubleClickKind::UserSite: break;
  }
}

void ChartInteractionController::OnKey(QKeyEvent* event) {
  const int key = VirtualKey(event->key());
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  KeyContext context;
  if (InstrumentsController* instruments = window_.Instruments()) {
    context.aisOn = instruments->Comms().AISAttached != 0;
    context.gpsValid = instruments->State().own.GPSValid != 0;
    context.gpsLat = instruments->State().own.GPSLat;
    context.gpsLon = instruments->State().own.GPSLong;
  }
  context.streamDataLoaded = !window_.State().streams.Diamonds.empty();
  ChartMenus* menus = window_.findChild<ChartMenus*>();
  context.toolsMenuShown = menus && menus->ToolsMenuShown();
  context.timeNow = window_.State().moment.WorkingTime;
  KeyOutcome k = machine_.KeyDown(key, shift, context);
  Apply(k.effects);
  InstrumentsController* instruments = window_.Instruments();
  switch (k.command) {
    case KeyCommand::None: break;
    // F2 and F3 to F6 act on the AIS target nearest to the cursor.
    case KeyCommand::AisDetails:
      if (instruments) instruments->OpenAISDetailsNear(pane_.CursorLat(), pane_.CursorLon());
      break;
    case KeyCommand::AisFlag:
      if (instruments) instruments->ToggleAISFlagNear(pane_.CursorLat(), pane_.CursorLon(), k.value);
      break;
    case KeyCommand::Viewer:
      pane_.HandleKey(event->key() == Qt::Key_Plus ? Qt::Key_Equal : event->key(), event->modifiers());
      break;
    case KeyCommand::Redraw: pane_.Viewer()->Redraw(); break;
    case KeyCommand::Menu:
      if (QAction* a = window_.Action(k.menu))
        if (a->isEnabled()) a->trigger();
      break;
    case KeyCommand::Memory: window_.showMessage(FormatNumber(static_cast<double>(ResidentBytes()), "#,###")); break;
    case KeyCommand::Brightness: window_.StepIntensity(k.value); break;
    case KeyCommand::ChooseStreamFile:
      if (menus) menus->mnuSelectL25_Click();
      break;
    case KeyCommand::AppendDiamond:
      if (menus) menus->mnuAppendDiamond_Click();
      break;
    case KeyCommand::ShowTracking:
      for (std::size_t i = 0; i < k.trackingText.size() && i < 3; ++i)
        window_.StatusPanel(static_cast<int>(i) + 2)->setText(forms::ToQString(k.trackingText[i]));
      break;
  }
}

// ---- carrying out -----------------------------------------------------------------

void ChartInteractionController::Apply(const InteractionOutcome& out) {
  ChartViewer* viewer = pane_.Viewer();
  if (out.stopTimers) {
    timer1WasActive_ = window_.Timer1().isActive();
    window_.Timer1().stop();
    if (InstrumentsController* instruments = window_.Instruments()) {
      commsWasActive_ = instruments->CommsTimer().isActive();
      instruments->CommsTimer().stop();
    }
  }
  if (out.restartTimers) {
    if (timer1WasActive_) window_.Timer1().start();
    if (commsWasActive_ && window_.Instruments()) window_.Instruments()->CommsTimer().start();
    timer1WasActive_ = commsWasActive_ = false;
  }
  // out.stopAnimation (rectangle zoom) and out.endAnimation (Esc) wait for
  // the route animation of the tidal streams subsystem: no TimerAnimate runs
  // yet, so there is nothing to stop or end.
  if (out.pointer) viewer->SetMousePointer(*out.pointer);
  if (out.positionText) window_.StatusPanel(5)->setText(forms::ToQString(*out.positionText));
  if (out.dividersLabel) {
    lbldividers_->setText(forms::ToQString(*out.dividersLabel));
    lbldividers_->adjustSize();
    if (out.labelX != 0 || out.labelY != 0) {
      // 20 pixels right of and below the pointer, or left of and above it
      // near the right and bottom edges, so that the range stays readable.
      const QWidget* surface = viewer->viewport();
      const ScreenPoint at = FloatingLabelPlace(out.labelX - 20, out.labelY - 20, lbldividers_->width(),
                                                lbldividers_->height(), surface->width(), surface->height());
      lbldividers_->move(RoundToInt(at.x), RoundToInt(at.y));
    }
    lbldividers_->setVisible(!out.dividersLabel->empty());
  }
  if (out.endRectangleZoom) {
    if (QAction* rect = PopupItem("mnuPUZoomRect")) rect->setChecked(false);
    pane_.SetRectangleZoom(false);
  }
  if (out.animateMenusDisable) AnimateMenusDisable();
  if (out.waypointsChanged) {
    const auto file = WaypointFilePath(window_.State().settings, window_.State().folders);
    if (!WriteWaypointFile(file, window_.State().waypoints.ChartWaypoints))
      window_.showMessage("Unable to save waypoints to " + file.string());
  }
  if (out.routeChanged) {
    if (RouteCount(window_.State().passage) >= 1) {
      EnableRouteMenus();
    } else {
      DisableRouteMenus();
    }
    UpdateRouteCombo();
    window_.UpdateCaption();
    // A point added at the end: its leg's wind from the store when the
    // stored wind is in use.
    const int count = RouteCount(window_.State().passage);
    if (count > routeCount_) {
      const NewLegWind wind = WindForNewLastLeg(window_.State());
      if (wind.asked && wind.leg.found)
        window_.State().passage.Route[static_cast<std::size_t>(wind.leg.leg)].LegWind = wind.leg.wind;
      if (!wind.message.empty()) window_.showMessage(wind.message);
    }
    routeCount_ = count;
  }
  if (out.routeChanged || out.modeChanged) {
    SyncMenus();
    window_.UpdateStatusBar();
  }
  if (out.legDefaults) {
    window_.State().passage.LegSpeed = out.legDefaults->speed;
    window_.State().UseLeewaySwitch = out.legDefaults->useLeeway;
  }
  // Esc's clearing of a route: a time the user set gives way to the clock.
  if (out.timesBackToNow && window_.State().moment.userTimeSet) window_.BackToClockTime();
  if (out.redraw) viewer->Redraw();
  if (out.openMouseInput) OpenMouseInput(machine_.CursorLat, machine_.CursorLon);
}

void ChartInteractionController::SyncMenus() {
  const ChartMarks& m = window_.State().marks;
  if (QAction* a = window_.Action("mnuDividersOn")) a->setChecked(m.DividersOn);
  if (QAction* a = window_.Action("mnuRouteDrag")) a->setChecked(m.RouteDragOn);
  if (mnuWayMouse_) mnuWayMouse_->setChecked(m.InputMode == 2);
  if (QAction* a = window_.Action("mnuConfigMouseAttached")) {
    a->setChecked(m.MouseAttached);
    a->setText(m.MouseAttached ? "Mouse in Use (Click for Touch Input)" : "Touch Input (Click for Mouse Input)");
  }
  if (!m.DividersOn && !lbldividers_->text().isEmpty() && lbldividers_->isVisible()) lbldividers_->hide();
}

void ChartInteractionController::UpdateRouteCombo() {
  const PassageState& p = window_.State().passage;
  cmbRoute_->clear();
  for (int i = 1; i <= RouteCount(p); ++i) {
    const RoutePoint& r = p.Route[static_cast<std::size_t>(i)];
    std::string text = std::to_string(i) + "  " + (r.Name.empty() ? LatToText(r.Lat) + " " + LonToText(r.Lon) : r.Name);
    cmbRoute_->addItem(forms::ToQString(text));
  }
}

void ChartInteractionController::EnableRouteMenus() {
  for (const char* name : {"mnucalcrte", "mnuOptimiseDeparture", "mnuRouteSave", "mnuRouteDrag", "mnuCalcCOG"})
    if (QAction* a = window_.Action(name)) a->setEnabled(true);
}

void ChartInteractionController::DisableRouteMenus() {
  for (const char* name : {"mnucalcrte", "mnuOptimiseDeparture", "mnuRouteSave", "mnuRouteDrag", "mnuCalcCOG"})
    if (QAction* a = window_.Action(name)) a->setEnabled(false);
  AnimateMenusDisable();
}

void ChartInteractionController::AnimateMenusEnable() {
  for (const char* name : {"mnuAnimateStart", "mnuAnimatePause", "mnuAnimateReverse", "mnuAnimateStop"})
    if (QAction* a = window_.Action(name)) a->setEnabled(true);
}

void ChartInteractionController::AnimateMenusDisable() {
  for (const char* name : {"mnuAnimateStart", "mnuAnimatePause", "mnuAnimateReverse", "mnuAnimateStop"})
    if (QAction* a = window_.Action(name)) a->setEnabled(false);
}

// ---- popup items and commands -------------------------------------------------------

void ChartInteractionController::mnuPUSetCursorPos() {
  // The chart cursor to the screen point of the image's centre.
  ChartViewer* viewer = pane_.Viewer();
  const int cx = viewer->ImageWidth() / 2, cy = viewer->ImageHeight() / 2;
  QPointF s = viewer->ImageToScreen(QPointF(cx, cy));
  const ChartGeometry& g = pane_.Geometry();
  Apply(machine_.SetChartCursor(RoundToInt(s.x()), RoundToInt(s.y()), PixelToLat(g, cy), PixelToLon(g, cx)));
  pane_.SetCursorPosition(machine_.CursorLat, machine_.CursorLon);
}

void ChartInteractionController::mnuPUDivHome() {
  machine_.CursorLat = machine_.ClickLat;
  machine_.CursorLon = machine_.ClickLon;
  Apply(machine_.DividerHome());
}

void ChartInteractionController::mnuPURouteAdd() {
  const bool touch = !window_.State().marks.MouseAttached;
  const float lat = touch ? machine_.ChartCursorLat : machine_.ClickLat;
  const float lon = touch ? machine_.ChartCursorLon : machine_.ClickLon;
  Apply(machine_.AddRoutePoint(lat, lon));
}

void ChartInteractionController::mnuPUInsert() { Apply(machine_.InsertRoutePoint(machine_.ClickLat, machine_.ClickLon)); }

void ChartInteractionController::mnuPUDeleteRoutePoint() {
  Apply(machine_.DeleteRoutePointNear(machine_.ClickLat, machine_.ClickLon));
}

void ChartInteractionController::mnuMouseWayPoint() { OpenMouseInput(machine_.CursorLat, machine_.CursorLon); }

void ChartInteractionController::OpenMouseInput(float lat, float lon) {
  ProgramState& s = window_.State();
  forms::frmMouseInput form(lat, lon, s.waypoints, WaypointFilePath(s.settings, s.folders), &window_);
  form.showMessage = [this](const std::string& m) { window_.showMessage(m); };
  runMouseInput(form);
  if (form.Added()) pane_.Viewer()->Redraw();
}

}  // namespace kelvane::app
