// SPDX-License-Identifier: MIT
#include "platform/qt/line_errors.h"

#include "platform/serial_port.h"

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

std::vector<int> EventsBetween(const LineErrors& before, const LineErrors& now) {
  std::vector<int> events;
  if (now.breaks > before.breaks) events.push_back(comm_event::kBreak);
  if (now.framing > before.framing) events.push_back(comm_event::kFraming);
  if (now.overrun > before.overrun) events.push_back(comm_event::kOverrun);
  if (now.receive_overflow > before.receive_overflow) events.push_back(comm_event::kReceiveOverflow);
  if (now.parity > before.parity) events.push_back(comm_event::kParity);
  return events;
}

}  // namespace quenlor::platform::qt
