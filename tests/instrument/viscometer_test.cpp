// SPDX-License-Identifier: MIT
#include "instrument/viscometer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/instrument/instrument_builder.h"

namespace quenlor::instrument {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

TEST(Viscometer, SaysNothingBeforeACommand) {
  auto viscometer = With("");

  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  EXPECT_EQ(viscometer.Emit(1000), "");
}

TEST(Viscometer, StreamsALineEachIntervalAfterAStartWord) {
  for (const char* word : {"QUENLOR\r", "START\r"}) {
    auto viscometer = With("--interval 0.5");

    viscometer.Receive(word, 10);

    EXPECT_EQ(viscometer.Emit(10.4), "");
    EXPECT_EQ(viscometer.Emit(10.5), "1,100.0,25.0\r\n");
    EXPECT_EQ(viscometer.Emit(11), "2,100.0,25.0\r\n");
  }
}

TEST(Viscometer, FirstPollEndsTheStreaming) {
  for (const char* poll : {"Q\r", "QM\r"}) {
    auto viscometer = With("");
    viscometer.Receive("QUENLOR\r", 0);
    EXPECT_EQ(viscometer.Emit(1), "1,100.0,25.0\r\n");

    viscometer.Receive(poll, 1.5);

    EXPECT_EQ(viscometer.Emit(1.5), "2,100.0,25.0\r\n");
    EXPECT_EQ(viscometer.NextDue(), std::nullopt);
    EXPECT_EQ(viscometer.Emit(100), "");
  }
}

TEST(Viscometer, EachPollBringsOneReading) {
  auto viscometer = With("");
  viscometer.Receive("QUENLOR\rQM\r", 0);
  EXPECT_EQ(viscometer.Emit(0), "1,100.0,25.0\r\n");

  viscometer.Receive("QM\rQ\r", 7);

  EXPECT_EQ(viscometer.Emit(7), "2,100.0,25.0\r\n3,100.0,25.0\r\n");
}

TEST(Viscometer, PollIsAnsweredWithoutAStartWord) {
  auto viscometer = With("");

  viscometer.Receive("QM\r", 5);
  EXPECT_EQ(viscometer.Emit(5), "1,100.0,25.0\r\n");
  EXPECT_EQ(viscometer.Emit(60), "");

  viscometer.Receive("QM\r", 60);
  EXPECT_EQ(viscometer.Emit(60), "2,100.0,25.0\r\n");
}

TEST(Viscometer, PollWithoutAStartWordBeginsTheCurves) {
  auto viscometer = With("--viscosity ramp:100:1");

  viscometer.Receive("QM\r", 50);
  viscometer.Receive("QM\r", 53);

  EXPECT_EQ(viscometer.Emit(53), "1,100.0,25.0\r\n2,103.0,25.0\r\n");
}

TEST(Viscometer, StopEndsTheStreaming) {
  auto viscometer = With("");
  viscometer.Receive("QUENLOR\r", 0);
  EXPECT_EQ(viscometer.Emit(1), "1,100.0,25.0\r\n");

  viscometer.Receive("STOP\r", 1.5);

  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  EXPECT_EQ(viscometer.Emit(100), "");
}

TEST(Viscometer, StartWordAfterStopBeginsAnewAtTimeZero) {
  auto viscometer = With("--viscosity ramp:100:1");
  viscometer.Receive("QUENLOR\r", 0);
  viscometer.Receive("STOP\r", 3);
  EXPECT_THAT(Lines(viscometer.Emit(3)), SizeIs(3));

  viscometer.Receive("START\r", 10);

  EXPECT_EQ(viscometer.Emit(11), "1,101.0,25.0\r\n");
}

TEST(Viscometer, StartWordWhileStreamingBeginsAnew) {
  auto viscometer = With("--viscosity ramp:100:1");
  viscometer.Receive("QUENLOR\r", 0);
  EXPECT_EQ(viscometer.Emit(1), "1,101.0,25.0\r\n");

  viscometer.Receive("QUENLOR\r", 1.5);

  EXPECT_EQ(viscometer.Emit(2.4), "");
  EXPECT_EQ(viscometer.Emit(2.5), "1,101.0,25.0\r\n");
}

TEST(Viscometer, StartWordAfterPollsStreamsAgain) {
  auto viscometer = With("");
  viscometer.Receive("QM\rQUENLOR\r", 0);

  EXPECT_EQ(viscometer.Emit(2), "1,100.0,25.0\r\n1,100.0,25.0\r\n2,100.0,25.0\r\n");
}

TEST(Viscometer, PollAfterStopMayBeginARunOfItsOwn) {
  auto viscometer = With("--after-stop answer --viscosity ramp:100:1");
  viscometer.Receive("QUENLOR\r", 0);
  viscometer.Receive("STOP\r", 0.5);

  viscometer.Receive("QM\r", 20);
  viscometer.Receive("QM\r", 21);

  EXPECT_EQ(viscometer.Emit(30), "1,100.0,25.0\r\n2,101.0,25.0\r\n");
}

TEST(Viscometer, PollAfterStopIsNotAnsweredBeforeAStartWord) {
  auto viscometer = With("");
  viscometer.Receive("QM\r", 0);
  EXPECT_EQ(viscometer.Emit(0), "1,100.0,25.0\r\n");

  viscometer.Receive("STOP\rQM\r", 1);
  EXPECT_EQ(viscometer.Emit(1), "");

  viscometer.Receive("START\rQM\r", 2);
  EXPECT_EQ(viscometer.Emit(2), "1,100.0,25.0\r\n");
}

TEST(Viscometer, CommandsMayComeInPieces) {
  auto viscometer = With("--after-stop answer");

  viscometer.Receive("QUE", 0);
  viscometer.Receive("", 0);
  viscometer.Receive("NLOR", 1);
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  viscometer.Receive("\r", 2);
  EXPECT_EQ(viscometer.NextDue(), 3);

  viscometer.Receive("ST", 2);
  viscometer.Receive("OP\rQ", 2);
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  viscometer.Receive("M\r", 2);
  EXPECT_EQ(viscometer.Emit(2), "1,100.0,25.0\r\n");
}

TEST(Viscometer, LineFeedsAreIgnored) {
  auto viscometer = With("");

  viscometer.Receive("QM\r\nQM\r\n\nQ\nM\r", 0);

  EXPECT_THAT(Lines(viscometer.Emit(0)), SizeIs(3));
}

TEST(Viscometer, OtherCommandsAreIgnored) {
  auto viscometer = With("");

  viscometer.Receive("qm\rQM \r QUENLOR\rQMQM\rHELLO\r\r\r", 0);
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);

