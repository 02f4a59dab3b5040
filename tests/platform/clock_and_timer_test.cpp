// SPDX-License-Identifier: MIT
#include <QDateTime>
#include <QTest>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>

#include <gmock/gmock.h>

#include "platform/memory/test_clock.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_timer.h"

namespace quenlor::platform {
namespace {

using namespace std::chrono_literals;
using memory::MomentAt;
using memory::TestClock;
using memory::TestTimer;
using testing::ElementsAre;

// --- What every timer promises.

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

// --- The clock that a test turns.

TEST(TestClock, StandsStillUntilTurned) {
  TestClock clock(MomentAt(2024, 2, 28, 23, 59, 58.5));
  EXPECT_EQ(data::DateTimeText(clock.Now().local_second), "2024/02/28 23:59:58");
  const double before = clock.Now().seconds;
  clock.Advance(1.5);
  EXPECT_DOUBLE_EQ(clock.Now().seconds - before, 1.5);
  EXPECT_EQ(data::DateTimeText(clock.Now().local_second), "2024/02/29 00:00:00");
}

TEST(TestClock, TheShownSecondChangesWithTheWholeSecond) {
  TestClock clock(MomentAt(2024, 3, 15, 12, 0, 0.75));
  const std::int64_t first = clock.Now().local_second;
  clock.Advance(249ms);
  EXPECT_EQ(clock.Now().local_second, first);
  clock.Advance(1ms);
  EXPECT_EQ(clock.Now().local_second, first + 1);
}

TEST(TestClock, ManySmallTurnsDoNotDrift) {
  TestClock clock(MomentAt(2024, 3, 15));
  const double before = clock.Now().seconds;
  for (int turn = 0; turn < 100000; ++turn) clock.Advance(0.1);
  EXPECT_EQ(clock.Now().seconds - before, 10000.0);
}

TEST(TestClock, TimersRunWhenTheyAreDueAndSeeThatTime) {
  TestClock clock;
  const double start = clock.Now().seconds;
  TestTimer slow(clock);
  TestTimer fast(clock);
  std::vector<std::pair<char, double>> runs;
  slow.Interval(1s);
  slow.OnTimer([&] { runs.emplace_back('s', clock.Now().seconds - start); });
  fast.Interval(400ms);
  fast.OnTimer([&] { runs.emplace_back('f', std::round((clock.Now().seconds - start) * 1000) / 1000); });
  slow.Enabled(true);
  fast.Enabled(true);

  clock.Advance(2s);

  EXPECT_THAT(runs,
              ElementsAre(std::pair('f', 0.4), std::pair('f', 0.8), std::pair('s', 1.0), std::pair('f', 1.2),
                          std::pair('f', 1.6), std::pair('s', 2.0), std::pair('f', 2.0)));
}

TEST(TestClock, ATimerRunsAtTheVeryEndOfATurnButNotBefore) {
  TestClock clock;
  TestTimer timer(clock);
  int fired = 0;
  timer.Interval(500ms);
  timer.OnTimer([&fired] { ++fired; });
  timer.Enabled(true);
  clock.Advance(499ms);
  EXPECT_EQ(fired, 0);
  clock.Advance(1ms);
  EXPECT_EQ(fired, 1);
}

TEST(TestClock, ATimerStartedByAHandlerRunsInTheSameTurn) {
  TestClock clock;
  const double start = clock.Now().seconds;
  TestTimer first(clock);
  TestTimer second(clock);
  double ran_at = 0;
  second.Interval(250ms);
  second.OnTimer([&] {
    ran_at = clock.Now().seconds - start;
    second.Enabled(false);
  });
  first.Interval(1s);
  first.OnTimer([&] {
    first.Enabled(false);
    second.Enabled(true);
  });
  first.Enabled(true);
  clock.Advance(10s);
  EXPECT_DOUBLE_EQ(ran_at, 1.25);
}

TEST(TestClock, DisablingAndEnablingStartsAWholeInterval) {
  TestClock clock;
  TestTimer timer(clock);
  int fired = 0;
  timer.Interval(1s);
  timer.OnTimer([&fired] { ++fired; });
  timer.Enabled(true);
  clock.Advance(900ms);
  timer.Enabled(false);
  timer.Enabled(true);
  clock.Advance(900ms);
  EXPECT_EQ(fired, 0);
  clock.Advance(100ms);
  EXPECT_EQ(fired, 1);
}

TEST(TestClock, SettingTheClockRunsNoTimerAndLeavesItsCount) {
  TestClock clock(MomentAt(2024, 3, 15, 23, 59, 59));
  TestTimer timer(clock);
  int fired = 0;
  timer.Interval(1s);
  timer.OnTimer([&fired] { ++fired; });
  timer.Enabled(true);
  clock.Advance(600ms);
  clock.SetNow(MomentAt(2024, 3, 17, 1));
  EXPECT_EQ(fired, 0);
  clock.SetNow(MomentAt(2024, 3, 15));
  clock.Advance(400ms);
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(clock.Now().seconds, MomentAt(2024, 3, 15).seconds + 0.4);
}

TEST(TestClock, AHandlerThatTurnsTheClockLetsOthersRunMeanwhile) {
  TestClock clock;
  TestTimer waiting(clock);
  TestTimer other(clock);
  int others = 0;
  waiting.Interval(1s);
  waiting.OnTimer([&] {
    waiting.Enabled(false);
    clock.Advance(5s);
  });
  other.Interval(1s);
  other.OnTimer([&others] { ++others; });
  const double start = clock.Now().seconds;
  waiting.Enabled(true);
  other.Enabled(true);
  clock.Advance(1s);
  EXPECT_EQ(others, 6);
  EXPECT_EQ(clock.Now().seconds - start, 6.0);
}

// --- The computer's clock.

using Utc = std::chrono::system_clock::time_point;

TEST(QtClock, BothTimesCountLocalSecondsAndOneHasTheFraction) {
  const data::Moment moment = qt::MomentOf(Utc(1700000000s + 250ms), 3600, 3600);
  EXPECT_DOUBLE_EQ(moment.seconds, 1700003600.25);
  EXPECT_EQ(moment.local_second, 1700003600);
}

TEST(QtClock, ElapsedTimesDoNotJumpWhenSummerTimeBegins) {
  const data::Moment before = qt::MomentOf(Utc(1711846799s), 3600, 3600);
  const data::Moment after = qt::MomentOf(Utc(1711846800s), 3600, 7200);
  EXPECT_EQ(after.seconds - before.seconds, 1.0);
  EXPECT_EQ(data::DateTimeText(before.local_second), "2024/03/31 01:59:59");
  EXPECT_EQ(data::DateTimeText(after.local_second), "2024/03/31 03:00:00");
}

TEST(QtClock, WestOfGreenwichTheDayBeginsLater) {
  const data::Moment moment = qt::MomentOf(Utc(1711929600s), -18000, -18000);
  EXPECT_EQ(data::DateTimeText(moment.local_second), "2024/03/31 19:00:00");
}

TEST(QtClock, TimesBefore1970KeepTheirFraction) {
  const data::Moment moment = qt::MomentOf(Utc(-1s - 750ms), 0, 0);
  EXPECT_DOUBLE_EQ(moment.seconds, -1.75);
  EXPECT_EQ(moment.local_second, -2);
}

class QtClockInAZone : public testing::Test {
 protected:
  void UseZone(const char* zone) {
    qputenv("TZ", zone);
    tzset();
  }
  ~QtClockInAZone() override {
    if (before_.isNull()) {
      qunsetenv("TZ");
    } else {
      qputenv("TZ", before_);
    }
    tzset();
  }

