// SPDX-License-Identifier: MIT
//
// The measurement table in the main window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/window/change_editor.h"
#include "tests/app/window/window_test.h"

namespace quenlor::app {
namespace {

using platform::Answer;

using TableWindowTest = WindowTest;

TEST_F(TableWindowTest, RowsOfAHeaderClickAreDeletedAfterTheQuestion) {
  Open();
  Start();
  for (const char* line : {"1", "2", "3", "4"}) Reading(line);
  ShowRows(5);
  SelectRows(2, 1);  // from the bottom up
  dialogs.Answer(Answer::kCancel);
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_EQ(window->Document().Grid1().Rows(), 6);
  dialogs.Answer(Answer::kOk, [this] { Reading("5"); });
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_EQ(Readings(), "1|00:00:00|1|||\n1|00:00:03|4|||\n1|00:00:04|5|||\n");
  ASSERT_EQ(dialogs.Boxes().size(), 2u);
  EXPECT_EQ(dialogs.Boxes()[0].text, "Delete Data ?");
  EXPECT_EQ(dialogs.Boxes()[0].buttons, platform::Buttons::kOkCancel);
  EXPECT_EQ(dialogs.Boxes()[0].icon, platform::Icon::kQuestion);
  EXPECT_EQ(dialogs.Boxes()[0].default_answer, Answer::kCancel);
}

TEST_F(TableWindowTest, DeleteIsIgnoredWithTheEntryRowOrPartOfARowSelected) {
  Open();
  Start();
  Reading("1,2");
  ShowRows(2);
  SelectRows(0, 1);  // the entry row is inside
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  auto* grid = Find<GridView>("Grid1");
  const QPoint cell = grid->visualRect(grid->model()->index(0, 1)).center();
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
  QTest::keyClick(grid, Qt::Key_Delete);
  EXPECT_EQ(window->Document().Grid1().Rows(), 3);
}

TEST_F(TableWindowTest, ArrivingRowsLeaveTheSelectionAlone) {
  Open();
  Start();
  Reading("1");
  Reading("2");
  ShowRows(3);
  SelectRows(0, 0);
  const platform::qt::GridSelection before = Find<GridView>("Grid1")->Selection();
  for (int i = 0; i < 200; ++i) Line("3");
  ShowRows(203);
  const platform::qt::GridSelection after = Find<GridView>("Grid1")->Selection();
  EXPECT_EQ(after.Row, before.Row);
  EXPECT_EQ(after.RowSel, before.RowSel);
  EXPECT_EQ(after.ColSel, window->Document().Grid1().Cols() - 1);
  auto* grid = Find<GridView>("Grid1");
  EXPECT_GE(grid->rowAt(grid->viewport()->height() - 1), 201) << "the newest row is in view";
}

TEST_F(TableWindowTest, DoubleClickEditsACellOnlyWhileStopped) {
  Open();
  Start();
  Reading("1.0");
  ShowRows(2);
  auto* grid = Find<GridView>("Grid1");
  const auto double_click = [&](int row, int column) {
    const QPoint cell = grid->visualRect(grid->model()->index(row, column)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
  };
  double_click(0, 1);  // a box would wait for ever here
  Click("Command1");

  EXPECT_EQ(Edit([&] { double_click(0, 1); }, Enter("7.5")), (Editor{"Data", "1.0", "1.0"}));
  EXPECT_EQ(Readings(), "1|00:00:00|7.5|||\n");
  double_click(1, 1);  // the entry row is not edited
}

TEST_F(TableWindowTest, ColumnMenusAreFilledWhenOpened) {
  Open();
  auto* menu = Find<QMenu>("mV");
  EXPECT_TRUE(menu->isEmpty());
  emit menu->aboutToShow();
  ASSERT_EQ(menu->actions().size(), 4);
  EXPECT_EQ(menu->actions()[2]->text(), "Temp");
  EXPECT_TRUE(menu->actions()[0]->isChecked());
  menu->actions()[3]->trigger();
  EXPECT_EQ(window->Document().ViscoColumn(), 5);
}

TEST_F(TableWindowTest, AMillionReadingsAndStillNoWaiting) {
  std::string bytes = "No.,Time,Viscosity,Unit1,Temp,Unit2\r\n";
  for (int i = 0; i < 1'000'000; ++i) bytes += "1,00:00:00,1234.5,mPa.s,25.1,C\r\n";
  files.Put("/data/big.csv", bytes);
  Open();
  window->OpenFile("/data/big.csv");
  EXPECT_EQ(Find<GridView>("Grid1")->model()->rowCount(), 1'000'001);
  Start();
  for (int i = 0; i < 1000; ++i) Line("1 mPa.s,2 C");
  ShowRows(1'001'001);
  EXPECT_EQ(window->Document().Grid1().TextMatrix(1'001'000, 0), "2");
}

TEST_F(TableWindowTest, TheStatusLineSaysWhichRowsAreToBeDeleted) {
  Open();
  Start();
  for (const char* line : {"1", "2", "3"}) Reading(line);
  ShowRows(4);
  const QString before = Find<QLabel>("Status")->text();
  const auto expect = [this](const char* text) {
    return [this, text] { EXPECT_EQ(Find<QLabel>("Status")->text(), text); };
  };
  SelectRows(1, 2);
  dialogs.Answer(Answer::kCancel, expect("Rows 2 to 3 are to be deleted"));
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
  EXPECT_EQ(Find<QLabel>("Status")->text(), before);
  SelectRows(0, 0);
  dialogs.Answer(Answer::kCancel, expect("Row 1 is to be deleted"));
  QTest::keyClick(Find<GridView>("Grid1"), Qt::Key_Delete);
}

}  // namespace
}  // namespace quenlor::app
