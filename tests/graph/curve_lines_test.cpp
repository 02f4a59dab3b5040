// SPDX-License-Identifier: MIT
#include "graph/curve_lines.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/plot_grid.h"
#include "platform/memory/recording_surface.h"
#include "tests/graph/random_readings.h"

namespace quenlor::graph {
namespace {

using platform::PixelRectangle;
using platform::Point;
using platform::memory::RecordingSurface;
using testing::ElementsAre;
using Call = RecordingSurface::Call;
using Kind = Call::Kind;

// The plot of a page of A4.
constexpr PixelRectangle kPlot{1240, 1039, 7440, 10390};

struct Drawn {
  data::AxisRanges ranges;  // time to 180, viscosity and temperature to 100, two decades
  PlotSettings settings;
  std::vector<Call> calls;
  int line_batches = 0;

  void Draw(const std::vector<TestReading>& readings) { Draw(ValuesOf(readings)); }
  void Draw(const ValueArrays& values, const PixelRectangle& plot = kPlot, int dot = 1) {
    PlotAxes axes;
    axes.SetScales(ranges, settings.kind, settings.visco_axis);
    RecordingSurface surface(9921, 14031, 12.5);
    DrawCurveLines(surface, {plot, {0, 0, axes.XExtent(), 10000}}, dot, values, values.Runs(), settings,
                   axes);
    calls = surface.Calls();
    line_batches = surface.LineBatches();
  }
  std::vector<Call> Of(Kind kind) const {
    std::vector<Call> wanted;
    for (const Call& call : calls) {
      if (call.kind == kind) wanted.push_back(call);
    }
    return wanted;
  }
  std::size_t Count(Kind kind) const { return Of(kind).size(); }
  std::vector<platform::Segment> Lines() const {
    std::vector<platform::Segment> lines;
    for (const Call& call : Of(Kind::kLine)) lines.push_back(call.line);
    return lines;
  }
};

platform::Rgb Series(std::size_t entry) { return ToRgb(kDefaultColors[entry]); }

TEST(CurveLines, ReadingsAreJoinedByLines) {
  Drawn drawn;
  drawn.Draw({{1, 0, 0, 20}, {1, 90, 50, 20}, {1, 180, 0, 20}});
  EXPECT_THAT(drawn.Lines(), ElementsAre(platform::Segment{{0, 10390}, {3720, 5195}},
                                         platform::Segment{{3720, 5195}, {7440, 10390}}));
  for (const Call& call : drawn.calls) EXPECT_EQ(call.pen.color, Series(1));
}

TEST(CurveLines, WhatRunsStraightIsOneLine) {
  std::vector<TestReading> readings;
  for (int i = 0; i <= 1000; ++i) readings.push_back({1, 0.18 * i, 0.07 * i, 20});
  Drawn drawn;
  drawn.Draw(readings);
  EXPECT_EQ(drawn.Count(Kind::kLine), 1U);
}

TEST(CurveLines, DotsWithinOneAndAHalfOfAStraightLineAreOneLine) {
  const auto at = [](int column, int row) {
    return TestReading{1, 180.0 * column / kPlot.width, 100 - 100.0 * row / kPlot.height, 20};
  };
  Drawn near;
  near.Draw({at(0, 5000), at(10, 5000), at(20, 5003)});
  EXPECT_THAT(near.Lines(), ElementsAre(platform::Segment{{0, 5000}, {20, 5003}}));
  Drawn farther;
  farther.Draw({at(0, 5000), at(10, 5000), at(20, 5004)});
  EXPECT_THAT(farther.Lines(), ElementsAre(platform::Segment{{0, 5000}, {10, 5000}},
                                           platform::Segment{{10, 5000}, {20, 5004}}));
}

TEST(CurveLines, RunsAreNotJoinedAndHaveTheColourOfTheirNumber) {
  Drawn drawn;
  drawn.Draw({{1, 0, 10, 0}, {1, 90, 10, 0}, {12, 0, 60, 0}, {12, 90, 60, 0}});
  const auto lines = drawn.Of(Kind::kLine);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].pen.color, Series(1));
  EXPECT_EQ(lines[1].pen.color, Series(2));
}

TEST(CurveLines, RunTenHasColourZero) {
  Drawn drawn;
  drawn.Draw({{10, 0, 10, 0}, {10, 90, 10, 0}});
  EXPECT_EQ(drawn.Of(Kind::kLine).at(0).pen.color, Series(0));
}

TEST(CurveLines, TheTemperatureHasAColourOfItsOwnWithOneSeriesOnly) {
  Drawn drawn;
  drawn.settings.kind = GraphKind::ViscoTempTime;
  drawn.Draw({{1, 0, 10, 60}, {1, 90, 10, 60}});
  ASSERT_EQ(drawn.Count(Kind::kLine), 2U);
  EXPECT_EQ(drawn.Of(Kind::kLine)[0].pen.color, Series(1));
  EXPECT_EQ(drawn.Of(Kind::kLine)[1].pen.color, Series(3));
  EXPECT_EQ(drawn.Of(Kind::kCross).at(0).pen.color, Series(3));

  drawn.Draw({{1, 0, 10, 60}, {1, 90, 10, 60}, {2, 0, 20, 70}, {2, 90, 20, 70}});
  for (const Call& call : drawn.calls) EXPECT_NE(call.pen.color, Series(3));
}

