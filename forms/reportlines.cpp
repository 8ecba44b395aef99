#include "forms/reportlines.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>

namespace kelvane::forms {

namespace {
QString Joined(const std::vector<std::string>& lines) {
  QStringList list;
  for (const std::string& line : lines) list << QString::fromStdString(line);
  return list.join('\n');
}
}  // namespace

QPlainTextEdit* MakeReportBox(QWidget* parent, const char* objectName) {
  auto* box = new QPlainTextEdit(parent);
  box->setObjectName(objectName);
  box->setReadOnly(true);
  box->setLineWrapMode(QPlainTextEdit::NoWrap);
  box->setTabStopDistance(box->fontMetrics().horizontalAdvance(' ') * 24.0);
  box->setMinimumSize(560, 360);
  return box;
}

void ShowLines(QPlainTextEdit* box, const std::vector<std::string>& lines) { box->setPlainText(Joined(lines)); }

std::vector<std::string> BoxLines(const QPlainTextEdit* box) {
  std::vector<std::string> lines;
  const QString text = box->toPlainText();
  if (text.isEmpty()) return lines;
  for (const QString& line : text.split('\n')) lines.push_back(line.toStdString());
  return lines;
}

void CopyLines(const std::vector<std::string>& lines) { QGuiApplication::clipboard()->setText(Joined(lines)); }

void PrintLines(QWidget* parent, const std::vector<std::string>& lines) {
  QPrinter printer;
  QPrintDialog dialog(&printer, parent);
  if (dialog.exec() != QDialog::Accepted) return;
  QTextDocument document;
  document.setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  document.setPlainText(Joined(lines));
  document.print(&printer);
}

}  // namespace kelvane::forms
