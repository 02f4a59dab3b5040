// SPDX-License-Identifier: MIT
#include "graph/plot_axes.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/graph/plot_calls.h"

namespace quenlor::graph {
namespace {

TEST(PlotAxes, ScalesAreTheExtentsOverTheRanges) {
  PlotAxes axes;
  data::AxisRanges ranges;
  ranges.TimeMax = 300;
  ranges.ViscoMin = 50;
  ranges.TempMin = 20;
  ranges.TempMax = 40;
  ranges.ViscoLogMin = -1;
  ranges.ViscoLogMax = 3;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_EQ(axes.XScale(), 20);
  EXPECT_EQ(axes.ViscoScale(), 200);
  EXPECT_EQ(axes.TempScale(), 500);
  EXPECT_EQ(axes.LogScale(), 2500);
  axes.SetScales(ranges, GraphKind::ViscoTemp, ViscoAxis::Linear);
  EXPECT_EQ(axes.XScale(), 500);
}

TEST(PlotAxes, TheValueOfAPositionStandsThere) {
  PlotAxes axes;
  data::AxisRanges ranges;
  ranges.TimeMin = 60;
  ranges.TimeMax = 360;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_EQ(axes.XValue(0), 60);
  EXPECT_EQ(axes.XValue(6000), 360);
  EXPECT_NEAR(axes.X(axes.XValue(1234.5)), 1234.5, 1e-3);
}

TEST(PlotAxes, ARangeThatSpansNothingLeavesItsScaleAsItWas) {
  PlotAxes axes;
  data::AxisRanges ranges;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  ranges.TimeMin = ranges.TimeMax = 7;
  ranges.ViscoMin = ranges.ViscoMax;
  ranges.TempMin = ranges.TempMax;
  ranges.ViscoLogMin = ranges.ViscoLogMax;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_EQ(axes.XScale(), 6000.0 / 180);
  EXPECT_EQ(axes.ViscoScale(), 100);
  EXPECT_EQ(axes.TempScale(), 100);
  EXPECT_EQ(axes.LogScale(), 5000);
}

TEST(PlotAxes, PlotUnitsHaveAMarginOfOnePercent) {
  PlotAxes axes;
  axes.SetScales({}, GraphKind::ViscoTime, ViscoAxis::Linear);
  EXPECT_EQ(axes.PlotUnits(), (platform::Units{-60, -100, 6120, 10200}));
  axes.SetScales({}, GraphKind::ViscoTemp, ViscoAxis::Linear);
  EXPECT_EQ(axes.PlotUnits(), (platform::Units{-100, -100, 10200, 10200}));
}

TEST(PlotAxes, ValuesStandAtTheirPlacesOnARangeAsWideAsAllNumbers) {
  constexpr double kHuge = 1e308;
  data::AxisRanges ranges;
  ranges.TimeMin = ranges.ViscoMin = ranges.TempMin = -kHuge;
  ranges.TimeMax = ranges.ViscoMax = ranges.TempMax = kHuge;
  PlotAxes axes;
  axes.SetScales(ranges, GraphKind::ViscoTempTime, ViscoAxis::Linear);
  for (const double part : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
    EXPECT_FLOAT_EQ(axes.X(part * kHuge), 3000 + part * 3000);
    EXPECT_FLOAT_EQ(axes.ViscoY(part * kHuge), 5000 - part * 5000);
    EXPECT_FLOAT_EQ(axes.TempY(part * kHuge), 5000 - part * 5000);
    EXPECT_NEAR(axes.XValue(3000 + part * 3000), part * kHuge, 1e300);
  }
  axes.SetScales(ranges, GraphKind::ViscoTemp, ViscoAxis::Linear);
  EXPECT_FLOAT_EQ(axes.X(kHuge), 10000);
  EXPECT_FLOAT_EQ(axes.X(0), 5000);
}

TEST(PlotAxes, ValuesStandAtTheirPlaces) {
  PlotAxes axes;
  axes.SetScales({}, GraphKind::ViscoTempTime, ViscoAxis::Linear);
  EXPECT_EQ(axes.X(0), 0);
  EXPECT_EQ(axes.X(180), 6000);
  EXPECT_EQ(axes.X(-90), -3000);
  EXPECT_EQ(axes.ViscoY(25), 7500);
  EXPECT_EQ(axes.TempY(100), 0);
  axes.SetScales({}, GraphKind::ViscoTime, ViscoAxis::Log);
  EXPECT_EQ(axes.ViscoY(1), 10000);
  EXPECT_EQ(axes.ViscoY(10), 5000);
  EXPECT_EQ(axes.ViscoY(0.1), 15000);
}

TEST(PlotAxes, WhatIsNotPositiveStandsAtTheDecadeZeroOfTheLogAxis) {
  PlotAxes axes;
  data::AxisRanges ranges;
  ranges.ViscoLogMin = -2;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Log);
  EXPECT_EQ(axes.ViscoY(0), 5000);
  EXPECT_EQ(axes.ViscoY(-1e308), 5000);
  EXPECT_EQ(axes.ViscoY(1), 5000);
}

TEST(PlotAxes, CoordinatesAreClamped) {
  PlotAxes axes;
  axes.SetScales({}, GraphKind::ViscoTempTime, ViscoAxis::Linear);
  EXPECT_EQ(axes.X(1e308), 100000);
  EXPECT_EQ(axes.X(-1e308), -100000);
  EXPECT_EQ(axes.ViscoY(1e308), -90000);
  EXPECT_EQ(axes.TempY(-1e308), 110000);
}

TEST(PlotAxes, AStretchLiesBetweenTheHeightsOfItsExtremes) {
  data::AxisRanges ranges;
  ranges.ViscoLogMin = -2;
  PlotAxes axes;
  axes.SetScales(ranges, GraphKind::ViscoTime, ViscoAxis::Log);
  struct {
    std::vector<double> values;
    double lowest;
    double highest;
  } const kCases[] = {{{0.1, 10}, 7500, 2500},      {{0.1, 0.01}, 10000, 7500}, {{0.1, -3}, 7500, 5000},
                      {{10, 100, 0}, 5000, 0},      {{-1, -2, 0}, 5000, 5000},  {{0.01, -3, 100}, 10000, 0},
                      {{0.01, 0, 0.1}, 10000, 5000}};
  for (const auto& [values, lowest, highest] : kCases) {
    ValueColumn column;
    for (const double value : values) column.Append(value);
    const auto span = axes.ViscoSpan(column.ExtremesOf(0, column.Size()));
    EXPECT_EQ(std::max(span.from, span.to), lowest);
    EXPECT_EQ(std::min(span.from, span.to), highest);
  }
}

TEST(PlotAxes, CurvesOfRangesThatSpanNothingAreNotShown) {
  PlotAxes axes;
  data::AxisRanges ranges;
  ranges.ViscoMin = 100;
  ranges.TempMin = 100;
  axes.SetScales(ranges, GraphKind::ViscoTempTime, ViscoAxis::Linear);
  EXPECT_FALSE(axes.ShowsVisco());
  EXPECT_FALSE(axes.ShowsTemp());
  axes.SetScales(ranges, GraphKind::ViscoTempTime, ViscoAxis::Log);
  EXPECT_TRUE(axes.ShowsVisco());
  ranges.ViscoLogMin = 3;
  ranges.TempMin = 200;
  axes.SetScales(ranges, GraphKind::ViscoTempTime, ViscoAxis::Log);
  EXPECT_FALSE(axes.ShowsVisco());
  EXPECT_TRUE(axes.ShowsTemp()) << "a temperature axis may stand on its head";
}

TEST(PlotAxes, NoRangesMakeAScaleOrAPlaceThatIsNoNumber) {
  const double inf = std::numeric_limits<double>::infinity();
  const double kEnds[] = {0, 1, -1e308, 1e308, 5e-324, inf, -inf, std::numeric_limits<double>::quiet_NaN()};
  for (const double min : kEnds) {
    for (const double max : kEnds) {
      data::AxisRanges ranges;
      ranges.TimeMin = ranges.ViscoMin = ranges.TempMin = min;
      ranges.TimeMax = ranges.ViscoMax = ranges.TempMax = max;
      PlotAxes axes;
      for (const GraphKind kind : {GraphKind::ViscoTempTime, GraphKind::ViscoTemp}) {
        axes.SetScales(ranges, kind, ViscoAxis::Linear);
        for (const double scale : {axes.XScale(), axes.ViscoScale(), axes.TempScale()}) {
          EXPECT_TRUE(std::isfinite(scale)) << min << " to " << max;
        }
        for (const double value : kEnds) {
          EXPECT_LE(std::fabs(axes.X(value)), 100000) << value << " in " << min << " to " << max;
          EXPECT_LE(std::fabs(axes.ViscoY(value)), 110000);
          EXPECT_LE(std::fabs(axes.TempY(value)), 110000);
        }
      }
    }
  }
}

}  // namespace
}  // namespace quenlor::graph
