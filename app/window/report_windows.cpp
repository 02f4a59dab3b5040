// SPDX-License-Identifier: MIT
#include "app/window/report_windows.h"

#include <QWindow>

#include "platform/busy_pointer.h"
#include "platform/qt/qt_busy_pointer.h"
#include "reports/report_page.h"

namespace quenlor::app {

void ReportWindows::mPrint_Click() {
  reports::PrintReport(ports_.printer, ports_.dialogs, *this, session_.Document().FileName(),
                       [this] { session_.Settings().SaveSettings(); });
}

void ReportWindows::mStatistics_Click() {
  if (!Form4) {
    Form4 = new reports::StatisticsWindow(ports_.printer, ports_.clipboard, window_);
    Form4->setAttribute(Qt::WA_DeleteOnClose);
  }
  const platform::BusyPointer busy(platform::qt::ShowBusyPointer);
  const data::Document& document = session_.Document();
  Form4->Show(reports::StatisticsTable(document.Grid1(), document.ViscoColumn(), document.TempColumn(),
                                       ports_.decimal_point),
              document.FileName(), document.Date());
}

QWidget* ReportWindows::FrontWindow() const {
  return Form3 && Form3->isVisible() ? Form3.get() : static_cast<QWidget*>(window_);
}

void ReportWindows::HideMainWindow() {
  place_ = window_->geometry().topLeft();
  window_->hide();
}

// The desktop may place a window anew that is shown again, unless it asks for the place that it had.
void ReportWindows::ShowMainWindow() {
  if (window_->windowHandle() != nullptr && !window_->isMaximized() && !window_->isFullScreen())
    window_->windowHandle()->setPosition(place_);
  window_->show();
}

void ReportWindows::ShowForm3(const platform::PageSize& page) {
  if (!Form3) Form3 = std::make_unique<reports::PrintForm>();
  Form3->ShowPage(page);
}

void ReportWindows::HideForm3() {
  if (Form3) Form3->hide();
}

const reports::PageRecord& ReportWindows::Draw() {
  ports_.loop.Paint();
  const graph::Captions captions = session_.Captions();
  Form3->Draw([&](platform::DrawingSurface& page) {
    reports::Draw(page, {captions, session_.Graph().Values(), look_(), session_.Document().Ranges()});
  });
  return Form3->Page();
}

void ReportWindows::Busy(bool busy) { platform::qt::ShowBusyPointer(busy); }

}  // namespace quenlor::app
