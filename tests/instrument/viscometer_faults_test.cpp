// SPDX-License-Identifier: MIT
#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "instrument/viscometer.h"
#include "tests/instrument/instrument_builder.h"

namespace quenlor::instrument {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::string Stream(std::string_view options, double seconds) {
  auto viscometer = With(options);
  viscometer.Receive("QUENLOR\r", 0);
  return EmitAll(viscometer, seconds);
}

bool IsGarbage(std::string_view text) {
  return text.find('\0') != std::string_view::npos && text.find('\r') == std::string_view::npos &&
         std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 127; });
}

TEST(ViscometerFaults, LateAnswerLeavesAfterTheDelayWithTheValueOfItsPoll) {
  auto viscometer = With("--fault late:6 --viscosity ramp:100:1");
  viscometer.Receive("QM\r", 0);
  viscometer.Receive("QM\r", 2);

  EXPECT_EQ(viscometer.NextDue(), 6);
  EXPECT_EQ(viscometer.Emit(5.9), "");
  EXPECT_EQ(viscometer.Emit(6), "1,100.0,25.0\r\n");
  EXPECT_EQ(viscometer.NextDue(), 8);
  EXPECT_EQ(viscometer.Emit(8), "2,102.0,25.0\r\n");
}

TEST(ViscometerFaults, LateStreamIsTheStreamShifted) {
  auto viscometer = With("--fault late:6 --viscosity ramp:100:1");
  viscometer.Receive("QUENLOR\r", 0);

  EXPECT_EQ(viscometer.NextDue(), 7);
  EXPECT_EQ(viscometer.Emit(8), "1,101.0,25.0\r\n2,102.0,25.0\r\n");
}

TEST(ViscometerFaults, LateAnswerIsDroppedByStop) {
  auto viscometer = With("--fault late:6");
  viscometer.Receive("QM\r", 0);

  viscometer.Receive("STOP\r", 1);

  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  EXPECT_EQ(viscometer.Emit(10), "");
}

TEST(ViscometerFaults, EveryNthReadingIsMissing) {
  EXPECT_THAT(Lines(Stream("--fault missing:3", 7)),
              ElementsAre("1,100.0,25.0", "2,100.0,25.0", "4,100.0,25.0", "5,100.0,25.0", "7,100.0,25.0"));
}

TEST(ViscometerFaults, MissingAnswerLeavesThePollUnanswered) {
  auto viscometer = With("--fault missing:2");

  viscometer.Receive("QM\rQM\r", 0);

  EXPECT_EQ(viscometer.Emit(100), "1,100.0,25.0\r\n");
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
}

TEST(ViscometerFaults, AllMissingAtFullSpeedStillReturnsToTheHost) {
  auto viscometer = With("--fault missing:1 --interval 0");
  viscometer.Receive("QUENLOR\r", 0);

  EXPECT_EQ(viscometer.Emit(0), "");
}

TEST(ViscometerFaults, FaultsDoNotChangeTheOtherReadings) {
  const auto sound = Lines(Stream("--viscosity-noise 5 --temperature-noise 1", 6));

  EXPECT_THAT(Lines(Stream("--viscosity-noise 5 --temperature-noise 1 --fault missing:2", 6)),
              ElementsAre(sound[0], sound[2], sound[4]));
  const auto spoilt = Lines(Stream("--viscosity-noise 5 --temperature-noise 1 --fault garbage:2", 3));
  EXPECT_THAT(spoilt, ElementsAre(sound[0], testing::Truly(IsGarbage), sound[2]));
}

TEST(ViscometerFaults, EveryNthLineIsGarbageOfOneLine) {
  const std::string bytes = Stream("--fault garbage:1", 1000);

  std::size_t lines = 0;
  for (std::string_view rest = bytes; !rest.empty(); ++lines) {
    const auto end = rest.find('\r');
    ASSERT_NE(end, std::string_view::npos);
    ASSERT_TRUE(IsGarbage(rest.substr(0, end))) << "line " << lines + 1;
    ASSERT_EQ(rest.substr(end, 2), "\r\n");
    rest.remove_prefix(end + 2);
  }
  EXPECT_EQ(lines, 1000u);
}

TEST(ViscometerFaults, EveryNthLineBreaksOffAndTheNextFollowsDirectly) {
  EXPECT_EQ(Stream("--fault half:2", 3), "1,100.0,25.0\r\n2,100.3,100.0,25.0\r\n");
}

