// The chart pane inside the main window: it replaces the placeholder, its
// chooser and outline commands are on the Chart menu, and the status bar
// follows its chart.
#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QTimer>

#include "app/chartmenus.h"
#include "app/chartpane.h"
#include "app/mainwindow.h"
#include "app/mainwindow_instruments.h"
#include "core/positions.h"

namespace kelvane::app {

void FrmChart::InstallChart() {
  chart_ = new ChartPane(state_.folders, state_.settings, this);
  chart_->showMessage = [this](const std::string& text) { showMessage(text); };
  setCentralWidget(chart_);
  if (QAction* select = Action("mnuSelectChartVisually")) {
    select->setEnabled(true);
    connect(select, &QAction::triggered, this, [this] {
      // The serial polling waits while the chooser is up: its display pass
      // would redraw and recentre a chart that may be about to change.
      QTimer* comms = instruments_ ? &instruments_->CommsTimer() : nullptr;
      const bool polling = comms && comms->isActive();
      if (polling) comms->stop();
      if (chart_->SelectChartVisually()) UpdateStatusBar();
      if (polling) comms->start();
    });
  }
  // The Chart menu's own commands, the tools and the toolbar's menu buttons.
  new ChartMenus(*this);
  connect(chart_, &ChartPane::StatusChanged, this, [this] { UpdateStatusBar(); });
  // A chart of another area brings its own diamonds and reference ports.
  // The first chart of the load is covered by the load's own steps.
  connect(chart_, &ChartPane::ChartChanged, this, [this] {
    if (!loaded_) return;
    LoadDiamonds();
    LoadTides(state_.moment.TideDay, state_.moment.TideYear);
  });
  // The cursor read-out of panel 5 follows the chart's modes
  // (app/chartinteraction.cpp).
  connect(this, &FrmChart::RedrawRequested, chart_->Viewer(), &ChartViewer::Redraw);
  // The overlays paint after the chart image (mainwindow_layers.cpp).
  InstallLayers();
}

void FrmChart::LoadChartImage() {
  chart_->LoadChart();
  chart_->Viewer()->setFocus();
}

}  // namespace kelvane::app
