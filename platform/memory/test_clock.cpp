// SPDX-License-Identifier: MIT
#include "platform/memory/test_clock.h"

#include <algorithm>
#include <cmath>

namespace quenlor::platform::memory {

using std::chrono::duration;
using std::chrono::nanoseconds;

data::Moment MomentAt(int year, unsigned month, unsigned day, int hour, int minute, double second) {
  using std::chrono::sys_days;
  const sys_days date{std::chrono::year{year} / static_cast<int>(month) / static_cast<int>(day)};
  const std::int64_t midnight = std::int64_t{date.time_since_epoch().count()} * 86400;
  const std::int64_t whole_minute = midnight + std::int64_t{hour} * 3600 + std::int64_t{minute} * 60;
  return {.seconds = static_cast<double>(whole_minute) + second,
          .local_second = whole_minute + static_cast<std::int64_t>(std::floor(second))};
}

data::Moment TestClock::Now() const {
  const double since = duration<double>(running_for_ - shown_at_).count();
  const double fraction = shown_.seconds - std::floor(shown_.seconds);
  return {.seconds = shown_.seconds + since,
          .local_second = shown_.local_second + static_cast<std::int64_t>(std::floor(fraction + since))};
}

void TestClock::Advance(double seconds) { Advance(nanoseconds{std::llround(seconds * 1e9)}); }

void TestClock::Advance(nanoseconds time) {
  const nanoseconds until = running_for_ + time;
  while (TestTimer* timer = NextDue(until)) {
    // A handler that waited has moved the clock past the end of this turn, or past what others were due.
    running_for_ = std::max(running_for_, timer->due_);
    timer->Run();
  }
  running_for_ = std::max(running_for_, until);
}

void TestClock::SetNow(data::Moment moment) {
  shown_ = moment;
  shown_at_ = running_for_;
}

TestTimer* TestClock::NextDue(nanoseconds until) const {
  TestTimer* next = nullptr;
  for (TestTimer* timer : timers_) {
    if (timer->Running() && timer->due_ <= until && (!next || timer->due_ < next->due_)) next = timer;
  }
  return next;
}

TestTimer::TestTimer(TestClock& clock) : clock_(clock) { clock_.timers_.push_back(this); }

TestTimer::~TestTimer() { std::erase(clock_.timers_, this); }

void TestTimer::Interval(std::chrono::milliseconds interval) {
  if (interval == interval_) return;
  interval_ = interval;
  StartWholeInterval();
}

void TestTimer::Enabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  StartWholeInterval();
}

void TestTimer::Run() {
  due_ += interval_;
  if (handling_ || !handler_) return;
  TestClock& clock = clock_;
  const auto handler = handler_;  // it may give the timer another one, or destroy it
  handling_ = true;
  handler();
  if (std::find(clock.timers_.begin(), clock.timers_.end(), this) != clock.timers_.end()) handling_ = false;
}

}  // namespace quenlor::platform::memory
