// SPDX-License-Identifier: MIT
#include "data/merge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/data_file_writer.h"
#include "data/document.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A document that a file was opened as, and others appended to.
struct Merging {
  SettingsList settings;
  Document document{settings};

  explicit Merging(const std::string& file) { document.Load(ParseDataFile(file), "first.csv", ""); }
  bool Append(const std::string& file, const std::string& name = "next.csv") {
    return document.AppendRuns(ParseDataFile(file), name);
  }
  std::string Rows(Document::Row first = 1) const {
    std::string text;
    for (Document::Row row = first; row < document.Grid1().EntryRow(); ++row) {
      document.Grid1().AppendLine(row, '|', text);
      text += '\n';
    }
    return text;
  }
  std::string Name(int run) const { return std::string(document.Grid4().TextMatrix(run, 1)); }
};

constexpr const char* kMonday =
    "No.,Time,Viscosity,Unit1,Temp\r\n1,00:00:00,50,mPa.s,25\r\n2,00:00:00,51,mPa.s,26\r\n"
    "Info,Sample No.,Sample Name,Analysis Time,Date,Time\r\n"
    "Info,No.1,oil,00:00:00,2026/11/23,09:00:00\r\nInfo,No.2,No.2,00:00:00,2026/11/23,10:00:00\r\n"
    "Date,2026/11/23 10:00:00\r\nMemo,first\r\nmonday's memo\r\n";
constexpr const char* kTuesday =
    "No.,Time,Viscosity,Unit1,Temp\r\n1,00:00:00,60,mPa.s,25\r\n2,00:00:00,61,mPa.s,26\r\n2,00:01:00,62,mPa."
    "s,26\r\n"
    "Info,Sample No.,Sample Name,Analysis Time,Date,Time\r\n"
    "Info,No.1,water,00:00:00,2026/11/24,09:00:00\r\nInfo,No.2,No.2,00:01:00,2026/11/24,10:00:00\r\n"
    "Axis,2,4,0,60,0,1,0,1,0,1,0,0,1,0\r\nDate,2026/11/24 10:00:00\r\nMemo,second\r\ntuesday's memo\r\n";

TEST(Merge, RunsFollowEachOtherRenumberedWithTheirNames) {
  Merging merging(kMonday);
  ASSERT_TRUE(merging.Append(kTuesday, "tuesday.csv"));
  EXPECT_EQ(merging.Rows(),
            "1|00:00:00|50|mPa.s|25\n2|00:00:00|51|mPa.s|26\n"
            "3|00:00:00|60|mPa.s|25\n4|00:00:00|61|mPa.s|26\n4|00:01:00|62|mPa.s|26\n");
  EXPECT_EQ(merging.document.RunCount(), 4);
  EXPECT_TRUE(merging.document.MultiRun());
  EXPECT_EQ(merging.Name(1), "oil");
  EXPECT_EQ(merging.Name(2), "No.2") << "the open document's own names stay";
  EXPECT_EQ(merging.Name(3), "water");
  EXPECT_EQ(merging.Name(4), "tuesday No.2");
  EXPECT_EQ(merging.document.Grid4().TextMatrix(4, 0), "No.4");
  EXPECT_EQ(merging.document.Grid4().TextMatrix(4, 2), "00:01:00");
  EXPECT_EQ(merging.document.Grid4().TextMatrix(4, 3), "2026/11/24");
}

TEST(Merge, ASingleRunWithoutANameIsCalledAfterItsFile) {
  const auto name = [](const char* file_name) {
    Merging merging(kMonday);
    merging.Append("No.,Time,Viscosity\r\n1,0,1\r\n", file_name);
    return merging.Name(3);
  };
  EXPECT_EQ(name("wednesday.csv"), "wednesday");
  EXPECT_EQ(name("week.48.csv"), "week.48");
  EXPECT_EQ(name("raw"), "raw");
  EXPECT_EQ(name(".csv"), ".csv");
}

TEST(Merge, ColumnsAreFoundByTheirTitles) {
  Merging merging("No.,Time,Viscosity,Unit1,Temp,Unit1\r\n1,0,50,a,25,b\r\n");
  merging.Append("No.,Time,Torque,Unit1,Unit1,Temp,Viscosity\r\n1,0,7,c,d,26,60\r\n1,1,8\r\n");
  EXPECT_EQ(merging.Rows(2), "2|0|60|c|26|d|7\n2|1|||||8\n");
  EXPECT_EQ(merging.document.Grid1().TextMatrix(0, 6), "Torque");
  EXPECT_EQ(merging.document.ViscoColumn(), 2) << "what is shown stays";
}

TEST(Merge, ColumnsWithoutReadingsOfTheFirstFileAreEmptyThere) {
  Merging merging("No.,Time,Viscosity\r\n1,0,50\r\n");
  merging.Append("No.,Time,Viscosity,Temp\r\n1,0,60,25\r\n");
  EXPECT_EQ(merging.Rows(), "1|0|50|\n2|0|60|25\n");
}

