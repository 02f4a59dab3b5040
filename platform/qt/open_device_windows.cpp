// SPDX-License-Identifier: MIT
#include "platform/qt/open_device.h"

#include <thread>

#include <qt_windows.h>

namespace quenlor::platform::qt {
namespace {

std::optional<DCB> LineOf(DeviceHandle handle) {
  DCB line{};
  line.DCBlength = sizeof line;
  if (::GetCommState(handle, &line) == 0) return std::nullopt;
  return line;
}

}  // namespace

std::optional<int> SystemLineSpeed(DeviceHandle handle) {
  const auto line = LineOf(handle);
  if (!line) return std::nullopt;
  return static_cast<int>(line->BaudRate);
}

bool DeviceAnswers(DeviceHandle handle) { return LineOf(handle).has_value(); }

void DrainSystemQueue(DeviceHandle handle, std::chrono::milliseconds at_most) {
  const auto deadline = std::chrono::steady_clock::now() + at_most;
  COMSTAT queues{};
  while (::ClearCommError(handle, nullptr, &queues) != 0 && queues.cbOutQue > 0) {
    if (std::chrono::steady_clock::now() >= deadline) {
      ::PurgeComm(handle, PURGE_TXABORT | PURGE_TXCLEAR);
      return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

}  // namespace quenlor::platform::qt
