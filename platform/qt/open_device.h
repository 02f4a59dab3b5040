// SPDX-License-Identifier: MIT
#pragma once

#include <QSerialPort>
#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace quenlor::platform::qt {

// What QSerialPort does not tell about a device it has open, asked from the system by its handle.

// A file number, or whatever the system has instead.
using DeviceHandle = decltype(std::declval<const QSerialPort&>().handle());

// The speed at which the line really runs, in bits per second. Empty where the system does not tell.
using LineSpeed = std::function<std::optional<int>(DeviceHandle handle)>;
std::optional<int> SystemLineSpeed(DeviceHandle handle);

// Whether a receiver at one speed understands a sender at the other: some converters report the exact rate of
// their divider, 28811 for 28800. A device that fell back to another rate is farther away than that.
constexpr bool SpeedsAgree(int asked, int real) {
  const int apart = asked > real ? asked - real : real - asked;
  return apart <= asked / 50;
}

// False once the device has disappeared; also on a system that is not asked.
bool DeviceAnswers(DeviceHandle handle);

// Waits until the system's queue has been sent, at most that long, and discards what is left of it then: the
// system would wait for it in close(), for half a minute if the line is stuck.
void DrainSystemQueue(DeviceHandle handle, std::chrono::milliseconds at_most);

}  // namespace quenlor::platform::qt
