// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace quenlor::platform {

// A repeating timer: while enabled, its handler runs once every interval. Enabling a running timer leaves its
// count as it is; disabling and enabling starts a whole interval, and so does another interval. Without an
// interval it never runs, and never while its own handler still does.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void Interval(std::chrono::milliseconds interval) = 0;
  virtual void Enabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
  virtual void OnTimer(std::function<void()> handler) = 0;
};

}  // namespace quenlor::platform
