// SPDX-License-Identifier: MIT
#include "platform/qt/device_access.h"

namespace quenlor::platform::qt {

std::string PermissionAdvice(const DeviceRights& rights) {
  if (rights.group.empty() || !rights.group_may_use) {
    return "Ask the administrator for the right to read and write the device.";
  }
  if (rights.member_after_login) {
    return "You have been added to the group " + rights.group + " since you logged in: log in again.";
  }
  const std::string user = rights.user.empty() ? "$USER" : rights.user;
  return "Members of the group " + rights.group + " may use the device: run \"sudo usermod -aG " +
         rights.group + " " + user + "\" and log in again.";
}

}  // namespace quenlor::platform::qt
