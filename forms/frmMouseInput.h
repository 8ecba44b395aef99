// frmMouseInput: a new waypoint at the chart's cursor. The position boxes
// are filled from the cursor; OK checks the name and a zero latitude or
// longitude, appends the waypoint to ChartWaypoints and saves the waypoint
// file at once, so that a waypoint once made is never lost.
#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>
#include <string>

#include "forms/formsupport.h"
#include "routes/gpx.h"

class QLineEdit;
class QPushButton;

namespace kelvane::forms {

class frmMouseInput : public QDialog {
  Q_OBJECT
 public:
  // store and waypointFile belong to the caller; the file is rewritten
  // whole from store.ChartWaypoints after the append.
  frmMouseInput(float lat, float lon, GpxStore& store, std::filesystem::path waypointFile, QWidget* parent = nullptr);

  QLineEdit* txtWaypointName = nullptr;
  QLineEdit* txtLatitude = nullptr;
  QLineEdit* txtLongitude = nullptr;
  QLineEdit* txtDescription = nullptr;
  QLineEdit* txtSymbol = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;

  MessageSink showMessage;
  // Yes/No questions; a "Kelvane" box unless a test puts its own answer.
  std::function<bool(const std::string&)> askYesNo;

  // The waypoint added, when OK went through.
  bool Added() const { return added_; }

 private:
  void OnOK();
  GpxStore& store_;
  std::filesystem::path file_;
  bool added_ = false;
};

}  // namespace kelvane::forms
