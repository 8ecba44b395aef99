#include "forms/formsupport.h"

#include <QColorDialog>

#include "core/settings.h"
#include "forms/messages.h"

namespace kelvane::forms {

MessageSink DefaultMessageSink(QWidget* parent) {
  return [parent](const std::string& text) { ShowMessage(parent, text); };
}

QComboBox* MakeCombo(QWidget* parent, const char* objectName, const std::vector<std::string>& entries,
                     const std::string& current) {
  auto* combo = new QComboBox(parent);
  combo->setObjectName(objectName);
  combo->setEditable(true);
  for (const std::string& e : entries) combo->addItem(QString::fromStdString(e));
  combo->setCurrentText(QString::fromStdString(current));
  return combo;
}

std::string ComboText(const QComboBox* combo) { return combo->currentText().toStdString(); }

ColourButton::ColourButton(QWidget* parent, const char* objectName, std::int32_t colour)
    : QPushButton(parent), colour_(colour) {
  setObjectName(objectName);
  setFixedWidth(48);
  setColour(colour);
  connect(this, &QPushButton::clicked, this, [this] {
    QColor chosen = QColorDialog::getColor(QColor(ColourRed(colour_), ColourGreen(colour_), ColourBlue(colour_)), this);
    if (chosen.isValid()) setColour(PackColour(chosen.red(), chosen.green(), chosen.blue()));
  });
}

void ColourButton::setColour(std::int32_t colour) {
  colour_ = colour;
  setStyleSheet(QString("background-color: rgb(%1,%2,%3)")
                    .arg(ColourRed(colour))
                    .arg(ColourGreen(colour))
                    .arg(ColourBlue(colour)));
}

}  // namespace kelvane::forms
