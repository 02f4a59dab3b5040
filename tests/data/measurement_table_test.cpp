// SPDX-License-Identifier: MIT
#include "data/measurement_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/data/naive_table.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;
using Row = MeasurementTable::Row;

void Append(MeasurementTable& table, const Texts& cells) { table.AppendRow(Views(cells)); }

std::string Line(const MeasurementTable& table, Row row, char separator = ',') {
  return RowLine(table, row, separator);
}

// Titles "No.", "Time", "Viscosity", "Temp" and readings "1,0,10,20", "1,1,11,21", ….
MeasurementTable WithReadings(int count) {
  MeasurementTable table;
  table.Reset({"No.", "Time", "Viscosity", "Temp"});
  for (int i = 0; i < count; ++i) {
    Append(table, {"1", std::to_string(i), std::to_string(10 + i), std::to_string(20 + i)});
  }
  return table;
}

TEST(MeasurementTable, IsTheTitleRowAndTheEntryRowAtFirst) {
  const MeasurementTable table;
  EXPECT_EQ(table.Rows(), 2);
  EXPECT_EQ(table.EntryRow(), 1);
  EXPECT_FALSE(table.HasReadings());
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time"));
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("", ""));
}

TEST(MeasurementTable, ResetTakesTheTitlesGiven) {
  MeasurementTable table;
  table.Reset({"No.", "Time", "Viscosity", "Unit1"});
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time", "Viscosity", "Unit1"));
}

TEST(MeasurementTable, ResetKeepsAtLeastTheNumberAndTheTime) {
  MeasurementTable table;
  table.Reset({"Nr"});
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("Nr", "Time"));
  table.Reset({});
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time"));
}

TEST(MeasurementTable, ResetForgetsReadingsAndColumns) {
  MeasurementTable table = WithReadings(3);
  table.Reset();
  EXPECT_EQ(table.Rows(), 2);
  EXPECT_EQ(table.Cols(), 2);
  EXPECT_EQ(table.TextMatrix(1, 0), "");
  Append(table, {"7", "8"});
  EXPECT_THAT(AllTexts(table), ElementsAre(Texts{"No.", "Time"}, Texts{"7", "8"}));
}

TEST(MeasurementTable, AReadingGoesIntoTheEntryRow) {
  MeasurementTable table = WithReadings(1);
  const Row entry_row = table.EntryRow();
  Append(table, {"1", "00:00:01", "1234.5", "25.1"});
  EXPECT_THAT(RowTexts(table, entry_row), ElementsAre("1", "00:00:01", "1234.5", "25.1"));
  EXPECT_EQ(table.EntryRow(), entry_row + 1);
  EXPECT_EQ(table.Rows(), entry_row + 2);
  EXPECT_TRUE(table.HasReadings());
}

TEST(MeasurementTable, TheEntryRowIsAlwaysEmpty) {
  MeasurementTable table = WithReadings(2);
  table.SetTextMatrix(table.EntryRow(), 2, "text");
  EXPECT_THAT(RowTexts(table, table.EntryRow()), ElementsAre("", "", "", ""));
  EXPECT_EQ(table.Rows(), 4);
}

TEST(MeasurementTable, MissingCellsOfAReadingAreEmpty) {
  MeasurementTable table = WithReadings(0);
  Append(table, {"1", "0"});
  Append(table, {});
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "0", "", ""));
  EXPECT_THAT(RowTexts(table, 2), ElementsAre("", "", "", ""));
}

TEST(MeasurementTable, CellsBeyondTheColumnsAddColumns) {
  MeasurementTable table = WithReadings(1);
  Append(table, {"1", "0", "a", "b", "c", "d"});
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time", "Viscosity", "Temp", "Data3", "Data4"));
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "0", "10", "20", "", ""));
  EXPECT_THAT(RowTexts(table, 2), ElementsAre("1", "0", "a", "b", "c", "d"));
}

TEST(MeasurementTable, AddedColumnsAreTitledByTheirDataNumber) {
  MeasurementTable table;
  ASSERT_TRUE(table.AddDataColumn());
  ASSERT_TRUE(table.AddDataColumn());
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time", "Data1", "Data2"));
  table.Reset({"No.", "Time", "a", "b", "c", "d"});
  ASSERT_TRUE(table.AddDataColumn());
  EXPECT_EQ(table.TextMatrix(0, 6), "Data5");
}

TEST(MeasurementTable, ThereIsNoColumnBeyondTheLastPossibleOne) {
  MeasurementTable table;
  table.Reset(Texts(32766, "title"));
  EXPECT_TRUE(table.AddDataColumn());
  EXPECT_EQ(table.Cols(), 32767);
  EXPECT_FALSE(table.AddDataColumn());
  EXPECT_EQ(table.Cols(), 32767);
}

TEST(MeasurementTable, MoreTitlesThanPossibleColumnsAreCut) {
  MeasurementTable table;
  table.Reset(Texts(40000, "title"));
  EXPECT_EQ(table.Cols(), 32767);
}