 private:
  QByteArray before_ = qgetenv("TZ");
};

TEST_F(QtClockInAZone, ShowsTheTimeOfDayOfItsZone) {
  UseZone("XXX-5:30");
  const qt::QtClock clock;
  const std::int64_t earliest = QDateTime::currentSecsSinceEpoch() + 19800;
  const data::Moment now = clock.Now();
  const std::int64_t latest = QDateTime::currentSecsSinceEpoch() + 19800;
  EXPECT_LE(earliest, now.local_second);
  EXPECT_LE(now.local_second, latest);
  EXPECT_EQ(std::floor(now.seconds), static_cast<double>(now.local_second));
}

TEST_F(QtClockInAZone, KeepsCountingElapsedTimeAsAtItsStartWhenTheOffsetChanges) {
  UseZone("XXX-1");
  const qt::QtClock clock;
  const data::Moment before = clock.Now();
  UseZone("XXX-2");
  data::Moment after = clock.Now();
  // The new offset shows from the next second on.
  const auto deadline = std::chrono::steady_clock::now() + 10s;
  while (after.local_second - before.local_second < 3600 && std::chrono::steady_clock::now() < deadline)
    after = clock.Now();
  EXPECT_LT(after.seconds - before.seconds, 60);
  EXPECT_GE(after.local_second - before.local_second, 3600);
}

}  // namespace
}  // namespace quenlor::platform
