// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quenlor::link {

// Which device is port number n. Numbers count from 1.
//
// The numbers stand in a text of lines "n=DEVICE" that people may edit. A number once given stays with its
// device, also while that is unplugged. Lines that say nothing here (remarks, damage, a second line for the
// same number) are never changed or removed.
class PortDirectory {
 public:
  enum class Naming {
    kFiles,  // a device is a file; it has no number of its own
    kCom,    // devices are "COM1", "COM2", ...: a port without a line is the device with its number
  };

  using Devices = std::map<int, std::string>;

  // `overrides` hold for this run of the program only and win over every line.
  explicit PortDirectory(Naming naming, Devices overrides = {});

  // "n=DEVICE", blanks around both sides allowed. Empty when the text is anything else.
  static std::optional<std::pair<int, std::string>> ParseLine(std::string_view line);

  void Parse(std::string text);  // replaces what was known, except the overrides

  // Gives each device that has no number yet the lowest free one, in the order given. A number that is only
  // overridden is not free: its device could not be reached in this run. True when the text changed.
  bool Assign(const std::vector<std::string>& present);

  std::string Device(int port) const;  // what to open; empty when there is none
  // The same, but for a port without a line only when its device was there at the last Assign.
  std::string Known(int port) const;
  const std::string& Text() const { return text_; }

 private:
  bool HasNumber(const std::string& device) const;
  int LowestFreeNumber(const std::vector<std::string>& present) const;
  void Append(int port, const std::string& device);

  const Naming naming_;
  const Devices overrides_;
  Devices lines_;
  std::vector<std::string> present_;  // at the last Assign
  std::string text_;
};

}  // namespace quenlor::link
