// SPDX-License-Identifier: MIT
#include "data/document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/data_file_writer.h"
#include "tests/data/document_builder.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kTitles = "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n";

struct DocumentTest : testing::Test {
  Laboratory lab;
  Document& document = lab.document;
  WritingListener listener;

  DocumentTest() {
    lab.Open(std::string(kTitles));
    document.AddListener(listener);
  }

  std::string_view Cell(Document::Row row, int col) const { return document.Grid1().TextMatrix(row, col); }

  // Readings 1 to `count` of one run, whose first field is their row number.
  void AppendReadings(int count) {
    for (int row = 1; row <= count; ++row) lab.Append({std::to_string(row)}, row);
    listener.heard.clear();
  }

  Texts FirstFields() const {
    Texts texts;
    for (Document::Row row = 1; row < document.Grid1().EntryRow(); ++row) texts.emplace_back(Cell(row, 2));
    return texts;
  }
};

TEST(Document, IsEmptyAtFirst) {
  const Laboratory lab;
  EXPECT_EQ(lab.document.Grid1().Rows(), 2);
  EXPECT_EQ(lab.document.Grid4().Rows(), 1);
  EXPECT_EQ(lab.document.RunCount(), 0);
  EXPECT_FALSE(lab.document.MultiRun());
  EXPECT_FALSE(lab.document.DataChanged());
  EXPECT_EQ(lab.document.StartTime(), 0);
  EXPECT_EQ(lab.document.FileName(), "File Name");
  EXPECT_EQ(lab.document.Remarks(), "Remarks:          ");
  EXPECT_THAT(lab.document.List2(), IsEmpty());
}

TEST_F(DocumentTest, AReadingIsItsRunItsTimeAndItsFields) {
  ASSERT_TRUE(lab.Append({"1234.5", "mPa.s", "25.1", "C"}, 0));
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", "1234.5", "mPa.s", "25.1", "C"));
}

TEST_F(DocumentTest, FieldsAreKeptAsReceived) {
  lab.Append({" 1,50 ", "", "+25.10E0"}, 0);
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", " 1,50 ", "", "+25.10E0", ""));
}

TEST_F(DocumentTest, TheFirstReadingOfAMeasurementStartsARun) {
  lab.AppendRun();
  lab.Append({"3"}, 1);
  lab.AppendRun();
  EXPECT_EQ(Cell(1, 0), "1");
  EXPECT_EQ(Cell(2, 0), "1");
  EXPECT_EQ(Cell(3, 0), "2");
  EXPECT_EQ(document.RunCount(), 2);
}

TEST_F(DocumentTest, BeginningAMeasurementAloneStartsNoRun) {
  document.BeginMeasurement();
  EXPECT_EQ(document.RunCount(), 0);
  EXPECT_EQ(document.Grid4().Rows(), 1);
}

TEST_F(DocumentTest, TimeCountsFromTheFirstReadingOfTheRun) {
  lab.AppendRun({"1"}, 100);
  lab.Append({"2"}, 165);
  lab.AppendRun({"3"}, 500);
  lab.Append({"4"}, 4225);
  EXPECT_EQ(Cell(1, 1), "00:00:00");
  EXPECT_EQ(Cell(2, 1), "00:01:05");
  EXPECT_EQ(Cell(3, 1), "00:00:00");
  EXPECT_EQ(Cell(4, 1), "01:02:05");
  EXPECT_EQ(document.StartTime(), After(500).seconds);
}

TEST_F(DocumentTest, InTheSecondsDisplayTheFirstLineHasTheTimeZeroInTenths) {
  lab.settings.Set(setting::kTimeS, 0);
  lab.Append({"1"}, 0);
  lab.Append({"2"}, 7.46);
  lab.Append({"3"}, 3725);
  EXPECT_EQ(Cell(1, 1), "00.0");
  EXPECT_EQ(Cell(2, 1), "07.5");
  EXPECT_EQ(Cell(3, 1), "3725.0");
}

TEST_F(DocumentTest, EveryOtherTimeDisplayShowsHoursMinutesAndSeconds) {
  for (const char* display : {"1", "2", "noise"}) {
    lab.settings.Set(setting::kTimeS, display);
    lab.AppendRun({"1"}, 0);
    lab.Append({"2"}, 3725);
    EXPECT_EQ(Cell(document.Grid1().EntryRow() - 2, 1), "00:00:00") << display;
    EXPECT_EQ(Cell(document.Grid1().EntryRow() - 1, 1), "01:02:05") << display;
  }
}

