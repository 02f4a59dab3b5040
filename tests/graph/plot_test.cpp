// SPDX-License-Identifier: MIT
#include "graph/plot.h"

#include <cmath>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/graph/plot_calls.h"

namespace quenlor::graph {
namespace {

using platform::memory::RecordingSurface;
using testing::ElementsAreArray;

TEST(Fig, WithoutReadingsDrawsTheGridAndNothingElse) {
  const ValueArrays values = ValuesOf({});
  Plot plot(values);
  plot.Set(SettingsOf(GraphKind::ViscoTime), {});
  RecordingSurface surface(800, 1350);
  plot.Fig(surface, {8000, 13500});
  EXPECT_EQ(surface.Calls(Kind::kClear).size(), 2U);
  EXPECT_EQ(surface.Calls(Kind::kLine).size(), 18U);
  EXPECT_EQ(surface.Calls().size(), 20U);
}

TEST(Fig, ClearsBothPicturesToTheBackgroundAndLaysThePlotIntoTheArea) {
  const ValueArrays values = ValuesOf({{1, 90, 50}});
  Plot plot(values);
  PlotSettings settings = SettingsOf(GraphKind::ViscoTime);
  settings.BackColor = Color{0x000000};
  settings.GridColor = Color{0xFFFFFF};
  plot.Set(settings, {});
  RecordingSurface surface(800, 1350);
  plot.Fig(surface, {8000, 13500});
  const auto cleared = surface.Calls(Kind::kClear);
  EXPECT_EQ(cleared[0].viewport.Area(), surface.Whole());
  EXPECT_EQ(cleared[1].viewport.Area(), (platform::PixelRectangle{90, 90, 620, 1020}));
  EXPECT_EQ(cleared[0].pen.color, kBlackPen);
  EXPECT_EQ(cleared[1].pen.color, kBlackPen);
  EXPECT_EQ(surface.Calls().back().kind, Kind::kCircle);
  EXPECT_EQ(surface.Calls().back().viewport, cleared[1].viewport);
}

TEST(Fig, SwitchingToViscoTempHidesTicksAndLegendAndHasTenDivisions) {
  const ValueArrays values = ValuesOf({});
  Plot plot(values);
  const auto lines = [&](GraphKind kind) {
    plot.Set(SettingsOf(kind), {});
    RecordingSurface surface;
    plot.Fig(surface, {8000, 13500});
    return Lines(surface.Calls()).size();
  };
  EXPECT_EQ(lines(GraphKind::ViscoTempTime), 7U + 11U + 9U + 4U);
  EXPECT_EQ(lines(GraphKind::ViscoTemp), 11U + 11U);
}

TEST(Fig, DrawsEveryReadingOfASparseRunAsPlotRowDoes) {
  const std::vector<TestReading> readings = {
      {1, 0, 10, 20}, {1, 50, 30, 25}, {2, 60, 1e308, 20}, {2, 170, -4, 0}};
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  const auto settings = SettingsOf(GraphKind::ViscoTempTime, ViscoAxis::Linear, 1);
  plot.Set(settings, {});
  RecordingSurface surface;
  plot.DrawCurves(surface, surface.Whole());
  const auto rows = RowsOf(readings, settings);
  EXPECT_THAT(Lines(surface.Calls()), ElementsAreArray(Lines(rows)));
  EXPECT_THAT(Positions(surface.Calls(), Kind::kCircle), ElementsAreArray(Positions(rows, Kind::kCircle)));
  EXPECT_THAT(Positions(surface.Calls(), Kind::kCross), ElementsAreArray(Positions(rows, Kind::kCross)));
}

TEST(Fig, DrawsTwoLinesForAPixelColumnFullOfReadings) {
  std::vector<TestReading> readings;
  for (int i = 0; i < 18000; ++i) readings.push_back({1, i * 0.01, 50 + 40 * std::sin(i * 0.1), 0});
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  plot.Set(SettingsOf(GraphKind::ViscoTime), {});
  RecordingSurface surface(102, 100);
  plot.DrawCurves(surface, surface.Whole());
  EXPECT_LE(surface.Calls(Kind::kLine).size(), 202U);
  EXPECT_EQ(surface.LineBatches(), 1);
}

TEST(Fig, DoesNotDrawWhatLiesOutOfSight) {
  std::vector<TestReading> readings;
  for (int i = 0; i < 5000; ++i) readings.push_back({1, i * 1.0, i % 90 * 1.0, 0});
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  data::AxisRanges ranges;
  ranges.TimeMin = 2000;
  ranges.TimeMax = 2010;
  plot.Set(SettingsOf(GraphKind::ViscoTime), ranges);
  RecordingSurface surface(102, 100);
  plot.DrawCurves(surface, surface.Whole());
  EXPECT_LE(surface.Calls(Kind::kLine).size(), 40U);
}

TEST(Fig, SparseRunsMayBeSmooth) {
  std::vector<TestReading> readings;
  for (int i = 0; i < 20; ++i) readings.push_back({1, i * 9.0, 50, 0});
  for (int i = 0; i < 200; ++i) readings.push_back({2, i * 0.9, 60, 0});
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  PlotSettings settings = SettingsOf(GraphKind::ViscoTime);
  settings.smooth_sparse_runs = true;
  plot.Set(settings, {});
  RecordingSurface surface(100, 100);
  plot.DrawCurves(surface, surface.Whole());
  int smooth = 0;
  for (const Call& call : surface.Calls(Kind::kLine)) {
    EXPECT_EQ(call.pen.smooth, call.pen.color == Series(1));
    smooth += call.pen.smooth;
  }
  EXPECT_EQ(smooth, 19);
}

TEST(Fig, APictureWithoutAPixelGetsNothing) {
  const ValueArrays values = ValuesOf({{1}, {1}});
  const Plot plot(values);
  for (const auto& [width, height] : {std::pair{0, 0}, {0, 100}, {100, 0}, {-5, 100}, {2, 2}}) {
    RecordingSurface surface(width, height);
    plot.Fig(surface, {static_cast<float>(width), static_cast<float>(height)});
    plot.DrawGrid(surface, {0, 0, width, 0});
    plot.PlotRow(surface, {0, 0, 0, height}, 1);
    EXPECT_EQ(surface.Calls().empty(), width <= 0 || height <= 0);
  }
}

enum class Drawn { Nothing, AppendedRows, Everything };

class KeptPlotTest : public testing::Test {
 protected:
  KeptPlotTest() {
    for (int i = 0; i < 50; ++i) Arrive({1, i * 1.0, i * 2.0, 30});
    plot_.Set(settings_, ranges_);
  }

