// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <string>

#include "app/desk/session.h"
#include "app/desk/status.h"
#include "app/window/one_at_a_time.h"
#include "app/window/progress_bar.h"
#include "link/command_list.h"
#include "link/error_window.h"
#include "link/measurement.h"
#include "platform/dialogs.h"

namespace quenlor::app {

// The controls of a measurement: Start and Stop, the command box, Repeat and Auto Stop, the last line
// received, and the Error window that line errors open.
class MeasurePanel : public QWidget, private link::MeasurementListener {
  Q_OBJECT

 public:
  MeasurePanel(Session& session, link::Measurement& measurement, platform::Dialogs& dialogs,
               OneAtATime& commands, Status& status, ProgressBar& progress, QWidget* parent);
  ~MeasurePanel() override;

  QWidget* ReceivedData() const { return received_; }  // stands above the tables
  void LoadCommandList();
  void PressStart() { Command1->click(); }
  void PressCommand() { Command2->click(); }
  void ShowChoices();
  void ShowLine();  // the last line, as it has come since
  void ClearReceivedData();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Command1_Click();  // "Start" / "Stop"
  void Command2_Click();  // "Command"
  void Combo1_Change();   // "Command Data"
  void Check1_Click();    // "Repeat"
  void Check5_Click();    // "Auto Stop"
  void Text1_Change();    // auto stop, minutes
  void Text2_Change();    // repeat interval, seconds
  void ConnectHandlers();

  QGroupBox* BuildMeasureFrame();
  QGroupBox* BuildRepeatFrame();
  void BuildReceivedData();
  void ShowSign();

  void StateChanged() override;
  void LineReceived(const std::string& line) override;
  void ErrorLine(const std::string& line) override;

  Session& session_;
  link::Measurement& measurement_;
  platform::Dialogs& dialogs_;
  OneAtATime& commands_;
  Status& status_;
  ProgressBar& progress_;
  link::CommandList command_list_;
  std::string last_line_;
  bool line_waits_ = false;  // last_line_ is not shown yet
  bool had_focus_ = false;   // the button, before Stop's wait took it away

  QPushButton* Command1 = nullptr;
  QPushButton* Command2 = nullptr;
  QComboBox* Combo1 = nullptr;
  QCheckBox* Check1 = nullptr;
  QCheckBox* Check5 = nullptr;
  QLineEdit* Text1 = nullptr;
  QLineEdit* Text2 = nullptr;
  QLineEdit* Text3 = nullptr;
  QWidget* received_ = nullptr;
  QPointer<link::ErrorWindow> Form5;
};

}  // namespace quenlor::app
