// SPDX-License-Identifier: MIT
#include "platform/qt/line_errors.h"

#ifdef __linux__
#include <linux/serial.h>
#include <sys/ioctl.h>
#endif

namespace quenlor::platform::qt {

#ifdef __linux__
std::optional<LineErrors> SystemLineErrors(DeviceHandle handle) {
  serial_icounter_struct counters{};
  if (::ioctl(handle, TIOCGICOUNT, &counters) != 0) return std::nullopt;
  return LineErrors{counters.brk, counters.frame, counters.overrun, counters.buf_overrun, counters.parity};
}
#else
std::optional<LineErrors> SystemLineErrors(DeviceHandle) { return std::nullopt; }
#endif

}  // namespace quenlor::platform::qt
