// The help menu's two pages: the about box (the version, the advisory
// warning, and the sources and licences of the installed data, read from
// the data folder when the box opens) and the quick instructions.
#pragma once

#include <QDialog>
#include <filesystem>
#include <string>

class QLabel;
class QTextBrowser;

namespace kelvane::forms {

class frmAbout : public QDialog {
  Q_OBJECT
 public:
  frmAbout(const std::string& version, const std::filesystem::path& dataRoot, QWidget* parent = nullptr);
  QLabel* lblVersion = nullptr;
  QTextBrowser* txtAbout = nullptr;
};

class frmQuickInstructions : public QDialog {
  Q_OBJECT
 public:
  explicit frmQuickInstructions(QWidget* parent = nullptr);
  QTextBrowser* txtInstructions = nullptr;
};

}  // namespace kelvane::forms
