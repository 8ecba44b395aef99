// frmresults: the report of the last route calculation. optSummary shows
// the report as it stands; optTidalDetails a table of the stream samples
// along the track (every step with chkDisplayAll, otherwise where the hour
// changes; the diamond of each with chKTidalStreams). Closing puts the
// tides back to the working day.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "passage/passagestate.h"

class QCheckBox;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace kelvane::forms {

class frmresults : public QDialog {
  Q_OBJECT
 public:
  explicit frmresults(const PassageState& passage, QWidget* parent = nullptr);

  // The lines on show: the report, or the table's lines (header first,
  // fields tab separated), as the clipboard and the printer get them.
  std::vector<std::string> ShownLines() const;
  // Builds what the options ask for.
  void Refresh();

  QPlainTextEdit* txtResults = nullptr;
  QTableWidget* grdTidalDetails = nullptr;
  QRadioButton* optSummary = nullptr;
  QRadioButton* optTidalDetails = nullptr;
  QCheckBox* chKTidalStreams = nullptr;
  QCheckBox* chkDisplayAll = nullptr;
  QPushButton* cmdClipboardCopy = nullptr;
  QPushButton* cmdresultsprint = nullptr;
  QPushButton* cmdresultsok = nullptr;
  QPushButton* cmdPassagePlan = nullptr;

  // The passage plan of these results: the window builds and shows it.
  std::function<void()> onPassagePlan;

  // Called once when the form closes, however it closes: the main window
  // puts the tides back to the working day here.
  std::function<void()> onClose;

 private:
  const PassageState& passage_;
  std::vector<std::string> detailLines_;
};

}  // namespace kelvane::forms
