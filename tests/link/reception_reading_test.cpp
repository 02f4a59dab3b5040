// SPDX-License-Identifier: MIT
// What a received line becomes: its run, its time, its fields.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/receiver.h"

namespace quenlor::link {
namespace {

using platform::memory::MomentAt;
using testing::ElementsAre;
using testing::IsEmpty;

Texts RunCells(const Receiver& receiver, int run) {
  Texts cells;
  for (int col = 0; col < 5; ++col) cells.emplace_back(receiver.document.Grid4().TextMatrix(run, col));
  return cells;
}

// Runs.

TEST(ReceptionReading, TheFirstLineBeginsTheRun) {
  Receiver receiver;
  EXPECT_EQ(receiver.document.RunCount(), 0);

  receiver.Feed("1\r");

  EXPECT_EQ(receiver.document.RunCount(), 1);
  EXPECT_EQ(receiver.document.StartTime(), receiver.clock.Now().seconds);
  EXPECT_EQ(receiver.document.Grid4().Rows(), 2);
}

TEST(ReceptionReading, FurtherLinesBelongToTheSameRun) {
  Receiver receiver;

  receiver.Feed("1\r2\r3\r");

  EXPECT_THAT(Column(receiver.Table(), 0), ElementsAre("1", "1", "1"));
  EXPECT_EQ(receiver.document.RunCount(), 1);
}

TEST(ReceptionReading, ASecondRunMakesTheDocumentOneOfSeveral) {
  Receiver receiver;
  receiver.Feed("1\r");
  EXPECT_FALSE(receiver.document.MultiRun());

  receiver.document.BeginMeasurement();
  receiver.Feed("2\r");

  EXPECT_TRUE(receiver.document.MultiRun());
  EXPECT_THAT(Column(receiver.Table(), 0), ElementsAre("1", "2"));
}

TEST(ReceptionReading, TheRunTableShowsTheNewestLineOfTheRun) {
  Receiver receiver;

  receiver.Feed("1\r");
  EXPECT_THAT(RunCells(receiver, 1), ElementsAre("No.1", "No.1", "00.0", "2024/03/15", "12:00:00"));

  receiver.clock.Advance(7.5);
  receiver.Feed("2\r");
  EXPECT_THAT(RunCells(receiver, 1), ElementsAre("No.1", "No.1", "07.5", "2024/03/15", "12:00:07"));
}

TEST(ReceptionReading, TheRunTableKeepsARunThatIsOver) {
  Receiver receiver;
  receiver.Feed("1\r");
  receiver.clock.Advance(60.0);

  receiver.document.BeginMeasurement();
  receiver.Feed("2\r");

  EXPECT_THAT(RunCells(receiver, 1), ElementsAre("No.1", "No.1", "00.0", "2024/03/15", "12:00:00"));
  EXPECT_THAT(RunCells(receiver, 2), ElementsAre("No.2", "No.2", "00.0", "2024/03/15", "12:01:00"));
}

TEST(ReceptionReading, WithoutARunNumberLeftNothingIsTaken) {
  Receiver receiver;
  receiver.document.Load(data::ParseDataFile("No.,Time\r\n32767,00.0\r\n"), "full.csv", "then");

  receiver.Feed("1\r2\r");

  EXPECT_TRUE(receiver.runs_used_up);
  EXPECT_THAT(receiver.received, ElementsAre("1")) << "the rest of the burst is dropped";
  EXPECT_EQ(receiver.Readings(), 1);
  EXPECT_EQ(receiver.document.RunCount(), 32767);
  EXPECT_EQ(receiver.document.Date(), "then");
  EXPECT_FALSE(receiver.document.DataChanged());
}

TEST(ReceptionReading, ALineIsUnsavedData) {
  Receiver receiver;
  EXPECT_FALSE(receiver.document.DataChanged());

  receiver.Feed("\r");

  EXPECT_TRUE(receiver.document.DataChanged());
}

// Times.

TEST(ReceptionReading, ElapsedTimeCountsFromTheFirstLine) {
  Receiver receiver;
  receiver.clock.Advance(30.0);
  receiver.Feed("1\r");
  receiver.clock.Advance(7.46);
  receiver.Feed("2\r");
  receiver.clock.Advance(100.0);
  receiver.Feed("3\r");

  EXPECT_THAT(Column(receiver.Table(), 1), ElementsAre("00.0", "07.5", "107.5"));
}

TEST(ReceptionReading, TheTimeIsThatOfTheCarriageReturn) {
  Receiver receiver;
  receiver.Feed("1\r");

  receiver.Feed("2");
  receiver.clock.Advance(3.0);
  receiver.Feed("\r");

  EXPECT_THAT(Column(receiver.Table(), 1), ElementsAre("00.0", "03.0"));
}

TEST(ReceptionReading, LinesOfOneBurstHaveTheSameTime) {
  Receiver receiver;
  receiver.Feed("1\r");
  receiver.clock.Advance(2.0);

  receiver.Feed("2\r3\r");

  EXPECT_THAT(Column(receiver.Table(), 1), ElementsAre("00.0", "02.0", "02.0"));
}

TEST(ReceptionReading, MinuteAndHourScalesShowHoursMinutesAndSeconds) {
  for (const int scale : {1, 2}) {
    Receiver receiver;
    receiver.settings.Set(setting::kTimeS, scale);
    receiver.Feed("1\r");
    receiver.clock.Advance(3725.0);
    receiver.Feed("2\r");

    EXPECT_THAT(Column(receiver.Table(), 1), ElementsAre("00:00:00", "01:02:05")) << scale;
    EXPECT_EQ(receiver.document.Grid4().TextMatrix(1, 2), "01:02:05") << scale;
  }
}

TEST(ReceptionReading, ARunKeepsCountingPastMidnight) {
  Receiver receiver;
  receiver.clock.SetNow(MomentAt(2024, 12, 31, 23, 59, 59.5));
  receiver.Feed("1\r");

  receiver.clock.Advance(1.0);
  receiver.Feed("2\r");
  receiver.clock.Advance(86400.0);
  receiver.Feed("3\r");

  EXPECT_THAT(Column(receiver.Table(), 1), ElementsAre("00.0", "01.0", "86401.0"));
  EXPECT_THAT(RunCells(receiver, 1), ElementsAre("No.1", "No.1", "86401.0", "2025/01/02", "00:00:00"));
}

TEST(ReceptionReading, TheDateCaptionShowsTheLastLine) {
  Receiver receiver;
  receiver.Feed("1\r");
  EXPECT_EQ(receiver.document.Date(), "2024/03/15 12:00:00");

  receiver.clock.Advance(61.0);
  receiver.Feed("\r");

  EXPECT_EQ(receiver.document.Date(), "2024/03/15 12:01:01");
}

// Fields.

TEST(ReceptionReading, TheOptionsCountForEachLine) {
  Receiver receiver;

  receiver.Feed("V=1,5\r");
  receiver.Number();
  receiver.Feed("V=1,5\r");
  receiver.DecimalComma();
  receiver.Feed("V=1,5\r");
  receiver.Feed("V=1.5\r");
  receiver.Number(false);
  receiver.Feed("V=1.5\r");

  EXPECT_THAT(TableLines(receiver.Table()), ElementsAre("No.|Time|Data1|Data2", "1|00.0|V=1|5", "1|00.0|1|5",
                                                        "1|00.0|1,5|", "1|00.0|1,5|", "1|00.0|V=1.5|"));
}

TEST(ReceptionReading, TheOptionsCountAtTheCarriageReturn) {
  Receiver receiver;
  receiver.Feed("V=1");

  receiver.Number();
  receiver.Feed("2\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("12"));
}

TEST(ReceptionReading, ALonePointOfAUnitIsAField) {
  Receiver receiver;
  receiver.Number();

  receiver.Feed("V= 1234 mPa.s T= 25.1C\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("1234", ".", "25.1", ""));
}

TEST(ReceptionReading, MoreFieldsThanColumnsAddColumns) {
  Receiver receiver;
  receiver.document.Load(data::ParseDataFile(data::NewTemplate(true, 6)), "New.csv", "");

  receiver.Feed("1,2,3,4,5,6\r");

  EXPECT_THAT(TableLines(receiver.Table()),
              ElementsAre("No.|Time|Viscosity|Unit1|Temp|Unit2|Data5|Data6", "1|00.0|1|2|3|4|5|6"));
}

TEST(ReceptionReading, FewerFieldsLeaveTheOtherColumnsEmpty) {
  Receiver receiver;
  receiver.Feed("1,2,3\r");

  receiver.Feed("4\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("4", "", ""));
}

TEST(ReceptionReading, ADividerAtTheEndOfTheLineAddsItsColumn) {
  Receiver receiver;

  receiver.Feed("1,2,\r");

  EXPECT_THAT(receiver.Newest(), ElementsAre("1", "2", ""));
}

TEST(ReceptionReading, WithoutAFieldTheReadingStandsAllTheSame) {
  Receiver receiver;
  receiver.Feed("5\r");
  receiver.Number();

  receiver.Feed("mPa s\r");

  EXPECT_THAT(TableLines(receiver.Table()), ElementsAre("No.|Time|Data1", "1|00.0|5", "1|00.0|"));
}

TEST(ReceptionReading, TheReceivedDataBoxShowsTheWholeLine) {
  Receiver receiver;
  receiver.Number();

  receiver.Feed(" V= 12; mPa \n\x06\r");

  EXPECT_THAT(receiver.received, ElementsAre(" V= 12; mPa <AK>"));
}

}  // namespace
}  // namespace quenlor::link