TEST(CurveLines, ThePenIsAsWideAsTheSettingSays) {
  for (const int width : {1, 2}) {
    Drawn drawn;
    drawn.settings.LineWidth = width;
    drawn.Draw({{1, 0, 10, 60}, {1, 90, 10, 60}});
    EXPECT_EQ(drawn.Of(Kind::kLine).at(0).pen.width, width);
  }
}

TEST(CurveLines, MarkersStandWhereTheSettingSays) {
  std::vector<TestReading> readings;
  for (int run = 1; run <= 2; ++run) {
    for (int i = 0; i < 12; ++i) readings.push_back({run, 10.0 * i, 10.0 * run, 50});
  }
  constexpr std::size_t kMarkers[] = {2, 24, 12, 6, 4};
  for (int item = 0; item < 5; ++item) {
    Drawn drawn;
    drawn.settings.MarkerEvery = item;
    drawn.Draw(readings);
    EXPECT_EQ(drawn.Count(Kind::kCircle), kMarkers[item]) << item;
    EXPECT_EQ(drawn.Count(Kind::kCross), 0U);
    drawn.settings.kind = GraphKind::ViscoTempTime;
    drawn.Draw(readings);
    // The crosses of both runs stand at the same places, the later ones over the earlier ones.
    EXPECT_EQ(drawn.Count(Kind::kCross), kMarkers[item] / 2) << item;
  }
}

TEST(CurveLines, MarkersAreThePartsOfThePlotThatTheyAreOnTheScreen) {
  Drawn drawn;
  drawn.settings.kind = GraphKind::ViscoTempTime;
  drawn.Draw({{1, 0, 10, 60}});
  const double unit_across = 7440 / 6000.0;
  const double unit_down = 10390 / 10000.0;
  EXPECT_DOUBLE_EQ(drawn.Of(Kind::kCircle).at(0).across, 50 * std::sqrt(unit_across * unit_down));
  EXPECT_DOUBLE_EQ(drawn.Of(Kind::kCross).at(0).across, 40 * unit_across);
  EXPECT_DOUBLE_EQ(drawn.Of(Kind::kCross).at(0).down, 80 * unit_down);
}

TEST(CurveLines, NothingIsDrawnBeyondThePlotButTheEdgesOfMarkers) {
  Dice dice(5);
  for (int i = 0; i < 300; ++i) {
    Drawn drawn;
    drawn.ranges = RandomRanges(dice);
    drawn.settings.kind = std::array{GraphKind::ViscoTime, GraphKind::ViscoTempTime,
                                     GraphKind::ViscoTemp}[static_cast<std::size_t>(i % 3)];
    drawn.settings.visco_axis = dice.Once(3) ? ViscoAxis::Log : ViscoAxis::Linear;
    drawn.settings.MarkerEvery = dice.Int(0, 4);
    drawn.Draw(RandomReadings(dice));
    for (const Call& call : drawn.calls) {
      for (const Point& point : {call.line.from, call.kind == Kind::kLine ? call.line.to : call.line.from}) {
        EXPECT_TRUE(point.x >= 0 && point.x <= kPlot.width && point.y >= 0 && point.y <= kPlot.height)
            << testing::PrintToString(call);
      }
    }
  }
}

TEST(CurveLines, ALineIntoTheDistanceEndsAtTheEdge) {
  Drawn drawn;
  drawn.Draw({{1, 0, 50, 0}, {1, 90, 150, 0}, {1, 180, 50, 0}});
  EXPECT_THAT(drawn.Lines(), ElementsAre(platform::Segment{{0, 5195}, {1860, 0}},
                                         platform::Segment{{5580, 0}, {7440, 5195}}));
}

TEST(CurveLines, OfLargerDotsLieAtTheSamePlacesWithAsMuchRoomOnEverySide) {
  for (const int dot : {1, 2, 10}) {
    Drawn drawn;
    drawn.Draw(ValuesOf({{1, 0, 0, 0}, {1, 90, 50, 0}, {1, 180, 0, 0}}), kPlot, dot);
    const std::vector<Call> lines = drawn.Of(Kind::kLine);
    ASSERT_EQ(lines.size(), 2U) << dot;
    const platform::Viewport& viewport = lines[0].viewport;
    EXPECT_EQ(viewport.DeviceX(lines[0].line.to.x), 1240 + 3720) << dot;
    EXPECT_NEAR(viewport.DeviceY(lines[0].line.to.y), 1039 + 5195, dot) << dot;
    const PixelRectangle& area = viewport.Area();
    const int room = kPlot.left - area.left;
    EXPECT_GT(room, 0) << dot;
    EXPECT_EQ(area, (PixelRectangle{kPlot.left - room, kPlot.top - room, kPlot.width + 2 * room,
                                    kPlot.height + 2 * room}))
        << dot;
  }
}

