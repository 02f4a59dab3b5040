// SPDX-License-Identifier: MIT
#include "graph/axis_limits.h"

#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "data/text_number.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

// An axis whose limits are typed: 0 to 180 s, 0 to 100, 0 to 100, 10^0 to 10^2 at first.
class TypedLimits : public testing::Test {
 protected:
  bool Type(Limit limit, std::string_view text) { return ApplyLimit(limit, text, view, ranges).has_value(); }

  AxisRanges ranges;
  AxisView view{TimeUnit::Second, ViscoAxis::Linear};
};

class TypedLogLimits : public TypedLimits {
 protected:
  TypedLogLimits() { view.visco_axis = ViscoAxis::Log; }
};

TEST_F(TypedLimits, ADecimalCommaIsAPoint) {
  EXPECT_TRUE(Type(Limit::ViscoMini, "1,5"));
  EXPECT_EQ(ranges.ViscoMin, 1.5);
  EXPECT_TRUE(Type(Limit::TempMini, "1.5"));
  EXPECT_EQ(ranges.TempMin, 1.5);
}

TEST_F(TypedLimits, TextWithoutANumberIsZero) {
  ranges.TempMin = -5;
  EXPECT_TRUE(Type(Limit::TempMini, "cold"));
  EXPECT_EQ(ranges.TempMin, 0);
  EXPECT_FALSE(Type(Limit::TempMax, "")) << "zero is not above zero";
  EXPECT_EQ(ranges.TempMax, 100);
}

TEST_F(TypedLimits, SecondsAreTakenAsTheyAre) {
  EXPECT_TRUE(Type(Limit::TimeMax, "2"));
  EXPECT_EQ(ranges.TimeMax, 2);
}

TEST_F(TypedLimits, TwoMinutesAreStoredAsSeconds) {
  view.time_unit = TimeUnit::Minute;
  EXPECT_TRUE(Type(Limit::TimeMax, "2"));
  EXPECT_EQ(ranges.TimeMax, 120);
}

TEST_F(TypedLimits, HoursAreStoredAsSeconds) {
  view.time_unit = TimeUnit::Hour;
  EXPECT_TRUE(Type(Limit::TimeMax, "2"));
  EXPECT_TRUE(Type(Limit::TimeMini, "0,5"));
  EXPECT_EQ(ranges.TimeMin, 1800);
  EXPECT_EQ(ranges.TimeMax, 7200);
}

TEST_F(TypedLimits, TheTimeUnitDoesNotTouchTheOtherAxes) {
  view.time_unit = TimeUnit::Hour;
  EXPECT_TRUE(Type(Limit::ViscoMax, "2"));
  EXPECT_TRUE(Type(Limit::TempMax, "3"));
  EXPECT_EQ(ranges.ViscoMax, 2);
  EXPECT_EQ(ranges.TempMax, 3);
}

TEST_F(TypedLimits, EachTellsTheAxisThatIsNowSetByHand) {
  EXPECT_EQ(ApplyLimit(Limit::TimeMini, "1", view, ranges), Axis::Time);
  EXPECT_EQ(ApplyLimit(Limit::TimeMax, "90", view, ranges), Axis::Time);
  EXPECT_EQ(ApplyLimit(Limit::ViscoMini, "1", view, ranges), Axis::Visco);
  EXPECT_EQ(ApplyLimit(Limit::ViscoMax, "90", view, ranges), Axis::Visco);
  EXPECT_EQ(ApplyLimit(Limit::TempMini, "1", view, ranges), Axis::Temp);
  EXPECT_EQ(ApplyLimit(Limit::TempMax, "90", view, ranges), Axis::Temp);
}

TEST_F(TypedLimits, EachStoresItsOwnEndAndNoOther) {
  EXPECT_TRUE(Type(Limit::TimeMini, "1"));
  EXPECT_TRUE(Type(Limit::TimeMax, "2"));
  EXPECT_TRUE(Type(Limit::ViscoMini, "3"));
  EXPECT_TRUE(Type(Limit::ViscoMax, "4"));
  EXPECT_TRUE(Type(Limit::TempMini, "5"));
  EXPECT_TRUE(Type(Limit::TempMax, "6"));

  EXPECT_EQ(ranges.TimeMin, 1);
  EXPECT_EQ(ranges.TimeMax, 2);
  EXPECT_EQ(ranges.ViscoMin, 3);
  EXPECT_EQ(ranges.ViscoMax, 4);
  EXPECT_EQ(ranges.TempMin, 5);
  EXPECT_EQ(ranges.TempMax, 6);
  EXPECT_EQ(ranges.ViscoLogMin, 0);
  EXPECT_EQ(ranges.ViscoLogMax, 2);
}

