#include "forms/windlists.h"

#include <QDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "forms/messages.h"

namespace kelvane::forms {

const char* const kNoImportedWind =
    "No imported wind yet: import a GRIB file with Wind, Import GRIB File... and it is listed here.";

WindListParts BuildWindList(QDialog* dialog, const std::filesystem::path& file,
                            const std::vector<std::string>& lines) {
  WindListParts parts;
  dialog->setWindowTitle(ToQString(file.filename().string()));
  auto* heading = new QLabel(
      "Date @ time (UTC)  \u2022  position (latitude, longitude)  \u2022  speed (knots)  \u2022  direction the wind "
      "blows from (degrees true)",
      dialog);
  heading->setObjectName("lblHeading");
  heading->setWordWrap(true);

  parts.List1 = new QListWidget(dialog);
  parts.List1->setObjectName("List1");
  // Every line is one row of the same height: the view lays out only what
  // shows, so a long store fills without a wait.
  parts.List1->setUniformItemSizes(true);
  parts.List1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(lines.size()));
  for (const std::string& line : lines) texts.push_back(ToQString(line));
  parts.List1->addItems(texts);

  parts.lblEmpty = new QLabel(kNoImportedWind, dialog);
  parts.lblEmpty->setObjectName("lblEmpty");
  parts.lblEmpty->setWordWrap(true);
  parts.lblEmpty->setVisible(lines.empty());

  auto* count = new QLabel(QString::number(lines.size()) + (lines.size() == 1 ? " line" : " lines"), dialog);
  count->setObjectName("lblCount");
  parts.cmdOK = new QPushButton("OK", dialog);
  parts.cmdOK->setObjectName("cmdOK");
  parts.cmdOK->setDefault(true);
  QObject::connect(parts.cmdOK, &QPushButton::clicked, dialog, &QDialog::accept);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(count, 1);
  buttons->addWidget(parts.cmdOK);
  auto* layout = new QVBoxLayout(dialog);
  layout->addWidget(heading);
  layout->addWidget(parts.List1, 1);
  layout->addWidget(parts.lblEmpty);
  layout->addLayout(buttons);
  dialog->resize(560, 460);
  return parts;
}

}  // namespace kelvane::forms
