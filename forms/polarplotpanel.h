// What the polar viewer and the editor share: the set-ups of Polars.mdb in
// lstSetUps, the wind speed options optWindPlot(1) .. (15) for 2 to 30
// knots, the two pictures and the pointer's read-outs. The database is
// opened once, when the form opens (a Jet file is imported then), and the
// set-up's table is read again after every write.
#pragma once

#include <QWidget>
#include <array>
#include <filesystem>
#include <functional>
#include <string>

#include "forms/polarpictures.h"
#include "store/polars.h"

class QLabel;
class QListWidget;
class QRadioButton;

namespace kelvane::forms {

class PolarPlotPanel : public QWidget {
  Q_OBJECT
 public:
  // dataRoot holds Polars.mdb; setUpIndex is the set-up to show first
  // (from 0, in the order of SetUps), ignored when out of range.
  PolarPlotPanel(const std::filesystem::path& dataRoot, int setUpIndex, QWidget* parent = nullptr);

  QListWidget* lstSetUps = nullptr;
  std::array<QRadioButton*, kWindPlotOptions + 1> optWindPlot{};  // [1] .. [15]
  PolarPicture* picPolar = nullptr;
  WindSpeedPicture* picWindSpeed = nullptr;
  QLabel* lblWindAngle = nullptr;
  QLabel* lblBoatSpeed = nullptr;
  QLabel* lblCursor = nullptr;
  QLabel* lblMessage = nullptr;  // why there is nothing to show, or ""

  const std::filesystem::path& File() const { return file_; }
  const PolarTable& Table() const { return table_; }
  bool HasSetUp() const;  // a set-up is chosen and its table read
  int SetUpIndex() const;  // -1 when none
  std::string SetUpName() const;
  int WindOption() const { return option_; }  // 0 none, 1 .. 15
  int ShownRow() const { return row_; }  // the row of the second picture, -1 none

  void SelectWind(int option);
  void ShowRow(int row);
  // Reads the set-up's table again (after a write) and redraws.
  void Reload();

  // After the set-up, the wind or the table's contents change (not when
  // only the row on show does): the column on show is another.
  std::function<void()> columnChanged;
  // A click on the polar picture, snapped to a row of the table.
  std::function<void(int row)> rowClicked;

 private:
  void SetUpChanged();
  void Redraw();
  void PointerOverPolar(PolarPosition position);

  std::filesystem::path file_;
  PolarDatabase polars_;
  PolarTable table_;
  int option_ = 0;
  int row_ = -1;
};

}  // namespace kelvane::forms
