// SPDX-License-Identifier: MIT
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/qt/qt_serial_devices.h"

namespace quenlor::platform::qt {
namespace {

using testing::ElementsAre;
namespace fs = std::filesystem;

// A folder in which files stand for devices, with the link folders of the system beside them.
class StableNamesTest : public testing::Test {
 protected:
  StableNamesTest() {
    fs::create_directories(root_ / "serial/by-id");
    fs::create_directories(root_ / "serial/by-path");
  }

  std::string Device(const std::string& name) {
    std::ofstream(root_ / name).flush();
    return (root_ / name).string();
  }

  // A relative link, as the system makes them.
  std::string Link(const std::string& kind, const std::string& name, const std::string& device) {
    const fs::path link = root_ / "serial" / kind / name;
    fs::create_symlink("../../" + device, link);
    return link.string();
  }

  QTemporaryDir folder_;
  const fs::path root_ = fs::canonical(folder_.path().toStdString());
  const fs::path links_ = root_ / "serial";
};

TEST_F(StableNamesTest, ADeviceHasTheNameMadeFromWhatItSaysOfItself) {
  const auto device = Device("ttyUSB0");
  const auto by_id = Link("by-id", "usb-Maker_Cable_A1-if00-port0", "ttyUSB0");
  Link("by-path", "pci-0000:00:14.0-usb-0:1:1.0-port0", "ttyUSB0");

  EXPECT_THAT(StableNames({{device, "403:6001:A1"}}, links_), ElementsAre(by_id));
}

TEST_F(StableNamesTest, DevicesThatSayTheSameAreToldApartByTheirSockets) {
  const auto first = Device("ttyUSB0");
  const auto second = Device("ttyUSB1");
  Link("by-id", "usb-Maker_Cable-if00-port0", "ttyUSB1");
  const auto first_path = Link("by-path", "pci-usb-0:1:1.0-port0", "ttyUSB0");
  const auto second_path = Link("by-path", "pci-usb-0:2:1.0-port0", "ttyUSB1");

  EXPECT_THAT(StableNames({{first, "67b:2303:"}, {second, "67b:2303:"}}, links_),
              ElementsAre(first_path, second_path));
}

TEST_F(StableNamesTest, TheLinesOfOneDeviceKeepTheirOwnNames) {
  const auto first = Device("ttyUSB0");
  const auto second = Device("ttyUSB1");
  const auto first_id = Link("by-id", "usb-Maker_Twin_A1-if00-port0", "ttyUSB0");
  const auto second_id = Link("by-id", "usb-Maker_Twin_A1-if01-port0", "ttyUSB1");

  EXPECT_THAT(StableNames({{first, "403:6010:A1"}, {second, "403:6010:A1"}}, links_),
              ElementsAre(first_id, second_id));
}

TEST_F(StableNamesTest, ANameThatLeadsElsewhereIsNotUsed) {
  const auto device = Device("ttyUSB0");
  Link("by-id", "usb-Maker_Cable_A1-if00-port0", "ttyUSB7");
  const auto by_path = Link("by-path", "pci-usb-0:1:1.0-port0", "ttyUSB0");

  EXPECT_THAT(StableNames({{device, "403:6001:A1"}}, links_), ElementsAre(by_path));
}

TEST_F(StableNamesTest, OfTwoGoodNamesTheFirstInTheAlphabetIsTaken) {
  const auto device = Device("ttyUSB0");
  Link("by-path", "pci-usbv2-0:1:1.0-port0", "ttyUSB0");
  const auto first = Link("by-path", "pci-usb-0:1:1.0-port0", "ttyUSB0");

  EXPECT_THAT(StableNames({{device, ""}}, links_), ElementsAre(first));
}

TEST_F(StableNamesTest, ADeviceWithoutLinksKeepsItsLocation) {
  const auto device = Device("ttyS0");

  EXPECT_THAT(StableNames({{device, ""}}, links_), ElementsAre(device));
  EXPECT_THAT(StableNames({{device, ""}}, root_ / "no such folder"), ElementsAre(device));
}

TEST_F(StableNamesTest, ComeInTheOrderOfTheLocations) {
  EXPECT_THAT(StableNames({{"/x/ttyUSB0", "a"}, {"/x/ttyS10", ""}, {"/x/ttyS2", ""}}, links_),
              ElementsAre("/x/ttyS2", "/x/ttyS10", "/x/ttyUSB0"));
}

}  // namespace
}  // namespace quenlor::platform::qt
