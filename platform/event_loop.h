// SPDX-License-Identifier: MIT
#pragma once

namespace quenlor::platform {

// The two ways in which a running handler gives the user interface a turn.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  // Returns after that many seconds; timers, received characters and the user are served meanwhile.
  virtual void WaitSeconds(double seconds) = 0;

  // Paints what is waiting to be painted, and serves nothing else.
  virtual void Paint() = 0;
};

}  // namespace quenlor::platform
