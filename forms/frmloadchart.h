// frmLoadChart: picks a sea area and one of its charts, with a preview,
// a type-ahead box and a LIKE search. It works on the settings record it
// is given: a click on an area stores the area at once, OK stores the
// chart, Cancel puts back the whole record as it was when the form opened.
#pragma once

#include <QDialog>
#include <filesystem>
#include <string>
#include <vector>

#include "chart/catalogue.h"
#include "core/datatree.h"
#include "core/settings.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace kelvane::forms {

inline constexpr const char* kLoadChartInstructions =
    "The sea areas installed on your PC are shown below. Click an area and the charts contained are shown in the "
    "list on the right\nClick on a chart to see a thumbnail. The OK button closes the window and displays the "
    "selected chart.";

class FrmLoadChart : public QDialog {
  Q_OBJECT
 public:
  // catalogue: ChartCatalogue of the area in force, listed at first.
  FrmLoadChart(const Folders& folders, SettingsRecord& settings, std::vector<ChartRecord> catalogue,
               QWidget* parent = nullptr);

  bool ChartAccepted() const { return accepted_; }
  // The area's charts in name order and the list on show.
  const std::vector<ChartRecord>& AllCharts() const { return allCharts_; }
  const std::vector<ChartRecord>& Shown() const { return shown_; }

  // The steps of the form, callable by tests as the controls call them.
  void ClickArea(const std::string& area);
  void ClickChart(int row);
  void SearchTextChanged(const QString& text);
  void Search();
  void Ok();
  void Cancel();
  void GenerateCsv();
  // Every way of leaving without OK (Cancel, Esc, the close box) puts the
  // settings record back as it was when the form opened.
  void reject() override;

  QListWidget* Areas() const { return lstAreas_; }
  QListWidget* Results() const { return ListResults_; }
  QLabel* Preview() const { return GdViewer1_; }
  QLabel* ChartNumber() const { return lblChartNumber_; }
  QLineEdit* Scale() const { return txtScale_; }
  QLineEdit* SearchBox() const { return searchTxt_; }
  QPushButton* OkButton() const { return cmdOK_; }

 private:
  void ReadChartData(const std::string& sql);
  void FillResults(const std::vector<ChartRecord>& records);

  const Folders& folders_;
  SettingsRecord& settings_;
  SettingsRecord saved_;
  std::vector<ChartRecord> catalogue_;
  std::vector<ChartRecord> allCharts_;
  std::vector<ChartRecord> shown_;
  std::string number_;
  std::string path_;
  bool accepted_ = false;

  QListWidget* lstAreas_ = nullptr;
  QListWidget* ListResults_ = nullptr;
  QLabel* GdViewer1_ = nullptr;
  QLabel* lblChartNumber_ = nullptr;
  QLabel* lblInstructions_ = nullptr;
  QLineEdit* txtScale_ = nullptr;
  QLineEdit* searchTxt_ = nullptr;
  QPushButton* btnSearch_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  QPushButton* cmdCancel_ = nullptr;
  QPushButton* cmdGenerateCSV_ = nullptr;
};

// frmSelectL25: a file box on the charts folder (the program folder's TS
// folder when that setting is empty) for "*.l25" stream files. Returns the
// chosen file, or "" when none was chosen.
std::string SelectL25(QWidget* parent, const Folders& folders, const SettingsRecord& settings);
// The folder the box opens on.
std::filesystem::path SelectL25Folder(const Folders& folders, const SettingsRecord& settings);

}  // namespace kelvane::forms
