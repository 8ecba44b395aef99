#include "forms/frmGribImport.h"

#include <QApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "forms/messages.h"

namespace kelvane::forms {

namespace {

constexpr const char* kInstruction =
    "Press the 'OpenGrib File' button and from the window that appears navigate to where you have stored your Grib "
    "Files.";
constexpr const char* kNote1 =
    "Note :  GRIB files are complex and take some time to read, this program imports the data into a temporary file "
    "and";
constexpr const char* kNote2 =
    "uses this file to obtain the forecasts, the file is used between successive program sessions and only needs to "
    "be refreshed whenever a new forecast is downloaded.";
// Forecast times come in UTC and the program keeps no time zone: the
// working time is read as UTC when the wind is looked up.
constexpr const char* kTimesNote =
    "All GRIB times are UTC (GMT), and so are the times listed here. Kelvane holds no time zone: the stored wind is "
    "looked up at the working time as if it were UTC. In summer time (BST, UTC+1) the forecast for 12:00 UTC is the "
    "wind at 13:00 on your clock, so set the working time in UTC when taking wind from a GRIB file.";

QLabel* Text(QWidget* parent, const char* name, const QString& text) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setWordWrap(true);
  return label;
}

}  // namespace

frmGribImport::frmGribImport(const Folders& folders, const std::string& gribFolder, QWidget* parent)
    : QDialog(parent), showMessage(DefaultMessageSink(this)), folders_(folders), gribFolder_(gribFolder) {
  setObjectName("frmGribImport");
  setWindowTitle("Import GRIB File");
  chooseFile = [this](const QString& folder) {
    return QFileDialog::getOpenFileName(this, "Open GRIB File", folder, "GRIB file (*.grb);;All files (*)");
  };
  lblInstruction = Text(this, "lblInstruction", kInstruction);
  lblNote = Text(this, "lblNote", QString(kNote1) + " " + kNote2);
  lblTimes = Text(this, "lblTimes", kTimesNote);
  lblTimes->setStyleSheet("QLabel { background-color: #fff6d5; border: 1px solid #d8c27a; padding: 6px; }");
  cmdOpen = new QPushButton("Open Grib File", this);
  cmdOpen->setObjectName("cmdOpen");
  cmdOpen->setDefault(true);
  lblFile = new QLabel("No file read yet", this);
  lblFile->setObjectName("lblFile");
  lblFile->setTextInteractionFlags(Qt::TextSelectableByMouse);
  List1 = new QTreeWidget(this);
  List1->setObjectName("List1");
  List1->setHeaderLabels({"Rec No", "Time", "Param Number"});
  List1->setRootIsDecorated(false);
  List1->setUniformRowHeights(true);
  List1->setAlternatingRowColors(true);
  List1->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  List1->header()->setMinimumSectionSize(90);
  List1->header()->setStretchLastSection(true);
  lblStatus = Text(this, "lblStatus", "");
  cmdClose = new QPushButton("Close", this);
  cmdClose->setObjectName("cmdClose");

  auto* open = new QHBoxLayout;
  open->addWidget(cmdOpen);
  open->addWidget(lblFile, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(lblStatus, 1);
  buttons->addWidget(cmdClose);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblInstruction);
  layout->addWidget(lblNote);
  layout->addWidget(lblTimes);
  layout->addLayout(open);
  layout->addWidget(List1, 1);
  layout->addLayout(buttons);
  resize(620, 520);

  connect(cmdOpen, &QPushButton::clicked, this, &frmGribImport::cmdOpen_Click);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

QString frmGribImport::StartFolder() const {
  // The folder of the last import; the first run's value (the data root
  // itself) and a folder since removed give the tree's "Grib Data".
  std::error_code ec;
  const std::filesystem::path last(gribFolder_);
  const bool usable = !gribFolder_.empty() && std::filesystem::is_directory(last, ec) &&
                      !std::filesystem::equivalent(last, folders_.DataRoot(), ec);
  return ToQString((usable ? last : folders_.GribFolder()).string());
}

void frmGribImport::cmdOpen_Click() {
  const QString file = chooseFile ? chooseFile(StartFolder()) : QString();
  if (file.isEmpty()) {
    showMessage(kSelectAFile);
    return;
  }
  (void)ReadGrib(FromQString(file));
}

WindImport frmGribImport::ReadGrib(const std::filesystem::path& file) {
  // The settings go to disk first, with the folder of this file: a read
  // that never ends still leaves them saved.
  gribFolder_ = file.parent_path().string();
  if (storeSettings) {
    const std::string folder = gribFolder_;
    if (const std::string m = storeSettings([folder](SettingsRecord& r) { r.GribFolder = folder; }); !m.empty())
      showMessage(m);
  }
  List1->clear();
  lblFile->setText(ToQString(file.filename().string()));
  lblFile->setToolTip(ToQString(file.string()));
  lblStatus->setText("Reading " + ToQString(file.filename().string()) + " ...");
  // A large file takes a while: the form shows that it is busy and takes
  // no clicks until the store is written.
  cmdOpen->setEnabled(false);
  cmdClose->setEnabled(false);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  WindImport result = ImportGribToWindStore(file, folders_.WindStoreFile(), folders_.GribPointsFile());
  QApplication::restoreOverrideCursor();
  cmdOpen->setEnabled(true);
  cmdClose->setEnabled(true);

  QList<QTreeWidgetItem*> rows;
  rows.reserve(static_cast<qsizetype>(result.read.size()));
  for (const GribMessageRow& r : result.read) {
    rows.push_back(new QTreeWidgetItem(
        {QString::number(r.recNo), ToQString(WindTimeText(r.timeDays)), QString::number(r.parameter)}));
  }
  List1->addTopLevelItems(rows);
  lblStatus->setText(ToQString(result.ok ? result.message + ": " + std::to_string(result.records) +
                                               " wind values from " + std::to_string(result.pairs) + " U/V pairs"
                                         : result.message));
  if (result.ok) {
    imported_ = true;
    emit WindStoreChanged();
  }
  showMessage(result.message);
  return result;
}

}  // namespace kelvane::forms
