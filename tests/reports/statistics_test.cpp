// SPDX-License-Identifier: MIT
#include "reports/statistics.h"

#include <cmath>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/text_number.h"
#include "reports/pattern_text.h"
#include "tests/reports/certified_data.h"
#include "tests/reports/statistics_readings.h"

namespace quenlor::reports {
namespace {

TEST(Statistics, OfAnEmptyTableAreItsTitlesAndTheRowTitles) {
  const StatisticsTable table = StatisticsOfReadings({});

  ASSERT_EQ(table.Rows(), 5);
  EXPECT_EQ(table.Cols(), 4);
  EXPECT_EQ(table.Runs(), 0);
  EXPECT_EQ(RowOf(table, 0), (Texts{"No.", "Time", "Viscosity", "Temp"}));
  EXPECT_EQ(RowOf(table, 1), (Texts{"Maximum", "", "", ""}));
  EXPECT_EQ(RowOf(table, 2), (Texts{"Minimum", "", "", ""}));
  EXPECT_EQ(RowOf(table, 3), (Texts{"Average", "", "", ""}));
  EXPECT_EQ(RowOf(table, 4), (Texts{"Std Dev", "", "", ""}));
  EXPECT_FALSE(table.Time().values);
  EXPECT_FALSE(table.Viscosity().values);
  EXPECT_FALSE(table.Temperature().values);
}

TEST(Statistics, OneRunOfSeveralReadingsIsItsLastOne) {
  const StatisticsTable table = StatisticsOfReadings(
      {{"1", "00:00:00", "9.0", "20.0"}, {"1", "00:01:00", "5.0", "21.0"}, {"1", "00:02:00", "7.5", "22.0"}});

  ASSERT_EQ(table.Rows(), 6);
  EXPECT_EQ(RowOf(table, 1), (Texts{"1", "00:02:00", "7.5", "22.0"}));
  EXPECT_EQ(SummaryOf(table, 1), (Texts{"00:02:00", "00:02:00", "00:02:00", ""}));
  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"7.5", "7.5", "7.5", ""}));
  EXPECT_EQ(SummaryOf(table, kTemp), (Texts{"22", "22", "22.0", ""}));
}

TEST(Statistics, OfTwoRunsDivideByOne) {
  const StatisticsTable table = StatisticsOfReadings({{"1", "00:00:00", "1.00", "20"},
                                                      {"1", "00:10:00", "10.00", "20"},
                                                      {"2", "00:00:00", "2.00", "21"},
                                                      {"2", "00:20:00", "14.00", "23"}});

  ASSERT_EQ(table.Rows(), 7);
  EXPECT_EQ(SummaryOf(table, 1), (Texts{"00:20:00", "00:10:00", "00:15:00", "00:07:04"}));
  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"14", "10", "12.00", "2.83"}));
  EXPECT_EQ(SummaryOf(table, kTemp), (Texts{"23", "20", "22.", "2."}));
  EXPECT_EQ(table.Viscosity().values->standard_deviation, std::sqrt(8.0));
  EXPECT_EQ(table.Time().values->standard_deviation, std::sqrt(180000.0));
}

TEST(Statistics, ARunOfOneReadingIsLabelledWithTheRunBeforeIt) {
  const StatisticsTable table = StatisticsOfReadings({{"1", "00:00:00", "1", "20"},
                                                      {"1", "00:01:00", "2", "20"},
                                                      {"2", "00:00:00", "3", "20"},
                                                      {"3", "00:00:00", "4", "20"},
                                                      {"3", "00:01:00", "5", "20"}});

  ASSERT_EQ(table.Runs(), 3);
  EXPECT_EQ(RowOf(table, 1), (Texts{"1", "00:01:00", "2", "20"}));
  EXPECT_EQ(RowOf(table, 2), (Texts{"1", "00:00:00", "3", "20"}));
  EXPECT_EQ(RowOf(table, 3), (Texts{"3", "00:01:00", "5", "20"}));
}

TEST(Statistics, AFirstRunOfOneReadingIsLabelledWithTheTitle) {
  const StatisticsTable table =
      StatisticsOfReadings({{"1", "00:00:00", "1", "20"}, {"2", "00:00:00", "3", "20"}});

  EXPECT_EQ(RowOf(table, 1), (Texts{"No.", "00:00:00", "1", "20"}));
  EXPECT_EQ(RowOf(table, 2), (Texts{"1", "00:00:00", "3", "20"}));
}

TEST(Statistics, TheDecimalCommaCountsAsManyDecimals) {
  const StatisticsTable table(RunsOf({"1.5", "2,25", "3"}), kVisco, kTemp);

  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"3", "1.5", "2.25", "0.75"}));
  EXPECT_EQ(table.TextMatrix(2, kVisco), "2,25");
}

