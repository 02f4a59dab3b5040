// SPDX-License-Identifier: MIT
#include "graph/value_arrays.h"

#include <cmath>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/painted_rows.h"
#include "tests/graph/plot_readings.h"

namespace quenlor::graph {
namespace {

using testing::ElementsAre;

std::vector<Index> FirstOfRuns(const ValueArrays& values) {
  std::vector<Index> first;
  for (const ValueArrays::Run& run : values.Runs()) first.push_back(run.first);
  return first;
}

data::MeasurementTable TableOfCells(const std::vector<std::vector<std::string_view>>& rows) {
  data::MeasurementTable table;
  for (const auto& row : rows) table.AppendRow(row);
  return table;
}

TEST(ValueArrays, AreEmptyWithoutReadings) {
  const ValueArrays values = ValuesOf({});
  EXPECT_EQ(values.Size(), 0);
  EXPECT_TRUE(values.Runs().empty());
  EXPECT_EQ(values.SeriesCount(), 0);
  EXPECT_FALSE(values.Extremes().HasReadings);
  EXPECT_EQ(values.Extremes().LastTime, 0);
  EXPECT_EQ(values.Extremes().DataViscoMax, 0);
  EXPECT_EQ(values.Extremes().PosViscoMin, 0);
  EXPECT_EQ(values.LastRow(1), 0);
}

TEST(ValueArrays, CellsAreReadAsNumbersAndTimes) {
  const auto table = TableOfCells({{"1", "01:02:05", "12,5", "-3"}, {"1", "90", "1e2 mPas", " 25.5"}});
  ValueArrays values;
  CopyAll(values, table);
  EXPECT_EQ(values.Time()[0], 3725);
  EXPECT_EQ(values.Visco()[0], 12.5);
  EXPECT_EQ(values.Temp()[0], -3);
  EXPECT_EQ(values.Time()[1], 90);
  EXPECT_EQ(values.Visco()[1], 100);
  EXPECT_EQ(values.Temp()[1], 25.5);
}

TEST(ValueArrays, WhatIsNoNumberCountsAsZero) {
  const auto table = TableOfCells({{"No", "soon", "", "high"}, {"1"}});
  ValueArrays values;
  CopyAll(values, table);
  EXPECT_EQ(values.Size(), 2);
  for (Index i = 0; i < 2; ++i) {
    EXPECT_EQ(values.Time()[i], 0);
    EXPECT_EQ(values.Visco()[i], 0);
    EXPECT_EQ(values.Temp()[i], 0);
  }
  EXPECT_EQ(values.Runs()[0].number, 0);
}

TEST(ValueArrays, AllColumnsInOneWalkAreWhatTheyAreOneByOne) {
  std::mt19937 random(11);
  data::MeasurementTable table;
  for (int row = 0; row < 3000; ++row) {
    const std::string number = std::to_string(row / 700);
    const std::string time = std::to_string(static_cast<int>(random() % 9000) - 1000);
    const std::string visco = CellText(std::uniform_real_distribution(-5.0, 50.0)(random));
    const std::string temp = random() % 7 == 0 ? "none" : std::to_string(random() % 90);
    table.AppendRow(std::vector<std::string_view>{number, time, visco, temp});
  }
  ValueArrays one_by_one;
  CopyAll(one_by_one, table);
  ValueArrays at_once = ValuesOf({{}});  // holds something else
  const std::uint64_t generation = at_once.Generation();
  at_once.CopyAll(table, kViscoColumn, kTempColumn);

  EXPECT_NE(at_once.Generation(), generation);
  ASSERT_EQ(at_once.Size(), 3000);
  for (Index i = 0; i < at_once.Size(); ++i) {
    ASSERT_EQ(at_once.Time()[i], one_by_one.Time()[i]);
    ASSERT_EQ(at_once.Visco()[i], one_by_one.Visco()[i]);
    ASSERT_EQ(at_once.Temp()[i], one_by_one.Temp()[i]);
  }
  EXPECT_EQ(FirstOfRuns(at_once), FirstOfRuns(one_by_one));
  EXPECT_EQ(at_once.LastRow(3), one_by_one.LastRow(3));
  EXPECT_EQ(at_once.Extremes().LastTime, one_by_one.Extremes().LastTime);
  EXPECT_EQ(at_once.Extremes().DataViscoMin, one_by_one.Extremes().DataViscoMin);
  EXPECT_EQ(at_once.Extremes().PosViscoMin, one_by_one.Extremes().PosViscoMin);
  EXPECT_EQ(at_once.Extremes().DataTempMax, one_by_one.Extremes().DataTempMax);
}

TEST(ValueArrays, WhatAllReadingsSpanIsWhatTheySpanOneAfterTheOther) {
  for (const std::vector<double>& numbers : {std::vector<double>{3, -1, 0, 2}, {-4, -2}, {0, 0}, {5}}) {
    std::vector<TestReading> readings;
    data::MeasurementTable table;
    ValueArrays copied;
    for (const double number : numbers) {
      readings.push_back({1, 0, number, number});
      Append(table, readings.back());
      CopyNewest(copied, table);
    }
    const DataExtremes all = ValuesOf(readings).Extremes();
    EXPECT_EQ(all.DataViscoMin, copied.Extremes().DataViscoMin);
    EXPECT_EQ(all.DataViscoMax, copied.Extremes().DataViscoMax);
    EXPECT_EQ(all.PosViscoMin, copied.Extremes().PosViscoMin);
    EXPECT_EQ(all.PosViscoMax, copied.Extremes().PosViscoMax);
    EXPECT_EQ(all.DataTempMin, copied.Extremes().DataTempMin);
    EXPECT_EQ(all.DataTempMax, copied.Extremes().DataTempMax);
  }
}

TEST(ValueArrays, NumbersWithoutBoundsStayFinite) {
  const auto table = TableOfCells({{"99999999999999999999", "1e999", "-1e999", "1e308"}});
  ValueArrays values;
  CopyAll(values, table);
  EXPECT_EQ(values.Time()[0], std::numeric_limits<double>::max());
  EXPECT_EQ(values.Visco()[0], std::numeric_limits<double>::lowest());
  EXPECT_EQ(values.Runs()[0].number, 0) << "no run has such a number";
}

TEST(ValueArrays, ARunNumberIsReadWithoutItsDecimals) {
  ValueArrays values;
  CopyAll(values, TableOfCells({{"1.6"}, {"2"}, {"-1"}}));
  EXPECT_EQ(values.Runs()[0].number, 1);
  EXPECT_EQ(values.Runs()[1].number, 2);
  EXPECT_EQ(values.Runs()[2].number, 0);
}

TEST(ValueArrays, ARunIsAStretchOfEqualNumbersHoweverTheyAreWritten) {
  const auto table = TableOfCells({{"1"}, {"01"}, {"2"}, {"02"}, {"1 "}, {"1.6"}, {"x"}, {"y"}});
  ValueArrays values;
  CopyAll(values, table);
  EXPECT_THAT(FirstOfRuns(values), ElementsAre(0, 2, 4, 6));
  EXPECT_EQ(values.Runs()[2].number, 1);
  EXPECT_EQ(values.RunEnd(0), 2);
  EXPECT_EQ(values.RunEnd(3), 8);
  EXPECT_EQ(values.RunOf(0), 0U);
  EXPECT_EQ(values.RunOf(1), 0U);
  EXPECT_EQ(values.RunOf(2), 1U);
  EXPECT_EQ(values.RunOf(5), 2U);
  EXPECT_EQ(values.SeriesCount(), 3);
  EXPECT_EQ(values.LastRow(1), 6);
}

TEST(ValueArrays, AWrittenRunIsAStretchOfEqualTexts) {
  const auto table = TableOfCells({{"1"}, {"1"}, {"01"}, {"1"}, {"2"}});
  ValueArrays values;
  CopyAll(values, table);
  std::vector<Index> firsts;
  for (const ValueArrays::Run& run : values.WrittenRuns()) firsts.push_back(run.first);
  EXPECT_THAT(firsts, ElementsAre(0, 2, 3, 4));
  EXPECT_EQ(values.WrittenRuns()[1].number, 1);
}

TEST(ValueArrays, SeriesCountCountsDistinctNumbers) {
  EXPECT_EQ(ValuesOf({{1}, {1}}).SeriesCount(), 1);
  EXPECT_EQ(ValuesOf({{1}, {2}, {1}, {11}}).SeriesCount(), 3);
}

TEST(ValueArrays, ExtremesAreThoseOfAllReadings) {
  const auto extremes = ValuesOf({{1, 10, -5, 20}, {1, 30, 0, -7}, {2, 5, 8, 3}, {2, 6, 0.5, 3}}).Extremes();
  EXPECT_TRUE(extremes.HasReadings);
  EXPECT_EQ(extremes.DataViscoMin, -5);
  EXPECT_EQ(extremes.DataViscoMax, 8);
  EXPECT_EQ(extremes.PosViscoMin, 0.5);
  EXPECT_EQ(extremes.PosViscoMax, 8);
  EXPECT_EQ(extremes.DataTempMin, -7);
  EXPECT_EQ(extremes.DataTempMax, 20);
}

TEST(ValueArrays, WithoutPositiveViscosityItsExtremesAreZero) {
  const auto extremes = ValuesOf({{1, 0, -5}, {1, 1, 0}}).Extremes();
  EXPECT_EQ(extremes.PosViscoMin, 0);
  EXPECT_EQ(extremes.PosViscoMax, 0);
  EXPECT_EQ(extremes.DataViscoMax, 0);
  EXPECT_EQ(extremes.DataViscoMin, -5);
}

TEST(ValueArrays, LastTimeIsTheLargestOfAllReadings) {
  auto table = TableOf({{1, 100}, {1, 300}});
  ValueArrays values;
  CopyAll(values, table);
  Append(table, {2, 5});
  CopyNewest(values, table);
  EXPECT_EQ(values.Extremes().LastTime, 300);
  values.CopyAll_Time(table);
  EXPECT_EQ(values.Extremes().LastTime, 300);
}

TEST(ValueArrays, AppendingOneByOneGivesWhatARescanGives) {
  data::MeasurementTable table;
  ValueArrays appended;
  const auto generation = appended.Generation();
  std::mt19937 engine(7);
  std::uniform_real_distribution<double> value(-10, 90);
  for (int i = 0; i < 3000; ++i) {
    Append(table, {1 + i / 700, i * 0.5, value(engine), value(engine)});
    CopyNewest(appended, table);
  }
  ValueArrays scanned;
  CopyAll(scanned, table);

  EXPECT_EQ(appended.Generation(), generation) << "nothing but appended";
  ASSERT_EQ(appended.Size(), scanned.Size());
  EXPECT_EQ(FirstOfRuns(appended), FirstOfRuns(scanned));
  EXPECT_EQ(appended.SeriesCount(), scanned.SeriesCount());
  EXPECT_EQ(appended.Extremes().DataViscoMin, scanned.Extremes().DataViscoMin);
  EXPECT_EQ(appended.Extremes().PosViscoMin, scanned.Extremes().PosViscoMin);
  EXPECT_EQ(appended.Extremes().DataTempMax, scanned.Extremes().DataTempMax);
  for (Index i = 0; i < appended.Size(); ++i) ASSERT_EQ(appended.Visco()[i], scanned.Visco()[i]);
  for (int run = 1; run <= 10; ++run) EXPECT_EQ(appended.LastRow(run), scanned.LastRow(run));
}

TEST(ValueArrays, AReadingOutOfStepMakesTheColumnBeReadAgain) {
  auto table = TableOf({{1, 1, 10, 20}, {1, 2, 11, 21}});
  ValueArrays values;
  CopyNewest(values, table);  // the first row was never copied
  EXPECT_EQ(values.Size(), 2);
  EXPECT_EQ(values.Visco()[0], 10);
  CopyNewest(values, table);  // the same one again
  EXPECT_EQ(values.Size(), 2);
  EXPECT_EQ(values.Temp()[1], 21);
}

TEST(ValueArrays, AnEditAndADeletionAreSeenByARescan) {
  auto table = TableOf({{1, 1, 10, 20}, {1, 2, 500, 21}, {2, 3, 12, 22}});
  ValueArrays values;
  CopyAll(values, table);
  const auto generation = values.Generation();

  table.SetTextMatrix(1, kViscoColumn, "7");
  values.CopyAll_Visco(table, kViscoColumn);
  EXPECT_EQ(values.Extremes().DataViscoMin, 7);
  EXPECT_NE(values.Generation(), generation);

  table.RemoveRows(2, 3);
  CopyAll(values, table);
  EXPECT_EQ(values.Size(), 1);
  EXPECT_EQ(values.Extremes().DataViscoMax, 7);
  EXPECT_EQ(values.SeriesCount(), 1);

  table.RemoveRows(1, 1);
  CopyAll(values, table);
  EXPECT_EQ(values.Size(), 0);
  EXPECT_FALSE(values.Extremes().HasReadings);
  EXPECT_EQ(values.Extremes().LastTime, 0);
}

TEST(ValueArrays, OnlyCompleteReadingsCount) {
  const auto table = TableOf({{1, 1, 10, 20}, {2, 2, 11, 21}});
  ValueArrays values;
  values.CopyAll_Time(table);
  EXPECT_EQ(values.Size(), 0);
  EXPECT_EQ(values.RunEnd(1), 0);
  values.CopyAll_Visco(table, kViscoColumn);
  EXPECT_EQ(values.Size(), 0);
  values.CopyAll_Temp(table, kTempColumn);
  EXPECT_EQ(values.Size(), 2);
}

TEST(ValueArrays, TheNewestRowOfEachOfTheFirstTenRunsIsKnown) {
  const ValueArrays values = ValuesOf({{1}, {1}, {10}, {11}, {1}, {0}, {-1}});
  EXPECT_EQ(values.LastRow(1), 5);
  EXPECT_EQ(values.LastRow(10), 3);
  EXPECT_EQ(values.LastRow(2), 0);
}

TEST(ValueColumn, NumbersThatAreNoneBecomeSome) {
  ValueColumn column;
  column.Append(std::numeric_limits<double>::quiet_NaN());
  column.Append(std::numeric_limits<double>::infinity());
  column.Append(-std::numeric_limits<double>::infinity());
  EXPECT_EQ(column[0], 0);
  EXPECT_EQ(column[1], std::numeric_limits<double>::max());
  EXPECT_EQ(column[2], std::numeric_limits<double>::lowest());
}

class ValueColumnSummaries : public testing::Test {
 protected:
  ValueColumnSummaries() {
    std::uniform_real_distribution<double> value(-20, 20);
    for (int i = 0; i < 40000; ++i) column_.Append(i % 977 == 0 ? 0 : value(engine_) + i / 5000);
  }

