// SPDX-License-Identifier: MIT
#include "graph/painted_cells.h"

#include <set>
#include <utility>

#include <gtest/gtest.h>

#include "tests/graph/random_readings.h"

namespace quenlor::graph {
namespace {

TEST(PaintedCells, NothingIsPaintedAtFirst) {
  const PaintedCells cells(1000, 1000, 4);
  EXPECT_FALSE(cells.Contain({{0, 0}, {1000, 1000}}));
  EXPECT_FALSE(cells.Contain({{500, 500}, {500, 500}}));
}

TEST(PaintedCells, ALineIsPaintedInEitherDirectionAndInParts) {
  for (const DotLine& line : {DotLine{{0, 0}, {1000, 999}}, DotLine{{3, 900}, {977, 13}},
                              DotLine{{10, 10}, {10, 980}}, DotLine{{0, 1000}, {1000, 1000}}}) {
    PaintedCells cells(1000, 1000, 4);
    cells.Add(line);
    EXPECT_TRUE(cells.Contain(line));
    EXPECT_TRUE(cells.Contain({line.to, line.from}));
    EXPECT_TRUE(cells.Contain({line.from, line.from}));
    EXPECT_TRUE(cells.Contain({line.to, line.to}));
  }
}

TEST(PaintedCells, ALineBesideAPaintedOneIsNot) {
  PaintedCells cells(1000, 1000, 4);
  cells.Add({{0, 500}, {1000, 500}});
  EXPECT_FALSE(cells.Contain({{0, 504}, {1000, 504}}));
  EXPECT_FALSE(cells.Contain({{0, 495}, {1000, 495}}));
  EXPECT_FALSE(cells.Contain({{500, 500}, {500, 510}}));
}

TEST(PaintedCells, AGapOfOneCellIsFoundHoweverMuchIsPaintedAroundIt) {
  constexpr int kCell = 3;
  PaintedCells cells(1200, 1200, kCell);
  const auto middle = [&](int cell) { return cell * kCell + 1; };
  const int gap_x = 150;
  const int gap_y = 211;
  for (int y = 0; y < 400; ++y) {
    if (y != gap_y) {
      cells.Add({{middle(0), middle(y)}, {middle(399), middle(y)}});
    } else {
      cells.Add({{middle(0), middle(y)}, {middle(gap_x - 1), middle(y)}});
      cells.Add({{middle(gap_x + 1), middle(y)}, {middle(399), middle(y)}});
    }
  }
  EXPECT_FALSE(cells.Contain({{middle(0), middle(gap_y)}, {middle(399), middle(gap_y)}}));
  EXPECT_FALSE(cells.Contain({{middle(gap_x), middle(399)}, {middle(gap_x), middle(0)}}));
  EXPECT_FALSE(cells.Contain(
      {{middle(gap_x - 100), middle(gap_y - 100)}, {middle(gap_x + 100), middle(gap_y + 100)}}));
  EXPECT_TRUE(cells.Contain({{middle(0), middle(gap_y - 1)}, {middle(399), middle(gap_y - 1)}}));
  EXPECT_TRUE(cells.Contain({{middle(0), middle(0)}, {middle(399), middle(100)}}));
  EXPECT_TRUE(cells.Contain({{middle(399), middle(399)}, {middle(300), middle(0)}}));
}

// Every dot of the line looked at by itself, without any shortcut.
bool NaivelyContain(const PaintedCells& cells, const DotLine& line) {
  const int steps = 4 * std::max(std::abs(line.to.x - line.from.x), std::abs(line.to.y - line.from.y)) + 1;
  for (int i = 0; i <= steps; ++i) {
    const auto at = [&](int from, int to) {
      return from + static_cast<int>(std::lround(1.0 * (to - from) * i / steps));
    };
    const Dot dot{at(line.from.x, line.to.x), at(line.from.y, line.to.y)};
    if (!cells.Contain({dot, dot})) return false;
  }
  return true;
}

TEST(PaintedCells, WhatIsContainedIsContainedDotByDotNearlyEverywhere) {
  Dice dice(3);
  PaintedCells cells(900, 700, 1);
  const auto dot = [&] { return Dot{dice.Int(0, 900), dice.Int(0, 700)}; };
  // Wholly painted but for a few places.
  for (int y = 0; y <= 700; ++y) {
    const int gap = dice.Int(1, 8990);
    if (gap > 900) {
      cells.Add({{0, y}, {900, y}});
    } else {
      cells.Add({{0, y}, {gap - 1, y}});
      if (gap < 900) cells.Add({{gap + 1, y}, {900, y}});
    }
  }
  int contained = 0;
  int differ = 0;
  for (int i = 0; i < 3000; ++i) {
    const DotLine line{dot(), dot()};
    const bool here = cells.Contain(line);
    contained += here;
    differ += here != NaivelyContain(cells, line);
  }
  EXPECT_GT(contained, 300);
  EXPECT_LT(contained, 2900);
  // Where a line runs between two cells, either may count as its way.
  EXPECT_LT(differ, 120);
}

}  // namespace
}  // namespace quenlor::graph
