// SPDX-License-Identifier: MIT
#include "platform/serial_devices.h"

#include <QSerialPortInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/memory_serial_devices.h"
#include "platform/qt/qt_serial_devices.h"

namespace quenlor::platform {
namespace {

using testing::ElementsAre;

TEST(QtSerialDevices, NamesEveryDeviceOfTheSystem) {
  const auto names = qt::QtSerialDevices("/there/is/none").Present();

  std::vector<std::string> locations;
  for (const auto& info : QSerialPortInfo::availablePorts()) {
#ifdef _WIN32
    locations.push_back(info.portName().toStdString());
#else
    locations.push_back(info.systemLocation().toStdString());
#endif
  }
  EXPECT_THAT(names, testing::UnorderedElementsAreArray(locations));
}

TEST(MemorySerialDevices, HasWhatTheTestPluggedIn) {
  memory::MemorySerialDevices devices({"/dev/ttyUSB0"});
  EXPECT_THAT(devices.Present(), ElementsAre("/dev/ttyUSB0"));

  devices.Plug({"/dev/ttyUSB1"});
  EXPECT_THAT(devices.Present(), ElementsAre("/dev/ttyUSB1"));
}

}  // namespace
}  // namespace quenlor::platform
