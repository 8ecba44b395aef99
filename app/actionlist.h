// Every action a user can reach in the main window (menus, the chart's
// popup menu, the tool bar), with whether it can act and whether anything
// answers it. The list is what `kelvane --list-actions` prints and what
// the widget tests hold the window to: an entry that is shown but answers
// nothing is a fault, unless its work belongs to a subsystem still to come.
#pragma once

#include <string>
#include <vector>

class QWidget;

namespace kelvane::app {

struct ActionRow {
  std::string name;     // the action's object name
  std::string caption;  // its text, without the mnemonic's ampersand
  bool enabled = false;
  bool connected = false;  // a handler answers triggered() or toggled()
};

// The actions of the window and of every menu and tool bar it owns, in the
// order of the window's object tree. Separators, sub-menu headings and the toolkit's own
// actions are left out.
std::vector<ActionRow> ListActions(const QWidget& window);

// One line per row: name, caption, "enabled"/"disabled", "connected"/"no
// handler", tab-separated.
std::string ActionListText(const std::vector<ActionRow>& rows);

// The entries that are on the menus now but whose work comes with a
// subsystem not yet in the program. Each stays greyed out and unanswered
// until its subsystem lands, which then takes it off this list.
struct AwaitingAction {
  const char* name;
  const char* waitsFor;
};
const std::vector<AwaitingAction>& ActionsAwaitingWork();

}  // namespace kelvane::app
