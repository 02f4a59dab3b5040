// SPDX-License-Identifier: MIT
// A raw log that holds more than the table is set aside before it is written anew.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/link/bench.h"

namespace quenlor::link {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kPath[] = "/lab/Com_1.txt";
constexpr char kCopy[] = "Com_1_20240315-120000.txt";  // at the bench's noon

struct Case {
  const char* what;
  std::string on_disk;
  std::string document;
};

TEST(RawLogCopies, AFileThatHoldsMoreThanTheTableIsSetAside) {
  for (const Case& example : {
           Case{"other readings", "No.,Time,A\r\n1,00.0,5\r\n", "No.,Time,A\r\n1,00.0,6\r\n"},
           {"readings of a lost document", "No.,Time,A\r\n1,00.0,5\r\n", "No.,Time,A\r\n"},
           {"one reading more at the end", "No.,Time,A\r\n1,00.0,5\r\n1,01.0,6\r\n",
            "No.,Time,A\r\n1,00.0,5\r\n"},
           {"one reading more at the front", "No.,Time,A\r\n1,00.0,5\r\n1,01.0,6\r\n",
            "No.,Time,A\r\n1,01.0,6\r\n"},
           {"the same reading once more", "No.,Time,A\r\n1,00.0,5\r\n1,00.0,5\r\n",
            "No.,Time,A\r\n1,00.0,5\r\n"},
           {"a cell that was edited since", "No.,Time,A\r\n1,00.0,5\r\n", "No.,Time,A\r\n1,00.0,5.0\r\n"},
           {"another run number", "No.,Time,A\r\n2,00.0,5\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"a field that the table has not", "No.,Time,A\r\n1,00.0,5,6\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"half a line at the end", "No.,Time,A\r\n1,00.0,51\r\n1,01.0,5",
            "No.,Time,A\r\n1,00.0,51\r\n1,01.0,52\r\n"},
           {"readings in another order", "No.,Time,A\r\n1,01.0,6\r\n1,00.0,5\r\n",
            "No.,Time,A\r\n1,00.0,5\r\n1,01.0,6\r\n"},
           {"what is no raw log at all", "Dear diary\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"readings without titles", "1,00.0,7\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
       }) {
    Bench bench;
    bench.Open(example.document);
    bench.files.Put(kPath, example.on_disk);

    bench.Start();

    EXPECT_THAT(bench.Copies(), ElementsAre(kCopy)) << example.what;
    EXPECT_EQ(bench.files.Content(std::string("/lab/") + kCopy), example.on_disk) << example.what;
    EXPECT_EQ(bench.RawLogText(), example.document) << example.what;
  }
}

TEST(RawLogCopies, AFileWhoseReadingsTheTableHoldsIsRewrittenWithoutACopy) {
  for (const Case& example : {
           Case{"the same", "No.,Time,A\r\n1,00.0,5\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"nothing", "", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"titles alone", "No.,Time,A\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"other titles", "No.,Time,B,C\r\n1,00.0,5,\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"less", "No.,Time,A\r\n1,00.0,5\r\n", "No.,Time,A\r\n1,00.0,5\r\n1,01.0,6\r\n"},
           {"columns since", "No.,Time,A\r\n1,00.0,5\r\n",
            "No.,Time,A,B,C\r\n1,00.0,5,,\r\n1,01.0,6,7,8\r\n"},
           {"fewer columns", "No.,Time,A,B\r\n1,00.0,5,\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"lines before a column came", "No.,Time,A\r\n1,00.0,5\r\n1,01.0,5,6\r\n1,02.0,5,\r\n",
            "No.,Time,A,B\r\n1,00.0,5,\r\n1,01.0,5,6\r\n1,02.0,5,\r\n"},
           {"another separator", "No.;Time;A\r\n1;00.0;5\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"other runs between", "No.,Time,A\r\n1,00.0,5\r\n3,00.0,7\r\n",
            "No.,Time,A\r\n1,00.0,5\r\n2,00.0,6\r\n2,01.0,6\r\n3,00.0,7\r\n"},
           {"a reading twice in both", "No.,Time,A\r\n1,00.0,5\r\n1,00.0,5\r\n",
            "No.,Time,A\r\n1,00.0,5\r\n1,00.0,5\r\n"},
           {"other line ends", "No.,Time,A\n\n1,00.0,5", "No.,Time,A\r\n1,00.0,5\r\n"},
           {"a byte-order mark", "\xEF\xBB\xBFNo.,Time,A\r\n1,00.0,5\r\n", "No.,Time,A\r\n1,00.0,5\r\n"},
       }) {
    Bench bench;
    bench.Open(example.document);
    bench.files.Put(kPath, example.on_disk);

    bench.Start();

    EXPECT_THAT(bench.Copies(), IsEmpty()) << example.what;
    EXPECT_EQ(bench.RawLogText(), example.document) << example.what;
  }
}

TEST(RawLogCopies, AForgottenSaveIsSetAsideAfterNew) {
  Bench bench;
  bench.Measure({"1", "2"});
  const std::string first = bench.RawLogText();
  bench.Advance(60);

  bench.New();
  bench.Measure({"3"});

  EXPECT_THAT(bench.Copies(), ElementsAre("Com_1_20240315-120100.txt"));
  EXPECT_EQ(bench.files.Content("/lab/Com_1_20240315-120100.txt"), first);
}

TEST(RawLogCopies, ReadingsThatWereSavedNeedNone) {
  Bench bench;
  bench.Measure({"1", "2"});
  bench.document.Saved("monday.csv");
  bench.New();
  bench.Measure({"3"});
  EXPECT_THAT(bench.Copies(), IsEmpty());
  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00.0,3,,,\r\n");
}

TEST(RawLogCopies, ReadingsThatWereSavedNeedNoneInALaterLifeOfTheProgram) {
  Bench bench;
  bench.Measure({"1", "2"});
  bench.document.Saved("monday.csv");

  Bench later;
  for (const std::string& path : bench.files.Paths()) later.files.Put(path, bench.files.Content(path));
  later.Measure({"3"});
  EXPECT_THAT(later.Copies(), IsEmpty());
}

TEST(RawLogCopies, AReadingSinceTheSaveIsUnsaved) {
  Bench bench;
  bench.Start();
  bench.Line("1");
  bench.document.Saved("monday.csv");
  bench.Line("2");
  bench.measurement.Stop();
  bench.New();
  bench.Start();
  EXPECT_THAT(bench.Copies(), ElementsAre(kCopy));
}

TEST(RawLogCopies, ALogThatSomebodyChangedSinceTheSaveIsKept) {
  Bench bench;
  bench.Measure({"1", "2"});
  bench.document.Saved("monday.csv");
  std::string changed = bench.RawLogText();
  changed[changed.size() - 6] = '7';
  bench.files.Put("/lab/Com_1.txt", changed);
  bench.New();
  bench.Start();
  EXPECT_THAT(bench.Copies(), ElementsAre(kCopy));
}

TEST(RawLogCopies, AReadingThatWasDeletedBeforeTheSaveIsKept) {
  Bench bench;
  bench.Measure({"1", "2"});
  bench.document.RemoveRows(1, 1);
  bench.document.Saved("monday.csv");
  bench.New();
  bench.Start();
  EXPECT_THAT(bench.Copies(), ElementsAre(kCopy));
}

TEST(RawLogCopies, AnEditedCellIsSetAsideAtTheNextStart) {
  Bench bench;
  bench.Measure({"1"});

  bench.document.SetCell(1, 2, "2");
  bench.Start();

  EXPECT_THAT(bench.Copies(), ElementsAre(kCopy));
}

TEST(RawLogCopies, DeletedReadingsAreSetAsideAtTheNextStart) {
  Bench bench;
  bench.Measure({"1", "2", "3"});

  bench.document.RemoveRows(2, 2);
  bench.Start();

  EXPECT_THAT(bench.Copies(), ElementsAre(kCopy));
  EXPECT_EQ(bench.RawLogText(), "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n1,00.0,1,,,\r\n1,00.0,3,,,\r\n");
}

TEST(RawLogCopies, AnotherSeparatorSinceTheLastMeasurementNeedsNoCopy) {
  Bench bench;
  bench.Measure({"1.5,2", "3"});

  bench.document.SetFieldSeparator(';');
  bench.Start();

  EXPECT_THAT(bench.Copies(), IsEmpty());
  EXPECT_EQ(bench.RawLogText(), "No.;Time;Viscosity;Unit1;Temp;Unit2\r\n1;00.0;1.5;2;;\r\n1;00.0;3;;;\r\n");
}

TEST(RawLogCopies, WhatIsOnTheDiskBecauseAFieldHoldsTheSeparatorNeedsNoCopy) {
  Bench bench;
  bench.Measure({"1,5;2,5"});

  bench.Measure({"3"});

  EXPECT_THAT(bench.Copies(), IsEmpty());
}

TEST(RawLogCopies, TheRawLogOpenedAsTheDocumentNeedsNoCopy) {
  Bench bench;
  bench.Measure({"1", "2,3,4,5,6"});

  bench.Open(bench.RawLogText());
  bench.Start();

  EXPECT_THAT(bench.Copies(), IsEmpty());
}

TEST(RawLogCopies, AnEarlierCopyIsNeverOverwritten) {
  Bench bench;
  for (const char* name : {"/lab/Com_1_20240315-120000.txt", "/lab/Com_1_20240315-120000-2.txt"}) {
    bench.files.Put(name, "earlier");
  }
  bench.files.Put(kPath, "1,00.0,lost\r\n");

  bench.Start();

  EXPECT_THAT(bench.Copies(), testing::UnorderedElementsAre(kCopy, "Com_1_20240315-120000-2.txt",
                                                            "Com_1_20240315-120000-3.txt"));
  EXPECT_EQ(bench.files.Content("/lab/Com_1_20240315-120000.txt"), "earlier");
  EXPECT_EQ(bench.files.Content("/lab/Com_1_20240315-120000-2.txt"), "earlier");
  EXPECT_EQ(bench.files.Content("/lab/Com_1_20240315-120000-3.txt"), "1,00.0,lost\r\n");
}

TEST(RawLogCopies, TheCopyIsNamedAfterItsPort) {
  Bench bench;
  bench.settings.Set(setting::kPort, 12);
  bench.files.Put("/lab/Com_12.txt", "1,00.0,lost\r\n");
  bench.files.Put(kPath, "1,00.0,of another port\r\n");

  bench.Start();

  EXPECT_THAT(bench.Copies(), ElementsAre("Com_12_20240315-120000.txt"));
  EXPECT_EQ(bench.RawLogText(1), "1,00.0,of another port\r\n");
}

TEST(RawLogCopies, WhereNoCopyCanBeMadeTheStartFailsAndTheFileStays) {
  Bench bench;
  bench.files.Put(kPath, "1,00.0,lost\r\n");
  bench.files.Refuse(std::string("/lab/") + kCopy, "Permission denied");

  const auto failure = bench.measurement.Start();

  ASSERT_TRUE(failure);
  EXPECT_THAT(failure->reason, testing::HasSubstr("Permission denied"));
  EXPECT_EQ(bench.RawLogText(), "1,00.0,lost\r\n");
  EXPECT_TRUE(bench.Stopped());
}

TEST(RawLogCopies, OnAFullDiskTheReadingsStayInTheCopy) {
  Bench bench;
  bench.files.Put(kPath, "1,00.0,lost\r\n");
  bench.files.FailAfter(0);
  EXPECT_TRUE(bench.measurement.Start());

  bench.files.MakeRoom();
  bench.Start();

  EXPECT_THAT(bench.Copies(), ElementsAre(kCopy));
  EXPECT_EQ(bench.files.Content(std::string("/lab/") + kCopy), "1,00.0,lost\r\n");
}

}  // namespace
}  // namespace quenlor::link
