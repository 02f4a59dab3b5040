// SPDX-License-Identifier: MIT
#include "graph/plot_grid.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/graph/plot_calls.h"

namespace quenlor::graph {
namespace {

using platform::LineStyle;
using platform::Point;
using platform::Segment;
using platform::memory::RecordingSurface;
using testing::ElementsAre;
using testing::ElementsAreArray;

// ---- layout

TEST(PlotLayout, DividesTheGraphAreaIntoUnits) {
  const PlotLayout layout(8000, 13500);
  EXPECT_EQ(layout.UnitX, 1000);
  EXPECT_EQ(layout.UnitY, 1000);
  const Frame picture2 = layout.Picture2();
  EXPECT_EQ(picture2.left, 900);
  EXPECT_EQ(picture2.top, 900);
  EXPECT_EQ(picture2.width, 6200);
  EXPECT_EQ(picture2.height, 10200);
  EXPECT_EQ(layout.Picture2Pixels({5, 10, 800, 1350}), (platform::PixelRectangle{95, 100, 620, 1020}));
}

// ---- grid

std::vector<Call> GridOf(GraphKind kind, ViscoAxis axis, int log_min = 0, int log_max = 2) {
  data::AxisRanges ranges;
  ranges.ViscoLogMin = static_cast<std::int16_t>(log_min);
  ranges.ViscoLogMax = static_cast<std::int16_t>(log_max);
  PlotAxes axes;
  axes.SetScales(ranges, kind, axis);
  RecordingSurface surface;
  DrawGrid(surface, axes, Color{0xFFFFFF});
  for (const Call& call : surface.Calls()) {
    EXPECT_EQ(call.pen.color, kWhitePen);
    EXPECT_EQ(call.pen.width, 1);
  }
  return surface.Calls();
}

std::vector<double> Verticals(const std::vector<Segment>& lines) {
  std::vector<double> xs;
  for (const Segment& line : lines) {
    if (line.from.x == line.to.x) {
      xs.push_back(line.from.x);
      EXPECT_EQ(line.from.y, 0);
      EXPECT_EQ(line.to.y, 10000);
    }
  }
  return xs;
}

std::vector<double> Horizontals(const std::vector<Segment>& lines, double extent) {
  std::vector<double> ys;
  for (const Segment& line : lines) {
    if (line.from.y == line.to.y && line.from.x == 0) {
      ys.push_back(line.from.y);
      EXPECT_EQ(line.to.x, extent);
    }
  }
  return ys;
}

TEST(Grid, OverTimeSevenUprightLinesTheEndsAndTheMiddleSolid) {
  for (const GraphKind kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime}) {
    const auto calls = GridOf(kind, ViscoAxis::Linear);
    EXPECT_THAT(Verticals(LinesWith(calls, LineStyle::kSolid)), ElementsAre(0, 3000, 6000));
    EXPECT_THAT(Verticals(LinesWith(calls, LineStyle::kDotted)), ElementsAre(1000, 2000, 4000, 5000));
  }
}

TEST(Grid, OverTemperatureElevenUprightLines) {
  const auto calls = GridOf(GraphKind::ViscoTemp, ViscoAxis::Linear);
  EXPECT_THAT(Verticals(LinesWith(calls, LineStyle::kSolid)), ElementsAre(0, 5000, 10000));
  EXPECT_THAT(Verticals(LinesWith(calls, LineStyle::kDotted)),
              ElementsAre(1000, 2000, 3000, 4000, 6000, 7000, 8000, 9000));
}

TEST(Grid, ALinearAxisHasTenDivisions) {
  for (const auto& [kind, extent] :
       {std::pair{GraphKind::ViscoTime, 6000.0}, {GraphKind::ViscoTemp, 10000.0}}) {
    const auto calls = GridOf(kind, ViscoAxis::Linear);
    EXPECT_THAT(Horizontals(LinesWith(calls, LineStyle::kSolid), extent), ElementsAre(0, 5000, 10000));
    EXPECT_THAT(Horizontals(LinesWith(calls, LineStyle::kDotted), extent),
                ElementsAre(1000, 2000, 3000, 4000, 6000, 7000, 8000, 9000));
  }
}

TEST(Grid, ALogAxisOfOneDecadeHasEightDottedAndTwoSolidLines) {
  const auto calls = GridOf(GraphKind::ViscoTime, ViscoAxis::Log, -1, 0);
  EXPECT_THAT(Horizontals(LinesWith(calls, LineStyle::kSolid), 6000), ElementsAre(0, 10000));
  std::vector<double> expected;
  for (int k = 2; k <= 9; ++k) expected.push_back((1 - static_cast<double>(Log10(k))) * 10000);
  EXPECT_THAT(Horizontals(LinesWith(calls, LineStyle::kDotted), 6000), ElementsAreArray(expected));
}

TEST(Grid, ALogAxisDividesItsHeightAmongItsDecades) {
  const auto calls = GridOf(GraphKind::ViscoTime, ViscoAxis::Log, -1, 3);
  EXPECT_THAT(Horizontals(LinesWith(calls, LineStyle::kSolid), 6000),
              ElementsAre(0, 2500, 5000, 7500, 10000));
  const auto dotted = Horizontals(LinesWith(calls, LineStyle::kDotted), 6000);
  ASSERT_EQ(dotted.size(), 32U);
  EXPECT_NEAR(dotted[0], 2500 * (1 - std::log10(2)), 0.01);
  EXPECT_NEAR(dotted[31], 2500 * (4 - std::log10(9)), 0.01);
}

TEST(Grid, ALogAxisHasLinesOnlyWhereThereAreNumbersAndAtItsEnds) {
  const auto calls = GridOf(GraphKind::ViscoTime, ViscoAxis::Log, -32768, 32767);
  const auto solid = Horizontals(LinesWith(calls, LineStyle::kSolid), 6000);
  EXPECT_EQ(solid.size(), 2U + 323 + 1 + 308) << "the ends and the powers of ten";
  EXPECT_EQ(solid.front(), 0);
  EXPECT_EQ(solid.back(), 10000);
  const auto dotted = Horizontals(LinesWith(calls, LineStyle::kDotted), 6000);
  EXPECT_EQ(dotted.size(), 8U * (323 + 308)) << "their multiples";
  for (const double y : dotted) EXPECT_NEAR(y, 5000, 10000.0 * 324 / 65535);

  const auto beyond = GridOf(GraphKind::ViscoTime, ViscoAxis::Log, 400, 410);
  EXPECT_THAT(Horizontals(Lines(beyond), 6000), ElementsAre(0, 10000));
}

TEST(Grid, ALogAxisOfAllNumbersHasTheirLines) {
  const auto calls = GridOf(GraphKind::ViscoTime, ViscoAxis::Log, -324, 309);
  const auto solid = Horizontals(LinesWith(calls, LineStyle::kSolid), 6000);
  ASSERT_EQ(solid.size(), 634U);
  for (std::size_t i = 0; i < solid.size(); ++i)
    EXPECT_NEAR(solid[i], 10000.0 * static_cast<double>(i) / 633, 1e-9);
}

TEST(Grid, ALogAxisWithoutADecadeHasNoLines) {
  for (const int log_max : {2, 1, -32768}) {
    EXPECT_TRUE(Horizontals(Lines(GridOf(GraphKind::ViscoTime, ViscoAxis::Log, 2, log_max)), 6000).empty());
  }
}

TEST(Grid, OnlyTheGraphOfTwoCurvesHasTicksOnItsRightEdge) {
  const auto ticks = [](const std::vector<Call>& calls) {
    std::vector<double> ys;
    for (const Call& call : calls) {
      if (call.line.from.x == 5950 && call.line.to.x == 6000 && call.line.from.y == call.line.to.y) {
        EXPECT_EQ(call.pen.style, LineStyle::kSolid);
        ys.push_back(call.line.from.y);
      }
    }
    return ys;
  };
  EXPECT_THAT(ticks(GridOf(GraphKind::ViscoTempTime, ViscoAxis::Linear)),
              ElementsAre(1000, 2000, 3000, 4000, 5000, 6000, 7000, 8000, 9000));
  EXPECT_TRUE(ticks(GridOf(GraphKind::ViscoTime, ViscoAxis::Linear)).empty());
  EXPECT_TRUE(ticks(GridOf(GraphKind::ViscoTemp, ViscoAxis::Linear)).empty());
}

// ---- legend

std::vector<Call> LegendOf(const std::vector<TestReading>& readings, int LineWidth,
                           GraphKind kind = GraphKind::ViscoTempTime) {
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  PlotSettings settings = SettingsOf(kind);
  settings.LineWidth = LineWidth;
  plot.Set(settings, {});
  RecordingSurface surface;
  plot.DrawPicture1(surface, surface.Whole(), {8000, 13500});
  EXPECT_EQ(surface.CurrentViewport().CoordinateSystem(), (platform::Units{0, 0, 8000, 13500}));
  EXPECT_EQ(surface.Calls().front().kind, Kind::kClear);
  EXPECT_EQ(surface.Calls().front().pen.color, kWhitePen);
  return {surface.Calls().begin() + 1, surface.Calls().end()};
}

TEST(Legend, ShowsALineWithItsMarkerForEachOfTwoCurves) {
  const auto calls = LegendOf({{1}}, 2);
  EXPECT_THAT(Lines(calls),
              ElementsAre(Segment{{800, 300}, {1200, 300}}, Segment{{6800, 300}, {7200, 300}},
                          Segment{{6947, 353}, {7053, 247}}, Segment{{6947, 247}, {7053, 353}}));
  EXPECT_THAT(Positions(calls, Kind::kCircle), ElementsAre(Point{1000, 300}));
  EXPECT_EQ(calls[1].across, 40);
  for (const Call& call : calls) EXPECT_EQ(call.pen.width, 2);
}

TEST(Legend, AThinCrossIsLongerAtItsRightEnds) {
  const auto lines = Lines(LegendOf({{1}}, 1));
  // Half is 53; 53 * 1.1 + 10 = 68.3.
  EXPECT_EQ(lines[2], (Segment{{6947, 353}, {7053, 232}}));
  EXPECT_EQ(lines[3], (Segment{{6947, 247}, {7053, 368}}));
}

TEST(Legend, TellsTheQuantitiesByColourWithFewerThanTwoSeries) {
  for (const auto& readings : {std::vector<TestReading>{}, {{7}, {7}}}) {
    const auto calls = LegendOf(readings, 2);
    ASSERT_EQ(calls.size(), 5U);
    EXPECT_EQ(calls[0].pen.color, Series(1));
    EXPECT_EQ(calls[1].pen.color, Series(1));
    for (std::size_t i = 2; i < 5; ++i) EXPECT_EQ(calls[i].pen.color, Series(3));
  }
}

TEST(Legend, HasTheGridsColourWhenColoursTellSeries) {
  for (const Call& call : LegendOf({{1}, {2}}, 2)) EXPECT_EQ(call.pen.color, kBlackPen);
}

TEST(Legend, IsNotThereForOneCurve) {
  EXPECT_TRUE(LegendOf({{1}}, 2, GraphKind::ViscoTime).empty());
  EXPECT_TRUE(LegendOf({{1}}, 2, GraphKind::ViscoTemp).empty());
}

}  // namespace
}  // namespace quenlor::graph
