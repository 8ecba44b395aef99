#include "forms/frmgpsdetail.h"

#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "core/positions.h"
#include "instruments/comms_forms.h"
#include "forms/messages.h"

namespace kelvane::forms {

QLabel* FrmGpsDetail::Label(const char* name) {
  auto* l = new QLabel(this);
  l->setObjectName(name);
  return l;
}

FrmGpsDetail::FrmGpsDetail(QWidget* parent) : QDialog(parent) {
  setObjectName("frmgpsdetail");
  setWindowTitle("GPS Monitor");
  auto* outer = new QVBoxLayout(this);
  auto* fix = new QFormLayout;
  fix->addRow("Latitude", lbllat_ = Label("lbllat"));
  fix->addRow("Longitude", lbllong_ = Label("lbllong"));
  fix->addRow("Speed", lblspeed_ = Label("lblspeed"));
  fix->addRow("Course", lblcourse_ = Label("lblcourse"));
  outer->addLayout(fix);
  wayBlock_ = new QWidget(this);
  wayBlock_->setObjectName("WaypointBlock");
  auto* way = new QFormLayout(wayBlock_);
  way->addRow("Waypoint", lblwayname_ = Label("lblwayname"));
  way->addRow("Latitude", lblwaylat_ = Label("lblwaylat"));
  way->addRow("Longitude", lblwaylong_ = Label("lblwaylong"));
  way->addRow("Range", lblwaydist_ = Label("lblwaydist"));
  way->addRow("Bearing", lblwaybearing_ = Label("lblwaybearing"));
  way->addRow("XTE", lblxte_ = Label("lblxte"));
  way->addRow("Steer", lblsteerdir_ = Label("lblsteerdir"));
  outer->addWidget(wayBlock_);
  txtNMEA_ = new QPlainTextEdit(this);
  txtNMEA_->setObjectName("txtNMEA");
  txtNMEA_->setReadOnly(true);
  txtCommsDetails_ = new QPlainTextEdit(this);
  txtCommsDetails_->setObjectName("txtCommsDetails");
  txtCommsDetails_->setReadOnly(true);
  outer->addWidget(txtNMEA_);
  outer->addWidget(txtCommsDetails_);
  HideGPSMonWaySetails();
}

void FrmGpsDetail::Refresh(const InstrumentsState& s, const std::vector<std::string>& commsDetails) {
  std::string details;
  for (const std::string& line : commsDetails) details += line + "\n";
  txtCommsDetails_->setPlainText(ToQString(details));
  txtNMEA_->setPlainText(ToQString(s.monitorText));
  txtNMEA_->moveCursor(QTextCursor::End);
  lbllat_->setText(ToQString(LatToText(s.own.GPSLat)));
  lbllong_->setText(ToQString(LonToText(s.own.GPSLong)));
  lblspeed_->setText(ToQString(MonitorSpeedText(s.own.GPSSpeed)));
  lblcourse_->setText(ToQString(MonitorCourseText(s.own.GPSCourse)));
  const WaypointMonitor& m = s.monitor;
  lblxte_->setText(ToQString(m.lblxte));
  lblwaydist_->setText(ToQString(m.lblwaydist));
  lblsteerdir_->setText(ToQString(m.lblsteerdir));
  lblsteerdir_->setStyleSheet(QString("color: #%1").arg(m.steerColour, 6, 16, QChar('0')));
  lblwayname_->setText(ToQString(m.lblwayname));
  lblwaylat_->setText(ToQString(m.lblwaylat));
  lblwaylong_->setText(ToQString(m.lblwaylong));
  lblwaybearing_->setText(ToQString(m.lblwaybearing));
  if (s.own.GPSWaypointValid != 0) ShowGPSMonWaySetails();
}

void FrmGpsDetail::ShowGPSMonWaySetails() { wayBlock_->setVisible(true); }
void FrmGpsDetail::HideGPSMonWaySetails() { wayBlock_->setVisible(false); }

}  // namespace kelvane::forms
