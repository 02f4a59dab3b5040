// SPDX-License-Identifier: MIT
#include "platform/timer.h"

#include <QTest>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "platform/memory/test_clock.h"
#include "platform/qt/qt_timer.h"

namespace quenlor::platform {
namespace {

using namespace std::chrono_literals;
using memory::TestClock;
using memory::TestTimer;

// What every timer promises.

struct QtTimers {
  qt::QtTimer timer;
  qt::QtTimer other;
  bool Until(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }
};

struct TestTimers {
  TestClock clock;
  TestTimer timer{clock};
  TestTimer other{clock};
  bool Until(const std::function<bool()>& condition) {
    for (int millisecond = 0; millisecond < 5000 && !condition(); ++millisecond) clock.Advance(1ms);
    return condition();
  }
};

template <class Timers>
class TimerContract : public testing::Test {
 protected:
  void Start(std::chrono::milliseconds interval) {
    timers.timer.OnTimer([this] { ++fired; });
    timers.timer.Interval(interval);
    timers.timer.Enabled(true);
  }
  // True after several intervals of a short timer.
  bool SomeTimePasses() {
    int ticks = 0;
    timers.other.Interval(2ms);
    timers.other.OnTimer([&ticks] { ++ticks; });
    timers.other.Enabled(true);
    const bool passed = timers.Until([&ticks] { return ticks >= 20; });
    timers.other.Enabled(false);
    return passed;
  }

  Timers timers;
  int fired = 0;
};

using EveryTimer = testing::Types<QtTimers, TestTimers>;
TYPED_TEST_SUITE(TimerContract, EveryTimer);

TYPED_TEST(TimerContract, RunsOnceEveryInterval) {
  this->Start(3ms);
  EXPECT_TRUE(this->timers.Until([this] { return this->fired >= 5; }));
}

TYPED_TEST(TimerContract, RestsUntilEnabled) {
  this->Start(2ms);
  this->timers.timer.Enabled(false);
  EXPECT_FALSE(this->timers.timer.Enabled());
  ASSERT_TRUE(this->SomeTimePasses());
  EXPECT_EQ(this->fired, 0);

  this->timers.timer.Enabled(true);
  EXPECT_TRUE(this->timers.timer.Enabled());
  EXPECT_TRUE(this->timers.Until([this] { return this->fired > 0; }));
}

TYPED_TEST(TimerContract, EnablingARunningTimerLeavesItsCount) {
  this->Start(100ms);
  EXPECT_TRUE(this->timers.Until([this] {
    this->timers.timer.Enabled(true);
    return this->fired > 0;
  }));
}

TYPED_TEST(TimerContract, TheSameIntervalLeavesTheCount) {
  this->Start(100ms);
  EXPECT_TRUE(this->timers.Until([this] {
    this->timers.timer.Interval(100ms);
    return this->fired > 0;
  }));
}

TYPED_TEST(TimerContract, AnotherIntervalCountsFromNowOn) {
  this->Start(1h);
  this->timers.timer.Interval(4ms);
  EXPECT_TRUE(this->timers.Until([this] { return this->fired > 0; }));

  this->timers.timer.Interval(1h);
  this->fired = 0;
  ASSERT_TRUE(this->SomeTimePasses());
  EXPECT_EQ(this->fired, 0);
}

TYPED_TEST(TimerContract, AnIntervalSetWhileItRestsDoesNotStartIt) {
  this->Start(1h);
  this->timers.timer.Enabled(false);
  this->timers.timer.Interval(2ms);
  ASSERT_TRUE(this->SomeTimePasses());
  EXPECT_EQ(this->fired, 0);
}

TYPED_TEST(TimerContract, WithoutAnIntervalItNeverRuns) {
  this->Start(0ms);
  EXPECT_TRUE(this->timers.timer.Enabled());
  ASSERT_TRUE(this->SomeTimePasses());
  EXPECT_EQ(this->fired, 0);

  this->timers.timer.Interval(2ms);
  EXPECT_TRUE(this->timers.Until([this] { return this->fired > 0; }));
  this->timers.timer.Interval(0ms);
  this->fired = 0;
  ASSERT_TRUE(this->SomeTimePasses());
  EXPECT_EQ(this->fired, 0);
}

TYPED_TEST(TimerContract, AHandlerMayEndItsOwnTimer) {
  this->timers.timer.Interval(2ms);
  this->timers.timer.OnTimer([this] {
    ++this->fired;
    this->timers.timer.Enabled(false);
  });
  this->timers.timer.Enabled(true);
  ASSERT_TRUE(this->timers.Until([this] { return this->fired > 0; }));
  ASSERT_TRUE(this->SomeTimePasses());
  EXPECT_EQ(this->fired, 1);
}

TYPED_TEST(TimerContract, AHandlerThatWaitsIsNotRunAgainMeanwhile) {
  int depth = 0;
  int deepest = 0;
  bool waited = false;
  this->timers.timer.Interval(2ms);
  this->timers.timer.OnTimer([&] {
    deepest = std::max(deepest, ++depth);
    this->timers.timer.Enabled(false);  // not even when it starts anew
    this->timers.timer.Enabled(true);
    if (!waited) waited = this->SomeTimePasses();
    --depth;
    ++this->fired;
  });
  this->timers.timer.Enabled(true);
  EXPECT_TRUE(this->timers.Until([&] { return waited && this->fired >= 3; })) << "it goes on afterwards";
  EXPECT_EQ(deepest, 1);
}

TYPED_TEST(TimerContract, AHandlerMayReplaceItself) {
  bool replaced = false;
  this->timers.timer.Interval(2ms);
  this->timers.timer.OnTimer([&] { this->timers.timer.OnTimer([&replaced] { replaced = true; }); });
  this->timers.timer.Enabled(true);
  EXPECT_TRUE(this->timers.Until([&replaced] { return replaced; }));
}

TEST(Timer, MayBeDestroyedByItsHandler) {
  auto timer = std::make_unique<qt::QtTimer>();
  timer->Interval(1ms);
  timer->OnTimer([&timer] { timer.reset(); });
  timer->Enabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer; }, 5000));

  TestClock clock;
  auto turned = std::make_unique<TestTimer>(clock);
  turned->Interval(1ms);
  turned->OnTimer([&turned] { turned.reset(); });
  turned->Enabled(true);
  clock.Advance(1s);
  EXPECT_FALSE(turned);
}

}  // namespace
}  // namespace quenlor::platform
