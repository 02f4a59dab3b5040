// SPDX-License-Identifier: MIT
// What holds for the twin holds for the adapter on a real line of the system.

#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/memory/memory_serial_port.h"
#include "platform/qt/qt_serial_port.h"
#include "tests/event_turns.h"
#ifndef _WIN32
#include "tests/platform/pseudo_terminal.h"
#endif

namespace quenlor::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace ev = comm_event;

constexpr int kPort = 3;

// The other end of a line, as the contract needs it. Everything the program is to hear has been told, or is
// told in the next turns of its event loop, when one of these returns.
class TwinLine {
 public:
  SerialPort& Port() { return port_; }
  void Write(std::string_view bytes) { port_.Feed(bytes); }
  std::string Read(std::size_t) { return port_.TakeSent(); }
  void Vanish() { port_.VanishDevice(); }
  void TakeTurns() {}

 private:
  memory::MemorySerialPort port_;
};

#ifndef _WIN32
class SystemLine {
 public:
  SerialPort& Port() { return port_; }

  // The program has taken the bytes from the system, and may not have been told yet.
  void Write(std::string_view bytes) {
    pseudo_terminal_.WriteThrough(bytes);
    if (port_.PortOpen()) {
      EXPECT_TRUE(QTest::qWaitFor([&] { return pseudo_terminal_.WaitingForTheProgram() == 0; }));
    }
  }
  // As much as is expected, or what the program sends of its own accord.
  std::string Read(std::size_t expected) {
    std::string arrived;
    if (expected == 0) tests::TakeTurns();
    (void)QTest::qWaitFor([&] { return (arrived += pseudo_terminal_.Read()).size() >= expected; });
    return arrived;
  }
  void Vanish() { pseudo_terminal_.HangUp(); }
  void TakeTurns() { tests::TakeTurns(); }

 private:
  tests::PseudoTerminal pseudo_terminal_;
  qt::QtSerialPort port_{
      [this](int port) { return port == kPort ? pseudo_terminal_.Device() : std::string(); }};
};

using Lines = testing::Types<TwinLine, SystemLine>;
#else
using Lines = testing::Types<TwinLine>;  // a line of the system has no other end that a test could hold
#endif

template <class Line>
class SerialPortContract : public testing::Test {
 protected:
  SerialPort& Port() { return line_.Port(); }

  // Hears everything from now on; `also` runs in each event.
  void Listen(std::function<void(int)> also = {}) {
    Port().OnComm([this, also = std::move(also)](int event) {
      events_.push_back(event);
      if (also) also(event);
    });
  }

  void Open() { ASSERT_FALSE(Port().Open(kPort, "9600N81")); }

  void ExpectSent(const std::string& bytes) { EXPECT_EQ(line_.Read(bytes.size()), bytes); }

  bool Heard(int event) {
    return QTest::qWaitFor([&] { return std::count(events_.begin(), events_.end(), event) > 0; });
  }
  int Count(int event) const { return static_cast<int>(std::count(events_.begin(), events_.end(), event)); }

  Line line_;
  std::vector<int> events_;
};

TYPED_TEST_SUITE(SerialPortContract, Lines);

TYPED_TEST(SerialPortContract, IsClosedUntilOpened) {
  EXPECT_FALSE(this->Port().PortOpen());

  this->Open();

  EXPECT_TRUE(this->Port().PortOpen());
  EXPECT_EQ(this->Port().CommPort(), kPort);
}

TYPED_TEST(SerialPortContract, OutputReachesTheOtherEnd) {
  this->Open();

  this->Port().Output("V\r");

  this->ExpectSent("V\r");
}

TYPED_TEST(SerialPortContract, WhatTheOtherEndSendsIsToldAndWaitsInInput) {
  this->Listen();
  this->Open();

  this->line_.Write(std::string_view("12.3\0\xff\r\n", 8));

  ASSERT_TRUE(this->Heard(ev::kReceive));
  EXPECT_EQ(this->Port().Input(), std::string_view("12.3\0\xff\r\n", 8));
  EXPECT_EQ(this->Port().Input(), "");
}

TYPED_TEST(SerialPortContract, CharactersThatNobodyTakesAreToldOnce) {
  this->Listen();
  this->Open();

  this->line_.Write("12");
  ASSERT_TRUE(this->Heard(ev::kReceive));
  this->line_.TakeTurns();

  EXPECT_THAT(this->events_, ElementsAre(ev::kReceive));
  EXPECT_EQ(this->Port().Input(), "12");
}

TYPED_TEST(SerialPortContract, LaterCharactersJoinThoseThatNobodyTook) {
  this->Listen();
  this->Open();

  this->line_.Write("12");
  ASSERT_TRUE(this->Heard(ev::kReceive));
  this->events_.clear();
  this->line_.Write(".3");
  ASSERT_TRUE(this->Heard(ev::kReceive));

  EXPECT_EQ(this->Port().Input(), "12.3");
}

TYPED_TEST(SerialPortContract, WithoutAListenerCharactersWaitInInput) {
  this->Open();

  this->line_.Write("12");
  this->line_.TakeTurns();

  EXPECT_EQ(this->Port().Input(), "12");
}

