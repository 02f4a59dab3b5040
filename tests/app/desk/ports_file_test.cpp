// SPDX-License-Identifier: MIT
#include "app/desk/ports_file.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_serial_devices.h"

namespace quenlor::app {
namespace {

struct Ports {
  platform::memory::MemoryFileSystem files;
  platform::memory::MemorySerialDevices devices;
  PortsFile file{files, devices, "/lab",
                 link::PortDirectory(link::PortDirectory::Naming::kFiles, {{7, "/dev/given"}})};
};

TEST(PortsFile, GivesNewDevicesTheLowestFreeNumbersAndKeepsThem) {
  Ports ports;
  ports.files.Put("/lab/Ports.txt", "2=/dev/b\r\n");
  ports.devices.Plug({"/dev/a", "/dev/b", "/dev/c"});
  ports.file.LookForDevices();
  EXPECT_EQ(ports.file.Device(1), "/dev/a");
  EXPECT_EQ(ports.file.Device(2), "/dev/b");
  EXPECT_EQ(ports.file.Device(3), "/dev/c");
  EXPECT_EQ(ports.files.Content("/lab/Ports.txt"), "2=/dev/b\r\n1=/dev/a\r\n3=/dev/c\r\n");

  ports.devices.Plug({"/dev/c"});
  ports.file.LookForDevices();
  EXPECT_EQ(ports.file.Device(1), "/dev/a") << "a number stays with its device";
  EXPECT_EQ(ports.file.Device(3), "/dev/c");
}

TEST(PortsFile, WhoeverAsksBeforeAnybodyHasLookedIsToldWhatThereIs) {
  Ports ports;
  ports.devices.Plug({"/dev/a"});
  EXPECT_EQ(ports.file.Device(1), "/dev/a");
  ports.devices.Plug({"/dev/a", "/dev/b"});
  EXPECT_EQ(ports.file.Device(2), "") << "one look is enough until somebody asks for another";
}

TEST(PortsFile, WhatIsKnownStandsInTheFileUntilSomebodyLooks) {
  Ports ports;
  ports.files.Put("/lab/Ports.txt", "2=/dev/b\r\n");
  ports.devices.Plug({"/dev/a"});
  EXPECT_EQ(ports.file.Known(2), "/dev/b");
  EXPECT_EQ(ports.file.Known(1), "");
  EXPECT_EQ(ports.files.Calls().replaces, 0);
  EXPECT_EQ(ports.file.Device(1), "/dev/a") << "whoever opens it looks first";
  EXPECT_EQ(ports.file.Known(1), "/dev/a");
}

TEST(PortsFile, TheCommandLineWins) {
  Ports ports;
  ports.files.Put("/lab/Ports.txt", "7=/dev/b\r\n");
  ports.file.LookForDevices();
  EXPECT_EQ(ports.file.Device(7), "/dev/given");
}

TEST(PortsFile, NothingNewWritesNothing) {
  Ports ports;
  ports.files.Put("/lab/Ports.txt", "1=/dev/a\r\n");
  ports.devices.Plug({"/dev/a"});
  ports.file.LookForDevices();
  EXPECT_EQ(ports.files.Calls().replaces, 0);
}

TEST(PortsFile, AFolderThatCannotBeWrittenStillGivesNumbers) {
  Ports ports;
  ports.files.Refuse("/lab", "Read-only file system");
  ports.devices.Plug({"/dev/a"});
  const auto failed = ports.file.LookForDevices();
  ASSERT_TRUE(failed);
  EXPECT_EQ(failed->text, "cannot write /lab/Ports.txt: Read-only file system");
  EXPECT_EQ(ports.file.Device(1), "/dev/a");
}

TEST(PortsFile, AnUnreadableFileIsNotOverwritten) {
  Ports ports;
  ports.files.Put("/lab/Ports.txt", "1=/dev/mine\r\n");
  ports.files.Unreadable("/lab/Ports.txt");
  ports.devices.Plug({"/dev/a"});
  const auto failed = ports.file.LookForDevices();
  ASSERT_TRUE(failed);
  EXPECT_EQ(failed->text, "cannot read /lab/Ports.txt: Permission denied");
  EXPECT_EQ(ports.file.Device(1), "/dev/a") << "in memory";
  EXPECT_EQ(ports.files.Content("/lab/Ports.txt"), "1=/dev/mine\r\n");

  ports.files.Readable("/lab/Ports.txt");
  ports.file.LookForDevices();
  EXPECT_EQ(ports.file.Device(1), "/dev/mine");
  EXPECT_EQ(ports.file.Device(2), "/dev/a");
}

TEST(PortsFile, WhileAnotherProgramHoldsItNothingIsWritten) {
  Ports ports;
  const auto other = ports.files.Lock("/lab/Ports.txt.lock");
  ports.devices.Plug({"/dev/a"});
  ports.file.LookForDevices();
  EXPECT_FALSE(ports.files.Exists("/lab/Ports.txt"));
}

}  // namespace
}  // namespace quenlor::app
