// SPDX-License-Identifier: MIT
#include "platform/qt/line_coverage.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace quenlor::platform::qt {
namespace {

constexpr PixelRectangle kArea{10, 20, 60, 40};

int CoveredAt(const LineCoverage& coverage, int x, int y) {
  const PixelRectangle& area = coverage.Area();
  const int column = x - area.left;
  const int row = y - area.top;
  if (column < 0 || row < 0 || column >= area.width || row >= area.height) return 0;
  return coverage.At(column, row);
}

TEST(LineCoverage, OfALevelLineFillsTheRowsThatItLiesOn) {
  for (const int width : {1, 3}) {
    const Segment line{{20, 30.5}, {50, 30.5}};
    const LineCoverage coverage({&line, 1}, width, kArea);
    for (int y = 25; y < 36; ++y)
      EXPECT_EQ(CoveredAt(coverage, 35, y), std::abs(y - 30) <= width / 2 ? 255 : 0) << width << ", " << y;
  }
}

TEST(LineCoverage, OfALineBetweenTwoRowsIsHalfOfEach) {
  const Segment line{{20, 30}, {50, 30}};
  const LineCoverage coverage({&line, 1}, 1, kArea);
  EXPECT_NEAR(CoveredAt(coverage, 35, 29), 128, 1);
  EXPECT_NEAR(CoveredAt(coverage, 35, 30), 128, 1);
  EXPECT_EQ(CoveredAt(coverage, 35, 31), 0);
}

TEST(LineCoverage, OfALineThinnerThanAPixelIsNoMoreThanItsWidth) {
  const Segment line{{20, 30.5}, {50, 30.5}};
  EXPECT_NEAR(CoveredAt(LineCoverage({&line, 1}, 0.5, kArea), 35, 30), 128, 1);
}

TEST(LineCoverage, AcrossALineInAnyDirectionSumsUpToItsWidth) {
  for (const double slope : {0.0, 0.1, 0.5, 1.0}) {
    const Segment line{{0, 40 - 40 * slope}, {80, 40 + 40 * slope}};
    const LineCoverage coverage({&line, 1}, 2, {0, 0, 80, 80});
    int sum = 0;
    for (int y = 0; y < 80; ++y) sum += CoveredAt(coverage, 40, y);
    EXPECT_NEAR(sum / 255.0, 2 * std::hypot(1, slope), 0.1) << slope;
  }
}

TEST(LineCoverage, ADotIsRound) {
  const Segment dot{{40, 40}, {40, 40}};
  const LineCoverage coverage({&dot, 1}, 4, kArea);
  EXPECT_EQ(CoveredAt(coverage, 40, 40), 255);
  EXPECT_EQ(CoveredAt(coverage, 39, 39), 255);
  EXPECT_EQ(CoveredAt(coverage, 41, 39), CoveredAt(coverage, 38, 40));
  EXPECT_EQ(CoveredAt(coverage, 43, 40), 0);
}

TEST(LineCoverage, DoesNotDependOnPiecesAndOrder) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 80);
  std::vector<Segment> lines;
  Point at{place(random), place(random)};
  for (int i = 0; i < 40; ++i) {
    const Point to{place(random), place(random)};
    const Point middle{(at.x + to.x) / 2, (at.y + to.y) / 2};
    lines.push_back({at, middle});
    lines.push_back({middle, to});
    at = to;
  }
  const LineCoverage in_order(lines, 2, kArea);
  std::ranges::shuffle(lines, random);
  const LineCoverage shuffled(lines, 2, kArea);
  ASSERT_EQ(in_order.Area(), shuffled.Area());
  for (int row = 0; row < in_order.Area().height; ++row) {
    for (int column = 0; column < in_order.Area().width; ++column)
      ASSERT_EQ(in_order.At(column, row), shuffled.At(column, row));
  }
}

TEST(LineCoverage, LiesWithinItsAreaHoweverFarLinesReach) {
  const Segment lines[] = {{{-1e7, -1e7}, {1e7, 1e7}}, {{40, -1e7}, {40, 1e7}}, {{-1e7, 500}, {1e7, 500}}};
  const LineCoverage coverage(lines, 2, kArea);
  EXPECT_GE(coverage.Area().left, kArea.left);
  EXPECT_GE(coverage.Area().top, kArea.top);
  EXPECT_LE(coverage.Area().width, kArea.width);
  EXPECT_LE(coverage.Area().height, kArea.height);
  EXPECT_EQ(CoveredAt(coverage, 40, 59), 255);
  EXPECT_NEAR(CoveredAt(coverage, 30, 30), 255, 1);
}

// Such a line passes by the row next to its reach as far away as no number of a pixel can tell.
TEST(LineCoverage, OfANearlyLevelLineIsThatOfALevelOne) {
  constexpr PixelRectangle kAround{0, -20, 60, 80};
  for (const double rise : {1e-7, -1e-7, 1e-11, -1e-11, 5e-324}) {
    for (const double y : {0.0, 30.2, 30.5, 30.8}) {
      const Segment level{{20, y}, {50, y}};
      const Segment nearly{{20, y}, {50, y + rise}};
      for (int row = -3; row < 60; ++row) {
        EXPECT_NEAR(CoveredAt(LineCoverage({&nearly, 1}, 2, kAround), 35, row),
                    CoveredAt(LineCoverage({&level, 1}, 2, kAround), 35, row), 1)
            << rise << " at " << y << ", row " << row;
      }
    }
  }
}

TEST(LineCoverage, OutOfSightIsEmpty) {
  const Segment line{{100, 100}, {200, 200}};
  EXPECT_TRUE(LineCoverage({&line, 1}, 2, kArea).Area().Empty());
  EXPECT_TRUE(LineCoverage({}, 2, kArea).Area().Empty());
}

}  // namespace
}  // namespace quenlor::platform::qt