TEST(MeasurementTable, MoreCellsThanPossibleColumnsAreCut) {
  MeasurementTable table;
  Append(table, Texts(40000, "x"));
  EXPECT_EQ(table.Cols(), 32767);
  EXPECT_EQ(table.TextMatrix(1, 32766), "x");
  EXPECT_EQ(Line(table, 1).size(), 2 * 32767 - 1);
}

TEST(MeasurementTable, ACellOutsideTheTableReadsAsEmpty) {
  const MeasurementTable table = WithReadings(2);
  for (const auto& [row, col] :
       {std::pair<Row, int>{-1, 0}, {0, -1}, {0, 4}, {1, 4}, {1, -1}, {3, 0}, {4, 0}, {1000, 1000}}) {
    EXPECT_EQ(table.TextMatrix(row, col), "") << row << ',' << col;
  }
}

TEST(MeasurementTable, WritingOutsideTheTableChangesNothing) {
  MeasurementTable table = WithReadings(2);
  const auto before = AllTexts(table);
  for (const auto& [row, col] :
       {std::pair<Row, int>{-1, 0}, {0, -1}, {0, 4}, {1, 4}, {1, -1}, {3, 0}, {4, 0}}) {
    table.SetTextMatrix(row, col, "text");
  }
  EXPECT_EQ(AllTexts(table), before);
  EXPECT_EQ(table.Cols(), 4);
}

TEST(MeasurementTable, ACellTakesShorterAndLongerAndEmptyTexts) {
  MeasurementTable table = WithReadings(3);
  for (const std::string text : {"", "x", "a much longer text than the one before", "10"}) {
    table.SetTextMatrix(2, 2, text);
    EXPECT_THAT(RowTexts(table, 2), ElementsAre("1", "1", text, "21"));
  }
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "0", "10", "20"));
  EXPECT_THAT(RowTexts(table, 3), ElementsAre("1", "2", "12", "22"));
}

TEST(MeasurementTable, ACellBehindTheLastStoredOneCanBeWritten) {
  MeasurementTable table = WithReadings(0);
  Append(table, {"1"});
  table.SetTextMatrix(1, 3, "25.1");
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "", "", "25.1"));
}

TEST(MeasurementTable, ACellMayBeCopiedOntoAnother) {
  MeasurementTable table = WithReadings(2);
  table.SetTextMatrix(1, 2, table.TextMatrix(2, 3));
  table.SetTextMatrix(2, 0, table.TextMatrix(2, 2));
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "0", "21", "20"));
  EXPECT_THAT(RowTexts(table, 2), ElementsAre("11", "1", "11", "21"));
}

TEST(MeasurementTable, ATitleIsReplaced) {
  MeasurementTable table = WithReadings(1);
  table.SetTextMatrix(0, 2, "Torque");
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time", "Torque", "Temp"));
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "0", "10", "20"));
}

