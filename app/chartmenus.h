// The Chart menu's own commands and the chart's maintenance tools, carried
// out for the main window: Keep Boat Centred, the outline layer and its
// editor, the thumbnail, the Tools menu (frmSelectL25 and the stream file's
// diamonds, also on F8 and F12), and the toolbar's File, View and Wrecks
// buttons, each of which opens its menu so that a click on an entry is the
// menu's own handler.
#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <string>

class QAction;
class QMenu;

namespace kelvane::app {

class FrmChart;

class ChartMenus : public QObject {
  Q_OBJECT
 public:
  explicit ChartMenus(FrmChart& window);

  // The file boxes; a test answers them itself. "" is no choice.
  std::function<std::string(const std::filesystem::path& folder)> chooseOutline;
  std::function<std::string()> chooseStreamFile;

  // The menu handlers, public for the tests and for the keys.
  void mnuGPSCentre_Click();
  void mnuOutlineLoad_Click();
  void mnuOutlineEdit_Click();
  void mnuShowThumbnail_Click(bool on);
  void mnuShowTools_Click(bool on);
  void mnuSelectL25_Click();     // F8
  void mnuAppendDiamond_Click(); // F12
  bool ToolsMenuShown() const;
  // The menu a toolbar button opens: File, Chart (for View) or Wrecks.
  QMenu* ButtonMenu(const char* button) const;

 private:
  void ConnectToolbar();

  FrmChart& window_;
  QMenu* tools_ = nullptr;
};

}  // namespace kelvane::app
