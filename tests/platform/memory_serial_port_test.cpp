// SPDX-License-Identifier: MIT
// What the twin offers to tests beyond the contract.

#include "platform/memory/memory_serial_port.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::platform::memory {
namespace {

using testing::ElementsAre;

TEST(MemorySerialPort, ARefusedOpeningGivesTheFailureUntilItIsAllowedAgain) {
  MemorySerialPort port;
  port.RefuseOpen({"/dev/ttyUSB0", "Permission denied", "log in again"});

  const auto failure = port.Open(1, "9600N81");
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->reason, "Permission denied");
  EXPECT_FALSE(port.PortOpen());

  port.AllowOpen();
  EXPECT_FALSE(port.Open(1, "9600N81"));
}

TEST(MemorySerialPort, HeldOutputCanBeClearedBeforeItIsSent) {
  MemorySerialPort port;
  port.Open(1, "9600N81");
  port.HoldOutput(true);

  port.Output("one");
  port.ClearOutBuffer();
  port.Output("two");
  EXPECT_EQ(port.Sent(), "");
  port.HoldOutput(false);

  EXPECT_EQ(port.TakeSent(), "two");
  EXPECT_EQ(port.Sent(), "");
}

TEST(MemorySerialPort, ClosingSendsHeldOutputAndLosesStuckOutput) {
  MemorySerialPort port;
  port.Open(1, "9600N81");
  port.HoldOutput(true);
  port.Output("held");
  port.Close();
  EXPECT_EQ(port.TakeSent(), "held");

  port.Open(1, "9600N81");
  port.StickOutput();
  port.Output("stuck");
  port.Close();
  EXPECT_EQ(port.Sent(), "");
}

TEST(MemorySerialPort, RaisedEventsComeInOrderAndBeforeTheCharacters) {
  std::vector<int> events;
  MemorySerialPort port;
  port.OnComm([&](int event) {
    events.push_back(event);
    if (events.size() > 1) return;
    port.Feed("x");
    port.Raise(comm_event::kParity);
    port.Raise(comm_event::kBreak);
  });
  port.Open(1, "9600N81");

  port.Raise(comm_event::kFraming);

  EXPECT_THAT(events, ElementsAre(comm_event::kFraming, comm_event::kParity, comm_event::kBreak,
                                  comm_event::kReceive));
}

TEST(MemorySerialPort, RemembersWhatTheProgramDidInOrder) {
  MemorySerialPort port;

  port.Open(2, "1200E72");
  port.RTSEnable(true);
  port.Output("V");
  port.ClearInBuffer();
  port.ClearOutBuffer();
  port.Close();
  port.Close();

  EXPECT_THAT(port.Calls(), ElementsAre("Open 2 1200E72", "RTSEnable 1", "Output V", "ClearInBuffer",
                                        "ClearOutBuffer", "Close"));
  EXPECT_EQ(port.Settings(), "1200E72");
  EXPECT_EQ(port.RTS(), true);
}

}  // namespace
}  // namespace quenlor::platform::memory
