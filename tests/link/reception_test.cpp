// SPDX-License-Identifier: MIT
#include "link/reception.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/receiver.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using namespace std::string_literals;

// Events of the line.

TEST(Reception, ACarriageReturnMakesTheLineAReading) {
  Receiver receiver;

  receiver.Feed("12.3, 25.0\r");

  EXPECT_THAT(TableLines(receiver.Table()), ElementsAre("No.|Time|Data1|Data2", "1|00.0|12.3| 25.0"));
  EXPECT_THAT(receiver.received, ElementsAre("12.3, 25.0"));
  EXPECT_THAT(receiver.errors, IsEmpty());
}

TEST(Reception, WithoutItsCarriageReturnALineIsNoReading) {
  Receiver receiver;

  receiver.Feed("12.3, 25.0\n");

  EXPECT_EQ(receiver.Readings(), 0);
  EXPECT_THAT(receiver.received, IsEmpty());
  EXPECT_EQ(receiver.answers, 0);
}

TEST(Reception, LineErrorsAreToldWithTheirNumber) {
  for (const int event : {1001, 1004, 1006, 1009, 1010, 1011}) {
    Receiver receiver;

    receiver.port.Raise(event);

    EXPECT_THAT(receiver.errors, ElementsAre("Communication Error " + std::to_string(event)));
    EXPECT_EQ(receiver.Readings(), 0);
  }
}

TEST(Reception, AnyOtherEventFrom11OnIsToldAsAnError) {
  for (const int event : {11, 12, 1000, 1013, 32767}) {
    Receiver receiver;

    receiver.port.Raise(event);

    EXPECT_THAT(receiver.errors, ElementsAre("Communication Error " + std::to_string(event)));
  }
}

TEST(Reception, NotificationsNeedNoAnswer) {
  Receiver receiver;
  receiver.Feed("12");

  for (const int event : {1, 3, 4, 5, 6, 7, 8, 9, 10}) receiver.port.Raise(event);

  EXPECT_THAT(receiver.errors, IsEmpty());
  receiver.Feed("3\r");
  EXPECT_THAT(receiver.received, ElementsAre("123"));
}

TEST(Reception, EveryErrorIsTold) {
  Receiver receiver;

  for (int i = 0; i < 3; ++i) receiver.port.Raise(1009);

  EXPECT_THAT(receiver.errors, SizeIs(3));
}

TEST(Reception, AnOverflowDiscardsWhatWasNotReadYet) {
  Receiver receiver;
  receiver.on_line = [&] {
    receiver.on_line = {};
    receiver.Feed("unread\r");
    receiver.port.Raise(1008);
  };

  receiver.Feed("first\r");

  EXPECT_THAT(receiver.errors, ElementsAre("Input Buffer Overflowed"));
  EXPECT_THAT(receiver.received, ElementsAre("first"));
}