TEST(Merge, RunsAreNumberedWithoutGapsAndReadingsWithoutARunStayThat) {
  Merging merging("No.,Time,Viscosity\r\n7,0,50\r\n");
  merging.Append("No.,Time,Viscosity\r\n9,0,60\r\n3,0,61\r\nx,0,62\r\n09,0,63\r\n9,0,64\r\n,0,65\r\n");
  EXPECT_EQ(merging.Rows(2), "8|0|60\n9|0|61\nx|0|62\n8|0|63\n8|0|64\n|0|65\n");
  EXPECT_EQ(merging.document.RunCount(), 9);
}

TEST(Merge, TheReadingsAreUnsavedAndTheHeaderIsTheFirstFiles) {
  Merging merging(kMonday);
  merging.Append(kTuesday);
  const Document& document = merging.document;
  EXPECT_TRUE(document.DataChanged());
  EXPECT_EQ(document.UnsavedReadings(), 3);
  EXPECT_EQ(document.FileName(), "first.csv");
  EXPECT_EQ(document.Remarks(), "first");
  EXPECT_EQ(document.Date(), "2026/11/24 10:00:00") << "that of the newest reading";
  EXPECT_THAT(document.List2(), ElementsAre("monday's memo", "tuesday's memo"));
  EXPECT_EQ(document.Ranges().TimeMax, AxisRanges{}.TimeMax) << "an appended file says nothing of the axes";
}

TEST(Merge, RunNumbersThatDoNotSufficeLeaveEverythingAsItWas) {
  Merging merging("No.,Time,Viscosity\r\n32766,0,50\r\n");
  const std::string before = merging.Rows();
  EXPECT_FALSE(merging.Append("No.,Time,Torque\r\n1,0,1\r\n2,0,2\r\n"));
  EXPECT_EQ(merging.Rows(), before);
  EXPECT_EQ(merging.document.Grid1().Cols(), 3);
  EXPECT_FALSE(merging.document.DataChanged());
  EXPECT_TRUE(merging.Append("No.,Time,Viscosity\r\n32767,0,1\r\n")) << "one run, whatever its number was";
  EXPECT_EQ(merging.document.RunCount(), 32767);
}

TEST(Merge, AFileThatIsAppendedToAFileGivesWhatItGivesAppendedToADocument) {
  Merging merging(kMonday);
  merging.Append(kTuesday, "tuesday.csv");
  DataFileContents both = ParseDataFile(kMonday);
  ASSERT_TRUE(AppendFile(ParseDataFile(kTuesday), "tuesday.csv", both));
  EXPECT_EQ(both.run_count, 4);
  EXPECT_EQ(both.runs.TextMatrix(4, 1), "tuesday No.2");
  EXPECT_EQ(both.date, "2026/11/24 10:00:00");
  EXPECT_EQ(both.remarks, "first");
  EXPECT_THAT(both.List2, ElementsAre("monday's memo", "tuesday's memo"));
  Merging opened("");
  opened.document.Load(std::move(both), "both.csv", "");
  EXPECT_EQ(opened.Rows(), merging.Rows());
}

TEST(Merge, AFileWithoutNumbersLeftStaysAsItIs) {
  DataFileContents full = ParseDataFile("No.,Time,Viscosity\r\n32766,0,50\r\nMemo,full\r\nmemo\r\n");
  EXPECT_FALSE(AppendFile(ParseDataFile(kTuesday), "tuesday.csv", full));
  EXPECT_EQ(full.run_count, 32766);
  EXPECT_EQ(full.table.EntryRow(), 2);
  EXPECT_THAT(full.List2, ElementsAre("memo"));
}

TEST(Merge, NothingToAppendChangesNothing) {
  Merging merging(kMonday);
  EXPECT_TRUE(merging.Append("No.,Time,Torque\r\n"));
  EXPECT_FALSE(merging.document.DataChanged());
  EXPECT_EQ(merging.document.Grid1().Cols(), 5);
}

TEST(Merge, WhatIsWrittenIsReadBack) {
  Merging merging(kMonday);
  merging.Append(kTuesday, "tuesday.csv");
  std::string file;
  WriteDataFile(merging.document, merging.settings, [&](std::string_view piece) { file += piece; });
  Merging again(file);
  EXPECT_EQ(again.Rows(), merging.Rows());
  for (int run = 1; run <= 4; ++run) EXPECT_EQ(again.Name(run), merging.Name(run));
}

TEST(Merge, ListenersHearOfRowsColumnsAndRuns) {
  struct Heard : DocumentListener {
    std::vector<std::string> calls;
    void RowsAboutToBeRestored(Row first, Row last) override { Note("about", first, last); }
    void RowsRestored(Row first, Row last) override { Note("rows", first, last); }
    void ColumnsChanged() override { calls.push_back("columns"); }
    void RunsChanged() override { calls.push_back("runs"); }
    void HeaderChanged() override { calls.push_back("header"); }
    void CommasDivideFields() override { calls.push_back("commas"); }
    void Note(const char* what, Row first, Row last) {
      calls.push_back(what + std::to_string(first) + "-" + std::to_string(last));
    }
  } heard;
  Merging merging(kMonday);
  merging.document.AddListener(heard);
  merging.Append("No.;Time;Viscosity;New\r\n1;0;1,5;2\r\n");
  EXPECT_THAT(heard.calls, ElementsAre("about3-3", "rows3-3", "columns", "runs", "header", "commas"));
}

}  // namespace
}  // namespace quenlor::data
