// SPDX-License-Identifier: MIT
#include "instrument/noise.h"

#include <algorithm>
#include <array>

#include <gtest/gtest.h>

namespace quenlor::instrument {
namespace {

// 9981545732273789042 is the language's own check value: the 10000th number of the engine's default seed.
TEST(Noise, SequenceIsTheSameOnEveryPlatform) {
  Noise noise(5489);
  for (int i = 1; i < 10000; ++i) noise.Uniform();

  EXPECT_EQ(noise.Uniform(), static_cast<double>(9981545732273789042u >> 11) / 9007199254740992.0);
}

TEST(Noise, UniformStaysBelowOne) {
  Noise noise(1);
  double least = 1;
  double most = 0;
  for (int i = 0; i < 100000; ++i) {
    const double value = noise.Uniform();
    least = std::min(least, value);
    most = std::max(most, value);
  }
  EXPECT_GE(least, 0);
  EXPECT_LT(least, 0.001);
  EXPECT_LT(most, 1);
  EXPECT_GT(most, 0.999);
}

TEST(Noise, BelowReachesEveryNumber) {
  Noise noise(1);
  std::array<int, 6> seen{};
  for (int i = 0; i < 6000; ++i) ++seen.at(static_cast<std::size_t>(noise.Below(6)));
  for (const int count : seen) EXPECT_NEAR(count, 1000, 200);
}

TEST(Noise, NormalHasMeanZeroAndDeviationOne) {
  Noise noise(1);
  double sum = 0;
  double squares = 0;
  for (int i = 0; i < 100000; ++i) {
    const double value = noise.Normal();
    sum += value;
    squares += value * value;
  }
  EXPECT_NEAR(sum / 100000, 0, 0.02);
  EXPECT_NEAR(squares / 100000, 1, 0.03);
}

}  // namespace
}  // namespace quenlor::instrument
