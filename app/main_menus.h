// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <functional>

#include "app/option_group.h"

namespace quenlor::app {

// What answers a click on an item of each group.
struct MenuHandlers {
  using Handler = std::function<void(int Index)>;
  Handler Port_Click;
  Handler BPS_Click;
  Handler Parity_Click;
  Handler Length_Click;
  Handler Bit_Click;
  Handler Term_Click;
  Handler LW_Click;
  Handler MK_Click;
  Handler TimeS_Click;
  Handler mLog_Click;
  Handler DP_Click;
  Handler VDT_Click;
  Handler TDT_Click;
  Handler Range_Click;
};

// The items of the main window's menus. The window answers them.
struct MainMenus {
  MainMenus(QMenuBar* bar, MenuHandlers handlers);
  MainMenus(const MainMenus&) = delete;
  MainMenus& operator=(const MainMenus&) = delete;

  QMenu* mFile;
  QAction* mNew;
  QAction* mOpen;
  QAction* mSave;
  QAction* mPrint;
  QAction* mStatistics;
  QAction* mEnd;

  QMenu* mRS;  // only while stopped
  OptionGroup Port;
  OptionGroup BPS;
  OptionGroup Parity;
  OptionGroup Length;
  OptionGroup Bit;
  OptionGroup Term;

  QMenu* mOption;
  OptionGroup LW;
  OptionGroup MK;
  OptionGroup TimeS;
  OptionGroup mLog;
  QAction* mColor;
  OptionGroup DP;
  OptionGroup VDT;
  OptionGroup TDT;
  QAction* mNum;
  QAction* mVisco;
  QAction* mDefault;

  QMenu* mScale;
  OptionGroup Range;
};

}  // namespace quenlor::app