  viscometer.Receive("START\rHELLO\r", 0);
  EXPECT_EQ(viscometer.Emit(1), "1,100.0,25.0\r\n");
}

TEST(Viscometer, CommandWithoutAnEndIsForgottenAtTheNextCarriageReturn) {
  auto viscometer = With("");
  for (int i = 0; i < 1000; ++i) viscometer.Receive(std::string(1000, 'Q'), 0);

  viscometer.Receive("QM\r", 0);
  EXPECT_EQ(viscometer.Emit(0), "");

  viscometer.Receive("QM\r", 0);
  EXPECT_EQ(viscometer.Emit(0), "1,100.0,25.0\r\n");
}

TEST(Viscometer, ReadingsStandOnAGridThatDoesNotDrift) {
  constexpr double kStart = 1234.567;
  auto viscometer = With("--interval 0.1");
  viscometer.Receive("QUENLOR\r", kStart);

  for (int n = 1; n <= 10000; ++n) {
    const auto due = viscometer.NextDue();
    ASSERT_EQ(due, kStart + n * 0.1);
    ASSERT_EQ(viscometer.Emit(*due), std::to_string(n) + ",100.0,25.0\r\n");
  }
}

TEST(Viscometer, LateHostCatchesUp) {
  auto viscometer = With("--viscosity ramp:100:1");
  viscometer.Receive("QUENLOR\r", 0);

  EXPECT_THAT(Lines(viscometer.Emit(3.9)), ElementsAre("1,101.0,25.0", "2,102.0,25.0", "3,103.0,25.0"));
  EXPECT_EQ(viscometer.NextDue(), 4);
}

TEST(Viscometer, CommandCountsAfterTheReadingsThatWereDueBefore) {
  auto viscometer = With("");
  viscometer.Receive("QUENLOR\r", 0);

  viscometer.Receive("STOP\r", 2.5);

  EXPECT_EQ(viscometer.NextDue(), 2.5);
  EXPECT_THAT(Lines(viscometer.Emit(2.5)), ElementsAre("1,100.0,25.0", "2,100.0,25.0"));
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
}

