// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <functional>

#include "app/option_group.h"

namespace quenlor::app {

// The items of the main window's menus. The window answers them; entries whose work is not there are disabled.
struct MainMenus {
  using Click = std::function<void(int element, OptionGroup& group, int index)>;
  using Choose = std::function<void(int index)>;

  MainMenus(QMenuBar* bar, const Click& click, const Choose& DP_Click, const Choose& VDT_Click,
            const Choose& TDT_Click);

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
