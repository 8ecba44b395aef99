// frmPolarPlot: the boat's polar table as pictures. Boat speed against
// true wind angle for the wind chosen in optWindPlot, and boat speed
// against wind speed for the row clicked on the first picture (the click
// is snapped to the table's rows by RoundWindAngle).
#pragma once

#include <QDialog>
#include <filesystem>

#include "forms/polarplotpanel.h"

class QPushButton;

namespace kelvane::forms {

class frmPolarPlot : public QDialog {
  Q_OBJECT
 public:
  // setUpIndex: the set-up to show first (WindConfig.PolarSetUpIndex).
  frmPolarPlot(const std::filesystem::path& dataRoot, int setUpIndex, QWidget* parent = nullptr);

  PolarPlotPanel* panel = nullptr;
  QPushButton* cmdClose = nullptr;
};

}  // namespace kelvane::forms
