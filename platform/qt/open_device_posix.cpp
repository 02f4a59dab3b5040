// SPDX-License-Identifier: MIT
// The only source that sees the kernel's own terminal structure: its header cannot stand beside <termios.h>.
#include "platform/qt/open_device.h"

#ifdef __linux__
#include <thread>

#include <asm/termbits.h>
#include <sys/ioctl.h>
#endif

namespace quenlor::platform::qt {

#ifdef __linux__

std::optional<int> SystemLineSpeed(DeviceHandle handle) {
  termios2 line{};
  if (::ioctl(handle, TCGETS2, &line) != 0) return std::nullopt;
  // A line that receives at another speed than it sends is as wrong as one that does neither as asked.
  return static_cast<int>(line.c_ispeed == line.c_ospeed ? line.c_ospeed : 0);
}

bool DeviceAnswers(DeviceHandle handle) {
  termios2 line{};
  return ::ioctl(handle, TCGETS2, &line) == 0;
}

void DrainSystemQueue(DeviceHandle handle, std::chrono::milliseconds at_most) {
  const auto deadline = std::chrono::steady_clock::now() + at_most;
  int waiting = 0;
  while (::ioctl(handle, TIOCOUTQ, &waiting) == 0 && waiting > 0) {
    if (std::chrono::steady_clock::now() >= deadline) {
      ::ioctl(handle, TCFLSH, TCOFLUSH);
      return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

#else

std::optional<int> SystemLineSpeed(DeviceHandle) { return std::nullopt; }
bool DeviceAnswers(DeviceHandle) { return false; }
void DrainSystemQueue(DeviceHandle, std::chrono::milliseconds) {}

#endif

}  // namespace quenlor::platform::qt