TYPED_TEST(SerialPortContract, ClearingTheInBufferDiscardsWhatWaits) {
  this->Listen();
  this->Open();
  this->line_.Write("old");
  ASSERT_TRUE(this->Heard(ev::kReceive));

  this->Port().ClearInBuffer();
  EXPECT_EQ(this->Port().Input(), "");
  this->line_.Write("new");

  EXPECT_TRUE(QTest::qWaitFor([&] { return this->Count(ev::kReceive) == 2; }));
  EXPECT_EQ(this->Port().Input(), "new");
}

TYPED_TEST(SerialPortContract, WhatCameWhileClosedIsDiscardedByOpening) {
  this->Listen();

  this->line_.Write("old");
  this->Open();
  this->line_.TakeTurns();

  EXPECT_THAT(this->events_, IsEmpty());
  EXPECT_EQ(this->Port().Input(), "");
}

TYPED_TEST(SerialPortContract, ClosingForgetsWhatWasReceived) {
  this->Open();
  this->line_.Write("old");
  this->line_.TakeTurns();

  this->Port().Close();

  EXPECT_EQ(this->Port().Input(), "");
}

TYPED_TEST(SerialPortContract, OutputJustBeforeClosingReachesTheOtherEnd) {
  this->Open();

  this->Port().Output("STOP\r");
  this->Port().Close();

  this->ExpectSent("STOP\r");
}

TYPED_TEST(SerialPortContract, AClosedPortTellsNothing) {
  this->Listen();
  this->Open();

  this->Port().Close();
  this->line_.Write("12");
  this->line_.Vanish();
  this->line_.TakeTurns();

  EXPECT_FALSE(this->Port().PortOpen());
  EXPECT_THAT(this->events_, IsEmpty());
}

TYPED_TEST(SerialPortContract, CallsOnAClosedPortDoNothing) {
  this->Listen();

  this->Port().Output("V\r");
  this->Port().ClearInBuffer();
  this->Port().ClearOutBuffer();
  this->Port().RTSEnable(true);
  this->Port().Close();
  this->line_.TakeTurns();

  EXPECT_FALSE(this->Port().PortOpen());
  this->ExpectSent("");
  EXPECT_THAT(this->events_, IsEmpty());
}

TYPED_TEST(SerialPortContract, SwitchingRTSTellsNothing) {
  this->Listen();
  this->Port().RTSEnable(true);
  this->Open();

  this->Port().RTSEnable(false);
  this->Port().RTSEnable(true);
  this->line_.TakeTurns();

  EXPECT_TRUE(this->Port().PortOpen());
  EXPECT_THAT(this->events_, IsEmpty());
}

TYPED_TEST(SerialPortContract, ClosedAndOpenedAgainTheLineWorks) {
  this->Listen();
  this->Open();
  this->Port().Close();

  this->Open();
  this->Port().Output("V\r");
  this->ExpectSent("V\r");
  this->line_.Write("12");

  EXPECT_TRUE(this->Heard(ev::kReceive));
  EXPECT_EQ(this->Port().Input(), "12");
}

TYPED_TEST(SerialPortContract, OpeningAnOpenPortOpensItAfresh) {
  this->Listen();
  this->Open();
  this->line_.Write("old");

  ASSERT_FALSE(this->Port().Open(kPort, "1200E72"));
  this->events_.clear();
  this->line_.Write("new");

  EXPECT_TRUE(this->Heard(ev::kReceive));
  EXPECT_EQ(this->Port().Input(), "new");
}

TYPED_TEST(SerialPortContract, AFailedOpeningLeavesThePortClosed) {
  this->Listen();
  this->Open();

  const auto failure = this->Port().Open(kPort, "fast");

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->reason, testing::HasSubstr("fast"));
  EXPECT_FALSE(this->Port().PortOpen());
}

TYPED_TEST(SerialPortContract, SettingsThatAreNoneAreRefused) {
  for (const char* settings : {"",           "9600",       "9600N",
                               "9600N8",     "N81",        "9600X81",
                               "9600n81",    "9600N91",    "9600N61",
                               "9600N83",    "9600N80",    "9600N81.25",
                               "9600N81.",   "9600N811",   "9600N81 ",
                               " 9600N81",   "9600,N,8,1", "0N81",
                               "-9600N81",   "96.0N81",    "99999999999999999999N81",
                               "9600N8\0001"}) {
    const auto failure = this->Port().Open(kPort, settings);
    EXPECT_TRUE(failure) << settings;
    EXPECT_FALSE(this->Port().PortOpen()) << settings;
  }
}

TYPED_TEST(SerialPortContract, AVanishedDeviceIsToldOnceAndThePortIsClosedByThen) {
  bool open_when_told = true;
  this->Listen([&](int event) {
    if (event == ev::kPortGone) open_when_told = this->Port().PortOpen();
  });
  this->Open();

  this->line_.Vanish();

  ASSERT_TRUE(this->Heard(ev::kPortGone));
  this->line_.TakeTurns();
  EXPECT_FALSE(open_when_told);
  EXPECT_FALSE(this->Port().PortOpen());
  EXPECT_THAT(this->events_, ElementsAre(ev::kPortGone));
}

