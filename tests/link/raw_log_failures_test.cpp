// SPDX-License-Identifier: MIT
// Readings that the disk refuses while they are measured.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

// A measurement whose disk is full after its first reading.
class RawLogFailures : public testing::Test {
 protected:
  RawLogFailures() {
    bench.Start();
    bench.Line("1");
    bench.files.FailAfter(0);
  }

  // The first data column of what is on the disk.
  Texts OnDisk() const { return Column(data::ParseDataFile(bench.RawLogText()).table, 2); }
  Texts InTable() const { return Column(bench.document.Grid1(), 2); }

  Bench bench;
};

TEST_F(RawLogFailures, AReadingThatCannotBeWrittenStaysInTheTable) {
  bench.Line("2");
  bench.Line("3");

  EXPECT_THAT(InTable(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(OnDisk(), ElementsAre("1"));
  EXPECT_TRUE(bench.measurement.Running());
}

TEST_F(RawLogFailures, TheBeginIsToldOnceWithItsReason) {
  for (int i = 0; i < 10; ++i) {
    bench.Line("2");
    bench.Advance(1);
  }

  EXPECT_THAT(bench.told,
              ElementsAre("Raw Log Not Written: cannot append to /lab/Com_1.txt: No space left on device"));
}

TEST_F(RawLogFailures, AFailedReadingLeavesNoHalfLine) {
  bench.files.FailAfter(4);

  bench.Line("2");

  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00.0,1,,,\r\n");
}

TEST_F(RawLogFailures, TheMissingLinesFollowInOrderAndOnce) {
  bench.Line("2");
  bench.Line("3");
  bench.files.MakeRoom();
  bench.Advance(1);

  bench.Line("4");
  bench.Line("5");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_EQ(TableLines(data::ParseDataFile(bench.RawLogText()).table), TableLines(bench.document.Grid1()));
}

TEST_F(RawLogFailures, TheEndIsToldOnce) {
  bench.Line("2");
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("3");
  bench.Line("4");
  bench.measurement.Stop();

  EXPECT_THAT(bench.told, ElementsAre(StartsWith("Raw Log Not Written: "), "Raw Log Written Again"));
}

TEST_F(RawLogFailures, ASecondFailureIsToldAgain) {
  for (int i = 0; i < 2; ++i) {
    bench.files.FailAfter(0);
    bench.Line("2");
    bench.files.MakeRoom();
    bench.Advance(1);
    bench.Line("3");
  }

  EXPECT_THAT(bench.told, ElementsAre(StartsWith("Raw Log Not"), "Raw Log Written Again",
                                      StartsWith("Raw Log Not"), "Raw Log Written Again"));
  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3", "2", "3"));
}

TEST_F(RawLogFailures, TheDiskIsAskedAgainAtMostOnceASecond) {
  const int before = bench.files.Calls().appends;
  for (int i = 0; i < 100; ++i) {
    bench.Line("2");
    bench.Advance(0.125);
  }

  EXPECT_EQ(bench.files.Calls().appends - before, 13) << "at 0, 1, 2 … 12 s";
}

TEST_F(RawLogFailures, LinesWithinTheSecondAreWrittenWithTheNextTry) {
  bench.Line("2");
  bench.files.MakeRoom();

  bench.Advance(0.9);
  bench.Line("3");
  EXPECT_THAT(OnDisk(), ElementsAre("1"));

  bench.Advance(0.1);
  bench.Line("4");
  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3", "4"));
}

TEST_F(RawLogFailures, AClockThatIsSetBackDoesNotStopTheTries) {
  bench.Line("2");
  bench.files.MakeRoom();
  bench.clock.SetNow(platform::memory::MomentAt(2024, 3, 15, 9));

  bench.Line("3");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3"));
}

TEST_F(RawLogFailures, AnAttemptThatFailsOnTheWayLosesNothing) {
  bench.Line("2");
  bench.Advance(1);
  bench.files.FailAfter(20);  // room for one line, not for two
  bench.Line("3");
  EXPECT_THAT(OnDisk(), ElementsAre("1"));

  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("4");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3", "4"));
}

TEST_F(RawLogFailures, StopWritesWhatIsMissing) {
  bench.Line("2");
  bench.Line("3");
  bench.files.MakeRoom();

  bench.measurement.Stop();

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(bench.told, ElementsAre(StartsWith("Raw Log Not"), "Raw Log Written Again"));
}

TEST_F(RawLogFailures, FullUntilStopIsToldOnceAndTheTableKeepsAll) {
  bench.Line("2");

  bench.measurement.Stop();

  EXPECT_THAT(bench.told, SizeIs(1));
  EXPECT_THAT(InTable(), ElementsAre("1", "2"));
  EXPECT_THAT(OnDisk(), ElementsAre("1"));
  EXPECT_TRUE(bench.Stopped());
}

TEST_F(RawLogFailures, FullUntilStopIsMadeUpForAtTheNextStart) {
  bench.Line("2");
  bench.measurement.Stop();
  bench.files.MakeRoom();

  bench.Start();
  EXPECT_THAT(OnDisk(), ElementsAre("1", "2"));
  bench.Line("3");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(bench.Copies(), IsEmpty());
}

TEST_F(RawLogFailures, AFileThatDisappearsBeginsAnewWithEverything) {
  bench.files.MakeRoom();
  bench.Line("2");

  bench.files.Remove("/lab/Com_1.txt");
  bench.Line("3");

  EXPECT_THAT(bench.RawLogText(), StartsWith("No.,Time,Viscosity"));
  EXPECT_EQ(OnDisk(), InTable());
}

TEST_F(RawLogFailures, AFileThatDisappearsAfterTheLastReadingIsThereAgainAfterStop) {
  bench.files.MakeRoom();
  bench.Line("2");
  bench.files.Remove("/lab/Com_1.txt");

  bench.measurement.Stop();

  EXPECT_EQ(OnDisk(), InTable());
}

TEST_F(RawLogFailures, WhatArrivedAlthoughClosingFailedIsNotWrittenTwice) {
  bench.files.MakeRoom();
  bench.files.FailToClose();
  bench.Line("2");
  bench.Advance(1);
  bench.Line("3");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(bench.Copies(), IsEmpty());
  EXPECT_THAT(bench.told, ElementsAre(StartsWith("Raw Log Not Written"), "Raw Log Written Again"));
}

TEST_F(RawLogFailures, AFileThatBecameShorterIsMadeWholeAtTheNextReading) {
  bench.files.MakeRoom();
  bench.Line("2");
  bench.files.Put("/lab/Com_1.txt", "No.,Time,Visc");
  bench.Line("3");

  EXPECT_EQ(OnDisk(), InTable());
  EXPECT_THAT(bench.told, ElementsAre("Raw Log Written Anew: /lab/Com_1.txt had been changed"));
}

TEST_F(RawLogFailures, AnotherFileOfTheSameLengthIsSetAside) {
  bench.files.MakeRoom();
  std::string other = bench.RawLogText();
  other.replace(other.find(",1,"), 3, ",9,");
  bench.files.Put("/lab/Com_1.txt", other);
  bench.Line("2");

  EXPECT_EQ(OnDisk(), InTable());
  ASSERT_THAT(bench.Copies(), SizeIs(1));
  EXPECT_EQ(bench.files.Content("/lab/" + bench.Copies()[0]), other);
}

TEST_F(RawLogFailures, WhatSomebodyElseAddedStaysInACopy) {
  bench.files.MakeRoom();
  ASSERT_FALSE(bench.files.Append("/lab/Com_1.txt", "1,00.0,77,,,\r\n"));
  bench.measurement.Stop();

  EXPECT_EQ(OnDisk(), InTable());
  ASSERT_THAT(bench.Copies(), SizeIs(1));
  EXPECT_THAT(bench.files.Content("/lab/" + bench.Copies()[0]), HasSubstr("77"));
}

TEST(RawLogLinks, ALinkOutOfTheFolderIsSetAsideAndNeverWritten) {
  Bench bench;
  bench.files.Put("/lab/Com_1.txt", "elsewhere");
  bench.files.LeadOut("/lab/Com_1.txt");
  bench.Start();
  bench.Line("1");
  ASSERT_THAT(bench.Copies(), SizeIs(1));
  EXPECT_EQ(bench.files.Content("/lab/" + bench.Copies()[0]), "elsewhere");

  bench.Advance(1);
  bench.files.LeadOut("/lab/Com_1.txt");  // in the midst of a run
  const std::string before = bench.RawLogText();
  bench.Line("2");
  ASSERT_THAT(bench.Copies(), SizeIs(2));
  EXPECT_EQ(bench.files.Content("/lab/" + bench.Copies()[1]), before);
  EXPECT_EQ(Column(data::ParseDataFile(bench.RawLogText()).table, 2), (Texts{"1", "2"}));
}

TEST_F(RawLogFailures, AFolderThatIsGoneIsLikeAFullDisk) {
  bench.files.MakeRoom();
  bench.files.Refuse("/lab", "No such file or directory", platform::FailureKind::kNotFound);
  bench.Line("2");
  bench.files.Allow("/lab");
  bench.Advance(1);

  bench.Line("3");

  EXPECT_THAT(bench.told, ElementsAre(HasSubstr("No such file or directory"), "Raw Log Written Again"));
  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3"));
}

// Rows that the operator deletes meanwhile.

TEST_F(RawLogFailures, MissingLinesFollowAlthoughRowsBeforeThemAreDeleted) {
  bench.Line("2");
  bench.Line("3");

  bench.document.RemoveRows(1, 1);
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("4");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3", "4"));
}

TEST_F(RawLogFailures, MissingLinesFollowAlthoughRowsBeforeThemAreDeletedAndBroughtBack) {
  bench.Line("2");
  bench.Line("3");

  bench.document.RestoreRows(bench.document.RemoveRows(1, 1));
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("4");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "3", "4"));
}

