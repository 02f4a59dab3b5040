// SPDX-License-Identifier: MIT
#include "platform/qt/line_errors.h"

#include "platform/serial_port.h"

namespace quenlor::platform::qt {

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
