// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/serial_devices.h"

namespace quenlor::platform::memory {

// The devices that a test plugged in.
class MemorySerialDevices : public SerialDevices {
 public:
  explicit MemorySerialDevices(std::vector<std::string> devices = {}) : devices_(std::move(devices)) {}

  std::vector<std::string> Present() override { return devices_; }
  void Plug(std::vector<std::string> devices) { devices_ = std::move(devices); }

 private:
  std::vector<std::string> devices_;
};

}  // namespace quenlor::platform::memory
