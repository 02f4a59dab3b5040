// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace quenlor::platform {

// The serial devices that the computer has at this moment.
class SerialDevices {
 public:
  virtual ~SerialDevices() = default;

  // Names under which the devices can be opened and which stay with a device when it is unplugged and plugged
  // in again, as far as the system has such names. Always in the same order for the same devices.
  virtual std::vector<std::string> Present() = 0;
};

}  // namespace quenlor::platform
