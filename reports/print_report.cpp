// SPDX-License-Identifier: MIT
#include "reports/print_report.h"

namespace quenlor::reports {

void PrintReport(platform::Printer& printer, platform::Dialogs& dialogs, PrintWindows& windows,
                 const std::string& title, const std::function<void()>& save_settings) {
  printer.Choose(title);
  windows.HideMainWindow();
  windows.Busy(true);
  windows.ShowForm3(printer.Page());
  const PageRecord& page = windows.Draw();
  windows.Busy(false);
  const auto answer = dialogs.Show({.text = "Will you print this data ?",
                                    .buttons = platform::Buttons::kOkCancel,
                                    .icon = platform::Icon::kQuestion,
                                    .default_answer = platform::Answer::kOk,
                                    .title = "Printer",
                                    .blocks = platform::Blocks::kWholeProgram});
  if (answer == platform::Answer::kOk) {
    windows.Busy(true);
    const int copies = printer.Copies();
    for (int copy = 1; copy <= copies; ++copy)
      printer.Print(title, 1, [&](platform::DrawingSurface& paper, int) { page.Replay(paper); });
    windows.Busy(false);
    save_settings();
  }
  windows.ShowMainWindow();
  windows.HideForm3();
}

}  // namespace quenlor::reports
