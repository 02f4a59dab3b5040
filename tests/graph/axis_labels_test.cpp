// SPDX-License-Identifier: MIT
#include "graph/axis_labels.h"

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/text_number.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;
using Texts = std::vector<std::string>;

template <std::size_t kSize>
Texts TextsOf(const std::array<TickLabel, kSize>& ticks, std::size_t count = kSize - 1) {
  Texts texts;
  for (std::size_t i = 1; i <= count; ++i) texts.push_back(ticks[i].text);
  return texts;
}

std::string EndText(const AxisLabels& labels, Limit limit) {
  return labels.Label5[static_cast<std::size_t>(limit)];
}

AxisLabels TimeLabels(double min, double max, TimeUnit unit) {
  AxisRanges ranges;
  ranges.TimeMin = min;
  ranges.TimeMax = max;
  AxisLabels labels;
  Change_Time(ranges, unit, labels);
  return labels;
}

AxisLabels ViscoLabels(double min, double max) {
  AxisRanges ranges;
  ranges.ViscoMin = min;
  ranges.ViscoMax = max;
  AxisLabels labels;
  Change_Visco(ranges, ViscoAxis::Linear, labels);
  return labels;
}

AxisLabels LogLabels(int min, int max) {
  AxisRanges ranges;
  ranges.ViscoLogMin = static_cast<std::int16_t>(min);
  ranges.ViscoLogMax = static_cast<std::int16_t>(max);
  AxisLabels labels;
  Change_Visco(ranges, ViscoAxis::Log, labels);
  return labels;
}

AxisLabels TempLabels(double min, double max) {
  AxisRanges ranges;
  ranges.TempMin = min;
  ranges.TempMax = max;
  AxisLabels labels;
  Change_Temp(ranges, labels);
  return labels;
}

TEST(TimeLabels, ThreeMinutesAreShownInHalfMinutes) {
  const AxisLabels labels = TimeLabels(0, 180, TimeUnit::Minute);

  EXPECT_EQ(EndText(labels, Limit::TimeMini), "0");
  EXPECT_EQ(EndText(labels, Limit::TimeMax), "3");
  EXPECT_EQ(TextsOf(labels.Label7), Texts({"0.5", "1", "1.5", "2", "2.5"}));
  EXPECT_EQ(labels.TimeUnitText, "(min)");
}

TEST(TimeLabels, SecondsAreShownAsTheyAre) {
  const AxisLabels labels = TimeLabels(0, 180, TimeUnit::Second);

  EXPECT_EQ(EndText(labels, Limit::TimeMax), "180");
  EXPECT_EQ(TextsOf(labels.Label7), Texts({"30", "60", "90", "120", "150"}));
  EXPECT_EQ(labels.TimeUnitText, "(sec)");
}

TEST(TimeLabels, HoursHaveThreeDecimals) {
  const AxisLabels labels = TimeLabels(0, 180, TimeUnit::Hour);

  EXPECT_EQ(EndText(labels, Limit::TimeMax), "0.05");
  EXPECT_EQ(TextsOf(labels.Label7), Texts({"0.008", "0.017", "0.025", "0.033", "0.042"}));
  EXPECT_EQ(labels.TimeUnitText, "(hour)");
}

TEST(TimeLabels, ARangeThatStartsLaterIsDividedInSixFromItsStart) {
  const AxisLabels labels = TimeLabels(60, 120, TimeUnit::Second);

  EXPECT_EQ(EndText(labels, Limit::TimeMini), "60");
  EXPECT_EQ(TextsOf(labels.Label7), Texts({"70", "80", "90", "100", "110"}));
}

TEST(TimeLabels, TicksStandAtTheSixthsOfTheAxis) {
  const AxisLabels labels = TimeLabels(0, 180, TimeUnit::Minute);

  for (std::size_t i = 1; i <= 5; ++i) EXPECT_DOUBLE_EQ(labels.Label7[i].place, static_cast<double>(i) / 6);
}

TEST(TimeLabels, TheMenuItemsAreSecondMinuteAndHour) {
  EXPECT_EQ(TimeUnitOfItem(0), TimeUnit::Second);
  EXPECT_EQ(TimeUnitOfItem(1), TimeUnit::Minute);
  for (const int other : {2, 3, -1}) EXPECT_EQ(TimeUnitOfItem(other), TimeUnit::Hour);
}

