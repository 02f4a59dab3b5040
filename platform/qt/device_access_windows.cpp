// SPDX-License-Identifier: MIT
#include "platform/qt/device_access.h"

#include <QSerialPort>

namespace quenlor::platform::qt {

std::string SystemPath(const std::string& device) { return device; }

// The system keeps nobody out of a serial port, and does not tell whom it has given one to.
std::optional<OpenFailure> WhyUnusable(const std::string&) { return std::nullopt; }
std::string WhoHolds(const std::string&) { return {}; }

std::string WhyNotOpened(const QSerialPort& device) {
  switch (device.error()) {
    case QSerialPort::PermissionError:  // "Access is denied", which sends operators to the administrator
      return "it is in use by another program";
    case QSerialPort::DeviceNotFoundError:
      return "there is no such port";
    default:
      return device.errorString().toStdString();
  }
}

}  // namespace quenlor::platform::qt
