// SPDX-License-Identifier: MIT
// What is painted pixel for pixel: the plot looks at few readings, yet leaves the same picture as all
// of them would.

#include <QImage>
#include <QPainter>
#include <cmath>
#include <functional>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/plot.h"
#include "platform/qt/qt_drawing_surface.h"
#include "tests/graph/random_readings.h"

namespace quenlor::graph {
namespace {

using platform::DrawingSurface;
using platform::PixelRectangle;
using platform::Point;
using platform::qt::QtDrawingSurface;

QImage Picture(QSize size, double pen_scale, const std::function<void(DrawingSurface&)>& draw) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QtDrawingSurface surface(painter, size, pen_scale);
  draw(surface);
  return image;
}

// Every reading in its turn, each line by itself.
void DrawNaively(DrawingSurface& surface, const std::vector<TestReading>& readings, const ValueArrays& values,
                 const Plot& plot, const PixelRectangle& area) {
  const PlotAxes& axes = plot.Axes();
  const PlotSettings& settings = plot.Settings();
  surface.SetViewport({area, axes.PlotUnits()});
  const auto x = [&](const TestReading& r) {
    return axes.X(settings.kind == GraphKind::ViscoTemp ? r.temp : r.time);
  };
  const auto visco = [&](const TestReading& r) { return Point{x(r), axes.ViscoY(r.visco)}; };
  const auto temp = [&](const TestReading& r) { return Point{x(r), axes.TempY(r.temp)}; };
  constexpr int kEvery[] = {0, 1, 2, 5, 10};
  const int every = kEvery[settings.MarkerEvery];
  int MarkerCounter = 0;
  const TestReading* previous = nullptr;
  for (const TestReading& reading : readings) {
    const bool start = previous == nullptr || previous->run != reading.run;
    if (start) MarkerCounter = 0;
    if (every == 1) MarkerCounter = 1;
    if (every > 1) MarkerCounter = (MarkerCounter + 1) % every;
    const bool marker = start || MarkerCounter == 1;
    const platform::Rgb color = ToRgb(RunColor(settings.colors, reading.run));
    if (axes.ShowsVisco()) {
      surface.SetPen({color, 1.0 * settings.LineWidth});
      if (marker) surface.DrawCircle(visco(reading), 50);
      if (!start) surface.DrawLine(visco(*previous), visco(reading));
    }
    if (axes.ShowsTemp()) {
      surface.SetPen(
          {values.SeriesCount() >= 2 ? color : ToRgb(settings.colors[3]), 1.0 * settings.LineWidth});
      if (marker) surface.DrawCross(temp(reading), 40, 80);
      if (!start) surface.DrawLine(temp(*previous), temp(reading));
    }
    previous = &reading;
  }
}

int DifferentPixels(const QImage& one, const QImage& other) {
  int different = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) different += one.pixel(x, y) != other.pixel(x, y);
  }
  return different;
}

struct Look {
  GraphKind kind;
  ViscoAxis visco_axis;
  int MarkerEvery;
};

class PlotPixels : public testing::TestWithParam<Look> {};

TEST_P(PlotPixels, AreThoseOfDrawingEveryReadingInItsTurn) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    Dice dice(seed);
    const auto readings = RandomReadings(dice);
    const ValueArrays values = ValuesOf(readings);
    PlotSettings settings;
    settings.kind = GetParam().kind;
    settings.visco_axis = GetParam().visco_axis;
    settings.MarkerEvery = GetParam().MarkerEvery;
    settings.LineWidth = dice.Int(1, 2);
    Plot plot(values);
    plot.Set(settings, RandomRanges(dice));
    const QSize size(dice.Int(1, 150), dice.Int(1, 120));
    const double pen_scale = dice.AnyOf({1, 1, 1.5, 2});
    const PixelRectangle area{dice.Int(0, 3), dice.Int(0, 3), size.width() - dice.Int(0, 5),
                              size.height() - dice.Int(0, 5)};
    if (area.Empty()) continue;

    const QImage naive = Picture(size, pen_scale, [&](DrawingSurface& surface) {
      DrawNaively(surface, readings, values, plot, area);
    });
    const QImage drawn =
        Picture(size, pen_scale, [&](DrawingSurface& surface) { plot.DrawCurves(surface, area); });

    ASSERT_EQ(DifferentPixels(naive, drawn), 0)
        << "seed " << seed << ", " << readings.size() << " readings, line width " << settings.LineWidth
        << ", pen scale " << pen_scale << ", " << values.Runs().size() << " runs, " << size.width() << " x "
        << size.height();
  }
}

