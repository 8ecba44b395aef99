#include "app/chartpane.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QSettings>
#include <QTimer>
#include <QVBoxLayout>

#include "core/format.h"
#include "core/text.h"
#include "forms/formsupport.h"
#include "forms/frmloadchart.h"
#include "state/settingsroad.h"

namespace kelvane::app {

ChartPane::ChartPane(const Folders& folders, SettingsRecord& settings, QWidget* parent)
    : QWidget(parent), folders_(folders), settings_(settings) {
  setObjectName("ChartPane");
  viewer_ = new ChartViewer(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(viewer_);
  thumbnail_ = new QLabel(this);
  thumbnail_->setObjectName("GdViewer2");
  thumbnail_->setFixedSize(150, 150);
  thumbnail_->setFrameShape(QFrame::Box);
  thumbnail_->hide();
  showMessage = forms::DefaultMessageSink(this);
  onChartFileError = [this] {
    showMessage(ChartFileErrorText(settings_.ChartsFolder, settings_.ChartPath));
    // Only the chart choice goes back to the sample chart: the rest of the
    // user's settings stay as the file holds them. The program ends next,
    // so a file that cannot be written goes untold.
    (void)UpdateSettings(folders_.SettingsFile(), settings_,
                         [this](SettingsRecord& r) { SetFactoryChart(r, folders_); });
    if (endProgram) endProgram();
  };
  endProgram = [] { QCoreApplication::exit(0); };
  viewStore_ = std::make_unique<QSettings>(QString::fromStdString((folders_.UserFiles() / "ChartView.ini").string()),
                                           QSettings::IniFormat);
  BuildPopupMenu();
  connect(viewer_, &ChartViewer::PaintStarting, this, &ChartPane::OnPaintStarting);
  connect(viewer_, &ChartViewer::Paint, this, &ChartPane::OnPaint);
  connect(viewer_, &ChartViewer::MouseMove, this, &ChartPane::OnMouseMove);
  connect(viewer_, &ChartViewer::KeyDown, this, &ChartPane::OnKey);
  // Any zoom, click or key of the user's ends the settling of the saved view.
  connect(viewer_, &ChartViewer::ZoomChanged, this, [this] {
    if (!restoring_) restoreFresh_ = false;
  });
  connect(viewer_, &ChartViewer::Resized, this, [this] {
    if (restoreFresh_ && !restoring_ && isVisible()) RestoreView(pendingView_);
  });
  connect(viewer_, &ChartViewer::MouseDown, this, [this] { restoreFresh_ = false; });
  connect(viewer_, &ChartViewer::KeyDown, this, [this] { restoreFresh_ = false; });
  viewer_->SetMousePointer(2);
}

ChartPane::~ChartPane() = default;

void ChartPane::BuildPopupMenu() {
  popup_ = new QMenu(this);
  popup_->setObjectName("mnuPopUp");
  auto add = [this](const char* name, const char* caption, auto handler, bool checkable = false) {
    QAction* a = popup_->addAction(caption);
    a->setObjectName(name);
    a->setCheckable(checkable);
    connect(a, &QAction::triggered, this, handler);
    return a;
  };
  add("mnuPUZoomIn", "Zoom In", [this] { ZoomIn(); });
  add("mnuPUZoomOut", "Zoom Out", [this] { ZoomOut(); });
  add("mnuPUZoomToHeight", "Fit Height", [this] { ZoomToHeight(); });
  add("mnuPUZoomtoWidth", "Fit Width", [this] { ZoomToWidth(); });
  add("mnuPUZoomRect", "Zoom to Rectangle", [this](bool on) { SetRectangleZoom(on); }, true);
  popup_->addSeparator();
  add("mnuPUZoomToChart", "Zoom to Largest Scale Chart", [this] { ZoomToChart(); });
  add("mnuPUPrevChart", "Previous Scale Chart", [this] { PreviousScaleChart(); });
  add("mnuPUZoomNextScale", "Next Scale Chart", [this] { NextScaleChart(); });
}

void ChartPane::contextMenuEvent(QContextMenuEvent* event) {
  if (popupOnRightButton) {
    event->accept();
    return;
  }
  SetCursorPosition(CoordsFromPixels(viewer_->viewport()->mapFrom(this, event->pos())).lat,
                    CoordsFromPixels(viewer_->viewport()->mapFrom(this, event->pos())).lon);
  popup_->popup(event->globalPos());
}

// ---- catalogue and image ------------------------------------------------------

void ChartPane::ReadCatalogue() {
  ChartCatalogue read = ReadChartsTable(folders_.DataRoot(), settings_.ChartSet);
  if (!read.message.empty()) showMessage(read.message);
  catalogue_ = std::move(read.charts);
  if (auto index = SelectCurrentChart(catalogue_, settings_.ChartPath)) SelectChartGeometry(geometry_, catalogue_[*index]);
}

bool ChartPane::DrawChart() {
  const QString file = QString::fromStdString(Trim(settings_.ChartPath) + ".l55");
  int status = viewer_->LoadFile(file);
  if (status != 0) {
    showMessage(ImageErrorText(status));
    return false;
  }
  SetImageGeometry(geometry_, viewer_->ImageHeight());
  if (viewer_->HasImage()) {
    thumbnail_->setPixmap(QPixmap::fromImage(viewer_->Thumbnail(150, 150)));
  }
  viewStore_->beginGroup("Settings");
  const double left = viewStore_->value("Left", 0).toDouble();
  const double top = viewStore_->value("Top", 0).toDouble();
  const double width = viewStore_->value("Width", -1).toDouble();
  const double height = viewStore_->value("Height", -1).toDouble();
  viewStore_->endGroup();
  const std::optional<ViewRect> saved = SavedViewToRestore(left, top, width, height);
  if (isVisible()) {
    RestoreView(saved);
  } else {
    // At start-up the chart loads before the window is shown: the view is
    // restored once the viewer has its size (showEvent).
    restorePending_ = true;
    pendingView_ = saved;
  }
  saveView_ = true;
  emit StatusChanged();
  return true;
}

void ChartPane::RestoreView(const std::optional<ViewRect>& saved) {
  restoring_ = true;
  if (saved) {
    viewer_->SetRect(QRectF(saved->left, saved->top, saved->width, saved->height));
    viewer_->ZoomToRect();
    viewer_->ClearRect();
  } else {
    viewer_->SetZoomPercent(50);
  }
  restoring_ = false;
}

void ChartPane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!restorePending_) return;
  restorePending_ = false;
  restoreFresh_ = true;
  RestoreView(pendingView_);
}