TEST(TimeLabels, AUnitHasItsSeconds) {
  EXPECT_EQ(SecondsOf(TimeUnit::Second), 1);
  EXPECT_EQ(SecondsOf(TimeUnit::Minute), 60);
  EXPECT_EQ(SecondsOf(TimeUnit::Hour), 3600);
}

TEST(TempLabels, AreTheTenthsOfTheRange) {
  const AxisLabels labels = TempLabels(20, 30);

  EXPECT_EQ(EndText(labels, Limit::TempMini), "20");
  EXPECT_EQ(EndText(labels, Limit::TempMax), "30");
  EXPECT_EQ(TextsOf(labels.Label9), Texts({"21", "22", "23", "24", "25", "26", "27", "28", "29"}));
  for (std::size_t i = 1; i <= 9; ++i) EXPECT_DOUBLE_EQ(labels.Label9[i].place, static_cast<double>(i) / 10);
}

TEST(TempLabels, BinaryRoundingDoesNotShow) {
  const AxisLabels labels = TempLabels(-0.3, 0.7);

  EXPECT_EQ(EndText(labels, Limit::TempMini), "-0.3");
  EXPECT_EQ(TextsOf(labels.Label9), Texts({"-0.2", "-0.1", "0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6"}));
}

TEST(TempLabels, HaveTenDecimalsAtMost) {
  const AxisLabels labels = TempLabels(1.0 / 3, 2.0 / 3);

  EXPECT_EQ(EndText(labels, Limit::TempMini), "0.3333333333");
  EXPECT_EQ(EndText(labels, Limit::TempMax), "0.6666666667");
  EXPECT_EQ(labels.Label9[5].text, "0.5");
}

TEST(ViscoLabels, LinearOnesAreTheTenthsOfTheRange) {
  const AxisLabels labels = ViscoLabels(400, 600);

  EXPECT_EQ(EndText(labels, Limit::ViscoMini), "400");
  EXPECT_EQ(EndText(labels, Limit::ViscoMax), "600");
  EXPECT_EQ(labels.Label8Count, 9);
  EXPECT_EQ(TextsOf(labels.Label8), Texts({"420", "440", "460", "480", "500", "520", "540", "560", "580"}));
  for (std::size_t i = 1; i <= 9; ++i) EXPECT_DOUBLE_EQ(labels.Label8[i].place, static_cast<double>(i) / 10);
}

TEST(ViscoLabels, TheMenuItemsAreLinearAndLog) {
  EXPECT_EQ(ViscoAxisOfItem(1), ViscoAxis::Log);
  for (const int other : {0, 2, -1}) EXPECT_EQ(ViscoAxisOfItem(other), ViscoAxis::Linear);
}

struct LogTable {
  int min;
  int max;
  std::string lower;
  std::string upper;
  Texts inner;
};

class LogLabelTable : public testing::TestWithParam<LogTable> {};

TEST_P(LogLabelTable, HasTheseLabels) {
  const LogTable& expected = GetParam();
  const AxisLabels labels = LogLabels(expected.min, expected.max);

  EXPECT_EQ(EndText(labels, Limit::ViscoMini), expected.lower);
  EXPECT_EQ(EndText(labels, Limit::ViscoMax), expected.upper);
  EXPECT_EQ(labels.Label8Count, static_cast<int>(expected.inner.size()));
  EXPECT_EQ(TextsOf(labels.Label8, expected.inner.size()), expected.inner);
  for (std::size_t i = expected.inner.size() + 1; i <= 9; ++i) EXPECT_EQ(labels.Label8[i].text, "");
}

// The labels are 15 significant digits, so that the text tells the value and the value its place.
TEST_P(LogLabelTable, EveryLabelStandsWhereItsValueIs) {
  const auto& [min, max, lower, upper, inner] = GetParam();
  const AxisLabels labels = LogLabels(min, max);

  double below = 0;
  for (std::size_t i = 1; i <= inner.size(); ++i) {
    const double exponent = min + labels.Label8[i].place * (max - min);
    EXPECT_NEAR(std::pow(10.0, exponent) / data::C_Val(labels.Label8[i].text), 1, 1e-9);
    EXPECT_GT(labels.Label8[i].place, below);
    EXPECT_LT(labels.Label8[i].place, 1);
    below = labels.Label8[i].place;
  }
}