std::vector<Look> AllLooks() {
  std::vector<Look> looks;
  for (const GraphKind kind : {GraphKind::ViscoTime, GraphKind::ViscoTempTime, GraphKind::ViscoTemp}) {
    for (const ViscoAxis axis : {ViscoAxis::Linear, ViscoAxis::Log}) {
      for (int marker = 0; marker < 5; ++marker) looks.push_back({kind, axis, marker});
    }
  }
  return looks;
}

std::string NameOf(const testing::TestParamInfo<Look>& info) {
  constexpr const char* kKinds[] = {"ViscoTime", "ViscoTempTime", "ViscoTemp"};
  return std::string(kKinds[static_cast<int>(info.param.kind)]) +
         (info.param.visco_axis == ViscoAxis::Log ? "Log" : "Linear") + "Marker" +
         std::to_string(info.param.MarkerEvery);
}

INSTANTIATE_TEST_SUITE_P(All, PlotPixels, testing::ValuesIn(AllLooks()), NameOf);

// ---- many readings that jump from column to column

std::vector<TestReading> NoisyReadings(Dice& dice) {
  std::vector<TestReading> readings;
  const int runs = dice.Int(1, 3);
  const int kind = dice.Int(0, 3);
  const double noise = dice.AnyOf({0.5, 5, 40});
  const double drift = dice.Real(-0.01, 0.01);
  for (int run = 1; run <= runs; ++run) {
    double temp = dice.Real(20, 80);
    double visco = dice.Real(20, 80);
    const int count = dice.Int(5000, 14000);
    for (int i = 0; i < count; ++i) {
      const double way = kind == 0   ? dice.Real(-20, 20)
                         : kind == 1 ? dice.AnyOf({-15, 15}) + dice.Real(-1, 1)
                         : kind == 2 ? std::tan(dice.Real(-1.5, 1.5))
                                     : 20 * std::sin(i * 1.3);
      const double spike = dice.Once(2000) ? dice.AnyOf({1e4, -1e6, 1e9, -1e308}) : 0;
      readings.push_back({run, i * 0.1, visco + dice.Real(-noise, noise), temp + way + spike});
      visco += drift;
      temp += drift / 3;
    }
  }
  return readings;
}

TEST(TanglePixels, AreThoseOfDrawingEveryReadingInItsTurn) {
  for (unsigned seed = 0; seed < 80; ++seed) {
    Dice dice(seed);
    const auto readings = NoisyReadings(dice);
    const ValueArrays values = ValuesOf(readings);
    PlotSettings settings;
    settings.kind = GraphKind::ViscoTemp;
    settings.visco_axis = static_cast<ViscoAxis>(dice.Int(0, 1));
    settings.MarkerEvery = static_cast<int>(dice.AnyOf({0, 0, 0, 1, 4}));
    settings.LineWidth = dice.Int(1, 2);
    data::AxisRanges ranges;
    ranges.TempMin = 0;
    ranges.TempMax = dice.AnyOf({60, 100});
    ranges.ViscoMin = 0;
    ranges.ViscoMax = dice.AnyOf({50, 100, 200});
    Plot plot(values);
    plot.Set(settings, ranges);
    const QSize size(dice.Int(20, 250), dice.Int(20, 200));
    const double pen_scale = dice.AnyOf({1, 1, 1.25, 1.5, 2, 2.5, 3, 4});
    const PixelRectangle area{dice.Int(-3, 3), dice.Int(-3, 3), size.width(), size.height()};
    const QImage naive = Picture(size, pen_scale, [&](DrawingSurface& surface) {
      DrawNaively(surface, readings, values, plot, area);
    });
    const QImage drawn =
        Picture(size, pen_scale, [&](DrawingSurface& surface) { plot.DrawCurves(surface, area); });
    ASSERT_EQ(DifferentPixels(naive, drawn), 0)
        << "seed " << seed << ", " << readings.size() << " readings, line width " << settings.LineWidth
        << ", pen scale " << pen_scale << ", " << size.width() << " x " << size.height();
  }
}

// ---- two curves over each other

TEST(TwoCurvePixels, OfFewReadingsInAColumnAreThoseOfDrawingEachInItsTurn) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    Dice dice(seed);
    const QSize size(dice.Int(20, 150), dice.Int(20, 120));
    const int count = size.width() * dice.Int(2, 5);
    std::vector<TestReading> readings;
    for (int i = 0; i < count; ++i)
      readings.push_back({1, i * 180.0 / count, dice.Real(30, 70), dice.Real(30, 70)});
    const ValueArrays values = ValuesOf(readings);
    PlotSettings settings;
    settings.kind = GraphKind::ViscoTempTime;
    Plot plot(values);
    plot.Set(settings, {});
    const PixelRectangle area{0, 0, size.width(), size.height()};
    const QImage naive = Picture(
        size, 1, [&](DrawingSurface& surface) { DrawNaively(surface, readings, values, plot, area); });
    const QImage drawn = Picture(size, 1, [&](DrawingSurface& surface) { plot.DrawCurves(surface, area); });
    ASSERT_EQ(DifferentPixels(naive, drawn), 0) << "seed " << seed << ", " << count << " readings";
  }
}

