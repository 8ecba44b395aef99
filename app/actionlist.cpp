#include "app/actionlist.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QToolBar>
#include <QWidget>
#include <QWidgetAction>
#include <set>

namespace kelvane::app {

namespace {

// The toolkit itself listens to every action it shows: each menu and tool
// button connects its own private slot (named "_q_...") to triggered(). A
// count of receivers would therefore call every entry answered. The object
// dump names each receiver of each signal, so the toolkit's own can be told
// from the program's handlers.
QString ConnectionDump(const QAction& action) {
  static QString* sink = nullptr;
  QString text;
  sink = &text;
  QtMessageHandler previous =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& line) { *sink += line + '\n'; });
  action.dumpObjectInfo();
  qInstallMessageHandler(previous);
  sink = nullptr;
  return text;
}

bool Answered(const QAction& action) {
  bool inUserSignal = false;
  for (const QString& raw : ConnectionDump(action).split('\n')) {
    const QString line = raw.trimmed();
    if (line.startsWith("signal:")) {
      inUserSignal = line.startsWith("signal: triggered") || line.startsWith("signal: toggled");
    } else if (line.startsWith("SIGNALS IN")) {
      break;
    } else if (inUserSignal && (line.startsWith("-->") || line.startsWith("<functor")) && !line.contains(" _q_")) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::vector<ActionRow> ListActions(const QWidget& window) {
  // The toolkit's own actions: the headings of menus and the show/hide
  // switches of tool bars and docked panes.
  std::set<const QAction*> skip;
  for (const QMenu* menu : window.findChildren<QMenu*>()) skip.insert(menu->menuAction());
  for (const QToolBar* bar : window.findChildren<QToolBar*>()) skip.insert(bar->toggleViewAction());
  for (const QDockWidget* dock : window.findChildren<QDockWidget*>()) skip.insert(dock->toggleViewAction());

  std::vector<ActionRow> rows;
  for (const QAction* a : window.findChildren<QAction*>()) {
    // A widget placed on a tool bar (the route combo) answers through the
    // widget's own signals, not through its action.
    if (a->isSeparator() || skip.count(a) || qobject_cast<const QWidgetAction*>(a) ||
        a->objectName().startsWith("_q_"))
      continue;
    ActionRow row;
    row.name = a->objectName().toStdString();
    row.caption = a->text().remove('&').toStdString();
    row.enabled = a->isEnabled();
    row.connected = Answered(*a);
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string ActionListText(const std::vector<ActionRow>& rows) {
  std::string text;
  for (const ActionRow& r : rows) {
    text += (r.name.empty() ? std::string("(unnamed)") : r.name) + '\t' + r.caption + '\t' +
            (r.enabled ? "enabled" : "disabled") + '\t' + (r.connected ? "connected" : "no handler") + '\n';
  }
  return text;
}

const std::vector<AwaitingAction>& ActionsAwaitingWork() {
  static const std::vector<AwaitingAction> awaiting = {
      {"mnuLoadExistRoute", "the waypoint and route managers"},
      {"mnuRouteWaypoints", "the waypoint and route managers"},
      {"mnuwayedit", "the waypoint and route managers"},
      {"mnuwaycopy", "the waypoint and route managers"},
      {"mnuGoToWaypoint", "the waypoint and route managers"},
      {"mnuHazardEdit", "the waypoint and route managers"},
      {"mnuCOGToGoogle", "the waypoint and route managers"},
      {"mnutides", "the tide window and almanac"},
      {"mnusunrise", "the tide window and almanac"},
      {"mnumonth", "the tide window and almanac"},
      {"mnumaintainfile", "the tide window and almanac"},
      {"mnuPUTidalHeightDetails", "the tide window and almanac"},
      {"mnuReadTabFile", "the diamond editor and stream reports"},
      {"mnuPUTidalStreamDetails", "the diamond editor and stream reports"},
      {"mnuStreamstoCSV", "harmonic stream stations"},
      {"mnuAnimateStart", "route animation"},
      {"mnuAnimatePause", "route animation"},
      {"mnuAnimateReverse", "route animation"},
      {"mnuAnimateStop", "route animation"},
      {"mnuShowHistorical", "tracks"},
      {"mnuhistPlot", "tracks"},
      {"mnuremovehistplot", "tracks"},
      {"mnutrackoff", "tracks"},
      {"mnuLogGPS", "logging and replay"},
      {"mnuLogAIS", "logging and replay"},
      {"mnuStopGPSDataLog", "logging and replay"},
      {"mnuStopAISDataLog", "logging and replay"},
      {"mnuGPSReplay", "logging and replay"},
      {"mnuAISReplay", "logging and replay"},
      {"mnuOpenRoute", "upload to a GPS"},
      {"mnuViewWrecksShow", "wrecks and dive sites"},
      {"mnuSearchWrecks", "wrecks and dive sites"},
      {"mnuUserWrecks", "wrecks and dive sites"},
  };
  return awaiting;
}

}  // namespace kelvane::app
