// SPDX-License-Identifier: MIT
#include "reports/pattern_text.h"

#include <gtest/gtest.h>

namespace quenlor::reports {
namespace {

TEST(PatternText, HasAsManyDecimalsAsThePattern) {
  EXPECT_EQ(PatternText(2.25, 1), "2.3");
  EXPECT_EQ(PatternText(2.25, 2), "2.25");
  EXPECT_EQ(PatternText(2.25, 3), "2.250");
  EXPECT_EQ(PatternText(2.25, 9), "2.250000000");
}

TEST(PatternText, NeverHasMoreThanNineDecimals) {
  EXPECT_EQ(PatternText(1.0 / 3, 10), "0.333333333");
  EXPECT_EQ(PatternText(1.0 / 3, 1000), "0.333333333");
}

TEST(PatternText, WithoutDecimalsIsAWholeNumberAndThePatternsPoint) {
  EXPECT_EQ(PatternText(2.4, 0), "2.");
  EXPECT_EQ(PatternText(2.5, 0), "3.");
  EXPECT_EQ(PatternText(0.4, 0), "0.");
  EXPECT_EQ(PatternText(0.5, 0), "1.");
  EXPECT_EQ(PatternText(99.5, 0), "100.");
}

TEST(PatternText, ADigitStandsBeforeThePoint) {
  EXPECT_EQ(PatternText(0, 2), "0.00");
  EXPECT_EQ(PatternText(0.5, 2), "0.50");
  EXPECT_EQ(PatternText(0.05, 2), "0.05");
  EXPECT_EQ(PatternText(0.000000001, 9), "0.000000001");
}

TEST(PatternText, HalvesGoAwayFromZero) {
  EXPECT_EQ(PatternText(0.125, 2), "0.13");
  EXPECT_EQ(PatternText(0.375, 2), "0.38");
  EXPECT_EQ(PatternText(-0.125, 2), "-0.13");
  EXPECT_EQ(PatternText(1.5, 0), "2.");
  EXPECT_EQ(PatternText(-2.5, 0), "-3.");
}

TEST(PatternText, AHalfIsWhatShowsAsOneInFifteenDigits) {
  EXPECT_EQ(PatternText(1.255, 2), "1.26");  // a double a little below
  EXPECT_EQ(PatternText(2.675, 2), "2.68");
  EXPECT_EQ(PatternText((1.25 + 1.26) / 2, 2), "1.26");
  EXPECT_EQ(PatternText(1.2549, 2), "1.25");
  EXPECT_EQ(PatternText(1.25499999999999, 2), "1.25");
}

TEST(PatternText, RoundingCarriesThroughNines) {
  EXPECT_EQ(PatternText(9.996, 2), "10.00");
  EXPECT_EQ(PatternText(0.999, 2), "1.00");
  EXPECT_EQ(PatternText(999999.96, 1), "1000000.0");
}

TEST(PatternText, TooSmallForThePatternIsZeroWithoutASign) {
  EXPECT_EQ(PatternText(0.0049, 2), "0.00");
  EXPECT_EQ(PatternText(0.005, 2), "0.01");
  EXPECT_EQ(PatternText(-0.0049, 2), "0.00");
  EXPECT_EQ(PatternText(-0.0, 2), "0.00");
  EXPECT_EQ(PatternText(-1e-300, 9), "0.000000000");
}

TEST(PatternText, LargeNumbersAreWrittenOut) {
  EXPECT_EQ(PatternText(123456789012345, 2), "123456789012345.00");
  EXPECT_EQ(PatternText(1e20, 1), "100000000000000000000.0");
  EXPECT_EQ(PatternText(1.7976931348623157e308, 0).size(), 310U);
}

}  // namespace
}  // namespace quenlor::reports
