// SPDX-License-Identifier: MIT
#include "platform/memory/test_clock.h"

#include <cmath>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

namespace quenlor::platform::memory {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

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

}  // namespace
}  // namespace quenlor::platform::memory
