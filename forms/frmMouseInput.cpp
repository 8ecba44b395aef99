#include "forms/frmMouseInput.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "chart/chartmodes.h"
#include "core/positions.h"
#include "forms/messages.h"
#include "routes/gpxwrite.h"

namespace kelvane::forms {

frmMouseInput::frmMouseInput(float lat, float lon, GpxStore& store, std::filesystem::path waypointFile,
                             QWidget* parent)
    : QDialog(parent), store_(store), file_(std::move(waypointFile)) {
  setObjectName("frmMouseInput");
  setWindowTitle("New Waypoint");
  auto edit = [this](const char* name, const std::string& text) {
    auto* e = new QLineEdit(ToQString(text), this);
    e->setObjectName(name);
    return e;
  };
  txtWaypointName = edit("txtWaypointName", "");
  txtLatitude = edit("txtLatitude", LatToText(lat));
  txtLongitude = edit("txtLongitude", LonToText(lon));
  txtDescription = edit("txtDescription", "");
  txtSymbol = edit("txtSymbol", "");
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdCancel = new QPushButton("Cancel", this);
  cmdCancel->setObjectName("cmdCancel");
  auto* form = new QFormLayout(this);
  form->addRow("Name", txtWaypointName);
  form->addRow("Latitude", txtLatitude);
  form->addRow("Longitude", txtLongitude);
  form->addRow("Description", txtDescription);
  form->addRow("Symbol", txtSymbol);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  form->addRow(buttons);
  showMessage = DefaultMessageSink(this);
  askYesNo = [this](const std::string& text) { return AskYesNo(this, text); };
  connect(cmdOK, &QPushButton::clicked, this, &frmMouseInput::OnOK);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmMouseInput::OnOK() {
  const std::string name = FromQString(txtWaypointName->text());
  const float lat = TextToLat(FromQString(txtLatitude->text()));
  const float lon = TextToLon(FromQString(txtLongitude->text()));
  MouseInputCheck check = CheckMouseInput(name, lat, lon);
  if (!check.message.empty()) {
    showMessage(check.message);
    return;
  }
  for (const std::string& question : check.questions)
    if (!askYesNo(question)) return;
  Waypoint w;
  w.Lat = lat;
  w.Lon = lon;
  w.Name = name;
  w.Desc = FromQString(txtDescription->text());
  w.Sym = FromQString(txtSymbol->text());
  AppendChartWaypoint(store_, w);
  added_ = true;
  if (!WriteWaypointFile(file_, store_.ChartWaypoints)) showMessage("Unable to save waypoints to " + file_.string());
  accept();
}

}  // namespace kelvane::forms