TEST_F(TypedLimits, AMinimumNotBelowTheMaximumIsIgnored) {
  EXPECT_FALSE(Type(Limit::TimeMini, "180"));
  EXPECT_FALSE(Type(Limit::ViscoMini, "100"));
  EXPECT_FALSE(Type(Limit::TempMini, "101"));
  EXPECT_EQ(ranges.TimeMin, 0);
  EXPECT_EQ(ranges.ViscoMin, 0);
  EXPECT_EQ(ranges.TempMin, 0);
}

TEST_F(TypedLimits, AMaximumNotAboveTheMinimumIsIgnored) {
  EXPECT_FALSE(Type(Limit::TimeMax, "0"));
  EXPECT_FALSE(Type(Limit::ViscoMax, "-1"));
  EXPECT_FALSE(Type(Limit::TempMax, "x"));
  EXPECT_EQ(ranges.TimeMax, 180);
  EXPECT_EQ(ranges.ViscoMax, 100);
  EXPECT_EQ(ranges.TempMax, 100);
}

TEST_F(TypedLimits, TheOppositeLimitCountsAsItIsShown) {
  ranges.TimeMax = 100.0004;
  EXPECT_FALSE(Type(Limit::TimeMini, "100")) << "shown as 100";
  EXPECT_TRUE(Type(Limit::TimeMini, "99.9999"));

  view.time_unit = TimeUnit::Minute;
  ranges.TimeMax = 180;
  EXPECT_FALSE(Type(Limit::TimeMini, "3")) << "180 s are shown as 3 min";
  EXPECT_TRUE(Type(Limit::TimeMini, "2.9"));
}

TEST_F(TypedLimits, WhatDiffersOnlyInTheLabelsDoesNotInvertTheRange) {
  ranges.TimeMin = 0.0004;
  EXPECT_FALSE(Type(Limit::TimeMax, "0.0002")) << "above the shown 0, below the stored minimum";
  EXPECT_EQ(ranges.TimeMax, 180);
}

TEST_F(TypedLimits, AnEmptyRangeCanBeOpenedAgain) {
  ranges.ViscoMin = ranges.ViscoMax = 50;
  EXPECT_TRUE(Type(Limit::ViscoMax, "60"));
  EXPECT_EQ(ranges.ViscoMax, 60);
}

TEST_F(TypedLimits, NegativeLimitsAreTaken) {
  EXPECT_TRUE(Type(Limit::TempMini, "-40"));
  EXPECT_TRUE(Type(Limit::TempMax, "-10"));
  EXPECT_EQ(ranges.TempMin, -40);
  EXPECT_EQ(ranges.TempMax, -10);
}

TEST_F(TypedLimits, HugeLimitsStayFinite) {
  view.time_unit = TimeUnit::Hour;
  EXPECT_TRUE(Type(Limit::TimeMax, "1E308"));
  EXPECT_TRUE(Type(Limit::ViscoMax, "1E999"));
  EXPECT_TRUE(std::isfinite(ranges.TimeMax));
  EXPECT_TRUE(std::isfinite(ranges.ViscoMax));
}

TEST_F(TypedLogLimits, TheLimitIsTheNearestDecade) {
  EXPECT_TRUE(Type(Limit::ViscoMax, "2000"));
  EXPECT_EQ(ranges.ViscoLogMax, 3);
  EXPECT_TRUE(Type(Limit::ViscoMax, "4000"));
  EXPECT_EQ(ranges.ViscoLogMax, 4);
  EXPECT_TRUE(Type(Limit::ViscoMini, "0.02"));
  EXPECT_EQ(ranges.ViscoLogMin, -2);
  EXPECT_TRUE(Type(Limit::ViscoMini, "0,001"));
  EXPECT_EQ(ranges.ViscoLogMin, -3);
}

