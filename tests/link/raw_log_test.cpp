// SPDX-License-Identifier: MIT
// What the raw log holds.

#include "link/raw_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kTitles[] = "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n";

// The content of a raw log that holds the titles of the bench's document and these lines.
std::string Log(const Texts& lines) {
  std::string text = kTitles;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

// Content.

TEST(RawLog, IsCalledAfterThePort) {
  Bench bench;
  RawLog raw_log(bench.files, bench.clock, bench.document, "/lab", [](const std::string&) {});

  EXPECT_EQ(raw_log.Path(1), "/lab/Com_1.txt");
  EXPECT_EQ(raw_log.Path(12), "/lab/Com_12.txt");
}

TEST(RawLog, AtStartWithAnEmptyTableHoldsTheTitlesAlone) {
  Bench bench;

  bench.Start();

  EXPECT_EQ(bench.RawLogText(), Log({}));
}

TEST(RawLog, AtStartHoldsTheWholeTable) {
  Bench bench;
  bench.Open("No.,Time,Viscosity,Temp\r\n1,00.0,12.3,25.0\r\n2,00.0,12.4\r\n");

  bench.Start();

  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Temp\r\n1,00.0,12.3,25.0\r\n2,00.0,12.4,\r\n");
}

TEST(RawLog, AnotherSeparatorInARunStillIsOneLineForEachReadingAndReadsBack) {
  Bench bench;
  bench.Start();
  bench.Line("1.5");

  bench.settings.Set(setting::kDP, 1);
  bench.document.SetFieldSeparator(';');
  bench.Line("2,5;3");
  bench.Line("4");

  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,1.5,,,", "1;00.0;2,5;3;;", "1;00.0;4;;;"}));
  const auto read_back = data::ParseDataFile(bench.RawLogText());
  EXPECT_EQ(read_back.table.Rows(), 5);
  EXPECT_EQ(read_back.table.TextMatrix(1, 2), "1.5");
  EXPECT_EQ(read_back.table.TextMatrix(2, 2), "2,5");
}

TEST(RawLog, GrowsByALineForEachReading) {
  Bench bench;
  bench.Start();

  bench.Line("12.3,mPa.s,25.0,C");
  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,12.3,mPa.s,25.0,C"}));

  bench.Advance(1.5);
  bench.Line("12.4");
  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,12.3,mPa.s,25.0,C", "1,01.5,12.4,,,"}));
}

TEST(RawLog, EachReadingIsOneAppend) {
  Bench bench;
  bench.Start();

  bench.port.Feed("1\r2\r3\r");

  EXPECT_EQ(bench.files.Calls().appends, 3);
  EXPECT_EQ(bench.files.Calls().replaces, 1);
}

TEST(RawLog, AReadingIsOnTheDiskBeforeAnyoneHearsOfIt) {
  class Witness : public data::DocumentListener {
   public:
    explicit Witness(Bench& bench) : bench_(bench) { bench_.document.AddListener(*this); }
    ~Witness() override { bench_.document.RemoveListener(*this); }
    void ReadingAppended(Row) override { log_when_told = bench_.RawLogText(); }
    std::string log_when_told;

   private:
    Bench& bench_;
  };
  Bench bench;
  Witness witness(bench);
  bench.Start();

  bench.Line("1");

  EXPECT_EQ(witness.log_when_told, Log({"1,00.0,1,,,"}));
}

TEST(RawLog, AReadingWithMoreFieldsThanColumnsIsWrittenWhole) {
  Bench bench;
  bench.Start();

  bench.Line("1,2,3,4,5,6");
  bench.Line("7");

  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,1,2,3,4,5,6", "1,00.0,7,,,,,"}));
}

TEST(RawLog, TheNextStartWritesTheColumnsThatCame) {
  Bench bench;
  bench.Measure({"1,2,3,4,5"});

  bench.Start();

  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Unit1,Temp,Unit2,Data5\r\n1,00.0,1,2,3,4,5\r\n");
}

TEST(RawLog, WithTheDecimalCommaASemicolonDividesFields) {
  Bench bench;
  bench.settings.Set(setting::kDP, 1);
  bench.settings.Set(setting::kNum, 1);
  bench.New();
  bench.Start();

  bench.Line("V= 1,5 T= 25.1");

  EXPECT_EQ(bench.RawLogText(), "No.;Time;Viscosity;Unit1;Temp;Unit2\r\n1;00.0;1,5;25,1;;\r\n");
}

TEST(RawLog, KeepsUtf8) {
  Bench bench;
  bench.Start();

  bench.Line(
      "25.1 \xC2\xB0"
      "C,\xB0");

  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,25.1,\xC2\xB0"
                                     "C,\xC2\xB0,"}));
}

TEST(RawLog, ASecondStartRewritesTheTableThenAppends) {
  Bench bench;
  bench.Measure({"1"});

  bench.Start();
  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,1,,,"}));
  bench.Line("2");

  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,1,,,", "2,00.0,2,,,"}));
  EXPECT_THAT(bench.Copies(), IsEmpty());
}

TEST(RawLog, TwoPortsHaveTwoFiles) {
  Bench bench;
  bench.Measure({"1"});
  bench.settings.Set(setting::kPort, 2);

  bench.Measure({"2"});

  EXPECT_EQ(bench.RawLogText(1), Log({"1,00.0,1,,,"}));
  EXPECT_EQ(bench.RawLogText(2), Log({"1,00.0,1,,,", "2,00.0,2,,,"}));
}