// ---- many readings in each column, of which the uprights hide the ways between

TEST(DensePixels, AreThoseOfDrawingEveryReadingInItsTurn) {
  for (unsigned seed = 0; seed < 150; ++seed) {
    Dice dice(seed);
    std::vector<TestReading> readings;
    const int runs = dice.Int(1, 3);
    const int in_column = dice.Int(2, 12);
    const double noise = dice.AnyOf({0.5, 3, 10, 40});
    const double drift = dice.Real(-3, 3);
    const QSize size(dice.Int(20, 120), dice.Int(20, 200));
    for (int run = 1; run <= runs; ++run) {
      for (int i = 0; i < size.width() * in_column; ++i) {
        const double column = 1.0 * i / in_column;
        const double visco = 50 + 30 * std::sin(column * 0.05 * drift) + dice.Real(-noise, noise);
        const double temp = 40 + 20 * std::sin(column * 0.03) + dice.Real(-noise, noise);
        readings.push_back({run, column * 180 / size.width(), visco, temp});
      }
    }
    const ValueArrays values = ValuesOf(readings);
    PlotSettings settings;
    settings.kind = static_cast<GraphKind>(dice.Int(0, 1));
    settings.visco_axis = static_cast<ViscoAxis>(dice.Int(0, 1));
    settings.MarkerEvery = static_cast<int>(dice.AnyOf({0, 0, 1, 4}));
    settings.LineWidth = dice.Int(1, 3);
    Plot plot(values);
    plot.Set(settings, {});
    const double pen_scale = dice.AnyOf({1, 1, 1.25, 1.5, 2, 3, 4});
    const PixelRectangle area{0, 0, size.width(), size.height()};
    const QImage naive = Picture(size, pen_scale, [&](DrawingSurface& surface) {
      DrawNaively(surface, readings, values, plot, area);
    });
    const QImage drawn =
        Picture(size, pen_scale, [&](DrawingSurface& surface) { plot.DrawCurves(surface, area); });
    ASSERT_EQ(DifferentPixels(naive, drawn), 0)
        << "seed " << seed << ", " << runs << " runs, " << in_column << " readings in a column, line width "
        << settings.LineWidth << ", pen scale " << pen_scale << ", " << size.width() << " x "
        << size.height();
  }
}

// ---- a kept picture

TEST(KeptPlotPixels, AreThoseOfDrawingEverything) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    Dice dice(seed);
    const auto readings = RandomReadings(dice);
    PlotSettings settings;
    settings.kind = static_cast<GraphKind>(dice.Int(0, 2));
    settings.visco_axis = static_cast<ViscoAxis>(dice.Int(0, 1));
    settings.MarkerEvery = dice.Int(0, 4);
    settings.LineWidth = dice.Int(1, 2);
    const auto ranges = RandomRanges(dice);
    const QSize size(dice.Int(5, 120), dice.Int(5, 100));
    const PixelRectangle area{0, 0, size.width(), size.height()};

    data::MeasurementTable table;
    ValueArrays values;
    Plot plot(values);
    plot.Set(settings, ranges);
    KeptPlot kept(plot);
    const QImage updated = Picture(size, 1, [&](DrawingSurface& surface) {
      for (const TestReading& reading : readings) {
        Append(table, reading);
        CopyNewest(values, table);
        if (dice.Once(20)) kept.Update(surface, area);
      }
      kept.Update(surface, area);
    });
    const QImage whole =
        Picture(size, 1, [&](DrawingSurface& surface) { KeptPlot(plot).Update(surface, area); });

    ASSERT_EQ(DifferentPixels(updated, whole), 0) << "seed " << seed;
  }
}

// ---- smooth lines

class SmoothPixels : public testing::TestWithParam<GraphKind> {};

