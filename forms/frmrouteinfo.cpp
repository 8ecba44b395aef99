#include "forms/frmrouteinfo.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/reportlines.h"
#include "passage/routeform.h"

namespace kelvane::forms {

frmrouteinfo::frmrouteinfo(const PassageState& passage, QWidget* parent) : QDialog(parent) {
  setObjectName("frmrouteinfo");
  setWindowTitle("Route Information");
  txtRouteInfo = MakeReportBox(this, "txtRouteInfo");
  cmdPrint = new QPushButton("Print", this);
  cmdPrint->setObjectName("cmdPrint");
  frmrteresultsok = new QPushButton("OK", this);
  frmrteresultsok->setObjectName("frmrteresultsok");
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdPrint);
  buttons->addStretch(1);
  buttons->addWidget(frmrteresultsok);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtRouteInfo, 1);
  layout->addLayout(buttons);

  const std::vector<std::string> lines = RouteInfoLines(passage);
  ShowLines(txtRouteInfo, lines);
  connect(cmdPrint, &QPushButton::clicked, this, [this, lines] { PrintLines(this, lines); });
  connect(frmrteresultsok, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace kelvane::forms
