// SPDX-License-Identifier: MIT
#include "data/run_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quenlor::data {
namespace {

using testing::ElementsAre;

std::vector<std::string> RowTexts(const RunTable& runs, int row) {
  std::vector<std::string> texts(static_cast<std::size_t>(runs.Cols()));
  for (int col = 0; col < runs.Cols(); ++col)
    texts[static_cast<std::size_t>(col)] = runs.TextMatrix(row, col);
  return texts;
}

TEST(RunTable, IsTheTitlesAtFirst) {
  const RunTable runs;
  EXPECT_EQ(runs.Rows(), 1);
  EXPECT_EQ(runs.Cols(), 5);
  EXPECT_THAT(RowTexts(runs, 0), ElementsAre("Sample No.", "Sample Name", "Analysis Time", "Date", "Time"));
}

TEST(RunTable, ANewRunIsCalledByItsNumber) {
  RunTable runs;
  runs.AddRunsUpTo(2);
  ASSERT_EQ(runs.Rows(), 3);
  EXPECT_THAT(RowTexts(runs, 1), ElementsAre("No.1", "No.1", "", "", ""));
  EXPECT_THAT(RowTexts(runs, 2), ElementsAre("No.2", "No.2", "", "", ""));
}

TEST(RunTable, RunsThatAreThereAreLeftAsTheyAre) {
  RunTable runs;
  runs.AddRunsUpTo(2);
  runs.SetTextMatrix(1, 1, "Oil");
  runs.AddRunsUpTo(1);
  runs.AddRunsUpTo(0);
  runs.AddRunsUpTo(3);
  EXPECT_EQ(runs.Rows(), 4);
  EXPECT_EQ(runs.TextMatrix(1, 1), "Oil");
}

TEST(RunTable, WritingACellAddsTheRowsUpToIt) {
  RunTable runs;
  runs.SetTextMatrix(3, 2, "00:10:00");
  ASSERT_EQ(runs.Rows(), 4);
  EXPECT_THAT(RowTexts(runs, 2), ElementsAre("No.2", "No.2", "", "", ""));
  EXPECT_THAT(RowTexts(runs, 3), ElementsAre("No.3", "No.3", "00:10:00", "", ""));
}

TEST(RunTable, WritingACellAddsTheColumnsUpToIt) {
  RunTable runs;
  runs.SetTextMatrix(1, 6, "more");
  EXPECT_EQ(runs.Cols(), 7);
  EXPECT_THAT(RowTexts(runs, 0),
              ElementsAre("Sample No.", "Sample Name", "Analysis Time", "Date", "Time", "", ""));
  EXPECT_THAT(RowTexts(runs, 1), ElementsAre("No.1", "No.1", "", "", "", "", "more"));
}

TEST(RunTable, TitlesAreWrittenLikeOtherCells) {
  RunTable runs;
  runs.SetTextMatrix(0, 1, "Name");
  EXPECT_THAT(RowTexts(runs, 0), ElementsAre("Sample No.", "Name", "Analysis Time", "Date", "Time"));
  EXPECT_EQ(runs.Rows(), 1);
}

TEST(RunTable, ACellOutsideTheTableReadsAsEmpty) {
  RunTable runs;
  runs.AddRunsUpTo(1);
  for (const auto& [row, col] : {std::pair{-1, 0}, {0, -1}, {0, 5}, {1, 4}, {1, 100}, {2, 0}}) {
    EXPECT_EQ(runs.TextMatrix(row, col), "") << row << ',' << col;
  }
}

TEST(RunTable, WritingBeforeTheFirstRowOrColumnChangesNothing) {
  RunTable runs;
  runs.SetTextMatrix(-1, 0, "text");
  runs.SetTextMatrix(1, -1, "text");
  EXPECT_EQ(runs.Rows(), 1);
  EXPECT_EQ(runs.Cols(), 5);
}

TEST(RunTable, EmptyingItLeavesTheTitlesAlone) {
  RunTable runs;
  runs.SetTextMatrix(3, 7, "text");
  runs.SetTextMatrix(0, 0, "other title");
  runs.InitRunInfoGrid();
  EXPECT_EQ(runs.Rows(), 1);
  EXPECT_THAT(RowTexts(runs, 0), ElementsAre("Sample No.", "Sample Name", "Analysis Time", "Date", "Time"));
}

TEST(RunTable, HoldsAsManyRunsAsThereAreRunNumbers) {
  RunTable runs;
  runs.AddRunsUpTo(32767);
  EXPECT_EQ(runs.Rows(), 32768);
  EXPECT_EQ(runs.TextMatrix(32767, 0), "No.32767");
}

TEST(RunTable, ColumnsBeyondTheLastPossibleOneAreNotKept) {
  RunTable table;
  table.SetTextMatrix(1, 100'000, "noise");
  EXPECT_LE(table.Cols(), RunTable::kMostCols);
}

TEST(RunNumber, IsTheNumberAtTheStartOfTheCellWithoutItsDecimals) {
  EXPECT_EQ(RunNumber("1"), 1);
  EXPECT_EQ(RunNumber(" 12x"), 12);
  EXPECT_EQ(RunNumber("1.6"), 1);
  EXPECT_EQ(RunNumber("1,6"), 1);
  EXPECT_EQ(RunNumber("32767"), 32767);
  EXPECT_EQ(RunNumber("32767.9"), 32767);
}

TEST(RunNumber, IsZeroForEverythingThatIsNoRun) {
  for (const char* cell : {"", "No.1", "0", "0.9", "-1", "32768", "1E9", "1E999"})
    EXPECT_EQ(RunNumber(cell), 0) << cell;
}

}  // namespace
}  // namespace quenlor::data
