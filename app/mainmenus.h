// The menus of the main window, laid out by subsystem. Every entry is made
// here with its name and caption and starts disabled; the window enables the
// entries whose work exists and connects them.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <map>
#include <string>

namespace kelvane::app {

struct MenuEntry {
  const char* menu;     // the top-level menu
  const char* name;     // the action's object name ("-" for a separator)
  const char* caption;
  bool checkable;
};

const std::vector<MenuEntry>& MainMenuEntries();

// Builds the menus into the bar; returns the actions by name.
std::map<std::string, QAction*> BuildMainMenus(QMenuBar* bar);

}  // namespace kelvane::app
