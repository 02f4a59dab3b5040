// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "axis_data.h"
#include "data/text_number.h"
#include "graph/graph_math.h"

namespace quenlor::graph {
namespace {

using data::AxisRanges;

// Data of up to nine digits at any power of ten, as an instrument could show them.
class RandomData {
 public:
  struct Case {
    Ends data;
    std::string text;  // shows the resolution
  };

  Case Next() {
    const int exponent = exponent_(random_);
    const auto number = [&] {
      const int digits = digits_(random_);
      std::uniform_int_distribution<int> mantissa(-static_cast<int>(std::pow(10, digits)),
                                                  static_cast<int>(std::pow(10, digits)));
      return data::C_Val(std::to_string(mantissa(random_)) + "E" + std::to_string(exponent));
    };
    const double one = number();
    const double other = near_(random_) == 0 ? one : number();
    const std::string decimals(static_cast<std::size_t>(std::max(0, -exponent)), '0');
    return {{std::min(one, other), std::max(one, other)}, decimals.empty() ? "1" : "1." + decimals};
  }

 private:
  std::mt19937 random_{4};
  std::uniform_int_distribution<int> exponent_{-12, 12};
  std::uniform_int_distribution<int> digits_{0, 9};
  std::uniform_int_distribution<int> near_{0, 4};
};

// The window is ten steps that are 1, 2 or 5 times a power of ten, and its ends are whole numbers of them.
void ExpectTenNiceSteps(const Ends& window) {
  const double step = (window.max - window.min) / 10;
  ASSERT_GT(step, 0);
  const double decade = std::pow(10.0, std::floor(std::log10(step) + 1e-9));
  const double multiplier = step / decade;
  ASSERT_NEAR(multiplier, multiplier < 1.5 ? 1 : multiplier < 3 ? 2 : 5, 1e-6) << window;
  const double first = window.min / step;
  ASSERT_NEAR(first, std::round(first), 1e-6) << window;
}

TEST(AutoScaleProperty, TheWindowHoldsTheDataAndEndsAtWholeSteps) {
  RandomData random;
  for (int i = 0; i < 50000; ++i) {
    const auto [data, text] = random.Next();
    AxisRanges ranges;
    DataExtremes extremes = ViscoExtremes(data.min, data.max);
    extremes.DataTempMin = data.min;
    extremes.DataTempMax = data.max;

    AutoScale_Visco(ranges, extremes, AutoScaling{}, text);
    AutoScale_Temp(ranges, extremes, AutoScaling{}, text);

    for (const Ends& window :
         {Ends{ranges.ViscoMin, ranges.ViscoMax}, Ends{ranges.TempMin, ranges.TempMax}}) {
      ASSERT_NO_FATAL_FAILURE(ExpectTenNiceSteps(window));
      ASSERT_TRUE(window.min <= data.min && data.max <= window.max)
          << window << " for " << data << ' ' << text;
    }
  }
}

TEST(AutoScaleProperty, UnderStandardTheWindowHoldsEveryReadingAtOrAboveZero) {
  RandomData random;
  for (int i = 0; i < 50000; ++i) {
    const auto [data, text] = random.Next();
    AxisRanges ranges;
    AutoScale_Visco(ranges, ViscoExtremes(data.min, data.max), AutoScaling{.fine = false}, text);

    const Ends window{ranges.ViscoMin, ranges.ViscoMax};
    ASSERT_NO_FATAL_FAILURE(ExpectTenNiceSteps(window));
    ASSERT_GE(window.min, 0);
    ASSERT_TRUE(window.min <= std::max(data.min, 0.0) && data.max <= window.max) << window << " for " << data;
  }
}

// Half of the free steps above the data, three at most, go below zero, which the axis does not show; too few
// steps move it up instead, and where the data then are not in view the next step is tried.
Ends StandardStepByStep(const Ends& data, double unit) {
  StepCycle steps = NiceSteps(data.max, data.min, unit);
  while (true) {
    const double step = steps.Step();
    const double down = std::min(std::floor((10 - StepsIn(data.max, step)) / 2 + 0.5), 3.0);
    const double first = std::max(-down, 0.0);
    const bool in_view =
        first <= StepsIn(std::max(data.min, 0.0), step) && StepsIn(data.max, step) <= first + 10;
    if (in_view) return {first * step, (first + 10) * step};
    steps.Next();
  }
}

TEST(AutoScaleProperty, StandardIsWhatMovingTheWindowStepByStepGives) {
  RandomData random;
  for (int i = 0; i < 50000; ++i) {
    const auto [data, text] = random.Next();
    AxisRanges ranges;
    AutoScale_Visco(ranges, ViscoExtremes(data.min, data.max), AutoScaling{.fine = false}, text);

    const double unit = std::pow(10.0, text == "1" ? 1 : 3.0 - static_cast<double>(text.size()));
    const Ends expected = StandardStepByStep(data, unit);
    ASSERT_EQ(ranges.ViscoMin, expected.min) << data;
    ASSERT_DOUBLE_EQ(ranges.ViscoMax, expected.max) << data;
  }
}

TEST(AutoScaleProperty, TheLogRangeHoldsEveryPositiveReading) {
  RandomData random;
  for (int i = 0; i < 50000; ++i) {
    const auto [data, text] = random.Next();
    AxisRanges ranges;
    AutoScale_ViscoLog(ranges, ViscoExtremes(data.min, data.max), AutoScaling{});

    ASSERT_LT(ranges.ViscoLogMin, ranges.ViscoLogMax);
    if (data.max <= 0) continue;
    ASSERT_GE(Log10(data.min > 0 ? data.min : data.max), ranges.ViscoLogMin);
    ASSERT_LE(Log10(data.max), ranges.ViscoLogMax);
  }
}

TEST(AutoScaleProperty, AnyDoublesGiveFiniteRangesThatAreNotInverted) {
  using Double = std::numeric_limits<double>;
  constexpr std::array kAwkward = {Double::quiet_NaN(),
                                   Double::infinity(),
                                   -Double::infinity(),
                                   Double::max(),
                                   Double::lowest(),
                                   1e308,
                                   -1e308,
                                   5e-324,
                                   -5e-324,
                                   0.0,
                                   -1.0,
                                   1.0,
                                   1e15 + 0.3,
                                   1e-40};
  const std::string forty_decimals = "1." + std::string(40, '3');
  const std::string thousand_decimals = "1," + std::string(1000, '3');
  for (const double one : kAwkward) {
    for (const double other : kAwkward) {
      for (const std::string& text : {std::string(), std::string("..,"), forty_decimals, thousand_decimals}) {
        for (const bool fine : {true, false}) {
          const AutoScaling scaling{.fine = fine};
          const DataExtremes extremes{true, one, one, other, one, other, one, other};
          AxisRanges ranges;
          AutoScale_Time(ranges, extremes, scaling);
          AutoScale_Visco(ranges, extremes, scaling, text);
          AutoScale_ViscoLog(ranges, extremes, scaling);
          AutoScale_Temp(ranges, extremes, scaling, text);
          for (const Ends& ends : EndsOf(ranges)) {
            ASSERT_TRUE(std::isfinite(ends.min) && std::isfinite(ends.max) && ends.min < ends.max)
                << ends << " for " << one << " and " << other << ", " << fine;
          }
          ASSERT_TRUE(ranges.ViscoLogMin >= -324 && ranges.ViscoLogMax <= 309);
          AutoScale_Reading(ranges, {one, other, one}, extremes, scaling, {text, text}, ViscoAxis::Log);
        }
      }
    }
  }
}

}  // namespace
}  // namespace quenlor::graph
