// Small pieces shared by the dialogs: a message sink that tests can
// replace, combo boxes filled from lists, colour buttons.
#pragma once

#include <QComboBox>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

namespace kelvane::forms {

// Where a dialog sends its messages: a modal "Kelvane" box unless a test
// puts its own sink in.
using MessageSink = std::function<void(const std::string&)>;
MessageSink DefaultMessageSink(QWidget* parent);

// An editable combo box with the given entries, showing `current`.
QComboBox* MakeCombo(QWidget* parent, const char* objectName, const std::vector<std::string>& entries,
                     const std::string& current);
std::string ComboText(const QComboBox* combo);

// A push button that shows a packed RGB colour (red in the low byte) and
// lets the user choose another.
class ColourButton : public QPushButton {
  Q_OBJECT
 public:
  ColourButton(QWidget* parent, const char* objectName, std::int32_t colour);
  std::int32_t colour() const { return colour_; }
  void setColour(std::int32_t colour);

 private:
  std::int32_t colour_;
};

}  // namespace kelvane::forms