TEST(Statistics, WithoutDecimalsTheAverageIsRoundedToAWholeNumber) {
  const StatisticsTable table(RunsOf({"1", "2", "2"}), kVisco, kTemp);

  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"2", "1", "2.", "1."}));
  EXPECT_EQ(table.Viscosity().values->average, 5.0 / 3);
}

TEST(Statistics, PlainSecondsBecomeTimes) {
  const StatisticsTable table = StatisticsOfReadings({{"1", "12.5", "1", "20"}});

  EXPECT_EQ(table.TextMatrix(1, 1), "12.5");
  EXPECT_EQ(SummaryOf(table, 1), (Texts{"00:00:12", "00:00:12", "00:00:12", ""}));
  EXPECT_EQ(table.Time().values->average, 12.5);
}

TEST(Statistics, HoursAndMinutesAreTimes) {
  const StatisticsTable table = StatisticsOfReadings({{"1", "1:30", "1", "20"}, {"2", "0:45:30", "1", "20"}});

  EXPECT_EQ(SummaryOf(table, 1), (Texts{"01:30:00", "00:45:30", "01:07:45", "00:31:28"}));
}

TEST(Statistics, RunNumbersAreComparedAsTexts) {
  const StatisticsTable table = StatisticsOfReadings(
      {{"1", "1", "1", "20"}, {"01", "2", "2", "20"}, {"a", "3", "3", "20"}, {"A", "4", "4", "20"}});

  EXPECT_EQ(table.Runs(), 4);
}

TEST(Statistics, ALastReadingWithoutARunNumberIsNoRun) {
  const StatisticsTable table = StatisticsOfReadings({{"1", "1", "1", "20"}, {"", "2", "2", "20"}});

  ASSERT_EQ(table.Runs(), 1);
  EXPECT_EQ(RowOf(table, 1), (Texts{"No.", "1", "1", "20"}));
}

TEST(Statistics, OfARunThatComesBackAreTwoRows) {
  const StatisticsTable table =
      StatisticsOfReadings({{"1", "1", "1", "20"}, {"2", "2", "2", "20"}, {"1", "3", "3", "20"}});

  EXPECT_EQ(table.Runs(), 3);
}

TEST(Statistics, UnreadableCellsCountAsZero) {
  const StatisticsTable table =
      StatisticsOfReadings({{"1", "soon", "thick", ""}, {"2", "00:01:00", "3", "4"}});

  EXPECT_EQ(SummaryOf(table, 1), (Texts{"00:01:00", "00:00:00", "00:00:30", "00:00:42"}));
  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"3", "0", "2.", "2."}));
  EXPECT_EQ(SummaryOf(table, kTemp), (Texts{"4", "0", "2.", "3."}));
}

TEST(Statistics, DecimalsAreAllCharactersBehindTheFirstSeparator) {
  const auto average = [](const char* text) {
    return std::string(StatisticsTable(RunsOf({text}), kVisco, kTemp).TextMatrix(4, kVisco));
  };

  EXPECT_EQ(average("1.5 Pa"), "1.5000");
  EXPECT_EQ(average("1.5 µ·"), "1.5000");
  EXPECT_EQ(average("1.5.25"), "1.5000");
  EXPECT_EQ(average("1.5,25"), "1.5000");
  EXPECT_EQ(average("1."), "1.");
  EXPECT_EQ(average("1.123456789"), "1.123456789");
  EXPECT_EQ(average("1.1234567891234"), "1.123456789");
}

TEST(Statistics, DecimalsOfOneColumnAreNotThoseOfTheNext) {
  const StatisticsTable table = StatisticsOfReadings({{"1", "1", "1.234", "20"}});

  EXPECT_EQ(table.TextMatrix(4, kVisco), "1.234");
  EXPECT_EQ(table.TextMatrix(4, kTemp), "20.");
}

TEST(Statistics, ShowTheDecimalPointOfTheLocaleInTheirOwnNumbersOnly) {
  const StatisticsTable table(RunsOf({"1.5", "2.25"}), kVisco, kTemp, ',');

  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"2,25", "1,5", "1,88", "0,53"}));
  EXPECT_EQ(SummaryOf(table, kTemp), (Texts{"25", "25", "25,0", "0,0"}));
  EXPECT_EQ(table.TextMatrix(1, kVisco), "1.5");
}

TEST(Statistics, FurtherColumnsShowTheirReadingsOnly) {
  const auto readings = Readings({{"1", "00:01:00", "1.5", "mPa·s", "25.0"}, {"2", "00:02:00", "2.5"}},
                                 {"No.", "Time", "Viscosity", "Unit1", "Temp"});
  const StatisticsTable table(readings, 2, 4);

  EXPECT_EQ(RowOf(table, 1), (Texts{"No.", "00:01:00", "1.5", "mPa·s", "25.0"}));
  EXPECT_EQ(RowOf(table, 2), (Texts{"1", "00:02:00", "2.5", "", ""}));
  EXPECT_EQ(SummaryOf(table, 3), (Texts{"", "", "", ""}));
  EXPECT_EQ(SummaryOf(table, 4), (Texts{"25", "0", "12.5", "17.7"}));
}

