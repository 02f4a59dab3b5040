// SPDX-License-Identifier: MIT
// A measurement ends by itself after some minutes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The moment of the first "STOP" when the first line came `waited` seconds after Start; 0 when there is none.
double StopSentAt(Bench& bench, double waited, double seconds = 200) {
  bench.Start();
  bench.Advance(waited);
  bench.Line("1");
  for (int tick = 1; tick <= seconds * 20; ++tick) {
    bench.TakeSent();
    bench.Advance(0.05);
    if (bench.TakeSent().starts_with("STOP")) return waited + tick / 20.0;
  }
  return 0;
}

TEST(MeasurementAutoStop, ComesAtTheFirstRequestOneSecondBeforeTheMinute) {
  struct Case {
    const char* interval;
    double first_line;
    double stop;
  };
  for (const Case& example : {Case{"1", 0, 59},
                              {"59", 0, 59},
                              {"5", 0, 60},
                              {"5", 2, 65},
                              {"5", 1, 60},
                              {"40", 0, 80},
                              {"58", 0, 116}}) {
    Bench bench;
    bench.Repeat(example.interval);
    bench.AutoStop("1");

    EXPECT_DOUBLE_EQ(StopSentAt(bench, example.first_line), example.stop)
        << "interval " << example.interval << ", first line after " << example.first_line;
  }
}

TEST(MeasurementAutoStop, TheDurationIsInMinutesWithPointOrComma) {
  for (const char* half : {"0.5", "0,5"}) {
    Bench bench;
    bench.Repeat("1");
    bench.AutoStop(half);

    EXPECT_DOUBLE_EQ(StopSentAt(bench, 0), 29) << half;
  }
}

TEST(MeasurementAutoStop, StopIsSentInPlaceOfTheRequest) {
  Bench bench;
  bench.Repeat("59");
  bench.AutoStop("1");
  bench.Start();
  bench.Line("1");
  bench.TakeSent();

  bench.Advance(59);

  EXPECT_EQ(bench.TakeSent(), "STOP\r\n");
}

TEST(MeasurementAutoStop, AStallDoesNotPutItOff) {
  Bench bench;
  bench.Repeat("1");
  bench.AutoStop("1");
  bench.Start();
  bench.Line("1");
  bench.Stall(30);
  bench.Advance(28.9);
  EXPECT_EQ(bench.TakeSent().find("STOP"), std::string::npos);
  bench.Advance(0.2);
  EXPECT_TRUE(bench.TakeSent().ends_with("STOP\r\n"));
}

TEST(MeasurementAutoStop, NeedsRepeat) {
  Bench bench;
  bench.AutoStop("1");

  EXPECT_EQ(StopSentAt(bench, 0), 0);
  EXPECT_TRUE(bench.measurement.Running());
}

TEST(MeasurementAutoStop, NeedsItsTick) {
  Bench bench;
  bench.Repeat("5");
  bench.settings.Set(setting::kAutoStopMinutes, 1);

  EXPECT_EQ(StopSentAt(bench, 0), 0);
}

TEST(MeasurementAutoStop, NeedsADurationAboveZero) {
  for (const char* none : {"0", "", "-1", "soon"}) {
    Bench bench;
    bench.Repeat("5");
    bench.AutoStop(none);

    EXPECT_EQ(StopSentAt(bench, 0), 0) << none;
  }
}

TEST(MeasurementAutoStop, NeedsAFirstLine) {
  Bench bench;
  bench.Repeat("5");
  bench.AutoStop("1");
  bench.Start();
  bench.TakeSent();

  bench.Advance(300);

  EXPECT_EQ(bench.TakeSent(), Repeated("Q\r\n", 60));
  EXPECT_TRUE(bench.measurement.Running());
}

TEST(MeasurementAutoStop, WithoutAnAnswerTheMeasurementEndsFiveSecondsAfterTheFirstStop) {
  Bench bench;
  bench.Repeat("1");
  bench.AutoStop("1");
  ASSERT_DOUBLE_EQ(StopSentAt(bench, 0), 59);

  const std::vector<double> later = bench.SendTimes(4.95);
  EXPECT_THAT(later, ElementsAre(1, 2, 3, 4)) << "each further request time sends the word again";
  EXPECT_TRUE(bench.measurement.Running());

  bench.Advance(0.05);
  EXPECT_TRUE(bench.Stopped());
}

TEST(MeasurementAutoStop, EndsSilentlyAndWithoutASecondStopWord) {
  Bench bench;
  bench.Visco();
  bench.Repeat("59");
  bench.AutoStop("1");
  ASSERT_DOUBLE_EQ(StopSentAt(bench, 0), 59);
  const int told = bench.state_changes;

  bench.Advance(5);

  EXPECT_TRUE(bench.Stopped());
  EXPECT_EQ(bench.TakeSent(), "");
  EXPECT_THAT(bench.errors, IsEmpty());
  EXPECT_EQ(bench.state_changes, told + 1);
}

TEST(MeasurementAutoStop, ALateLineIsTakenAndTheNextRequestTimeStopsAgain) {
  Bench bench;
  bench.Repeat("10");
  bench.AutoStop("1");
  ASSERT_DOUBLE_EQ(StopSentAt(bench, 0), 60);

  bench.Advance(2);
  bench.Line("late");
  bench.Advance(7.95);
  EXPECT_TRUE(bench.measurement.Running());
  bench.Advance(0.05);
  EXPECT_EQ(bench.TakeSent(), "STOP\r\n");
  bench.Advance(5);

  EXPECT_TRUE(bench.Stopped());
  EXPECT_THAT(Column(bench.document.Grid1(), 2), ElementsAre("1", "late"));
}

TEST(MeasurementAutoStop, CountsFromTheFirstLineOfTheRunNotOfTheRunBefore) {
  Bench bench;
  bench.Measure({"1"});
  bench.Advance(120);
  bench.Repeat("1");
  bench.AutoStop("1");

  EXPECT_DOUBLE_EQ(StopSentAt(bench, 0), 59);
}

}  // namespace
}  // namespace quenlor::link