TEST(CurveLines, OnRangesThatSpanNothingThereIsNoCurve) {
  const std::vector<TestReading> readings = {{1, 0, 10, 20}, {1, 90, 60, 40}};
  const auto lines = [&](GraphKind kind, const std::function<void(Drawn&)>& change) {
    Drawn drawn;
    drawn.settings.kind = kind;
    change(drawn);
    drawn.Draw(readings);
    return drawn.calls.size();
  };
  EXPECT_EQ(lines(GraphKind::ViscoTime, [](Drawn& drawn) { drawn.ranges.TimeMax = 0; }), 0U);
  EXPECT_EQ(lines(GraphKind::ViscoTime, [](Drawn& drawn) { drawn.ranges.ViscoMax = 0; }), 0U);
  EXPECT_EQ(lines(GraphKind::ViscoTime, [](Drawn& drawn) { drawn.ranges.ViscoMax = -5; }), 0U);
  EXPECT_EQ(lines(GraphKind::ViscoTemp, [](Drawn& drawn) { drawn.ranges.TempMax = 0; }), 0U);
  EXPECT_EQ(lines(GraphKind::ViscoTempTime, [](Drawn& drawn) { drawn.ranges.TempMax = 0; }), 2U);
  EXPECT_EQ(lines(GraphKind::ViscoTime,
                  [](Drawn& drawn) {
                    drawn.settings.visco_axis = ViscoAxis::Log;
                    drawn.ranges.ViscoLogMax = 0;
                  }),
            0U);
}

TEST(CurveLines, OnTheLogarithmicAxisWhatIsNotPositiveStandsAtDecadeZero) {
  Drawn drawn;
  drawn.settings.visco_axis = ViscoAxis::Log;
  drawn.ranges.ViscoLogMin = -1;
  drawn.ranges.ViscoLogMax = 1;
  drawn.Draw({{1, 0, 1, 0}, {1, 60, -5, 0}, {1, 120, 0, 0}, {1, 180, 10, 0}});
  EXPECT_THAT(drawn.Lines(), ElementsAre(platform::Segment{{0, 5195}, {4960, 5195}},
                                         platform::Segment{{4960, 5195}, {7440, 0}}));
}

TEST(CurveLines, AMillionReadingsBecomeSomeThousandLines) {
  Dice dice(11);
  data::MeasurementTable table;
  constexpr int kReadings = 1'000'000;
  for (int i = 0; i < kReadings; ++i) {
    const std::string cells[] = {"1", std::to_string(180.0 * i / kReadings),
                                 std::to_string(dice.Int(0, 9999) / 100.0),
                                 std::to_string(dice.Int(0, 9999) / 100.0)};
    table.AppendRow(std::vector<std::string_view>(std::begin(cells), std::end(cells)));
  }
  ValueArrays values;
  CopyAll(values, table);
  Drawn drawn;
  drawn.settings.MarkerEvery = 4;
  drawn.Draw(values);
  EXPECT_LE(drawn.Count(Kind::kLine), 2U * 7441);
  EXPECT_LE(drawn.Count(Kind::kCircle), 20'000U);
  drawn.settings.kind = GraphKind::ViscoTemp;
  drawn.settings.MarkerEvery = 0;
  drawn.Draw(values);
  EXPECT_LE(drawn.Count(Kind::kLine), 60'000U);
}

TEST(CurveLines, RunsThatLieUnderOthersCostNothing) {
  Dice dice(12);
  std::vector<TestReading> readings;
  for (int run = 1; run <= 500; ++run) {
    for (int i = 0; i < 200; ++i) readings.push_back({run, 0.9 * i, dice.Real(40, 45), dice.Real(20, 25)});
  }
  Drawn drawn;
  drawn.Draw(readings);
  EXPECT_LE(drawn.Count(Kind::kLine), 15'000U);
  // The newest is whole, and on top.
  const auto lines = drawn.Of(Kind::kLine);
  EXPECT_GE(std::ranges::count_if(lines, [](const Call& call) { return call.pen.color == Series(0); }), 150);
  EXPECT_EQ(lines.back().pen.color, Series(0));
}

TEST(CurveLines, LinesAreHandedOverInBatches) {
  std::vector<TestReading> readings;
  for (int i = 0; i < 3000; ++i) readings.push_back({1, 0.06 * i, i % 2 * 80.0, 20});
  Drawn drawn;
  drawn.Draw(readings);
  EXPECT_GT(drawn.Count(Kind::kLine), 2000U);
  EXPECT_LE(drawn.line_batches, 2);
}

TEST(CurveLines, WithoutReadingsOrRoomNothingIsDrawn) {
  Drawn drawn;
  drawn.Draw(ValueArrays());
  EXPECT_TRUE(drawn.calls.empty());
  drawn.Draw(ValuesOf({{1, 0, 10, 20}, {1, 90, 60, 40}}), {0, 0, 0, 50});
  EXPECT_TRUE(drawn.calls.empty());
}

}  // namespace
}  // namespace quenlor::graph
