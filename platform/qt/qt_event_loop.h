// SPDX-License-Identifier: MIT
#pragma once

#include "platform/event_loop.h"

namespace quenlor::platform::qt {

// Nested turns of the application's own event loop. A wait ends early when the application quits.
class QtEventLoop : public EventLoop {
 public:
  void WaitSeconds(double seconds) override;
  void Paint() override;
};

}  // namespace quenlor::platform::qt