TEST_F(RawLogFailures, DeletedMissingLinesAreNotWritten) {
  bench.Line("2");
  bench.Line("3");
  bench.Line("4");

  bench.document.RemoveRows(2, 3);
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("5");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "4", "5"));
}

TEST_F(RawLogFailures, ADeletionAcrossTheFirstMissingLineLosesNoOther) {
  bench.Line("2");
  bench.Line("3");
  bench.Line("4");

  bench.document.RemoveRows(1, 3);
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("5");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "4", "5"));
}

TEST_F(RawLogFailures, ADeletionAfterTheFirstMissingLineLosesNoOther) {
  bench.Line("2");
  bench.Line("3");
  bench.Line("4");

  bench.document.RemoveRows(3, 3);
  bench.files.MakeRoom();
  bench.measurement.Stop();

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2", "4"));
}

TEST_F(RawLogFailures, WhenAllMissingLinesAreDeletedTheNextReadingFollows) {
  bench.Line("2");
  bench.Line("3");

  bench.document.RemoveRows(1, 3);
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("4");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "4"));
}

TEST_F(RawLogFailures, AnEditedMissingLineIsWrittenAsItIsNow) {
  bench.Line("2");

  bench.document.SetCell(2, 2, "2.5");
  bench.files.MakeRoom();
  bench.Advance(1);
  bench.Line("3");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "2.5", "3"));
}