void ChartPane::LoadChart() {
  ReadCatalogue();
  DrawChart();
  emit ChartChanged();
}

void ChartPane::WriteChartChoice(const ChartChoice& choice, const std::string& area) {
  const std::string m = UpdateSettings(folders_.SettingsFile(), settings_, [&](SettingsRecord& r) {
    r.ChartSet = area;
    r.ChartPath = choice.ChartPath;
    r.ChartFile = choice.ChartFile;
    r.ChartDescription = choice.ChartDescription;
  });
  if (!m.empty()) showMessage(m);
}

// ---- the ladder of detail ------------------------------------------------------

bool ChartPane::SwitchTo(std::optional<std::size_t> index, bool previous) {
  if (!index || *index >= catalogue_.size()) return false;
  const ChartRecord chosen = catalogue_[*index];
  if (!IsChartSwitch(chosen.chartNumber, settings_.ChartFile)) return false;
  ViewCorners old = CornersOf(geometry_, [this] {
    QRectF r = viewer_->VisibleRect();
    return ViewRect{r.left(), r.top(), r.width(), r.height()};
  }());
  const ChartChoice choice = ChoiceOfChart(folders_.DataRoot(), chosen);
  WriteChartChoice(choice, settings_.ChartSet);
  SelectChartGeometry(geometry_, chosen);
  paintBlocked_ = true;
  if (DrawChart()) {
    ViewRect r = CarryViewToChart(old, geometry_);
    viewer_->SetRect(QRectF(r.left, r.top, r.width, r.height));
    viewer_->ZoomToRect();
    viewer_->ClearRect();
  }
  if (previous && viewer_->Zoom() > 1.2) viewer_->SetZoom(1.0);
  paintBlocked_ = false;
  emit StatusChanged();
  emit ChartChanged();
  viewer_->Redraw();
  return true;
}

bool ChartPane::ZoomToChart() { return SwitchTo(kelvane::ZoomToChart(catalogue_, cursorLat_, cursorLon_), false); }

