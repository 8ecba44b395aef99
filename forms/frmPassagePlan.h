// frmPassagePlan: the passage plan of the last calculated route, shown as
// text, with the two ways to take it on board: an A4 PDF file or paper.
// The window paints and writes the pages; the form asks only for the file.
#pragma once

#include <QDialog>
#include <QString>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "forms/formsupport.h"

class QPlainTextEdit;
class QPushButton;

namespace kelvane::forms {

class frmPassagePlan : public QDialog {
  Q_OBJECT
 public:
  frmPassagePlan(const std::vector<std::string>& planLines, const std::filesystem::path& folder,
                 QWidget* parent = nullptr);

  QPlainTextEdit* txtPlan = nullptr;
  QPushButton* cmdSavePdf = nullptr;
  QPushButton* cmdPrint = nullptr;
  QPushButton* cmdClose = nullptr;

  // The window's part: writes the PDF ("" or the message) and prints.
  std::function<std::string(const std::filesystem::path&)> savePdf;
  std::function<void()> print;
  // The file box (caption, folder); Qt's own by default, a test answers it.
  std::function<QString(const QString&, const QString&)> choosePdfFile;
  MessageSink showMessage;

 private:
  std::filesystem::path folder_;
};

}  // namespace kelvane::forms