  void Arrive(const TestReading& reading) {
    Append(table_, reading);
    CopyNewest(values_, table_);
  }
  Drawn Update() {
    surface_.Forget();
    kept_.Update(surface_, surface_.Whole());
    if (surface_.Calls().empty()) return Drawn::Nothing;
    return surface_.Calls(Kind::kClear).empty() ? Drawn::AppendedRows : Drawn::Everything;
  }

  data::MeasurementTable table_;
  ValueArrays values_;
  PlotSettings settings_ = SettingsOf(GraphKind::ViscoTempTime);
  data::AxisRanges ranges_;
  Plot plot_{values_};
  KeptPlot kept_{plot_};
  RecordingSurface surface_{200, 200};
};

TEST_F(KeptPlotTest, IsDrawnWholeAtFirstAndThenLeftAlone) {
  EXPECT_EQ(Update(), Drawn::Everything);
  EXPECT_EQ(Update(), Drawn::Nothing);
}

TEST_F(KeptPlotTest, TakesOnlyTheAppendedRows) {
  Update();
  Arrive({1, 60, 40, 31});
  Arrive({1, 70, 41, 32});
  EXPECT_EQ(Update(), Drawn::AppendedRows);
  EXPECT_EQ(surface_.Calls().size(), 4U) << "two lines of each curve";
}

TEST_F(KeptPlotTest, IsDrawnWholeAfterAnyOtherChange) {
  const std::function<void()> kChanges[] = {
      [&] { settings_.LineWidth = 1; },
      [&] { settings_.MarkerEvery = 1; },
      [&] { settings_.colors[1] = Color{0x123456}; },
      [&] { settings_.BackColor = Color{0}; },
      [&] { settings_.GridColor = Color{0x888888}; },
      [&] { settings_.visco_axis = ViscoAxis::Log; },
      [&] { settings_.kind = GraphKind::ViscoTemp; },
      [&] { settings_.smooth_sparse_runs = true; },
      [&] { ranges_.TimeMax = 360; },
      [&] { ranges_.ViscoMin = -1; },
      [&] { ranges_.TempMax = 101; },
      [&] { ranges_.ViscoLogMax = 4; },
      [&] { values_.CopyAll_Visco(table_, kViscoColumn); },
      [&] {
        Arrive({2, 0, 0, 0});
      },  // the second series changes the temperature's colour
      [&] { kept_.Forget(); },
      [&] { surface_ = RecordingSurface(200, 201); },
      [&] { surface_ = RecordingSurface(200, 201, 2); },
  };
  Update();
  int number = 0;
  for (const auto& change : kChanges) {
    change();
    plot_.Set(settings_, ranges_);
    EXPECT_EQ(Update(), Drawn::Everything) << "change " << number++;
    EXPECT_EQ(Update(), Drawn::Nothing);
  }
}

TEST_F(KeptPlotTest, IsWithoutTheNewestRunAsLongAsThatIsSmooth) {
  settings_.smooth_sparse_runs = true;
  plot_.Set(settings_, ranges_);
  EXPECT_EQ(Update(), Drawn::Everything);
  EXPECT_TRUE(surface_.Calls(Kind::kCircle).empty());
  EXPECT_TRUE(kept_.LacksNewest());
  surface_.Forget();
  kept_.DrawNewest(surface_, surface_.Whole());
  EXPECT_EQ(surface_.Calls(Kind::kCircle).size(), 1U);

  for (int i = 50; i < 199; ++i) Arrive({1, i * 0.9, 50, 30});
  EXPECT_EQ(Update(), Drawn::Nothing);
  EXPECT_TRUE(kept_.LacksNewest());

  Arrive({1, 180, 50, 30});
  EXPECT_EQ(Update(), Drawn::AppendedRows) << "now it is dense";
  EXPECT_FALSE(kept_.LacksNewest());
  Arrive({1, 180, 51, 30});
  EXPECT_EQ(Update(), Drawn::AppendedRows);
}

TEST_F(KeptPlotTest, IsDrawnWholeAfterADeletionThatLeavesAsManyRows) {
  Update();
  table_.RemoveRows(3, 3);
  CopyAll(values_, table_);
  Arrive({1, 99, 1, 2});
  EXPECT_EQ(Update(), Drawn::Everything);
}

}  // namespace
}  // namespace quenlor::graph
