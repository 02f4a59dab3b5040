// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPushButton>
#include <memory>
#include <string>

#include "platform/clipboard.h"
#include "platform/printer.h"
#include "reports/statistics_page.h"

namespace quenlor::platform::qt {
class GridView;
}

namespace quenlor::reports {

// "Statistics": the table of the last readings and their statistics, to be looked at, printed and copied.
//
// Not modal. It shows what it was last told to show and nothing else; row 0 and column 0 of the table are the
// headers of the grid. Printing goes on with what was shown when it was asked for, and is dropped when the
// window is closed or destroyed while the printer dialog is open.
class StatisticsWindow : public QDialog {
  Q_OBJECT

 public:
  StatisticsWindow(platform::Printer& printer, platform::Clipboard& clipboard, QWidget* parent);
  ~StatisticsWindow() override;

  // Shows other statistics, in front of the other windows.
  void Show(StatisticsTable table, std::string file_name, std::string date);

 private:
  struct Content;
  class GridTable;

  void BuildWindow();
  void ConnectHandlers();
  void FitColumns();
  void FitWindow();

  void Print_Click();
  void Copy_Click();

  platform::Printer& printer_;
  platform::Clipboard& clipboard_;
  std::shared_ptr<const Content> content_;
  GridTable* table_;
  bool printing_ = false;
  platform::qt::GridView* Grid1;
  QPushButton* Print;
  QPushButton* Copy;
};

}  // namespace quenlor::reports
