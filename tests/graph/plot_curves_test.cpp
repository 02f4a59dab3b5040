// SPDX-License-Identifier: MIT
#include "graph/plot_curves.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/graph/plot_calls.h"

namespace quenlor::graph {
namespace {

using platform::LineStyle;
using platform::Pen;
using platform::Point;
using platform::Segment;
using platform::memory::RecordingSurface;
using testing::ElementsAre;

TEST(PlotRow, DrawsTheMarkerAndTheLineFromTheReadingBefore) {
  const auto calls = RowsOf({{2, 0, 50}, {2, 90, 75}, {2, 180, 0}}, SettingsOf(GraphKind::ViscoTime));
  ASSERT_EQ(calls.size(), 3U);
  EXPECT_EQ(calls[0].kind, Kind::kCircle);
  EXPECT_EQ(calls[0].line.from, (Point{0, 5000}));
  EXPECT_EQ(calls[0].across, 50);
  EXPECT_EQ(calls[1].line, (Segment{{0, 5000}, {3000, 2500}}));
  EXPECT_EQ(calls[2].line, (Segment{{3000, 2500}, {6000, 10000}}));
  for (const Call& call : calls) {
    EXPECT_EQ(call.pen, (Pen{Series(2), 2}));
    EXPECT_EQ(call.viewport.CoordinateSystem(), (platform::Units{-60, -100, 6120, 10200}));
  }
}

TEST(PlotRow, DrawsWithTheChosenLineWidth) {
  for (const Call& call : RowsOf({{1}, {1}}, SettingsOf(GraphKind::ViscoTempTime, ViscoAxis::Linear, 1, 1))) {
    EXPECT_EQ(call.pen.width, 1);
    EXPECT_EQ(call.pen.style, LineStyle::kSolid);
  }
}

TEST(PlotRow, TwoCurvesHaveCircleAndCross) {
  const auto calls =
      RowsOf({{1, 0, 50, 25}, {1, 90, 75, 50}}, SettingsOf(GraphKind::ViscoTempTime, ViscoAxis::Linear, 1));
  ASSERT_EQ(calls.size(), 6U);
  EXPECT_EQ(calls[0].kind, Kind::kCircle);
  EXPECT_EQ(calls[1].kind, Kind::kCross);
  EXPECT_EQ(calls[1].line.from, (Point{0, 7500}));
  EXPECT_EQ(calls[1].across, 40);
  EXPECT_EQ(calls[1].down, 80);
  EXPECT_EQ(calls[2].kind, Kind::kCircle);
  EXPECT_EQ(calls[3].line, (Segment{{0, 5000}, {3000, 2500}}));
  EXPECT_EQ(calls[4].kind, Kind::kCross);
  EXPECT_EQ(calls[5].line, (Segment{{0, 7500}, {3000, 5000}}));
}

TEST(PlotRow, TheTemperatureHasAColourOfItsOwnWhileThereIsOneSeries) {
  const auto one = RowsOf({{1}}, SettingsOf(GraphKind::ViscoTempTime));
  EXPECT_EQ(one[0].pen.color, Series(1));
  EXPECT_EQ(one[1].pen.color, Series(3));
  const auto two = RowsOf({{1}, {2}}, SettingsOf(GraphKind::ViscoTempTime));
  EXPECT_EQ(two[1].pen.color, Series(1));
  EXPECT_EQ(two[3].pen.color, Series(2));
}

TEST(PlotRow, OverTemperatureXComesFromTheTemperature) {
  const auto calls = RowsOf({{1, 0, 50, 0}, {1, 7, 60, 100}}, SettingsOf(GraphKind::ViscoTemp));
  EXPECT_THAT(Lines(calls), ElementsAre(Segment{{0, 5000}, {10000, 4000}}));
  EXPECT_TRUE(Positions(calls, Kind::kCross).empty());
}

TEST(PlotRow, OnTheLogAxisDecadesAreEquallyFarApart) {
  const auto calls = RowsOf({{1, 0, 1}, {1, 0, 10}, {1, 0, 100}, {1, 0, -5}},
                            SettingsOf(GraphKind::ViscoTime, ViscoAxis::Log));
  EXPECT_THAT(Lines(calls), ElementsAre(Segment{{0, 10000}, {0, 5000}}, Segment{{0, 5000}, {0, 0}},
                                        Segment{{0, 0}, {0, 10000}}));
}

TEST(PlotRow, RunsAreNotJoined) {
  const auto calls = RowsOf({{1, 0, 1}, {2, 90, 2}, {1, 180, 3}}, SettingsOf(GraphKind::ViscoTime));
  EXPECT_TRUE(Lines(calls).empty());
  EXPECT_EQ(calls.size(), 3U) << "each run's first marker";
}

TEST(PlotRow, RunsOneAndElevenShareAColour) {
  const auto calls = RowsOf({{1}, {11}, {10}, {20}}, SettingsOf(GraphKind::ViscoTime));
  EXPECT_EQ(calls[0].pen.color, calls[1].pen.color);
  EXPECT_EQ(calls[2].pen.color, Series(0));
  EXPECT_EQ(calls[3].pen.color, Series(0));
}

TEST(PlotRow, MarkersCountFromTheSeriesStart) {
  struct {
    int MarkerEvery;
    std::vector<int> marked;  // of two series of 13 points each
  } const kCases[] = {
      {0, {1, 14}},
      {1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26}},
      {2, {1, 3, 5, 7, 9, 11, 13, 14, 16, 18, 20, 22, 24, 26}},
      {3, {1, 6, 11, 14, 19, 24}},
      {4, {1, 11, 14, 24}},
      {-1, {1, 14}},
      {5, {1, 14}}};
  std::vector<TestReading> readings;
  for (int i = 0; i < 26; ++i) readings.push_back({1 + i / 13, i * 6.0, 50, 50});
  for (const auto& [MarkerEvery, marked] : kCases) {
    const auto calls = RowsOf(readings, SettingsOf(GraphKind::ViscoTempTime, ViscoAxis::Linear, MarkerEvery));
    for (const Kind kind : {Kind::kCircle, Kind::kCross}) {
      std::vector<int> found;
      for (const Point& point : Positions(calls, kind))
        found.push_back(static_cast<int>(std::lround(point.x / 200)) + 1);
      EXPECT_EQ(found, marked) << "item " << MarkerEvery;
    }
  }
}

TEST(PlotRow, EmptyRangesHideOnlyTheirCurve) {
  data::AxisRanges ranges;
  ranges.ViscoMin = ranges.ViscoMax;
  const auto settings = SettingsOf(GraphKind::ViscoTempTime);
  EXPECT_TRUE(Positions(RowsOf({{1}}, settings, ranges), Kind::kCircle).empty());
  EXPECT_EQ(Positions(RowsOf({{1}}, settings, ranges), Kind::kCross).size(), 1U);
  ranges = {};
  ranges.TempMin = ranges.TempMax;
  EXPECT_EQ(Positions(RowsOf({{1}}, settings, ranges), Kind::kCircle).size(), 1U);
  EXPECT_TRUE(Positions(RowsOf({{1}}, settings, ranges), Kind::kCross).empty());
}

TEST(PlotRow, RowsThatAreNotThereDrawNothing) {
  const ValueArrays values = ValuesOf({{1}});
  Plot plot(values);
  RecordingSurface surface;
  for (const Plot::Row row : {-1, 0, 2, 100}) plot.PlotRow(surface, surface.Whole(), row);
  EXPECT_TRUE(surface.Calls().empty());
}

}  // namespace
}  // namespace quenlor::graph
