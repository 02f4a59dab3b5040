// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>

#include "platform/printer.h"
#include "reports/page_record.h"

namespace quenlor::reports {

// The "Print" window (Form3): the page as it will be printed, one twip here for one twip there, or smaller
// where the screen does not hold it. It has nothing to press; whoever shows it hides it.
class PrintForm : public QWidget {
  Q_OBJECT

 public:
  explicit PrintForm(QWidget* parent = nullptr);

  // At the screen's corner, empty until Draw.
  void ShowPage(const platform::PageSize& page);

  // Keeps what `draw` draws on the page, and shows it.
  void Draw(const std::function<void(platform::DrawingSurface&)>& draw);
  const PageRecord& Page() const { return page_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  platform::PageSize size_;
  PageRecord page_;
  QPixmap picture_;  // of the page, in this window's size
};

}  // namespace quenlor::reports
