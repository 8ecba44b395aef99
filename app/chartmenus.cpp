#include "app/chartmenus.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>

#include "app/chartinteraction.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "chart/chartmodes.h"
#include "forms/frmOutlineEdit.h"
#include "forms/frmloadchart.h"
#include "forms/messages.h"
#include "state/settingsroad.h"
#include "streams/diamond.h"
#include "streams/tidalstreams.h"

namespace kelvane::app {

ChartMenus::ChartMenus(FrmChart& window) : QObject(&window), window_(window) {
  setObjectName("ChartMenus");
  chooseOutline = [this](const std::filesystem::path& folder) {
    return forms::FromQString(QFileDialog::getOpenFileName(&window_, "Load Outline",
                                                           forms::ToQString(folder.string()),
                                                           "Outline files (*.l40)"));
  };
  chooseStreamFile = [this] {
    return forms::SelectL25(&window_, window_.State().folders, window_.State().settings);
  };
  auto enable = [this](const char* name, auto handler) {
    QAction* a = window_.Action(name);
    if (!a) return static_cast<QAction*>(nullptr);
    a->setEnabled(true);
    connect(a, &QAction::triggered, this, handler);
    return a;
  };
  enable("mnuGPSCentre", [this] { mnuGPSCentre_Click(); });
  enable("mnuOutlineLoad", [this] { mnuOutlineLoad_Click(); });
  if (QAction* edit = window_.Action("mnuOutlineEdit")) {
    connect(edit, &QAction::triggered, this, [this] { mnuOutlineEdit_Click(); });
  }
  enable("mnuShowThumbnail", [this](bool on) { mnuShowThumbnail_Click(on); });
  enable("mnuShowTools", [this](bool on) { mnuShowTools_Click(on); });
  enable("mnuSelectL25", [this] { mnuSelectL25_Click(); });
  enable("mnuAppendDiamond", [this] { mnuAppendDiamond_Click(); });
  tools_ = window_.menuBar()->findChild<QMenu*>("menuTools");
  // The maintenance tools are out of sight until asked for.
  if (tools_) tools_->menuAction()->setVisible(false);
  // The check mark of Keep Boat Centred follows the settings in force.
  if (QMenu* chart = window_.menuBar()->findChild<QMenu*>("menuChart")) {
    connect(chart, &QMenu::aboutToShow, this, [this] {
      if (QAction* a = window_.Action("mnuGPSCentre")) a->setChecked(window_.State().settings.GPSCentre != 0);
    });
  }
  ConnectToolbar();
}

QMenu* ChartMenus::ButtonMenu(const char* button) const {
  const std::string name = button;
  const char* menu = name == "cmdFile" ? "menuFile" : name == "cmdView" ? "menuChart" : name == "cmdWrecks" ? "menuWrecks" : "";
  return *menu ? window_.menuBar()->findChild<QMenu*>(menu) : nullptr;
}

void ChartMenus::ConnectToolbar() {
  QToolBar* bar = window_.ToolBar();
  if (!bar) return;
  for (const char* name : {"cmdFile", "cmdView", "cmdWrecks"}) {
    QAction* button = bar->findChild<QAction*>(name);
    QMenu* menu = ButtonMenu(name);
    if (!button || !menu) continue;
    // The button opens its menu under itself: the entries that can act are
    // enabled, those waiting for their subsystem are greyed.
    connect(button, &QAction::triggered, this, [bar, button, menu] {
      QWidget* w = bar->widgetForAction(button);
      menu->popup(w ? w->mapToGlobal(QPoint(0, w->height())) : QCursor::pos());
    });
  }
}

// ---- Keep Boat Centred -------------------------------------------------------------

void ChartMenus::mnuGPSCentre_Click() {
  ProgramState& state = window_.State();
  const bool on = state.settings.GPSCentre == 0;
  if (const std::string m = UpdateSettings(state, [on](SettingsRecord& r) { r.GPSCentre = on ? -1 : 0; }); !m.empty())
    window_.showMessage(m);
  if (QAction* a = window_.Action("mnuGPSCentre")) a->setChecked(on);
  if (InstrumentsController* instruments = window_.Instruments()) {
    // The polling loop follows the boat from its next display pass; with a
    // fix in hand the view goes to the boat now.
    instruments->Comms().GPSCentre = state.settings.GPSCentre;
    const OwnShipState& own = instruments->State().own;
    if (on && own.GPSValid == -1 && own.GPSLat != 0) window_.Chart()->LocateGPS(own.GPSLat, own.GPSLong);
  }
  emit window_.RedrawRequested();
}

// ---- outline ------------------------------------------------------------------------

void ChartMenus::mnuOutlineLoad_Click() {
  const std::filesystem::path root = window_.State().folders.DataRoot();
  QSettings& store = window_.Chart()->ViewStore();
  const std::string last = forms::FromQString(store.value("Outline/File").toString());
  // The last outline's folder, or OutlineData the first time.
  const std::filesystem::path folder = last.empty() ? root / "OutlineData" : (root / last).parent_path();
  const std::string chosen = chooseOutline(folder);
  if (chosen.empty()) return;
  if (!window_.Chart()->LoadOutline(chosen)) return;
  store.setValue("Outline/File", forms::ToQString(std::filesystem::path(chosen).lexically_proximate(root).string()));
  if (QAction* edit = window_.Action("mnuOutlineEdit")) edit->setEnabled(true);
}

void ChartMenus::mnuOutlineEdit_Click() {
  ChartPane* pane = window_.Chart();
  forms::frmOutlineEdit form(pane->EditableOutline(), pane->OutlineFile(), &window_);
  form.showMessage = window_.showMessage;
  form.changed = [pane] { pane->Viewer()->Redraw(); };
  form.exec();
}

// ---- thumbnail and tools ---------------------------------------------------------------

void ChartMenus::mnuShowThumbnail_Click(bool on) {
  ChartPane* pane = window_.Chart();
  QLabel* thumb = pane->ThumbnailView();
  if (on) {
    thumb->move(std::max(0, pane->width() - thumb->width() - 24), 8);
    thumb->raise();
  }
  thumb->setVisible(on);
}

bool ChartMenus::ToolsMenuShown() const { return tools_ && tools_->menuAction()->isVisible(); }

void ChartMenus::mnuShowTools_Click(bool on) {
  if (tools_) tools_->menuAction()->setVisible(on);
}

void ChartMenus::mnuSelectL25_Click() {
  const std::string chosen = chooseStreamFile();
  if (chosen.empty()) return;
  // ReadStreamFile takes the stream file by its name in the TS folder.
  StreamFileRead read = ReadStreamFile(window_.State().folders.DataRoot(), std::filesystem::path(chosen).stem().string());
  if (!read.ok()) {
    window_.showMessage(read.message);
    return;
  }
  window_.State().streams.StreamFileDiamonds = std::move(read.diamonds);
}

void ChartMenus::mnuAppendDiamond_Click() {
  ProgramState& state = window_.State();
  const std::vector<Diamond>& file = state.streams.StreamFileDiamonds;
  std::vector<Position> places;
  places.reserve(file.size());
  for (const Diamond& d : file) places.push_back(Position{d.lat, d.Lon});
  // The entry picked is the stream file's diamond under the cursor.
  const ChartInteraction& machine = window_.Interaction()->Machine();
  const int picked = NearestWithinCircle(places, machine.CursorLat, machine.CursorLon, SearchCircleOf(state.settings));
  if (picked < 0) return;
  std::vector<Diamond> diamonds = state.streams.Diamonds;
  diamonds.push_back(file[static_cast<std::size_t>(picked)]);
  SetDiamonds(state.streams, std::move(diamonds));
  window_.CalculateStreamsNow();
  emit window_.RedrawRequested();
}

}  // namespace kelvane::app
