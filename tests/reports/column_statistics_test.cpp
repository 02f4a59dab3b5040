// SPDX-License-Identifier: MIT
#include "reports/column_statistics.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "data/text_number.h"
#include "tests/reports/certified_data.h"

namespace quenlor::reports {
namespace {

__extension__ using WideInteger = __int128;

constexpr double kLargest = std::numeric_limits<double>::max();

ColumnStatistics Of(const std::vector<double>& values) { return StatisticsOf(values, RootOf::kAbsolute); }

// How many digits two numbers share.
double SharedDigits(double value, double expected) {
  if (value == expected) return 17;
  return -std::log10(std::fabs(value - expected) / std::fabs(expected));
}

testing::AssertionResult WithinOneStep(double value, double expected) {
  if (value == expected || std::nextafter(value, expected) == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure() << std::hexfloat << value << " is not " << expected;
}

TEST(ColumnStatistics, ReachesWhatIsCertified) {
  for (const CertifiedData& data : AllCertifiedData()) {
    std::vector<double> values;
    for (const std::string& text : data.texts) values.push_back(data::C_Val(text));

    const ColumnStatistics statistics = Of(values);

    EXPECT_GE(SharedDigits(statistics.average, data.average), 14) << data.name;
    ASSERT_TRUE(statistics.standard_deviation) << data.name;
    EXPECT_GE(SharedDigits(*statistics.standard_deviation, data.standard_deviation), data.digits)
        << data.name << " " << *statistics.standard_deviation;
  }
}

TEST(ColumnStatistics, ExtremesOfEveryOrder) {
  EXPECT_EQ(Of({3, 1, 2}).maximum, 3);
  EXPECT_EQ(Of({3, 1, 2}).minimum, 1);
  EXPECT_EQ(Of({-3, -1, -2}).maximum, -1);
  EXPECT_EQ(Of({-3, -1, -2}).minimum, -3);
}

TEST(ColumnStatistics, OneValueHasNoStandardDeviation) {
  const ColumnStatistics statistics = Of({0.1});

  EXPECT_EQ(statistics.maximum, 0.1);
  EXPECT_EQ(statistics.minimum, 0.1);
  EXPECT_EQ(statistics.average, 0.1);
  EXPECT_FALSE(statistics.standard_deviation);
}

TEST(ColumnStatistics, TwoValuesAreDividedByOne) {
  EXPECT_EQ(*Of({10, 14}).standard_deviation, std::sqrt(8.0));
}

TEST(ColumnStatistics, EqualValuesDoNotDeviateAtAll) {
  for (const double value : {0.0, 0.1, -1e300, 1e-300, kLargest}) {
    const ColumnStatistics statistics = StatisticsOf(std::vector(1000, value), RootOf::kAsItStands);
    EXPECT_EQ(statistics.average, value);
    EXPECT_EQ(statistics.standard_deviation, 0.0) << value;
  }
}

// The formula in whole numbers, where nothing is rounded before the quotient.
TEST(ColumnStatistics, IsTheFormulaInExactNumbersHoweverLargeTheSharedOffset) {
  std::mt19937_64 random(20240305);
  for (int round = 0; round < 300; ++round) {
    const int n = std::uniform_int_distribution(2, 1000)(random);
    const std::int64_t offset = std::uniform_int_distribution<std::int64_t>(0, 1LL << 52)(random);
    const std::int64_t spread = 1LL << std::uniform_int_distribution(1, 25)(random);
    std::vector<double> values;
    WideInteger sum = 0;
    WideInteger sum_of_squares = 0;
    for (int i = 0; i < n; ++i) {
      const std::int64_t value =
          offset + std::uniform_int_distribution<std::int64_t>(-spread, spread)(random);
      values.push_back(static_cast<double>(value));
      sum += value;
      sum_of_squares += WideInteger{value} * value;
    }
    const WideInteger numerator = n * sum_of_squares - sum * sum;

    const ColumnStatistics statistics = Of(values);

    const long double quotient = static_cast<long double>(numerator) / n / (n - 1);
    EXPECT_TRUE(WithinOneStep(*statistics.standard_deviation, static_cast<double>(std::sqrt(quotient))));
    EXPECT_TRUE(WithinOneStep(statistics.average, static_cast<double>(static_cast<long double>(sum) / n)));
  }
}

TEST(ColumnStatistics, OneFarOffValueDoesNotSpoilTheRestWhereverItStands) {
  std::vector<double> values(1000, 1);
  for (std::size_t at : {std::size_t{0}, std::size_t{500}, std::size_t{999}}) {
    values.assign(1000, 1);
    values[at] = 1e15 + 1;
    const double expected = 1e15 / std::sqrt(1000.0);
    EXPECT_GE(SharedDigits(*Of(values).standard_deviation, expected), 15) << at;
    EXPECT_EQ(Of(values).average, 1e12 + 1) << at;
  }
}

TEST(ColumnStatistics, SquaresMayBeLargerAndSmallerThanAnyDouble) {
  EXPECT_GE(SharedDigits(*Of({1e200, 3e200}).standard_deviation, std::sqrt(2.0) * 1e200), 15);
  EXPECT_EQ(Of({1e200, 3e200}).average, 2e200);
  EXPECT_GE(SharedDigits(*Of({1e-200, 3e-200}).standard_deviation, std::sqrt(2.0) * 1e-200), 15);
  EXPECT_EQ(Of({kLargest, kLargest, kLargest}).average, kLargest);
  EXPECT_EQ(Of({-kLargest, kLargest}).average, 0);
}

TEST(ColumnStatistics, WhatIsTooLargeForADoubleIsTheLargestOne) {
  EXPECT_EQ(Of({-kLargest, kLargest}).standard_deviation, kLargest);
}

TEST(ColumnStatistics, ANegativeQuotientHasARootOnlyWhenItsSignIsDropped) {
  EXPECT_EQ(StandardDeviation(-4, RootOf::kAbsolute), 2.0);
  EXPECT_EQ(StandardDeviation(-4, RootOf::kAsItStands), std::nullopt);
  EXPECT_EQ(StandardDeviation(4, RootOf::kAsItStands), 2.0);
  EXPECT_EQ(StandardDeviation(0, RootOf::kAsItStands), 0.0);
}

}  // namespace
}  // namespace quenlor::reports
