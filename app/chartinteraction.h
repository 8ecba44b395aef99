// The chart window's modes on the screen: the viewer's mouse and key events
// go through the ChartInteraction state machine, and what it decides is
// carried out here: pointer shapes, the dividers label, the popup menu and
// its enabling, the status bar and caption, the route combo and the route
// menus, the timers held during a drag, frmMouseInput, and the toolbar's
// groups of buttons. Nothing is drawn here: the overlays read ChartMarks.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <map>
#include <string>

#include "chart/chartmodes.h"

class QAction;
class QComboBox;
class QKeyEvent;
class QLabel;
class QMouseEvent;

namespace kelvane::forms {
class frmMouseInput;
}

namespace kelvane::app {

class ChartPane;
class FrmChart;

class ChartInteractionController : public QObject {
  Q_OBJECT
 public:
  ChartInteractionController(FrmChart& window, ChartPane& pane);

  ChartInteraction& Machine() { return machine_; }
  QLabel* DividersLabel() const { return lbldividers_; }
  QComboBox* RouteCombo() const { return cmbRoute_; }
  QAction* PopupItem(const std::string& name) const;
  QAction* ToolButton(const std::string& name) const;

  // Yes/No under a title; a box unless a test answers.
  std::function<bool(const std::string& text, const std::string& title)> askYesNo;
  // Runs frmMouseInput; the default shows it modally. A test fills and
  // presses OK itself.
  std::function<void(forms::frmMouseInput&)> runMouseInput;

  // Mouse or touch input as the settings say (after the load).
  void TakeSettings();

  // The route's pieces of the window.
  void UpdateRouteCombo();
  void EnableRouteMenus();
  void DisableRouteMenus();
  void AnimateMenusEnable();
  void AnimateMenusDisable();

  // The popup items and menu commands, public for the tests.
  void mnuPUSetCursorPos();
  void mnuPUDivHome();
  void mnuPURouteAdd();
  void mnuPUInsert();
  void mnuPUDeleteRoutePoint();
  void mnuMouseWayPoint();
  void cmdZoom_Click(int index);

 signals:
  void DoubleClicked(int kind, int index);

 private:
  void BuildPopupItems();
  void BuildMenus();
  void BuildToolBar();
  void OnMouseDown(QMouseEvent* event);
  void OnMouseMove(QMouseEvent* event);
  void OnMouseUp(QMouseEvent* event);
  void OnDoubleClick(QMouseEvent* event);
  void OnKey(QKeyEvent* event);
  PointerEvent Pointer(QMouseEvent* event, bool moving) const;
  void Apply(const InteractionOutcome& out);
  void SyncMenus();
  void OpenMouseInput(float lat, float lon);
  void CloseToolGroups();

  FrmChart& window_;
  ChartPane& pane_;
  ChartInteraction machine_;
  QLabel* lbldividers_ = nullptr;
  QComboBox* cmbRoute_ = nullptr;
  QAction* divHomeSeparator_ = nullptr;
  QAction* mnuWayMouse_ = nullptr;
  std::map<std::string, QAction*> popupItems_;
  std::map<std::string, QAction*> toolButtons_;
  std::map<std::string, std::vector<QAction*>> toolGroups_;
  bool timer1WasActive_ = false;
  int routeCount_ = 0;  // points of the route after the last outcome carried out
  bool commsWasActive_ = false;
};

}  // namespace kelvane::app
