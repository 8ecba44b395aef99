#include "forms/frmcogtowayexport.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/messages.h"
#include "routes/exports.h"
#include "routes/textimport.h"

namespace kelvane::forms {

frmCOGToWayExport::frmCOGToWayExport(const Folders& folders, const std::vector<Position>& steps, QWidget* parent)
    : QDialog(parent), folders_(folders) {
  setWindowTitle("Export steps as waypoints");
  auto* layout = new QVBoxLayout(this);
  auto* help1 = new QLabel(kCogToWayHelp1, this);
  help1->setWordWrap(true);
  txtLines = new QPlainTextEdit(this);
  std::string text;
  for (const std::string& l : CogToWayLines(steps)) text += l + "\n";
  txtLines->setPlainText(ToQString(text));
  chkAsGPX = new QCheckBox("Save as GPX", this);
  txtgpx = new QLineEdit(this);
  auto* cmdSave = new QPushButton("Save", this);
  auto* cmdExit = new QPushButton("Exit", this);
  for (QWidget* w : std::initializer_list<QWidget*>{help1, new QLabel(kCogToWayHelp2, this), txtLines, chkAsGPX,
                                                     new QLabel("File name", this), txtgpx, cmdSave, cmdExit})
    layout->addWidget(w);
  // Characters a file name cannot carry are dropped as they are typed.
  connect(txtgpx, &QLineEdit::textEdited, this, [this](const QString& typed) {
    QString kept = ToQString(DropFileNameCharacters(FromQString(typed)));
    if (kept != typed) txtgpx->setText(kept);
  });
  connect(cmdSave, &QPushButton::clicked, this, [this] { ShowMessage(this, Save()); });
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

std::string frmCOGToWayExport::Save() {
  std::string name = FromQString(txtgpx->text().trimmed());
  bool asGpx = chkAsGPX->isChecked();
  std::filesystem::path destination =
      name.empty() ? folders_.WaypointsFolder() / ""
                   : (asGpx ? folders_.WaypointsFolder() / (name + ".gpx") : folders_.TracksFolder() / (name + ".txt"));
  std::vector<std::string> lines;
  for (std::string& l : TextLines(FromQString(txtLines->toPlainText())))
    if (!l.empty()) lines.push_back(std::move(l));
  return SaveCogWayLines(lines, destination, asGpx).message;
}

}  // namespace kelvane::forms
