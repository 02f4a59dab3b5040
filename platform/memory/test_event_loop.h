// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "platform/event_loop.h"
#include "platform/memory/test_clock.h"

namespace quenlor::platform::memory {

// Waiting turns the test's clock, so that its timers run; nothing is painted, only counted.
class TestEventLoop : public EventLoop {
 public:
  explicit TestEventLoop(TestClock& clock) : clock_(clock) {}

  void WaitSeconds(double seconds) override;
  void Paint() override { ++paints; }

  std::function<void()>
      during_wait;            // runs when a wait has begun: what the line or the operator does meanwhile
  std::vector<double> waits;  // their seconds
  int paints = 0;

 private:
  TestClock& clock_;
};

}  // namespace quenlor::platform::memory
