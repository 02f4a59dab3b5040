// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QPoint>
#include <QPointer>
#include <functional>
#include <memory>

#include "app/desk/session.h"
#include "platform/clipboard.h"
#include "platform/event_loop.h"
#include "platform/printer.h"
#include "reports/print_form.h"
#include "reports/print_report.h"
#include "reports/statistics_window.h"

namespace quenlor::app {

// What leaves the program on paper or by the clipboard: the report with its preview, which stands in the main
// window's place, and the statistics.
class ReportWindows : private reports::PrintWindows {
 public:
  struct Ports {
    platform::Printer& printer;
    platform::Clipboard& clipboard;
    platform::Dialogs& dialogs;
    platform::EventLoop& loop;
    char decimal_point = '.';
  };

  // `look` is how the graph looks on the screen.
  ReportWindows(Session& session, const Ports& ports, std::function<graph::PlotSettings()> look,
                QMainWindow* window)
      : session_(session), ports_(ports), look_(std::move(look)), window_(window) {}

  void mPrint_Click();
  void mStatistics_Click();

  // The window that a box belongs to: the main window, or the preview in its place.
  QWidget* FrontWindow() const;
  void HideForm3() override;

 private:
  void HideMainWindow() override;
  void ShowMainWindow() override;
  void ShowForm3(const platform::PageSize& page) override;
  const reports::PageRecord& Draw() override;
  void Busy(bool busy) override;

  Session& session_;
  Ports ports_;
  std::function<graph::PlotSettings()> look_;
  QMainWindow* window_;
  QPoint place_;                              // before the preview took the window's place
  std::unique_ptr<reports::PrintForm> Form3;  // hidden between prints
  QPointer<reports::StatisticsWindow> Form4;
};

}  // namespace quenlor::app
