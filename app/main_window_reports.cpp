// SPDX-License-Identifier: MIT
#include <QWindow>

#include "app/main_window.h"
#include "graph/captions.h"
#include "reports/report_page.h"

// What leaves the program on paper or by the clipboard: the report and the statistics.

namespace quenlor::app {

void MainWindow::mPrint_Click() {
  RunAlone([this] {
    reports::PrintReport(ports_.printer, ports_.dialogs, *this, document_.FileName(),
                         [this] { settings_.SaveSettings(); });
  });
}

void MainWindow::mStatistics_Click() {
  if (!Form4) {
    Form4 = new reports::StatisticsWindow(ports_.printer, ports_.clipboard, this);
    Form4->setAttribute(Qt::WA_DeleteOnClose);
  }
  Busy(true);
  Form4->Show(reports::StatisticsTable(document_.Grid1(), document_.ViscoColumn(), document_.TempColumn(),
                                       ports_.system_writes_comma ? ',' : '.'),
              document_.FileName(), document_.Date());
  Busy(false);
}

QWidget* MainWindow::FrontWindow() {
  return Form3 && Form3->isVisible() ? Form3.get() : static_cast<QWidget*>(this);
}

void MainWindow::HideMainWindow() {
  place_ = geometry().topLeft();
  hide();
}

// The desktop may place a window anew that is shown again, unless it asks for the place that it had.
void MainWindow::ShowMainWindow() {
  if (windowHandle() != nullptr && !isMaximized() && !isFullScreen()) windowHandle()->setPosition(place_);
  show();
}

void MainWindow::ShowForm3(const platform::PageSize& page) {
  if (!Form3) Form3 = std::make_unique<reports::PrintForm>();
  Form3->ShowPage(page);
}

void MainWindow::HideForm3() {
  if (Form3) Form3->hide();
}

const reports::PageRecord& MainWindow::Draw() {
  ports_.measurement.loop.Paint();
  const graph::Captions captions = graph::CaptionsOf(document_, graph_);
  Form3->Draw([&](platform::DrawingSurface& page) {
    reports::Draw(page, {captions, graph_.Values(), Picture1->Settings(), document_.Ranges()});
  });
  return Form3->Page();
}

}  // namespace quenlor::app