TEST(Viscometer, VeryLateHostIsServedInPortions) {
  auto viscometer = With("");
  viscometer.Receive("QUENLOR\r", 0);

  const std::string portion = viscometer.Emit(100000);
  EXPECT_LE(portion.size(), 65u * 1024);
  EXPECT_LT(viscometer.NextDue().value(), 100000);

  const auto lines = Lines(portion + EmitAll(viscometer, 100000));
  ASSERT_THAT(lines, SizeIs(100000));
  EXPECT_EQ(lines.back(), "100000,100.0,25.0");
  EXPECT_EQ(viscometer.NextDue(), 100001);
}

TEST(Viscometer, IntervalZeroSendsAsFastAsTheHostTakes) {
  auto viscometer = With("--interval 0 --viscosity ramp:100:1");
  viscometer.Receive("QUENLOR\r", 5);

  EXPECT_EQ(viscometer.NextDue(), 5);
  const std::string first = viscometer.Emit(5);
  const std::string second = viscometer.Emit(5);

  EXPECT_LE(first.size(), 5u * 1024);
  const auto lines = Lines(first + second);
  ASSERT_THAT(lines, SizeIs(testing::Gt(200u)));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto n = std::to_string(i + 1);
    ASSERT_EQ(lines[i], n + "," + std::to_string(100 + i + 1) + ".0,25.0");
  }
}

TEST(Viscometer, IntervalZeroStopsAtOnce) {
  auto viscometer = With("--interval 0");
  viscometer.Receive("QUENLOR\r", 0);
  EXPECT_NE(viscometer.Emit(0), "");

  viscometer.Receive("STOP\r", 1);

  EXPECT_EQ(viscometer.Emit(1), "");
}

TEST(Viscometer, StreamingEndsAtTheCount) {
  auto viscometer = With("--interval 0 --count 100000");
  viscometer.Receive("QUENLOR\r", 0);

  const auto lines = Lines(EmitAll(viscometer, 0));

  ASSERT_THAT(lines, SizeIs(100000));
  EXPECT_EQ(lines.back(), "100000,100.0,25.0");
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
}

TEST(Viscometer, PollsAreAnsweredBeyondTheCountAndAStartWordCountsAnew) {
  auto viscometer = With("--count 1");
  viscometer.Receive("QUENLOR\r", 0);
  EXPECT_EQ(viscometer.Emit(9), "1,100.0,25.0\r\n");

  viscometer.Receive("Q\r", 9);
  EXPECT_EQ(viscometer.Emit(9), "2,100.0,25.0\r\n");

  viscometer.Receive("START\r", 10);
  EXPECT_EQ(viscometer.Emit(19), "1,100.0,25.0\r\n");
}

TEST(Viscometer, SameSeedGivesTheSameLines) {
  const auto session = [](const char* seed) {
    auto viscometer = With("--viscosity-noise 5 --temperature-noise 1 --seed " + std::string(seed));
    viscometer.Receive("QUENLOR\r", 0);
    return viscometer.Emit(100);
  };

  EXPECT_EQ(session("42"), session("42"));
  EXPECT_NE(session("42"), session("43"));
}

TEST(Viscometer, NoiseStaysAroundTheCurve) {
  auto viscometer = With("--form bare --viscosity const:1000 --viscosity-noise 10");
  viscometer.Receive("QUENLOR\r", 0);

  const auto lines = Lines(EmitAll(viscometer, 10000));

  double sum = 0;
  double squares = 0;
  for (const auto& line : lines) {
    const double off = std::stod(line) - 1000;
    sum += off;
    squares += off * off;
  }
  ASSERT_THAT(lines, SizeIs(10000));
  EXPECT_NEAR(sum / 10000, 0, 0.5);
  EXPECT_NEAR(squares / 10000, 100, 10);
}

TEST(Viscometer, UnreadOutputIsBounded) {
  auto viscometer = With("");
  for (int i = 0; i < 20000; ++i) viscometer.Receive("QM\rQM\rQM\rQM\rQM\r", i);

  EXPECT_LT(EmitAll(viscometer, 30000).size(), 256u * 1024);
}

}  // namespace
}  // namespace quenlor::instrument