TEST(MeasurementTable, CellsHoldLongerCharactersAndNuls) {
  MeasurementTable table;
  const Texts cells = {"\xC2\xB0 C", std::string("a\0b", 3), std::string(100'000, 'x'), "\xF0\x9D\x84\x9E"};
  Append(table, cells);
  EXPECT_EQ(RowTexts(table, 1), cells);
}

TEST(MeasurementTable, RemovingRowsClosesTheGap) {
  MeasurementTable table = WithReadings(6);
  table.RemoveRows(2, 4);
  ASSERT_EQ(table.Rows(), 5);
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("1", "0", "10", "20"));
  EXPECT_THAT(RowTexts(table, 2), ElementsAre("1", "4", "14", "24"));
  EXPECT_THAT(RowTexts(table, 3), ElementsAre("1", "5", "15", "25"));
  EXPECT_EQ(table.TextMatrix(4, 0), "");
}

TEST(MeasurementTable, RemovingAllReadingsLeavesTheTitleRowAndTheEntryRow) {
  MeasurementTable table = WithReadings(3);
  table.RemoveRows(1, 3);
  EXPECT_EQ(table.Rows(), 2);
  EXPECT_FALSE(table.HasReadings());
  EXPECT_THAT(RowTexts(table, 0), ElementsAre("No.", "Time", "Viscosity", "Temp"));
  Append(table, {"2", "0", "a", "b"});
  EXPECT_THAT(RowTexts(table, 1), ElementsAre("2", "0", "a", "b"));
}

TEST(MeasurementTable, ALookAtTheCellsOfAReadingEndsWhereTheReadingEnds) {
  const MeasurementTable table = WithReadings(2);
  std::vector<std::string_view> room(MeasurementTable::kMaxCols, "left alone");
  EXPECT_THAT(table.Cells(2, room), ElementsAre("1", "1", "11", "21"));
  EXPECT_EQ(room[4], "left alone");
  EXPECT_THAT(table.Cells(2, std::span(room).first(3)), ElementsAre("1", "1", "11"));
}

TEST(MeasurementTable, ALineIsTheCellsJoinedByTheSeparator) {
  const MeasurementTable table = WithReadings(1);
  EXPECT_EQ(Line(table, 0), "No.,Time,Viscosity,Temp");
  EXPECT_EQ(Line(table, 1), "1,0,10,20");
  EXPECT_EQ(Line(table, 1, ';'), "1;0;10;20");
}

TEST(MeasurementTable, ALineIsPaddedToTheLastColumn) {
  MeasurementTable table = WithReadings(0);
  Append(table, {"1", "0"});
  Append(table, {});
  table.AddDataColumn();
  EXPECT_EQ(Line(table, 1), "1,0,,,");
  EXPECT_EQ(Line(table, 2), ",,,,");
}

TEST(MeasurementTable, TheLineOfTheEntryRowIsEmptyCells) {
  const MeasurementTable table = WithReadings(1);
  EXPECT_EQ(Line(table, table.EntryRow()), ",,,");
}

TEST(MeasurementTable, ALineIsAddedBehindWhatStandsThere) {
  const MeasurementTable table = WithReadings(1);
  std::string line = "before:";
  table.AppendLine(1, ',', line);
  EXPECT_EQ(line, "before:1,0,10,20");
}

// "a,b" and "c" in the form in which the table stores rows, behind bytes that belong to no row.
MeasurementTable WithAdoptedRows() {
  MeasurementTable table;
  table.AdoptRows(
      "??a\xFF"
      "b\xFE"
      "c\xFE",
      {2, 6});
  return table;
}

TEST(MeasurementTable, AdoptedRowsAreReadings) {
  const MeasurementTable table = WithAdoptedRows();
  EXPECT_THAT(AllTexts(table), ElementsAre(Texts{"No.", "Time"}, Texts{"a", "b"}, Texts{"c", ""}));
  EXPECT_EQ(Line(table, 2), "c,");
}

TEST(MeasurementTable, AdoptedRowsComeBehindThoseThatAreThere) {
  MeasurementTable table;
  Append(table, {"1", "2"});
  table.AdoptRows(
      "a\xFF"
      "b\xFE"
      "c\xFE",
      {0, 4});
  table.AdoptRows("d\xFE", {0});
  Append(table, {"3", "4"});
  const std::vector<Texts> expected = {{"No.", "Time"}, {"1", "2"}, {"a", "b"},
                                       {"c", ""},       {"d", ""},  {"3", "4"}};
  EXPECT_EQ(AllTexts(table), expected);
}

TEST(MeasurementTable, AdoptedRowsAreEditedAndRemovedLikeOthers) {
  MeasurementTable table = WithAdoptedRows();
  table.SetTextMatrix(2, 1, "edited");
  EXPECT_THAT(RowTexts(table, 2), ElementsAre("c", "edited"));
  table.RemoveRows(1, 1);
  EXPECT_THAT(AllTexts(table), ElementsAre(Texts{"No.", "Time"}, Texts{"c", "edited"}));
}

TEST(MeasurementTable, RowsAreStoredOneRightBehindTheOther) {
  MeasurementTable table;
  for (int i = 0; i < 100; ++i) Append(table, {"1", "00:00:01", "1234.5"});
  const auto stored = static_cast<std::ptrdiff_t>(std::string_view("1,00:00:01,1234.5,").size());
  for (Row row = 1; row + 1 < table.EntryRow(); ++row) {
    ASSERT_EQ(table.TextMatrix(row + 1, 0).data() - table.TextMatrix(row, 0).data(), stored);
  }
}

TEST(MeasurementTable, AMillionReadingsAreAppendedWithoutMovingOne) {
  MeasurementTable table;
  Append(table, {"1", "first"});
  const char* const first = table.TextMatrix(1, 1).data();
  std::string time;
  for (int i = 2; i <= 1'000'000; ++i) {
    time = std::to_string(i);
    const std::string_view cells[] = {"1", time, "1234.5", "25.1"};
    table.AppendRow(cells);
  }
  EXPECT_EQ(table.EntryRow(), 1'000'001);
  EXPECT_EQ(table.TextMatrix(1, 1).data(), first);
  EXPECT_EQ(table.TextMatrix(1, 1), "first");
  for (Row row = 2; row <= 1'000'000; row += 9973)
    ASSERT_EQ(Line(table, row), "1," + std::to_string(row) + ",1234.5,25.1");
  EXPECT_EQ(Line(table, 1'000'000), "1,1000000,1234.5,25.1");
}

TEST(MeasurementTable, ATableTakenOverByAnotherHoldsTheSameTexts) {
  MeasurementTable source = WithReadings(5);
  const auto texts = AllTexts(source);
  const MeasurementTable copy = source;
  source.SetTextMatrix(1, 1, "changed");
  EXPECT_EQ(AllTexts(copy), texts);
  source.SetTextMatrix(1, 1, "0");
  const MeasurementTable moved = std::move(source);
  EXPECT_EQ(AllTexts(moved), texts);
}

}  // namespace
}  // namespace quenlor::data
