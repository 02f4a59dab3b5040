// SPDX-License-Identifier: MIT
#include "platform/qt/qt_timer.h"

#include <QPointer>

namespace quenlor::platform::qt {

QtTimer::QtTimer() {
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Run(); });
}

void QtTimer::Interval(std::chrono::milliseconds interval) {
  if (timer_.intervalAsDuration() == interval) return;
  timer_.stop();
  timer_.setInterval(interval);
  StartIfDue();
}

void QtTimer::Enabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  timer_.stop();
  StartIfDue();
}

void QtTimer::StartIfDue() {
  if (enabled_ && timer_.interval() > 0) timer_.start();
}

void QtTimer::Run() {
  if (handling_ || !handler_) return;
  const QPointer<QTimer> alive(&timer_);  // the handler may destroy this timer, or give it another handler
  const auto handler = handler_;
  handling_ = true;
  handler();
  if (alive) handling_ = false;
}

}  // namespace quenlor::platform::qt
