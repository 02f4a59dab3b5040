// SPDX-License-Identifier: MIT
#include "graph/readable_color.h"

#include <gtest/gtest.h>

namespace quenlor::graph {
namespace {

constexpr Color kYellow{0x00FFFF};
constexpr Color kBlue{0xFF0000};

// Every colour of 15 levels a channel.
template <class Visit>
void ForEachColor(const Visit& visit) {
  for (std::uint32_t red = 0; red < 256; red += 17) {
    for (std::uint32_t green = 0; green < 256; green += 17) {
      for (std::uint32_t blue = 0; blue < 256; blue += 17) visit(Color{red | green << 8 | blue << 16});
    }
  }
}

TEST(ReadableColor, ContrastIsThatOfTheLuminances) {
  EXPECT_NEAR(Contrast(kBlack, kWhite), 21, 0.01);
  EXPECT_NEAR(Contrast(kWhite, kBlack), 21, 0.01);
  EXPECT_NEAR(Contrast(kYellow, kYellow), 1, 1e-9);
  EXPECT_NEAR(Contrast({0x777777}, kWhite), 4.48, 0.01);
}

TEST(ReadableColor, PaleLettersCannotBeReadOnWhiteNorDarkOnesOnBlack) {
  EXPECT_FALSE(CanBeRead(kYellow, kWhite));
  EXPECT_TRUE(CanBeRead(kYellow, kBlack));
  EXPECT_FALSE(CanBeRead(kBlue, kBlack));
  EXPECT_TRUE(CanBeRead(kBlue, kWhite));
  EXPECT_FALSE(CanBeRead(kWhite, kWhite));
}

TEST(ReadableColor, EveryColourCanBeReadOnItsPlate) {
  ForEachColor(
      [](Color color) { EXPECT_TRUE(CanBeRead(color, PlateBehind(color))) << std::hex << color.value; });
}

TEST(ReadableColor, APlateIsAShadeOfItsColour) {
  EXPECT_EQ(PlateBehind(kWhite), Color{0x262626});
  EXPECT_EQ(PlateBehind(kBlack), Color{0xD9D9D9});
  EXPECT_EQ(PlateBehind({0x00BBFF}), Color{0x001C26});
}

TEST(ReadableColor, EveryEdgeCanBeSeenOnItsGround) {
  for (const Color ground : {kWhite, kBlack}) {
    ForEachColor([&](Color color) {
      EXPECT_TRUE(CanBeRead(EdgeOf(color, ground), ground)) << std::hex << color.value;
    });
  }
}

}  // namespace
}  // namespace quenlor::graph