TEST(Reception, TheBegunLineOutlivesErrors) {
  Receiver receiver;
  receiver.Feed("12");

  for (const int event : {1001, 1004, 1006, 1008, 1009, 1010, 1011}) receiver.port.Raise(event);
  receiver.Feed("3\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("123"));
  EXPECT_THAT(receiver.errors, SizeIs(7));
}

TEST(Reception, ReceptionGoesOnAfterAnOverflow) {
  Receiver receiver;

  receiver.port.Raise(1008);
  receiver.Feed("5\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("5"));
}

// Characters.

TEST(Reception, LineFeedsMakeNoDifference) {
  for (const char* bytes : {"12.3\r\n", "\n12.3\r", "12.3\n\r", "1\n2.3\r\n\n", "\n\n12.3\n\r\n"}) {
    Receiver receiver;

    receiver.Feed(bytes);

    EXPECT_EQ(receiver.Readings(), 1) << bytes;
    EXPECT_THAT(receiver.received, ElementsAre("12.3")) << bytes;
  }
}

TEST(Reception, TwoCarriageReturnsInARowMakeAReadingWithEmptyFields) {
  Receiver receiver;

  receiver.Feed("5\r\r6\r");

  EXPECT_THAT(TableLines(receiver.Table()), ElementsAre("No.|Time|Data1", "1|00.0|5", "1|00.0|", "1|00.0|6"));
}

TEST(Reception, AnAcknowledgeIsShownAsFourCharacters) {
  Receiver receiver;

  receiver.Feed("\x06\r");

  EXPECT_THAT(receiver.received, ElementsAre("<AK>"));
  EXPECT_THAT(receiver.Newest(), ElementsAre("<AK>"));
}

TEST(Reception, AnAcknowledgeAloneIsNoNumber) {
  Receiver receiver;
  receiver.Number();

  receiver.Feed("\x06\r");

  EXPECT_THAT(receiver.received, ElementsAre("<AK>"));
  EXPECT_THAT(TableLines(receiver.Table()), ElementsAre("No.|Time", "1|00.0"));
}

TEST(Reception, AcknowledgesStandWhereTheyCame) {
  Receiver receiver;

  receiver.Feed(
      "\x06"
      "1\x06\x06"
      "2\r");

  EXPECT_THAT(receiver.received, ElementsAre("<AK>1<AK><AK>2"));
}

TEST(Reception, ALineMayComeInManyPieces) {
  Receiver receiver;

  for (const char c : "12.3,25.0\r\n12.4,25.1\r\n"s) receiver.Feed(std::string(1, c));

  EXPECT_THAT(receiver.received, ElementsAre("12.3,25.0", "12.4,25.1"));
}

TEST(Reception, APieceMayHoldTheEndOfOneLineAndTheBeginOfTheNext) {
  Receiver receiver;

  receiver.Feed("1");
  receiver.Feed("2\r3");
  receiver.Feed("4\r");

  EXPECT_THAT(receiver.received, ElementsAre("12", "34"));
}

TEST(Reception, Utf8StaysAsItIs) {
  Receiver receiver;

  receiver.Feed(
      "25.1 \xC2\xB0"
      "C,\xE7\xB2\x98\xE5\xBA\xA6\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("25.1",
                                             "\xC2\xB0"
                                             "C",
                                             "\xE7\xB2\x98\xE5\xBA\xA6"));
}

TEST(Reception, ACharacterOfSeveralBytesMayComeInPieces) {
  Receiver receiver;

  for (const char* byte : {"\xE7", "\xB2", "\x98", "\r"}) receiver.Feed(byte);

  EXPECT_THAT(receiver.received, ElementsAre("\xE7\xB2\x98"));
}

TEST(Reception, OtherBytesAbove127AreLatin1) {
  Receiver receiver;

  receiver.Feed(
      "\xB0"
      "C\xFF\xFE\r");

  EXPECT_THAT(receiver.received, ElementsAre("\xC2\xB0"
                                             "C\xC3\xBF\xC3\xBE"));
  EXPECT_THAT(receiver.Newest(), ElementsAre("\xC2\xB0"
                                             "C\xC3\xBF\xC3\xBE"));
}

TEST(Reception, NulsBelongToTheLine) {
  Receiver receiver;

  receiver.Feed("1\0,2\0\r"s);

  EXPECT_THAT(receiver.received, ElementsAre("1\0,2\0"s));
  EXPECT_THAT(receiver.Newest(), ElementsAre("1\0"s, "2\0"s));
}

TEST(Reception, EveryByteAloneOnItsLineMakesOneReading) {
  Receiver receiver;
  int expected = 0;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte == '\r') continue;
    receiver.Feed(std::string(1, static_cast<char>(byte)) + "\r");
    ++expected;
  }

  EXPECT_EQ(receiver.Readings(), expected);
  EXPECT_THAT(receiver.errors, IsEmpty());
}

TEST(Reception, ALineIsProcessedWhollyBeforeTheNextCharacterIsTaken) {
  Receiver receiver;
  receiver.on_line = [&] {
    receiver.on_line = {};
    receiver.Feed("3\r");
    EXPECT_EQ(receiver.Readings(), 0) << "the handler entered itself";
  };

  receiver.Feed("1\r2\r");

  EXPECT_THAT(receiver.received, ElementsAre("1", "2", "3"));
  EXPECT_THAT(Column(receiver.Table(), 2), ElementsAre("1", "2", "3"));
}

TEST(Reception, ANewMeasurementForgetsTheBegunLine) {
  Receiver receiver;
  receiver.Feed("half a li");

  receiver.reception.Begin();
  receiver.Feed("5\r");

  EXPECT_THAT(receiver.received, ElementsAre("5"));
}

TEST(Reception, EveryLineIsAnAnswerOfTheInstrument) {
  Receiver receiver;

  receiver.Feed("1\r\r<AK>\r");

  EXPECT_EQ(receiver.answers, 3);
}

}  // namespace
}  // namespace quenlor::link