TEST_P(SmoothPixels, OfReadingsDrawnAsTheyComeAreThoseOfDrawingEverything) {
  int smooth = 0;
  for (unsigned seed = 0; seed < 45; ++seed) {
    Dice dice(seed);
    const auto readings = RandomReadings(dice);
    PlotSettings settings;
    settings.kind = GetParam();
    settings.visco_axis = static_cast<ViscoAxis>(dice.Int(0, 1));
    settings.MarkerEvery = dice.Int(0, 4);
    settings.LineWidth = 1 + static_cast<int>(seed % 3);
    settings.smooth_sparse_runs = true;
    const QSize size(dice.Int(50, 400), dice.Int(50, 200));
    const double pen_scale = dice.AnyOf({1, 1, 1.5, 2});
    data::MeasurementTable table;
    ValueArrays values;
    Plot plot(values);
    plot.Set(settings, RandomRanges(dice));
    KeptPlot kept(plot);
    const int now_and_then = std::max(1, static_cast<int>(readings.size() / 12));
    QImage picture = Picture(size, pen_scale, [](DrawingSurface&) {});
    const auto draw = [&](QImage& image, const std::function<void(DrawingSurface&)>& drawing) {
      QPainter painter(&image);
      QtDrawingSurface surface(painter, size, pen_scale);
      drawing(surface);
    };
    for (const TestReading& reading : readings) {
      Append(table, reading);
      CopyNewest(values, table);
      if (!dice.Once(3)) continue;
      draw(picture, [&](DrawingSurface& surface) { kept.Update(surface, surface.Whole()); });
      if (!dice.Once(now_and_then)) continue;
      QImage live = picture;
      draw(live, [&](DrawingSurface& surface) { kept.DrawNewest(surface, surface.Whole()); });
      const QImage whole = Picture(size, pen_scale, [&](DrawingSurface& surface) {
        plot.DrawBackground(surface, surface.Whole());
        plot.DrawGrid(surface, surface.Whole());
        plot.DrawCurves(surface, surface.Whole());
      });
      ASSERT_EQ(DifferentPixels(live, whole), 0)
          << "seed " << seed << ", " << values.Size() << " readings, line width " << settings.LineWidth;
      smooth += live != picture;
    }
  }
  EXPECT_GT(smooth, 50) << "moments with a smooth newest run";
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, SmoothPixels,
                         testing::Values(GraphKind::ViscoTime, GraphKind::ViscoTempTime,
                                         GraphKind::ViscoTemp));

TEST(SmoothLines, HaveNoBeadsWhereTheirPiecesMeet) {
  std::vector<TestReading> many;
  for (int i = 0; i <= 90; ++i) many.push_back({1, i * 2.0, 50 + i * 0.02, 0});
  const ValueArrays pieces = ValuesOf(many);
  const ValueArrays one_piece = ValuesOf({many.front(), many.back()});
  for (const int width : {1, 2, 3}) {
    PlotSettings settings;
    settings.LineWidth = width;
    settings.smooth_sparse_runs = true;
    const auto picture = [&](const ValueArrays& values) {
      Plot plot(values);
      plot.Set(settings, {});
      return Picture({400, 120}, 1,
                     [&](DrawingSurface& surface) { plot.DrawCurves(surface, surface.Whole()); });
    };
    const QImage joined = picture(pieces);
    const QImage straight = picture(one_piece);
    for (int y = 0; y < joined.height(); ++y) {
      for (int x = 0; x < joined.width(); ++x) {
        ASSERT_NEAR(qGreen(joined.pixel(x, y)), qGreen(straight.pixel(x, y)), 8) << x << ", " << y;
      }
    }
  }
}

// ---- what would bring a plot down

PlotSettings TwoCurvesWithMarkers() {
  PlotSettings settings;
  settings.kind = GraphKind::ViscoTempTime;
  settings.MarkerEvery = 1;
  return settings;
}

int PaintedPixels(const QImage& image) {
  QImage white(image.size(), image.format());
  white.fill(Qt::white);
  return DifferentPixels(image, white);
}

TEST(PlotPicture, OfSizeZeroPaintsNothing) {
  const ValueArrays values = ValuesOf({{1, 0, 1, 2}, {1, 1, 2, 3}});
  Plot plot(values);
  plot.Set(TwoCurvesWithMarkers(), {});
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QtDrawingSurface surface(painter, {0, 0});
  plot.Fig(surface, {0, 0});
  plot.PlotRow(surface, surface.Whole(), 2);
  EXPECT_EQ(PaintedPixels(image), 0);
}

