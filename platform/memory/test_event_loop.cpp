// SPDX-License-Identifier: MIT
#include "platform/memory/test_event_loop.h"

namespace quenlor::platform::memory {

void TestEventLoop::WaitSeconds(double seconds) {
  if (!(seconds > 0)) return;
  waits.push_back(seconds);
  if (during_wait) during_wait();
  clock_.Advance(seconds);
}

}  // namespace quenlor::platform::memory
