// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <string>

namespace quenlor::app {

// How far a long work has come, in the status bar; a short one never shows it. Where the work may be left the
// window goes on answering, and Esc leaves it; where not, only the bar is painted, for the document is no
// whole then.
class ProgressBar : public QProgressBar {
  Q_OBJECT

 public:
  explicit ProgressBar(QWidget* parent);

  // What must not be painted while a work goes on that may not be left.
  void KeepQuiet(QWidget* quiet) { quiet_ = quiet; }

  bool Tell(const std::string& what, double part, bool may_leave);
  void Done();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void PaintNow();

  QWidget* quiet_ = nullptr;
  QElapsedTimer begun_;  // valid while a work goes on
  QElapsedTimer painted_;
  bool left_ = false;
};

}  // namespace quenlor::app
