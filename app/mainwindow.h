// frmChart: the main window. It owns the program's state and the event
// loop's timers, runs the load sequence, and hosts the chart, the menus,
// the tool bar and the five status panels.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "core/windowtext.h"
#include "forms/formsupport.h"
#include "passage/routeform.h"
#include "state/programstate.h"

class QLabel;
class QPainter;
class QSettings;
class QToolBar;

namespace kelvane::app {

class ChartPane;
class ChartInteractionController;
class InstrumentsController;
struct LayerControls;

class FrmChart : public QMainWindow {
  Q_OBJECT
 public:
  explicit FrmChart(ProgramState state, QWidget* parent = nullptr);
  ~FrmChart() override;

  // The load sequence of the main window, in its order.
  void Load();

  // Public operations that forms call.
  void UpdateCaption();
  void UpdateStatusBar();
  // The route's combo and menus (mainwindow_interaction.cpp).
  void UpdateRouteCombo();
  void EnableRouteMenus();
  void DisableRouteMenus();
  void AnimateMenusEnable();
  void AnimateMenusDisable();
  ChartInteractionController* Interaction() const { return interaction_; }

  ProgramState& State() { return state_; }
  QAction* Action(const std::string& name) const;
  QLabel* StatusPanel(int number) const;  // 1 .. 5
  QToolBar* ToolBar() const { return toolBar_; }
  QTimer& Timer1() { return timer1_; }
  InstrumentsController* Instruments() const { return instruments_; }
  ModeFlags& Mode() { return mode_; }

  // The clock (mainwindow_clock.cpp). The idle tick counts its 100 ms
  // ticks; about once a minute MinuteTick reads the clock and runs
  // Timer1Routine, which the polling loop of the instruments also calls
  // while a port is attached. Public so that a test can count a minute's
  // ticks and set the clock without waiting.
  void Timer1_Timer();
  void MinuteTick();
  void Timer1Routine();
  // Lets go of a time set by the user: the clock's moment is in force
  // again, with its day's curves and the streams now (the chart's Esc
  // brings the times back to now).
  void BackToClockTime();
  std::function<std::tm()> clock;  // the system clock; a test may set another

  // The settings forms, run as the menus run them.
  void RunConfigure(int variant);
  void RunTimeDate();
  // The tides menu's area and port dialogs (mainwindow_tidedialogs.cpp).
  void mnuArea_Click();
  void mnuPortList_Click();
  // The help menu (mainwindow_help.cpp).
  void mnuAbout_Click();
  void mnuQuickInstructions_Click();
  // The boat's polar tables (mainwindow_polars.cpp).
  void mnuPolarPlot_Click();
  void mnuEditPolar_Click();

  forms::MessageSink showMessage;
  // The file box of the waypoint and route files: caption, folder it opens
  // on, whether it names a file to write. Qt's file box by default; a test
  // answers it directly.
  std::function<QString(const QString&, const QString&, bool)> chooseFile;

  // The chart on show (mainwindow_chart.cpp).
  ChartPane* Chart() const { return chart_; }

  // The overlays and their switches (mainwindow_layers.cpp).
  LayerControls& Layers() const { return *layers_; }
  void PaintOverlays(QPainter& painter);
  void SetViewLayers();
  void RollTideTime(bool plus);
  void StepIntensity(int step);
  void SetNightView(bool night);
  // The stream of every diamond at the ports' present state.
  void CalculateStreamsNow();
  // The wind layer and the GRIB request (mainwindow_wind_layer.cpp).
  void mnuSailDocs_Click();
  // The route menu's calculation and its results (mainwindow_passage.cpp).
  void mnucalcrte_Click();
  void mnuLastRouteResults_Click();
  // What the calculation forms (route, dive route, sweep) share: the idle
  // timer held while they work, the moment and chart afterwards, and the
  // results form.
  std::function<void(bool)> HoldWhileCalculating();
  void AfterCalculation(bool calculated);
  void ShowCalculationResults();
  // The route menu's departure sweep and its results (mainwindow_sweep.cpp).
  void mnuOptimiseDeparture_Click();
  // The passage plan of the last calculation: PDF and print
  // (mainwindow_plan.cpp).
  void mnuPassagePlan_Click();
  // The route menu's single leg (mainwindow_setleg.cpp).
  void mnuSetLeg_Click();
  // The route menu's dive route (mainwindow_dive.cpp).
  void mnuDiverRoute_Click();
  // Course over ground and man overboard (mainwindow_drift.cpp); the
  // casualty display at a predicted position.
  void mnuCalcCOG_Click();
  void mnuMOB_Click();
  void ShowCasualty(Position at);
  // The wind forms (mainwindow_wind.cpp): the leg speeds from the wind over
  // the route, run over `parent`, and the true and apparent wind calculator.
  void RunWindForm(QWidget* parent);
  void mnuWindTrueApp_Click();
  // The files of waypoints and routes (mainwindow_files.cpp).
  void mnuRouteSave_Click();
  void mnuFilWayLoad_Click();
  void mnuImport_Click();
  // The wind store: the GRIB import, its two lists and the route's wind
  // from it (mainwindow_gribimport.cpp).
  void mnuWindGribImport_Click();
  void mnuSmartMet_Click();
  // Makes `file` the waypoint file in use: settings, chart marks, panel.
  void UseWaypointFile(const std::filesystem::path& file);

 signals:
  void RedrawRequested();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void BuildToolBar();
  void ConnectMenus();
  void ConnectPassageMenus();
  void ConnectSweepMenu();
  void ConnectPlanMenu();
  void ConnectSetLegMenu();
  void ConnectDiveMenu();
  void ConnectDriftMenus();
  // The GPS as the leg forms see it: the own ship's fix, or none.
  GpsReading CurrentGpsReading() const;
  void ConnectWindMenus();
  void ConnectFileMenus();
  // A name box for a new waypoint file: an empty one, or the chart's
  // waypoints saved under it; the file becomes the one in use.
  void NameWaypointFile(bool createEmpty);
  void ToggleSetting(const std::string& action);
  void ConnectTideDialogs();
  void ConnectHelp();
  void ConnectWindStore();
  void ConnectPolarMenus();
  // Keeps the set-up a polar form left chosen as the wind set-up's.
  void KeepPolarSetUp(int index);
  void SaveGeometry();
  void RestoreGeometry();
  void Shutdown();
  void Redraw();
  void InstallChart();  // the chart pane as the central widget
  void InstallInteraction();  // the chart's modes over the pane
  ChartStatus CurrentChartStatus() const;  // panels 2 and 5
  void LoadChartImage();
  // Loads the reference ports and the curves of a day, then the ports'
  // state at the working time; a failure is shown and the window goes on
  // without curves.
  void LoadTides(std::int16_t day, std::int16_t year);
  // The diamonds of the current chart's area.
  void LoadDiamonds();
  void InstallLayers();
  void InstallWind();
  void ToggleLayer(const std::string& action);

  ProgramState state_;
  ChartPane* chart_ = nullptr;
  std::map<std::string, QAction*> actions_;
  QLabel* panels_[5] = {};
  QToolBar* toolBar_ = nullptr;
  QTimer timer1_;
  IdleTicker ticker_;
  ModeFlags mode_;
  std::unique_ptr<QSettings> windowStore_;
  bool loaded_ = false;
  bool calculating_ = false;  // a route calculation is working its legs
  InstrumentsController* instruments_ = nullptr;  // a child of the window
  ChartInteractionController* interaction_ = nullptr;  // a child of the window
  std::unique_ptr<LayerControls> layers_;
};

}  // namespace kelvane::app