INSTANTIATE_TEST_SUITE_P(
    OfDecades, LogLabelTable,
    testing::Values(
        LogTable{0, 1, "1", "10", {"2", "3", "4", "5", "6", "7", "8", "9"}},
        LogTable{0, 2, "1", "100", {"2", "4", "6", "8", "10", "20", "40", "60", "80"}},
        LogTable{0, 3, "1", "1000", {"2", "5", "10", "20", "50", "100", "200", "500"}},
        LogTable{0, 4, "1", "10000", {"5", "10", "50", "100", "500", "1000", "5000"}},
        LogTable{0, 5, "1", "100000", {"10", "100", "1000", "10000"}},
        LogTable{0, 6, "1", "1000000", {"10", "100", "1000", "10000", "100000"}},
        LogTable{-1, 0, "0.1", "1", {"0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9"}},
        LogTable{-2, 0, "0.01", "1", {"0.02", "0.04", "0.06", "0.08", "0.1", "0.2", "0.4", "0.6", "0.8"}},
        LogTable{-3, 0, "0.001", "1", {"0.002", "0.005", "0.01", "0.02", "0.05", "0.1", "0.2", "0.5"}},
        LogTable{-1, 3, "0.1", "1000", {"0.5", "1", "5", "10", "50", "100", "500"}},
        LogTable{-2, 3, "0.01", "1000", {"0.1", "1", "10", "100"}},
        LogTable{-1,
                 9,
                 "0.1",
                 "1000000000",
                 {"1", "10", "100", "1000", "10000", "100000", "1000000", "10000000", "100000000"}}));

TEST(LogLabels, OfMoreThanTenDecadesNineAreSpreadOverTheAxis) {
  for (int decades = 11; decades <= 300; ++decades) {
    const AxisLabels labels = LogLabels(-150, decades - 150);

    ASSERT_EQ(labels.Label8Count, 9) << decades;
    for (int i = 1; i <= 9; ++i) {
      const TickLabel& label = labels.Label8[static_cast<std::size_t>(i)];
      const double decade = label.place * decades;
      EXPECT_NEAR(decade, std::round(decade), 1e-9) << "a whole one";
      EXPECT_LE(std::fabs(decade - i * decades / 10.0), 0.5 + 1e-9) << "label " << i << " of " << decades;
      EXPECT_NEAR(std::log10(data::C_Val(label.text)), decade - 150, 1e-9);
    }
  }
}

TEST(LogLabels, OfTwentyDecadesEverySecondOneHasALabel) {
  const AxisLabels labels = LogLabels(-10, 10);

  EXPECT_EQ(TextsOf(labels.Label8),
            Texts({"1E-08", "1E-06", "0.0001", "0.01", "1", "100", "10000", "1000000", "100000000"}));
  EXPECT_DOUBLE_EQ(labels.Label8[9].place, 0.9);
}

TEST(LogLabels, StandOnlyWhereThereAreNumbers) {
  for (const auto& [min, max] : {std::pair{308, 309}, {300, 340}, {-340, -310}, {-326, -324}, {2000, 2020}}) {
    const AxisLabels labels = LogLabels(min, max);
    for (std::size_t i = 1; i <= 9; ++i) {
      const TickLabel& label = labels.Label8[i];
      if (static_cast<int>(i) > labels.Label8Count) {
        EXPECT_EQ(label.text, "");
        continue;
      }
      EXPECT_NEAR(std::log10(data::C_Val(label.text)), min + label.place * (max - min), 0.02) << label.text;
    }
  }
  EXPECT_EQ(LogLabels(308, 309).Label8Count, 0);
  EXPECT_EQ(LogLabels(300, 340).Label8Count, 2);
}

TEST(LogLabels, AnAxisWithoutADecadeHasEndsAlone) {
  for (const int max : {2, 1, -32768}) {
    const AxisLabels labels = LogLabels(2, max);
    EXPECT_EQ(labels.Label8Count, 0);
    EXPECT_EQ(EndText(labels, Limit::ViscoMini), "100");
  }
}

TEST(LogLabels, TheWidestExponentsAreStillNumbers) {
  const AxisLabels labels = LogLabels(-32768, 32767);

  EXPECT_EQ(EndText(labels, Limit::ViscoMini), "0");
  EXPECT_EQ(EndText(labels, Limit::ViscoMax), "1.79769313486232E+308");
  EXPECT_EQ(labels.Label8Count, 1);
  EXPECT_EQ(labels.Label8[1].text, "1");
}

