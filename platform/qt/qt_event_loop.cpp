// SPDX-License-Identifier: MIT
#include "platform/qt/qt_event_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <limits>

namespace quenlor::platform::qt {

void QtEventLoop::WaitSeconds(double seconds) {
  if (!(seconds > 0)) return;
  constexpr double kLongest = std::numeric_limits<int>::max();  // what a timer can count, 24 days
  QEventLoop loop;
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, &loop, [&loop] { loop.quit(); });
  timer.start(static_cast<int>(std::min(std::ceil(seconds * 1000), kLongest)));
  loop.exec();
}

void QtEventLoop::Paint() {
  // A changed widget waits for one of these two events; every other event stays in the queue.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

}  // namespace quenlor::platform::qt
