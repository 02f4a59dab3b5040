// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace quenlor::platform::qt {

// The system's requests to end, from a shell, a service manager or a terminal that closes: SIGTERM, SIGINT
// and SIGHUP. `asked` is called from the event loop, also from one that a box runs, at the first of them; the
// next one ends the program as it would without this, so that one that hangs can be ended. What was ignored
// when the program started, as by nohup, stays ignored. One object at a time.
class EndSignals {
 public:
  explicit EndSignals(std::function<void()> asked);
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace quenlor::platform::qt
