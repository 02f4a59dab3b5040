// SPDX-License-Identifier: MIT
#pragma once

#include "data/date_time.h"

namespace quenlor::platform {

// The time of day. The adapter asks the operating system, the twin is turned by a test.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual data::Moment Now() const = 0;
};

}  // namespace quenlor::platform
