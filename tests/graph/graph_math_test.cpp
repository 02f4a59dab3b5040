// SPDX-License-Identifier: MIT
#include "graph/graph_math.h"

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "data/text_number.h"

namespace quenlor::graph {
namespace {

using Double = std::numeric_limits<double>;
constexpr double kHuge = Double::max();
constexpr double kInfinity = Double::infinity();
constexpr double kNan = Double::quiet_NaN();
constexpr double kTiny = Double::denorm_min();

TEST(Round, HalvesGoTowardsPlusInfinity) {
  EXPECT_EQ(Round(0.125, 2), 0.13);
  EXPECT_EQ(Round(-0.125, 2), -0.12);
  EXPECT_EQ(Round(-2.5, 0), -2);
  EXPECT_EQ(Round(2.5, 0), 3);
  EXPECT_EQ(Round(-0.5, 0), 0);
}

TEST(Round, WhatIsNoHalfGoesToTheNearest) {
  EXPECT_EQ(Round(0.12345, 3), 0.123);
  EXPECT_EQ(Round(0.1236, 3), 0.124);
  EXPECT_EQ(Round(-1.7, 0), -2);
  EXPECT_EQ(Round(-1.3, 0), -1);
  EXPECT_EQ(Round(100, 10), 100);
}

TEST(Round, NegativeDigitsRoundToTensAndHundreds) {
  EXPECT_EQ(Round(1250, -2), 1300);
  EXPECT_EQ(Round(-1250, -2), -1200);
  EXPECT_EQ(Round(14, -1), 10);
  EXPECT_EQ(Round(14, -5), 0);
}

TEST(Round, ANumberTooLargeForItsDigitsStays) {
  EXPECT_EQ(Round(1e308, 10), 1e308);
  EXPECT_EQ(Round(-1e308, 10), -1e308);
  EXPECT_EQ(Round(9007199254740993e3, 3), 9007199254740993e3);
  EXPECT_EQ(Round(0.1, 32767), 0.1);
  EXPECT_EQ(Round(0, 32767), 0);
}

TEST(Round, DigitsBeyondEveryNumberLeaveZero) {
  EXPECT_EQ(Round(kHuge, -32768), 0);
  EXPECT_EQ(Round(kHuge, -400), 0);
  EXPECT_EQ(Round(kTiny, 300), 0);
}

TEST(Round, WhatIsNotFiniteComesBack) {
  EXPECT_EQ(Round(kInfinity, 2), kInfinity);
  EXPECT_EQ(Round(-kInfinity, -2), -kInfinity);
  EXPECT_TRUE(std::isnan(Round(kNan, 2)));
}

TEST(Round, AFiniteNumberStaysFiniteWithAnyDigits) {
  for (int n = -32768; n <= 32767; ++n) {
    for (const double x : {kHuge, -kHuge, 1.5, -0.3, kTiny, 0.0}) {
      ASSERT_TRUE(std::isfinite(Round(x, static_cast<std::int16_t>(n)))) << x << " to " << n;
    }
  }
}

TEST(Log10, IsZeroWhereThereIsNoLogarithm) {
  EXPECT_EQ(Log10(0), 0);
  EXPECT_EQ(Log10(-0.0), 0);
  EXPECT_EQ(Log10(-5), 0);
  EXPECT_EQ(Log10(-kInfinity), 0);
  EXPECT_EQ(Log10(kNan), 0);
}

TEST(Log10, IsExactAtEveryDecade) {
  for (int exponent = -307; exponent <= 308; ++exponent) {
    EXPECT_EQ(Log10(data::C_Val("1E" + std::to_string(exponent))), static_cast<float>(exponent));
  }
}

TEST(Log10, HasSinglePrecisionBetweenTheDecades) {
  EXPECT_FLOAT_EQ(Log10(2), 0.30103F);
  EXPECT_FLOAT_EQ(Log10(0.35), -0.45593196F);
}

TEST(Log10, TheEndsOfTheDoublesHaveFiniteLogarithms) {
  EXPECT_NEAR(Log10(kHuge), 308.25, 0.01);
  EXPECT_NEAR(Log10(kInfinity), 308.25, 0.01);
  EXPECT_NEAR(Log10(kTiny), -323.3, 0.1);
}

TEST(C_XY, HoldsCoordinatesWithinAHundredThousand) {
  EXPECT_EQ(C_XY(1e6), 100000.0F);
  EXPECT_EQ(C_XY(-1e6), -100000.0F);
  EXPECT_EQ(C_XY(100000.1), 100000.0F);
  EXPECT_EQ(C_XY(kInfinity), 100000.0F);
  EXPECT_EQ(C_XY(-kInfinity), -100000.0F);
}

TEST(C_XY, LeavesTheOthersAsTheyAreInSinglePrecision) {
  EXPECT_EQ(C_XY(100000), 100000.0F);
  EXPECT_EQ(C_XY(-100000), -100000.0F);
  EXPECT_EQ(C_XY(1234.1), 1234.1F);
  EXPECT_EQ(C_XY(0), 0.0F);
}

TEST(C_XY, WhatIsNoNumberIsZero) { EXPECT_EQ(C_XY(kNan), 0.0F); }

TEST(StepsIn, DecimalMultiplesAreWholeNumbersOfSteps) {
  ASSERT_LT(0.3 / 0.1, 3) << "the division this is for";
  EXPECT_EQ(StepsIn(0.3, 0.1), 3);
  for (int exponent = -12; exponent <= 12; ++exponent) {
    const auto number = [&](int mantissa) {
      return data::C_Val(std::to_string(mantissa) + "E" + std::to_string(exponent));
    };
    for (int count = -999; count <= 999; ++count) {
      for (const int step : {1, 2, 5})
        ASSERT_EQ(StepsIn(number(count * step), number(step)), count) << exponent;
    }
  }
}

TEST(StepsIn, WhatLiesBetweenTheStepsIsNotMoved) {
  EXPECT_EQ(StepsIn(2.5, 1), 2.5);
  EXPECT_LT(StepsIn(2.99999999999, 1), 3);
  EXPECT_LT(StepsIn(-1e-300, 1), 0);
}

TEST(StepCycle, GoesThroughOneTwoFiveOfEveryDecade) {
  StepCycle steps(0.01);
  for (const double step : {0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 20.0, 50.0, 100.0}) {
    EXPECT_EQ(steps.Step(), step);
    steps.Next();
  }
}

TEST(StepCycle, SixHundredDecadesGatherNoRounding) {
  StepCycle steps(1e-300);
  for (int exponent = -300; exponent <= 307; ++exponent) {
    for (const char* multiplier : {"1E", "2E", "5E"}) {
      ASSERT_DOUBLE_EQ(steps.Step(), data::C_Val(multiplier + std::to_string(exponent)));
      steps.Next();
    }
  }
}

TEST(StepCycle, EndsAtTheLargestDouble) {
  StepCycle steps(1e308);
  for (int i = 0; i < 20; ++i) steps.Next();
  EXPECT_EQ(steps.Step(), kHuge);
}

TEST(StepCycle, AUnitThatIsNoSizeCountsAsOne) {
  for (const double unit : {0.0, -1.0, kInfinity, -kInfinity, kNan})
    EXPECT_EQ(StepCycle(unit).Step(), 1) << unit;
}

TEST(NiceStep, IsTheFirstOfTheCycleWhoseTenStepsReach) {
  EXPECT_EQ(NiceStep(10, 0, 1), 1);
  EXPECT_EQ(NiceStep(10.1, 0, 1), 2);
  EXPECT_EQ(NiceStep(20.1, 0, 1), 5);
  EXPECT_EQ(NiceStep(50.1, 0, 1), 10);
  EXPECT_EQ(NiceStep(12, 3, 1), 1) << "3 to 13";
  EXPECT_EQ(NiceStep(13.1, 3.9, 1), 2) << "3 to 13 is too short, 2 to 22 is not";
}

TEST(NiceStep, NoValueIsFartherThanAHundredStepsFromZero) {
  EXPECT_EQ(NiceStep(100, 99, 1), 1);
  EXPECT_EQ(NiceStep(101, 100, 1), 2);
  EXPECT_EQ(NiceStep(-99, -100, 1), 1);
  EXPECT_EQ(NiceStep(-100, -101, 1), 2);
  EXPECT_EQ(NiceStep(1005, 995, 10), 20);
}

TEST(NiceStep, IsNeverFinerThanTheUnit) {
  EXPECT_EQ(NiceStep(25.3, 25.2, 1), 1);
  EXPECT_EQ(NiceStep(0, 0, 10), 10);
  EXPECT_EQ(NiceStep(0.0001, 0, 0.1), 0.1);
}

TEST(NiceStep, DecimalDataAtAStepNeedNoWiderOne) {
  EXPECT_EQ(NiceStep(1.3, 0.3, 0.1), 0.1);
  EXPECT_EQ(NiceStep(0.07, -0.03, 0.01), 0.01);
}

TEST(NiceStep, EndsForEveryInput) {
  constexpr std::array kAwkward = {kNan,  kInfinity, -kInfinity, kHuge, -kHuge, 1e308, -1e308, 1e-40,
                                   kTiny, -kTiny,    0.0,        -0.0,  1.0,    -1.0,  1e15,   0.1};
  for (const double max : kAwkward) {
    for (const double min : kAwkward) {
      for (const double unit : kAwkward) {
        const double step = NiceStep(max, min, unit);
        ASSERT_TRUE(std::isfinite(step) && step > 0) << max << ' ' << min << ' ' << unit;
      }
    }
  }
}

TEST(NiceStep, TheStepBeforeItWouldNotHaveReached) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> exponent(-6, 9);
  const auto covers = [](double s, double max, double min) {
    return 100 * s >= max && -100 * s <= min && std::floor(min / s) * s + 10 * s >= max;
  };
  for (int i = 0; i < 20000; ++i) {
    const double one = mantissa(random) * std::pow(10.0, exponent(random));
    const double other = mantissa(random) * std::pow(10.0, exponent(random));
    const double max = std::max(one, other);
    const double min = std::min(one, other);

    const double step = NiceStep(max, min, 1e-4);

    ASSERT_TRUE(covers(step, max, min)) << min << ".." << max;
    for (StepCycle finer(1e-4); finer.Step() < step; finer.Next()) {
      ASSERT_FALSE(covers(finer.Step(), max, min)) << min << ".." << max << " by " << finer.Step();
    }
  }
}

}  // namespace
}  // namespace quenlor::graph
