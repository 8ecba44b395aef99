// frmGribImport: a GRIB file read into the wind store. cmdOpen asks for the
// file and reads it at once (ReadGrib); List1 shows one line per message
// read, and the outcome is "File Imported" or the reader's own message, the
// store left as it was on any failure.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/datatree.h"
#include "core/settings.h"
#include "forms/formsupport.h"
#include "wind/windstore.h"

// Qt after the program's own headers: Qt's "slots" keyword macro would
// otherwise rewrite a field of that name.
#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace kelvane::forms {

// "Select a file": the file box was closed without a choice.
inline constexpr const char* kSelectAFile = "Select a file";

class frmGribImport : public QDialog {
  Q_OBJECT
 public:
  // gribFolder: the settings' GribFolder, the folder of the last import.
  frmGribImport(const Folders& folders, const std::string& gribFolder, QWidget* parent = nullptr);

  // cmdOpen: the file box, then the import of the file chosen.
  void cmdOpen_Click();
  // The import of one file: the settings are saved first, then the file is
  // read and the store written; List1 and the outcome are shown.
  WindImport ReadGrib(const std::filesystem::path& file);
  // True once an import has replaced the store.
  bool Imported() const { return imported_; }
  // The folder the file box opens on.
  QString StartFolder() const;

  // The file box: the folder it opens on -> the file chosen, "" when
  // cancelled. Qt's file box unless a test answers it.
  std::function<QString(const QString&)> chooseFile;
  // The settings road: makes the change, writes the file, returns "" or
  // the message to show. Without one nothing is saved.
  std::function<std::string(const SettingsChange&)> storeSettings;
  MessageSink showMessage;

  QLabel* lblInstruction = nullptr;
  QLabel* lblNote = nullptr;
  QLabel* lblTimes = nullptr;
  QLabel* lblFile = nullptr;
  QLabel* lblStatus = nullptr;
  QPushButton* cmdOpen = nullptr;
  QPushButton* cmdClose = nullptr;
  QTreeWidget* List1 = nullptr;

 signals:
  // The store has been replaced: the chart's wind is to be drawn again.
  void WindStoreChanged();

 private:
  Folders folders_;
  std::string gribFolder_;
  bool imported_ = false;
};

}  // namespace kelvane::forms
