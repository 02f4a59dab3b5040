// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/dialogs.h"
#include "platform/printer.h"
#include "reports/page_record.h"

namespace quenlor::reports {

// The windows as printing needs them: the main window makes room for the preview (Form3).
class PrintWindows {
 public:
  virtual ~PrintWindows() = default;
  virtual void HideMainWindow() = 0;
  virtual void ShowMainWindow() = 0;
  virtual void ShowForm3(const platform::PageSize& page) = 0;  // as large as the page, at the screen's corner
  virtual void HideForm3() = 0;
  virtual const PageRecord& Draw() = 0;  // lays the report out on Form3; what it shows from then on
  virtual void Busy(bool busy) = 0;      // the waiting pointer
};

// Printing the report: the printer is chosen, the page is shown, and printed after an OK, once for each copy
// as a document of its own. `save_settings` is called after printing. The question blocks the whole program,
// so that the page is printed on the paper for which it was laid out.
//
// A step that fails is passed over. So a cancelled printer dialog leads to the question, too, and OK prints
// with what was chosen before: the question is where the operator decides.
void PrintReport(platform::Printer& printer, platform::Dialogs& dialogs, PrintWindows& windows,
                 const std::string& title, const std::function<void()>& save_settings);

}  // namespace quenlor::reports