TEST(PlotPicture, OfOnePixelAndOfOneRowAndColumnIsOne) {
  const ValueArrays values = ValuesOf({{1, 0, 1, 2}, {1, 100, 80, 30}, {2, 50, 50, 50}});
  Plot plot(values);
  plot.Set(TwoCurvesWithMarkers(), {});
  for (const QSize size : {QSize(1, 1), QSize(1, 500), QSize(500, 1), QSize(3, 3)}) {
    const QImage image = Picture(size, 1, [&](DrawingSurface& surface) {
      plot.DrawGrid(surface, surface.Whole());
      plot.DrawCurves(surface, surface.Whole());
    });
    EXPECT_GT(PaintedPixels(image), 0) << size.width() << " x " << size.height();
  }
}

TEST(PlotPicture, MayBeFortyThousandPixelsWide) {
  std::vector<TestReading> readings;
  for (int i = 0; i < 2000; ++i) readings.push_back({1, i * 0.09, i % 100 * 1.0, 50});
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  plot.Set(TwoCurvesWithMarkers(), {});
  const QImage image = Picture({40000, 60}, 1, [&](DrawingSurface& surface) {
    plot.Fig(surface, {600000, 900});
  });
  EXPECT_GT(PaintedPixels(image), 40000);
}

TEST(PlotPicture, OfTenThousandRunsHasThemAll) {
  std::vector<TestReading> readings;
  for (int run = 1; run <= 10000; ++run) {
    for (int i = 0; i < 3; ++i) readings.push_back({run, i * 90.0, run * 0.01, run * 0.01});
  }
  const ValueArrays values = ValuesOf(readings);
  EXPECT_EQ(values.SeriesCount(), 10000);
  Plot plot(values);
  plot.Set(TwoCurvesWithMarkers(), {});
  const QImage image =
      Picture({300, 204}, 1, [&](DrawingSurface& surface) { plot.DrawCurves(surface, surface.Whole()); });
  // A line for every height of the plot, from edge to edge.
  for (int y = 3; y < 201; ++y) EXPECT_NE(image.pixel(150, y), QColor(Qt::white).rgb()) << y;
}

TEST(PlotPicture, OfTimesThatRunBackwardsShowsThem) {
  std::vector<TestReading> readings;
  for (int i = 5000; i > 0; --i) readings.push_back({1, i * 0.036, 50, 0});
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  plot.Set({}, {});
  const QImage image =
      Picture({306, 102}, 1, [&](DrawingSurface& surface) { plot.DrawCurves(surface, surface.Whole()); });
  for (int x = 4; x < 303; ++x) EXPECT_NE(image.pixel(x, 51), QColor(Qt::white).rgb()) << x;
}

TEST(PlotPicture, BearsEveryValueAndEveryRange) {
  const double inf = std::numeric_limits<double>::infinity();
  const double kValues[] = {
      0, 1, -1, 1e308, -1e308, 5e-324, inf, -inf, std::numeric_limits<double>::quiet_NaN()};
  std::vector<TestReading> readings;
  for (const double time : kValues) {
    for (const double value : kValues) readings.push_back({1, time, value, -value});
  }
  const ValueArrays values = ValuesOf(readings);
  Plot plot(values);
  for (const double min : kValues) {
    for (const double max : kValues) {
      data::AxisRanges ranges;
      ranges.TimeMin = ranges.ViscoMin = ranges.TempMin = min;
      ranges.TimeMax = ranges.ViscoMax = ranges.TempMax = max;
      for (int look = 0; look < 12; ++look) {
        PlotSettings settings = TwoCurvesWithMarkers();
        settings.kind = static_cast<GraphKind>(look % 3);
        settings.visco_axis = static_cast<ViscoAxis>(look / 3 % 2);
        settings.smooth_sparse_runs = look >= 6;
        settings.LineWidth = 1 + look % 2;
        plot.Set(settings, ranges);
        const QImage image = Picture({90, 70}, 1, [&](DrawingSurface& surface) {
          plot.Fig(surface, {1350, 1050});
        });
        ASSERT_GT(PaintedPixels(image), 0);
      }
    }
  }
}

TEST(PlotPicture, BearsALogAxisOfAllDecadesThatANumberCanName) {
  const ValueArrays values = ValuesOf({{1, 0, 1, 2}, {1, 100, 1e300, 3}});
  Plot plot(values);
  PlotSettings settings;
  settings.visco_axis = ViscoAxis::Log;
  data::AxisRanges ranges;
  ranges.ViscoLogMin = std::numeric_limits<std::int16_t>::min();
  ranges.ViscoLogMax = std::numeric_limits<std::int16_t>::max();
  plot.Set(settings, ranges);
  const QImage image = Picture({90, 70}, 1, [&](DrawingSurface& surface) {
    plot.Fig(surface, {1350, 1050});
  });
  EXPECT_GT(PaintedPixels(image), 0);
}

}  // namespace
}  // namespace quenlor::graph
