#include "forms/frmconverttogpx.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/format.h"
#include "forms/filelist.h"
#include "forms/messages.h"
#include "routes/legacy.h"

namespace kelvane::forms {

frmConvertToGPX::frmConvertToGPX(const Folders& folders, Kind kind, QWidget* parent)
    : QDialog(parent), folders_(folders), kind_(kind) {
  setWindowTitle(kind == Kind::Waypoints ? "Convert waypoints to GPX" : "Convert route to GPX");
  auto* layout = new QVBoxLayout(this);
  for (const char* line : kConvertIntroLines) {
    auto* label = new QLabel(ToQString(line), this);
    label->setWordWrap(true);
    layout->addWidget(label);
  }
  lstFiles = new QListWidget(this);
  lstRecords = new QListWidget(this);
  txtDesc = new QLineEdit(this);
  txtName = new QLineEdit(this);
  txtDesc->setEnabled(kind == Kind::Waypoints);
  layout->addWidget(lstFiles);
  layout->addWidget(lstRecords);
  layout->addWidget(new QLabel("<desc>", this));
  layout->addWidget(txtDesc);
  layout->addWidget(new QLabel("GPX file name", this));
  layout->addWidget(txtName);
  auto* cmdSave = new QPushButton("Save", this);
  auto* cmdExit = new QPushButton("Exit", this);
  layout->addWidget(cmdSave);
  layout->addWidget(cmdExit);
  FillFileList(lstFiles, kind == Kind::Waypoints ? folders.WaypointsFolder() : folders.RoutesFolder(),
               kind == Kind::Waypoints ? ".way" : ".rte");
  connect(lstFiles, &QListWidget::itemClicked, this, [this] { ShowRecords(); });
  connect(cmdSave, &QPushButton::clicked, this, [this] { Save(); });
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

void frmConvertToGPX::ShowRecords() {
  lstRecords->clear();
  if (!lstFiles->currentItem()) return;
  std::filesystem::path folder = kind_ == Kind::Waypoints ? folders_.WaypointsFolder() : folders_.RoutesFolder();
  std::filesystem::path file = folder / FromQString(lstFiles->currentItem()->text());
  auto bytes = ReadFileBytes(file);
  if (!bytes) return;
  if (kind_ == Kind::Waypoints) {
    for (const WayRecord& r : ReadWayRecords(*bytes))
      lstRecords->addItem(ToQString(r.Name + "\t" + NumberText(r.Lat) + "\t" + NumberText(r.Lon)));
  } else {
    for (const RteRecord& r : ReadRteRecords(*bytes))
      lstRecords->addItem(ToQString(r.Name + "\t" + NumberText(r.Lat) + "\t" + NumberText(r.Lon) + "\t" + NumberText(r.Speed)));
  }
  txtName->setText(ToQString(file.stem().string()));
}

void frmConvertToGPX::Save() {
  if (!lstFiles->currentItem() || txtName->text().trimmed().isEmpty()) return;
  std::filesystem::path source =
      (kind_ == Kind::Waypoints ? folders_.WaypointsFolder() : folders_.RoutesFolder()) /
      FromQString(lstFiles->currentItem()->text());
  std::filesystem::path destination =
      (kind_ == Kind::Waypoints ? folders_.WaypointsFolder() : folders_.RoutesFolder()) /
      (FromQString(txtName->text().trimmed()) + ".gpx");
  FileCommandResult r = kind_ == Kind::Waypoints
                            ? ConvertWayFileToGpx(source, destination, FromQString(txtDesc->text()))
                            : ConvertRteFileToGpx(source, destination);
  ShowMessage(this, r.message);
}

}  // namespace kelvane::forms
