// SPDX-License-Identifier: MIT
#include "graph/readout.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/data_file.h"
#include "graph/live_graph.h"

namespace quenlor::graph {
namespace {

using testing::ElementsAre;

constexpr double kWidth = 900;
constexpr double kHeight = 600;

struct Plotted : GraphView {
  data::SettingsList settings;
  data::Document document{settings};
  LiveGraph graph{document, settings, *this};
  PlotAxes axes;

  explicit Plotted(const std::string& readings, GraphKind kind = GraphKind::ViscoTime) {
    document.Load(data::ParseDataFile("No.,Time,Viscosity,Unit1,Temp,Unit2\n" + readings), "x.csv", "");
    graph.SetKind(kind);
    axes.SetScales(document.Ranges(), kind, graph.View().visco_axis);
  }
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
      const Plotted plotted(Walk(readings, static_cast<unsigned>(readings)), kind);
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
  Plotted plotted("1,0,10,mPa.s,20,C\n1,60,20,mPa.s,20,C\n1,170,30,mPa.s,20,C\n");
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

TEST(Readout, AnEmptyGraphHasNoNearReading) { EXPECT_FALSE(Plotted("").Near({5, 5})); }

TEST(Readout, OfReadingsAtOnePlaceTheNewestLiesOnTop) {
  const Plotted plotted("1,60,50,mPa.s,20,C\n1,60,50,mPa.s,21,C\n1,60,50,mPa.s,22,C\n1,100,20,mPa.s,22,C\n");
  const PlotPixels::Point at = plotted.Pixels().Of(plotted.graph.Values(), 0, Quantity::Visco);
  EXPECT_EQ(plotted.Near(at)->index, 2);
}

TEST(Readout, TheNearerCurveIsTold) {
  const Plotted plotted("1,60,50,mPa.s,20,C\n1,120,55,mPa.s,35,C\n", GraphKind::ViscoTempTime);
  for (const Quantity quantity : {Quantity::Visco, Quantity::Temp}) {
    const PlotPixels::Point at = plotted.Pixels().Of(plotted.graph.Values(), 1, quantity);
    const auto near = plotted.Near(at);
    EXPECT_EQ(near->index, 1);
    EXPECT_EQ(near->quantity, quantity);
  }
}

TEST(Readout, TellsTheReadingAsItsTableDoes) {
  Plotted plotted("1,00:00:05,12.50,mPa.s,25.3,C\n2,7,9,,,\n");
  plotted.document.SetSampleName(1, "Lot 7");
  const auto told = [&](Index index) { return ReadingTold(plotted.document, plotted.graph.Values(), index); };
  EXPECT_THAT(told(0),
              ElementsAre("No.1  Lot 7", "Time  00:00:05", "Viscosity  12.50 mPa.s", "Temp  25.3 C"));
  EXPECT_THAT(told(1), ElementsAre("No.2", "Time  7", "Viscosity  9"));
}

TEST(Readout, BetweenTwoReadingsStandDifferencesAndTheSlope) {
  const Plotted plotted("1,60,1000.1,mPa.s,20.1,C\n1,180,1000.3,mPa.s,20.2,C\n");
  const auto between = [&](TimeUnit unit, GraphKind kind) {
    return BetweenTold(plotted.graph.Values(), 0, 1, {unit, ViscoAxis::Linear}, kind);
  };
  EXPECT_THAT(between(TimeUnit::Minute, GraphKind::ViscoTime),
              ElementsAre("A to B", "Time  +2 min", "Viscosity  +0.2", "Temp  +0.1", "Slope  +0.1 / min"));
  EXPECT_EQ(between(TimeUnit::Second, GraphKind::ViscoTime)[4], "Slope  +0.001667 / s");
  EXPECT_EQ(between(TimeUnit::Second, GraphKind::ViscoTemp)[4], "Slope  +2 / degree");
  EXPECT_EQ(BetweenTold(plotted.graph.Values(), 1, 1, {}, GraphKind::ViscoTime).size(), 4u) << "no slope";
}

}  // namespace
}  // namespace quenlor::graph