bool ChartPane::PreviousScaleChart() {
  return SwitchTo(kelvane::PreviousScaleChart(catalogue_, cursorLat_, cursorLon_, geometry_.chart.rank), true);
}

bool ChartPane::NextScaleChart() {
  return SwitchTo(kelvane::NextScaleChart(catalogue_, cursorLat_, cursorLon_, geometry_.chart.rank), false);
}

// ---- paint ----------------------------------------------------------------

void ChartPane::OnPaintStarting() {
  if (paintBlocked_ || !viewer_->HasImage()) return;
  AutoSwitchStep step = AutomaticSwitch(settings_.AutoChartSwitch != 0, viewer_->Zoom(), geometry_.chart.rank,
                                        settings_.ScaleMax, settings_.ScaleMin);
  if (step.action != AutoSwitch::None && !switchQueued_) {
    // The switch loads another image, which can't happen inside the paint
    // that decided it: it runs as soon as this paint is over.
    switchQueued_ = true;
    QTimer::singleShot(0, this, [this, step] {
      switchQueued_ = false;
      if (step.action == AutoSwitch::Next) {
        NextScaleChart();
      } else {
        PreviousScaleChart();
      }
      ApplyZoom(static_cast<float>(step.newZoom));
    });
  }
  QRectF r = viewer_->VisibleRect();
  corners_ = CornersOf(geometry_, ViewRect{r.left(), r.top(), r.width(), r.height()});
  if (saveView_) {
    viewStore_->beginGroup("Settings");
    viewStore_->setValue("Left", QString::number(r.left()));
    viewStore_->setValue("Top", QString::number(r.top()));
    viewStore_->setValue("Width", QString::number(r.width()));
    viewStore_->setValue("Height", QString::number(r.height()));
    viewStore_->endGroup();
  }
}

void ChartPane::OnPaint(QPainter& painter) {
  if (!outline_.empty() && viewer_->HasImage()) {
    // DrawOutline: joined segments, the pen lifted at each break.
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(120, 60, 20), 1.5));
    for (const auto& line : OutlinePolylines(outline_)) {
      QPainterPath path;
      for (std::size_t i = 0; i < line.size(); ++i) {
        QPointF p = viewer_->ImageToScreen(QPointF(LonToPixel(geometry_, line[i].lon), LatToPixel(geometry_, line[i].lat)));
        if (i == 0) {
          path.moveTo(p);
        } else {
          path.lineTo(p);
        }
      }
      painter.drawPath(path);
    }
    painter.restore();
  }
  emit OverlayPaint(painter);
}

// ---- pointer ----------------------------------------------------------------

Position ChartPane::CoordsFromPixels(QPointF screen) const {
  QPointF p = viewer_->ScreenToImage(screen);
  return Position{PixelToLat(geometry_, RoundToInt(p.y())), PixelToLon(geometry_, RoundToInt(p.x()))};
}

void ChartPane::SetCursorPosition(float lat, float lon) {
  cursorLat_ = lat;
  cursorLon_ = lon;
  emit CursorMoved(lat, lon);
}

void ChartPane::OnMouseMove(QMouseEvent* event) {
  if (viewer_->ImageHeight() < 1) {
    if (onChartFileError) onChartFileError();
    return;
  }
  Position p = CoordsFromPixels(event->position());
  SetCursorPosition(p.lat, p.lon);
}

// ---- zoom, pan and keys ---------------------------------------------------------

ViewState ChartPane::CurrentViewState() const {
  QRectF r = viewer_->VisibleRect();
  return ViewState{viewer_->Zoom(), ViewRect{r.left(), r.top(), r.width(), r.height()}, viewer_->ImageWidth(),
                   viewer_->ImageHeight()};
}

void ChartPane::ApplyZoom(float zoom) { viewer_->SetZoomPercent(static_cast<double>(zoom) * 100.0); }

void ChartPane::ZoomIn() { ApplyZoom(ZoomInStep(static_cast<float>(viewer_->Zoom()))); }
void ChartPane::ZoomOut() { ApplyZoom(ZoomOutStep(viewer_->Zoom())); }
void ChartPane::ZoomToHeight() { viewer_->SetZoomMode(5); }
void ChartPane::ZoomToWidth() { viewer_->SetZoomMode(3); }

void ChartPane::SetRectangleZoom(bool on) {
  rectangleZoom_ = on;
  if (on) {
    viewer_->SetMouseMode(1);
  } else {
    viewer_->SetMouseMode(2);
    viewer_->ClearRubberRect();
  }
}

