// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/serial_devices.h"

namespace quenlor::platform::qt {

// A serial device as the system lists it.
struct ListedDevice {
  std::string location;  // "/dev/ttyUSB0"
  std::string identity;  // what it says of itself on its bus; empty when it says nothing
};

// For each device the name that stays with it, in the order of the locations ("ttyS2" before "ttyS10").
//
// `links` is the folder in which the system keeps such names. The name made from what the device says of
// itself comes first (it follows the device from socket to socket); devices that say the same are told apart
// by the socket they are plugged in. A device without either keeps its location.
std::vector<std::string> StableNames(std::vector<ListedDevice> devices, const std::filesystem::path& links);

class QtSerialDevices : public SerialDevices {
 public:
  explicit QtSerialDevices(std::filesystem::path links = "/dev/serial") : links_(std::move(links)) {}

  std::vector<std::string> Present() override;

 private:
  const std::filesystem::path links_;
};

}  // namespace quenlor::platform::qt
