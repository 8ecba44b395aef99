// The departure time of the route forms: the text "HH:MM" and the two
// lists beside it, hours "00" to "23" (lsthrs) and minutes "00" to "59"
// (lstmins). A click in a list puts its entry into its half of the text.
#pragma once

class QLineEdit;
class QListWidget;
class QWidget;

namespace kelvane::forms {

struct DepartureLists {
  QListWidget* lsthrs = nullptr;
  QListWidget* lstmins = nullptr;
};

// The two lists, children of `parent`, filling `departure` when clicked.
DepartureLists MakeDepartureLists(QWidget* parent, QLineEdit* departure);

}  // namespace kelvane::forms
