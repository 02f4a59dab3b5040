// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include "platform/timer.h"

namespace quenlor::platform::qt {

// A timer of the event loop, exact to the millisecond.
class QtTimer : public Timer {
 public:
  QtTimer();
  void Interval(std::chrono::milliseconds interval) override;
  void Enabled(bool enabled) override;
  bool Enabled() const override { return enabled_; }
  void OnTimer(std::function<void()> handler) override { handler_ = std::move(handler); }

 private:
  void StartIfDue();
  void Run();

  QTimer timer_;
  bool enabled_ = false;
  bool handling_ = false;
  std::function<void()> handler_;
};

}  // namespace quenlor::platform::qt
