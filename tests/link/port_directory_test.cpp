// SPDX-License-Identifier: MIT
#include "link/port_directory.h"

#include <climits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::link {
namespace {

using testing::Optional;
using testing::Pair;
using Naming = PortDirectory::Naming;

PortDirectory Directory(std::string text, PortDirectory::Devices overrides = {}) {
  PortDirectory directory(Naming::kFiles, std::move(overrides));
  directory.Parse(std::move(text));
  return directory;
}

PortDirectory ComDirectory(std::string text, PortDirectory::Devices overrides = {}) {
  PortDirectory directory(Naming::kCom, std::move(overrides));
  directory.Parse(std::move(text));
  return directory;
}

TEST(PortDirectory, FindsTheDeviceOfANumber) {
  const auto directory = Directory("1=/dev/ttyUSB0\n2=/dev/ttyS0\n");

  EXPECT_EQ(directory.Device(1), "/dev/ttyUSB0");
  EXPECT_EQ(directory.Device(2), "/dev/ttyS0");
  EXPECT_EQ(directory.Device(3), "");
}

TEST(PortDirectory, ReadsAllLineEndsBlanksAndAByteOrderMark) {
  const auto directory = Directory(
      "\xEF\xBB\xBF"
      "1=/dev/a\r\n \t2 = /dev/b c \t\n\n3\t=/dev/d=e\r\n4=/dev/last");

  EXPECT_EQ(directory.Device(1), "/dev/a");
  EXPECT_EQ(directory.Device(2), "/dev/b c");
  EXPECT_EQ(directory.Device(3), "/dev/d=e");
  EXPECT_EQ(directory.Device(4), "/dev/last");
}

TEST(PortDirectory, TheFirstLineOfANumberWins) {
  EXPECT_EQ(Directory("1=/dev/a\n1=/dev/b\n").Device(1), "/dev/a");
}

TEST(PortDirectory, OverridesWinOverLines) {
  const auto directory = Directory("1=/dev/a\n2=/dev/b\n", {{1, "/dev/x"}, {7, "/dev/y"}});

  EXPECT_EQ(directory.Device(1), "/dev/x");
  EXPECT_EQ(directory.Device(2), "/dev/b");
  EXPECT_EQ(directory.Device(7), "/dev/y");
}

TEST(PortDirectory, ParsesALineOnlyWhenAllOfItIsOne) {
  EXPECT_THAT(PortDirectory::ParseLine("3=/dev/ttyUSB0"), Optional(Pair(3, "/dev/ttyUSB0")));
  EXPECT_THAT(PortDirectory::ParseLine("2147483647=x"), Optional(Pair(INT_MAX, "x")));
  for (const char* line : {"", "=", "=x", "3=", "3= \t", "3", "x=y", "0=x", "-1=x", "+1=x", "1.5=x", "1 2=x",
                           "# 1=x", "2147483648=x", "99999999999999999999=x",
                           "3=a\x01"
                           "b",
                           "3=a\rb"}) {
    EXPECT_FALSE(PortDirectory::ParseLine(line)) << line;
  }
}

TEST(PortDirectory, HasNoDeviceForNumbersBelowOne) {
  const auto directory = ComDirectory("0=a\n-1=b\n", {{0, "c"}});

  EXPECT_EQ(directory.Device(0), "");
  EXPECT_EQ(directory.Device(-1), "");
}

TEST(PortDirectory, ANewDeviceGetsTheLowestFreeNumber) {
  auto directory = Directory("1=/dev/a\n3=/dev/c\n");

  EXPECT_TRUE(directory.Assign({"/dev/new", "/dev/c", "/dev/newer"}));

  EXPECT_EQ(directory.Device(2), "/dev/new");
  EXPECT_EQ(directory.Device(4), "/dev/newer");
  EXPECT_EQ(directory.Text(), "1=/dev/a\n3=/dev/c\n2=/dev/new\n4=/dev/newer\n");
}

TEST(PortDirectory, AKnownDeviceKeepsItsNumberAndTheTextStays) {
  auto directory = Directory("2=/dev/a");

  EXPECT_FALSE(directory.Assign({"/dev/a"}));
  EXPECT_FALSE(directory.Assign({}));

  EXPECT_EQ(directory.Text(), "2=/dev/a");
}

TEST(PortDirectory, TheNumberOfAnUnpluggedDeviceStaysItsOwn) {
  auto directory = Directory("");
  directory.Assign({"/dev/a"});

  directory.Assign({"/dev/b"});
  directory.Assign({"/dev/b", "/dev/a"});

  EXPECT_EQ(directory.Text(), "1=/dev/a\n2=/dev/b\n");
}

TEST(PortDirectory, ADeviceListedTwiceGetsOneNumber) {
  auto directory = Directory("");

  directory.Assign({"/dev/a", "/dev/a"});

  EXPECT_EQ(directory.Text(), "1=/dev/a\n");
}

TEST(PortDirectory, AnOverriddenNumberIsNotFree) {
  auto directory = Directory("", {{1, "/dev/x"}});

  EXPECT_TRUE(directory.Assign({"/dev/a"}));

  EXPECT_EQ(directory.Text(), "2=/dev/a\n");
}

TEST(PortDirectory, ADeviceWhoseLineIsNotTheFirstOfItsNumberGetsAnother) {
  auto directory = Directory("1=/dev/a\n1=/dev/b\n");

  EXPECT_TRUE(directory.Assign({"/dev/b"}));

  EXPECT_EQ(directory.Device(2), "/dev/b");
}

TEST(PortDirectory, DeviceNamesThatDoNotFitInALineAreLeftOut) {
  auto directory = Directory("");

  EXPECT_FALSE(directory.Assign({"", " /dev/a", "/dev/a ", "/dev/a\n1=b"}));

  EXPECT_EQ(directory.Text(), "");
}

TEST(PortDirectory, NewLinesEndAsTheOthersDo) {
  auto crlf = Directory("1=/dev/a\r\n");
  crlf.Assign({"/dev/b"});
  EXPECT_EQ(crlf.Text(), "1=/dev/a\r\n2=/dev/b\r\n");

  auto unfinished = Directory("1=/dev/a\r\n# mine");
  unfinished.Assign({"/dev/b"});
  EXPECT_EQ(unfinished.Text(), "1=/dev/a\r\n# mine\r\n2=/dev/b\r\n");
}

TEST(PortDirectory, NoiseIsKeptByteForByteAndGivesNoDevices) {
  const std::string noise = std::string("\x00\xff\xfe=\x00\x01\n\r\n\n", 10) +
                            "99999999999999999999=/dev/a\n-3=/dev/b\n=/dev/c\n3=\n2=/dev/d\x07\n1=/dev/e\n"
                            "1=/dev/f\n; remark 4=/dev/g\n" +
                            std::string(100000, '9') + "=\n" + std::string(1000, '=') + "\n\xff no end";
  auto directory = Directory(noise);

  EXPECT_EQ(directory.Device(1), "/dev/e");
  for (int port = 2; port < 10; ++port) EXPECT_EQ(directory.Device(port), "") << port;
  EXPECT_TRUE(directory.Assign({"/dev/e", "/dev/h", "/dev/i"}));

  EXPECT_EQ(directory.Text(), noise + "\r\n2=/dev/h\r\n3=/dev/i\r\n");
  auto again = Directory(directory.Text());
  EXPECT_EQ(again.Device(3), "/dev/i");
  EXPECT_FALSE(again.Assign({"/dev/h", "/dev/i"}));
}

TEST(PortDirectory, ParsingReplacesWhatWasKnown) {
  auto directory = Directory("1=/dev/a\n");

  directory.Parse("2=/dev/b\n");

  EXPECT_EQ(directory.Device(1), "");
  EXPECT_EQ(directory.Device(2), "/dev/b");
}

TEST(PortDirectory, ComPortsHaveTheirOwnNumbers) {
  auto directory = ComDirectory("2=COM9\n", {{3, "COM8"}});

  EXPECT_EQ(directory.Device(1), "COM1");
  EXPECT_EQ(directory.Device(2), "COM9");
  EXPECT_EQ(directory.Device(3), "COM8");
  EXPECT_EQ(directory.Device(12), "COM12");
  EXPECT_FALSE(directory.Assign({"COM1", "COM5", "COM9"}));
}

TEST(PortDirectory, AComPortIsKnownOnceItWasSeenAndUntilItGoes) {
  auto directory = ComDirectory("2=COM9\n", {{3, "COM8"}});
  EXPECT_EQ(directory.Known(17), "") << "it may be opened, and nobody has seen it";

  directory.Assign({"COM1", "COM17"});

  EXPECT_EQ(directory.Known(1), "COM1");
  EXPECT_EQ(directory.Known(2), "COM9");
  EXPECT_EQ(directory.Known(3), "COM8");
  EXPECT_EQ(directory.Known(4), "");
  EXPECT_EQ(directory.Known(17), "COM17");
  directory.Assign({"COM1"});
  EXPECT_EQ(directory.Known(17), "");
}

TEST(PortDirectory, ADeviceWithALineIsKnownAlsoWhenItIsNotThere) {
  auto directory = Directory("1=/dev/ttyUSB0\n");
  directory.Assign({});
  EXPECT_EQ(directory.Known(1), "/dev/ttyUSB0");
  EXPECT_EQ(directory.Known(2), "");
}

TEST(PortDirectory, DevicesWithoutAComNumberGetOneThatNoComPortHas) {
  auto directory = ComDirectory("");

  EXPECT_TRUE(directory.Assign({"COM1", "CNCA0", "COM3", "COM03"}));

  EXPECT_EQ(directory.Text(), "2=CNCA0\r\n4=COM03\r\n");
}

TEST(PortDirectory, AComPortWhoseNumberBelongsToAnotherGetsALine) {
  auto directory = ComDirectory("1=COM7\n");

  EXPECT_TRUE(directory.Assign({"COM1", "COM7"}));

  EXPECT_EQ(directory.Text(), "1=COM7\n2=COM1\n");
}

TEST(PortDirectory, AComPortKeepsItsOwnNumberWhenThatIsOverriddenForOnce) {
  auto directory = ComDirectory("", {{1, "COM5"}});

  EXPECT_FALSE(directory.Assign({"COM1", "COM5"}));

  EXPECT_EQ(directory.Text(), "");
  EXPECT_EQ(directory.Device(1), "COM5");
}

}  // namespace
}  // namespace quenlor::link
