// SPDX-License-Identifier: MIT
#include "data/edit_choice.h"

#include <gtest/gtest.h>

#include "tests/data/document_builder.h"

namespace quenlor::data {
namespace {

using Mode = EditChoice::Mode;

// Two runs of two readings each in a table of six columns; row 5 is the entry row.
struct EditChoiceTest : testing::Test {
  static constexpr Document::Row kEntryRow = 5;
  static constexpr int kLastCol = 5;

  Laboratory lab;
  Document& document = lab.document;

  EditChoiceTest() {
    lab.Open("No.,Time,Viscosity,Unit1,Temp,Unit2\r\n");
    for (const int run : {1, 2}) {
      lab.AppendRun({"10", "P", "20", "C"});
      lab.Append({"11", "P", "21", "C"}, 5);
      document.SetSampleName(run, "Oil " + std::to_string(run));
    }
  }

  EditChoice Choose(Document::Row row, Document::Row row_sel, int col, int col_sel) const {
    return ChooseEdit(document, row, row_sel, col, col_sel);
  }

  bool MayDeleteRows(Document::Row row, Document::Row row_sel, int col = 1, int col_sel = kLastCol) const {
    return MayDelete(document.Grid1(), row, row_sel, col, col_sel);
  }
};

TEST_F(EditChoiceTest, OneCellIsEditedAsData) {
  const EditChoice choice = Choose(2, 2, 4, 4);
  EXPECT_EQ(choice.mode, Mode::kData);
  EXPECT_EQ(choice.caption, "Data");
  EXPECT_EQ(choice.text, "21");
  EXPECT_EQ(choice.row, 2);
  EXPECT_EQ(choice.col, 4);
}

TEST_F(EditChoiceTest, SeveralCellsOfARowMeanTheRunsName) {
  for (const auto& [col, col_sel] : {std::pair{1, kLastCol}, {3, 2}, {0, 1}}) {
    const EditChoice choice = Choose(3, 3, col, col_sel);
    EXPECT_EQ(choice.mode, Mode::kSampleName);
    EXPECT_EQ(choice.caption, "Sample Name");
    EXPECT_EQ(choice.text, "Oil 2");
    EXPECT_EQ(choice.run, 2);
  }
}

TEST_F(EditChoiceTest, SeveralRowsMeanTheTitleOfTheSelectedColumn) {
  for (const auto& [row, row_sel] :
       {std::pair<Document::Row, Document::Row>{1, 3}, {3, 1}, {4, kEntryRow}, {kEntryRow, 1}}) {
    const EditChoice choice = Choose(row, row_sel, 4, 2);
    EXPECT_EQ(choice.mode, Mode::kTitle);
    EXPECT_EQ(choice.caption, "Title");
    EXPECT_EQ(choice.text, "Temp");
    EXPECT_EQ(choice.col, 4);
  }
}

TEST_F(EditChoiceTest, ATableWithoutReadingsHasOnlyTitlesToEdit) {
  document.RemoveRows(1, 4);
  for (const int col_sel : {2, 5}) {
    const EditChoice choice = Choose(1, 1, 2, col_sel);
    EXPECT_EQ(choice.mode, Mode::kTitle);
    EXPECT_EQ(choice.text, "Viscosity");
  }
}

TEST_F(EditChoiceTest, TheEntryRowIsNotEdited) {
  EXPECT_EQ(Choose(kEntryRow, kEntryRow, 2, 2).mode, Mode::kNothing);
  EXPECT_EQ(Choose(kEntryRow, kEntryRow, 1, kLastCol).mode, Mode::kNothing);
}

TEST_F(EditChoiceTest, NothingIsEditedWithoutASelection) {
  EXPECT_EQ(Choose(-1, -1, 2, 2).mode, Mode::kNothing);
  EXPECT_EQ(Choose(0, 0, 2, 2).mode, Mode::kNothing);
  EXPECT_EQ(Choose(1, 1, -1, -1).mode, Mode::kNothing);
}

TEST_F(EditChoiceTest, ARowWhoseRunIsNotThereHasNoNameToEdit) {
  for (const char* run : {"0", "3", "-1", "", "x", "99999999999", "1E300"}) {
    document.SetCell(1, 0, run);
    EXPECT_EQ(Choose(1, 1, 1, kLastCol).mode, Mode::kNothing) << run;
  }
}

TEST_F(EditChoiceTest, TheRunIsReadFromTheRowsFirstCell) {
  document.SetCell(1, 0, " 2");
  EXPECT_EQ(Choose(1, 1, 1, kLastCol).text, "Oil 2");
}

TEST_F(EditChoiceTest, EditedDataReplacesTheCell) {
  ApplyEdit(Choose(2, 2, 4, 4), "25,5", document);
  EXPECT_EQ(RowTexts(document.Grid1(), 2), (Texts{"1", "00:00:05", "11", "P", "25,5", "C"}));
}

TEST_F(EditChoiceTest, UnchangedDataChangesNothing) {
  WritingListener listener;
  document.AddListener(listener);
  ApplyEdit(Choose(2, 2, 4, 4), "21", document);
  EXPECT_EQ(listener.heard, Texts{});
}

TEST_F(EditChoiceTest, AnEditedNameBecomesTheRuns) {
  const auto before = AllTexts(document.Grid1());
  ApplyEdit(Choose(3, 3, 1, kLastCol), "Water", document);
  EXPECT_EQ(document.Grid4().TextMatrix(2, 1), "Water");
  EXPECT_EQ(document.Grid4().TextMatrix(1, 1), "Oil 1");
  EXPECT_EQ(AllTexts(document.Grid1()), before);
}

TEST_F(EditChoiceTest, AnEditedTitleBecomesTheColumns) {
  ApplyEdit(Choose(1, 3, 4, 2), "Oven", document);
  EXPECT_EQ(RowTexts(document.Grid1(), 0), (Texts{"No.", "Time", "Viscosity", "Unit1", "Oven", "Unit2"}));
}

TEST_F(EditChoiceTest, WhereNothingIsEditedNothingChanges) {
  const std::string before = lab.Bytes();
  ApplyEdit(Choose(kEntryRow, kEntryRow, 2, 2), "text", document);
  EXPECT_EQ(lab.Bytes(), before);
}

TEST_F(EditChoiceTest, WholeRowsOfReadingsMayBeDeleted) {
  EXPECT_TRUE(MayDeleteRows(1, 1));
  EXPECT_TRUE(MayDeleteRows(1, 4));
  EXPECT_TRUE(MayDeleteRows(4, 1));
}

TEST_F(EditChoiceTest, DeleteDoesNothingWithTheEntryRowInsideTheSelection) {
  EXPECT_FALSE(MayDeleteRows(1, kEntryRow));
  EXPECT_FALSE(MayDeleteRows(kEntryRow, 1));
  EXPECT_FALSE(MayDeleteRows(kEntryRow, kEntryRow));
  EXPECT_FALSE(MayDeleteRows(1, kEntryRow + 1));
}

TEST_F(EditChoiceTest, DeleteDoesNothingWhenTheSelectionDoesNotStartAtColumnOne) {
  EXPECT_FALSE(MayDeleteRows(1, 2, 0));
  EXPECT_FALSE(MayDeleteRows(1, 2, 2));
  EXPECT_FALSE(MayDeleteRows(1, 2, kLastCol, 1));
}

TEST_F(EditChoiceTest, DeleteDoesNothingWhenTheSelectionDoesNotEndAtTheLastColumn) {
  EXPECT_FALSE(MayDeleteRows(1, 2, 1, kLastCol - 1));
  EXPECT_FALSE(MayDeleteRows(1, 2, 1, kLastCol + 1));
  EXPECT_FALSE(MayDeleteRows(1, 2, 1, 1));
}

TEST_F(EditChoiceTest, DeleteDoesNothingWithTheTitleRowOrWithoutASelection) {
  EXPECT_FALSE(MayDeleteRows(0, 2));
  EXPECT_FALSE(MayDeleteRows(2, 0));
  EXPECT_FALSE(MayDeleteRows(-1, -1));
}

TEST_F(EditChoiceTest, DeleteFollowsTheColumnsThatAReadingAdded) {
  lab.Append({"1", "2", "3", "4", "5"}, 6);
  EXPECT_FALSE(MayDeleteRows(1, 2, 1, kLastCol));
  EXPECT_TRUE(MayDeleteRows(1, 2, 1, kLastCol + 1));
}

}  // namespace
}  // namespace quenlor::data
