#include "forms/departurelists.h"

#include <QLineEdit>
#include <QListWidget>

#include "forms/messages.h"
#include "passage/routeform.h"

namespace kelvane::forms {

namespace {

QListWidget* TwoDigitList(QWidget* parent, const char* name, const std::vector<std::string>& entries) {
  auto* list = new QListWidget(parent);
  list->setObjectName(name);
  for (const std::string& e : entries) list->addItem(ToQString(e));
  list->setMaximumWidth(56);
  return list;
}

}  // namespace

DepartureLists MakeDepartureLists(QWidget* parent, QLineEdit* departure) {
  DepartureLists lists;
  lists.lsthrs = TwoDigitList(parent, "lsthrs", DepartureHourEntries());
  lists.lstmins = TwoDigitList(parent, "lstmins", DepartureMinuteEntries());
  QObject::connect(lists.lsthrs, &QListWidget::itemClicked, departure, [departure](QListWidgetItem* item) {
    departure->setText(ToQString(DepartureWithHours(FromQString(departure->text()), FromQString(item->text()))));
  });
  QObject::connect(lists.lstmins, &QListWidget::itemClicked, departure, [departure](QListWidgetItem* item) {
    departure->setText(ToQString(DepartureWithMinutes(FromQString(departure->text()), FromQString(item->text()))));
  });
  return lists;
}

}  // namespace kelvane::forms
