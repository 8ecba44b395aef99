// The chart's wind: the barbs layer of the wind store and the route, and
// the GRIB request by e-mail for the area on show (mnuSailDocs).
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "app/chartpane.h"
#include "app/chartviewer.h"
#include "app/mainwindow.h"
#include "app/mainwindow_layers.h"
#include "app/overlays_wind.h"
#include "wind/gribrequest.h"

namespace kelvane::app {

void FrmChart::InstallWind() {
  layers_->painter.AddLayer(WindLayer());
  QAction* request = Action("mnuSailDocs");
  if (!request) return;
  connect(request, &QAction::triggered, this, &FrmChart::mnuSailDocs_Click);
  // The request is for the chart on show: the entry answers only while one is.
  auto follow = [this, request] { request->setEnabled(chart_ && chart_->Viewer()->HasImage()); };
  connect(chart_, &ChartPane::ChartChanged, this, follow);
  connect(chart_, &ChartPane::StatusChanged, this, follow);
  if (auto* menu = qobject_cast<QMenu*>(request->parent())) connect(menu, &QMenu::aboutToShow, this, follow);
  follow();
}

void FrmChart::mnuSailDocs_Click() {
  if (!chart_ || !chart_->Viewer()->HasImage()) return;
  // The edges of the area on show.
  const QRectF r = chart_->Viewer()->VisibleRect();
  const ViewCorners v = CornersOf(chart_->Geometry(), ViewRect{r.left(), r.top(), r.width(), r.height()});
  const std::string line = GribRequestLine(v.ViewTopLat, v.ViewBottomLat, v.ViewLeftLon, v.ViewRightLon);
  if (QClipboard* clipboard = QGuiApplication::clipboard()) {
    clipboard->clear();
    clipboard->setText(QString::fromStdString(line));
  }
  std::string text;
  for (const std::string& l : GribRequestMessageLines(GribRequestAddress())) text += (text.empty() ? "" : "\n") + l;
  showMessage(text);
}

}  // namespace kelvane::app