// In single precision the logarithms of these are 2.5, 3.5 and -0.5 to the last bit.
TEST_F(TypedLogLimits, HalfADecadeGoesToTheEvenOne) {
  ranges.ViscoLogMin = -9;
  EXPECT_TRUE(Type(Limit::ViscoMax, "316.22776601683796"));
  EXPECT_EQ(ranges.ViscoLogMax, 2);
  EXPECT_TRUE(Type(Limit::ViscoMax, "3162.2776601683795"));
  EXPECT_EQ(ranges.ViscoLogMax, 4);
  EXPECT_TRUE(Type(Limit::ViscoMini, "0.31622776601683794"));
  EXPECT_EQ(ranges.ViscoLogMin, 0);
}

TEST_F(TypedLogLimits, TheLinearLimitsStay) {
  EXPECT_TRUE(Type(Limit::ViscoMini, "10"));
  EXPECT_TRUE(Type(Limit::ViscoMax, "10000"));
  EXPECT_EQ(ranges.ViscoMin, 0);
  EXPECT_EQ(ranges.ViscoMax, 100);
}

TEST_F(TypedLogLimits, ALimitThatLeavesNoDecadeIsIgnored) {
  EXPECT_FALSE(Type(Limit::ViscoMini, "80")) << "below 100, but its nearest decade";
  EXPECT_FALSE(Type(Limit::ViscoMini, "100"));
  EXPECT_FALSE(Type(Limit::ViscoMini, "5000"));
  EXPECT_FALSE(Type(Limit::ViscoMax, "3")) << "above 1, but its nearest decade is 1";
  EXPECT_FALSE(Type(Limit::ViscoMax, "0.5"));
  EXPECT_EQ(ranges.ViscoLogMin, 0);
  EXPECT_EQ(ranges.ViscoLogMax, 2);
}

TEST_F(TypedLogLimits, AMinimumWithoutALogarithmIsOne) {
  ranges.ViscoLogMin = -3;
  for (const char* text : {"0", "-5", "x"}) {
    ranges.ViscoLogMin = -3;
    EXPECT_TRUE(Type(Limit::ViscoMini, text)) << text;
    EXPECT_EQ(ranges.ViscoLogMin, 0);
  }
}

TEST_F(TypedLogLimits, AMaximumWithoutALogarithmIsNotAboveTheMinimum) {
  ranges.ViscoLogMin = -3;
  for (const char* text : {"0", "-5", "x"}) EXPECT_FALSE(Type(Limit::ViscoMax, text)) << text;
  EXPECT_EQ(ranges.ViscoLogMax, 2);
}

TEST_F(TypedLogLimits, HugeAndTinyLimitsAreTheDecadesOfDoubles) {
  EXPECT_TRUE(Type(Limit::ViscoMax, "1E400"));
  EXPECT_EQ(ranges.ViscoLogMax, 308);
  EXPECT_TRUE(Type(Limit::ViscoMini, "1E-300"));
  EXPECT_EQ(ranges.ViscoLogMin, -300);
}

TEST_F(TypedLogLimits, TheOtherAxesAreTakenAsTheyAre) {
  EXPECT_TRUE(Type(Limit::TempMax, "2000"));
  EXPECT_EQ(ranges.TempMax, 2000);
  EXPECT_TRUE(Type(Limit::TimeMax, "2000"));
  EXPECT_EQ(ranges.TimeMax, 2000);
}

TEST(TypedLimitsProperty, RangesNeverInvertAndRefusalsChangeNothing) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> exponent(-12, 12);
  std::uniform_int_distribution<int> three(0, 2);
  std::uniform_int_distribution<int> six(0, 5);
  AxisRanges ranges;
  int accepted = 0;
  for (int i = 0; i < 50000; ++i) {
    const AxisRanges before = ranges;
    const AxisView view{TimeUnitOfItem(three(random)), ViscoAxisOfItem(three(random))};
    const auto limit = static_cast<Limit>(six(random));
    const double value = mantissa(random) * std::pow(10.0, exponent(random));

    const bool taken = ApplyLimit(limit, data::GeneralText(value), view, ranges).has_value();

    accepted += taken ? 1 : 0;
    ASSERT_LT(ranges.TimeMin, ranges.TimeMax);
    ASSERT_LT(ranges.ViscoMin, ranges.ViscoMax);
    ASSERT_LT(ranges.TempMin, ranges.TempMax);
    ASSERT_LT(ranges.ViscoLogMin, ranges.ViscoLogMax);
    if (!taken) {
      ASSERT_EQ(LabelsOf(ranges, view).Label5, LabelsOf(before, view).Label5);
    }
  }
  EXPECT_GT(accepted, 1000);
}

}  // namespace
}  // namespace quenlor::graph
