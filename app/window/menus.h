// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <functional>
#include <string>
#include <vector>

#include "app/desk/session.h"
#include "app/desk/status.h"
#include "app/window/option_group.h"
#include "link/measurement.h"
#include "platform/qt/described_menu.h"

namespace quenlor::app {

// Which devices stand behind the port numbers.
struct DeviceNames {
  std::function<platform::Done()> look_for_devices;   // before they are told
  std::function<std::string(int port)> name_of_port;  // empty when there is none
};

// The menus of the main window. They answer every choice that is kept in the settings list; what is a command
// is an action for the window to answer.
class Menus : public QObject, private link::MeasurementListener {
  Q_OBJECT

 public:
  Menus(QMenuBar* bar, Session& session, link::Measurement& measurement, DeviceNames devices, Status& status);
  ~Menus() override;

  void AddPorts();     // items of the Com Port menu, as many as the settings say
  void ShowChoices();  // every check mark as the settings list has it; elements stay, whatever they say
  void ShowDevices();
  void ShowRecent(const std::vector<std::string>& paths);  // at the foot of File
  void ToggleLog();                                        // the viscosity axis becomes the other one

  QAction* mNew = nullptr;
  QAction* mOpen = nullptr;
  QAction* mSave = nullptr;
  QAction* mPrint = nullptr;
  QAction* mStatistics = nullptr;
  QAction* mEnd = nullptr;
  QAction* mAppend = nullptr;
  QAction* mHelp = nullptr;
  QAction* mAbout = nullptr;
  QAction* mColor = nullptr;

 signals:
  void FileMenuOpens();
  void Recent_Click(const std::string& path);
  void LineChosen();
  void Range_Click(int Index);

 private:
  struct GroupRow;

  platform::qt::DescribedMenu* AddMenu(const char* name, const char* caption);
  QAction* AddItem(QMenu* menu, const char* name, const char* caption, const QString& tip);
  void AddGroup(QMenu* menu, const GroupRow& row);
  void BuildFileMenu();
  void BuildPortMenu();
  void BuildOptionMenu();
  void BuildScaleMenu();

  void Port_Click(int Index) { Choose(Port, Index); }
  void BPS_Click(int Index) { Choose(BPS, Index); }
  void Parity_Click(int Index) { Choose(Parity, Index); }
  void Length_Click(int Index) { Choose(Length, Index); }
  void Bit_Click(int Index) { Choose(Bit, Index); }
  void Term_Click(int Index) { Choose(Term, Index); }
  void LW_Click(int Index);
  void MK_Click(int Index);
  void TimeS_Click(int Index);
  void mLog_Click(int Index);
  void DP_Click(int Index);
  void VDT_Click(int Index);
  void TDT_Click(int Index);
  void mNum_Click();
  void mVisco_Click();
  void mDefault_Click() {}  // "Initialize" has nothing to do

  void Choose(OptionGroup& group, int Index);
  void FillColumnMenu(OptionGroup& group, int chosen_column);
  void TellOfUnreachableDevice();
  void StateChanged() override;

  QMenuBar* bar_;
  platform::qt::DescribedMenu* mFile = nullptr;
  QList<QAction*> recent_;
  QAction* help_ = nullptr;  // the separator before it
  Session& session_;
  link::Measurement& measurement_;
  DeviceNames devices_;
  Status& status_;
  std::vector<OptionGroup*> groups_;  // those that the settings list keeps
  QMenu* mRS = nullptr;               // only while stopped
  OptionGroup Port, BPS, Parity, Length, Bit, Term;
  OptionGroup LW, MK, TimeS, mLog, DP, VDT, TDT;
  OptionGroup Range;
  QAction* mNum = nullptr;
  QAction* mVisco = nullptr;
};

}  // namespace quenlor::app