TEST(LogLabels, ComingBackToTheLinearAxisFillsAllLabels) {
  AxisLabels labels = LogLabels(0, 1);
  Change_Visco(AxisRanges{}, ViscoAxis::Linear, labels);

  EXPECT_EQ(labels.Label8Count, 9);
  EXPECT_EQ(TextsOf(labels.Label8), Texts({"10", "20", "30", "40", "50", "60", "70", "80", "90"}));
}

TEST(LogLabels, FewerLabelsLeaveNoneOfTheOldOnes) {
  AxisLabels labels = ViscoLabels(0, 100);
  AxisRanges ranges;
  ranges.ViscoLogMax = 4;
  Change_Visco(ranges, ViscoAxis::Log, labels);

  EXPECT_EQ(labels.Label8[7].text, "5000");
  EXPECT_EQ(labels.Label8[8].text, "");
  EXPECT_EQ(labels.Label8[9].text, "");
}

TEST(LabelsOf, WritesEveryAxisOfTheStartRanges) {
  const AxisLabels labels = LabelsOf(AxisRanges{}, {TimeUnit::Second, ViscoAxis::Linear});

  EXPECT_EQ(labels.Label5, (std::array<std::string, 6>{"0", "180", "0", "100", "0", "100"}));
  EXPECT_EQ(labels.Label7[5].text, "150");
  EXPECT_EQ(labels.Label8[9].text, "90");
  EXPECT_EQ(labels.Label9[1].text, "10");
}

TEST(LimitText, IsTheEndAsItsLabelShowsIt) {
  const AxisRanges ranges{60, 7200, 1.5, 250, -3.25, 40, -2, 5};
  const AxisView log_view{TimeUnit::Hour, ViscoAxis::Log};
  const AxisView linear_view{TimeUnit::Minute, ViscoAxis::Linear};

  EXPECT_EQ(LimitText(Limit::TimeMini, ranges, log_view), "0.017");
  EXPECT_EQ(LimitText(Limit::TimeMax, ranges, linear_view), "120");
  EXPECT_EQ(LimitText(Limit::ViscoMini, ranges, linear_view), "1.5");
  EXPECT_EQ(LimitText(Limit::ViscoMini, ranges, log_view), "0.01");
  EXPECT_EQ(LimitText(Limit::ViscoMax, ranges, log_view), "100000");
  EXPECT_EQ(LimitText(Limit::TempMini, ranges, log_view), "-3.25");
}

TEST(Labels, AnEmptyRangeShowsOneValueEverywhere) {
  EXPECT_EQ(TextsOf(TempLabels(5, 5).Label9), Texts(9, "5"));
  EXPECT_EQ(TextsOf(TimeLabels(60, 60, TimeUnit::Minute).Label7), Texts(5, "1"));
}

TEST(Labels, RangesAsWideAsTheDoublesAreDividedAllTheSame) {
  const AxisLabels labels = ViscoLabels(-1e308, 1e308);

  EXPECT_EQ(EndText(labels, Limit::ViscoMini), "-1E+308");
  EXPECT_EQ(labels.Label8[1].text, "-8E+307");
  EXPECT_EQ(labels.Label8[5].text, "0");
  EXPECT_EQ(labels.Label8[9].text, "8E+307");
}

TEST(Labels, EndsThatAreNotFiniteAreShownAsNumbers) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  for (const double min : {kNan, -kInfinity, 0.0}) {
    for (const double max : {kNan, kInfinity, -kInfinity}) {
      const AxisRanges ranges{min, max, min, max, min, max, 0, 2};
      const AxisLabels labels = LabelsOf(ranges, AxisView{});
      Texts texts(labels.Label5.begin(), labels.Label5.end());
      for (const Texts& inner : {TextsOf(labels.Label7), TextsOf(labels.Label8), TextsOf(labels.Label9)}) {
        texts.insert(texts.end(), inner.begin(), inner.end());
      }
      for (const std::string& text : texts) {
        EXPECT_NE(text.find_first_of("0123456789"), std::string::npos)
            << text << " for " << min << ".." << max;
      }
    }
  }
}

}  // namespace
}  // namespace quenlor::graph