TEST_F(RawLogFailures, ANewDocumentHasNothingMissing) {
  bench.Line("2");

  bench.New();
  bench.files.MakeRoom();
  bench.Line("3");

  EXPECT_THAT(OnDisk(), ElementsAre("1", "3"));
}

TEST(RawLogSync, WhatIsMeasuredReachesTheDeviceEveryTenSeconds) {
  Bench bench;
  bench.Start();
  for (int second = 0; second < 31; ++second) {
    bench.Line("1");
    bench.Advance(1);
  }
  EXPECT_EQ(bench.files.Calls().syncs, 3);
}

TEST(RawLogSync, WhatDidNotReachTheDeviceIsToldAndWrittenAnew) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.Advance(10);
  bench.files.RefuseSync(true);
  bench.Line("2");
  bench.files.RefuseSync(false);
  const int replaced = bench.files.Calls().replaces;
  bench.Advance(1);
  bench.Line("3");

  EXPECT_EQ(bench.files.Calls().replaces, replaced + 1) << "a disk that has failed has perhaps kept less";
  EXPECT_EQ(Column(data::ParseDataFile(bench.RawLogText()).table, 2), (Texts{"1", "2", "3"}));
  EXPECT_THAT(bench.told, ElementsAre("Raw Log Not Written: cannot sync /lab/Com_1.txt: Input/output error",
                                      "Raw Log Written Again"));
}

TEST(RawLogSync, ADeviceThatTakesItsTimeHoldsNobodyUp) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.Advance(10);
  bench.files.HoldSyncs(true);
  bench.files.RefuseSync(true);
  bench.Line("2");
  bench.Advance(1);
  bench.Line("3");
  EXPECT_TRUE(bench.told.empty());

  bench.files.RefuseSync(false);
  bench.files.HoldSyncs(false);
  bench.Line("4");
  EXPECT_THAT(bench.told, ElementsAre("Raw Log Not Written: cannot sync /lab/Com_1.txt: Input/output error"));
  bench.Advance(1);
  bench.Line("5");
  EXPECT_EQ(Column(data::ParseDataFile(bench.RawLogText()).table, 2), (Texts{"1", "2", "3", "4", "5"}));
}

TEST(RawLogSync, WhatDoesNotReachTheDeviceAtTheEndIsTold) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.files.Refuse("/lab", "Input/output error", platform::FailureKind::kOther);

  bench.measurement.Stop();

  EXPECT_THAT(bench.told, ElementsAre("Raw Log Not Written: cannot sync /lab/Com_1.txt: Input/output error"));
  EXPECT_TRUE(bench.Stopped());
}

TEST_F(RawLogFailures, AFailureThatWasToldIsNotToldAgainBySyncing) {
  bench.files.Refuse("/lab", "Input/output error", platform::FailureKind::kOther);
  bench.Line("2");

  bench.measurement.Stop();

  EXPECT_THAT(bench.told, SizeIs(1));
}

}  // namespace
}  // namespace quenlor::link