TEST_F(DocumentTest, TheTimeOfARunThatContinuesPastMidnightKeepsIncreasing) {
  lab.Append({"1"}, 0);
  lab.Append({"2"}, 29);
  lab.Append({"3"}, 31);
  lab.Append({"4"}, 31 + 86400);
  EXPECT_EQ(Cell(2, 1), "00:00:29");
  EXPECT_EQ(Cell(3, 1), "00:00:31");
  EXPECT_EQ(Cell(4, 1), "24:00:31");
}

TEST_F(DocumentTest, TheRunsRowHoldsTheTimesOfItsLatestReading) {
  lab.Append({"1"}, 0);
  EXPECT_THAT(lab.Run(1), ElementsAre("No.1", "No.1", "00:00:00", "2024/02/29", "23:59:30"));
  lab.Append({"2"}, 75);
  EXPECT_THAT(lab.Run(1), ElementsAre("No.1", "No.1", "00:01:15", "2024/03/01", "00:00:45"));
}

TEST_F(DocumentTest, ANewRunLeavesTheRowsOfTheOthersAlone) {
  lab.AppendRun({"1"}, 0);
  lab.AppendRun({"2"}, 75);
  EXPECT_EQ(document.Grid4().Rows(), 3);
  EXPECT_THAT(lab.Run(1), ElementsAre("No.1", "No.1", "00:00:00", "2024/02/29", "23:59:30"));
  EXPECT_THAT(lab.Run(2), ElementsAre("No.2", "No.2", "00:00:00", "2024/03/01", "00:00:45"));
}

TEST_F(DocumentTest, ASampleNameStaysWhileItsRunGoesOn) {
  lab.Append({"1"}, 0);
  document.SetSampleName(1, "Oil");
  lab.Append({"2"}, 1);
  EXPECT_EQ(document.Grid4().TextMatrix(1, 1), "Oil");
}

TEST_F(DocumentTest, TheDateIsThatOfTheLatestReading) {
  lab.Append({"1"}, 0);
  EXPECT_EQ(document.Date(), "2024/02/29 23:59:30");
  lab.Append({"2"}, 75);
  EXPECT_EQ(document.Date(), "2024/03/01 00:00:45");
}

TEST_F(DocumentTest, ThereAreSeveralRunsFromTheSecondOn) {
  lab.AppendRun();
  EXPECT_FALSE(document.MultiRun());
  document.BeginMeasurement();
  EXPECT_FALSE(document.MultiRun());
  lab.Append({"1"}, 1);
  EXPECT_TRUE(document.MultiRun());
  lab.AppendRun();
  EXPECT_TRUE(document.MultiRun());
}

TEST_F(DocumentTest, MoreFieldsThanColumnsAddColumns) {
  lab.Append({"1", "2", "3", "4", "5", "6"}, 0);
  EXPECT_THAT(lab.Row(0),
              ElementsAre("No.", "Time", "Viscosity", "Unit1", "Temp", "Unit2", "Data5", "Data6"));
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", "1", "2", "3", "4", "5", "6"));
  EXPECT_THAT(listener.heard, ElementsAre("columns", "runs", "reading 1"));
}

TEST_F(DocumentTest, AReadingMayHaveNoFields) {
  ASSERT_TRUE(lab.Append({}, 0));
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:00", "", "", "", ""));
}

TEST_F(DocumentTest, OnlyAnAppendedReadingLeavesSomethingUnsaved) {
  document.BeginMeasurement();
  document.SetTitle(2, "Torque");
  document.SetRemarks("Oil");
  document.SetFileName("oil.csv");
  document.SetViscoColumn(3);
  document.SetFieldSeparator(';');
  EXPECT_FALSE(document.DataChanged());
  lab.Append({"1"}, 0);
  EXPECT_TRUE(document.DataChanged());
}

TEST_F(DocumentTest, EditingAndDeletingLeaveTheSavedDocumentSaved) {
  lab.Append({"1"}, 0);
  lab.Append({"2"}, 1);
  document.Saved("oil.csv");
  document.SetCell(1, 2, "3");
  document.SetSampleName(1, "Oil");
  document.RemoveRows(1, 2);
  EXPECT_FALSE(document.DataChanged());
}

TEST_F(DocumentTest, ASavedDocumentIsCalledAfterTheFile) {
  lab.Append({"1"}, 0);
  listener.heard.clear();
  document.Saved("oil.csv");
  EXPECT_FALSE(document.DataChanged());
  EXPECT_EQ(document.FileName(), "oil.csv");
  EXPECT_THAT(listener.heard, ElementsAre("header"));
  lab.Append({"2"}, 1);
  EXPECT_TRUE(document.DataChanged());
}

