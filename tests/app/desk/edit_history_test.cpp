// SPDX-License-Identifier: MIT
#include "app/desk/edit_history.h"

#include <gtest/gtest.h>

#include "data/data_file.h"
#include "data/settings_list.h"

namespace quenlor::app {
namespace {

class EditHistoryTest : public testing::Test {
 protected:
  EditHistoryTest() { Open(); }
  void Open() {
    document.Load(
        data::ParseDataFile("No.,Time,Visco,Temp\r\n1,0,10,20\r\n1,1,11,21\r\n1,2,12,22\r\n2,0,13,23\r\n"
                            "Info,Sample No.,Sample Name\r\nInfo,No.1,oil\r\nInfo,No.2,resin\r\n"),
        "a.csv", "");
  }
  std::string Table() const {
    std::string text;
    for (data::Document::Row row = 0; row < document.Grid1().EntryRow(); ++row) {
      document.Grid1().AppendLine(row, ',', text);
      text += '\n';
    }
    return text;
  }
  std::string Name(int run) const { return std::string(document.Grid4().TextMatrix(run, 1)); }
  data::EditChoice Cell(int row, int col) const { return data::ChooseEdit(document, row, row, col, col); }

  data::SettingsList settings;
  data::Document document{settings};
  EditHistory history{document};
};

TEST_F(EditHistoryTest, DeletedRowsComeBackWhereTheyWere) {
  const std::string before = Table();
  history.RemoveRows(2, 3);
  const std::string after = Table();
  EXPECT_NE(after, before);
  EXPECT_EQ(history.Undo(), "2 rows are back");
  EXPECT_EQ(Table(), before);
  EXPECT_EQ(history.Redo(), "2 rows are deleted again");
  EXPECT_EQ(Table(), after);
  EXPECT_EQ(history.Undo(), "2 rows are back");
  EXPECT_EQ(Table(), before);
}

TEST_F(EditHistoryTest, AllRowsComeBack) {
  const std::string before = Table();
  history.RemoveRows(4, 1);
  EXPECT_FALSE(document.Grid1().HasReadings());
  history.Undo();
  EXPECT_EQ(Table(), before);
}

TEST_F(EditHistoryTest, EveryTextHasAWayBack) {
  history.Edit(Cell(2, 2), "99");
  history.Edit(data::SampleNameEdit(document, 2), "glue");
  history.Edit({data::EditChoice::Mode::kTitle, "Title", "Visco", 0, 2, 0}, "Viscosity");
  history.Edit(data::RemarksEdit(document), "warm");
  history.Edit(data::FileNameEdit(document), "b/c");
  EXPECT_EQ(document.FileName(), "b c");
  EXPECT_EQ(history.Undo(), "File Name is \"a.csv\" again");
  EXPECT_EQ(document.FileName(), "a.csv");
  history.Undo();
  EXPECT_EQ(document.Remarks(), "Remarks:          ");
  history.Undo();
  EXPECT_EQ(document.Grid1().TextMatrix(0, 2), "Visco");
  history.Undo();
  EXPECT_EQ(Name(2), "resin");
  EXPECT_EQ(history.Undo(), "Data is \"11\" again");
  EXPECT_FALSE(history.CanUndo());
  EXPECT_EQ(history.Undo(), "");
  for (int i = 0; i < 5; ++i) history.Redo();
  EXPECT_EQ(document.Grid1().TextMatrix(2, 2), "99");
  EXPECT_EQ(Name(2), "glue");
  EXPECT_EQ(document.FileName(), "b c");
  EXPECT_EQ(history.Redo(), "");
}

TEST_F(EditHistoryTest, StepsOfSeveralKindsGoBackInTheirOrder) {
  const std::string before = Table();
  history.Edit(Cell(3, 2), "1");
  history.RemoveRows(1, 1);
  history.Edit(Cell(2, 2), "2");  // the row that was the third
  history.RemoveRows(2, 3);
  const std::string after = Table();
  while (history.CanUndo()) history.Undo();
  EXPECT_EQ(Table(), before);
  while (history.CanRedo()) history.Redo();
  EXPECT_EQ(Table(), after);
}

TEST_F(EditHistoryTest, ReadingsThatComeMeanwhileStay) {
  history.RemoveRows(1, 2);
  document.AppendReading({}, {1e9, 0});
  history.Undo();
  EXPECT_EQ(document.Grid1().EntryRow(), 6);
  EXPECT_EQ(document.Grid1().TextMatrix(1, 2), "10");
  EXPECT_EQ(document.Grid1().TextMatrix(5, 0), "3");
}

TEST_F(EditHistoryTest, ANewEditEndsTheWayForward) {
  history.RemoveRows(1, 1);
  history.Undo();
  history.Edit(Cell(1, 2), "5");
  EXPECT_FALSE(history.CanRedo());
}

TEST_F(EditHistoryTest, WhatChangesNothingIsNoStep) {
  history.Edit(Cell(1, 2), "10");
  history.Edit(data::SampleNameEdit(document, 1), "oil");
  history.RemoveRows(0, 0);
  history.RemoveRows(7, 9);
  EXPECT_FALSE(history.CanUndo());
}

TEST_F(EditHistoryTest, AnotherDocumentHasNoPast) {
  history.RemoveRows(1, 1);
  history.Undo();
  history.RemoveRows(1, 1);
  Open();
  EXPECT_FALSE(history.CanUndo());
  EXPECT_FALSE(history.CanRedo());
}

}  // namespace
}  // namespace quenlor::app
