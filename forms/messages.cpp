#include "forms/messages.h"

#include <QMessageBox>

namespace kelvane::forms {

void ShowMessage(QWidget* parent, const std::string& text) {
  QMessageBox box(QMessageBox::Information, kProgramName, ToQString(text), QMessageBox::Ok, parent);
  box.exec();
}

bool AskYesNo(QWidget* parent, const std::string& text) {
  QMessageBox box(QMessageBox::Question, kProgramName, ToQString(text), QMessageBox::Yes | QMessageBox::No, parent);
  return box.exec() == QMessageBox::Yes;
}

QString ToQString(const std::string& text) { return QString::fromStdString(text); }
std::string FromQString(const QString& text) { return text.toStdString(); }

}  // namespace kelvane::forms
