#include "app/frmdisclaimer.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/mainwindow.h"
#include "core/datatree.h"
#include "forms/frmAbout.h"

namespace kelvane::app {

const std::vector<std::string>& StartNotices() {
  static const std::vector<std::string> notices = {
      "Kelvane is a passage planning tool and a secondary aid to navigation.",
      "Its use as a primary means of navigation is entirely at the user's own risk.",
      "",
      "The authors accept no liability for any loss, damage or injury arising from its use.",
      "",
      "Errors may occur. Validate every result before you use it.",
      "Please ensure that configurations are correct for your area.",
      "",
      "Tidal heights and streams are derived from published harmonic constants and",
      "predicted orbital elements; all results are approximate only.",
      "",
      "Plane sailing calculations are used throughout: accuracy is claimed only to",
      "within a few percent.",
      "",
      "The source data are simplified harmonic constants and the tidal diamonds of the",
      "hydrographic office; no claim is made on their accuracy.",
      "",
      "Tidal data are reproduced from published constants of the national tide gauge",
      "networks. The offices that publish them have not verified the reproduced data.",
  };
  return notices;
}

Frmdisclaimer::Frmdisclaimer(Folders folders, QWidget* parent) : QMainWindow(parent) {
  setObjectName("Frmdisclaimer");
  state_.folders = std::move(folders);
  showMessage = forms::DefaultMessageSink(this);
  endProgram = [](int code) { QApplication::exit(code); };

  QMenu* file = menuBar()->addMenu("&File");
  QAction* restore = file->addAction("Restore Defaults");
  restore->setObjectName("mnuRestoreDefaults");
  connect(restore, &QAction::triggered, this, &Frmdisclaimer::mnuRestoreDefaults_Click);
  QMenu* help = menuBar()->addMenu("&Help");
  help->setObjectName("mnuHelp");
  QAction* about = help->addAction("About Kelvane");
  about->setObjectName("mnuAbout");
  connect(about, &QAction::triggered, this, [this] {
    // Before the data root is seeded the sources are those of the data
    // installed with the program.
    const auto seed = SeedFolder(KELVANE_SEED_DIR);
    forms::frmAbout form(KELVANE_VERSION, seed ? *seed : state_.folders.DataRoot(), this);
    form.exec();
  });
  QAction* quick = help->addAction("Quick Instructions...");
  quick->setObjectName("mnuQuickInstructions");
  connect(quick, &QAction::triggered, this, [this] {
    forms::frmQuickInstructions form(this);
    form.exec();
  });

  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  lstNotices_ = new QListWidget(central);
  lstNotices_->setObjectName("lstNotices");
  lstNotices_->setMinimumSize(620, 360);
  layout->addWidget(lstNotices_);
  auto* buttons = new QHBoxLayout;
  auto* ok = new QPushButton("I Accept", central);
  ok->setObjectName("cmdCCok");
  auto* decline = new QPushButton("Decline", central);
  decline->setObjectName("cmddecline");
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(decline);
  layout->addLayout(buttons);
  setCentralWidget(central);
  connect(ok, &QPushButton::clicked, this, &Frmdisclaimer::cmdCCok_Click);
  connect(decline, &QPushButton::clicked, this, &Frmdisclaimer::cmddecline_Click);
}

Frmdisclaimer::~Frmdisclaimer() = default;

bool Frmdisclaimer::Prepare() {
  // 1 - 3. The folders are known; lay out the tree. Nothing is copied into
  // it before the user has accepted the notices.
  CreateDataTree(state_.folders);
  // 4. Caption with the program's name and version.
  setWindowTitle(QString("Kelvane ") + KELVANE_VERSION);
  // 5. The user's date order.
  state_.dateFormat = DetectSystemDateFormat();
  if (state_.dateFormat.month == 0) {
    showMessage(kDateFormatIncompatible);
    endProgram(1);
    return false;
  }
  if (state_.dateFormat.format.empty()) {
    showMessage("The date format of this computer is not supported. Please contact support.");
    endProgram(1);
    return false;
  }
  // 6. The notices.
  lstNotices_->clear();
  for (const std::string& line : StartNotices()) lstNotices_->addItem(QString::fromStdString(line));
  return true;
}

void Frmdisclaimer::cmdCCok_Click() {
  // Accepted: the data root gets the installed sample data it lacks (charts,
  // constants, streams) before the main window loads from it.
  if (auto seed = SeedFolder(KELVANE_SEED_DIR)) SeedDataRoot(state_.folders, *seed);
  hide();
  chart_ = std::make_unique<FrmChart>(state_);
  chart_->showMessage = showMessage;
  chart_->Load();
  chart_->show();
}

void Frmdisclaimer::cmddecline_Click() {
  close();
  endProgram(0);
}

void Frmdisclaimer::mnuRestoreDefaults_Click() {
  if (RestoreDefaults(state_.folders))
    showMessage("Settings restored to defaults");
  else
    showMessage("Unable to write the settings in " + state_.folders.UserFiles().string());
}

}  // namespace kelvane::app
