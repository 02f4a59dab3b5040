// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

#include "platform/clock.h"

namespace quenlor::platform::qt {

// The moment of a UTC time: elapsed times count with the offset of the program's start, the wall clock with
// the one in force now. Offsets are seconds east of Greenwich.
data::Moment MomentOf(std::chrono::system_clock::time_point utc, int start_offset, int current_offset);

// The computer's clock in its time zone.
class QtClock : public Clock {
 public:
  QtClock();
  data::Moment Now() const override;

 private:
  int start_offset_;
  // Asking for the offset looks at files, so it is asked once a second.
  mutable std::chrono::sys_seconds asked_at_{};
  mutable int offset_ = start_offset_;
};

}  // namespace quenlor::platform::qt
