// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <vector>

#include "platform/clock.h"
#include "platform/timer.h"

namespace quenlor::platform::memory {

class TestTimer;

// The moment at which both times of a clock show this date and time of day.
data::Moment MomentAt(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                      double second = 0);

// A clock that stands still until a test turns it. Turning it runs the timers made for it, each when it is
// due and with the clock showing that time, those due together in the order in which they were made.
class TestClock : public Clock {
 public:
  explicit TestClock(data::Moment start = MomentAt(2024, 3, 15, 12)) : shown_(start) {}
  data::Moment Now() const override;

  void Advance(std::chrono::nanoseconds time);
  void Advance(double seconds);

  // Sets the clock as an operator would: timers notice nothing.
  void SetNow(data::Moment moment);

 private:
  friend class TestTimer;

  TestTimer* NextDue(std::chrono::nanoseconds until) const;

  data::Moment shown_;                    // at shown_at_
  std::chrono::nanoseconds shown_at_{0};  // both count from the clock's making
  std::chrono::nanoseconds running_for_{0};
  std::vector<TestTimer*> timers_;
};

// A timer that a TestClock runs. The clock must live longer.
class TestTimer : public Timer {
 public:
  explicit TestTimer(TestClock& clock);
  ~TestTimer() override;
  TestTimer(const TestTimer&) = delete;
  TestTimer& operator=(const TestTimer&) = delete;

  void Interval(std::chrono::milliseconds interval) override;
  std::chrono::milliseconds Interval() const { return interval_; }
  void Enabled(bool enabled) override;
  bool Enabled() const override { return enabled_; }
  void OnTimer(std::function<void()> handler) override { handler_ = std::move(handler); }

 private:
  friend class TestClock;

  bool Running() const { return enabled_ && interval_ > std::chrono::milliseconds::zero(); }
  void StartWholeInterval() { due_ = clock_.running_for_ + interval_; }
  void Run();

  TestClock& clock_;
  std::chrono::milliseconds interval_{0};
  std::chrono::nanoseconds due_{0};
  bool enabled_ = false;
  bool handling_ = false;
  std::function<void()> handler_;
};

}  // namespace quenlor::platform::memory
