// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace quenlor::bench {

// Of this process now, in KiB.
inline long ResidentMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) return std::stol(line.substr(6));
  }
  return 0;
}

// Tells the parent process, on standard output, when the window has been painted for the first time, and what
// memory the program has when it has come to rest after that; then it ends.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget& window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      // The event comes before the painting; what follows it in the queue comes after.
      QMetaObject::invokeMethod(this, &FirstPaint::Painted, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  void Painted() {
    std::puts("painted");
    std::fflush(stdout);
    QTimer::singleShot(500, this, [] {
      std::printf("%ld\n", ResidentMemory());
      std::fflush(stdout);
      std::_Exit(0);
    });
  }
};

}  // namespace quenlor::bench