TYPED_TEST(SerialPortContract, WhatCameBeforeTheDeviceVanishedIsKept) {
  this->Listen();
  this->Open();

  this->line_.Write("12.3\r\n");
  this->line_.Vanish();

  ASSERT_TRUE(this->Heard(ev::kPortGone));
  EXPECT_THAT(this->events_, ElementsAre(ev::kReceive, ev::kPortGone));
  EXPECT_EQ(this->Port().Input(), "12.3\r\n");
}

TYPED_TEST(SerialPortContract, OutputOnALineThatVanishedIsSilent) {
  this->Listen([&](int) { this->Port().Output("again"); });
  this->Open();

  this->line_.Vanish();
  this->Port().Output("V\r");
  EXPECT_LE(this->events_.size(), 1u);

  ASSERT_TRUE(this->Heard(ev::kPortGone));
  this->Port().Output("V\r");
  this->line_.TakeTurns();
  EXPECT_THAT(this->events_, ElementsAre(ev::kPortGone));
}

TYPED_TEST(SerialPortContract, TheHandlerMayCloseThePort) {
  this->Listen([&](int) { this->Port().Close(); });
  this->Open();

  this->line_.Write("12");
  ASSERT_TRUE(this->Heard(ev::kReceive));
  this->line_.Vanish();
  this->line_.TakeTurns();

  EXPECT_FALSE(this->Port().PortOpen());
  EXPECT_THAT(this->events_, ElementsAre(ev::kReceive));
}

TYPED_TEST(SerialPortContract, TheHandlerMayCloseAndOpenThePort) {
  this->Listen([&](int) {
    if (this->events_.size() > 1) return;
    this->Port().Close();
    EXPECT_FALSE(this->Port().Open(kPort, "9600N81"));
  });
  this->Open();
  this->line_.Write("old");
  ASSERT_TRUE(this->Heard(ev::kReceive));
  EXPECT_EQ(this->Port().Input(), "");

  this->line_.Write("new");

  ASSERT_TRUE(QTest::qWaitFor([&] { return this->Count(ev::kReceive) == 2; }));
  EXPECT_EQ(this->Port().Input(), "new");
}

TYPED_TEST(SerialPortContract, TheHandlerMayAnswer) {
  this->Listen([&](int) { this->Port().Output("got " + this->Port().Input()); });
  this->Open();

  this->line_.Write("12");
  ASSERT_TRUE(this->Heard(ev::kReceive));

  this->ExpectSent("got 12");
}

TYPED_TEST(SerialPortContract, CharactersThatComeWhileTheHandlerRunsAreToldAfterIt) {
  bool running = false;
  this->Listen([&](int) {
    EXPECT_FALSE(running);
    running = true;
    EXPECT_NE(this->Port().Input(), "");
    if (this->events_.size() == 1) {
      this->line_.Write("second");
      this->line_.TakeTurns();
      EXPECT_EQ(this->events_.size(), 1u);
    }
    running = false;
  });
  this->Open();

  this->line_.Write("first");

  EXPECT_TRUE(QTest::qWaitFor([&] { return this->Count(ev::kReceive) == 2; }));
}

TYPED_TEST(SerialPortContract, CharactersThatTheRunningHandlerTookAreNotToldAgain) {
  std::string text;
  this->Listen([&](int) {
    text += this->Port().Input();
    if (this->events_.size() == 1) {
      this->line_.Write("second");
      this->line_.TakeTurns();
      text += this->Port().Input();
    }
  });
  this->Open();

  this->line_.Write("first ");
  ASSERT_TRUE(this->Heard(ev::kReceive));
  this->line_.TakeTurns();

  EXPECT_EQ(text, "first second");
  EXPECT_THAT(this->events_, ElementsAre(ev::kReceive));
}

TYPED_TEST(SerialPortContract, ADeviceThatVanishesWhileTheHandlerRunsIsToldAfterIt) {
  this->Listen([&](int event) {
    if (event != ev::kReceive) return;
    this->line_.Vanish();
    this->line_.TakeTurns();
    EXPECT_EQ(this->Count(ev::kPortGone), 0);
    EXPECT_TRUE(this->Port().PortOpen());
  });
  this->Open();

  this->line_.Write("12");

  ASSERT_TRUE(this->Heard(ev::kPortGone));
  this->line_.TakeTurns();
  EXPECT_THAT(this->events_, ElementsAre(ev::kReceive, ev::kPortGone));
  EXPECT_EQ(this->Port().Input(), "12");
}

TYPED_TEST(SerialPortContract, ADeviceThatVanishedUnderAHandlerThatClosesIsNotTold) {
  this->Listen([&](int) {
    this->line_.Vanish();
    this->line_.TakeTurns();
    this->Port().Close();
  });
  this->Open();

  this->line_.Write("12");
  ASSERT_TRUE(this->Heard(ev::kReceive));
  this->line_.TakeTurns();

  EXPECT_THAT(this->events_, ElementsAre(ev::kReceive));
}

}  // namespace
}  // namespace quenlor::platform
