// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <optional>
#include <string>

#include "platform/busy_pointer.h"

namespace quenlor::app {

// How far a long work has come, in the status bar; a short one never shows it. Where the work may be left the
// window goes on answering, and Esc leaves it; where not, only the bar is painted, for the document is no
// whole then. Work upon a whole document waits with what the operator does, under a waiting pointer, and the
// window answers everybody else.
class ProgressBar : public QProgressBar {
  Q_OBJECT

 public:
  explicit ProgressBar(QWidget* parent);

  // What must not be painted while a work goes on that may not be left.
  void KeepQuiet(QWidget* quiet) { quiet_ = quiet; }

  bool Tell(const std::string& what, double part, bool may_leave);
  void TellAndAnswer(const std::string& what, double part);
  void Done();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Begin();
  bool Show(const std::string& what, double part);
  void PaintNow();

  QWidget* quiet_ = nullptr;
  QElapsedTimer begun_;  // valid while a work goes on
  QElapsedTimer painted_;
  bool left_ = false;
  std::optional<platform::BusyPointer> pointer_;
};

}  // namespace quenlor::app