TEST(Statistics, OfTheSameColumnTwiceStandThereOnce) {
  const StatisticsTable table(RunsOf({"1.5", "2.5"}), kVisco, kVisco);

  EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"2.5", "1.5", "2.0", "0.7"}));
  EXPECT_EQ(SummaryOf(table, kTemp), (Texts{"", "", "", ""}));
  EXPECT_EQ(table.Temperature().values->average, 2);
}

TEST(Statistics, ColumnsThatAreNotThereHaveNone) {
  for (const int missing : {-32768, -1, 0, 4, 32767}) {
    const StatisticsTable table(RunsOf({"1.5", "2.5"}), missing, kTemp);

    EXPECT_FALSE(table.Viscosity().values) << missing;
    EXPECT_EQ(SummaryOf(table, 0), (Texts{"Maximum", "Minimum", "Average", "Std Dev"}));
    EXPECT_EQ(SummaryOf(table, kVisco), (Texts{"", "", "", ""}));
    EXPECT_EQ(SummaryOf(table, kTemp), (Texts{"25", "25", "25.0", "0.0"}));
  }
}

TEST(Statistics, AreASnapshot) {
  data::MeasurementTable readings = RunsOf({"1.5", "2.5"});
  const StatisticsTable table(readings, kVisco, kTemp);

  readings.SetTextMatrix(1, kVisco, "99");
  readings.Reset();

  EXPECT_EQ(table.TextMatrix(1, kVisco), "1.5");
  EXPECT_EQ(table.TextMatrix(0, kVisco), "Viscosity");
}

TEST(Statistics, ShowTheDigitsThatAreCertified) {
  for (const CertifiedData& data : AllCertifiedData()) {
    const StatisticsTable table(RunsOf(data.texts), kVisco, kTemp);

    const std::size_t point = data.texts.front().find('.');
    const int decimals =
        point == std::string::npos ? 0 : static_cast<int>(data.texts.front().size() - point - 1);
    EXPECT_THAT(SummaryOf(table, kVisco),
                testing::ElementsAre(testing::_, testing::_, PatternText(data.average, decimals),
                                     PatternText(data.standard_deviation, decimals)))
        << data.name;
  }
}

TEST(Statistics, ValuesTooLargeForAnythingAreStillNumbers) {
  const StatisticsTable table =
      StatisticsOfReadings({{"1", "9e400", "9e400", "1"}, {"2", "-9e400", "-9e400", "2"}});

  EXPECT_EQ(table.TextMatrix(3, kVisco), "1.79769313486232E+308");
  EXPECT_EQ(table.TextMatrix(5, kVisco), "0.");
  EXPECT_FALSE(table.TextMatrix(6, kVisco).empty());
  EXPECT_FALSE(table.TextMatrix(6, 1).empty());
}

// Row by row and cell by cell, as one would fill the grid by hand.
std::vector<Texts> NaiveRuns(const data::MeasurementTable& readings) {
  std::vector<Texts> runs;
  for (data::MeasurementTable::Row row = 1; row <= readings.Rows() - 2; ++row) {
    if (readings.TextMatrix(row, 0) == readings.TextMatrix(row + 1, 0)) continue;
    Texts run = {std::string(readings.TextMatrix(row - 1, 0))};
    for (int col = 1; col < readings.Cols(); ++col) run.emplace_back(readings.TextMatrix(row, col));
    runs.push_back(run);
  }
  return runs;
}

TEST(Statistics, RunsOfAnyTableAreThoseFoundByHand) {
  std::mt19937 random(7);
  const auto any = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
  const Texts numbers = {"1", "2", "", "No.", "3"};
  for (int round = 0; round < 300; ++round) {
    std::vector<Texts> rows(static_cast<std::size_t>(any(12)));
    for (Texts& row : rows) {
      row.push_back(numbers[static_cast<std::size_t>(any(4))]);
      for (int cells = any(4); cells > 0; --cells) row.push_back(any(2) ? std::to_string(any(99)) : "");
    }
    const data::MeasurementTable readings = Readings(rows);

    const StatisticsTable table(readings, kVisco, kTemp);

    const std::vector<Texts> expected = NaiveRuns(readings);
    ASSERT_EQ(table.Runs(), static_cast<StatisticsTable::Row>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i)
      ASSERT_EQ(RowOf(table, static_cast<StatisticsTable::Row>(i) + 1), expected[i]);
    ASSERT_EQ(SummaryOf(table, 0), (Texts{"Maximum", "Minimum", "Average", "Std Dev"}));
  }
}

}  // namespace
}  // namespace quenlor::reports
