// frmgpsdetail: the GPS monitor. Position, speed and course of the own
// ship, the waypoint block of the last RMB, the raw lines as they come in
// and the port's six line states. The polling loop refreshes it after each
// chunk read from the GPS port; it shows what it is given.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "instruments/receive.h"

class QLabel;
class QPlainTextEdit;
class QWidget;

namespace kelvane::forms {

class FrmGpsDetail : public QDialog {
  Q_OBJECT
 public:
  explicit FrmGpsDetail(QWidget* parent = nullptr);

  // Shows the state; `commsDetails` are the port's status lines.
  void Refresh(const InstrumentsState& state, const std::vector<std::string>& commsDetails);
  void ShowGPSMonWaySetails();
  void HideGPSMonWaySetails();

 private:
  QLabel* Label(const char* name);
  QLabel *lbllat_, *lbllong_, *lblspeed_, *lblcourse_;
  QLabel *lblxte_, *lblwaydist_, *lblsteerdir_, *lblwayname_, *lblwaylat_, *lblwaylong_, *lblwaybearing_;
  QWidget* wayBlock_;
  QPlainTextEdit *txtNMEA_, *txtCommsDetails_;
};

}  // namespace kelvane::forms
