// SPDX-License-Identifier: MIT
#include "platform/qt/device_access.h"

#include <QCoreApplication>
#include <QSerialPort>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "data/text_number.h"

namespace quenlor::platform::qt {

namespace {

// Whether the user data base has the user in the group, whatever this login knows.
bool ListedInGroup(const passwd& user, gid_t group) {
  int count = 64;
  std::vector<gid_t> groups(count);
  while (::getgrouplist(user.pw_name, user.pw_gid, groups.data(), &count) < 0) {
    groups.resize(groups.size() * 2);
    count = static_cast<int>(groups.size());
  }
  groups.resize(count);
  for (const gid_t listed : groups) {
    if (listed == group) return true;
  }
  return false;
}

DeviceRights RightsTo(const struct stat& device) {
  DeviceRights rights;
  constexpr auto kGroupUse = S_IRGRP | S_IWGRP;
  // Nobody should be told to become a member of the administrator's own group.
  rights.group_may_use = (device.st_mode & kGroupUse) == kGroupUse && device.st_gid != 0;
  if (const group* owner = ::getgrgid(device.st_gid)) rights.group = owner->gr_name;
  if (const passwd* user = ::getpwuid(::geteuid())) {
    rights.user = user->pw_name;
    rights.member_after_login = ListedInGroup(*user, device.st_gid);
  }
  return rights;
}

}  // namespace

std::string SystemPath(const std::string& device) {
  const std::string path = device.find('/') == device.npos ? "/dev/" + device : device;
  std::error_code missing;
  const auto own_name = std::filesystem::canonical(path, missing);
  return missing ? path : own_name.string();
}

// A process of another user does not show what it has open.
std::string WhoHolds(const std::string& device) {
  namespace fs = std::filesystem;
  const std::string path = SystemPath(device);
  std::string holders;
  std::error_code gone;
  for (fs::directory_iterator process("/proc", gone), end; !gone && process != end; process.increment(gone)) {
    const std::string number = process->path().filename().string();
    if (!data::IsDigit(number.front()) || number == std::to_string(::getpid())) continue;
    std::error_code closed;
    for (fs::directory_iterator file(process->path() / "fd", closed), last; !closed && file != last;
         file.increment(closed)) {
      std::error_code unreadable;
      if (fs::read_symlink(file->path(), unreadable).string() != path) continue;
      std::string name;
      std::getline(std::ifstream(process->path() / "comm"), name);
      holders.append(holders.empty() ? "" : ", ")
          .append(name)
          .append(" (process ")
          .append(number)
          .append(")");
      break;
    }
  }
  return holders;
}

std::optional<OpenFailure> WhyUnusable(const std::string& device) {
  const std::string path = SystemPath(device);
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) {
    return OpenFailure{device, std::generic_category().message(errno), {}};
  }
  if (!S_ISCHR(found.st_mode)) return OpenFailure{device, "it is not a serial device", {}};
  if (::faccessat(AT_FDCWD, path.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
    const int error = errno;
    return OpenFailure{device, std::generic_category().message(error),
                       error == EACCES ? PermissionAdvice(RightsTo(found)) : std::string()};
  }
  return std::nullopt;
}

std::string WhyNotOpened(const QSerialPort& device) {
  // That the user may use the device is known by now, so what holds the lock is another program.
  const QString locked =
      QCoreApplication::translate("QSerialPort", "Permission error while locking the device");
  if (device.errorString() == locked) return "Device or resource busy";
  return device.errorString().toStdString();
}

}  // namespace quenlor::platform::qt
