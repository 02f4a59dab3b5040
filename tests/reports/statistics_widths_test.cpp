// SPDX-License-Identifier: MIT
#include "reports/statistics_widths.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "tests/reports/statistics_readings.h"

namespace quenlor::reports {
namespace {

double Plain(std::string_view text) { return 100.0 * static_cast<double>(text.size()); }

// Letters of different widths that stand closer where both are ones, and further apart behind a "7".
double Kerned(std::string_view text) {
  double width = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    width += 90 + (static_cast<unsigned char>(text[i]) * 7) % 20;
    if (i > 0 && text[i - 1] == '1' && text[i] == '1') width -= 15;
    if (i > 0 && text[i - 1] == '7') width += 5.25;
  }
  return width;
}

std::vector<int> NaiveWidths(const StatisticsTable& table, const MeasureText& measure) {
  std::vector<int> widths;
  for (int col = 0; col < table.Cols(); ++col) {
    int width = 100;
    for (StatisticsTable::Row row = 0; row < table.Rows(); ++row) {
      const double w = measure(table.TextMatrix(row, col)) + 100;
      if (w > width) width = static_cast<int>(std::nearbyint(w));
    }
    widths.push_back(width);
  }
  return widths;
}

TEST(StatisticsWidths, AreTheWidestTextAndAHundredTwips) {
  const StatisticsTable table(RunsOf({"123456.789", "2"}), kVisco, kTemp);

  EXPECT_EQ(ColumnWidths(table, Plain), (std::vector{800, 900, 1100, 500}));
}

TEST(StatisticsWidths, AreFittedWithoutAnyRun) {
  EXPECT_EQ(ColumnWidths(StatisticsTable(Readings({}), kVisco, kTemp), Plain),
            (std::vector{800, 500, 1000, 500}));
}

TEST(StatisticsWidths, AreAHundredWithoutAnyText) {
  EXPECT_EQ(ColumnWidths(StatisticsTable(Readings({}, {"", "", "", ""}), kVisco, kTemp), Plain),
            (std::vector{800, 100, 100, 100}));
}

TEST(StatisticsWidths, AreWholeTwips) {
  const auto tenths = [](std::string_view text) { return 10.46 * static_cast<double>(text.size()); };

  EXPECT_EQ(ColumnWidths(StatisticsTable(Readings({}), kVisco, kTemp), tenths),
            (std::vector{173, 142, 194, 142}));
}

TEST(StatisticsWidths, OfAnyTableAreThoseOfMeasuringEveryText) {
  std::mt19937 random(11);
  for (int round = 0; round < 100; ++round) {
    Texts texts;
    for (int run = 0; run < 40; ++run) {
      std::string text;
      for (int i = std::uniform_int_distribution(0, 8)(random); i > 0; --i)
        text += "117.0µ"[std::uniform_int_distribution(0, 4)(random)];
      texts.push_back(text + (run % 3 == 0 ? "µ" : ""));
    }
    const StatisticsTable table(RunsOf(texts), kVisco, kTemp);

    ASSERT_EQ(ColumnWidths(table, Kerned), NaiveWidths(table, Kerned));
  }
}

TEST(StatisticsWidths, OfMillionsOfTextsAreFoundByMeasuringAFew) {
  Texts texts;
  for (int i = 0; i < 20'000; ++i) texts.push_back(std::to_string(100'000 + i * 7));
  const StatisticsTable table(RunsOf(texts), kVisco, kTemp);
  int measured = 0;
  const auto measure = [&](std::string_view text) {
    ++measured;
    return Kerned(text);
  };

  EXPECT_EQ(ColumnWidths(table, measure), NaiveWidths(table, Kerned));
  EXPECT_LT(measured, 1000);
}

TEST(StatisticsWidths, OnlyTheBeginningOfAnEndlessTextCounts) {
  const StatisticsTable table(RunsOf({std::string(1'000'000, 'x')}), kVisco, kTemp);

  EXPECT_EQ(ColumnWidths(table, Plain)[2], 100'100);
}

}  // namespace
}  // namespace quenlor::reports
