#include "forms/frmAbout.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "core/helptext.h"
#include "forms/messages.h"

namespace kelvane::forms {

namespace {

QTextBrowser* Page(QWidget* parent, const char* name, const std::string& markdown) {
  auto* page = new QTextBrowser(parent);
  page->setObjectName(name);
  page->setOpenExternalLinks(true);
  page->setMarkdown(ToQString(markdown));
  return page;
}

QDialogButtonBox* CloseButton(QDialog* dialog) {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, dialog);
  buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
  QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
  return buttons;
}

}  // namespace

frmAbout::frmAbout(const std::string& version, const std::filesystem::path& dataRoot, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About Kelvane");
  lblVersion = new QLabel(ToQString("Kelvane " + version), this);
  lblVersion->setObjectName("lblVersion");
  txtAbout = Page(this, "txtAbout", AboutText(version, dataRoot));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblVersion);
  layout->addWidget(txtAbout);
  layout->addWidget(CloseButton(this));
  resize(720, 560);
}

frmQuickInstructions::frmQuickInstructions(QWidget* parent) : QDialog(parent) {
  setObjectName("frmQuickInstructions");
  setWindowTitle("Quick Instructions");
  txtInstructions = Page(this, "txtInstructions", QuickInstructionsText());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtInstructions);
  layout->addWidget(CloseButton(this));
  resize(640, 600);
}

}  // namespace kelvane::forms
