// SPDX-License-Identifier: MIT
#include "platform/qt/end_signals.h"

#include <QCoreApplication>
#include <QTest>
#include <csignal>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

void (*HandlerOf(int signal))(int) {
  struct sigaction now {};
  ::sigaction(signal, nullptr, &now);
  return now.sa_handler;
}

TEST(EndSignals, EachAsksOnceAndThenEndsTheProgramAsEver) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    const auto before = HandlerOf(signal);
    int asked = 0;
    const EndSignals guard([&] { ++asked; });
    EXPECT_NE(HandlerOf(signal), before);
    ::raise(signal);
    ::raise(signal);
    EXPECT_EQ(asked, 0) << "only from the event loop";
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(HandlerOf(signal), before);
  }
}

TEST(EndSignals, WhatIsIgnoredStaysIgnored) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  {
    const EndSignals guard([] {});
    EXPECT_EQ(HandlerOf(SIGHUP), SIG_IGN);
  }
  EXPECT_EQ(HandlerOf(SIGHUP), SIG_IGN);
  std::signal(SIGHUP, before);
}

}  // namespace
}  // namespace quenlor::platform::qt
