// SPDX-License-Identifier: MIT
#include "graph/map_to_position.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();

TEST(MapToPosition, LiesOnTheStraightLineThroughBothEnds) {
  EXPECT_FLOAT_EQ(MapToPosition(0, 0, 100, 1000, 2000), 1000);
  EXPECT_FLOAT_EQ(MapToPosition(25, 0, 100, 1000, 2000), 1250);
  EXPECT_FLOAT_EQ(MapToPosition(100, 0, 100, 1000, 2000), 2000);
  EXPECT_FLOAT_EQ(MapToPosition(150, 0, 100, 1000, 2000), 2500);
  EXPECT_FLOAT_EQ(MapToPosition(-50, 0, 100, 1000, 2000), 500);
}

TEST(MapToPosition, EitherRangeMayRunDownwards) {
  EXPECT_FLOAT_EQ(MapToPosition(25, 0, 100, 2000, 1000), 1750);
  EXPECT_FLOAT_EQ(MapToPosition(25, 100, 0, 1000, 2000), 1750);
}

TEST(MapToPosition, IsSinglePrecision) {
  static_assert(std::is_same_v<decltype(MapToPosition(1, 0, 3, 0, 1)), float>);
  EXPECT_EQ(MapToPosition(1, 0, 3, 0, 1), 1.0F / 3.0F);
}

TEST(MapToPosition, ARangeThatSpansNothingHasOnePlace) {
  EXPECT_EQ(MapToPosition(5, 5, 5, 100, 200), 100);
  EXPECT_EQ(MapToPosition(7, 5, 5, 100, 200), 100);
  EXPECT_EQ(MapToPosition(5, 0, 10, 100, 100), 100);
}

TEST(MapToPosition, ARangeFromEndToEndOfTheNumbersIsNoTrouble) {
  EXPECT_FLOAT_EQ(MapToPosition(0, -kLargest, kLargest, 0, 100), 50);
  EXPECT_FLOAT_EQ(MapToPosition(kLargest, -kLargest, kLargest, 0, 100), 100);
}

TEST(MapToPosition, IsFiniteWhateverTheNumbersAre) {
  const double numbers[] = {kInfinity, -kInfinity, kNothing, kLargest, -kLargest, 5e-324, 0, 1, -300};
  for (const double value : numbers) {
    for (const double min : numbers) {
      for (const double max : numbers) {
        for (const double from : numbers) {
          for (const double to : numbers) {
            EXPECT_TRUE(std::isfinite(MapToPosition(value, min, max, from, to)))
                << value << ' ' << min << ' ' << max << ' ' << from << ' ' << to;
          }
        }
      }
    }
  }
  EXPECT_GT(MapToPosition(kInfinity, 0, 1, 0, 100), 1e30);
  EXPECT_LT(MapToPosition(-kInfinity, 0, 1, 0, 100), -1e30);
  EXPECT_EQ(MapToPosition(kNothing, 0, 1, 7, 100), 7);
}

}  // namespace
}  // namespace quenlor::graph
