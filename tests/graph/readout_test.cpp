// SPDX-License-Identifier: MIT
#include "graph/readout.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/graph/plotted.h"

namespace quenlor::graph {
namespace {

constexpr double kWidth = 900;
constexpr double kHeight = 600;

struct PlottedInPixels : Plotted {
  using Plotted::Plotted;

  PlotPixels Pixels() const { return {axes, kWidth, kHeight}; }
  std::optional<NearReading> Near(PlotPixels::Point at) const {
    return NearestReading(graph.Values(), Pixels(), at);
  }
  // Every point in view, one by one.
  double NearestDistance(PlotPixels::Point at) const {
    const PlotPixels pixels = Pixels();
    double nearest = std::numeric_limits<double>::infinity();
    for (Index i = 0; i < graph.Values().Size(); ++i) {
      for (const Quantity quantity : {Quantity::Visco, Quantity::Temp}) {
        if (quantity == Quantity::Temp && !axes.ShowsTemp()) continue;
        const PlotPixels::Point point = pixels.Of(graph.Values(), i, quantity);
        const double margin_x = kWidth * 0.01 / 1.02;
        const double margin_y = kHeight * 0.01 / 1.02;
        if (point.x < margin_x - 1e-3 || point.x > kWidth - margin_x + 1e-3) continue;
        if (point.y < margin_y - 1e-3 || point.y > kHeight - margin_y + 1e-3) continue;
        nearest = std::min(nearest, std::hypot(point.x - at.x, point.y - at.y));
      }
    }
    return nearest;
  }
};

std::string Walk(int readings, unsigned seed) {
  std::mt19937 random(seed);
  std::string text;
  double visco = 50;
  double temp = 25;
  for (int i = 0; i < readings; ++i) {
    visco += static_cast<double>(random() % 200) / 50 - 2;
    temp += static_cast<double>(random() % 200) / 500 - 0.2;
    text += std::to_string(1 + i / (readings / 3 + 1)) + ',' + std::to_string(i % (readings / 3 + 1)) + ',' +
            std::to_string(visco) + ",mPa.s," + std::to_string(temp) + ",C\n";
  }
  return text;
}

TEST(Readout, TheNearestReadingIsTheOneThatAWalkThroughAllFinds) {
  std::mt19937 random(7);
  for (const GraphKind kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp}) {
    for (const int readings : {3, 40, 700, 20000}) {
      const PlottedInPixels plotted(Walk(readings, static_cast<unsigned>(readings)), kind);
      for (int i = 0; i < 40; ++i) {
        const PlotPixels::Point at{static_cast<double>(random() % 900), static_cast<double>(random() % 600)};
        const auto near = plotted.Near(at);
        ASSERT_TRUE(near);
        const double found = std::hypot(near->at.x - at.x, near->at.y - at.y);
        EXPECT_LE(found, plotted.NearestDistance(at) + 0.5) << readings;
      }
    }
  }
}

TEST(Readout, WhatIsOutOfViewIsNotNear) {
  PlottedInPixels plotted("1,0,10,mPa.s,20,C\n1,60,20,mPa.s,20,C\n1,170,30,mPa.s,20,C\n");
  const auto before = plotted.Near({kWidth, kHeight / 2});
  ASSERT_TRUE(before);
  EXPECT_EQ(before->index, 2);
  data::AxisRanges ranges = plotted.document.Ranges();
  ranges.TimeMax = 100;
  plotted.axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_EQ(plotted.Near({kWidth, kHeight / 2})->index, 1);
  ranges.TimeMin = 90;
  plotted.axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_FALSE(plotted.Near({kWidth, kHeight / 2}));
}

TEST(Readout, OnlyReadingsOfARunAreNearWhereTheOthersAreHidden) {
  const PlottedInPixels plotted(Walk(9000, 5));
  std::mt19937 random(1);
  for (int i = 0; i < 40; ++i) {
    const PlotPixels::Point at{static_cast<double>(random() % 900), static_cast<double>(random() % 600)};
    const auto near = NearestReading(plotted.graph.Values(), plotted.Pixels(), at, 2);
    ASSERT_TRUE(near);
    EXPECT_EQ(plotted.graph.Values().RunOf(near->index), 1u);
  }
  EXPECT_FALSE(NearestReading(plotted.graph.Values(), plotted.Pixels(), {1, 1}, 7)) << "there is none";
}

TEST(Readout, AnEmptyGraphHasNoNearReading) { EXPECT_FALSE(PlottedInPixels("").Near({5, 5})); }

TEST(Readout, OfReadingsAtOnePlaceTheNewestLiesOnTop) {
  const PlottedInPixels plotted(
      "1,60,50,mPa.s,20,C\n1,60,50,mPa.s,21,C\n1,60,50,mPa.s,22,C\n1,100,20,mPa.s,22,C\n");
  const PlotPixels::Point at = plotted.Pixels().Of(plotted.graph.Values(), 0, Quantity::Visco);
  EXPECT_EQ(plotted.Near(at)->index, 2);
}

TEST(Readout, TheNearerCurveIsTold) {
  const PlottedInPixels plotted("1,60,50,mPa.s,20,C\n1,120,55,mPa.s,35,C\n", GraphKind::ViscoTempTime);
  for (const Quantity quantity : {Quantity::Visco, Quantity::Temp}) {
    const PlotPixels::Point at = plotted.Pixels().Of(plotted.graph.Values(), 1, quantity);
    const auto near = plotted.Near(at);
    EXPECT_EQ(near->index, 1);
    EXPECT_EQ(near->quantity, quantity);
  }
}

}  // namespace
}  // namespace quenlor::graph
