// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "link/port_directory.h"
#include "platform/file_system.h"
#include "platform/serial_devices.h"

namespace quenlor::app {

// The port directory and its file "Ports.txt" in the program folder.
class PortsFile {
 public:
  PortsFile(platform::FileSystem& files, platform::SerialDevices& devices, const std::string& program_folder,
            link::PortDirectory directory)
      : files_(files),
        devices_(devices),
        path_(program_folder + "/Ports.txt"),
        directory_(std::move(directory)) {}

  // Reads the file anew, gives each serial device that is seen and has no number yet the lowest free one, and
  // keeps that in the file. A file that cannot be read stays, and new numbers hold in memory.
  platform::Done LookForDevices();

  // Looks for devices first where nobody has yet.
  std::string Device(int port) {
    if (!looked_) LookForDevices();
    return directory_.Device(port);
  }

  // For those who list devices: empty where none was seen. Who only asks this does not wait for the system,
  // and is told the numbers that the file has.
  std::string Known(int port) {
    if (!read_) Read();
    return directory_.Known(port);
  }

 private:
  platform::Result<std::string> Read();

  platform::FileSystem& files_;
  platform::SerialDevices& devices_;
  std::string path_;
  link::PortDirectory directory_;
  bool read_ = false;
  bool looked_ = false;
};

}  // namespace quenlor::app
