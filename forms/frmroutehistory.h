// frmroutehistory: the results of the last route calculation again (the
// route menu's "Last Route Results"): the summary on top, the whole report
// below.
#pragma once

#include <QDialog>

#include "passage/passagestate.h"

class QPlainTextEdit;
class QPushButton;

namespace kelvane::forms {

class frmroutehistory : public QDialog {
  Q_OBJECT
 public:
  explicit frmroutehistory(const PassageState& passage, QWidget* parent = nullptr);

  QPlainTextEdit* txtSummary = nullptr;
  QPlainTextEdit* txtResults = nullptr;
  QPushButton* cmdClipboardCopy = nullptr;
  QPushButton* cmdPrint = nullptr;
  QPushButton* cmdOK = nullptr;
};

}  // namespace kelvane::forms
