// The chart on show in the main window: the viewer, the 150 x 150
// thumbnail, the catalogue of the area, the chart's calibration and the
// view rules. It loads the chart (DrawChart), converts the pointer to a
// position, moves along the ladder of detail by command and at paint time,
// keeps the view rectangle across runs and answers the zoom and pan keys.
// Overlays draw through OverlayPaint with the conversions of Geometry().
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/chartviewer.h"
#include "chart/catalogue.h"
#include "chart/georef.h"
#include "chart/outline.h"
#include "core/datatree.h"
#include "core/settings.h"

class QDialog;
class QLabel;
class QMenu;
class QSettings;

namespace kelvane::app {

class ChartPane : public QWidget {
  Q_OBJECT
 public:
  // folders and settings belong to the main window and outlive the pane.
  ChartPane(const Folders& folders, SettingsRecord& settings, QWidget* parent = nullptr);
  ~ChartPane() override;

  ChartViewer* Viewer() const { return viewer_; }
  QLabel* ThumbnailView() const { return thumbnail_; }
  const ChartGeometry& Geometry() const { return geometry_; }
  const std::vector<ChartRecord>& Catalogue() const { return catalogue_; }
  const ChartRecord& CurrentChart() const { return geometry_.chart; }

  // Where the messages go: a "Kelvane" box unless a test puts its own.
  std::function<void(const std::string&)> showMessage;
  // What happens when the chart image has no height at a mouse movement:
  // by default the message, the factory chart written to the settings file
  // and the end of the program.
  std::function<void()> onChartFileError;
  // How that default ends the program (a test keeps it running).
  std::function<void()> endProgram;

  // ReadChartsTable and SelectCurrentChart for the settings in force.
  void ReadCatalogue();
  // DrawChart: loads <ChartPath>.l55, sets the image scales, the
  // thumbnail and the saved view. False (with "error code: N" shown) when
  // the image can't be read; the old view then stays.
  bool DrawChart();
  // The start-up and after-dialog sequence: catalogue, chart, image.
  void LoadChart();

  // The ladder of detail from the cursor position. Each returns whether
  // the chart changed.
  bool ZoomToChart();
  bool PreviousScaleChart();
  bool NextScaleChart();

  // The zoom and pan commands and keys.
  void ZoomIn();
  void ZoomOut();
  void ZoomToHeight();
  void ZoomToWidth();
  void SetRectangleZoom(bool on);
  void HandleKey(int key, Qt::KeyboardModifiers modifiers);
  void LocatePoint(float lat, float lon);
  void LocateGPS(float lat, float lon);

  // The position under the pointer, as the last mouse movement left it.
  float CursorLat() const { return cursorLat_; }
  float CursorLon() const { return cursorLon_; }
  void SetCursorPosition(float lat, float lon);
  // Screen point of the viewport to a position.
  Position CoordsFromPixels(QPointF screen) const;
  const ViewCorners& Corners() const { return corners_; }

  // The outline layer: reads an .l40 file (message on failure) and draws
  // it over the chart.
  bool LoadOutline(const std::filesystem::path& file);
  void ClearOutline() { outline_.clear(); }
  const std::vector<Position>& Outline() const { return outline_; }
  // The outline for frmOutlineEdit to move, and the file it came from.
  std::vector<Position>& EditableOutline() { return outline_; }
  const std::filesystem::path& OutlineFile() const { return outlineFile_; }

  // The view store: section "Settings", keys Left, Top, Width, Height.
  QSettings& ViewStore() const { return *viewStore_; }

  // mnuSelectChartVisually: the chooser, then the chart it chose. Returns
  // whether a chart was chosen; without OK nothing changes.
  bool SelectChartVisually();
  // Runs the chooser form; by default modally. A test drives it itself.
  std::function<void(QDialog&)> runChooser;

  // The popup menu mnuPopUp, for the window to add its items to.
  QMenu* PopupMenu() const { return popup_; }
  // When set, every key of the viewer goes here instead of the view's own
  // key handling (the window's key table calls HandleKey for the view keys).
  std::function<void(QKeyEvent*)> keyHandler;
  // When set, the window shows the popup menu itself at the right button
  // and the context menu event does nothing.
  bool popupOnRightButton = false;

 signals:
  void ChartChanged();
  void CursorMoved(float lat, float lon);
  // The overlays of the chart, drawn after the image at each paint.
  void OverlayPaint(QPainter& painter);
  void StatusChanged();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BuildPopupMenu();
  bool SwitchTo(std::optional<std::size_t> index, bool previous);
  void OnPaintStarting();
  void OnPaint(QPainter& painter);
  void OnMouseMove(QMouseEvent* event);
  void OnKey(QKeyEvent* event);
  // The chart in use and its area, into the settings file at once.
  void WriteChartChoice(const ChartChoice& choice, const std::string& area);
  void ApplyZoom(float zoom);
  void RestoreView(const std::optional<ViewRect>& saved);
  ViewState CurrentViewState() const;

  const Folders& folders_;
  SettingsRecord& settings_;
  ChartViewer* viewer_ = nullptr;
  QLabel* thumbnail_ = nullptr;
  QMenu* popup_ = nullptr;
  std::unique_ptr<QSettings> viewStore_;
  std::vector<ChartRecord> catalogue_;
  ChartGeometry geometry_;
  std::vector<Position> outline_;
  std::filesystem::path outlineFile_;
  ViewCorners corners_;
  float cursorLat_ = 0, cursorLon_ = 0;
  bool saveView_ = false;     // set by DrawChart: each paint saves the view
  // The saved view waits for the window to have its size: a view
  // rectangle fitted into a viewer not yet laid out would come up tiny.
  bool restorePending_ = false;
  std::optional<ViewRect> pendingView_;
  // Until the user or the program moves the view, a resize of the window
  // settling its layout after the show fits the saved view again.
  bool restoreFresh_ = false;
  bool restoring_ = false;
  bool paintBlocked_ = false; // while a switch is under way
  bool switchQueued_ = false;
  bool rectangleZoom_ = false;
};

}  // namespace kelvane::app
