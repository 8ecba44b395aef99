// frmtimdat: sets the working date and time of the main window.
#pragma once

#include <QDialog>
#include <optional>

#include "core/dateformat.h"
#include "core/workingtime.h"
#include "forms/formsupport.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace kelvane::forms {

class FrmTimDat : public QDialog {
  Q_OBJECT
 public:
  FrmTimDat(const WorkingMoment& moment, DateFormat format, QWidget* parent = nullptr);

  // Checks the time box; on success the dialog is accepted and Result()
  // holds the new working date.
  void cmdOK_Click();
  const std::optional<WorkingDate>& Result() const { return result_; }

  MessageSink showMessage;

 private:
  void UpdateWeekday();
  DateFormat format_;
  QComboBox* cmbDay_;
  QComboBox* cmbMonth_;
  QComboBox* cmbYear_;
  QLineEdit* txtSelTime_;
  QLabel* lblDay_;
  std::optional<WorkingDate> result_;
};

}  // namespace kelvane::forms
