// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/qt/open_device.h"

namespace quenlor::platform::qt {

// How often the system has seen each kind of line error since the device came up. QSerialPort does
// not tell these.
struct LineErrors {
  int breaks = 0;
  int framing = 0;
  int overrun = 0;           // in the chip
  int receive_overflow = 0;  // in the system's buffer
  int parity = 0;
};

// Looks at the counters of an open device. Empty where the device or the system keeps none.
using LineErrorCounters = std::function<std::optional<LineErrors>(DeviceHandle handle)>;
std::optional<LineErrors> SystemLineErrors(DeviceHandle handle);

// The comm_event codes of the counters that grew between two looks, each once, in rising order.
std::vector<int> EventsBetween(const LineErrors& before, const LineErrors& now);

}  // namespace quenlor::platform::qt