  ValueColumn::Extremes Naive(Index begin, Index end) const {
    ValueColumn::Extremes all;
    for (Index i = begin; i < end; ++i) {
      all.min = std::min(all.min, column_[i]);
      all.max = std::max(all.max, column_[i]);
      if (column_[i] > 0) all.positive_min = std::min(all.positive_min, column_[i]);
    }
    return all;
  }

  std::mt19937 engine_{3};
  ValueColumn column_;
};

TEST_F(ValueColumnSummaries, TellTheExtremesOfEveryStretch) {
  std::uniform_int_distribution<Index> any(0, column_.Size());
  for (int i = 0; i < 2000; ++i) {
    const auto [begin, end] = std::minmax({any(engine_), any(engine_)});
    const auto found = column_.ExtremesOf(begin, end);
    const auto expected = Naive(begin, end);
    ASSERT_EQ(found.min, expected.min) << begin << " to " << end;
    ASSERT_EQ(found.max, expected.max);
    ASSERT_EQ(found.positive_min, expected.positive_min);
  }
}

TEST_F(ValueColumnSummaries, FindWhereAStretchEnds) {
  std::uniform_int_distribution<Index> any(0, column_.Size());
  std::uniform_real_distribution<double> limit(15, 30);
  for (int i = 0; i < 2000; ++i) {
    const auto [begin, end] = std::minmax({any(engine_), any(engine_)});
    const double most = limit(engine_);
    Index expected = begin;
    while (expected < end && column_[expected] <= most) ++expected;
    ASSERT_EQ(column_.StretchEnd(begin, end, [&](const auto& block) { return block.max <= most; }), expected);
  }
}

TEST_F(ValueColumnSummaries, ALongStretchIsFoundInFewSteps) {
  int steps = 0;
  const Index end = column_.StretchEnd(1, column_.Size() - 1, [&](const auto&) {
    ++steps;
    return true;
  });
  EXPECT_EQ(end, column_.Size() - 1);
  EXPECT_LT(steps, 200);
}

TEST_F(ValueColumnSummaries, StartAgainWhenCleared) {
  column_.Clear();
  for (int i = 0; i < 40; ++i) column_.Append(1);
  EXPECT_EQ(column_.Size(), 40);
  EXPECT_EQ(column_.ExtremesOf(0, 40).max, 1);
}

TEST(VisitBackwards, ComesByEveryReadingOnceFromTheNewest) {
  for (const auto& [begin, end] : {std::pair<Index, Index>{0, 0}, {0, 1}, {5, 40}, {31, 33}, {7, 70000}}) {
    Index next = end;
    VisitBackwards(begin, end, ValueColumn::kLevels - 1, [&, low = begin](Index block, Index block_end) {
      EXPECT_GE(block, low);
      if (block_end - block > 1 && block % 3 != 0) return false;
      EXPECT_EQ(block_end, next);
      next = block;
      return true;
    });
    EXPECT_EQ(next, begin);
  }
}

TEST(PaintedRows, AreContainedFromWhenTheyAreAdded) {
  PaintedRows rows(-5, 20);
  rows.Reset();
  EXPECT_FALSE(rows.Contain({0, 0}));
  rows.Add({0, 4});
  rows.Add({6, 9});
  EXPECT_TRUE(rows.Contain({0, 4}));
  EXPECT_TRUE(rows.Contain({7, 7}));
  EXPECT_FALSE(rows.Contain({0, 9}));
  rows.Add({5, 5});
  EXPECT_TRUE(rows.Contain({0, 9}));
  EXPECT_FALSE(rows.Contain({-1, 3}));
  rows.Reset();
  EXPECT_FALSE(rows.Contain({3, 3}));
}

TEST(PaintedRows, NobodySeesWhatLiesBeyond) {
  PaintedRows rows(-5, 20);
  rows.Reset();
  EXPECT_TRUE(rows.Contain({-1000, -6}));
  EXPECT_TRUE(rows.Contain({21, 1000}));
  EXPECT_FALSE(rows.Contain({-1000, -5}));
  EXPECT_FALSE(rows.Contain({20, 1000}));
  rows.Add({-16777216, 16777216});
  EXPECT_TRUE(rows.Contain({-5, 20}));
}

}  // namespace
}  // namespace quenlor::graph
