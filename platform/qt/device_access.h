// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/serial_port.h"

class QSerialPort;

namespace quenlor::platform::qt {

// The path behind a device name, with links followed: programs agree on who holds a device only by its own
// name. A name without a folder stands in /dev. A device that does not exist keeps its name.
std::string SystemPath(const std::string& device);

// Why a device cannot be opened by this user, in words; empty when nothing speaks against it.
std::optional<OpenFailure> WhyUnusable(const std::string& device);

// Which other programs have the device open, "minicom (process 1234)"; empty where the system tells of none.
std::string WhoHolds(const std::string& device);

// Why a device did not open that this user may use, in words.
std::string WhyNotOpened(const QSerialPort& device);

// Whose the device is and who asks for it.
struct DeviceRights {
  std::string user;
  std::string group;                // of the device; empty when it has no name
  bool group_may_use = false;       // read and write
  bool member_after_login = false;  // the user is in the group, this login is not yet
};

// What a user without permission can do about it.
std::string PermissionAdvice(const DeviceRights& rights);

}  // namespace quenlor::platform::qt