TEST(RawLog, WhatIsAppendedWhileNoMeasurementRunsIsNotWritten) {
  Bench bench;
  bench.Measure({"1"});
  RawLog raw_log(bench.files, bench.clock, bench.document, "/lab", [](const std::string&) {});

  raw_log.AppendRawLog(1);
  raw_log.Close();

  EXPECT_EQ(bench.RawLogText(), Log({"1,00.0,1,,,"}));
}

TEST(RawLog, AfterItsCloseNothingIsWritten) {
  Bench bench;
  RawLog raw_log(bench.files, bench.clock, bench.document, "/lab", [](const std::string&) {});
  bench.Open("No.,Time\r\n1,00.0\r\n");
  ASSERT_FALSE(raw_log.RewriteRawLog(1));
  raw_log.AppendRawLog(1);
  raw_log.Close();

  raw_log.AppendRawLog(1);
  raw_log.Close();

  EXPECT_EQ(bench.RawLogText(), "No.,Time\r\n1,00.0\r\n1,00.0\r\n");
  EXPECT_EQ(bench.files.Calls().syncs, 1);
}

TEST(RawLog, TheDocumentMayLiveLonger) {
  Bench bench;
  bench.Measure({"1", "2"});
  {
    RawLog raw_log(bench.files, bench.clock, bench.document, "/lab", [](const std::string&) {});
  }

  bench.document.RemoveRows(1, 1);
  bench.New();

  EXPECT_FALSE(bench.document.Grid1().HasReadings());
}

TEST(RawLog, IsSyncedToTheDeviceAtTheEnd) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  EXPECT_EQ(bench.files.Calls().syncs, 0);

  bench.measurement.Stop();

  EXPECT_EQ(bench.files.Calls().syncs, 1);
}

TEST(RawLog, IsSyncedWhenTheWatchdogEndsTheMeasurement) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.measurement.SendCommand("QM");

  bench.Advance(5);

  EXPECT_EQ(bench.files.Calls().syncs, 1);
}

TEST(RawLog, AtAnyMomentHoldsEveryReadingAndReadsAsTheSameTable) {
  Bench bench;
  bench.Start();
  for (const char* line : {"12.3,mPa.s,25.0,C", "", "\xB0,1.2", "1,2,3,4", "<AK>", "7,8"}) {
    bench.Line(line);
    bench.Advance(0.7);

    // The program is killed here.
    const data::DataFileContents found = data::ParseDataFile(bench.RawLogText());

    ASSERT_EQ(TableLines(found.table), TableLines(bench.document.Grid1())) << line;
    ASSERT_EQ(found.run_count, bench.document.RunCount());
  }
}

TEST(RawLog, OfSeveralRunsReadsAsTheSameTable) {
  Bench bench;
  bench.Measure({"1", "2"});
  bench.Measure({"3"});
  bench.Measure({"4,5,6,7,8,9"});
  bench.Start();

  const data::DataFileContents found = data::ParseDataFile(bench.RawLogText());

  EXPECT_EQ(TableLines(found.table), TableLines(bench.document.Grid1()));
  EXPECT_EQ(found.run_count, 3);
}

// The lock.

TEST(RawLog, TwoProgramsDoNotWriteTheSameFile) {
  Bench bench;
  bench.Start();
  EXPECT_EQ(bench.files.Lock("/lab/Com_1.lock"), nullptr);
  EXPECT_NE(bench.files.Lock("/lab/Com_2.lock"), nullptr);

  bench.measurement.Stop();

  EXPECT_NE(bench.files.Lock("/lab/Com_1.lock"), nullptr);
}

TEST(RawLog, AFileInUseFailsTheStartAndIsLeftAlone) {
  Bench bench;
  bench.files.Put("/lab/Com_1.txt", "the other one's");
  auto other = bench.files.Lock("/lab/Com_1.lock");

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->reason, "/lab/Com_1.txt is in use: /lab/Com_1.lock is held by process 4711 (quenlor)");
  EXPECT_EQ(bench.RawLogText(), "the other one's");
  EXPECT_THAT(bench.Copies(), IsEmpty());
  EXPECT_TRUE(bench.Stopped());

  other.reset();
  bench.Start();
}

TEST(RawLog, AFailedStartKeepsNoLock) {
  Bench bench;
  bench.files.Refuse("/lab/Com_1.txt", "Permission denied");

  bench.measurement.Start();

  EXPECT_NE(bench.files.Lock("/lab/Com_1.lock"), nullptr);
}

// What cannot start.

TEST(RawLog, AFullDiskFailsTheStartAndTheOldFileStays) {
  Bench bench;
  bench.Measure({"1"});
  const std::string old = bench.RawLogText();
  bench.files.FailAfter(10);

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->reason, testing::HasSubstr("No space left on device"));
  EXPECT_EQ(bench.RawLogText(), old);
  EXPECT_TRUE(bench.Stopped());
}

TEST(RawLog, AnUnreadableFileFailsTheStartAndStays) {
  Bench bench;
  bench.files.Put("/lab/Com_1.txt", "readings of somebody");
  bench.files.Unreadable("/lab/Com_1.txt");

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->reason, testing::HasSubstr("Permission denied"));
  EXPECT_EQ(bench.RawLogText(), "readings of somebody");
}

TEST(RawLog, AFolderOfItsNameFailsTheStart) {
  Bench bench;
  bench.files.MakeFolder("/lab/Com_1.txt");

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->reason, testing::HasSubstr("Is a directory"));
  EXPECT_TRUE(bench.Stopped());
}

}  // namespace
}  // namespace quenlor::link
