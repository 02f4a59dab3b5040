// SPDX-License-Identifier: MIT
// A measurement ends when the instrument owes an answer for too long.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::IsEmpty;

// A measurement that has its first line.
class MeasurementWatchdog : public testing::Test {
 protected:
  MeasurementWatchdog() {
    bench.Start();
    bench.Line("1");
  }

  Bench bench;
};

TEST_F(MeasurementWatchdog, WithoutAnAnswerToQmTheMeasurementEndsAfterFiveSeconds) {
  bench.measurement.SendCommand("QM");

  bench.Advance(4.99);
  EXPECT_TRUE(bench.measurement.Running());

  bench.Advance(0.01);
  EXPECT_TRUE(bench.Stopped());
}

TEST_F(MeasurementWatchdog, ExpiryClosesThePortSilently) {
  bench.Visco();
  bench.measurement.SendCommand("QM");
  bench.TakeSent();
  const int told = bench.state_changes;

  bench.Advance(5);

  EXPECT_EQ(bench.port.RTS(), false);
  EXPECT_EQ(bench.TakeSent(), "") << "no stop word";
  EXPECT_THAT(bench.loop.waits, IsEmpty());
  EXPECT_THAT(bench.errors, IsEmpty());
  EXPECT_EQ(bench.state_changes, told + 1);
  EXPECT_EQ(bench.document.Grid1().EntryRow(), 2) << "the readings stay";
}

TEST_F(MeasurementWatchdog, ExpiryEndsTheRequests) {
  bench.Repeat("3", "QM");
  bench.measurement.RepeatChanged();
  bench.Advance(5.05);
  ASSERT_TRUE(bench.Stopped());

  EXPECT_THAT(bench.SendTimes(20), IsEmpty());
}

TEST(MeasurementWatchdogBeforeTheFirstLine, IsNotArmedByQm) {
  Bench bench;
  bench.Repeat("1", "QM");
  bench.Start();

  bench.measurement.SendCommand("QM");
  bench.Advance(60);

  EXPECT_FALSE(bench.Timer2.Enabled());
  EXPECT_TRUE(bench.measurement.Running());
}

TEST(MeasurementWatchdogBeforeTheFirstLine, IsNotArmedByTheFirstLineOfAnEarlierRun) {
  Bench bench;
  bench.Measure({"1"});
  bench.Start();

  bench.measurement.SendCommand("QM");

  EXPECT_FALSE(bench.Timer2.Enabled());
}

TEST_F(MeasurementWatchdog, IsArmedByWhatBeginsWithQm) {
  struct Case {
    const char* command;
    bool armed;
  };
  for (const Case& example : {Case{"QM", true},
                              {"QM 10", true},
                              {"QMX", true},
                              {"Q", false},
                              {"qm", false},
                              {" QM", false},
                              {"XQM", false},
                              {"STOP", false},
                              {"", false}}) {
    bench.measurement.SendCommand(example.command);
    EXPECT_EQ(bench.Timer2.Enabled(), example.armed) << "\"" << example.command << "\"";
    bench.Line("1");
  }
}

TEST_F(MeasurementWatchdog, IsArmedByARepeatRequest) {
  bench.Repeat("2", "QM");
  bench.measurement.RepeatChanged();

  bench.Advance(0.05);

  EXPECT_TRUE(bench.Timer2.Enabled());
}

TEST_F(MeasurementWatchdog, AnyLineDisarmsIt) {
  for (const char* line : {"12.3,25.0", "", "<AK>", "\x06", "rubbish"}) {
    bench.measurement.SendCommand("QM");
    ASSERT_TRUE(bench.Timer2.Enabled());

    bench.Line(line);

    EXPECT_FALSE(bench.Timer2.Enabled()) << line;
  }
  bench.Advance(60);
  EXPECT_TRUE(bench.measurement.Running());
}

TEST_F(MeasurementWatchdog, HalfALineDoesNotDisarmIt) {
  bench.measurement.SendCommand("QM");
  bench.Advance(4);

  bench.port.Feed("12.3");
  bench.Advance(1);

  EXPECT_TRUE(bench.Stopped());
}

TEST_F(MeasurementWatchdog, LineErrorsDoNotDisarmIt) {
  bench.measurement.SendCommand("QM");
  bench.Advance(4);

  bench.port.Raise(1009);
  bench.port.Raise(1008);
  bench.Advance(1);

  EXPECT_TRUE(bench.Stopped());
}

TEST_F(MeasurementWatchdog, FurtherRequestsDoNotRestartIt) {
  bench.Repeat("1", "QM");
  bench.measurement.RepeatChanged();

  bench.Advance(0.05 + 4.95);
  EXPECT_TRUE(bench.measurement.Running());

  bench.Advance(0.05);
  EXPECT_TRUE(bench.Stopped());
}

TEST_F(MeasurementWatchdog, AfterAnAnswerTheNextRequestHasItsWholeFiveSeconds) {
  bench.measurement.SendCommand("QM");
  bench.Advance(4);
  bench.Line("2");
  bench.Advance(2);

  bench.measurement.SendCommand("QM");
  bench.Advance(4.99);
  EXPECT_TRUE(bench.measurement.Running());

  bench.Advance(0.01);
  EXPECT_TRUE(bench.Stopped());
}

TEST_F(MeasurementWatchdog, AMeasurementThatIsAnsweredGoesOn) {
  bench.Repeat("1", "QM");
  bench.measurement.RepeatChanged();
  bench.TakeSent();

  for (int i = 0; i < 600; ++i) {
    bench.Advance(0.5);
    if (!bench.TakeSent().empty()) bench.Line("12.3,25.0");
  }

  EXPECT_TRUE(bench.measurement.Running());
  EXPECT_EQ(bench.document.Grid1().EntryRow() - 1, 1 + 301) << "the first line and an answer to each request";
}

// The interface was held up for more than the five seconds: line and timer wait for their turn together.
TEST(MeasurementWatchdogAfterAStall, AnAnswerThatIsThereAlreadyCounts) {
  Bench bench;
  bench.Repeat("60", "QM");
  bench.Start();
  bench.Line("1");
  bench.Advance(60);  // the request goes out
  bench.port.Arrive("2\r");
  bench.Advance(5.5);

  EXPECT_TRUE(bench.measurement.Running());
  EXPECT_EQ(bench.document.Grid1().Rows(), 4);
}

TEST(MeasurementWatchdogAfterAStall, HalfAnAnswerIsNone) {
  Bench bench;
  bench.Repeat("60", "QM");
  bench.Start();
  bench.Line("1");
  bench.Advance(60);
  bench.port.Arrive("2");
  bench.Advance(5.5);

  EXPECT_TRUE(bench.Stopped());
}

}  // namespace
}  // namespace quenlor::link
