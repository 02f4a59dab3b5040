// SPDX-License-Identifier: MIT
// Lines that are longer than can be kept, and more of them than usual.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/receiver.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string LineOf(std::size_t length) {
  return Repeated("0123456789abcdef", length / 16 + 1).substr(0, length);
}

TEST(ReceptionLongLines, ALineOf8192CharactersIsKeptWhole) {
  Receiver receiver;

  receiver.Feed(LineOf(8192) + "\r");

  EXPECT_THAT(receiver.received, ElementsAre(LineOf(8192)));
  EXPECT_THAT(receiver.errors, IsEmpty());
}

TEST(ReceptionLongLines, OfALongerLineTheFirst8192CharactersAreKept) {
  for (const std::size_t length : {8193u, 20'000u, 1'000'000u}) {
    Receiver receiver;

    receiver.Feed(LineOf(length) + "\r");

    EXPECT_THAT(receiver.received, ElementsAre(LineOf(8192))) << length;
    EXPECT_THAT(receiver.errors, ElementsAre("Input Buffer Overflowed")) << length;
    EXPECT_EQ(receiver.Readings(), 1) << length;
  }
}

TEST(ReceptionLongLines, ATooLongLineIsToldOnceHoweverItArrives) {
  Receiver receiver;
  const std::string piece = LineOf(1000);

  for (int i = 0; i < 1000; ++i) receiver.Feed(piece);
  receiver.port.Raise(1009);
  receiver.Feed(piece + "\x06\r");

  EXPECT_THAT(receiver.errors, ElementsAre("Input Buffer Overflowed", "Communication Error 1009"));
  EXPECT_THAT(receiver.received, SizeIs(1));
  EXPECT_THAT(receiver.received.front(), SizeIs(8192));
}

TEST(ReceptionLongLines, AnEndlessLineIsToldBeforeItsEnd) {
  Receiver receiver;

  receiver.Feed(LineOf(8193));

  EXPECT_THAT(receiver.errors, ElementsAre("Input Buffer Overflowed"));
  EXPECT_EQ(receiver.Readings(), 0);
}

TEST(ReceptionLongLines, TheLineAfterATooLongOneIsFineAgain) {
  Receiver receiver;

  receiver.Feed(LineOf(9000) + "\r12.3,25.0\r");

  EXPECT_THAT(receiver.received, ElementsAre(LineOf(8192), "12.3,25.0"));
  EXPECT_THAT(receiver.errors, SizeIs(1));
}

TEST(ReceptionLongLines, EveryTooLongLineIsTold) {
  Receiver receiver;

  for (int i = 0; i < 3; ++i) receiver.Feed(LineOf(9000) + "\r");

  EXPECT_THAT(receiver.errors, SizeIs(3));
}

TEST(ReceptionLongLines, AForgottenTooLongLineDoesNotSilenceTheNext) {
  Receiver receiver;
  receiver.Feed(LineOf(9000));

  receiver.reception.Begin();
  receiver.Feed(LineOf(9000) + "\r");

  EXPECT_THAT(receiver.errors, SizeIs(2));
}

TEST(ReceptionLongLines, LineFeedsDoNotCountForTheLengthOfALine) {
  Receiver receiver;

  receiver.Feed(LineOf(8192) + Repeated("\n", 100) + "\r");

  EXPECT_THAT(receiver.errors, IsEmpty());
  EXPECT_THAT(receiver.received, ElementsAre(LineOf(8192)));
}

TEST(ReceptionLongLines, TheLimitMayCutAnAcknowledge) {
  Receiver receiver;

  receiver.Feed(LineOf(8190) + "\x06\r5\r");

  EXPECT_THAT(receiver.received, ElementsAre(LineOf(8190) + "<A", "5"));
  EXPECT_THAT(receiver.errors, SizeIs(1));
}

TEST(ReceptionLongLines, AnAcknowledgeThatJustFitsIsKept) {
  Receiver receiver;

  receiver.Feed(LineOf(8188) + "\x06\r");

  EXPECT_THAT(receiver.received, ElementsAre(LineOf(8188) + "<AK>"));
  EXPECT_THAT(receiver.errors, IsEmpty());
}

TEST(ReceptionLongLines, TheLimitMayCutACharacterOfSeveralBytes) {
  Receiver receiver;

  receiver.Feed(LineOf(8191) + "\xE7\xB2\x98\r5\r");

  ASSERT_THAT(receiver.received, SizeIs(2));
  EXPECT_TRUE(receiver.received[0].starts_with(LineOf(8191)));
  EXPECT_TRUE(data::IsUtf8(receiver.received[0]));
  EXPECT_EQ(receiver.received[1], "5");
  EXPECT_THAT(receiver.errors, SizeIs(1));
}

TEST(ReceptionLongLines, FourThousandSeparatorsAddAsManyColumns) {
  Receiver receiver;

  receiver.Feed(Repeated(",", 4000) + "\r7\r");

  EXPECT_EQ(receiver.Table().Cols(), 2 + 4001);
  EXPECT_EQ(receiver.Table().TextMatrix(0, 4002), "Data4001");
  EXPECT_EQ(receiver.Table().TextMatrix(2, 2), "7");
}

TEST(ReceptionLongLines, OfAHundredThousandLinesInOneBurstNoneIsLostOrDoubled) {
  constexpr int kLines = 100'000;
  Receiver receiver;
  std::string burst;
  for (int i = 0; i < kLines; ++i) burst += std::to_string(i) + ",25.0\r\n";

  receiver.Feed(burst);

  ASSERT_EQ(receiver.Readings(), kLines);
  for (int i = 0; i < kLines; ++i) ASSERT_EQ(receiver.Table().TextMatrix(i + 1, 2), std::to_string(i));
  EXPECT_THAT(receiver.errors, IsEmpty());
}

}  // namespace
}  // namespace quenlor::link
