// SPDX-License-Identifier: MIT
// Requests that a measurement repeats by the clock.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(MeasurementRepeat, RequestsComeAtTheInterval) {
  Bench bench;
  bench.Repeat("5", "QM");
  bench.Start();

  EXPECT_THAT(bench.SendTimes(21), ElementsAre(5, 10, 15, 20));
}

TEST(MeasurementRepeat, ARequestIsTheTextOfTheCommandBox) {
  Bench bench;
  bench.Visco();
  bench.Repeat("5", "Q");
  bench.Start();
  bench.TakeSent();

  bench.Advance(5);
  EXPECT_EQ(bench.TakeSent(), "Q\r\n");

  bench.measurement.SetCommandData("SPEED 10");
  bench.Advance(5);
  EXPECT_EQ(bench.TakeSent(), "SPEED 10\r\n");
}

TEST(MeasurementRepeat, WithoutRepeatNothingIsRequested) {
  Bench bench;
  bench.settings.Set(setting::kRepeatSeconds, 1);
  bench.Start();

  EXPECT_THAT(bench.SendTimes(60), IsEmpty());
  EXPECT_FALSE(bench.Timer1.Enabled());
}

TEST(MeasurementRepeat, TheTickIsFiftyMilliseconds) {
  Bench bench;

  EXPECT_EQ(bench.Timer1.Interval(), std::chrono::milliseconds{50});
}

TEST(MeasurementRepeat, WithIntervalZeroEveryTickSends) {
  Bench bench;
  bench.Repeat("0");
  bench.Start();

  EXPECT_THAT(bench.SendTimes(10), SizeIs(200));
}

TEST(MeasurementRepeat, TheIntervalMayHaveADecimalComma) {
  Bench bench;
  bench.Repeat("2,5");
  bench.Start();

  EXPECT_THAT(bench.SendTimes(8), ElementsAre(2.5, 5, 7.5));
}

TEST(MeasurementRepeat, TheGridDoesNotDrift) {
  Bench bench;
  bench.Repeat("0.98");  // every request is up to a tick late, and a grid of late requests would fall behind
  bench.Start();

  const std::vector<double> times = bench.SendTimes(980.5);

  EXPECT_THAT(times, SizeIs(1000));
}

TEST(MeasurementRepeat, AfterAStallRequestsFollowAtEachTickUntilTheGridIsReached) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.Advance(1);

  bench.Stall(16);

  EXPECT_THAT(bench.SendTimes(10), ElementsAre(0.05, 0.1, 0.15, 3, 8))
      << "5, 10 and 15 s late, then 20 and 25 s";
}

TEST(MeasurementRepeat, AnotherIntervalCountsFromTheNextRequestOn) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.Advance(1);

  bench.settings.Set(setting::kRepeatSeconds, 2);

  EXPECT_THAT(bench.SendTimes(9), ElementsAre(4, 6, 8));
}

TEST(MeasurementRepeat, ANewStartBeginsANewGrid) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.Advance(3);
  bench.measurement.Stop();
  bench.Advance(1);

  bench.Start();

  EXPECT_THAT(bench.SendTimes(6), ElementsAre(5));
}

TEST(MeasurementRepeat, LinesDoNotMoveTheGrid) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.Advance(4);
  bench.Line("1");

  EXPECT_THAT(bench.SendTimes(7), ElementsAre(1, 6));
}

TEST(MeasurementRepeat, TickingRepeatWhileRunningRequestsAtOnce) {
  Bench bench;
  bench.Start();
  bench.Advance(7);

  bench.Repeat("5");
  bench.measurement.RepeatChanged();

  EXPECT_THAT(bench.SendTimes(11), ElementsAre(0.05, 5, 10));
}

TEST(MeasurementRepeat, UntickingRepeatWhileRunningEndsTheRequests) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.Advance(7);

  bench.settings.Set(setting::kRepeat, 0);
  bench.measurement.RepeatChanged();

  EXPECT_THAT(bench.SendTimes(20), IsEmpty());
  EXPECT_FALSE(bench.Timer1.Enabled());
  EXPECT_TRUE(bench.measurement.Running());
}

TEST(MeasurementRepeat, TickingRepeatAgainDoesNotCatchUpOnThePause) {
  Bench bench;
  bench.Repeat("5");
  bench.Start();
  bench.settings.Set(setting::kRepeat, 0);
  bench.measurement.RepeatChanged();
  bench.Advance(60);

  bench.settings.Set(setting::kRepeat, 1);
  bench.measurement.RepeatChanged();

  EXPECT_THAT(bench.SendTimes(6), ElementsAre(0.05, 5));
}

TEST(MeasurementRepeat, TickingRepeatWhileStoppedStartsNothing) {
  Bench bench;

  bench.Repeat("0");
  bench.measurement.RepeatChanged();
  bench.Advance(10);

  EXPECT_FALSE(bench.Timer1.Enabled());
  EXPECT_THAT(bench.port.Calls(), IsEmpty());
}

TEST(MeasurementRepeat, AStoppedMeasurementRequestsNothing) {
  Bench bench;
  bench.Repeat("0");
  bench.Start();
  bench.measurement.Stop();

  EXPECT_THAT(bench.SendTimes(10), IsEmpty());
}

}  // namespace
}  // namespace quenlor::link
