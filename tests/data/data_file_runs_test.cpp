// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/data_file.h"
#include "tests/data/naive_table.h"

namespace quenlor::data {
namespace {

using testing::ElementsAre;

Texts RunRow(const DataFileContents& contents, int run) {
  Texts texts;
  for (int col = 0; col < contents.runs.Cols(); ++col) texts.emplace_back(contents.runs.TextMatrix(run, col));
  return texts;
}

const Texts kRunTitles = {"Sample No.", "Sample Name", "Analysis Time", "Date", "Time"};

TEST(DataFileRuns, InfoLinesFillTheRunTableFromItsTitlesOn) {
  const auto contents =
      ParseDataFile("Info,a,b,c,d,e\r\nInfo,No.1,Oil,00:10:00,d1,t1\r\nInfo,No.2,Water,00:05:00,d2,t2\r\n");
  ASSERT_EQ(contents.runs.Rows(), 3);
  EXPECT_THAT(RunRow(contents, 0), ElementsAre("a", "b", "c", "d", "e"));
  EXPECT_THAT(RunRow(contents, 1), ElementsAre("No.1", "Oil", "00:10:00", "d1", "t1"));
  EXPECT_THAT(RunRow(contents, 2), ElementsAre("No.2", "Water", "00:05:00", "d2", "t2"));
}

TEST(DataFileRuns, InfoLinesWriteOverWhatReadingsPutThere) {
  const auto contents = ParseDataFile("No.,Time\r\n2,0\r\nInfo,t\r\nInfo,No.1,Oil,00:10:00\r\n");
  ASSERT_EQ(contents.runs.Rows(), 3);
  EXPECT_THAT(RunRow(contents, 1), ElementsAre("No.1", "Oil", "00:10:00", "", ""));
  EXPECT_THAT(RunRow(contents, 2), ElementsAre("No.2", "No.2", "", "", ""));
}

TEST(DataFileRuns, AnInfoLineMayBringMoreColumns) {
  const auto contents = ParseDataFile("Info,a,b,c,d,e,f\r\nInfo,No.1,2,3,4,5,6,7\r\n");
  EXPECT_EQ(contents.runs.Cols(), 7);
  EXPECT_EQ(contents.runs.TextMatrix(1, 6), "7");
}

TEST(DataFileRuns, ANumberInAnInfoLineRaisesTheRunCount) {
  const auto contents = ParseDataFile("No.,Time\r\n1,0\r\nInfo,Sample No.\r\nInfo,No.7,Oil\r\n");
  EXPECT_EQ(contents.run_count, 7);
  EXPECT_THAT(RunRow(contents, 1), ElementsAre("No.7", "Oil", "", "", ""));
  EXPECT_THAT(RunRow(contents, 7), ElementsAre("No.7", "No.7", "", "", ""));
}

TEST(DataFileRuns, ALowerNumberInAnInfoLineLeavesTheRunCount) {
  EXPECT_EQ(ParseDataFile("No.,Time\r\n5,0\r\nInfo,t\r\nInfo,No.3,Oil\r\n").run_count, 5);
}

TEST(DataFileRuns, TheRunCountIsTheHighestRunNumber) {
  EXPECT_EQ(ParseDataFile("No.,Time\r\n1,0\r\n3,0\r\n2,0\r\n").run_count, 3);
  EXPECT_EQ(ParseDataFile("No.,Time\r\n").run_count, 0);
}

TEST(DataFileRuns, RunsMissingBetweenTheNumbersAreCalledByTheirNumber) {
  const auto contents = ParseDataFile("No.,Time\r\n1,0\r\n4,0\r\n");
  ASSERT_EQ(contents.runs.Rows(), 5);
  EXPECT_THAT(RunRow(contents, 0), testing::ElementsAreArray(kRunTitles));
  for (int run = 1; run <= 4; ++run) {
    const std::string name = "No." + std::to_string(run);
    EXPECT_THAT(RunRow(contents, run), ElementsAre(name, name, "", "", ""));
  }
}

TEST(DataFileRuns, RunNumbersCountUpTo32767) {
  const auto contents = ParseDataFile(
      "No.,Time\r\n32767,0\r\n32768,0\r\n99999999999,0\r\n1E300,0\r\nInfo,t\r\nInfo,No.40000\r\n");
  EXPECT_EQ(contents.run_count, 32767);
  EXPECT_EQ(contents.runs.Rows(), 32768);
}

TEST(DataFileRuns, RowsWithoutARunNumberAreReadingsThatRaiseNothing) {
  const auto contents = ParseDataFile("No.,Time\r\nx,0\r\n,1\r\n-3,2\r\n0,3\r\n0.5,4\r\n");
  EXPECT_EQ(contents.run_count, 0);
  EXPECT_EQ(contents.table.EntryRow(), 6);
  EXPECT_EQ(contents.runs.Rows(), 1);
}

}  // namespace
}  // namespace quenlor::data
