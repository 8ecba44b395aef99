// frmrouteinfo: the route's points, under the summary of the last
// calculation, with a print button.
#pragma once

#include <QDialog>

#include "passage/passagestate.h"

class QPlainTextEdit;
class QPushButton;

namespace kelvane::forms {

class frmrouteinfo : public QDialog {
  Q_OBJECT
 public:
  explicit frmrouteinfo(const PassageState& passage, QWidget* parent = nullptr);

  QPlainTextEdit* txtRouteInfo = nullptr;
  QPushButton* cmdPrint = nullptr;
  QPushButton* frmrteresultsok = nullptr;
};

}  // namespace kelvane::forms
