// SPDX-License-Identifier: MIT
#include "platform/qt/qt_serial_devices.h"

#include <QSerialPortInfo>
#include <algorithm>
#include <map>
#include <set>
#include <system_error>
#include <tuple>

namespace quenlor::platform::qt {
namespace {

namespace fs = std::filesystem;

// Where two names are good for one device, the first in alphabetical order is taken, always the same.
using LinkOfDevice = std::map<std::string, std::string>;

std::string OwnName(const fs::path& path) {
  std::error_code missing;
  const auto own_name = fs::canonical(path, missing);
  return missing ? path.string() : own_name.string();
}

LinkOfDevice LinksIn(const fs::path& folder) {
  std::set<fs::path> links;
  std::error_code none;
  for (fs::directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
    links.insert(entry->path());
  }
  LinkOfDevice of_device;
  for (const auto& link : links) of_device.emplace(OwnName(link), link.string());
  return of_device;
}

// Orders "ttyS2" before "ttyS10": first the part before the number, then the shorter number.
std::tuple<std::string, std::size_t, std::string> OrderOf(const ListedDevice& device) {
  const std::size_t number = device.location.find_last_not_of("0123456789") + 1;
  return {device.location.substr(0, number), device.location.size(), device.location};
}

// Of devices that say the same of themselves only one gets the name made from that, and which one depends on
// the order of plugging in: such a name is of no use for any of them.
std::set<std::string> AmbiguousIdentities(const std::vector<ListedDevice>& devices,
                                          const LinkOfDevice& by_id) {
  std::map<std::string, int> count;
  for (const auto& device : devices) ++count[device.identity];
  std::set<std::string> ambiguous;
  for (const auto& device : devices) {
    if (count[device.identity] > 1 && !by_id.contains(OwnName(device.location)))
      ambiguous.insert(device.identity);
  }
  return ambiguous;
}

}  // namespace

std::vector<std::string> StableNames(std::vector<ListedDevice> devices, const fs::path& links) {
  const LinkOfDevice by_id = LinksIn(links / "by-id");
  const LinkOfDevice by_path = LinksIn(links / "by-path");
  const auto ambiguous = AmbiguousIdentities(devices, by_id);
  std::sort(devices.begin(), devices.end(),
            [](const auto& a, const auto& b) { return OrderOf(a) < OrderOf(b); });

  std::vector<std::string> names;
  for (const auto& device : devices) {
    const std::string own_name = OwnName(device.location);
    const bool id_is_its_own = device.identity.empty() || !ambiguous.contains(device.identity);
    if (const auto id = by_id.find(own_name); id != by_id.end() && id_is_its_own) {
      names.push_back(id->second);
    } else if (const auto path = by_path.find(own_name); path != by_path.end()) {
      names.push_back(path->second);
    } else {
      names.push_back(device.location);
    }
  }
  return names;
}

std::vector<std::string> QtSerialDevices::Present() {
  std::vector<ListedDevice> devices;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
#ifdef Q_OS_WIN
    devices.push_back({info.portName().toStdString(), {}});  // "COM3" is its name for good
#else
    QString identity;
    if (info.hasVendorIdentifier()) {
      identity = QString::number(info.vendorIdentifier(), 16) + QLatin1Char(':') +
                 QString::number(info.productIdentifier(), 16) + QLatin1Char(':') + info.serialNumber();
    }
    devices.push_back({info.systemLocation().toStdString(), identity.toStdString()});
#endif
  }
  return StableNames(std::move(devices), links_);
}

}  // namespace quenlor::platform::qt
