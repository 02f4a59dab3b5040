// SPDX-License-Identifier: MIT
#include "instrument/curve.h"

#include <cmath>

#include <gtest/gtest.h>

namespace quenlor::instrument {
namespace {

TEST(Curve, ConstantNeverChanges) {
  const auto curve = ParseCurve("const:25");

  ASSERT_TRUE(curve);
  EXPECT_EQ(ValueAt(*curve, 0), 25);
  EXPECT_EQ(ValueAt(*curve, 1e6), 25);
}

TEST(Curve, RampChangesBySoMuchASecond) {
  const auto curve = ParseCurve("ramp:20:-0.5");

  ASSERT_TRUE(curve);
  EXPECT_EQ(ValueAt(*curve, 0), 20);
  EXPECT_EQ(ValueAt(*curve, 10), 15);
}

TEST(Curve, ApproachHasDoneSixtyThreePercentAfterOneTimeConstant) {
  const auto curve = ParseCurve("exp:1200:300:60");

  ASSERT_TRUE(curve);
  EXPECT_EQ(ValueAt(*curve, 0), 1200);
  EXPECT_NEAR(ValueAt(*curve, 60), 1200 - 900 * (1 - std::exp(-1.0)), 1e-9);
  EXPECT_NEAR(ValueAt(*curve, 6000), 300, 1e-9);
}

TEST(Curve, AnyOtherTextIsNone) {
  for (const char* text :
       {"", "25", "const", "const:", "const:a", "const:1:2", "ramp:1", "ramp:1:2:3", "ramp:1:2:", "exp:1:2",
        "exp:1:2:0", "exp:1:2:-3", "sine:1:2", "const:nan", "const:1e30", "const:1 "}) {
    EXPECT_FALSE(ParseCurve(text)) << "'" << text << "'";
  }
}

}  // namespace
}  // namespace quenlor::instrument
