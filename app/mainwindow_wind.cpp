// The wind forms of the main window: the wind menu's entry of the leg
// speeds (the route form's wind button runs the same form over itself) and
// the true and apparent wind calculator.
#include <QAction>

#include "app/mainwindow.h"
#include "forms/frmTrueAppWind.h"
#include "forms/frmWind.h"

namespace kelvane::app {

void FrmChart::ConnectWindMenus() {
  QAction* enter = Action("mnuWindEnter");
  enter->setEnabled(true);
  connect(enter, &QAction::triggered, this, [this] {
    RunWindForm(this);
    Redraw();
  });
  QAction* trueApp = Action("mnuWindTrueApp");
  trueApp->setEnabled(true);
  connect(trueApp, &QAction::triggered, this, &FrmChart::mnuWindTrueApp_Click);
}

// Modal: the form changes the route's speeds and tacks, which nothing else
// may touch meanwhile.
void FrmChart::RunWindForm(QWidget* parent) {
  forms::frmWind form(state_, parent);
  form.showMessage = showMessage;
  form.exec();
}

void FrmChart::mnuWindTrueApp_Click() {
  auto* form = new forms::frmTrueAppWind(state_, this);
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->showMessage = showMessage;
  form->show();
}

}  // namespace kelvane::app
