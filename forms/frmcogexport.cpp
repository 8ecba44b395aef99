#include "forms/frmcogexport.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/messages.h"
#include "routes/exports.h"

namespace kelvane::forms {

frmCOGexport::frmCOGexport(const Folders& folders, std::vector<std::string> resultLines, QWidget* parent)
    : QDialog(parent), lines_(std::move(resultLines)) {
  setWindowTitle("Export COG");
  auto* layout = new QVBoxLayout(this);
  lstResults = new QListWidget(this);
  for (const std::string& l : lines_) lstResults->addItem(ToQString(l));
  txtFolder = new QLineEdit(ToQString(folders.TracksFolder().string()), this);
  txtName = new QLineEdit(kCogDefaultFileName, this);
  auto* cmdSave = new QPushButton("Save", this);
  auto* cmdExit = new QPushButton("Exit", this);
  for (QWidget* w : std::initializer_list<QWidget*>{lstResults, new QLabel("Folder", this), txtFolder,
                                                     new QLabel("File name", this), txtName, cmdSave, cmdExit})
    layout->addWidget(w);
  connect(cmdSave, &QPushButton::clicked, this, [this] { ShowMessage(this, Save()); });
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

std::string frmCOGexport::Save() {
  return ExportCogText(lines_, FromQString(txtFolder->text().trimmed()), FromQString(txtName->text().trimmed())).message;
}

}  // namespace kelvane::forms