void ChartPane::LocatePoint(float lat, float lon) {
  auto r = LocatePointRect(CurrentViewState(), LonToPixel(geometry_, lon), LatToPixel(geometry_, lat));
  if (!r) return;
  viewer_->SetRect(QRectF(r->left, r->top, r->width, r->height));
  viewer_->ZoomToRect();
  viewer_->ClearRect();
}

void ChartPane::LocateGPS(float lat, float lon) {
  auto s = LocateGPSScroll(CurrentViewState(), LonToPixel(geometry_, lon), LatToPixel(geometry_, lat));
  if (s) viewer_->SetScrollPosition(s->x, s->y);
}

void ChartPane::HandleKey(int key, Qt::KeyboardModifiers modifiers) {
  auto pan = [&](PanDirection d) {
    if (modifiers & Qt::ShiftModifier) {
      ScrollPosition to = PanToEdge({viewer_->HScroll(), viewer_->VScroll()},
                                    {viewer_->HScrollMax(), viewer_->VScrollMax()}, d);
      viewer_->SetScrollPosition(to.x, to.y);
      return;
    }
    double zoom = viewer_->Zoom();
    ViewRect r = PanStep(CurrentViewState(), d);
    viewer_->SetRect(QRectF(r.left, r.top, r.width, r.height));
    viewer_->ZoomToRect();
    viewer_->SetZoom(zoom);  // so that the zoom doesn't drift
    viewer_->ClearRect();
  };
  switch (key) {
    case Qt::Key_I:
    case Qt::Key_Equal: {
      LocatePoint(cursorLat_, cursorLon_);
      ApplyZoom(ZoomInStep(static_cast<float>(viewer_->Zoom())));
      return;
    }
    case Qt::Key_O:
    case Qt::Key_Minus: {
      LocatePoint(cursorLat_, cursorLon_);
      ApplyZoom(KeyZoomOutStep(viewer_->Zoom()));
      return;
    }
    case Qt::Key_Left:
    case Qt::Key_L: pan(PanDirection::Left); return;
    case Qt::Key_Right:
    case Qt::Key_R: pan(PanDirection::Right); return;
    case Qt::Key_Up:
    case Qt::Key_U:
    case Qt::Key_PageUp: pan(PanDirection::Up); return;
    case Qt::Key_Down:
    case Qt::Key_D:
    case Qt::Key_PageDown: pan(PanDirection::Down); return;
    case Qt::Key_Home: {
      ScrollPosition to = HomeScroll({viewer_->HScrollMax(), viewer_->VScrollMax()});
      viewer_->SetScrollPosition(to.x, to.y);
      return;
    }
    default: break;
  }
  if (key >= Qt::Key_0 && key <= Qt::Key_9) {
    if (auto percent = DigitZoomPercent(static_cast<char>('0' + (key - Qt::Key_0)))) viewer_->SetZoomPercent(*percent);
  }
}

void ChartPane::OnKey(QKeyEvent* event) {
  if (keyHandler) {
    keyHandler(event);
    return;
  }
  HandleKey(event->key(), event->modifiers());
}

// ---- outline and chooser ----------------------------------------------------------

bool ChartPane::LoadOutline(const std::filesystem::path& file) {
  OutlineData data = ReadOutlineFile(file);
  if (!data.message.empty()) {
    showMessage(data.message);
    return false;
  }
  outline_ = std::move(data.points);
  outlineFile_ = file;
  viewer_->Redraw();
  return true;
}

bool ChartPane::SelectChartVisually() {
  forms::FrmLoadChart form(folders_, settings_, catalogue_, this);
  if (runChooser) {
    runChooser(form);
  } else {
    form.exec();
  }
  const ChooserFollowUp next = AfterChartChooser(form.ChartAccepted());
  // The chooser left its choice in the record the program holds.
  if (next.writeSettings)
    WriteChartChoice(ChartChoice{settings_.ChartPath, settings_.ChartFile, settings_.ChartDescription},
                     settings_.ChartSet);
  if (!next.loadChart) return false;
  ReadCatalogue();
  DrawChart();
  viewer_->SetZoomMode(5);
  viewer_->SetMousePointer(2);
  emit StatusChanged();
  emit ChartChanged();
  return true;
}

}  // namespace kelvane::app