TEST_F(DocumentTest, RunNumbersEndAt32767) {
  lab.Open("No.,Time,Viscosity\r\n32766,00:00:00,1\r\n");
  ASSERT_TRUE(lab.AppendRun());
  EXPECT_EQ(document.RunCount(), 32767);
  EXPECT_TRUE(lab.Append({"3"}, 1)) << "the last run goes on";
  EXPECT_FALSE(lab.AppendRun());
  EXPECT_EQ(document.RunCount(), 32767);
}

TEST_F(DocumentTest, AReadingRefusedForWantOfRunNumbersChangesNothing) {
  lab.Open("No.,Time,Viscosity\r\n32767,00:00:00,1\r\n");
  const std::string before = lab.Bytes();
  document.BeginMeasurement();
  listener.heard.clear();
  bool filled = false;
  const std::string_view fields[] = {"1", "2", "3", "4"};
  EXPECT_FALSE(document.AppendReading(fields, After(0), [&](Document::Row) { filled = true; }));
  EXPECT_FALSE(filled);
  EXPECT_EQ(lab.Bytes(), before);
  EXPECT_FALSE(document.DataChanged());
  EXPECT_EQ(document.StartTime(), 0);
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST_F(DocumentTest, TheFilledRowIsHandedOutBeforeListenersHearOfIt) {
  std::string line;
  const std::string_view fields[] = {"a", "b", "c", "d", "e"};
  document.AppendReading(fields, After(0), [&](Document::Row row) {
    EXPECT_EQ(row, 1);
    document.Grid1().AppendLine(row, ',', line);
    listener.heard.push_back("filled");
  });
  EXPECT_EQ(line, "1,00:00:00,a,b,c,d,e");
  EXPECT_THAT(listener.heard, ElementsAre("filled", "columns", "runs", "reading 1"));
}

TEST_F(DocumentTest, RowsSelectedFromTheBottomUpAreRemovedLikeFromTheTopDown) {
  AppendReadings(6);
  document.RemoveRows(2, 4);
  EXPECT_THAT(FirstFields(), ElementsAre("1", "5", "6"));
  document.RemoveRows(3, 2);
  EXPECT_THAT(FirstFields(), ElementsAre("1"));
  EXPECT_THAT(listener.heard, ElementsAre("removed 2 to 4", "removed 2 to 3"));
}

TEST_F(DocumentTest, DeletingAllReadingsLeavesTheTitleRowAndTheEntryRow) {
  AppendReadings(3);
  document.RemoveRows(1, 3);
  EXPECT_EQ(document.Grid1().Rows(), 2);
  EXPECT_THAT(lab.Row(0), ElementsAre("No.", "Time", "Viscosity", "Unit1", "Temp", "Unit2"));
  EXPECT_THAT(lab.Row(1), ElementsAre("", "", "", "", "", ""));
}

TEST_F(DocumentTest, TheTitleRowAndTheEntryRowAreNeverRemoved) {
  AppendReadings(3);
  document.RemoveRows(0, 2);
  document.RemoveRows(2, 4);
  document.RemoveRows(4, 2);
  document.RemoveRows(-1, 1);
  document.RemoveRows(4, 4);
  EXPECT_THAT(FirstFields(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST_F(DocumentTest, ARunGoesOnAfterItsReadingsWereDeleted) {
  AppendReadings(2);
  document.RemoveRows(1, 2);
  lab.Append({"3"}, 11);
  EXPECT_EQ(document.RunCount(), 1);
  EXPECT_THAT(lab.Row(1), ElementsAre("1", "00:00:10", "3", "", "", ""));
}

TEST_F(DocumentTest, TheSecondReadingOfARunIsNewsForTheReadingsAlone) {
  lab.Append({"1"}, 0);
  lab.Append({"2"}, 1);
  EXPECT_THAT(listener.heard, ElementsAre("runs", "reading 1", "reading 2"));
}

TEST_F(DocumentTest, EveryEditIsTold) {
  AppendReadings(1);
  document.SetCell(1, 2, "25.1");
  EXPECT_EQ(Cell(1, 2), "25.1");
  document.SetTitle(2, "Torque");
  EXPECT_EQ(Cell(0, 2), "Torque");
  document.SetSampleName(1, "Oil");
  EXPECT_EQ(document.Grid4().TextMatrix(1, 1), "Oil");
  document.SetFileName("oil.csv");
  EXPECT_EQ(document.FileName(), "oil.csv");
  document.SetRemarks("new oil");
  EXPECT_EQ(document.Remarks(), "new oil");
  document.SetViscoColumn(3);
  EXPECT_EQ(document.ViscoColumn(), 3);
  document.SetTempColumn(2);
  EXPECT_EQ(document.TempColumn(), 2);
  EXPECT_THAT(listener.heard,
              ElementsAre("cell 1,2", "columns", "runs", "header", "header", "columns", "columns"));
}

TEST_F(DocumentTest, ASampleNameOfARunThatIsNotThereIsDropped) {
  AppendReadings(1);
  for (const int run : {-1, 0, 2, 40000}) document.SetSampleName(run, "Oil");
  EXPECT_EQ(document.Grid4().Rows(), 2);
  EXPECT_EQ(document.Grid4().TextMatrix(0, 1), "Sample Name");
  EXPECT_THAT(listener.heard, IsEmpty());
}

TEST_F(DocumentTest, EveryListenerIsToldUntilItIsRemoved) {
  WritingListener other;
  document.AddListener(other);
  document.SetRemarks("Oil");
  document.RemoveListener(listener);
  document.SetRemarks("Water");
  EXPECT_THAT(listener.heard, ElementsAre("header"));
  EXPECT_THAT(other.heard, ElementsAre("header", "header"));
}

TEST_F(DocumentTest, AListenerMayLeaveWhileItIsTold) {
  struct Leaving : DocumentListener {
    explicit Leaving(Document& left) : document(left) {}
    void HeaderChanged() override {
      ++calls;
      document.RemoveListener(*this);
    }
    Document& document;
    int calls = 0;
  } leaving(document);
  document.AddListener(leaving);
  WritingListener next;
  WritingListener last;
  document.AddListener(next);
  document.AddListener(last);
  document.SetRemarks("Oil");
  document.SetRemarks("Water");
  EXPECT_EQ(leaving.calls, 1);
  EXPECT_THAT(next.heard, ElementsAre("header", "header"));
  EXPECT_THAT(last.heard, ElementsAre("header", "header"));
}

TEST(DocumentTexts, EditedTextsAreOneLineSoThatFilesStayWhole) {
  SettingsList settings;
  Document document(settings);
  document.Load(ParseDataFile("No.,Time,Viscosity\r\n1,00.0,5\r\n"), "a.csv", "");

  document.SetCell(1, 2, "7\n");
  document.SetTitle(2, "Visc\r\nosity");
  document.SetSampleName(1, "Sample A\n");
  document.SetRemarks("two\nlines");

  std::string file;
  WriteDataFile(document, settings, [&](std::string_view piece) { file += piece; });
  const DataFileContents read_back = ParseDataFile(file);
  EXPECT_EQ(read_back.table.Rows(), 3);
  EXPECT_EQ(read_back.table.TextMatrix(1, 2), "7");
  EXPECT_EQ(read_back.runs.TextMatrix(1, 1), "Sample A");
  EXPECT_EQ(read_back.remarks, "two lines");
}

// Counts how often it is told that commas divide fields.
struct CommaListener : DocumentListener {
  void CommasDivideFields() override { ++told; }
  int told = 0;
};

TEST(DocumentTexts, ACommaInAFieldLeavesTheSeparatorAndIsToldOnce) {
  SettingsList settings;
  Document document(settings);
  CommaListener listener;
  document.AddListener(listener);
  document.Load(ParseDataFile("No.,Time,Viscosity,Temp\r\n"), "a.csv", "");
  document.AppendReading(std::vector<std::string_view>{"1.5", "2"}, {1e9, 0});
  EXPECT_EQ(listener.told, 0);

  document.SetSampleName(1, "resin, 20 C");
  EXPECT_EQ(document.FieldSeparator(), ',');
  EXPECT_TRUE(document.CommasDivide());
  EXPECT_EQ(listener.told, 1);
  document.SetCell(1, 2, "1,5");
  EXPECT_EQ(listener.told, 1) << "once for a document";

  document.SetFieldSeparator(';');
  EXPECT_FALSE(document.CommasDivide());
}

TEST(DocumentTexts, CommasAreToldWhenTheMenuLetsThemDivide) {
  SettingsList settings;
  Document document(settings);
  CommaListener listener;
  document.AddListener(listener);
  document.Load(ParseDataFile("No.;Time;A\r\n1;0;1,5\r\n"), "b.csv", "");
  EXPECT_EQ(listener.told, 0) << "\";\" divides";
  document.SetFieldSeparator(',');
  EXPECT_EQ(listener.told, 1);
}

}  // namespace
}  // namespace quenlor::data