TEST(ViscometerFaults, EndlessLineHasNoEndFromTheNthReadingOn) {
  const std::string bytes = Stream("--fault endless:3 --fault ack:line", 1000);

  EXPECT_TRUE(
      bytes.starts_with("\x06\r\n1,100.0,25.0\r\n\x06\r\n2,100.0,25.0\r\n\x06"
                        "3,100.0,25.0\x06"
                        "4,100.0,25.0"));
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\r'), 4);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 4);
  EXPECT_TRUE(bytes.ends_with("1000,100.0,25.0"));
}

TEST(ViscometerFaults, AckByteComesBeforeEachAnswer) {
  auto viscometer = With("--fault ack:before");

  viscometer.Receive("QM\rQM\r", 0);

  EXPECT_EQ(viscometer.Emit(0),
            "\x06"
            "1,100.0,25.0\r\n\x06"
            "2,100.0,25.0\r\n");
}

TEST(ViscometerFaults, AckLineComesBeforeEachAnswer) {
  auto viscometer = With("--fault ack:line");

  viscometer.Receive("QM\r", 0);

  EXPECT_EQ(viscometer.Emit(0), "\x06\r\n1,100.0,25.0\r\n");
}

TEST(ViscometerFaults, BurstSendsSeveralReadingsEachInterval) {
  auto viscometer = With("--fault burst:3 --interval 2");
  viscometer.Receive("QUENLOR\r", 0);

  EXPECT_EQ(viscometer.Emit(1.9), "");
  EXPECT_THAT(Lines(viscometer.Emit(2)), ElementsAre("1,100.0,25.0", "2,100.0,25.0", "3,100.0,25.0"));
  EXPECT_EQ(viscometer.NextDue(), 4);
  EXPECT_THAT(Lines(viscometer.Emit(4)), SizeIs(3));
}

TEST(ViscometerFaults, BurstStillAnswersAPollWithOneReading) {
  auto viscometer = With("--fault burst:3");

  viscometer.Receive("QM\r", 0);

  EXPECT_EQ(viscometer.Emit(10), "1,100.0,25.0\r\n");
}

TEST(ViscometerFaults, SilenceFallsAfterTheNthReadingAndLastsForTheRun) {
  auto viscometer = With("--fault silence:2 --fault babble:unknown");
  viscometer.Receive("QUENLOR\r", 0);
  EXPECT_EQ(viscometer.Emit(10), "1,100.0,25.0\r\n2,100.0,25.0\r\n");
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);

  viscometer.Receive("QM\rHELLO\r", 10);
  EXPECT_EQ(viscometer.Emit(20), "");

  viscometer.Receive("QUENLOR\r", 20);
  EXPECT_EQ(viscometer.Emit(21), "1,100.0,25.0\r\n");
}

TEST(ViscometerFaults, SilenceFromTheBeginningNeverSaysAWord) {
  auto viscometer = With("--fault silence:0");

  viscometer.Receive("QM\rQUENLOR\rQM\r", 0);

  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  EXPECT_EQ(viscometer.Emit(100), "");
}

TEST(ViscometerFaults, HangsUpAfterTheNthReadingForGood) {
  auto viscometer = With("--fault hangup:2");
  viscometer.Receive("QUENLOR\r", 0);
  EXPECT_EQ(viscometer.Emit(1), "1,100.0,25.0\r\n");
  EXPECT_FALSE(viscometer.HungUp());

  EXPECT_EQ(viscometer.Emit(5), "2,100.0,25.0\r\n");
  EXPECT_TRUE(viscometer.HungUp());

  viscometer.Receive("QUENLOR\rQM\r", 6);
  EXPECT_EQ(viscometer.NextDue(), std::nullopt);
  EXPECT_EQ(viscometer.Emit(10), "");
  EXPECT_TRUE(viscometer.HungUp());
}

TEST(ViscometerFaults, HangUpWaitsUntilTheLastReadingIsTaken) {
  auto viscometer = With("--fault hangup:1");
  viscometer.Receive("QUENLOR\r", 0);

  viscometer.Receive("STOP\r", 1);
  EXPECT_FALSE(viscometer.HungUp());

  EXPECT_EQ(viscometer.Emit(1), "1,100.0,25.0\r\n");
  EXPECT_TRUE(viscometer.HungUp());
}

TEST(ViscometerFaults, UnknownCommandIsAnsweredWithGarbageOnDemand) {
  auto viscometer = With("--fault babble:unknown");

  viscometer.Receive("HELLO\r\r\nSTOP\r", 0);

  const auto lines = Lines(viscometer.Emit(0));
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_TRUE(IsGarbage(lines[0]));
}

TEST(ViscometerFaults, FaultsCombine) {
  EXPECT_EQ(Stream("--fault missing:2 --fault ack:before --fault hangup:3", 9),
            "\x06"
            "1,100.0,25.0\r\n\x06"
            "3,100.0,25.0\r\n");
}

}  // namespace
}  // namespace quenlor::instrument
